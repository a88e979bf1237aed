// Cabrillo, EDI, summary, list and ADIF: from the menu to the bytes of the file. The golden files are put
// together by guld/gör_guld.py.
#include "Rapportprov.h"

#include "reports/AdifModul.h"
#include "reports/frTestRapport_cbr.h"
#include "reports/frTestRapport_edi.h"
#include "reports/frTestRapport_sum.h"
#include "store/frEditorTest.h"

namespace {

const Meddelande saknas{"Saknar viktiga uppgifter! Var god kontrollera dessa.", "Saknar uppgifter"};
const Meddelande cbrKlar{"Rapport till Cabrillo utfördes felfritt.", "CabrilloRapport"};
const Meddelande cbrFel{"Ett fel har inträffat vid sparande av Cabrillo Rapport.", "SparaCabrillo"};
const Meddelande ediKlar{"Rapport till EDI utfördes felfritt.", "EDI Rapport"};
const Meddelande ediFel{"Ett fel har inträffat vid sparande av EDI Rapport.", "Spara EDI"};
const Meddelande sumKlar{"Rapport till Summafil utfördes felfritt.", "SummaRapport"};
const Meddelande sumFel{"Ett fel har inträffat vid sparande av Summa Rapport.", "SparaSumma"};
const Meddelande allKlar{"Rapport till Rapportfil utfördes felfritt.", "Rapportfil"};
const Meddelande allFel{"Ett fel har inträffat vid sparande av Rapport.", "Spararapport"};
const Meddelande adiKlar{"Exportering av data till ADIF utfördes felfritt.", "ExporteraTestAdif"};
const Meddelande adiFel{"Ett fel har inträffat vid exportering av data till en ADIF-fil.", "ExporteraAdif"};

QStringList Poster(const QComboBox& lista) {
    QStringList poster;
    for (int i = 0; i < lista.count(); ++i) poster << lista.itemText(i);
    return poster;
}

} // namespace

class Rapporter : public Rapportprov {
protected:
    template <class Fönster>
    Fönster& Öppna(const char* meny) {
        frTest::instans().Meny(meny)->trigger();
        return Fönster::instans();
    }
    frTestRapport_cbr& Cbr() { return Öppna<frTestRapport_cbr>("mnuRapport_Cabrillo"); }
    frTestRapport_edi& Edi() { return Öppna<frTestRapport_edi>("mnuRapport_EDI"); }
    frTestRapport_sum& Sum() { return Öppna<frTestRapport_sum>("mnuRapport_Summa"); }
    static void Tryck(QPushButton* knapp) { QTest::mouseClick(knapp, Qt::LeftButton); }
};

// ---- Cabrillo -----------------------------------------------------------------------------------------

TEST_F(Rapporter, TheCabrilloWindowComesUpFilledFromTheStation) {
    StartaMed(7, "");
    frTestRapport_cbr& r = Cbr();
    EXPECT_TRUE(r.isVisible());
    EXPECT_FALSE(r.isModal());
    EXPECT_EQ(r.windowTitle(), "Rapport (Cabrillo)");
    EXPECT_EQ(r.txtTestRapport->text(), "MT CW");
    EXPECT_EQ(r.txtDatum->text(), "2026-11-15");
    EXPECT_EQ(r.txtSignal->text(), "SK7MW");
    EXPECT_EQ(r.txtKlubb->text(), "SK7KLUBB");
    EXPECT_EQ(r.txtOperatörer->text() + r.txtNotering->text(), "");
    EXPECT_EQ(Poster(*r.cmbOp),
              (QStringList{"SINGLE-OP", "SINGLE-ASSISTED", "MULTI-ONE", "MULTI-TWO", "MULTI-MULTI",
                           "CLUB-SINGLE", "CLUB-MULTI", "ROOKIE", "EXPERT", "CHECKLOG"}));
    EXPECT_EQ(Poster(*r.cmbAssist), (QStringList{"NON-ASSISTED", "ASSISTED"}));
    EXPECT_EQ(Poster(*r.cmbEffekt), (QStringList{"", "LOW", "HIGH", "QRP"}));
    EXPECT_EQ(Poster(*r.cmbBand),
              (QStringList{"", "ALL", "160M", "80M", "40M", "20M", "15M", "10M", "6M", "2M", "70CM"}));
    EXPECT_EQ(Poster(*r.cmbTrafik), (QStringList{"", "CW", "SSB", "RTTY", "MIXED"}));
    EXPECT_EQ(r.cmbOp->Text() + '|' + r.cmbAssist->Text() + '|' + r.cmbEffekt->Text() + '|' +
                  r.cmbBand->Text() + '|' + r.cmbTrafik->Text(),
              "SINGLE-OP|NON-ASSISTED||80/40|");
    EXPECT_TRUE(Aktivera(r));
    r.txtKlubb->clear();
    SkrivI(r.txtKlubb, "sk0å");
    SkrivI(r.txtOperatörer, "sm7aaa");
    EXPECT_EQ(r.txtKlubb->text() + r.txtOperatörer->text(), "SK0ÅSM7AAA");
    // Closed and opened it is as new.
    r.cmbTrafik->Text("PH");
    r.cmbOp->setCurrentIndex(3);
    r.txtNotering->setText("73");
    Tryck(r.cmdStäng);
    EXPECT_FALSE(r.isVisible());
    Cbr();
    EXPECT_EQ(r.txtKlubb->text() + r.txtOperatörer->text() + r.txtNotering->text(), "SK7KLUBB");
    EXPECT_EQ(r.cmbTrafik->Text() + r.cmbOp->Text(), "SINGLE-OP");
    for (const int test : {35, 36}) {
        r.close();
        delat.AktuelltTest = test;
        EXPECT_EQ(Cbr().cmbBand->Text(), "80/40") << test;
    }
}

