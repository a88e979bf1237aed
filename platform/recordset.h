#pragma once

#include "platform/failure.h"
#include "platform/value.h"

#include <QStringList>

#include <functional>
#include <memory>
#include <vector>

namespace platform {

class Recordset;

/// How much a committed change is worth. Log files take Full: what Update returned from survives a power
/// loss. Stores on local drives that can be built again take Relaxed: nothing waits for the disk and a power
/// loss can cost the last changes, never the file; after a crash of the process nothing is missing.
enum class Durability { Full, Relaxed };

/// One database file. Not copyable; closing it closes the recordsets that are still open on it.
///
/// Rollback journal (Full) or write-ahead log (Relaxed), a busy file waits up to six seconds, one short
/// transaction for each Update.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Opens an existing database file.
    /// @throws Failure if the connection is open already, the file is missing, or it is no database.
    void Open(const QString& path, Durability durability = Durability::Full);

    /// @throws Failure if the connection is not open.
    void Close();

    bool IsOpen() const;
    QString Path() const;

    /// Kept for the callers that set it; every cursor is a client-side static snapshot (3).
    int CursorLocation() const { return cursorLocation_; }
    void CursorLocation(int location) { cursorLocation_ = location; }

    struct Impl;

private:
    friend class Recordset;
    friend void UpdateTogether(const std::vector<Recordset*>& recordsets);
    std::unique_ptr<Impl> impl_;
    int cursorLocation_ = 2;
};

/// Names one row of one recordset; stays valid through Filter, Sort and Requery as long as the row exists.
class Bookmark {
public:
    Bookmark() = default;
    bool isValid() const { return row_ != 0; }
    friend bool operator==(const Bookmark&, const Bookmark&) = default;

private:
    friend class Recordset;
    explicit Bookmark(qint64 row)
        : row_(row) {}
    qint64 row_ = 0;
};

/// A static cursor with an optimistic lock over a table or a select.
///
/// The rows are a snapshot taken at Open and at Requery. Its own changes show at once, those of others
/// (another recordset, another process) after Requery. Column names and texts compare without regard to
/// case. Setting Filter or Sort, and clearing them, puts the cursor on the first row of what is then
/// visible. Everything that reads a field at BOF or EOF throws Failure.
class Recordset {
public:
    Recordset();
    ~Recordset();
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    /// @param source a table name, or one of
    ///        "select [DISTINCT] columns from table [WHERE NOT column = 'text']".
    ///        A select is read-only. DISTINCT ignores case and gives its rows in ascending order.
    /// @throws Failure for an unknown table or column, another form of select, a closed connection, or when
    ///         this recordset is open already.
    void Open(const QString& source, Connection& connection);
    /// Drops a pending edit. @throws Failure if not open.
    void Close();
    bool IsOpen() const;

    /// Takes a new snapshot; Filter and Sort stay in force, the cursor goes to the first row and a pending
    /// edit stays pending. The cost follows the changes made on this connection since the last snapshot,
    /// unless another process has written to the file: then the table is read again.
    void Requery();

    bool IsBOF() const;
    bool IsEOF() const;
    /// Rows visible under the filter.
    qsizetype RecordCount() const;

    void MoveFirst();
    void MoveLast();
    /// @throws Failure at EOF.
    void MoveNext();
    /// @throws Failure at BOF.
    void MovePrevious();
    /// Goes forward from the current row to the first that meets the criterion ("column = 'text'", also
    /// <>, <, >, LIKE, and a number without quotes); EOF when there is none.
    void Find(const QString& criterion);

    /// Builds what a filter of that form and that order need, for who will ask for them often; neither the
    /// cursor nor what is visible changes. @throws Failure as Filter and Sort
    void Prepare(const QString& filter, const QString& sort);

