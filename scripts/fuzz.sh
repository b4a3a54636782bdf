#!/usr/bin/env bash
# Runs each fuzz target for a while on its kept corpus, a minute
# each unless told (fuzz.sh 600). What a target ends at is left in build/fuzz/found.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-60}
found=build/fuzz/found
failed=0
mkdir -p "$found"
for target in build/fuzz/fuzz/*_fuzz; do
  name=$(basename "$target" _fuzz)
  work=build/fuzz/corpus/$name
  mkdir -p "$work"
  if LSAN_OPTIONS=suppressions=$PWD/tests/leaks.txt:print_suppressions=0 "$target" "$work" "fuzz/corpus/$name" \
    -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -artifact_prefix="$found/$name-" >"$found/$name.log" 2>&1; then
    printf 'OK    %s: %s\n' "$name" "$(grep -E '^Done' "$found/$name.log" | tail -n 1)"
  else
    printf 'FAIL  %s\n' "$name"
    tail -n 40 "$found/$name.log"
    failed=1
  fi
done
exit "$failed"
