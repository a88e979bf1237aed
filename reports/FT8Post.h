#pragma once

#include <QLatin1String>
#include <QString>

#include <optional>

/// A contact as the FT8 program tells of it: one ADIF record, of which five tags count.
namespace reports {

/// The lines of a parked record in one piece, up to the first that holds "<eor>", that one included.
QString FT8Text(const QString& fil);

/// The value behind the first such tag: as many characters behind its ">" as its length says, or what there
/// is of them. The length is read digit by digit, and what stands behind its last digit is taken for the ">"
/// unread.
/// @param tagg "<call:", found in any letter case
/// @param siffror how many digits the length has at most; with 1, a tag whose length has more is not read
/// @return nothing if there is no tag or it is not read
/// @throws platform::Failure if the length is no number or more than 255
std::optional<QString> LäsTagg(const QString& text, QLatin1String tagg, int siffror);

// The readers of the entry form's fields. Each returns and throws as LäsTagg.
std::optional<QString> LäsFT8Signal(const QString& text);
/// In MHz, as it stands.
std::optional<QString> LäsFT8Frekvens(const QString& text);
/// The reports.
std::optional<QString> LäsFT8Mottaget(const QString& text);
std::optional<QString> LäsFT8Sänt(const QString& text);
/// Whether there is a tag for LäsFT8Lokator.
bool HarFT8Lokator(const QString& text);
/// In capitals. A locator under that name counts for more than one under "lokator", and that for more than a
/// grid square.
std::optional<QString> LäsFT8Lokator(const QString& text);

} // namespace reports
