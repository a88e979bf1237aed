// The editor of logged contacts.
#include "Sparprov.h"

#include "cluster/frDXCluster.h"
#include "store/Landsstatus.h"
#include "store/Landsökning.h"

class EditorProv : public Sparprov {
protected:
    /// A NAC log with four contacts a minute apart, and the editor over it.
    frEditorTest& Öppna(int test = 1) {
        frTest& f = StartaKlar(test);
        const char* const kontakter[][2] = {
            {"sm5abc", "jo89wj"}, {"la1aa", "jo59aa"}, {"sm6abc", "jo67bq"}, {"dl1aa", "jo62qm"}};
        for (int i = 0; i < 4; ++i) {
            nu = QDateTime(QDate(2026, 12, 1), QTime(19, i));
            f.TestTimer_Tick();
            Kör(kontakter[i][0], kontakter[i][1]);
        }
        f.Meny("mnufönster_Editor")->trigger();
        EXPECT_TRUE(Aktivera(frEditorTest::instans()));
        return frEditorTest::instans();
    }
    /// The operator clicks a row of the editor's grid.
    static void Välj(frEditorTest& e, int rad) {
        e.dgTestLogg->Refresh();
        const QModelIndex plats = e.dgTestLogg->model()->index(rad, 2);
        e.dgTestLogg->scrollTo(plats);
        QTest::mouseClick(e.dgTestLogg->viewport(), Qt::LeftButton, Qt::NoModifier,
                          e.dgTestLogg->visualRect(plats).center());
    }
    QString Status(const char* dxcc, const char* kolumn) const {
        return LäsEtt(Logg(),
                      QStringLiteral("SELECT \"%1\" FROM TESTDXCC WHERE DXCC='%2'").arg(kolumn, dxcc));
    }
    /// Marks a country as the menu's save does.
    static void Märk(QString dxcc, QString trafiksätt, QString band) {
        LäggTillKördaDXCC(dxcc, trafiksätt, band);
    }
    static QStringList Signaler(frEditorTest& e) {
        e.dgTestLogg->Refresh();
        QStringList rader;
        for (int i = 0; i < e.dgTestLogg->model()->rowCount(); ++i)
            rader += e.dgTestLogg->model()->index(i, 2).data().toString();
        return rader;
    }
};

TEST_F(EditorProv, ShowsTheOpenLogAndItsLists) {
    frEditorTest& e = Öppna();
    EXPECT_TRUE(e.isVisible());
    EXPECT_EQ(e.windowTitle(), "Logg Data (Editor)");
    EXPECT_EQ(Signaler(e), (QStringList{"SM5ABC", "LA1AA", "SM6ABC", "DL1AA"}));
    QStringList trafik, band;
    for (int i = 0; i < e.cmbTrafiksätt->count(); ++i) trafik += e.cmbTrafiksätt->itemText(i);
    for (int i = 0; i < e.cmbBand->count(); ++i) band += e.cmbBand->itemText(i);
    EXPECT_EQ(trafik, (QStringList{"CW", "SSB", "FM", "AM", "FT8", "RTTY", "PSK31"}));
    EXPECT_EQ(band, (QStringList{"160 M", "80 M", "40 M", "30 M", "20 M", "17 M", "15 M", "12 M", "10 M",
                                 "6 M", "2 M", "70 CM"}));
    EXPECT_EQ(e.txtDatum->text(), "2026-12-01");
    EXPECT_EQ(e.txtLokalTid->text(), "19:03:00");
    EXPECT_FALSE(delat.RedigeraQSO);
}

