#pragma once

#include "platform/cells.h"
#include "platform/sqlite.h"

#include <deque>
#include <optional>

namespace platform {

struct TableColumn {
    QString name;
    bool isNumber = false;
};

/// One table as this connection last saw it, with the changes that led there. All cursors over the table
/// share its rows; each takes over the changes when it is requeried.
class TableImage {
public:
    /// One row as it was and as it is; none before it came and after it went.
    struct Change {
        qint64 id = 0;
        RowRef before;
        RowRef after;
    };

    /// Reads the columns; the rows wait for sync().
    /// @throws Failure for an unknown table
    TableImage(Database& database, CellPool& pool, const QString& name);

    const std::vector<TableColumn>& columns() const { return columns_; }
    /// Place of the column with this name in any case, blanks and all.
    std::optional<int> columnIndex(const QString& name) const;

    /// Reads the table again if someone else has written to the file. @throws Failure; nothing changes then.
    void sync();

    /// In the order of their ids, which is the order in which they were stored.
    const std::vector<RowRef>& rows() const { return rows_; }
    /// Counts changes.
    qint64 version() const { return firstVersion_ + static_cast<qint64>(journal_.size()); }
    /// Whether the changes from that version on are all still known.
    bool remembers(qint64 version) const { return version >= firstVersion_; }
    /// The change that made the version into the next one.
    const Change& change(qint64 version) const {
        return journal_[static_cast<size_t>(version - firstVersion_)];
    }

    /// The stored row, none if there is none; the row that is known already if nothing has changed in it.
    /// @throws Failure
    RowRef read(qint64 id);
    /// Adds a row with the cells that are not null. To be called within a write transaction.
    /// @return the row as it is stored. @throws Failure
    RowRef insert(const std::vector<CellRef>& cells);
    /// Writes the cells that differ. To be called within a write transaction.
    /// @return the row as it is stored. @throws Failure
    RowRef update(const Row& row, const std::vector<CellRef>& cells);
    /// To be called within a write transaction. @throws Failure
    void erase(qint64 id);

    /// Takes over what a transaction did to a row, or what was seen of it.
    void note(qint64 id, const RowRef& after);

private:
    void readColumns();
    void readAll();
    /// Goes through the stored rows beside the known ones and takes what is alike from there.
    std::vector<RowRef> readRows(std::vector<Change>& changes);
    /// @param before the row before, where the values are looked for first
    void readCells(const Statement& statement, std::span<const CellRef> before,
                   std::vector<CellRef>& cells) const;
    /// The row that was just written. @throws Failure if it is not there
    RowRef readBack(qint64 id);
    void remember(Change change);
    size_t place(qint64 id) const;
    QByteArray columnList() const;

    Database& database_;
    CellPool& pool_;
    QByteArray table_;
    QByteArray idColumn_;
    std::vector<TableColumn> columns_;
    /// The column that is the row id itself, if the table has one.
    std::optional<int> keyColumn_;
    QByteArray selectAll_;
    QByteArray selectOne_;

    std::vector<RowRef> rows_;
    std::optional<qint64> dataVersion_;
    /// Ids are not used again by this connection, so a bookmark does not come to name another row.
    qint64 highestId_ = 0;
    std::deque<Change> journal_;
    qint64 firstVersion_ = 0;
};

} // namespace platform
