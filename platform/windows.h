#pragma once

#include <QPointer>
#include <QWidget>

#include <functional>
#include <vector>

namespace platform {

namespace detail {
std::vector<std::function<void()>>& unloaders();
}

/// The single instance of a window class, made when first asked for and kept until it is unloaded.
template <class W>
class SingleWindow {
public:
    static W& get() {
        if (!slot()) {
            slot() = new W;
            static const bool registered = (detail::unloaders().push_back([] { destroy(); }), true);
            Q_UNUSED(registered)
        }
        return *slot();
    }
    static bool exists() { return slot() != nullptr; }
    /// Takes the window away; the next get makes a new one. For windows that go while their own events run:
    /// the old one is deleted after them.
    static void unload() {
        W* window = slot().data();
        if (!window) return;
        slot().clear();
        window->hide();
        window->deleteLater();
    }
    /// Deletes the window at once; never from within one of its own events.
    static void destroy() {
        if (slot()) delete slot().data();
    }

private:
    static QPointer<W>& slot() {
        static QPointer<W> window;
        return window;
    }
};

/// Deletes every single-instance window, the last registered first. For the end of a test.
void DestroyAllWindows();

/// Moves a window there, or as near as a screen that is too small lets it come in whole.
void MoveOntoScreen(QWidget& window, QPoint place);

/// Shows a window in front and makes it the active one.
void ShowInFront(QWidget& window);

/// Pixels of a length in 1/1440 inch, at 96 dots an inch.
constexpr int Twips(int twips) { return twips / 15; }

} // namespace platform
