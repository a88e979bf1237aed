"""Evenings as they are typed, with the rows and totals that must come of them.

The distances come from the locators by tests/store/geodesi_referens.py, seen from JO65MR; everything else was
worked out by hand from the rules of each contest.
"""
from dataclasses import dataclass, field

EMPTY_ROW = {"Frekvens": "0,000,00", "Trafiksätt": "CW", "Sänt": "599", "Mottaget": "599", "Multiplar": "",
             "LöpNr": "", "Namn": "", "QTH": "", "ITU": "", "Zon": "", "Diplom": "", "DXCC": "", "Land": "",
         "Notering": "", "Prefix": "", "DXCC Nr": "", "Poäng": 0, "Distrikt": "", "NDXCC": "", "NRUTA": "",
             "Dubblett": "", "Rutor": "", "LöpNrSR": ""}

# Key of the country table: short form, name, number, ITU zone, CQ zone.
COUNTRIES = {
    "SM": ("SM", "Sverige", "284", "18", "14"), "OZ": ("OZ", "Danmark", "221", "18", "14"),
    "DL": ("DL", "Tyskland", "230", "28", "14"), "DK": ("DL", "Tyskland", "230", "28", "14"),
    "LA": ("LA", "Norge", "266", "18", "14"), "OH": ("OH", "Finland", "224", "18", "15"),
    "OH0": ("OH0", "Åland", "5", "18", "15"), "SP": ("SP", "Polen", "269", "28", "15"),
    "PA": ("PA", "Nederländerna", "263", "27", "14"), "YL": ("YL", "Lettland", "145", "29", "15"),
    "LY": ("LY", "Litauen", "146", "29", "15"), "ES": ("ES", "Estland", "52", "29", "15"),
    "G": ("G", "England", "223", "27", "14"), "K": ("K", "USA", "291", "8", "5"),
    "JA": ("JA", "Japan", "339", "45", "25"), "UA9": ("UA9", "Asiatiska Ryssland", "15", "30", "17"),
}


@dataclass
class Step:
    actions: list
    row: dict = None      # the row that the step must add to the log
    notes: str = None     # the note that all later rows of the run get
    picture: str = None   # a picture is taken after it
    change: tuple = None  # row counted from one, and what becomes of it: columns, or None when it is deleted


@dataclass
class Scenario:
    name: str
    contest: int
    steps: list
    info: tuple           # Aktuellt_Test, LöpNr, QSOLängd, LängstaQSOSträng
    labels: dict = field(default_factory=dict)
    edi: list = None      # lines of the EDI report, the records without their date and time
    clocks: bool = False  # both clocks have run, stand in the file, and are shown from there


def country(key, prefix):
    """The five country columns. Swedish keys carry the district digit."""
    dxcc, land, number, itu, zone = COUNTRIES[key]
    return {"DXCC": dxcc, "Land": land, "DXCC Nr": number, "ITU": itu, "Zon": zone, "Prefix": prefix}


def duplicate(call, notes="DUBBLETT"):
    """A call that was worked before, typed and thrown away at the warning. The note buffer keeps the warning's
    word until somebody changes it, so it stands on all later rows, in the next log too."""
    return Step([("type", call.lower()), ("key", "Tab"), ("accept_warning", None)], notes=notes)


def next_band(stops=5):
    """Along the tab order to the band list, one entry down, and back with Esc."""
    return Step([("key", "Tab " * stops + "Down Escape")])


# ---- NAC 2 m ------------------------------------------------------------------------------------------

def nac(call, locator, points, key, prefix=None, new_country=False, new_square=False, typed=None):
    row = {"Signal": call, "Band ": "2 M", "Multiplar": locator, "Diplom": locator[:4], "Rutor": locator[:4],
           "Poäng": points, "NDXCC": "N" if new_country else "", "NRUTA": "N" if new_square else "",
           "LöpNrSR": "0001", **country(key, prefix or key)}
    keys = [("type", call.lower()), ("key", "Tab Tab")]
    keys += typed or ([("type", locator.lower())] if locator else [])
    return Step(keys + [("key", "Return")], row)


