#!/usr/bin/env python3
"""Writes the seed corpora.

fuzz/korpus/kluster: text as clusters of several kinds send it, and the two files. Calls and notes are made up; the
shape of the lines is that of the field.
fuzz/korpus/rigctld: what rigctld answers, its list of radios, the settings' file, addresses.
fuzz/korpus/ft8: records of the FT8 program, whole and broken, and the files about the digital modes.
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

seeds = {name: b"\x04" + line for name, line in SPOTS.items()}
seeds["all"] = b"\x04" + LOGIN + OTHER + b"".join(SPOTS.values())
seeds["all_repeats"] = b"\x0b" + b"".join(SPOTS.values()) * 2
seeds["screen"] = b"\x02" + LOGIN + bytes(range(256))
seeds["site"] = b"\x00" + SITE
seeds["presets"] = b"\x01" + PRESETS

RIGS = (b'"adress","127.0.0.1:4532",0,"",0\r\n"modell","",3073,"/dev/ttyUSB0",19200\r\n'
        b'"av","",0,"",0\r\n"av","",0,"",0\r\n')
MODELS = (b" Rig #  Mfg                    Model                   Version         Status      Macro\n"
          b"     1  Hamlib                 Dummy                   20221128.0      Stable      RIG_MODEL_DUMMY\n"
          b"  1004  Yaesu                  MARK-V FT-1000MP        20230104.0      Stable      RIG_MODEL_X\n")
rigctld = {
    "vfo_mode": b"\x001\n", "vfo_mode_word": b"\x00CHKVFO 0\n", "frequency": b"\x0114074000\n",
    "frequency_decimals": b"\x0114074000.000000\n", "frequency_refused": b"\x01RPRT -5\n",
    "frequency_negative": b"\x01-9223372036854775808\n", "mode": b"\x02PKTUSB\n3000\n", "mode_minus": b"\x02CW\n-1\n",
    "mode_refused": b"\x02RPRT -11\n", "done": b"\x03RPRT 0\n", "refused": b"\x03RPRT -1\n", "models": b"\x04" + MODELS,
    "settings": b"\x05" + RIGS, "address": b"\x06shack.local:4534", "address_6": b"\x06[fe80::1]:4532",
}

RECORD = (b"<call:5>XX9AA <gridsquare:6>JO65mr <mode:3>FT8 <rst_sent:3>-10 <rst_rcvd:3>+03 <qso_date:8>20261201 "
          b"<time_on:6>191500 <band:2>2m <freq:10>144.174500 <station_callsign:5>XX9ZZ <my_gridsquare:6>JO89XI ")
HEADER = b"\n<adif_ver:5>3.1.0\n<programid:6>WSJT-X\n<EOH>\n"
BINARY = b"\xad\xbc\xcb\xda\0\0\0\2\0\0\0\x0c\0\0\0\6WSJT-X\0\0\1\x5b"
DIGITAL = (b'"500"\r\n 0 \r\n 1 \r\n 0 \r\n 1 \r\n 0 \r\n"None"\r\n"RTS"\r\n"bpsk"\r\n"FFT"\r\n12\r\n6\r\n 0 \r\n'
           b' 3 \r\n-1\r\n 0 \r\n11025\r\n0.00\r\n 0 \r\n"100 W, PEP"\r\n"2333"\r\n')
ft8 = {
    "record": b"\0" + RECORD + b"<eor>", "record_header": b"\0" + HEADER + RECORD + b"<EOR>\r\n" + RECORD,
    "record_binary": b"\0" + BINARY + HEADER + RECORD + b"<EOR>", "capitals": b"\0" + RECORD.upper(),
    "empty": b"\0<call:7>XX9AA/P <gridsquare:0> <rst_sent:0> <rst_rcvd:0> <eor>",
    "comment": b"\0<comment:13><call:5>XX9BB <call:5>XX9AA <eor>", "lokator": b"\0<lokator:4>JO65<locator:6>jo65mr",
    "long": b"\0<call:255>XX9AA<freq:99>1<rst_sent:10>-10", "lie": b"\0<call:256>XX<freq:x>1<gridsquare:", "digital": b"\3" + DIGITAL,
    "digital_comma": b"\3" + DIGITAL.replace(b"0.00", b"74,50"),
}

for name, contents in (("kluster", seeds), ("rigctld", rigctld), ("ft8", ft8)):
    folder = Path(__file__).parent / "korpus" / name
    folder.mkdir(parents=True, exist_ok=True)
    for seed, content in contents.items():
        (folder / seed).write_bytes(content)
