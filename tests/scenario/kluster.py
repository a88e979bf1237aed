#!/usr/bin/env python3
"""Plays an evening with a DX cluster on the installed program: a server of our own on the loopback address.

    kluster.py --program dist/Sorvik --out dist/tour [--probe FILE]

The operator connects with the keyboard, spots come in among other traffic, one is carried into the entry form with
a double click and one by the menu, the link breaks and is made again, the store is searched. What the program has
stored is read with SQLite from outside; with the probe library the entry form is looked at too. Pictures of every
window stay in the output folder.
"""
import shutil
import socket
import sys
import threading
import time

from driver import expect, perform, rows, wait_for

OWN_CALL = "sk7mw"
WELCOME = (b"\xff\xfb\x01Running on XX9ZZ-1\r\n\r\nlogin: ")
BANNER = (b"Hello SK7MW, this is XX9ZZ-1\r\n"
          b"Cluster: 34 nodes, 512 local / 2048 total users  Max users 2301  Uptime 12 03:11\r\n"
          b"SK7MW de XX9ZZ-1 21-Nov-2026 1333Z >\r\n")
OTHER = (b"WWV de XX9ZZ <12>:   SFI=90, A=5, K=1, No Storms -> No Storms\r\n"
         b"To ALL de XX5EE <1334Z> : contest this evening\r\n")

# The line, and call, frequency, mode and band as they are to be stored; None for a repeat and what is refused.
TRAFFIC = [
    (b"DX de SM6AAA:    14025.5  JA1ABC       up 2                           1333Z\x07\x07\r\n",
     ("JA1ABC", "14,025,50", "CW", "20")),
    (b"dx de oh6aa-#:    7003.0  dl1abc       cw 8 db 28 wpm cq              1801z\r\n",
     ("dl1abc", "7,003,00", "CW", "40")),
    (b"DX de EA8/DL1AA-#:21149.0  K1ABC        CW  9 dB 10 WPM CQ             1117Z\r\n",
     ("K1ABC", "21,149,00", "CW", "15")),
    (b"DX de SM5A-#:     3540.0  UA1ABC       CW 10 dB 18 WPM CQ             1334Z\r\n",
     ("UA1ABC", "3,540,00", "CW", "80")),
    (b"DX de SM5A-#:     3540.0  UA1ABC       CW 10 dB 18 WPM CQ             1334Z\r\n", None),
    (b"DX de S51AA:     1296100.0  S52A       JN75<TR>JO65                   1334Z\r\n", None),
    (b"DX de SM7AAA-#:  14016.0  II4ABC       CW 18 dB 30 WPM CQ             1334Z\r\n",
     ("II4ABC", "14,016,00", "CW", "20")),
    (b"DX de VU2AAA-#:  28014.9  F5ABC        CW  4 dB 20 WPM CQ             1333Z\r\n",
     ("F5ABC", "28,014,90", "CW", "10")),
    (b"DX de IK1AAA:    14229.0  RA3ABC       TnX 73                         1118Z\r\n",
     ("RA3ABC", "14,229,00", "SSTV", "20")),
]
LATER = [(b"DX de G4AAA-#:   14086.6  RA4A         RTTY + 8 dB CQ                 1118Z\r\n",
          ("RA4A", "14,086,60", "RTTY", "20"))]


class Cluster:
    """A cluster that greets whoever comes and says what it is told to."""

    def __init__(self):
        self.server = socket.create_server(("127.0.0.1", 0))
        self.port = self.server.getsockname()[1]
        self.logins, self.guest = [], None
        threading.Thread(target=self.serve, daemon=True).start()

    def serve(self):
        while True:
            guest, _ = self.server.accept()
            guest.sendall(WELCOME)
            self.logins.append(guest.recv(100))
            guest.sendall(BANNER)
            self.guest = guest

    def wait_for_guest(self, number):
        wait_for(f"login {number}", lambda: len(self.logins) == number and self.guest)

    def say(self, traffic):
        for line, _ in traffic:
            self.guest.sendall(line)
            time.sleep(0.02)  # lines of a cluster come one by one

    def drop(self):
        guest, self.guest = self.guest, None
        guest.shutdown(socket.SHUT_RDWR)
        guest.close()


def menu(program, entry, title=None):
    """Chooses an entry of the menu DX Cluster by its place."""
    keys = ["alt+d", *["Down"] * entry, "Return"]
    if title:
        program.open_window(keys, title)
        program.window(title)
    else:
        program.key(*keys)


