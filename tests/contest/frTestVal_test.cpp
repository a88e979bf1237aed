// The choice of a contest, from the grid to the new log.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "contest/frTestInst.h"
#include "contest/frTestVal.h"

#include <QFile>
#include <QHeaderView>

namespace {

const char* const radtexter[] = {"NAC Test 70 CM",       "NAC Test 2 M",        "NAC Test 6 M",
                                 "NAC Test 10 M (CW)",   "NAC Test 10 M (SSB)", "NAC Test 10 M (FM)",
                                 "NAC Test 10 M (RTTY)", "Månads Test (CW)",    "Månads Test (SSB)",
                                 "SAC Contest (CW)",     "SAC Contest (SSB)",   "Kvartal Test",
                                 "Baltic Test (CW)",     "Baltic Test (SSB)",   "VUS CHRISTMAS CONTEST"};

class ValProv : public Programprov {
protected:
    frTestVal& Visa() {
        frTestVal& val = frTestVal::instans();
        val.Visa();
        EXPECT_TRUE(HarFokus(val.fgTestVal));
        return val;
    }
    /// What happens in frTestInst when it comes up; without a function it is closed at once.
    void NärStation(std::function<void(frTestInst&)> gör = {}) {
        NärFönster("frTestInst", [this, gör](QWidget* fönster) {
            ++stationer;
            if (gör) gör(*static_cast<frTestInst*>(fönster));
            fönster->close();
        });
    }
    /// Chooses a row, presses NY and gives the new log a name.
    void Välj(int rad, const QString& namn = QStringLiteral("prov.svk")) {
        frTestVal& val = Visa();
        val.fgTestVal->setCurrentCell(rad, 0);
        filval.push_back(Logg(namn));
        NärStation();
        QTest::mouseClick(val.cmdNyTest, Qt::LeftButton);
    }
    QString LoggTest(const QString& namn = QStringLiteral("prov.svk")) const {
        return LäsEtt(Logg(namn), "SELECT Aktuellt_Test FROM INFO");
    }
    int stationer = 0; ///< how often frTestInst has come up
};

void Dubbelklicka(const frTestVal& val, int rad) {
    const QPoint plats = val.fgTestVal->visualItemRect(val.fgTestVal->item(rad, 0)).center();
    QTest::mouseClick(val.fgTestVal->viewport(), Qt::LeftButton, {}, plats);
    QTest::mouseDClick(val.fgTestVal->viewport(), Qt::LeftButton, {}, plats);
}

} // namespace

TEST_F(ValProv, TheGridHasEighteenRowsOfOneColumnAndFifteenContests) {
    Starta();
    const platform::FlexGrid& rutnät = *Visa().fgTestVal;
    EXPECT_EQ(rutnät.rowCount(), 18);
    EXPECT_EQ(rutnät.columnCount(), 1);
    for (int rad = 0; rad < 15; ++rad) EXPECT_EQ(rutnät.Cell(rad, 0), T(radtexter[rad])) << rad;
    for (int rad = 15; rad < 18; ++rad) EXPECT_EQ(rutnät.Cell(rad, 0), "") << rad;
    EXPECT_EQ(rutnät.columnWidth(0), 352); // 5290 in 1/1440 inch
}

TEST_F(ValProv, FillingTheGridAgainRemovesWhatStoodInIt) {
    Starta();
    frTestVal& val = Visa();
    val.fgTestVal->Cell(16, 0, "skräp");
    val.fgTestVal->Cell(3, 0, "skräp");
    val.Initiera_TestVal();
    EXPECT_EQ(val.fgTestVal->Cell(16, 0), "");
    EXPECT_EQ(val.fgTestVal->Cell(3, 0), "NAC Test 10 M (CW)");
}

TEST_F(ValProv, TheButtonsCarryTheirCaptions) {
    Starta();
    const frTestVal& val = Visa();
    EXPECT_EQ(val.cmdNyTest->text(), "NY");
    EXPECT_EQ(val.cmdTidigare->text(), "Tidigare");
    EXPECT_EQ(val.cmdAvbryt->text(), "Stäng");
}

TEST_F(ValProv, NYMakesALogOfTheChosenContest) {
    frTest& f = Starta();
    Välj(4);
    EXPECT_EQ(delat.AktuelltTest, 4);
    EXPECT_EQ(LoggTest(), "4");
    EXPECT_TRUE(f.HarLogg());
    EXPECT_TRUE(delat.TestVald);
    EXPECT_FALSE(frTestVal::instans().isVisible());
    EXPECT_EQ(stationer, 1);
}

