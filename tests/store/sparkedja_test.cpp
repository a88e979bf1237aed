// The chain behind Enter, step by step, and where the menu's chain differs from it.
#include "Sparprov.h"

#include <QDir>

class Sparkedja : public Sparprov {
protected:
    /// The operator makes the exchange a locator, so that its length is looked at.
    static void VäljLokator() {
        frTest& f = frTest::instans();
        f.cmbDiplom->setFocus();
        f.cmbDiplom->lineEdit()->selectAll();
        Skriv("Lokator");
        ASSERT_EQ(f.cmbDiplom->Text(), "Lokator");
    }
    static void ExpectTimers(int vila, int aktiv, int takt) {
        const frTest& f = frTest::instans();
        EXPECT_EQ(f.TimerVila->Interval(), vila);
        EXPECT_EQ(f.TimerAktiv->Interval(), aktiv);
        EXPECT_EQ(f.Timer_Wait->Interval(), takt);
    }
};

// ---- no call, no contest, an exchange of the wrong length ---------------------------------------------

TEST_F(Sparkedja, EnterWithoutACallDoesNothingAtAll) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtDiplom, "jo89wj");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(f.txtDiplom->text(), "JO89WJ");
    EXPECT_EQ(QApplication::focusWidget(), f.txtDiplom);
    EXPECT_EQ(Antal(), 0);
    EXPECT_FALSE(delat.TidGår);
    ExpectTimers(0, 0, 0);
}

TEST_F(Sparkedja, TheMenuWithoutACallLetsTheClocksRunOn) {
    frTest& f = StartaKlar(1);
    for (platform::Timer* timer : {f.TimerVila, f.TimerAktiv, f.Timer_Wait}) timer->Interval(1000);
    SkrivI(f.txtDiplom, "jo89wj");
    Spara(Spar::Meny);
    EXPECT_EQ(f.txtDiplom->text(), "JO89WJ");
    EXPECT_EQ(Antal(), 0);
    ExpectTimers(1000, 1000, 1000);
}

class Sparavslag : public Sparkedja, public ::testing::WithParamInterface<Spar> {
protected:
    /// The button leaves the clocks as they were, the menu has stopped them before it looks.
    static void ExpectClocksAfterRefusal() {
        EXPECT_FALSE(delat.TidGår);
        if (GetParam() == Spar::Knapp)
            ExpectTimers(1000, 1000, 1000);
        else
            ExpectTimers(0, 0, 0);
    }
};
INSTANTIATE_TEST_SUITE_P(Vägar, Sparavslag, ::testing::Values(Spar::Knapp, Spar::Meny));

TEST_P(Sparavslag, WithNoContestChosenItSaysSoAndKeepsTheForm) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    for (platform::Timer* timer : {f.TimerVila, f.TimerAktiv, f.Timer_Wait}) timer->Interval(1000);
    delat.AktuelltTest = 255;
    Spara(GetParam());
    EXPECT_EQ(Tag(), (Meddelande{"Du har inte valt någon Test!", "Välj en TEST"}));
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.txtDiplom->text(), "JO89WJ");
    EXPECT_EQ(Antal(), 0);
    EXPECT_EQ(Lokatorminne(), QStringList());
    ExpectClocksAfterRefusal();
}

TEST_P(Sparavslag, ALocatorOfTheWrongLengthIsRefusedAndTheFormKept) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    VäljLokator();
    SkrivI(f.txtDiplom, "jo89w");
    for (platform::Timer* timer : {f.TimerVila, f.TimerAktiv, f.Timer_Wait}) timer->Interval(1000);
    Spara(GetParam());
    EXPECT_EQ(Tag(), (Meddelande{"Felaktigt angiven lokator! Kontrollera.", "Lokator"}));
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
    EXPECT_EQ(f.txtDiplom->text(), "JO89W");
    EXPECT_EQ(Antal(), 0);
    EXPECT_EQ(Lokatorminne(), QStringList());
    ExpectClocksAfterRefusal();
    // Corrected, it goes in.
    Skriv("j");
    Spara(GetParam());
    EXPECT_EQ(Rader("Signal, Multiplar"), QStringList{"SM5ABC|JO89WJ"});
}