TEST_F(Rapporter, EachContestHasItsTitleInTheWindows) {
    const QStringList titlar{"NAC 432 MHz",
                             "NAC 144 MHz",
                             "NAC 50 MHz",
                             "NAC 28 MHz CW",
                             "NAC 28 MHz SSB",
                             "NAC 28 MHz FM",
                             "NAC 28 MHz Digi",
                             "MT CW",
                             "MT SSB",
                             "SAC CW",
                             "SAC SSB",
                             "",
                             "",
                             "",
                             ""};
    StartaLogg(0);
    for (int test = 0; test < 15; ++test) {
        delat.AktuelltTest = test;
        EXPECT_EQ(Cbr().txtTestRapport->text(), titlar[test]) << test;
        EXPECT_EQ(Cbr().cmbBand->Text(), test == 7 || test == 8 ? "80/40" : "") << test;
        EXPECT_EQ(Edi().txtTestRapport->text(), titlar[test]) << test;
        const QStringList band{"433 MHz", "144 MHz", "50 MHz"};
        const QString väntat = test <= 2 ? band[test] : test == 7 || test == 8 ? "80/40 M" : "28 MHz";
        EXPECT_EQ(Edi().cmbBand->currentText(), väntat) << test;
        frTestRapport_cbr::instans().close();
        frTestRapport_edi::instans().close();
    }
}

TEST_F(Rapporter, AMonthlyLogWithEveryOddContactIsWrittenAsCabrillo) {
    StartaMed(7, "mt.sql");
    frTestRapport_cbr& r = Cbr();
    r.cmbOp->setCurrentIndex(7);
    r.cmbAssist->setCurrentIndex(1);
    r.cmbTrafik->setCurrentIndex(2);
    r.txtOperatörer->setText("SM7AAA ÅSA");
    r.txtNotering->setText("Lång natt – 73 Я");
    for (int gång = 0; gång < 2; ++gång) { // the second writes over the first
        Tryck(r.cmdSkapa);
        EXPECT_EQ(Tag(), cbrKlar);
        meddelanden.clear();
        EXPECT_EQ(r.cmbTrafik->Text(), "PH") << "telephony's name in the file shows";
        Jämför("SK7MW_MT2611_PH.log");
        EXPECT_EQ(Filer(), QStringList{"SK7MW_MT2611_PH.log"});
    }
    EXPECT_TRUE(db().rsTESTQSO.IsEOF());
}

TEST_F(Rapporter, TheOverlayIsExpertForAllButRookies) {
    StartaMed(7, "mt.sql");
    frTestRapport_cbr& r = Cbr();
    for (const auto& [rad, op, tillägg] :
         {std::tuple{7, "ROOKIE", "ROOKIE"}, {8, "EXPERT", "EXPERT"}, {0, "SINGLE-OP", "EXPERT"}}) {
        r.cmbOp->setCurrentIndex(rad);
        Tryck(r.cmdSkapa);
        Tag();
        meddelanden.clear();
        const QList<QByteArray> rader = Bytes(Rapport("SK7MW_MT2611_.log")).split('\n');
        EXPECT_EQ(rader[2], QByteArray("CATEGORY: ") + op + '\r');
        EXPECT_EQ(rader[4], QByteArray("CATEGORY-OVERLAY: ") + tillägg + '\r');
    }
}

TEST_F(Rapporter, AnEmptyLogLeavesTheHeaderAloneInTheFile) {
    StartaMed(8, "");
    Cbr().txtOperatörer->setText("SM7AAA ÅSA");
    Tryck(Cbr().cmdSkapa);
    EXPECT_EQ(Tag(), cbrFel);
    Jämför("SK7MW_MT2611_.log");
}

