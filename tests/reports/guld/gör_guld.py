#!/usr/bin/env python3
"""The golden files of the reports, put together apart from the program.

    gör_guld.py     writes them beside itself, and the logs they are of as SQL

Every line stands here as the formats and the rules of the reports have it, typed by hand but for the rows of the
summary. When a format changes, the line is changed here by hand. The station and what stands in the
report windows is in rapporter_test.cpp.
"""
from pathlib import Path

HERE = Path(__file__).parent
NUL = "\0"


def log(name, info, *contacts):
    """A log as SQL: INFO, and the contacts with the columns they have; the others are empty texts."""
    columns = ["Datum", "Tid", "Signal", "Frekvens", "Trafiksätt", "Band ", "Sänt", "Mottaget", "Multiplar", "LöpNr",
               "Namn", "QTH", "ITU", "Zon", "Diplom", "DXCC", "Land", "Notering", "Prefix", "DXCC Nr", "Poäng",
               "Distrikt", "NDXCC", "NRUTA", "Dubblett", "Rutor", "LöpNrSR"]
    sql = [f"UPDATE INFO SET LängstaQSOSträng='{info}';"]
    for contact in contacts:
        values = ", ".join("'" + str(contact.get(column, "")) + "'" for column in columns)
        names = ", ".join(f'"{column}"' for column in columns)
        sql.append(f"INSERT INTO TESTQSO ({names}) VALUES ({values});")
    (HERE / name).write_text("\n".join(sql) + "\n", encoding="utf-8")


def report(name, *lines):
    (HERE / name).write_bytes("".join(line + "\r\n" for line in lines).encode("cp1252"))


# ---- Månadstest: a first contact without date and time and off its bands, a telephony one, a call and numbers too long ------------------

log("mt.sql", "Längsta QSO : SM5ABC  JO89WJ  2 Km",
    {"Signal": "SM5ABC", "Trafiksätt": "RTTY", "Band ": "2 M", "Sänt": "599 01", "Mottaget": "599 12",
     "LöpNrSR": "01", "LöpNr": "12", "Multiplar": "JO89WJ", "Diplom": "JO89 2 M", "Poäng": 2, "NDXCC": "N"},
    {"Datum": "2026-11-15", "Tid": "14:00:05", "Signal": "OZ1AA", "Trafiksätt": "CW", "Band ": "80 M",
     "Sänt": "599 02", "Mottaget": "599 7", "LöpNrSR": "02", "LöpNr": "7", "Multiplar": "JO65AA",
     "Diplom": "JO65 80 M", "Poäng": 2, "NDXCC": "n", "NRUTA": "N"},
    {"Datum": "2026-11-15", "Tid": "14:01:00", "Signal": "SM7ÅÄÖ/P-LÅNGTANROP", "Trafiksätt": "SSB", "Band ": "40 M",
     "Sänt": "59  03", "Mottaget": "5", "LöpNrSR": "03", "LöpNr": "12345", "Multiplar": "JO65",
     "Diplom": "JO65 40 M", "Poäng": 2},
    {"Datum": "2026-11-15", "Tid": "14:02", "Signal": "ЯA1", "Trafiksätt": "RTTY", "Band ": "20 M", "Sänt": "599",
     "Multiplar": "JO65AABB", "Poäng": 2, "Dubblett": "D"})


def mt_header(op, overlay, assist, name, score, note):
    return ["START-OF-LOG: 2.0", "CALLSIGN: SK7MW", "CATEGORY: " + op, "CATEGORY-ASSISTED: " + assist,
            "CATEGORY-OVERLAY: " + overlay, "CLAIMED-SCORE: " + score, "CLUB: SK7KLUBB", "CONTEST: " + name,
            "CREATED-BY: Sorvik 3.0.0", "NAME: Åke Öberg", "ADDRESS: Sjövägen 1", "ADDRESS: 123 45 VÄSTERÅS",
            "ADDRESS: SVERIGE", "OPERATORS: SM7AAA ÅSA", "SOAPBOX: sk7mw@example.org", "SOAPBOX: " + note]


