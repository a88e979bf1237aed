// The shared databases of the process: opened, closed, opened again, and missing.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include <QFile>

namespace {

/// The locator and the friend database are alike but for their names.
struct Minne {
    const char* fil;
    const char* tabell;
    const char* kolumn;
    platform::Connection Databaser::*anslutning;
    platform::Recordset Databaser::*markör;
    void (*öppna)();
    void (*stäng)();
    const char* text;
    const char* titel;
};

const Minne minnen[] = {
    {"Lokator.dat", "Lokator", "Lokator", &Databaser::LokatorDB, &Databaser::rsLokator, ÖppnaLokator,
     StängLokatorDB, "Ett fel har inträffat vid läsning av Lokator databas.", "ÖppnaLokator"},
    {"Friend.dat", "Friend", "Namn", &Databaser::FriendDB, &Databaser::rsFriend, ÖppnaFriend, StängFriendDB,
     "Ett fel har inträffat vid läsning av Friend databas.", "ÖppnaFriend"}};

void PrintTo(const Minne& minne, std::ostream* ut) { *ut << minne.fil; }

class DatabasProv : public Programprov {
protected:
    void LäggTill(const Minne& minne, const QString& signal, const QString& värde) {
        Ändra(Fil(T(minne.fil)),
              QStringLiteral("INSERT INTO %1 VALUES ('%2', '%3')").arg(T(minne.tabell), signal, värde));
    }
};

class MinneProv : public DatabasProv, public testing::WithParamInterface<Minne> {
protected:
    const Minne& m = GetParam();
    platform::Connection& Anslutning() { return db().*m.anslutning; }
    platform::Recordset& Markör() { return db().*m.markör; }
    const Meddelande fel{T(m.text), T(m.titel)};
};

bool NågonÖppen() {
    const Databaser& d = db();
    for (const platform::Connection* anslutning :
         {&d.DataDB, &d.DXSpottDB, &d.SVDDB, &d.LokatorDB, &d.FriendDB})
        if (anslutning->IsOpen()) return true;
    return false;
}

} // namespace

INSTANTIATE_TEST_SUITE_P(Databaser, MinneProv, testing::ValuesIn(minnen),
                         [](const auto& fall) { return std::string(fall.param.tabell); });

TEST_P(MinneProv, IsClosedUntilALogIsOpened) {
    Starta();
    EXPECT_FALSE(Anslutning().IsOpen());
    EXPECT_FALSE(Markör().IsOpen());
    NyLogg(1, "prov.svk");
    EXPECT_EQ(Anslutning().Path(), Fil(T(m.fil)));
    EXPECT_EQ(Anslutning().CursorLocation(), 3);
    EXPECT_TRUE(Markör().IsOpen());
}

TEST_P(MinneProv, HoldsACallAndItsValue) {
    m.öppna();
    EXPECT_EQ(Markör().FieldNames(), (QStringList{"Signal", T(m.kolumn)}));
    EXPECT_EQ(Markör().RecordCount(), 0);
}

TEST_P(MinneProv, OpenedAgainItHasWhatOthersHaveAddedAndNoFilter) {
    m.öppna();
    LäggTill(m, "SM5ABC", "A");
    LäggTill(m, "SM6XYZ", "B");
    EXPECT_EQ(Markör().RecordCount(), 0);
    Markör().Filter("Signal = 'SM5ABC'");
    m.öppna();
    EXPECT_EQ(Markör().RecordCount(), 2);
    EXPECT_EQ(Markör().Filter(), "");
}

TEST_P(MinneProv, IsOpenedAnewWithEachLog) {
    StartaLogg(1, "ett.svk");
    LäggTill(m, "SM5ABC", "A");
    NyLogg(1, "två.svk");
    EXPECT_EQ(Markör().RecordCount(), 1);
}

TEST_P(MinneProv, ClosesItsCursorWithItsConnectionAndIsClosedTwiceWithoutHarm) {
    m.öppna();
    m.stäng();
    EXPECT_FALSE(Markör().IsOpen());
    EXPECT_FALSE(Anslutning().IsOpen());
    m.stäng();
    EXPECT_FALSE(Anslutning().IsOpen());
}

TEST_P(MinneProv, ClosesWhenTheCursorIsClosedAlready) {
    m.öppna();
    Markör().Close();
    m.stäng();
    EXPECT_FALSE(Anslutning().IsOpen());
}

