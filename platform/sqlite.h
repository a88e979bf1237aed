#pragma once

#include "platform/cells.h"
#include "platform/recordset.h"

#include <QByteArray>
#include <QHash>

struct sqlite3;
struct sqlite3_stmt;

namespace platform {

/// An open SQLite file with the settings that every file of ours has.
class Database {
public:
    /// @throws Failure if the file is missing or no database.
    Database(const QString& path, Durability durability);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    sqlite3* handle() const { return handle_; }
    /// Runs a statement that gives no rows. @throws Failure
    void run(const char* sql);
    /// Changes whenever another connection or process has written to the file. @throws Failure
    qint64 dataVersion();

    /// Id of the row that was inserted last.
    qint64 lastId() const;

    /// A failure that tells the last error.
    [[noreturn]] void fail() const;

private:
    friend class Statement;
    sqlite3_stmt* prepared(const QByteArray& sql);
    void open(const QString& path, Durability durability);
    void setDurability(Durability durability);
    void close();
    void dropStatements();

    sqlite3* handle_ = nullptr;
    QHash<QByteArray, sqlite3_stmt*> statements_;
    /// Statement objects alive; what they hold must stay.
    int inUse_ = 0;
};

/// A statement from the store of the database; reset when it goes out of scope, so it never holds a lock
/// for longer.
class Statement {
public:
    /// @throws Failure if it cannot be prepared.
    Statement(Database& database, const QByteArray& sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Binds the next parameter: a whole number as an integer, null as null.
    void bind(const Value& value);
    void bind(qint64 number);
    /// @return whether there is a row. @throws Failure
    bool step();

    qint64 integer(int column) const;
    QString text(int column) const;
    /// The column's value as the cell of a number column or a text column.
    /// @param before the same column of the row before, where the value is looked for first
    CellRef cell(int column, bool isNumber, CellPool& pool, const CellRef& before) const;

private:
    CellRef textCell(int column, CellPool& pool, const CellRef& before) const;
    void check(int result) const;

    Database& database_;
    sqlite3_stmt* statement_;
    int bound_ = 0;
};

/// A transaction that is rolled back unless it was committed.
class Transaction {
public:
    enum class Kind { Read, Write };
    /// A write transaction takes the write lock at once, so that what it is to change is not changed by
    /// another in between.
    /// @throws Failure
    Transaction(Database& database, Kind kind);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    /// @throws Failure; it is rolled back then.
    void commit();

private:
    Database& database_;
};

/// The name as an SQL identifier.
QByteArray quotedName(const QString& name);

} // namespace platform
