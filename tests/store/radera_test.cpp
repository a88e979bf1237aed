// Deleting the logged contact that stands on the form.
#include "Sparprov.h"

class Radering : public Sparprov {
protected:
    /// Three contacts a minute apart, the first with the call SM1A, and the minute in their time.
    void KörTre(const char* lokator1, const char* lokator2, const char* lokator3) {
        const char* const lokatorer[] = {lokator1, lokator2, lokator3};
        for (int i = 0; i < 3; ++i) {
            nu = QDateTime(QDate(2026, 12, 1), QTime(19, i));
            frTest::instans().TestTimer_Tick();
            Kör(QStringLiteral("sm%1a").arg(i + 1), lokatorer[i]);
        }
    }
    /// The points of a stored contact as an older log would have them.
    static void Poäng(qsizetype plats, int poäng) {
        platform::Recordset& logg = db().rsTESTQSO;
        logg.AbsolutePosition(plats);
        logg.Field(QStringLiteral("Poäng"), poäng);
        logg.Update();
    }
    void Radera(qsizetype plats) {
        Redigera(plats);
        jaNej.push_back(true);
        QTest::mouseClick(frTest::instans().cmdRadera, Qt::LeftButton);
    }
};

TEST_F(Radering, WithoutALoggedContactOnTheFormNothingIsAskedOrDeleted) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    SkrivI(f.txtSignal, "sm6xyz");
    QTest::mouseClick(f.cmdRadera, Qt::LeftButton);
    f.Meny("mnuRedigera_RaderaQSO")->trigger();
    EXPECT_TRUE(frågor.empty());
    EXPECT_EQ(Antal(), 1);
    EXPECT_EQ(f.txtSignal->text(), "SM6XYZ");
}

TEST_F(Radering, AsksWithTheCallAndNoLeavesRowAndForm) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Redigera(0);
    f.txtSignal->setText("SM5ABD"); // what is typed is not what is logged
    jaNej.push_back(false);
    QTest::mouseClick(f.cmdRadera, Qt::LeftButton);
    EXPECT_EQ(frågor, (std::vector<Meddelande>{{"Vill du verkligen radera SM5ABC från loggen?", "Radera"}}));
    EXPECT_EQ(Antal(), 1);
    EXPECT_TRUE(delat.RedigeraQSO);
    EXPECT_EQ(f.txtSignal->text(), "SM5ABD");
}

TEST_F(Radering, YesTakesTheRowAwayAndEmptiesTheForm) {
    frTest& f = StartaKlar(1);
    KörTre("jo89wj", "jo67bq", "jo51aa");
    Radera(1);
    EXPECT_EQ(Rader("Signal"), (QStringList{"SM1A", "SM3A"}));
    EXPECT_FALSE(delat.RedigeraQSO);
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(f.txtDiplom->text(), "");
    EXPECT_EQ(f.lblQSOPoäng->text(), "0");
    EXPECT_EQ(db().rsTESTQSO.Filter(), "");
    EXPECT_EQ(db().rsTESTQSO.Sort(), "Datum, Tid");
}

TEST_F(Radering, TheMenuEntryDoesTheSame) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Redigera(0);
    jaNej.push_back(true);
    f.Meny("mnuRedigera_RaderaQSO")->trigger();
    EXPECT_EQ(Antal(), 0);
}

TEST_F(Radering, TheBoardIsCountedAnew) {
    frTest& f = StartaKlar(1);
    KörTre("jo89wj", "jo89xi", "jo51aa");
    EXPECT_EQ(f.lblTotalPoäng->text(), "2560");
    Radera(2);
    EXPECT_EQ(f.lblQSO->text(), "2");
    EXPECT_EQ(f.lblTotalQSOPoäng->text(), "999");
    EXPECT_EQ(f.lblMultiplar->text(), "500");
    EXPECT_EQ(f.lblDiplom->text(), "1");
    EXPECT_EQ(f.lblTotalPoäng->text(), "1499");
    EXPECT_EQ(f.fgTestData1->Cell(1, 8), "X");
}

