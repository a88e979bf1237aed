// The fields of the entry form one by one: keys, selection, serials, mode, colours.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "contest/Löpnummer.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QMenu>

#include <algorithm>

namespace {

using Fält = frTest::Fält;

class FältProv : public Programprov {
protected:
    /// Chooses an entry of the mode list as the operator does with the arrow keys.
    static void VäljTrafik(frTest& f, const QString& trafiksätt) {
        f.cmbTrafik->setFocus();
        Tryck(Qt::Key_Home);
        for (int i = f.cmbTrafik->currentIndex(); i > 0; --i) Tryck(Qt::Key_Up);
        for (int i = 0; i < f.cmbTrafik->count() && f.cmbTrafik->Text() != trafiksätt; ++i)
            Tryck(Qt::Key_Down);
        ASSERT_EQ(f.cmbTrafik->Text(), trafiksätt);
    }
};

QImage Bild(QWidget* fält) { return fält->grab().toImage(); }

/// The colour beside the text.
QColor Bakgrund(QWidget* fält) {
    const QImage bild = Bild(fält);
    return bild.pixelColor(bild.width() - 8, bild.height() / 2);
}

/// Whether a colour that the predicate takes is found anywhere in the field.
template <class Villkor>
bool HarPunkt(QWidget* fält, Villkor villkor) {
    const QImage bild = Bild(fält);
    for (int y = 0; y < bild.height(); ++y)
        for (int x = 0; x < bild.width(); ++x)
            if (villkor(bild.pixelColor(x, y))) return true;
    return false;
}

bool ÄrRöd(const QColor& färg) { return färg.red() >= 190 && färg.green() < 30 && färg.blue() < 30; }
bool ÄrSvart(const QColor& färg) { return färg.red() < 30 && färg.green() < 30 && färg.blue() < 30; }

} // namespace

// ---- keys ---------------------------------------------------------------------------------------------

TEST_F(FältProv, ABlankNeverReachesTheCallAndSmallLettersBecomeCapitals) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "sm");
    EXPECT_EQ(f.txtSignal->text(), "SM");
    Skriv(" ");
    EXPECT_EQ(f.txtSignal->text(), "SM");
    Skriv("5 abc/å");
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC/Å");
}

TEST_F(FältProv, TheLocatorFieldTakesCapitalsAndNoBlanks) {
    frTest& f = StartaLogg(1);
    f.txtLokator->clear();
    SkrivI(f.txtLokator, " jo 65mr");
    EXPECT_EQ(f.txtLokator->text(), "JO65MR");
}

TEST_F(FältProv, TheSerialReceivedTakesCapitals) {
    frTest& f = StartaLogg(7);
    SkrivI(f.txtLöpnrM, "a1b");
    EXPECT_EQ(f.txtLöpnrM->text(), "A1B");
}

TEST_F(FältProv, ALocatorTypedInSmallLettersIsShownInCapitals) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtDiplom, "jo89wj");
    EXPECT_EQ(f.txtDiplom->text(), "JO89WJ");
}

TEST_F(FältProv, NameAndNoteStayAsTyped) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtNamn, "Lars Åke");
    SkrivI(f.txtNotering, "fin signal");
    EXPECT_EQ(f.txtNamn->text(), "Lars Åke");
    EXPECT_EQ(f.txtNotering->text(), "fin signal");
}

TEST_F(FältProv, TheFrequencyTakesDigitsCommaAndBackspaceAlone) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtFrekvens, "a1.4 ,-0/2:5Z,;5é0²");
    EXPECT_EQ(f.txtFrekvens->text(), "14,025,50");
    Tryck(Qt::Key_Backspace);
    EXPECT_EQ(f.txtFrekvens->text(), "14,025,5");
}

