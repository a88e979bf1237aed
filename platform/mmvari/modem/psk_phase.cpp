#include "platform/mmvari/modem/psk_phase.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// Symbols over which a span's merit is taken.
constexpr double phaseMeritMemory = 24;
/// Symbols that foretell the next one's phase when it turns quickly.
constexpr std::int64_t recent = 3;

} // namespace

void PskPhase::Put(std::complex<double> symbol) {
    symbols_[static_cast<std::size_t>(count_) % memory] = symbol;
    ++count_;
}

double PskPhase::Foretold(double rate) const {
    std::complex<double> sum;
    for (std::int64_t k = std::max<std::int64_t>(0, count_ - recent); k < count_; ++k)
        sum += Symbol(k) * Symbol(k) * std::polar(1.0, 2 * rate * static_cast<double>(count_ - k));
    return std::arg(sum) / 2;
}

double PskPhase::Estimate(double rate) {
    const std::int64_t number = count_ - 1 - ahead;
    const std::complex<double> own = Symbol(number) * Symbol(number);
    double angle = 0, most = -2;
    for (Span& span : spans_) {
        std::complex<double> sum;
        const std::int64_t first = std::max<std::int64_t>(0, number - span.behind);
        std::complex<double> back = std::polar(1.0, -2 * rate * static_cast<double>(first - number));
        const std::complex<double> turn = std::polar(1.0, -2 * rate);
        for (std::int64_t k = first; k <= number + span.ahead; ++k, back *= turn)
            sum += Symbol(k) * Symbol(k) * back;
        const std::complex<double> others = sum - own;
        const double length = std::abs(others) * std::abs(own);
        const double cosine = length > 0 ? (std::conj(others) * own).real() / length : 0;
        span.merit += (cosine - span.merit) / phaseMeritMemory;
        if (span.merit <= most) continue;
        most = span.merit;
        angle = std::arg(sum) / 2;
    }
    const double expected = last_ + rate;
    last_ = angle + std::numbers::pi * std::round((expected - angle) / std::numbers::pi);
    return last_;
}

} // namespace platform::modem
