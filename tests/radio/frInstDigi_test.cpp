// The settings of the digital modes: the window, the values in force and the file.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "platform/textfile.h"
#include "radio/frInstDigi.h"
#include "store/frEditorTest.h"

#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>

namespace {

using radio::Digitalval;

const Meddelande oläslig{T("Ett fel har inträffat vid läsning av Inställningar för Digital Mode! "
                           "Inställningarna har återgått till standard."),
                         T("LäsDigi.ini")};

class InstDigiProv : public Programprov {
protected:
    QString Inifil() const { return Fil("INI/SVDDigi.ini"); }
    void SkrivFil(const QString& text) const { platform::SaveTextFile(Inifil(), text); }
    /// The program with the window on screen, opened by its menu.
    frInstDigi& Öppna() {
        Starta().Meny("mnuInställning_Digital")->trigger();
        frInstDigi& inst = frInstDigi::instans();
        EXPECT_TRUE(Aktivera(inst));
        return inst;
    }
    static QStringList Poster(const platform::ComboBox& lista) {
        QStringList poster;
        for (int i = 0; i < lista.count(); ++i) poster << lista.itemText(i);
        return poster;
    }
    static Digitalval Egna() {
        Digitalval val;
        val.DigiBandbredd = "3K";
        val.DigiUOS = val.DigiHPF = val.DigiATC = 1;
        val.DigiComport = "Com3";
        val.DigiFlöde = "DTR";
        val.DigiTrafik = "rtty-L";
        val.DigiDisplay = "SYN";
        val.DigiFIFORX = "32";
        val.DigiFIFOTX = "24";
        val.DigiKanalA = 2;
        val.DigiKanalB = 4;
        val.DigiID = "3";
        val.DigiPrio = 1;
        val.DigiRXKlocka = "48000";
        val.DigiTXKlocka = "-74.50";
        val.Rad19 = 7;
        val.DigiEffekt = "100 W, PEP";
        val.DigiUDP = "2333";
        return val;
    }
    /// A directory in the place of the file, which nobody can read or replace.
    void SpärraFilen() const {
        QFile::remove(Inifil());
        ASSERT_TRUE(QDir().mkpath(Inifil() + "/x"));
    }
};

void ExpectValen(const frInstDigi& inst, const Digitalval& val) {
    EXPECT_EQ(inst.cmbBandbredd->Text(), val.DigiBandbredd);
    EXPECT_EQ(inst.chkUOS->isChecked(), val.DigiUOS != 0);
    EXPECT_EQ(inst.chkAFC->isChecked(), val.DigiAFC != 0);
    EXPECT_EQ(inst.chkHPT->isChecked(), val.DigiHPF != 0);
    EXPECT_EQ(inst.chkATC->isChecked(), val.DigiATC != 0);
    EXPECT_EQ(inst.chkNET->isChecked(), val.DigiNET != 0);
    EXPECT_EQ(inst.cmbComport->Text(), val.DigiComport);
    EXPECT_EQ(inst.cmbFlöde->Text(), val.DigiFlöde);
    EXPECT_EQ(inst.cmbTrafik->Text(), val.DigiTrafik);
    EXPECT_EQ(inst.cmbDisplay->Text(), val.DigiDisplay);
    EXPECT_EQ(inst.cmbFIFORX->Text(), val.DigiFIFORX);
    EXPECT_EQ(inst.cmbFIFOTX->Text(), val.DigiFIFOTX);
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(inst.optKanal[static_cast<size_t>(i)]->isChecked(),
                  i == val.DigiKanalA || i == val.DigiKanalB)
            << i;
    EXPECT_EQ(inst.cmbID->Text(), val.DigiID);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(inst.optPrio[static_cast<size_t>(i)]->isChecked(), i == val.DigiPrio) << i;
    EXPECT_EQ(inst.cmbRXKlocka->Text(), val.DigiRXKlocka);
    EXPECT_EQ(inst.cmbTXKlocka->Text(), val.DigiTXKlocka);
    EXPECT_EQ(inst.txtEffekt->text(), val.DigiEffekt);
    EXPECT_EQ(inst.txtUDP->text(), val.DigiUDP);
}

} // namespace

// ---- the file at the start ----------------------------------------------------------------------------

