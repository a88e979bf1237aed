// What a contact is worth, and the score board over the log, on the real form and file.
#include "Sparprov.h"

class Poängtavla : public Sparprov {
protected:
    /// The board as one text: contacts, sum of points, multipliers, awards, total.
    static QString Tavla() {
        const frTest& f = frTest::instans();
        QStringList delar;
        for (const QLabel* etikett :
             {f.lblQSO, f.lblTotalQSOPoäng, f.lblMultiplar, f.lblDiplom, f.lblTotalPoäng})
            delar += etikett->text();
        return delar.join(QLatin1Char('|'));
    }
    /// The signs that are on.
    static QString Tecken() {
        const frTest& f = frTest::instans();
        QStringList på;
        for (const QLabel* tecken : {f.lblNyttLand, f.lblNyRuta, f.lblMultipel})
            if (tecken->isVisible()) på += tecken->text();
        return på.join(QLatin1Char(','));
    }
    static void Visa() { QTest::mouseClick(frTest::instans().cmdVisa, Qt::LeftButton); }
    static void SkrivQSO(const QString& signal, const QString& lokator) {
        SkrivI(frTest::instans().txtSignal, signal);
        SkrivI(frTest::instans().txtDiplom, lokator);
    }
    /// Loads the first row and changes its call and locator, so that it is judged anew.
    static void Ändrad(const QString& signal, const QString& lokator) {
        Redigera(0);
        frTest& f = frTest::instans();
        f.txtSignal->setFocus();
        f.txtSignal->selectAll();
        Skriv(signal);
        f.txtDiplom->setFocus();
        f.txtDiplom->selectAll();
        Skriv(lokator);
    }
};

TEST_F(Poängtavla, AnEmptyLogHasABoardOfZeros) {
    StartaLogg(0);
    for (const int test : {0, 3, 6, 7, 9, 14}) {
        NyLogg(test, QStringLiteral("%1.svk").arg(test));
        EXPECT_EQ(Tavla(), "0|0|0|0|0") << test;
        EXPECT_EQ(frTest::instans().lblQSOPoäng->text(), "0") << test;
    }
}

TEST_F(Poängtavla, ALogThatHasNoContactsAnyMoreIsZeroWhateverStoodThere) {
    frTest& f = StartaLogg(0);
    for (const int test : {1, 7, 9}) {
        NyLogg(test, QStringLiteral("%1.svk").arg(test));
        for (QLabel* etikett : {f.lblMultiplar, f.lblDiplom, f.lblTotalPoäng, f.lblTotalQSOPoäng})
            etikett->setText("7");
        RäknaPoäng(test);
        EXPECT_EQ(Tavla(), "0|0|0|0|0") << test;
    }
}

TEST_F(Poängtavla, AContestThatIsNotCountedShowsNothingOfTheLogBefore) {
    StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    NyLogg(12, "ny.svk");
    EXPECT_EQ(Tavla(), "0|0|0|0|0");
}

TEST_F(Poängtavla, AContestThatIsNotCountedDoesNotMindItsPoints) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Ändra(Logg(), "UPDATE TESTQSO SET Poäng='many'");
    db().rsPoäng.Requery();
    f.lblMultiplar->setText("7");
    for (const int test : {11, 12, 13, 99}) RäknaPoäng(test);
    EXPECT_EQ(f.lblMultiplar->text(), "7");
    EXPECT_EQ(f.lblTotalPoäng->text(), "0");
}

TEST_F(Poängtavla, AfterTheJudgementNoFilterStandsOnTheMultipliers) {
    StartaLogg(0);
    for (const int test : {1, 7, 9, 11}) {
        NyLogg(test, QStringLiteral("%1.svk").arg(test));
        SkrivI(frTest::instans().txtSignal, "dl1abc");
        frTest::instans().txtDiplom->setText("JO62QM");
        db().rsMultiplar.Filter("Multiplar = 'X'");
        db().rsDiplom.Filter("Diplom = 'X'");
        KollaPoäng(test);
        EXPECT_EQ(db().rsMultiplar.Filter(), "") << test;
        EXPECT_EQ(db().rsDiplom.Filter(), "") << test;
    }
}

