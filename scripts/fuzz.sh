#!/usr/bin/env bash
# Builds the fuzz targets of tests/fuzz with clang (libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer) and runs one target, or each in turn, for a number of seconds.
# Usage: scripts/fuzz.sh [TARGET|all] [SECONDS]     (defaults: all, 60)
#
# A target starts from its seeds in tests/fuzz/corpus/TARGET and keeps what it finds in
# build/fuzz/corpus/TARGET, so later runs go on from there. Its output goes to
# build/fuzz/TARGET.log; a crash leaves the input in build/fuzz/crashes/ and ends the script
# with status 1.
set -euo pipefail
cd "$(dirname "$0")/.."
target="${1:-all}"
seconds="${2:-60}"

scripts/install-deps.sh --fuzz
cmake -S tests/fuzz -B build/fuzz -G Ninja -DCMAKE_CXX_COMPILER=clang++ \
  -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
mapfile -t targets <build/fuzz/targets.txt
if [ "$target" != all ]; then
  if ! printf '%s\n' "${targets[@]}" | grep -qx "$target"; then
    echo "Unknown fuzz target: $target (targets: ${targets[*]})" >&2
    exit 2
  fi
  targets=("$target")
fi

mkdir -p build/fuzz/crashes
for t in "${targets[@]}"; do
  cmake --build build/fuzz -j 2 --target "fuzz_$t" >/dev/null
  mkdir -p "build/fuzz/corpus/$t"
  log="build/fuzz/$t.log"
  if ! "build/fuzz/fuzz_$t" -max_total_time="$seconds" -print_final_stats=1 \
    -artifact_prefix="build/fuzz/crashes/$t-" "build/fuzz/corpus/$t" "tests/fuzz/corpus/$t" \
    >"$log" 2>&1; then
    tail -n 40 "$log"
    echo "fuzz $t: FAILED (input in build/fuzz/crashes/, output in $log)" >&2
    exit 1
  fi
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  echo "fuzz $t: ${runs:-?} runs in ${seconds} s, no failure"
done
