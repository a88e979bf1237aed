#include "platform/mmvari/modem/bpsk_varicode.h"

#include <algorithm>
#include <array>
#include <bit>
#include <string_view>

namespace platform::modem {

namespace {

/// The characters 0 to 127, from "PSK31: a new radio-teletype mode" (G3PLX, 1998), eight to a line.
constexpr std::array<std::string_view, 128> ascii = {
    "1010101011", "1011011011", "1011101101", "1101110111", "1011101011", "1101011111", "1011101111",
    "1011111101", // NUL SOH STX ETX EOT ENQ ACK BEL
    "1011111111", "11101111",   "11101",      "1101101111", "1011011101", "11111",      "1101110101",
    "1110101011", // BS HT LF VT FF CR SO SI
    "1011110111", "1011110101", "1110101101", "1110101111", "1101011011", "1101101011", "1101101101",
    "1101010111", // DLE DC1 DC2 DC3 DC4 NAK SYN ETB
    "1101111011", "1101111101", "1110110111", "1101010101", "1101011101", "1110111011", "1011111011",
    "1101111111", // CAN EM SUB ESC FS GS RS US
    "1",          "111111111",  "101011111",  "111110101",  "111011011",  "1011010101", "1010111011",
    "101111111", // blank ! " # $ % & '
    "11111011",   "11110111",   "101101111",  "111011111",  "1110101",    "110101",     "1010111",
    "110101111", // ( ) * + , - . /
    "10110111",   "10111101",   "11101101",   "11111111",   "101110111",  "101011011",  "101101011",
    "110101101", // 0 to 7
    "110101011",  "110110111",  "11110101",   "110111101",  "111101101",  "1010101",    "111010111",
    "1010101111", // 8 9 : ; < = > ?
    "1010111101", "1111101",    "11101011",   "10101101",   "10110101",   "1110111",    "11011011",
    "11111101", // @ A to G
    "101010101",  "1111111",    "111111101",  "101111101",  "11010111",   "10111011",   "11011101",
    "10101011", // H to O
    "11010101",   "111011101",  "10101111",   "1101111",    "1101101",    "101010111",  "110110101",
    "101011101", // P to W
    "101110101",  "101111011",  "1010101101", "111110111",  "111101111",  "111111011",  "1010111111",
    "101101101", // X Y Z [ \ ] ^ _
    "1011011111", "1011",       "1011111",    "101111",     "101101",     "11",         "111101",
    "1011011", // ` a to g
    "101011",     "1101",       "111101011",  "10111111",   "11011",      "111011",     "1111",
    "111", // h to o
    "111111",     "110111111",  "10101",      "10111",      "101",        "110111",     "1111011",
    "1101011", // p to w
    "11011111",   "1011101",    "111010101",  "1010110111", "110111011",  "1010110101", "1011010111",
    "1110110101", // x y z { | } ~ DEL
};

/// Begins and ends with a 1 and holds no two zeros in a row.
constexpr bool IsWord(unsigned bits) {
    const unsigned zeros = ~bits & ((1U << std::bit_width(bits)) - 1);
    return (bits & 1U) != 0 && (zeros & (zeros >> 1)) == 0;
}

constexpr std::array<std::uint16_t, 256> MakeWords() {
    std::array<std::uint16_t, 256> words{};
    for (std::size_t i = 0; i < ascii.size(); ++i)
        for (const char bit : ascii[i])
            words[i] = static_cast<std::uint16_t>(words[i] * 2 + (bit == '1' ? 1 : 0));
    const auto lower = words.begin() + ascii.size();
    unsigned word = 1;
    for (auto free = lower; free != words.end(); ++word)
        if (IsWord(word) && std::find(words.begin(), lower, word) == lower)
            *free++ = static_cast<std::uint16_t>(word);
    return words;
}

constexpr std::array<std::uint16_t, 256> words = MakeWords();

constexpr int longest = std::bit_width(unsigned{words.back()});
constexpr unsigned tooLong = 1U << (longest + 2);

} // namespace

unsigned VaricodeWord(char character) { return words[static_cast<unsigned char>(character)]; }

std::optional<char> VaricodeReader::Put(bool bit) {
    if (length_ == 0 && !bit) return std::nullopt;
    word_ = (word_ * 2 + (bit ? 1U : 0U)) & (tooLong - 1);
    ++length_;
    if ((word_ & 3U) != 0) return std::nullopt;

    const unsigned word = word_ >> 2;
    const bool fits = length_ - 2 <= longest;
    Reset();
    const auto* found = fits ? std::find(words.begin(), words.end(), word) : words.end();
    if (found == words.end()) return std::nullopt;
    return static_cast<char>(found - words.begin());
}

void VaricodeReader::Reset() { word_ = 0, length_ = 0; }

} // namespace platform::modem
