#include "platform/mmvari/modem/mfsk_bank.h"

#include <cmath>
#include <numbers>

namespace platform::modem {

MfskBank::MfskBank(double symbol, int bins, double lowest, double apart)
    : bins_(static_cast<std::size_t>(bins))
    , hop_(symbol / hops)
    , phases_(bins_, {1, 0})
    , shortHop_(static_cast<int>(hop_))
    , re_(bins_ * hops)
    , im_(bins_ * hops) {
    const auto turn = [&](std::size_t bin, int samples) {
        const double turns = (lowest + apart * static_cast<double>(bin)) * samples;
        return std::polar(1.0, -2 * std::numbers::pi * turns);
    };
    for (int sample = 0; sample <= shortHop_; ++sample)
        for (std::size_t bin = 0; bin < bins_; ++bin) turns_.emplace_back(turn(bin, sample));
    for (const int length : {shortHop_, shortHop_ + 1})
        for (std::size_t bin = 0; bin < bins_; ++bin) advances_.push_back(turn(bin, length));
}

int MfskBank::Needs() const {
    const auto begin = [this](std::int64_t hop) { return std::ceil(static_cast<double>(hop) * hop_); };
    return static_cast<int>(begin(taken_ + 1) - begin(taken_));
}

void MfskBank::Take(const Complex* samples, std::span<float> energies) {
    const int length = Needs();
    const std::size_t slot = static_cast<std::size_t>(taken_++ % hops) * bins_;
    float* re = &re_[slot];
    float* im = &im_[slot];
    std::fill_n(re, bins_, 0.0F);
    std::fill_n(im, bins_, 0.0F);
    for (int n = 0; n < length; ++n) {
        const float a = samples[n].real(), b = samples[n].imag();
        const Complex* turn = &turns_[static_cast<std::size_t>(n) * bins_];
        for (std::size_t bin = 0; bin < bins_; ++bin) {
            re[bin] += a * turn[bin].real() - b * turn[bin].imag();
            im[bin] += a * turn[bin].imag() + b * turn[bin].real();
        }
    }
    const std::complex<double>* advance = &advances_[length == shortHop_ ? 0 : bins_];
    for (std::size_t bin = 0; bin < bins_; ++bin) {
        const Complex phase(phases_[bin]);
        const float a = re[bin], b = im[bin];
        re[bin] = a * phase.real() - b * phase.imag();
        im[bin] = a * phase.imag() + b * phase.real();
        const std::complex<double> p = phases_[bin], q = advance[bin];
        phases_[bin] = {p.real() * q.real() - p.imag() * q.imag(), p.real() * q.imag() + p.imag() * q.real()};
    }
    if (taken_ % 1024 == 0) // before rounding has made the arrows longer or shorter
        for (auto& phase : phases_) phase /= std::abs(phase);

    for (std::size_t bin = 0; bin < bins_; ++bin) {
        float a = 0, b = 0;
        for (std::size_t at = bin; at < re_.size(); at += bins_) {
            a += re_[at];
            b += im_[at];
        }
        energies[bin] = a * a + b * b;
    }
}

} // namespace platform::modem
