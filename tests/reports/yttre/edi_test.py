#!/usr/bin/env python3
"""Our EDI files, read by the readers of Python's own library: the header as an INI file, the records as CSV.

    edi_test.py FOLDER      with the golden files
"""
import configparser
import csv
import sys
import unittest
from pathlib import Path

GOLD = Path(sys.argv.pop())


def read(name):
    parser = configparser.RawConfigParser(delimiters="=", comment_prefixes=(), allow_no_value=True, strict=True,
                                          empty_lines_in_values=False)
    parser.optionxform = str
    text = (GOLD / name).read_bytes().decode("cp1252")
    parser.read_string(text)
    return parser, text


class Edi(unittest.TestCase):
    # The keys of REG1TEST version 1, in their order.
    KEYS = ("TName TDate PCall PWWLo PExch PAdr1 PAdr2 PSect PBand PClub RName RCall RAdr1 RAdr2 RPoCo RCity RCoun RPhon"
            " RHBBS MOpe1 MOpe2 STXEq SPowe SRXEq SAnte SAntH CQSOs CQSOP CWWLs CWWLB CExcs CExcB CDXCs CDXCB CToSc"
            " CODXC").split()

    def test_sections(self):
        for name, count in (("SVK261201__ 144 MHz.edi", 4), ("SVK261201_.edi", 4), ("tom.edi", 0)):
            parser, text = read(name)
            self.assertEqual(parser.sections(),
                             ["REG1TEST;1", "Remarks", f"QSORecords;{count}", "END;Sorvik 3.0.0"])
            self.assertTrue(all(line.endswith("\r") for line in text.split("\n")[:-1]))

    def test_keys_are_the_formats_but_for_two_spellings_of_our_own(self):
        parser, _ = read("SVK261201__ 144 MHz.edi")
        ours = list(parser["REG1TEST;1"])
        self.assertEqual([key for key in ours if key not in self.KEYS], ["PCLUB", "RCAll"])
        self.assertEqual([key.upper() for key in ours], [key.upper() for key in self.KEYS])

    def test_squares_are_left_out_where_they_are_not_counted(self):
        for name in ("SVK261201_.edi", "tom.edi"):
            self.assertNotIn("CWWLs", read(name)[0]["REG1TEST;1"])

    def test_values(self):
        header = read("SVK261201__ 144 MHz.edi")[0]["REG1TEST;1"]
        self.assertEqual(header["TDate"], "20261115;20261115")
        self.assertEqual(header["CWWLs"].split(";"), ["2", "500", "1"])
        self.assertEqual(header["CODXC"].split(";"), ["SM5ABC", "JO89WJ", "500"])
        self.assertEqual(header["RName"], "Åke Öberg")

    def test_records_have_fifteen_fields(self):
        for name, skip in (("SVK261201__ 144 MHz.edi", "LÅNGT"), ("SVK261201_.edi", ""), ("tom.edi", "")):
            text = read(name)[1]
            lines = text.split("\r\n")
            first = next(i for i, line in enumerate(lines) if line.startswith("[QSORecords;")) + 1
            records = list(csv.reader(lines[first:-2], delimiter=";"))
            self.assertEqual(len(records), int(lines[first - 1][12:-1]))
            for record in records:
                if skip and skip in ";".join(record):
                    self.assertEqual(len(record), 16, "a semicolon in a call is not kept apart")
                else:
                    self.assertEqual(len(record), 15)


if __name__ == "__main__":
    unittest.main()
