#include "platform/mmvari/modem/ita2.h"

#include <string_view>

namespace platform::modem {

namespace {

using namespace std::string_view_literals;

/// By code; 0 where a code has no character. The bell rings nowhere.
constexpr std::string_view letters = "\0E\nA SIU\rDRJNFCKTZLWHYPQOBG\0MXV\0"sv;
constexpr std::string_view figures = "\0003\n- \08"
                                     "7\r$4',!:(5\")2#6019?&\0./;\0"sv;
static_assert(letters.size() == 32 && figures.size() == 32);

char Plain(char character) {
    if (character >= 'a' && character <= 'z') return static_cast<char>(character - 'a' + 'A');
    switch (static_cast<unsigned char>(character)) {
    case 0xC5:
    case 0xC4:
    case 0xE5:
    case 0xE4: return 'A';
    case 0xD6:
    case 0xF6: return 'O';
    case 0xC9:
    case 0xE9: return 'E';
    default: return character;
    }
}

} // namespace

std::uint8_t Ita2Encoder::Idle() {
    figures_ = false;
    return ita2Letters;
}

void Ita2Encoder::Encode(char character, std::vector<std::uint8_t>& codes) {
    const char plain = Plain(character);
    if (plain == 0) return;
    if (plain == '\n' && last_ != '\r') Encode('\r', codes);
    const std::size_t letter = letters.find(plain), figure = figures.find(plain);
    if (letter == std::string_view::npos && figure == std::string_view::npos) return;
    last_ = plain;
    const bool either = letter == figure;
    if (!either && figures_ != (letter == std::string_view::npos)) {
        figures_ = !figures_;
        codes.push_back(figures_ ? ita2Figures : ita2Letters);
    }
    codes.push_back(static_cast<std::uint8_t>(figures_ || either ? (either ? letter : figure) : letter));
    if (plain == ' ' && unshift_) figures_ = false;
}

std::optional<char> Ita2Decoder::Decode(std::uint8_t code) {
    if (code == ita2Figures || code == ita2Letters) {
        figures_ = code == ita2Figures;
        return std::nullopt;
    }
    const char character = (figures_ ? figures : letters)[code & 31U];
    if (character == 0) return std::nullopt;
    if (character == ' ' && unshift_) figures_ = false;
    return character;
}

} // namespace platform::modem
