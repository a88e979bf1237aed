// The exit query and what follows it.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "contest/frTestInst.h"

#include <QFile>
#include <QWindow>

namespace {

class AvslutProv : public Programprov {
protected:
    frTest& StartaMedStation() {
        Ändra(Fil("SVD.Dat"),
              "UPDATE SVDINI SET OpSignal='SK7MW', OpTestLokator='JO65MR', OpTestDatum='2026-12-01'");
        return Starta();
    }
    /// Answers the exit query with Yes, asked by the menu.
    void Avsluta() {
        jaNej.push_back(true);
        EXPECT_THROW(frTest::instans().Meny("mnuArkiv_Avsluta")->trigger(), ProcessSlut);
        EXPECT_EQ(slut, 0);
    }
    QString SVDINI(const char* kolumn) const {
        return LäsEtt(Fil("SVD.Dat"), QStringLiteral("SELECT %1 FROM SVDINI").arg(QString::fromUtf8(kolumn)));
    }
    QString INFO(const char* kolumn) const {
        return LäsEtt(Logg(), QStringLiteral("SELECT %1 FROM INFO").arg(QString::fromUtf8(kolumn)));
    }
    const Meddelande fråga{T("Vill du verkligen avsluta Sorvik ?"), T("Sorvik")};
    const Meddelande saknas{T("Saknar viktiga uppgifter! Var god kontrollera dessa."), T("Saknar uppgifter")};
};

} // namespace

TEST_F(AvslutProv, TheMenuAndTheCloseBoxAskTheSameQuestion) {
    frTest& f = StartaMedStation();
    jaNej = {false, false};
    f.Meny("mnuArkiv_Avsluta")->trigger();
    f.windowHandle()->close(); // what the window manager's close box sends
    EXPECT_EQ(frågor, (std::vector<Meddelande>{fråga, fråga}));
    EXPECT_FALSE(slut.has_value());
}

TEST_F(AvslutProv, NoLeavesEverythingAsItWasAnOpenLogIncluded) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "sm5abc");
    f.txtAktiv->setText("00:10:00");
    jaNej = {false};
    f.close();
    EXPECT_FALSE(slut.has_value());
    EXPECT_TRUE(f.isVisible());
    EXPECT_TRUE(f.HarLogg());
    EXPECT_FALSE(delat.ProgramAvslutas);
    EXPECT_TRUE(db().SVDDB.IsOpen());
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(INFO("AktivTid"), "00:00:00");
    EXPECT_EQ(f.TestTimer->Interval(), 1000);
    SkrivI(f.txtDiplom, "jo89wj");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT Signal FROM TESTQSO"), "SM5ABC");
}

TEST_F(AvslutProv, YesEndsTheProcessWithStatusNought) {
    StartaMedStation();
    Avsluta();
    EXPECT_FALSE(frTest::instans().isVisible());
}

TEST_F(AvslutProv, YesClosesTheSharedDatabases) {
    StartaLogg(1);
    Avsluta();
    const Databaser& d = db();
    for (const platform::Connection* anslutning :
         {&d.DataDB, &d.DXSpottDB, &d.SVDDB, &d.LokatorDB, &d.FriendDB})
        EXPECT_FALSE(anslutning->IsOpen());
    EXPECT_TRUE(delat.ProgramAvslutas);
    EXPECT_FALSE(delat.LoggIgång);
}

TEST_F(AvslutProv, ALogThatIsOpenAtExitGetsNeitherItsActiveNorItsRestTime) {
    frTest& f = StartaLogg(1);
    f.txtAktiv->setText("01:02:03");
    f.txtVila->setText("00:30:00");
    Avsluta();
    EXPECT_TRUE(db().TestDB.IsOpen()) << "the log is left to the end of the process";
    EXPECT_EQ(INFO("AktivTid"), "00:00:00");
    EXPECT_EQ(INFO("ViloTid"), "00:00:00");
}

TEST_F(AvslutProv, EveryContactSavedBeforeTheExitIsInTheFile) {
    StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6xyz", "jo57aa");
    Avsluta();
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "2");
    EXPECT_EQ(LäsEtt(Logg(), "PRAGMA integrity_check"), "ok");
}

TEST_F(AvslutProv, TheExitStoresTheStationData) {
    StartaMedStation();
    frTestInst::instans().txtNamn->setText("Lars");
    Avsluta();
    EXPECT_EQ(SVDINI("OpNamn"), "Lars");
    EXPECT_EQ(SVDINI("OpSignal"), "SK7MW");
}

TEST_F(AvslutProv, TheExitKeepsWhatTheSettingsHeldIfTheirWindowWasNeverShown) {
    Ändra(Fil("SVD.Dat"),
          "UPDATE SVDINI SET OpSignal='SK7MW', OpTestLokator='JO65MR', OpTestDatum='2026-12-01', "
          "EgenSignal='SM7ABC', OpAdress='Storgatan 1', OpUTCTid='-2', OpEpost='/usr/bin/mutt', "
          "OpEdit='/usr/bin/vi'");
    const auto före = Läs(Fil("SVD.Dat"), "SELECT * FROM SVDINI");
    Starta();
    Avsluta();
    EXPECT_EQ(Läs(Fil("SVD.Dat"), "SELECT * FROM SVDINI"), före);
}

TEST_F(AvslutProv, AnExitWithoutTheRequiredValuesSaysSoAndGoesOn) {
    Starta();
    Avsluta();
    EXPECT_EQ(Tag(), saknas);
    EXPECT_FALSE(db().SVDDB.IsOpen());
}

TEST_F(AvslutProv, TheMessageOfMissingValuesComesAfterTheQuestionOnly) {
    frTest& f = Starta();
    jaNej = {false};
    f.close();
    EXPECT_TRUE(meddelanden.empty());
}

TEST_F(AvslutProv, AnExitAfterTheCloseMenuStillStoresTheStationData) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    frTestInst::instans().txtRig->setText("IC-9700");
    Avsluta();
    EXPECT_EQ(SVDINI("OpRig"), "IC-9700");
    EXPECT_FALSE(db().SVDDB.IsOpen());
}

TEST_F(AvslutProv, ASettingsRowThatHasGoneEndsTheExitWithStatusOne) {
    StartaMedStation();
    Ändra(Fil("SVD.Dat"), "DELETE FROM SVDINI");
    frTestInst::instans().txtNamn->setText("Lars");
    jaNej = {true};
    EXPECT_THROW(frTest::instans().close(), ProcessSlut);
    EXPECT_EQ(slut, 1);
}

TEST_F(AvslutProv, TheExitForgetsANetworkConnection) {
    StartaMedStation();
    delat.NätverkAnsluten = true;
    Avsluta();
    EXPECT_FALSE(delat.NätverkAnsluten);
}
