#pragma once

#include <algorithm>
#include <cstdint>

namespace platform {

/// Waits for a sign of life, by the program's own turns: a pause in which the program itself stood still, and
/// heard nobody, counts as little as one turn.
class Patience {
public:
    /// @param limit milliseconds without a sign of life
    explicit Patience(std::int64_t limit)
        : limit_(limit) {}

    /// One turn. @param now milliseconds of a clock that began at 0 @return whether it waited for too long
    bool Over(std::int64_t now, bool life) {
        waited_ = life ? 0 : waited_ + std::min(now - last_, longestTurn);
        last_ = now;
        return waited_ > limit_;
    }

private:
    static constexpr std::int64_t longestTurn = 50;

    std::int64_t limit_, waited_ = 0, last_ = 0;
};

} // namespace platform
