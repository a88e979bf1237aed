#!/usr/bin/env python3
"""Makes Prefix.csv, the country reference, from the amateur radio country file.

    prefix_fran_landfil.py [--landfil cty.csv] [--aktiva MASTER.SCP] [--land Land.csv] [--ut Prefix.csv]

The country file and the list of stations heard in contests are those of Debian's package hamradio-files
(licence: LICENSE.landfil beside Prefix.csv). Prefix.csv is kept in git, so only who refreshes it needs this.

The table has to serve one search, written out in sök below: the longest key at the left end of the call wins,
then a key composed of letters, "/" and what follows the digit may refine it. A key therefore reaches every call
that begins with it; a whole call cannot be told from a longer one. What follows from that:

* Only keys that change something. A key whose row says the same as the search finds without it is left out
  (the reference point alone is no reason). Contests count the matched key as a multiplier: a key too many is a
  multiplier too many.
* Entries marked "*" count for another award only. They take the country of their number (Shetland is Skottland,
  Sicily Italien, Bear Island Svalbard), but keep continent and zones of their own.
* Composed keys stand for the ten digits when at least eight of them agree and the country is that of the letters
  in front; a composed key begins like a portable call (LU/V and LU/VK3ABC), so it must not lead to another
  country. FT is the exception, since the country is told by nothing else there and FT/ is no portable prefix.
* KG4 with two letters is Guantánamo, with one or three it is the USA; the search sees no length. The key KG4 is
  the USA (97 of 97 such calls in the contest list), the calls known from Guantánamo are whole keys.
* Whole calls ("=" in the country file) are keys where country, continent or zone differ. One that an ordinary
  call can begin with (one or two letters behind the digit) gets 26 guards, the call and each letter, with the
  row such longer calls had without it. That is 27 rows for one station. It is done for every station of the
  contest list, and without being there for every change of country but two: calls of Alaska, Hawaii, Guam,
  Puerto Rico and the like whose holders live on the mainland now, and British special event calls. Those, and
  zones within a country, would bring 60000 rows more for stations not heard in contests. Special calls with
  several digits or four letters need no guard.
* Not taken: the file's version mark, and whole calls that end in their digit (TX9), which are blocks.

Sweden has a key with each district digit; the program reads the district from the key's third character.

Signs: the country file has west longitude and time behind UTC positive. Here east is positive, and Tid is what
to add to UTC for local standard time: Sweden "1", the eastern USA "-5".
"""

import argparse
import csv
import re
import string
import sys
from pathlib import Path
from typing import NamedTuple

DATA = Path(__file__).resolve().parent.parent
PAKET = Path("/usr/share/hamradio-files")
KOLUMNER = ["Prefix", "Land", "DXCC", "Kontinent", "Tid", "ITU", "Zon", "Kod", "Lokator"]

# Middle of each call district: Stockholm, Roma, Arvidsjaur, Ånge, Vansbro, Eskilstuna, Vårgårda, Växjö.
# The districts 8 and 9 (ships, stations abroad, training) have no place and keep the country's.
SVENSKA_DISTRIKT = {
    "0": (59.33, 18.07),
    "1": (57.52, 18.45),
    "2": (65.59, 19.17),
    "3": (62.52, 15.66),
    "4": (60.51, 14.23),
    "5": (59.37, 16.51),
    "6": (58.03, 12.81),
    "7": (56.88, 14.81),
}
SVERIGE = "284"
USA = "291"
USA_UTANFÖR = set("6 9 20 43 103 105 110 123 138 166 174 182 197 202 285 297 515".split())

# Prefix (A1, 1A, AA, 1AA or A), one digit, one or two letters: an ordinary call may go on with a letter here.
KAN_FORTSÄTTA = re.compile(r"(?:[A-Z]{1,2}|[A-Z][0-9]|[0-9][A-Z]{1,2})[0-9][A-Z]{1,2}")
# ... but not these: A-series calls of the USA and Italian clubs have two letters at most, and TO and TX are given
# out call by call to French islands, so that what stands behind France's own row there is nothing to guard.
FORTSÄTTER_INTE = re.compile(r"(?:A[A-L]|IQ)[0-9][A-Z]{2}|T[OX].*")
DEL = re.compile(r"\((\d+)\)|\[(\d+)\]|\{(\w+)\}|<([-.\d]+)/([-.\d]+)>|~([-.\d]+)~")


