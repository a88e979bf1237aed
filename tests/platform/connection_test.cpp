#include "fault_vfs.h"
#include "recordset_fixture.h"

#include <QDir>

namespace platform::testing {
namespace {

class ConnectionTest : public LogFile {
protected:
    QString write(const QString& name, const QByteArray& content) const {
        QFile file(folder_.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        return file.fileName();
    }
};

TEST_F(ConnectionTest, OpensAnExistingFileAndClosesIt) {
    EXPECT_TRUE(connection_.IsOpen());
    EXPECT_EQ(connection_.Path(), path_);
    connection_.Close();
    EXPECT_FALSE(connection_.IsOpen());
    EXPECT_EQ(connection_.Path(), "");
    connection_.Open(path_);
    EXPECT_TRUE(connection_.IsOpen());
}

TEST_F(ConnectionTest, OpenOfAnOpenConnectionAndCloseOfAClosedOneAreFailures) {
    EXPECT_THROW(connection_.Open(path_), Failure);
    EXPECT_TRUE(connection_.IsOpen());
    connection_.Close();
    EXPECT_THROW(connection_.Close(), Failure);
}

TEST_F(ConnectionTest, AMissingFileIsAFailureAndIsNotCreated) {
    const QString missing = folder_.filePath("saknas.svk");
    Connection connection;
    EXPECT_THROW(connection.Open(missing), Failure);
    EXPECT_FALSE(connection.IsOpen());
    EXPECT_FALSE(QFile::exists(missing));
    EXPECT_THROW(connection.Open(folder_.filePath("ingen/mapp.svk")), Failure);
    EXPECT_THROW(connection.Open(""), Failure);
    EXPECT_THROW(connection.Open(folder_.path()), Failure);
}

TEST_F(ConnectionTest, AFileThatIsNoDatabaseIsAFailureAndStaysAsItIs) {
    QFile log(path_);
    ASSERT_TRUE(log.open(QFile::ReadOnly));
    const QByteArray bytes = log.readAll();
    const std::pair<const char*, QByteArray> files[] = {
        {"empty", ""},
        {"text", "Datum,Tid\r\n"},
        {"longtext", QByteArray(5000, 'x')},
        {"zeros", QByteArray(5000, '\0')},
        {"headeronly", bytes.left(16)},
        {"broken", "X" + bytes.mid(1)},
    };
    for (const auto& [name, content] : files) {
        const QString path = write(name, content);
        Connection connection;
        EXPECT_THROW(connection.Open(path), Failure) << name;
        EXPECT_FALSE(connection.IsOpen()) << name;
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::ReadOnly));
        EXPECT_EQ(file.readAll(), content) << name;
    }
}

TEST_F(ConnectionTest, AFileCutOffInTheMiddleIsAFailureWhenItIsRead) {
    QByteArray sql = "BEGIN;";
    for (int i = 0; i < 2000; ++i) sql += "INSERT INTO TESTQSO (Signal) VALUES ('SM5ABC');";
    runSql(path_, sql + "COMMIT;");
    ASSERT_TRUE(QFile::resize(path_, QFile(path_).size() / 8192 * 4096));
    Connection connection;
    Recordset log;
    EXPECT_THROW(
        {
            connection.Open(path_);
            log.Open("TESTQSO", connection);
        },
        Failure);
    EXPECT_FALSE(log.IsOpen());
}

TEST_F(ConnectionTest, ANameWithSwedishLettersAndBlanksOpens) {
    const QString path = folder_.filePath(T("Månads Test åäö's 50%.svk"));
    ASSERT_TRUE(QFile::copy(path_, path));
    Connection connection;
    connection.Open(path);
    Recordset log;
    log.Open("TESTQSO", connection);
    EXPECT_EQ(log.RecordCount(), 4);
}

TEST_F(ConnectionTest, KeepsTheCursorLocationThatIsSet) {
    EXPECT_EQ(connection_.CursorLocation(), 2);
    connection_.CursorLocation(3);
    EXPECT_EQ(connection_.CursorLocation(), 3);
}

TEST_F(ConnectionTest, TheFileCanBeReplacedAndOpenedAgain) {
    const QString other = folder_.filePath("mall");
    ASSERT_TRUE(QFile::copy(path_, other));
    runSql(other, "DELETE FROM TESTQSO");
    connection_.Close();
    ASSERT_TRUE(QFile::remove(path_));
    ASSERT_TRUE(QFile::copy(other, path_));
    connection_.Open(path_);
    Recordset log;
    log.Open("TESTQSO", connection_);
    EXPECT_EQ(log.RecordCount(), 0);
}

TEST_F(ConnectionTest, NothingButTheFileIsLeftInTheFolder) {
    Recordset log;
    log.Open("TESTQSO", connection_);
    add(log, "SM0NEW");
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList({"logg.svk"}));
}

