// From nothing to an idle main window.
#include "support/Programprov.h"
#include "support/Provmapp.h"
#include "support/ToPrint.h"

#include "contest/frSplashTest.h"
#include "platform/application.h"
#include "platform/windows.h"

#include <QFile>
#include <QMenu>
#include <QScreen>

namespace {

class StartProv : public Programprov {
protected:
    /// Starts without the file and gives what the failure without a handler says; empty if the start went
    /// well.
    QString StartaUtan(const QString& fil) {
        EXPECT_TRUE(QFile::remove(Fil(fil)));
        return StartaMedFel();
    }
    /// The splash tells that it was on screen; the load goes on when it has gone.
    QString StartaMedFel() {
        NärFönster("frSplashTest", [this](QWidget*) { splashSedd = true; });
        HoppaÖverSplash();
        try {
            frTest::instans().Ladda();
        } catch (const platform::Failure& fel) {
            return fel.message();
        }
        return {};
    }
    bool splashSedd = false;
};

bool PåMenyn(frTest& f, const char* namn) { return f.Meny(namn)->isEnabled(); }

} // namespace

// ---- the splash ---------------------------------------------------------------------------------------

TEST_F(StartProv, TheSplashGoesAtItsTwentiethTickOfATenthOfASecond) {
    frSplashTest& splash = frSplashTest::instans();
    QPointer<frSplashTest> kvar = &splash;
    int intervall = 0;
    // Ahead of the timer's own first tick, so that every tick is counted here.
    QTimer::singleShot(1, &splash, [&] {
        intervall = splash.TimerSplash->Interval();
        splash.TimerSplash->Interval(0);
    });
    bool körd = false;
    NärFönster("frSplashTest", [&](QWidget*) {
        körd = true;
        EXPECT_TRUE(splash.isModal());
        EXPECT_EQ(splash.lblver->text(), "3.0.0");
        splash.TimerSplash->Interval(3600000);
        for (int i = 0; i < 19; ++i) splash.TimerSplash->Tick();
        EXPECT_TRUE(splash.isVisible());
        EXPECT_EQ(splash.TimerSplash->Interval(), 3600000);
        splash.TimerSplash->Tick();
        EXPECT_FALSE(splash.isVisible());
        EXPECT_EQ(splash.TimerSplash->Interval(), 0);
    });
    splash.VisaModalt();
    EXPECT_TRUE(körd);
    EXPECT_EQ(intervall, 100);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(QTest::qWaitFor([&] { return kvar.isNull(); }));
}

TEST_F(StartProv, TheSplashShowsTheLogoOfTheProgramFolder) {
    const QImage logga(Fil("Bilder/Logo.gif"));
    ASSERT_FALSE(logga.isNull());
    EXPECT_EQ(frSplashTest::instans().picLogo->pixmap().size(), logga.size());
}

TEST_F(StartProv, ASplashWithoutItsPictureComesAllTheSame) {
    QFile::remove(Fil("Bilder/Logo.gif"));
    EXPECT_EQ(StartaMedFel(), QString());
    EXPECT_TRUE(splashSedd);
}

TEST_F(StartProv, NeitherEscNorTheFrameHurriesTheSplash) {
    frSplashTest& splash = frSplashTest::instans();
    NärFönster("frSplashTest", [](QWidget* fönster) {
        QTest::keyClick(fönster, Qt::Key_Escape);
        fönster->close();
        EXPECT_TRUE(fönster->isVisible());
        for (int i = 0; i < 20; ++i) static_cast<frSplashTest*>(fönster)->TimerSplash->Tick();
    });
    splash.VisaModalt();
    EXPECT_FALSE(splash.isVisible());
}

TEST_F(StartProv, TheMainWindowIsNotSeenAndNoDatabaseOpenedBeforeTheSplashHasGone) {
    bool körd = false;
    NärFönster("frSplashTest", [&](QWidget*) {
        körd = true;
        EXPECT_FALSE(frTest::instans().isVisible());
        EXPECT_FALSE(db().DataDB.IsOpen());
        EXPECT_EQ(frTest::instans().TestTimer->Interval(), 0);
    });
    frTest& f = Starta();
    EXPECT_TRUE(körd);
    EXPECT_TRUE(f.isVisible());
    EXPECT_TRUE(db().DataDB.IsOpen());
}