// ---- kilometres ---------------------------------------------------------------------------------------

class Kilometer : public Poängtavla, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Tester, Kilometer, ::testing::Values(0, 1, 2, 3, 4, 5, 6, 14));

TEST_P(Kilometer, ThePointsAreTheWholeKilometresOfTheDistance) {
    StartaKlar(GetParam());
    const std::pair<const char*, const char*> körda[] = {
        {"sm1a", "jo89wj"}, {"sm2a", "jo65mr"}, {"sm3a", "jo65"}, {"sm4a", "jo65mq"}, {"sm5a", ""},
        {"sm6a", "jo"},     {"sm7a", "xjo89"},  {"sm8a", "jo89"}, {"sm1b", "jo89wj"}};
    for (const auto& [signal, lokator] : körda) Kör(signal, lokator);
    EXPECT_EQ(Rader("Multiplar, Poäng, Diplom, NRUTA"),
              (QStringList{"JO89WJ|500|JO89|N",
                           // The own locator is worth one point and is no new square.
                           "JO65MR|1|JO65|",
                           // Four characters differ from the own six: the distance to the square's centre.
                           "JO65|26|JO65|", "JO65MQ|5|JO65|",
                           // An exchange that is no locator by its length is worth nothing.
                           "|0||", "JO|0|JO|", "XJO89|0|XJO8|",
                           // A square in four characters is the one heard in six.
                           "JO89|482|JO89|", "JO89WJ|500|JO89|"}));
    EXPECT_EQ(Tavla(), "9|1514|2000|4|3514");
}

TEST_P(Kilometer, ASquareCountsOnceAndEachContactBringsItsKilometres) {
    StartaKlar(GetParam());
    Kör("sm1a", "jo89wj");
    EXPECT_EQ(Tavla(), "1|500|500|1|1000");
    Kör("sm2a", "jo89xi");
    EXPECT_EQ(Tavla(), "2|999|500|1|1499");
    Kör("sm3a", "jo89");
    EXPECT_EQ(Tavla(), "3|1481|500|1|1981");
    Kör("sm4a", "jp80");
    EXPECT_EQ(Tavla(), "4|2061|1000|2|3061");
    EXPECT_EQ(delat.TotalPoäng, 3061);
    EXPECT_EQ(delat.TotalQSOPoäng, 2061);
    EXPECT_EQ(delat.TotalRutPoäng, 1000);
    EXPECT_EQ(frTest::instans().lblQSOPoäng->text(), "0");
}

TEST_P(Kilometer, AReopenedLogShowsTheSameBoard) {
    StartaKlar(GetParam());
    Kör("sm1a", "jo89wj");
    Kör("sm4a", "jp80");
    StartaOm();
    filval.push_back(Logg());
    frTest::instans().mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(Tavla(), "2|1080|1000|2|2080");
    EXPECT_EQ(frTest::instans().lblQSOPoäng->text(), "0");
}

TEST_F(Poängtavla, TheShowButtonTellsPointsAndANewSquareBeforeTheSave) {
    frTest& f = StartaKlar(1);
    SkrivQSO("sm5abc", "jo89wj");
    Visa();
    EXPECT_EQ(f.lblQSOPoäng->text(), "500");
    EXPECT_EQ(Tecken(), "NYTT LAND !,RUTA");
    EXPECT_EQ(f.txtNRUTA->text(), "N");
    f.txtDiplom->setFocus();
    Tryck(Qt::Key_Return);
    SkrivQSO("sm6xyz", "jo89");
    Visa();
    EXPECT_EQ(f.lblQSOPoäng->text(), "482");
    EXPECT_EQ(Tecken(), "") << "the square is worked";
}