def nac2m():
    steps = [
        nac("SM5ABC", "JO89WJ", 500, "SM", "SM5", True, True),
        nac("SM7XYZ", "JO65", 26, "SM", "SM7", False, True),
        nac("SM7ZZZ", "JO65MR", 1, "SM", "SM7"),  # the own locator
        nac("OZ1AA", "JO55UM", 87, "OZ", None, True, True),
        nac("OZ5BB", "JO45", 256, "OZ", None, False, True),
        nac("DL1CC", "JO54", 189, "DL", None, True, True),
        nac("DK3DD", "JO43XI", 331, "DK", None, False, True),
        nac("LA2EE", "JO59", 437, "LA", None, True, True),
        nac("OH2FF", "KP20LE", 861, "OH", None, True, True),
        nac("SP2GG", "JO94", 404, "SP", None, True, True),
        duplicate("SM5ABC"),
        nac("PA3HH", "JO22", 636, "PA", None, True, True),
        nac("YL2II", "KO16", 625, "YL", None, True, True),
        nac("LY2JJ", "KO05", 502, "LY", None, True, True),
        nac("ES3KK", "KO29", 827, "ES", None, True, True),
        nac("SM6LL", "JO57XX", 259, "SM", "SM6", False, True),
        # A locator heard wrong at first: left with Tab, come back to, one digit changed.
        nac("SM4MM", "JO78", 331, "SM", "SM4", False, True,
            [("type", "jo77"), ("key", "Tab shift+Tab End BackSpace"), ("type", "8")]),
        nac("SM3NN", "JP93KC", 885, "SM", "SM3", False, True),
        nac("SM2OO", "KP03DT", 987, "SM", "SM2", False, True),
        # Typed in full, looked at, and thrown away with Esc.
        Step([("type", "sm1qq"), ("key", "Tab Tab"), ("type", "jo97gk"), ("key", "Tab")], picture="mitt"),
        Step([("key", "Escape")]),
        nac("SM0PP", "JO99AH", 499, "SM", "SM0", False, True),
        nac("OZ7QQ", "JO55", 131, "OZ"),
        nac("DL7RR", "JO62QN", 353, "DL", None, False, True),
        nac("8S0TEST", "JO89", 482, "SM", "8S0"),
        nac("SM7SSS", "", 0, "SM", "SM7"),
        nac("OH0TT", "JP90XI", 657, "OH0", None, True, True),
        nac("G4UU", "IO92", 984, "G", None, True, True),
    ]
    points = 500 + 26 + 1 + 87 + 256 + 189 + 331 + 437 + 861 + 404 + 636 + 625 + 502 + 827 + 259 + 331 + 885 + 987 \
        + 499 + 131 + 353 + 482 + 0 + 657 + 984
    squares = 21
    return Scenario("nac2m", 1, steps, (1, 1, 987, "Längsta QSO : SM2OO  KP03DT  987 Km"), {
        "lblQSO": "25", "lblQSOPoäng": "0", "lblTotalQSOPoäng": str(points), "lblMultiplar": str(500 * squares),
        "lblDiplom": str(squares), "lblTotalPoäng": str(points + 500 * squares), "lblMultipelText": "Rut Poäng",
        "lblDiplomText": "Antal Rutor", "lblLängstaQSO": "Längsta QSO : SM2OO  KP03DT  987 Km",
        "frmLogg": "TestLogg Fil [nac2m.svk]", "frmTQSO": "Tidigare QSO", "dgLogg": "25 rows"})


# ---- Månadstest CW ------------------------------------------------------------------------------------

def manad_row(call, received, sent, locator, band, key, prefix=None, new_country=False, new_square=False,
              own=False):
    square = locator[:4] + " " + band
    return {"Signal": call, "Band ": band, "Mottaget": "599 " + received, "Sänt": "599 " + sent, "LöpNr": received,
            "LöpNrSR": sent, "Multiplar": locator, "Diplom": "" if own else square, "Rutor": square, "Poäng": 2,
            "NDXCC": "N" if new_country else "", "NRUTA": "N" if new_square else "",
            **country(key, prefix or key)}


