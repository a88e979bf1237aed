#!/usr/bin/env bash
# Plays the scripted contests on the installed program without a display; pictures and rows stay behind.
#   tour.sh PROGRAM-FOLDER OUTPUT-FOLDER
set -euo pipefail
mkdir -p "$2"
# A copy is played on: the operator's own logs and settings are none of a demonstration's business.
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cp -r "$1" "$folder/Sorvik"
for script in play kluster radio digital ft8; do
  python3 "$(dirname "$0")/$script.py" --program "$folder/Sorvik" --out "$2"
done
echo "pictures and logs as text: $2"
