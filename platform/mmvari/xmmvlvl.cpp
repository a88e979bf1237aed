#include "platform/mmvari/xmmvlvl.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

/// What is left of a level at the next call.
constexpr double fall = 0.85;
/// The column's foot.
constexpr double quietest = -60;
/// Parts of full scale from which a level is high, and too high.
constexpr double high = 0.5, tooHigh = 0.95;

} // namespace

XMMVLvl::XMMVLvl(QWidget* parent)
    : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void XMMVLvl::Draw(double level) {
    level_ = std::max(std::clamp(level, 0.0, 1.0), level_ * fall);
    update();
}

void XMMVLvl::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(16, 20, 32));
    const double db = 20 * std::log10(std::max(level_, 1e-6));
    const int top = static_cast<int>(std::clamp(1 - db / quietest, 0.0, 1.0) * height());
    const QColor color = level_ > tooHigh ? QColor(255, 80, 80)
                         : level_ > high  ? QColor(250, 220, 70)
                                          : QColor(120, 220, 140);
    painter.fillRect(QRect(1, height() - top, width() - 2, top), color);
}

} // namespace platform