TEST_F(Poängtavla, TheOwnSquareHeardInFourCharactersIsANewSquare) {
    StartaKlar(1);
    SkrivQSO("sm5abc", "jo65");
    Visa();
    EXPECT_EQ(Tecken(), "NYTT LAND !,RUTA");
}

TEST_F(Poängtavla, NoSignComesForAnExchangeOfTheWrongLength) {
    frTest& f = StartaKlar(1);
    SkrivQSO("sm5abc", "xjo89");
    Visa();
    EXPECT_EQ(Tecken(), "NYTT LAND !");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
}

TEST_F(Poängtavla, TheShowButtonDoesNotJudgeADuplicate) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    SkrivVarnad("sm5abc", "jp80", 2);
    StängVarningar(2);
    f.cmdVisa->click();
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    EXPECT_EQ(Tecken(), "");
}

TEST_F(Poängtavla, AnEditedContactAloneInItsSquareIsAskedNothingFurther) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo65mr");
    EXPECT_EQ(Rader("Poäng"), QStringList{"1"});
    Ändrad("sm5abd", "jo65mr");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng, NRUTA"), QStringList{"SM5ABD|0|"}) << "not even about the own locator";
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "0");
}

TEST_F(Poängtavla, AnEditedContactMovedToTheOwnLocatorGetsItsOnePoint) {
    StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Ändrad("sm5abd", "jo65mr");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng, Diplom"), QStringList{"SM5ABD|1|JO65"});
}

TEST_F(Poängtavla, AnEditedContactMovedToAnUnworkedSquareIsANewSquare) {
    StartaKlar(1);
    Kör("sm5abc", "jo65mr");
    Ändrad("sm5abd", "jp80");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng, NRUTA"), QStringList{"SM5ABD|580|N"});
}

TEST_F(Poängtavla, TwoLocatorsOfASquareMakeAnEditedContactNoNewOne) {
    StartaKlar(1);
    Kör("sm5abc", "jo65mr");
    Kör("sm6xyz", "jo89wj");
    Kör("sm7xyz", "jo89xi");
    Ändrad("sm5abd", "jo89");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng, NRUTA"), (QStringList{"SM5ABD|482|", "SM6XYZ|500|N", "SM7XYZ|499|"}));
}

// ---- Månadstest ---------------------------------------------------------------------------------------

class Månadstestet : public Poängtavla, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Tester, Månadstestet, ::testing::Values(7, 8));

TEST_P(Månadstestet, EveryContactHasTwoPointsAndSquaresCountOnEachBand) {
    frTest& f = StartaKlar(GetParam());
    Kör("sm1a", "jo89wj");
    EXPECT_EQ(Tavla(), "1|2|1|1|2");
    Kör("sm2a", "jo89xi");
    EXPECT_EQ(Tavla(), "2|4|1|2|4");
    f.cmbBand->setCurrentIndex(1);
    Kör("sm3a", "jo89wj");
    EXPECT_EQ(Tavla(), "3|6|2|2|12");
    Kör("sm4a", "jo65mr");
    EXPECT_EQ(Tavla(), "4|8|2|3|16") << "the own square is no multiplier";
    Kör("sm5a", "");
    Kör("sm6a", "xjo89");
    EXPECT_EQ(
        Rader("Poäng, Diplom, NDXCC, NRUTA"),
        (QStringList{"2|JO89 80 M|N|N", "2|JO89 80 M||", "2|JO89 40 M||N", "2|||", "2|||", "2|XJO8 40 M||"}));
    EXPECT_EQ(Tavla(), "6|12|3|4|36");
}

TEST_P(Månadstestet, WithoutAMultiplierTheTotalIsTheSumOfPoints) {
    StartaKlar(GetParam());
    Kör("sm1a", "jo65mr");
    Kör("sm2a", "");
    EXPECT_EQ(Tavla(), "2|4|0|1|4");
}

