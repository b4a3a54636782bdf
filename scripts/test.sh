#!/usr/bin/env bash
# All tests, from nothing: logic and windows with sanitizers, the same once more
# under French, the journeys in the real program under the same sanitizers, the
# quick half of the lint.
set -euo pipefail
cd "$(dirname "$0")/.."

configure() { # preset
  [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null
}

title() { printf '\n== %s\n' "$1"; }

title "Lint (quick)"
scripts/lint.sh --quick

title "Building the program and the tests, with sanitizers"
configure sanitized
cmake --build build/sanitized

title "Logic and windows"
log=build/test.log
if ! ctest --preset sanitized >"$log" 2>&1; then
  grep -vE ' Start +[0-9]+:|   Passed ' "$log"
  exit 1
fi
tail -n 8 "$log"

title "The same under French"
locale_dir="$PWD/build/locale"
if [ ! -d "$locale_dir/fr_FR.UTF-8" ]; then
  mkdir -p "$locale_dir"
  localedef -i fr_FR -f UTF-8 "$locale_dir/fr_FR.UTF-8"
fi
for program in build/sanitized/tests/*/*_test; do
  printf '%s ... ' "$(basename "$program")"
  if LOCPATH="$locale_dir" LC_ALL=fr_FR.UTF-8 QT_QPA_PLATFORM=offscreen \
    LSAN_OPTIONS="suppressions=$PWD/tests/leaks.txt:print_suppressions=0" "$program" --gtest_brief=1 >build/french.log 2>&1; then
    tail -n 1 build/french.log
  else
    cat build/french.log
    exit 1
  fi
done

title "Journeys"
STOIKAL_BUILD=sanitized python3 tests/journeys/run.py

# The plain closing line: what ctest counted.
total=$(sed -nE 's/.*tests passed, [0-9]+ tests failed out of ([0-9]+)/\1/p' "$log")
printf '\n%s passed, 0 failed\n' "$total"