TEST_P(Sparavslag, TheContestIsAskedForBeforeTheLengthOfTheLocator) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    VäljLokator();
    SkrivI(f.txtDiplom, "jo89w");
    delat.AktuelltTest = 255;
    Spara(GetParam());
    EXPECT_EQ(Tag(), (Meddelande{"Du har inte valt någon Test!", "Välj en TEST"}));
}

struct Längdfall {
    int test;
    const char* utbyte;
    bool vägras;
};
void PrintTo(const Längdfall& fall, std::ostream* ut) { *ut << fall.test << " \"" << fall.utbyte << '"'; }
class Utbytets : public Sparkedja, public ::testing::WithParamInterface<Längdfall> {};

TEST_P(Utbytets, LengthIsLookedAtWhereTheListSaysLocator) {
    const Längdfall& fall = GetParam();
    frTest& f = StartaKlar(fall.test);
    SkrivI(f.txtSignal, "dl1abc");
    VäljLokator();
    SkrivI(f.txtDiplom, fall.utbyte);
    Tryck(Qt::Key_Return);
    if (fall.vägras) {
        EXPECT_EQ(Tag(), (Meddelande{"Felaktigt angiven lokator! Kontrollera.", "Lokator"}));
        EXPECT_EQ(f.txtSignal->text(), "DL1ABC");
        EXPECT_EQ(Antal(), 0);
        return;
    }
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(Antal(), fall.test == 12 ? 0 : 1);
    EXPECT_EQ(f.cmbDiplom->Text(), "Lokator") << "it stays on its own value";
}
INSTANTIATE_TEST_SUITE_P(Längder, Utbytets,
                         ::testing::Values(Längdfall{1, "", false}, Längdfall{1, "J", true},
                                           Längdfall{1, "JO", true}, Längdfall{1, "JO8", true},
                                           Längdfall{1, "JO89", false}, Längdfall{1, "JO89W", true},
                                           Längdfall{1, "JO89WJ", false}, Längdfall{1, "JO89WJ1", true},
                                           Längdfall{7, "JO8", true}, Längdfall{7, "JO89", false},
                                           Längdfall{9, "JO8", true}, Längdfall{9, "", false},
                                           Längdfall{12, "AB", true}, Längdfall{12, "", false}));

TEST_F(Sparkedja, TheListReadsDiplomInEveryContestAndThenNoLengthIsLookedAt) {
    frTest& f = StartaLogg(0);
    for (int test = 0; test <= 14; ++test) {
        NyLogg(test, QStringLiteral("%1.svk").arg(test));
        EXPECT_EQ(f.cmbDiplom->Text(), "Diplom") << test;
    }
    NyLogg(7, "prov.svk");
    Kör("sm5abc", "jo89w");
    EXPECT_EQ(Rader("Signal, Multiplar"), QStringList{"SM5ABC|JO89W"});
}

// ---- points, and when they are worked out -------------------------------------------------------------

TEST_F(Sparkedja, ANewContactIsJudgedAtEnterEvenIfNoFieldWasLeft) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtDiplom, "jo89wj");
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng, NDXCC, NRUTA"), QStringList{"SM5ABC|500|N|N"});
}

TEST_F(Sparkedja, ADuplicateIsStoredWithTheZeroOfAClearedFormAndItsMarks) {
    StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    SkrivVarnad("sm5abc", "jp80", 2);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Multiplar, Poäng, Notering, Dubblett, NRUTA"),
              (QStringList{"SM5ABC|JO89WJ|500|||N", "SM5ABC|JP80|0|DUBBLETT|D|"}));
}

TEST_F(Sparkedja, ADuplicateTakesWhateverPointsStandOnTheForm) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    SkrivVarnad("sm5abc", "jp80", 2);
    f.lblQSOPoäng->setText("17");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Poäng"), (QStringList{"500", "17"}));
}

