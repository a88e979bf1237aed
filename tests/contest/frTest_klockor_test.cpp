// Operating time, the clock fields and the rate reports, on the real window. No test waits for a timer: a
// second is a tick of it.
#include "support/Programprov.h"

class KlockProv : public Programprov {
protected:
    /// So many seconds as the timers that run now would tick them.
    static void Sekunder(int antal) {
        frTest& f = frTest::instans();
        for (int i = 0; i < antal; ++i)
            for (const platform::Timer* timer : {f.TimerAktiv, f.TimerVila, f.Timer_Wait})
                if (timer->Interval() > 0) timer->Tick();
    }
    static QString Klockor() {
        const frTest& f = frTest::instans();
        return f.txtAktiv->text() + u'|' + f.txtVila->text();
    }
    QString INFO(const char* kolumn) const {
        return LäsEtt(Logg(), QStringLiteral("SELECT %1 FROM INFO").arg(QString::fromUtf8(kolumn)));
    }
};

TEST_F(KlockProv, AnOpenedLogShowsItsClocksAndTheyStand) {
    frTest& f = StartaLogg(1);
    ASSERT_TRUE(QFile::copy(Fil("SVK"), Logg("annan.svk")));
    Ändra(Logg("annan.svk"), "UPDATE INFO SET Aktuellt_Test=1, AktivTid='01:02:03', ViloTid='00:10:00'");
    Kör("sm5abc", "jo89wj"); // the clocks of the log before run
    filval.push_back(Logg("annan.svk"));
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(Klockor(), "01:02:03|00:10:00");
    Sekunder(5);
    EXPECT_EQ(Klockor(), "01:02:03|00:10:00");
}

TEST_F(KlockProv, RestBeforeTheFirstSaveDoesNothing) {
    frTest& f = StartaLogg(1);
    for (int sätt = 0; sätt < 2; ++sätt) {
        if (sätt == 0)
            f.cmdVila->click();
        else
            f.Meny("mnuInställning_Vila")->trigger();
        EXPECT_EQ(f.TimerVila->Interval(), 0);
        EXPECT_FALSE(delat.TidGår);
    }
}

TEST_F(KlockProv, ASaveStartsActivityRestComesByTheButtonAndTheNextSaveEndsIt) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Sekunder(61);
    EXPECT_EQ(Klockor(), "00:01:01|00:00:00");
    f.cmdVila->click();
    EXPECT_FALSE(delat.TidGår);
    EXPECT_EQ(f.TimerAktiv->Interval(), 0);
    EXPECT_EQ(f.TimerVila->Interval(), 1000);
    Sekunder(10);
    EXPECT_EQ(Klockor(), "00:01:01|00:00:10");
    f.cmdVila->click();
    Sekunder(1);
    EXPECT_EQ(Klockor(), "00:01:01|00:00:11") << "a second press is no way back";
    Kör("sm6abc", "jo67bq");
    EXPECT_EQ(Klockor(), "00:01:01|00:00:11") << "both keep their values";
    Sekunder(2);
    EXPECT_EQ(Klockor(), "00:01:03|00:00:11");
    f.Meny("mnuInställning_Vila")->trigger();
    Sekunder(1);
    EXPECT_EQ(Klockor(), "00:01:03|00:00:12");
}

TEST_F(KlockProv, ClosingWritesBothClocksAndLeavingDoesNot) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Sekunder(30);
    f.StängAlltOchSpara();
    EXPECT_EQ(INFO("AktivTid"), "00:00:00");
    f.mnuArkiv_StängTestlogg_Click();
    EXPECT_EQ(INFO("AktivTid"), "00:00:30");
    EXPECT_EQ(INFO("ViloTid"), "00:00:00");
}

TEST_F(KlockProv, ResettingStopsAndZeroesTheClocksButNotTheRateCounters) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Sekunder(100);
    f.Meny("mnuRedigera_NollställTimer")->trigger();
    EXPECT_EQ(Klockor(), "00:00:00|00:00:00");
    for (const platform::Timer* timer : {f.TimerAktiv, f.TimerVila, f.Timer_Wait})
        EXPECT_EQ(timer->Interval(), 0);
    EXPECT_EQ(delat.Räknare10min, 100);
    EXPECT_EQ(delat.Räknare1tim, 100);
    EXPECT_TRUE(delat.TidGår);
}

