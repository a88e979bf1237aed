#!/usr/bin/env python3
"""Plays a RTTY contest on the installed program, with no sound card: the modem sends into and hears silence.

    digital.py --program dist/Sorvik --out dist/tour [--probe FILE]

The operator chooses the mode, loads the macros, sends one of them while the contact is typed and saved, types a text
into the transmit window and stops it, gives a button a caption and a text of his own, and writes the report. What
was stored is read from the log, the settings, the macro file and the report; with the probe library the controls are
looked at too. Pictures stay in the output folder.
"""
import subprocess
import sys
import time

import contests
import play
from driver import contacts, expect, perform, wait_for

# Places in the main window at its start size.
PLACES = {"txtDiplom": (539, 76), "TXWindow": (553, 892), "cmdMacro(3)": (933, 875), "cmdMacro(12)": (1164, 925),
          "BtnTX": (1079, 698), "BtnRX": (1162, 698)}
MACROS = [
    ("CQ", "%TX CQ TEST %SS %SS CQ %RX"), ("SVAR", "%TX %SM %RS %LS %LS %SM %RX"), ("TACK", "%TX %SM TU %SS CQ %RX"),
    ("MIN SIGN", "%TX %SS %SS %SS %RX"), ("SVAR S+P", "%TX %SM TU %RS %LS %LS %SS %RX"),
    ("RAPPORT", "%TX %RS %RS %LS %LS %RX"), ("LOKATOR", "%TX %LS %LS %LS %RX"), ("IGEN", "%TX %SM AGN? AGN? %RX"),
    ("LOK?", "%TX %SM LOC? LOC? %RX"), ("QSO B4", "%TX %SM QSO B4 TU %SS %RX"), ("QRZ", "%TX QRZ? DE %SS TEST %RX"),
    ("73", "%TX %SM 73 TU DE %SS SK %RX")]
OWN = ("NÄSTA", "%TX %SM PSE K %RX")
SETTINGS = ['"500"', " 0 ", " 0 ", " 0 ", " 0 ", " 0 ", '"None"', '"RTS"', '"rtty-L"', '"FFT"', "12", "6", " 0 ", " 3 ",
            "-1", " 0 ", "11025", "0.00", " 0 ", '""', '""']
SECONDS_A_CHARACTER = 7.5 / 45.45  # at the mode's slowest speed, with the shorter of the two stop signals


def contact(call, locator, points, key, prefix):
    """Every square is new; new countries are not marked in this contest."""
    row = contests.nac(call, locator, points, key, prefix, new_square=True).row
    return {**contests.EMPTY_ROW, **row, "Band ": "10 M", "Trafiksätt": "RTTY"}


CONTACTS = [contact("SM5ABC", "JO89WJ", 500, "SM", "SM5"), contact("OZ1AA", "JO55UM", 87, "OZ", "OZ")]
# A mode that is locked is no row of its list, and the report's code is that of the row: it stays empty.
EDI = ["[REG1TEST;1]", "TName= ", "TDate=20261201;20261201", "PCall=SK7MW", "PWWLo=JO65MR", "PExch=", "PAdr1=",
       "PAdr2=", "PSect=Single Operator", "PBand=28 MHz", "PCLUB=", "RName=Åke", "RCAll=SK7MW", "RAdr1=Byn 1", "RAdr2=",
       "RPoCo=", "RCity=", "RCoun=", "RPhon=", "RHBBS=", "MOpe1=", "MOpe2=", "STXEq=", "SPowe=", "SRXEq=", "SAnte=",
       "SAntH=0;0", "CQSOs=2;", "CQSOP=587", "CWWLB=1000", "CExcs=0;0;", "CExcB=0", "CDXCs=0;;", "CDXCB=0",
       "CToSc=1587", "CODXC=SM5ABC;JO89WJ;500", "[Remarks]", "[QSORecords;2]",
       "SM5ABC;;599;;599;;;JO89WJ;500;;N;;", "OZ1AA;;599;;599;;;JO55UM;87;;N;;", "[END;Sorvik 3.0.0]"]
LOG = contests.Scenario("digital", 6, [], (6, 1, 500, "Längsta QSO : SM5ABC  JO89WJ  500 Km"), edi=EDI, labels={
    "lblQSO": "2", "lblTotalQSOPoäng": "587", "lblMultiplar": "1000", "lblDiplom": "2", "lblTotalPoäng": "1587",
    "lblMultipelText": "Rut Poäng", "lblDiplomText": "Antal Rutor", "cmbTrafik": "RTTY", "cmbBand": "10 M",
    "lblLängstaQSO": "Längsta QSO : SM5ABC  JO89WJ  500 Km", "frmLogg": "TestLogg Fil [digital.svk]"})


def press(program, name, button=1):
    """The mouse on a control of the main window."""
    x, y = PLACES[name]
    if program.probe:
        controls = program.controls()
        left, top, width, height = controls["frTest", name][4]
        window = controls["frTest", "frTest"][4]
        if not (0 < window[0] + x - left < width and 0 < window[1] + y - top < height):
            raise AssertionError(f"{name} does not lie at {x}, {y} of the window any more")
    program.press(x, y, button)


def settings(program):
    """The window of the digital settings, with the keys in its first list, the modes."""
    program.open_window(["alt+i", *["Down"] * 8, "Return"], "Inställnigar")
    program.window("Inställnigar")


def save_settings(program, lines):
    """Saves, and looks at what stands in the file."""
    program.key("Return")
    program.window("TestSignal:")
    file = program.folder / "Data" / "INI" / "SVDDigi.ini"
    expect("SVDDigi.ini", file.read_bytes().decode("cp1252").split("\r\n"), lines + [""])


