#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

namespace platform::modem {

/// Cuts audio that comes in pieces of any length into pieces of one length, so that a receiver that tunes
/// itself between them hears the same however the sound card cuts it.
class Blocks {
public:
    explicit Blocks(std::size_t length)
        : length_(std::max<std::size_t>(length, 1)) {
        waiting_.reserve(length_);
    }

    /// @param take called with each piece that is complete
    template <typename Take>
    void Push(std::span<const float> audio, const Take& take) {
        while (!audio.empty()) {
            const std::size_t part = std::min(length_ - waiting_.size(), audio.size());
            waiting_.insert(waiting_.end(), audio.begin(), audio.begin() + static_cast<std::ptrdiff_t>(part));
            audio = audio.subspan(part);
            if (waiting_.size() < length_) return;
            take(std::span<const float>(waiting_));
            waiting_.clear();
        }
    }

private:
    std::size_t length_;
    std::vector<float> waiting_;
};

} // namespace platform::modem
