#include "platform/mmvari/modem/rtty_afc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// Hz to each side that are looked at: a station at the edge of the range must not be the last of the row.
constexpr double reach = 2 * TonePairSearch::range;
/// Places in the width of a bit's window; so many that the best of them is a tenth of a decibel down at most.
constexpr std::size_t placesInBaud = 8;
/// Seconds after which a window counts 1/e.
constexpr double memory = 0.8;
/// The swing over that of noise: noise gets there less than once in some hours.
constexpr double overNoise = 2.6;
/// The weaker tone's energy beside the stronger one's: letters alone are space for an eighth of the time, an
/// echo takes more than 10 dB seldom. What a neighbour's single tone leaves 170 Hz off it is far below.
constexpr double eachPart = 0.06;
/// What the strongest of the row leaves between its lobes is less than this part of it.
constexpr double lobe = 0.25;
/// What is less than this part of the strongest, and rises towards it, is at its side; so is what may be the
/// least but one of its own lobes.
constexpr double side = 0.5, sideLobe = 0.1;
/// Windows, half a bit each, for which a pair must stay in its place.
constexpr int stays = 8;

} // namespace

TonePairSearch::TonePairSearch(double rate, double baud, double low, double high)
    : length_(static_cast<std::size_t>(std::lround(rate / baud)))
    , step_(length_ / 2)
    , spacing_(baud / static_cast<double>(placesInBaud))
    , keep_(std::exp(-static_cast<double>(step_) / rate / memory))
    , side_(static_cast<std::size_t>(std::clamp(reach / spacing_, 4.0, 16.0)))
    , row_(2 * side_ + 1) {
    const auto tone = [&](double hertz) {
        std::vector<Complex> bit;
        for (std::size_t n = 0; n < length_; ++n)
            bit.push_back(std::polar(
                1.0F, static_cast<float>(-2 * std::numbers::pi * hertz * static_cast<double>(n) / rate)));
        return bit;
    };
    for (std::size_t i = 0; i < row_.size(); ++i) {
        const double offset = (static_cast<double>(i) - static_cast<double>(side_)) * spacing_;
        row_[i].lowTone = tone(low + offset);
        row_[i].highTone = tone(high + offset);
    }
}

void TonePairSearch::Reset() {
    for (Place& place : row_) place.low = place.high = place.difference = place.swing = 0;
    weight_ = 0;
    stayed_ = 0;
    current_ = false;
    waiting_.clear();
}

void TonePairSearch::Push(std::span<const Complex> samples) {
    waiting_.insert(waiting_.end(), samples.begin(), samples.end());
    std::size_t at = 0;
    for (; at + length_ <= waiting_.size(); at += step_) {
        Window(&waiting_[at]);
        Watch();
    }
    waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(at));
}

void TonePairSearch::Window(const Complex* from) {
    weight_ = weight_ * keep_ + (1 - keep_);
    const auto energy = [&](const std::vector<Complex>& tone) {
        float re = 0, im = 0;
        for (std::size_t n = 0; n < length_; ++n) {
            const Complex a = from[n], b = tone[n];
            re += a.real() * b.real() - a.imag() * b.imag();
            im += a.real() * b.imag() + a.imag() * b.real();
        }
        return static_cast<double>(re * re + im * im);
    };
    for (Place& place : row_) {
        const auto learn = [this](double& mean, double value) { mean = mean * keep_ + (1 - keep_) * value; };
        const double low = energy(place.lowTone), high = energy(place.highTone);
        learn(place.low, low);
        learn(place.high, high);
        learn(place.difference, low - high);
        learn(place.swing, std::abs(low - high - place.difference / weight_));
    }
}

double TonePairSearch::Floor() const {
    // Windows one bit long see one baud to each side, so that the weakest of the row is next to noise.
    double least = row_.front().swing;
    for (const Place& place : row_) least = std::min(least, place.swing);
    return std::max(least, 1e-30);
}

double TonePairSearch::Most() const {
    double most = 0;
    for (const Place& place : row_) most = std::max(most, place.swing);
    return most;
}

double TonePairSearch::Middle() const {
    return std::max({row_[side_ - 1].swing, row_[side_].swing, row_[side_ + 1].swing});
}

/// Both tones are there: the weaker one too stands out of the noise and of what the stronger one leaves
/// beside itself, which rises towards it.
bool TonePairSearch::IsPair(std::size_t at) const {
    const Place& place = row_[at];
    const auto weaker = place.low < place.high ? &Place::low : &Place::high;
    const double noise = Floor(), stronger = std::max(place.low, place.high);
    if (place.*weaker - noise < eachPart * (stronger - noise)) return false;
    const auto below = [&](std::size_t other) {
        return other >= row_.size() || row_[other].*weaker < place.*weaker;
    };
    return below(at - placesInBaud) && below(at + placesInBaud);
}

/// The strongest place in the range, if it is a pair and not the side of something outside.
std::optional<std::size_t> TonePairSearch::Best() const {
    const auto within = std::min(static_cast<std::size_t>(range / spacing_), side_ - 1);
    std::size_t best = side_ - within;
    for (std::size_t i = best; i <= side_ + within; ++i)
        if (row_[i].swing > row_[best].swing) best = i;
    const double swing = row_[best].swing;
    // The less was heard, the more noise scatters.
    if (swing < overNoise * (1.7 - 0.7 * weight_) * Floor() || swing < lobe * Most() || !IsPair(best))
        return std::nullopt;
    const std::size_t last = std::min(best + placesInBaud, row_.size() - 1);
    for (std::size_t i = best - std::min(best, placesInBaud); i <= last; ++i)
        if (row_[i].swing > swing) return std::nullopt;
    return best;
}

/// A signal that begins splashes over the whole row for a moment; what counts must stay where it is.
void TonePairSearch::Watch() {
    const auto best = Best();
    const bool same = best && (*best > last_ ? *best - last_ : last_ - *best) <= 1;
    stayed_ = same ? std::min(stayed_ + 1, 2 * stays) : std::max(stayed_ - 1, 0);
    if (best && (same || stayed_ == 0)) last_ = *best;
    current_ = same;
}

std::optional<double> TonePairSearch::Offset(double over) const {
    if (!current_ || stayed_ < stays || row_[last_].swing < over * row_[side_].swing) return std::nullopt;
    const double left = row_[last_ - 1].swing, middle = row_[last_].swing, right = row_[last_ + 1].swing;
    const double bend = left - 2 * middle + right;
    const double part = bend < 0 ? (left - right) / (2 * bend) : 0;
    return (static_cast<double>(last_) - static_cast<double>(side_) + part) * spacing_;
}

bool TonePairSearch::Beside() const {
    const double most = Most(), middle = Middle();
    if (weight_ < 0.3 || most < overNoise * Floor() || middle >= side * most) return false;
    // A signal of its own falls off to both sides, whatever stands there.
    const bool own =
        middle > row_[side_ - placesInBaud / 2].swing && middle > row_[side_ + placesInBaud / 2].swing;
    return middle < sideLobe * most || !own;
}

} // namespace platform::modem