TEST_F(Radering, TheLastContactLeavesABoardOfZerosAndNoCross) {
    frTest& f = StartaKlar(7);
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(f.fgTestData1->Cell(1, 2), "X");
    Radera(0);
    EXPECT_EQ(Antal(), 0);
    for (const QLabel* etikett : {f.lblQSO, f.lblTotalQSOPoäng, f.lblMultiplar, f.lblDiplom, f.lblTotalPoäng})
        EXPECT_EQ(etikett->text(), "0") << etikett->objectName().toStdString();
    EXPECT_EQ(f.fgTestData1->Cell(1, 2), "");
}

TEST_F(Radering, TheCallAndItsCountryAreNewAgain) {
    frTest& f = StartaKlar(1);
    Kör("sm5abc", "jo89wj");
    Radera(0);
    SkrivI(f.txtSignal, "sm5abc");
    EXPECT_TRUE(f.lblNyttLand->isVisible());
    EXPECT_EQ(f.frmTQSO->title(), "Tidigare QSO för SM5ABC (0)");
    Tryck(Qt::Key_Tab); // no warning
    EXPECT_FALSE(delat.DubblettFlagga);
}

TEST_F(Radering, SerialLongestContactAndCountryStatusStayAsTheyWere) {
    frTest& f = StartaKlar(7);
    SkrivI(f.txtSignal, "sm5abc");
    SkrivI(f.txtDiplom, "jo89wj");
    f.Meny("mnuRedigera_SparaQSO")->trigger();
    Kör("sm6abc", "jo89wj");
    const QString längsta = INFO("LängstaQSOSträng");
    Radera(1);
    EXPECT_EQ(INFO("LöpNr"), "3");
    EXPECT_EQ(INFO("LängstaQSOSträng"), längsta);
    EXPECT_EQ(LäsEtt(Logg(), "SELECT count(*) FROM TESTDXCC WHERE CW='W'"), "1");
    Kör("sm7abc", "jo89wj");
    EXPECT_EQ(Rader("Signal, LöpNrSR"), (QStringList{"SM5ABC|01", "SM7ABC|03"}));
}

// ---- the two points of a square -----------------------------------------------------------------------

class TvåPoäng : public Radering, public ::testing::WithParamInterface<int> {};

TEST_P(TvåPoäng, GoToTheNextContactOfTheSquareInContests3To5Only) {
    StartaKlar(GetParam());
    KörTre("jo89wj", "jo89aa", "jo89bb");
    Poäng(0, 2);
    Poäng(1, 0);
    Poäng(2, 0);
    Radera(0);
    const bool ärver = GetParam() >= 3 && GetParam() <= 5;
    EXPECT_EQ(Rader("Signal, Poäng"), (QStringList{ärver ? "SM2A|2" : "SM2A|0", "SM3A|0"}));
    EXPECT_EQ(frTest::instans().lblTotalQSOPoäng->text(), ärver ? "2" : "0");
}
INSTANTIATE_TEST_SUITE_P(Tester, TvåPoäng, ::testing::Values(0, 1, 2, 3, 4, 5, 6, 7, 8, 14));

struct Arvsfall {
    const char* namn;
    std::array<const char*, 3> lokatorer;
    std::array<int, 3> poäng;
    int raderad;
    QStringList efter; ///< Signal|Poäng
};
void PrintTo(const Arvsfall& fall, std::ostream* ut) { *ut << fall.namn; }
class Arvet : public Radering, public ::testing::WithParamInterface<Arvsfall> {};