TEST_F(Rapporter, ALogOfSACGoesWithoutTheContestsName) {
    StartaMed(9, "sac.sql");
    frTestRapport_cbr& r = Cbr();
    r.txtSignal->setText("XX"); // for display alone
    r.cmbBand->setCurrentIndex(1);
    r.cmbEffekt->setCurrentIndex(2);
    r.cmbTrafik->setCurrentIndex(2);
    for (const int test : {9, 10}) {
        delat.AktuelltTest = test;
        Tryck(r.cmdSkapa);
        EXPECT_EQ(Tag(), cbrKlar);
        Jämför("SK7MW261201_.log");
        ASSERT_TRUE(QFile::remove(Rapport("SK7MW261201_.log")));
        meddelanden.clear();
    }
    EXPECT_EQ(r.cmbTrafik->Text(), "SSB") << "only a monthly report says PH";
    r.Cabrillo_ARRLDX();
    EXPECT_EQ(Tag(), cbrKlar);
    Jämför("SK7MW261201_.log", "ARRL.log");
}

TEST_F(Rapporter, SACHasNoRookiesAndTheScoreIsWhatStandsOnTheScreen) {
    frTest& f = StartaMed(9, "sac.sql");
    frTestRapport_cbr& r = Cbr();
    r.cmbOp->setCurrentIndex(7);
    f.lblTotalPoäng->setText("12 345");
    Tryck(r.cmdSkapa);
    EXPECT_EQ(Tag(), cbrKlar);
    const QByteArray fil = Bytes(Rapport("SK7MW261201_.log"));
    EXPECT_TRUE(fil.contains("CATEGORY: ROOKIE  \r\nCATEGORY-OVERLAY: EXPERT\r\nCLAIMED-SCORE: 12 345\r\n"));
}

TEST_F(Rapporter, OtherContestsHaveNoCabrilloAndNothingIsSaid) {
    StartaMed(1, "nac.sql");
    for (const int test : {0, 1, 2, 3, 4, 5, 6, 11, 12, 13, 14}) {
        delat.AktuelltTest = test;
        Tryck(Cbr().cmdSkapa);
    }
    EXPECT_TRUE(meddelanden.empty());
    EXPECT_EQ(Filer(), QStringList());
    frTestRapport_cbr& r = Cbr();
    r.Cabrillo_WPX(); // one of those that were never made
    EXPECT_EQ(Filer(), QStringList());
}

TEST_F(Rapporter, WithoutLocatorCallTitleOrDateThereIsNoCabrillo) {
    StartaMed(9, "sac.sql");
    frTestRapport_cbr& r = Cbr();
    const frTestInst& s = frTestInst::instans();
    for (QLineEdit* fält :
         std::initializer_list<QLineEdit*>{s.txtTestLokator, s.txtSignal, r.txtTestRapport, r.txtDatum}) {
        const QString text = fält->text();
        fält->clear();
        Tryck(r.cmdSkapa);
        EXPECT_EQ(Tag(), saknas) << fält->objectName().toStdString();
        meddelanden.clear();
        fält->setText(text);
    }
    EXPECT_EQ(Filer(), QStringList());
}

TEST_F(Rapporter, ADateThatIsNoneGivesNoMonthlyReport) {
    StartaMed(7, "mt.sql");
    frTestRapport_cbr& r = Cbr();
    r.txtDatum->setText("igår");
    Tryck(r.cmdSkapa);
    EXPECT_EQ(Tag(), cbrFel);
    EXPECT_EQ(Filer(), QStringList());
}

TEST_F(Rapporter, ASlashInTheCallIsALowLineInTheNameOfTheFile) {
    StartaMed(9, "sac.sql");
    frTestInst::instans().txtSignal->setText("SK7MW/P");
    Tryck(Cbr().cmdSkapa);
    EXPECT_EQ(Tag(), cbrKlar);
    EXPECT_EQ(Filer(), QStringList{"SK7MW_P261201_.log"});
    EXPECT_TRUE(Bytes(Rapport("SK7MW_P261201_.log")).contains("CALLSIGN: SK7MW/P\r\n"));
}

// ---- EDI ----------------------------------------------------------------------------------------------

TEST_F(Rapporter, TheEDIWindowComesUpFilledFromTheStation) {
    StartaMed(1, "");
    frTestRapport_edi& r = Edi();
    EXPECT_EQ(r.windowTitle(), "Rapport  [Reg1Test] (EDI)");
    EXPECT_FALSE(r.isModal());
    const std::pair<const QLineEdit*, const char*> fält[] = {{r.txtTestRapport, "NAC 144 MHz"},
                                                             {r.txtDatum, "2026-11-15"},
                                                             {r.txtTestSignal, "SK7MW"},
                                                             {r.txtTestLokator, "JO65MR"},
                                                             {r.txtKlubb, "SK7KLUBB"},
                                                             {r.txtOPT1, ""},
                                                             {r.txtOPT2, ""},
                                                             {r.txtRigTX, "IC-7300"},
                                                             {r.txtRigRX, "IC-7300"},
                                                             {r.txtEffekt, ""},
                                                             {r.txtAntenn, "DIPOL"},
                                                             {r.txtAntennhöjd, "20;50"},
                                                             {r.txtMånad, ""},
                                                             {r.txtNotering, ""}};
    for (const auto& [ruta, text] : fält) EXPECT_EQ(ruta->text(), text) << ruta->objectName().toStdString();
    EXPECT_EQ(Poster(*r.cmbOp), (QStringList{"Single Operator", "Multi Operator"}));
    EXPECT_EQ(Poster(*r.cmbBand), (QStringList{"28 MHz", "50 MHz", "144 MHz", "433 MHz", "80/40 M"}));
    EXPECT_TRUE(Aktivera(r));
    for (platform::TextBox* ruta : {r.txtKlubb, r.txtRigRX, r.txtRigTX, r.txtTestLokator, r.txtTestSignal}) {
        SkrivI(ruta, "å");
        EXPECT_TRUE(ruta->text().contains(u'Å')) << ruta->objectName().toStdString();
    }
    SkrivI(r.txtAntenn, "yagi");
    EXPECT_TRUE(r.txtAntenn->text().contains("yagi"));
}