TEST_F(EditorProv, AChosenRowIsShownAndHeldForEditing) {
    frEditorTest& e = Öppna();
    Ändra(Logg(), "UPDATE TESTQSO SET QTH='Oslo', Namn='Ola', Notering='hej' WHERE Signal='LA1AA'");
    db().rsTESTQSO.Requery();
    Välj(e, 1);
    EXPECT_TRUE(delat.RedigeraQSO);
    EXPECT_EQ(db().rsTESTQSO.Field("Signal").text(), "LA1AA");
    EXPECT_EQ(e.lblTestlogg->text(), "Redigera: LA1AA");
    const std::pair<const QLineEdit*, const char*> fält[] = {
        {e.txtDatum, "2026-12-01"}, {e.txtUTCTid, "18:01:00"},
        {e.txtPrefix, "LA"},        {e.txtSignal, "LA1AA"},
        {e.txtLand, "Norge"},       {e.txtDXCC, "LA"},
        {e.txtDXCCNR, "266"},       {e.txtFrekvens, "0,000,00"},
        {e.txtRSTM, "599"},         {e.txtRSTS, "599"},
        {e.txtNamn, "Ola"},         {e.txtQTH, "Oslo"},
        {e.txtNotering, "hej"},     {e.txtITU, "18"},
        {e.txtWAZ, "14"},           {e.txtDiplom, "JO59"},
        {e.txtTest, "JO59AA"}};
    for (const auto& [ruta, text] : fält) EXPECT_EQ(ruta->text(), text) << ruta->objectName().toStdString();
    EXPECT_EQ(e.cmbTrafiksätt->Text(), "CW");
    EXPECT_EQ(e.cmbBand->Text(), "2 M");
}

TEST_F(EditorProv, ABandOutsideTheListIsShownAllTheSame) {
    frEditorTest& e = Öppna();
    Ändra(Logg(), "UPDATE TESTQSO SET \"Band \"='24 CM' WHERE Signal='LA1AA'");
    db().rsTESTQSO.Requery();
    Välj(e, 1);
    EXPECT_EQ(e.cmbBand->Text(), "24 CM");
}

TEST_F(EditorProv, ACorrectionIsWrittenAndNotScoredAnew) {
    frEditorTest& e = Öppna();
    const frTest& f = frTest::instans();
    const QString total = f.lblTotalPoäng->text();
    const QString poäng = Rader("Poäng")[1];
    Välj(e, 1);
    e.txtSignal->setText("la1zz");
    e.txtTest->setText("JO49AA");
    e.txtNamn->setText("Ola");
    e.txtRSTM->setText("579");
    e.cmdSpara->click();
    EXPECT_EQ(Rader("Signal, Multiplar, Diplom, Rutor, Namn, Mottaget, Poäng")[1],
              "LA1ZZ|JO49AA|JO49AA|JO59|Ola|579|" + poäng);
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_EQ(e.txtSignal->text(), "");
    EXPECT_EQ(e.txtRSTM->text() + e.txtRSTS->text(), "5959");
    EXPECT_EQ(e.lblTestlogg->text(), "Logg Data");
    EXPECT_EQ(f.lblTotalPoäng->text(), total) << "as many squares, the points as they were";
    EXPECT_EQ(db().rsTESTQSO.Filter(), "");
    EXPECT_TRUE(meddelanden.empty());
}

TEST_F(EditorProv, AnEmptyMultiplierLeavesBothColumnsAndAnEmptyFieldEmptiesItsOwn) {
    frEditorTest& e = Öppna();
    Välj(e, 0);
    e.txtTest->clear();
    e.txtITU->clear();
    e.txtLand->clear();
    e.cmdSpara->click();
    EXPECT_EQ(Rader("Multiplar, Diplom, ITU, Land, Zon")[0], "JO89WJ|JO89|||14");
}

TEST_F(EditorProv, AMonthlyRowGetsTheBareLocatorAsItsToken) {
    frEditorTest& e = Öppna(7);
    Välj(e, 1);
    e.txtTest->setText("JO49AA");
    e.cmdSpara->click();
    EXPECT_EQ(Rader("Multiplar, Diplom, LöpNrSR")[1], "JO49AA|JO49AA|02");
}

TEST_F(EditorProv, WithoutAChosenRowTheButtonsDoNothing) {
    frEditorTest& e = Öppna();
    const QStringList innan = Rader("Signal, Namn");
    e.txtSignal->setText("SM5ABC");
    e.txtNamn->setText("Nils");
    e.cmdSpara->click();
    e.cmdRadera->click();
    EXPECT_EQ(Rader("Signal, Namn"), innan);
    EXPECT_TRUE(frågor.empty());
}

