#pragma once

#include <array>
#include <cstdint>
#include <optional>

/// The characters of MFSK as words of 3 to 12 bits. A word begins with a 1, ends with at least two zeros and
/// holds no two zeros before its end, so that "001" tells where the next one begins, with no mark in between.
namespace platform::modem {

/// A word: its bits, the first to send the most significant, and how many there are.
struct MfskWord {
    std::uint16_t bits = 0;
    std::uint8_t length = 0;
};

/// The words of the 256 characters. Public standard (the modes of 2000 by IZ8BLY and ZL1BPU).
const std::array<MfskWord, 256>& MfskWords();

/// Cuts a stream of bits into words.
class MfskWordReader {
public:
    /// @return the character whose word ended two bits before this one; nothing for a word that there is not
    std::optional<char> Take(bool bit);

private:
    std::uint32_t bits_ = 0; ///< of the word so far, behind a stop that keeps a longer one from matching
};

} // namespace platform::modem