TEST_F(Rapporter, ANacLogWithEveryOddContactIsWrittenAsEDI) {
    StartaMed(1, "nac.sql");
    frTestRapport_edi& r = Edi();
    r.txtMånad->setText("DECEMBER");
    r.txtNotering->setText("Lång natt – 73 Я");
    Tryck(r.cmdSkapa);
    EXPECT_EQ(Tag(), ediKlar);
    Jämför("SVK261201__ 144 MHz.edi");
    EXPECT_TRUE(db().rsTESTQSO.IsEOF());
}

TEST_F(Rapporter, AMonthlyLogIsWrittenAsEDIWithoutTitleAndSquares) {
    StartaMed(7, "mt.sql");
    frTestRapport_edi& r = Edi();
    r.cmbOp->setCurrentIndex(1);
    r.txtOPT1->setText("SM7AAA");
    r.txtOPT2->setText("SM7BBB");
    r.txtEffekt->setText("100 W");
    Tryck(r.cmdSkapa);
    EXPECT_EQ(Tag(), ediKlar);
    Jämför("SVK261201_.edi");
}

TEST_F(Rapporter, AnEDIHeaderTellsWhatStandsInItsWindow) {
    StartaMed(1, "nac.sql");
    frTestRapport_edi& r = Edi();
    const std::tuple<QLineEdit*, const char*, const char*> fält[] = {
        {r.txtDatum, "2026-12-02", "TDate=20261202;20261202"},
        {r.txtTestSignal, "SK7MW/P", "PCall=SK7MW/P"},
        {r.txtTestLokator, "JO66AA", "PWWLo=JO66AA"},
        {r.txtKlubb, "SK7XX", "PCLUB=SK7XX"},
        {r.txtRigTX, "TX1", "STXEq=TX1"},
        {r.txtRigRX, "RX1", "SRXEq=RX1"},
        {r.txtAntenn, "YAGI", "SAnte=YAGI"},
        {r.txtAntennhöjd, "9;99", "SAntH=9;99"}};
    for (const auto& [ruta, text, rad] : fält) ruta->setText(text);
    r.cmbBand->setCurrentIndex(4);
    Tryck(r.cmdSkapa);
    EXPECT_EQ(Tag(), ediKlar);
    const QByteArray fil = Bytes(Rapport("SVK261201__ 144 MHz.edi"));
    for (const auto& [ruta, text, rad] : fält)
        EXPECT_TRUE(fil.contains(QByteArray("\r\n") + rad + "\r\n")) << rad;
    EXPECT_TRUE(fil.contains("\r\nPBand=80/40 M\r\n"));
    EXPECT_TRUE(fil.contains("\r\nRCAll=SK7MW\r\n")) << "the station's";
    r.close();
    EXPECT_EQ(Edi().txtTestSignal->text() + r.txtOPT1->text(), "SK7MW") << "anew";
}