TEST_F(Sparkedja, TheWordInTheNoteStaysAsLongAsTheEditorsFieldHoldsIt) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    SkrivVarnad("sm5abc", "jo89wj", 2);
    Tryck(Qt::Key_Return);
    Kör("sm6xyz", "jo67bq");
    frEditorTest::instans().txtNotering->clear();
    Kör("dl1abc", "jo51aa");
    EXPECT_EQ(Rader("Signal, Notering, Dubblett"),
              (QStringList{"SM5ABC||", "SM5ABC|DUBBLETT|D", "SM6XYZ|DUBBLETT|", "DL1ABC||"}));
    EXPECT_FALSE(f.lblDubblett->isVisible());
}

TEST_F(Sparkedja, ALoggedContactKeepsThePointsOnTheFormWhileItsCallIsTheSame) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Redigera(0);
    f.txtDiplom->setFocus();
    f.txtDiplom->selectAll();
    Skriv("jp80");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Multiplar, Poäng"), QStringList{"SM5ABC|JP80|500"});
    EXPECT_FALSE(delat.RedigeraQSO);
}

TEST_F(Sparkedja, ALoggedContactWithAnotherCallIsJudgedAnew) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Redigera(0);
    SkrivI(f.txtNamn, "");
    f.txtSignal->setFocus(Qt::TabFocusReason); // the caret was there and has come back
    Skriv("sm5abd");
    f.txtDiplom->setFocus();
    f.txtDiplom->selectAll();
    Skriv("jp80");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Multiplar, Poäng"), QStringList{"SM5ABD|JP80|580"});
}

TEST_F(Sparkedja, ALoggedContactGoesBackToItsOwnRowWhereverTheCursorStands) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6xyz", "jo67bq");
    Redigera(0);
    f.txtNamn->setText("Kalle");
    db().rsTESTQSO.MoveLast();
    SkrivI(f.txtNamn, "");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Namn"), (QStringList{"SM5ABC|Kalle", "SM6XYZ|"}));
    EXPECT_EQ(f.lblQSO->text(), "2");
}

// ---- after the row is written -------------------------------------------------------------------------

TEST_F(Sparkedja, TheBoardShowsTheLogWithTheNewRowInIt) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6xyz", "jo67bq");
    EXPECT_EQ(f.lblQSO->text(), "2");
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "725");
    EXPECT_EQ(f.lblDiplom->text(), "2");
    EXPECT_EQ(f.lblMultiplar->text(), "1000");
    EXPECT_EQ(f.lblTotalPoäng->text(), "1725");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0") << "the form is empty again";
    EXPECT_EQ(f.fgTestData1->Cell(1, 8), "X") << "CW on 2 m is worked";
}

TEST_F(Sparkedja, NoFilterIsLeftOnTheLogAndTheLongestContactIsSoughtInAllOfIt) {
    StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    // The band grid has filtered the log on a mode and band that nobody has worked.
    EXPECT_EQ(INFO("QSOLängd"), "500");
    EXPECT_EQ(db().rsTESTQSO.Filter(), "");
    EXPECT_EQ(db().rsTESTQSO.Sort(), "Datum, Tid");
}

struct Efterfall {
    int test;
    const char* längd; ///< INFO.QSOLängd afterwards
    const char* lokator;
    int rader;
};
void PrintTo(const Efterfall& fall, std::ostream* ut) { *ut << fall.test; }
class EfterSparning : public Sparkedja, public ::testing::WithParamInterface<Efterfall> {};

TEST_P(EfterSparning, TheLongestContactAndTheLocatorAreKeptInContests0To8) {
    const Efterfall& fall = GetParam();
    StartaKlar(fall.test);
    Kör("dl1abc", "jo89wj");
    EXPECT_EQ(Antal(), fall.rader);
    EXPECT_EQ(INFO("QSOLängd"), fall.längd);
    EXPECT_EQ(Lokatorminne().join(','), fall.lokator);
}
INSTANTIATE_TEST_SUITE_P(
    AllaTester, EfterSparning,
    ::testing::Values(Efterfall{0, "500", "DL1ABC|JO89WJ", 1}, Efterfall{1, "500", "DL1ABC|JO89WJ", 1},
                      Efterfall{2, "500", "DL1ABC|JO89WJ", 1}, Efterfall{3, "500", "DL1ABC|JO89WJ", 1},
                      Efterfall{4, "500", "DL1ABC|JO89WJ", 1}, Efterfall{5, "500", "DL1ABC|JO89WJ", 1},
                      Efterfall{6, "500", "DL1ABC|JO89WJ", 1}, Efterfall{7, "2", "DL1ABC|JO89WJ", 1},
                      Efterfall{8, "2", "DL1ABC|JO89WJ", 1}, Efterfall{9, "0", "", 1},
                      Efterfall{10, "0", "", 1}, Efterfall{11, "0", "", 0}, Efterfall{12, "0", "", 0},
                      Efterfall{13, "0", "", 0}, Efterfall{14, "0", "", 1}));