report("SK7MW_MT2611_PH.log",
       *mt_header("ROOKIE", "ROOKIE", "ASSISTED", "SSA-MT-CW", "24", "Lång natt – 73 ?"),
       "QSO: " + 5 * NUL + " " + 2 * NUL + " " + 10 * NUL + " " + 4 * NUL +
       " SK7MW         599   01 JO65MR SM5ABC        599   12 JO89WJ",
       "QSO:  3500 CW 2026-11-15 1400 SK7MW         599   02 JO65MR OZ1AA         599    7 JO65AA",
       "QSO:  7000 PH 2026-11-15 1401 SK7MW         59    03 JO65MR SM7ÅÄÖ/P-LÅNG 5   1234 JO65  ",
       "QSO:  7000 PH 2026-11-15 1402 SK7MW         599      JO65MR ?A1                    JO65AA",
       "END-OF-LOG:")
# A log without contacts: the header alone.
report("SK7MW_MT2611_.log", *mt_header("SINGLE-OP", "EXPERT", "NON-ASSISTED", "SSA-MT-SSB", "0", ""))

# The one mode of these contests is a text in the box and no row of its list, so the records have no code.
report("SVK261201_.edi",
       "[REG1TEST;1]", "TName= ", "TDate=20261115;20261115", "PCall=SK7MW", "PWWLo=JO65MR", "PExch=", "PAdr1=",
       "PAdr2=", "PSect=Multi Operator", "PBand=80/40 M", "PCLUB=SK7KLUBB", "RName=Åke Öberg", "RCAll=SK7MW",
       "RAdr1=Sjövägen 1", "RAdr2=", "RPoCo=123 45", "RCity=VÄSTERÅS", "RCoun=SVERIGE", "RPhon=",
       "RHBBS=sk7mw@example.org", "MOpe1=SM7AAA", "MOpe2=SM7BBB", "STXEq=IC-7300", "SPowe=100 W", "SRXEq=IC-7300",
       "SAnte=DIPOL", "SAntH=20;50", "CQSOs=4;", "CQSOP=8", "CWWLB=3", "CExcs=0;0;", "CExcB=0", "CDXCs=2;;",
       "CDXCB=0", "CToSc=24", "CODXC=SM5ABC;JO89WJ;2", "[Remarks]", "[QSORecords;4]",
       ";;SM5ABC;;599;01;599;12;;JO89WJ;2;;;N;",
       "261115;1400;OZ1AA;;599;02;599;7;;JO65AA;2;;N;n;",
       "261115;1401;SM7ÅÄÖ/P-LÅNGTANROP;;59;03;5;12345;;JO65;2;;;;",
       "261115;1402;?A1;;599;;;;;JO65AABB;2;;;;D",
       "[END;Sorvik 3.0.0]")

# ---- SAC, stored in another order than that of the times -------------------------------------------------------------------------------------------------------

log("sac.sql", "",
    {"Datum": "2026-09-19", "Tid": "12:05:30", "Signal": "JA1XYZ/P-LONGCALL", "Trafiksätt": "RTTY", "Band ": "10 M",
     "Sänt": "599 002", "Mottaget": "579 0007", "LöpNrSR": "002", "LöpNr": "0007", "Multiplar": "JA",
     "Diplom": "JA (10 M)", "Poäng": 3},
    {"Datum": "2026-09-19", "Tid": "12:00:00", "Signal": "K1ABC", "Frekvens": "14,025,50", "Trafiksätt": "CW",
     "Band ": "20 M", "Sänt": "599 001", "Mottaget": "599 15", "LöpNrSR": "001", "LöpNr": "15", "Multiplar": "K",
     "Diplom": "K (20 M)", "Poäng": 1},
    {"Datum": "2026-09-20", "Tid": "00:10:00", "Signal": "DL1AA", "Trafiksätt": "SSB", "Band ": "160 M",
     "Sänt": "59 10003", "Mottaget": "59", "LöpNrSR": "10003", "LöpNr": "", "Multiplar": "DL",
     "Diplom": "DL (160 M)", "Poäng": 3})

