#include "platform/tableimage.h"

#include <algorithm>

namespace platform {

namespace {

/// Whether SQLite gives a column declared so numbers to hold. The first two steps are SQLite's own, in its
/// order; of the rest, which SQLite calls numeric, dates stay texts.
bool isNumberType(const QString& declared) {
    const QString type = declared.toUpper();
    const auto has = [&type](auto... parts) { return (type.contains(QLatin1String(parts)) || ...); };
    if (has("INT")) return true;
    if (has("CHAR", "CLOB", "TEXT", "BLOB")) return false;
    return has("REAL", "FLOA", "DOUB", "NUM", "DEC", "SINGLE", "CURRENCY");
}

bool sameName(const QString& a, const QString& b) { return a.toCaseFolded() == b.toCaseFolded(); }

QString storedTableName(Database& database, const QString& name) {
    Statement tables(database, "SELECT name FROM sqlite_schema WHERE type='table'");
    while (tables.step()) {
        QString stored = tables.text(0);
        if (sameName(stored, name)) return stored;
    }
    throw Failure(QStringLiteral("Okänd tabell: %1").arg(name));
}

} // namespace

TableImage::TableImage(Database& database, CellPool& pool, const QString& name)
    : database_(database)
    , pool_(pool)
    , table_(quotedName(storedTableName(database, name))) {
    readColumns();
    // A column may have one of the names of the row id.
    for (const char* candidate : {"rowid", "_rowid_", "oid"}) {
        if (idColumn_.isEmpty() && !columnIndex(QLatin1String(candidate))) idColumn_ = candidate;
    }
    const QByteArray select = "SELECT " + idColumn_ + columnList() + " FROM " + table_;
    selectAll_ = select + " ORDER BY " + idColumn_;
    selectOne_ = select + " WHERE " + idColumn_ + "=?";
}

void TableImage::readColumns() {
    Statement info(database_, "PRAGMA table_info(" + table_ + ")");
    int keys = 0;
    while (info.step()) {
        const QString type = info.text(2);
        if (info.integer(5) > 0 && ++keys == 1 && type.compare(u"INTEGER", Qt::CaseInsensitive) == 0) {
            keyColumn_ = static_cast<int>(columns_.size());
        }
        columns_.push_back({info.text(1), isNumberType(type)});
    }
    if (keys != 1) keyColumn_.reset();
}

QByteArray TableImage::columnList() const {
    QByteArray list;
    for (const TableColumn& column : columns_) list += ',' + quotedName(column.name);
    return list;
}

std::optional<int> TableImage::columnIndex(const QString& name) const {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const TableColumn& column) { return sameName(column.name, name); });
    if (found == columns_.end()) return std::nullopt;
    return static_cast<int>(found - columns_.begin());
}

void TableImage::sync() {
    if (dataVersion_ && *dataVersion_ == database_.dataVersion()) return;
    readAll();
}

void TableImage::readAll() {
    // The version and the rows have to be of the same moment.
    Transaction transaction(database_, Transaction::Kind::Read);
    const qint64 dataVersion = database_.dataVersion();
    std::vector<Change> changes;
    std::vector<RowRef> rows = readRows(changes);
    transaction.commit();

    const bool isFirst = !dataVersion_;
    dataVersion_ = dataVersion;
    rows_ = std::move(rows);
    if (!rows_.empty()) highestId_ = std::max(highestId_, rows_.back()->id);
    if (isFirst) return;
    for (Change& change : changes) remember(std::move(change));
}

std::vector<RowRef> TableImage::readRows(std::vector<Change>& changes) {
    std::vector<RowRef> rows;
    rows.reserve(rows_.size());
    auto known = rows_.begin();
    const auto passUntil = [&](const qint64* id) {
        for (; known != rows_.end() && (!id || (*known)->id < *id); ++known) {
            changes.push_back({(*known)->id, *known, RowRef()});
        }
    };
    const std::vector<CellRef> none(columns_.size());
    std::vector<CellRef> cells;
    Statement select(database_, selectAll_);
    while (select.step()) {
        const qint64 id = select.integer(0);
        passUntil(&id);
        const bool isKnown = known != rows_.end() && (*known)->id == id;
        readCells(select, rows.empty() ? std::span(none) : rows.back()->cells(), cells);
        if (isKnown && (*known)->hasCells(cells)) {
            rows.push_back(*known++);
            continue;
        }
        RowRef row = Row::make(id, cells);
        // The first reading has no known rows and no one to tell of a change.
        if (dataVersion_) changes.push_back({id, isKnown ? *known : RowRef(), row});
        if (isKnown) ++known;
        rows.push_back(std::move(row));
    }
    passUntil(nullptr);
    return rows;
}