TEST_F(StartProv, WhatWaitedDuringTheSplashRunsBeforeTheDatabasesAreOpened) {
    std::optional<bool> öppen;
    NärFönster("frSplashTest", [&](QWidget* fönster) {
        for (int i = 0; i < 20; ++i) static_cast<frSplashTest*>(fönster)->TimerSplash->Tick();
        QTimer::singleShot(0, fönster, [&] { öppen = db().DataDB.IsOpen(); });
    });
    frTest::instans().Ladda();
    ASSERT_TRUE(öppen.has_value());
    EXPECT_FALSE(*öppen);
}

// ---- the idle window ----------------------------------------------------------------------------------

TEST_F(StartProv, AfterTheStartThreeDatabasesAreOpenAndNoOther) {
    Starta();
    const Databaser& d = db();
    EXPECT_EQ(d.DataDB.Path(), Fil("Data.Dat"));
    EXPECT_EQ(d.DXSpottDB.Path(), Fil("DXSpott.Dat"));
    EXPECT_EQ(d.SVDDB.Path(), Fil("SVD.Dat"));
    for (const platform::Recordset* markör : {&d.rsPrefix, &d.rsDXSpottLogg, &d.rsSVDINI})
        EXPECT_TRUE(markör->IsOpen());
    EXPECT_EQ(d.rsPrefix.Sort(), "Prefix");
    EXPECT_EQ(d.rsDXSpottLogg.Sort(), "Datum");
    for (const platform::Connection* stängd : {&d.LokatorDB, &d.FriendDB, &d.TestDB})
        EXPECT_FALSE(stängd->IsOpen());
}

TEST_F(StartProv, AllConnectionsButTheSettingsHaveTheirCursorsAtTheClient) {
    StartaLogg(1);
    const Databaser& d = db();
    for (const platform::Connection* anslutning :
         {&d.DataDB, &d.DXSpottDB, &d.LokatorDB, &d.FriendDB, &d.TestDB})
        EXPECT_EQ(anslutning->CursorLocation(), 3) << anslutning->Path().toStdString();
    EXPECT_NE(d.SVDDB.CursorLocation(), 3);
}

TEST_F(StartProv, TheSharedValuesStandAtTheirStart) {
    Starta();
    EXPECT_EQ(delat.AktuelltTest, 0);
    EXPECT_FALSE(delat.TestLoggÖppen);
    EXPECT_FALSE(delat.TestVald);
    EXPECT_FALSE(delat.DigitalTest);
    EXPECT_FALSE(delat.TidGår);
    EXPECT_TRUE(delat.TabbstopRST);
    EXPECT_FALSE(delat.TabbstopLöpnr);
    EXPECT_TRUE(delat.KlockaPå);
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_FALSE(delat.DubblettFlagga);
    EXPECT_FALSE(delat.VarningUppe);
    EXPECT_FALSE(delat.RadioPå);
    EXPECT_FALSE(delat.FT8Läge);
    EXPECT_FALSE(delat.NätverkAnsluten);
}

TEST_F(StartProv, TheCaptionNamesProductVersionAndTheOwnTestCall) {
    Ändra(Fil("SVD.Dat"), "UPDATE SVDINI SET OpSignal='SK7MW'");
    frTest& f = Starta();
    EXPECT_EQ(f.windowTitle(), "Sorvik 3.0.0  TestSignal: SK7MW");
    EXPECT_EQ(f.lblV->text(), "3.0.0");
}

TEST_F(StartProv, TheCaptionOfANewStationEndsAfterItsColon) {
    EXPECT_EQ(Starta().windowTitle(), "Sorvik 3.0.0  TestSignal: ");
}

TEST_F(StartProv, TheStatusBarTellsTheDateAndTheClockShowsTheTimeAtOnce) {
    nu = QDateTime(QDate(2026, 3, 9), QTime(7, 5, 3));
    frTest& f = Starta();
    EXPECT_EQ(f.SBarTest(1), "Datum: 2026-03-09");
    EXPECT_EQ(f.txtLokalTid->text(), "07:05:03");
}

