#include "platform/mmvari/modem/ita2.h"
#include "platform/mmvari/modem/rtty.h"
#include "platform/mmvari/modem/rtty_tones.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <numbers>

namespace platform::modem {

namespace {

/// Steady mark before and behind, so that the other end's receiver has settled before the first start bit.
constexpr double leadBits = 8;
/// The key goes down and up softly: a hard edge would be heard far beside the signal.
constexpr double rampSeconds = 0.004;

class RttyTransmitter final : public Transmitter {
public:
    explicit RttyTransmitter(const Setup& setup)
        : rate_(setup.rate)
        , bit_(setup.rate / setup.baud)
        , mark_(setup.carrier)
        , space_(SpaceTone(setup)) {
        Tone(true, leadBits);
        codes_ = {encoder_.Idle(), encoder_.Idle()};
    }

    void Put(char character) override { text_.push_back(character); }
    int Waiting() const override { return static_cast<int>(text_.size()); }
    void Finish() override { finishing_ = true; }
    bool Done() const override { return done_; }
    void UnshiftOnSpace(bool on) override { encoder_.UnshiftOnSpace(on); }

    void Generate(std::span<float> audio) override {
        for (float& sample : audio) sample = Next();
    }

private:
    struct Piece {
        bool mark;
        double samples;
    };

    void Tone(bool mark, double bits) { pieces_.push_back({mark, bits * bit_}); }

    /// A character as it goes out: a start bit, five bits with the lowest first, one and a half stop bits.
    void Frame(std::uint8_t code) {
        Tone(false, 1);
        for (int i = 0; i < 5; ++i) Tone((code >> i & 1) != 0, 1);
        Tone(true, 1.5);
    }

    void Refill() {
        while (codes_.empty() && !text_.empty()) {
            std::vector<std::uint8_t> codes;
            encoder_.Encode(text_.front(), codes);
            text_.pop_front();
            codes_.assign(codes.begin(), codes.end());
        }
        if (codes_.empty() && finishing_) {
            if (!ended_) Tone(true, leadBits);
            ended_ = true;
            return;
        }
        if (codes_.empty()) codes_.push_back(encoder_.Idle());
        Frame(codes_.front());
        codes_.pop_front();
    }

    float Next() {
        while (!done_ && !pieces_.empty() && pieces_.front().samples < 0.5) {
            // What is left of a sample belongs to the next piece: bits are no whole number of samples long.
            const double rest = pieces_.front().samples;
            pieces_.pop_front();
            if (pieces_.empty()) Refill();
            if (pieces_.empty())
                done_ = true;
            else
                pieces_.front().samples += rest;
        }
        if (done_) return 0;
        Piece& piece = pieces_.front();
        piece.samples -= 1;
        phase_ += (piece.mark ? mark_ : space_) / rate_;
        phase_ -= std::floor(phase_);
        const bool last = ended_ && pieces_.size() == 1;
        gain_ = std::clamp(last ? std::min(1.0, piece.samples / (rampSeconds * rate_))
                                : gain_ + 1 / (rampSeconds * rate_),
                           0.0, 1.0);
        return static_cast<float>(gain_ * std::sin(2 * std::numbers::pi * phase_));
    }

    double rate_, bit_, mark_, space_;
    Ita2Encoder encoder_;
    std::deque<char> text_;
    std::deque<std::uint8_t> codes_;
    std::deque<Piece> pieces_;
    double phase_ = 0, gain_ = 0;
    bool finishing_ = false, ended_ = false, done_ = false;
};

} // namespace

std::unique_ptr<Transmitter> MakeRttyTransmitter(const Setup& setup) {
    return std::make_unique<RttyTransmitter>(setup);
}

} // namespace platform::modem
