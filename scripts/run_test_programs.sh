#!/usr/bin/env bash
# Runs every test program whole, as many at once as there are processors, and adds
# up what passed. LOCALE is that of the environment.
#   run_test_programs.sh BUILD_FOLDER LOG_FOLDER
set -euo pipefail
build=$1
logs=$2
mkdir -p "$logs"
rm -f "$logs"/*
export logs QT_QPA_PLATFORM=offscreen UBSAN_OPTIONS=print_stacktrace=1
export LSAN_OPTIONS="suppressions=$PWD/tests/leaks.txt:print_suppressions=0"

run() { # program
  code=0
  timeout 400 "$1" --gtest_brief=1 >"$logs/$name" 2>&1 || code=$?
}

# The leak checker stops the process from outside to look at its memory, and that
# tracer of its own dies now and then: the tests have passed, nothing is known of leaks.
tracer_died() {
  [ "$code" -ne 0 ] && grep -q '^\[  PASSED  \]' "$logs/$name" && ! grep -q '^\[  FAILED  \]' "$logs/$name" &&
    grep -qE 'LeakSanitizer has encountered a fatal error|Tracer caught signal' "$logs/$name"
}

one() {
  name=$(basename "$1")
  run "$1"
  if tracer_died; then
    mv "$logs/$name" "$logs/$name.tracer"
    printf '%s ... once more: the tracer of the leak checker died (%s)\n' "$name" "$logs/$name.tracer"
    run "$1"
  fi
  if [ "$code" -eq 0 ] && grep -q '^\[  PASSED  \]' "$logs/$name"; then
    printf '%s ... %s\n' "$name" "$(grep '^\[  PASSED  \]' "$logs/$name")"
  else
    printf 'FAIL  %s (exit code %s)\n' "$name" "$code"
    touch "$logs/failed"
  fi
}
export -f one run tracer_died

# The longest first, so that none is left alone at the end.
ls -S "$build"/tests/*/*_test | xargs -P "$(nproc)" -I{} bash -c 'one {}'
if [ -e "$logs/failed" ]; then
  grep -hE -B 12 '^\[  FAILED  \]|ERROR: |runtime error' "$logs"/*_test || true
  exit 1
fi
sed -nE 's/^\[  PASSED  \] ([0-9]+) tests?\./\1/p' "$logs"/*_test | awk '{sum += $1} END {print sum}' >"$logs/total"
echo "$(cat "$logs/total") passed"
