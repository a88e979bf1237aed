#!/usr/bin/env python3
"""Makes the pictures of Data/Bilder: the splash logo, the locator map and the window icon.

    bilder.py [--ut FOLDER]

Needs rsvg-convert, convert and pngquant, and the fonts DejaVu and Lato (Debian: librsvg2-bin, imagemagick, pngquant,
fonts-dejavu-core, fonts-lato). The pictures are kept in git, so only who changes one needs this.

Sources, in the folder bilder beside this script: logo.svg and ikon.svg are drawn by hand. The map is drawn here from
kust.csv, the land (Natural Earth, public domain, see kust_fran_naturalearth.py), and sjoar.csv, the large lakes
(digitised roughly by hand for this map, since the land has none).

The map has longitude and latitude as straight lines at equal distance, a degree of latitude twice as long as one of
longitude: every square is then a true square, and shapes are right at 60 degrees north.
"""

import argparse
import csv
import subprocess
import sys
import tempfile
from pathlib import Path

HAR = Path(__file__).resolve().parent
KALLOR = HAR / "bilder"

VAST, OST, SYD, NORD = -10, 40, 50, 72
RUTA = 60  # pixels a square: 2 degrees of longitude, 1 of latitude
MARGINAL = 34
BREDD = (OST - VAST) // 2 * RUTA + 2 * MARGINAL
HOJD = (NORD - SYD) * RUTA + 2 * MARGINAL

# Town, longitude, latitude, the square it has to land in, and the side of the dot that its name stands on: right
# (h), left (v) or under it (u).
ORTER = [
    ("Stockholm", 18.07, 59.33, "JO99", "h"),
    ("Göteborg", 11.97, 57.71, "JO57", "h"),
    ("Malmö", 13.00, 55.61, "JO65", "h"),
    ("Oslo", 10.75, 59.91, "JO59", "h"),
    ("København", 12.57, 55.68, "JO65", "v"),
    ("Helsinki", 24.94, 60.17, "KP20", "h"),
    ("Tallinn", 24.75, 59.44, "KO29", "h"),
    ("Riga", 24.11, 56.95, "KO26", "h"),
    ("Umeå", 20.26, 63.83, "KP03", "v"),
    ("Kiruna", 20.23, 67.86, "KP07", "h"),
    ("Bergen", 5.32, 60.39, "JP20", "h"),
    ("Trondheim", 10.40, 63.43, "JP53", "h"),
    ("Tromsø", 18.96, 69.65, "JP99", "v"),
    ("Visby", 18.29, 57.64, "JO97", "h"),
    ("Mariehamn", 19.94, 60.10, "JP90", "v"),
    ("Luleå", 22.15, 65.58, "KP15", "v"),
    ("Östersund", 14.64, 63.18, "JP73", "h"),
    ("Sundsvall", 17.31, 62.39, "JP82", "v"),
    ("Karlstad", 13.50, 59.38, "JO69", "h"),
    ("Oulu", 25.47, 65.01, "KP25", "h"),
    ("Jyväskylä", 25.75, 62.24, "KP22", "h"),
    ("Århus", 10.21, 56.16, "JO56", "v"),
    ("Vilnius", 25.28, 54.69, "KO24", "h"),
    ("Gdańsk", 18.65, 54.35, "JO94", "h"),
    ("Hamburg", 9.99, 53.55, "JO43", "h"),
    ("Berlin", 13.40, 52.52, "JO62", "h"),
    ("Warszawa", 21.01, 52.23, "KO02", "h"),
    ("London", -0.13, 51.51, "IO91", "v"),
    ("Edinburgh", -3.19, 55.95, "IO85", "h"),
    ("Tórshavn", -6.77, 62.01, "IP62", "h"),
    ("Sankt Petersburg", 30.32, 59.94, "KO59", "u"),
    ("Murmansk", 33.08, 68.97, "KP68", "h"),
]

STIL = """
    text { font-family: "DejaVu Sans", sans-serif; }
    .hav { fill: #dbe8f0; }
    .land { fill: #f6f2e4; stroke: #f6f2e4; stroke-width: 0.8; }
    .kust { fill: none; stroke: #7d97a6; stroke-width: 1; stroke-linejoin: round; }
    .grans { fill: none; stroke: #c3b596; stroke-width: 1.2; stroke-dasharray: 5 2.5; }
    .sjo { fill: #dbe8f0; stroke: #7d97a6; stroke-width: 0.8; stroke-linejoin: round; }
    .ruta { stroke: #9fb1bb; stroke-width: 0.8; }
    .falt { stroke: #1f3f66; stroke-width: 2.6; }
    .faltnamn { font-size: 250px; font-weight: bold; fill: #1f3f66; fill-opacity: 0.075; text-anchor: middle; }
    .nummer { font-size: 12px; fill: #4f6472; }
    .ort { font-size: 13px; font-weight: bold; fill: #2b2b2b; }
    .gloria { fill: #ffffff; stroke: #ffffff; stroke-width: 3.4; stroke-linejoin: round; stroke-opacity: 0.85; }
    .punkt { fill: #c62f2f; stroke: #ffffff; stroke-width: 1; }
    .kant { font-size: 13px; fill: #1f3f66; text-anchor: middle; }
"""


