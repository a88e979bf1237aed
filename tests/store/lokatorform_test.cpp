// Distance and bearing on the form, the memory of locators, and the longest contact.
#include "Sparprov.h"

#include "contest/frTestInst.h"

namespace {
const Meddelande kanInteRäkna{
    "Problem att räkna ut riktning och avstånd. Kontrollera att din lokator är rätt angiven!",
    "VisaRiktningAvstånd"};
}

class Lokatorform : public Sparprov {
protected:
    /// What the two labels show.
    static QString Väg() {
        const frTest& f = frTest::instans();
        return f.lblAvstånd->text() + QLatin1Char('|') + f.lblRiktning->text();
    }
    static void SättVäg(const char* text) {
        const frTest& f = frTest::instans();
        for (QLabel* etikett : {f.lblAvstånd, f.lblRiktning}) etikett->setText(text);
    }
    void Minns(const QString& signal, const QString& lokator) {
        Ändra(Fil("Lokator.dat"),
              QStringLiteral("INSERT INTO Lokator VALUES ('%1', '%2')").arg(signal, lokator));
    }
};

// ---- distance and bearing -----------------------------------------------------------------------------

TEST_F(Lokatorform, ACallAloneShowsTheWayToItsCountryInBlue) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    EXPECT_EQ(Väg(), "455 Km|26° / 206°");
    for (const QLabel* etikett : {f.lblAvstånd, f.lblRiktning})
        EXPECT_EQ(etikett->palette().color(QPalette::WindowText), QColor(0, 0, 255));
    SkrivI(f.txtSignal, "");
    f.cmdAvbryt->click();
    SkrivI(f.txtSignal, "k1abc");
    EXPECT_EQ(Väg(), "7479 Km|304° / 124°");
    f.cmdAvbryt->click();
    EXPECT_EQ(Väg(), "|");
    EXPECT_NE(f.lblAvstånd->palette().color(QPalette::WindowText), QColor(0, 0, 255));
}

struct Målfall {
    const char* diplom;
    const char* väg; ///< nothing: the message, and the labels as they were
};
void PrintTo(const Målfall& fall, std::ostream* ut) { *ut << '"' << fall.diplom << '"'; }
class Mål : public Lokatorform, public ::testing::WithParamInterface<Målfall> {};

TEST_P(Mål, IsChosenByTheLengthOfTheExchangeWhenItIsLeft) {
    const Målfall& fall = GetParam();
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    f.txtDiplom->setFocus();
    SättVäg("x");
    Skriv(fall.diplom);
    EXPECT_EQ(Väg(), "x|x") << "typing alone does not compute";
    f.txtRSTM->setFocus();
    if (fall.väg) {
        EXPECT_EQ(Väg(), fall.väg);
    } else {
        EXPECT_EQ(Tag(), kanInteRäkna);
        EXPECT_EQ(Väg(), "x|x");
    }
}
INSTANTIATE_TEST_SUITE_P(Längder, Mål,
                         ::testing::Values(
                             // Nothing typed computes nothing; one or two characters stand for the country.
                             Målfall{"", "x|x"}, Målfall{"j", "455 Km|26° / 206°"},
                             Målfall{"jo", "455 Km|26° / 206°"},
                             // Of three and five characters the last two and four count.
                             Målfall{"jo8", nullptr}, Målfall{"1jo", "209 Km|248° / 68°"},
                             Målfall{"jo89w", nullptr}, Målfall{"xjo89", "482 Km|28° / 208°"},
                             Målfall{"jo89", "482 Km|28° / 208°"}, Målfall{"jo89wj", "500 Km|33° / 213°"},
                             Målfall{"jo65mr", "0 Km|0° / 180°"}, Målfall{"rr99xx", "3826 Km|0° / 180°"},
                             Målfall{"jo89wj1", nullptr}));
INSTANTIATE_TEST_SUITE_P(Tecken, Mål,
                         ::testing::Values(Målfall{"so89", nullptr}, Målfall{"js89", nullptr},
                                           Målfall{"joa9", nullptr}, Målfall{"jo8a", nullptr},
                                           Målfall{"jo89ya", nullptr}, Målfall{"jo89ay", nullptr},
                                           Målfall{"jo8912", nullptr}));