    /// The present filter text, empty when none is set.
    QString Filter() const;
    /// Comparisons =, <>, <, >, <=, >=, LIKE (with a trailing *) joined by AND, OR and brackets; columns
    /// bare or as [name]; quoted texts and plain numbers. There is no escape: an apostrophe in a text makes
    /// the filter malformed. A null field meets no comparison. An empty text lifts the filter.
    /// @throws Failure when malformed or for an unknown column; the filter that was set stays.
    void Filter(const QString& text);
    /// "Datum, Tid" or "Poäng DESC"; rows that compare equal keep the order in which they were stored.
    QString Sort() const;
    void Sort(const QString& text);

    /// @throws Failure at BOF or EOF.
    Bookmark GetBookmark() const;
    /// Goes to the row. If the filter hides it, it is current all the same. @throws Failure if it is gone.
    void SetBookmark(const Bookmark& bookmark);

    /// Column names as the table spells them.
    QStringList FieldNames() const;
    /// @throws Failure for an unknown name.
    int FieldIndex(const QString& name) const;
    bool IsNumberField(int index) const;

    /// Value of a field in the current row, as edited if it is the one being added or edited.
    const Value& Field(const QString& name) const;
    const Value& Field(int index) const;
    /// Starts an edit of the current row if none is pending. A text into a number column must be a number
    /// and is stored as one; a number into a text column is stored as its text. If the cursor has been moved
    /// off a pending row, that row is written first, as in AddNew, and the edit of the current one starts.
    /// @throws Failure for an unknown name, a text that is no number, a read-only cursor, or no row.
    void Field(const QString& name, const Value& value);

    /// Starts a new row, all null; it is current until the cursor is moved. A row that an earlier Update
    /// could not write is written first.
    /// @throws Failure if that fails again (nothing is added then), or for a read-only cursor.
    void AddNew();
    /// Writes the pending row in one transaction; returns when it is on the disk. Only columns whose value
    /// differs are written, and nothing at all if none does. The written row becomes the current one and is
    /// kept in sight until the filter is set anew.
    /// A row that another has changed or deleted since it was read fails the Update: the edit is dropped and
    /// the row is read again. After any other failure (disk full, file read-only, file busy) the edit stays
    /// pending; moving, filtering and sorting leave it alone.
    /// @throws Failure as told. Without a pending edit it does nothing.
    void Update();
    /// Drops a pending edit. If the new row was current, what was current before AddNew is so again.
    void CancelUpdate();
    bool EditPending() const;
    /// Deletes the current row, unless another has changed it; the next row becomes current, EOF after the
    /// last. A pending edit of the row goes with it, that of another row is written first.
    /// @throws Failure; nothing is deleted then
    void Delete();

    /// Sum of a number column over all rows, whatever the filter; kept from change to change.
    /// @throws Failure if a row's value is null or not a number.
    double Sum(const QString& column) const;

    /// The field of the n-th visible row in filter and sort order, without moving the cursor (for grids).
    /// @pre 0 <= row < RecordCount()
    const Value& At(qsizetype row, int field) const;
    /// Place of the current row among the visible ones, -1 at BOF, EOF or when it is not among them.
    qsizetype AbsolutePosition() const;
    /// Makes the n-th visible row current. @pre 0 <= row < RecordCount()
    void AbsolutePosition(qsizetype row);

    /// Called after every change of what is visible or current, opening and closing too, but not for those
    /// that listeners make themselves.
    /// @param changed takes the place of what the listener had set; an empty function removes it
    /// @param listener tells several listeners of one recordset apart
    void OnChanged(std::function<void()> changed, const void* listener = nullptr);

    struct Impl;

private:
    friend class Connection;
    friend void UpdateTogether(const std::vector<Recordset*>& recordsets);
    friend void RequeryTogether(const std::vector<Recordset*>& recordsets);
    std::unique_ptr<Impl> impl_;
};

/// Writes the pending rows of several recordsets of one connection in one transaction: all or none. After
/// a conflict in one of them its edit is dropped as in Update and those of the others stay pending.
/// @throws Failure as Update
void UpdateTogether(const std::vector<Recordset*>& recordsets);

/// Requery of several recordsets: the file is asked once for each table, not once for each recordset.
/// @throws Failure as Requery
void RequeryTogether(const std::vector<Recordset*>& recordsets);

} // namespace platform
