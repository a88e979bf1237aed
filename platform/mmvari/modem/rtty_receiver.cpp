#include "platform/mmvari/modem/blocks.h"
#include "platform/mmvari/modem/evidence.h"
#include "platform/mmvari/modem/ita2.h"
#include "platform/mmvari/modem/likelihood.h"
#include "platform/mmvari/modem/rtty.h"
#include "platform/mmvari/modem/rtty_afc.h"
#include "platform/mmvari/modem/rtty_framing.h"
#include "platform/mmvari/modem/rtty_levels.h"
#include "platform/mmvari/modem/rtty_tones.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// Hz around the middle of the tones that the receiver hears: the tones, their keying and what AFC looks at.
constexpr double rttyPassband = 350, rttyLeastRate = 1500;

/// AFC has its say between pieces of this length.
constexpr double blockSeconds = 0.01;

/// The squelch: noise gets less than -3 a character on the average, a signal of which a tenth comes through
/// wrong gets 3. Thirteen and a half are two good characters, and noise makes them less than once in an hour.
constexpr double enough = 13.5, most = 16, sure = 3, noiseRatio = 1;

/// Hz from the place it was tuned to that AFC goes at most: further out lies somebody else.
constexpr double rttyAfcRange = 60;
/// Hz from which on a search beats following, for it is itself right to one or two: with a signal in the ear
/// only what would spoil it, a quarter of a baud.
constexpr double nearOff = 3, farOff = 10;
/// A signal that is read is left for a place that is so much stronger, 1.5 dB: what is read from a third of a
/// baud beside its own place is so much weaker there.
constexpr double muchStronger = 1.4;
/// Part of a character's error by which AFC follows: a drift of 20 Hz a minute then lags by 0.8 Hz, and noise
/// leaves as much. More for the first ones behind a jump, which leaves some Hz: of them a tenth is left then.
constexpr double slowGain = 0.07, quickGain = 0.25;
constexpr int settlingCharacters = 8;
/// Bits in the view of the receiver at work.
constexpr std::size_t shownBits = 64;

class RttyReceiver final : public Receiver {
public:
    explicit RttyReceiver(const Setup& setup)
        : side_(SpaceSide(setup.mode))
        , middle_(setup.carrier + side_ * rttyShift / 2)
        , blocks_(static_cast<std::size_t>(setup.rate * blockSeconds))
        , down_(setup.rate, middle_, rttyPassband, rttyLeastRate)
        , bit_(down_.Rate() / setup.baud)
        , mark_(down_.Rate(), -side_ * rttyShift / 2, Kept())
        , space_(down_.Rate(), side_ * rttyShift / 2, Kept())
        , pair_(down_.Rate(), setup.baud, -rttyShift / 2, rttyShift / 2)
        , baud_(setup.baud)
        , limits_(CarrierRange(setup))
        , set_(setup.carrier) {}

    void Receive(std::span<const float> audio, std::string& text) override {
        blocks_.Push(audio, [&](std::span<const float> block) { Take(block, text); });
    }

    double Carrier() const override {
        // What was set comes back to the last bit.
        return std::clamp(set_ + (down_.Carrier() - tuned_), std::min(set_, limits_.first),
                          std::max(set_, limits_.second));
    }
    void Carrier(double hertz) override {
        set_ = hertz;
        tuned_ = hertz + side_ * rttyShift / 2;
        down_.Carrier(tuned_);
        Forget();
    }
    void Afc(bool on) override {
        if (on && !afc_) pair_.Reset(); // what it saw before is long ago
        afc_ = on;
    }
    void Squelch(bool on) override { evidence_.On(on); }
    void Atc(bool on) override { levels_.Separate(atc_ = on); }
    void UnshiftOnSpace(bool on) override { decoder_.UnshiftOnSpace(on); }
    Sync Now() const override {
        return {.points = points_, .quality = std::clamp(evidence_.Sum() / most, 0.0, 1.0)};
    }

private:
    static constexpr std::uint64_t hops = 2048;

    std::size_t Kept() const { return static_cast<std::size_t>(bit_ * hops / hopsPerBit); }
    double Begin(std::uint64_t step) const { return static_cast<double>(step) * bit_ / hopsPerBit; }
    double End(std::uint64_t step) const { return Begin(step) + bit_; }

    /// Begins afresh: half a character and the levels of another signal would be read into this one.
    void Forget() {
        mark_.Reset();
        space_.Reset();
        next_ = 0;
        ended_.reset();
        levels_ = ToneLevels();
        levels_.Separate(atc_);
        search_ = FrameSearch();
        pair_.Reset();
        evidence_.Reset();
        decoder_.Reset();
        settling_ = 0;
        points_.clear();
    }

    void Take(std::span<const float> block, std::string& text) {
        baseband_.clear();
        down_.Process(block, baseband_);
        for (const Complex& sample : baseband_) {
            mark_.Push(sample);
            space_.Push(sample);
            while (End(next_) <= static_cast<double>(mark_.Count())) Step(text);
        }
        if (afc_) Search();
    }

