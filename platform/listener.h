#pragma once

#include <functional>

namespace platform {

/// Calls a copy, if there is one to call: a listener may put another in its place, or delete what holds it.
inline void Call(const std::function<void()>& listener) {
    if (const auto copy = listener) copy();
}

} // namespace platform