TEST_F(Lokatorform, ALocatorThatIsPutInInSmallLettersDoesNotDecode) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    f.txtDiplom->setFocus();
    f.txtDiplom->setText("jo89wj");
    f.txtRSTM->setFocus();
    EXPECT_EQ(Tag(), kanInteRäkna);
    EXPECT_EQ(Väg(), "455 Km|26° / 206°") << "the labels stay as they were";
}

class Lämnat : public Lokatorform, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(AllaTester, Lämnat, ::testing::Range(0, 15));

TEST_P(Lämnat, TheExchangeShowsItsWayInContests0To6) {
    frTest& f = StartaKlar(GetParam());
    SkrivI(f.txtSignal, "dl1abc");
    SkrivI(f.txtDiplom, "jo89wj");
    SättVäg("x");
    f.txtRSTM->setFocus();
    EXPECT_EQ(Väg(), GetParam() <= 6 ? "500 Km|33° / 213°" : "x|x");
}

TEST_P(Lämnat, TheCallShowsTheWayToTheLocatorWhereTheExchangeIsOne) {
    frTest& f = StartaKlar(GetParam());
    SkrivI(f.txtDiplom, "jo89wj");
    SkrivI(f.txtSignal, "dl1abc");
    const bool lokator = GetParam() <= 8 || GetParam() == 11 || GetParam() == 14;
    EXPECT_EQ(Väg(), lokator ? "500 Km|33° / 213°" : "561 Km|202° / 22°");
}

TEST_F(Lokatorform, ABadOwnLocatorIsToldAtEachChangeOfTheCall) {
    frTest& f = StartaKlar(1);
    frTestInst::instans().txtTestLokator->setText("JO6");
    SkrivI(f.txtSignal, "dl1abc");
    EXPECT_EQ(meddelanden, std::vector<Meddelande>(5, kanInteRäkna))
        << "from DL on, where the country is known";
    EXPECT_EQ(Väg(), "|");
    EXPECT_EQ(f.lblLand->text(), "Tyskland") << "the rest of the look-up goes on";
    meddelanden.clear();
}

TEST_F(Lokatorform, TheOwnLocatorIsTheOneInTheStationWindow) {
    frTest& f = StartaKlar(1);
    frTestInst::instans().txtTestLokator->setText("JP80");
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo65");
    f.txtRSTM->setFocus();
    EXPECT_EQ(Väg(), "605 Km|205° / 25°");
}

// ---- Enter while the caret still stands in a field ----------------------------------------------------

const QString allaKolumner = QStringLiteral("Datum, Tid, Signal, Frekvens, Trafiksätt, [Band ], Sänt, "
                                            "Mottaget, Multiplar, LöpNr, Namn, QTH, ITU, Zon, "
                                            "Diplom, DXCC, Land, Notering, Prefix, [DXCC Nr], Poäng, "
                                            "Distrikt, NDXCC, NRUTA, Dubblett, Rutor, LöpNrSR");

class Enter : public Lokatorform, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(KilometerTester, Enter, ::testing::Values(0, 1, 2, 3, 4, 5, 6, 14));

TEST_P(Enter, InTheExchangeGivesTheSameRowAsAfterLeavingIt) {
    frTest& f = StartaKlar(GetParam());
    Kör("sm6xyz", "jo67bq");
    const auto spara = [&](bool lämna, const char* namn) {
        SkrivI(f.txtSignal, "sm5abc");
        SkrivI(f.txtDiplom, "jo89wj");
        if (lämna) f.txtRSTM->setFocus();
        Tryck(Qt::Key_Return);
        return Rader(Logg(namn), allaKolumner);
    };
    const QStringList kvar = spara(false, "prov.svk");
    ASSERT_EQ(kvar.size(), 2);
    // The memory of the first log would fill the exchange of the second.
    Ändra(Fil("Lokator.dat"), "DELETE FROM Lokator");
    NyLogg(GetParam(), "lämnad.svk");
    Kör("sm6xyz", "jo67bq");
    EXPECT_EQ(spara(true, "lämnad.svk"), kvar);
    EXPECT_EQ(Rader("Poäng"), (QStringList{"225", "500"}));
}