TEST_F(Rapporter, TheWindowsHaveTheirLabels) {
    StartaMed(1, "");
    const auto rubriker = [](const QWidget& fönster) {
        QMap<QString, QString> av;
        for (const QLabel* etikett : fönster.findChildren<QLabel*>())
            if (etikett->buddy()) av[etikett->buddy()->objectName()] = etikett->text();
        for (const QPushButton* knapp : fönster.findChildren<QPushButton*>())
            av[knapp->objectName()] = knapp->text();
        return av;
    };
    using Rubriker = QMap<QString, QString>;
    EXPECT_EQ(rubriker(Cbr()), (Rubriker{{"txtTestRapport", "Test:"},
                                         {"txtDatum", "Test Datum:"},
                                         {"txtSignal", "Test Signal:"},
                                         {"txtKlubb", "Klubb:"},
                                         {"txtOperatörer", "Operatörer:"},
                                         {"txtNotering", "Notering:"},
                                         {"cmbOp", "Operatör sätt"},
                                         {"cmbBand", "Band:"},
                                         {"cmbTrafik", "Trafiksätt:"},
                                         {"cmbEffekt", "Effekt:"},
                                         {"cmbAssist", "Medhjälpare:"},
                                         {"cmdSkapa", "Skapa"},
                                         {"cmdSkicka", "Skicka..."},
                                         {"cmdLäs", "Läs Rapport..."},
                                         {"cmdStäng", "Stäng"}}));
    EXPECT_EQ(rubriker(Edi()), (Rubriker{{"txtTestRapport", "Test :"},
                                         {"txtDatum", "Test Datum :"},
                                         {"txtTestSignal", "Test Signal :"},
                                         {"txtTestLokator", "Test Lokator :"},
                                         {"txtKlubb", "Klubb :"},
                                         {"cmbOp", "Operatör sätt :"},
                                         {"cmbBand", "Band :"},
                                         {"txtOPT1", "Operatör 1 :"},
                                         {"txtOPT2", "Operatör 2 :"},
                                         {"txtRigTX", "Rig TX :"},
                                         {"txtRigRX", "Rig RX :"},
                                         {"txtEffekt", "Effekt :"},
                                         {"txtAntenn", "Antenn :"},
                                         {"txtAntennhöjd", "Antenn höjd  ( över L ;  H  ) :"},
                                         {"txtMånad", "Månad :"},
                                         {"txtNotering", "Notering :"},
                                         {"cmdSkapa", "Skapa"},
                                         {"cmdSkicka", "Skicka..."},
                                         {"cmdLäsRapport", "Läs Rapport..."},
                                         {"cmdStäng", "Stäng"}}));
    EXPECT_EQ(rubriker(Sum()), (Rubriker{{"txtTestRapport", "Test"},
                                         {"txtTestSignal", "Signal"},
                                         {"txtKlubb", "Klubb"},
                                         {"cmbOp", "Operatör sätt"},
                                         {"cmbAssist", "Medhjälpare"},
                                         {"txtOperatörer", "Operatörer"},
                                         {"txtRiggar", "Rig TX / RX"},
                                         {"txtAntenner", "Antenn"},
                                         {"txtNotering", "Notering"},
                                         {"cmdSkapaSumma", "Skapa Summa"},
                                         {"cmdSkapaRapport", "Skapa Rapport"},
                                         {"cmdSkicka", "Skicka..."},
                                         {"cmdLäsRapport", "Läs Rapport..."},
                                         {"cmdStäng", "Stäng"}}));
}

TEST_F(Rapporter, OnTenMetresSquaresStandAsMultipliersAndCountriesAsSquares) {
    StartaMed(4, "tio.sql");
    Tryck(Edi().cmdSkapa);
    EXPECT_EQ(Tag(), ediKlar);
    Jämför("SVK261201__ 28 MHz SSB.edi");
    meddelanden.clear();
    frTestRapport_sum& r = Sum();
    r.txtOperatörer->setText("SM7AAA");
    r.cmbOp->setCurrentIndex(7);
    r.cmbAssist->setCurrentIndex(1);
    r.txtAntenner->setText("Dipol Ö–V");
    Tryck(r.cmdSkapaSumma);
    EXPECT_EQ(Tag(), sumKlar);
    Jämför("SVK261201__ 28 MHz SSB.sum");
}

TEST_F(Rapporter, AnEmptyLogIsAWholeEDIFile) {
    StartaMed(14, "");
    Tryck(Edi().cmdSkapa);
    EXPECT_EQ(Tag(), ediKlar);
    Jämför("SVK261201_.edi", "tom.edi");
}

TEST_F(Rapporter, TheModeOfEveryEDIRecordIsThatOfTheEntryForm) {
    frTest& f = StartaMed(1, "nac.sql");
    const char* const koder[] = {"2", "1", "7", "6", "5"};
    f.cmbTrafik->Clear();
    for (const char* trafik : {"A", "B", "C", "D", "E", "F"}) f.cmbTrafik->addItem(trafik);
    for (int rad = 0; rad < 6; ++rad) {
        f.cmbTrafik->setCurrentIndex(rad);
        Tryck(Edi().cmdSkapa);
        Tag();
        meddelanden.clear();
        int poster = 0;
        for (const QByteArray& post : Bytes(Rapport("SVK261201__ 144 MHz.edi")).split('\n')) {
            if (!post.startsWith("261201;") || post.contains("NAMN")) continue;
            EXPECT_EQ(post.split(';')[3], rad < 5 ? koder[rad] : "") << rad;
            ++poster;
        }
        EXPECT_EQ(poster, 2);
    }
    f.cmbTrafik->setCurrentIndex(1);
    f.cmbTrafik->Text("FM"); // typed, and no row of the list
    Tryck(Edi().cmdSkapa);
    Tag();
    EXPECT_TRUE(Bytes(Rapport("SVK261201__ 144 MHz.edi")).contains("261201;1800;SM5ABC;;599;"));
}

