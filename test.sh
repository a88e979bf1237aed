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
# The tests make thousands of small databases, each written through to the disk. In memory that costs nothing.
if [ -z "${TMPDIR:-}" ] && [ "$(df --output=avail /dev/shm 2>/dev/null | tail -1)" -gt 1000000 ] 2>/dev/null; then
  TMPDIR=$(mktemp -d /dev/shm/sorvik.XXXXXX)
  chmod 755 "$TMPDIR" # some tests play without rights
  export TMPDIR
  trap 'rm -rf "$TMPDIR"' EXIT
fi
# One more than there are cores: a third of the time a test waits, for the disk or for an event.
ctest --preset "$preset" -j "$(($(nproc) + 1))" "${leave_out[@]}"
scripts/count-tests.sh "build/$preset"
