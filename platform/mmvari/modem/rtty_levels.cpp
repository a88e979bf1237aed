#include "platform/mmvari/modem/rtty_levels.h"

#include "platform/mmvari/modem/likelihood.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform::modem {

namespace {
/// Characters after which the noise's level is half forgotten: with seven values each its mean is sure to a
/// tenth, and it has followed within two seconds.
constexpr double noiseMemory = 8;
/// Likewise what a learner once earned: two known bits a character say little, and a path through the air
/// keeps its kind for longer than its strength.
constexpr double lossMemory = 40;
/// Tone over noise until a character was heard, that of a signal with two characters in a hundred wrong: a
/// stronger one is read with any guess. It weighs as much as one bit heard, so that the first character
/// decides.
constexpr double guess = 10, guessWeight = 1;
/// The least that a tone is taken for: weaker ones are not to be read anyway.
constexpr double leastTone = 2;
/// The most that a tone is taken for, over noise: a strong one needs no more, and when it ends, what noise
/// looks like must not count as much as it did.
constexpr double mostTone = 15;
/// Rounding of 16-bit samples is the least noise there is.
constexpr double leastNoise = 1e-12;
/// Steps at the beginning that tell the noise: four bits.
constexpr int beginning = 64;
/// Steps in which a fall shows, as many: in shorter ones noise scatters too much. Falls by less than 12 dB
/// are those of a path that fades, and learning keeps up with them.
constexpr int stretch = ToneLevels::fallSteps / 2;
constexpr double mostFall = 16;
/// Tone over noise at which a signal begins to be worth printing: one character in six is wrong.
constexpr double worth = 6;

double ShareRatio(double share) { return std::exp(-worth * (1 - share)) * (1 + worth * share); }

} // namespace

double SignalRatio(std::span<const BitEnergy> bits) {
    double sum = 0;
    for (std::size_t i = 0; i < bits.size(); ++i) {
        const double both = bits[i].mark + bits[i].space;
        const double share = both > 0 ? bits[i].mark / both : 0.5;
        const double mark = ShareRatio(share), space = ShareRatio(1 - share);
        const bool start = i == 0, stop = i + 1 == bits.size();
        sum += std::log(start ? space : stop ? mark : (mark + space) / 2);
    }
    return sum;
}

double ToneLevels::Learner::Ratio(const BitEnergy& bit, double noise) const {
    const double assumed = std::max(noise, std::max(mark, space) / mostTone);
    return ToneLikelihood(bit.mark, mark, assumed) - ToneLikelihood(bit.space, space, assumed);
}

void ToneLevels::Learner::Take(const BitEnergy& bit, double isMark, double weight) {
    markMean.Add(bit.mark, weight * isMark);
    spaceMean.Add(bit.space, weight * (1 - isMark));
}

void ToneLevels::Learner::Solve(double noise) {
    const auto tone = [&](double sum, double weight) {
        const double with = (sum + guessWeight * (guess + 1) * noise) / (weight + guessWeight);
        return std::max(with - noise, leastTone * noise);
    };
    if (separate) {
        mark = tone(markMean.sum, markMean.weight);
        space = tone(spaceMean.sum, spaceMean.weight);
    } else
        mark = space = tone(markMean.sum + spaceMean.sum, markMean.weight + spaceMean.weight);
}

/// Half forgotten after a second and a half for a flat path; after two, as each has but half the bits, for
/// tones that stay unlike; after half a character for tones that come and go, by the bits that everybody
/// knows alone, for what is guessed with such levels would bear itself out.
ToneLevels::ToneLevels()
    : learners_{{.separate = false, .memory = 8, .dataWeight = 1},
                {.separate = true, .memory = 12, .dataWeight = 1},
                {.separate = true, .memory = 0.4, .dataWeight = 0}} {
    for (Learner& learner : learners_) learner.share = 1.0 / static_cast<double>(learners_.size());
}

bool ToneLevels::Hear(const BitEnergy& bit) {
    if (seen_ < beginning) {
        noise_ += (std::max((bit.mark + bit.space) / 2, leastNoise) - noise_) / ++seen_;
        if (seen_ == beginning) noiseMean_ = {noise_ * 10, 10};
        for (Learner& learner : learners_) learner.Solve(noise_);
    }
    sum_ += bit.mark + bit.space;
    if (++summed_ < stretch) return false;
    const double now = sum_ / stretch, heard = std::max({now, before_, leastNoise});
    before_ = now;
    sum_ = 0;
    summed_ = 0;
    return Sink(heard);
}

/// Levels are learnt from characters, but beside a level that a much stronger signal has left none is found
/// any more. Neither tones nor noise can be stronger than all that was heard of late.
bool ToneLevels::Sink(double heard) {
    double strongest = 0;
    for (const Learner& learner : learners_) strongest = std::max({strongest, learner.mark, learner.space});
    const bool fell = strongest > mostFall * heard;
    if (fell)
        for (Learner& learner : learners_) learner.Scale(heard / strongest);
    if (noise_ > heard) {
        noiseMean_.sum *= heard / 2 / noise_;
        noise_ = heard / 2;
    }
    for (Learner& learner : learners_) learner.Solve(noise_);
    return fell;
}

double ToneLevels::MarkRatio(const BitEnergy& bit) const {
    if (!separate_) return learners_.front().Ratio(bit, noise_);
    double ratio = 0;
    for (const Learner& learner : learners_) ratio += learner.share * learner.Ratio(bit, noise_);
    return ratio;
}

void ToneLevels::Learn(std::span<const BitEnergy> bits, double signal) {
    Judge(bits, signal);
    for (Learner& learner : learners_) {
        const double keep = std::exp2(-1 / learner.memory);
        learner.markMean.Fade(keep);
        learner.spaceMean.Fade(keep);
    }
    noiseMean_.Fade(std::exp2(-1 / noiseMemory));
    for (std::size_t i = 0; i < bits.size(); ++i) {
        const bool start = i == 0, stop = i + 1 == bits.size();
        const double guessed = 1 / (1 + std::exp(-std::clamp(MarkRatio(bits[i]), -30.0, 30.0)));
        const double mark = start ? 0 : stop ? 1 : guessed;
        for (Learner& learner : learners_)
            learner.Take(bits[i], mark, signal * (start || stop ? 1 : learner.dataWeight));
        noiseMean_.Add(bits[i].mark, 1 - signal * mark);
        noiseMean_.Add(bits[i].space, 1 - signal * (1 - mark));
    }
    noise_ = std::max(noiseMean_.sum / noiseMean_.weight, leastNoise);
    for (Learner& learner : learners_) learner.Solve(noise_);
}

/// The cost of a ratio is the logarithm of the probability that it gave to what was there.
void ToneLevels::Judge(std::span<const BitEnergy> bits, double signal) {
    const double keep = std::exp2(-1 / lossMemory);
    double least = std::numeric_limits<double>::infinity();
    for (Learner& learner : learners_) {
        const double start = learner.Ratio(bits.front(), noise_), stop = -learner.Ratio(bits.back(), noise_);
        const auto cost = [](double ratio) { return std::log1p(std::exp(std::min(ratio, 20.0))); };
        learner.loss = learner.loss * keep + signal * (cost(start) + cost(stop));
        least = std::min(least, learner.loss);
    }
    double sum = 0;
    for (Learner& learner : learners_) sum += learner.share = std::exp(least - learner.loss);
    for (Learner& learner : learners_) learner.share /= sum;
}

} // namespace platform::modem