class Rad(NamedTuple):
    """What a key leads to. Degrees with east and north positive, hours to add to UTC."""

    kod: str
    kontinent: str
    zon: int
    itu: int
    tid: float
    lat: float
    lon: float

    def besked(self):
        """What tells two rows apart: country, continent and zones; the reference point does not."""
        return (self.kod, self.kontinent, self.zon, self.itu)


def läs_nyckel(text, rad):
    """Takes a key with its overrides apart.

    @return whether it is a whole call, the key, its row
    """
    namn = re.match(r"=?([A-Z0-9/]+)", text)
    for zon, itu, kontinent, lat, lon, tid in DEL.findall(text):
        if zon:
            rad = rad._replace(zon=int(zon))
        if itu:
            rad = rad._replace(itu=int(itu))
        if kontinent:
            rad = rad._replace(kontinent=kontinent)
        if lat:
            rad = rad._replace(lat=float(lat), lon=-float(lon))
        if tid:
            rad = rad._replace(tid=-float(tid))
    return text[0] == "=", namn.group(1), rad


def läs_landfil(fil):
    """@return the plain keys and the whole calls of the country file, each as a dict from key to Rad"""
    prefix, anrop = {}, {}
    with open(fil, encoding="ascii") as rader:
        for rad in rader:
            fält = rad.strip().rstrip(";").split(",")
            kod, kontinent, zon, itu, lat, lon, tid = fält[2:9]
            grund = Rad(kod, kontinent, int(zon), int(itu), 0 - float(tid), float(lat), -float(lon))
            for text in fält[9].split():
                helt, nyckel, egen = läs_nyckel(text, grund)
                # A call may stand under its country and under another award's entry; both say the same country.
                (anrop if helt else prefix).setdefault(nyckel, egen)
    return prefix, anrop


def sök(tabell, anrop):
    """The program's search. @return the key found, None when there is none"""
    bäst = ""
    for n in range(1, len(anrop) + 1):
        if anrop[:n] in tabell:
            bäst = anrop[:n]
    if anrop.startswith("4U") and not bäst:
        bäst = "4U"
    if anrop.startswith("FT") and bäst == "F":
        bäst = "FT"
    n = len(bäst)
    if n < len(anrop) and anrop[n] in string.digits:
        ett, två = anrop[n + 1 : n + 2], anrop[n + 2 : n + 3]
        if f"{bäst}/{ett}" in tabell:
            bäst = f"{bäst}/{ett}"
            if bäst + två in tabell:
                bäst += två
    return bäst if bäst in tabell else None


def besked(tabell, anrop):
    """What the table says of a call, None when it says nothing."""
    nyckel = sök(tabell, anrop)
    return tabell[nyckel].besked() if nyckel else None


def längsta(prefix, anrop):
    """The row of the longest plain key of the country file, None when there is none."""
    for n in range(len(anrop), 0, -1):
        if anrop[:n] in prefix:
            return prefix[anrop[:n]]
    return None


def utan_överflöd(prefix):
    """Drops keys that say what the next shorter key says."""
    kvar = {}
    for nyckel in sorted(prefix, key=len):
        kortare = längsta(kvar, nyckel)
        if kortare is None or kortare.besked() != prefix[nyckel].besked():
            kvar[nyckel] = prefix[nyckel]
    return kvar


def grupper(prefix):
    """@return the keys of a prefix, a digit and one letter: by prefix and letter, a dict from digit to row"""
    funna = {}
    for nyckel, rad in prefix.items():
        m = re.fullmatch(r"([A-Z0-9]+)([0-9])([A-Z])", nyckel)
        if m:
            funna.setdefault((m[1], m[3]), {})[m[2]] = rad
    return funna


