#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QInputDevice>
#include <QKeyEvent>
#include <QWidget>

#include <algorithm>
#include <atomic>
#include <mutex>
#include <thread>
#include <vector>

/// An operator who presses a key every 25 milliseconds, and how long each took.
class Operatör : public QObject {
public:
    explicit Operatör(QWidget* fält)
        : fält_(fält) {
        klocka_.start();
        QInputDevice::primaryKeyboard(); // made here, not in the thread
        fält_->installEventFilter(this);
        tråd_ = std::thread([this] {
            for (int n = 0; !slut_; ++n) {
                {
                    const std::lock_guard lås(vakt_);
                    tryckta_.push_back(klocka_.nsecsElapsed());
                }
                const bool radera = n % 6 == 5;
                QCoreApplication::postEvent(
                    fält_, new QKeyEvent(QEvent::KeyPress, radera ? Qt::Key_Backspace : Qt::Key_unknown,
                                         radera ? Qt::ControlModifier : Qt::NoModifier,
                                         radera ? QString() : QString(QLatin1Char("SM5AB"[n % 6]))));
                std::this_thread::sleep_for(std::chrono::milliseconds(25));
            }
        });
    }
    ~Operatör() override {
        slut_ = true;
        tråd_.join();
        QCoreApplication::removePostedEvents(fält_, QEvent::KeyPress);
    }
    bool eventFilter(QObject* mottagare, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || inne_) return false;
        inne_ = true;
        QCoreApplication::sendEvent(mottagare, event);
        inne_ = false;
        const std::lock_guard lås(vakt_);
        tider.push_back(static_cast<double>(klocka_.nsecsElapsed() - tryckta_[tider.size()]) / 1e6);
        return true;
    }
    double Andel(double del) {
        std::vector<double> räknade(tider.begin() + static_cast<std::ptrdiff_t>(börjar_), tider.end());
        if (räknade.empty()) return 0;
        std::sort(räknade.begin(), räknade.end());
        return räknade[static_cast<size_t>(del * static_cast<double>(räknade.size() - 1))];
    }

    /// What has been measured so far does not count: the first key of all has fonts and lists to load.
    void Glöm() { börjar_ = tider.size(); }

    std::vector<double> tider; ///< milliseconds

private:
    QWidget* fält_;
    size_t börjar_ = 0;
    QElapsedTimer klocka_;
    std::mutex vakt_;
    std::vector<qint64> tryckta_;
    std::atomic<bool> slut_ = false;
    bool inne_ = false;
    std::thread tråd_;
};