TEST_F(StartProv, TheSignsOfANewContactAreHidden) {
    frTest& f = Starta();
    for (const QLabel* tecken : {f.lblNyttLand, f.lblNyttBand, f.lblDistrikt, f.lblMultipel, f.lblNyRuta,
                                 f.lblDubblett, f.lblNyIOTA})
        EXPECT_FALSE(tecken->isVisible()) << tecken->text().toStdString();
}

TEST_F(StartProv, TheClockTicksEachSecondAndTheContestClocksStand) {
    frTest& f = Starta();
    EXPECT_EQ(f.TestTimer->Interval(), 1000);
    for (const platform::Timer* timer : {f.TimerAktiv, f.TimerVila, f.Timer_Wait})
        EXPECT_EQ(timer->Interval(), 0);
}

TEST_F(StartProv, TheRadioIsMarkedAsOff) {
    frTest& f = Starta();
    EXPECT_TRUE(f.Meny("mnuRadio_Av")->isChecked());
    EXPECT_FALSE(f.Meny("mnuRadio_På")->isChecked());
}

TEST_F(StartProv, WithNoLogOpenSettingsAreInReachAndTheWorkIsNot) {
    frTest& f = Starta();
    for (const char* namn : {"mnuArkiv", "mnuInställning", "mnuHjälp"}) EXPECT_TRUE(PåMenyn(f, namn)) << namn;
    for (const char* namn :
         {"mnuRedigera", "mnuDXCluster", "mnuRadio", "mnuRapport", "mnufönster", "mnuCW", "mnuDigital"})
        EXPECT_FALSE(PåMenyn(f, namn)) << namn;
    EXPECT_FALSE(f.frmLogg->isEnabled());
    for (const QPushButton* knapp : {f.cmdVisa, f.cmdAvbryt, f.cmdSpara, f.cmdRadera})
        EXPECT_FALSE(knapp->isEnabled()) << knapp->text().toStdString();
}

TEST_F(StartProv, AnOpenLogTurnsTheWorkOn) {
    frTest& f = StartaLogg(1);
    for (const char* namn : {"mnuArkiv", "mnuInställning", "mnuHjälp", "mnuRedigera", "mnuDXCluster",
                             "mnuRadio", "mnuRapport", "mnufönster"})
        EXPECT_TRUE(PåMenyn(f, namn)) << namn;
    EXPECT_TRUE(f.frmLogg->isEnabled());
    for (const QPushButton* knapp : {f.cmdVisa, f.cmdAvbryt, f.cmdSpara, f.cmdRadera})
        EXPECT_TRUE(knapp->isEnabled()) << knapp->text().toStdString();
}

TEST_F(StartProv, TurningTheMenusOnLeavesTheTwoKeyingMenusToModeAndContest) {
    frTest& f = Starta();
    f.AktiveraMenyer(true);
    EXPECT_FALSE(PåMenyn(f, "mnuCW"));
    EXPECT_FALSE(PåMenyn(f, "mnuDigital"));
}

TEST_F(StartProv, TurningTheMenusOffTakesTheKeyingMenusAlongAndLeavesTheSettingsAsTheyAre) {
    frTest& f = StartaLogg(3);
    EXPECT_TRUE(PåMenyn(f, "mnuCW"));
    f.Meny("mnuDigital")->menu()->setEnabled(true);
    f.Meny("mnuInställning")->menu()->setEnabled(false);
    f.AktiveraMenyer(false);
    for (const char* namn : {"mnuCW", "mnuDigital", "mnuInställning"}) EXPECT_FALSE(PåMenyn(f, namn)) << namn;
    f.AktiveraMenyer(true);
    EXPECT_TRUE(PåMenyn(f, "mnuInställning"));
    f.AktiveraMenyer(false);
    EXPECT_TRUE(PåMenyn(f, "mnuInställning"));
}

TEST_F(StartProv, DelDoesNothingWhileNoLogIsOpen) {
    frTest& f = Starta();
    delat.RedigeraQSO = true;
    QTest::keyClick(&f, Qt::Key_Delete);
    EXPECT_TRUE(frågor.empty());
}

TEST_F(StartProv, EnterAndEscInTheIdleWindowDoNothing) {
    frTest& f = Starta();
    QTest::keyClick(&f, Qt::Key_Return);
    QTest::keyClick(&f, Qt::Key_Escape);
    EXPECT_FALSE(delat.TidGår);
    EXPECT_EQ(f.TimerAktiv->Interval(), 0);
}

