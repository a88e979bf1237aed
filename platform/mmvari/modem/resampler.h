#pragma once

#include <memory>
#include <span>
#include <vector>

namespace platform::modem {

/// From the clock of a sound card to that of the modem, or back.
class Resampler {
public:
    /// @param from, to samples a second @throws std::runtime_error if the library refuses the ratio
    Resampler(double from, double to);
    ~Resampler();
    Resampler(const Resampler&) = delete;
    Resampler& operator=(const Resampler&) = delete;

    /// @param out what comes out is put behind what it holds
    void Process(std::span<const float> in, std::vector<float>& out);
    /// What came before is forgotten.
    void Reset();

private:
    struct State;
    std::unique_ptr<State> state_; ///< none where nothing is to be done
    double ratio_;
};

} // namespace platform::modem
