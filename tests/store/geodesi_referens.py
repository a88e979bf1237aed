#!/usr/bin/env python3
"""Reference values for the geometry of locators, worked out apart from the program.

    geodesi_referens.py           rows for the tables in lokator_test.cpp
    geodesi_referens.py --svep    largest deviation from the geodesic over many pairs

Two computations stand here. vag() follows the method of the program (great circle, radius of curvature
averaged over four points, corrections near the antipode), written down anew from its definition.
geodet() is the true geodesic of the same ellipsoid: Clairaut's relation on the auxiliary sphere (C. F. F.
Karney, "Algorithms for geodesics", J. Geod. 87, 2013, equations 5 to 12), the azimuth found by bisection and
the two integrals by Simpson's rule, so it converges for antipodes too.
"""
import math
import random
import sys

A = 6378.14
B = 6356.755


def acs(x):
    if x >= 1:
        return 0.0, 1.0
    if x <= -1:
        return math.pi, -1.0
    return math.pi / 2 - math.atan(x / math.sqrt(1 - x * x)), x


def vag(lon1, lat1, lon2, lat2):
    """Kilometres and bearing in degrees by the program's method."""
    c = A**2 / B
    q = (c + B**2 / A) / 2
    p = c - q
    h = (c + A) / 2
    g = c - h
    t0 = math.pi * (2 * q / A - 1)
    u = A - q
    v = ((1 - q / A) * 2 * math.pi) ** 2
    f1, l1, f2, l2 = (math.radians(d) for d in (lat1, lon1, lat2, lon2))
    delta = l2 - l1
    angle, x = acs(math.sin(f1) * math.sin(f2) + math.cos(f1) * math.cos(f2) * math.cos(delta))
    y = 0.0
    if abs(x) < 1:
        y = (math.cos(f1) * math.sin(f2) - math.sin(f1) * math.cos(f2) * math.cos(delta)) / math.sqrt(1 - x * x)
    a0, y = acs(y)
    step = angle / 4
    total = 0.0
    for k in (1, 3, 5, 7):
        t = k * step / 2
        theta, _ = acs(y * math.cos(f1) * math.sin(t) + math.sin(f1) * math.cos(t))
        w = 0.0
        if theta != 0:
            w = math.sin(a0) * math.cos(f1) / math.sin(theta)
        alpha = math.pi / 2 * w
        if abs(w) < 1:
            alpha = math.atan(w / math.sqrt(1 - w * w))
        m = q + p * math.cos(2 * theta)
        n = h + g * math.cos(2 * theta)
        total += (m + n) / 2 + (m - n) / 2 * math.cos(2 * alpha)
    r = total / 4
    k = 0.0
    if angle > t0:
        k = (r - q) * (angle - t0) ** 2 / v
    w = math.sin(math.pi * (A - r) / u)
    t = (1 - 0.014 * w) * t0
    if angle > t:
        k += 1.8 * w * math.sin(math.pi * math.sqrt((math.pi - angle) / (math.pi - t)))
    km = angle * (r - k)
    if km < 0.5 or km > 20003.5:
        return km, 0.0
    bearing = 2 * math.pi - a0 if (math.pi - abs(delta)) * delta < 0 else a0
    return km, bearing / (math.pi / 180)


