#include "platform/mmvari/xmmvview.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>

namespace platform {

namespace {

/// The spectrum ends where radios' audio does.
constexpr double topHertz = 3000;
/// dB above the noise that the brightest colour and the top of the curve stand for.
constexpr float range = 45;
/// How fast the noise is followed, of 1, at each picture.
constexpr float floorGain = 0.05F;

const QColor ground(16, 20, 32), curve(120, 220, 140), scale(170, 180, 200), mark(255, 80, 80),
    faint(60, 70, 90);

/// From noise to a loud signal: night, blue, turquoise, yellow, white.
QRgb Heat(float part) {
    struct Stop {
        float at;
        int r, g, b;
    };
    static constexpr std::array stops = {Stop{0, 8, 10, 30}, Stop{0.3F, 20, 60, 150},
                                         Stop{0.55F, 40, 190, 190}, Stop{0.8F, 250, 220, 70},
                                         Stop{1, 255, 255, 255}};
    const float p = std::clamp(part, 0.0F, 1.0F);
    std::size_t i = 1;
    while (i + 1 < stops.size() && stops[i].at < p) ++i;
    const float t = (p - stops[i - 1].at) / (stops[i].at - stops[i - 1].at);
    const auto mix = [t](int a, int b) { return a + static_cast<int>(static_cast<float>(b - a) * t); };
    return qRgb(mix(stops[i - 1].r, stops[i].r), mix(stops[i - 1].g, stops[i].g),
                mix(stops[i - 1].b, stops[i].b));
}

} // namespace

XMMVView::XMMVView(QWidget* parent)
    : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setCursor(Qt::CrossCursor);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize XMMVView::sizeHint() const { return {320, 110}; }

QSize XMMVView::minimumSizeHint() const { return {160, 56}; }

void XMMVView::Show(Kind kind) {
    kind_ = kind;
    update();
}

void XMMVView::Bandwidth(int hertz) {
    bandwidth_ = hertz;
    Place();
    rows_.fill(ground);
    update();
}

double XMMVView::HertzAt(double x) const { return left_ + x * bandwidth_ / std::max(width(), 1); }

double XMMVView::PlaceOf(double hertz) const { return (hertz - left_) * width() / bandwidth_; }

/// The signal's place is in the picture: where it would leave the middle half, the picture moves.
void XMMVView::Place() {
    if (spectrum_.tones.empty()) return;
    const auto [low, high] = std::minmax_element(spectrum_.tones.begin(), spectrum_.tones.end());
    const double middle = (*low + *high) / 2;
    const double wanted = std::clamp(middle - bandwidth_ / 2.0, 0.0, std::max(topHertz - bandwidth_, 0.0));
    const bool inside = middle > left_ + bandwidth_ / 4.0 && middle < left_ + bandwidth_ * 3 / 4.0;
    if (inside && left_ + bandwidth_ <= topHertz) return;
    if (wanted == left_) return;
    left_ = wanted;
    rows_.fill(ground);
}

void XMMVView::Draw(const MmvSpectrum& spectrum) {
    spectrum_ = spectrum;
    Place();
    // What is sent has no noise, and the noise that was heard comes back behind it.
    if (!spectrum_.line.empty() && !spectrum_.own) {
        std::vector<float> sorted = spectrum_.line;
        const auto middle = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2);
        std::nth_element(sorted.begin(), middle, sorted.end());
        floor_ += (*middle - floor_) * floorGain;
    }
    shownFrom_ = floor_;
    // It is far above the noise, its sides too: its own upper part is its shape.
    if (spectrum_.own && !spectrum_.line.empty())
        shownFrom_ =
            std::max(floor_, *std::max_element(spectrum_.line.begin(), spectrum_.line.end()) - range);
    AddRow();
    update();
}

/// The loudest place within a column of the picture, so that a narrow signal is seen at any width.
float XMMVView::LevelAt(double hertz) const {
    const std::vector<float>& line = spectrum_.line;
    if (line.empty()) return -200;
    const double half = bandwidth_ / 2.0 / std::max(width(), 1);
    const auto place = [&](double h) {
        return static_cast<std::size_t>(
            std::clamp(std::lround(h / spectrum_.spacing), 0L, static_cast<long>(line.size()) - 1));
    };
    return *std::max_element(line.begin() + static_cast<std::ptrdiff_t>(place(hertz - half)),
                             line.begin() + static_cast<std::ptrdiff_t>(place(hertz + half)) + 1);
}

void XMMVView::AddRow() {
    if (rows_.isNull()) return;
    row_ = (row_ + rows_.height() - 1) % rows_.height();
    auto* const pixels = reinterpret_cast<QRgb*>(rows_.scanLine(row_));
    for (int x = 0; x < rows_.width(); ++x)
        pixels[x] = Heat((LevelAt(HertzAt(x + 0.5)) - shownFrom_) / range);
}

