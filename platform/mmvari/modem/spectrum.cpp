#include "platform/mmvari/modem/spectrum.h"

#include <kissfft/kiss_fft.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace platform::modem {

namespace {

/// Points of the transform: 2 to 3 Hz each, as 4,000 to 6,000 samples a second are left of the audio's.
constexpr int points = 2048;
constexpr double quietest = 1e-12;

} // namespace

struct Spectrum::Transform {
    kiss_fft_cfg config = kiss_fft_alloc(points, 0, nullptr, nullptr);
    std::vector<kiss_fft_cpx> in = std::vector<kiss_fft_cpx>(points), out = in;
    Transform() {
        if (!config) throw std::bad_alloc();
    }
    ~Transform() { kiss_fft_free(config); }
    Transform(const Transform&) = delete;
    Transform& operator=(const Transform&) = delete;
};

Spectrum::Spectrum(double rate)
    : down_(rate, top / 2, top / 2, top * 1.3)
    , transform_(std::make_unique<Transform>())
    , samples_(points)
    , due_(down_.Rate() / linesASecond) {
    // Hann's window; the mean of it is taken out again.
    for (int n = 0; n < points; ++n)
        window_.push_back(
            static_cast<float>((1 - std::cos(2 * std::numbers::pi * (n + 0.5) / points)) / points));
    line_.resize(static_cast<std::size_t>(top / Spacing()) + 1, -120.0F);
}

Spectrum::~Spectrum() = default;

double Spectrum::Spacing() const { return down_.Rate() / points; }

bool Spectrum::Push(std::span<const float> audio) {
    fresh_.clear();
    down_.Process(audio, fresh_);
    for (const Complex& sample : fresh_) {
        samples_[at_] = sample;
        at_ = (at_ + 1) % points;
    }
    due_ -= static_cast<double>(fresh_.size());
    if (due_ > 0) return false;
    // A piece longer than a line's time makes one line: nobody would see the others.
    due_ = std::max(due_ + down_.Rate() / linesASecond, 1.0);
    Compute();
    return true;
}

void Spectrum::Compute() {
    for (std::size_t n = 0; n < points; ++n) {
        const Complex& sample = samples_[(at_ + n) % points];
        transform_->in[n] = {sample.real() * window_[n], sample.imag() * window_[n]};
    }
    kiss_fft(transform_->config, transform_->in.data(), transform_->out.data());
    // The lowest frequency lies half a band below the middle.
    const auto lowest = static_cast<std::size_t>(points - std::lround(top / 2 / Spacing()));
    for (std::size_t i = 0; i < line_.size(); ++i) {
        const kiss_fft_cpx& bin = transform_->out[(lowest + i) % points];
        const double power = static_cast<double>(bin.r * bin.r + bin.i * bin.i);
        line_[i] = static_cast<float>(10 * std::log10(std::max(power, quietest)));
    }
}

} // namespace platform::modem
