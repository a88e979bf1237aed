#include "recordset_fixture.h"

namespace platform::testing {
namespace {

class SnapshotTest : public OpenLog {};

TEST_F(SnapshotTest, ASelectShowsItsColumnsInItsOrder) {
    Recordset select;
    select.Open("select  [dxcc nr], SIGNAL,[Band ] from testqso", connection_);
    EXPECT_EQ(select.FieldNames(), QStringList({"DXCC Nr", "Signal", "Band "}));
    EXPECT_EQ(select.Field(0).text(), "284");
    select.Filter("[DXCC Nr] = '224'");
    EXPECT_EQ(signs(select), QStringList({"oh2xyz"}));
    EXPECT_THROW(select.Filter("Poäng = 2"), Failure);
    EXPECT_THROW(select.Sort("Tid"), Failure);
    EXPECT_THROW(select.Field("Tid"), Failure);
}

TEST_F(SnapshotTest, ASelectIsReadOnly) {
    Recordset select;
    select.Open("select Signal from TESTQSO", connection_);
    EXPECT_THROW(select.Field("Signal", "X"), Failure);
    EXPECT_THROW(select.AddNew(), Failure);
    EXPECT_THROW(select.Delete(), Failure);
    EXPECT_FALSE(select.EditPending());
    select.Update();
    EXPECT_EQ(select.RecordCount(), 4);
}

TEST_F(SnapshotTest, WhereNotLeavesOutTheTextInAnyCaseAndNull) {
    runSql(path_, "INSERT INTO TESTQSO (Signal, Tid) VALUES (NULL, 'n'), ('', 'e'), ('sm5abc', 's')");
    Recordset select;
    select.Open("select Tid, Signal from TESTQSO where not Signal = 'SM5Abc'", connection_);
    EXPECT_EQ(signs(select), QStringList({"oh2xyz", "LA1ÅB", ""}));
    Recordset other;
    other.Open("select Tid from TESTQSO WHERE NOT Signal = ''", connection_);
    EXPECT_EQ(other.RecordCount(), 5);
}

TEST_F(SnapshotTest, DistinctIgnoresCaseAndAscends) {
    add(log_, "sm5abc");
    add(log_, "Å");
    add(log_, "å");
    add(log_, "OH2XYZ");
    Recordset distinct;
    distinct.Open("select DISTINCT Signal from TESTQSO", connection_);
    EXPECT_EQ(signs(distinct), QStringList({"LA1ÅB", "OH2XYZ", "SM5ABC", "Å"}));
}

TEST_F(SnapshotTest, DistinctKeepsNullAndEmptyApartUnlessWhereDropsThem) {
    runSql(path_, "INSERT INTO TESTQSO (Signal) VALUES (NULL), (''), (NULL), ('')");
    Recordset all;
    all.Open("select DISTINCT Signal from TESTQSO", connection_);
    EXPECT_EQ(signs(all), QStringList({"", "", "LA1ÅB", "oh2xyz", "SM5ABC"}));
    EXPECT_TRUE(all.Field(0).isNull());
    Recordset some;
    some.Open("select DISTINCT Signal from TESTQSO WHERE NOT Signal = ''", connection_);
    EXPECT_EQ(signs(some), QStringList({"LA1ÅB", "oh2xyz", "SM5ABC"}));
}

TEST_F(SnapshotTest, DistinctOfNumbersAscendsAsNumbers) {
    add(log_, "A", 410);
    Recordset distinct;
    distinct.Open("select distinct Poäng from TESTQSO", connection_);
    EXPECT_EQ(column(distinct, "Poäng"), QStringList({"0", "7", "12", "410"}));
    EXPECT_EQ(distinct.Sum("Poäng"), 429);
}

TEST_F(SnapshotTest, DistinctOfSeveralColumns) {
    add(log_, "SM5ABC");
    log_.Field("Band ", "70 cm");
    log_.Update();
    Recordset distinct;
    distinct.Open("select DISTINCT Signal, [Band ] from TESTQSO", connection_);
    EXPECT_EQ(signs(distinct), QStringList({"LA1ÅB", "oh2xyz", "SM5ABC", "SM5ABC"}));
    distinct.Filter("Signal = 'sm5abc' AND [Band ] = '2 M'");
    EXPECT_EQ(distinct.RecordCount(), 1);
}

TEST_F(SnapshotTest, DistinctCanBeFilteredSearchedAndSorted) {
    Recordset distinct;
    distinct.Open("select DISTINCT Signal from TESTQSO WHERE NOT Signal = ''", connection_);
    distinct.Filter("Signal LIKE 'SM5*'");
    EXPECT_EQ(distinct.RecordCount(), 1);
    distinct.Filter("Signal = 'oh2XYZ'");
    EXPECT_EQ(distinct.RecordCount(), 1);
    distinct.Filter("");
    distinct.Sort("Signal DESC");
    EXPECT_EQ(signs(distinct), QStringList({"SM5ABC", "oh2xyz", "LA1ÅB"}));
    distinct.Find("Signal = 'LA1åb'");
    EXPECT_EQ(distinct.AbsolutePosition(), 2);
}

TEST_F(SnapshotTest, DistinctFollowsChangesAtRequery) {
    Recordset distinct;
    distinct.Open("select DISTINCT Signal from TESTQSO", connection_);
    const auto requeried = [&] {
        distinct.Requery();
        return signs(distinct);
    };
    add(log_, "SM5ABC");
    EXPECT_EQ(requeried(), QStringList({"LA1ÅB", "oh2xyz", "SM5ABC"}));
    add(log_, "F5IN");
    EXPECT_EQ(requeried(), QStringList({"F5IN", "LA1ÅB", "oh2xyz", "SM5ABC"}));
    log_.Field("Signal", "OH2XYZ");
    log_.Update();
    EXPECT_EQ(requeried(), QStringList({"LA1ÅB", "OH2XYZ", "SM5ABC"}));
    log_.Delete();
    EXPECT_EQ(requeried(), QStringList({"LA1ÅB", "oh2xyz", "SM5ABC"}));
    log_.Filter("Signal = 'SM5ABC'");
    while (!log_.IsEOF()) log_.Delete();
    EXPECT_EQ(requeried(), QStringList({"LA1ÅB", "oh2xyz"}));
}

TEST_F(SnapshotTest, ABookmarkToADistinctRowLastsAsLongAsItsContent) {
    Recordset distinct;
    distinct.Open("select DISTINCT Signal from TESTQSO", connection_);
    distinct.MoveNext();
    const Bookmark mark = distinct.GetBookmark();
    add(log_, "AAA");
    log_.Filter("Signal = 'oh2xyz'");
    log_.Field("Signal", "OH2XYZ");
    log_.Update();
    distinct.Requery();
    distinct.SetBookmark(mark);
    EXPECT_EQ(distinct.Field(0).text(), "OH2XYZ");
    log_.Delete();
    distinct.Requery();
    EXPECT_THROW(distinct.SetBookmark(mark), Failure);
}

TEST_F(SnapshotTest, OwnChangesShowAtOnceThoseOfOthersAfterRequery) {
    Recordset other;
    other.Open("TESTQSO", connection_);
    Recordset select;
    select.Open("select Signal from TESTQSO", connection_);
    add(log_, "SM0NEW", 1);
    EXPECT_EQ(log_.RecordCount(), 5);
    EXPECT_EQ(other.RecordCount(), 4);
    EXPECT_EQ(select.RecordCount(), 4);
    other.Requery();
    select.Requery();
    EXPECT_EQ(other.RecordCount(), 5);
    EXPECT_EQ(signs(select).last(), "SM0NEW");
    log_.Delete();
    EXPECT_EQ(signs(other).last(), "SM0NEW");
    other.Requery();
    EXPECT_EQ(other.RecordCount(), 4);
}

TEST_F(SnapshotTest, ARecordsetThatIsOpenedLaterSeesAllThereIs) {
    add(log_, "SM0NEW", 1);
    Recordset later;
    later.Open("TESTQSO", connection_);
    EXPECT_EQ(later.RecordCount(), 5);
}

TEST_F(SnapshotTest, RequeryKeepsFilterAndSortAndGoesToTheFirstRow) {
    Recordset other;
    other.Open("TESTQSO", connection_);
    log_.Filter("Signal = 'SM5ABC'");
    log_.Sort("Poäng");
    log_.MoveLast();
    add(other, "sm5abc", 3);
    log_.Requery();
    EXPECT_EQ(log_.Filter(), "Signal = 'SM5ABC'");
    EXPECT_EQ(log_.Sort(), "Poäng");
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"3", "7", "12"}));
    EXPECT_EQ(log_.AbsolutePosition(), 0);
}

