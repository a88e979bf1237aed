#include "recordset_fixture.h"

namespace platform::testing {
namespace {

class ConflictTest : public OpenLog {};

TEST_F(ConflictTest, ARowThatAnotherHasChangedFailsTheUpdateAndIsReadAgain) {
    for (const char* change : {"Signal='OTHER'", "Signal='sm5abc'", "Tid=NULL", "\"Poäng\"=12.5"}) {
        SCOPED_TRACE(change);
        log_.Requery();
        runSql(path_, QByteArray("UPDATE TESTQSO SET ") + change + " WHERE rowid=1");
        log_.Field("Datum", "2030-01-01");
        EXPECT_THROW(log_.Update(), Failure);
        EXPECT_FALSE(log_.EditPending());
        EXPECT_EQ(log_.AbsolutePosition(), 0);
        EXPECT_EQ(log_.Field("Datum").text(), "2024-05-07");
        EXPECT_EQ(sign(), stored("SELECT Signal FROM TESTQSO WHERE rowid=1"));
        EXPECT_EQ(log_.Field("Poäng").text(), stored("SELECT \"Poäng\" FROM TESTQSO WHERE rowid=1"));
    }
    log_.Field("Datum", "2030-01-01");
    log_.Update();
    EXPECT_EQ(stored("SELECT Datum FROM TESTQSO WHERE rowid=1"), "2030-01-01");
}

TEST_F(ConflictTest, ARowThatAnotherRecordsetHasChangedFailsTheUpdate) {
    Recordset other;
    other.Open("TESTQSO", connection_);
    other.Field("Poäng", 13);
    other.Update();
    log_.Field("Signal", "X");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_EQ(log_.Field("Poäng").integer(), 13);
    EXPECT_EQ(sign(), "SM5ABC");
    EXPECT_EQ(log_.Sum("Poäng"), 430);
}

TEST_F(ConflictTest, ARowThatAnotherHasDeletedFailsTheUpdateAndLeavesTheSnapshot) {
    log_.MoveNext();
    runSql(path_, "DELETE FROM TESTQSO WHERE rowid=2");
    log_.Field("Signal", "X");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_FALSE(log_.EditPending());
    EXPECT_EQ(signs(log_), QStringList({"SM5ABC", "LA1ÅB", "SM5ABC"}));
    EXPECT_EQ(sign(), "LA1ÅB");
}

TEST_F(ConflictTest, ARowThatIsGoneFailsForEachRecordsetInTurn) {
    std::array<Recordset, 3> all;
    for (Recordset& rows : all) {
        rows.Open("TESTQSO", connection_);
        rows.MoveLast();
    }
    all[0].Delete();
    for (Recordset* rows : {&all[1], &all[2]}) {
        rows->Field("Signal", "X");
        EXPECT_THROW(rows->Update(), Failure);
        EXPECT_EQ(rows->RecordCount(), 3);
        EXPECT_TRUE(rows->IsEOF());
    }
    Recordset later;
    later.Open("TESTQSO", connection_);
    EXPECT_EQ(signs(all[2]), signs(later));
}

TEST_F(ConflictTest, AConflictOfARowThatIsNotCurrentDoesNotMoveTheCursor) {
    log_.Field("Signal", "X");
    log_.MoveLast();
    runSql(path_, "DELETE FROM TESTQSO WHERE rowid=1");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_EQ(log_.Field("Poäng").integer(), 7);
    EXPECT_EQ(log_.RecordCount(), 3);
    EXPECT_EQ(log_.AbsolutePosition(), 2);
}

TEST_F(ConflictTest, AConflictAfterTheFilterHidTheRowReadsItAgainAllTheSame) {
    log_.Field("Signal", "X");
    log_.Filter("Signal = 'oh2xyz'");
    runSql(path_, "UPDATE TESTQSO SET Signal='OTHER' WHERE rowid=1");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_EQ(sign(), "oh2xyz");
    log_.Filter("");
    EXPECT_EQ(sign(), "OTHER");
}

TEST_F(ConflictTest, AConflictLeavesTheFirstRowCurrentThoughTheOtherNowComesBeforeIt) {
    log_.Field("Signal", "X");
    log_.Sort("Poäng");
    runSql(path_, "UPDATE TESTQSO SET \"Poäng\"=-5 WHERE rowid=1");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_EQ(sign(), "LA1ÅB");
    EXPECT_EQ(log_.AbsolutePosition(), 1);
}

TEST_F(ConflictTest, ARowThatAnotherHasChangedOrDeletedIsNotDeleted) {
    runSql(path_, "UPDATE TESTQSO SET Signal='OTHER' WHERE rowid=1; DELETE FROM TESTQSO WHERE rowid=2");
    EXPECT_THROW(log_.Delete(), Failure);
    EXPECT_EQ(sign(), "OTHER");
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "3");
    log_.MoveNext();
    EXPECT_THROW(log_.Delete(), Failure);
    EXPECT_EQ(sign(), "LA1ÅB");
    EXPECT_EQ(log_.RecordCount(), 3);
    log_.MoveFirst();
    log_.Delete();
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "2");
}

