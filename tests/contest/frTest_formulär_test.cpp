// The road of a call through the entry form: what runs while it is typed, when it is left, saved, shown or
// given up, and how the form is cleared.
#include "support/Programprov.h"
#include "support/ToPrint.h"
#include "support/Varningsvakt.h"

#include <QDir>

namespace {

class FormulärProv : public Programprov {
protected:
    QString Antal() const { return LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"); }
    QString Ett(const QString& kolumn) const {
        return LäsEtt(Logg(), "SELECT \"" + kolumn + "\" FROM TESTQSO ORDER BY rowid DESC");
    }
    /// Loads a logged contact into the form, as the editor does.
    void Redigera(frTest& f, const QString& signal) {
        db().rsTESTQSO.Find("Signal = '" + signal + "'");
        delat.RedigeradBookmark = db().rsTESTQSO.GetBookmark();
        delat.RedigeraQSO = true;
        f.txtSignal->setText(signal);
    }
    std::vector<QLabel*> Tecken(frTest& f) const {
        return {f.lblNyttLand, f.lblNyttBand, f.lblNyRuta, f.lblMultipel,
                f.lblDubblett, f.lblDistrikt, f.lblNyIOTA};
    }
};

QColor Textfärg(const QLabel* etikett) { return etikett->palette().color(QPalette::WindowText); }

QStringList Rad(const platform::FlexGrid* rutnät, int rad) {
    QStringList celler;
    for (int i = 0; i < rutnät->columnCount(); ++i) celler << rutnät->Cell(rad, i);
    return celler;
}

} // namespace

// ---- while the call is typed --------------------------------------------------------------------------

TEST_F(FormulärProv, CountryAndEarlierContactsFollowEveryCharacter) {
    frTest& f = StartaLogg(1);
    Loggad("OH0", "2 M");
    f.txtSignal->setFocus();
    Skriv("oh");
    EXPECT_EQ(f.lblLand->text(), "Finland");
    EXPECT_EQ(f.lblDXCC->text(), "OH");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för OH (0)");
    Skriv("0");
    EXPECT_EQ(f.lblLand->text(), "Åland");
    EXPECT_EQ(f.lblDXCC->text(), "OH0");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för OH0 (1)");
    EXPECT_EQ(db().rsTidigare.RecordCount(), 1);
    Skriv("x");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för OH0X (0)");
    Tryck(Qt::Key_Backspace);
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för OH0 (1)");
}

TEST_F(FormulärProv, ACallThatIsDeletedLeavesWhatTheLastCharacterShowed) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "sm");
    f.txtSignal->selectAll();
    Tryck(Qt::Key_Delete);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(f.lblLand->text(), "Sverige");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM (0)");
}

TEST_F(FormulärProv, ACallPutThereByTheProgramIsLookedUpLikeATypedOne) {
    frTest& f = StartaLogg(1);
    f.txtSignal->setText("LA1AA");
    EXPECT_EQ(f.lblLand->text(), "Norge");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för LA1AA (0)");
}

// ---- when the call is left ----------------------------------------------------------------------------

TEST_F(FormulärProv, AKnownLocatorIsFetchedInTheLocatorContests) {
    Ändra(Fil("Lokator.dat"), "INSERT INTO Lokator (Signal, Lokator) VALUES ('SM5ABC', 'JO89WJ')");
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        const bool sac = test == 9 || test == 10;
        ASSERT_TRUE(HarFokus(f.txtSignal));
        if (sac) SvaraVarning(false); // a Swedish station does not count there
        SkrivI(f.txtSignal, "sm5abc");
        Tryck(Qt::Key_Tab);
        const bool hämtas = test <= 8 || test == 14;
        EXPECT_EQ(f.txtDiplom->text(), hämtas ? "JO89WJ" : "");
    }
}

TEST_F(FormulärProv, AnEmptyCallIsLeftWithoutAnyCheck) {
    frTest& f = StartaLogg(1);
    Loggad("", "2 M");
    f.lblQSOPoäng->setText("77");
    f.txtSignal->setFocus();
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(f.lblQSOPoäng->text(), "77");
    EXPECT_FALSE(delat.DubblettFlagga);
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO");
}

