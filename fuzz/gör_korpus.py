#!/usr/bin/env python3
"""Writes the seed corpus fuzz/korpus/kluster: text as clusters of several kinds send it, and the two files.

Calls and notes are made up; the shape of the lines is that of the field.
"""
from pathlib import Path

LOGIN = b"\xff\xfb\x01\xff\xfd\x18Running on XX9ZZ-1\r\n\r\nlogin: "
SPOTS = {
    "spider": b"DX de XX1AAA:     14025.5  XX2BB        up 2                           1333Z\x07\x07\r\n",
    "spider_locator": b"dx de xx7k:       7154.0  xx7r         cq                             1650z kn75\x07\x07\r\n",
    "ar": b"dx de xx3cc-#:    7003.0  xx4dd       cw 8 db 28 wpm cq              1801z\r\n",
    "cc": b"DX de EA8/XX4UE-#:21149.0  XX9ATQ/B    CW  9 dB 10 WPM BEACON         1117Z\r\n",
    "skimmer": b"DX de XX3CB-#:   7018.20  XX1W           CW    10 dB  18 WPM  CQ      2259Z\r\n",
    "skimmer_zones": b"DX de XX8DGY-#:     7018.3 XX1W         CW  23dB Q:9* Z:20           16 2259Z 14\r\n",
    "no_colon": b"DX de 9K2/XX2SES  14205.0  XX9BB  x                  1234Z\r\n",
    "apostrophe": b"DX de XX1SMX:    14090.0  XX9'T        tks  qso 73' f/h              1650Z\r\n",
    "microwave": b"DX de XX9AA: 1296100.0  XX9BB  JO65<TR>JO89         1234Z\r\n",
    "no_number": b"DX de XX9AA: FREKVENS  XX9BB  x         1234Z\r\n",
    "cut": b"DX de XX9AA:   14025.5  XX9BB   big si",
    "inner": b"DX de XX9AA: 7005.0 XX9BB heard dx de XX9CC: 7006.0 XX9DD y\r\n",
}
OTHER = (b"Hello XX9AA, this is XX9ZZ-1\r\nXX9AA de XX9ZZ-1 21-Nov-2026 1333Z >\r\n"
         b"WWV de XX9ZZ <12>:   SFI=90, A=5, K=1, No Storms -> No Storms\r\n"
         b"To ALL de XX5EE <1334Z> : contest this evening\r\n")
SITE = b'"Klustret, norra"\r\n"kluster.example"\r\n7300\r\n 1 \r\n'
PRESETS = b"#TRUE#\r\n" * 9 + b"#FALSE#\r\n1.wav\r\n" + b"#TRUE#\r\n" * 7

folder = Path(__file__).parent / "korpus" / "kluster"
folder.mkdir(parents=True, exist_ok=True)
seeds = {name: b"\x04" + line for name, line in SPOTS.items()}
seeds["all"] = b"\x04" + LOGIN + OTHER + b"".join(SPOTS.values())
seeds["all_repeats"] = b"\x0b" + b"".join(SPOTS.values()) * 2
seeds["screen"] = b"\x02" + LOGIN + bytes(range(256))
seeds["site"] = b"\x00" + SITE
seeds["presets"] = b"\x01" + PRESETS
for name, content in seeds.items():
    (folder / name).write_bytes(content)
