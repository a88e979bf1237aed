#pragma once

#include <QTimer>

#include <functional>

namespace platform {

/// A timer that is started and stopped by its interval alone: 0 stops it, anything else (re)starts it. While
/// a modal window of another owner stands it does not tick; of the ticks it misses one comes when the window
/// is gone.
class Timer : public QObject {
public:
    Timer(const QString& name, std::function<void()> tick, QObject* parent);

    int Interval() const { return interval_; }
    /// @param milliseconds 0 stops the timer.
    void Interval(int milliseconds);

    /// Runs the tick at once; tests use it instead of waiting.
    void Tick() const { tick_(); }

private:
    void TickOrWait();
    bool IsHeldUp() const;

    QTimer timer_;
    QTimer waiting_;
    std::function<void()> tick_;
    int interval_ = 0;
};

} // namespace platform