TEST_F(FormulärProv, LeavingANewCallJudgesTheContact) {
    frTest& f = StartaLogg(7);
    SkrivI(f.txtSignal, "sm5abc");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(f.lblQSOPoäng->text(), "2");
}

TEST_F(FormulärProv, ThePointsAreSetBeforeTheKnownLocatorComes) {
    Ändra(Fil("Lokator.dat"), "INSERT INTO Lokator (Signal, Lokator) VALUES ('SM5ABC', 'JO89WJ')");
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(f.txtDiplom->text(), "JO89WJ");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0") << "judged without a locator; the save judges again";
}

TEST_F(FormulärProv, AfterTheCheckTheGridShowsTheContactsOnAllBandsAgain) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "40 M");
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Tab);
    EXPECT_FALSE(delat.DubblettFlagga);
    EXPECT_EQ(db().rsTidigare.RecordCount(), 1);
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (1)");
}

TEST_F(FormulärProv, ALoggedCallThatWasNotChangedKeepsItsPointsAndIsNoDuplicate) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    Redigera(f, "SM5ABC");
    f.lblQSOPoäng->setText("55");
    f.txtSignal->setFocus();
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(f.lblQSOPoäng->text(), "55");
    EXPECT_FALSE(delat.DubblettFlagga);
    EXPECT_EQ(f.txtDubblett->text(), "");
}

TEST_F(FormulärProv, ShowingALoggedContactFindsItToBeADuplicateOfItself) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    Redigera(f, "SM5ABC");
    SvaraVarning(false);
    QTest::mouseClick(f.cmdVisa, Qt::LeftButton);
    EXPECT_TRUE(delat.DubblettFlagga);
    EXPECT_EQ(f.txtDubblett->text(), "D");
}

TEST_F(FormulärProv, ALoggedCallThatWasChangedIsJudgedAnewAndStillNoDuplicate) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    Loggad("SM5XYZ", "80 M");
    Redigera(f, "SM5ABC");
    f.lblQSOPoäng->setText("55");
    SkrivI(f.txtSignal, "sm5xyz");
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(f.lblQSOPoäng->text(), "2");
    EXPECT_FALSE(delat.DubblettFlagga);
}

TEST_F(FormulärProv, AContactFlaggedAsADuplicateIsNotJudged) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    SvaraVarning(false);
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Tab);
    EXPECT_TRUE(delat.DubblettFlagga);
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
}

TEST_F(FormulärProv, AStateContestChecksNoCallWhenItIsLeft) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    f.txtNamn->setFocus();
    f.txtSignal->setText("SM5ABC");
    f.lblQSOPoäng->setText("55");
    for (const int test : {41, 42}) {
        delat.AktuelltTest = test;
        f.txtSignal->setFocus();
        f.txtNamn->setFocus();
        EXPECT_FALSE(delat.DubblettFlagga) << test;
        EXPECT_EQ(f.lblQSOPoäng->text(), "55") << test;
        EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (1)");
    }
    delat.AktuelltTest = 7;
}

TEST_F(FormulärProv, AMenuOrAnotherProgramDoesNotCountAsLeavingTheCall) {
    frTest& f = StartaLogg(7);
    SkrivI(f.txtSignal, "sm5abc");
    for (const Qt::FocusReason skäl :
         {Qt::PopupFocusReason, Qt::MenuBarFocusReason, Qt::ActiveWindowFocusReason}) {
        QFocusEvent ut(QEvent::FocusOut, skäl);
        QApplication::sendEvent(f.txtSignal, &ut);
        EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    }
}

TEST_F(FormulärProv, TheExchangeOfAStateContestChecksTheCallWhenItHasTwoCharacters) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    f.lblTyp->setText("State/Province");
    f.txtDiplom->setFocus();
    f.txtSignal->setText("SM5ABC");
    Skriv("n");
    EXPECT_FALSE(delat.DubblettFlagga);
    SvaraVarning(false);
    Skriv("y");
    EXPECT_TRUE(delat.DubblettFlagga);
    EXPECT_EQ(f.txtDubblett->text(), "D");
}

// ---- Enter --------------------------------------------------------------------------------------------

