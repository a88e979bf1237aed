#!/usr/bin/env bash
# Formatting, the core's independence of the windows, clang-tidy, shellcheck.
# (cppcheck is not among them: its lexer stops at the first å, ä or ö of an identifier.)
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need_packages build check

mapfile -d '' sources < <(git ls-files -z '*.cpp' '*.h')
echo "clang-format: ${#sources[@]} files"
clang-format --dry-run --Werror "${sources[@]}"

echo "core: no Qt Gui or Widgets"
# A test of the core links what the core needs and nothing else.
core_test=build/release/tests/store/regler_test
if readelf -d "$core_test" | grep -E 'NEEDED.*Qt6(Gui|Widgets)'; then
  echo "the core links windows" >&2
  exit 1
fi

echo "shellcheck"
shellcheck -x run.sh test.sh .ci/run scripts/*.sh tests/scenario/*.sh

echo "clang-tidy"
cmake --preset tidy -DSORVIK_TESTS=OFF -DSORVIK_BENCH=OFF >/dev/null
scripts/tidy.sh build/tidy
