#pragma once

#include <QString>

#include <optional>

/// The frequency and mode of a radio in the forms that the service, the entry form and the log give them.
///
/// The service counts in hertz. The entry form shows MHz, kHz and hundredths of kHz, "14,025,00". Between the
/// two lie the digits alone, in units of 10 Hz: "1402500".
namespace radio {

/// Whether the service's interface is one that this program knows.
bool VersionDuger(int version);

/// Units of 10 Hz from the text of whole hertz: its last digit is cut off, not rounded.
QString TioHertz(const QString& hertz);
/// The form of the entry field, from 6 to 8 digits; other lengths have none.
std::optional<QString> FrekvensVisning(const QString& tioHertz);
/// The digits of the entry field's form.
QString Siffror(const QString& visning);
/// Hertz from up to 8 digits in units of 10 Hz; nothing for 0 or a text that is no number, such as a spot may
/// hold.
std::optional<int> Hertz(const QString& tioHertz);

/// What the mode's label shows; nothing for a mode without a text.
std::optional<QString> TrafiksättText(int mode);

} // namespace radio
