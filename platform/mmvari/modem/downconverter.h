#pragma once

#include <complex>
#include <cstdint>
#include <span>
#include <vector>

namespace platform::modem {

using Complex = std::complex<float>;

/// Moves a stretch of the audio spectrum down around 0 Hz and keeps only as many samples as it needs. The
/// rate is divided by a whole number, so that it stays exact and no resampler is in the way of the symbols.
class Downconverter {
public:
    /// @param rate samples a second of the audio
    /// @param carrier Hz that becomes 0
    /// @param passband Hz on each side that come through unharmed
    /// @param least samples a second that come out at least; more than twice the passband
    Downconverter(double rate, double carrier, double passband, double least);

    /// Samples a second that come out.
    double Rate() const { return rate_ / step_; }
    double Carrier() const { return carrier_; }
    /// Phase goes on without a jump.
    void Carrier(double hertz);
    /// Seconds from a sample to its place in the output.
    double Delay() const;

    /// @param out what comes out is put behind what it holds: the signal's analytic half, an audio tone of
    /// amplitude 1 has magnitude 1. Samples far beyond full scale are cut, what is no number counts as
    /// silence
    void Process(std::span<const float> audio, std::vector<Complex>& out);

private:
    double rate_, carrier_ = 0;
    int step_;
    std::vector<float> taps_;
    std::vector<Complex> history_; ///< mixed samples, the newest at the end
    std::size_t next_;             ///< index in history_ of the last sample of the next output's window
    std::complex<double> phase_{1, 0}, turn_{1, 0};
    std::uint64_t turned_ = 0; ///< samples
};

/// A low-pass of linear phase, by windowed sine cardinal (Kaiser, 80 dB): sum of taps is 1.
/// @param edge, stop Hz up to which it passes and from which it stops
std::vector<float> LowPass(double rate, double edge, double stop);

} // namespace platform::modem