TEST_F(InstDigiProv, WithoutAFileTheDefaultsAreInForceAndNothingIsSaid) {
    ASSERT_FALSE(QFile::exists(Inifil()));
    Starta();
    EXPECT_EQ(delat.Digital, Digitalval{});
    EXPECT_EQ(delat.Digital.DigiTrafik, "bpsk");
    EXPECT_EQ(delat.Digital.DigiRXKlocka, "11025");
    EXPECT_EQ(delat.Digital.DigiFIFORX, "12");
    EXPECT_EQ(delat.Digital.DigiFIFOTX, "6");
    EXPECT_FALSE(QFile::exists(Inifil())) << "a start stores nothing";
    EXPECT_FALSE(frInstDigi::instans().isVisible());
}

TEST_F(InstDigiProv, TheFilesValuesAreInForceFromTheStart) {
    SkrivFil(radio::DigitalvalTillText(Egna()));
    Starta();
    EXPECT_EQ(delat.Digital, Egna());
    ExpectValen(frInstDigi::instans(), Egna());
}

TEST_F(InstDigiProv, ABrokenFileGivesItsMessageAndTheDefaults) {
    SkrivFil(radio::DigitalvalTillText(Egna()).left(60));
    Starta();
    EXPECT_EQ(Tag(), oläslig);
    EXPECT_EQ(delat.Digital, Digitalval{});
    ExpectValen(frInstDigi::instans(), {});
}

TEST_F(InstDigiProv, AFileThatCannotBeOpenedGivesTheSameMessage) {
    SpärraFilen();
    Starta();
    EXPECT_EQ(Tag(), oläslig);
    EXPECT_EQ(delat.Digital, Digitalval{});
}

TEST_F(InstDigiProv, TheyAreReadBeforeTheSpotPresets) {
    SkrivFil("x");
    platform::SaveTextFile(Fil("INI/DXSpottFörval.ini"), "x");
    Starta();
    ASSERT_EQ(meddelanden.size(), 2U);
    EXPECT_EQ(meddelanden[0], oläslig);
    EXPECT_EQ(meddelanden[1].titel, T("LäsDXSpottFörvalIni"));
    meddelanden.clear();
}

// ---- the window ---------------------------------------------------------------------------------------

TEST_F(InstDigiProv, TheMenuOpensTheWindowWithNoLogOpen) {
    frInstDigi& inst = Öppna();
    EXPECT_TRUE(inst.isVisible());
    EXPECT_EQ(inst.objectName(), "frInstDigi");
    EXPECT_EQ(inst.windowTitle(), "Inställnigar");
    EXPECT_TRUE(HarFokus(inst.cmbTrafik));
    ExpectValen(inst, {});
}

TEST_F(InstDigiProv, EveryControlHasItsName) {
    Starta();
    frInstDigi& inst = frInstDigi::instans();
    for (const char* namn :
         {"cmbBandbredd", "chkUOS",      "chkAFC",    "chkHPT",     "chkATC",     "chkNET",
          "cmbComport",   "cmbFlöde",    "cmbTrafik", "cmbDisplay", "cmbFIFORX",  "cmbFIFOTX",
          "optKanal(0)",  "optKanal(5)", "cmbID",     "optPrio(0)", "optPrio(2)", "cmbRXKlocka",
          "cmbTXKlocka",  "txtEffekt",   "txtUDP",    "cmdSpara",   "cmdAvbryt"})
        EXPECT_EQ(inst.findChildren<QWidget*>(T(namn)).size(), 1) << namn;
    EXPECT_EQ(inst.cmdSpara->text(), "Spara");
    EXPECT_EQ(inst.cmdAvbryt->text(), "Stäng");
}

TEST_F(InstDigiProv, TheListsHoldTheirChoices) {
    Starta();
    const frInstDigi& inst = frInstDigi::instans();
    EXPECT_EQ(Poster(*inst.cmbBandbredd), (QStringList{"500", "1K", "2K", "3K"}));
    EXPECT_EQ(Poster(*inst.cmbComport), (QStringList{"None", "Com1", "Com2", "Com3", "Com4", "Com5", "Com6",
                                                     "Com7", "Com8", "EXTFSK"}));
    EXPECT_EQ(Poster(*inst.cmbFlöde), (QStringList{"RTS", "DTR", "TXD"}));
    EXPECT_EQ(Poster(*inst.cmbTrafik), (QStringList{"bpsk", "rtty-L", "rtty-U", "mfsk-L", "mfsk-U"}));
    EXPECT_EQ(Poster(*inst.cmbDisplay), (QStringList{"FFT", "V.F", "SYN", "WAV"}));
    const QStringList djup{"4", "6", "8", "12", "16", "20", "24", "32"};
    EXPECT_EQ(Poster(*inst.cmbFIFORX), djup);
    EXPECT_EQ(Poster(*inst.cmbFIFOTX), djup);
    EXPECT_EQ(Poster(*inst.cmbID), (QStringList{"-1", "0", "1", "2", "3"}));
    EXPECT_EQ(Poster(*inst.cmbRXKlocka), (QStringList{"6000", "8000", "11025", "11100", "12000", "18000",
                                                      "22050", "24000", "44100", "48000", "50000"}));
    EXPECT_EQ(Poster(*inst.cmbTXKlocka), (QStringList{"0.00", "74.50", "-74.50"}));
}

