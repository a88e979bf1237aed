#include "platform/mmvari/xmmvbtn.h"

namespace platform {

XMMVBtn::XMMVBtn(const QString& caption, const char* name, bool stays)
    : QPushButton(caption) {
    setObjectName(QString::fromUtf8(name));
    setCheckable(stays);
    setAutoDefault(true); // Enter on a focused button presses that button
    setFocusPolicy(Qt::TabFocus);
}

void XMMVBtn::Alert(bool on) {
    if (!on) return setPalette(QPalette());
    QPalette colours = palette();
    colours.setColor(QPalette::Button, QColor(192, 0, 0));
    colours.setColor(QPalette::ButtonText, Qt::white);
    setPalette(colours);
}

} // namespace platform