TEST_P(MinneProv, AMissingFileIsToldAndNotMade) {
    QFile::remove(Fil(T(m.fil)));
    m.öppna();
    EXPECT_EQ(Tag(), fel);
    EXPECT_FALSE(Markör().IsOpen());
    EXPECT_FALSE(QFile::exists(Fil(T(m.fil))));
}

TEST_P(MinneProv, ADamagedFileIsTold) {
    QFile fil(Fil(T(m.fil)));
    ASSERT_TRUE(fil.open(QIODevice::WriteOnly));
    fil.write(QByteArray("inte en databas ").repeated(100));
    fil.close();
    m.öppna();
    EXPECT_EQ(Tag(), fel);
    EXPECT_FALSE(Markör().IsOpen());
}

TEST_P(MinneProv, AFileWithoutItsTableIsToldAndWorksAgainWhenItIsThere) {
    Ändra(Fil(T(m.fil)), QStringLiteral("ALTER TABLE %1 RENAME TO borta").arg(T(m.tabell)));
    m.öppna();
    EXPECT_EQ(Tag(), fel);
    EXPECT_FALSE(Markör().IsOpen());
    Ändra(Fil(T(m.fil)), QStringLiteral("ALTER TABLE borta RENAME TO %1").arg(T(m.tabell)));
    m.öppna();
    EXPECT_TRUE(Markör().IsOpen());
}

TEST_P(MinneProv, AFailureLeavesTheOtherOneOpen) {
    QFile::remove(Fil(T(m.fil)));
    StartaLogg(1);
    EXPECT_EQ(Tag(), fel);
    for (const Minne& minne : minnen) EXPECT_EQ((db().*minne.markör).IsOpen(), QString(minne.fil) != m.fil);
}

// ---- the five together --------------------------------------------------------------------------------

TEST_F(DatabasProv, ClosingClosesAllFiveAndIsRepeatedWithoutHarm) {
    StartaLogg(1);
    StängDatabasar();
    EXPECT_FALSE(NågonÖppen());
    const Databaser& d = db();
    for (const platform::Recordset* markör :
         {&d.rsPrefix, &d.rsDXSpottLogg, &d.rsSVDINI, &d.rsLokator, &d.rsFriend})
        EXPECT_FALSE(markör->IsOpen());
    EXPECT_TRUE(d.TestDB.IsOpen()) << "the log is no shared database";
    StängDatabasar();
    EXPECT_FALSE(NågonÖppen());
}

TEST_F(DatabasProv, ClosingBeforeAnythingWasOpenedDoesNothing) {
    StängDatabasar();
    EXPECT_FALSE(NågonÖppen());
}

TEST_F(DatabasProv, ClosingTakesTheOnesThatAreOpenWhateverTheOthersAre) {
    ÖppnaDatabasar();
    db().rsPrefix.Close();
    db().DXSpottDB.Close();
    ÖppnaFriend();
    StängDatabasar();
    EXPECT_FALSE(NågonÖppen());
}

TEST_F(DatabasProv, OpeningAgainLeavesOpenDatabasesAlone) {
    ÖppnaDatabasar();
    db().rsPrefix.Filter("Prefix = 'SM'");
    ÅteröppnaDatabasar();
    EXPECT_EQ(db().rsPrefix.Filter(), "Prefix = 'SM'");
    StängDatabasar();
    ÅteröppnaDatabasar();
    EXPECT_EQ(db().rsPrefix.Filter(), "");
    EXPECT_EQ(db().rsPrefix.Sort(), "Prefix");
}

TEST_F(DatabasProv, OpeningThatFailsHalfwayLeavesNoneOpenAndCanBeDoneAgain) {
    QFile::rename(Fil("SVD.Dat"), Fil("SVD.borta"));
    EXPECT_THROW(ÅteröppnaDatabasar(), platform::Failure);
    EXPECT_FALSE(NågonÖppen());
    QFile::rename(Fil("SVD.borta"), Fil("SVD.Dat"));
    ÅteröppnaDatabasar();
    EXPECT_TRUE(db().rsSVDINI.IsOpen());
    EXPECT_TRUE(db().rsPrefix.IsOpen());
}

TEST_F(DatabasProv, TheLogBearsTheLocatorThatTheProgramRemembers) {
    StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    const std::vector<std::vector<QString>> väntat = {{"SM5ABC", "JO89WJ"}};
    EXPECT_EQ(Läs(Fil("Lokator.dat"), "SELECT * FROM Lokator"), väntat);
    EXPECT_EQ(LäsEtt(Fil("Friend.dat"), "SELECT count(*) FROM Friend"), "0");
}