TEST_F(SnapshotTest, RequeryTakesOverWhatAnotherConnectionHasWritten) {
    Recordset distinct;
    distinct.Open("select DISTINCT Signal from TESTQSO", connection_);
    log_.Filter("Signal = 'SM5ABC'");
    EXPECT_EQ(log_.RecordCount(), 2);
    runSql(path_,
           "UPDATE TESTQSO SET Signal = 'SM5ABC' WHERE Signal = 'oh2xyz'; "
           "DELETE FROM TESTQSO WHERE Signal LIKE 'LA%'; INSERT INTO TESTQSO (Signal) VALUES ('F5IN')");
    EXPECT_EQ(log_.RecordCount(), 2);
    log_.Requery();
    EXPECT_EQ(log_.RecordCount(), 3);
    distinct.Requery();
    EXPECT_EQ(signs(distinct), QStringList({"F5IN", "SM5ABC"}));
}

TEST_F(SnapshotTest, EachTableNoticesOthersWhateverTableIsRequeriedFirst) {
    Recordset info;
    info.Open("INFO", connection_);
    runSql(path_, "UPDATE INFO SET \"LöpNr\" = 99; DELETE FROM TESTQSO");
    log_.Requery();
    EXPECT_EQ(log_.RecordCount(), 0);
    info.Requery();
    EXPECT_EQ(info.Field("LöpNr").integer(), 99);
}

