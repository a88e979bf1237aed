#pragma once

#include <QString>

#include <optional>

namespace platform {

/// The number that a text begins with: "80 M" gives 80, a text without one gives 0.
///
/// Blanks, tabs and line feeds are passed over wherever they stand, between digits too ("1 60 M" is 160).
/// A sign, one decimal point (never a comma) and an exponent after E or D are read; what follows is ignored.
/// @throws Failure if the number is too large for a double.
double Val(const QString& text);

/// The number that a whole text stands for, blanks around it allowed; either decimal sign is taken.
/// @return nothing for an empty text, one that holds anything else, or one too large for a double.
std::optional<double> ReadNumber(const QString& text);

/// ReadNumber for callers to whom a text that is no number is a failure. @throws Failure
double ToNumber(const QString& text);

/// Rounds to the nearest whole number, a half to the even neighbour. NaN and infinities stay as they are.
double RoundHalfEven(double number);

/// Half-to-even rounding into 0 to 255. @throws Failure outside, and for NaN.
int ToByte(double number);
/// Half-to-even rounding into 16 bits with sign. @throws Failure outside, and for NaN.
int ToInt16(double number);
/// Half-to-even rounding into 32 bits with sign. @throws Failure outside, and for NaN.
int ToInt32(double number);

/// The text filled with a character on its left until it is as wide as told; a longer text stays whole.
QString PadLeft(const QString& text, int width, QChar fill = u' ');

/// A number written as a whole number of at least that many digits ("7", 3 gives "007"); halves go away from
/// zero. A text that is empty or no number comes back as it is.
/// @param minDigits 1 and up
QString FormatDigits(const QString& number, int minDigits);

/// Upper case, one character for one: å becomes Å and ß stays. A letter of the 8-bit code page whose
/// capital lies outside it (µ, ƒ) stays too.
QChar ToUpper(QChar character);
QString ToUpper(const QString& text);

} // namespace platform
