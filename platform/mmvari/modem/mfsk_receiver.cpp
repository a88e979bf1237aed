#include "platform/mmvari/modem/likelihood.h"
#include "platform/mmvari/modem/mfsk_bank.h"
#include "platform/mmvari/modem/mfsk_correlator.h"
#include "platform/mmvari/modem/mfsk_decoder.h"
#include "platform/mmvari/modem/mfsk_soft.h"
#include "platform/mmvari/modem/mfsk_tracker.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numbers>

namespace platform::modem {

namespace {

/// Hz by which a signal may be off with AFC on, to be found. The search looks at whole tones, and so somewhat
/// further; a signal found there is read, but the carrier stays. One that was found inside and drifts out is
/// followed, by steps of so many tone distances at most.
constexpr double afcRange = 25, afcSlack = 0.25;
/// Bins that the bank has in a tone's distance.
constexpr int binsBetween = MfskTracker::fractions;
/// What a symbol can say about clock and frequency at most, so that a crash does not outweigh the others.
constexpr float mostLog = 16;
/// To the search a signal is never more above the noise than this: sharper it would not become.
constexpr float searchRatio = 10;
/// The clock takes this part of its error away with each symbol, the frequency that part.
constexpr double clockGain = 0.25, tuneGain = 1.0 / 32;
/// The strength by which the frequency's error is measured is averaged with this.
constexpr float turnGain = 1.0F / 20;
/// An error so large, in symbols and tone distances, is none of jitter; it must last for some symbols.
constexpr double clockJump = 0.2, tuneJump = 0.25;
constexpr int jumpAfter = 3;
/// Symbols over which the carrier that is told is averaged.
constexpr double tellMemory = 32;
/// Bits by which another guess must fit better before it takes over.
constexpr float changeOver = 8;
/// Symbols that the view of the receiver at work shows.
constexpr std::size_t pointsShown = 64;

double WrapTurns(double turns) { return turns - std::round(turns); }

class MfskReceiver final : public Receiver {
public:
    explicit MfskReceiver(const Setup& setup)
        : shape_(MfskShapeOf(setup))
        , rate_(setup.rate)
        , limits_(CarrierRange(setup))
        , shifts_(static_cast<int>(std::ceil(afcRange / shape_.baud)))
        , tones_(shape_.Tones() + 2 * shifts_)
        , down_(setup.rate, setup.carrier, Half() * shape_.baud, 5 * Half() * shape_.baud)
        , symbol_(down_.Rate() / shape_.baud)
        , energies_(static_cast<std::size_t>(tones_ * binsBetween))
        , logs_(static_cast<std::size_t>(MfskTracker::fractions * MfskTracker::phases))
        , bits_(static_cast<std::size_t>(shape_.bits)) {
        tuned_ = told_ = setup.carrier;
        Forget();
    }

    void Receive(std::span<const float> audio, std::string& text) override {
        const std::size_t old = samples_.size();
        down_.Process(audio, samples_);
        if (shape_.reversed)
            for (std::size_t i = old; i < samples_.size(); ++i) samples_[i] = std::conj(samples_[i]);
        for (int needs = bank_->Needs(); hopAt_ + needs <= End(); needs = bank_->Needs()) {
            bank_->Take(Sample(hopAt_), energies_);
            hopAt_ += needs;
            Search();
            // The decision waits for the search's hop, so that pieces of any length give the same.
            while (static_cast<std::int64_t>(begin_) + Reach() <= hopAt_) Decide(text);
        }
        Drop();
    }

    double Carrier() const override { return told_; }
    void Carrier(double hertz) override {
        tuned_ = told_ = std::clamp(hertz, MfskLowestCarrier(shape_), MfskHighestCarrier(shape_, rate_));
        down_.Carrier(tuned_);
        Forget();
    }
    void Afc(bool on) override {
        if (afc_ == on) return;
        afc_ = on;
        Carrier(told_);
    }
    void Squelch(bool on) override { squelch_ = on; }
    Sync Now() const override { return {.points = points_, .quality = decoders_[current_].Quality()}; }

private:
    /// Tone distances from the carrier to where nothing counts any more.
    double Half() const { return shape_.Tones() / 2.0 + shifts_ + 1.5; }
    double LowestTone() const { return -(shape_.Tones() - 1) / 2.0 - shifts_; }
    std::int64_t End() const { return first_ + static_cast<std::int64_t>(samples_.size()); }
    std::int64_t Reach() const { return static_cast<std::int64_t>(correlator_->Reach()); }
    const Complex* Sample(std::int64_t index) const {
        return &samples_[static_cast<std::size_t>(index - first_)];
    }

