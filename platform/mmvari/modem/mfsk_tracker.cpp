#include "platform/mmvari/modem/mfsk_tracker.h"

#include <algorithm>
#include <cmath>

namespace platform::modem {

namespace {

/// Clocks differ by 0.5 %, transmitter and receiver together; between these steps the error in time that
/// comes up while symbols fade out is 2 % of a symbol.
constexpr double clockRateStep = 0.001;
constexpr int ratesEachSide = 6;
constexpr std::size_t clockRates = 2 * ratesEachSide + 1;
/// Most clocks are better: standard deviation for the likelihood of each before anything is heard.
constexpr double clockRateSpread = 0.0025;
/// Symbols until a log-likelihood has faded to 1/e: 28 cost 0.05 dB, and paths that fade are not steady for
/// longer.
constexpr float searchMemory = 48;

double ClockRateOf(std::size_t index) { return (static_cast<double>(index) - ratesEachSide) * clockRateStep; }

/// Top of the parabola through three points, from the middle one; at most half a step.
double ParabolaTop(float left, float middle, float right) {
    const float bend = left - 2 * middle + right;
    return bend < 0 ? std::clamp(0.5 * static_cast<double>((left - right) / bend), -0.5, 0.5) : 0.0;
}

} // namespace

MfskTracker::MfskTracker()
    : gathered_(clockRates * fractions * phases)
    , offsets_(clockRates) {}

void MfskTracker::Take(std::span<const float> logs) {
    constexpr float keep = 1 - 1 / searchMemory;
    for (std::size_t rate = 0; rate < clockRates; ++rate) {
        double& offset = offsets_[rate];
        offset = std::fmod(offset + phases * (1 + ClockRateOf(rate)), phases);
        const int whole = static_cast<int>(offset);
        const auto part = static_cast<float>(offset - whole);
        for (int fraction = 0; fraction < fractions; ++fraction) {
            const float* from = &logs[static_cast<std::size_t>(fraction) * phases];
            for (int phase = 0; phase < phases; ++phase) {
                const int at = (phase + whole) % phases;
                const float log = from[at] + part * (from[(at + 1) % phases] - from[at]);
                float& gathered = At(rate, fraction, phase);
                gathered = keep * gathered + log;
            }
        }
    }
    Choose();
}

void MfskTracker::Choose() {
    float best = -1e30F;
    std::size_t bestRate = 0;
    int bestFraction = 0, bestPhase = 0;
    for (std::size_t rate = 0; rate < clockRates; ++rate) {
        const auto prior = static_cast<float>(-0.5 * std::pow(ClockRateOf(rate) / clockRateSpread, 2));
        for (int fraction = narrow_ ? 1 : 0; fraction < fractions; ++fraction)
            for (int phase = 0; phase < phases; ++phase)
                if (const float log = At(rate, fraction, phase) + prior; log > best) {
                    best = log;
                    bestRate = rate;
                    bestFraction = fraction;
                    bestPhase = phase;
                }
    }
    const auto by = [&](int fraction, int phase) {
        return At(bestRate, (bestFraction + fraction + fractions) % fractions,
                  (bestPhase + phase + phases) % phases);
    };
    now_.rate = ClockRateOf(bestRate);
    const double phase = bestPhase + offsets_[bestRate] + ParabolaTop(by(0, -1), by(0, 0), by(0, 1));
    now_.phase = std::fmod(phase + phases, phases) / phases;
    now_.fraction = (bestFraction - 2 + ParabolaTop(by(-1, 0), by(0, 0), by(1, 0))) / fractions;
}

} // namespace platform::modem
