#!/usr/bin/env bash
# Installs the program into a folder of its own and plays on it: one scenario of play.py, or another script.
#   scenario_test.sh BUILD-FOLDER PROBE SCRIPT [SCENARIO]
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cmake --install "$1" --prefix "$folder/Sorvik" >/dev/null
python3 "$(dirname "$0")/$3" --program "$folder/Sorvik" --probe "$2" --out "$folder/out" "${@:4}"