TEST_P(Sparavslag, ASaveStartsTheActiveClockAndStopsTheRest) {
    frTest& f = StartaKlar(1);
    f.TimerVila->Interval(1000);
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    Spara(GetParam());
    EXPECT_TRUE(delat.TidGår);
    ExpectTimers(0, 1000, 1000);
}

TEST_P(Sparavslag, ASaveEmptiesTheFormAndBringsTheCaretBackToTheCall) {
    frTest& f = StartaKlar(7);
    SkrivI(f.txtSignal, "dl1abc");
    SkrivI(f.txtLöpnrM, "17");
    SkrivI(f.txtNamn, "Karl");
    SkrivI(f.txtNotering, "anm");
    SkrivI(f.txtDiplom, "jo51aa");
    Spara(GetParam());
    for (const frTest::Fält* fält :
         {f.txtSignal, f.txtLöpnrM, f.txtNamn, f.txtNotering, f.txtDiplom, f.txtITUM, f.txtZONM, f.txtDXCCNR,
          f.txtPrefix, f.txtNDXCC, f.txtNRUTA, f.txtDubblett})
        EXPECT_EQ(fält->text(), "") << fält->objectName().toStdString();
    EXPECT_EQ(f.txtRSTM->text(), "599");
    EXPECT_EQ(f.txtRSTS->text(), "599");
    EXPECT_EQ(f.txtLöpnrS->text(), "02");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    EXPECT_EQ(f.lblDXCC->text(), "");
    EXPECT_FALSE(f.lblNyttLand->isVisible());
    EXPECT_FALSE(f.lblNyRuta->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), f.txtSignal);
}

TEST_F(Sparkedja, InFT8ModeTheParkedRecordIsRemovedAfterASave) {
    frTest& f = StartaKlar(1);
    const QString fil = Fil("FT8/TestQSO.ADI");
    QDir().mkpath(Fil("FT8"));
    const auto skrivFil = [&] {
        QFile adi(fil);
        ASSERT_TRUE(adi.open(QIODevice::WriteOnly));
        adi.write("<eor>");
    };
    for (const Spar spar : {Spar::Knapp, Spar::Meny}) {
        skrivFil();
        f.cmbTrafik->setCurrentIndex(0);
        SkrivI(f.txtSignal, spar == Spar::Knapp ? "sm5abc" : "sm6abc");
        Spara(spar);
        EXPECT_TRUE(QFile::exists(fil)) << "CW leaves it alone";
        f.cmbTrafik->setCurrentIndex(2);
        SkrivI(f.txtSignal, spar == Spar::Knapp ? "sm5abd" : "sm6abd");
        SkrivI(f.txtRSTM, "-10");
        SkrivI(f.txtRSTS, "-12");
        Spara(spar);
        EXPECT_FALSE(QFile::exists(fil));
    }
    skrivFil();
    f.cmbTrafik->setCurrentIndex(2);
    Spara(Spar::Knapp);
    EXPECT_TRUE(QFile::exists(fil)) << "nothing was saved";
    EXPECT_EQ(
        Rader("Signal, Trafiksätt, Mottaget, Sänt"),
        (QStringList{"SM5ABC|CW|599|599", "SM5ABD|FT8|-10|-12", "SM6ABC|CW|599|599", "SM6ABD|FT8|-10|-12"}));
}

// ---- a save that is refused for want of data ----------------------------------------------------------

const Meddelande saknarData{"Saknar viktig data för att spara QSO! Var god kontrollera dina uppgifter.",
                            "SparaQSO"};

