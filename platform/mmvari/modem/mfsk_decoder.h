#pragma once

#include "platform/mmvari/modem/mfsk_varicode.h"
#include "platform/mmvari/modem/mfsk_viterbi.h"

#include <string>

namespace platform::modem {

/// Soft bits of symbols to characters: deinterleaver, decoder, words. Decided characters are held until there
/// is evidence that somebody sent them.
class MfskDecoder {
public:
    /// @param odd where a symbol has an odd number of bits, every other one begins with the second bit of a
    /// pair: which ones is a guess
    MfskDecoder(const MfskShape& shape, bool odd);

    /// @param bits ln(P(0)/P(1)) of a symbol's bits
    void Take(std::span<const float> bits);

    /// By how much this guess fits better than another, in bits, for the last two seconds and for the last
    /// six, whichever is less: some lone tones fit more than one guess, what was sent before them does not.
    float Better(const MfskDecoder& than) const;
    /// 0 noise, 1 a signal without a flaw.
    double Quality() const;
    /// What was decoded last was a signal.
    bool Hears() const;
    /// Moves the characters that are to be printed. @param all also those without evidence
    void Release(std::string& text, bool all);

private:
    struct Held {
        char character;
        std::int64_t step; ///< when it was decided
    };
    void Step(float first, float second);
    void Prune();
    bool Believable(const Held& held) const;
    /// It may be the first of a signal.
    bool Begins(const Held& held) const;

    MfskShape shape_;
    std::vector<float> ring_; ///< soft bits of the last symbols
    std::size_t newest_ = 0;
    std::optional<float> half_; ///< first code bit of a pair
    MfskViterbi viterbi_;
    MfskWordReader words_;
    std::vector<Held> held_;
    std::int64_t released_; ///< step of the character released last
};

} // namespace platform::modem
