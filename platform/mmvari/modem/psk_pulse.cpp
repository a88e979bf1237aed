#include "platform/mmvari/modem/psk_pulse.h"

#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// std::complex's product looks for infinities; this one does not.
std::complex<double> Product(std::complex<double> a, std::complex<double> b) {
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

} // namespace

PskStrobe PskPulse::At(const PskSamples& samples, double moment, double turn) const {
    const auto first = static_cast<std::int64_t>(std::ceil(moment - symbol_));
    const auto last = static_cast<std::int64_t>(std::floor(moment + symbol_));
    const double from = static_cast<double>(first) - moment;
    const double angle = std::numbers::pi / symbol_;
    std::complex<double> shape = std::polar(1.0, angle * from), mixer = std::polar(1.0, -turn * from);
    const std::complex<double> shapeTurn = std::polar(1.0, angle), mixerTurn = std::polar(1.0, -turn);
    std::complex<double> value, slope;
    const Complex* sample = samples.At(first);
    for (std::int64_t n = first; n <= last; ++n, ++sample) {
        const std::complex<double> mixed = Product(std::complex<double>(*sample), mixer);
        value += (1 + shape.real()) * mixed;
        slope += shape.imag() * mixed;
        shape = Product(shape, shapeTurn);
        mixer = Product(mixer, mixerTurn);
    }
    // Half of each pulse, over the sum of the pulse's squares.
    const double scale = 0.5 / (0.75 * symbol_);
    return {scale * value, scale * std::numbers::pi * slope};
}

} // namespace platform::modem
