#!/usr/bin/env bash
# The main job: solve the sample collection and check every key against the recorded answer.
# Usage: scripts/main-job.sh path/to/longmate
#
# It runs in a folder of its own under build/, so the settings are the defaults (no
# options.ini there) and the program's log and lock files stay out of the source tree.
#
# Every problem is solved; the time limit per problem only guards the job's length should the
# engine become slower. A problem that hits it counts as unsolved and the exit status is then 1,
# as it is for any key that disagrees with the file.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
longmate="$(realpath "${1:?usage: $0 path/to/longmate}")"
time_limit=60

work="$root/build/main-job"
mkdir -p "$work"
cd "$work"
echo "Solving the problems of data/sample_problems.cp (time limit ${time_limit} s each)"
# The once-a-second progress line only helps someone watching a terminal.
quiet=()
[ -t 2 ] || quiet=(--quiet)
exec "$longmate" solve "$root/data/sample_problems.cp" --time-limit "$time_limit" "${quiet[@]}"