struct Saknarfall {
    int test;
    const char* saknas;
    bool vägras;
};
void PrintTo(const Saknarfall& fall, std::ostream* ut) { *ut << fall.test << ' ' << fall.saknas; }
class Saknad : public Sparkedja, public ::testing::WithParamInterface<Saknarfall> {};

TEST_P(Saknad, FieldOfANewContactRefusesItAndTheChainGoesOn) {
    const Saknarfall& fall = GetParam();
    frTest& f = StartaKlar(fall.test);
    const QString saknas = fall.saknas;
    SkrivI(f.txtDiplom, "jo89wj");
    SkrivI(f.txtSignal, saknas == "txtPrefix" ? "qq1abc" : "dl1abc");
    if (saknas == "txtRSTM") f.txtRSTM->clear();
    if (saknas == "txtRSTS") f.txtRSTS->clear();
    if (saknas == "lblDXCC") f.lblDXCC->setText("DXCC");
    ASSERT_EQ(f.txtPrefix->text().isEmpty(), saknas == "txtPrefix");
    Tryck(Qt::Key_Return);
    if (!fall.vägras) {
        EXPECT_EQ(Antal(), 1);
        return;
    }
    EXPECT_EQ(Tag(), saknarData);
    EXPECT_EQ(Antal(), 0);
    EXPECT_EQ(INFO("LöpNr"), "1");
    EXPECT_EQ(f.txtSignal->text(), "") << "the form is cleared all the same";
    EXPECT_EQ(f.txtDiplom->text(), "");
    EXPECT_EQ(QApplication::focusWidget(), f.txtSignal);
    EXPECT_TRUE(delat.TidGår);
    ExpectTimers(0, 1000, 1000);
    // What was typed of the locator is remembered for the next try.
    const QString minne = saknas == "txtPrefix" ? "QQ1ABC|JO89WJ" : "DL1ABC|JO89WJ";
    EXPECT_EQ(Lokatorminne().join(','), fall.test <= 8 ? minne : QString());
    // Nothing hangs in the cursor: the next contact stands alone.
    Kör("dl2abc", "jo51aa");
    EXPECT_EQ(Rader("Signal"), QStringList{"DL2ABC"});
}
INSTANTIATE_TEST_SUITE_P(Fält, Saknad,
                         ::testing::Values(Saknarfall{0, "txtRSTM", true}, Saknarfall{1, "txtRSTM", true},
                                           Saknarfall{1, "txtRSTS", true}, Saknarfall{1, "txtPrefix", true},
                                           Saknarfall{1, "lblDXCC", true}, Saknarfall{2, "txtPrefix", true},
                                           Saknarfall{3, "txtRSTM", true}, Saknarfall{4, "txtRSTS", true},
                                           Saknarfall{5, "txtPrefix", true}, Saknarfall{6, "lblDXCC", true},
                                           Saknarfall{7, "txtRSTM", true}, Saknarfall{7, "txtRSTS", false},
                                           Saknarfall{7, "txtPrefix", true}, Saknarfall{8, "lblDXCC", true},
                                           Saknarfall{8, "txtRSTS", false}, Saknarfall{9, "txtRSTM", true},
                                           Saknarfall{9, "txtRSTS", false}, Saknarfall{9, "txtPrefix", true},
                                           Saknarfall{10, "lblDXCC", true}, Saknarfall{10, "txtRSTS", false},
                                           Saknarfall{14, "txtRSTM", true}, Saknarfall{14, "txtRSTS", true},
                                           Saknarfall{14, "txtPrefix", true},
                                           Saknarfall{14, "lblDXCC", true}));

TEST_F(Sparkedja, TheMenuRefusesForWantOfDataToo) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "qq1abc");
    Spara(Spar::Meny);
    EXPECT_EQ(Tag(), saknarData);
    EXPECT_EQ(Antal(), 0);
    EXPECT_EQ(f.txtSignal->text(), "");
}

