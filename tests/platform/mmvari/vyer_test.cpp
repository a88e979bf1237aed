// The engine's views: what is painted, and what a click means.
#include "platform/mmvari/xmmvbtn.h"
#include "platform/mmvari/xmmvlvl.h"
#include "platform/mmvari/xmmvview.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using namespace platform;
using Kind = XMMVView::Kind;

namespace {

constexpr QColor markColour(255, 80, 80);
constexpr double spacing = 2; ///< Hz

/// Noise, and signals out of it.
MmvSpectrum Heard(const std::vector<double>& loud, const std::vector<double>& tones) {
    MmvSpectrum spectrum;
    spectrum.spacing = spacing;
    for (int i = 0; i <= 1500; ++i) spectrum.line.push_back(i % 2 == 0 ? -82.0F : -78.0F);
    for (const double hertz : loud) spectrum.line[static_cast<std::size_t>(hertz / spacing)] = -40;
    spectrum.tones = tones;
    for (int i = 0; i < 512; ++i)
        spectrum.waveform.push_back(static_cast<float>(0.9 * std::sin(2 * std::numbers::pi * i / 128)));
    for (int i = 0; i < 40; ++i) spectrum.sync.push_back(i % 2 == 0 ? 0.9F : -0.9F);
    return spectrum;
}

class ViewTest : public ::testing::Test {
protected:
    ViewTest() {
        view.resize(500, 200); // of 500 Hz: one a pixel
        view.onTune = [this](double hertz) { tuned.push_back(hertz); };
        view.onClick = [this] { ++clicks; };
        view.show();
    }
    void Draw(const MmvSpectrum& spectrum, int times = 60) {
        for (int i = 0; i < times; ++i) view.Draw(spectrum);
    }
    QImage Picture() { return view.grab().toImage().convertToFormat(QImage::Format_RGB32); }
    /// Columns in which the colour stands, in a row of the picture.
    static std::vector<int> Columns(const QImage& picture, int row, const QColor& colour) {
        std::vector<int> columns;
        for (int x = 0; x < picture.width(); ++x)
            if (picture.pixelColor(x, row) == colour) columns.push_back(x);
        return columns;
    }
    /// The brightest column of a row, the marks aside.
    static int Brightest(const QImage& picture, int row) {
        int best = 0, most = -1;
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, row);
            if (colour == markColour || colour.lightness() <= most) continue;
            most = colour.lightness();
            best = x;
        }
        return best;
    }
    void Click(int x, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(&view, button, Qt::NoModifier, QPoint(x, 100));
    }

    XMMVView view;
    std::vector<double> tuned;
    int clicks = 0;
};

} // namespace

TEST_F(ViewTest, TheFourKindsAreFourPictures) {
    view.Bandwidth(500);
    Draw(Heard({2200}, {2125}));
    std::vector<QImage> pictures;
    for (const Kind kind : {Kind::Fft, Kind::Waterfall, Kind::Sync, Kind::Wave}) {
        view.Show(kind);
        EXPECT_EQ(view.Shown(), kind);
        pictures.push_back(Picture());
    }
    for (std::size_t i = 0; i < pictures.size(); ++i)
        for (std::size_t j = i + 1; j < pictures.size(); ++j) EXPECT_NE(pictures[i], pictures[j]) << i << j;
    view.Show(Kind::Fft);
    EXPECT_EQ(Picture(), pictures[0]) << "and the same again";
}

TEST_F(ViewTest, TheCurveIsHighWhereTheSignalIs) {
    view.Bandwidth(500);
    Draw(Heard({2200}, {2125}));
    const QImage picture = Picture();
    const auto topOf = [&](double hertz) {
        const int x = static_cast<int>(view.PlaceOf(hertz));
        for (int y = 40; y < picture.height(); ++y)
            if (picture.pixelColor(x, y).green() > 180) return y;
        return picture.height();
    };
    EXPECT_LT(topOf(2200), 80);
    EXPECT_GT(topOf(2000), 150);
}

TEST_F(ViewTest, TheWaterfallMovesDownWithTheNewestOnTop) {
    view.Bandwidth(500);
    view.Show(Kind::Waterfall);
    Draw(Heard({}, {2125}));
    Draw(Heard({2200}, {2125}), 1);
    Draw(Heard({2000}, {2125}), 10);
    const QImage picture = Picture();
    int top = 0;
    while (Columns(picture, top, markColour).empty()) ++top;
    top += 6; // behind the mark's overhang
    EXPECT_NEAR(Brightest(picture, top + 1), view.PlaceOf(2000), 2);
    EXPECT_NEAR(Brightest(picture, top + 10), view.PlaceOf(2200), 2);
    EXPECT_EQ(picture.pixelColor(static_cast<int>(view.PlaceOf(2200)), top + 5),
              picture.pixelColor(static_cast<int>(view.PlaceOf(2250)), top + 5));
}

