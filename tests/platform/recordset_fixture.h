#pragma once

#include "platform/recordset.h"

#include "support/ToPrint.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <ostream>

namespace platform {

// For the messages of failed expectations.
inline void PrintTo(const Value& value, std::ostream* out) {
    *out << (value.isNull() ? "null" : value.text().toStdString());
}

namespace testing {

/// What a hand with the sqlite3 program would do to the file; fails the test if SQLite refuses.
inline void runSql(const QString& path, const QByteArray& sql) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
    char* error = nullptr;
    // The test's own hand need not wait for the disk.
    sqlite3_exec(db, "PRAGMA synchronous=OFF", nullptr, nullptr, nullptr);
    EXPECT_EQ(sqlite3_exec(db, sql.constData(), nullptr, nullptr, &error), SQLITE_OK) << (error ? error : "");
    sqlite3_free(error);
    sqlite3_close(db);
}

/// The first field of the first row that the statement gives.
inline QString sqlValue(const QString& path, const QByteArray& sql) {
    sqlite3* db = nullptr;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &db), SQLITE_OK);
    EXPECT_EQ(sqlite3_prepare_v2(db, sql.constData(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(db);
    QString value;
    if (sqlite3_step(statement) == SQLITE_ROW) {
        value = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0)));
    }
    sqlite3_finalize(statement);
    sqlite3_close(db);
    return value;
}

/// A small log in a folder of its own, and a connection to it.
class LogFile : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(folder_.isValid());
        path_ = folder_.filePath(QStringLiteral("logg.svk"));
        runSql(path_, R"(
            CREATE TABLE TESTQSO (Datum TEXT, Tid TEXT, Signal TEXT, "Band " TEXT, "DXCC Nr" TEXT, "Poäng" INTEGER);
            INSERT INTO TESTQSO VALUES ('2024-05-07','17:00:10','SM5ABC','2 M','284',12),
                                       ('2024-05-07','17:02:00','oh2xyz','2 M','224',410),
                                       ('2024-05-07','17:01:30','LA1ÅB','70 CM','266',0),
                                       ('2024-05-07','17:04:00','SM5ABC','70 CM','284',7);
            CREATE TABLE INFO (Aktuellt_Test SMALLINT, "LöpNr" INTEGER, AktivTid TEXT);
            INSERT INTO INFO VALUES (7, 1, '00:00:00');)");
        connection_.Open(path_);
    }

    /// All fields of one name in the visible order.
    static QStringList column(const Recordset& rows, const QString& name) {
        QStringList values;
        const int field = rows.FieldIndex(name);
        for (qsizetype i = 0; i < rows.RecordCount(); ++i) values.append(rows.At(i, field).text());
        return values;
    }
    static QStringList signs(const Recordset& rows) { return column(rows, QStringLiteral("Signal")); }

    /// Adds a contact through a recordset.
    static void add(Recordset& rows, const QString& sign, int points = 0) {
        rows.AddNew();
        rows.Field("Signal", sign);
        rows.Field("Poäng", points);
        rows.Update();
    }

    /// In memory where there is such a folder: what the disk does has tests of its own.
    QTemporaryDir folder_{
        (QDir(QStringLiteral("/dev/shm")).exists() ? QStringLiteral("/dev/shm") : QDir::tempPath()) +
        QStringLiteral("/sorvik-XXXXXX")};
    QString path_;
    Connection connection_;
};

/// The same with the log open.
class OpenLog : public LogFile {
protected:
    void SetUp() override {
        LogFile::SetUp();
        log_.Open("TESTQSO", connection_);
    }
    QString stored(const QByteArray& sql) const { return sqlValue(path_, sql); }
    QString sign() const { return log_.Field("Signal").text(); }

    Recordset log_;
};

} // namespace testing
} // namespace platform
