#!/usr/bin/env bash
# A second installation over a used one leaves what the operator has written, changed and deleted.
#   install_test.sh BUILD-FOLDER
set -euo pipefail
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
data=$folder/Sorvik/Data

fail() {
  echo "$1" >&2
  exit 1
}

cmake --install "$1" --prefix "$folder/Sorvik" >/dev/null
cmp "$data/DX Telnet/GB7DJK.dxt" "$data/DX Telenet/GB7DJK.dxt"
for number in 1 2 3 4 5 6 7 8 9 10; do
  [ -s "$data/Ljud/Test/$number.wav" ] || fail "no sound $number"
done
rm "$data/DX Telnet/GB7DJK.dxt"
for own in "DX Telenet/GB7DJK.dxt" Ljud/Test/3.wav INI/Rapport.ini SVD.Dat DXSpott.Dat Macrofiler/CW/CW-test.ini; do
  echo own >"$data/$own"
done
echo old >"$data/DXS"
touch "$data/Loggar/own.svk"

cmake --install "$1" --prefix "$folder/Sorvik" >/dev/null
[ ! -e "$data/DX Telnet/GB7DJK.dxt" ] || fail "a deleted site has come back"
for own in "DX Telenet/GB7DJK.dxt" Ljud/Test/3.wav INI/Rapport.ini SVD.Dat DXSpott.Dat Macrofiler/CW/CW-test.ini; do
  [ "$(cat "$data/$own")" = own ] || fail "$own was overwritten"
done
cmp "$1/Data/DXS" "$data/DXS"
[ -e "$data/Loggar/own.svk" ] || fail "a log is gone"
