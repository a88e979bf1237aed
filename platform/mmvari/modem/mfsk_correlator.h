#pragma once

#include "platform/mmvari/modem/downconverter.h"

namespace platform::modem {

/// Correlators for tones side by side over one symbol, which may begin anywhere between two samples and lie
/// off in frequency: for the decision, when both are known.
class MfskCorrelator {
public:
    /// @param symbol samples in a nominal symbol; tones lie 1 / symbol turns a sample apart
    /// @param lowest turns a sample of tone 0 when nothing is off
    MfskCorrelator(double symbol, int tones, double lowest);

    /// Samples that a symbol may reach over.
    std::size_t Reach() const { return reach_; }
    /// @param samples Reach() of them @param begin of the symbol, in samples from the middle of the first one
    /// @param length of the symbol in samples, within 2 % of nominal @param off tone distances too high
    void Take(const Complex* samples, double begin, double length, double off);

    /// |c|^2 of each tone; a tone of magnitude 1 gives the number of samples, squared.
    std::span<const float> Energies() const { return energies_; }
    /// What the signal's phase turns from the symbol's first half to its second, as an arrow: the angle is pi
    /// for a tone's distance. Each tone counts by its weight.
    Complex Turn(std::span<const float> weights) const;

private:
    std::size_t tones_, reach_;
    double symbol_, lowest_;
    std::vector<Complex> turns_;  ///< samples x tones
    std::vector<Complex> halves_; ///< first half of each tone, then the second
    std::vector<float> energies_;
};

} // namespace platform::modem
