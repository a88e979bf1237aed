#include "recordset_fixture.h"

namespace platform::testing {
namespace {

class WriteTest : public OpenLog {};

TEST_F(WriteTest, ANewRowIsAllNullUntilItIsFilledIn) {
    log_.AddNew();
    EXPECT_TRUE(log_.EditPending());
    for (int i = 0; i < 6; ++i) EXPECT_TRUE(log_.Field(i).isNull());
    EXPECT_FALSE(log_.IsEOF());
    EXPECT_FALSE(log_.IsBOF());
    EXPECT_EQ(log_.RecordCount(), 4);
    EXPECT_EQ(log_.AbsolutePosition(), -1);
    EXPECT_THROW(log_.GetBookmark(), Failure);
    log_.Field("signal", "SM0NEW");
    EXPECT_EQ(sign(), "SM0NEW");
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "4");
}

TEST_F(WriteTest, UpdateWritesTheNewRowAndMakesItCurrent) {
    log_.Sort("Signal");
    add(log_, "AA1A", 5);
    EXPECT_FALSE(log_.EditPending());
    EXPECT_EQ(sign(), "AA1A");
    EXPECT_EQ(log_.AbsolutePosition(), 0);
    EXPECT_EQ(log_.RecordCount(), 5);
    EXPECT_EQ(
        stored("SELECT Signal||Poäng||typeof(Poäng)||coalesce(Tid,'null') FROM TESTQSO WHERE Signal='AA1A'"),
        "AA1A5integernull");
}

TEST_F(WriteTest, ARowOfNullsCanBeWritten) {
    log_.AddNew();
    log_.Update();
    EXPECT_EQ(log_.RecordCount(), 5);
    EXPECT_TRUE(log_.Field("Signal").isNull());
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO WHERE Signal IS NULL"), "1");
}

TEST_F(WriteTest, ANewRowThatTheFilterWouldHideStaysInSightUntilTheFilterIsSetAnew) {
    log_.Filter("Signal = 'SM5ABC'");
    add(log_, "AA1A");
    EXPECT_EQ(signs(log_), QStringList({"SM5ABC", "SM5ABC", "AA1A"}));
    EXPECT_EQ(log_.RecordCount(), 3);
    EXPECT_EQ(log_.AbsolutePosition(), 2);
    log_.Sort("Signal");
    EXPECT_EQ(signs(log_), QStringList({"AA1A", "SM5ABC", "SM5ABC"}));
    log_.Filter("Signal = 'SM5ABC'");
    EXPECT_EQ(signs(log_), QStringList({"SM5ABC", "SM5ABC"}));
}

TEST_F(WriteTest, AnEditedRowThatTheFilterWouldHideStaysInSightUntilTheFilterIsSetAnew) {
    log_.Filter("Signal = 'SM5ABC'");
    log_.Field("Signal", "SM5ABD");
    log_.Update();
    EXPECT_EQ(signs(log_), QStringList({"SM5ABD", "SM5ABC"}));
    log_.Field("Signal", "SM5ABC");
    log_.Update();
    log_.Field("Signal", "SM5ABE");
    log_.Update();
    EXPECT_EQ(signs(log_), QStringList({"SM5ABE", "SM5ABC"}));
    log_.Filter("Signal = 'SM5ABC'");
    EXPECT_EQ(log_.RecordCount(), 1);
}

TEST_F(WriteTest, ARowWrittenAfterTheFilterWasSetIsInSightThoughNothingWasReadBetween) {
    log_.Field("Signal", "PENDING");
    log_.Filter("Signal = 'oh2xyz'");
    log_.Update();
    EXPECT_EQ(log_.RecordCount(), 2);
    EXPECT_EQ(signs(log_), QStringList({"PENDING", "oh2xyz"}));
}

TEST_F(WriteTest, AKeptRowStaysInSightAmongVeryManyHits) {
    QByteArray sql = "BEGIN;";
    for (int i = 0; i < 3000; ++i) {
        sql += "INSERT INTO TESTQSO (Signal, \"Band \", Tid) VALUES ('S" + QByteArray::number(i) +
               "','2 M','" + QByteArray::number(i * 7919 % 3001) + "');";
    }
    runSql(path_, sql + "COMMIT;");
    log_.Requery();
    log_.Filter("[Band ] = '2 M'");
    EXPECT_EQ(log_.RecordCount(), 3002);
    log_.Field("Band ", "6 M");
    log_.Update();
    EXPECT_EQ(log_.RecordCount(), 3002);
    log_.Sort("Tid DESC");
    EXPECT_EQ(log_.RecordCount(), 3002);
    EXPECT_EQ(column(log_, "Band ").count("6 M"), 1);
    QStringList times = column(log_, "Tid");
    QStringList ordered = times;
    std::sort(ordered.begin(), ordered.end(), std::greater<>());
    EXPECT_EQ(times, ordered);
}

TEST_F(WriteTest, UpdateWithoutAPendingEditDoesNothing) {
    log_.MoveLast();
    log_.MoveNext();
    log_.Update();
    EXPECT_TRUE(log_.IsEOF());
    log_.CancelUpdate();
    EXPECT_TRUE(log_.IsEOF());
}

TEST_F(WriteTest, OnlyTheColumnsThatDifferAreWritten) {
    runSql(path_, R"(CREATE TABLE HEARD (What TEXT);
        CREATE TRIGGER a AFTER UPDATE OF Signal ON TESTQSO BEGIN INSERT INTO HEARD VALUES ('Signal'); END;
        CREATE TRIGGER b AFTER UPDATE OF Tid ON TESTQSO BEGIN INSERT INTO HEARD VALUES ('Tid'); END;
        CREATE TRIGGER c AFTER UPDATE OF "Poäng" ON TESTQSO BEGIN INSERT INTO HEARD VALUES ('Poäng'); END;)");
    log_.Field("Signal", "SM5ABC");
    log_.Field("Tid", "00:00:00");
    log_.Field("Poäng", "12");
    log_.Update();
    EXPECT_EQ(stored("SELECT group_concat(What) FROM HEARD"), "Tid");
}

TEST_F(WriteTest, AnEditThatChangesNothingWritesNothing) {
    const QString before = stored("PRAGMA schema_version");
    QFile file(path_);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray bytes = file.readAll();
    log_.Field("Signal", "SM5ABD");
    log_.Field("Signal", "SM5ABC");
    log_.Field("Poäng", 12.0);
    EXPECT_TRUE(log_.EditPending());
    log_.Update();
    EXPECT_FALSE(log_.EditPending());
    file.seek(0);
    EXPECT_EQ(file.readAll(), bytes);
    EXPECT_EQ(sign(), "SM5ABC");
}

TEST_F(WriteTest, AChangeOfCaseIsAChange) {
    log_.Field("Signal", "sm5abc");
    log_.Update();
    EXPECT_EQ(stored("SELECT Signal FROM TESTQSO LIMIT 1"), "sm5abc");
    EXPECT_EQ(sign(), "sm5abc");
}

TEST_F(WriteTest, ANumberColumnTakesNumbersOnly) {
    log_.Field("Poäng", "410");
    EXPECT_EQ(log_.Field("Poäng"), Value(410));
    log_.Field("Poäng", " 2.5 ");
    EXPECT_EQ(log_.Field("Poäng"), Value(2.5));
    for (const Value& value :
         {Value(""), Value(" "), Value("abc"), Value("12 km"), Value("1,5"), Value("nan"),
          Value(std::numeric_limits<double>::quiet_NaN()), Value(std::numeric_limits<double>::infinity())}) {
        EXPECT_THROW(log_.Field("Poäng", value), Failure) << value.text().toStdString();
    }
    EXPECT_EQ(log_.Field("Poäng"), Value(2.5));
    log_.Field("Poäng", Value());
    EXPECT_TRUE(log_.Field("Poäng").isNull());
    log_.Update();
    EXPECT_EQ(stored("SELECT typeof(Poäng) FROM TESTQSO LIMIT 1"), "null");
}

TEST_F(WriteTest, ATextThatIsNoNumberStartsNoEdit) {
    EXPECT_THROW(log_.Field("Poäng", "abc"), Failure);
    EXPECT_THROW(log_.Field("NoColumn", "abc"), Failure);
    EXPECT_FALSE(log_.EditPending());
}

TEST_F(WriteTest, ATextColumnTakesANumberAsItsText) {
    log_.Field("Signal", 73);
    log_.Field("Tid", 0.5);
    EXPECT_EQ(log_.Field("Signal"), Value("73"));
    log_.Update();
    EXPECT_EQ(stored("SELECT Signal||typeof(Signal)||Tid FROM TESTQSO LIMIT 1"), "73text0.5");
}

TEST_F(WriteTest, WholeNumbersAreStoredAsIntegersOthersAsReals) {
    for (const auto& [value, type] : {std::pair{Value(3.0), "integer"},
                                      {Value(-0.0), "integer"},
                                      {Value(2.5), "real"},
                                      {Value(1e15), "integer"}}) {
        log_.Field("Poäng", value);
        log_.Update();
        log_.Field("Poäng", 777);
        log_.CancelUpdate();
        EXPECT_EQ(stored("SELECT typeof(Poäng) FROM TESTQSO LIMIT 1"), type);
        EXPECT_EQ(log_.Field("Poäng"), value);
    }
}

TEST_F(WriteTest, ALargeNumberComesBackAsItWas) {
    log_.Field("Poäng", 1e300);
    log_.Update();
    log_.Field("Signal", "X");
    log_.Update();
    EXPECT_EQ(log_.Field("Poäng"), Value(1e300));
}

TEST_F(WriteTest, CancelUpdateDropsTheEdit) {
    log_.MoveNext();
    log_.Field("Signal", "X");
    log_.CancelUpdate();
    EXPECT_FALSE(log_.EditPending());
    EXPECT_EQ(sign(), "oh2xyz");
    log_.AddNew();
    log_.Field("Signal", "Y");
    log_.CancelUpdate();
    EXPECT_EQ(sign(), "oh2xyz");
    EXPECT_EQ(log_.RecordCount(), 4);
}

TEST_F(WriteTest, CancelUpdateGoesBackBehindTheLastAndBeforeTheFirst) {
    log_.MoveLast();
    log_.MoveNext();
    log_.AddNew();
    log_.CancelUpdate();
    EXPECT_TRUE(log_.IsEOF());
    EXPECT_FALSE(log_.IsBOF());
    log_.MoveFirst();
    log_.MovePrevious();
    log_.AddNew();
    log_.CancelUpdate();
    EXPECT_TRUE(log_.IsBOF());
    EXPECT_FALSE(log_.IsEOF());
}

TEST_F(WriteTest, CancelUpdateOfTheFirstRowOfAnEmptyTableEndsAtBofAndEof) {
    runSql(path_, "DELETE FROM TESTQSO");
    log_.Requery();
    log_.AddNew();
    EXPECT_FALSE(log_.IsEOF());
    log_.CancelUpdate();
    EXPECT_TRUE(log_.IsEOF());
    EXPECT_TRUE(log_.IsBOF());
}

TEST_F(WriteTest, AddNewWritesARowThatIsStillPending) {
    log_.AddNew();
    log_.Field("Signal", "FIRST");
    log_.AddNew();
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO WHERE Signal='FIRST'"), "1");
    EXPECT_TRUE(log_.Field("Signal").isNull());
    log_.Field("Signal", "SECOND");
    log_.Update();
    EXPECT_EQ(signs(log_).mid(4), QStringList({"FIRST", "SECOND"}));
}

TEST_F(WriteTest, MovingFilteringAndSortingLeaveThePendingRowAlone) {
    log_.AddNew();
    log_.Field("Signal", "LATER");
    log_.MoveFirst();
    EXPECT_EQ(sign(), "SM5ABC");
    log_.MoveNext();
    log_.Filter("Poäng = 7");
    log_.Sort("Tid");
    log_.Find("Poäng = 7");
    EXPECT_TRUE(log_.EditPending());
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "4");
    log_.Update();
    EXPECT_EQ(sign(), "LATER");
    EXPECT_EQ(signs(log_), QStringList({"LATER", "SM5ABC"}));
}

