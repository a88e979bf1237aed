#include "platform/cursor.h"

#include "platform/failure.h"
#include "platform/selecttext.h"

#include <algorithm>

namespace platform {

namespace {

[[noreturn]] void throwNoSuchRow(qsizetype row) {
    throw Failure(QStringLiteral("Raden %1 finns inte.").arg(row));
}

} // namespace

Cursor::Cursor(std::unique_ptr<RowSource> source, Database& database, CellPool& pool, bool isReadOnly)
    : database_(database)
    , pool_(pool)
    , source_(std::move(source))
    , isReadOnly_(isReadOnly)
    , rows_(source_->naturalOrder())
    , view_(rows_) {
    requery();
}

void Cursor::requeryTogether(const std::vector<Cursor*>& cursors) {
    std::vector<const TableImage*> seen;
    for (Cursor* cursor : cursors) {
        TableImage& image = cursor->source_->image();
        if (std::find(seen.begin(), seen.end(), &image) != seen.end()) continue;
        image.sync();
        seen.push_back(&image);
    }
    for (Cursor* cursor : cursors) cursor->follow();
}

void Cursor::follow() {
    source_->refresh(rows_);
    view_.reset();
    moveFirst();
}

void Cursor::setFilter(const QString& text) {
    view_.setFilter(text.trimmed().isEmpty() ? nullptr : parsed(text));
    filterText_ = text.trimmed().isEmpty() ? QString() : text;
    moveFirst();
}

std::shared_ptr<const Filter> Cursor::parsed(const QString& text) {
    // A refresh of the worked grid alone asks some dozens of texts, the same ones each time.
    constexpr qsizetype kRemembered = 200;
    const auto known = parsedFilters_.constFind(text);
    if (known != parsedFilters_.constEnd()) return *known;
    auto filter = std::make_shared<const Filter>(Filter::parse(
        text, [this](const QString& name) { return column(name); }, pool_));
    if (parsedFilters_.size() >= kRemembered) parsedFilters_.clear();
    parsedFilters_.insert(text, filter);
    return filter;
}

SortKeys Cursor::sortKeys(const QString& text) const {
    SortKeys keys;
    for (const SortTerm& term : parseSort(text)) {
        const int index = fieldIndex(term.column);
        keys.push_back({fieldAt(index).column.cell, term.isDescending});
    }
    return keys;
}

void Cursor::prepare(const QString& filter, const QString& sort) {
    // The rows keep each index and order that was once asked for.
    View view(rows_);
    view.setOrder(sortKeys(sort));
    view.rows();
    view.setFilter(parsed(filter));
    view.count();
}

void Cursor::setSort(const QString& text) {
    view_.setOrder(sortKeys(text));
    sortText_ = text.trimmed().isEmpty() ? QString() : text;
    moveFirst();
}

/// Finds the first visible row when it comes to matter; a filter that is only counted never sorts its hits.
void Cursor::settle() const {
    if (place_ != Place::First || current_) return;
    const RowSpan visible = view_.rows();
    if (visible.empty()) return;
    current_ = RowRef(visible.front());
    place_ = Place::Row;
    hint_ = 0;
}

bool Cursor::isBof() const {
    if (place_ == Place::Row || place_ == Place::New) return false;
    return place_ == Place::Bof || view_.count() == 0;
}

bool Cursor::isEof() const {
    if (place_ == Place::Row || place_ == Place::New) return false;
    return place_ == Place::Eof || view_.count() == 0;
}

void Cursor::moveFirst() {
    place_ = Place::First;
    current_ = RowRef();
}

void Cursor::moveLast() { goToPlace(std::max<qsizetype>(view_.count() - 1, 0)); }

void Cursor::moveNext() {
    if (isEof()) throw Failure(QStringLiteral("Det finns ingen nästa rad."));
    settle();
    switch (place_) {
    case Place::Bof: moveFirst(); break;
    case Place::Row: {
        const qsizetype place = currentPlace();
        const RowSpan visible = view_.rows();
        const bool isVisible = place < static_cast<qsizetype>(visible.size()) &&
                               visible[static_cast<size_t>(place)] == current_.get();
        goToPlace(isVisible ? place + 1 : place);
        break;
    }
    default: goToPlace(view_.count()); break;
    }
}

void Cursor::movePrevious() {
    if (isBof()) throw Failure(QStringLiteral("Det finns ingen föregående rad."));
    settle();
    goToPlace((place_ == Place::Row ? currentPlace() : view_.count()) - 1);
}

void Cursor::find(const QString& criterion) {
    const Filter wanted = Filter::parseSingle(
        criterion, [this](const QString& name) { return column(name); }, pool_);
    settle();
    const RowSpan visible = view_.rows();
    qsizetype begin = 0;
    if (place_ == Place::Row) begin = currentPlace();
    if (place_ == Place::New || place_ == Place::Eof) begin = view_.count();
    // The row that is current though the filter hides it is the first to be looked at.
    if (place_ == Place::Row && wanted.matches(*current_)) return;
    const auto found = std::find_if(visible.begin() + begin, visible.end(),
                                    [&](const Row* row) { return wanted.matches(*row); });
    goToPlace(found - visible.begin());
}

qsizetype Cursor::currentPlace() const {
    const RowSpan visible = view_.rows();
    if (hint_ >= static_cast<qsizetype>(visible.size()) ||
        visible[static_cast<size_t>(hint_)] != current_.get()) {
        hint_ = view_.place(*current_);
    }
    return hint_;
}

void Cursor::goToPlace(qsizetype place) {
    const RowSpan visible = view_.rows();
    current_ = RowRef();
    if (visible.empty()) {
        place_ = Place::First;
    } else if (place < 0) {
        place_ = Place::Bof;
    } else if (place >= static_cast<qsizetype>(visible.size())) {
        place_ = Place::Eof;
    } else {
        goTo(RowRef(visible[static_cast<size_t>(place)]));
        hint_ = place;
    }
}

void Cursor::goTo(const RowRef& row) {
    current_ = row;
    place_ = Place::Row;
}

qsizetype Cursor::position() const {
    settle();
    if (place_ != Place::Row) return -1;
    const qsizetype place = currentPlace();
    const RowSpan visible = view_.rows();
    const bool isVisible = place < static_cast<qsizetype>(visible.size()) &&
                           visible[static_cast<size_t>(place)] == current_.get();
    return isVisible ? place : -1;
}

void Cursor::setPosition(qsizetype row) {
    if (row < 0 || row >= view_.count()) throwNoSuchRow(row);
    goToPlace(row);
}

const RowRef& Cursor::currentRow() const {
    settle();
    if (place_ != Place::Row) throw Failure(QStringLiteral("Det finns ingen aktuell rad."));
    return current_;
}

qint64 Cursor::rowId() const { return currentRow()->id; }

void Cursor::goToRow(qint64 id) {
    const RowRef row = rows_.find(id);
    if (!row) throw Failure(QStringLiteral("Raden finns inte längre."));
    goTo(row);
}

std::optional<Column> Cursor::column(const QString& name) const { return fieldAt(fieldIndex(name)).column; }

const RowSource::Field& Cursor::fieldAt(int index) const {
    if (index < 0 || static_cast<size_t>(index) >= fields().size()) {
        throw Failure(QStringLiteral("Kolumn %1 finns inte.").arg(index));
    }
    return fields()[static_cast<size_t>(index)];
}

int Cursor::fieldIndex(const QString& name) const {
    // The same few spellings come again and again.
    const auto known = fieldIndexes_.constFind(name);
    if (known != fieldIndexes_.constEnd()) return *known;
    const QString folded = name.toCaseFolded();
    const auto found = std::find_if(fields().begin(), fields().end(), [&](const RowSource::Field& field) {
        return field.name.toCaseFolded() == folded;
    });
    if (found == fields().end()) throw Failure(QStringLiteral("Okänd kolumn: %1").arg(name));
    return *fieldIndexes_.insert(name, static_cast<int>(found - fields().begin()));
}

bool Cursor::isOnEdit() const {
    if (!edit_) return false;
    if (!edit_->row) return place_ == Place::New;
    settle();
    return place_ == Place::Row && current_->id == edit_->row->id;
}

const Value& Cursor::field(int index) const {
    const int cell = fieldAt(index).column.cell;
    if (isOnEdit()) return edit_->cells[static_cast<size_t>(cell)]->value;
    return currentRow()->cell(cell)->value;
}

const Value& Cursor::at(qsizetype row, int field) const {
    const RowSpan visible = view_.rows();
    if (row < 0 || row >= static_cast<qsizetype>(visible.size())) throwNoSuchRow(row);
    return visible[static_cast<size_t>(row)]->cell(fieldAt(field).column.cell)->value;
}

double Cursor::sum(int field) const {
    const Column column = fieldAt(field).column;
    if (!column.isNumber) throw Failure(QStringLiteral("Bara talkolumner kan summeras."));
    return rows_.sum(column.cell);
}

} // namespace platform