TEST_F(ValProv, EveryRowIsTheContestOfItsNumber) {
    Starta();
    for (int rad = 0; rad < 15; ++rad) {
        SCOPED_TRACE(rad);
        Välj(rad, QStringLiteral("%1.svk").arg(rad));
        EXPECT_EQ(delat.AktuelltTest, rad);
        EXPECT_EQ(LoggTest(QStringLiteral("%1.svk").arg(rad)), QString::number(rad));
    }
}

TEST_F(ValProv, AnEmptyRowMakesALogOfTheContestThatWasCurrentBefore) {
    Starta();
    Välj(9);
    for (int rad : {15, 16, 17}) {
        SCOPED_TRACE(rad);
        Välj(rad, QStringLiteral("tom%1.svk").arg(rad));
        EXPECT_EQ(delat.AktuelltTest, 9);
        EXPECT_EQ(LoggTest(QStringLiteral("tom%1.svk").arg(rad)), "9");
    }
}

TEST_F(ValProv, ArrowKeysAndEnterChooseAContest) {
    Starta();
    Visa();
    filval.push_back(Logg());
    NärStation();
    for (int i = 0; i < 7; ++i) Tryck(Qt::Key_Down);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(LoggTest(), "7");
}

TEST_F(ValProv, ADoubleClickOnARowDoesWhatNYDoes) {
    frTest& f = Starta();
    const frTestVal& val = Visa();
    filval.push_back(Logg());
    NärStation();
    Dubbelklicka(val, 2);
    EXPECT_EQ(LoggTest(), "2");
    EXPECT_TRUE(f.HarLogg());
    EXPECT_EQ(stationer, 1);
}

TEST_F(ValProv, ADoubleClickStopsTheClocksEvenWhenNoLogCameOfIt) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(f.TimerAktiv->Interval(), 1000);
    f.TimerVila->Interval(1000);
    const frTestVal& val = Visa();
    filval.push_back(std::nullopt);
    NärStation();
    Dubbelklicka(val, 1);
    EXPECT_EQ(f.TimerAktiv->Interval(), 0);
    EXPECT_EQ(f.TimerVila->Interval(), 0);
}

TEST_F(ValProv, NYWithACancelledDialogLeavesTheClocksRunning) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    frTestVal& val = Visa();
    filval.push_back(std::nullopt);
    NärStation();
    QTest::mouseClick(val.cmdNyTest, Qt::LeftButton);
    EXPECT_EQ(f.TimerAktiv->Interval(), 1000);
    EXPECT_TRUE(delat.TidGår);
}

TEST_F(ValProv, ACancelledDialogLeavesTheNumberChangedNoLogAndTheStationDataShown) {
    frTest& f = Starta();
    frTestVal& val = Visa();
    val.fgTestVal->setCurrentCell(8, 0);
    filval.push_back(std::nullopt);
    NärStation();
    QTest::mouseClick(val.cmdNyTest, Qt::LeftButton);
    EXPECT_EQ(delat.AktuelltTest, 8);
    EXPECT_FALSE(f.HarLogg());
    EXPECT_FALSE(delat.TestVald);
    EXPECT_EQ(stationer, 1);
}

TEST_F(ValProv, TheChoiceGoesBeforeTheFileIsAskedForAndTheStationDataComeAfterTheLog) {
    frTest& f = Starta();
    bool valSynligt = true;
    const auto fråga = platform::Dialogs().file;
    platform::Dialogs().file = [&](const platform::FileQuestion& q) {
        valSynligt = frTestVal::instans().isVisible();
        return fråga(q);
    };
    frTestVal& val = Visa();
    filval.push_back(Logg());
    NärStation([&](frTestInst& inst) {
        EXPECT_TRUE(inst.isModal());
        EXPECT_TRUE(f.HarLogg());
        EXPECT_FALSE(delat.TestVald) << "the choice is complete when the station data are confirmed";
    });
    QTest::mouseClick(val.cmdNyTest, Qt::LeftButton);
    EXPECT_FALSE(valSynligt);
    EXPECT_TRUE(delat.TestVald);
}