TEST_F(FältProv, PastedTextPassesTheSameRulesAsTypedText) {
    frTest& f = StartaLogg(1);
    f.txtSignal->setFocus();
    f.txtSignal->insert("ignored by the filter, since code may write what it likes");
    f.txtSignal->clear();
    QGuiApplication::clipboard()->setText("sm5 abc");
    Tryck(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
}

TEST_F(FältProv, TheSerialSentIsLocked) {
    frTest& f = StartaLogg(7);
    EXPECT_TRUE(f.txtLöpnrS->isReadOnly());
    f.txtLöpnrS->setFocus();
    ASSERT_EQ(QApplication::focusWidget(), f.txtLöpnrS);
    Skriv("99");
    Tryck(Qt::Key_Delete);
    Tryck(Qt::Key_Backspace);
    EXPECT_EQ(f.txtLöpnrS->text(), "01");
}

// ---- selection ----------------------------------------------------------------------------------------

TEST_F(FältProv, SixFieldsSelectTheirWholeTextSoThatTypingReplacesIt) {
    frTest& f = StartaLogg(1);
    for (Fält* fält : {f.txtSignal, f.txtFrekvens, f.txtITUM, f.txtRSTM, f.txtRSTS, f.txtZONM}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        f.txtNamn->setFocus();
        fält->setText("12345");
        fält->setFocus();
        EXPECT_EQ(fält->selectedText(), "12345");
        Skriv("7");
        EXPECT_EQ(fält->text(), "7");
    }
}

TEST_F(FältProv, AClickIntoOneOfTheSixSelectsToo) {
    frTest& f = StartaLogg(1);
    for (Fält* fält : {f.txtSignal, f.txtFrekvens, f.txtITUM, f.txtRSTM, f.txtRSTS, f.txtZONM}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        f.txtNamn->setFocus();
        fält->setText("123");
        QTest::mouseClick(fält, Qt::LeftButton);
        EXPECT_EQ(QApplication::focusWidget(), fält);
        EXPECT_EQ(fält->selectedText(), "123");
    }
}

TEST_F(FältProv, TheOtherFieldsKeepTheirTextWhenTheyAreEnteredByAClick) {
    frTest& f = StartaLogg(7);
    for (Fält* fält : {f.txtLöpnrM, f.txtDiplom, f.txtNamn, f.txtNotering, f.txtLokator, f.txtDatum}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        f.txtRSTM->setFocus();
        fält->setText("12");
        QTest::mouseClick(fält, Qt::LeftButton);
        EXPECT_EQ(QApplication::focusWidget(), fält);
        EXPECT_FALSE(fält->hasSelectedText());
    }
}

// ---- serials ------------------------------------------------------------------------------------------

TEST_F(FältProv, EachChangeOfTheSerialSentIsReformatted) {
    struct Fall {
        const char *format, *text, *visas;
    };
    frTest& f = StartaLogg(1);
    for (const Fall& fall :
         {Fall{"01", "7", "07"}, Fall{"01", "12", "12"}, Fall{"01", "123", "123"}, Fall{"001", "7", "007"},
          Fall{"001", "12", "012"}, Fall{"001", "1234", "1234"}, Fall{"", "7", "0007"},
          Fall{"", "12345", "12345"}, Fall{"1", "7", "0007"}, Fall{"0001", "98", "0098"}}) {
        SCOPED_TRACE(std::string(fall.format) + " " + fall.text);
        delat.LöpnrFormat = fall.format;
        f.txtLöpnrS->setText(fall.text);
        EXPECT_EQ(f.txtLöpnrS->text(), fall.visas);
    }
}

TEST_F(FältProv, AFreshLogShowsSerialOneInTheFormOfItsContest) {
    StartaLogg(0, "först.svk");
    const frTest& f = frTest::instans();
    const char* const väntat[] = {"0001", "0001", "0001", "0001", "0001", "0001", "0001", "01",
                                  "01",   "001",  "001",  "001",  "001",  "001",  "001"};
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        EXPECT_EQ(f.txtLöpnrS->text(), väntat[test]) << "contest 11 keeps the form that was in force before";
    }
}

TEST_F(FältProv, ResettingTheSerialShowsOneAndTheNextContactSendsIt) {
    frTest& f = StartaLogg(9);
    for (const char* signal : {"dl1aa", "dl1bb"}) {
        SkrivI(f.txtSignal, signal);
        Tryck(Qt::Key_Return);
    }
    EXPECT_EQ(f.txtLöpnrS->text(), "003");
    f.Meny("mnuRedigera_NollställLöpnr")->trigger();
    EXPECT_EQ(f.txtLöpnrS->text(), "001");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT LöpNr FROM INFO"), "1");
    SkrivI(f.txtSignal, "dl1cc");
    Tryck(Qt::Key_Return);
    const std::vector<std::vector<QString>> väntat = {{"001", "599 001"}};
    EXPECT_EQ(Läs(Logg(), "SELECT LöpNrSR, Sänt FROM TESTQSO WHERE Signal='DL1CC'"), väntat);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT LöpNr FROM INFO"), "2");
    EXPECT_EQ(f.txtLöpnrS->text(), "002");
}

TEST_F(FältProv, TheSerialResetWithNoLogOpenDoesNothing) {
    frTest& f = StartaLogg(9);
    f.mnuArkiv_StängTestlogg_Click();
    const QString före = f.txtLöpnrS->text();
    f.Meny("mnuRedigera_NollställLöpnr")->trigger();
    EXPECT_EQ(f.txtLöpnrS->text(), före);
}

TEST_F(FältProv, ASerialOfOneCharacterIsPaddedInTheMonthlyTestsAlone) {
    frTest& f = StartaLogg(0, "först.svk");
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        SkrivI(f.txtLöpnrM, "5");
        f.txtNamn->setFocus();
        EXPECT_EQ(f.txtLöpnrM->text(), test == 7 || test == 8 ? "05" : "5");
    }
}