def connect(program):
    menu(program, 0, "Anslut Till")
    program.key("Down")
    program.picture("frAnslut")
    program.key("Return")
    program.window("DX Cluster")


def back(program):
    program.key("Escape")
    program.window("TestSignal:")


def double_click(program, title, x, y):
    window = program.xdotool("search", "--onlyvisible", "--name", title).stdout.split()[0]
    program.xdotool("mousemove", "--window", window, str(x), str(y), "click", "--repeat", "2", "--delay", "60", "1")


def stored(program):
    return rows(program.folder / "Data" / "DXSpott.Dat",
                'SELECT Signal, Frekvens, "Trafiksätt", DXBand FROM DXSpottLogg ORDER BY rowid')


def expect_form(program, probe, call, frequency, band):
    if not probe:
        return
    wait_for(f"{call} on the form", lambda: program.text("txtSignal") == call)
    controls = program.controls()
    for name, right in (("txtFrekvens", frequency), ("cmbBand", band)):
        expect(name, controls["frTest", name][3], right)


def prepare(folder, port):
    """Only our own cluster to connect to, no spots and no presets: whatever an operator had in the folder."""
    data = folder / "Data"
    for name in ("DX Telnet", "DX Telenet"):
        for site in (data / name).glob("*.dxt"):
            site.unlink()
        (data / name / "Prov.dxt").write_bytes(b'"Provklustret"\r\n"127.0.0.1"\r\n%d\r\n 0 \r\n' % port)
    shutil.copy(data / "DXS", data / "DXSpott.Dat")
    (data / "INI" / "DXSpottFörval.ini").unlink(missing_ok=True)


def play(program, cluster, probe):
    program.fill_in_station(OWN_CALL, "jo65mr", "2026-12-01")
    program.new_log(9, "kluster.svk")
    spots = [spot for _, spot in TRAFFIC if spot]
    connect(program)
    cluster.wait_for_guest(1)
    expect("login", cluster.logins, [b"SK7MW\r\n"])
    cluster.guest.sendall(OTHER)
    if time.localtime().tm_sec >= 55:
        time.sleep(6)  # the repeat must come in the same minute
    cluster.say(TRAFFIC)
    wait_for("the spots", lambda: len(stored(program)) == len(spots))
    expect("stored spots", stored(program), spots)
    program.picture("frDXSpott")
    program.type("sh/dx 5")
    program.picture("frDXCluster")
    program.key("Return")
    expect("command", cluster.guest.recv(100), b"SH/DX 5\r\n")

    double_click(program, "^DX Spot$", 120, 48)  # the second spot
    program.window("TestSignal:")
    expect_form(program, probe, "dl1abc", "7,003,00", "40 M")
    program.picture("frTest_spott")
    back(program)

    cluster.drop()
    time.sleep(0.5)
    connect(program)
    cluster.wait_for_guest(2)
    cluster.say(LATER)
    spots += [spot for _, spot in LATER]
    wait_for("the spot after the break", lambda: stored(program) == spots)
    back(program)
    menu(program, 2)
    expect_form(program, probe, "RA4A", "14,086,60", "40 M")  # the menu leaves the band alone
    program.picture("frTest_spott_visa")
    back(program)

    menu(program, 3, "DX Spot Logg")
    program.picture("frDXSpottLogg")
    program.type("ua*")
    program.key("Return")
    program.picture("frDXSpottLogg_sokt")
    if probe:
        wait_for("the search", lambda: program.text("txtSumma", "frDXSpottLogg") == "1")
    program.key("Escape")
    program.window("TestSignal:")
    menu(program, 4, "rval  DX Spot")
    program.picture("frDXSpottForval")
    program.key("Return")
    program.window("TestSignal:")
    presets = (program.folder / "Data" / "INI" / "DXSpottFörval.ini").read_bytes()
    expect("presets", presets, b"#TRUE#\r\n" * 9 + b"#FALSE#\r\n1.wav\r\n" + b"#TRUE#\r\n" * 7)
    return f"kluster: {len(stored(program))} spots, 0 differences"


if __name__ == "__main__":
    cluster = Cluster()
    sys.exit(perform(prepare=lambda folder: prepare(folder, cluster.port),
                     play=lambda program, probe: play(program, cluster, probe)))
