#pragma once

#include "platform/mmvari/modem/mfsk.h"

#include <bit>
#include <optional>

namespace platform::modem {

/// The convolutional code of rate 1/2 and constraint length 7: two code bits for each bit, of the bit and the
/// six before it.
struct MfskCode {
    static constexpr unsigned length = 7;
    static constexpr unsigned first = 0x6d, second = 0x4f; ///< polynomials; bit 0 is the newest bit
    static constexpr unsigned states = 1U << (length - 1);

    /// @param window the newest seven bits @return first code bit in bit 1, second in bit 0
    static constexpr unsigned Output(unsigned window) {
        return static_cast<unsigned>(std::popcount(window & first) & 1) << 1U |
               static_cast<unsigned>(std::popcount(window & second) & 1);
    }
};

/// Bits to tones: code, interleaver, Gray code.
class MfskEncoder {
public:
    explicit MfskEncoder(const MfskShape& shape);
    /// Takes a bit. @return the tones that are complete now: bits of the shape / 2 bits make one on average,
    /// so at most one
    std::optional<unsigned> Take(bool bit);

private:
    std::optional<unsigned> Put(unsigned codeBit);
    MfskShape shape_;
    unsigned window_ = 0;
    std::vector<unsigned> symbols_; ///< those to come, in a ring: each misses the bits that come later
    std::size_t now_ = 0;
    int filled_ = 0; ///< code bits in the symbol that is being filled
};

} // namespace platform::modem