TEST_F(FältProv, OnlyExactlyOneCharacterIsPadded) {
    frTest& f = StartaLogg(7);
    for (const char* text : {"", "12", "123", "0A"}) {
        f.txtLöpnrM->clear();
        SkrivI(f.txtLöpnrM, text);
        f.txtNamn->setFocus();
        EXPECT_EQ(f.txtLöpnrM->text(), text);
    }
}

// ---- mode and band ------------------------------------------------------------------------------------

TEST_F(FältProv, TheModeSetsBothReportsAndTheKeyingMenus) {
    struct Fall {
        const char *trafiksätt, *rapport;
        bool cw, digital, ft8;
    };
    frTest& f = StartaLogg(1);
    f.cmbTrafik->Clear();
    f.Initiera_Combo();
    for (const char* fler : {"PSK31", "FT8"}) f.cmbTrafik->addItem(fler);
    for (const Fall& fall : {Fall{"SSB", "59", false, false, false}, Fall{"CW", "599", true, false, false},
                             Fall{"RTTY", "599", false, true, false}, Fall{"FM", "59", false, false, false},
                             Fall{"PSK31", "599", false, false, false}, Fall{"AM", "59", false, false, false},
                             Fall{"FT8", "", false, true, true}, Fall{"CW", "599", true, false, false}}) {
        SCOPED_TRACE(fall.trafiksätt);
        VäljTrafik(f, fall.trafiksätt);
        EXPECT_EQ(f.txtRSTM->text(), fall.rapport);
        EXPECT_EQ(f.txtRSTS->text(), fall.rapport);
        EXPECT_EQ(f.Meny("mnuCW")->menu()->isEnabled(), fall.cw);
        EXPECT_EQ(f.Meny("mnuDigital")->menu()->isEnabled(), fall.digital);
        EXPECT_EQ(delat.FT8Läge, fall.ft8);
        EXPECT_EQ(f.txtRSTM->TabStop(), !fall.ft8);
        EXPECT_EQ(f.txtRSTS->TabStop(), !fall.ft8);
    }
}

TEST_F(FältProv, TheNextLogIsNotInFT8AnyMore) {
    frTest& f = StartaLogg(1);
    VäljTrafik(f, "FT8");
    NyLogg(3, "tio.svk");
    EXPECT_EQ(f.cmbTrafik->Text(), "CW");
    EXPECT_FALSE(delat.FT8Läge);
    EXPECT_EQ(f.txtRSTM->text(), "599");
    EXPECT_TRUE(f.txtRSTM->TabStop());
}

TEST_F(FältProv, AfterFT8TheReportsAreBackEvenIfTheirTabStopWasOff) {
    frTest& f = StartaLogg(2);
    f.Meny("mnuInställning_Tabbstop_RST")->trigger();
    EXPECT_FALSE(f.txtRSTM->TabStop());
    VäljTrafik(f, "FT8");
    EXPECT_EQ(f.txtRSTM->text(), "");
    VäljTrafik(f, "SSB");
    EXPECT_EQ(f.txtRSTM->text(), "59");
    EXPECT_EQ(f.txtRSTS->text(), "59");
    EXPECT_TRUE(f.txtRSTM->TabStop());
    EXPECT_TRUE(f.txtRSTS->TabStop());
}

TEST_F(FältProv, ChoosingTheSameModeAgainRestoresTheReports) {
    frTest& f = StartaLogg(1);
    f.txtRSTM->setText("339");
    f.txtRSTS->clear();
    f.cmbTrafik->showPopup();
    QTest::keyClick(f.cmbTrafik->view(), Qt::Key_Return);
    EXPECT_EQ(f.cmbTrafik->Text(), "CW");
    EXPECT_EQ(f.txtRSTM->text(), "599");
    EXPECT_EQ(f.txtRSTS->text(), "599");
}

TEST_F(FältProv, ALockedModeShowsItsTextAndNothingElse) {
    frTest& f = StartaLogg(3);
    f.cmbTrafik->setFocus();
    Skriv("x");
    for (const Qt::Key tangent : {Qt::Key_Down, Qt::Key_Up, Qt::Key_Delete, Qt::Key_Backspace})
        Tryck(tangent);
    f.cmbTrafik->showPopup();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(f.cmbTrafik->Text(), "CW");
    EXPECT_EQ(f.cmbBand->Text(), "10 M");
}

TEST_F(FältProv, ANewBandLeavesReportsAndCallAlone) {
    frTest& f = StartaLogg(9);
    SkrivI(f.txtSignal, "dl1aa");
    f.txtRSTM->setText("339");
    f.cmbBand->setFocus();
    Tryck(Qt::Key_Down);
    EXPECT_EQ(f.cmbBand->Text(), "40 M");
    EXPECT_EQ(f.txtRSTM->text(), "339");
    EXPECT_EQ(f.txtSignal->text(), "DL1AA");
}

