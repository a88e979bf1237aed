// The life of a log file in the main window.
#include "support/Programprov.h"

#include "platform/clock.h"

class LoggProv : public Programprov {};

TEST_F(LoggProv, ANewLogIsACopyOfTheTemplateWithItsContestNumber) {
    StartaLogg(4);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT Aktuellt_Test FROM INFO"), "4");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT LöpNr FROM INFO"), "1");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "0");
}

TEST_F(LoggProv, TheFileDialogOfANewLogAsksForAnSvkFileInTheLogFolder) {
    StartaLogg(1);
    ASSERT_EQ(filfrågor.size(), 1U);
    EXPECT_EQ(filfrågor[0].title, "Ny Logg");
    EXPECT_EQ(filfrågor[0].filter, "TestLogg (*.svk)|*.svk");
    EXPECT_EQ(filfrågor[0].folder, Fil("Loggar/"));
    EXPECT_TRUE(filfrågor[0].save);
}

TEST_F(LoggProv, OpeningALogOfAnotherContestTakesItsNumberFromTheLog) {
    frTest& f = StartaLogg(9, "sac.svk");
    NyLogg(3, "nac.svk");
    EXPECT_EQ(delat.AktuelltTest, 3);
    filval.push_back(Logg("sac.svk"));
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(delat.AktuelltTest, 9);
    EXPECT_EQ(f.windowTitle(), "SAC Contest (CW)  TestSignal: SK7MW");
    EXPECT_EQ(f.frmLogg->title(), "TestLogg Fil [sac.svk]");
}

TEST_F(LoggProv, TheNameOfAnExistingLogReplacesItWithAnEmptyOne) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89");
    EXPECT_EQ(f.lblQSO->text(), "1");
    NyLogg(1, "prov.svk");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "0");
    EXPECT_EQ(f.lblQSO->text(), "0");
}

TEST_F(LoggProv, AContactTypedAndSavedWithTheKeyboardAloneIsInTheFile) {
    frTest& f = StartaLogg(1);
    f.TestTimer_Tick();
    f.txtSignal->setFocus();
    Skriv("sm5abc");
    Tryck(Qt::Key_Tab);
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), f.txtDiplom);
    Skriv("jo89wj");
    Tryck(Qt::Key_Return);
    const auto rader =
        Läs(Logg(), "SELECT Datum, Tid, Signal, Multiplar, Diplom, Rutor, DXCC, Land, Prefix, Poäng "
                    "FROM TESTQSO");
    const std::vector<std::vector<QString>> väntat = {
        {"2026-12-01", "18:00:00", "SM5ABC", "JO89WJ", "JO89", "JO89", "SM", "Sverige", "SM5", "500"}};
    EXPECT_EQ(rader, väntat);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(QApplication::focusWidget(), f.txtSignal);
}

TEST_F(LoggProv, ADuplicateIsWarnedOfAndOKThrowsItAway) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    SvaraVarning(true);
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_TRUE(HarFokus(f.txtSignal));
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "1");
}

TEST_F(LoggProv, TheClockFieldsAreWrittenBackWhenTheLogIsClosed) {
    frTest& f = StartaLogg(1);
    f.txtAktiv->setText("01:02:03");
    f.txtVila->setText("00:00:09");
    f.mnuArkiv_StängTestlogg_Click();
    EXPECT_EQ(LäsEtt(Logg(), "SELECT AktivTid FROM INFO"), "01:02:03");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT ViloTid FROM INFO"), "00:00:09");
    EXPECT_FALSE(delat.TestLoggÖppen);
    EXPECT_EQ(f.frmLogg->title(), "TestLogg Fil");
}

TEST_F(LoggProv, AfterTheCloseMenuTheNextLogFindsTheReferenceDatabasesAgain) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    EXPECT_FALSE(db().DataDB.IsOpen());
    NyLogg(1, "två.svk");
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(f.lblQSO->text(), "1");
}

TEST_F(LoggProv, ACancelledNewLogLeavesTheOldOneClosedWithItsFlag) {
    frTest& f = StartaLogg(1);
    filval.push_back(std::nullopt);
    f.NyTestLogg();
    EXPECT_TRUE(delat.TestLoggÖppen);
    EXPECT_FALSE(db().TestDB.IsOpen());
}
