#include "platform/mmvari/modem/mfsk_code.h"
#include "platform/mmvari/modem/mfsk_varicode.h"

#include <cmath>
#include <deque>
#include <numbers>

namespace platform::modem {

namespace {

/// A long word of zeros is none, so that nobody prints it; its leading one ends the word before. Twelve zeros
/// are the least, for the longest word has eleven.
constexpr int leastZeros = 12;
/// While nothing waits: a one now and then, for a lone tone tells a receiver's clock nothing.
constexpr int idleZeros = 31;
/// Symbols of the lowest tone in front, by which others tune and the receiver's AFC gets its fraction.
constexpr int leadSymbols = 16;
/// Words without meaning behind them: the tones begin to move, and clocks fall in before the text comes.
constexpr int leadWords = 2;
/// Zeros behind the last bit that the interleaver has let go: as long as anybody's decoder looks back.
constexpr int flushZeros = 64;
/// Seconds in which the amplitude rises and falls, so that nothing clicks.
constexpr double riseTime = 0.005;

class MfskTransmitter final : public Transmitter {
public:
    explicit MfskTransmitter(const Setup& setup)
        : shape_(MfskShapeOf(setup))
        , encoder_(shape_)
        , carrier_(setup.carrier)
        , rate_(setup.rate)
        , edge_(static_cast<int>(riseTime * setup.rate)) {
        zeros_ = leadSymbols * shape_.bits / 2;
        NextSymbol();
    }

    void Put(char character) override { waiting_.push_back(character); }
    int Waiting() const override { return static_cast<int>(waiting_.size()); }
    void Finish() override { finish_ = true; }
    bool Done() const override { return state_ == State::Silent; }

    void Generate(std::span<float> audio) override {
        for (float& sample : audio) {
            if (state_ == State::Silent) {
                sample = 0;
                continue;
            }
            sample = static_cast<float>(Envelope() * std::sin(2 * std::numbers::pi * turns_));
            Advance();
        }
    }

private:
    enum class State : std::uint8_t { Sending, Ending, Falling, Silent };

    double Envelope() {
        if (state_ == State::Falling) {
            if (--level_ <= 0) state_ = State::Silent;
        } else if (level_ < edge_)
            ++level_;
        return (1 - std::cos(std::numbers::pi * level_ / edge_)) / 2;
    }

    /// One sample on; a symbol's end may lie anywhere between two of them.
    void Advance() {
        double sample = 1;
        while (left_ < sample) {
            turns_ += step_ * left_;
            sample -= left_;
            NextSymbol();
        }
        turns_ += step_ * sample;
        left_ -= sample;
        turns_ -= std::floor(turns_);
    }

    void NextSymbol() {
        left_ = rate_ / shape_.baud;
        if (state_ == State::Falling) return;
        std::optional<unsigned> tone;
        while (!tone && !(state_ == State::Ending && endZeros_ == 0)) tone = encoder_.Take(NextBit());
        if (!tone) {
            state_ = State::Falling;
            return;
        }
        const double above = (*tone - (shape_.Tones() - 1) / 2.0) * shape_.baud;
        step_ = (carrier_ + (shape_.reversed ? -above : above)) / rate_;
    }

    bool NextBit() {
        if (zeros_ > 0) {
            --zeros_;
            // Idling gives way as soon as nobody can take it for a character.
            if (idle_ && !waiting_.empty() && zeros_ <= idleZeros - leastZeros) zeros_ = 0;
            return false;
        }
        if (state_ == State::Ending) {
            --endZeros_;
            return false;
        }
        idle_ = false;
        if (word_.length == 0) NextWord();
        if (word_.length == 0) return true; // the one that begins zeros, which follow
        --word_.length;
        return (word_.bits >> word_.length & 1U) != 0;
    }

    /// What comes when a word has gone out: words without meaning, a character, the ending or an idle word.
    /// The word stays empty for those that are a one and zeros.
    void NextWord() {
        if (leadWords_ > 0) {
            --leadWords_;
            zeros_ = leastZeros;
        } else if (!waiting_.empty()) {
            word_ = MfskWords()[static_cast<unsigned char>(waiting_.front())];
            waiting_.pop_front();
        } else if (finish_) {
            state_ = State::Ending;
            endZeros_ = flushZeros + shape_.Span() * shape_.bits / 2;
        } else {
            idle_ = true;
            zeros_ = idleZeros;
        }
    }

    MfskShape shape_;
    MfskEncoder encoder_;
    double carrier_, rate_;
    int edge_, level_ = 0;
    std::deque<char> waiting_;
    bool finish_ = false;
    State state_ = State::Sending;
    MfskWord word_; ///< what is left of it
    int zeros_ = 0; ///< that come before anything else
    int leadWords_ = leadWords, endZeros_ = 0;
    bool idle_ = false;
    double turns_ = 0, step_ = 0; ///< of the carrier's circle; a sample's part of it
    double left_ = 0;             ///< samples of the symbol
};

} // namespace

std::unique_ptr<Transmitter> MakeMfskTransmitter(const Setup& setup) {
    return std::make_unique<MfskTransmitter>(setup);
}

} // namespace platform::modem
