// The main window over the real engine, between a sound card and a key line of the test's own.
#include "platform/mmvari/Provkort.h"
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "platform/mmvari/mmvari.h"
#include "platform/mmvari/xmmvbtn.h"
#include "platform/mmvari/xmmvview.h"
#include "platform/textfile.h"
#include "radio/frInstDigi.h"

namespace {

class ModemProv : public Programprov {
protected:
    ModemProv() {
        UseInstead(kort, linje);
        // Some five times as fast as a real card.
        QObject::connect(&spelare_, &QTimer::timeout, &spelare_, [this] { kort.Play(0.05); });
        spelare_.start(10);
    }
    /// The digital contest with the quickest of a mode's speeds.
    frTest& StartaMed(const QString& trafiksätt) {
        radio::Digitalval val;
        val.DigiTrafik = trafiksätt;
        val.DigiComport = "Com1";
        platform::SaveTextFile(Fil("INI/SVDDigi.ini"), radio::DigitalvalTillText(val));
        frTest& f = StartaLogg(6);
        Snabbast();
        return f;
    }
    static void Snabbast() {
        frTest::instans().CBSpeed->setFocus();
        Tryck(Qt::Key_End);
    }
    static void Klicka(QWidget* knapp) { QTest::mouseClick(knapp, Qt::LeftButton); }
    template <typename Är>
    static bool Inväntat(const Är& är) {
        return QTest::qWaitFor(är, 60'000);
    }

    ProvCard kort;
    ProvLine linje;

private:
    QTimer spelare_;
};

} // namespace

TEST_F(ModemProv, WhatIsTypedAtOneEndIsReadAtTheOther) {
    const frTest& f = StartaMed("bpsk");
    for (const char* text : {"CQ de XX9AA åäö", "XX9AA 599 001", "CQ TEST"}) {
        f.TXWindow->setFocus();
        Skriv(T(text));
        Klicka(f.BtnTX);
        EXPECT_EQ(f.BtnTX->text(), T("Vänta"));
        EXPECT_TRUE(linje.down);
        Skriv(" K"); // typing goes on
        ASSERT_TRUE(Inväntat([&] { return f.BtnTX->text() == "RX"; }));
        Klicka(f.BtnTX);
        EXPECT_EQ(f.BtnTX->text(), "BeRX");
        ASSERT_TRUE(Inväntat([&] { return f.BtnTX->text() == "TX"; }));
        EXPECT_EQ(f.TXWindow->toPlainText(), "");
        EXPECT_FALSE(linje.down);
        kort.coming = kort.sent;
        kort.coming.resize(kort.coming.size() + 20'000);
        EXPECT_TRUE(Inväntat([&] { return f.RXWindow->toPlainText().endsWith(T(text) + " K"); }))
            << f.RXWindow->toPlainText().toStdString();
        f.CBMode->setFocus();
        Tryck(Qt::Key_Down); // RTTY, of one side and of the other
        Snabbast();
    }
}

TEST_F(ModemProv, AMacroWithBothEndsGoesOutByItself) {
    const frTest& f = StartaMed("rtty-L");
    delat.MakroTabell[0] = {"CQ", "%TXCQ TEST %SS K%RX"};
    Klicka(f.cmdMacro[1]);
    ASSERT_TRUE(Inväntat([&] { return f.BtnTX->text() == "BeRX"; }));
    ASSERT_TRUE(Inväntat([&] { return f.BtnTX->text() == "TX"; }));
    kort.coming = kort.sent;
    kort.coming.resize(kort.coming.size() + 20'000);
    EXPECT_TRUE(Inväntat([&] { return f.RXWindow->toPlainText().endsWith("CQ TEST SK7MW K"); }))
        << f.RXWindow->toPlainText().toStdString();
    // And picked: the answer's call into the form.
    f.RXWindow->setPlainText("SM5ABC");
    QTest::mouseDClick(f.RXWindow->viewport(), Qt::LeftButton, Qt::NoModifier,
                       f.RXWindow->cursorRect().center() + QPoint(8, 0));
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
}

TEST_F(ModemProv, AMacroDuringTheEndingComesBackToReceiveToo) {
    const frTest& f = StartaMed("rtty-L");
    delat.MakroTabell[0] = {"CQ", "%TXFIRST%RX"};
    delat.MakroTabell[1] = {"TU", "%TXSECOND%RX"};
    Klicka(f.cmdMacro[1]);
    // Everything has been asked for: what is left is the ending.
    ASSERT_TRUE(Inväntat([&] {
        return !f.TXWindow->extraSelections().isEmpty() &&
               f.TXWindow->extraSelections()[0].cursor.selectedText() == "FIRST";
    }));
    Klicka(f.cmdMacro[2]);
    ASSERT_TRUE(Inväntat([&] { return f.BtnTX->text() == "TX"; }));
    EXPECT_FALSE(linje.down);
    EXPECT_EQ(f.TXWindow->toPlainText(), "");
    kort.coming = kort.sent;
    kort.coming.resize(kort.coming.size() + 20'000);
    EXPECT_TRUE(Inväntat([&] { return f.RXWindow->toPlainText().contains("SECOND"); }))
        << f.RXWindow->toPlainText().toStdString();
    EXPECT_TRUE(f.RXWindow->toPlainText().contains("FIRST"));
}

TEST_F(ModemProv, ReceiveStopsAtOnceAndAnotherContestFreesTheRadio) {
    frTest& f = StartaMed("bpsk");
    f.TXWindow->setPlainText("CQ CQ CQ");
    Klicka(f.BtnTX);
    ASSERT_TRUE(Inväntat([&] { return f.BtnTX->text() == "RX"; }));
    Klicka(f.BtnRX);
    EXPECT_EQ(f.BtnTX->text(), "TX");
    EXPECT_FALSE(linje.down);
    EXPECT_EQ(f.TXWindow->toPlainText(), "");
    Klicka(f.BtnTX);
    ASSERT_TRUE(Inväntat([&] { return f.BtnTX->text() == "RX"; }));
    NyLogg(1, "annan.svk");
    EXPECT_FALSE(linje.down);
    EXPECT_EQ(kort.inputs + kort.outputs + linje.open, 0);
}

TEST_F(ModemProv, WithoutCardAndPortTheStatusBarSaysSoUntilTheContestIsAnother) {
    kort.inputOpens = linje.exists = false;
    frTest& f = StartaMed("bpsk");
    EXPECT_EQ(f.SBarTest(3),
              T("Inget ljudkort: modemet hör bara tystnad; Porten Com1 kan inte öppnas: radion "
                "nycklas inte"));
    kort.inputOpens = linje.exists = true;
    f.Initiera_MMVari(); // as saving the settings does
    ASSERT_TRUE(Inväntat([&] { return f.SBarTest(3).isEmpty(); }));
    kort.inputTrouble = "Ljudkortet svarar inte";
    ASSERT_TRUE(Inväntat([&] { return f.SBarTest(3) == kort.inputTrouble; }));
    NyLogg(1, "annan.svk");
    EXPECT_EQ(f.SBarTest(3), "");
}

TEST_F(ModemProv, TheProgramEndsWithTheKeyUpInTheMidstOfATransmission) {
    frTest& f = StartaMed("bpsk");
    Klicka(f.BtnTX);
    EXPECT_TRUE(linje.down);
    jaNej.push_back(true);
    EXPECT_THROW(f.Meny("mnuArkiv_Avsluta")->trigger(), ProcessSlut);
    EXPECT_FALSE(linje.down);
    EXPECT_EQ(linje.open, 0);
}
