#include "platform/clock.h"

namespace platform {

namespace {
std::function<QDateTime()>& replacedClock() {
    static std::function<QDateTime()> clock;
    return clock;
}
} // namespace

QDateTime Now() { return replacedClock() ? replacedClock()() : QDateTime::currentDateTime(); }

void SetClock(std::function<QDateTime()> clock) { replacedClock() = std::move(clock); }

} // namespace platform
