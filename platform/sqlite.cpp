#include "platform/sqlite.h"

#include <QFileInfo>

#include <array>
#include <cmath>

#include <sqlite3.h>

namespace platform {

namespace {

constexpr int kBusyMilliseconds = 6000;
/// Statements kept prepared; far above what the program's own statements come to.
constexpr qsizetype kStatements = 200;
/// Whole numbers below this fit SQLite's 64 bits.
constexpr double kIntegerLimit = 9.2e18;

QString words(int code, const QString& detail) {
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return QStringLiteral("Databasfilen används av någon annan.");
    case SQLITE_READONLY: return QStringLiteral("Databasfilen är skrivskyddad.");
    case SQLITE_FULL: return QStringLiteral("Disken är full.");
    case SQLITE_NOTADB: return QStringLiteral("Filen är ingen databas.");
    default: return QStringLiteral("Databasfel: %1").arg(detail);
    }
}

} // namespace

QByteArray quotedName(const QString& name) { return '"' + name.toUtf8().replace('"', "\"\"") + '"'; }

Database::Database(const QString& path, Durability durability) {
    const QFileInfo file(path);
    if (!file.isFile()) throw Failure(QStringLiteral("Filen %1 saknas.").arg(path));
    // SQLite would take an empty file for a database without tables.
    if (file.size() == 0) throw Failure(QStringLiteral("Filen %1 är ingen databas.").arg(path));
    try {
        open(path, durability);
    } catch (...) {
        close();
        throw;
    }
}

Database::~Database() { close(); }

void Database::open(const QString& path, Durability durability) {
    // One thread uses a connection, so SQLite's own mutexes are left out.
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
    if (sqlite3_open_v2(path.toUtf8().constData(), &handle_, flags, nullptr) != SQLITE_OK) fail();
    sqlite3_extended_result_codes(handle_, 1);
    sqlite3_busy_timeout(handle_, kBusyMilliseconds);
    // A column that is gone must be an error and not a text in double quotes.
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    setDurability(durability);
    Statement(*this, "SELECT count(*) FROM sqlite_schema").step();
}

void Database::setDurability(Durability durability) {
    if (durability == Durability::Relaxed) {
        // The write-ahead log is the one mode that waits for no disk and still can't break the file.
        run("PRAGMA synchronous=NORMAL");
        // A write-protected file keeps its mode; it can be read all the same.
        sqlite3_exec(handle_, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
        return;
    }
    // FULL leaves the removal of the journal to the file system's good time; a power loss could bring the
    // journal back and undo what was saved. EXTRA is FULL and a sync of the folder.
    run("PRAGMA synchronous=EXTRA");
    // A file that was put in WAL mode goes back to a rollback journal: WAL fails on network drives.
    Statement(*this, "PRAGMA journal_mode=DELETE").step();
}

void Database::close() {
    dropStatements();
    sqlite3_close(handle_);
    handle_ = nullptr;
}

void Database::dropStatements() {
    for (sqlite3_stmt* statement : std::as_const(statements_)) sqlite3_finalize(statement);
    statements_.clear();
}

void Database::run(const char* sql) { Statement(*this, sql).step(); }

qint64 Database::dataVersion() {
    Statement version(*this, "PRAGMA data_version");
    version.step();
    return version.integer(0);
}

qint64 Database::lastId() const { return sqlite3_last_insert_rowid(handle_); }

void Database::fail() const {
    throw Failure(words(sqlite3_errcode(handle_), QString::fromUtf8(sqlite3_errmsg(handle_))));
}

sqlite3_stmt* Database::prepared(const QByteArray& sql) {
    const auto known = statements_.constFind(sql);
    if (known != statements_.constEnd()) return *known;
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(handle_, sql.constData(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                           &statement, nullptr) != SQLITE_OK) {
        fail();
    }
    if (statements_.size() >= kStatements && inUse_ == 0) dropStatements();
    statements_.insert(sql, statement);
    return statement;
}

Statement::Statement(Database& database, const QByteArray& sql)
    : database_(database)
    , statement_(database.prepared(sql)) {
    ++database_.inUse_;
}

Statement::~Statement() {
    --database_.inUse_;
    sqlite3_reset(statement_);
    sqlite3_clear_bindings(statement_);
}

void Statement::bind(const Value& value) {
    const int place = ++bound_;
    switch (value.kind()) {
    case Value::Kind::Null: check(sqlite3_bind_null(statement_, place)); break;
    case Value::Kind::Text: {
        const QByteArray utf8 = value.rawText().toUtf8();
        check(sqlite3_bind_text(statement_, place, utf8.constData(), static_cast<int>(utf8.size()),
                                SQLITE_TRANSIENT));
        break;
    }
    case Value::Kind::Number: {
        const double number = value.number();
        if (std::trunc(number) == number && std::abs(number) < kIntegerLimit) {
            check(sqlite3_bind_int64(statement_, place, static_cast<qint64>(number)));
        } else {
            check(sqlite3_bind_double(statement_, place, number));
        }
        break;
    }
    }
}

void Statement::bind(qint64 number) { check(sqlite3_bind_int64(statement_, ++bound_, number)); }

bool Statement::step() {
    const int result = sqlite3_step(statement_);
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) database_.fail();
    return false;
}

qint64 Statement::integer(int column) const { return sqlite3_column_int64(statement_, column); }

QString Statement::text(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    return QString::fromUtf8(bytes, sqlite3_column_bytes(statement_, column));
}

CellRef Statement::cell(int column, bool isNumber, CellPool& pool, const CellRef& before) const {
    const int type = sqlite3_column_type(statement_, column);
    if (type == SQLITE_NULL) return pool.null();
    if (type == SQLITE_INTEGER || type == SQLITE_FLOAT) {
        const Value number(sqlite3_column_double(statement_, column));
        return isNumber ? pool.cell(number) : pool.text(number.text());
    }
    CellRef text = textCell(column, pool, before);
    // A file from other hands can hold a number as a text or a blob.
    if (isNumber && text->key().isNumeric) return pool.number(text->key().number);
    return text;
}

/// Most texts are short and ASCII, and many equal the one in the row before: those cost no QString.
CellRef Statement::textCell(int column, CellPool& pool, const CellRef& before) const {
    const unsigned char* bytes = sqlite3_column_text(statement_, column);
    const int size = sqlite3_column_bytes(statement_, column);
    if (size == 0) return pool.emptyText();
    std::array<char16_t, 64> units;
    int i = 0;
    if (size <= static_cast<int>(units.size())) {
        while (i < size && bytes[i] < 0x80) {
            units[static_cast<size_t>(i)] = bytes[i];
            ++i;
        }
    }
    if (i < size) return pool.text(QString::fromUtf8(reinterpret_cast<const char*>(bytes), size));
    const QStringView text(units.data(), size);
    if (before && before->value.kind() == Value::Kind::Text && before->value.rawText() == text) return before;
    return pool.text(text);
}

void Statement::check(int result) const {
    if (result != SQLITE_OK) database_.fail();
}

Transaction::Transaction(Database& database, Kind kind)
    : database_(database) {
    database_.run(kind == Kind::Write ? "BEGIN IMMEDIATE" : "BEGIN");
}

Transaction::~Transaction() {
    // A serious error may have ended the transaction already.
    if (sqlite3_get_autocommit(database_.handle())) return;
    try {
        database_.run("ROLLBACK");
    } catch (const Failure&) {
        // Nothing is left to do: the journal brings the file back when it is next read.
        return;
    }
}

void Transaction::commit() { database_.run("COMMIT"); }

} // namespace platform