TEST_F(InstDigiProv, EveryListAndFieldHasItsCaptionBesideIt) {
    Starta();
    QStringList rader;
    for (const QLabel* rubrik : frInstDigi::instans().findChildren<QLabel*>())
        if (rubrik->buddy()) {
            rader << rubrik->text() + ": " + rubrik->buddy()->objectName();
            EXPECT_EQ(rubrik->buddy()->accessibleName(), rubrik->text());
        }
    rader.sort();
    EXPECT_EQ(rader,
              (QStringList{"Bandbredd: cmbBandbredd", "Com Port: cmbComport", "Display: cmbDisplay",
                           "Effekt: txtEffekt", "FIFO RX: cmbFIFORX", "FIFO TX: cmbFIFOTX",
                           T("Flöde: cmbFlöde"), "Ljudkort ID: cmbID", "RX Klocka: cmbRXKlocka",
                           "TX Offset: cmbTXKlocka", T("Trafiksätt: cmbTrafik"), "UDP Port (FT8): txtUDP"}));
}

TEST_F(InstDigiProv, TheChannelsAndThePriorityCarryTheirCaptions) {
    Starta();
    const frInstDigi& inst = frInstDigi::instans();
    QStringList texter;
    for (const auto* knapp : inst.optKanal) {
        const auto* ram = static_cast<QGroupBox*>(knapp->parentWidget());
        texter << ram->title() + ": " + knapp->text();
    }
    for (const auto* knapp : inst.optPrio) texter << knapp->text();
    EXPECT_EQ(texter, (QStringList{"Ingång kanal Radio A: Mono", "Ingång kanal Radio A: Vänster",
                                   "Ingång kanal Radio A: Höger", "Ingång kanal Radio B: Mono",
                                   "Ingång kanal Radio B: Vänster", "Ingång kanal Radio B: Höger", "Normal",
                                   "Högre", "Högsta"}));
}

TEST_F(InstDigiProv, TheTwoRadiosAndThePriorityAreChosenApart) {
    frInstDigi& inst = Öppna();
    for (QRadioButton* knapp : {inst.optKanal[1], inst.optKanal[5], inst.optPrio[2]}) knapp->click();
    EXPECT_TRUE(inst.optKanal[1]->isChecked());
    EXPECT_TRUE(inst.optKanal[5]->isChecked());
    EXPECT_TRUE(inst.optPrio[2]->isChecked());
    inst.SparaStation();
    EXPECT_EQ(delat.Digital.DigiKanalA, 1);
    EXPECT_EQ(delat.Digital.DigiKanalB, 5);
    EXPECT_EQ(delat.Digital.DigiPrio, 2);
}

TEST_F(InstDigiProv, AChannelThatDoesNotExistShowsAsTheFirst) {
    Digitalval val;
    val.DigiKanalA = 7;
    val.DigiKanalB = -1;
    val.DigiPrio = 3;
    SkrivFil(radio::DigitalvalTillText(val));
    Starta();
    ExpectValen(frInstDigi::instans(), {});
}

TEST_F(InstDigiProv, AValueThatNoListHoldsIsShownAndKept) {
    Digitalval val = Egna();
    val.DigiID = "9";
    val.DigiComport = "/dev/ttyUSB0";
    SkrivFil(radio::DigitalvalTillText(val));
    frInstDigi& inst = Öppna();
    ExpectValen(inst, val);
    QTest::mouseClick(inst.cmdSpara, Qt::LeftButton);
    EXPECT_EQ(platform::LoadTextFile(Inifil()), radio::DigitalvalTillText(val));
}

TEST_F(InstDigiProv, ThePortTakesDigitsAlone) {
    frInstDigi& inst = Öppna();
    SkrivI(inst.txtUDP, "2 3a33x");
    EXPECT_EQ(inst.txtUDP->text(), "2333");
}

