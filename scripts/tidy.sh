#!/usr/bin/env bash
# clang-tidy over the program's own sources, several of them at a time: most of what it costs is the toolkit's headers,
# and those are read once for a batch. A batch that has not changed since it passed is not looked at again.
#   tidy.sh BUILD-FOLDER, configured with the preset "tidy"
set -euo pipefail
cd "$(dirname "$0")/.."
stamps=$1/tidy-stamps
mkdir -p "$stamps"

check() {
  local batch=$1 stamps=$2 build=$3 sum
  # What a batch is, with everything it includes of our own.
  sum=$({ cat .clang-tidy; git ls-files -z '*.h' '*.cpp' | xargs -0 cat; } | sha256sum | cut -d' ' -f1)-$(basename "$(dirname "$(dirname "$batch")")")-$(basename "$batch")
  [ -e "$stamps/$sum" ] && return 0
  # Two sources of a batch may use one name for things of their own.
  clang-tidy --quiet --config-file=.clang-tidy -p "$build" --extra-arg=-Wno-shadow "$batch" 2>/dev/null || { echo "clang-tidy: $batch" >&2; return 1; }
  touch "$stamps/$sum"
}
export -f check
find "$1" -path '*/Unity/unity_*.cxx' ! -path '*resources*' -print0 |
  xargs -0 -P "$(nproc)" -I{} bash -c 'check "$@"' _ {} "$stamps" "$1"
