#pragma once

#include <QString>

#include <optional>

namespace reports {

/// Who takes logs in over a page of his own.
enum class Mottagare { EDI, MT, SAC };

/// Whose page the Cabrillo window, or the EDI window, opens; none for contests nobody takes such a log of.
std::optional<Mottagare> CabrilloMottagare(int test);
std::optional<Mottagare> EdiMottagare(int test);

/// The address out of the text of the settings file, lines of "NAME=address".
/// @return the program's own where the text has none
QString Adress(Mottagare mottagare, const QString& inställningar);

} // namespace reports
