#pragma once

#include "platform/rowsource.h"
#include "platform/view.h"

#include <QHash>

namespace platform {

/// One open recordset: the snapshot, what is visible of it, the current row and the pending edit.
class Cursor {
public:
    /// @throws Failure as Recordset::Open
    Cursor(std::unique_ptr<RowSource> source, Database& database, CellPool& pool, bool isReadOnly);

    void requery() { requeryTogether({this}); }
    /// Requery of several cursors that looks at each table in the file once.
    static void requeryTogether(const std::vector<Cursor*>& cursors);
    void setFilter(const QString& text);
    const QString& filter() const { return filterText_; }
    void setSort(const QString& text);
    void prepare(const QString& filter, const QString& sort);
    const QString& sort() const { return sortText_; }

    bool isBof() const;
    bool isEof() const;
    qsizetype count() const { return view_.count(); }
    void moveFirst();
    void moveLast();
    void moveNext();
    void movePrevious();
    void find(const QString& criterion);
    qsizetype position() const;
    void setPosition(qsizetype row);
    /// Id of the current row. @throws Failure without one
    qint64 rowId() const;
    void goToRow(qint64 id);

    const std::vector<RowSource::Field>& fields() const { return source_->fields(); }
    /// @throws Failure for an unknown place
    const RowSource::Field& fieldAt(int index) const;
    /// @throws Failure for an unknown name
    int fieldIndex(const QString& name) const;
    const Value& field(int index) const;
    const Value& at(qsizetype row, int field) const;
    double sum(int field) const;

    void setField(int index, const Value& value);
    void addNew();
    bool isEditing() const { return edit_.has_value(); }
    /// The pending row is the current one.
    bool isOnEdit() const;
    void cancel();
    void erase();

    /// Writes the pending rows of several cursors of one database in one transaction. Cursors without an
    /// edit, or with one that changes nothing, have nothing written.
    /// @throws Failure as Recordset::Update
    static void write(Database& database, const std::vector<Cursor*>& cursors);
    Database& database() const { return database_; }

private:
    /// First: on the first visible row, which need not be known yet. New: on the row being added.
    enum class Place { First, Row, New, Bof, Eof };

    /// A row that is not what this cursor has read.
    struct Conflict {
        Cursor* cursor;
        RowRef row;
    };
    struct Edit {
        /// The row that is edited, none for a new one.
        RowRef row;
        std::vector<CellRef> cells;
        /// What was current before AddNew.
        RowRef before;
        Place placeBefore = Place::First;
        bool changesAnything() const { return !row || !row->hasCells(cells); }
    };
    /// Takes over what the image of the table knows.
    void follow();
    void settle() const;
    const RowRef& currentRow() const;
    void goTo(const RowRef& row);
    void goToPlace(qsizetype place);
    /// Place of the current row among the visible ones, or the one behind it if it is hidden.
    qsizetype currentPlace() const;
    /// @throws Failure as Recordset::Sort
    SortKeys sortKeys(const QString& text) const;
    /// @throws Failure as Recordset::Filter
    std::shared_ptr<const Filter> parsed(const QString& text);
    std::optional<Column> column(const QString& name) const;
    CellRef cellFor(int index, const Value& value) const;
    void requireWritable() const;
    void writeOtherRow();

    void requireUnchanged(const RowRef& row);
    RowRef writeEdit();
    void takeOver(const RowRef& before, const RowRef& after, View::Keep keep);
    void finishEdit(const RowRef& written);
    void readAgain(const RowRef& row);

    Database& database_;
    CellPool& pool_;
    std::unique_ptr<RowSource> source_;
    bool isReadOnly_;
    RowSet rows_;
    View view_;
    QString filterText_;
    QString sortText_;
    mutable QHash<QString, int> fieldIndexes_;
    QHash<QString, std::shared_ptr<const Filter>> parsedFilters_;

    mutable Place place_ = Place::First;
    mutable RowRef current_;
    mutable qsizetype hint_ = 0;
    std::optional<Edit> edit_;
};

} // namespace platform
