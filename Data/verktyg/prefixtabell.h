#pragma once

#include "csv.h"

#include <array>
#include <filesystem>
#include <istream>
#include <string>
#include <utility>
#include <vector>

namespace databygge {

/// The columns of Prefix.csv, in order; the names of the table's columns too.
inline constexpr std::array kPrefixKolumner{"Prefix", "Land", "DXCC", "Kontinent", "Tid",
                                            "ITU",    "Zon",  "Kod",  "Lokator"};

/// One row of the country reference, in the order of kPrefixKolumner.
using Prefixrad = std::array<std::string, kPrefixKolumner.size()>;

/// Reads and checks the country reference.
/// @return the rows in the file's order, which is that of the keys
/// @throws Byggfel at the first row that breaks a rule: nine fields, none empty; keys strictly ascending (so
///         none twice) and of A-Z, 0-9 and "/"; a known continent; an offset from UTC from -12 to 14;
///         ITU zone 1 to 90, CQ zone 1 to 40; a locator of six characters; and one short form, one number and
///         one name to a country
std::vector<Prefixrad> LäsPrefixtabell(std::istream& in);

/// The same from a file; the file's name stands in front of what is wrong.
std::vector<Prefixrad> LäsPrefixtabell(const std::filesystem::path& fil);

/// One country: its short form and its number.
using Land = std::pair<std::string, std::string>;

/// The countries of the table, each once, sorted by the short form.
std::vector<Land> Länder(const std::vector<Prefixrad>& tabell);

} // namespace databygge