TEST_F(Poängtavla, ANewSquareInAMånadstestHidesTheNewCountry) {
    frTest& f = StartaKlar(7);
    SkrivI(f.txtSignal, "sm5abc");
    EXPECT_EQ(Tecken(), "NYTT LAND !");
    SkrivI(f.txtDiplom, "jo89wj");
    Visa();
    EXPECT_EQ(Tecken(), "RUTA");
    f.txtDiplom->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("NDXCC, NRUTA"), QStringList{"N|N"}) << "the row keeps both marks";
    SkrivQSO("dl1abc", "jo89aa");
    Visa();
    EXPECT_EQ(Tecken(), "NYTT LAND !") << "a worked square hides nothing";
    EXPECT_EQ(f.lblQSOPoäng->text(), "2");
}

TEST_F(Poängtavla, TheOwnSquareInAMånadstestIsNoNewOne) {
    StartaKlar(7);
    SkrivQSO("sm5abc", "jo65aa");
    Visa();
    EXPECT_EQ(Tecken(), "NYTT LAND !");
}

TEST_F(Poängtavla, TheOwnLocatorBringsAnEditedMånadstestContactDownToOnePoint) {
    StartaKlar(7);
    Kör("sm5abc", "jo89wj");
    Kör("sm6xyz", "jo67bq");
    Ändrad("sm5abd", "jo65mr");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng"), (QStringList{"SM5ABD|1", "SM6XYZ|2"}));
}

TEST_F(Poängtavla, WithOneLocatorInTheLogAnEditedMånadstestContactIsAskedNothingFurther) {
    StartaKlar(7);
    Kör("sm5abc", "jo65mr");
    Ändrad("sm5abd", "jo65mr");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng"), QStringList{"SM5ABD|2"});
}

TEST_F(Poängtavla, WithNoLocatorInTheLogAnEditedMånadstestContactIsANewSquare) {
    frTest& f = StartaKlar(7);
    Kör("sm5abc", "");
    Ändrad("sm5abd", "jo89wj");
    Visa();
    EXPECT_EQ(Tecken(), "RUTA") << "the sign of the country was never on";
    f.txtDiplom->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Poäng, NRUTA"), QStringList{"SM5ABD|2|N"});
}

// ---- SAC ----------------------------------------------------------------------------------------------

struct SACfall {
    const char* signal;
    int band;        ///< place in the list: 80, 40, 20, 15, 10
    const char* rad; ///< Poäng|Multiplar|Diplom|DXCC
    bool nordisk;
};
void PrintTo(const SACfall& fall, std::ostream* ut) { *ut << fall.signal << " on band " << fall.band; }
class SAC : public Poängtavla, public ::testing::WithParamInterface<SACfall> {};

TEST_P(SAC, PointsGoByContinentAndBand) {
    const SACfall& fall = GetParam();
    for (const int test : {9, 10}) {
        if (test == 9)
            StartaKlar(test);
        else
            NyLogg(test, "prov.svk");
        frTest& f = frTest::instans();
        f.cmbBand->setCurrentIndex(fall.band);
        SkrivI(f.txtSignal, fall.signal);
        if (fall.nordisk) StängVarningar(1);
        f.txtRSTM->setFocus();
        f.activateWindow();
        ASSERT_TRUE(HarFokus(f.txtRSTM));
        EXPECT_EQ(f.lblMultipel->isVisible(), !fall.nordisk);
        Tryck(Qt::Key_Return);
        EXPECT_EQ(Rader("Poäng, Multiplar, Diplom, DXCC"), QStringList{fall.rad});
    }
}
INSTANTIATE_TEST_SUITE_P(
    Stationer, SAC,
    ::testing::Values(
        SACfall{"k1abc", 0, "3|K|K (80 M)|K", false}, SACfall{"k1abc", 1, "3|K|K (40 M)|K", false},
        SACfall{"k1abc", 2, "1|K|K (20 M)|K", false}, SACfall{"k1abc", 3, "1|K|K (15 M)|K", false},
        SACfall{"k1abc", 4, "1|K|K (10 M)|K", false}, SACfall{"ja1abc", 0, "3|JA|JA (80 M)|JA", false},
        SACfall{"dl1abc", 0, "1|DL|DL (80 M)|DL", false}, SACfall{"dl1abc", 4, "1|DL|DL (10 M)|DL", false},
        SACfall{"w1abc", 0, "3|W|W (80 M)|K", false}, SACfall{"oh0abc", 0, "1|OH0|OH0 (80 M)|OH0", false},
        SACfall{"sm5abc", 0, "0|||", true}, SACfall{"oz1abc", 1, "0|||", true},
        SACfall{"la1abc", 2, "0|||", true}, SACfall{"oh1abc", 3, "0|||", true},
        SACfall{"ox3abc", 0, "0|||", true}, SACfall{"oy1abc", 4, "0|||", true},
        SACfall{"tf3abc", 0, "0|||", true}, SACfall{"jx1abc", 0, "0|||", true},
        SACfall{"jw1abc", 0, "0|||", true}, SACfall{"oj0abc", 0, "0|||", true}));

