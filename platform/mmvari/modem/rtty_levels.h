#pragma once

#include <span>
#include <vector>

namespace platform::modem {

/// What the two correlators hold of one bit.
struct BitEnergy {
    double mark, space;
};

/// How strong the two tones and the noise are, learnt from the characters that were found.
///
/// No one way of learning is right for every path through the air: equal strengths on a flat one, a long
/// memory where one tone is weak for good, a short one where they come and go by turns. So several learn
/// beside each other, and each has the say that its past earns: how well it would have told the bits that
/// everybody knows, the start bit, which is space, and the stop bit, which is mark.
class ToneLevels {
public:
    ToneLevels();

    /// Each tone by its own strength, against selective fading. Otherwise both count as equally strong.
    void Separate(bool on) { separate_ = on; }

    /// A bit that nothing is known of yet, one a step: the first ones say how strong the noise may be, later
    /// ones when all has become weaker. @return whether it has become so much weaker that what was there has
    /// ended, `fallSteps` ago or before
    bool Hear(const BitEnergy& bit);
    static constexpr int fallSteps = 128;
    /// Log-likelihood ratio of mark to space.
    double MarkRatio(const BitEnergy& bit) const;
    /// @param bits of one character: start bit, five bits, stop bit @param signal probability that it is one
    void Learn(std::span<const BitEnergy> bits, double signal);

private:
    /// A mean that forgets.
    struct Mean {
        double sum = 0, weight = 0;
        void Fade(double keep) {
            sum *= keep;
            weight *= keep;
        }
        void Add(double value, double w) {
            sum += value * w;
            weight += w;
        }
    };
    /// One way of learning.
    struct Learner {
        bool separate;     ///< the tones may differ
        double memory;     ///< characters after which it has half forgotten
        double dataWeight; ///< of the bits that it has to guess itself, beside those known
        Mean markMean{}, spaceMean{};
        double mark = 0, space = 0; ///< energies of the tones alone
        double loss = 0;            ///< what its ratios would have cost lately
        double share = 0;           ///< of the say, 0 to 1

        double Ratio(const BitEnergy& bit, double noise) const;
        void Take(const BitEnergy& bit, double isMark, double weight);
        void Solve(double noise);
        void Scale(double by) {
            markMean.sum *= by;
            spaceMean.sum *= by;
        }
    };
    void Judge(std::span<const BitEnergy> bits, double signal);
    bool Sink(double heard);

    bool separate_ = false;
    std::vector<Learner> learners_;
    Mean noiseMean_;
    double noise_ = 0; ///< mean energy of the noise in a correlator
    int seen_ = 0;     ///< steps at the beginning
    double sum_ = 0,
           before_ = 0; ///< energy of both tones in the stretch at hand, and its mean in the last one
    int summed_ = 0;    ///< steps of that
};

/// Log-likelihood ratio of a character to noise alone, from how each bit's energy is shared between the
/// tones. Only the shares count, so neither strength nor noise need be known: a share f of noise alone is
/// uniform, that of a tone g times as strong as the noise has the density exp(-g (1 - f)) (1 + g f), a
/// noncentral beta distribution.
/// @param bits start bit, five bits, stop bit
double SignalRatio(std::span<const BitEnergy> bits);

} // namespace platform::modem
