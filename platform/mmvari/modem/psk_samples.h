#pragma once

#include "platform/mmvari/modem/downconverter.h"

#include <cstdint>

namespace platform::modem {

/// The newest samples of a stream, each under its number since the start.
class PskSamples {
public:
    /// @param kept samples that are there at least, once so many have come
    explicit PskSamples(std::size_t kept)
        : kept_(kept) {
        samples_.reserve(3 * kept);
    }

    /// What is put behind it has come.
    std::vector<Complex>& Incoming() { return samples_; }
    /// Lets go of the oldest, now and then.
    void Trim() {
        if (samples_.size() < 2 * kept_) return;
        const std::size_t drop = samples_.size() - kept_;
        samples_.erase(samples_.begin(), samples_.begin() + static_cast<std::ptrdiff_t>(drop));
        begin_ += static_cast<std::int64_t>(drop);
    }
    void Clear() {
        begin_ = End();
        samples_.clear();
    }

    /// From the oldest one to behind the newest one.
    std::int64_t Begin() const { return begin_; }
    std::int64_t End() const { return begin_ + static_cast<std::int64_t>(samples_.size()); }
    /// @param number from Begin() to End()
    const Complex* At(std::int64_t number) const { return samples_.data() + (number - begin_); }

private:
    std::size_t kept_;
    std::int64_t begin_ = 0;
    std::vector<Complex> samples_;
};

} // namespace platform::modem
