#!/usr/bin/env python3
"""Plays an FT8 hour on the installed program: datagrams as WSJT-X sends them fill the form, the operator saves.

    ft8.py --program dist/Sorvik --out dist/tour [--probe FILE]

The operator sets the port, starts WSJT-X from the menu and saves what it hands over; a station worked before, a
record that is cut off and datagrams that hold no record come in between. A program of our own stands where WSJT-X
would be found. What was stored is read from the log and from the exported file; with the probe library the entry
form is looked at too. Pictures stay in the output folder.
"""
import re
import socket
import struct
import sys
import tempfile
from pathlib import Path

import contests
import play
from digital import SETTINGS, save_settings, settings
from driver import contacts, expect, perform, wait_for

ADIF = ["<CALL:", "<QSO_DATE:", "<TIME_ON:", "<BAND:", "<MODE:", "<FREQ:", "<RST_RCVD:", "<RST_SENT:", "<QTH:",
        "<NAME:", "<ITUZ:", "<CQZ:", "<DXCC:", "<ADI:", "<Award:", "<Points:", "<LAND:", "<Multipels:", "<COMMENS:"]


class Wsjtx:
    """What WSJT-X does: it is started by its name, and sends what it logs."""

    def __init__(self, folder):
        self.program = Path(folder) / "wsjtx"
        self.line = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)
        self.line.bind(("127.0.0.1", 0))
        self.port = self.line.getsockname()[1]

    def release_port(self):
        """The port is free until the program takes it."""
        self.line.close()
        self.line = socket.socket(socket.AF_INET, socket.SOCK_DGRAM)

    def install(self):
        self.program.write_text('#!/bin/sh\n: >"$0.started"\n')
        self.program.chmod(0o755)

    def started(self):
        return Path(str(self.program) + ".started").exists()

    def send(self, datagram):
        self.line.sendto(datagram, ("127.0.0.1", self.port))


def record(call, grid, sent, received, frequency="50.313500"):
    fields = [("call", call), ("gridsquare", grid), ("mode", "FT8"), ("rst_sent", sent), ("rst_rcvd", received),
              ("qso_date", "20261201"), ("time_on", "180215"), ("qso_date_off", "20261201"), ("time_off", "180315"),
              ("band", "6m"), ("freq", frequency), ("station_callsign", "SK7MW"), ("my_gridsquare", "JO65MR"),
              ("comment", f"FT8  Sent: {sent}  Rcvd: {received}")]
    return " ".join(f"<{name}:{len(value)}>{value}" for name, value in fields)


def message(kind, *values):
    """A datagram of WSJT-X's own protocol: a header, then numbers, and texts with their lengths."""
    datagram = struct.pack(">III", 0xadbccbda, 2, kind)
    for value in ("WSJT-X", *values):
        datagram += struct.pack(">I", value if isinstance(value, int) else len(value))
        datagram += b"" if isinstance(value, int) else value.encode()
    return datagram


def plain(text):
    """The datagram that is sent for loggers: the record as it stands."""
    return (text + " <eor>").encode()


def wrapped(text):
    """The same in WSJT-X's own protocol."""
    return message(12, f"\n<adif_ver:5>3.1.0\n<programid:6>WSJT-X\n<EOH>\n{text} <EOR>")


HEARTBEAT = message(0, 3, "2.6.1", "")


def contact(call, locator, points, key, prefix, sent, received, new_country, note=""):
    row = contests.nac(call, locator, points, key, prefix, new_country, True).row
    return {**contests.EMPTY_ROW, **row, "Band ": "6 M", "Trafiksätt": "FT8", "Frekvens": "50.313500", "Sänt": sent,
            "Mottaget": received, "Notering": note}


# The note is that of the editor's window, where the warning of a duplicate leaves its word.
CONTACTS = [contact("SM7XYZ", "JO65", 26, "SM", "SM7", "-10", "+03", True),
            contact("OH2FF", "KP20LE", 861, "OH", "OH", "-07", "-15", True),
            contact("OZ1AA", "JO55UM", 87, "OZ", "OZ", "+01", "-21", True, "DUBBLETT")]
LOG = contests.Scenario("ft8", 2, [], (2, 1, 861, "Längsta QSO : OH2FF  KP20LE  861 Km"), labels={
    "lblQSO": "3", "lblTotalQSOPoäng": "974", "lblMultiplar": "1500", "lblDiplom": "3", "lblTotalPoäng": "2474",
    "cmbTrafik": "FT8", "cmbBand": "6 M", "dgLogg": "3 rows", "txtSignal": ""})