TEST_P(Enter, InAnExchangeThatWasLeftAndThenCorrectedCountsTheCorrection) {
    frTest& f = StartaKlar(GetParam());
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    f.txtRSTM->setFocus();
    f.txtDiplom->setFocus();
    f.txtDiplom->selectAll();
    Skriv("jp80");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Multiplar, Poäng"), QStringList{"JP80|580"});
}

TEST_P(Enter, InAnyFieldCountsALocatorThatTheMemoryHasFilledIn) {
    const std::vector<const char*> fält = {"txtSignal",   "txtRSTM",   "txtRSTS", "txtDiplom",  "txtNamn",
                                           "txtNotering", "txtITUM",   "txtZONM", "txtLokator", "txtDatum",
                                           "txtFrekvens", "cmbTrafik", "cmbBand", "cmbDiplom"};
    const auto anrop = [](size_t nummer) {
        return QStringLiteral("SM5A") + QChar(u'A' + static_cast<int>(nummer));
    };
    for (size_t i = 0; i < fält.size(); ++i) Minns(anrop(i), "JO89WJ");
    frTest& f = StartaKlar(GetParam());
    for (size_t i = 0; i < fält.size(); ++i) {
        SkrivI(f.txtSignal, anrop(i));
        Tryck(Qt::Key_Tab);
        EXPECT_EQ(f.txtDiplom->text(), "JO89WJ");
        auto* där = f.findChild<QWidget*>(fält[i]);
        ASSERT_NE(där, nullptr) << fält[i];
        där->setFocus();
        Tryck(Qt::Key_Return);
        const QStringList rader = Rader("Multiplar, Poäng");
        ASSERT_EQ(rader.size(), static_cast<qsizetype>(i) + 1) << fält[i];
        EXPECT_EQ(rader.back(), "JO89WJ|500") << fält[i];
    }
}

TEST_F(Lokatorform, ALocatorThatCannotBeReadLeavesThePointsToTheCountrysDistance) {
    StartaKlar(1);
    Kör("sm5abc", "zz99");
    EXPECT_EQ(Tag(), kanInteRäkna);
    EXPECT_EQ(Rader("Multiplar, Poäng"), QStringList{"ZZ99|455"});
}

TEST_F(Lokatorform, AnExchangeEmptiedAgainIsWorthNothing) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    f.txtRSTM->setFocus();
    f.txtDiplom->setFocus();
    f.txtDiplom->selectAll();
    Tryck(Qt::Key_Delete);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Multiplar, Poäng"), QStringList{"|0"});
}

// ---- the memory of locators: reading ------------------------------------------------------------------

TEST_P(Lämnat, TheCallBringsItsRememberedLocatorInContests0To8And14) {
    Minns("DL1ABC", "JO62QM");
    frTest& f = StartaKlar(GetParam());
    SkrivI(f.txtSignal, "dl1abc");
    EXPECT_EQ(f.txtDiplom->text(), "") << "not while the call is typed";
    f.txtRSTM->setFocus();
    const bool minns = GetParam() <= 8 || GetParam() == 14;
    EXPECT_EQ(f.txtDiplom->text(), minns ? "JO62QM" : "");
    EXPECT_EQ(f.txtRutor->text(), minns ? "JO62QM" : "");
    EXPECT_EQ(db().rsLokator.Filter(), "");
}

struct Minnesfall {
    const char* namn;
    std::vector<std::pair<const char*, const char*>> minne;
    const char* utbyte; ///< what txtDiplom holds afterwards; it held JP80
};
void PrintTo(const Minnesfall& fall, std::ostream* ut) { *ut << fall.namn; }
class Minnet : public Lokatorform, public ::testing::WithParamInterface<Minnesfall> {};