    /// One more place at which a bit may begin.
    void Step(std::string& text) {
        const BitEnergy energy = EnergyAt(static_cast<double>(next_++));
        if (levels_.Hear(energy) && evidence_.Believed() && next_ >= ToneLevels::fallSteps) {
            ended_ = next_ - ToneLevels::fallSteps;
            pair_.Reset();
        }
        starts_.clear();
        search_.Push(levels_.MarkRatio(energy), starts_);
        for (const double start : starts_) Character(start, text);
    }

    /// What the bit that begins at a place holds; places are counted in steps and need not be whole.
    BitEnergy EnergyAt(double step) const {
        const double from = step * bit_ / hopsPerBit, to = from + bit_;
        return {std::norm(mark_.Between(from, to)) / (bit_ * bit_),
                std::norm(space_.Between(from, to)) / (bit_ * bit_)};
    }

    void Character(double start, std::string& text) {
        // A signal that has ended does not speak for what follows it.
        if (ended_ && start >= static_cast<double>(*ended_)) {
            evidence_.Doubt();
            ended_.reset();
        }
        std::array<BitEnergy, 7> bits;
        std::uint8_t code = 0;
        for (std::size_t i = 0; i < bits.size(); ++i) {
            bits[i] = EnergyAt(start + static_cast<double>(i * hopsPerBit));
            Show(bits[i]);
            if (i >= 1 && i <= 5 && levels_.MarkRatio(bits[i]) > 0)
                code |= static_cast<std::uint8_t>(1U << (i - 1));
        }
        const double ratio = SignalRatio(bits);
        evidence_.Weigh(ratio - noiseRatio);
        levels_.Learn(bits, 1 / (1 + std::exp(-std::clamp(ratio, -30.0, 30.0))));
        // Noise behind the end of a signal, or with the squelch off, must not lead away.
        if (afc_ && ratio - noiseRatio >= sure) Follow(start, code);
        if (const auto character = decoder_.Decode(code)) evidence_.Print(*character, text);
    }

    /// The last bits as the eye wants them: all mark is 1, all space -1.
    void Show(const BitEnergy& bit) {
        const double mark = std::sqrt(bit.mark), space = std::sqrt(bit.space);
        if (points_.size() == shownBits) points_.erase(points_.begin());
        points_.push_back(static_cast<float>((mark - space) / std::max(mark + space, 1e-30)));
    }

    /// A signal beside the carrier: go there at once.
    void Search() {
        pair_.Push(baseband_);
        const auto offset = pair_.Offset(evidence_.Believed() ? muchStronger : 1);
        if (!offset || std::abs(*offset) < (evidence_.Believed() ? farOff : nearOff)) return;
        if (std::abs(down_.Carrier() + *offset - tuned_) > rttyAfcRange) return;
        Tune(*offset);
        pair_.Reset();
        settling_ = settlingCharacters;
    }

    /// A character that was read tells how far its tones are off: between the halves of a bit their phase
    /// turns by half a bit's worth of the error.
    void Follow(double start, std::uint8_t code) {
        if (!evidence_.Believed() || pair_.Beside()) return;
        std::complex<double> turn;
        for (int i = 0; i < 7; ++i) {
            const bool mark = i == 6 || (i > 0 && (code >> (i - 1) & 1) != 0);
            const ToneIntegral& tone = mark ? mark_ : space_;
            const double from = (start + i * hopsPerBit) * bit_ / hopsPerBit;
            turn +=
                std::conj(tone.Between(from, from + bit_ / 2)) * tone.Between(from + bit_ / 2, from + bit_);
        }
        const double error = std::arg(turn) * baud_ / std::numbers::pi;
        Tune(error * (settling_ > 0 ? quickGain : slowGain));
        if (settling_ > 0) --settling_;
    }

    void Tune(double hertz) {
        // Where the operator tunes is his own affair, even beyond what the audio holds.
        const double low = std::min(tuned_, std::max(tuned_ - rttyAfcRange, tuned_ + limits_.first - set_));
        const double high = std::max(tuned_, std::min(tuned_ + rttyAfcRange, tuned_ + limits_.second - set_));
        down_.Carrier(std::clamp(down_.Carrier() + hertz, low, high));
    }

    double side_, middle_;
    Blocks blocks_;
    Downconverter down_;
    double bit_; ///< samples
    ToneIntegral mark_, space_;
    std::vector<Complex> baseband_;
    std::vector<double> starts_;
    std::uint64_t next_ = 0;             ///< step at which the next bit may begin
    std::optional<std::uint64_t> ended_; ///< behind it lies nothing of the signal before
    ToneLevels levels_;
    FrameSearch search_;
    Evidence evidence_{enough, most, sure};
    Ita2Decoder decoder_;
    TonePairSearch pair_;
    double baud_;
    std::pair<double, double> limits_; ///< of the carrier, as far as a signal may take it
    double set_;                       ///< the carrier where the operator left it
    double tuned_ = middle_;           ///< where the operator left the middle
    int settling_ = 0;                 ///< characters for which AFC is quick
    bool afc_ = false, atc_ = false;
    std::vector<float> points_;
};

} // namespace

std::unique_ptr<Receiver> MakeRttyReceiver(const Setup& setup) {
    return std::make_unique<RttyReceiver>(setup);
}

} // namespace platform::modem