def manad():
    def typed(call, serial, locator):
        return [("type", call.lower()), ("key", "Tab Tab"), ("type", serial), ("key", "Tab"),
                ("type", locator.lower()), ("key", "Return")]
    steps = [
        # A serial of one digit is filled up when its field is left.
        Step(typed("SM5ABC", "1", "JO89WJ"),
             manad_row("SM5ABC", "01", "01", "JO89WJ", "80 M", "SM", "SM5", True, True)),
        Step(typed("OZ1AA", "12", "JO55"), manad_row("OZ1AA", "12", "02", "JO55", "80 M", "OZ", None, True, True)),
        Step(typed("SM7ZZZ", "7", "JO65MR"),
             manad_row("SM7ZZZ", "07", "03", "JO65MR", "80 M", "SM", "SM7", own=True)),
        next_band(),
        # The known locator comes by itself; Enter in the serial's field leaves its one digit as it is.
        Step([("type", "sm5abc"), ("key", "Tab Tab"), ("type", "3"), ("key", "Return")],
             manad_row("SM5ABC", "3", "04", "JO89WJ", "40 M", "SM", "SM5", False, True)),
        Step(typed("LA2EE", "44", "JO59"), manad_row("LA2EE", "44", "05", "JO59", "40 M", "LA", None, True, True)),
        duplicate("LA2EE"),
    ]
    return Scenario("manad", 7, steps, (7, 6, 2, "Längsta QSO : SM5ABC  JO89WJ  2 Km"), {
        "lblQSO": "5", "lblTotalQSOPoäng": "10", "lblMultiplar": "4", "lblDiplom": "4", "lblTotalPoäng": "40",
        "txtLöpnrS": "06", "lblMultipelText": "Multiplar", "lblDiplomText": "Rutor", "cmbBand": "40 M",
        "cmbTrafik": "CW"})


# ---- SAC CW -------------------------------------------------------------------------------------------

def sac():
    def typed(call, serial):
        return [("type", call.lower()), ("key", "Tab Tab"), ("type", serial), ("key", "Return")]

    def row(call, received, sent, band, points, key):
        return {"Signal": call, "Band ": band, "Mottaget": "599 " + received, "Sänt": "599 " + sent,
                "LöpNr": received, "LöpNrSR": sent, "Poäng": points, "Multiplar": key,
                "Diplom": f"{key} ({band})", **country(key, key)}
    nordic = {"Signal": "SM5ABC", "Band ": "80 M", "Mottaget": "599 9", "Sänt": "599 004", "LöpNr": "9",
              "LöpNrSR": "004", "ITU": "18", "Zon": "14", "Notering": ""}  # nothing behind the exchange is written
    steps = [
        Step(typed("K1ABC", "1"), row("K1ABC", "1", "001", "80 M", 3, "K")),
        Step(typed("JA1XYZ", "12"), row("JA1XYZ", "12", "002", "80 M", 3, "JA")),
        Step(typed("DL1AA", "5"), row("DL1AA", "5", "003", "80 M", 1, "DL")),
        # A Nordic station does not count. The warning closed by its frame leaves the contact to be saved.
        Step([("type", "sm5abc"), ("key", "Tab"), ("close_warning", None), ("key", "Tab"), ("type", "9"),
              ("key", "Return")], nordic),
        next_band(4), next_band(4),  # the exchange field is no tab stop here
        Step(typed("K1ABC", "15"), row("K1ABC", "15", "005", "20 M", 1, "K")),
        duplicate("LA1X", notes=None),
        Step(typed("UA9AA", "33"), row("UA9AA", "33", "006", "20 M", 1, "UA9")),
    ]
    return Scenario("sac", 9, steps, (9, 7, 0, ""), {
        "lblQSO": "6", "lblTotalQSOPoäng": "9", "lblMultiplar": "4", "lblDiplom": "5", "lblTotalPoäng": "36",
        "txtLöpnrS": "007", "lblTyp": "", "lblDiplomText": "Prefix / Band", "cmbBand": "20 M"})