TEST_F(Poängtavla, ASACTotalIsTheSumOfPointsTimesThePrefixes) {
    frTest& f = StartaKlar(9);
    Kör("k1abc", "");
    EXPECT_EQ(Tavla(), "1|3|1|1|3");
    Kör("dl1abc", "");
    EXPECT_EQ(Tavla(), "2|4|2|2|8");
    Kör("dl2abc", "");
    EXPECT_EQ(Tavla(), "3|5|2|2|10");
    f.cmbBand->setCurrentIndex(1);
    Kör("dl1abc", "");
    EXPECT_EQ(Tavla(), "4|6|2|3|12") << "the prefix counts once for all bands, the award once on each";
    SkrivVarnad("sm5abc", "", 1);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tavla(), "5|6|2|3|12");
}

TEST_F(Poängtavla, WithoutAPrefixTheSACTotalIsTheSumOfPoints) {
    StartaKlar(9);
    SkrivVarnad("sm5abc", "", 1);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tavla(), "1|0|0|0|0");
}

TEST_F(Poängtavla, TheSignOfANewMultiplierAsksForCountryAndBand) {
    frTest& f = StartaKlar(9);
    const auto lämna = [&](const char* signal) {
        f.cmdAvbryt->click();
        SkrivI(f.txtSignal, signal);
        f.txtRSTM->setFocus();
        return f.lblMultipel->isVisible();
    };
    EXPECT_TRUE(lämna("dl1abc"));
    Tryck(Qt::Key_Return);
    EXPECT_FALSE(lämna("dl2abc"));
    f.cmbBand->setCurrentIndex(1);
    EXPECT_TRUE(lämna("dl2abc"));
    f.cmbBand->setCurrentIndex(0);
    // The column holds the prefix W where the sign asks for the country K: it comes up every time.
    EXPECT_TRUE(lämna("w1abc"));
    Tryck(Qt::Key_Return);
    EXPECT_TRUE(lämna("w2abc"));
    // And a K counts as worked only when the prefix itself was K.
    Tryck(Qt::Key_Return);
    EXPECT_TRUE(lämna("k1abc"));
    Tryck(Qt::Key_Return);
    EXPECT_FALSE(lämna("w3abc"));
    EXPECT_EQ(Tavla(), "4|10|3|3|30");
}

TEST_F(Poängtavla, AnEditedSACContactKeepsItsPointsWhenTheStationTurnsOutNordic) {
    frTest& f = StartaKlar(9);
    Kör("k1abc", "");
    Redigera(0);
    f.lblDXCC->setText("OZ");
    f.lblKont->setText("EU");
    f.txtNamn->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Poäng, DXCC, Multiplar, Diplom"), QStringList{"3|K|K|K (80 M)"});
}

