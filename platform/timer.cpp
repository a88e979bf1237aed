#include "platform/timer.h"

namespace platform {

Timer::Timer(const QString& name, std::function<void()> tick, QObject* parent)
    : QObject(parent)
    , tick_(std::move(tick)) {
    setObjectName(name);
    timer_.setTimerType(Qt::CoarseTimer);
    connect(&timer_, &QTimer::timeout, this, [this] { tick_(); });
}

void Timer::Interval(int milliseconds) {
    interval_ = milliseconds;
    if (milliseconds == 0)
        timer_.stop();
    else
        timer_.start(milliseconds);
}

} // namespace platform