TEST_F(ConnectionTest, AFileInWalModeGoesBackToARollbackJournal) {
    connection_.Close();
    runSql(path_, "PRAGMA journal_mode=WAL");
    ASSERT_EQ(sqlValue(path_, "PRAGMA journal_mode"), "wal");
    connection_.Open(path_);
    Recordset log;
    log.Open("TESTQSO", connection_);
    add(log, "SM0NEW");
    EXPECT_EQ(sqlValue(path_, "PRAGMA journal_mode"), "delete");
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList({"logg.svk"}));
}

/// Opens the log through a disk that counts, and tells what one Update forces to it.
class DurabilityTest : public LogFile {
protected:
    FaultVfs::Counts countsOfUpdate(Durability durability) const {
        const FaultVfs disk;
        Connection connection;
        connection.Open(path_, durability);
        Recordset log;
        log.Open("TESTQSO", connection);
        log.Field("Signal", "SM0NEW");
        FaultVfs::takeCounts();
        log.Update();
        const FaultVfs::Counts counts = FaultVfs::takeCounts();
        EXPECT_GT(counts.databaseWrites, 0);
        return counts;
    }
};

TEST_F(DurabilityTest, FullForcesJournalDatabaseAndFolderToTheDisk) {
    const FaultVfs::Counts counts = countsOfUpdate(Durability::Full);
    // The journal before the database is touched, its header once more, and the folder when the journal is
    // gone: without that a power loss could bring it back and undo the Update.
    EXPECT_EQ(counts.journalSyncs, 2);
    EXPECT_EQ(counts.databaseSyncs, 1);
    EXPECT_EQ(counts.folderSyncs, 1);
}

TEST_F(ConnectionTest, RelaxedWritesAheadAndLeavesOneFileWhenItIsClosed) {
    connection_.Close();
    connection_.Open(path_, Durability::Relaxed);
    Recordset log;
    log.Open("TESTQSO", connection_);
    add(log, "SM0NEW");
    EXPECT_EQ(sqlValue(path_, "PRAGMA journal_mode"), "wal");
    EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO WHERE Signal='SM0NEW'"), "1");
    connection_.Close();
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::Files), QStringList({"logg.svk"}));
    EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO WHERE Signal='SM0NEW'"), "1");
}

TEST_F(DurabilityTest, AnEditThatChangesNothingDoesNotTouchTheDisk) {
    const FaultVfs disk;
    Connection connection;
    connection.Open(path_);
    Recordset log;
    log.Open("TESTQSO", connection);
    log.Field("Signal", log.Field("Signal"));
    FaultVfs::takeCounts();
    log.Update();
    const FaultVfs::Counts counts = FaultVfs::takeCounts();
    EXPECT_EQ(counts.databaseWrites + counts.journalSyncs + counts.databaseSyncs, 0);
}

struct Fault {
    const char* name;
    FaultVfs::Operation operation;
    int code;
};
void PrintTo(const Fault& fault, std::ostream* out) { *out << fault.name; }

/// Lets the disk fail at every point of a write in turn.
class FaultTest : public LogFile, public ::testing::WithParamInterface<Fault> {
protected:
    void SetUp() override {
        LogFile::SetUp();
        connection_.Close();
    }