def lokator(longitud, latitud):
    """The four characters of the square that a place lies in; degrees, east and north positive."""
    x, y = int((longitud + 180) // 2), int(latitud + 90)
    return chr(65 + x // 10) + chr(65 + y // 10) + str(x % 10) + str(y % 10)


def rutans_horn(namn):
    """South-west corner of a square in degrees."""
    return (
        (ord(namn[0]) - 65) * 20 - 180 + int(namn[2]) * 2,
        (ord(namn[1]) - 65) * 10 - 90 + int(namn[3]),
    )


def punkt(longitud, latitud):
    """Where a place stands in the picture, in pixels from the upper left corner."""
    return MARGINAL + (longitud - VAST) / 2 * RUTA, MARGINAL + (NORD - latitud) * RUTA


def kontrollera_orter():
    """Stops if a town's dot falls outside its square, by the locator and, on its own, by the pixels."""
    for namn, longitud, latitud, ruta, _ in ORTER:
        x, y = punkt(longitud, latitud)
        vanster, nere = punkt(*rutans_horn(ruta))
        if lokator(longitud, latitud) != ruta or not (vanster <= x < vanster + RUTA and nere - RUTA < y <= nere):
            sys.exit(f"{namn} is not in {ruta}")


def las_ringar(fil):
    ringar = {}
    with fil.open(encoding="utf-8", newline="") as text:
        for rad in csv.DictReader(text):
            ringar.setdefault(rad["ring"], []).append((float(rad["long"]), float(rad["lat"])))
    return list(ringar.values())


def bana(horn, sluten=True):
    steg = " ".join("{:.1f},{:.1f}".format(*punkt(*h)) for h in horn)
    return f"M{steg}{'z' if sluten else ''}"


def linjer(ringar):
    """Splits the outlines into coasts and borders; a border is an edge that two rings have in common."""
    antal = {}
    for ring in ringar:
        for i, horn in enumerate(ring):
            kant = frozenset((ring[i - 1], horn))
            antal[kant] = antal.get(kant, 0) + 1
    kuster, granser, ritade = [], [], set()
    for ring in ringar:
        bit, bit_delad = [], None
        for a, b in zip(ring, ring[1:] + ring[:1]):
            kant = frozenset((a, b))
            delad = antal[kant] > 1
            if delad and kant in ritade:
                delad = None  # its neighbour has drawn it
            ritade.add(kant)
            if delad != bit_delad or not bit:
                bit, bit_delad = [a], delad
                if delad is not None:
                    (granser if delad else kuster).append(bit)
            bit.append(b)
    return kuster, granser


def rita_land():
    land = las_ringar(KALLOR / "kust.csv")
    kuster, granser = linjer(land)
    yield f'<path class="land" d="{"".join(map(bana, land))}"/>'
    yield f'<path class="grans" d="{"".join(bana(g, False) for g in granser)}"/>'
    yield f'<path class="kust" d="{"".join(bana(k, False) for k in kuster)}"/>'
    yield f'<path class="sjo" d="{"".join(map(bana, las_ringar(KALLOR / "sjoar.csv")))}"/>'


def linje(klass, a, b):
    return '<path class="{}" d="M{:g},{:g}L{:g},{:g}"/>'.format(klass, *punkt(*a), *punkt(*b))


def rita_nat(klass, steg):
    """Lines of the net at every so many squares, counted from the corner of the world."""
    for longitud in range(VAST, OST + 1, 2):
        if longitud % (2 * steg) == 0 and VAST < longitud < OST:
            yield linje(klass, (longitud, SYD), (longitud, NORD))
    for latitud in range(SYD, NORD + 1):
        if latitud % steg == 0 and SYD < latitud < NORD:
            yield linje(klass, (VAST, latitud), (OST, latitud))


def rita_faltnamn():
    for vast in range(-20, OST, 20):
        for syd in range(SYD, NORD, 10):
            v, o, n = max(vast, VAST), min(vast + 20, OST), min(syd + 10, NORD)
            x, y = punkt((v + o) / 2, (syd + n) / 2)
            storlek = 250 if n - syd == 10 else 100
            yield f'<text class="faltnamn" style="font-size:{storlek}px" x="{x:g}" y="{y + storlek * 0.365:g}">' \
                  f"{lokator(v, syd)[:2]}</text>"


def ortens_text(ort):
    """Where a town's name is set (x, y, anchor) and the box it takes with its dot (left, top, right, bottom)."""
    namn, longitud, latitud, _, sida = ort
    x, y = punkt(longitud, latitud)
    bredd = 8.3 * len(namn)
    dx, dy, ankare, vanster = {
        "h": (7, 4.5, "start", -6),
        "v": (-7, 4.5, "end", -8 - bredd),
        "u": (0, 18, "middle", -bredd / 2),
    }[sida]
    ruta = (x + vanster, y - 8, x + vanster + bredd + 14, y + dy + 4)
    return (x + dx, y + dy, ankare), ruta


def krockar(a, b):
    return a[0] < b[2] and b[0] < a[2] and a[1] < b[3] and b[1] < a[3]


def rita_nummer():
    """Each square's digits, upper left in it, or in another corner where a town needs that one."""
    upptaget = [ortens_text(ort)[1] for ort in ORTER]
    for longitud in range(VAST, OST, 2):
        for latitud in range(SYD, NORD):
            x, y = punkt(longitud, latitud + 1)
            for dx, dy in ((4, 14), (4, RUTA - 5), (RUTA - 20, RUTA - 5), (RUTA - 20, 14)):
                plats = (x + dx, y + dy - 10, x + dx + 16, y + dy)
                if not any(krockar(plats, ruta) for ruta in upptaget):
                    break
            yield f'<text class="nummer" x="{x + dx:g}" y="{y + dy:g}">{lokator(longitud, latitud)[2:]}</text>'


def rita_orter():
    for ort in ORTER:
        namn, (x, y, ankare) = ort[0], ortens_text(ort)[0]
        stycke = f'x="{x:.1f}" y="{y:.1f}" text-anchor="{ankare}"'
        yield f'<text class="ort gloria" {stycke}>{namn}</text><text class="ort" {stycke}>{namn}</text>'
        cx, cy = punkt(*ort[1:3])
        yield f'<circle class="punkt" cx="{cx:.1f}" cy="{cy:.1f}" r="3.6"/>'


def rita_kant():
    """Degrees along the four sides."""
    for longitud in range(VAST, OST + 1, 2):
        text = f"{abs(longitud)}°" + ("\u2009V" if longitud < 0 else "\u2009Ö" if longitud > 0 else "")
        x, nere = punkt(longitud, SYD)
        for y in (MARGINAL - 10, nere + 21):
            yield f'<text class="kant" x="{x:g}" y="{y:g}">{text}</text>'
    for latitud in range(SYD, NORD + 1):
        _, y = punkt(VAST, latitud)
        for x in (MARGINAL / 2, BREDD - MARGINAL / 2):
            yield f'<text class="kant" x="{x:g}" y="{y + 4.5:g}">{latitud}°</text>'


def kartan():
    ram = f'x="{MARGINAL}" y="{MARGINAL}" width="{BREDD - 2 * MARGINAL}" height="{HOJD - 2 * MARGINAL}"'
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" width="{BREDD}" height="{HOJD}">',
        f'<style>{STIL}</style><clipPath id="ram"><rect {ram}/></clipPath>',
        '<rect width="100%" height="100%" fill="#ffffff"/>',
        f'<g clip-path="url(#ram)"><rect class="hav" {ram}/>',
        *rita_land(), *rita_faltnamn(), *rita_nat("ruta", 1), *rita_nat("falt", 10), *rita_nummer(), *rita_orter(),
        "</g>",
        f'<rect {ram} fill="none" class="falt"/>',
        *rita_kant(),
        "</svg>",
    ])