# ---- VUS ----------------------------------------------------------------------------------------------

def vus():
    def contact(call, received, sent, locator, band, points, key, prefix=None, new_square=False):
        row = {"Signal": call, "Band ": band, "LöpNr": received, "LöpNrSR": sent, "Multiplar": locator,
               "Diplom": locator[:4], "Rutor": locator[:4], "Poäng": points, "NRUTA": "N" if new_square else "",
               **country(key, prefix or key)}
        return Step([("type", call.lower()), ("key", "Tab Tab"), ("type", received), ("key", "Tab"),
                     ("type", locator.lower()), ("key", "Return")], row)
    steps = [
        contact("SM5ABC", "001", "001", "JO89WJ", "2 M", 500, "SM", "SM5", True),
        contact("OZ1AA", "002", "002", "JO55UM", "2 M", 87, "OZ", None, True),
        next_band(),
        contact("SM5ABC", "003", "003", "JO89WJ", "70 CM", 500, "SM", "SM5"),
        contact("DL1CC", "014", "004", "JO54", "70 CM", 189, "DL", None, True),
        next_band(),
        contact("OZ1AA", "005", "005", "JO55UM", "24 CM", 87, "OZ"),
    ]
    points = 500 + 87 + 500 + 189 + 87
    return Scenario("vus", 14, steps, (14, 6, 0, ""), {
        "lblQSO": "5", "lblTotalQSOPoäng": str(points), "lblMultiplar": "1500", "lblDiplom": "3",
        "lblTotalPoäng": str(points + 1500), "txtLöpnrS": "006", "cmbBand": "24 CM"})


# ---- a NAC evening with corrections --------------------------------------------------------------------

