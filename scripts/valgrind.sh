#!/usr/bin/env bash
# Plays journeys in the optimised program under valgrind (valgrind.sh whole_run;
# all but the class of thirty unless told). A journey fails when memory is read or
# written where none is, when a decision hangs on what was never set, or when
# memory of our own is lost.
set -euo pipefail
cd "$(dirname "$0")/.."
logs="$PWD/build/valgrind"
mkdir -p "$logs"
rm -f "$logs"/*.log
[ $# -gt 0 ] || set -- whole_run progress_series solution_shown network_class

export STOIKAL_BUILD=release STOIKAL_SLOWNESS=20
# Code that the toolkit writes for its own expressions cannot be followed.
export STOIKAL_UNDER="env QT_ENABLE_REGEXP_JIT=0 valgrind --quiet --error-exitcode=99 --leak-check=full --show-leak-kinds=definite
  --errors-for-leak-kinds=definite --suppressions=$PWD/tests/valgrind.supp --gen-suppressions=all
  --log-file=$logs/%p.log"
failed=0
for journey in "$@"; do
  python3 tests/journeys/run.py "$journey" || failed=1
done
cat "$logs"/*.log
exit "$failed"