def rätta(prefix):
    """@return the plain keys with what the search needs otherwise: see KG4, FT and composed keys at the top"""
    rättad = dict(prefix)
    rättad["KG4"] = prefix["K"]
    rättad["FT"] = prefix["F"]  # the search never ends at F for a call in FT
    for (bas, bokstav), siffror in grupper(prefix).items():
        lika = len({rad.besked() for rad in siffror.values()}) == 1
        if lika and (len(siffror) >= 8 or bas == "FT"):
            for siffra in string.digits:
                rättad.setdefault(bas + siffra + bokstav, next(iter(siffror.values())))
    return rättad


def sammansätt(tabell):
    """Puts composed keys in the place of a prefix with every digit and one letter."""
    for (bas, bokstav), siffror in grupper(tabell).items():
        rad = siffror.get("0")
        if len({r.besked() for r in siffror.values()}) > 1 or len(siffror) < 10 or bas not in tabell:
            continue
        fri = not any(bas + siffra in tabell for siffra in string.digits)
        if fri and (rad.kod == tabell[bas].kod or bas == "FT"):
            for siffra in siffror:
                del tabell[bas + siffra + bokstav]
            tabell[f"{bas}/{bokstav}"] = rad


def lägg_sverige(tabell):
    """Gives each Swedish letter pair its ten district keys."""
    for par in [nyckel for nyckel, rad in tabell.items() if rad.kod == SVERIGE and len(nyckel) == 2]:
        for siffra in string.digits:
            rad = tabell[par]
            if siffra in SVENSKA_DISTRIKT:
                lat, lon = SVENSKA_DISTRIKT[siffra]
                rad = rad._replace(lat=lat, lon=lon)
            tabell[par + siffra] = rad


def kan_fortsätta(anrop):
    """Whether an ordinary call can be this one with a letter more."""
    return bool(KAN_FORTSÄTTA.fullmatch(anrop)) and not FORTSÄTTER_INTE.fullmatch(anrop)


def är_anrop(text):
    """Whether a whole call of the country file is a call: no version mark, no block that ends in its digit."""
    return "/" in text or text == "RAEM" or (text[-1].isalpha() and any(t.isdigit() for t in text))


def lönar_sig_ej(utan, nyckel, rad):
    """Whether a call that needs guards is of a kind that brings more rows than contacts: see the top."""
    förut = sök(utan, nyckel)
    if not förut:
        return False
    bas = utan[förut].kod
    return nyckel.startswith("GB") or bas == rad.kod or (bas in USA_UTANFÖR and rad.kod == USA)


def lägg_vakter(tabell, utan, nyckel):
    """Leads the calls that are one letter longer than a whole call to where they went without it."""
    for bokstav in string.ascii_uppercase:
        förut = sök(utan, nyckel + bokstav)
        if förut:
            tabell[nyckel + bokstav] = utan[förut]


def lägg_anrop(tabell, anrop, aktiva):
    """Adds the whole calls that pay, and the guards behind them.

    @return the calls that were left out though they differ
    """
    utan = dict(tabell)
    lämnade = []
    for nyckel in sorted(anrop, key=lambda a: (len(a), a)):
        if not är_anrop(nyckel) or besked(tabell, nyckel) == anrop[nyckel].besked():
            continue
        if kan_fortsätta(nyckel) and nyckel not in aktiva and lönar_sig_ej(utan, nyckel, anrop[nyckel]):
            lämnade.append(nyckel)
            continue
        tabell[nyckel] = anrop[nyckel]
        if kan_fortsätta(nyckel):
            lägg_vakter(tabell, utan, nyckel)
    return lämnade


def bygg(prefix, anrop, aktiva):
    """@param prefix the plain keys after rätta
    @return the whole table, and the differing calls that were left out
    """
    tabell = utan_överflöd(prefix)
    tabell["FT"] = prefix["FT"]
    sammansätt(tabell)
    lägg_sverige(tabell)
    return tabell, lägg_anrop(tabell, anrop, aktiva)


