#!/usr/bin/env bash
# clang-tidy over the program's own sources; a source that has not changed since it passed is not looked at again.
#   tidy.sh BUILD-FOLDER
set -euo pipefail
cd "$(dirname "$0")/.."
stamps=$1/tidy-stamps
mkdir -p "$stamps"

check() {
  local file=$1 stamps=$2 build=$3 sum
  # What a source is, with everything it includes of our own.
  sum=$({ cat .clang-tidy "$file"; git ls-files -z '*.h' | xargs -0 cat; } | sha256sum | cut -d' ' -f1)
  [ -e "$stamps/$sum" ] && return 0
  clang-tidy --quiet -p "$build" "$file" 2>/dev/null || { echo "clang-tidy: $file" >&2; return 1; }
  touch "$stamps/$sum"
}
export -f check
git ls-files -z 'platform/*.cpp' 'store/*.cpp' 'contest/*.cpp' 'cluster/*.cpp' 'radio/*.cpp' 'shared/*.cpp' 'reports/*.cpp' 'Data/verktyg/*.cpp' |
  xargs -0 -P "$(nproc)" -I{} bash -c 'check "$@"' _ {} "$stamps" "$1"