class TogetherTest : public OpenLog {
protected:
    void SetUp() override {
        OpenLog::SetUp();
        info_.Open("INFO", connection_);
    }
    Recordset info_;
};

TEST_F(TogetherTest, AllPendingRowsAreWritten) {
    log_.AddNew();
    log_.Field("Signal", "SM0NEW");
    info_.Field("LöpNr", 2);
    UpdateTogether({&log_, &info_});
    EXPECT_FALSE(log_.EditPending());
    EXPECT_FALSE(info_.EditPending());
    EXPECT_EQ(sign(), "SM0NEW");
    EXPECT_EQ(stored("SELECT \"LöpNr\"||(SELECT max(Signal) FROM TESTQSO WHERE rowid>4) FROM INFO"),
              "2SM0NEW");
}

TEST_F(TogetherTest, AConflictDropsItsOwnEditAndTheOthersStayPending) {
    runSql(path_, "UPDATE INFO SET \"LöpNr\"=50");
    log_.AddNew();
    log_.Field("Signal", "SM0NEW");
    info_.Field("LöpNr", 2);
    EXPECT_THROW(UpdateTogether({&log_, &info_}), Failure);
    EXPECT_FALSE(info_.EditPending());
    EXPECT_EQ(info_.Field("LöpNr").integer(), 50);
    EXPECT_TRUE(log_.EditPending());
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "4");
    EXPECT_EQ(log_.RecordCount(), 4);
    info_.Field("LöpNr", 51);
    UpdateTogether({&log_, &info_});
    EXPECT_EQ(stored("SELECT \"LöpNr\"||(SELECT count(*) FROM TESTQSO) FROM INFO"), "515");
}

TEST_F(TogetherTest, AnotherFailureLeavesAllPending) {
    runSql(path_, "CREATE TRIGGER t BEFORE UPDATE ON INFO BEGIN SELECT RAISE(ABORT,'no'); END");
    log_.Field("Signal", "SM0NEW");
    info_.Field("LöpNr", 2);
    EXPECT_THROW(UpdateTogether({&log_, &info_}), Failure);
    EXPECT_TRUE(log_.EditPending());
    EXPECT_TRUE(info_.EditPending());
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO WHERE Signal='SM0NEW'"), "0");
    runSql(path_, "DROP TRIGGER t");
    UpdateTogether({&info_, &log_});
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO WHERE Signal='SM0NEW'"), "1");
}

TEST_F(TogetherTest, TwoRecordsetsOnOneRowConflict) {
    Recordset other;
    other.Open("TESTQSO", connection_);
    log_.Field("Signal", "ONE");
    other.Field("Tid", "TWO");
    EXPECT_THROW(UpdateTogether({&log_, &other}), Failure);
    EXPECT_TRUE(log_.EditPending());
    EXPECT_FALSE(other.EditPending());
    EXPECT_EQ(other.Field("Signal").text(), "SM5ABC");
    EXPECT_EQ(stored("SELECT Signal FROM TESTQSO LIMIT 1"), "SM5ABC");
}

TEST_F(TogetherTest, RecordsetsWithoutAnEditAndRepeatedOnesAreNoMatter) {
    UpdateTogether({});
    UpdateTogether({&log_, &info_});
    info_.Field("LöpNr", 2);
    UpdateTogether({&info_, &log_, &info_});
    EXPECT_EQ(stored("SELECT \"LöpNr\" FROM INFO"), "2");
    info_.Field("LöpNr", 3);
    info_.Field("LöpNr", 2);
    log_.AddNew();
    UpdateTogether({&info_, &log_});
    EXPECT_FALSE(info_.EditPending());
    EXPECT_EQ(stored("SELECT count(*) FROM TESTQSO"), "5");
}

TEST_F(TogetherTest, RecordsetsOfTwoConnectionsOrClosedOnesAreAFailure) {
    Connection second;
    second.Open(path_);
    Recordset other;
    other.Open("INFO", second);
    other.Field("LöpNr", 9);
    log_.Field("Signal", "X");
    EXPECT_THROW(UpdateTogether({&log_, &other}), Failure);
    EXPECT_TRUE(log_.EditPending());
    EXPECT_TRUE(other.EditPending());
    other.Close();
    EXPECT_THROW(UpdateTogether({&log_, &other}), Failure);
    EXPECT_EQ(stored("SELECT Signal FROM TESTQSO LIMIT 1"), "SM5ABC");
}

} // namespace
} // namespace platform::testing
