#!/usr/bin/env bash
# Fails when a test file stands in no build list: a test that nobody runs is worse than none.
#   check-tests.sh BUILD-FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
lost=0
while IFS= read -r -d '' file; do
  # compile_commands.json escapes nothing of a UTF-8 path.
  grep -qF "/$file\"" "$1/compile_commands.json" || { echo "not built: $file" >&2; lost=1; }
done < <(git ls-files -z --cached --others --exclude-standard 'tests/*_test.cpp')
exit $lost
