#pragma once

#include <cstdint>
#include <optional>

/// G3PLX's varicode: words of differing length that begin and end with a 1 and hold no two zeros in a row, so
/// that two zeros part them. The commoner a character is in text, the shorter its word.
namespace platform::modem {

/// The word of a character as a number: its first bit sent is the topmost 1. The upper half of the characters
/// has the words that the lower half leaves, in numeric order.
unsigned VaricodeWord(char character);

/// Finds the words in a stream of bits.
class VaricodeReader {
public:
    /// @returns the character that ends with this bit, the second of two zeros; nothing for a word that is
    /// none
    std::optional<char> Put(bool bit);
    /// Bits of the word that is under way.
    int Length() const { return length_; }
    /// As at the start: a word that is under way is forgotten.
    void Reset();

private:
    unsigned word_ = 0;
    int length_ = 0;
};

} // namespace platform::modem
