#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test with ctest.
#   ./test.sh [preset]     release (default) or asan
set -euo pipefail
cd "$(dirname "$0")"
preset=${1:-release}

. scripts/packages.sh
need_packages build run test tour

cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
scripts/check-tests.sh "build/$preset"
leave_out=()
[ "$preset" = asan ] && leave_out=(-LE process)
ctest --preset "$preset" -j "$(nproc)" "${leave_out[@]}"
scripts/count-tests.sh "build/$preset"
