#pragma once

#include "platform/mmvari/modem/downconverter.h"

#include <memory>

namespace platform::modem {

/// What is heard, by frequency: lines for a waterfall at an even pace.
class Spectrum {
public:
    static constexpr double top = 3000;        ///< Hz, the first place is at 0
    static constexpr double linesASecond = 21; ///< as fast as the eye follows

    /// @param rate samples a second
    explicit Spectrum(double rate);
    ~Spectrum();
    Spectrum(const Spectrum&) = delete;
    Spectrum& operator=(const Spectrum&) = delete;

    /// @return whether a new line is there
    bool Push(std::span<const float> audio);
    /// The newest line: dB, 0 for a tone of full scale, from 0 Hz to `top`.
    const std::vector<float>& Line() const { return line_; }
    /// Hz from a place of the line to the next.
    double Spacing() const;

private:
    struct Transform;

    void Compute();

    Downconverter down_;
    std::unique_ptr<Transform> transform_;
    std::vector<float> window_;
    std::vector<Complex> samples_; ///< a ring, as long as the transform
    std::vector<Complex> fresh_;
    std::size_t at_ = 0;
    double due_; ///< samples until the next line
    std::vector<float> line_;
};

} // namespace platform::modem
