// Earlier contacts with a station, and what each contest takes for a duplicate.
#include "store/Dubbletter.h"

#include "store/frEditorTest.h"
#include "support/Programprov.h"
#include "support/ToPrint.h"
#include "support/Varningsvakt.h"

namespace {

class DubblettProv : public Programprov {
protected:
    /// The band that a contest starts on.
    static QString Band() { return frTest::instans().cmbBand->Text(); }

    /// A call on the form and the check of it, the focus left where it is.
    static void Kolla(const QString& signal) {
        frTest& f = frTest::instans();
        f.txtNamn->setFocus();
        f.txtSignal->setText(signal);
        KollaTidigare();
    }
    std::vector<QString> Rad(const QString& signal, const QString& kolumner) const {
        const auto rader = Läs(Logg(), "SELECT " + kolumner + " FROM TESTQSO WHERE Signal='" + signal +
                                           "' ORDER BY rowid DESC");
        return rader.empty() ? std::vector<QString>() : rader.front();
    }
    /// Leaves a call by Tab, closing the warnings by their frames, and types a locator.
    static size_t SkrivVarnad(const QString& signal, const QString& lokator) {
        frTest& f = frTest::instans();
        const Varningsvakt vakt(false);
        EXPECT_TRUE(HarFokus(f.txtSignal));
        SkrivI(f.txtSignal, signal);
        Tryck(Qt::Key_Tab);
        EXPECT_TRUE(HarFokus(f.txtRSTM));
        f.txtDiplom->setFocus();
        f.txtDiplom->selectAll();
        Skriv(lokator);
        return vakt.Antal();
    }
};

QColor Notfärg() { return frEditorTest::instans().txtNotering->palette().color(QPalette::Text); }

/// How often a contact in the log makes the same call be warned of.
struct Fall {
    int test;
    size_t sammaBand; ///< the earlier contact was on the present band
    size_t annatBand; ///< it was on another
};

class DubblettRegelProv : public DubblettProv, public testing::WithParamInterface<Fall> {};

} // namespace

// ---- the grid of earlier contacts ---------------------------------------------------------------------

TEST_F(DubblettProv, EarlierContactsAreCountedInTheFrameAndShownByDateAndTime) {
    frTest& f = StartaLogg(7);
    Loggad("SM5ABC", "80 M");
    Loggad("SM5ABC", "40 M");
    Loggad("SM5ABC/P", "40 M");
    Ändra(Logg(),
          "UPDATE TESTQSO SET Tid='19:00:00', Frekvens='7,010,00', Sänt='599 07', Mottaget='579 12' WHERE "
          "\"Band \"='40 M'");
    f.UppdateraTest();
    f.txtSignal->setText("SM5ABC");
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (2)");
    f.dgTidigareQSO->Refresh();
    const QAbstractItemModel& modell = *f.dgTidigareQSO->model();
    ASSERT_EQ(modell.rowCount(), 2);
    const char* const väntat[][2] = {{"Datum", "2026-11-30"}, {"Tid", "19:00:00"},  {"Frekvens", "7,010,00"},
                                     {"Signal", "SM5ABC"},    {"Trafik", "CW"},     {"Band", "40 M"},
                                     {"Sänt", "599 07"},      {"Motaget", "579 12"}};
    ASSERT_EQ(modell.columnCount(), 8);
    for (int i = 0; i < 8; ++i) {
        EXPECT_EQ(modell.headerData(i, Qt::Horizontal).toString(), väntat[i][0]);
        EXPECT_EQ(modell.index(0, i).data().toString(), väntat[i][1]) << "the earlier of the two comes first";
    }
    EXPECT_EQ(modell.index(1, 1).data().toString(), "20:00:00");
}

TEST_F(DubblettProv, AnEmptyCallShowsNothingAndLeavesTheFrame) {
    frTest& f = StartaLogg(7);
    f.txtSignal->setText("SM5ABC");
    f.txtSignal->clear();
    VisaTestQSO();
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (0)");
    EXPECT_EQ(db().rsTidigare.Filter(), "Signal = 'SM5ABC'");
}

TEST_F(DubblettProv, AnApostropheInTheCallEndsTheProgramWithItsLogIntact) {
    frTest& f = StartaLogg(7);
    SkrivI(f.txtSignal, "sm5");
    EXPECT_THROW(Skriv("'"), ProcessSlut);
    EXPECT_EQ(slut, 1);
    EXPECT_EQ(LäsEtt(Logg(), "PRAGMA integrity_check"), "ok");
}

// ---- what is a duplicate ------------------------------------------------------------------------------

