#pragma once

#include <QDateTime>

#include <functional>

namespace platform {

/// The time of day everywhere in the program; tests set their own.
QDateTime Now();

/// Replaces the clock; an empty function gives the computer's back.
void SetClock(std::function<QDateTime()> clock);

} // namespace platform