class Hour:
    def __init__(self, program, wsjtx):
        self.program, self.wsjtx = program, wsjtx
        self.parked = program.folder / "Data" / "FT8" / "TestQSO.ADI"

    def start_wsjtx(self):
        self.program.key("alt+f", *["Down"] * 4, "Return")

    def hand_over(self, datagram):
        """Sends, and waits until the program has taken it: it parks whatever comes."""
        self.wsjtx.send(datagram)
        parked = b'"' + datagram + b'"\r\n'
        wait_for(f"{datagram!r} to be parked", lambda: self.parked.exists() and self.parked.read_bytes() == parked)

    def expect_form(self, call, received, sent, locator, frequency="50.313500"):
        for name, text in (("txtSignal", call), ("txtRSTM", received), ("txtRSTS", sent), ("txtDiplom", locator),
                           ("txtFrekvens", frequency)):
            self.program.shows(name, text)

    def save(self, number, *keys):
        """The ordinary save, behind which nothing is parked any more."""
        self.program.key(*keys, "Return")
        wait_for(f"contact {number}", lambda: contacts(self.log) == number)
        wait_for("the parked record to go", lambda: not self.parked.exists())

    def play(self):
        program = self.program
        program.fill_in_station("sk7mw", "jo65mr", "2026-12-01")
        self.log = program.new_log(2, "ft8.svk")
        self.set_port()
        self.choose_mode()
        self.start()
        self.contacts()
        self.worked_before()
        self.no_records()
        self.hand_over(plain(record("OZ1AA", "JO55um", "+01", "-21")))
        self.save(3, "Tab")
        self.export()
        play.report(LOG, self.log, program.out)
        differences = play.compare_rows(LOG, self.log, CONTACTS)
        if program.probe:
            differences += play.compare_labels(LOG, program, self.log)
        expect("differences", differences, [])
        return "ft8: 3 contacts, 0 differences"

    def set_port(self):
        """Without a port, and with one that another program has, nothing is started."""
        program = self.program
        where = " Välj en under Inställning - Digital Inställning..."
        self.start_wsjtx()
        program.accept_message("StartFT8", "Ingen UDP-port är vald." + where)
        settings(program)
        program.key(*["Tab"] * 12)
        program.type(str(self.wsjtx.port))
        program.picture("frInstDigi_port")
        save_settings(program, SETTINGS[:8] + ['"bpsk"'] + SETTINGS[9:-1] + [f'"{self.wsjtx.port}"'])
        self.start_wsjtx()
        program.accept_message("StartFT8", f"UDP-porten {self.wsjtx.port} kan inte öppnas." + where)
        self.wsjtx.release_port()

    def choose_mode(self):
        self.program.key("Tab", "Tab", "Tab", "Down", "Down")
        self.program.shows("cmbTrafik", "FT8")
        self.program.key("Escape")
        self.expect_form("", "", "", "", "")

    def start(self):
        self.start_wsjtx()
        self.program.accept_message("Filfel", "Kan inte hitta Filen!")
        self.wsjtx.install()
        self.start_wsjtx()
        wait_for("WSJT-X", self.wsjtx.started)

    def contacts(self):
        self.hand_over(HEARTBEAT)
        self.expect_form("", "", "", "", "")
        self.hand_over(plain(record("SM7XYZ", "JO65", "-10", "+03")))
        self.expect_form("SM7XYZ", "+03", "-10", "JO65")
        self.program.picture("frTest_ft8")
        self.save(1, "Tab")
        self.hand_over(wrapped(record("OH2FF", "KP20le", "-07", "-15")))
        self.expect_form("OH2FF", "-15", "-07", "KP20LE")
        self.save(2)

    def worked_before(self):
        self.hand_over(plain(record("SM7XYZ", "JO65", "-12", "-01")))
        self.program.key("Tab")
        self.program.window("VARNING !")
        self.program.picture("frVarning_ft8")
        self.program.key("Return")
        self.program.window("TestSignal:")
        self.program.shows("txtSignal", "")

    def no_records(self):
        """A record that is cut off is told of once; what is no record is not told of."""
        cut = plain(record("SM4MM", "JO78", "-03", "-05"))
        self.hand_over(cut[:cut.index(b"<rst_sent:") + 10])
        self.program.accept_message("ImportFT8", "Ett fel har inträffat vid importering av ADIF-fil.")
        self.program.picture("frTest_ft8_avbrutet")
        self.program.key("Escape")
        for datagram in (HEARTBEAT, bytes(range(1, 256)), b"", b"<call"):
            self.hand_over(datagram)
        self.program.shows("txtSignal", "")
        expect("another message", self.program.has_window("ImportFT8"), False)
        expect("contacts", contacts(self.log), 2)

    def export(self):
        """The contacts as they go to other programs."""
        program = self.program
        program.key("alt+a", *["Down"] * 4, "Right", "Return")
        program.window("Spara ADIF-fil")
        program.type("ft8")
        program.key("Return")
        program.accept_message("ExporteraTestAdif", "Exportering av data till ADIF utfördes felfritt.")
        text = next(program.folder.rglob("ft8.adi")).read_bytes().decode("cp1252")
        lines = re.sub(r"(<QSO_DATE:8>)\d{8}(<TIME_ON:6>)\d{6}", r"\1\2", text).split("\r\n")
        expect("ADIF", lines[lines.index("<EOH>") + 1:], [adif(row) for row in CONTACTS] + [""])


def adif(row):
    values = [row["Signal"], "", "", "6M"] + [str(row[name]) for name in (
        "Trafiksätt", "Frekvens", "Mottaget", "Sänt", "QTH", "Namn", "ITU", "Zon", "DXCC", "DXCC Nr", "Diplom", "Poäng",
        "Land", "Multiplar", "Notering")]
    lengths = ["8" if tag == "<QSO_DATE:" else "6" if tag == "<TIME_ON:" else len(value)
               for tag, value in zip(ADIF, values)]
    return "".join(f"{tag}{length}>{value}" for tag, length, value in zip(ADIF, lengths, values)) + "<EOR>"


def prepare(folder):
    """No settings but the program's own, and no record from another day."""
    (folder / "Data" / "INI" / "SVDDigi.ini").unlink(missing_ok=True)
    (folder / "Data" / "FT8" / "TestQSO.ADI").unlink(missing_ok=True)


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as programs:
        wsjtx = Wsjtx(programs)
        # Nothing but the stand-in is found, also where WSJT-X itself is installed.
        sys.exit(perform(prepare, lambda program, probe: Hour(program, wsjtx).play(), {"PATH": programs}))
