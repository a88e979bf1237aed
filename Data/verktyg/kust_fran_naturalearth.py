#!/usr/bin/env python3
"""Makes bilder/kust.csv, the outlines of the land on the locator map, from Natural Earth.

    kust_fran_naturalearth.py [--paket FOLDER] [--ut bilder/kust.csv]

The source is the data set countries50 (1:50 million) of Debian's package r-cran-rnaturalearthdata, version 0.1.0-2.
Natural Earth (http://www.naturalearthdata.com/) is in the public domain; the package is under CC0. Nothing of R is
needed: the package can be unpacked with "dpkg -x" and its folder named with --paket.

The file is kept in git, so only who refreshes it needs this. A row is one corner: the number of its ring, then
longitude and latitude in degrees, east and north positive, to a thousandth. A ring is closed by its first corner.
Countries that meet have the corners of their border in common; that is how the map tells a border from a coast.
"""

import argparse
import csv
import lzma
import struct
import sys
import zlib
from pathlib import Path

PAKET = Path("/usr/lib/R/site-library/rnaturalearthdata")
DATAMANGD = "countries50"
# Wider than the map on every side, so that the cuts are never seen: west, south, east, north.
RAM = (-14.0, 48.0, 44.0, 74.0)


class RLasare:
    """Reads R's serialised form (XDR), as far as lazy-load files of spatial data use it.

    Lists come as dict where all members are named, S4 objects as dict of their slots, vectors as list.
    """

    def __init__(self, data):
        self.data = data
        self.plats = 0
        self.referenser = []
        if self.ta(2) != b"X\n":
            raise ValueError("not R's XDR form")
        version = self.heltal()
        self.ta(8)
        if version == 3:
            self.ta(self.heltal())

    def ta(self, antal):
        bit = self.data[self.plats : self.plats + antal]
        if len(bit) != antal:
            raise ValueError("the data end too early")
        self.plats += antal
        return bit

    def heltal(self):
        return struct.unpack(">i", self.ta(4))[0]

    def vektor(self, tecken, bredd):
        antal = self.heltal()
        return list(struct.unpack(f">{antal}{tecken}", self.ta(antal * bredd)))

    def las(self):
        flaggor = self.heltal()
        typ = flaggor & 0xFF
        if typ == 255:  # seen before
            return self.referenser[(flaggor >> 8) - 1]
        if typ in (242, 253, 254):  # empty environment, global environment, nothing
            return None
        if typ == 1:  # symbol
            plats = len(self.referenser)
            self.referenser.append(None)
            self.referenser[plats] = self.las()
            return self.referenser[plats]
        if typ in (247, 249, 250):  # something kept outside, a namespace, a package: only its name
            self.heltal()
            self.referenser.append([self.las() for _ in range(self.heltal())])
            return self.referenser[-1]
        if typ == 2:  # pairs
            return self.par(flaggor)
        varde = self.atom(typ)
        if typ != 9 and flaggor & 0x200:
            return self.med_attribut(varde, self.las() or {})
        return varde

    def atom(self, typ):
        if typ == 9:  # characters
            antal = self.heltal()
            return None if antal < 0 else self.ta(antal).decode("utf-8", "replace")
        if typ in (10, 13):  # truth values, whole numbers
            return self.vektor("i", 4)
        if typ == 14:
            return self.vektor("d", 8)
        if typ in (16, 19):  # texts, list
            return [self.las() for _ in range(self.heltal())]
        if typ == 25:  # S4: all is in the attributes
            return None
        raise ValueError(f"type {typ} is not handled")

    def par(self, flaggor):
        resultat = {}
        while flaggor & 0xFF == 2:
            if flaggor & 0x200:
                self.las()
            nyckel = self.las() if flaggor & 0x400 else len(resultat)
            resultat[nyckel] = self.las()
            flaggor = self.heltal()
        return resultat

    @staticmethod
    def med_attribut(varde, attribut):
        if varde is None:
            return attribut
        namn = attribut.get("names")
        if namn and len(namn) == len(varde):
            return dict(zip(namn, varde))
        return varde


def hamta(paket, namn):
    """The object of that name from the lazy-load files of an R package."""
    index = RLasare(zlib.decompress((paket / "data/Rdata.rdx").read_bytes(), zlib.MAX_WBITS | 32)).las()
    start, langd = index["variables"][namn]
    bit = (paket / "data/Rdata.rdb").read_bytes()[start : start + langd]
    if bit[4:5] == b"Z":
        filter_ = [{"id": lzma.FILTER_LZMA2, "preset": 9}]
        data = lzma.LZMADecompressor(lzma.FORMAT_RAW, filters=filter_).decompress(bit[5:])
    else:
        data = zlib.decompress(bit[4:])
    return RLasare(data).las()


def ringar(lander):
    """All rings of the countries as lists of (longitude, latitude), without the repeated last corner."""
    for land in lander["polygons"]:
        for ring in land["Polygons"]:
            tal = ring["coords"]
            mitt = len(tal) // 2  # a matrix lies column by column
            horn = [(round(x, 3), round(y, 3)) for x, y in zip(tal[:mitt], tal[mitt:])]
            yield [h for i, h in enumerate(horn) if h != horn[i - 1]]


def skar_mot(ring, axel, grans, tecken):
    """The part of a ring on one side of a line of longitude (axel 0) or latitude (axel 1)."""

    def inne(horn):
        return tecken * (horn[axel] - grans) >= 0

    resultat = []
    for i, b in enumerate(ring):
        a = ring[i - 1]
        if inne(a) != inne(b):
            t = (grans - a[axel]) / (b[axel] - a[axel])
            resultat.append(tuple(round(a[k] + t * (b[k] - a[k]), 3) for k in (0, 1)))
        if inne(b):
            resultat.append(b)
    return resultat


def skar(ring):
    for axel, grans, tecken in ((0, RAM[0], 1), (1, RAM[1], 1), (0, RAM[2], -1), (1, RAM[3], -1)):
        ring = skar_mot(ring, axel, grans, tecken)
    return ring


def main():
    tolkare = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    tolkare.add_argument("--paket", type=Path, default=PAKET)
    tolkare.add_argument("--ut", type=Path, default=Path(__file__).parent / "bilder/kust.csv")
    val = tolkare.parse_args()
    inom = [r for r in map(skar, ringar(hamta(val.paket, DATAMANGD))) if len(r) > 2]
    if not inom:
        sys.exit("no land within the frame")
    with val.ut.open("w", encoding="utf-8", newline="") as fil:
        skrivare = csv.writer(fil, lineterminator="\n")
        skrivare.writerow(["ring", "long", "lat"])
        for nummer, ring in enumerate(inom):
            skrivare.writerows((nummer, f"{x:g}", f"{y:g}") for x, y in ring)
    print(f"{val.ut}: {len(inom)} rings, {sum(map(len, inom))} corners")


if __name__ == "__main__":
    main()