def kvall():
    """Six contacts, three corrected in the editor and one deleted there, a rest, one more contact, and the log
    closed and opened again."""
    def choose(ups):
        """A row of the editor's grid, counted up from the newest. The caret is in the call's field."""
        return ("key", "shift+Tab ctrl+End" + " Up" * ups)
    save = ("key", "shift+Tab " * 7 + "space")  # around the end of the tab order, from the call's field
    to_call = ("key", "shift+Tab " * 8)         # and back to it from the field of the locator
    steps = [
        nac("SM5ABC", "JO89WJ", 500, "SM", "SM5", True, True),
        nac("SM7XYZ", "JO65", 26, "SM", "SM7", False, True),
        nac("OZ1AA", "JO55UM", 87, "OZ", None, True, True),
        nac("DL1CC", "JO54", 189, "DL", None, True, True),
        nac("LA2EE", "JO59", 437, "LA", None, True, True),
        nac("PA3HH", "JO22", 636, "PA", None, True, True),
        Step([("key", "alt+f Down Down Return"), ("window", "Logg Data (Editor)"), ("key", "Tab")]),
        # A call heard wrong.
        Step([choose(1)], picture="vald"),
        Step([("key", "Tab"), ("type", "la2ef"), save, ("file", "Signal='LA2EF'")],
             change=(5, {"Signal": "LA2EF"})),
        # The wrong band: the list stands on the entry of the row, one further down is right. Whatever is
        # corrected, the whole locator becomes the token of the square.
        Step([choose(3), ("key", "Tab " * 6 + "Down"), ("key", "shift+Tab " * 5), save,
              ("file", "Signal='OZ1AA' AND \"Band \"='70 CM'")], change=(3, {"Band ": "70 CM", "Diplom": "JO55UM"})),
        # A wrong locator: points and square stay as they were saved.
        Step([choose(4), ("key", "Tab " * 8), ("type", "JO66AA"), to_call, ("key", "Tab"), save,
              ("file", "Signal='SM7XYZ' AND Multiplar='JO66AA'")],
             change=(2, {"Multiplar": "JO66AA", "Diplom": "JO66AA"})),
        Step([choose(2), ("key", "shift+Tab " * 5 + "space"), ("window", "Radera"), ("key", "alt+j"),
              ("window", "Logg Data (Editor)"), ("gone", "Signal='DL1CC'")], change=(4, None)),
        Step([("key", "Escape"), ("window", "TestSignal:")], notes=""),
        Step([("rest", None)]),
        nac("G4UU", "IO92", 984, "G", None, True, True),
        Step([("key", "alt+a Down Down Down Return"), ("closed", None), ("key", "alt+a Down Down Return"),
              ("window", "Öppna Logg"), ("type", "kvall.svk"), ("key", "Return"), ("window", "TestSignal:")]),
        # Name and address, then the report: from the first field around to Skapa, and the message.
        Step([("open", ("alt+i Return", "Station / Test Inst.")), ("key", "Tab " * 9), ("type", "Nils"),
              ("key", "Tab"), ("type", "Byn 1"), ("key", "Return"), ("date_message", None), ("key", "Escape"),
              ("window", "TestSignal:")]),
        Step([("key", "alt+p Down Return"), ("window", "Rapport  [Reg1Test] (EDI)"), ("key", "Tab " * 16 + "space"),
              ("window", "EDI Rapport"), ("key", "Return"), ("window", "Rapport  [Reg1Test] (EDI)")], picture="edi"),
        Step([("key", "Escape"), ("window", "TestSignal:")]),
    ]
    points = 500 + 26 + 87 + 437 + 636 + 984
    squares = 6
    return Scenario("kvall", 1, steps, (1, 1, 984, "Längsta QSO : G4UU  IO92  984 Km"), {
        "lblQSO": "6", "lblQSOPoäng": "0", "lblTotalQSOPoäng": str(points), "lblMultiplar": str(500 * squares),
        "lblDiplom": str(squares), "lblTotalPoäng": str(points + 500 * squares),
        "lblLängstaQSO": "Längsta QSO : G4UU  IO92  984 Km", "frmLogg": "TestLogg Fil [kvall.svk]",
        "dgLogg": "6 rows", "dgMulti": "6 rows", "dgDXCC": "5 rows"}, clocks=True, edi=[
            "[REG1TEST;1]", "TName=NAC 144 MHz ", "TDate=20261201;20261201", "PCall=SK7MW", "PWWLo=JO65MR", "PExch=",
            "PAdr1=", "PAdr2=", "PSect=Single Operator", "PBand=144 MHz", "PCLUB=", "RName=Nils", "RCAll=SK7MW",
            "RAdr1=Byn 1", "RAdr2=", "RPoCo=", "RCity=", "RCoun=", "RPhon=", "RHBBS=", "MOpe1=", "MOpe2=", "STXEq=",
            "SPowe=", "SRXEq=", "SAnte=", "SAntH=0;0", "CQSOs=6;", f"CQSOP={points}", f"CWWLs={squares};500;1",
            f"CWWLB={500 * squares}", "CExcs=0;0;", "CExcB=0", "CDXCs=5;;", "CDXCB=0",
            f"CToSc={points + 500 * squares}", "CODXC=G4UU;IO92;984", "[Remarks]", "[QSORecords;6]",
            "SM5ABC;2;599;;599;;;JO89WJ;500;;N;N;", "SM7XYZ;2;599;;599;;;JO66AA;26;;N;;",
            "OZ1AA;2;599;;599;;;JO55UM;87;;N;N;", "LA2EF;2;599;;599;;;JO59;437;;N;N;",
            "PA3HH;2;599;;599;;;JO22;636;;N;N;", "G4UU;2;599;;599;;;IO92;984;;N;N;", "[END;Sorvik 3.0.0]"])


ALL = {scenario.name: scenario for scenario in (nac2m(), kvall(), manad(), sac(), vus())}
