#include "platform/value.h"

#include "platform/failure.h"
#include "platform/numbertext.h"

#include <cmath>
#include <limits>

namespace platform {

QString Value::text() const {
    if (kind_ == Kind::Number) return numberText(number_);
    return text_;
}

double Value::number() const {
    if (kind_ == Kind::Number) return number_;
    if (kind_ == Kind::Text) {
        if (const auto number = textNumber(text_)) return *number;
        throw Failure(QStringLiteral("\"%1\" är inget tal.").arg(text_));
    }
    throw Failure(QStringLiteral("Ett tal väntades, men fältet är tomt."));
}

int Value::integer() const {
    // The default rounding mode takes a half to the even neighbour.
    const double rounded = std::nearbyint(number());
    if (rounded < std::numeric_limits<int>::min() || rounded > std::numeric_limits<int>::max() ||
        std::isnan(rounded)) {
        throw Failure(QStringLiteral("Talet %1 ryms inte i 32 bitar.").arg(text()));
    }
    return static_cast<int>(rounded);
}

} // namespace platform
