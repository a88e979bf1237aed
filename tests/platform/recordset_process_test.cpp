#include "recordset_fixture.h"

#include <QElapsedTimer>
#include <QProcess>

namespace platform::testing {
namespace {

/// Longer than any of the waits that are meant.
constexpr int kPatience = 60000;

/// Two connections of this process, and real other processes, on one file.
class ProcessTest : public LogFile {
protected:
    void SetUp() override {
        LogFile::SetUp();
        log_.Open("TESTQSO", connection_);
    }

    void start(QProcess& peer, const QString& task, const QStringList& arguments = {}) const {
        peer.start(QStringLiteral(RECORDSET_PEER), QStringList({task, path_}) + arguments);
        ASSERT_TRUE(peer.waitForStarted());
    }
    /// The next line that the peer says, empty if it has ended.
    static QString line(QProcess& peer) {
        while (!peer.canReadLine() && peer.waitForReadyRead(kPatience)) {
        }
        return QString::fromUtf8(peer.readLine()).trimmed();
    }
    QStringList run(const QString& task, const QStringList& arguments = {}) const {
        QProcess peer;
        start(peer, task, arguments);
        EXPECT_TRUE(peer.waitForFinished(kPatience));
        EXPECT_EQ(peer.exitCode(), 0);
        return QString::fromUtf8(peer.readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    }

    Recordset log_;
};

TEST_F(ProcessTest, TwoConnectionsOfOneProcessSeeEachOthersRows) {
    Connection second;
    second.Open(path_);
    Recordset other;
    other.Open("TESTQSO", second);
    add(log_, "ONE");
    add(other, "TWO");
    log_.Requery();
    other.Requery();
    EXPECT_EQ(signs(log_).mid(4), QStringList({"ONE", "TWO"}));
    EXPECT_EQ(signs(other), signs(log_));
    other.Field("Signal", "THREE");
    other.Update();
    log_.Field("Signal", "FOUR");
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_EQ(log_.Field("Signal").text(), "THREE");
}

TEST_F(ProcessTest, AWriteWaitsForAnotherProcessThatWrites) {
    QProcess peer;
    start(peer, "hold-write", {"800"});
    ASSERT_EQ(line(peer), "held");
    QElapsedTimer clock;
    clock.start();
    add(log_, "WAITED");
    EXPECT_GE(clock.elapsed(), 400);
    EXPECT_TRUE(peer.waitForFinished(kPatience));
    EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO"), "5");
}

TEST_F(ProcessTest, AWriteWaitsForAnotherProcessThatReads) {
    QProcess peer;
    start(peer, "hold-read", {"800"});
    ASSERT_EQ(line(peer), "held");
    QElapsedTimer clock;
    clock.start();
    add(log_, "WAITED");
    EXPECT_GE(clock.elapsed(), 400);
    EXPECT_TRUE(peer.waitForFinished(kPatience));
}

TEST_F(ProcessTest, ARequeryWaitsForAnotherProcessThatWrites) {
    QProcess peer;
    start(peer, "hold-write", {"800"});
    ASSERT_EQ(line(peer), "held");
    QElapsedTimer clock;
    clock.start();
    log_.Requery();
    EXPECT_GE(clock.elapsed(), 400);
    EXPECT_TRUE(peer.waitForFinished(kPatience));
}

TEST_F(ProcessTest, AFileThatIsBusyForLongerThanSixSecondsFailsAndTheEditStaysPending) {
    log_.AddNew();
    log_.Field("Signal", "LATER");
    QProcess peer;
    start(peer, "hold-write", {"60000"});
    ASSERT_EQ(line(peer), "held");
    QElapsedTimer clock;
    clock.start();
    EXPECT_THROW(log_.Update(), Failure);
    EXPECT_GE(clock.elapsed(), 5500);
    EXPECT_LT(clock.elapsed(), 20000);
    EXPECT_TRUE(log_.EditPending());
    EXPECT_EQ(log_.RecordCount(), 4);
    peer.kill();
    EXPECT_TRUE(peer.waitForFinished(kPatience));
    log_.Update();
    EXPECT_EQ(sqlValue(path_, "SELECT count(*) FROM TESTQSO WHERE Signal='LATER'"), "1");
}

TEST_F(ProcessTest, TwoProcessesThatCountUpOneNumberLoseNone) {
    QProcess first;
    QProcess second;
    start(first, "count", {"300"});
    start(second, "count", {"300"});
    for (QProcess* peer : {&first, &second}) {
        EXPECT_TRUE(peer->waitForFinished(kPatience));
        EXPECT_EQ(peer->exitCode(), 0) << peer->readAll().toStdString();
    }
    EXPECT_EQ(sqlValue(path_, "SELECT \"LöpNr\" FROM INFO"), "601");
}

TEST_F(ProcessTest, RequeryTakesOverWhatAnotherProcessHasWritten) {
    run("count", {"5"});
    Recordset info;
    info.Open("INFO", connection_);
    EXPECT_EQ(info.Field("LöpNr").integer(), 6);
    run("count", {"5"});
    info.Field("AktivTid", "1");
    EXPECT_THROW(info.Update(), Failure);
    EXPECT_EQ(info.Field("LöpNr").integer(), 11);
    run("count", {"5"});
    info.Requery();
    EXPECT_EQ(info.Field("LöpNr").integer(), 16);
}

TEST_F(ProcessTest, AllThatAKilledProcessHasReportedAsWrittenIsThere) {
    for (const char* task : {"write", "write-relaxed"}) {
        // A file has one kind of journal at a time, so both sides open it the same way.
        connection_.Close();
        connection_.Open(path_, QLatin1String(task) == u"write" ? Durability::Full : Durability::Relaxed);
        if (log_.IsOpen()) log_.Close();
        log_.Open("TESTQSO", connection_);
        for (int round = 0; round < 4; ++round) {
            SCOPED_TRACE(task);
            runSql(path_, "DELETE FROM TESTQSO");
            QProcess peer;
            start(peer, task);
            for (int i = 0; i < 20 + 13 * round; ++i) ASSERT_NE(line(peer), "");
            peer.kill();
            ASSERT_TRUE(peer.waitForFinished(kPatience));
            const QStringList rest = QString::fromUtf8(peer.readAllStandardOutput()).split(u'\n');
            // The last line may be cut off; the one before it was said in full.
            const int reported =
                std::max(20 + 13 * round, rest.size() > 1 ? rest[rest.size() - 2].toInt() : 0);
            log_.Requery();
            EXPECT_GE(log_.RecordCount(), reported);
            EXPECT_LE(log_.RecordCount(), reported + 2);
            for (qsizetype row = 0; row < log_.RecordCount(); ++row) {
                ASSERT_EQ(log_.At(row, log_.FieldIndex("Poäng")).integer(), row + 1);
            }
            EXPECT_EQ(sqlValue(path_, "PRAGMA integrity_check"), "ok");
            add(log_, "GOES ON");
        }
    }
}

TEST_F(ProcessTest, AFullDiskLeavesTheEditPendingAndTheConnectionUsable) {
    EXPECT_EQ(run("fill"), QStringList({"full pending 1 extra 0", "readable 0", "recovered 1"}));
    EXPECT_EQ(sqlValue(path_, "PRAGMA integrity_check"), "ok");
}

TEST_F(ProcessTest, AFileThatMayOnlyBeReadOpensAndRefusesChanges) {
    const auto mayRead = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
    const auto mayEnter = mayRead | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;
    ASSERT_TRUE(QFile::setPermissions(path_, mayRead));
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), mayEnter));
    const QStringList said = run("read-only");
    ASSERT_TRUE(QFile::setPermissions(folder_.path(), mayEnter | QFile::WriteOwner));
    EXPECT_EQ(said, QStringList({"rows 4", T("refused pending 1 Databasfilen är skrivskyddad."), "kept 4",
                                 "first X"}))
        << "the refused edit stays pending, through the refused deletion too";
}

} // namespace
} // namespace platform::testing