TEST_F(ValProv, TheLogThatWasOpenIsClosedWithItsClocksFirst) {
    frTest& f = StartaLogg(1, "gammal.svk");
    f.txtAktiv->setText("00:45:00");
    f.txtVila->setText("00:05:00");
    Välj(2, "ny.svk");
    EXPECT_EQ(LäsEtt(Logg("gammal.svk"), "SELECT AktivTid FROM INFO"), "00:45:00");
    EXPECT_EQ(LäsEtt(Logg("gammal.svk"), "SELECT ViloTid FROM INFO"), "00:05:00");
    EXPECT_EQ(f.txtAktiv->text(), "00:00:00");
    EXPECT_EQ(f.txtVila->text(), "00:00:00");
}

TEST_F(ValProv, ANewLogStartsWithItsClocksStandingAndItsScoreAtNought) {
    frTest& f = StartaLogg(1, "gammal.svk");
    Kör("sm5abc", "jo89wj");
    EXPECT_NE(f.lblDiplom->text(), "0");
    Välj(1, "ny.svk");
    EXPECT_FALSE(delat.TidGår);
    EXPECT_EQ(f.TimerAktiv->Interval(), 0);
    EXPECT_EQ(f.TimerVila->Interval(), 0);
    EXPECT_EQ(f.lblMultiplar->text(), "0");
    EXPECT_EQ(f.lblDiplom->text(), "0");
}

TEST_F(ValProv, StationDataConfirmedForTheNewLogStandInItsFormAtOnce) {
    frTest& f = Starta();
    frTestVal& val = Visa();
    val.fgTestVal->setCurrentCell(1, 0);
    filval.push_back(Logg());
    NärStation([](frTestInst& inst) {
        inst.txtSignal->setText("SK7MW");
        inst.txtTestLokator->setText("JO65MR");
        inst.txtTestDatum->setText("2026-12-01");
        QTest::mouseClick(inst.cmdSpara, Qt::LeftButton);
    });
    QTest::mouseClick(val.cmdNyTest, Qt::LeftButton);
    EXPECT_EQ(f.windowTitle(), "NAC 2 M  TestSignal: SK7MW");
    EXPECT_EQ(f.txtLokator->text(), "JO65MR");
    f.activateWindow(); // there is no window manager to do it
    ASSERT_TRUE(HarFokus(f.txtSignal));
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT Poäng FROM TESTQSO"), "500");
}

TEST_F(ValProv, TidigareOpensAnEarlierLogWithItsOwnContest) {
    frTest& f = StartaLogg(9, "sac.svk");
    NyLogg(3, "nac.svk");
    frTestVal& val = Visa();
    val.fgTestVal->setCurrentCell(12, 0);
    filval.push_back(Logg("sac.svk"));
    QTest::mouseClick(val.cmdTidigare, Qt::LeftButton);
    EXPECT_FALSE(val.isVisible());
    EXPECT_EQ(filfrågor.back().title, "Öppna Logg");
    EXPECT_EQ(delat.AktuelltTest, 9);
    EXPECT_EQ(f.frmLogg->title(), "TestLogg Fil [sac.svk]");
    EXPECT_EQ(stationer, 0);
}

TEST_F(ValProv, StängClosesTheChoiceAndChangesNothing) {
    Starta();
    delat.AktuelltTest = 5;
    frTestVal& val = Visa();
    val.fgTestVal->setCurrentCell(2, 0);
    QTest::mouseClick(val.cmdAvbryt, Qt::LeftButton);
    EXPECT_FALSE(val.isVisible());
    EXPECT_EQ(delat.AktuelltTest, 5);
    EXPECT_TRUE(filfrågor.empty());
}

TEST_F(ValProv, ALogThatCannotBeReadAfterTheStationDataGivesTheMessageAndKeepsTheNumber) {
    Starta();
    frTestVal& val = Visa();
    val.fgTestVal->setCurrentCell(6, 0);
    filval.push_back(Logg());
    NärStation([](frTestInst&) { db().rsINFO.MoveNext(); }); // behind the only row
    QTest::mouseClick(val.cmdNyTest, Qt::LeftButton);
    EXPECT_EQ(Tag(), (Meddelande{T("Ett fel har inträffat vid val av test!"), T("ValavTest")}));
    EXPECT_EQ(delat.AktuelltTest, 6);
}

TEST_F(ValProv, ANewLogThatCannotBeMadeIsToldAndTheStationDataComeAllTheSame) {
    frTest& f = Starta();
    QFile::remove(Fil("SVK"));
    Välj(3);
    EXPECT_EQ(Tag(), (Meddelande{T("Ett fel har inträffat vid skapandet av ny Testlogg! Åtgärden avbryts!"),
                                 T("NyTestLogg")}));
    EXPECT_EQ(stationer, 1);
    EXPECT_FALSE(f.HarLogg());
}