TEST_F(SnapshotTest, RequeryTogetherShowsWhatOthersHaveWrittenAndTellsEachListener) {
    Recordset info, distinct;
    info.Open("INFO", connection_);
    distinct.Open("select DISTINCT Signal from TESTQSO", connection_);
    int told = 0;
    for (Recordset* rows : {&log_, &info, &distinct}) rows->OnChanged([&told] { ++told; });
    runSql(path_, "UPDATE INFO SET \"LöpNr\" = 99; DELETE FROM TESTQSO WHERE Signal LIKE 'LA%'");
    log_.MoveLast();
    told = 0;
    RequeryTogether({&log_, &info, &distinct});
    EXPECT_EQ(log_.RecordCount(), 3);
    EXPECT_EQ(log_.AbsolutePosition(), 0);
    EXPECT_EQ(info.Field("LöpNr").integer(), 99);
    EXPECT_EQ(signs(distinct), QStringList({"oh2xyz", "SM5ABC"}));
    EXPECT_EQ(told, 3);
}

TEST_F(SnapshotTest, RequeryTogetherWithAClosedOneChangesNone) {
    Recordset closed;
    add(log_, "SM0NEW");
    Recordset select;
    select.Open("select Signal from TESTQSO", connection_);
    add(log_, "SM0TWO");
    EXPECT_THROW(RequeryTogether({&select, &closed}), Failure);
    EXPECT_EQ(select.RecordCount(), 5);
}

TEST_F(SnapshotTest, RequeryAfterAVeryLongAbsenceReadsEverything) {
    Recordset other;
    other.Open("TESTQSO", connection_);
    Recordset distinct;
    distinct.Open("select DISTINCT Signal from TESTQSO", connection_);
    distinct.MoveNext();
    const Bookmark mark = distinct.GetBookmark();
    QByteArray sql = "BEGIN;";
    for (int i = 0; i < 10000; ++i)
        sql += "INSERT INTO TESTQSO (Signal) VALUES ('S" + QByteArray::number(i % 500) + "');";
    runSql(path_, sql + "COMMIT;");
    log_.Requery();
    other.Requery();
    distinct.Requery();
    EXPECT_EQ(log_.RecordCount(), 10004);
    EXPECT_EQ(other.RecordCount(), 10004);
    EXPECT_EQ(distinct.RecordCount(), 503);
    distinct.SetBookmark(mark);
    EXPECT_EQ(distinct.Field(0).text(), "oh2xyz");
    runSql(path_, "DELETE FROM TESTQSO WHERE Signal LIKE 'S%'");
    other.Requery();
    distinct.Requery();
    EXPECT_EQ(signs(other), QStringList({"oh2xyz", "LA1ÅB"}));
    EXPECT_EQ(signs(distinct), QStringList({"LA1ÅB", "oh2xyz"}));
}

TEST_F(SnapshotTest, RequeryTakesOverManySmallChangesOfALongSession) {
    // So large that the changes remembered and those worth taking over one by one are about as many.
    runSql(path_, "CREATE TABLE L (N INTEGER, T TEXT);"
                  "WITH RECURSIVE c(n) AS (SELECT 1 UNION ALL SELECT n+1 FROM c WHERE n<40000) "
                  "INSERT INTO L SELECT n, 'x'||n%7 FROM c;");
    Recordset writer;
    writer.Open("L", connection_);
    Recordset reader;
    reader.Open("L", connection_);
    reader.Filter("T = 'y'");
    for (int i = 0; i < 5030; ++i) {
        writer.Field("T", "y");
        writer.Update();
        writer.MoveNext();
    }
    EXPECT_EQ(reader.RecordCount(), 0);
    reader.Requery();
    EXPECT_EQ(reader.RecordCount(), 5030);
    EXPECT_EQ(reader.Field("N").integer(), 1);
}

TEST_F(SnapshotTest, RequeryKeepsAPendingEdit) {
    log_.MoveNext();
    const Bookmark mark = log_.GetBookmark();
    log_.Field("Signal", "OH2NEW");
    log_.Requery();
    EXPECT_TRUE(log_.EditPending());
    EXPECT_EQ(log_.Field("Signal").text(), "SM5ABC");
    log_.SetBookmark(mark);
    EXPECT_EQ(log_.Field("Signal").text(), "OH2NEW");
    log_.Update();
    EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO WHERE Signal='OH2NEW'"), "1");
}

TEST_F(SnapshotTest, ARequeryThatFailsLeavesTheSnapshot) {
    runSql(path_, "ALTER TABLE TESTQSO DROP COLUMN Tid");
    EXPECT_THROW(log_.Requery(), Failure);
    EXPECT_EQ(log_.RecordCount(), 4);
    EXPECT_EQ(log_.Field("Tid").text(), "17:00:10");
    runSql(path_, "DROP TABLE TESTQSO");
    EXPECT_THROW(log_.Requery(), Failure);
    EXPECT_EQ(log_.RecordCount(), 4);
}

} // namespace
} // namespace platform::testing
