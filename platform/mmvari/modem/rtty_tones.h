#pragma once

#include "platform/mmvari/modem/downconverter.h"
#include "platform/mmvari/modem/modem.h"

#include <cstdint>

namespace platform::modem {

/// Hz between mark and space on the amateur bands.
inline constexpr double rttyShift = 170;

/// +1 where space lies above mark in the audio, as it does on lower sideband.
inline double SpaceSide(Mode mode) { return mode == Mode::RttyU ? -1 : 1; }
inline double SpaceTone(const Setup& setup) { return setup.carrier + SpaceSide(setup.mode) * rttyShift; }

/// The running integral of one tone: how much of it there is between any two moments. A window of one bit is
/// the matched filter of a keyed tone whose phase is unknown.
class ToneIntegral {
public:
    /// @param rate samples a second @param hertz the tone's place @param keep samples that stay reachable
    ToneIntegral(double rate, double hertz, std::size_t keep);

    void Push(Complex sample);
    /// What was heard counts no more, and samples are counted from 0 again.
    void Reset();
    /// Samples taken so far.
    std::uint64_t Count() const { return count_; }
    /// Between two positions, counted in samples and not whole, of the last `keep`.
    std::complex<double> Between(double from, double to) const { return At(to) - At(from); }

private:
    std::complex<double> At(double position) const;

    std::vector<std::complex<double>> sums_; ///< a ring; its length is a power of two
    std::uint64_t count_ = 0;
    std::complex<double> phase_{1, 0}, turn_;
};

} // namespace platform::modem
