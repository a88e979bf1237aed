#include "platform/windows.h"

#include <QScreen>

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

void MoveOntoScreen(QWidget& window, QPoint place) {
    const QRect screen = window.screen()->availableGeometry();
    window.move(qMax(screen.left(), qMin(place.x(), screen.right() - window.width())),
                qMax(screen.top(), qMin(place.y(), screen.bottom() - window.height())));
}

void ShowInFront(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace platform
