#pragma once

#include "platform/mmvari/mmvari.h"

#include <QImage>
#include <QWidget>

namespace platform {

/// What the engine hears, as a picture: a click tunes to the place under it.
class XMMVView : public QWidget {
public:
    /// The kinds of pictures, by the order in which they are offered.
    enum class Kind { Fft, Waterfall, Sync, Wave };

    explicit XMMVView(QWidget* parent = nullptr);

    void Show(Kind kind);
    Kind Shown() const { return kind_; }
    /// @param hertz how much of the spectrum stretches over the picture
    void Bandwidth(int hertz);
    int Bandwidth() const { return bandwidth_; }
    /// The next picture.
    void Draw(const MmvSpectrum& spectrum);

    /// @param hertz the place that was clicked on, in the two pictures that have a scale; else nothing is
    /// called
    std::function<void(double hertz)> onTune;
    /// Any press of a mouse button.
    std::function<void()> onClick;

    /// Hz at the left edge.
    double Left() const { return left_; }
    double HertzAt(double x) const;
    double PlaceOf(double hertz) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool HasScale() const { return kind_ == Kind::Fft || kind_ == Kind::Waterfall; }
    int ScaleHeight() const;
    void Place();
    void AddRow();
    float LevelAt(double hertz) const;
    void PaintFft(QPainter& painter, const QRect& area) const;
    void PaintWaterfall(QPainter& painter, const QRect& area) const;
    void PaintSync(QPainter& painter, const QRect& area) const;
    void PaintWave(QPainter& painter, const QRect& area) const;
    void PaintScale(QPainter& painter, const QRect& area) const;

    Kind kind_ = Kind::Fft;
    int bandwidth_ = 500;
    double left_ = 0;
    MmvSpectrum spectrum_;
    float floor_ = -90;     ///< dB of the noise, slowly followed
    float shownFrom_ = -90; ///< dB that are the picture's ground
    QImage rows_;           ///< of the waterfall, a ring: the newest is at row_
    int row_ = 0;
};

} // namespace platform
