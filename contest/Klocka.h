#pragma once

#include <QDateTime>
#include <QString>

/// The clocks of the main window, as texts.
namespace contest {

/// The clock text one second later. After 99 hours the hour stays at 99.
/// @param klocka "hh:mm:ss"; what stands between the parts is not looked at
/// @throws platform::Failure if a part is no number
QString EnSekundTill(const QString& klocka);

/// "hh:mm:ss"
QString TidText(const QDateTime& tid);

/// The clock text of UTC.
/// @param nu local time
/// @param opUTCTid hours to add to it, as text; a text without a number, or with more than a day, adds
/// nothing
QString UTCTidText(const QDateTime& nu, const QString& opUTCTid);

/// The date that goes with the UTC clock, "yyyy-MM-dd". It looks at the local hour, and at the offset "-3" it
/// goes back two days, not one: logs have always been dated so there.
/// @param nu local time
/// @param opUTCTid "0", "-1", "-2" or "-3"; any other text gives the local date
QString TestDatumText(const QDateTime& nu, const QString& opUTCTid);

} // namespace contest
