#include "platform/numbertext.h"

#include <QLocale>

#include <cmath>

namespace platform {

namespace {

/// Beyond this size a double has no decimals left, and its digits are no longer exact.
constexpr double kExactWhole = 1e15;

bool canBeginNumber(QChar c) { return (c >= u'0' && c <= u'9') || c == u'-' || c == u'+' || c == u'.'; }

} // namespace

QString numberText(double number) {
    if (std::trunc(number) == number && std::abs(number) < kExactWhole) {
        return QString::number(static_cast<qlonglong>(number));
    }
    return QString::number(number, 'g', QLocale::FloatingPointShortest);
}

std::optional<double> textNumber(QStringView text) {
    const QStringView trimmed = text.trimmed();
    // Also keeps out "nan" and "inf", which Qt would take.
    if (trimmed.isEmpty() || !canBeginNumber(trimmed.front())) return std::nullopt;
    bool isNumber = false;
    const double number = trimmed.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(number)) return std::nullopt;
    return number;
}

} // namespace platform
