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
    /// A contact on the entry form, beside the editor.
    static void Kontakt(const QString& signal, const QString& lokator) {
        frTest& f = frTest::instans();
        ASSERT_TRUE(Aktivera(f));
        SkrivI(f.txtSignal, signal);
        SkrivI(f.txtDiplom, lokator);
        f.cmdSpara->click();
    }
    /// The whole row of a country, as it is written.
    QStringList Statusrad(const char* dxcc) const {
        const auto rader = Läs(Logg(), QString("SELECT * FROM TESTDXCC WHERE DXCC='%1'").arg(dxcc));
        return {rader.at(0).begin(), rader.at(0).end()};
    }
    /// The fields of the worked grid that have a cross.
    static QStringList Kryss() {
        const platform::FlexGrid& rutnät = *frTest::instans().fgTestData1;
        QStringList kryss;
        for (int rad = 1; rad < rutnät.rowCount(); ++rad)
            for (int i = 1; i < rutnät.columnCount(); ++i)
                if (!rutnät.Cell(rad, i).isEmpty()) kryss += rutnät.Cell(rad, 0) + ' ' + rutnät.Cell(0, i);
        return kryss;
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
    Ändra(Logg(), "UPDATE TESTQSO SET Trafiksätt='SSTV' WHERE Signal='LA1AA'");
    db().rsTESTQSO.Requery();
    Välj(e, 1);
    EXPECT_EQ(e.cmbTrafiksätt->Text(), "SSTV");
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

TEST_F(EditorProv, EveryFieldIsWrittenBackIntoItsColumnAndNothingElse) {
    frEditorTest& e = Öppna();
    const QString andra = "Poäng, Distrikt, Rutor, NDXCC, NRUTA, Dubblett, LöpNrSR, \"LöpNr\"";
    Ändra(Logg(), "UPDATE TESTQSO SET Distrikt='D', NDXCC='N', NRUTA='R', Dubblett='X', LöpNrSR='7', "
                  "\"LöpNr\"='8' WHERE Signal='LA1AA'");
    db().rsTESTQSO.Requery();
    const QString innan = Rader(andra)[1];
    Välj(e, 1);
    const std::tuple<QLineEdit*, const char*, const char*> fält[] = {
        {e.txtDatum, "Datum", "2026-12-02"},
        {e.txtUTCTid, "Tid", "20:21:22"},
        {e.txtSignal, "Signal", "OZ1ZZ"},
        {e.txtFrekvens, "Frekvens", "144,025,50"},
        {e.txtRSTM, "Mottaget", "559"},
        {e.txtRSTS, "Sänt", "569"},
        {e.txtNamn, "Namn", "Åke"},
        {e.txtQTH, "QTH", "Ærø"},
        {e.txtITU, "ITU", "81"},
        {e.txtWAZ, "Zon", "41"},
        {e.txtDXCC, "DXCC", "OZ"},
        {e.txtDXCCNR, "\"DXCC Nr\"", "221"},
        {e.txtPrefix, "Prefix", "OZ1"},
        {e.txtLand, "Land", "Danmark"},
        {e.txtNotering, "Notering", "QSY"}};
    for (const auto& [ruta, kolumn, text] : fält) ruta->setText(text);
    e.txtTest->clear();
    e.txtDiplom->setText("JO45");
    e.cmbTrafiksätt->Text("SSB");
    e.cmbBand->Text("70 CM");
    e.cmdSpara->click();
    for (const auto& [ruta, kolumn, text] : fält)
        EXPECT_EQ(LäsEtt(Logg(), QString("SELECT %1 FROM TESTQSO WHERE rowid=2").arg(kolumn)), text);
    EXPECT_EQ(Rader("Trafiksätt, \"Band \"")[1], "SSB|70 CM");
    EXPECT_EQ(Rader("Multiplar, Diplom")[1], "JO59AA|JO59") << "the field of the square is for reading";
    EXPECT_EQ(Rader(andra)[1], innan);
}

TEST_F(EditorProv, AnEmptyCallIsNotSaved) {
    frEditorTest& e = Öppna();
    Välj(e, 1);
    e.txtSignal->clear();
    e.txtNamn->setText("Ola");
    e.cmdSpara->click();
    EXPECT_EQ(Rader("Signal, Namn")[1], "LA1AA|");
    EXPECT_TRUE(delat.RedigeraQSO);
}

TEST_F(EditorProv, ASaveAndADeletionEmptyTheEntryFormToo) {
    frEditorTest& e = Öppna();
    const frTest& f = frTest::instans();
    for (QPushButton* knapp : {e.cmdSpara, e.cmdRadera}) {
        Välj(e, 1);
        f.txtSignal->setText("OZ1AA");
        jaNej = {true};
        knapp->click();
        EXPECT_EQ(f.txtSignal->text(), "") << knapp->text().toStdString();
    }
}

TEST_F(EditorProv, TheBoardFollowsACorrectionAndADeletion) {
    frEditorTest& e = Öppna();
    const frTest& f = frTest::instans();
    EXPECT_EQ(Kryss(), QStringList{"CW 2"});
    Välj(e, 1);
    e.cmbTrafiksätt->Text("SSB");
    e.cmbBand->Text("70 CM");
    e.txtTest->setText("JO89AA");
    e.cmdSpara->click();
    EXPECT_EQ(Kryss(), (QStringList{"CW 2", "SSB 70"}));
    EXPECT_EQ(f.lblDiplom->text(), "4") << "the token of the square is the whole locator now";
    f.dgDXCC->Refresh();
    EXPECT_EQ(f.dgDXCC->model()->rowCount(), 3);
    Välj(e, 1);
    jaNej = {true};
    e.cmdRadera->click();
    EXPECT_EQ(Kryss(), QStringList{"CW 2"});
    for (platform::DataGrid* rutnät : {f.dgDXCC, f.dgMulti}) rutnät->Refresh();
    EXPECT_EQ(f.dgDXCC->model()->rowCount(), 2) << "no contact with Norway is left";
    EXPECT_EQ(f.dgMulti->model()->rowCount(), 3);
    EXPECT_EQ(f.lblQSO->text(), "3");
}

TEST_F(EditorProv, TheBoardCountsTheWholeLogWhateverTheEditorShows) {
    frEditorTest& e = Öppna();
    const frTest& f = frTest::instans();
    const auto smalna = [&e] {
        e.txtDXCC->setText("SM");
        e.cmdDXCC->click();
        EXPECT_LT(Signaler(e).size(), 4);
    };
    smalna();
    Kontakt("oz1aa", "jo65aa");
    EXPECT_EQ(f.lblQSO->text(), "5");
    ASSERT_TRUE(Aktivera(e));
    smalna();
    Välj(e, 1);
    e.txtNamn->setText("Bo");
    e.cmdSpara->click();
    EXPECT_EQ(Rader("Signal, Namn")[2], "SM6ABC|Bo");
    EXPECT_EQ(f.lblQSO->text(), "5");
    smalna();
    Välj(e, 0);
    jaNej = {true};
    e.cmdRadera->click();
    EXPECT_EQ(f.lblQSO->text(), "4");
}

TEST_F(EditorProv, AContactOnTheFormKeepsItsPointsWhenTheEditorLetsGo) {
    frEditorTest& e = Öppna();
    frTest& f = frTest::instans();
    ASSERT_TRUE(Aktivera(f));
    SkrivVarnad("la1aa", "jo59aa", 2);
    ASSERT_TRUE(delat.DubblettFlagga);
    const QString total = f.lblTotalPoäng->text();
    e.cmdRensa->click();
    e.close();
    EXPECT_EQ(f.txtSignal->text(), "LA1AA") << "what was typed stands";
    ASSERT_TRUE(Aktivera(f));
    f.cmdSpara->click();
    EXPECT_EQ(Rader("Signal, Poäng").last(), "LA1AA|0") << "a duplicate is worth nothing";
    EXPECT_EQ(f.lblTotalPoäng->text(), total);
}

TEST_F(EditorProv, CancelCountsTheScoreAndShowsTheWholeLog) {
    frEditorTest& e = Öppna();
    const frTest& f = frTest::instans();
    const QString total = f.lblTotalPoäng->text();
    Välj(e, 2);
    db().rsTESTDXCC.Filter("DXCC = 'SM'");
    f.lblTotalPoäng->setText("?");
    e.cmdRensa->click();
    EXPECT_EQ(f.lblTotalPoäng->text(), total);
    EXPECT_EQ(db().rsTESTDXCC.Filter(), "");
    EXPECT_EQ(e.cmbTrafiksätt->Text() + e.cmbBand->Text(), "");
}

TEST_F(EditorProv, ACorrectionThatFailsIsNotWrittenByALaterSave) {
    frEditorTest& e = Öppna();
    Välj(e, 1);
    Ändra(Logg(), "CREATE TRIGGER fel BEFORE UPDATE ON TESTQSO BEGIN SELECT raise(ABORT, 'fullt'); END");
    e.txtNamn->setText("Ola");
    e.cmdSpara->click();
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid sparande/uppdatering av QSO.", "SparaQSO"}));
    EXPECT_TRUE(delat.RedigeraQSO) << "it can be tried again";
    EXPECT_EQ(e.txtNamn->text(), "Ola");
    Ändra(Logg(), "DROP TRIGGER fel");
    e.cmdRensa->click();
    Kontakt("oz1aa", "jo65aa");
    EXPECT_EQ(Rader("Signal, Namn"), (QStringList{"SM5ABC|", "LA1AA|", "SM6ABC|", "DL1AA|", "OZ1AA|"}));
}

TEST_F(EditorProv, ARowIsChosenByKeysAndItsListsStandOnItsEntries) {
    frEditorTest& e = Öppna();
    e.dgTestLogg->setFocus();
    e.dgTestLogg->Refresh();
    Tryck(Qt::Key_Up); // from the newest, at the end
    Tryck(Qt::Key_Up);
    EXPECT_EQ(e.txtSignal->text(), "LA1AA");
    EXPECT_TRUE(delat.RedigeraQSO);
    EXPECT_EQ(e.cmbBand->currentIndex(), 10);
    e.cmbBand->setFocus();
    Tryck(Qt::Key_Down);
    EXPECT_EQ(e.cmbBand->Text(), "70 CM") << "the one below 2 M";
    EXPECT_EQ(e.cmbTrafiksätt->currentIndex(), 0);
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
    EXPECT_EQ(e.txtSignal->text(), "LA1AA");
    EXPECT_EQ(e.lblTestlogg->text(), "Redigera: LA1AA");
    EXPECT_FALSE(delat.RedigeraQSO) << "shown, not chosen";
    EXPECT_EQ(delat.RedigeradBookmark, db().rsTESTQSO.GetBookmark());
    EXPECT_EQ(QApplication::focusWidget(), e.txtSignal);
}

TEST_F(EditorProv, AnEmptyLogHasNothingToShow) {
    StartaKlar(1);
    frTest::instans().Meny("mnufönster_Editor")->trigger();
    const frEditorTest& e = frEditorTest::instans();
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

TEST_F(EditorProv, ADuplicatesNoteIsRedUntilAnotherTakesItsPlace) {
    frEditorTest& e = Öppna();
    const auto färg = [&e] { return e.txtNotering->palette().color(QPalette::Text); };
    e.Notera("DUBBLETT");
    EXPECT_EQ(färg(), QColor(255, 0, 0));
    e.txtNotering->setText("QRP");
    EXPECT_NE(färg(), QColor(255, 0, 0));
}

TEST_F(EditorProv, AnotherLogIsFollowedAndAClosedOneShowsNothing) {
    frEditorTest& e = Öppna();
    Välj(e, 1);
    e.txtNotering->setText("QRP");
    NyLogg(1, "ny.svk");
    EXPECT_EQ(Signaler(e), QStringList());
    EXPECT_EQ(e.lblTestlogg->text(), "Logg Data");
    EXPECT_EQ(e.txtSignal->text() + e.txtNotering->text(), "") << "nothing of the log before";
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

TEST_F(EditorProv, ADeletedContactTakesTheBandAloneWhenOthersHaveTheMode) {
    frEditorTest& e = Öppna();
    Kontakt("la2bb", "jo59ab");
    Ändra(Logg(), "UPDATE TESTQSO SET \"Band \"='6 M' WHERE Signal='LA2BB'");
    db().rsTESTQSO.Requery();
    Märk("LA", "CW", "2 M");
    Märk("LA", "CW", "6 M");
    ASSERT_TRUE(Aktivera(e));
    Välj(e, 1);
    jaNej = {true};
    e.cmdRadera->click();
    EXPECT_EQ(Status("LA", "2 M") + '|' + Status("LA", "6 M") + '|' + Status("LA", "CW"), "|W|W");
}

TEST_F(EditorProv, AChangedModeTakesTheModeAloneAndAChangedCountryIsLookedAtToo) {
    frEditorTest& e = Öppna();
    Kontakt("la2bb", "jo59ab");
    Märk("LA", "CW", "2 M");
    Märk("LA", "SSB", "2 M");
    Märk("SM", "CW", "2 M");
    Märk("DL", "CW", "2 M");
    Ändra(Logg(), "UPDATE TESTQSO SET Trafiksätt='SSB' WHERE Signal='LA2BB'");
    db().rsTESTQSO.Requery();
    ASSERT_TRUE(Aktivera(e));
    Välj(e, 4);
    EXPECT_EQ(e.txtSignal->text(), "LA2BB");
    e.cmbTrafiksätt->Text("CW");
    e.cmdSpara->click();
    EXPECT_EQ(Status("LA", "2 M") + '|' + Status("LA", "CW") + '|' + Status("LA", "SSB"), "W|W|");
    Välj(e, 3);
    EXPECT_EQ(e.txtSignal->text(), "DL1AA");
    e.txtDXCC->setText("SM");
    e.txtDXCCNR->setText("284");
    e.cmdSpara->click();
    EXPECT_EQ(Status("DL", "2 M") + Status("DL", "CW"), "") << "its last contact has gone elsewhere";
    Välj(e, 0);
    Ändra(Logg(), "UPDATE TESTDXCC SET CW='C' WHERE DXCC='SM'"); // a look at it would fail and be told
    e.txtNamn->setText("Bo");
    e.cmdSpara->click();
    EXPECT_TRUE(meddelanden.empty()) << "a name concerns no status";
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
    const char* const kolumner[] = {"RTTY",  "PSK",  "SSTV", "CW",   "SSB",  "AM",   "FM",
                                    "160 M", "80 M", "40 M", "30 M", "20 M", "17 M", "15 M",
                                    "12 M",  "10 M", "6 M",  "2 M",  "70 CM"};
    for (const char* kolumn : kolumner)
        Ändra(Logg(), QString("UPDATE TESTDXCC SET \"%1\"='%2', PSK31='W' WHERE DXCC='LA'")
                          .arg(kolumn, *kolumn == '4' ? "C" : "W"));
    db().rsTESTDXCC.Requery();
    const QStringList andra = Statusrad("SM");
    Välj(e, 1);
    jaNej = {true};
    e.cmdRadera->click();
    for (const char* kolumn : kolumner) EXPECT_EQ(Status("LA", kolumn), "") << kolumn;
    EXPECT_EQ(Status("LA", "PSK31"), "W") << "the one column that is not named";
    EXPECT_EQ(Statusrad("SM"), andra);
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

TEST_F(EditorProv, AConfirmationIsWithdrawnWhereNoConfirmedContactIsLeft) {
    // Columns that this program never writes; the rule stands for logs that have them.
    frTest& f = StartaKlar(1);
    Ändra(Logg(), "ALTER TABLE TESTQSO ADD COLUMN \"QSL M\" TEXT");
    filval.push_back(Logg());
    f.mnuArkiv_ÖppnaTestlogg_Click();
    for (const auto& [qsl, status] : {std::pair("N", "W"), std::pair("Y", "C")}) {
        Ändra(Logg(), "DELETE FROM TESTQSO");
        Loggad("SM5ABC", "2 M");
        Ändra(Logg(), QString("UPDATE TESTQSO SET \"QSL M\"='%1', DXCC='SM', \"DXCC Nr\"='284'").arg(qsl));
        Ändra(Logg(), "UPDATE TESTDXCC SET CW='C', \"2 M\"='C' WHERE DXCC='SM'");
        db().rsTESTQSO.Requery();
        db().rsTESTDXCC.Requery();
        QString dxcc = "SM";
        QString trafiksätt = "CW";
        QString band = "2 M";
        Uppdatera_DXCC(dxcc, trafiksätt, band);
        EXPECT_EQ(Status("SM", "CW") + Status("SM", "2 M"), QString(status) + status);
    }
}

TEST_F(EditorProv, AContactWithoutAModeOrBandGaveNoStatusToWithdraw) {
    Öppna();
    Märk("LA", "CW", "2 M");
    QString dxcc = "LA";
    QString trafiksätt;
    QString band;
    Uppdatera_DXCC(dxcc, trafiksätt, band);
    EXPECT_EQ(Status("LA", "CW") + Status("LA", "2 M"), "WW");
}

TEST_F(EditorProv, AModeOrBandThatHasNoColumnIsTold) {
    Öppna();
    const Meddelande ingen{"Ett fel har inträffat vid radering av körda dxcc.", "TaBortKördaDXCC"};
    const Meddelande fel{"Ett fel har inträffat vid uppdatering av körda DXCC.", "UppdateraKördaDXCC"};
    Märk("LA", "CW", "2 M");
    QString dxcc = "LA";
    QString trafiksätt = "FT8";
    QString band = "24 CM";
    Uppdatera_DXCC(dxcc, trafiksätt, band);
    EXPECT_EQ(std::exchange(meddelanden, {}), (std::vector{ingen, ingen})) << "no such contact is left";
    Ändra(Logg(), "UPDATE TESTQSO SET Trafiksätt='FT8' WHERE Signal='LA1AA'");
    db().rsTESTQSO.Requery();
    Uppdatera_DXCC(dxcc, trafiksätt, band);
    EXPECT_EQ(Tag(), fel) << "one is left";
    EXPECT_EQ(Status("LA", "CW") + Status("LA", "2 M"), "WW");
}

TEST_F(EditorProv, TheRemovalKnowsThePhaseModesAndACountryWithoutARowItself) {
    Öppna();
    QString ingen;
    for (const char* läge : {"BPSK", "PSK63"}) {
        Märk("LA", "PSK31", "20 M");
        QString dxcc = "LA";
        QString trafiksätt = läge;
        TaBortKördaDXCC(dxcc, trafiksätt, ingen);
        EXPECT_EQ(Status("LA", "PSK31") + Status("LA", "20 M"), "W") << läge;
    }
    QString okänt = "??";
    TaBortKördaDXCC(okänt, ingen, ingen);
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid radering av körda dxcc.", "TaBortKördaDXCC"}));
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
    const platform::Timer& polling = *frDXCluster::instans().TimerDXCluster;
    for (const char* land : {"LA", "??"}) { // with a row and without
        frDXCluster::instans().TimerDXCluster->Interval(500);
        std::vector<int> meddan;
        db().rsTESTDXCC.OnChanged([&] { meddan.push_back(polling.Interval()); }, &meddan);
        QString dxcc = land;
        QString trafiksätt = "CW";
        QString band = "6 M";
        Uppdatera_DXCC(dxcc, trafiksätt, band);
        db().rsTESTDXCC.OnChanged({}, &meddan);
        EXPECT_FALSE(meddan.empty());
        for (const int intervall : meddan) EXPECT_EQ(intervall, 0) << land;
        EXPECT_EQ(polling.Interval(), 500) << land;
    }
    Tag();
}