    /// Begins afresh.
    void Forget() {
        samples_.clear();
        first_ = hopAt_ = 0;
        hops_ = 0;
        begin_ = length_ = symbol_;
        off_ = toldOff_ = 0;
        clockOff_ = tuneOff_ = 0;
        turn_ = {};
        tracker_ = MfskTracker();
        tracker_.Narrow(!afc_);
        soft_.emplace(shape_, tones_);
        bank_.emplace(symbol_, tones_ * binsBetween, (LowestTone() - 0.5) / symbol_,
                      1 / symbol_ / binsBetween);
        correlator_.emplace(symbol_, tones_, LowestTone() / symbol_);
        decoders_.clear();
        // The guess that nothing is off comes first: it is the one that is asked before there is a signal.
        for (int shift = 0; shift <= (afc_ ? shifts_ : 0); ++shift)
            for (const int sign : {1, -1})
                for (int odd = 0; odd <= shape_.bits % 2; ++odd)
                    if (shift != 0 || sign > 0) {
                        decoders_.emplace_back(shape_, odd != 0);
                        shiftOf_.resize(decoders_.size());
                        shiftOf_.back() = sign * shift;
                    }
        current_ = 0;
        turned_ = 0;
        past_.assign(static_cast<std::size_t>(shape_.Span()), 0.0);
        pastAt_ = 0;
        points_.clear();
    }

    /// Tells the tracker how likely a symbol is that ended with this hop.
    void Search() {
        const std::int64_t begins = hops_++ - (MfskBank::hops - 1);
        if (begins < 0) return;
        const auto phase = static_cast<std::size_t>(begins % MfskBank::hops);
        const MfskLevels& levels = soft_->Levels();
        const float noise = std::max({levels.Noise(), levels.Signal() / searchRatio, 1e-20F});
        const float scale = 2 * std::sqrt(levels.Signal()) / noise;
        for (std::size_t fraction = 0; fraction < binsBetween; ++fraction) {
            float sum = 0;
            for (std::size_t bin = fraction; bin < energies_.size(); bin += binsBetween)
                sum += BesselI0(std::min(scale * std::sqrt(energies_[bin]), 70.0F));
            logs_[fraction * MfskTracker::phases + phase] =
                std::min(std::log(sum / static_cast<float>(tones_)), mostLog);
        }
        if (phase == MfskBank::hops - 1) {
            tracker_.Take(logs_);
            Follow(static_cast<double>(begins - phase) / MfskBank::hops);
        }
    }

    /// Draws the symbol clock and the frequency towards what the tracker found. @param stretch where the
    /// symbol that it took last began, in nominal symbols
    void Follow(double stretch) {
        const MfskTracker::Estimate& found = tracker_.Now();
        length_ = symbol_ * (1 + found.rate);
        const double late = WrapTurns((begin_ - (stretch + found.phase) * symbol_) / length_);
        clockOff_ = std::abs(late) > clockJump ? clockOff_ + 1 : 0;
        if (clockOff_ == 0) begin_ -= clockGain * late * length_;
        if (clockOff_ >= jumpAfter) {
            begin_ -= late * length_;
            clockOff_ = 0;
        }
        // Without AFC half a distance is the end, and there is no way round.
        const double low = afc_ ? WrapTurns(found.fraction - off_) : found.fraction - off_;
        tuneOff_ = std::abs(low) > tuneJump ? tuneOff_ + 1 : 0;
        if (tuneOff_ >= jumpAfter) {
            off_ += low;
            toldOff_ = off_;
            turn_ = {};
            tuneOff_ = 0;
        }
    }

    void Decide(std::string& text) {
        const auto from = static_cast<std::int64_t>(begin_);
        correlator_->Take(Sample(from), begin_ - static_cast<double>(from), length_, off_);
        begin_ += length_;
        soft_->Take(correlator_->Energies());
        for (std::size_t i = 0; i < decoders_.size(); ++i) {
            soft_->Bits(shiftOf_[i] + shifts_, bits_);
            decoders_[i].Take(bits_);
        }
        Tune();
        Choose();
        decoders_[current_].Release(text, !squelch_);
        Show();
    }

