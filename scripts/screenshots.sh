#!/usr/bin/env bash
# Starts the desktop program's test program under Xvfb and saves the window in a few typical
# states (sample file open, a solve in progress and its first thread's line, a result, setting mode, the problem list, a last
# move without mate, links in the description, Polish menus and buttons), its dialogs and
# pop-ups (sort indications, problem search, the search status with tags, the solution tree, the
# variant list, the board menu during a solve, the manual, Polish search and manual, the options
# and heuristics dialogs, a table command's answer) to build/screenshots/.
# Usage: scripts/screenshots.sh [BUILD_DIR]   (default build/dev, configured and built here)
set -euo pipefail
cd "$(dirname "$0")/.."
build="${1:-build/dev}"
[ -f "$build/CMakeCache.txt" ] || cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Debug >/dev/null
cmake --build "$build" --target ui_tests
out="$PWD/build/screenshots"
mkdir -p "$out"
# A sanitizer build skips what system libraries keep until the exit.
LONGMATE_SCREENSHOTS="$out" LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp" QT_QPA_PLATFORM=xcb \
  xvfb-run -a -s "-screen 0 1280x800x24" "$build/tests/ui_tests" >/dev/null
ls "$out"/*.png