TEST_F(FormulärProv, EnterOnAnEmptyCallDoesNothingAndStartsNoClock) {
    frTest& f = StartaLogg(1);
    f.TimerVila->Interval(1000);
    f.txtDiplom->setText("JO89WJ");
    f.txtSignal->setFocus();
    Tryck(Qt::Key_Return);
    Tryck(Qt::Key_Enter);
    EXPECT_EQ(Antal(), "0");
    EXPECT_FALSE(delat.TidGår);
    EXPECT_EQ(f.TimerAktiv->Interval(), 0);
    EXPECT_EQ(f.TimerVila->Interval(), 1000);
    EXPECT_EQ(f.Timer_Wait->Interval(), 0);
    EXPECT_EQ(f.txtDiplom->text(), "JO89WJ") << "the form is left alone";
}

TEST_F(FormulärProv, EnterSavesFromWhateverFieldHasTheFocus) {
    frTest& f = StartaLogg(1);
    int antal = 0;
    for (QWidget* fält : std::initializer_list<QWidget*>{
             f.txtSignal, f.txtRSTM, f.txtRSTS, f.txtLöpnrM, f.txtDiplom, f.txtFrekvens, f.txtITUM, f.txtZONM,
             f.txtNamn, f.txtNotering, f.txtLokator, f.txtDatum, f.cmbTrafik, f.cmbBand, f.cmbDiplom,
             f.txtInfo, f.dgLogg, f.cmdSpara}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        SkrivI(f.txtSignal, QString("sm5a%1").arg(antal));
        fält->setFocus();
        Tryck(antal % 2 ? Qt::Key_Enter : Qt::Key_Return);
        EXPECT_EQ(Antal(), QString::number(++antal));
        EXPECT_EQ(f.txtSignal->text(), "");
        EXPECT_EQ(QApplication::focusWidget(), f.txtSignal);
    }
}

TEST_F(FormulärProv, EnterOnAnotherButtonPressesThatButton) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "sm5abc");
    f.cmdAvbryt->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(Antal(), "0");
}

TEST_F(FormulärProv, EnterInTheCallJudgesTheContactThoughTheFieldWasNotLeft) {
    frTest& f = StartaLogg(9);
    SkrivI(f.txtSignal, "dl1aa");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Ett("Poäng"), "1");
    f.cmbBand->setCurrentText("40 M");
    SkrivI(f.txtSignal, "w1aw");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Ett("Poäng"), "3");
}

TEST_F(FormulärProv, EnterInTheCallDoesNotAskWhetherItIsADuplicate) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Antal(), "2");
    EXPECT_EQ(Ett("Dubblett"), "");
    EXPECT_EQ(Ett("Poäng"), "2");
}

TEST_F(FormulärProv, ARefusedSaverStillClearsTheFormAndStartsTheClocks) {
    frTest& f = StartaLogg(1);
    SkrivI(f.txtSignal, "qq1aa"); // no country
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag().titel, "SparaQSO");
    EXPECT_EQ(Antal(), "0");
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_TRUE(delat.TidGår);
    EXPECT_EQ(f.TimerAktiv->Interval(), 1000);
}

TEST_F(FormulärProv, TheSaveLiftsTheFilterFromTheLogAndStandsOnTheNewestContact) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    nu = nu.addSecs(60);
    f.TestTimer_Tick();
    Kör("sm5xyz", "jo88aa");
    EXPECT_EQ(db().rsTESTQSO.Filter(), "");
    EXPECT_EQ(db().rsTESTQSO.RecordCount(), 2);
    EXPECT_EQ(db().rsTESTQSO.Field("Signal").text(), "SM5XYZ");
}

TEST_F(FormulärProv, InFT8TheReportsStayWhatTheyWere) {
    frTest& f = StartaLogg(1);
    f.cmbTrafik->setCurrentIndex(2);
    f.txtRSTM->setText("-12");
    Tryck(Qt::Key_Escape);
    EXPECT_EQ(f.txtRSTM->text(), "-12");
    EXPECT_EQ(f.txtRSTS->text(), "");
}

TEST_F(FormulärProv, WithNoLogOpenTheFormTakesNoInput) {
    frTest& f = Starta();
    EXPECT_FALSE(f.frmLogg->isEnabled());
    for (const QPushButton* knapp : {f.cmdSpara, f.cmdAvbryt, f.cmdVisa, f.cmdRadera})
        EXPECT_FALSE(knapp->isEnabled()) << knapp->objectName().toStdString();
    QTest::keyClick(&f, Qt::Key_Return);
    QTest::keyClick(&f, Qt::Key_Escape);
    EXPECT_FALSE(delat.TidGår);
}

