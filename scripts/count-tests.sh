#!/usr/bin/env bash
# Prints how many test cases ctest just ran, and fails when there are fewer than scripts/test-count says.
#   count-tests.sh BUILD-FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
log="$1/Testing/Temporary/LastTest.log"
count=$(sed -n 's/^\[==========\] \([0-9]*\) tests\? from .* ran\..*/\1/p' "$log" | awk '{n += $1} END {print n + 0}')
least=$(cat scripts/test-count)
echo "$count test cases ran (at least $least expected)"
[ "$count" -ge "$least" ]
