#pragma once

#include <cstdint>
#include <optional>
#include <vector>

/// International telegraph alphabet No. 2 as radio amateurs use it: five bits, letters and figures, with the
/// American figures (CCITT F.1 leaves some of them to each country).
namespace platform::modem {

inline constexpr std::uint8_t ita2Letters = 31, ita2Figures = 27, ita2Space = 4;

/// Characters to codes, with a shift wherever the other case is needed.
class Ita2Encoder {
public:
    /// A space goes back to letters by itself, at both ends.
    void UnshiftOnSpace(bool on) { unshift_ = on; }
    /// The letters' shift: what is sent while there is nothing to send.
    std::uint8_t Idle();
    /// @param codes the character's are put behind what it holds, none if the alphabet does not have it. A
    /// line feed brings its carriage return along; Å and Ä go as A, Ö as O, É as E
    void Encode(char character, std::vector<std::uint8_t>& codes);

private:
    bool unshift_ = true;
    bool figures_ = false;
    char last_ = 0;
};

class Ita2Decoder {
public:
    void UnshiftOnSpace(bool on) { unshift_ = on; }
    /// @param code 0 to 31
    /// @return nothing for a shift, a blank tape, the bell and the codes without a meaning
    std::optional<char> Decode(std::uint8_t code);
    /// Another station begins with letters.
    void Reset() { figures_ = false; }

private:
    bool unshift_ = true;
    bool figures_ = false;
};

} // namespace platform::modem
