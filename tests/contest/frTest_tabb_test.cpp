// The way of the Tab key through the entry form, found by pressing it.
#include "support/Programprov.h"
#include "support/ToPrint.h"

void PrintTo(const QStringList& namn, std::ostream* ut) { *ut << namn.join(' ').toStdString(); }

namespace {

class TabbProv : public Programprov {
protected:
    /// The fields that Tab comes to from txtSignal on, until it is back there.
    static QStringList Varv(frTest& f) {
        QStringList namn;
        f.txtSignal->setFocus();
        do {
            namn << QApplication::focusWidget()->objectName();
            Tryck(Qt::Key_Tab);
        } while (QApplication::focusWidget() != f.txtSignal && namn.size() < 60);
        return namn;
    }
    static QStringList Början(frTest& f, qsizetype antal) { return Varv(f).mid(0, antal); }

    static void RoppaCQ(frTest& f) { f.Meny("mnuInställning_RoppaCQ")->trigger(); }
    static void SvaraCQ(frTest& f) { f.Meny("mnuInställning_SvaraCQ")->trigger(); }
};

const QStringList vhfRopar{"txtSignal", "txtRSTS", "txtRSTM", "txtDiplom"};
const QStringList vhfSvarar{"txtSignal", "txtRSTM", "txtDiplom", "txtRSTS"};
const QStringList löpnrRopar{"txtSignal", "txtRSTS", "txtRSTM", "txtLöpnrM", "txtDiplom"};
const QStringList löpnrSvarar{"txtSignal", "txtRSTM", "txtLöpnrM", "txtDiplom", "txtRSTS"};

QStringList Utan(QStringList namn, const QString& ett) {
    namn.removeAll(ett);
    return namn;
}

} // namespace

TEST_F(TabbProv, AtStartTabFollowsTheFormAsItWasDrawnAndComesRound) {
    frTest& f = StartaLogg(7);
    EXPECT_EQ(Varv(f), (QStringList{"txtSignal", "txtRSTM",     "txtLöpnrM",   "txtDiplom", "cmbTrafik",
                                    "cmbBand",   "cmbDiplom",   "txtFrekvens", "txtITUM",   "txtZONM",
                                    "txtNamn",   "txtNotering", "txtLokator",  "txtDatum",  "cmdSpara",
                                    "cmdAvbryt", "cmdVisa",     "cmdRadera",   "cmdVila",   "txtRSTS"}));
}

TEST_F(TabbProv, ShiftTabGoesTheSameWayBack) {
    frTest& f = StartaLogg(7);
    f.txtDiplom->setFocus();
    for (const char* namn : {"txtLöpnrM", "txtRSTM", "txtSignal", "txtRSTS"}) {
        Tryck(Qt::Key_Backtab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), namn);
    }
}

TEST_F(TabbProv, WithTheModemOnScreenTabStillGoesRoundTheForm) {
    frTest& f = StartaLogg(6);
    EXPECT_TRUE(f.RXWindow->isVisible());
    const QStringList varv = Varv(f);
    EXPECT_EQ(varv.mid(0, 5), (QStringList{"txtSignal", "txtRSTM", "txtDiplom", "cmbTrafik", "cmbBand"}));
    QStringList knappar{"BtnTX", "BtnRX", "BtnHAM", "BtnAFC", "BtnATC", "BtnNET"};
    for (int i = 1; i <= 12; ++i) knappar << QString("cmdMacro(%1)").arg(i);
    EXPECT_EQ(varv.mid(varv.indexOf("txtRSTS") + 1), knappar + QStringList("cmdRensa"));
    EXPECT_FALSE(varv.contains("RXWindow") || varv.contains("TXWindow"));
    QTest::mouseClick(f.TXWindow->viewport(), Qt::LeftButton);
    ASSERT_EQ(QApplication::focusWidget(), f.TXWindow);
    Tryck(Qt::Key_Tab);
    EXPECT_NE(QApplication::focusWidget(), f.TXWindow);
    EXPECT_EQ(f.TXWindow->toPlainText(), "");
}

TEST_F(TabbProv, CallingCQTheSentReportComesRightAfterTheCall) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test <= 5; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        RoppaCQ(f);
        const QStringList väntat = test <= 2 ? vhfRopar : Utan(löpnrRopar, "txtLöpnrM");
        EXPECT_EQ(Början(f, väntat.size()), väntat);
    }
}

TEST_F(TabbProv, AnsweringTheReceivedReportComesRightAfterTheCall) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test <= 5; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        RoppaCQ(f);
        SvaraCQ(f);
        const QStringList väntat = test <= 2 ? vhfSvarar : Utan(löpnrSvarar, "txtLöpnrM");
        EXPECT_EQ(Början(f, väntat.size()), väntat);
    }
}

TEST_F(TabbProv, WithATabStopTheSerialStandsBetweenReportAndExchange) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (const int test : {3, 4, 5}) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        f.TabbstoppLöpnr(true);
        RoppaCQ(f);
        EXPECT_EQ(Början(f, 5), löpnrRopar);
        SvaraCQ(f);
        EXPECT_EQ(Början(f, 5), löpnrSvarar);
    }
}

TEST_F(TabbProv, TheMonthlyTestsKnowTheSecondOrderAlone) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (const int test : {7, 8}) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        const QStringList före = Varv(f);
        RoppaCQ(f);
        EXPECT_EQ(Varv(f), före);
        SvaraCQ(f);
        EXPECT_EQ(Början(f, 5), löpnrSvarar);
        RoppaCQ(f);
        EXPECT_EQ(Början(f, 5), löpnrSvarar);
    }
}