TEST_F(Rapporter, WithoutLocatorCallAddressOrNameThereIsNoEDI) {
    StartaMed(1, "nac.sql");
    const frTestRapport_edi& r = Edi();
    const frTestInst& s = frTestInst::instans();
    for (platform::TextBox* fält : {s.txtTestLokator, s.txtSignal, s.txtAdress, s.txtNamn}) {
        const QString text = fält->text();
        fält->clear();
        Tryck(r.cmdSkapa);
        EXPECT_EQ(Tag(), saknas) << fält->objectName().toStdString();
        meddelanden.clear();
        fält->setText(text);
    }
    EXPECT_EQ(Filer(), QStringList());
}

// ---- summary and list ---------------------------------------------------------------------------------

TEST_F(Rapporter, TheSummaryWindowComesUpFilledFromTheStation) {
    StartaMed(1, "");
    frTestRapport_sum& r = Sum();
    EXPECT_EQ(r.windowTitle(), "Rapport (Summa, Rapport)");
    EXPECT_FALSE(r.isModal());
    EXPECT_EQ(r.txtTestRapport->text(), frTest::instans().windowTitle());
    EXPECT_EQ(r.txtTestSignal->text() + '|' + r.txtKlubb->text() + '|' + r.txtRiggar->text(),
              "SK7MW|SK7KLUBB|IC-7300");
    EXPECT_EQ(r.txtOperatörer->text() + r.txtAntenner->text() + r.txtNotering->text(), "");
    EXPECT_EQ(Poster(*r.cmbOp),
              (QStringList{"Single Op", "Single Assisted", "Multi One", "Multi Two", "Multi Multi",
                           "Club Single", "Club Multi", "Rookie", "DX", "Expert", "Checklog"}));
    EXPECT_EQ(Poster(*r.cmbAssist), (QStringList{"No Assisted", "Assisted"}));
    EXPECT_EQ(r.cmbOp->currentIndex() + r.cmbAssist->currentIndex(), 0);
}

TEST_F(Rapporter, TheSummaryCountsSixBandsAndPutsTheirDigitsTogether) {
    StartaMed(9, "sac.sql");
    frTestRapport_sum& r = Sum();
    r.txtOperatörer->setText("SM7AAA");
    r.cmbOp->setCurrentIndex(7);
    r.cmbAssist->setCurrentIndex(1);
    r.txtAntenner->setText("Dipol Ö–V");
    r.txtNotering->setText("73");
    Tryck(r.cmdSkapaSumma);
    EXPECT_EQ(Tag(), sumKlar);
    Jämför("SVK261201_CQWW CW.sum");
    EXPECT_EQ(db().rsTESTQSO.AbsolutePosition(), 0);
    meddelanden.clear();
    Tryck(r.cmdSkapaRapport);
    EXPECT_EQ(Tag(), allKlar);
    Jämför("SK7MW261201_CQWW CW.all");
    EXPECT_TRUE(db().rsTESTQSO.IsEOF());
}

TEST_F(Rapporter, ContactsOnVHFAreInTheScoreAndInNoRow) {
    StartaMed(1, "nac.sql");
    frTestRapport_sum& r = Sum();
    r.txtOperatörer->setText("SM7AAA");
    r.cmbOp->setCurrentIndex(7);
    r.cmbAssist->setCurrentIndex(1);
    r.txtAntenner->setText("Dipol Ö–V");
    Tryck(r.cmdSkapaSumma);
    EXPECT_EQ(Tag(), sumKlar);
    Jämför("SVK261201__ 144 MHz.sum");
}

TEST_F(Rapporter, AnEmptyLogHasNoSummaryAndAListOfItsHead) {
    StartaMed(14, "");
    frTestRapport_sum& r = Sum();
    Tryck(r.cmdSkapaSumma);
    EXPECT_EQ(Tag(), sumFel);
    EXPECT_EQ(Filer(), QStringList());
    meddelanden.clear();
    Tryck(r.cmdSkapaRapport);
    EXPECT_EQ(Tag(), allFel);
    Jämför("SK7MW261201_WPX SSB.all");
}

TEST_F(Rapporter, NeitherSummaryNorListAsksForTheStation) {
    nu = QDateTime(QDate(2026, 12, 2), QTime(0, 30));
    StartaMed(9, "sac.sql");
    for (QLineEdit* fält : frTestInst::instans().findChildren<QLineEdit*>()) fält->clear();
    const frTestRapport_sum& r = Sum();
    for (QLineEdit* fält : r.findChildren<QLineEdit*>()) fält->clear();
    Tryck(r.cmdSkapaSumma);
    EXPECT_EQ(Tag(), sumKlar);
    meddelanden.clear();
    Tryck(r.cmdSkapaRapport);
    EXPECT_EQ(Tag(), allKlar);
    EXPECT_EQ(Filer(), (QStringList{"261201_CQWW CW.all", "SVK261201_CQWW CW.sum"}));
    EXPECT_TRUE(Bytes(Rapport("SVK261201_CQWW CW.sum")).endsWith("\r\n2026-12-02\r\n"))
        << "the form has the date of UTC, the sheet the local one";
}

