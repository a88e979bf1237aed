#pragma once

#include <QString>

#include <optional>

/// Maidenhead locators, and the way between two of them.
namespace store {

/// A place on the earth in decimal degrees, east and north positive.
struct Position {
    double longitud = 0; ///< -180 to 180
    double latitud = 0;  ///< -90 to 90
};

/// The way from one place to another.
struct Väg {
    double km = 0;     ///< length in kilometres
    double bäring = 0; ///< direction at the start in degrees clockwise from north, 0 up to 360
};

/// The centre of the field, square or subsquare that a locator names.
///
/// @param lokator 2, 4 or at least 6 characters in upper case; what follows the sixth is not read.
/// @return nothing for any other length or a character out of range.
std::optional<Position> AvkodaLokator(const QString& lokator);

/// Length and direction of the way between two places.
///
/// The path is the great circle of a sphere. Its length is the central angle times a radius of curvature of
/// the ellipsoid (a = 6378.14 km, b = 6356.755 km) averaged over four points of the path, with two small
/// corrections near the antipode. It stays within 2 km of the true geodesic of that ellipsoid up to
/// 19,700 km, and within 10 km beyond.
///
/// @param från, till in degrees
/// @return the direction is 0 below 0.5 km and above 20003.5 km.
Väg BeräknaVäg(Position från, Position till);

/// BeräknaVäg between two locators. @return nothing if either cannot be decoded.
std::optional<Väg> RiktningAvstånd(const QString& från, const QString& till);

/// Whole kilometres, halves up: "123 Km".
QString AvståndText(const Väg& väg);

/// The direction and the one opposite, each in whole degrees, halves up: "12° / 192°".
QString RiktningText(const Väg& väg);

/// The locator that the bearing is to point at: what the operator has typed when the exchange is a locator,
/// otherwise the target that was given.
///
/// @param typ text of lblTyp
/// @param diplom text of txtDiplom; from 3 or 5 characters the last 2 or 4 are taken
/// @param givetMål the target the caller asked for
/// @param landLokator locator of the country, used while fewer than 3 characters are typed; empty if there
///        is no country
/// @return nothing if the computation is to be given up.
std::optional<QString> VäljMål(const QString& typ, const QString& diplom, const QString& givetMål,
                               const QString& landLokator);

/// "Längsta QSO : SM5ABC  JO89WW  512 Km"
QString LängstaQSOText(const QString& signal, const QString& multiplar, const QString& poäng);

} // namespace store
