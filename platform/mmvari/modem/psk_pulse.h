#pragma once

#include "platform/mmvari/modem/psk_samples.h"

namespace platform::modem {

/// What a matched filter says of one moment.
struct PskStrobe {
    std::complex<double> value; ///< the amplitude of a pulse whose middle is here
    std::complex<double> slope; ///< its change a symbol, as if the carrier stood still
};

/// The matched filter of BPSK's pulse, at any moment between the samples.
///
/// The pulse is p(t) = (1 + cos(pi t/T)) / 2 for |t| < T, two symbols long. Behind the filter a neighbour
/// leaves integral p(t) p(t-T) / integral p(t)^2 = (T/8) / (3T/4) = 1/6 of itself.
class PskPulse {
public:
    static constexpr double neighbour = 1.0 / 6;
    /// -d2/dt2 of the filtered pulse in its middle over its height, a symbol squared: integral p'^2 over that
    /// of p^2 = (pi^2/4) / (3/4).
    static constexpr double curvature = 3.2899;

    /// @param symbol samples in a symbol
    explicit PskPulse(double symbol)
        : symbol_(symbol) {}

    /// Both ends of the pulse around a moment lie within.
    bool Reaches(const PskSamples& samples, double moment) const {
        return moment - symbol_ >= static_cast<double>(samples.Begin()) &&
               moment + symbol_ <= static_cast<double>(samples.End() - 1);
    }
    /// @param moment number of a sample, or between two
    /// @param turn the carrier in radians a sample
    PskStrobe At(const PskSamples& samples, double moment, double turn) const;

private:
    double symbol_;
};

} // namespace platform::modem
