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
LC_ALL=C.UTF-8 scripts/run_test_programs.sh build/sanitized build/logs/c
first=$(cat build/logs/c/total)

title "The same under French"
locale_dir="$PWD/build/locale"
if [ ! -d "$locale_dir/fr_FR.UTF-8" ]; then
  mkdir -p "$locale_dir"
  localedef -i fr_FR -f UTF-8 "$locale_dir/fr_FR.UTF-8"
fi
LOCPATH="$locale_dir" LC_ALL=fr_FR.UTF-8 scripts/run_test_programs.sh build/sanitized build/logs/fr

title "Journeys"
STOIKAL_BUILD=sanitized python3 tests/journeys/run.py

title "Power cuts, full disks, two programs at once"
STOIKAL_BUILD=sanitized python3 tests/faults/power_cuts.py

title "The plug pulled"
STOIKAL_BUILD=sanitized python3 tests/faults/pulled_plug.py

title "Calls of the system that fail"
STOIKAL_BUILD=sanitized python3 tests/faults/failing_calls.py 24

title "As a screen reader finds it"
STOIKAL_BUILD=sanitized tests/journeys/accessibility.py

# The plain closing line: the tests of the first round.
printf '\n%s passed, 0 failed\n' "$first"
