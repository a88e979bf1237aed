#!/usr/bin/env python3
"""Plays scripted contests on the installed program and holds the logs against rows worked out by hand.

    play.py --program dist/Sorvik --out dist/tour [--probe FILE] [SCENARIO ...]

Every contact is typed with the keyboard into the window on a virtual screen. Afterwards the log is read with
SQLite from outside and compared column by column; with the probe library the score labels are compared too.
Pictures and the rows as text stay in the output folder.
"""
import argparse
import datetime
import re
import sys
import time
from itertools import zip_longest
from pathlib import Path

import contests
from driver import Screen, Sorvik, contacts, rows, wait_for

OWN_CALL, OWN_LOCATOR, TEST_DATE = "sk7mw", "jo65mr", "2026-12-01"
COLUMNS = ["Datum", "Tid", "Signal", "Frekvens", "Trafiksätt", "Band ", "Sänt", "Mottaget", "Multiplar", "LöpNr",
           "Namn", "QTH", "ITU", "Zon", "Diplom", "DXCC", "Land", "Notering", "Prefix", "DXCC Nr", "Poäng",
           "Distrikt", "NDXCC", "NRUTA", "Dubblett", "Rutor", "LöpNrSR"]


def play(scenario, program):
    """Types the contest and gives the log's path."""
    log = program.new_log(scenario.contest, scenario.name + ".svk")
    saved = 0
    hands = Hands(program, log)
    for step in scenario.steps:
        for action, argument in step.actions:
            getattr(hands, action)(argument)
        if step.row:
            saved += 1
            wait_for(f"contact {saved} ({step.row['Signal']})", lambda: contacts(log) == saved)
        if step.change and step.change[1] is None:
            saved -= 1
        if step.picture:
            program.picture(f"{scenario.name}_{step.picture}")
    program.picture(scenario.name)
    return log


class Hands:
    """What an operator does, one name for each, and what he waits for."""

    def __init__(self, program, log):
        self.program, self.log = program, log

    def type(self, text):
        self.program.type(text)

    def key(self, keys):
        self.program.key(*keys.split())

    def window(self, title):
        self.program.window(title)

    def accept_warning(self, _):
        self.program.window("VARNING !")
        self.program.picture("frVarning")
        self.program.key("Return")
        self.program.window("TestSignal:")

    def close_warning(self, _):
        self.program.window("VARNING !")
        self.program.picture("frVarning_ej_giltig")
        self.program.key("alt+F4")
        self.program.window("TestSignal:")

    def open(self, keys_and_title):
        keys, title = keys_and_title
        self.program.open_window(keys.split(), title)
        self.program.window(title)

    def date_message(self, _):
        self.program.dismiss_date_message()

    def file(self, condition):
        """Waits for one row of the log to be so."""
        wait_for(condition, lambda: self.matching(condition) == 1)

    def gone(self, condition):
        wait_for("no " + condition, lambda: self.matching(condition) == 0)

    def matching(self, condition):
        return rows(self.log, "SELECT count(*) FROM TESTQSO WHERE " + condition)[0][0]

    def rest(self, _):
        """The clocks count real seconds, so the rest is a real one."""
        time.sleep(1.2)
        self.program.key("alt+i", *["Down"] * 5, "Return")
        time.sleep(2.5)

    def closed(self, _):
        """Closing the log writes the clocks into it."""
        wait_for("the clocks", lambda: clocks(self.log) != ("00:00:00", "00:00:00"))


def clocks(log):
    return rows(log, "SELECT AktivTid, ViloTid FROM INFO")[0]


def expected_rows(scenario, note):
    """The rows that the steps must have made, and the note that stands at the end."""
    expected = []
    for step in scenario.steps:
        note = note if step.notes is None else step.notes
        if step.row:
            expected.append({**contests.EMPTY_ROW, "Notering": note, **step.row})
        if step.change and step.change[1] is not None:
            expected[step.change[0] - 1].update(step.change[1])
    deleted = [step.change[0] - 1 for step in scenario.steps if step.change and step.change[1] is None]
    return [row for number, row in enumerate(expected) if number not in deleted], note


