#pragma once

#include <array>
#include <span>
#include <vector>

namespace platform::modem {

/// Finds when symbols begin, how fast their clock is and by which part of a tone's distance they are off.
/// Each combination gathers the log-likelihood of what was received; old symbols fade out. A fast clock's
/// gatherers move along with it, so that it needs no time to be followed.
class MfskTracker {
public:
    static constexpr int phases = 16;   ///< steps of the clock in a symbol
    static constexpr int fractions = 4; ///< steps of frequency in a tone's distance, from -2/4 to 1/4

    MfskTracker();

    /// Only offsets of a quarter of the tones' distance and less come in question.
    void Narrow(bool on) { narrow_ = on; }
    /// Takes as much as a symbol lasts by the nominal clock.
    /// @param logs fractions x phases: log-likelihood of a symbol that begins at the phase
    void Take(std::span<const float> logs);

    struct Estimate {
        double phase = 0;    ///< in symbols, 0 to 1: where in the stretch taken last a symbol began
        double rate = 0;     ///< a symbol lasts this part longer than nominal
        double fraction = 0; ///< of a tone's distance that the signal is too high, -0.5 to 0.5, turns round
    };
    const Estimate& Now() const { return now_; }

private:
    void Choose();
    float& At(std::size_t rate, int fraction, int phase) {
        return gathered_[(rate * fractions + static_cast<std::size_t>(fraction)) * phases +
                         static_cast<std::size_t>(phase)];
    }

    std::vector<float> gathered_; ///< rates x fractions x phases
    std::vector<double> offsets_; ///< by which each rate's gatherers have moved, in steps
    bool narrow_ = false;
    Estimate now_;
};

} // namespace platform::modem