TEST_F(KlockProv, ResettingEndsARestAndTheNextSaveGoesOnWithTheRate) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Sekunder(50);
    f.cmdVila->click();
    Sekunder(10);
    EXPECT_EQ(Klockor(), "00:00:50|00:00:10");
    f.Meny("mnuRedigera_NollställTimer")->trigger();
    EXPECT_EQ(Klockor(), "00:00:00|00:00:00");
    Sekunder(5);
    EXPECT_EQ(Klockor(), "00:00:00|00:00:00");
    Kör("sm6abc", "jo67bq");
    Sekunder(539);
    EXPECT_EQ(f.txtInfo->toPlainText(), "");
    Sekunder(1);
    EXPECT_EQ(Klockor(), "00:09:00|00:00:00");
    EXPECT_EQ(f.txtInfo->toPlainText(), "Antal QSO under 10 min. 2 st.\n");
}

TEST_F(KlockProv, ASaveDoesNotTakeTheSecondItComesInFromTheClock) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    int sekunder = 0;
    const QMetaObject::Connection räknare =
        QObject::connect(f.txtAktiv, &QLineEdit::textChanged, [&sekunder] { ++sekunder; });
    for (int i = 0; i < 4; ++i) { // saves closer to each other than a second
        QTest::qWait(400);
        Kör(QString("sm5ab%1").arg(QChar('d' + i)), "jo89wj");
    }
    QObject::disconnect(räknare);
    EXPECT_GE(sekunder, 1);
}

TEST_F(KlockProv, AClockThatCannotBeReadSaysSoAndStays) {
    frTest& f = StartaLogg(1);
    const Meddelande fel{"Ett fel har inträffat vid uppdatering av QSO Tid.", "UppdateraQSOTid"};
    f.txtAktiv->setText("hej");
    f.txtVila->setText("");
    f.AktivTestTid();
    EXPECT_EQ(Tag(), fel);
    EXPECT_EQ(f.txtAktiv->text(), "hej");
    f.VilaTesttid();
    EXPECT_EQ(Tag(), fel);
    EXPECT_EQ(f.txtVila->text(), "");
}

// ---- the rate -----------------------------------------------------------------------------------------

TEST_F(KlockProv, TheRateIsToldTenMinutesAndAnHourAfterTheFirstSave) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6abc", "jo67bq");
    Sekunder(599);
    EXPECT_EQ(f.txtInfo->toPlainText(), "");
    Sekunder(1);
    EXPECT_EQ(f.txtInfo->toPlainText(), "Antal QSO under 10 min. 2 st.\n");
    Kör("sm7abc", "jo65aa");
    Sekunder(600);
    EXPECT_EQ(f.txtInfo->toPlainText(), "Antal QSO under 10 min. 2 st.\nAntal QSO under 10 min. 1 st.\n");
    Sekunder(2400);
    const QStringList rader = f.txtInfo->toPlainText().split('\n');
    EXPECT_EQ(rader.size(), 8);
    EXPECT_EQ(rader[5], "Antal QSO under 10 min. 0 st.");
    EXPECT_EQ(rader[6], "Antal QSO under 1 tim. 3 st.");
    EXPECT_EQ(delat.Räknare10min, 0);
    EXPECT_EQ(delat.Räknare1tim, 0);
}

TEST_F(KlockProv, TheRateGoesOnThroughARest) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Sekunder(300);
    f.cmdVila->click();
    Sekunder(300);
    EXPECT_EQ(f.txtInfo->toPlainText(), "Antal QSO under 10 min. 1 st.\n");
}

TEST_F(KlockProv, TheRateIsToldBehindEverythingElseOnceWhatWaitsIsDone) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    f.txtInfo->setPlainText("först\n");
    f.txtInfo->moveCursor(QTextCursor::Start);
    Sekunder(599);
    QTimer::singleShot(0, &f, [&f] { f.txtInfo->appendPlainText("sedan\n"); });
    Sekunder(1);
    EXPECT_EQ(f.txtInfo->toPlainText(), "först\n\nsedan\nAntal QSO under 10 min. 1 st.\n");
}

TEST_F(KlockProv, TheRateCountsFromTheOpeningOfTheLogAndAllOfIt) {
    frTest& f = StartaLogg(1);
    for (int i = 0; i < 3; ++i) Loggad(QString("SM5AB%1").arg(i), "2 M");
    filval.push_back(Logg());
    f.mnuArkiv_ÖppnaTestlogg_Click();
    Kör("la1aa", "jo59aa");
    db().rsTESTQSO.Filter("DXCC = 'SM'"); // as the editor narrows it
    Sekunder(600);
    EXPECT_EQ(f.txtInfo->toPlainText(), "Antal QSO under 10 min. 1 st.\n");
    NyLogg(1, "ny.svk");
    Kör("sm5abc", "jo89wj");
    Sekunder(600);
    EXPECT_EQ(f.txtInfo->toPlainText(), "Antal QSO under 10 min. 1 st.\nAntal QSO under 10 min. 1 st.\n");
}

// ---- the clock fields ---------------------------------------------------------------------------------

