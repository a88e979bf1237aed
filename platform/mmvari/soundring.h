#pragma once

#include <QIODevice>

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstdint>
#include <vector>

namespace platform {

/// What the sound system writes into and the program reads from: a ring of 16-bit samples of fixed size, for
/// one writer and one reader on threads of their own. Writing allocates nothing and waits for nobody; what
/// finds no place is lost, in whole frames, so that left stays left.
class SoundRing : public QIODevice {
public:
    /// @param samples that fit in, rounded up to a power of two @param channels of a frame, 1 or 2
    SoundRing(std::size_t samples, int channels)
        : ring_(std::bit_ceil(std::max<std::size_t>(samples, 2)))
        , frameBytes_(static_cast<std::size_t>(channels) * sizeof(std::int16_t)) {
        open(QIODevice::WriteOnly);
    }

    /// Takes all that is there. @param out is emptied first; its room is kept
    void Take(std::vector<float>& out) {
        out.clear();
        const std::size_t written = written_.load(std::memory_order_acquire);
        std::size_t read = read_.load(std::memory_order_relaxed);
        for (; read != written; ++read)
            out.push_back(static_cast<float>(ring_[read & (ring_.size() - 1)]) / 32768.0F);
        read_.store(read, std::memory_order_release);
    }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char*, qint64) override { return -1; }

    qint64 writeData(const char* data, qint64 length) override {
        const std::size_t read = read_.load(std::memory_order_acquire);
        std::size_t written = written_.load(std::memory_order_relaxed);
        for (qint64 at = 0; at < length; ++at) {
            // The device may cut a frame, or a sample, in two.
            frame_[held_++] = data[at];
            if (held_ < frameBytes_) continue;
            held_ = 0;
            const auto samples = std::bit_cast<std::array<std::int16_t, 2>>(frame_);
            const std::size_t channels = frameBytes_ / sizeof(std::int16_t);
            if (written - read + channels > ring_.size()) continue;
            for (std::size_t i = 0; i < channels; ++i) ring_[written++ & (ring_.size() - 1)] = samples[i];
        }
        written_.store(written, std::memory_order_release);
        return length;
    }

private:
    std::vector<std::int16_t> ring_;
    std::size_t frameBytes_;
    std::atomic<std::size_t> written_ = 0, read_ = 0;
    std::array<char, 4> frame_{};
    std::size_t held_ = 0; ///< bytes of a frame that has not come whole
};

} // namespace platform