TEST_F(ViewTest, TheWaterfallOutlastsItsHeight) {
    view.Bandwidth(500);
    view.Show(Kind::Waterfall);
    Draw(Heard({2200}, {2125}), 1000);
    const QImage picture = Picture();
    for (const int row : {30, 100, 199}) EXPECT_NEAR(Brightest(picture, row), view.PlaceOf(2200), 2) << row;
}

TEST_F(ViewTest, WhatIsSentLeavesTheNoiseWhereItWas) {
    view.Bandwidth(500);
    view.Show(Kind::Waterfall);
    Draw(Heard({2200}, {2125}), 200);
    const QImage before = Picture();
    MmvSpectrum own = Heard({2125}, {2125});
    for (float& level : own.line) level -= 70;
    own.own = true;
    Draw(own, 200);
    EXPECT_NE(Picture(), before);
    Draw(Heard({2200}, {2125}), 30);
    EXPECT_EQ(Picture().copy(0, 25, 500, 10), before.copy(0, 25, 500, 10)) << "nothing has to settle anew";
}

TEST_F(ViewTest, WhatIsSentShowsItsShapeHoweverFarAboveTheNoise) {
    view.Bandwidth(500);
    view.Show(Kind::Waterfall);
    Draw(Heard({}, {2125}), 200);
    MmvSpectrum own = Heard({2200}, {2125});
    for (float& level : own.line) level += 40; // its sides stand where loud signals do
    own.own = true;
    Draw(own, 30);
    const QImage picture = Picture();
    EXPECT_NEAR(Brightest(picture, 30), view.PlaceOf(2200), 2);
    EXPECT_LT(picture.pixelColor(static_cast<int>(view.PlaceOf(2000)), 30).lightness(), 80);
}

TEST_F(ViewTest, TheWaveformIsTheSoundsOwnShape) {
    view.Show(Kind::Wave);
    Draw(Heard({}, {}), 1);
    const QImage picture = Picture();
    const auto lit = [&](int x, int from, int to) {
        for (int y = from; y < to; ++y)
            if (picture.pixelColor(x, y).green() > 180) return true;
        return false;
    };
    // Four waves of 125 pixels.
    EXPECT_TRUE(lit(31, 0, 40));
    EXPECT_TRUE(lit(94, 160, 200));
    EXPECT_FALSE(lit(31, 100, 200));
}

TEST_F(ViewTest, SyncShowsWhatWasDecidedOnBothSidesOfTheMiddle) {
    view.Show(Kind::Sync);
    Draw(Heard({}, {}), 1);
    const QImage picture = Picture();
    int above = 0, below = 0, middle = 0;
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixelColor(x, y).green() > 180) ++(y < 40 ? above : y >= 160 ? below : middle);
    EXPECT_GT(above, 20);
    EXPECT_GT(below, 20);
    EXPECT_EQ(middle, 0);
    MmvSpectrum nothing;
    view.Draw(nothing);
    EXPECT_NE(Picture(), picture);
}

TEST_F(ViewTest, MarksStandAtTheTones) {
    for (const Kind kind : {Kind::Fft, Kind::Waterfall}) {
        view.Show(kind);
        for (const int width : {500, 1000, 2000, 3000}) {
            view.Bandwidth(width);
            Draw(Heard({}, {2125, 2295}), 1);
            const std::vector<int> marks = Columns(Picture(), 150, markColour);
            ASSERT_EQ(marks.size(), 2U) << width;
            EXPECT_NEAR(view.HertzAt(marks[0] + 0.5), 2125, width / 500.0);
            EXPECT_NEAR(view.HertzAt(marks[1] + 0.5), 2295, width / 500.0);
        }
    }
}

TEST_F(ViewTest, TheScaleIsAsWideAsTheBandwidth) {
    for (const int width : {500, 1000, 2000, 3000}) {
        view.Bandwidth(width);
        EXPECT_EQ(view.Bandwidth(), width);
        Draw(Heard({}, {1500}), 1);
        EXPECT_NEAR(view.HertzAt(500) - view.HertzAt(0), width, 1e-9);
        EXPECT_EQ(view.HertzAt(0), view.Left());
        EXPECT_NEAR(view.PlaceOf(view.HertzAt(123)), 123, 1e-9);
        EXPECT_NEAR(view.HertzAt(250), 1500, width / 4.0) << "the signal is in the middle half";
        EXPECT_GE(view.Left(), 0);
        EXPECT_LE(view.Left() + width, 3000);
    }
}

TEST_F(ViewTest, ThePictureMovesAfterTheCarrierAndOnlyWhereItMust) {
    view.Bandwidth(500);
    Draw(Heard({}, {2125}), 1);
    EXPECT_EQ(view.Left(), 1875);
    Draw(Heard({}, {2200}), 1);
    EXPECT_EQ(view.Left(), 1875) << "AFC alone must not rock it";
    Draw(Heard({}, {2300}), 1);
    EXPECT_EQ(view.Left(), 2050);
    Draw(Heard({}, {100}), 1);
    EXPECT_EQ(view.Left(), 0);
    Draw(Heard({}, {2990}), 1);
    EXPECT_EQ(view.Left(), 2500);
    Draw(Heard({}, {}), 1);
    EXPECT_EQ(view.Left(), 2500);
}