    /// The fraction follows what the phase does within symbols.
    void Tune() {
        const Complex turn = correlator_->Turn(soft_->Likely());
        turn_ += (turn - turn_) * turnGain;
        const double strength = std::max(std::abs(turn_), 1e-20F);
        off_ +=
            tuneGain * std::clamp(static_cast<double>(turn.imag()) / strength, -2.0, 2.0) / std::numbers::pi;
        // Half a distance off is the same as half a distance off on the other side of the next tone; beyond
        // it the other name is the better one, but not at once.
        constexpr double furthest = 0.75;
        if (afc_ && std::abs(off_) > furthest) {
            const int by = off_ > 0 ? 1 : -1;
            off_ -= by;
            toldOff_ -= by;
            turned_ += by;
            // Each guess goes on with the tones that it knows; the one that falls over the edge takes those
            // at the other edge, and is right again when it has heard them for a while.
            for (int& shift : shiftOf_) {
                shift += by;
                if (std::abs(shift) > shifts_) shift = -by * shifts_;
            }
        }
        if (!afc_) off_ = std::clamp(off_, -0.5, 0.5);
        toldOff_ += (off_ - toldOff_) / tellMemory;
        past_[pastAt_] = toldOff_ + turned_;
        pastAt_ = (pastAt_ + 1) % past_.size();
    }

    void Choose() {
        for (std::size_t i = 0; i < decoders_.size(); ++i)
            if (decoders_[i].Better(decoders_[current_]) > changeOver) current_ = i;
        bool alone = true;
        for (std::size_t i = 0; i < decoders_.size(); ++i)
            alone = alone && (i == current_ || decoders_[current_].Better(decoders_[i]) > changeOver);
        if (afc_ && alone && decoders_[current_].Hears()) {
            const double high = (shiftOf_[current_] - turned_ + past_[pastAt_]) * shape_.baud;
            Tell(tuned_ + (shape_.reversed ? -high : high));
        }
    }

    /// A signal may drift out of the range, but one that lies outside is somebody else's.
    void Tell(double hertz) {
        const double slack = afcSlack * shape_.baud;
        if (std::abs(hertz - tuned_) > afcRange + slack && std::abs(hertz - told_) > slack) return;
        told_ = std::clamp(hertz, std::min(tuned_, limits_.first), std::max(tuned_, limits_.second));
    }

    void Show() {
        const auto likely = soft_->Likely();
        const auto tone = static_cast<float>(std::ranges::max_element(likely) - likely.begin());
        if (points_.size() == pointsShown) points_.erase(points_.begin());
        points_.push_back(2 * tone / static_cast<float>(tones_ - 1) - 1);
    }

    /// Lets go of samples that nobody looks at any more; the clock may jump back by half a symbol.
    void Drop() {
        const std::int64_t needed = std::min(hopAt_, static_cast<std::int64_t>(begin_) - Reach());
        const std::int64_t much = 8 * Reach();
        if (needed - first_ < much) return;
        samples_.erase(samples_.begin(), samples_.begin() + static_cast<std::ptrdiff_t>(needed - first_));
        first_ = needed;
    }

    MfskShape shape_;
    double rate_;
    std::pair<double, double> limits_; ///< of the carrier, as far as a signal may take it
    int shifts_;                       ///< tone distances on each side by which the signal may be off
    int tones_;                        ///< that are listened to
    Downconverter down_;
    double symbol_; ///< samples behind the downconverter in a nominal symbol

    std::vector<Complex> samples_;
    std::int64_t first_ = 0; ///< index of samples_[0] since the beginning
    std::int64_t hopAt_ = 0; ///< index of the next hop's first sample
    std::int64_t hops_ = 0;
    std::optional<MfskBank> bank_;
    std::vector<float> energies_, logs_;
    MfskTracker tracker_;

    double begin_ = 0, length_ = 0; ///< of the next symbol, in samples since the beginning
    double off_ = 0, toldOff_ = 0;  ///< tone distances that it is too high, whole ones aside; an average
    int clockOff_ = 0, tuneOff_ = 0;
    int turned_ = 0;           ///< whole tone distances that went from there to the guesses
    std::vector<double> past_; ///< toldOff_ with turned_ for the last symbols, in a ring: what is decoded now
    std::size_t pastAt_ = 0;   ///< was sent before; the oldest
    Complex turn_;
    std::optional<MfskCorrelator> correlator_;
    std::optional<MfskSoftBits> soft_;
    std::vector<float> bits_;
    std::vector<MfskDecoder> decoders_;
    std::vector<int> shiftOf_;
    std::size_t current_ = 0;

    double tuned_ = 0, told_ = 0;
    bool afc_ = false, squelch_ = true;
    std::vector<float> points_;
};

} // namespace

std::unique_ptr<Receiver> MakeMfskReceiver(const Setup& setup) {
    return std::make_unique<MfskReceiver>(setup);
}

} // namespace platform::modem
