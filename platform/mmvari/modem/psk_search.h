#pragma once

#include "platform/mmvari/modem/psk_samples.h"

#include <array>
#include <optional>
#include <vector>

namespace platform::modem {

/// Looks for BPSK signals on both sides of the middle, by what is left of a signal when it is squared: a line
/// at twice its carrier, strongest in the middle of its symbols.
///
/// A bank of matched filters, a quarter of a baud apart, gives four values a symbol each; their squares'
/// spectra over the last `window` symbols tell carrier and clock. Shape: [band][quarter of a symbol][symbol].
class PskSearch {
public:
    static constexpr int window = 64; ///< symbols

    struct Found {
        double moment;    ///< number of a sample: middle of a symbol inside the signal
        double begin;     ///< number of a sample: there it probably began; at the window's start if before
        double turn;      ///< carrier in radians a sample
        double coherence; ///< length of the squares' sum over the sum of their lengths: 0 noise, 1 clean
    };

    /// @param symbol samples in a symbol
    explicit PskSearch(double symbol);

    void Advance(const PskSamples& samples);
    /// What was heard counts no more. @param end number of the next sample
    void Clear(std::int64_t end);
    /// The strongest signal whose carrier is not further from `turn` than `range`, in radians a sample;
    /// nothing while it has not heard a window.
    std::optional<Found> Strongest(double turn, double range);

private:
    static constexpr int side = 6; ///< bands on each side of the middle one
    static constexpr int bands = 2 * side + 1;
    static constexpr int quarters = 4;
    static constexpr int spectrum = 128; ///< values: the window and as many zeros

    /// The squares of a symbol's four quarters, side by side so that one instruction works on all.
    struct Quarters {
        std::array<float, quarters> real{}, imag{};
    };

    struct Line {
        int band = 0;
        std::size_t quarter = 0; ///< the best one
        float turn = 0;          ///< radians a symbol
        float phase = 0;         ///< at the window's start
        float strength = 0; ///< of the squares' sum at the best quarter, less a part of that at the worst
        double coherence = 0;
        double clock = 0; ///< where in a symbol its middle is, -0.5 to 0.5
        double baud = 0;  ///< its carrier
    };

    std::int64_t SampleOf(std::int64_t strobe) const;
    void TakeStrobe(const PskSamples& samples, std::int64_t middle);
    /// Of a symbol's squares in squares_. @param symbol its number since the start
    std::size_t Place(int band, std::int64_t symbol) const;
    /// @param symbol of the window, from 0
    const Quarters& Square(int band, int symbol) const;
    Line LineOf(int band);
    void Transform();
    /// Symbol of the window with which a line began.
    int BeginOf(const Line& line) const;

    double symbol_;
    /// The pulse times the bands' cosines and sines; shape: [sample from the middle][band].
    std::vector<std::array<float, side + 1>> cosines_, sines_;
    std::int64_t next_ = 0;  ///< strobe to be taken next
    std::int64_t heard_ = 0; ///< strobes since the start
    /// Shape: [band][symbol]; one symbol more than the window, which is not complete yet.
    std::vector<Quarters> squares_;
    std::vector<Complex> turns_; ///< of the Fourier transform
    std::array<Quarters, spectrum> spectrum_{};
};

} // namespace platform::modem