report("SK7MW261201_.log",
       "START-OF-LOG: 2.0", "CALLSIGN: SK7MW", "CATEGORY: SINGLE-OP ALL HIGH", "CATEGORY-OVERLAY: EXPERT",
       "CLAIMED-SCORE: 21", "CLUB: SK7KLUBB", "CONTEST: ", "CREATED-BY: Sorvik 3.0.0", "NAME: Åke Öberg",
       "ADDRESS: Sjövägen 1", "ADDRESS: 123 45 VÄSTERÅS", "ADDRESS: SVERIGE", "OPERATORS: ",
       "SOAPBOX: sk7mw@example.org", "SOAPBOX: ",
       "QSO: 14000 CW 2026-09-19 1200 SK7MW         599  001 K1ABC         599   15",
       "QSO: 28000 RY 2026-09-19 1205 SK7MW         599  002 JA1XYZ/P-LONG 579 0007",
       "QSO: 28000 PH 2026-09-20 0010 SK7MW         59  1000 DL1AA         59      ",
       "END-OF-LOG:")
# The same log as it would go to a contest where power is the exchange.
report("ARRL.log",
       "START-OF-LOG: 2.0", "CALLSIGN: SK7MW", "CATEGORY: SINGLE-OP ALL HIGH", "CATEGORY-OVERLAY: EXPERT",
       "CLAIMED-SCORE: 21", "CLUB: SK7KLUBB", "CONTEST: ", "CREATED-BY: Sorvik 3.0.0", "NAME: Åke Öberg",
       "ADDRESS: Sjövägen 1", "ADDRESS: 123 45 VÄSTERÅS", "ADDRESS: SVERIGE", "OPERATORS: ",
       "SOAPBOX: sk7mw@example.org", "SOAPBOX: ",
       "QSO: 14000 CW 2026-09-19 1200 SK7MW         599  100 K1ABC         599    K",
       "QSO: 28000 CW 2026-09-19 1205 SK7MW         599  100 JA1XYZ/P-LONG 579   JA",
       "QSO:  1800 PH 2026-09-20 0010 SK7MW         59   100 DL1AA         59    DL",
       "END-OF-LOG:")


def summary(title, first_date, mode, score, rows, total, note):
    def row(band, figures):
        qso, points, mults = figures
        return f"{band:>5}   {mode:<8}{qso:<8}{points:<9}{mults:<8}"
    bands = ["160 M", "80 M", "40 M", "20 M", "15 M", "10 M"]
    return ["Contest:           " + title, "", "Contest Date:      " + first_date, "", "Callsign:          SK7MW",
            "Operators:         SM7AAA", "", "Category:          Rookie", "Category Assisted: Assisted", "",
            "Equipment:         IC-7300", "Antennas:          Dipol Ö–V", "", "Name:              Åke Öberg",
            "Address:           Sjövägen 1", "                   123 45", "                   VÄSTERÅS", "",
            "E-mail:            sk7mw@example.org", "", "Claimed Score:     " + score, "",
            "Band    Mode    QSO:s   Points   Mults   ", "-----------------------------------------",
            *[row(band, figures) for band, figures in zip(bands, rows)],
            "-----------------------------------------", "   Total        " + "{:<8}{:<9}{:<8}".format(*total), "",
            "Comments:          " + note, "", "", "Created by:        Sorvik 3.0.0", "2026-12-01"]


# One contact on 160 M, none on 80 and 40, one on 20, none on 15, one on 10: 1, 10, 100, 1001, 10010, 100101.
report("SVK261201_CQWW CW.sum",
       *summary("CQWW CW", "2026-09-19", "CW", "21",
                [("1", "3", "0"), ("0", "0", "0"), ("0", "0", "0"), ("1", "1", "0"), ("0", "0", "0"),
                 ("1", "3", "0")],
                ("100101", "300103", "0"), "73"))
LIST_HEAD = "Date        UTC       Callsign      Mode    Band    Sent       Rcvd       Mults      Pts    "
report("SK7MW261201_CQWW CW.all",
       "Contest: CQWW CW", "Callsign: SK7MW", "", LIST_HEAD, "-" * 92,
       "2026-09-19  1200      K1ABC         CW      20 M    599 001    599 15     K          1     ",
       "2026-09-19  1205      JA1XYZ/P-LON  RTTY    10 M    599 002    579 0007   JA         3     ",
       "2026-09-20  0010      DL1AA         SSB     160 M   59 10003   59         DL         3     ")