TEST_F(Sparkedja, ALoggedContactIsWrittenBackWithoutThatQuestion) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Redigera(0);
    f.txtRSTM->clear();
    f.txtRSTS->clear();
    f.txtPrefix->clear();
    f.lblDXCC->setText("DXCC");
    f.txtNamn->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Mottaget, Sänt, Prefix, DXCC"), QStringList{"SM5ABC||||DXCC"});
}

TEST_F(Sparkedja, ARefusedSaveLeavesTheBoardAtTheSumOfTheLog) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    SkrivI(f.txtSignal, "qq1abc");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag(), saknarData);
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "500");
    EXPECT_EQ(f.lblTotalPoäng->text(), "1000");
    EXPECT_EQ(f.lblQSO->text(), "1");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM5ABC  JO89WJ  500 Km");
}

// ---- contests without a saver -------------------------------------------------------------------------

class UtanSparare : public Sparkedja, public ::testing::WithParamInterface<std::tuple<int, Spar>> {};
INSTANTIATE_TEST_SUITE_P(Tester, UtanSparare,
                         ::testing::Combine(::testing::Values(11, 12, 13),
                                            ::testing::Values(Spar::Knapp, Spar::Meny)));

TEST_P(UtanSparare, TheFormClearsNothingIsStoredAndNothingIsSaid) {
    const auto [test, spar] = GetParam();
    frTest& f = StartaKlar(test);
    f.lblMultiplar->setText("7");
    f.lblDiplom->setText("8");
    f.lblTotalQSOPoäng->setText("9");
    f.lblTotalPoäng->setText("5");
    SkrivI(f.txtSignal, "dl1abc");
    SkrivI(f.txtDiplom, "jo51aa");
    Spara(spar);
    EXPECT_EQ(Antal(), 0);
    EXPECT_EQ(INFO("LöpNr"), "1");
    EXPECT_EQ(INFO("QSOLängd"), "0");
    EXPECT_EQ(Lokatorminne(), QStringList());
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(QApplication::focusWidget(), f.txtSignal);
    EXPECT_EQ(f.lblMultiplar->text(), "7") << "the board is not touched";
    EXPECT_EQ(f.lblDiplom->text(), "8");
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "9");
    EXPECT_EQ(f.lblTotalPoäng->text(), "0");
    EXPECT_TRUE(delat.TidGår);
    ExpectTimers(0, 1000, 1000);
    EXPECT_TRUE(meddelanden.empty());
}

// ---- what the menu does otherwise ---------------------------------------------------------------------

struct Menysumma {
    int test;
    const char* rader; ///< Poäng of three contacts
};
void PrintTo(const Menysumma& fall, std::ostream* ut) { *ut << fall.test; }
class Menyns : public Sparkedja, public ::testing::WithParamInterface<Menysumma> {};

TEST_P(Menyns, RowGetsTheSumOfTheLogSoFar) {
    const Menysumma& fall = GetParam();
    frTest& f = StartaKlar(fall.test);
    Kör("dl1abc", "jo89wj");
    for (const auto& [signal, lokator] : {std::pair("dl2abc", "jo67bq"), std::pair("dl3abc", "jp80")}) {
        SkrivI(f.txtSignal, signal);
        SkrivI(f.txtDiplom, lokator);
        Spara(Spar::Meny);
    }
    EXPECT_EQ(Rader("Poäng").join(','), fall.rader);
}
INSTANTIATE_TEST_SUITE_P(Familjer, Menyns,
                         ::testing::Values(Menysumma{0, "500,500,1000"}, Menysumma{1, "500,500,1000"},
                                           Menysumma{4, "500,500,1000"}, Menysumma{6, "500,500,1000"},
                                           Menysumma{7, "2,2,4"}, Menysumma{8, "2,2,4"},
                                           Menysumma{9, "1,1,2"}, Menysumma{10, "1,1,2"},
                                           Menysumma{14, "500,500,1000"}));

TEST_F(Sparkedja, TheFirstContactOfALogSavedFromTheMenuHasNoPoints) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    Spara(Spar::Meny);
    EXPECT_EQ(Rader("Multiplar, Poäng, NRUTA"), QStringList{"JO89WJ|0|N"});
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "0");
    EXPECT_EQ(f.lblTotalPoäng->text(), "500");
}

