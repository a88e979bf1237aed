#pragma once

#include <QString>

#include <functional>
#include <optional>

/// From a call sign to the key of the country table.
namespace store {

/// How many rows of the country table have exactly this key.
using AntalNycklar = std::function<qsizetype(const QString& nyckel)>;

/// A longer call is searched by so many of its first characters.
inline constexpr qsizetype maxAnropLängd = 255;

/// The longest key that the call begins with, then a composed key such as VP/FA for VP8FA.
///
/// @param anrop upper case; a slash in it is a character like any other
/// @return the best key, empty if none was found. It need not be in the table ("4U" is tried without).
QString SökPrefix(const QString& anrop, const AntalNycklar& antal);

/// SökPrefix for callers that need a row: the key if exactly one row has it.
std::optional<QString> SökEntydigtPrefix(const QString& anrop, const AntalNycklar& antal);

/// Filter for the row of a key: "Prefix = 'SM'".
QString PrefixFilter(const QString& nyckel);

/// Whether the station lies in the Nordic countries of the SAC rules. The Faroes (OY) count only together
/// with the continent EU; the continent is not looked at for the others.
bool ÄrNordisk(const QString& dxcc, const QString& kontinent);

/// Whether a country that is new in the log is announced in this contest.
constexpr bool KollarDXCC(int test) { return (test >= 0 && test <= 5) || test == 7 || test == 8; }

/// Filter on rsDXCCBand for the contacts with a country: "[DXCC Nr] = '284'".
QString DXCCNrFilter(const QString& dxccNr);

/// Whether a call area that is new in the log is announced in this contest.
constexpr bool KollarDistrikt(int test) { return test >= 3 && test <= 5; }

/// Filter on rsDistrikt for the call area of a prefix; only Swedish stations with a prefix of at least three
/// characters have one.
std::optional<QString> DistriktFilter(const QString& dxcc, const QString& prefix);

} // namespace store
