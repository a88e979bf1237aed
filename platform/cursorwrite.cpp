#include "platform/cursor.h"

#include "platform/failure.h"
#include "platform/numbertext.h"

#include <cmath>

namespace platform {

namespace {

constexpr QStringView kConflict = u"Raden har ändrats eller tagits bort av någon annan.";

} // namespace

void Cursor::requireWritable() const {
    if (isReadOnly_) throw Failure(QStringLiteral("En fråga kan inte ändras."));
}

CellRef Cursor::cellFor(int index, const Value& value) const {
    const RowSource::Field& field = fieldAt(index);
    if (value.isNull()) return pool_.null();
    if (!field.column.isNumber) return pool_.text(value.text());
    const double number = value.number();
    if (!std::isfinite(number)) throw Failure(QStringLiteral("Fältet %1 kräver ett tal.").arg(field.name));
    return pool_.number(number);
}

void Cursor::setField(int index, const Value& value) {
    requireWritable();
    const CellRef cell = cellFor(index, value);
    if (!isOnEdit()) {
        writeOtherRow();
        const auto cells = currentRow()->cells();
        edit_ = Edit{current_, {cells.begin(), cells.end()}, RowRef()};
    }
    edit_->cells[static_cast<size_t>(fieldAt(index).column.cell)] = cell;
}

/// A row that could not be written must not take up what is meant for the current one, nor go with it.
void Cursor::writeOtherRow() {
    const RowRef row = currentRow();
    if (!edit_ || isOnEdit()) return;
    write(database_, {this});
    goToRow(row->id);
}

void Cursor::addNew() {
    requireWritable();
    write(database_, {this});
    settle();
    Edit edit;
    edit.cells.assign(fields().size(), pool_.null());
    edit.before = current_;
    edit.placeBefore = place_;
    edit_ = std::move(edit);
    place_ = Place::New;
    current_ = RowRef();
}

void Cursor::cancel() {
    if (!edit_) return;
    const RowRef before = edit_->before;
    const Place placeBefore = edit_->placeBefore;
    edit_.reset();
    if (place_ != Place::New) return;
    const RowRef row = before ? rows_.find(before->id) : RowRef();
    if (row) return goTo(row);
    moveFirst();
    if (placeBefore == Place::Bof || placeBefore == Place::Eof) place_ = placeBefore;
}

void Cursor::write(Database& database, const std::vector<Cursor*>& cursors) {
    std::vector<Cursor*> writing;
    for (Cursor* cursor : cursors) {
        if (!cursor->edit_) continue;
        if (cursor->edit_->changesAnything()) writing.push_back(cursor);
    }
    std::vector<RowRef> written;
    if (!writing.empty()) {
        try {
            Transaction transaction(database, Transaction::Kind::Write);
            for (Cursor* cursor : writing) written.push_back(cursor->writeEdit());
            transaction.commit();
        } catch (const Conflict& conflict) {
            conflict.cursor->cancel();
            conflict.cursor->readAgain(conflict.row);
            throw Failure(kConflict.toString());
        }
    }
    for (size_t i = 0; i < writing.size(); ++i) writing[i]->finishEdit(written[i]);
    for (Cursor* cursor : cursors) cursor->edit_.reset();
}

void Cursor::requireUnchanged(const RowRef& row) {
    const RowRef stored = source_->image().read(row->id);
    if (!stored || !stored->hasCells(row->cells())) throw Conflict{this, row};
}

RowRef Cursor::writeEdit() {
    if (!edit_->row) return source_->image().insert(edit_->cells);
    requireUnchanged(edit_->row);
    return source_->image().update(*edit_->row, edit_->cells);
}

void Cursor::finishEdit(const RowRef& written) {
    takeOver(rows_.find(written->id), written, View::Keep::Always);
    goTo(written);
    edit_.reset();
}

/// Brings a change of this cursor's own, already on the disk, into the image and the snapshot.
void Cursor::takeOver(const RowRef& before, const RowRef& after, View::Keep keep) {
    const qint64 id = before ? before->id : after->id;
    TableImage& image = source_->image();
    const qint64 version = image.version();
    image.note(id, after);
    if (image.version() != version) source_->skipOwnChange();
    if (before == after) return;
    view_.replace(before.get(), after.get(), keep);
    rows_.replace(before, after);
}

/// After a conflict: shows the row as it is now, or its successor if it is gone.
void Cursor::readAgain(const RowRef& row) {
    // What is current stays so, also where it was only known to be the first visible row.
    settle();
    const RowRef stored = source_->image().read(row->id);
    const RowRef present = rows_.find(row->id);
    const bool isCurrent = place_ == Place::Row && current_->id == row->id;
    const qsizetype place = isCurrent ? currentPlace() : 0;
    if (present || stored) takeOver(present, stored, View::Keep::IfSeen);
    if (!isCurrent) return;
    if (stored) {
        goTo(stored);
    } else {
        goToPlace(place);
    }
}

void Cursor::erase() {
    requireWritable();
    if (place_ == Place::New) return cancel();
    writeOtherRow();
    const RowRef row = currentRow();
    try {
        Transaction transaction(database_, Transaction::Kind::Write);
        requireUnchanged(row);
        source_->image().erase(row->id);
        transaction.commit();
    } catch (const Conflict&) {
        edit_.reset();
        readAgain(row);
        throw Failure(kConflict.toString());
    }
    edit_.reset();
    const qsizetype place = currentPlace();
    takeOver(row, RowRef(), View::Keep::IfSeen);
    goToPlace(place);
}

} // namespace platform