TEST_F(EditorProv, DeletionIsAskedForWithTheCall) {
    frEditorTest& e = Öppna();
    Välj(e, 2);
    jaNej = {false, true};
    e.cmdRadera->click();
    EXPECT_EQ(frågor.back(), (Meddelande{"Vill du verkligen radera SM6ABC från loggen?", "Radera"}));
    EXPECT_EQ(Antal(), 4);
    EXPECT_TRUE(delat.RedigeraQSO);
    e.cmdRadera->click();
    EXPECT_EQ(Rader("Signal"), (QStringList{"SM5ABC", "LA1AA", "DL1AA"}));
    EXPECT_FALSE(delat.RedigeraQSO);
    const frTest& f = frTest::instans();
    EXPECT_EQ(f.lblQSO->text(), "3");
    EXPECT_EQ(f.lblDiplom->text(), "3");
    EXPECT_EQ(QApplication::focusWidget(), e.txtSignal);
    EXPECT_EQ(Signaler(e).size(), 3);
}

TEST_F(EditorProv, CancelLetsGoOfTheContactAtOnce) {
    frEditorTest& e = Öppna();
    Välj(e, 2);
    e.cmdRensa->click();
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_EQ(e.txtSignal->text(), "");
    frTest& f = frTest::instans();
    EXPECT_TRUE(Aktivera(f));
    SkrivI(f.txtSignal, "oz1aa");
    SkrivI(f.txtDiplom, "jo65aa");
    f.cmdSpara->click();
    EXPECT_EQ(Antal(), 5) << "a new contact";
}

TEST_F(EditorProv, ClosingLetsGoOfTheContactToo) {
    frEditorTest& e = Öppna();
    Välj(e, 2);
    QTest::mouseClick(e.cmdStäng, Qt::LeftButton);
    EXPECT_FALSE(e.isVisible());
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_EQ(db().rsTESTQSO.AbsolutePosition(), 3) << "the newest contact in view";
    frTest& f = frTest::instans();
    EXPECT_TRUE(Aktivera(f));
    SkrivI(f.txtSignal, "oz1aa");
    SkrivI(f.txtDiplom, "jo65aa");
    f.cmdSpara->click();
    EXPECT_EQ(Rader("Signal"), (QStringList{"SM5ABC", "LA1AA", "SM6ABC", "DL1AA", "OZ1AA"}));
}

TEST_F(EditorProv, PrefixAndCountryNarrowTheLog) {
    frEditorTest& e = Öppna();
    Välj(e, 0);
    e.txtPrefix->setText("SM6");
    e.cmdPrefix->click();
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_EQ(Signaler(e), QStringList{"SM6ABC"});
    e.txtDXCC->setText("SM");
    e.cmdDXCC->click();
    EXPECT_EQ(Signaler(e), (QStringList{"SM5ABC", "SM6ABC"}));
    e.txtDXCC->setText("S'M");
    e.cmdDXCC->click();
    EXPECT_EQ(Tag(), (Meddelande{"Sökningen kan inte göras. Kontrollera texten.", "Logg Data (Editor)"}));
    EXPECT_EQ(Signaler(e).size(), 2);
    e.cmdRensa->click();
    EXPECT_EQ(Signaler(e).size(), 4);
    for (QPushButton* knapp : {e.cmdPrefix, e.cmdDXCC}) knapp->click();
    EXPECT_EQ(Signaler(e).size(), 4) << "an empty field asks for nothing";
}

TEST_F(EditorProv, ShowTakesTheCurrentRow) {
    frEditorTest& e = Öppna();
    db().rsTESTQSO.AbsolutePosition(1);
    e.cmdVisa->click();
    EXPECT_EQ(e.lblTestlogg->text(), "Logg Data") << "nothing without a call in the field";
    e.txtSignal->setText("X");
    e.cmdVisa->click();
    EXPECT_EQ(e.txtSignal->text(), "LA1AA");
    EXPECT_EQ(delat.RedigeradBookmark, db().rsTESTQSO.GetBookmark());
    EXPECT_EQ(QApplication::focusWidget(), e.txtSignal);
}

