#!/usr/bin/env bash
# Builds, installs into dist/Sorvik/ and starts the program.
#   ./run.sh          with a display: starts it; without: plays a scripted contest, pictures in dist/tour/
#   ./run.sh build    stops before the start
set -euo pipefail
cd "$(dirname "$0")"

. scripts/packages.sh
need_packages build run

cmake --preset release -DSORVIK_TESTS=OFF -DSORVIK_BENCH=OFF -B build/run >build-run.log 2>&1 ||
  { cat build-run.log >&2; exit 1; }
rm -f build-run.log
cmake --build build/run
cmake --install build/run --prefix "$PWD/dist/Sorvik" >/dev/null
echo "installed in dist/Sorvik"
[ "${1-}" = build ] && exit 0

if [ -n "${DISPLAY-}${WAYLAND_DISPLAY-}" ]; then
  exec dist/Sorvik/Sorvik
fi
need_packages tour
exec tests/scenario/tour.sh dist/Sorvik dist/tour