TEST_F(InstDigiProv, ThePowerTakesNoQuoteThatTheFileCouldNotHold) {
    frInstDigi& inst = Öppna();
    SkrivI(inst.txtEffekt, "100 \"W\", PEP");
    EXPECT_EQ(inst.txtEffekt->text(), "100 W, PEP");
}

// ---- saving -------------------------------------------------------------------------------------------

TEST_F(InstDigiProv, SaveStoresEveryValueOfTheWindowAndCloses) {
    SkrivFil(radio::DigitalvalTillText([] {
        Digitalval val;
        val.Rad19 = 7;
        return val;
    }()));
    frInstDigi& inst = Öppna();
    const Digitalval val = Egna();
    for (const auto& [lista, text] : {std::pair{inst.cmbBandbredd, val.DigiBandbredd},
                                      {inst.cmbComport, val.DigiComport},
                                      {inst.cmbFlöde, val.DigiFlöde},
                                      {inst.cmbTrafik, val.DigiTrafik},
                                      {inst.cmbDisplay, val.DigiDisplay},
                                      {inst.cmbFIFORX, val.DigiFIFORX},
                                      {inst.cmbFIFOTX, val.DigiFIFOTX},
                                      {inst.cmbID, val.DigiID},
                                      {inst.cmbRXKlocka, val.DigiRXKlocka},
                                      {inst.cmbTXKlocka, val.DigiTXKlocka}})
        lista->Row(lista->findText(text));
    for (QAbstractButton* knapp : std::initializer_list<QAbstractButton*>{
             inst.chkUOS, inst.chkHPT, inst.chkATC, inst.optKanal[2], inst.optKanal[4], inst.optPrio[1]})
        knapp->click();
    SkrivI(inst.txtEffekt, "100 W, PEP");
    SkrivI(inst.txtUDP, "2333");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(delat.Digital, val) << "the byte without a control is kept too";
    EXPECT_EQ(platform::LoadTextFile(Inifil()), radio::DigitalvalTillText(val));
    EXPECT_FALSE(inst.isVisible());
    StartaOm();
    EXPECT_EQ(delat.Digital, val);
}

TEST_F(InstDigiProv, WhatIsNotSavedIsGoneWhenTheWindowComesAgain) {
    frInstDigi& inst = Öppna();
    inst.txtUDP->setText("2333");
    inst.chkAFC->click();
    QTest::mouseClick(inst.cmdAvbryt, Qt::LeftButton);
    EXPECT_FALSE(inst.isVisible());
    EXPECT_EQ(delat.Digital, Digitalval{});
    EXPECT_FALSE(QFile::exists(Inifil()));
    inst.Visa();
    ExpectValen(inst, {});
}

TEST_F(InstDigiProv, AWindowThatIsOpenedTwiceKeepsWhatIsTyped) {
    frInstDigi& inst = Öppna();
    inst.txtUDP->setText("2333");
    frTest::instans().Meny("mnuInställning_Digital")->trigger();
    EXPECT_EQ(inst.txtUDP->text(), "2333");
}

TEST_F(InstDigiProv, AFailedSaveSaysSoAndTheValuesAreInForceUntilTheEnd) {
    frInstDigi& inst = Öppna();
    SpärraFilen();
    inst.txtUDP->setText("2333");
    QTest::mouseClick(inst.cmdSpara, Qt::LeftButton);
    EXPECT_EQ(Tag(), (Meddelande{T("Ett fel har inträffat vid sparning av stationsinställningar!"),
                                 "SparaStation"}));
    EXPECT_TRUE(inst.isVisible()) << "nothing that was typed is lost";
    EXPECT_EQ(delat.Digital.DigiUDP, "2333");
}

TEST_F(InstDigiProv, ResetPutsTheDefaultsInForceAndStoresNothing) {
    SkrivFil(radio::DigitalvalTillText(Egna()));
    Starta();
    frInstDigi::instans().NollställInställningar();
    EXPECT_EQ(delat.Digital, Digitalval{});
    EXPECT_EQ(platform::LoadTextFile(Inifil()), radio::DigitalvalTillText(Egna()));
}

// ---- who else reads them ------------------------------------------------------------------------------

TEST_F(InstDigiProv, TheEditorOfLoggedContactsKnowsThePower) {
    SkrivFil(radio::DigitalvalTillText(Egna()));
    StartaLogg(6);
    frEditorTest::instans().Visa();
    EXPECT_EQ(frEditorTest::instans().txtEffekt->text(), "100 W, PEP");
}
