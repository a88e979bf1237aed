// The warning window: its texts, and what its ways out do to the form.
#include "contest/frVarning.h"
#include "support/Programprov.h"
#include "support/ToPrint.h"
#include "support/Varningsvakt.h"

namespace {

class VarningProv : public Programprov {
protected:
    /// Leaves a call that is in the log already, with a function that runs inside the warning.
    void LämnaDubblett(frTest& f, std::function<void(frVarning&)> i) {
        Loggad("SM5ABC", "2 M");
        NärFönster("frVarning", [i](QWidget* fönster) { i(*static_cast<frVarning*>(fönster)); });
        SkrivI(f.txtSignal, "sm5abc");
        f.txtDiplom->setText("JO89WJ");
        Tryck(Qt::Key_Tab);
    }
};

} // namespace

TEST_F(VarningProv, ItIsModalAndCarriesItsTexts) {
    frTest& f = StartaLogg(0);
    LämnaDubblett(f, [](frVarning& varning) {
        EXPECT_EQ(varning.objectName(), "frVarning");
        EXPECT_EQ(varning.windowTitle(), "VARNING !");
        EXPECT_EQ(varning.lblVarning1->text(), "VARNING");
        EXPECT_EQ(varning.lblVarning2->text(), "DUBBLETT !!!");
        EXPECT_EQ(varning.cmdOK->text(), "OK");
        EXPECT_TRUE(varning.isModal());
        EXPECT_EQ(QApplication::activeModalWidget(), &varning);
        EXPECT_TRUE(delat.VarningUppe);
        varning.close();
    });
    EXPECT_FALSE(delat.VarningUppe);
    EXPECT_FALSE(frVarning::instans().isVisible());
}

TEST_F(VarningProv, OKThrowsTheContactAwayAndGoesBackToTheCall) {
    frTest& f = StartaLogg(0);
    LämnaDubblett(f, [](frVarning& varning) { QTest::mouseClick(varning.cmdOK, Qt::LeftButton); });
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(f.txtDiplom->text(), "");
    EXPECT_EQ(f.txtDubblett->text(), "");
    EXPECT_EQ(f.lblLand->text(), "");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO");
    EXPECT_FALSE(delat.DubblettFlagga);
    EXPECT_FALSE(delat.VarningUppe);
    EXPECT_TRUE(HarFokus(f.txtSignal));
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "1");
    EXPECT_FALSE(delat.TidGår);
}

TEST_F(VarningProv, EnterPressesOK) {
    frTest& f = StartaLogg(0);
    LämnaDubblett(f, [](frVarning& varning) {
        ASSERT_TRUE(HarFokus(varning.cmdOK));
        Tryck(Qt::Key_Return);
    });
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "1") << "the key saves nothing";
}

TEST_F(VarningProv, TheFrameLeavesFormAndMarkAndTheWayOfTheTabKey) {
    frTest& f = StartaLogg(0);
    LämnaDubblett(f, [](frVarning& varning) { varning.close(); });
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.txtDiplom->text(), "JO89WJ");
    EXPECT_EQ(f.txtDubblett->text(), "D");
    EXPECT_TRUE(delat.DubblettFlagga);
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (1)");
    EXPECT_TRUE(HarFokus(f.txtRSTM)) << "where Tab was going";
    EXPECT_EQ(f.txtRSTM->selectedText(), f.txtRSTM->text()) << "typing replaces the report";
}

TEST_F(VarningProv, EscapeIsTheFrame) {
    frTest& f = StartaLogg(0);
    LämnaDubblett(f, [](frVarning& varning) {
        ASSERT_TRUE(HarFokus(varning.cmdOK));
        Tryck(Qt::Key_Escape);
    });
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_TRUE(delat.DubblettFlagga);
}

TEST_F(VarningProv, ANordicStationDoesNotCountInSAC) {
    struct Fall {
        const char *signal, *dxcc;
        bool nordisk;
    };
    constexpr Fall fall[] = {
        {"ox1aa", "OX", true},   {"oj0aa", "OJ0", true}, {"jx1aa", "JX", true},  {"jw1aa", "JW", true},
        {"oh1aa", "OH", true},   {"tf1aa", "TF", true},  {"oz1aa", "OZ", true},  {"la1aa", "LA", true},
        {"sm1aa", "SM", true},   {"oy1aa", "OY", true},  {"dl1aa", "DL", false}, {"w1aw", "K", false},
        {"oh0aa", "OH0", false}, // Åland has a short form of its own, which the set does not hold
    };
    for (const int test : {9, 10}) {
        if (test == 9)
            StartaLogg(test);
        else
            NyLogg(test, "tio.svk");
        frTest& f = frTest::instans();
        for (const auto& [signal, dxcc, nordisk] : fall) {
            SCOPED_TRACE(signal);
            const Varningsvakt vakt(false);
            ASSERT_TRUE(HarFokus(f.txtSignal));
            SkrivI(f.txtSignal, signal);
            EXPECT_EQ(f.lblDXCC->text(), dxcc);
            Tryck(Qt::Key_Tab);
            EXPECT_EQ(vakt.Texter(),
                      nordisk ? std::vector<QString>{"EJ GILTIG !!!"} : std::vector<QString>{});
            EXPECT_EQ(frVarning::instans().lblVarning2->text(), "DUBBLETT !!!") << "once it is gone";
            EXPECT_FALSE(delat.DubblettFlagga);
            EXPECT_EQ(f.txtDubblett->text(), "");
            f.RensaTest();
            f.txtSignal->setFocus();
        }
    }
}

TEST_F(VarningProv, OKOnAStationThatDoesNotCountThrowsItAway) {
    frTest& f = StartaLogg(9);
    const Varningsvakt vakt(true);
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(vakt.Texter(), std::vector<QString>{"EJ GILTIG !!!"});
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_TRUE(HarFokus(f.txtSignal));
}

TEST_F(VarningProv, TheContinentIsAskedOfTheFaroesAlone) {
    struct Fall {
        const char *dxcc, *kontinent, *text;
    };
    frTest& f = StartaLogg(9);
    for (const Fall& fall :
         {Fall{"OY", "EU", "EJ GILTIG !!!"}, Fall{"OY", "AF", "DUBBLETT !!!"}, Fall{"OY", "", "DUBBLETT !!!"},
          Fall{"OX", "NA", "EJ GILTIG !!!"}, Fall{"SM", "", "EJ GILTIG !!!"}, Fall{"", "EU", "DUBBLETT !!!"},
          Fall{"OH0", "EU", "DUBBLETT !!!"}}) {
        SCOPED_TRACE(std::string(fall.dxcc) + " " + fall.kontinent);
        f.lblDXCC->setText(fall.dxcc);
        f.lblKont->setText(fall.kontinent);
        const Varningsvakt vakt(false);
        frVarning::instans().VisaModalt();
        EXPECT_EQ(vakt.Texter(), std::vector<QString>{fall.text});
    }
}

TEST_F(VarningProv, OnlySACKnowsTheOtherText) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        f.lblDXCC->setText("SM");
        f.lblKont->setText("EU");
        const Varningsvakt vakt(false);
        frVarning::instans().VisaModalt();
        const bool sac = test == 9 || test == 10;
        EXPECT_EQ(vakt.Texter(), std::vector<QString>{sac ? "EJ GILTIG !!!" : "DUBBLETT !!!"});
    }
}
