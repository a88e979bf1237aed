#include "platform/mmvari/modem/mfsk_varicode.h"

#include <vector>

namespace platform::modem {

namespace {

/// No word is longer; what is longer by one is noted as "too long" in one bit more.
constexpr int longest = 12;

/// The characters by rank: the commoner, the shorter the word.
std::vector<int> CharactersByRank() {
    std::vector<int> ranks;
    for (const char c :
         {' ', 'e', 't', 'o', 'a',  'i', 'n', 'r', 's', 'l', 'h', 'd',  'c',  'u', 'm', 'f',  'p',
          'g', 'y', 'b', 'w', 'v',  'k', 'x', 'q', 'z', 'j', ',', '\b', '\r', 'T', 'S', 'E',  'A',
          'I', 'O', 'C', 'R', 'D',  '0', 'M', 'P', '1', 'L', 'F', 'N',  'B',  '2', 'G', '3',  'H',
          'U', '5', 'W', '6', 'X',  '4', 'Y', 'K', '8', '7', 'V', '9',  'Q',  'J', 'Z', '\'', '!',
          '?', '.', '-', '=', '+',  '/', ':', ')', '(', ';', '"', '&',  '@',  '%', '$', '`',  '_',
          '*', '|', '>', '<', '\\', '^', '#', '{', '}', '[', ']', '~'})
        ranks.push_back(c);
    const auto range = [&ranks](int from, int to) {
        for (int c = from; c <= to; ++c)
            if (c != '\b' && c != '\r') ranks.push_back(c);
    };
    range(160, 255);
    range(0, 31);
    range(127, 159);
    return ranks;
}

/// Two zeros side by side stand at the end only, and there they do stand.
bool IsWord(unsigned bits) {
    if ((bits & 3U) != 0) return false;
    while ((bits & 1U) == 0) bits >>= 1U;
    for (; bits > 1; bits >>= 1U)
        if ((bits & 3U) == 0) return false;
    return true;
}

std::array<MfskWord, 256> MakeWords() {
    std::array<MfskWord, 256> words{};
    const std::vector<int> ranks = CharactersByRank();
    std::size_t rank = 0;
    for (int length = 3; length <= longest; ++length)
        for (unsigned bits = 1U << (length - 1); bits < 1U << length; ++bits)
            if (IsWord(bits) && rank < ranks.size())
                words[static_cast<std::size_t>(ranks[rank++])] = {static_cast<std::uint16_t>(bits),
                                                                  static_cast<std::uint8_t>(length)};
    return words;
}

/// Character by the bits of its word; -1 where there is no such word.
const std::array<std::int16_t, 1U << longest>& Characters() {
    static const auto characters = [] {
        std::array<std::int16_t, 1U << longest> made{};
        made.fill(-1);
        for (std::size_t c = 0; c < MfskWords().size(); ++c)
            made[MfskWords()[c].bits] = static_cast<std::int16_t>(c);
        return made;
    }();
    return characters;
}

} // namespace

const std::array<MfskWord, 256>& MfskWords() {
    static const std::array<MfskWord, 256> words = MakeWords();
    return words;
}

std::optional<char> MfskWordReader::Take(bool bit) {
    if (!bit || (bits_ & 3U) != 0 || bits_ == 0) {
        // Noise may run on for ever: one bit beyond the longest word stays set and says "none".
        constexpr std::uint32_t tooLong = 1U << longest;
        bits_ = (bits_ << 1U | (bit ? 1U : 0U)) | (bits_ & tooLong);
        bits_ &= 2 * tooLong - 1;
        return std::nullopt;
    }
    const std::uint32_t word = bits_;
    bits_ = 1;
    if (word >= Characters().size() || Characters()[word] < 0) return std::nullopt;
    return static_cast<char>(static_cast<unsigned char>(Characters()[word]));
}

} // namespace platform::modem
