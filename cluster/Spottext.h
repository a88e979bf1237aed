#pragma once

#include <QString>

/// The operator's own texts: a spot to send, a word to search the stored spots for.
namespace cluster {

/// The line by which a spot is sent, without its line end: "DX 14025.5 XX9BB big signal".
/// @param frekvens in the display form, "14,025,50"; its last digit is not sent
QString SpottRad(const QString& frekvens, const QString& signal, const QString& notering);

/// Filter for the stored spots that have the word as date, time, call, frequency, comment or reported time;
/// with "*" behind the word, those where one of them begins so. An apostrophe makes it malformed.
QString SökFilter(const QString& ord);

} // namespace cluster