TEST_F(WriteTest, ThePendingRowShowsItsEditWhenTheCursorComesBack) {
    log_.Field("Signal", "EDITED");
    log_.MoveNext();
    EXPECT_EQ(sign(), "oh2xyz");
    log_.MovePrevious();
    EXPECT_EQ(sign(), "EDITED");
    log_.Field("Tid", "1");
    log_.Update();
    EXPECT_EQ(stored("SELECT Signal||Tid FROM TESTQSO LIMIT 1"), "EDITED1");
}

TEST_F(WriteTest, AnEditOfAnotherRowWritesThePendingOneFirst) {
    log_.AddNew();
    log_.Field("Signal", "PENDING");
    log_.MoveFirst();
    log_.Field("Signal", "OTHER");
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO WHERE Signal='PENDING'"), "1");
    EXPECT_EQ(log_.AbsolutePosition(), 0);
    log_.Update();
    EXPECT_EQ(signs(log_), QStringList({"OTHER", "oh2xyz", "LA1ÅB", "SM5ABC", "PENDING"}));
}

TEST_F(WriteTest, WithoutACurrentRowAnAssignmentFailsAndLeavesThePendingOne) {
    log_.Field("Signal", "PENDING");
    log_.MoveLast();
    log_.MoveNext();
    EXPECT_THROW(log_.Field("Signal", "X"), Failure);
    log_.Update();
    EXPECT_EQ(sign(), "PENDING");
    EXPECT_EQ(log_.AbsolutePosition(), 0);
}

