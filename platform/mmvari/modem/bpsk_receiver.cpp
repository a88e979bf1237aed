#include "platform/mmvari/modem/bpsk.h"
#include "platform/mmvari/modem/psk_demodulator.h"
#include "platform/mmvari/modem/psk_search.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// Samples a symbol at least: so many that a pulse is a smooth row of points and neighbours stay apart.
constexpr double oversampling = 8;
/// In baud, from the carrier: what the AFC follows (30 Hz at 31.25 baud), what is followed without it, and
/// how far a signal may drift away before it counts as lost.
constexpr double afcRange = 1, fixedRange = 0.2, driftRange = 1.25;
/// In baud, how far the carrier may be from what is received, and symbols without a signal behind which that
/// is put right.
constexpr double offCentre = 0.25, patience = 96;
/// In baud: the furthest band of the search and the better part of a signal there.
constexpr double passband = 2.25;
/// Symbols that are kept to be read again when a signal is found: what the search hears, and some more.
constexpr int replayed = 88;
/// Symbols in front of a signal's probable beginning from which it is read.
constexpr int leadIn = 6;
/// Seconds from one search to the next.
constexpr double searchEvery = 0.25;
/// What noise reaches in every few searches; only then is a closer look worth its time.
constexpr double candidate = 0.42;
/// Symbols that a signal must have lasted for that.
constexpr double shortest = 12;
/// A signal half a baud or a whole one beside what is followed replaces it if it is stronger by that, for
/// then it is what one hears of it there; in baud, from where to where that can be.
constexpr double clearlyStronger = 1.12, aliasNear = 0.3, aliasFar = 1.25;
/// While a signal idles, both its tones are as strong as it is itself, half a baud off; the search can tell
/// them apart if there is about as much evidence for what it finds. In baud, and as a part.
constexpr double aliasIdle = 0.75, alike = 0.6;
/// The same signal with another clock replaces it if it is stronger by that, for then the clock has run
/// astray: between the symbols a fifth of the amplitude is missing. In symbols, how far off that must be.
constexpr double stronger = 1.07, clockNear = 0.2;
/// Baseband samples that are taken in at a time, so that nothing depends on the pieces in which audio comes.
constexpr int blockSamples = 2;

class BpskReceiver final : public Receiver {
public:
    explicit BpskReceiver(const Setup& setup);

    void Receive(std::span<const float> audio, std::string& text) override;
    double Carrier() const override { return carrier_; }
    void Carrier(double hertz) override;
    void Afc(bool on) override { afc_ = on; }
    void Squelch(bool on) override { squelch_ = on; }
    Sync Now() const override;

private:
    void TakeBlock(std::string& text);
    void Print(std::string& text);
    /// Reads what is kept of the strongest signal within a range: a demodulator that is at its end, and
    /// reread_.
    /// @param read to which characters have been put out already
    std::optional<PskDemodulator> Other(double turn, double range, double read);
    /// Follows a signal that is found where none was.
    void Search();
    /// A signal is about to be read. An idle one looks alike half a baud beside its carrier, where its clock
    /// does not show.
    void Confirm(double read);
    /// Does a signal that is read turn out to lie beside where it was thought to be, in frequency or time?
    void CheckPlace();
    PskDemodulator Demodulator(double moment, double turn, double read = 0) const;
    /// Moves what is received to the carrier, and forgets what was heard.
    void Retune();
    /// Radians a sample of the baseband, and back.
    double Turn(double hertz) const { return 2 * std::numbers::pi * hertz / down_.Rate(); }
    double Hertz(double turn) const { return turn * down_.Rate() / (2 * std::numbers::pi); }
    bool IsNear(double turn) const { return std::abs(turn - demodulator_.Turn()) < Turn(aliasNear * baud_); }
    double Range() const { return (afc_ ? afcRange : fixedRange) * baud_; }

    double baud_, carrier_;
    std::pair<double, double> limits_; ///< of the carrier, as far as a signal may take it
    bool afc_ = false, squelch_ = true;
    Downconverter down_;
    double symbol_; ///< baseband samples
    PskSamples samples_;
    PskSearch search_;
    PskDemodulator demodulator_;
    std::vector<float> block_;
    std::string fresh_, reread_;  ///< text of a block, and of what is read again
    std::size_t blockLength_;     ///< audio samples
    std::int64_t nextSearch_ = 0; ///< number of a baseband sample
    std::int64_t lockedTill_ = 0; ///< likewise
    bool locked_ = false;
    bool begun_ = false; ///< something of the signal was put out
};

BpskReceiver::BpskReceiver(const Setup& setup)
    : baud_(setup.baud)
    , carrier_(setup.carrier)
    , limits_(CarrierRange(setup))
    , down_(setup.rate, setup.carrier, passband * setup.baud, oversampling * setup.baud)
    , symbol_(down_.Rate() / setup.baud)
    , samples_(static_cast<std::size_t>((replayed + 4) * symbol_))
    , search_(symbol_)
    , demodulator_(Demodulator(symbol_ + 1, 0))
    , blockLength_(static_cast<std::size_t>(std::lround(setup.rate / down_.Rate())) * blockSamples) {
    block_.reserve(blockLength_);
}

PskDemodulator BpskReceiver::Demodulator(double moment, double turn, double read) const {
    const double range = Turn((afc_ ? driftRange : fixedRange * driftRange) * baud_);
    return PskDemodulator(symbol_, {.moment = moment,
                                    .turn = turn,
                                    .lowest = std::min(turn, Turn(carrier_ - down_.Carrier()) - range),
                                    .highest = std::max(turn, Turn(carrier_ - down_.Carrier()) + range),
                                    .read = read});
}

