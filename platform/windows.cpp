#include "platform/windows.h"

namespace platform {

namespace detail {
std::vector<std::function<void()>>& unloaders() {
    static std::vector<std::function<void()>> list;
    return list;
}
} // namespace detail

void DestroyAllWindows() {
    const auto& list = detail::unloaders();
    for (auto unload = list.rbegin(); unload != list.rend(); ++unload) (*unload)();
}

} // namespace platform