TEST_F(TabbProv, TheOtherContestsKeepTheirOrderWhateverIsChosen) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (const int test : {6, 9, 10, 11, 12, 13, 14}) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        const QStringList före = Varv(f);
        RoppaCQ(f);
        EXPECT_EQ(Varv(f), före);
        SvaraCQ(f);
        EXPECT_EQ(Varv(f), före);
    }
}

TEST_F(TabbProv, TheFieldsBehindTheOrderedOnesFollowInTheirOldOrder) {
    frTest& f = StartaLogg(1);
    RoppaCQ(f);
    EXPECT_EQ(Varv(f),
              (QStringList{"txtSignal", "txtRSTS", "txtRSTM", "txtDiplom", "cmbTrafik", "cmbBand",
                           "cmbDiplom", "txtFrekvens", "txtITUM", "txtNamn", "txtNotering", "txtLokator",
                           "txtDatum", "cmdSpara", "cmdAvbryt", "cmdVisa", "cmdRadera", "cmdVila"}));
}

TEST_F(TabbProv, TheTwoMenuEntriesExchangeTheirMarksInEveryContest) {
    frTest& f = StartaLogg(1);
    const QAction* roppa = f.Meny("mnuInställning_RoppaCQ");
    const QAction* svara = f.Meny("mnuInställning_SvaraCQ");
    EXPECT_EQ(roppa->text(), "Tabföljd 1  (roppa CQ)");
    EXPECT_EQ(svara->text(), "Tabbföljd 2 (svara CQ)");
    for (const int test : {1, 3, 7, 9}) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        for (int gång = 0; gång < 2; ++gång) { // the second click on a marked entry leaves its mark
            RoppaCQ(f);
            EXPECT_TRUE(roppa->isChecked());
            EXPECT_FALSE(svara->isChecked());
        }
        for (int gång = 0; gång < 2; ++gång) {
            SvaraCQ(f);
            EXPECT_FALSE(roppa->isChecked());
            EXPECT_TRUE(svara->isChecked());
        }
    }
}

TEST_F(TabbProv, TheReportsLeaveAndJoinTheTabOrderTogether) {
    frTest& f = StartaLogg(1);
    QAction* stopp = f.Meny("mnuInställning_Tabbstop_RST");
    EXPECT_EQ(stopp->text(), "Tabbstop RST");
    EXPECT_TRUE(stopp->isChecked());
    EXPECT_TRUE(delat.TabbstopRST);
    const QStringList med = Varv(f);
    EXPECT_TRUE(med.contains("txtRSTM") && med.contains("txtRSTS"));
    stopp->trigger();
    EXPECT_FALSE(stopp->isChecked());
    EXPECT_FALSE(delat.TabbstopRST);
    EXPECT_EQ(Varv(f), Utan(Utan(med, "txtRSTM"), "txtRSTS"));
    stopp->trigger();
    EXPECT_TRUE(stopp->isChecked());
    EXPECT_TRUE(delat.TabbstopRST);
    EXPECT_EQ(Varv(f), med);
}

TEST_F(TabbProv, TheSerialReceivedJoinsAndLeavesTheTabOrder) {
    frTest& f = StartaLogg(1);
    QAction* stopp = f.Meny("mnuInställning_Tabbstop_Löpnr");
    EXPECT_EQ(stopp->text(), "Tabbstop Löpnr.");
    EXPECT_FALSE(stopp->isChecked());
    EXPECT_FALSE(delat.TabbstopLöpnr);
    EXPECT_FALSE(Varv(f).contains("txtLöpnrM"));
    stopp->trigger();
    EXPECT_TRUE(stopp->isChecked());
    EXPECT_TRUE(delat.TabbstopLöpnr);
    EXPECT_EQ(Början(f, 4), (QStringList{"txtSignal", "txtRSTM", "txtLöpnrM", "txtDiplom"}));
    stopp->trigger();
    EXPECT_FALSE(stopp->isChecked());
    EXPECT_FALSE(delat.TabbstopLöpnr);
    EXPECT_FALSE(Varv(f).contains("txtLöpnrM"));
}

TEST_F(TabbProv, TheSerialSentIsNeverOnTheWay) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        NyLogg(test, QString("test%1.svk").arg(test));
        f.TabbstoppLöpnr(true);
        EXPECT_FALSE(Varv(f).contains("txtLöpnrS")) << test;
    }
}

TEST_F(TabbProv, AFieldWithoutATabStopIsStillReachedByTheMouse) {
    frTest& f = StartaLogg(1);
    f.TabbstoppRST(false);
    QTest::mouseClick(f.txtRSTS, Qt::LeftButton);
    EXPECT_EQ(QApplication::focusWidget(), f.txtRSTS);
}

TEST_F(TabbProv, FT8TakesTheReportsOffTheWay) {
    frTest& f = StartaLogg(1);
    f.cmbTrafik->setCurrentIndex(2);
    EXPECT_EQ(Början(f, 3), (QStringList{"txtSignal", "txtDiplom", "cmbTrafik"}));
    f.cmbTrafik->setCurrentIndex(1);
    EXPECT_EQ(Början(f, 3), (QStringList{"txtSignal", "txtRSTM", "txtDiplom"}));
}