TEST_P(DubblettRegelProv, AnEarlierContactWarnsAsOftenAsTheContestAsks) {
    const auto& [test, sammaBand, annatBand] = GetParam();
    StartaLogg(test);
    Loggad("DL1AA", Band(), "CW");
    Loggad("DL1BB", Band(), "RTTY");
    Loggad("DL1CC", "6 M" == Band() ? "160 M" : "6 M", "SSB");
    const struct {
        const char* signal;
        size_t varningar;
    } fall[] = {{"DL1AA", sammaBand}, {"DL1BB", sammaBand}, {"DL1CC", annatBand},
                {"DL1AA/P", 0},       {"DL1A", 0},          {"DL9ZZ", 0}};
    for (const auto& [signal, varningar] : fall) {
        SCOPED_TRACE(signal);
        const Varningsvakt vakt(false);
        Kolla(signal);
        EXPECT_EQ(vakt.Antal(), varningar);
        EXPECT_EQ(delat.DubblettFlagga, varningar > 0);
        EXPECT_EQ(frTest::instans().txtDubblett->text(), varningar > 0 ? "D" : "");
        frTest::instans().RensaTest();
    }
}

TEST_P(DubblettRegelProv, OKEndsTheCheckWithOneWarning) {
    const auto& [test, sammaBand, annatBand] = GetParam();
    frTest& f = StartaLogg(test);
    Loggad("DL1AA", Band());
    const Varningsvakt vakt(true);
    Kolla("DL1AA");
    EXPECT_EQ(vakt.Antal(), 1U);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(f.txtDubblett->text(), "");
    EXPECT_FALSE(delat.DubblettFlagga);
}

TEST_P(DubblettRegelProv, AnEmptyLogHasNoDuplicate) {
    StartaLogg(GetParam().test);
    Kolla("DL1AA");
    EXPECT_FALSE(delat.DubblettFlagga);
    EXPECT_EQ(frTest::instans().txtDubblett->text(), "");
    EXPECT_EQ(frEditorTest::instans().txtNotering->text(), "");
}

TEST_P(DubblettRegelProv, TheCheckLeavesTheGridOnThePresentBandButInContest0) {
    const int test = GetParam().test;
    StartaLogg(test);
    Kolla("DL1AA");
    EXPECT_EQ(db().rsTidigare.Filter(),
              test == 0 ? QString("Signal = 'DL1AA'") : "Signal = 'DL1AA' AND [Band ] = '" + Band() + "'");
}

TEST_P(DubblettRegelProv, TheCheckLiftsTheFilterOfTheAwards) {
    StartaLogg(GetParam().test);
    db().rsDiplom.Filter("Diplom = 'JO89'");
    Kolla("DL1AA");
    EXPECT_EQ(db().rsDiplom.Filter(), "");
}

// Contests 1 to 5 ask the whole log and then the band; SAC asks the band twice.
INSTANTIATE_TEST_SUITE_P(AllaTester, DubblettRegelProv,
                         testing::Values(Fall{0, 1, 1}, Fall{1, 2, 1}, Fall{2, 2, 1}, Fall{3, 2, 1},
                                         Fall{4, 2, 1}, Fall{5, 2, 1}, Fall{6, 1, 0}, Fall{7, 1, 0},
                                         Fall{8, 1, 0}, Fall{9, 2, 0}, Fall{10, 2, 0}, Fall{11, 1, 0},
                                         Fall{12, 1, 0}, Fall{13, 1, 0}, Fall{14, 1, 0}),
                         [](const auto& fall) { return "Test" + std::to_string(fall.param.test); });

TEST_F(DubblettProv, ANumberOutsideTheCatalogueAsksTheBand) {
    StartaLogg(7);
    Loggad("DL1AA", "80 M");
    Loggad("DL1BB", "40 M");
    for (const int test : {15, 99, -1}) {
        delat.AktuelltTest = test;
        const Varningsvakt vakt(false);
        Kolla("DL1AA");
        EXPECT_TRUE(delat.DubblettFlagga) << test;
        Kolla("DL1BB");
        EXPECT_FALSE(delat.DubblettFlagga) << test;
        EXPECT_EQ(vakt.Antal(), 1U);
    }
    delat.AktuelltTest = 7;
}

TEST_F(DubblettProv, TheBandIsTheOneThatStandsInTheBox) {
    frTest& f = StartaLogg(7);
    Loggad("DL1AA", "40 M");
    Kolla("DL1AA");
    EXPECT_FALSE(delat.DubblettFlagga);
    f.cmbBand->setCurrentIndex(1);
    const Varningsvakt vakt(false);
    Kolla("DL1AA");
    EXPECT_TRUE(delat.DubblettFlagga);
    EXPECT_EQ(vakt.Antal(), 1U);
}

TEST_F(DubblettProv, LettersComparePlain) {
    StartaLogg(7);
    Loggad("dl1aa", "80 m");
    const Varningsvakt vakt(false);
    Kolla("DL1AA");
    EXPECT_TRUE(delat.DubblettFlagga);
}

TEST_F(DubblettProv, WithTheFlagOfTheLogDownNothingIsChecked) {
    StartaLogg(7);
    Loggad("DL1AA", "80 M");
    delat.DubblettFlagga = true;
    delat.TestLoggÖppen = false;
    Kolla("DL1BB");
    EXPECT_TRUE(delat.DubblettFlagga) << "not even cleared";
    delat.TestLoggÖppen = true;
}