TEST_F(FormulärProv, AfterTheCloseMenuACallCanBeTypedAndSavedToNoEffect) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Tab);
    EXPECT_EQ(Tag().titel, "KollaLokator") << "that database is closed too";
    f.cmdVisa->click();
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.lblLand->text(), "");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag().text, "Saknar viktig data för att spara QSO! Var god kontrollera dina uppgifter.");
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(Antal(), "0");
}

// ---- the two refusals ---------------------------------------------------------------------------------

TEST_F(FormulärProv, WithAnEmptyCallNoContestIsAskedFor) {
    frTest& f = StartaLogg(1);
    delat.AktuelltTest = 255;
    f.txtSignal->setFocus();
    Tryck(Qt::Key_Return);
    f.Meny("mnuRedigera_SparaQSO")->trigger();
    EXPECT_TRUE(meddelanden.empty());
    delat.AktuelltTest = 1;
}

TEST_F(FormulärProv, TheMenuStopsTheClocksBeforeItRefuses) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    f.cmbDiplom->Text("Lokator");
    f.Meny("mnuRedigera_SparaQSO")->trigger();
    EXPECT_EQ(f.TimerAktiv->Interval(), 1000) << "an empty call stops nothing";
    f.txtSignal->setText("SM5XYZ");
    f.txtDiplom->setText("JO8");
    Tryck(Qt::Key_Return);
    Tag();
    EXPECT_EQ(f.TimerAktiv->Interval(), 1000) << "nor does the button";
    f.Meny("mnuRedigera_SparaQSO")->trigger();
    Tag();
    for (const platform::Timer* timer : {f.TimerVila, f.TimerAktiv, f.Timer_Wait})
        EXPECT_EQ(timer->Interval(), 0);
}

// ---- Esc, show, clear ---------------------------------------------------------------------------------

TEST_F(FormulärProv, EscapeClearsTheFormFromWhateverFieldAndStoresNothing) {
    frTest& f = StartaLogg(1);
    for (QWidget* fält :
         std::initializer_list<QWidget*>{f.txtSignal, f.txtRSTM, f.txtDiplom, f.txtNamn, f.cmbTrafik,
                                         f.cmbBand, f.cmbDiplom, f.txtInfo, f.dgLogg, f.cmdSpara}) {
        SCOPED_TRACE(fält->objectName().toStdString());
        SkrivI(f.txtSignal, "sm5abc");
        f.txtDiplom->setText("JO89WJ");
        fält->setFocus();
        Tryck(Qt::Key_Escape);
        EXPECT_EQ(f.txtSignal->text(), "");
        EXPECT_EQ(f.txtDiplom->text(), "");
        EXPECT_EQ(QApplication::focusWidget(), f.txtSignal);
    }
    EXPECT_EQ(Antal(), "0");
    EXPECT_FALSE(delat.TidGår);
}

TEST_F(FormulärProv, ShowingChecksAndJudgesWithoutLeavingTheCall) {
    frTest& f = StartaLogg(7);
    SkrivI(f.txtSignal, "sm5abc");
    f.cmdVisa->click();
    EXPECT_EQ(f.lblQSOPoäng->text(), "2");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (0)");
    EXPECT_EQ(Antal(), "0");
}

TEST_F(FormulärProv, ShowingWarnsOfADuplicateAndLeavesItsPoints) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    f.txtSignal->setText("SM5ABC");
    SvaraVarning(false);
    f.cmdVisa->click();
    EXPECT_TRUE(delat.DubblettFlagga);
    EXPECT_EQ(f.txtDubblett->text(), "D");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (1)");
}

TEST_F(FormulärProv, ShowingLeavesTheGridOnThePresentBand) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "40 M");
    f.txtSignal->setText("SM5ABC");
    EXPECT_EQ(db().rsTidigare.RecordCount(), 1);
    f.cmdVisa->click();
    EXPECT_EQ(db().rsTidigare.RecordCount(), 0);
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (1)");
}

