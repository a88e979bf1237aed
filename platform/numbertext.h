#pragma once

#include <QString>

#include <optional>

namespace platform {

/// A number as a field shows it: a whole number without decimals, others with a point and as few digits as
/// give the same number back.
QString numberText(double number);

/// The finite number that the whole text is, blanks around it allowed; nothing if it is none.
std::optional<double> textNumber(QStringView text);

} // namespace platform