TEST_F(DubblettProv, WhileAWarningIsUpTheContactIsMarkedWithoutAnother) {
    for (const int test : {1, 9}) {
        if (test == 1)
            StartaLogg(test);
        else
            NyLogg(test, "nio.svk");
        Loggad("SM5ABC", Band());
        delat.VarningUppe = true;
        Kolla("SM5ABC");
        EXPECT_TRUE(delat.DubblettFlagga);
        EXPECT_EQ(frTest::instans().txtDubblett->text(), "D");
        delat.VarningUppe = false;
    }
}

// ---- SAC ----------------------------------------------------------------------------------------------

TEST_F(DubblettProv, ANordicStationIsWarnedOfAndNotMarked) {
    for (const int test : {9, 10}) {
        if (test == 9)
            StartaLogg(test);
        else
            NyLogg(test, "tio.svk");
        const Varningsvakt vakt(false);
        Kolla("SM5ABC");
        EXPECT_EQ(vakt.Antal(), 1U) << test;
        EXPECT_FALSE(delat.DubblettFlagga);
        EXPECT_EQ(frTest::instans().txtDubblett->text(), "");
    }
}

TEST_F(DubblettProv, ANordicDuplicateIsWarnedOfForBothReasons) {
    StartaLogg(9);
    Loggad("SM5ABC", "80 M");
    const Varningsvakt vakt(false);
    Kolla("SM5ABC");
    EXPECT_EQ(vakt.Texter(), (std::vector<QString>{"EJ GILTIG !!!", "EJ GILTIG !!!", "EJ GILTIG !!!"}));
    EXPECT_TRUE(delat.DubblettFlagga);
}

TEST_F(DubblettProv, OKOnANordicDuplicateEndsTheCheck) {
    StartaLogg(9);
    Loggad("SM5ABC", "80 M");
    const Varningsvakt vakt(true);
    Kolla("SM5ABC");
    EXPECT_EQ(vakt.Antal(), 1U) << "the form is empty then, so nothing is Nordic any more";
}

// ---- the mark -----------------------------------------------------------------------------------------

TEST_F(DubblettProv, AMarkedContactCarriesARedNote) {
    frTest& f = StartaLogg(7);
    Loggad("DL1AA", "80 M");
    EXPECT_NE(Notfärg(), QColor(255, 0, 0));
    const Varningsvakt vakt(false);
    Kolla("DL1AA");
    EXPECT_EQ(frEditorTest::instans().txtNotering->text(), "DUBBLETT");
    EXPECT_EQ(Notfärg(), QColor(255, 0, 0));
    EXPECT_FALSE(frEditorTest::instans().isVisible());
    EXPECT_EQ(f.txtNotering->text(), "") << "the note of the form plays no part";
}

TEST_F(DubblettProv, ADuplicateThatIsKeptIsSavedWithItsMarkAndWithoutPoints) {
    StartaLogg(1);
    Loggad("DL1AA", "2 M");
    EXPECT_EQ(SkrivVarnad("dl1aa", "jo50aa"), 2U) << "one for the log, one for the band";
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rad("DL1AA", "Dubblett, Notering, Poäng, Multiplar"),
              (std::vector<QString>{"D", "DUBBLETT", "0", "JO50AA"}));
}

TEST_F(DubblettProv, AfterAKeptDuplicateTheNextContactTakesOverTheNoteButNotTheMark) {
    StartaLogg(1);
    Loggad("DL1AA", "2 M");
    SkrivVarnad("dl1aa", "jo50aa");
    Tryck(Qt::Key_Return);
    Kör("dl2bb", "jo51aa");
    EXPECT_EQ(Rad("DL2BB", "Dubblett, Notering"), (std::vector<QString>{"", "DUBBLETT"}));
    frEditorTest::instans().txtNotering->clear();
    Kör("dl3cc", "jo52aa");
    EXPECT_EQ(Rad("DL3CC", "Dubblett, Notering"), (std::vector<QString>{"", ""}));
}

TEST_F(DubblettProv, ACallThatIsCorrectedLosesTheFlagAndKeepsTheMark) {
    frTest& f = StartaLogg(7);
    Loggad("DL1AA", "80 M");
    EXPECT_EQ(SkrivVarnad("dl1aa", ""), 1U);
    SkrivI(f.txtSignal, "dl1ab");
    Tryck(Qt::Key_Tab);
    EXPECT_FALSE(delat.DubblettFlagga);
    EXPECT_EQ(f.txtDubblett->text(), "D") << "only the clearing of the form takes it away";
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Rad("DL1AB", "Dubblett, Poäng"), (std::vector<QString>{"D", "2"}));
    EXPECT_EQ(f.txtDubblett->text(), "");
}

TEST_F(DubblettProv, AContactThatWasThrownAwayLeavesItsNoteBehind) {
    frTest& f = StartaLogg(7);
    Loggad("DL1AA", "80 M");
    const Varningsvakt vakt(true);
    SkrivI(f.txtSignal, "dl1aa");
    Tryck(Qt::Key_Tab);
    EXPECT_TRUE(HarFokus(f.txtSignal));
    Kör("dl2bb", "jo51aa");
    EXPECT_EQ(Rad("DL2BB", "Dubblett, Notering"), (std::vector<QString>{"", "DUBBLETT"}));
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTQSO"), "2");
}
