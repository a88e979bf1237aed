#!/usr/bin/env bash
# Builds the fuzz targets and runs each for so many seconds, under AddressSanitizer and UBSan.
#   scripts/fuzz.sh [seconds]     20 by default
# An input that fails stays in build/fuzz/fynd/; give it to the target as its argument to see it again.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/packages.sh
need_packages build check

seconds=${1:-20}
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz >/dev/null
mkdir -p build/fuzz/fynd
# What the sanitizer itself remembers of millions of runs is not the target's memory.
export ASAN_OPTIONS=quarantine_size_mb=16:malloc_context_size=4
targets=(kluster rigctld ft8)
for target in "${targets[@]}"; do
  corpus=build/fuzz/korpus/$target
  mkdir -p "$corpus"
  echo "fuzz: $target for $seconds s"
  log=build/fuzz/$target.log
  if ! "build/fuzz/fuzz/${target}_fuzz" -max_total_time="$seconds" -max_len=4096 -timeout=5 -rss_limit_mb=2048 \
      -print_final_stats=1 -artifact_prefix=build/fuzz/fynd/ "$corpus" "fuzz/korpus/$target" >"$log" 2>&1; then
    tail -40 "$log" >&2
    exit 1
  fi
  grep -E 'number_of_executed_units|average_exec_per_sec' "$log"
done
