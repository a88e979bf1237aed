#pragma once

#include "platform/mmvari/modem/mfsk.h"

namespace platform::modem {

/// How strong signal and noise are, learnt from the symbols as they come: both change on the air.
class MfskLevels {
public:
    /// Energy that noise alone leaves in a tone on average, as |c|^2 of the correlators.
    float Noise() const { return noise_; }
    /// Energy of a tone that is sent, without noise.
    float Signal() const { return signal_; }

    /// @param energies of all tones that are listened to
    /// @param likely for each tone, how likely it is the one that was sent; sum is 1
    void Learn(std::span<const float> energies, std::span<const float> likely);

private:
    float noise_ = 0, signal_ = 0;
    float seen_ = 0; ///< symbols that the levels rest on
    float tone_ = 0; ///< mean energy of the likely tones
};

/// Turns the energies of a symbol into soft bits.
class MfskSoftBits {
public:
    /// @param tones that are listened to, more than the mode has: a signal may lie some tones off
    MfskSoftBits(const MfskShape& shape, int tones);

    /// Takes a symbol: the likelihoods of its tones.
    void Take(std::span<const float> energies);
    /// For each tone, how likely it is the one that was sent if any may be.
    std::span<const float> Likely() const { return likely_; }
    /// ln(P(0)/P(1)) for each bit of the symbol. @param shift the signal's tone 0 among the tones listened to
    void Bits(int shift, std::span<float> bits) const;
    const MfskLevels& Levels() const { return levels_; }

private:
    MfskShape shape_;
    std::vector<float> likely_;
    MfskLevels levels_;
};

} // namespace platform::modem
