#pragma once

#include <array>
#include <cstddef>
#include <span>

namespace platform::modem {

/// Finds the likeliest row of symbols of 1 and -1 behind a matched filter in which each leaves a part of
/// itself in its two neighbours: Viterbi's search with two states and Ungerboeck's metric
/// sum a(k) q(k) - r A a(k) a(k-1).
class PskSequence {
public:
    /// Decides on the oldest symbol that is not decided yet.
    /// @param filtered it and those behind it that are known, each with its phase taken away; one at least
    /// @param amplitude A, of the same scale
    /// @returns 1 or -1
    int Decide(std::span<const double> filtered, double amplitude);

private:
    std::array<double, 2> metric_{}; ///< of the best row that ends in -1 and in 1
};

} // namespace platform::modem
