#include "platform/mmvari/keyer.h"

namespace platform {

void Keyer::Port(const QString& name) {
    if (name == name_ && trouble_.isEmpty()) return;
    name_ = name;
    if (open_) Connect();
}

void Keyer::Open() {
    if (open_ && trouble_.isEmpty()) return;
    open_ = true;
    Connect();
}

void Keyer::Close() {
    Key(false);
    open_ = false;
    line_.reset();
    trouble_.clear();
}

void Keyer::Key(bool down) {
    if (!open_ || down == down_) return;
    down_ = down;
    Set();
    // What failed, now or before, may have been plugged in since.
    if (down && !trouble_.isEmpty()) Connect();
}

void Keyer::Connect() {
    line_.reset(); // first: a port is open only once
    trouble_.clear();
    if (name_.isEmpty() || name_.compare(QLatin1String("None"), Qt::CaseInsensitive) == 0) return;
    line_ = OpenKeyLine(name_);
    if (!line_) trouble_ = QStringLiteral("Porten %1 kan inte öppnas: radion nycklas inte").arg(name_);
    Set();
}

/// A port that fails is let go of: closed it drops its lines, if it still has any.
void Keyer::Set() {
    if (!line_ || line_->Key(down_)) return;
    line_.reset();
    trouble_ = QStringLiteral("Porten %1 styr inte RTS och DTR: radion nycklas inte").arg(name_);
}

} // namespace platform