void BpskReceiver::Carrier(double hertz) {
    carrier_ = hertz;
    Retune();
}

void BpskReceiver::Retune() {
    down_.Carrier(carrier_);
    samples_.Clear();
    search_.Clear(samples_.End());
    demodulator_ = Demodulator(static_cast<double>(samples_.End()) + symbol_ + 1, 0);
    locked_ = false;
}

void BpskReceiver::Receive(std::span<const float> audio, std::string& text) {
    while (!audio.empty()) {
        const std::size_t take = std::min(audio.size(), blockLength_ - block_.size());
        block_.insert(block_.end(), audio.begin(), audio.begin() + static_cast<std::ptrdiff_t>(take));
        audio = audio.subspan(take);
        if (block_.size() == blockLength_) TakeBlock(text);
    }
}

void BpskReceiver::TakeBlock(std::string& text) {
    down_.Process(block_, samples_.Incoming());
    block_.clear();
    search_.Advance(samples_);
    const double read = demodulator_.Read();
    fresh_.clear();
    demodulator_.Advance(samples_, squelch_, fresh_);
    if (demodulator_.Evidence().Open()) {
        if (!locked_) Confirm(read);
        if (afc_ && !demodulator_.Evidence().Ended(0))
            carrier_ =
                std::clamp(down_.Carrier() + Hertz(demodulator_.Turn()), limits_.first, limits_.second);
        lockedTill_ = samples_.End();
    } else {
        locked_ = false;
        // The next one may lie further on the same side; but this one may come back.
        if (std::abs(carrier_ - down_.Carrier()) > offCentre * baud_ &&
            static_cast<double>(samples_.End() - lockedTill_) > patience * symbol_)
            Retune();
    }
    if (samples_.End() >= nextSearch_) {
        nextSearch_ = samples_.End() + static_cast<std::int64_t>(searchEvery * down_.Rate());
        locked_ ? CheckPlace() : Search();
    }
    Print(text);
    samples_.Trim();
}

/// The shortest word is that of the blank, so that it is what noise in front of a signal mostly looks like. A
/// text does not begin with one.
void BpskReceiver::Print(std::string& text) {
    if (squelch_ && !begun_) fresh_.erase(0, fresh_.find_first_not_of(' '));
    if (!locked_) begun_ = false;
    if (!fresh_.empty()) begun_ = true;
    text += fresh_;
}

std::optional<PskDemodulator> BpskReceiver::Other(double turn, double range, double read) {
    const auto found = search_.Strongest(turn, range);
    if (!found || found->coherence < candidate) return std::nullopt;
    if (static_cast<double>(samples_.End()) - found->begin < shortest * symbol_) return std::nullopt;
    if (!afc_ && std::abs(found->turn - Turn(carrier_ - down_.Carrier())) > Turn(fixedRange * baud_))
        return std::nullopt;
    const double late = std::remainder((found->moment - demodulator_.Moment()) / symbol_, 1.0);
    if (locked_ && IsNear(found->turn) && std::abs(late) < clockNear) return std::nullopt;
    // Read again what the search has heard, with what it has found: from its beginning, for noise would lead
    // the loops astray.
    const double oldest = static_cast<double>(samples_.Begin()) + symbol_ + 1;
    const double begin = std::max(oldest, found->begin - leadIn * symbol_);
    const double moment = found->moment - std::floor((found->moment - begin) / symbol_) * symbol_;
    std::optional<PskDemodulator> other = Demodulator(moment, found->turn, read);
    reread_.clear();
    other->Advance(samples_, squelch_, reread_);
    // What is left of a signal that has ended just now lies anywhere.
    if (other->Evidence().Ended(0)) return std::nullopt;
    return other;
}

void BpskReceiver::Search() {
    const auto other = Other(Turn(carrier_ - down_.Carrier()), Turn(Range()), demodulator_.Read());
    if (!other || other->Evidence().Sum() <= demodulator_.Evidence().Sum()) return;
    demodulator_ = *other;
    fresh_ += reread_;
}

void BpskReceiver::Confirm(double read) {
    locked_ = true;
    const auto other = Other(demodulator_.Turn(), Turn(aliasFar * baud_), read);
    if (!other || IsNear(other->Turn())) return;
    const bool beside = std::abs(other->Turn() - demodulator_.Turn()) < Turn(aliasIdle * baud_);
    if (!beside && other->Strength() < clearlyStronger * demodulator_.Strength()) return;
    if (other->Evidence().Sum() < alike * demodulator_.Evidence().Sum()) return;
    // It may have begun too late to be open yet.
    demodulator_ = *other;
    fresh_ = reread_;
    locked_ = other->Evidence().Open();
}

void BpskReceiver::CheckPlace() {
    const auto other = Other(demodulator_.Turn(), Turn(aliasFar * baud_), demodulator_.Read());
    if (!other || !other->Evidence().Open()) return;
    if (IsNear(other->Turn())) {
        if (other->Amplitude() > stronger * demodulator_.Amplitude()) demodulator_ = *other;
    } else if (other->Strength() > clearlyStronger * demodulator_.Strength()) {
        demodulator_ = *other;
        fresh_ += reread_;
    }
}

Sync BpskReceiver::Now() const {
    Sync sync;
    demodulator_.Points(sync.points);
    sync.quality = demodulator_.Evidence().Quality();
    return sync;
}

} // namespace

std::unique_ptr<Receiver> MakeBpskReceiver(const Setup& setup) {
    return std::make_unique<BpskReceiver>(setup);
}

} // namespace platform::modem