TEST_F(EditorProv, AnEmptyLogHasNothingToShow) {
    StartaKlar(1);
    frTest::instans().Meny("mnufönster_Editor")->trigger();
    frEditorTest& e = frEditorTest::instans();
    e.txtSignal->setText("X");
    e.cmdVisa->click();
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid visning av QSO", "VisaTestQSOData"}));
}

TEST_F(EditorProv, ACorrectionThatCannotBeWrittenIsTold) {
    frEditorTest& e = Öppna();
    Välj(e, 1);
    Ändra(Logg(), "UPDATE TESTQSO SET Namn='Otto' WHERE Signal='LA1AA'"); // another station
    e.txtNamn->setText("Ola");
    e.cmdSpara->click();
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid sparande/uppdatering av QSO.", "SparaQSO"}));
    EXPECT_EQ(Rader("Namn")[1], "Otto");
}

TEST_F(EditorProv, ADoubleClickInTheLogOpensTheContact) {
    Öppna();
    frEditorTest& e = frEditorTest::instans();
    e.close();
    frTest& f = frTest::instans();
    f.dgLogg->Refresh();
    const QPoint plats = f.dgLogg->visualRect(f.dgLogg->model()->index(2, 2)).center();
    QTest::mouseClick(f.dgLogg->viewport(), Qt::LeftButton, Qt::NoModifier, plats);
    QTest::mouseDClick(f.dgLogg->viewport(), Qt::LeftButton, Qt::NoModifier, plats);
    EXPECT_TRUE(e.isVisible());
    EXPECT_EQ(e.lblTestlogg->text(), "Redigera: SM6ABC");
    EXPECT_TRUE(delat.RedigeraQSO);
}

TEST_F(EditorProv, TheNoteIsThatOfTheEntryFormUntilTheWindowCloses) {
    frEditorTest& e = Öppna();
    e.txtNotering->setText("QRP");
    frTest& f = frTest::instans();
    EXPECT_TRUE(Aktivera(f));
    SkrivI(f.txtSignal, "oz1aa");
    SkrivI(f.txtDiplom, "jo65aa");
    f.cmdSpara->click();
    EXPECT_EQ(Rader("Notering").last(), "QRP");
    e.close();
    EXPECT_EQ(e.txtNotering->text(), "");
}

TEST_F(EditorProv, AnotherLogIsFollowedAndAClosedOneShowsNothing) {
    frEditorTest& e = Öppna();
    NyLogg(1, "ny.svk");
    EXPECT_EQ(Signaler(e), QStringList());
    frTest::instans().mnuArkiv_StängTestlogg_Click();
    for (QPushButton* knapp : {e.cmdVisa, e.cmdSpara, e.cmdRadera, e.cmdRensa, e.cmdPrefix, e.cmdDXCC})
        knapp->click();
    EXPECT_EQ(Signaler(e), QStringList());
    EXPECT_TRUE(meddelanden.empty());
}

// ---- the status of a country --------------------------------------------------------------------------

TEST_F(EditorProv, AChangedBandWithdrawsItsColumnAlone) {
    frEditorTest& e = Öppna();
    Märk("SM", "CW", "2 M");
    Märk("LA", "CW", "2 M");
    Välj(e, 1);
    e.cmbBand->Text("6 M");
    e.cmdSpara->click();
    EXPECT_EQ(Status("LA", "2 M"), "") << "no contact with Norway on it";
    EXPECT_EQ(Status("LA", "CW"), "W") << "still one in the mode";
    EXPECT_EQ(Status("SM", "2 M"), "W");
    EXPECT_EQ(db().rsTESTQSO.Filter(), "") << "the whole log is in view";
    EXPECT_EQ(Signaler(e).size(), 4);
}