# ---- NAC 2 m: a first contact without anything, a semicolon in a call, a duplicate ------------------------------

log("nac.sql", "Längsta QSO : SM5ABC  JO89WJ  500 Km",
    {"Signal": "€Я", "Band ": "24 CM", "Poäng": 1},
    {"Datum": "2026-12-01", "Tid": "18:00:05", "Signal": "SM5ABC", "Frekvens": "144,050,00", "Trafiksätt": "CW",
     "Band ": "2 M", "Sänt": "599", "Mottaget": "599", "Multiplar": "JO89WJ", "Namn": "Åsa", "QTH": "Gävle",
     "ITU": "18", "Zon": "14", "Diplom": "JO89", "DXCC": "SM", "Land": "Sverige", "Notering": "QRP <5 W>",
     "DXCC Nr": "284", "Poäng": 500, "NDXCC": "N", "NRUTA": "N", "LöpNrSR": "0001"},
    {"Datum": "2026-12-01", "Tid": "18:10:00", "Signal": "OZ1ÅÄÖ/LÅNGT;NAMN", "Trafiksätt": "SSB", "Band ": "70 CM",
     "Sänt": "59 001", "Mottaget": "59", "Multiplar": "JO65AA", "Diplom": "JO65", "Poäng": 101, "NDXCC": "N",
     "NRUTA": "N", "LöpNrSR": "0001"},
    {"Datum": "2026-12-01", "Tid": "18:20", "Signal": "SM5ABC", "Trafiksätt": "CW", "Band ": "2 M", "Sänt": "599",
     "Mottaget": "599", "Multiplar": "JO89WJ", "LöpNr": "7", "Diplom": "JO89", "Poäng": 0, "Dubblett": "D",
     "LöpNrSR": "0001"})


def edi(title, band, month, counts, records, note):
    """The file of a station that has left the window's own fields as they come up."""
    qso, qso_points, squares_line, square_points, dxcc, dxcc_points, total, longest = counts
    return ["[REG1TEST;1]", f"TName={title} {month}", "TDate=20261115;20261115", "PCall=SK7MW", "PWWLo=JO65MR",
            "PExch=", "PAdr1=", "PAdr2=", "PSect=Single Operator", "PBand=" + band, "PCLUB=SK7KLUBB",
            "RName=Åke Öberg", "RCAll=SK7MW", "RAdr1=Sjövägen 1", "RAdr2=", "RPoCo=123 45", "RCity=VÄSTERÅS",
            "RCoun=SVERIGE", "RPhon=", "RHBBS=sk7mw@example.org", "MOpe1=", "MOpe2=", "STXEq=IC-7300", "SPowe=",
            "SRXEq=IC-7300", "SAnte=DIPOL", "SAntH=20;50", f"CQSOs={qso};", "CQSOP=" + qso_points,
            *([f"CWWLs={squares_line};500;1"] if squares_line else []), "CWWLB=" + square_points, "CExcs=0;0;",
            "CExcB=0", f"CDXCs={dxcc};;", "CDXCB=" + dxcc_points, "CToSc=" + total, "CODXC=" + longest, "[Remarks]",
            *([note] if note else []), f"[QSORecords;{qso}]", *records, "[END;Sorvik 3.0.0]"]


report("SVK261201__ 144 MHz.edi",
       *edi("NAC 144 MHz", "144 MHz", "DECEMBER", ("4", "602", "2", "1000", "2", "0", "1602", "SM5ABC;JO89WJ;500"),
            [";;€?;2;;;;;;;1;;;;",
             "261201;1800;SM5ABC;2;599;;599;;;JO89WJ;500;;N;N;",
             "261201;1810;OZ1ÅÄÖ/LÅNGT;NAMN;2;59 001;;59;;;JO65AA;101;;N;N;",
             "261201;1820;SM5ABC;2;599;;599;7;;JO89WJ;0;;;;D"], "Lång natt – 73 ?"))
