#!/usr/bin/env bash
# The main job: solve the sample collection and check every key against the recorded answer.
# Usage: scripts/main-job.sh path/to/longmate
#
# It runs in a folder of its own under build/, so the settings are the defaults (no
# options.ini there) and the program's log and lock files stay out of the source tree.
#
# Problems 46, 48, 53, 59 and 60 are left out: on a busy 2-core machine none of them
# finished within 10 s, while the others took 47 s in all. The time limit per problem guards the
# job's length should the engine become slower; a problem that hits it counts as unsolved,
# and the exit status is then 1, as it is for any key that disagrees with the file.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
longmate="$(realpath "${1:?usage: $0 path/to/longmate}")"
problems="1-45,47,49-52,54-58"
time_limit=20

ids=()
IFS=',' read -ra ranges <<<"$problems"
for range in "${ranges[@]}"; do
  if [[ $range == *-* ]]; then ids+=($(seq "${range%-*}" "${range#*-}")); else ids+=("$range"); fi
done

work="$root/build/main-job"
mkdir -p "$work"
cd "$work"
echo "Solving ${#ids[@]} problems of data/sample_problems.cp (time limit ${time_limit} s each)"
ids_text="$(IFS=','; echo "${ids[*]}")"
# The once-a-second progress line only helps someone watching a terminal.
quiet=()
[ -t 2 ] || quiet=(--quiet)
exec "$longmate" solve "$root/data/sample_problems.cp" --problem "$ids_text" \
  --time-limit "$time_limit" "${quiet[@]}"
