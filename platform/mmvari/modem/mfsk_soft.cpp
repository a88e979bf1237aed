#include "platform/mmvari/modem/mfsk_soft.h"

#include "platform/mmvari/modem/likelihood.h"

#include <algorithm>
#include <cmath>

namespace platform::modem {

namespace {

/// Symbols over which levels are averaged: three times as many win 0.02 dB in steady noise, but lose more
/// than 2 dB when the signal fades once a second.
constexpr float levelMemory = 8;
/// A signal weaker than this beside the noise (5 dB a symbol) is not readable: assume no less, so that one
/// that comes is heard at once.
constexpr float leastRatio = 3;
/// Nor is any noise weaker than this: clocks and filters are not perfect.
constexpr float mostRatio = 300;
/// Noise that rises to so much for a symbol is a crash, for which the average is no measure.
constexpr float noiseCrash = 2.5F;
/// No bit is surer than this (3 in 10,000 are wrong): what noise is not like the model does.
constexpr float surest = 8;
constexpr float leastEnergy = 1e-20F; ///< keeps digital silence from dividing by 0

} // namespace

void MfskLevels::Learn(std::span<const float> energies, std::span<const float> likely) {
    float noise = 0, others = 0, tone = 0;
    for (std::size_t i = 0; i < energies.size(); ++i) {
        noise += (1 - likely[i]) * energies[i];
        others += 1 - likely[i];
        tone += likely[i] * energies[i];
    }
    noise /= others;
    seen_ = std::min(seen_ + 1, levelMemory);
    noise_ = std::max(noise_ + (noise - noise_) / seen_, leastEnergy);
    tone_ += (tone - tone_) / seen_;
    signal_ = std::clamp(tone_ - noise_, leastRatio * noise_, mostRatio * noise_);
}

MfskSoftBits::MfskSoftBits(const MfskShape& shape, int tones)
    : shape_(shape)
    , likely_(static_cast<std::size_t>(tones)) {}

void MfskSoftBits::Take(std::span<const float> energies) {
    // This symbol's own noise: its energies but for the strongest, whose lack is made good.
    float sum = 0, most = 0;
    for (const float energy : energies) {
        sum += energy;
        most = std::max(most, energy);
    }
    const float own = (sum - most) / static_cast<float>(energies.size() - 1);
    float noise = std::max(levels_.Noise(), leastEnergy), signal = levels_.Signal();
    if (own > noiseCrash * noise) {
        noise = own;
        signal = std::max(signal, leastRatio * noise);
    }

    // Complex noise of mean energy N beside a tone of amplitude A: the likelihood of the magnitude r goes
    // with I0(2 A r / N).
    const float scale = 2 * std::sqrt(signal) / noise;
    float best = -1e30F;
    for (std::size_t i = 0; i < energies.size(); ++i) {
        likely_[i] = LogI0(scale * std::sqrt(energies[i]));
        best = std::max(best, likely_[i]);
    }
    float total = 0;
    for (float& likely : likely_) {
        likely = std::exp(likely - best);
        total += likely;
    }
    for (float& likely : likely_) likely /= total;
    levels_.Learn(energies, likely_);
}

void MfskSoftBits::Bits(int shift, std::span<float> bits) const {
    const float* likely = likely_.data() + shift;
    for (int bit = 0; bit < shape_.bits; ++bit) {
        const unsigned mask = 1U << static_cast<unsigned>(shape_.bits - 1 - bit);
        float of[2] = {0, 0};
        for (unsigned tone = 0; tone < static_cast<unsigned>(shape_.Tones()); ++tone)
            of[(MfskBitsOfTone(tone) & mask) != 0 ? 1 : 0] += likely[tone];
        constexpr float least = 1e-12F;
        bits[static_cast<std::size_t>(bit)] =
            std::clamp(std::log((of[0] + least) / (of[1] + least)), -surest, surest);
    }
}

} // namespace platform::modem