TEST_F(FormulärProv, ShowingTwiceAsksTheWholeLogBothTimes) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "6 M");
    f.txtNamn->setFocus();
    f.txtSignal->setText("SM5ABC");
    const Varningsvakt vakt(false);
    f.cmdVisa->click();
    EXPECT_EQ(db().rsTidigare.RecordCount(), 0) << "the check ended on the present band";
    f.cmdVisa->click();
    EXPECT_EQ(vakt.Antal(), 2U);
    EXPECT_TRUE(delat.DubblettFlagga);
}

TEST_F(FormulärProv, ShowingWithoutACallJudgesNothing) {
    frTest& f = StartaLogg(7);
    f.cmdVisa->click();
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO");
}

TEST_F(FormulärProv, TheClearButtonOfTheModemLeavesTheFormAlone) {
    frTest& f = StartaLogg(6);
    f.RXWindow->setPlainText("CQ TEST");
    f.TXWindow->setPlainText("SM5ABC 599");
    f.txtSignal->setText("SM5ABC");
    f.cmdRensa->click();
    EXPECT_EQ(f.RXWindow->toPlainText(), "");
    EXPECT_EQ(f.TXWindow->toPlainText(), "");
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
}

// ---- RensaTest ----------------------------------------------------------------------------------------

TEST_F(FormulärProv, ClearingEmptiesEveryFieldOfTheContact) {
    frTest& f = StartaLogg(9);
    SkrivI(f.txtSignal, "dl1aa");
    for (frTest::Fält* fält : {f.txtNamn, f.txtNotering, f.txtDiplom, f.txtITUM, f.txtZONM, f.txtLöpnrM,
                               f.txtDXCCNR, f.txtPrefix, f.txtNDXCC, f.txtNRUTA, f.txtDubblett})
        fält->setText("X");
    f.txtLöpnrM->setEnabled(false);
    f.lblQSOPoäng->setText("9");
    f.RensaTest();
    for (const frTest::Fält* fält :
         {f.txtSignal, f.txtNamn, f.txtNotering, f.txtDiplom, f.txtITUM, f.txtZONM, f.txtLöpnrM, f.txtDXCCNR,
          f.txtPrefix, f.txtNDXCC, f.txtNRUTA, f.txtDubblett})
        EXPECT_EQ(fält->text(), "") << fält->objectName().toStdString();
    EXPECT_TRUE(f.txtLöpnrM->isEnabled());
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
}

TEST_F(FormulärProv, ClearingBehindMidnightKeepsTheDateOfTheClock) {
    frTest& f = StartaLogg(1);
    nu = QDateTime(QDate(2026, 12, 2), QTime(0, 30));
    delat.OpUTCTid = "-1";
    f.TestTimer_Tick();
    ASSERT_EQ(f.txtDatum->text(), "2026-12-01");
    f.RensaTest();
    EXPECT_EQ(f.txtDatum->text(), "2026-12-01") << "the time that stands beside it is 23:30";
}

TEST_F(FormulärProv, ClearingTakesTheCountryAndItsColourAway) {
    frTest& f = StartaLogg(1);
    const QColor vanlig = Textfärg(f.lblQSO);
    SkrivI(f.txtSignal, "la1aa");
    EXPECT_TRUE(f.landFärgat);
    const auto etiketter = {f.lblLand, f.lblKont, f.lblDXCC, f.lblTid, f.lblRiktning, f.lblAvstånd};
    for (const QLabel* etikett : etiketter)
        EXPECT_EQ(Textfärg(etikett), QColor(0, 0, 255)) << etikett->objectName().toStdString();
    f.RensaTest();
    EXPECT_FALSE(f.landFärgat);
    for (const QLabel* etikett : etiketter)
        EXPECT_EQ(Textfärg(etikett), vanlig) << etikett->objectName().toStdString();
    for (const QLabel* etikett : {f.lblLand, f.lblKont, f.lblDXCC, f.lblRiktning, f.lblAvstånd})
        EXPECT_EQ(etikett->text(), "") << etikett->objectName().toStdString();
    EXPECT_EQ(f.lblTid->text(), "Tid");
}

TEST_F(FormulärProv, ClearingHidesAllSigns) {
    frTest& f = StartaLogg(1);
    for (QLabel* tecken : Tecken(f)) tecken->show();
    f.RensaTest();
    for (const QLabel* tecken : Tecken(f))
        EXPECT_TRUE(tecken->isHidden()) << tecken->objectName().toStdString();
}

