#include "platform/mmvari/xmmvbtn.h"

namespace platform {

XMMVBtn::XMMVBtn(const QString& caption, const char* name, bool stays)
    : QPushButton(caption) {
    setObjectName(QString::fromUtf8(name));
    setCheckable(stays);
    setAutoDefault(true); // Enter on a focused button presses that button
    setFocusPolicy(Qt::TabFocus);
}

} // namespace platform
