// The other process of the tests: does one thing to a database file and tells of it on its output.
#include "platform/recordset.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>

#include <csignal>
#include <cstdio>

#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace platform;

namespace {

void say(const QString& line) {
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

/// Adds rows for ever and says the number of each when it is written.
void writeRows(const QString& path, Durability durability) {
    Connection connection;
    connection.Open(path, durability);
    Recordset log;
    log.Open("TESTQSO", connection);
    for (int i = 1;; ++i) {
        log.AddNew();
        log.Field("Signal", QStringLiteral("PEER"));
        log.Field("Tid", QString(i % 3000, u'x'));
        log.Field("Poäng", i);
        log.Update();
        say(QString::number(i));
    }
}

/// Counts the serial number up, reading again whenever the other one was faster.
void countUp(const QString& path, int times) {
    Connection connection;
    connection.Open(path);
    Recordset info;
    info.Open("INFO", connection);
    int conflicts = 0;
    for (int done = 0; done < times;) {
        try {
            info.Field("LöpNr", info.Field("LöpNr").integer() + 1);
            info.Update();
            ++done;
        } catch (const Failure&) {
            // A conflict drops the edit and reads the row again; a busy file leaves the edit pending.
            if (info.EditPending()) throw;
            ++conflicts;
        }
    }
    say(QStringLiteral("conflicts %1").arg(conflicts));
}

/// Holds a lock for a while.
void hold(const QString& path, const QByteArray& begin, int milliseconds) {
    sqlite3* db = nullptr;
    if (sqlite3_open(path.toUtf8().constData(), &db) != SQLITE_OK) return;
    if (sqlite3_exec(db, begin.constData(), nullptr, nullptr, nullptr) == SQLITE_OK) say("held");
    QThread::msleep(static_cast<unsigned long>(milliseconds));
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

void limitFileSize(rlim_t bytes) {
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

/// Writes until the file can grow no more, then gets room and goes on.
void fillUp(const QString& path) {
    std::signal(SIGXFSZ, SIG_IGN);
    Connection connection;
    connection.Open(path);
    Recordset log;
    log.Open("TESTQSO", connection);
    limitFileSize(static_cast<rlim_t>(QFile(path).size()) + 20000);
    int written = 0;
    try {
        for (;; ++written) {
            log.AddNew();
            log.Field("Signal", QString(1000, u'S'));
            log.Update();
        }
    } catch (const Failure&) {
        say(QStringLiteral("full pending %1 extra %2")
                .arg(log.EditPending())
                .arg(log.RecordCount() - 4 - written));
    }
    Recordset again;
    again.Open("TESTQSO", connection);
    say(QStringLiteral("readable %1").arg(again.RecordCount() - 4 - written));
    limitFileSize(RLIM_INFINITY);
    log.Update();
    again.Requery();
    say(QStringLiteral("recovered %1").arg(again.RecordCount() - 4 - written));
}

/// Tries to write as somebody who may only read.
void readOnly(const QString& path) {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) return say("no other user");
    Connection connection;
    connection.Open(path);
    Recordset log;
    log.Open("TESTQSO", connection);
    say(QStringLiteral("rows %1").arg(log.RecordCount()));
    log.Field("Signal", "X");
    try {
        log.Update();
        say("written");
    } catch (const Failure& failure) {
        say(QStringLiteral("refused pending %1 %2").arg(log.EditPending()).arg(failure.message()));
    }
    try {
        log.Delete();
        say("deleted");
    } catch (const Failure&) {
        say(QStringLiteral("kept %1").arg(log.RecordCount()));
    }
    log.Requery();
    say(QStringLiteral("first %1").arg(log.Field("Signal").text()));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString& task = arguments.at(1);
    const QString& path = arguments.at(2);
    try {
        if (task == "write") writeRows(path, Durability::Full);
        if (task == "write-relaxed") writeRows(path, Durability::Relaxed);
        if (task == "count") countUp(path, arguments.at(3).toInt());
        if (task == "hold-write") hold(path, "BEGIN EXCLUSIVE", arguments.at(3).toInt());
        if (task == "hold-read") hold(path, "BEGIN; SELECT count(*) FROM TESTQSO", arguments.at(3).toInt());
        if (task == "fill") fillUp(path);
        if (task == "read-only") readOnly(path);
    } catch (const Failure& failure) {
        say("failure " + failure.message());
        return 1;
    }
    return 0;
}
