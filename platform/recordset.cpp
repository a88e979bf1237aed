#include "platform/recordset.h"

#include "platform/connection_impl.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

namespace platform {

namespace {

/// A bookmark of 0 is none, but a row may have the id 0.
constexpr qint64 kRowZero = std::numeric_limits<qint64>::min();

} // namespace

Cursor& Recordset::Impl::open() const {
    if (!cursor) throw Failure(QStringLiteral("Tabellen är inte öppen."));
    return *cursor;
}

void Recordset::Impl::close() {
    if (!cursor) return;
    cursor.reset();
    std::erase(connection->recordsets, this);
    connection = nullptr;
    tell();
}

template <class Operation>
void Recordset::Impl::act(Operation operation) {
    Cursor& target = open();
    try {
        operation(target);
    } catch (...) {
        tell();
        throw;
    }
    tell();
}

void Recordset::Impl::tell() {
    // A listener that moves the cursor knows of it.
    if (listeners.empty() || isTelling) return;
    const QScopedValueRollback<bool> telling(isTelling, true);
    // A listener may put another in its place.
    const auto toTell = listeners;
    for (const auto& [who, changed] : toTell) changed();
}

namespace {

/// Runs an operation on several recordsets and tells the listeners of all, also of what a failed one has
/// changed.
template <class Part, class Operation>
void actTogether(const std::vector<Part*>& parts, Operation operation) {
    const auto tellAll = [&parts] {
        for (Part* part : parts) part->tell();
    };
    try {
        operation();
    } catch (...) {
        tellAll();
        throw;
    }
    tellAll();
}

} // namespace

Recordset::Recordset()
    : impl_(std::make_unique<Impl>()) {}
Recordset::~Recordset() = default;

void Recordset::Open(const QString& source, Connection& connection) {
    if (IsOpen()) throw Failure(QStringLiteral("Tabellen är redan öppen."));
    if (!connection.IsOpen()) throw Failure(QStringLiteral("Databasen är inte öppen."));
    Connection::Impl& base = *connection.impl_;
    const SelectText select = parseSelect(source);
    auto rows = RowSource::make(base.image(select.table), select, base.pool);
    impl_->cursor = std::make_unique<Cursor>(std::move(rows), base.database, base.pool, select.isSelect);
    impl_->connection = &base;
    base.recordsets.push_back(impl_.get());
    impl_->tell();
}

void Recordset::Close() {
    impl_->open();
    impl_->close();
}

bool Recordset::IsOpen() const { return impl_->cursor != nullptr; }

void Recordset::Requery() {
    impl_->act([](Cursor& cursor) { cursor.requery(); });
}

bool Recordset::IsBOF() const { return impl_->open().isBof(); }

bool Recordset::IsEOF() const { return impl_->open().isEof(); }

qsizetype Recordset::RecordCount() const { return impl_->open().count(); }

void Recordset::MoveFirst() {
    impl_->act([](Cursor& cursor) { cursor.moveFirst(); });
}

void Recordset::MoveLast() {
    impl_->act([](Cursor& cursor) { cursor.moveLast(); });
}

void Recordset::MoveNext() {
    impl_->act([](Cursor& cursor) { cursor.moveNext(); });
}

void Recordset::MovePrevious() {
    impl_->act([](Cursor& cursor) { cursor.movePrevious(); });
}

void Recordset::Find(const QString& criterion) {
    impl_->act([&](Cursor& cursor) { cursor.find(criterion); });
}

QString Recordset::Filter() const { return impl_->open().filter(); }

void Recordset::Filter(const QString& text) {
    impl_->act([&](Cursor& cursor) { cursor.setFilter(text); });
}

QString Recordset::Sort() const { return impl_->open().sort(); }

void Recordset::Sort(const QString& text) {
    impl_->act([&](Cursor& cursor) { cursor.setSort(text); });
}

void Recordset::Prepare(const QString& filter, const QString& sort) { impl_->open().prepare(filter, sort); }

Bookmark Recordset::GetBookmark() const {
    const qint64 id = impl_->open().rowId();
    return Bookmark(id == 0 ? kRowZero : id);
}

void Recordset::SetBookmark(const Bookmark& bookmark) {
    impl_->act([&](Cursor& cursor) {
        if (!bookmark.isValid()) throw Failure(QStringLiteral("Bokmärket är tomt."));
        cursor.goToRow(bookmark.row_ == kRowZero ? 0 : bookmark.row_);
    });
}

QStringList Recordset::FieldNames() const {
    QStringList names;
    for (const RowSource::Field& field : impl_->open().fields()) names.append(field.name);
    return names;
}

int Recordset::FieldIndex(const QString& name) const { return impl_->open().fieldIndex(name); }

bool Recordset::IsNumberField(int index) const { return impl_->open().fieldAt(index).column.isNumber; }

const Value& Recordset::Field(const QString& name) const {
    const Cursor& cursor = impl_->open();
    return cursor.field(cursor.fieldIndex(name));
}

const Value& Recordset::Field(int index) const { return impl_->open().field(index); }

void Recordset::Field(const QString& name, const Value& value) {
    Cursor& cursor = impl_->open();
    const int index = cursor.fieldIndex(name);
    // A value alone changes nothing that is visible to a listener; the row written before it does.
    if (cursor.isOnEdit() || !cursor.isEditing()) return cursor.setField(index, value);
    impl_->act([&](Cursor& target) { target.setField(index, value); });
}

void Recordset::AddNew() {
    impl_->act([](Cursor& cursor) { cursor.addNew(); });
}

void Recordset::Update() {
    impl_->act([](Cursor& cursor) { Cursor::write(cursor.database(), {&cursor}); });
}

void Recordset::CancelUpdate() {
    impl_->act([](Cursor& cursor) { cursor.cancel(); });
}

bool Recordset::EditPending() const { return impl_->cursor && impl_->cursor->isEditing(); }

void Recordset::Delete() {
    impl_->act([](Cursor& cursor) { cursor.erase(); });
}

double Recordset::Sum(const QString& column) const {
    const Cursor& cursor = impl_->open();
    return cursor.sum(cursor.fieldIndex(column));
}

const Value& Recordset::At(qsizetype row, int field) const { return impl_->open().at(row, field); }

qsizetype Recordset::AbsolutePosition() const { return impl_->open().position(); }

void Recordset::AbsolutePosition(qsizetype row) {
    impl_->act([&](Cursor& cursor) { cursor.setPosition(row); });
}

void Recordset::OnChanged(std::function<void()> changed, const void* listener) {
    if (changed)
        impl_->listeners[listener] = std::move(changed);
    else
        impl_->listeners.erase(listener);
}

void UpdateTogether(const std::vector<Recordset*>& recordsets) {
    std::vector<Recordset::Impl*> parts;
    std::vector<Cursor*> cursors;
    for (Recordset* recordset : recordsets) {
        Recordset::Impl* part = recordset->impl_.get();
        if (std::find(parts.begin(), parts.end(), part) != parts.end()) continue;
        cursors.push_back(&part->open());
        if (!parts.empty() && part->connection != parts.front()->connection) {
            throw Failure(QStringLiteral("Tabellerna hör till olika databaser."));
        }
        parts.push_back(part);
    }
    if (parts.empty()) return;
    actTogether(parts, [&] { Cursor::write(cursors.front()->database(), cursors); });
}

void RequeryTogether(const std::vector<Recordset*>& recordsets) {
    std::vector<Recordset::Impl*> parts;
    std::vector<Cursor*> cursors;
    for (Recordset* recordset : recordsets) {
        parts.push_back(recordset->impl_.get());
        cursors.push_back(&parts.back()->open());
    }
    actTogether(parts, [&] { Cursor::requeryTogether(cursors); });
}

} // namespace platform