TEST_F(FältProv, TheFullListsOfModesAndBandsCanBeFilled) {
    frTest& f = StartaLogg(1);
    f.cmbTrafik->Clear();
    f.cmbBand->Clear();
    f.Initiera_Combo();
    const auto poster = [](const QComboBox* lista) {
        QStringList texter;
        for (int i = 0; i < lista->count(); ++i) texter << lista->itemText(i);
        return texter;
    };
    EXPECT_EQ(poster(f.cmbTrafik), (QStringList{"CW", "SSB", "RTTY", "FM", "AM"}));
    EXPECT_EQ(poster(f.cmbBand),
              (QStringList{"160 M", "80 M", "40 M", "20 M", "15 M", "10 M", "6 M", "2 M", "70 CM"}));
}

TEST_F(FältProv, TheAwardBoxHasNoListAndReadsDiplom) {
    StartaLogg(0, "först.svk");
    const frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        NyLogg(test, QString("test%1.svk").arg(test));
        EXPECT_EQ(f.cmbDiplom->Text(), "Diplom") << test;
        EXPECT_EQ(f.cmbDiplom->count(), 0) << test;
    }
}

// ---- colours and captions -----------------------------------------------------------------------------

TEST_F(FältProv, WhatIsReceivedStandsRedOnLightYellow) {
    frTest& f = StartaLogg(7);
    for (Fält* fält : {f.txtSignal, f.txtRSTM, f.txtLöpnrM, f.txtDiplom, f.txtITUM, f.txtZONM, f.txtNamn}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        fält->clear();
        EXPECT_EQ(Bakgrund(fält), QColor(255, 255, 192));
        fält->setText("MM");
        fält->deselect();
        f.txtNotering->setFocus();
        EXPECT_TRUE(HarPunkt(fält, ÄrRöd));
        EXPECT_FALSE(HarPunkt(fält, ÄrSvart));
    }
}

TEST_F(FältProv, WhatIsSentStandsBlackOnLightGreen) {
    frTest& f = StartaLogg(7);
    for (Fält* fält : {f.txtRSTS, f.txtLöpnrS}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        fält->clear();
        EXPECT_EQ(Bakgrund(fält), QColor(128, 255, 128));
        fält->setText("11");
        f.txtNamn->setFocus();
        EXPECT_TRUE(HarPunkt(fält, ÄrSvart));
    }
}

TEST_F(FältProv, ButtonsAndSignsCarryTheirCaptions) {
    const frTest& f = StartaLogg(1);
    EXPECT_EQ(f.cmdSpara->text(), "Spara [Ent]");
    EXPECT_EQ(f.cmdAvbryt->text(), "Avbryt [Esc]");
    EXPECT_EQ(f.cmdVisa->text(), "Visa [Ent.]");
    EXPECT_EQ(f.cmdRadera->text(), "Radera [F3l]");
    EXPECT_EQ(f.lblNyttLand->text(), "NYTT LAND !");
    EXPECT_EQ(f.lblNyttBand->text(), "NYTT BAND !");
    EXPECT_EQ(f.lblNyRuta->text(), "RUTA");
    EXPECT_EQ(f.lblMultipel->text(), "MULTIPEL");
    EXPECT_EQ(f.lblDubblett->text(), "DUBBLET");
    EXPECT_EQ(f.lblDistrikt->text(), "DISTRIKT");
    EXPECT_EQ(f.lblNyIOTA->text(), "IOTA");
    EXPECT_EQ(f.Meny("mnuRedigera_SparaQSO")->text(), "Spara QSO    ( Enter )");
    EXPECT_EQ(f.Meny("mnuRedigera_RaderaQSO")->text(), "Radera QSO  ( Del )");
    EXPECT_EQ(f.Meny("mnuRedigera_RaderaQSO")->shortcut(), QKeySequence(Qt::Key_Delete));
    EXPECT_EQ(f.Meny("mnuRedigera_NollställLöpnr")->text(), "Nollställ Löpnr.");
}

TEST_F(FältProv, F3HasNoKeyBehindIt) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    SkrivI(f.txtSignal, "sm5x");
    Tryck(Qt::Key_F3);
    EXPECT_TRUE(frågor.empty());
    EXPECT_EQ(f.txtSignal->text(), "SM5X");
}

TEST_F(FältProv, DeleteInAFieldDeletesACharacterAndNoContact) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtNamn, "Bo");
    Tryck(Qt::Key_Home);
    Tryck(Qt::Key_Delete);
    EXPECT_EQ(f.txtNamn->text(), "o");
    EXPECT_TRUE(frågor.empty());
}