TEST_F(KlockProv, TheClockFieldsAndTheDateFollowTheTimeOfDay) {
    frTest& f = StartaLogg(1);
    struct Fall {
        const char *utc, *lokal;
        QDateTime nu;
        const char *utcTid, *datum;
    };
    const QDate dag(2026, 12, 1);
    for (const Fall& fall : {Fall{"0", "12:00:00", {dag, {12, 0}}, "12:00:00", "2026-12-01"},
                             Fall{"-1", "00:30:00", {dag, {0, 30}}, "23:30:00", "2026-11-30"},
                             Fall{"-1", "01:00:00", {dag, {1, 0}}, "00:00:00", "2026-12-01"},
                             Fall{"-2", "01:59:59", {dag, {1, 59, 59}}, "23:59:59", "2026-11-30"},
                             Fall{"-3", "02:59:59", {dag, {2, 59, 59}}, "23:59:59", "2026-11-29"},
                             Fall{"-3", "03:00:00", {dag, {3, 0}}, "00:00:00", "2026-12-01"}}) {
        SCOPED_TRACE(fall.lokal);
        delat.OpUTCTid = fall.utc;
        nu = fall.nu;
        f.TestTimer_Tick();
        EXPECT_EQ(f.txtLokalTid->text(), fall.lokal);
        EXPECT_EQ(f.txtUTCTid->text(), fall.utcTid);
        EXPECT_EQ(f.txtDatum->text(), fall.datum);
    }
}

TEST_F(KlockProv, AnEditedDateIsNotOverwritten) {
    frTest& f = StartaLogg(1);
    delat.RedigeraQSO = true;
    f.txtDatum->setText("2026-01-01");
    f.txtUTCTid->setText("10:11:12");
    f.txtLokalTid->setText("11:11:12");
    const auto fält = [&f] { return f.txtDatum->text() + f.txtUTCTid->text() + f.txtLokalTid->text(); };
    f.TestTimer_Tick();
    EXPECT_EQ(fält(), "2026-01-0110:11:1211:11:12");
    f.RensaTest();
    f.TestTimer_Tick();
    const QString nutid = fält();
    EXPECT_EQ(nutid, "2026-12-0118:00:0019:00:00");
    delat.KlockaPå = false;
    nu = nu.addSecs(1000);
    f.txtDatum->setText("2026-01-01");
    f.TestTimer_Tick();
    EXPECT_EQ(fält(), "2026-01-0118:00:0019:00:00");
}

TEST_F(KlockProv, AModalWindowHoldsTheTimersUpAndOneTickComesWhenItHasGone) {
    frTest& f = StartaLogg(1);
    for (platform::Timer* timer : {f.TestTimer, f.TimerAktiv}) timer->Interval(0);
    f.TimerAktiv->Interval(1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return f.txtAktiv->text() != "00:00:00"; }));
    QDialog ruta(&f);
    ruta.setModal(true);
    ruta.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&ruta));
    const QString då = f.txtAktiv->text();
    QTest::qWait(60);
    EXPECT_EQ(f.txtAktiv->text(), då);
    ruta.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return f.txtAktiv->text() != då; }));
    f.TimerAktiv->Interval(0);
}

TEST_F(KlockProv, ATickThatWasHeldUpComesOnceThoughTheNextIsFarAway) {
    frTest& f = StartaLogg(1);
    for (platform::Timer* timer : {f.TestTimer, f.Timer_Wait}) timer->Interval(0);
    QDialog ruta(&f);
    ruta.setModal(true);
    ruta.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&ruta));
    f.TimerAktiv->Interval(300);
    QTest::qWait(350);
    EXPECT_EQ(f.txtAktiv->text(), "00:00:00");
    ruta.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return f.txtAktiv->text() == "00:00:01"; }, 200));
    f.TimerAktiv->Interval(0);
}

TEST_F(KlockProv, AnOffsetThatIsNoHourIsNone) {
    frTest& f = StartaLogg(1);
    for (const char* utc : {"99999", "hej", "", "-25"}) {
        delat.OpUTCTid = utc;
        f.TestTimer_Tick();
        EXPECT_EQ(f.txtUTCTid->text(), f.txtLokalTid->text()) << utc;
    }
}

TEST_F(KlockProv, NoWayIntoALogLetsTheClocksOfTheOneBeforeRunOn) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    filval.push_back(Logg());
    f.ÖppnaTestLogg(); // as the button of the choice of contests does
    EXPECT_EQ(f.TimerAktiv->Interval(), 0);
    EXPECT_FALSE(delat.TidGår);
    Kör("sm6abc", "jo67bq");
    f.mnuArkiv_StängTestlogg_Click();
    for (const platform::Timer* timer : {f.TimerAktiv, f.TimerVila, f.Timer_Wait})
        EXPECT_EQ(timer->Interval(), 0);
}
