#pragma once

#include <QString>

/// Serial numbers as they are shown.
namespace contest {

/// A serial to send with leading zeros.
/// @param löpnrFormat the width marker of the contest: "01" at least two digits, "001" three, anything else
///        four
/// @return a text that is empty or no number as it is.
QString FormateraLöpnr(const QString& text, const QString& löpnrFormat);

/// A received serial of one character with a "0" in front; any other as it is.
QString FyllMottagetLöpnr(const QString& text);

} // namespace contest