    /// Runs the write with the n-th operation failing; false once the write gets by with fewer operations.
    template <class Prepare, class Write, class Check>
    bool runWithFault(int n, Prepare prepare, Write write, Check check) {
        SCOPED_TRACE(n);
        const FaultVfs disk;
        Connection connection;
        connection.Open(path_);
        Recordset log;
        Recordset info;
        log.Open("TESTQSO", connection);
        info.Open("INFO", connection);
        prepare(log, info);
        FaultVfs::failFrom(GetParam().operation, n, GetParam().code);
        bool hasThrown = false;
        try {
            write(log, info);
        } catch (const Failure&) {
            hasThrown = true;
        }
        const bool hasFailed = FaultVfs::hasFailed();
        FaultVfs::heal();
        EXPECT_EQ(hasThrown, hasFailed);
        if (hasThrown) check(log, info);
        EXPECT_EQ(sqlValue(path_, "PRAGMA integrity_check"), "ok");
        return hasFailed;
    }
};

TEST_P(FaultTest, ANewRowStaysPendingAndIsWrittenWhenTheFaultIsGone) {
    int n = 1;
    const auto prepare = [](Recordset& log, Recordset&) {
        log.AddNew();
        // Large enough for several pages.
        log.Field("Signal", QString(20000, u'S'));
    };
    const auto write = [](Recordset& log, Recordset&) { log.Update(); };
    const auto check = [this](Recordset& log, Recordset&) {
        EXPECT_TRUE(log.EditPending());
        EXPECT_EQ(log.RecordCount(), 4);
        EXPECT_EQ(log.Field("Signal").text().size(), 20000);
        EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO"), "4");
        log.Filter("Poäng = 7");
        log.Update();
        EXPECT_EQ(sqlValue(path_, "SELECT count(*)||max(length(Signal)) FROM TESTQSO"), "520000");
        EXPECT_EQ(log.Field("Signal").text().size(), 20000);
        log.Delete();
        EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO"), "4");
    };
    while (runWithFault(n, prepare, write, check)) ++n;
    EXPECT_GT(n, 1);
}

TEST_P(FaultTest, RowsWrittenTogetherAllStayPending) {
    int n = 1;
    const auto prepare = [](Recordset& log, Recordset& info) {
        log.MoveLast();
        log.Field("Poäng", log.Field("Poäng").integer() + 1);
        info.Field("LöpNr", info.Field("LöpNr").integer() + 1);
    };
    const auto write = [](Recordset& log, Recordset& info) { UpdateTogether({&log, &info}); };
    QString before = "7/1";
    const auto stored = [this] {
        return sqlValue(path_,
                        "SELECT (SELECT \"Poäng\" FROM TESTQSO WHERE rowid=4)||'/'||\"LöpNr\" FROM INFO");
    };
    const auto check = [&](Recordset& log, Recordset& info) {
        EXPECT_TRUE(log.EditPending());
        EXPECT_TRUE(info.EditPending());
        EXPECT_EQ(stored(), before);
        UpdateTogether({&log, &info});
        EXPECT_NE(stored(), before);
        before = stored();
    };
    while (runWithFault(n, prepare, write, check)) ++n;
    EXPECT_GT(n, 1);
}

TEST_P(FaultTest, ARowThatCouldNotBeDeletedIsStillThere) {
    int n = 1;
    const auto prepare = [](Recordset& log, Recordset&) { log.MoveNext(); };
    const auto write = [](Recordset& log, Recordset&) { log.Delete(); };
    const auto check = [this](Recordset& log, Recordset&) {
        EXPECT_EQ(log.RecordCount(), 4);
        EXPECT_EQ(log.AbsolutePosition(), 1);
        EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO"), "4");
    };
    while (runWithFault(n, prepare, write, check)) ++n;
    EXPECT_GT(n, 1);
    EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO"), "3");
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FaultTest,
    ::testing::Values(Fault{"DiskFull", FaultVfs::Operation::Write, SQLITE_FULL},
                      Fault{"WriteError", FaultVfs::Operation::Write, SQLITE_IOERR_WRITE},
                      Fault{"SyncError", FaultVfs::Operation::Sync, SQLITE_IOERR_FSYNC},
                      Fault{"JournalCannotBeRemoved", FaultVfs::Operation::Delete, SQLITE_IOERR_DELETE}),
    [](const auto& instance) { return std::string(instance.param.name); });

} // namespace
} // namespace platform::testing