TEST_F(ViewTest, AClickTunesToThePlaceUnderIt) {
    view.Bandwidth(500);
    Draw(Heard({}, {2125}), 1);
    for (const Kind kind : {Kind::Fft, Kind::Waterfall}) {
        view.Show(kind);
        tuned.clear();
        for (const int x : {0, 125, 250, 499}) Click(x);
        EXPECT_EQ(tuned, (std::vector<double>{1875, 2000, 2125, 2374}));
    }
    EXPECT_EQ(clicks, 8);
}

TEST_F(ViewTest, APictureWithoutAScaleIsNoDial) {
    Draw(Heard({}, {2125}), 1);
    for (const Kind kind : {Kind::Sync, Kind::Wave}) {
        view.Show(kind);
        Click(250);
        EXPECT_TRUE(Columns(Picture(), 150, markColour).empty());
    }
    EXPECT_TRUE(tuned.empty());
    EXPECT_EQ(clicks, 2);
}

TEST_F(ViewTest, AnotherMouseButtonTunesNothing) {
    Draw(Heard({}, {2125}), 1);
    Click(250, Qt::RightButton);
    EXPECT_TRUE(tuned.empty());
    EXPECT_EQ(clicks, 1);
}

TEST_F(ViewTest, AnySizeAndAnythingHeardIsPainted) {
    for (const QSize size : {QSize(1, 1), QSize(160, 10), QSize(1500, 700)}) {
        view.resize(size);
        for (const Kind kind : {Kind::Fft, Kind::Waterfall, Kind::Sync, Kind::Wave}) {
            view.Show(kind);
            for (const MmvSpectrum& spectrum : {MmvSpectrum{}, Heard({2000}, {2125}), Heard({}, {9000})}) {
                Draw(spectrum, 2);
                EXPECT_FALSE(Picture().isNull());
            }
        }
    }
}

// ---- level and buttons --------------------------------------------------------------------------------

namespace {

/// How high the column stands, and its colour.
std::pair<double, QColor> Column(XMMVLvl& level) {
    const QImage picture = level.grab().toImage();
    const QColor ground = picture.pixelColor(0, 0);
    int lit = 0;
    for (int y = 0; y < picture.height(); ++y)
        if (picture.pixelColor(picture.width() / 2, y) != ground) ++lit;
    return {static_cast<double>(lit) / picture.height(),
            picture.pixelColor(picture.width() / 2, picture.height() - 1)};
}

} // namespace

TEST(LevelMeter, IsAsHighAsTheSoundIsLoudInDecibels) {
    for (const auto& [level, height] : {std::pair{1.0, 1.0}, {0.1, 2.0 / 3}, {0.01, 1.0 / 3}, {0.0, 0.0}}) {
        XMMVLvl meter;
        meter.resize(14, 120);
        meter.Draw(level);
        EXPECT_NEAR(Column(meter).first, height, 0.02) << level;
    }
}

TEST(LevelMeter, RisesAtOnceFallsSlowlyAndTurnsRedWhereSamplesAreCut) {
    XMMVLvl meter;
    meter.resize(14, 120);
    meter.Draw(0.2);
    const QColor fine = Column(meter).second;
    meter.Draw(2);
    EXPECT_EQ(meter.Level(), 1);
    const QColor cut = Column(meter).second;
    EXPECT_GT(cut.red(), 200);
    EXPECT_LT(cut.green(), 120);
    EXPECT_GT(fine.green(), fine.red());
    meter.Draw(0);
    EXPECT_GT(meter.Level(), 0.5);
    EXPECT_LT(meter.Level(), 1);
    for (int i = 0; i < 60; ++i) meter.Draw(0);
    EXPECT_LT(meter.Level(), 0.001);
}

TEST(EngineButton, LeavesTheFocusWhereItIsAndASwitchStaysDown) {
    QWidget window;
    QBoxLayout row(QBoxLayout::LeftToRight, &window);
    auto* field = new QLineEdit;
    auto* once = new XMMVBtn("TX", "BtnTX");
    auto* stays = new XMMVBtn("AFC", "BtnAFC", true);
    for (QWidget* widget : std::initializer_list<QWidget*>{field, once, stays}) row.addWidget(widget);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field->setFocus();
    EXPECT_EQ(once->objectName(), "BtnTX");
    int clicks = 0;
    QObject::connect(once, &QPushButton::clicked, &window, [&] { ++clicks; });
    for (XMMVBtn* button : {once, stays}) QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(once->isChecked());
    EXPECT_TRUE(stays->isChecked());
    EXPECT_TRUE(field->hasFocus());
    QTest::mouseClick(stays, Qt::LeftButton);
    EXPECT_FALSE(stays->isChecked());
    stays->setFocus(Qt::TabFocusReason);
    QTest::keyClick(stays, Qt::Key_Space);
    EXPECT_TRUE(stays->isChecked()) << "the keyboard reaches them too";
}