report("SVK261201__ 144 MHz.sum",
       *summary("NAC 144 MHz", "", "", "1602", [("0", "0", "0")] * 6, ("0", "0", "0"), ""))

report("nac.adi",
       "", "ADIF Export from Sorvik 3.0.0, Sorviks utvecklare 2026", "2026-12-01  19:00:00",
       "https://sorvik.example/  sorvik@sorvik.example", "", "<EOH>",
       "<CALL:2>€?<QSO_DATE:0><TIME_ON:0><BAND:3>24M<MODE:0><FREQ:0><RST_RCVD:0><RST_SENT:0><QTH:0><NAME:0><ITUZ:0>"
       "<CQZ:0><DXCC:0><ADI:0><Award:0><Points:1>1<LAND:0><Multipels:0><COMMENS:0><EOR>",
       "<CALL:6>SM5ABC<QSO_DATE:8>20261201<TIME_ON:6>180005<BAND:2>2M<MODE:2>CW<FREQ:10>144,050,00<RST_RCVD:3>599"
       "<RST_SENT:3>599<QTH:5>Gävle<NAME:3>Åsa<ITUZ:2>18<CQZ:2>14<DXCC:2>SM<ADI:3>284<Award:4>JO89<Points:3>500"
       "<LAND:7>Sverige<Multipels:6>JO89WJ<COMMENS:9>QRP <5 W><EOR>",
       "<CALL:17>OZ1ÅÄÖ/LÅNGT;NAMN<QSO_DATE:8>20261201<TIME_ON:6>181000<BAND:4>70CM<MODE:3>SSB<FREQ:0><RST_RCVD:2>59"
       "<RST_SENT:6>59 001<QTH:0><NAME:0><ITUZ:0><CQZ:0><DXCC:0><ADI:0><Award:4>JO65<Points:3>101<LAND:0>"
       "<Multipels:6>JO65AA<COMMENS:0><EOR>",
       "<CALL:6>SM5ABC<QSO_DATE:8>20261201<TIME_ON:4>1820<BAND:2>2M<MODE:2>CW<FREQ:0><RST_RCVD:3>599<RST_SENT:3>599"
       "<QTH:0><NAME:0><ITUZ:0><CQZ:0><DXCC:0><ADI:0><Award:4>JO89<Points:1>0<LAND:0><Multipels:6>JO89WJ<COMMENS:0>"
       "<EOR>")

# ---- NAC 10 m SSB, one contact: squares stand as multipliers, countries as squares ------------------------------

log("tio.sql", "Längsta QSO : SM5ABC  JO89WJ  500 Km",
    {"Datum": "2026-12-03", "Tid": "18:00:00", "Signal": "SM5ABC", "Trafiksätt": "SSB", "Band ": "10 M",
     "Sänt": "59 001", "Mottaget": "57", "LöpNrSR": "001", "LöpNr": "042", "Multiplar": "JO89WJ", "Diplom": "JO89",
     "Poäng": 500, "NDXCC": "N", "NRUTA": "N"})
report("SVK261201__ 28 MHz SSB.edi",
       *edi("NAC 28 MHz SSB", "28 MHz", "", ("1", "500", "500", "500", "1", "1", "1000", "SM5ABC;JO89WJ;500"),
            ["261203;1800;SM5ABC;;59;001;57;042;;JO89WJ;500;;N;N;"], ""))
report("SVK261201__ 28 MHz SSB.sum",
       *summary("NAC 28 MHz SSB", "2026-12-03", "SSB", "1000",
                [("0", "0", "0")] * 5 + [("1", "500", "0")], ("1", "500", "0"), ""))

# ---- VUS without a contact ---------------------------------------------------------------------------------------

report("tom.edi",
       *edi("", "28 MHz", "", ("0", "0", "", "0", "0", "0", "0", ""), [], ""))
# The list of an empty log: its head.
report("SK7MW261201_WPX SSB.all", "Contest: WPX SSB", "Callsign: SK7MW", "", LIST_HEAD, "-" * 92)
