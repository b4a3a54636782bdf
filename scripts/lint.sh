#!/usr/bin/env bash
# One line a check: OK or FAIL. --quick leaves out clang-tidy, which takes minutes.
set -uo pipefail
cd "$(dirname "$0")/.."
failed=0

report() { # name output status
  if [ "$3" -eq 0 ]; then
    printf 'OK    %s\n' "$1"
  else
    printf 'FAIL  %s\n%s\n' "$1" "$2"
    failed=1
  fi
}

# A check that greps for what must not be there.
absent() { # name pattern paths...
  local name=$1 pattern=$2 hits
  shift 2
  hits=$(git grep -nIE --untracked "$pattern" -- "$@")
  report "$name" "$hits" "$([ -z "$hits" ] && echo 0 || echo 1)"
}

output=$(git ls-files -co --exclude-standard '*.cpp' '*.h' | xargs clang-format --dry-run --Werror 2>&1)
report "format" "$output" $?
output=$(python3 scripts/check_arrows.py)
report "arrows" "$output" $?
output=$(python3 scripts/check_pictures.py)
report "pictures" "$output" $?
output=$(python3 tests/mutants/planting_test.py 2>&1)
report "planting of faults" "$output" $?
absent "numbers are read and shown in one place" '\b(std::stod|std::stof|strtod|std::to_string|printf)\b|%L1' 'src/*.cpp' 'src/*.h'
absent "message boxes in one place" '#include <QMessageBox>' 'src/*.cpp' 'src/*.h' ':!src/forms/messages.h' ':!src/forms/messages.cpp'
absent "no silent toolkit assertions" '\b(QVERIFY2?|QCOMPARE|QTRY_[A-Z]+)\(' 'tests/*.cpp' 'tests/*.h'
# A second arg would fill a "%1" that the first one has brought in, as a file's name may.
output=$(git ls-files -co --exclude-standard 'src/*.cpp' 'src/*.h' | xargs perl -0777 -ne '
  while (/\.arg(\((?:[^()"\x27]|"(?:\\.|[^"\\])*"|\x27(?:\\.|[^\x27])*\x27|(?1))*\))\s*\.arg\(/g) {
    print "$ARGV: .arg$1.arg(\n";
  }')
report "texts are filled in at once" "$output" "$([ -z "$output" ] && echo 0 || echo 1)"
absent "paths are shown in one way" 'toNativeSeparators' 'src/*.cpp' 'src/*.h' ':!src/base/shown_path.cpp'
absent "environment behind its door" 'qEnvironmentVariable|qgetenv|getenv' 'src/*.cpp' 'src/*.h' ':!src/platform/*' ':!src/main.cpp'
# Links, pipes and giants that another account put in a file's place are seen there.
absent "files are opened in one place" '\bQ(Save|Temporary|Lock)?File\b|\bQTemporaryDir\b|removeRecursively|\bmkpath\b|\bfopen\b|fstream|::(open|openat|creat|unlink|rename|mkdir|chmod)\(' 'src/*.cpp' 'src/*.h' ':!src/base/unix/*' ':!src/platform/*trash*.cpp'

if [ "${1:-}" != --quick ]; then
  # A configuration of its own: clang cannot read the precompiled headers of GCC.
  cmake --preset release -B build/lint -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON >/dev/null || exit 1
  files=$(git ls-files -co --exclude-standard 'src/*.cpp')
  output=$(printf '%s\n' $files | xargs -P "$(nproc)" -n 4 clang-tidy -p build/lint --quiet 2>/dev/null)
  hits=$(printf '%s' "$output" | grep -E '(warning|error):' | sort -u)
  report "tidy" "$hits" "$([ -z "$hits" ] && echo 0 || echo 1)"
fi
exit "$failed"