def compare_rows(scenario, log, expected):
    """Differences between the file and what was worked out, as texts."""
    select = ", ".join(f'"{name}"' for name in COLUMNS)
    found = [dict(zip(COLUMNS, row)) for row in rows(log, f"SELECT {select} FROM TESTQSO ORDER BY rowid")]
    wrong = [] if len(found) == len(expected) else [f"{len(found)} rows, expected {len(expected)}"]
    days = {str(datetime.date.today() - datetime.timedelta(days=n)) for n in (0, 1)}
    for row, right in zip(found, expected):
        if row.pop("Datum") not in days:
            wrong.append(f"{right['Signal']}: date")
        if not re.fullmatch(r"\d\d:\d\d:\d\d", row.pop("Tid")):
            wrong.append(f"{right['Signal']}: time")
        wrong += [f"{right['Signal']}: {name} is {row[name]!r}, expected {right[name]!r}"
                  for name in row if row[name] != right[name]]
    info = rows(log, "SELECT Aktuellt_Test, LöpNr, QSOLängd, LängstaQSOSträng FROM INFO")[0]
    if info != scenario.info:
        wrong.append(f"INFO is {info}, expected {scenario.info}")
    if scenario.clocks and not all("00:00:01" <= clock < "00:05:00" for clock in clocks(log)):
        wrong.append(f"the clocks are {clocks(log)}")
    return wrong


def compare_edi(scenario, program, contest="_ 144 MHz"):
    """The report in the folder of reports, named after the day and the contest."""
    reports = [file for file in (program.folder / "Data" / "Rapport").iterdir()
               if re.fullmatch(rf"SVK\d{{6}}_{contest}\.edi", file.name)]
    if len(reports) != 1:
        return [f"reports {reports}"]
    lines = [re.sub(r"^\d{6};\d{4};", "", line) for line in reports[0].read_bytes().decode("cp1252").split("\r\n")]
    return [f"EDI line {number}: {line!r}, expected {right!r}"
            for number, (line, right) in enumerate(zip_longest(lines, scenario.edi + [""]), 1) if line != right]


def compare_labels(scenario, program, log):
    controls = program.controls()
    labels = dict(scenario.labels)
    if scenario.clocks:
        labels.update(zip(("txtAktiv", "txtVila"), clocks(log)))
    return [f"{name} shows {controls['frTest', name][3]!r}, expected {text!r}"
            for name, text in labels.items() if controls["frTest", name][3] != text]


def report(scenario, log, out):
    """The log as text beside the pictures."""
    lines = ["\t".join(COLUMNS)]
    lines += ["\t".join(str(value) for value in row) for row in rows(log, "SELECT * FROM TESTQSO ORDER BY rowid")]
    (out / f"{scenario.name}.txt").write_text("\n".join(lines) + "\n", encoding="utf-8")


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--program", required=True, type=Path)
    parser.add_argument("--out", required=True, type=Path)
    parser.add_argument("--probe", type=Path)
    parser.add_argument("--size", default="1280x720")
    parser.add_argument("scenarios", nargs="*", default=[])
    arguments = parser.parse_args()
    chosen = [contests.ALL[name] for name in arguments.scenarios or contests.ALL]

    wrong = []
    screen = Screen(arguments.size)
    program = None
    try:
        program = Sorvik(arguments.program, screen, arguments.out, arguments.probe)
        program.picture("frTest_tom")
        program.fill_in_station(OWN_CALL, OWN_LOCATOR, TEST_DATE)
        note = ""
        for scenario in chosen:
            log = play(scenario, program)
            report(scenario, log, arguments.out)
            expected, note = expected_rows(scenario, note)
            differences = compare_rows(scenario, log, expected)
            if scenario.edi:
                differences += compare_edi(scenario, program)
            if arguments.probe:
                differences += compare_labels(scenario, program, log)
            wrong += [f"{scenario.name}: {difference}" for difference in differences]
            print(f"{scenario.name}: {contacts(log)} contacts, {len(differences)} differences")
        status = program.exit()
        if status != 0:
            wrong.append(f"the program ended with status {status}")
    except AssertionError as failure:
        wrong.append(str(failure))
        if program:
            program.picture("failure")
    finally:
        if program:
            program.kill()
        screen.close()
    for line in wrong:
        print(line, file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
