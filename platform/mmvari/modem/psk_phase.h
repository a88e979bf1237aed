#pragma once

#include <array>
#include <complex>
#include <cstdint>

namespace platform::modem {

/// Tells the phase of each symbol from those around it: half the angle of the sum of their squares, in which
/// both signs are the same.
///
/// Over many symbols the noise comes out least, but a signal that fades turns its phase meanwhile. So there
/// are spans of several lengths, and that one counts which has lately foretold the symbols in its middle
/// best, each from the others alone.
class PskPhase {
public:
    /// Symbols that an estimate waits for.
    static constexpr std::int64_t ahead = 12;

    void Put(std::complex<double> symbol);
    /// Symbols so far.
    std::int64_t Count() const { return count_; }
    /// @param number of a symbol, from 0, no older than some sixty
    std::complex<double> Symbol(std::int64_t number) const {
        return symbols_[static_cast<std::size_t>(number) % memory];
    }
    /// The phase, or that and half a turn, that the last few symbols alone foretell for the next one.
    double Foretold(double rate) const;
    /// Of the symbol behind which `ahead` others have come, which must be one further at each call.
    /// @param rate of the phase, radians a symbol
    /// @returns radians: of the two that the squares allow the one nearest to where the last one leads
    double Estimate(double rate);

private:
    struct Span {
        std::int64_t behind, ahead; ///< symbols
        double merit;               ///< running mean of the cosine of twice the error
    };

    static constexpr std::size_t memory = 64; ///< symbols, a power of two
    std::array<std::complex<double>, memory> symbols_{};
    std::int64_t count_ = 0;
    double last_ = 0;
    /// The longest as long as a dozen symbols ahead allow, against noise; the others for phases that turn by
    /// a radian within some ten symbols, and within a few.
    std::array<Span, 3> spans_ = {{{24, ahead, 0.5}, {8, 8, 0}, {3, 3, 0}}};
};

} // namespace platform::modem