int XMMVView::ScaleHeight() const { return fontMetrics().height() + 2; }

void XMMVView::resizeEvent(QResizeEvent*) {
    rows_ = QImage(std::max(width(), 1), std::max(height() - ScaleHeight(), 1), QImage::Format_RGB32);
    rows_.fill(ground);
    row_ = 0;
}

void XMMVView::mousePressEvent(QMouseEvent* event) {
    if (HasScale() && event->button() == Qt::LeftButton && onTune) onTune(HertzAt(event->position().x()));
    if (onClick) onClick();
}

/// The picture may have moved since the first click: the second one must not tune elsewhere.
void XMMVView::mouseDoubleClickEvent(QMouseEvent*) {
    if (onClick) onClick();
}

void XMMVView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), ground);
    const QRect area = HasScale() ? rect().adjusted(0, ScaleHeight(), 0, 0) : rect();
    switch (kind_) {
    case Kind::Fft: PaintFft(painter, area); break;
    case Kind::Waterfall: PaintWaterfall(painter, area); break;
    case Kind::Sync: PaintSync(painter, area); return;
    case Kind::Wave: PaintWave(painter, area); return;
    }
    PaintScale(painter, area);
}

void XMMVView::PaintFft(QPainter& painter, const QRect& area) const {
    painter.setPen(faint);
    for (int db = 10; db < static_cast<int>(range); db += 10) {
        const int y = area.bottom() -
                      static_cast<int>(static_cast<float>(db) / range * static_cast<float>(area.height()));
        painter.drawLine(area.left(), y, area.right(), y);
    }
    QPolygonF line;
    for (int x = 0; x < width(); ++x) {
        const float part = std::clamp((LevelAt(HertzAt(x + 0.5)) - shownFrom_ + 5) / (range + 5), 0.0F, 1.0F);
        line << QPointF(x, area.bottom() - static_cast<double>(part) * (area.height() - 1));
    }
    painter.setPen(curve);
    painter.drawPolyline(line);
}

void XMMVView::PaintWaterfall(QPainter& painter, const QRect& area) const {
    // The ring from its newest row to its end, and then from its beginning.
    const int first = rows_.height() - row_;
    painter.drawImage(area.topLeft(), rows_, QRect(0, row_, rows_.width(), first));
    painter.drawImage(area.topLeft() + QPoint(0, first), rows_, QRect(0, 0, rows_.width(), row_));
}

void XMMVView::PaintScale(QPainter& painter, const QRect& area) const {
    const int every = bandwidth_ <= 500 ? 100 : bandwidth_ <= 1000 ? 200 : 500;
    painter.setPen(scale);
    for (int hertz = (static_cast<int>(left_) / every + 1) * every; hertz < left_ + bandwidth_;
         hertz += every) {
        const int x = static_cast<int>(PlaceOf(hertz));
        painter.drawLine(x, area.top() - 3, x, area.top());
        const QString text = QString::number(hertz);
        const int half = painter.fontMetrics().horizontalAdvance(text) / 2;
        if (x - half >= 0 && x + half < width())
            painter.drawText(x - half, painter.fontMetrics().ascent(), text);
    }
    painter.setPen(mark);
    for (const double tone : spectrum_.tones) {
        const int x = static_cast<int>(PlaceOf(tone));
        painter.drawLine(x, area.top() - 6, x, area.bottom());
    }
}

void XMMVView::PaintSync(QPainter& painter, const QRect& area) const {
    const std::vector<float>& points = spectrum_.sync;
    painter.setPen(faint);
    painter.drawLine(area.left(), area.center().y(), area.right(), area.center().y());
    if (points.empty()) return;
    painter.setPen(QPen(curve, 3));
    for (std::size_t i = 0; i < points.size(); ++i)
        painter.drawPoint(
            QPointF((static_cast<double>(i) + 0.5) * area.width() / static_cast<double>(points.size()),
                    area.center().y() - static_cast<double>(points[i]) * (area.height() / 2.0 - 4)));
}

void XMMVView::PaintWave(QPainter& painter, const QRect& area) const {
    const std::vector<float>& samples = spectrum_.waveform;
    painter.setPen(faint);
    painter.drawLine(area.left(), area.center().y(), area.right(), area.center().y());
    QPolygonF line;
    for (std::size_t i = 0; i < samples.size(); ++i)
        line << QPointF(static_cast<double>(i) * area.width() / static_cast<double>(samples.size()),
                        area.center().y() - static_cast<double>(samples[i]) * (area.height() / 2.0 - 1));
    painter.setPen(curve);
    painter.drawPolyline(line);
}

} // namespace platform
