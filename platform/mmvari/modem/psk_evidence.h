#pragma once

#include <array>
#include <cstddef>

namespace platform::modem {

/// Weighs whether there is a signal, by one number for each symbol: the cosine of twice the angle between the
/// symbol and the phase that was foretold for it.
///
/// Noise makes all angles equally probable; with a signal twice the angle has about von Mises' density
/// exp(k cos x) / (2 pi I0(k)). The sum of the logarithms of their quotient, held at 0 or above, rises with a
/// signal and stays low without (Page's test). As each phase was foretold without the symbol it is held
/// against, noise alone reaches a sum of h within n symbols with a probability below n exp(-h), whatever the
/// loops make of it.
class PskEvidence {
public:
    static constexpr std::size_t memory = 32; ///< symbols

    void Put(double cosine);
    /// The signal has become much weaker: the next symbols say whether it is there still.
    void Doubt();
    /// Natural logarithm of the odds.
    double Sum() const { return sum_; }
    /// There is a signal, be it in a short fade.
    bool Open() const { return open_; }
    /// A signal that was here lately has ended, more than so many symbols ago. @param symbols memory at most
    bool Ended(std::size_t symbols) const;
    /// 0 noise, 1 clean: the running mean of the cosines.
    double Quality() const { return quality_ > 0 ? quality_ : 0; }

private:
    double sum_ = 0, quality_ = 0.5;
    double strength_ = 0.5;                ///< the best quality of late
    std::array<double, memory> cosines_{}; ///< a ring
    std::size_t next_ = 0;
    bool open_ = false;
};

} // namespace platform::modem