TEST_F(StartProv, TheWindowFitsASmallScreenAsAWhole) {
    frTest& f = Starta();
    const QRect skärm = f.screen()->availableGeometry();
    if (skärm.width() < 1307) {
        EXPECT_TRUE(f.isMaximized());
    }
    EXPECT_TRUE(skärm.contains(f.geometry())) << f.width() << 'x' << f.height();
}

// Run once more on a screen with room: the usual one has 800 by 800.
TEST_F(StartProv, TheWindowHasItsFullSizeAndPlaceWhereTheScreenHasRoom) {
    if (!qEnvironmentVariableIsSet("SORVIK_STORSKARM")) {
        EXPECT_LT(QApplication::primaryScreen()->size().width(), 1620)
            << "this screen could be put to the test";
        return;
    }
    frTest& f = Starta();
    ASSERT_GE(f.screen()->size().width(), 1620);
    // 19605 by 15000 at 4680, 380 in 1/1440 inch.
    EXPECT_EQ(f.size(), QSize(1307, 1000));
    EXPECT_EQ(f.pos(), QPoint(312, 25));
}

// ---- failures -----------------------------------------------------------------------------------------

TEST_F(StartProv, AStartWithoutTheSettingsFailsAfterTheSplashAndWithNoWindow) {
    EXPECT_NE(StartaUtan("SVD.Dat"), QString());
    EXPECT_TRUE(splashSedd);
    EXPECT_FALSE(frTest::instans().isVisible());
    EXPECT_FALSE(QFile::exists(Fil("SVD.Dat"))) << "an empty file must not take its place";
}

TEST_F(StartProv, TheSettingsAreTheLastOfTheThreeToBeOpened) {
    EXPECT_NE(StartaUtan("SVD.Dat"), QString());
    EXPECT_TRUE(db().DataDB.IsOpen());
    EXPECT_TRUE(db().DXSpottDB.IsOpen());
    EXPECT_FALSE(db().SVDDB.IsOpen());
    EXPECT_FALSE(db().rsPrefix.IsOpen()) << "the cursors come after all three connections";
}

TEST_F(StartProv, AStartWithoutTheSpotStoreFails) {
    EXPECT_NE(StartaUtan("DXSpott.Dat"), QString());
    EXPECT_TRUE(db().DataDB.IsOpen());
    EXPECT_FALSE(db().DXSpottDB.IsOpen());
    EXPECT_FALSE(db().SVDDB.IsOpen());
}

TEST_F(StartProv, AStartWithoutTheCountriesFails) {
    EXPECT_NE(StartaUtan("Data.Dat"), QString());
    EXPECT_FALSE(db().DXSpottDB.IsOpen());
}

TEST_F(StartProv, AStartOnSettingsWithoutTheirRowFails) {
    Ändra(Fil("SVD.Dat"), "DELETE FROM SVDINI");
    EXPECT_NE(StartaMedFel(), QString());
    EXPECT_TRUE(splashSedd);
}

TEST_F(StartProv, AStartOnADamagedDatabaseFails) {
    QFile fil(Fil("Data.Dat"));
    ASSERT_TRUE(fil.open(QIODevice::WriteOnly));
    fil.write("This is no database, though it is long enough to be looked at as one.");
    fil.close();
    EXPECT_NE(StartaMedFel(), QString());
}

TEST_F(StartProv, AMissingLocatorMemoryOrTemplateDoesNotStopTheStart) {
    for (const char* fil : {"Lokator.dat", "Friend.dat", "SVK"}) QFile::remove(Fil(fil));
    EXPECT_EQ(StartaMedFel(), QString());
}

TEST_F(StartProv, AFailureWithoutAHandlerEndsTheProcessWithStatusOne) {
    EXPECT_THROW(platform::EndByFailure("det gick inte"), ProcessSlut);
    EXPECT_EQ(slut, 1);
}

TEST_F(StartProv, AFailureThatReachesTheEventLoopEndsTheProcessWithStatusOne) {
    frTest& f = Starta();
    QObject::connect(f.cmdVila, &QPushButton::clicked, &f, [] { throw platform::Failure("från en knapp"); });
    EXPECT_THROW(QTest::mouseClick(f.cmdVila, Qt::LeftButton), ProcessSlut);
    EXPECT_EQ(slut, 1);
}