TEST_F(Rapporter, ATotalBeyond32BitsEndsInTheMessage) {
    StartaMed(9, "sac.sql");
    Ändra(Logg(), "UPDATE TESTQSO SET Poäng=30000 WHERE \"Band \"='160 M'");
    db().rsTESTQSO.Requery();
    Tryck(Sum().cmdSkapaSumma);
    EXPECT_EQ(Tag(), sumFel) << "30000, 300000, 3000000, 30000001 and on";
    EXPECT_EQ(Filer(), QStringList());
}

// ---- ADIF ---------------------------------------------------------------------------------------------

TEST_F(Rapporter, EveryContactIsExportedWithAllItsTags) {
    frTest& f = StartaMed(1, "nac.sql");
    filfrågor.clear();
    filval.push_back(Rapport("nac.adi"));
    f.Meny("mnuarkiv_Export_ADI")->trigger();
    EXPECT_EQ(Tag(), adiKlar);
    Jämför("nac.adi");
    ASSERT_EQ(filfrågor.size(), 1U);
    EXPECT_EQ(filfrågor[0].title, "Spara ADIF-fil för exportering som");
    EXPECT_EQ(filfrågor[0].filter, "ADIF-filer (*.adi)|*.adi");
    EXPECT_TRUE(filfrågor[0].save);
    EXPECT_TRUE(db().rsTESTQSO.IsEOF());
    EXPECT_EQ(f.dgLogg->Caption(8), "Lokator") << "not bound anew";
    // The file is as long as the log, whatever stood there; and a narrowed log is exported whole.
    QFile lång(Rapport("nac.adi"));
    ASSERT_TRUE(lång.open(QFile::WriteOnly));
    lång.write(QByteArray(100000, 'x'));
    lång.close();
    meddelanden.clear();
    db().rsTESTQSO.Filter("Signal = 'FINNS INTE'");
    filval.push_back(Rapport("nac.adi"));
    ExporteraAdif();
    EXPECT_EQ(Tag(), adiKlar);
    Jämför("nac.adi");
}

TEST_F(Rapporter, AnExportNeedsALogWithContactsAndAName) {
    frTest& f = StartaLogg(1);
    ExporteraAdif();
    EXPECT_EQ(Tag(), (Meddelande{"Det finns ingen data att exportera!", "ExporteraAdif"}));
    meddelanden.clear();
    Kör("sm5abc", "jo89wj");
    filval.push_back(std::nullopt);
    ExporteraAdif();
    EXPECT_TRUE(meddelanden.empty()) << "cancelled";
    f.mnuArkiv_StängTestlogg_Click();
    ExporteraAdif();
    EXPECT_EQ(Tag(), (Meddelande{"Du måste öppna en logg innan du exportera data till en ADIF-fil.",
                                 "ExporteraAdif"}));
    meddelanden.clear();
    f.Meny("mnuArkiv_Export_SVK")->trigger();
    EXPECT_TRUE(meddelanden.empty()) << "nothing hangs on that entry";
}

// ---- what can go wrong --------------------------------------------------------------------------------

TEST_F(Rapporter, AMissingFolderIsToldAndTheProgramGoesOn) {
    frTest& f = StartaMed(7, "mt.sql");
    ASSERT_TRUE(QDir(Fil("Rapport")).removeRecursively());
    const auto prova = [this](QPushButton* knapp, const Meddelande& väntat) {
        Tryck(knapp);
        EXPECT_EQ(Tag(), väntat);
        meddelanden.clear();
    };
    prova(Cbr().cmdSkapa, cbrFel);
    prova(Edi().cmdSkapa, ediFel);
    prova(Sum().cmdSkapaSumma, sumFel);
    prova(Sum().cmdSkapaRapport, allFel);
    filval.push_back(Rapport("x.adi"));
    ExporteraAdif();
    EXPECT_EQ(Tag(), adiFel);
    meddelanden.clear();
    ASSERT_TRUE(QDir().mkpath(Fil("Rapport")));
    prova(Cbr().cmdSkapa, cbrKlar);
    EXPECT_EQ(f.lblQSO->text(), "4");
}

TEST_F(Rapporter, AFullDiskIsTold) {
    StartaMed(7, "mt.sql");
    // Whatever is written to it, the device is full.
    for (const char* namn : {"SK7MW_MT2611_.log", "SVK261201_.edi"})
        ASSERT_TRUE(QFile::link("/dev/full", Rapport(namn)));
    Tryck(Cbr().cmdSkapa);
    EXPECT_EQ(Tag(), cbrFel);
    meddelanden.clear();
    Tryck(Edi().cmdSkapa);
    EXPECT_EQ(Tag(), ediFel);
}

