#pragma once

#include <QWidget>

namespace platform {

/// How strong the sound is: a column that turns red where samples are cut off.
class XMMVLvl : public QWidget {
public:
    explicit XMMVLvl(QWidget* parent = nullptr);
    /// @param level 0 to 1, the loudest sample since the last call
    void Draw(double level);
    /// What is shown, 0 to 1: it falls slower than it rises.
    double Level() const { return level_; }

    QSize sizeHint() const override { return {14, 110}; }
    QSize minimumSizeHint() const override { return {12, 40}; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double level_ = 0;
};

} // namespace platform