TEST_P(Arvet, FollowsTheSquareOfTheDeletedRow) {
    const Arvsfall& fall = GetParam();
    frTest& f = StartaKlar(4);
    KörTre(fall.lokatorer[0], fall.lokatorer[1], fall.lokatorer[2]);
    for (size_t i = 0; i < 3; ++i) Poäng(static_cast<qsizetype>(i), fall.poäng[i]);
    Radera(fall.raderad);
    EXPECT_EQ(Rader("Signal, Poäng"), fall.efter);
    EXPECT_EQ(f.lblQSO->text(), "2") << "no filter hides a row from the count";
    EXPECT_EQ(db().rsTESTQSO.Filter(), "");
}
INSTANTIATE_TEST_SUITE_P(
    Fall, Arvet,
    ::testing::Values(
        Arvsfall{"another row of the square has them",
                 {"jo89wj", "jo89aa", "jo89bb"},
                 {2, 0, 2},
                 0,
                 {"SM2A|0", "SM3A|2"}},
        Arvsfall{"the last of its square leaves nobody to take over",
                 {"jo89wj", "jo67bq", "jo66aa"},
                 {2, 0, 0},
                 0,
                 {"SM2A|0", "SM3A|0"}},
        Arvsfall{"a square in four characters is the same",
                 {"jo89wj", "jo67bq", "jo89"},
                 {2, 0, 0},
                 0,
                 {"SM2A|0", "SM3A|2"}},
        Arvsfall{"and so is a longer one for four characters",
                 {"jo89", "jo89wj", "jo66aa"},
                 {2, 0, 0},
                 0,
                 {"SM2A|2", "SM3A|0"}},
        Arvsfall{"fewer than four characters name no square",
                 {"1jo", "jo89wj", "jo89aa"},
                 {2, 0, 0},
                 0,
                 {"SM2A|0", "SM3A|0"}},
        Arvsfall{"no exchange at all", {"", "jo89wj", "jo89aa"}, {2, 0, 0}, 0, {"SM2A|0", "SM3A|0"}},
        // The step does not know of distances: they are no two points, so the first row loses its own.
        Arvsfall{"rows with kilometres",
                 {"jo89wj", "jo89aa", "jo89bb"},
                 {500, 400, 410},
                 0,
                 {"SM2A|2", "SM3A|410"}},
        Arvsfall{"a row without the two points goes, and nobody has them",
                 {"jo89wj", "jo89aa", "jo89bb"},
                 {500, 400, 410},
                 2,
                 {"SM1A|2", "SM2A|400"}}));

TEST_F(Radering, TheFirstContactOfASquareIsTheEarliestAndNotTheOneStoredFirst) {
    frTest& f = StartaKlar(3);
    const std::pair<const char*, int> körda[] = {{"sm1a", 0}, {"sm2a", 9}, {"sm3a", 5}};
    for (const auto& [signal, minut] : körda) {
        nu = QDateTime(QDate(2026, 12, 1), QTime(19, minut));
        f.TestTimer_Tick();
        Kör(signal, "jo89wj");
    }
    Radera(0);
    EXPECT_EQ(Rader("Signal, Poäng"), (QStringList{"SM2A|500", "SM3A|2"}));
}

TEST_F(Radering, OfARowThatCannotBeDeletedFailsWithoutAHandlerAndTheLogIsWhole) {
    frTest& f = StartaKlar(1);
    KörTre("jo89wj", "jo67bq", "jo51aa");
    Ändra(Logg(), "CREATE TRIGGER nej BEFORE DELETE ON TESTQSO BEGIN SELECT RAISE(ABORT, 'nej'); END");
    Redigera(1);
    jaNej.push_back(true);
    EXPECT_THROW(f.cmdRadera_Click(), platform::Failure);
    EXPECT_EQ(Rader("Signal"), (QStringList{"SM1A", "SM2A", "SM3A"}));
}

TEST_F(Radering, OfARowThatAnotherStationHasChangedFailsAndTheChangeStays) {
    frTest& f = StartaKlar(1);
    KörTre("jo89wj", "jo67bq", "jo51aa");
    Redigera(1);
    Ändra(Logg(), "UPDATE TESTQSO SET Namn='Otto' WHERE Signal='SM2A'");
    jaNej.push_back(true);
    EXPECT_THROW(f.cmdRadera_Click(), platform::Failure);
    EXPECT_EQ(Rader("Signal, Namn"), (QStringList{"SM1A|", "SM2A|Otto", "SM3A|"}));
}