def lokator(lat, lon):
    """The Maidenhead locator of a point, six characters."""
    lon, lat = (lon + 180) % 360, min(lat + 90, 179.999)
    return "".join(
        [
            string.ascii_uppercase[int(lon // 20)],
            string.ascii_uppercase[int(lat // 10)],
            str(int(lon % 20 // 2)),
            str(int(lat % 10)),
            string.ascii_uppercase[int(lon % 2 * 12)],
            string.ascii_uppercase[int(lat % 1 * 24)],
        ]
    )


def tidtext(timmar):
    """Hours without needless decimals: "1", "-5", "5.75"."""
    return f"{timmar + 0:.2f}".rstrip("0").rstrip(".")


def skriv(tabell, land, ut):
    """Writes the table, sorted by key."""
    with open(ut, "w", encoding="utf-8", newline="") as fil:
        penna = csv.writer(fil, lineterminator="\n")
        penna.writerow(KOLUMNER)
        for nyckel in sorted(tabell):
            r = tabell[nyckel]
            dxcc, namn = land[r.kod]
            penna.writerow(
                [nyckel, namn, dxcc, r.kontinent, tidtext(r.tid), r.itu, r.zon, r.kod, lokator(r.lat, r.lon)]
            )


def läs_land(fil):
    """@return short form and Swedish name by the country's number"""
    with open(fil, encoding="utf-8", newline="") as rader:
        return {rad["Kod"]: (rad["DXCC"], rad["Land"]) for rad in csv.DictReader(rader)}


def läs_aktiva(fil):
    """@return the calls heard in contests"""
    with open(fil, encoding="ascii") as rader:
        return {rad.strip() for rad in rader if not rad.startswith("#")}


def prov(tabell, prefix, anrop, aktiva):
    """@return calls to try: the real ones, made ones behind every plain key, and longer ones behind guards"""
    slut = ["", "A", "AB", "ABC", "1A", "1AB", "1ABC", "0X", "0XYZ", "9ZZ", "5QQQ"]
    alla = {nyckel + s for nyckel in prefix for s in slut} | set(anrop) | aktiva
    for nyckel in filter(kan_fortsätta, tabell):
        alla |= {nyckel + bokstav for bokstav in string.ascii_uppercase}
    return sorted(ett for ett in alla if är_anrop(ett) and not re.fullmatch(r"A[A-L][0-9][A-Z]{3}", ett))


def avvikelser(tabell, prefix, anrop, aktiva, lämnade):
    """Holds the table against the country file.

    @return (call, the file's word, the table's word) where they part with no reason given at the top
    """
    for ett in prov(tabell, prefix, anrop, aktiva):
        rätt = anrop[ett] if ett in anrop and ett not in lämnade else längsta(prefix, ett)
        nyckel = sök(tabell, ett)
        if nyckel in anrop and nyckel != ett and (not ett[len(nyckel)].isalpha() or not kan_fortsätta(nyckel) or not rätt):
            continue  # the station under way, a call longer than calls are, a block nobody else has
        if (tabell[nyckel].besked() if nyckel else None) != (rätt.besked() if rätt else None):
            yield ett, rätt, nyckel


def main():
    """Reads, builds, checks, writes and counts."""
    tolk = argparse.ArgumentParser(description=__doc__.partition("\n")[0])
    tolk.add_argument("--landfil", type=Path, default=PAKET / "cty.csv")
    tolk.add_argument("--aktiva", type=Path, default=PAKET / "MASTER.SCP")
    tolk.add_argument("--land", type=Path, default=DATA / "Land.csv")
    tolk.add_argument("--ut", type=Path, default=DATA / "Prefix.csv")
    val = tolk.parse_args()
    prefix, anrop = läs_landfil(val.landfil)
    prefix = rätta(prefix)
    aktiva = läs_aktiva(val.aktiva)
    tabell, lämnade = bygg(prefix, anrop, aktiva)
    skriv(tabell, läs_land(val.land), val.ut)
    fel = list(avvikelser(tabell, prefix, anrop, aktiva, set(lämnade)))
    for ett in fel:
        print(*ett)
    print(f"{len(tabell)} rader, {len(lämnade)} anrop lämnade, {len(fel)} avvikelser", file=sys.stderr)
    return 1 if fel else 0


if __name__ == "__main__":
    sys.exit(main())