TEST_P(Minnet, FillsInTheLocatorOfACallThatItHasOnce) {
    const Minnesfall& fall = GetParam();
    for (const auto& [signal, lokator] : fall.minne) Minns(signal, lokator);
    frTest& f = StartaKlar(1);
    SkrivI(f.txtDiplom, "jp80");
    SkrivI(f.txtSignal, "sm5abc");
    f.txtRSTM->setFocus();
    EXPECT_EQ(f.txtDiplom->text(), fall.utbyte);
}
INSTANTIATE_TEST_SUITE_P(
    Fall, Minnet,
    ::testing::Values(Minnesfall{"not known", {{"SM6XYZ", "JO67BQ"}}, "JP80"},
                      Minnesfall{"known, over what was typed", {{"SM5ABC", "JO89WJ"}}, "JO89WJ"},
                      Minnesfall{"letters of either case", {{"sm5abc", "JO89WJ"}}, "JO89WJ"},
                      Minnesfall{"a portable form is another station", {{"SM5ABC/P", "JO89WJ"}}, "JP80"},
                      Minnesfall{"known twice", {{"SM5ABC", "JO89WJ"}, {"SM5ABC", "JO99AA"}}, "JP80"},
                      Minnesfall{"in four characters", {{"SM5ABC", "JO89"}}, "JO89"}));

TEST_F(Lokatorform, AMemoryThatCannotBeReadIsTold) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    StängLokatorDB();
    f.txtDiplom->setFocus();
    EXPECT_EQ(Tag(), (Meddelande{"Fel har intäffat vid läsning av Lokator Databas.", "KollaLokator"}));
    EXPECT_EQ(f.txtSignal->text(), "SM5ABC");
}

// ---- the memory of locators: writing ------------------------------------------------------------------

TEST_F(Lokatorform, TheMemoryHoldsTheLastLocatorHeardFromACall) {
    StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Lokatorminne(), QStringList{"SM5ABC|JO89WJ"});
    Kör("sm6xyz", "jo67");
    SkrivVarnad("sm5abc", "jo89", 2);
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Lokatorminne(), (QStringList{"SM5ABC|JO89", "SM6XYZ|JO67"}));
    Kör("dl1abc", "xjo62");
    EXPECT_EQ(Lokatorminne().back(), "DL1ABC|XJO62") << "in any length";
    EXPECT_EQ(db().rsLokator.Filter(), "");
}

TEST_F(Lokatorform, AnEmptyExchangeLeavesTheMemoryAlone) {
    Minns("SM5ABC", "JO89WJ");
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Return); // the call is not left, so nothing is filled in
    EXPECT_EQ(Rader("Signal, Multiplar"), QStringList{"SM5ABC|"});
    EXPECT_EQ(Lokatorminne(), QStringList{"SM5ABC|JO89WJ"});
}

TEST_F(Lokatorform, ALocatorThatIsKnownIsNotWrittenAgain) {
    Minns("SM5ABC", "JO89WJ");
    Ändra(Fil("Lokator.dat"),
          "CREATE TRIGGER vägra BEFORE UPDATE ON Lokator BEGIN SELECT RAISE(ABORT, 'no'); END");
    StartaKlar(1);
    SkrivI(frTest::instans().txtSignal, "sm5abc");
    frTest::instans().txtDiplom->setFocus();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rader("Signal, Multiplar"), QStringList{"SM5ABC|JO89WJ"}) << "and no message";
}

TEST_F(Lokatorform, AMemoryThatCannotBeWrittenIsToldAndTheContactIsStored) {
    StartaKlar(7);
    for (const char* vad : {"INSERT", "UPDATE"})
        Ändra(Fil("Lokator.dat"),
              QStringLiteral(
                  "CREATE TRIGGER vägra_%1 BEFORE %1 ON Lokator BEGIN SELECT RAISE(ABORT, 'no'); END")
                  .arg(vad));
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Tag(), (Meddelande{"Fel har intäffat vid sparning av Test Lokator", "SparaTestLokator"}));
    EXPECT_EQ(Rader("Signal, Multiplar"), QStringList{"SM5ABC|JO89WJ"});
    EXPECT_EQ(frTest::instans().txtSignal->text(), "");
    EXPECT_TRUE(delat.TidGår) << "the chain goes on";
    for (const char* vad : {"INSERT", "UPDATE"})
        Ändra(Fil("Lokator.dat"), QStringLiteral("DROP TRIGGER vägra_%1").arg(vad));
    Kör("sm6xyz", "jo67bq");
    EXPECT_EQ(Lokatorminne(), QStringList{"SM6XYZ|JO67BQ"}) << "what could not be written can be heard again";
}