TEST_F(WriteTest, AFieldMayBeAssignedFromTheSameRow) {
    log_.Field("Tid", log_.Field("Signal"));
    log_.Field("Datum", log_.Field("Tid"));
    log_.Update();
    EXPECT_EQ(stored("SELECT Tid||Datum FROM TESTQSO LIMIT 1"), "SM5ABCSM5ABC");
}

TEST_F(WriteTest, MovingOnFromANewRowLeavesItBehindTheLast) {
    log_.AddNew();
    log_.MovePrevious();
    EXPECT_EQ(log_.Field("Poäng").integer(), 7);
    log_.CancelUpdate();
    log_.AddNew();
    log_.MoveNext();
    EXPECT_TRUE(log_.IsEOF());
}

TEST_F(WriteTest, DeleteMakesTheNextRowCurrentAndEndsAtEof) {
    log_.MoveNext();
    log_.Delete();
    EXPECT_EQ(sign(), "LA1ÅB");
    log_.Delete();
    EXPECT_EQ(log_.Field("Poäng").integer(), 7);
    log_.Delete();
    EXPECT_TRUE(log_.IsEOF());
    EXPECT_FALSE(log_.IsBOF());
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "1");
    log_.MoveFirst();
    log_.Delete();
    EXPECT_TRUE(log_.IsEOF());
    EXPECT_TRUE(log_.IsBOF());
    EXPECT_THROW(log_.Delete(), Failure);
}