void TableImage::readCells(const Statement& statement, std::span<const CellRef> before,
                           std::vector<CellRef>& cells) const {
    cells.clear();
    for (size_t i = 0; i < columns_.size(); ++i) {
        cells.push_back(statement.cell(static_cast<int>(i) + 1, columns_[i].isNumber, pool_, before[i]));
    }
}

RowRef TableImage::read(qint64 id) {
    Statement select(database_, selectOne_);
    select.bind(id);
    if (!select.step()) return {};
    const size_t at = place(id);
    const bool isKnown = at < rows_.size() && rows_[at]->id == id;
    const std::vector<CellRef> none(columns_.size());
    std::vector<CellRef> cells;
    readCells(select, isKnown ? rows_[at]->cells() : std::span(none), cells);
    return isKnown && rows_[at]->hasCells(cells) ? rows_[at] : Row::make(id, cells);
}

RowRef TableImage::readBack(qint64 id) {
    RowRef row = read(id);
    // A trigger of a table from other hands can do away with what was just written.
    if (!row) throw Failure(QStringLiteral("Den skrivna raden finns inte i tabellen."));
    return row;
}

RowRef TableImage::insert(const std::vector<CellRef>& cells) {
    QByteArray names;
    QByteArray marks;
    std::vector<const Value*> values;
    const auto add = [&](const QByteArray& name, const QByteArray& mark) {
        names += names.isEmpty() ? name : ',' + name;
        marks += marks.isEmpty() ? mark : ',' + mark;
    };
    if (!keyColumn_)
        add(idColumn_, "1+max(?,coalesce((SELECT max(" + idColumn_ + ") FROM " + table_ + "),0))");
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (cells[i]->value.isNull()) continue;
        add(quotedName(columns_[i].name), "?");
        values.push_back(&cells[i]->value);
    }
    QByteArray sql = "INSERT INTO " + table_;
    sql += names.isEmpty() ? QByteArray(" DEFAULT VALUES") : " (" + names + ") VALUES (" + marks + ')';
    {
        Statement statement(database_, sql);
        if (!keyColumn_) statement.bind(highestId_);
        for (const Value* value : values) statement.bind(*value);
        statement.step();
    }
    return readBack(database_.lastId());
}

RowRef TableImage::update(const Row& row, const std::vector<CellRef>& cells) {
    QByteArray assignments;
    std::vector<const Value*> values;
    for (size_t i = 0; i < columns_.size(); ++i) {
        if (cells[i] == row.cells()[i]) continue;
        assignments += (assignments.isEmpty() ? "" : ",") + quotedName(columns_[i].name) + "=?";
        values.push_back(&cells[i]->value);
    }
    if (keyColumn_ && cells[static_cast<size_t>(*keyColumn_)] != row.cell(*keyColumn_)) {
        throw Failure(QStringLiteral("Radens nyckel kan inte ändras."));
    }
    {
        Statement statement(database_,
                            "UPDATE " + table_ + " SET " + assignments + " WHERE " + idColumn_ + "=?");
        for (const Value* value : values) statement.bind(*value);
        statement.bind(row.id);
        statement.step();
    }
    return readBack(row.id);
}

void TableImage::erase(qint64 id) {
    Statement statement(database_, "DELETE FROM " + table_ + " WHERE " + idColumn_ + "=?");
    statement.bind(id);
    statement.step();
}

size_t TableImage::place(qint64 id) const {
    if (rows_.empty() || rows_.back()->id < id) return rows_.size();
    const auto at = std::lower_bound(rows_.begin(), rows_.end(), id,
                                     [](const RowRef& row, qint64 wanted) { return row->id < wanted; });
    return static_cast<size_t>(at - rows_.begin());
}

void TableImage::note(qint64 id, const RowRef& after) {
    const size_t at = place(id);
    const auto iterator = rows_.begin() + static_cast<std::ptrdiff_t>(at);
    const bool isKnown = at < rows_.size() && rows_[at]->id == id;
    const RowRef before = isKnown ? rows_[at] : RowRef();
    if (before == after) return;
    if (after && isKnown) rows_[at] = after;
    if (after && !isKnown) rows_.insert(iterator, after);
    if (!after) rows_.erase(iterator);
    highestId_ = std::max(highestId_, id);
    remember({id, before, after});
}

void TableImage::remember(Change change) {
    // A cursor that was away for longer reads the whole image.
    const size_t limit = std::max<size_t>(4096, rows_.size() / 8);
    journal_.push_back(std::move(change));
    while (journal_.size() > limit) {
        journal_.pop_front();
        ++firstVersion_;
    }
}

} // namespace platform