def kor(*kommando):
    subprocess.run([str(del_) for del_ in kommando], check=True)


def till_png(svg, png, farger, tillfallig):
    """Renders and reduces to a palette. Dithering would speckle the even surfaces."""
    ra = tillfallig / png.name
    kor("rsvg-convert", svg, "-o", ra)
    kor("pngquant", "--force", "--strip", "--nofs", "--speed", 1, farger, "--output", png, ra)


def till_gif(svg, gif, tillfallig):
    ra = tillfallig / "logo.png"
    kor("rsvg-convert", svg, "-o", ra)
    kor("convert", ra, "-background", "white", "-flatten", "+dither", "-colors", 256, "-strip", gif)


def main():
    tolkare = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    tolkare.add_argument("--ut", type=Path, default=HAR.parent / "Bilder")
    ut = tolkare.parse_args().ut
    kontrollera_orter()
    with tempfile.TemporaryDirectory() as mapp:
        tillfallig = Path(mapp)
        karta = tillfallig / "karta.svg"
        karta.write_text(kartan(), encoding="utf-8")
        till_png(karta, ut / "Karta.png", 64, tillfallig)
        till_png(KALLOR / "ikon.svg", ut / "Sorvik.png", 128, tillfallig)
        till_gif(KALLOR / "logo.svg", ut / "Logo.gif", tillfallig)


if __name__ == "__main__":
    main()
