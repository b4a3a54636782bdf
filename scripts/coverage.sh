#!/usr/bin/env bash
# Runs the logic and window tests with a count of the executed lines, prints it a
# folder and fails where the tests fail or reach too little of the logic.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build/coverage

# What earlier runs counted, and what was compiled of files that are gone.
ninja -C "$build" -t cleandead >/dev/null
find "$build" -name '*.gcda' -delete
find "$build" -name '*.gcno' | while read -r notes; do
  [ -e "${notes%.gcno}.o" ] || rm "$notes"
done

ctest --preset coverage >"$build/test.log" 2>&1 || { tail -n 40 "$build/test.log"; exit 1; }
grep -E 'tests passed' "$build/test.log"
gcovr --root . --object-directory "$build" --filter 'src/' --exclude '.*_autogen.*' --exclude 'src/main.cpp' \
  -j "$(nproc)" --txt "$build/report.txt" --json-summary "$build/summary.json" >"$build/gcovr.log" 2>&1 ||
  { cat "$build/gcovr.log"; exit 1; }
exec python3 scripts/coverage_table.py "$build/summary.json"