TEST_F(WriteTest, DeleteFollowsTheOrderAndTheFilter) {
    log_.Sort("Poäng DESC");
    log_.Filter("Poäng > 5");
    log_.MoveNext();
    log_.Delete();
    EXPECT_EQ(log_.Field("Poäng").integer(), 7);
    EXPECT_EQ(column(log_, "Poäng"), QStringList({"410", "7"}));
}

TEST_F(WriteTest, DeleteOfARowThatTheFilterHidesGoesToItsSuccessor) {
    log_.MoveNext();
    const Bookmark mark = log_.GetBookmark();
    log_.Filter("Signal = 'SM5ABC'");
    log_.SetBookmark(mark);
    log_.Delete();
    EXPECT_EQ(log_.Field("Poäng").integer(), 7);
    EXPECT_EQ(log_.RecordCount(), 2);
    log_.Filter("");
    EXPECT_EQ(log_.RecordCount(), 3);
}

TEST_F(WriteTest, DeleteDropsAPendingEdit) {
    log_.Field("Signal", "X");
    log_.Delete();
    EXPECT_FALSE(log_.EditPending());
    EXPECT_EQ(signs(log_), QStringList({"oh2xyz", "LA1ÅB", "SM5ABC"}));
    log_.AddNew();
    log_.Field("Signal", "NEW");
    log_.Delete();
    EXPECT_FALSE(log_.EditPending());
    EXPECT_EQ(sign(), "oh2xyz");
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "3");
}

TEST_F(WriteTest, DeleteOfAnotherRowWritesThePendingOneFirst) {
    log_.AddNew();
    log_.Field("Signal", "NEW");
    log_.MoveFirst();
    log_.Delete();
    EXPECT_FALSE(log_.EditPending());
    EXPECT_EQ(signs(log_), QStringList({"oh2xyz", "LA1ÅB", "SM5ABC", "NEW"}));
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO WHERE Signal='NEW'"), "1");
}

TEST_F(WriteTest, ARefusedDeleteLeavesThePendingEditOfItsRow) {
    runSql(path_, "CREATE TRIGGER nej BEFORE DELETE ON TESTQSO BEGIN SELECT RAISE(ABORT, 'nej'); END");
    log_.Field("Signal", "X");
    EXPECT_THROW(log_.Delete(), Failure);
    EXPECT_TRUE(log_.EditPending());
    EXPECT_EQ(sign(), "X");
}

