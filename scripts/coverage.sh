#!/usr/bin/env bash
# Runs the tests with a count of the executed lines and prints it a folder of logic.
set -euo pipefail
cd "$(dirname "$0")/.."
find build/coverage -name '*.gcda' -delete
ctest --preset coverage >build/coverage/test.log 2>&1 || { tail -n 40 build/coverage/test.log; exit 1; }
tail -n 6 build/coverage/test.log
gcovr --root . --object-directory build/coverage --filter 'src/' --exclude '.*_autogen.*' --exclude 'src/main.cpp' \
  --exclude-throw-branches --print-summary --txt build/coverage/report.txt
cat build/coverage/report.txt