def simpson(f, start, end, n=256):
    h = (end - start) / n
    s = f(start) + f(end)
    s += 4 * sum(f(start + (2 * i + 1) * h) for i in range(n // 2))
    s += 2 * sum(f(start + 2 * i * h) for i in range(1, n // 2))
    return s * h / 3


def geodet(lon1, lat1, lon2, lat2):
    """Length of the shortest geodesic in km."""
    f = (A - B) / A
    ep2 = (A * A - B * B) / (B * B)
    dlon = abs((lon2 - lon1 + 180) % 360 - 180)
    if abs(lat1) < abs(lat2):
        lat1, lat2 = lat2, lat1
    if lat1 > 0:
        lat1, lat2 = -lat1, -lat2
    if lat1 == 0 and dlon > 180 * (1 - f):
        lat1 = -1e-9  # leaves the equator, on either side alike
    b1 = math.atan2((1 - f) * math.sin(math.radians(lat1)), math.cos(math.radians(lat1)))
    b2 = math.atan2((1 - f) * math.sin(math.radians(lat2)), math.cos(math.radians(lat2)))
    lam12 = math.radians(dlon)
    if lam12 < 1e-12 or abs(abs(lat1) - 90) < 1e-12:  # along one meridian
        ellips = lambda x: math.sqrt((B * math.cos(x)) ** 2 + (A * math.sin(x)) ** 2)
        return simpson(ellips, b1, b2, 2048)
    if abs(lam12 - math.pi) < 1e-12:  # over the pole
        ellips = lambda x: math.sqrt((B * math.cos(x)) ** 2 + (A * math.sin(x)) ** 2)
        return simpson(ellips, b1, -math.pi - b2, 2048) * -1
    if lat1 == 0 and lat2 == 0 and lam12 <= (1 - f) * math.pi:
        return A * lam12

    def follow(alpha1):
        sa0 = math.sin(alpha1) * math.cos(b1)
        ca0 = math.hypot(math.cos(alpha1), math.sin(alpha1) * math.sin(b1))
        ca2 = math.sqrt(max(0, (math.cos(alpha1) * math.cos(b1)) ** 2
                            + (math.cos(b2) ** 2 - math.cos(b1) ** 2))) / math.cos(b2)
        sig1 = math.atan2(math.sin(b1), math.cos(alpha1) * math.cos(b1))
        sig2 = math.atan2(math.sin(b2), ca2 * math.cos(b2))
        om1 = math.atan2(sa0 * math.sin(sig1), math.cos(sig1))
        om2 = math.atan2(sa0 * math.sin(sig2), math.cos(sig2))
        k2 = ep2 * ca0 * ca0
        root = lambda s: math.sqrt(1 + k2 * math.sin(s) ** 2)
        i3 = simpson(lambda s: (2 - f) / (1 + (1 - f) * root(s)), sig1, sig2)
        om12 = om2 - om1
        if om12 < 0:
            om12 += 2 * math.pi
        return om12 - f * sa0 * i3, B * simpson(root, sig1, sig2)

    low, high = 0.0, math.pi
    for _ in range(100):
        mid = (low + high) / 2
        lam, s = follow(mid)
        low, high = (mid, high) if lam < lam12 else (low, mid)
    return s


CASES = [
    ("samma punkt", 18.0, 59.0, 18.0, 59.0),
    ("nordpolen till sig själv", 0.0, 90.0, 120.0, 90.0),
    ("en delruta österut", 18.041666666666668, 59.35416666666667, 18.125, 59.35416666666667),
    ("under en halv kilometer", 18.0, 59.0, 18.005, 59.0),
    ("Stockholm till Göteborg", 18.07, 59.33, 11.97, 57.71),
    ("Stockholm till Luleå", 18.07, 59.33, 22.15, 65.58),
    ("Stockholm till London", 18.07, 59.33, -0.13, 51.51),
    ("Stockholm till New York", 18.07, 59.33, -74.0, 40.71),
    ("Stockholm till Sydney", 18.07, 59.33, 151.21, -33.87),
    ("Stockholm till Tokyo", 18.07, 59.33, 139.69, 35.69),
    ("Stockholm till Kapstaden", 18.07, 59.33, 18.42, -33.92),
    ("längs ekvatorn", 0.0, 0.0, 90.0, 0.0),
    ("längs ekvatorn västerut", 0.0, 0.0, -90.0, 0.0),
    ("ekvatorn till nordpolen", 0.0, 0.0, 0.0, 90.0),
    ("ekvatorn till sydpolen", 0.0, 0.0, 0.0, -90.0),
    ("pol till pol", 0.0, 90.0, 0.0, -90.0),
    ("över datumgränsen österut", 179.0, 52.0, -179.0, 52.0),
    ("över datumgränsen västerut", -179.0, 52.0, 179.0, 52.0),
    ("över nordpolen", 0.0, 80.0, 180.0, 80.0),
    ("antipoder vid ekvatorn", 0.0, 0.0, 180.0, 0.0),
    ("antipoder vid latitud 30", 10.0, 30.0, -170.0, -30.0),
    ("antipoder vid latitud 60", 18.0, 60.0, -162.0, -60.0),
    ("nästan antipoder vid ekvatorn", 0.0, 0.0, 179.7, 0.0),
    ("nästan antipoder, 1 grad i longitud", 0.0, 30.0, 179.0, -30.0),
    ("nästan antipoder, en halv grad i latitud", 0.0, -30.0, 179.8, 29.5),
    ("antipodrättningens början", 0.0, 0.0, 178.5, 0.5),
    ("fältets mitt till fältets mitt", 10.0, 55.0, -70.0, -15.0),
]


def table():
    for name, *points in CASES:
        km, bearing = vag(*points)
        print('    {{"{}", {{{!r}, {!r}}}, {{{!r}, {!r}}}, {:.6f}, {:.6f}, {:.3f}}},'.format(
            name, *points, km, bearing, geodet(*points)))


LOCATORS = [
    ("JO89XI", "JO89XI"), ("JO89XI", "JO89WI"), ("JO89XI", "JO99AI"), ("JO89XI", "JO89"), ("JO89", "JO89"),
    ("JO89", "JO"), ("JO89XI", "JO67BQ"), ("JO89XI", "KP25"), ("JP80", "JO65"), ("JO57XX", "JO58AA"),
    ("JO89XI", "IO91WM"), ("JO89XI", "FN20"), ("JO89XI", "QF56"), ("JO89XI", "RR99XX"), ("AA00AA", "RR99XX"),
    ("JJ00AA", "II99XX"), ("JA00", "JR09"), ("KO59", "HJ"), ("AR", "RA"),
]


def decode(text):
    """Longitude and latitude of the centre, by character codes."""
    code = [ord(ch) for ch in text]
    lon, lat = 20 * code[0] - 1480, 10 * code[1] - 740
    if len(code) == 2:
        return lon + 10, lat + 5
    lon, lat = lon + 2 * code[2] - 96, lat + code[3] - 48
    if len(code) == 4:
        return lon + 1, lat + 0.5
    return lon + (code[4] - 64.5) / 12, lat + (code[5] - 64.5) / 24


def locator_table():
    for start, end in LOCATORS:
        points = decode(start) + decode(end)
        km, bearing = vag(*points)
        turned = bearing + 180 if bearing < 180 else bearing - 180
        print('    {{"{}", "{}", "{} Km", "{}° / {}°", {:.3f}}},'.format(
            start, end, int(km + 0.5), int(bearing + 0.5), int(turned + 0.5), geodet(*points)))


def sweep():
    random.seed(1)
    worst = {}
    for _ in range(2000):
        points = (random.uniform(-180, 180), math.degrees(math.asin(random.uniform(-1, 1))),
                  random.uniform(-180, 180), math.degrees(math.asin(random.uniform(-1, 1))))
        if random.random() < 0.3:  # close to the antipode
            points = points[:2] + ((points[0] + 180 + random.uniform(-3, 3) + 180) % 360 - 180,
                                   max(-90, min(90, -points[1] + random.uniform(-2, 2))))
        km, true = vag(*points)[0], geodet(*points)
        band = next(b for b in (100, 1000, 5000, 10000, 15000, 19000, 19700, 19900, 20100) if true < b)
        entry = (abs(km - true), abs(km - true) / max(true, 1e-9), points, km, true)
        worst[band] = max(worst.get(band, entry), entry)
    for band in sorted(worst):
        print("under", band, "km:", worst[band])


if __name__ == "__main__":
    if "--svep" in sys.argv:
        sweep()
    else:
        table()
        locator_table()
