#pragma once

#include "platform/mmvari/modem/downconverter.h"

namespace platform::modem {

/// Correlators for many tones side by side over a window of one symbol that moves on in hops of a sixteenth:
/// what finds a signal's clock and frequency.
class MfskBank {
public:
    static constexpr int hops = 16; ///< in a symbol

    /// @param symbol samples in a symbol; need not be whole
    /// @param lowest turns a sample of bin 0; bins lie `apart` from each other
    MfskBank(double symbol, int bins, double lowest, double apart);

    /// Samples that the next hop takes, 4 or so: hops begin at whole samples.
    int Needs() const;
    /// Takes a hop. @param samples Needs() of them @param energies |c|^2 of each bin over the last 16 hops; a
    /// tone of magnitude 1 gives the number of samples in a symbol, squared
    void Take(const Complex* samples, std::span<float> energies);

private:
    std::size_t bins_;
    double hop_;
    std::int64_t taken_ = 0;     ///< hops
    std::vector<Complex> turns_; ///< of each bin, for the samples of a hop
    std::vector<std::complex<double>> phases_,
        advances_; ///< of each bin at the hop; by short and by long hops
    int shortHop_;
    std::vector<float> re_, im_; ///< each bin's correlations over the last 16 hops, in a ring
};

} // namespace platform::modem