TEST_F(WriteTest, DeleteWithoutACurrentRowLeavesThePendingOne) {
    log_.AddNew();
    log_.Field("Signal", "PENDING");
    log_.MoveLast();
    log_.MoveNext();
    EXPECT_THROW(log_.Delete(), Failure);
    log_.Update();
    EXPECT_EQ(signs(log_).last(), "PENDING");
}

TEST_F(WriteTest, UpdateAfterDeleteDoesNothing) {
    log_.Delete();
    log_.Update();
    EXPECT_EQ(sign(), "oh2xyz");
}

TEST_F(WriteTest, AnUpdateThatTheTableRefusesStaysPending) {
    runSql(path_, "CREATE TABLE U (A TEXT UNIQUE NOT NULL, B TEXT); INSERT INTO U VALUES ('a','1')");
    Recordset rows;
    rows.Open("U", connection_);
    rows.AddNew();
    rows.Field("A", "a");
    EXPECT_THROW(rows.Update(), Failure);
    EXPECT_TRUE(rows.EditPending());
    EXPECT_THROW(rows.AddNew(), Failure);
    EXPECT_EQ(rows.Field("A").text(), "a");
    rows.MoveFirst();
    EXPECT_THROW(rows.Field("B", "2"), Failure);
    EXPECT_EQ(rows.Field("B").text(), "1");
    EXPECT_EQ(rows.RecordCount(), 1);
    rows.CancelUpdate();
    add(log_, "STILL");
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "5");
}

TEST_F(WriteTest, DefaultsAndConversionsOfTheTableAreReadBack) {
    runSql(path_, "CREATE TABLE D (A TEXT NOT NULL DEFAULT 'x', B INTEGER DEFAULT 7, C NUMERIC, "
                  "E TEXT GENERATED ALWAYS AS (A || '!') VIRTUAL)");
    Recordset rows;
    rows.Open("D", connection_);
    EXPECT_EQ(rows.FieldNames(), QStringList({"A", "B", "C"}));
    rows.AddNew();
    rows.Field("C", "5");
    rows.Update();
    EXPECT_EQ(rows.Field("A").text(), "x");
    EXPECT_EQ(rows.Field("B"), Value(7));
    rows.Field("A", "y");
    rows.Update();
    EXPECT_EQ(stored("SELECT E FROM D"), "y!");
}

TEST_F(WriteTest, AWrittenRowThatATriggerDoesAwayWithIsAFailureAndStaysPending) {
    runSql(path_, "CREATE TRIGGER t AFTER INSERT ON TESTQSO BEGIN DELETE FROM TESTQSO; END;");
    log_.AddNew();
    log_.Field("Signal", "GONE");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_TRUE(log_.EditPending());
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "4");
}

TEST_F(WriteTest, ATableWithItsOwnKeyCanBeWritten) {
    runSql(path_, "CREATE TABLE K (Id INTEGER PRIMARY KEY, A TEXT); INSERT INTO K VALUES (10,'a')");
    Recordset rows;
    rows.Open("K", connection_);
    rows.AddNew();
    rows.Field("A", "b");
    rows.Update();
    EXPECT_EQ(rows.Field("Id"), Value(11));
    rows.AddNew();
    rows.Field("Id", 5);
    rows.Field("A", "c");
    rows.Update();
    EXPECT_EQ(column(rows, "Id"), QStringList({"5", "10", "11"}));
    rows.Field("Id", 6);
    EXPECT_THROW(rows.Update(), Failure);
    rows.CancelUpdate();
    rows.Field("A", "d");
    rows.Update();
    EXPECT_EQ(stored("SELECT group_concat(Id||A) FROM K"), "5d,10a,11b");
}

TEST_F(WriteTest, RowsComeInTheOrderInWhichTheyWereStored) {
    add(log_, "A");
    log_.Delete();
    add(log_, "B");
    add(log_, "C");
    EXPECT_EQ(signs(log_).mid(4), QStringList({"B", "C"}));
    runSql(path_, "INSERT INTO TESTQSO (Signal) VALUES ('THEIRS')");
    add(log_, "D");
    log_.Requery();
    EXPECT_EQ(signs(log_).mid(4), QStringList({"B", "C", "THEIRS", "D"}));
}

} // namespace
} // namespace platform::testing