TEST_F(EditorProv, ADeletionWithOthersOnTheSameBandWithdrawsNothing) {
    frEditorTest& e = Öppna();
    Märk("SM", "CW", "2 M");
    Välj(e, 0);
    jaNej = {true};
    e.cmdRadera->click();
    EXPECT_EQ(Status("SM", "2 M") + Status("SM", "CW"), "WW");
}

TEST_F(EditorProv, TheLastContactOfACountryTakesEverythingConfirmedTooWithIt) {
    frEditorTest& e = Öppna();
    Ändra(Logg(),
          "UPDATE TESTDXCC SET \"2 M\"='C', CW='W', \"40 M\"='C', PSK31='W', PSK='W' WHERE DXCC='LA'");
    db().rsTESTDXCC.Requery();
    Välj(e, 1);
    jaNej = {true};
    e.cmdRadera->click();
    EXPECT_EQ(Status("LA", "2 M") + Status("LA", "CW") + Status("LA", "40 M") + Status("LA", "PSK"), "");
    EXPECT_EQ(Status("LA", "PSK31"), "W") << "the one column that is not named";
    EXPECT_TRUE(meddelanden.empty());
}

TEST_F(EditorProv, ACountryWithoutARowIsToldAndTheContactIsGone) {
    frEditorTest& e = Öppna();
    Ändra(Logg(), "DELETE FROM TESTDXCC WHERE DXCC='LA'");
    db().rsTESTDXCC.Requery();
    Välj(e, 1);
    jaNej = {true};
    e.cmdRadera->click();
    EXPECT_EQ(Tag(),
              (Meddelande{"Ett fel har inträffat vid uppdatering av körda DXCC.", "UppdateraKördaDXCC"}));
    EXPECT_EQ(Antal(), 3);
    EXPECT_FALSE(delat.RedigeraQSO);
}

TEST_F(EditorProv, AConfirmedColumnAsksForAColumnThatTheLogLacks) {
    frEditorTest& e = Öppna();
    Ändra(Logg(), "UPDATE TESTDXCC SET CW='C' WHERE DXCC='SM'");
    db().rsTESTDXCC.Requery();
    Välj(e, 0);
    jaNej = {true};
    e.cmdRadera->click();
    EXPECT_EQ(Tag(),
              (Meddelande{"Ett fel har inträffat vid uppdatering av körda DXCC.", "UppdateraKördaDXCC"}));
    EXPECT_EQ(Status("SM", "CW"), "C");
}

TEST_F(EditorProv, ThePhaseModesCountAsPSK31) {
    Öppna();
    for (const char* läge : {"BPSK", "PSK63", "PSK31"}) {
        Märk("LA", "PSK31", "20 M");
        QString dxcc = "LA";
        QString trafiksätt = läge;
        QString band = "20 M";
        Uppdatera_DXCC(dxcc, trafiksätt, band);
        EXPECT_EQ(trafiksätt, "PSK31") << läge;
        EXPECT_EQ(Status("LA", "PSK31") + Status("LA", "20 M"), "") << läge;
    }
}

TEST_F(EditorProv, AModeWithoutAColumnIsToldAndNothingIsHalfDone) {
    Öppna();
    Märk("LA", "CW", "20 M");
    QString dxcc = "LA";
    QString trafiksätt = "FT8";
    QString band = "20 M";
    TaBortKördaDXCC(dxcc, trafiksätt, band);
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid radering av körda dxcc.", "TaBortKördaDXCC"}));
    EXPECT_EQ(Status("LA", "20 M"), "W");
}

TEST_F(EditorProv, TheClusterIsPolledAgainAfterTheUpdate) {
    Öppna();
    frDXCluster::instans().TimerDXCluster->Interval(0);
    QString dxcc = "LA";
    QString trafiksätt = "CW";
    QString band = "2 M";
    Uppdatera_DXCC(dxcc, trafiksätt, band);
    EXPECT_EQ(frDXCluster::instans().TimerDXCluster->Interval(), 500);
}
