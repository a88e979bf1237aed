#include "platform/timer.h"

#include <QApplication>
#include <QWidget>

namespace platform {

Timer::Timer(const QString& name, std::function<void()> tick, QObject* parent)
    : QObject(parent)
    , tick_(std::move(tick)) {
    setObjectName(name);
    timer_.setTimerType(Qt::CoarseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] { TickOrWait(); });
    waiting_.setSingleShot(true);
    connect(&waiting_, &QTimer::timeout, this, [this] { TickOrWait(); });
}

void Timer::TickOrWait() {
    constexpr int lookAgain = 50;
    if (IsHeldUp()) return waiting_.start(lookAgain);
    waiting_.stop();
    tick_();
}

bool Timer::IsHeldUp() const {
    const QObject* modal = QApplication::activeModalWidget();
    if (!modal) return false;
    for (const QObject* owner = parent(); owner; owner = owner->parent())
        if (owner == modal) return false;
    return true;
}

void Timer::Interval(int milliseconds) {
    interval_ = milliseconds;
    waiting_.stop();
    if (milliseconds == 0)
        timer_.stop();
    else
        timer_.start(milliseconds);
}

} // namespace platform