def choose_mode(program):
    program.shows("SBarTest(3)", "Inget ljudkort: modemet hör bara tystnad")
    program.shows("CBMode", "bpsk")
    settings(program)
    program.key("Down")
    program.picture("frInstDigi")
    save_settings(program, SETTINGS)
    program.shows("CBMode", "rtty-L")
    program.shows("CBSpeed", "45.45")


def load_macros(program):
    expect_captions(program, [""] * 12)
    program.open_window(["alt+g", "Return"], "Ladda Fil")
    program.window("Ladda Fil")
    program.type("RTTY-test.ini")
    program.key("Return")
    program.window("TestSignal:")
    expect_captions(program, [caption for caption, _ in MACROS])
    program.picture("frTest_makron")


def expect_captions(program, captions):
    for number, caption in enumerate(captions, 1):
        program.shows(f"cmdMacro({number})", caption)


def expect_receiving(program):
    program.shows("BtnTX", "TX")
    program.shows("TXWindow", "")


def answer_and_save(program, log):
    """Thanks with a macro and a word more; the contact is saved while both go out, and the transmission ends by
    itself."""
    program.type("sm5abc")
    begin, text = time.monotonic(), " SM5ABC TU SK7MW CQ "
    press(program, "cmdMacro(3)")
    program.shows("BtnTX", "BeRX")
    program.shows("TXWindow", text)
    press(program, "TXWindow")
    program.type("tnx åke")
    program.shows("TXWindow", text + "tnx åke")
    press(program, "txtDiplom")
    program.key("ctrl+a")  # a locator heard before may stand there
    program.type("jo89wj")
    program.picture("frTest_sander")
    program.key("Return")
    wait_for("the first contact", lambda: contacts(log) == 1)
    expect_receiving(program)
    if program.probe and time.monotonic() - begin < len(text) * SECONDS_A_CHARACTER:
        raise AssertionError(f"{text!r} was sent in {time.monotonic() - begin:.1f} s")


def type_and_stop(program):
    """A text from the keyboard, and the button that ends it at once."""
    if not program.probe:
        press(program, "BtnRX")  # nobody sees when the macro is through
    press(program, "BtnTX")
    program.shows("BtnTX", "RX")
    press(program, "TXWindow")
    begin, text = time.monotonic(), "ry" * 60
    program.type(text)
    program.shows("TXWindow", text)
    program.picture("frTest_skriver")
    press(program, "BtnRX")
    expect_receiving(program)
    if time.monotonic() - begin > len(text) * SECONDS_A_CHARACTER:
        raise AssertionError("the text was sent to its end")
    program.key("Escape")


def edit_macro(program):
    press(program, "cmdMacro(12)", button=3)
    program.window("Macro Editor")
    program.shows("txtKnapp", "73", "frMacroEditor")
    program.key("ctrl+a")
    program.type("nästa")
    program.key("Tab", "ctrl+a")
    program.type("%tx %sm pse k %rx")
    program.shows("txtMakro", OWN[1], "frMacroEditor")
    program.picture("frMacroEditor")
    program.key("Return")
    program.window("Spara Fil")
    program.type("egna")
    program.key("Return")
    program.window("Macro Editor")
    file = program.folder / "Data" / "Macrofiler" / "Digital" / "egna.ini"
    lines = [f'"{value}"' for macro in MACROS[:-1] + [OWN] for value in macro]
    wait_for("the macro file", file.exists)
    wait_for("its lines", lambda: file.read_bytes().decode("cp1252").split("\r\n") == lines + [""])
    program.key("Escape")
    program.window("TestSignal:")
    expect_captions(program, [caption for caption, _ in MACROS[:-1] + [OWN]])


def write_report(program):
    program.open_window(["alt+i", "Return"], "Station / Test Inst.")
    program.window("Station / Test Inst.")
    program.key(*["Tab"] * 9, "ctrl+a")
    program.type("Åke")
    program.key("Tab", "ctrl+a")
    program.type("Byn 1")
    program.key("Return")
    program.dismiss_date_message()
    program.key("Escape")
    program.window("TestSignal:")
    program.open_window(["alt+p", "Down", "Return"], "Rapport  .Reg1Test. .EDI.")
    program.window("Rapport  [Reg1Test] (EDI)")
    program.key(*["Tab"] * 16, "space")
    program.window("EDI Rapport")
    program.key("Return")
    program.window("Rapport  [Reg1Test] (EDI)")
    program.key("Escape")
    program.window("TestSignal:")


def play_contest(program):
    subprocess.run(["setxkbmap", "se"], env=program.screen.env, check=True)  # letters that have no key change the map
    program.fill_in_station("sk7mw", "jo65mr", "2026-12-01")
    log = program.new_log(6, "digital.svk")
    choose_mode(program)
    load_macros(program)
    answer_and_save(program, log)
    type_and_stop(program)
    edit_macro(program)
    program.type("oz1aa")
    program.key("Tab", "Tab")
    program.type("jo55um")
    program.key("Return")
    wait_for("the second contact", lambda: contacts(log) == 2)
    program.shows("RXWindow", "")
    write_report(program)
    play.report(LOG, log, program.out)
    differences = play.compare_rows(LOG, log, CONTACTS) + play.compare_edi(LOG, program, contest="")
    if program.probe:
        differences += play.compare_labels(LOG, program, log)
    expect("differences", differences, [])
    return "digital: 2 contacts, 0 differences"


def prepare(folder):
    """No settings but the program's own, and no macros but those that come with it."""
    (folder / "Data" / "INI" / "SVDDigi.ini").unlink(missing_ok=True)
    (folder / "Data" / "Macrofiler" / "Digital" / "egna.ini").unlink(missing_ok=True)


if __name__ == "__main__":
    sys.exit(perform(prepare, lambda program, probe: play_contest(program)))
