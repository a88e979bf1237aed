#include "platform/mmvari/modem/mfsk_decoder.h"

#include <algorithm>

namespace platform::modem {

namespace {

/// Bits of evidence with which a character is believed. Noise loses a quarter of a bit a step, and in an hour
/// of it no stretch of 48 steps gets above 0; a signal with every tenth character wrong gains a quarter of a
/// bit.
constexpr float enoughEvidence = 2;
/// Evidence with which it is also sure whose signal it is: guesses that are some tones off find a little in a
/// lone tone at its beginning and end.
constexpr float sureEvidence = 12;
/// Where a signal begins and ends the interleaver mixes it with noise, and the decoder makes characters of
/// that. What has less than these parts of the evidence before it, and of that behind it, does not belong to
/// the signal.
constexpr float partOfBefore = 0.25F, partOfBehind = 0.4F;
/// Steps for which a character waits for evidence: most need none, those in a fade or a burst of errors do.
constexpr int patientSteps = 96;
/// Steps over which guesses are compared.
constexpr int recentSteps = 64, longerSteps = 192;
/// Steps that a character itself is long.
constexpr int wordLength = 10;

/// Of the control characters, those that move the cursor or take back.
bool MfskPrintable(char character) {
    const auto c = static_cast<unsigned char>(character);
    return (c >= 32 && c != 127) || c == '\r' || c == '\n' || c == '\b';
}

} // namespace

MfskDecoder::MfskDecoder(const MfskShape& shape, bool odd)
    : shape_(shape)
    , ring_(static_cast<std::size_t>((shape.Span() + 1) * shape.bits)) {
    if (odd) half_ = 0.0F;
    held_.reserve(patientSteps);
    released_ = -patientSteps;
}

void MfskDecoder::Take(std::span<const float> bits) {
    const auto width = static_cast<std::size_t>(shape_.bits);
    const std::size_t symbols = ring_.size() / width;
    newest_ = (newest_ + 1) % symbols;
    std::ranges::copy(bits, ring_.begin() + static_cast<std::ptrdiff_t>(newest_ * width));
    // The oldest symbol's first bit was sent along with later bits of those before it: they come one depth
    // apart.
    for (std::size_t bit = 0; bit < width; ++bit) {
        const std::size_t symbol = (newest_ + 1 + bit * static_cast<std::size_t>(shape_.depth)) % symbols;
        const float soft = ring_[symbol * width + bit];
        if (half_) {
            Step(*half_, soft);
            half_.reset();
        } else
            half_ = soft;
    }
}

void MfskDecoder::Step(float first, float second) {
    const auto character = words_.Take(viterbi_.Take(first, second));
    Prune();
    if (character && MfskPrintable(*character)) held_.push_back({*character, viterbi_.Steps()});
}

void MfskDecoder::Prune() {
    while (!held_.empty() && held_.front().step + patientSteps < viterbi_.Steps()) held_.erase(held_.begin());
}

bool MfskDecoder::Believable(const Held& held) const {
    const auto age = static_cast<int>(viterbi_.Steps() - held.step);
    constexpr int window = MfskViterbi::lookBack + wordLength; // from the character's first bit on
    const float before = viterbi_.Evidence(window, age + window);
    return viterbi_.Evidence(window, age) > std::max(enoughEvidence, partOfBefore * before);
}

float MfskDecoder::Better(const MfskDecoder& than) const {
    return std::min(viterbi_.Evidence(recentSteps) - than.viterbi_.Evidence(recentSteps),
                    viterbi_.Evidence(longerSteps) - than.viterbi_.Evidence(longerSteps));
}

bool MfskDecoder::Hears() const {
    constexpr int half = (MfskViterbi::lookBack + wordLength) / 2;
    return viterbi_.Evidence(half) > enoughEvidence && viterbi_.Evidence(recentSteps) > sureEvidence;
}

// Idling goes before each text: a signal that is only just there makes no character yet.
bool MfskDecoder::Begins(const Held& held) const {
    const auto age = static_cast<int>(viterbi_.Steps() - held.step);
    constexpr int half = (MfskViterbi::lookBack + wordLength) / 2;
    const float behind = viterbi_.Evidence(half, age), own = viterbi_.Evidence(half, age + half);
    return viterbi_.Evidence(half, age + 2 * half) > 0 && own > std::max(0.0F, partOfBehind * behind);
}

void MfskDecoder::Release(std::string& text, bool all) {
    std::size_t begin = 0, end = held_.size();
    if (!all) {
        while (end > 0 && !Believable(held_[end - 1])) --end;
        // Order matters: what waits in front of a believed character comes with it if it goes on from the one
        // released last, and else from where the signal began.
        const bool goesOn = end > 0 && released_ + patientSteps >= held_[0].step;
        if (!goesOn)
            while (begin < end && !(Believable(held_[begin]) && Begins(held_[begin]))) ++begin;
    }
    if (begin == end) return;
    for (std::size_t i = begin; i < end; ++i) text += held_[i].character;
    released_ = held_[end - 1].step;
    held_.erase(held_.begin(), held_.begin() + static_cast<std::ptrdiff_t>(end));
}

double MfskDecoder::Quality() const {
    return std::clamp(static_cast<double>(viterbi_.Evidence(MfskViterbi::lookBack)) / MfskViterbi::lookBack,
                      0.0, 1.0);
}

} // namespace platform::modem
