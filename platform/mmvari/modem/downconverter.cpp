#include "platform/mmvari/modem/downconverter.h"

#include "platform/mmvari/modem/likelihood.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// What no sound card gives, but a file may: one such sample must not stay in running sums for ever.
double Usable(float sample) {
    constexpr double most = 8; // of full scale
    return std::isfinite(sample) ? std::clamp(static_cast<double>(sample), -most, most) : 0;
}

} // namespace

std::vector<float> LowPass(double rate, double edge, double stop) {
    // Kaiser's formulas.
    constexpr double attenuation = 80, beta = 0.1102 * (attenuation - 8.7);
    const double width = 2 * std::numbers::pi * (stop - edge) / rate;
    const auto half = static_cast<std::ptrdiff_t>(std::ceil((attenuation - 7.95) / (2.285 * width) / 2));
    const double cutoff = (edge + stop) / rate;
    std::vector<double> taps(static_cast<std::size_t>(2 * half + 1));
    double sum = 0;
    for (std::ptrdiff_t n = -half; n <= half; ++n) {
        const double x = std::numbers::pi * cutoff * static_cast<double>(n);
        const double r = static_cast<double>(n) / static_cast<double>(half);
        double& tap = taps[static_cast<std::size_t>(n + half)];
        tap = (n == 0 ? 1 : std::sin(x) / x) * BesselI0(beta * std::sqrt(std::max(0.0, 1 - r * r)));
        sum += tap;
    }
    std::vector<float> result;
    result.reserve(taps.size());
    for (const double tap : taps) result.push_back(static_cast<float>(tap / sum));
    return result;
}

Downconverter::Downconverter(double rate, double carrier, double passband, double least)
    : rate_(rate)
    , step_(std::max(1, static_cast<int>(rate / least))) {
    // What folds back may fall outside the passband only. The image at twice the carrier is far away.
    const double stop = std::max(Rate() - passband, passband * 1.2);
    taps_ = LowPass(rate, passband, std::min(stop, rate / 2));
    history_.assign(taps_.size() - 1, Complex());
    next_ = history_.size();
    Carrier(carrier);
}

void Downconverter::Carrier(double hertz) {
    carrier_ = hertz;
    turn_ = std::polar(1.0, -2 * std::numbers::pi * hertz / rate_);
}

double Downconverter::Delay() const { return static_cast<double>(taps_.size() - 1) / 2 / rate_; }

void Downconverter::Process(std::span<const float> audio, std::vector<Complex>& out) {
    const std::size_t kept = history_.size();
    history_.resize(kept + audio.size());
    for (std::size_t i = 0; i < audio.size(); ++i) {
        // Half of a real tone's power lies on the other side of 0 Hz: twice makes its magnitude its
        // amplitude.
        const double sample = 2.0 * Usable(audio[i]);
        history_[kept + i] =
            Complex(static_cast<float>(sample * phase_.real()), static_cast<float>(sample * phase_.imag()));
        phase_ = {phase_.real() * turn_.real() - phase_.imag() * turn_.imag(),
                  phase_.real() * turn_.imag() + phase_.imag() * turn_.real()};
        // By count, so that nothing depends on the pieces in which audio comes.
        if (++turned_ % 1024 == 0) phase_ /= std::abs(phase_);
    }

    const std::size_t length = taps_.size();
    for (; next_ < history_.size(); next_ += static_cast<std::size_t>(step_)) {
        const Complex* from = &history_[next_ + 1 - length];
        float re = 0, im = 0;
        for (std::size_t k = 0; k < length; ++k) {
            re += taps_[k] * from[k].real();
            im += taps_[k] * from[k].imag();
        }
        out.emplace_back(re, im);
    }
    // Keep what the next window needs.
    const std::size_t drop = std::min(next_ + 1 - length, history_.size());
    history_.erase(history_.begin(), history_.begin() + static_cast<std::ptrdiff_t>(drop));
    next_ -= drop;
}

} // namespace platform::modem
