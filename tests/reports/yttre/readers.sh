#!/usr/bin/env bash
# Reads the golden files with readers from the package registry. Without node, or without a way to the registry, the
# test is skipped: it looks at what others make of our files, which rapporter_test has compared byte by byte.
#   readers.sh WORK-FOLDER GOLD-FOLDER
set -euo pipefail
skipped=77
command -v node >/dev/null && command -v npm >/dev/null || exit "$skipped"
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$1"
cp "$here"/package.json "$here"/package-lock.json "$here"/readers.test.cjs "$1"
cd "$1"
timeout 120 npm ci --ignore-scripts --no-audit --no-fund >npm.log 2>&1 || exit "$skipped"
SORVIK_GULD=$2 node --test readers.test.cjs