TEST_F(Sparkedja, ALoggedContactSavedFromTheMenuGetsTheSumOfTheLogAsWell) {
    StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6xyz", "jo67bq");
    Redigera(1);
    Spara(Spar::Meny);
    EXPECT_EQ(Rader("Signal, Poäng"), (QStringList{"SM5ABC|500", "SM6XYZ|725"}));
}

TEST_F(Sparkedja, OnlyTheMenuMarksACountryAsWorked) {
    frTest& f = StartaKlar(7);
    const QString tyskland =
        "SELECT [80 M] || '/' || CW || '/' || [40 M] || '/' || SSB FROM TESTDXCC WHERE DXCC='DL'";
    Kör("dl1abc", "jo51aa");
    EXPECT_EQ(LäsEtt(Logg(), tyskland), "///");
    SkrivI(f.txtSignal, "dl2abc");
    Spara(Spar::Meny);
    EXPECT_EQ(LäsEtt(Logg(), tyskland), "W/W//");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTDXCC WHERE [80 M]='W' OR CW='W'"), "1");
}

TEST_F(Sparkedja, TheCountryMarkedIsTheOneInTheFirstRowOfTheLog) {
    // Sorting the log anew has put the cursor there.
    frTest& f = StartaKlar(7);
    Kör("dl1abc", "jo51aa");
    nu = nu.addSecs(60);
    f.TestTimer_Tick();
    SkrivI(f.txtSignal, "f5abc");
    Spara(Spar::Meny);
    EXPECT_EQ(Rader(Logg(), "DXCC", "TESTDXCC WHERE CW='W'"), QStringList{"DL"});
    // A contact that is earlier than all others is the first itself.
    nu = nu.addSecs(-600);
    f.TestTimer_Tick();
    SkrivI(f.txtSignal, "oz1abc");
    Spara(Spar::Meny);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT group_concat(DXCC) FROM TESTDXCC WHERE CW='W'"), "DL,OZ");
}

TEST_F(Sparkedja, ABandThatTheCountryTableLacksGivesItsMessageAndTheContactIsStored) {
    frTest& f = StartaKlar(14);
    f.cmbBand->setCurrentIndex(2);
    ASSERT_EQ(f.cmbBand->Text(), "24 CM");
    SkrivI(f.txtSignal, "dl1abc");
    SkrivI(f.txtDiplom, "jo51aa");
    Spara(Spar::Meny);
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid sparande av körda dxcc.", "LäggTillKördaDXCC"}));
    EXPECT_EQ(Rader("Signal, [Band ]"), QStringList{"DL1ABC|24 CM"});
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTDXCC WHERE CW='W'"), "0");
    EXPECT_EQ(f.txtSignal->text(), "");
}

TEST_F(Sparkedja, TheButtonClearsTheFormBeforeTheCaretMovesAndTheMenuAfter) {
    // Leaving the exchange looks at the locator in it: with the menu it still stands there.
    frTest& f = StartaKlar(1);
    const Meddelande fel{
        "Problem att räkna ut riktning och avstånd. Kontrollera att din lokator är rätt angiven!",
        "VisaRiktningAvstånd"};
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "zz99");
    Spara(Spar::Knapp);
    EXPECT_EQ(meddelanden, (std::vector<Meddelande>{fel}));
    meddelanden.clear();
    SkrivI(f.txtSignal, "sm6xyz");
    SkrivI(f.txtDiplom, "zz99");
    Spara(Spar::Meny);
    EXPECT_EQ(meddelanden, (std::vector<Meddelande>{fel, fel}));
    meddelanden.clear();
    EXPECT_EQ(Antal(), 2);
}

// ---- without a log ------------------------------------------------------------------------------------

TEST_F(Sparkedja, WithNoLogOpenASaveSaysThatItFailedAndClearsTheForm) {
    frTest& f = StartaKlar(1);
    f.mnuArkiv_StängTestlogg_Click();
    f.txtSignal->setText("SM5ABC");
    f.txtPrefix->setText("SM5");
    f.cmdSpara_Click();
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid Sparande/Uppdatering av QSO.", "SparaQSO"}));
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(Antal(), 0);
}
