#include "platform/mmvari/modem/rtty_tones.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>

namespace platform::modem {

ToneIntegral::ToneIntegral(double rate, double hertz, std::size_t keep)
    : sums_(std::bit_ceil(keep + 2))
    , turn_(std::polar(1.0, -2 * std::numbers::pi * hertz / rate)) {}

void ToneIntegral::Push(Complex sample) {
    const std::complex<double> z = sample;
    const std::size_t mask = sums_.size() - 1;
    const std::complex<double> turned = {z.real() * phase_.real() - z.imag() * phase_.imag(),
                                         z.real() * phase_.imag() + z.imag() * phase_.real()};
    sums_[(count_ + 1) & mask] = sums_[count_ & mask] + turned;
    phase_ = {phase_.real() * turn_.real() - phase_.imag() * turn_.imag(),
              phase_.real() * turn_.imag() + phase_.imag() * turn_.real()};
    ++count_;
    if ((count_ & 1023U) == 0) phase_ /= std::abs(phase_);
}

void ToneIntegral::Reset() {
    std::fill(sums_.begin(), sums_.end(), std::complex<double>());
    count_ = 0;
}

std::complex<double> ToneIntegral::At(double position) const {
    const double whole = std::floor(position);
    const auto index = static_cast<std::uint64_t>(whole);
    const std::size_t mask = sums_.size() - 1;
    const std::complex<double>& before = sums_[index & mask];
    const double part = position - whole;
    // At the newest sample there is none behind it, and no part of it is asked for.
    return part == 0 ? before : before + part * (sums_[(index + 1) & mask] - before);
}

} // namespace platform::modem