TEST_F(Poängtavla, AnEditedSACContactShowsTheSignWhenNoRowHasItsAward) {
    frTest& f = StartaKlar(9);
    const auto ändra = [&] {
        Redigera(0);
        f.txtSignal->setFocus();
        f.txtSignal->setText("W1ABD");
        f.txtRSTM->setFocus();
        return f.lblMultipel->isVisible();
    };
    Kör("w1abc", "");
    EXPECT_TRUE(ändra()) << "the award is W's, the question K's";
    f.cmdAvbryt->click();
    Kör("k1abc", "");
    EXPECT_FALSE(ändra());
}

// ---- the dispatchers ----------------------------------------------------------------------------------

TEST_F(Poängtavla, TheContactIsJudgedByTheContestInForceWhateverNumberIsGiven) {
    frTest& f = StartaKlar(1);
    SkrivQSO("sm5abc", "jo89wj");
    f.txtRSTM->setFocus();
    KollaPoäng(7);
    EXPECT_EQ(f.lblQSOPoäng->text(), "500");
    EXPECT_EQ(db().rsMultiplar.Filter(), "");
    EXPECT_EQ(db().rsDiplom.Filter(), "");
}

TEST_F(Poängtavla, TheCountOfTheLogGoesToTheLabelOfTheContactToo) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6abc", "jp80");
    RäknaPoäng(1);
    EXPECT_EQ(f.lblQSOPoäng->text(), "1080");
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "1080");
    // The number given chooses the counter.
    RäknaPoäng(7);
    EXPECT_EQ(f.lblTotalPoäng->text(), "2160");
    RäknaPoäng(11);
    EXPECT_EQ(f.lblTotalPoäng->text(), "0");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "1080") << "no counter, so the board is left alone";
}

// ---- points that cannot be counted --------------------------------------------------------------------

struct Räknefel {
    int test;
    const char* poäng;
    const char* text;
};
void PrintTo(const Räknefel& fall, std::ostream* ut) { *ut << fall.test << ' ' << fall.poäng; }
class Oräkneligt : public Poängtavla, public ::testing::WithParamInterface<Räknefel> {};

TEST_P(Oräkneligt, StopsTheSaverWithItsMessageAndThenTheProgram) {
    const Räknefel& fall = GetParam();
    frTest& f = StartaKlar(fall.test);
    Kör("dl1abc", "jo89wj");
    const QString tavla = Tavla();
    Ändra(Logg(), QStringLiteral("UPDATE TESTQSO SET Poäng=%1").arg(fall.poäng));
    SkrivQSO("dl2abc", "jo67bq");
    // The count within the saver has its handler, the one behind it in the chain has none.
    EXPECT_THROW(Tryck(Qt::Key_Return), ProcessSlut);
    EXPECT_EQ(slut, 1);
    EXPECT_EQ(Tag(), (Meddelande{fall.text, "SparaQSO"}));
    EXPECT_EQ(Rader("Signal"), (QStringList{"DL1ABC", "DL2ABC"})) << "the contact was on the disk by then";
    EXPECT_EQ(f.lblTotalPoäng->text(), tavla.section('|', 4)) << "the labels keep their last values";
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), tavla.section('|', 1, 1));
}
INSTANTIATE_TEST_SUITE_P(
    Fall, Oräkneligt,
    ::testing::Values(Räknefel{1, "'many'", "Ett fel har inträffat vid Sparande/Uppdatering av QSO."},
                      Räknefel{1, "2147483647", "Ett fel har inträffat vid Sparande/Uppdatering av QSO."},
                      Räknefel{4, "'many'", "Ett fel har inträffat vid sparande/uppdatering av QSO."},
                      Räknefel{7, "2147483647", "Ett fel har inträffat vid sparande/uppdatering av QSO."},
                      Räknefel{9, "2147483647", "Ett fel har inträffat vid sparande/uppdatering av QSO."},
                      Räknefel{14, "'many'", "Ett fel har inträffat vid Sparande/Uppdatering av QSO."}));
