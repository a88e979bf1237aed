#include "platform/mmvari/highpass.h"

#include <cmath>
#include <numbers>

namespace platform {

namespace {

/// Hz. Below this nothing is sent or received; hum and the low end of noise are.
constexpr double humEdge = 200;

} // namespace

/// Second-order Butterworth high-pass, bilinear transform.
void HighPass::Filter(std::span<float> audio, double rate) {
    const double k = std::tan(std::numbers::pi * humEdge / rate), q = std::numbers::sqrt2 / 2;
    const double norm = 1 / (1 + k / q + k * k);
    const double a1 = 2 * (k * k - 1) * norm, a2 = (1 - k / q + k * k) * norm;
    for (float& sample : audio) {
        const double x = static_cast<double>(sample);
        const double y = norm * (x - 2 * x1 + x2) - a1 * y1 - a2 * y2;
        x2 = x1;
        x1 = x;
        y2 = y1;
        y1 = y;
        sample = static_cast<float>(y);
    }
}

} // namespace platform
