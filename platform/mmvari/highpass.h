#pragma once

#include <span>

namespace platform {

/// A hum filter: takes out what is below speech and signals.
struct HighPass {
    double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
    /// @param audio is replaced by what is left of it @param rate samples a second
    void Filter(std::span<float> audio, double rate);
};

} // namespace platform
