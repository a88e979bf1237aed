#include "platform/mmvari/modem/mfsk_correlator.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

MfskCorrelator::MfskCorrelator(double symbol, int tones, double lowest)
    : tones_(static_cast<std::size_t>(tones))
    , reach_(static_cast<std::size_t>(std::ceil(symbol * 1.02)) + 2)
    , symbol_(symbol)
    , lowest_(lowest)
    , halves_(2 * tones_)
    , energies_(tones_) {
    for (std::size_t sample = 0; sample < reach_; ++sample)
        for (std::size_t tone = 0; tone < tones_; ++tone)
            turns_.emplace_back(
                std::polar(1.0, -2 * std::numbers::pi * static_cast<double>(tone * sample) / symbol));
}

void MfskCorrelator::Take(const Complex* samples, double begin, double length, double off) {
    std::ranges::fill(halves_, Complex());
    std::complex<double> phase = 1;
    const std::complex<double> turn = std::polar(1.0, -2 * std::numbers::pi * (lowest_ + off / symbol_));
    const double middle = begin + length / 2, end = begin + length;
    for (std::size_t n = 0; n < reach_; ++n, phase *= turn) {
        // A sample stands for the time half a sample around it; on the edges only a part of that counts.
        const double from = static_cast<double>(n) - 0.5, to = from + 1;
        const double first = std::max(std::min(to, middle) - std::max(from, begin), 0.0);
        const double second = std::max(std::min(to, end) - std::max(from, middle), 0.0);
        const Complex mixed = samples[n] * Complex(phase);
        const Complex* arrow = &turns_[n * tones_];
        const auto add = [&](double weight, Complex* to_) {
            if (weight <= 0) return;
            const Complex a = mixed * static_cast<float>(weight);
            for (std::size_t tone = 0; tone < tones_; ++tone)
                to_[tone] += Complex(a.real() * arrow[tone].real() - a.imag() * arrow[tone].imag(),
                                     a.real() * arrow[tone].imag() + a.imag() * arrow[tone].real());
        };
        add(first, halves_.data());
        add(second, &halves_[tones_]);
    }
    for (std::size_t tone = 0; tone < tones_; ++tone)
        energies_[tone] = std::norm(halves_[tone] + halves_[tones_ + tone]);
}

Complex MfskCorrelator::Turn(std::span<const float> weights) const {
    Complex sum;
    for (std::size_t tone = 0; tone < tones_; ++tone)
        sum += weights[tone] * halves_[tones_ + tone] * std::conj(halves_[tone]);
    return sum;
}

} // namespace platform::modem
