#include "platform/mmvari/modem/psk_evidence.h"

#include <algorithm>
#include <cmath>

namespace platform::modem {

namespace {

/// Concentration of twice the angle around the foretold phase in a signal that is just worth printing, 5.5 dB
/// above the noise in a symbol's bandwidth.
constexpr double concentration = 1.7;
constexpr double logBessel = 0.6226; ///< ln I0(concentration): the density's norm
/// A search over some hundred frequencies and timings picks the likeliest, which costs ln of their number;
/// the rest keeps noise from opening for hours.
constexpr double opens = 18;
/// What a signal may gather, and what is left when it is held to be gone: as much as a weak signal hardly
/// ever loses by chance.
constexpr double most = 26, closes = 10;
/// What counts of a signal that may have ended: three symbols of noise take it away.
constexpr double doubtful = 12;
/// Logarithm of the odds against the last symbols at which a signal has ended: a weak one is held to have
/// done so once in some thousand symbols, wrongly.
constexpr double ended = -4;
/// What a signal's quality may lose a symbol by fading, and above what nothing is expected of it.
constexpr double fading = 0.005, strongest = 0.87;
/// Symbols over which the quality is taken.
constexpr double qualityMemory = 24;

} // namespace

void PskEvidence::Put(double cosine) {
    sum_ = std::clamp(sum_ + concentration * cosine - logBessel, 0.0, most);
    if (sum_ >= opens) open_ = true;
    if (sum_ < closes) open_ = false;
    quality_ += (cosine - quality_) / qualityMemory;
    cosines_[next_] = cosine;
    strength_ = std::clamp(std::max(quality_, strength_ - fading), 0.0, strongest);
    next_ = (next_ + 1) % memory;
}

void PskEvidence::Doubt() { sum_ = std::min(sum_, doubtful); }

bool PskEvidence::Ended(std::size_t symbols) const {
    // The density's concentration from the cosines' mean, by Banerjee's approximation.
    const double k = strength_ * (2 - strength_ * strength_) / (1 - strength_ * strength_);
    const double norm = std::log(std::cyl_bessel_i(0.0, k));
    // Where the sum from the newest one back is lowest, there the end is most probable.
    double sum = 0, lowest = 0;
    std::size_t end = 0;
    for (std::size_t i = 1; i <= memory; ++i) {
        sum += k * cosines_[(next_ + memory - i) % memory] - norm;
        if (sum >= lowest) continue;
        lowest = sum;
        end = i;
    }
    return lowest < ended && end > symbols;
}

} // namespace platform::modem
