#include "platform/mmvari/modem/bpsk.h"
#include "platform/mmvari/modem/bpsk_varicode.h"

#include <bit>
#include <cmath>
#include <complex>
#include <deque>
#include <numbers>

namespace platform::modem {

namespace {

/// Reversals before the text: a second at 31.25 baud in which the other side finds carrier and clock.
constexpr int preambleBits = 32;
/// Steady carrier behind the text, which no receiver takes for characters.
constexpr int postambleBits = 32;
/// Two zeros part the characters.
constexpr unsigned gapBits = 2;

/// Each symbol is a pulse of two symbols' length, half a raised cosine up and half one down, so that the
/// amplitude goes through zero where the phase reverses and stays where it does not.
class BpskTransmitter final : public Transmitter {
public:
    explicit BpskTransmitter(const Setup& setup)
        : step_(setup.baud / setup.rate)
        , turn_(std::polar(1.0, 2 * std::numbers::pi * setup.carrier / setup.rate)) {}

    void Put(char character) override { waiting_.push_back(character); }
    int Waiting() const override { return static_cast<int>(waiting_.size()); }
    void Finish() override { finishing_ = true; }
    bool Done() const override { return done_; }
    void Generate(std::span<float> audio) override;

private:
    /// From the middle of one symbol to that of the next.
    void NextSymbol();
    bool NextBit();

    double step_;                           ///< symbols a sample
    std::complex<double> turn_, phase_ = 1; ///< the carrier
    double place_ = 0;                      ///< between two symbols' middles, 0 to 1
    double from_ = 0, to_ = 1; ///< their amplitudes: 1, -1, or 0 before the first and behind the last
    std::deque<char> waiting_;
    unsigned word_ = 0; ///< bits still to go out of a character and its gap
    unsigned bits_ = 0; ///< their number
    int preamble_ = preambleBits, postamble_ = postambleBits;
    bool finishing_ = false, done_ = false;
};

bool BpskTransmitter::NextBit() {
    if (preamble_ > 0) {
        --preamble_;
        return false;
    }
    if (bits_ == 0 && !waiting_.empty()) {
        const unsigned word = VaricodeWord(waiting_.front());
        waiting_.pop_front();
        word_ = word << gapBits;
        bits_ = static_cast<unsigned>(std::bit_width(word)) + gapBits;
    }
    if (bits_ > 0) return (word_ >> --bits_ & 1U) != 0;
    if (!finishing_) return false;
    --postamble_;
    return true;
}

void BpskTransmitter::NextSymbol() {
    from_ = to_;
    if (postamble_ == 0) {
        done_ = from_ == 0;
        to_ = 0;
        return;
    }
    if (!NextBit()) to_ = -to_;
}

void BpskTransmitter::Generate(std::span<float> audio) {
    for (float& sample : audio) {
        if (done_) {
            sample = 0;
            continue;
        }
        const double rising = (1 - std::cos(std::numbers::pi * place_)) / 2;
        sample = static_cast<float>((from_ + (to_ - from_) * rising) * phase_.imag());
        phase_ *= turn_;
        place_ += step_;
        if (place_ >= 1) {
            place_ -= 1;
            phase_ /= std::abs(phase_);
            NextSymbol();
        }
    }
}

} // namespace

std::unique_ptr<Transmitter> MakeBpskTransmitter(const Setup& setup) {
    return std::make_unique<BpskTransmitter>(setup);
}

} // namespace platform::modem