TEST_F(Rapporter, ALogThatLacksAColumnIsTold) {
    frTest& f = StartaMed(7, "mt.sql");
    f.mnuArkiv_StängTestlogg_Click();
    Ändra(Logg(), "ALTER TABLE TESTQSO RENAME COLUMN LöpNrSR TO Annat");
    filval.push_back(Logg());
    f.mnuArkiv_ÖppnaTestlogg_Click();
    Tryck(Cbr().cmdSkapa);
    EXPECT_EQ(Tag(), cbrFel);
    EXPECT_TRUE(Bytes(Rapport("SK7MW_MT2611_.log")).endsWith("SOAPBOX: \r\n")) << "the header stands";
    meddelanden.clear();
    Tryck(Edi().cmdSkapa);
    EXPECT_EQ(Tag(), ediFel);
    EXPECT_TRUE(Bytes(Rapport("SVK261201_.edi")).endsWith("[QSORecords;4]\r\n"));
    f.mnuArkiv_StängTestlogg_Click();
    Ändra(Logg(), "ALTER TABLE TESTQSO RENAME COLUMN \"Poäng\" TO Ingen");
    Ändra(Logg(), "ALTER TABLE TESTQSO ADD COLUMN \"Poäng\" INTEGER DEFAULT 1");
    Ändra(Logg(), "ALTER TABLE TESTQSO RENAME COLUMN Notering TO Not1");
    filval.push_back(Logg());
    f.mnuArkiv_ÖppnaTestlogg_Click();
    meddelanden.clear();
    filval.push_back(Rapport("x.adi"));
    ExporteraAdif();
    EXPECT_EQ(Tag(), adiFel);
    EXPECT_TRUE(Bytes(Rapport("x.adi")).endsWith("<EOH>\r\n"));
}

TEST_F(Rapporter, WithoutAnOpenLogThereIsNoReport) {
    frTest& f = StartaMed(7, "mt.sql");
    f.mnuArkiv_StängTestlogg_Click();
    for (const auto& [knapp, väntat] :
         {std::pair{Cbr().cmdSkapa, cbrFel}, std::pair{Edi().cmdSkapa, ediFel},
          std::pair{Sum().cmdSkapaSumma, sumFel}, std::pair{Sum().cmdSkapaRapport, allFel}}) {
        Tryck(knapp);
        EXPECT_EQ(Tag(), väntat);
        meddelanden.clear();
    }
    EXPECT_EQ(Filer(), QStringList());
}

TEST_F(Rapporter, TheWholeLogIsReportedWhateverTheEditorShows) {
    StartaMed(9, "sac.sql");
    frTestRapport_cbr& r = Cbr();
    r.cmbBand->setCurrentIndex(1);
    r.cmbEffekt->setCurrentIndex(2);
    db().rsTESTQSO.Filter("Signal = 'DL1AA'");
    Tryck(r.cmdSkapa);
    EXPECT_EQ(Tag(), cbrKlar);
    Jämför("SK7MW261201_.log");
}

TEST_F(Rapporter, AContactCanBeOpenedByDoubleClickRightBehindAReport) {
    frTest& f = StartaMed(1, "nac.sql");
    const auto klicka = [&f](int rad) {
        f.dgLogg->Refresh();
        const QPoint plats = f.dgLogg->visualRect(f.dgLogg->model()->index(rad, 2)).center();
        QTest::mouseClick(f.dgLogg->viewport(), Qt::LeftButton, Qt::NoModifier, plats);
        QTest::mouseDClick(f.dgLogg->viewport(), Qt::LeftButton, Qt::NoModifier, plats);
    };
    klicka(3);
    EXPECT_EQ(frEditorTest::instans().lblTestlogg->text(), "Redigera: SM5ABC");
    frEditorTest::instans().close();
    for (const int rad : {3, 0}) {
        filval.push_back(Rapport("nac.adi"));
        ExporteraAdif();
        Tag();
        meddelanden.clear();
        QCoreApplication::processEvents();
        f.dgLogg->setFocus();
        klicka(rad);
        EXPECT_TRUE(frEditorTest::instans().isVisible());
        EXPECT_EQ(db().rsTESTQSO.AbsolutePosition(), rad);
        frEditorTest::instans().close();
    }
    filval.push_back(Rapport("nac.adi"));
    ExporteraAdif();
    Tag();
    frEditorTest::instans().VisaVald();
    EXPECT_FALSE(delat.RedigeraQSO) << "no row is current behind the end";
}

TEST_F(Rapporter, TheLogStandsInItsOwnLayoutAgainAfterTheNextClear) {
    frTest& f = StartaMed(7, "mt.sql");
    EXPECT_EQ(f.dgLogg->Caption(8), "Lokator");
    Tryck(Cbr().cmdSkapa);
    Tag();
    EXPECT_EQ(f.dgLogg->Caption(8), "LöpNr") << "bound as in SAC";
    EXPECT_EQ(f.dgLogg->model()->columnCount(), 15);
    f.cmdAvbryt_Click();
    EXPECT_EQ(f.dgLogg->Caption(8), "Lokator");
    f.dgLogg->Refresh();
    EXPECT_EQ(f.dgLogg->model()->index(1, 8).data().toString(), "JO65AA");
}