TEST_F(FormulärProv, ClearingWritesTodaysDateWithDashes) {
    frTest& f = StartaLogg(1);
    f.txtDatum->setText("x");
    nu = QDateTime(QDate(2027, 1, 2), QTime(3, 4, 5));
    f.RensaTest();
    EXPECT_EQ(f.txtDatum->text(), "2027-01-02");
}

TEST_F(FormulärProv, ClearingPutsTheReportOfTheModeIntoBothFields) {
    struct Fall {
        const char *trafiksätt, *rapport;
    };
    frTest& f = StartaLogg(1);
    for (const Fall& fall :
         {Fall{"CW", "599"}, Fall{"RTTY", "599"}, Fall{"SSB", "59"}, Fall{"FM", "kvar"}, Fall{"AM", "kvar"},
          Fall{"PSK31", "kvar"}, Fall{"FT8", "kvar"}, Fall{"", "kvar"}}) {
        SCOPED_TRACE(fall.trafiksätt);
        f.cmbTrafik->Text(fall.trafiksätt);
        f.txtRSTM->setText("kvar");
        f.txtRSTS->setText("kvar");
        f.RensaTest();
        EXPECT_EQ(f.txtRSTM->text(), fall.rapport);
        EXPECT_EQ(f.txtRSTS->text(), fall.rapport);
    }
}

TEST_F(FormulärProv, ClearingLeavesFrequencyModeBandAndOwnLocator) {
    frTest& f = StartaLogg(8);
    f.txtFrekvens->setText("3,770,00");
    f.cmbBand->setCurrentIndex(1);
    f.RensaTest();
    EXPECT_EQ(f.txtFrekvens->text(), "3,770,00");
    EXPECT_EQ(f.cmbTrafik->Text(), "SSB");
    EXPECT_EQ(f.cmbBand->Text(), "40 M");
    EXPECT_EQ(f.txtLokator->text(), "JO65MR");
}

TEST_F(FormulärProv, ClearingEmptiesTheGridOfEarlierContacts) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    f.txtSignal->setText("SM5ABC");
    EXPECT_EQ(db().rsTidigare.RecordCount(), 1);
    f.RensaTest();
    EXPECT_EQ(db().rsTidigare.Filter(), "Signal = ''");
    EXPECT_EQ(db().rsTidigare.RecordCount(), 0);
    f.dgTidigareQSO->Refresh();
    EXPECT_EQ(f.dgTidigareQSO->model()->rowCount(), 0);
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO");
}

TEST_F(FormulärProv, ClearingEndsAnEditAndForgetsTheDuplicate) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    Redigera(f, "SM5ABC");
    delat.DubblettFlagga = true;
    f.RensaTest();
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_FALSE(delat.DubblettFlagga);
}

TEST_F(FormulärProv, ClearingShowsTheSerialThatTheLogHoldsNow) {
    frTest& f = StartaLogg(9);
    f.txtLöpnrS->setText("77");
    f.RensaTest();
    EXPECT_EQ(f.txtLöpnrS->text(), "001");
}

TEST_F(FormulärProv, ClearingEmptiesTheBandsOfTheCountry) {
    frTest& f = StartaLogg(1);
    Loggad("SM5ABC", "2 M");
    f.txtSignal->setText("SM5XYZ");
    EXPECT_EQ(Rad(f.fgTestData2, 1), (QStringList{"SM", "", "", "", "", "", "", "", "X", ""}));
    f.RensaTest();
    for (int rad = 1; rad < 4; ++rad) EXPECT_EQ(Rad(f.fgTestData2, rad).join(""), "") << rad;
}

TEST_F(FormulärProv, ClearingLiftsTheFilterOfTheLogAndGoesToItsLastRow) {
    frTest& f = StartaLogg(1);
    for (const char* signal : {"SM5AA", "SM5BB", "SM5CC"}) Loggad(signal, "2 M");
    db().rsTESTQSO.Filter("Signal = 'SM5AA'");
    f.RensaTest();
    EXPECT_EQ(db().rsTESTQSO.RecordCount(), 3);
    EXPECT_EQ(db().rsTESTQSO.Field("Signal").text(), "SM5CC");
    f.dgLogg->Refresh();
    EXPECT_EQ(f.dgLogg->currentIndex().row(), 2);
    EXPECT_EQ(db().rsSignal.Field("Signal").text(), "SM5CC") << "the list of calls stands on its last";
}

