#include "platform/mmvari/modem/rtty_afc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// Offsets looked at on each side, an eighth of the speed apart: about 45 Hz at 45 baud.
constexpr int sides = 8;
/// Seconds after which a window counts 1/e.
constexpr double memory = 0.8;
/// The tones together, and the weaker one alone, over what lies around them: five times what noise scatters.
constexpr double bothOver = 3.2, eachOver = 1.3;

} // namespace

TonePairSearch::TonePairSearch(double rate, double baud, double low, double high)
    : length_(static_cast<std::size_t>(std::lround(rate / baud)))
    , step_(length_ / 2)
    , spacing_(baud / 8)
    , keep_(std::exp(-static_cast<double>(step_) / rate / memory)) {
    const auto places = [&](double hertz) {
        std::vector<Place> row;
        for (int side = -sides; side <= sides; ++side) {
            Place& place = row.emplace_back();
            for (std::size_t n = 0; n < length_; ++n)
                place.tone.push_back(
                    std::polar(1.0F, static_cast<float>(-2 * std::numbers::pi * (hertz + side * spacing_) *
                                                        static_cast<double>(n) / rate)));
        }
        return row;
    };
    low_ = places(low);
    high_ = places(high);
}

void TonePairSearch::Reset() {
    for (auto* row : {&low_, &high_})
        for (Place& place : *row) place.energy = 0;
    weight_ = 0;
    waiting_.clear();
}

void TonePairSearch::Push(std::span<const Complex> samples) {
    waiting_.insert(waiting_.end(), samples.begin(), samples.end());
    std::size_t at = 0;
    for (; at + length_ <= waiting_.size(); at += step_) Window(&waiting_[at]);
    waiting_.erase(waiting_.begin(), waiting_.begin() + static_cast<std::ptrdiff_t>(at));
}

void TonePairSearch::Window(const Complex* from) {
    weight_ = weight_ * keep_ + (1 - keep_);
    for (auto* row : {&low_, &high_})
        for (Place& place : *row) {
            float re = 0, im = 0;
            for (std::size_t n = 0; n < length_; ++n) {
                const Complex a = from[n], b = place.tone[n];
                re += a.real() * b.real() - a.imag() * b.imag();
                im += a.real() * b.imag() + a.imag() * b.real();
            }
            place.energy = place.energy * keep_ + (1 - keep_) * static_cast<double>(re * re + im * im);
        }
}

std::optional<double> TonePairSearch::Offset() const {
    // Half the memory must be filled, or the first windows alone would decide.
    if (weight_ < 0.4) return std::nullopt;
    // A window one bit long sees 45 Hz to each side, so that the weakest places of the row are next to noise.
    const auto floorOf = [](const std::vector<Place>& row) {
        double least = row.front().energy;
        for (const Place& place : row) least = std::min(least, place.energy);
        return std::max(least, 1e-30);
    };
    const double floor = std::min(floorOf(low_), floorOf(high_));
    std::vector<double> score;
    for (std::size_t i = 0; i < low_.size(); ++i) score.push_back(low_[i].energy + high_[i].energy);
    const auto best = static_cast<std::size_t>(std::max_element(score.begin(), score.end()) - score.begin());
    if (best == 0 || best + 1 == score.size()) return std::nullopt;
    if (score[best] < 2 * bothOver * floor) return std::nullopt;
    if (std::min(low_[best].energy, high_[best].energy) < eachOver * floor) return std::nullopt;
    const double left = score[best - 1], middle = score[best], right = score[best + 1];
    const double bend = left - 2 * middle + right;
    const double part = bend < 0 ? (left - right) / (2 * bend) : 0;
    return (static_cast<double>(best) - sides + part) * spacing_;
}

} // namespace platform::modem