TEST_F(Lokatorform, AClosedMemoryIsToldWhenItShouldBeWritten) {
    frTest& f = StartaKlar(1);
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    StängLokatorDB();
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag(), (Meddelande{"Fel har intäffat vid sparning av Test Lokator", "SparaTestLokator"}));
    EXPECT_EQ(Antal(), 1);
}

// ---- the longest contact ------------------------------------------------------------------------------

class Längst : public Lokatorform, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Tester, Längst, ::testing::Range(0, 7));

TEST_P(Längst, IsTheContactWithTheMostPointsAndStandsInTheFile) {
    frTest& f = StartaKlar(GetParam());
    Kör("sm6xyz", "jo67bq");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM6XYZ  JO67BQ  225 Km");
    EXPECT_EQ(INFO("QSOLängd"), "225");
    Kör("sm5abc", "jo89wj");
    Kör("dl1abc", "jo65");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM5ABC  JO89WJ  500 Km");
    EXPECT_EQ(INFO("QSOLängd"), "500");
    EXPECT_EQ(INFO("typeof(QSOLängd)"), "integer");
    EXPECT_EQ(INFO("LängstaQSOSträng"), "Längsta QSO : SM5ABC  JO89WJ  500 Km");
    EXPECT_EQ(db().rsTESTQSO.Sort(), "Datum, Tid");
}

TEST_F(Lokatorform, TheFirstOfTwoEquallyLongContactsStays) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm5abd", "jo89wj");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM5ABC  JO89WJ  500 Km");
}

class Månads : public Lokatorform, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Tester, Månads, ::testing::Values(7, 8));

TEST_P(Månads, TestHasALongestContactOfTwoKilometres) {
    frTest& f = StartaKlar(GetParam());
    Kör("dl1abc", "jo62qm");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : DL1ABC  JO62QM  2 Km");
    EXPECT_EQ(INFO("QSOLängd || ' ' || LängstaQSOSträng"), "2 Längsta QSO : DL1ABC  JO62QM  2 Km");
}

TEST_F(Lokatorform, AContactWithoutALocatorLeavesItsPlaceEmpty) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM5ABC    0 Km");
}

TEST_F(Lokatorform, TheNextSaveSeesThatTheLongestContactIsGone) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6xyz", "jo67bq");
    Redigera(0);
    jaNej.push_back(true);
    f.cmdRadera->click();
    EXPECT_EQ(INFO("QSOLängd"), "500");
    Kör("dl1abc", "jo65");
    EXPECT_EQ(INFO("QSOLängd || ' ' || LängstaQSOSträng"), "225 Längsta QSO : SM6XYZ  JO67BQ  225 Km");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM6XYZ  JO67BQ  225 Km");
}

TEST_F(Lokatorform, AnEmptyLogShowsTheTextOfItsTableAlsoAfterARefusedSave) {
    frTest& f = StartaKlar(1);
    Ändra(Logg(), "UPDATE INFO SET LängstaQSOSträng='Längsta QSO : SM1A  JO97  300 Km', QSOLängd=300");
    filval.push_back(Logg());
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM1A  JO97  300 Km");
    SkrivI(f.txtSignal, "qq1abc");
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Tag().titel, "SparaQSO");
    EXPECT_EQ(f.lblLängstaQSO->text(), "Längsta QSO : SM1A  JO97  300 Km");
    EXPECT_EQ(INFO("QSOLängd"), "300");
}

TEST_F(Lokatorform, TheOtherColumnsOfTheInfoRowStayAsAnotherStationLeftThem) {
    StartaKlar(1);
    Ändra(Logg(), "UPDATE INFO SET LöpNr=17, AktivTid='01:00:00'");
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(INFO("LöpNr || ' ' || AktivTid || ' ' || QSOLängd"), "17 01:00:00 500");
}
