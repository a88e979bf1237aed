#!/bin/bash
# The modem's tables of bench/README.md. Takes some ten minutes; minimodem stands beside it where it can.
# modem_tabell.sh [BUILD]
set -euo pipefail
bench=${1:-build/release}/bench/modem_bench
peer='minimodem --rx -q rtty -M 2125 -S 2295 -f {wav}'
rtty=(--mode rtty-L --carrier 2125 --chars 500 --trials 16)
bpsk=(--mode bpsk --chars 500 --trials 16)
mfsk=(--mode mfsk-U --chars 500 --trials 16)
row() {
  echo "== $1"
  shift
  "$bench" "$@" | grep -E '^(here|peer|limit)'
}
row "RTTY" "${rtty[@]}" --snr -9.5:-3.5:1 --peer "$peer"
row "RTTY, ATC on" "${rtty[@]}" --snr -9.5:-4.5:1 --atc
row "RTTY, 20 Hz off, AFC" "${rtty[@]}" --snr -9.5:-4.5:1 --offset 20
row "RTTY, clock 0.5 % fast" "${rtty[@]}" --snr -9.5:-4.5:1 --clock 0.005 --peer "$peer"
row "RTTY, drift 20 Hz a minute" "${rtty[@]}" --snr -9.5:-4.5:1 --drift 20 --chars 250
row "RTTY, echo 0.5 2.82 ms late, ATC" "${rtty[@]}" --snr -9.5:-0.5:1 --echo 0.5:2.82 --atc --peer "$peer"
row "RTTY, two paths, 0.5 Hz, ATC" "${rtty[@]}" --snr -4:14:2 --fading 0.5 --atc --peer "$peer"
for baud in 31.25 62.5 125; do
  from=$(awk "BEGIN { print -15 + 10 * log($baud / 31.25) / log(10) }")
  grid="$from:$(awk "BEGIN { print $from + 5 }"):0.5"
  row "BPSK $baud" "${bpsk[@]}" --baud "$baud" --snr "$grid"
done
row "BPSK31, 20 Hz off, AFC" "${bpsk[@]}" --snr -15:-10:0.5 --offset 20
row "BPSK31, clock 0.5 % fast" "${bpsk[@]}" --snr -15:-10:0.5 --clock 0.005
row "BPSK31, drift 10 Hz a minute" "${bpsk[@]}" --snr -15:-10:0.5 --drift 10 --chars 200
row "BPSK31, two paths, 0.2 Hz" "${bpsk[@]}" --snr -10:8:2 --fading 0.2
for kind in "15.625 -15.5" "7.8125 -18" "31.25 -12.5"; do
  read -r baud from <<< "$kind"
  row "MFSK $baud" "${mfsk[@]}" --baud "$baud" --snr "$from:$(awk "BEGIN { print $from + 2.5 }"):0.25"
done
row "MFSK16, 20 Hz off, AFC" "${mfsk[@]}" --snr -15.5:-13:0.25 --offset 20
row "MFSK16, clock 0.5 % fast" "${mfsk[@]}" --snr -15.5:-13:0.25 --clock 0.005
row "MFSK16, drift 10 Hz a minute" "${mfsk[@]}" --snr -15.5:-12:0.5 --drift 10 --chars 100
row "MFSK16, two paths, 0.5 Hz" "${mfsk[@]}" --snr -12:0:2 --fading 0.5
for mode in rtty-L bpsk mfsk-U; do
  echo "== $mode: an hour of noise; speed at 48,000 samples a second, with 21 lines of the waterfall"
  "$bench" --mode "$mode" --noise 3600 --offset 0.001
  "$bench" --mode "$mode" --rate 48000 --speed 3600 --offset 1
done
