#pragma once

#include "platform/mmvari/modem/mfsk_code.h"

#include <array>
#include <cstdint>

namespace platform::modem {

/// Soft decoder of the convolutional code, one bit a step and no end. It also says how much better the
/// received bits fit the code than chance does: what tells a signal from noise, and the right one of several
/// guesses.
class MfskViterbi {
public:
    /// Bits that a decision lies back: six times the constraint length loses nothing that can be measured,
    /// and with the interleaver's delay a character of MFSK16 still comes 3.3 s after its end.
    static constexpr int lookBack = 38;

    /// @param first, second ln(P(0)/P(1)) of the step's two code bits
    /// @return the bit of `lookBack` steps ago
    bool Take(float first, float second);

    /// Steps so far.
    std::int64_t Steps() const { return steps_; }
    /// Evidence for the best path, in bits, over the `count` steps up to `ago` steps ago: log2 of the
    /// likelihood of what was received if the path was sent, over that of bits without a code, less 1 for
    /// each step, because of two paths a step noise will find the better. Noise exceeds m with a chance of
    /// about 2^-m. What lies more than `remembered` steps back does not count.
    float Evidence(int count, int ago = 0) const;

    static constexpr int remembered = 256; ///< steps for which evidence is kept

private:
    std::array<float, MfskCode::states>
        metrics_{}; ///< of the best path into each state, less the best of all
    std::array<std::uint64_t, MfskCode::states> paths_{}; ///< their bits, the newest lowest
    std::array<double, remembered> totals_{};             ///< evidence since the beginning, in a ring
    double total_ = 0;
    std::int64_t steps_ = 0;
};

} // namespace platform::modem
