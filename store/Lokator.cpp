#include "store/Lokator.h"

#include <QStringBuilder>

#include <cmath>
#include <numbers>
#include <utility>

namespace store {
namespace {

using std::numbers::pi;

/// Distance of a character from the first of its range; nothing if it lies outside the range.
std::optional<double> Nummer(const QString& text, qsizetype plats, char16_t första, char16_t sista) {
    if (plats >= text.size()) return std::nullopt;
    const char16_t tecken = text[plats].unicode();
    if (tecken < första || tecken > sista) return std::nullopt;
    return tecken - första;
}

/// Two characters of a locator, the first counting east and the second north.
struct Par {
    double öst;
    double norr;
};

std::optional<Par> LäsPar(const QString& text, qsizetype plats, char16_t första, char16_t sista) {
    const auto öst = Nummer(text, plats, första, sista);
    const auto norr = Nummer(text, plats + 1, första, sista);
    if (!öst || !norr) return std::nullopt;
    return Par{*öst, *norr};
}

// The ellipsoid, in kilometres.
constexpr double a = 6378.14;  // equatorial radius
constexpr double b = 6356.755; // polar radius

// Radii of curvature along the meridian and across it run between their values at the equator and at the
// pole as mean + amplitude * cos(2 * colatitude).
constexpr double polRadie = a * a / b; // both are equal at the pole
constexpr double meridianMedel = (polRadie + b * b / a) / 2;
constexpr double meridianAmplitud = polRadie - meridianMedel;
constexpr double tvärsMedel = (polRadie + a) / 2;
constexpr double tvärsAmplitud = polRadie - tvärsMedel;

// The corrections near the antipode.
constexpr double antipodGräns = pi * (2 * meridianMedel / a - 1); // central angle, radians
constexpr double radieSpann = a - meridianMedel;
constexpr double antipodNämnare = (1 - meridianMedel / a) * 2 * pi * ((1 - meridianMedel / a) * 2 * pi);

/// Arccosine that first clamps its argument, in place, to -1 .. 1.
double ArcCos(double& x) {
    if (x >= 1) {
        x = 1;
        return 0;
    }
    if (x <= -1) {
        x = -1;
        return pi;
    }
    return pi / 2 - std::atan(x / std::sqrt(1 - x * x));
}

/// A great circle from its start.
struct Storcirkel {
    double latitud = 0;   ///< at the start, radians
    double vinkel = 0;    ///< central angle to the target, radians
    double cosAzimut = 0; ///< of the direction at the start
    double azimut = 0;    ///< 0 to pi, east and west alike
};

Storcirkel LäggStorcirkel(double latitud1, double latitud2, double skillnad) {
    double x = std::sin(latitud1) * std::sin(latitud2) +
               std::cos(latitud1) * std::cos(latitud2) * std::cos(skillnad);
    Storcirkel cirkel{.latitud = latitud1, .vinkel = ArcCos(x)};
    if (std::abs(x) < 1) {
        cirkel.cosAzimut = (std::cos(latitud1) * std::sin(latitud2) -
                            std::sin(latitud1) * std::cos(latitud2) * std::cos(skillnad)) /
                           std::sqrt(1 - x * x);
    }
    cirkel.azimut = ArcCos(cirkel.cosAzimut);
    return cirkel;
}

/// Radius of curvature of the ellipsoid in the direction of the path, at an angle t from its start.
double Krökningsradie(const Storcirkel& cirkel, double t) {
    double s =
        cirkel.cosAzimut * std::cos(cirkel.latitud) * std::sin(t) + std::sin(cirkel.latitud) * std::cos(t);
    const double kolatitud = ArcCos(s);
    const double sinKurs =
        kolatitud == 0 ? 0 : std::sin(cirkel.azimut) * std::cos(cirkel.latitud) / std::sin(kolatitud);
    const double kurs =
        std::abs(sinKurs) < 1 ? std::atan(sinKurs / std::sqrt(1 - sinKurs * sinKurs)) : pi / 2 * sinKurs;
    const double meridian = meridianMedel + meridianAmplitud * std::cos(2 * kolatitud);
    const double tvärs = tvärsMedel + tvärsAmplitud * std::cos(2 * kolatitud);
    return (meridian + tvärs) / 2 + (meridian - tvärs) / 2 * std::cos(2 * kurs);
}

/// Mean of the radius over four points in the middles of the quarters of the path.
double Medelradie(const Storcirkel& cirkel) {
    const double steg = cirkel.vinkel / 4;
    double summa = 0;
    for (const double punkt : {0.5, 1.5, 2.5, 3.5}) summa += Krökningsradie(cirkel, punkt * steg);
    return summa / 4;
}

/// What the geodesic saves over the great circle close to the antipode, as a part of the radius.
double Antipodrättning(double vinkel, double radie) {
    double rättning = 0;
    if (vinkel > antipodGräns) {
        rättning = (radie - meridianMedel) * std::pow(vinkel - antipodGräns, 2) / antipodNämnare;
    }
    const double vikt = std::sin(pi * (a - radie) / radieSpann);
    const double gräns = (1 - 0.014 * vikt) * antipodGräns;
    if (vinkel > gräns) {
        rättning += 1.8 * vikt * std::sin(pi * std::sqrt((pi - vinkel) / (pi - gräns)));
    }
    return rättning;
}

double Radianer(double grader) { return grader * (pi / 2 / 90); }

double Bäring(double km, double azimut, double skillnad) {
    // No direction is defined at the start itself nor at its antipode.
    if (km < 0.5 || km > 20003.5) return 0;
    const bool väster = (pi - std::abs(skillnad)) * skillnad < 0;
    return (väster ? 2 * pi - azimut : azimut) / (pi / 180);
}

qint64 HalvUppåt(double tal) { return static_cast<qint64>(std::floor(tal + 0.5)); }

QString GradText(double grader) { return QString::number(HalvUppåt(grader)) + u'°'; }

} // namespace

std::optional<Position> AvkodaLokator(const QString& lokator) {
    const auto fält = LäsPar(lokator, 0, u'A', u'R');
    if (!fält) return std::nullopt;
    Position plats{.longitud = 20 * fält->öst - 180, .latitud = 10 * fält->norr - 90};
    if (lokator.size() == 2) return Position{plats.longitud + 10, plats.latitud + 5};

    const auto ruta = LäsPar(lokator, 2, u'0', u'9');
    if (!ruta) return std::nullopt;
    plats.longitud += 2 * ruta->öst;
    plats.latitud += ruta->norr;
    if (lokator.size() == 4) return Position{plats.longitud + 1, plats.latitud + 0.5};

    const auto delruta = LäsPar(lokator, 4, u'A', u'X');
    if (!delruta) return std::nullopt;
    return Position{plats.longitud + (delruta->öst + 0.5) / 12, plats.latitud + (delruta->norr + 0.5) / 24};
}

Väg BeräknaVäg(Position från, Position till) {
    const double skillnad = Radianer(till.longitud) - Radianer(från.longitud);
    const Storcirkel cirkel = LäggStorcirkel(Radianer(från.latitud), Radianer(till.latitud), skillnad);
    const double radie = Medelradie(cirkel);
    const double km = cirkel.vinkel * (radie - Antipodrättning(cirkel.vinkel, radie));
    return {.km = km, .bäring = Bäring(km, cirkel.azimut, skillnad)};
}

std::optional<Väg> RiktningAvstånd(const QString& från, const QString& till) {
    const auto start = AvkodaLokator(från);
    const auto mål = AvkodaLokator(till);
    if (!start || !mål) return std::nullopt;
    return BeräknaVäg(*start, *mål);
}

QString AvståndText(const Väg& väg) { return QString::number(HalvUppåt(väg.km)) % u" Km"; }

QString RiktningText(const Väg& väg) {
    const double motsatt = väg.bäring < 180 ? väg.bäring + 180 : väg.bäring - 180;
    return GradText(väg.bäring) % u" / " % GradText(motsatt);
}

std::optional<QString> VäljMål(const QString& typ, const QString& diplom, const QString& givetMål,
                               const QString& landLokator) {
    if (typ != u"Lokator" || diplom.isEmpty()) return givetMål;
    const QString mål = diplom.size() < 3 ? landLokator : diplom;
    if (mål.size() < 2 || mål.size() > 6) return std::nullopt;
    // The right end is kept: a half-typed locator that this makes invalid is refused by the decoding.
    if (mål.size() == 3) return mål.right(2);
    if (mål.size() == 5) return mål.right(4);
    return mål;
}

QString LängstaQSOText(const QString& signal, const QString& multiplar, const QString& poäng) {
    return u"Längsta QSO : " % signal % u"  " % multiplar % u"  " % poäng % u" Km";
}

} // namespace store