TEST_F(FormulärProv, ClearingAnEmptyLogDoesNoHarm) {
    frTest& f = StartaLogg(1);
    f.RensaTest();
    EXPECT_TRUE(db().rsTESTQSO.IsEOF());
}

TEST_F(FormulärProv, ClearingCaptionsTheColumnOfTheMultiplier) {
    StartaLogg(0, "först.svk");
    frTest& f = frTest::instans();
    for (int test = 0; test < contest::antalTest; ++test) {
        SCOPED_TRACE(test);
        NyLogg(test, QString("test%1.svk").arg(test));
        const bool sac = test == 9 || test == 10;
        if (test <= 8) {
            EXPECT_EQ(f.dgLogg->Caption(8), "Lokator");
        } else if (sac) {
            EXPECT_EQ(f.dgLogg->Caption(11), "Prefix / Band");
        } else {
            EXPECT_EQ(f.dgLogg->Caption(8), "Multiplar");
        }
    }
}

TEST_F(FormulärProv, WithNoLogOpenClearingStillEmptiesTheForm) {
    frTest& f = Starta();
    f.txtSignal->setText("SM5ABC");
    EXPECT_EQ(Tag().titel, "VisaRiktningAvstånd") << "the station has no locator yet";
    EXPECT_EQ(f.lblLand->text(), "Sverige");
    f.RensaTest();
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(f.lblLand->text(), "");
}

// ---- a logged contact on the form ---------------------------------------------------------------------

TEST_F(FormulärProv, TheCurrentRowOfTheLogCanBeShownOnTheForm) {
    frTest& f = StartaLogg(9);
    Loggad("LA1AA", "40 M");
    Ändra(Logg(),
          "UPDATE TESTQSO SET Frekvens='7,010,00', Sänt='599 001', Mottaget='579 017', Namn='Ola', "
          "Notering='fin', Diplom='LA (40 M)', DXCC='LA', Land='Norge', Prefix='LA', \"DXCC Nr\"='266', "
          "ITU='77', Zon='88', Poäng=3");
    db().rsTESTQSO.Requery();
    f.VisaTestQSOData();
    const auto texter = [&] {
        QStringList alla;
        for (const frTest::Fält* fält :
             {f.txtDatum, f.txtUTCTid, f.txtPrefix, f.txtDXCCNR, f.txtSignal, f.txtFrekvens, f.txtRSTM,
              f.txtRSTS, f.txtNamn, f.txtNotering, f.txtITUM, f.txtZONM, f.txtDiplom})
            alla << fält->text();
        return alla;
    };
    EXPECT_EQ(texter(), (QStringList{"2026-11-30", "20:00:00", "LA", "266", "LA1AA", "7,010,00", "579 017",
                                     "599 001", "Ola", "fin", "77", "88", "LA (40 M)"}));
    EXPECT_EQ(f.lblLand->text(), "Norge");
    EXPECT_EQ(f.lblDXCC->text(), "LA");
    EXPECT_EQ(f.lblQSOPoäng->text(), "3");
    EXPECT_EQ(f.cmbBand->Text(), "40 M");
    EXPECT_EQ(f.cmbTrafik->Text(), "CW");
}

TEST_F(FormulärProv, AShownModeIsChosenFromTheListAndKeepsTheStoredReports) {
    frTest& f = StartaLogg(1);
    Loggad("LA1AA", "160 M", "SSB");
    f.VisaTestQSOData();
    EXPECT_EQ(f.cmbTrafik->currentIndex(), 1);
    EXPECT_EQ(f.cmbTrafik->Text(), "SSB");
    EXPECT_EQ(f.cmbBand->Text(), "2 M") << "a band that is not in the list";
    EXPECT_EQ(f.txtRSTM->text(), "599");
}

TEST_F(FormulärProv, AnEmptyLogHasNoContactToShow) {
    frTest& f = StartaLogg(1);
    f.VisaTestQSOData();
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid visning av QSO", "VisaTestQSOData"}));
}
