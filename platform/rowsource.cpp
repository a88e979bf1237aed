#include "platform/rowsource.h"

#include "platform/failure.h"

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

/// The table's own rows, all columns or some.
class PlainSource : public RowSource {
public:
    explicit PlainSource(std::shared_ptr<TableImage> image)
        : RowSource(std::move(image)) {}

private:
    friend class RowSource;

    void load(RowSet& rows) override {
        std::vector<RowRef> wanted;
        wanted.reserve(image().rows().size());
        for (const RowRef& row : image().rows()) {
            if (isWanted(*row)) wanted.push_back(row);
        }
        rows.assign(std::move(wanted));
    }

    // The row set may hold an older or a newer state of the row than the one before the change.
    void apply(RowSet& rows, const TableImage::Change& change) override {
        const RowRef present = rows.find(change.id);
        const RowRef wanted = change.after && isWanted(*change.after) ? change.after : RowRef();
        if (present != wanted) rows.replace(present, wanted);
    }
};

/// One row for each different content of the columns. Where spellings differ in case the first in order of
/// code units is shown.
class DistinctSource : public RowSource {
public:
    explicit DistinctSource(std::shared_ptr<TableImage> image)
        : RowSource(std::move(image)) {}

    SortKeys naturalOrder() const override {
        SortKeys keys;
        for (const Field& field : fields_) keys.push_back({field.column.cell, false});
        return keys;
    }

private:
    friend class RowSource;

    /// The rows of the table that spell the content in one way, and the row made for them.
    struct Spelling {
        RowRef row;
        qsizetype count = 0;
    };
    using KeyTuple = QVarLengthArray<const Key*, 1>;
    struct Group {
        KeyTuple keys;
        qint64 id = 0;
        // Nearly always one.
        QVarLengthArray<Spelling, 1> spellings;
    };
    /// Owns its groups.
    class Groups {
    public:
        Groups() = default;
        Groups(Groups&& other) noexcept
            : table_(std::exchange(other.table_, {})) {}
        ~Groups() {
            table_.forEach([](Group& group) { delete &group; });
        }

        size_t size() const { return table_.size(); }
        Group* find(const KeyTuple& keys) const {
            return table_.find(hash(keys), [&](const Group& group) { return group.keys == keys; });
        }
        Group& add(const KeyTuple& keys, qint64 id) {
            auto* group = new Group{keys, id, {}};
            table_.insert(hash(keys), group);
            return *group;
        }
        void remove(Group& group) {
            table_.erase(hash(group.keys), &group);
            delete &group;
        }
        template <class Function>
        void forEach(Function function) const {
            table_.forEach(function);
        }
        void swap(Groups& other) noexcept { std::swap(table_, other.table_); }

    private:
        static size_t hash(const KeyTuple& keys) { return qHashRange(keys.begin(), keys.end()); }
        PointerTable<Group> table_;
    };

    void load(RowSet& rows) override {
        Groups old;
        old.swap(groups_);
        for (const RowRef& row : image().rows()) {
            if (isWanted(*row)) count(groupOf(tuple(*row), old), *row, 1);
        }
        std::vector<RowRef> shown;
        shown.reserve(groups_.size());
        groups_.forEach([&](const Group& group) { shown.push_back(spelling(group)); });
        rows.assign(sorted(shown, naturalOrder()));
    }

    /// The group of a content, a new one if need be. A content that was there before keeps its id, and with
    /// it the bookmarks to it.
    Group& groupOf(const KeyTuple& keys, const Groups& old) {
        if (Group* group = groups_.find(keys)) return *group;
        const Group* before = old.find(keys);
        return groups_.add(keys, before ? before->id : ++lastId_);
    }

    void apply(RowSet& rows, const TableImage::Change& change) override {
        const RowRef before = change.before && isWanted(*change.before) ? change.before : RowRef();
        const RowRef after = change.after && isWanted(*change.after) ? change.after : RowRef();
        if (before && after && isSpelledAlike(*before, *after)) return;
        // A content that stays in the table keeps its id, so what comes goes before what leaves.
        if (after) recount(rows, *after, 1);
        if (before) recount(rows, *before, -1);
    }

    void recount(RowSet& rows, const Row& row, int sign) {
        Group& group = groupOf(tuple(row), Groups());
        const RowRef before = spelling(group);
        count(group, row, sign);
        const RowRef after = spelling(group);
        if (before != after) rows.replace(before, after);
        if (!after) groups_.remove(group);
    }

    void count(Group& group, const Row& row, int sign) {
        auto known = std::find_if(group.spellings.begin(), group.spellings.end(),
                                  [&](const Spelling& spelling) { return isSpelledSo(row, *spelling.row); });
        if (known == group.spellings.end()) {
            group.spellings.append({makeRow(group.id, row), 0});
            known = group.spellings.end() - 1;
        }
        known->count += sign;
        if (known->count == 0) group.spellings.erase(known);
    }

    /// The row that is shown for a content, none if no row of the table has it.
    static RowRef spelling(const Group& group) {
        const auto isBefore = [](const CellRef& a, const CellRef& b) {
            return a->value.rawText() < b->value.rawText();
        };
        const auto least = std::min_element(
            group.spellings.begin(), group.spellings.end(), [&](const Spelling& a, const Spelling& b) {
                return std::ranges::lexicographical_compare(a.row->cells(), b.row->cells(), isBefore);
            });
        return least == group.spellings.end() ? RowRef() : least->row;
    }

    RowRef makeRow(qint64 id, const Row& tableRow) {
        scratch_.clear();
        for (const int cell : tableCells_) scratch_.push_back(tableRow.cell(cell));
        return Row::make(id, scratch_);
    }

    bool isSpelledSo(const Row& tableRow, const Row& made) const {
        for (size_t i = 0; i < tableCells_.size(); ++i) {
            if (tableRow.cell(tableCells_[i]) != made.cells()[i]) return false;
        }
        return true;
    }

    bool isSpelledAlike(const Row& a, const Row& b) const {
        return std::ranges::all_of(tableCells_, [&](int cell) { return a.cell(cell) == b.cell(cell); });
    }

    KeyTuple tuple(const Row& row) const {
        KeyTuple keys;
        for (const int cell : tableCells_) keys.append(&row.key(cell));
        return keys;
    }

    /// The columns in the table's rows; in the rows made here they stand in the order of the select.
    std::vector<int> tableCells_;
    std::vector<CellRef> scratch_;
    Groups groups_;
    qint64 lastId_ = 0;
};

RowSource::Field findField(const TableImage& image, const QString& name) {
    const auto index = image.columnIndex(name);
    if (!index) throw Failure(QStringLiteral("Okänd kolumn: %1").arg(name));
    const TableColumn& column = image.columns()[static_cast<size_t>(*index)];
    return {column.name, {*index, column.isNumber}};
}

} // namespace

std::unique_ptr<RowSource> RowSource::make(std::shared_ptr<TableImage> image, const SelectText& select,
                                           CellPool& pool) {
    std::vector<Field> fields;
    for (const QString& name : select.columns) fields.push_back(findField(*image, name));
    if (!select.isSelect) {
        for (const TableColumn& column : image->columns()) fields.push_back(findField(*image, column.name));
    }
    std::unique_ptr<RowSource> source;
    if (select.isDistinct) {
        auto distinct = std::make_unique<DistinctSource>(std::move(image));
        for (size_t i = 0; i < fields.size(); ++i) {
            distinct->tableCells_.push_back(fields[i].column.cell);
            fields[i].column.cell = static_cast<int>(i);
        }
        source = std::move(distinct);
    } else {
        source = std::make_unique<PlainSource>(std::move(image));
    }
    source->fields_ = std::move(fields);
    if (select.except) source->setExcept(*select.except, pool);
    return source;
}

void RowSource::setExcept(const SelectText::Except& except, CellPool& pool) {
    const Field field = findField(*image_, except.column);
    const Comparison equal = Comparison::withText(field.column, Comparison::Sign::Equal, except.text, pool);
    except_ = equal;
}

bool RowSource::isWanted(const Row& row) const {
    if (!except_) return true;
    return row.key(except_->cell()).kind != Value::Kind::Null && !except_->matches(row);
}

void RowSource::refresh(RowSet& rows) {
    const qint64 now = image_->version();
    // Beyond some share of the table it is cheaper to begin anew.
    const qint64 worthwhile = 64 + static_cast<qint64>(image_->rows().size() / 8);
    if (!version_ || !image_->remembers(*version_) || now - *version_ > worthwhile) {
        load(rows);
    } else {
        for (qint64 version = *version_; version < now; ++version) apply(rows, image_->change(version));
    }
    version_ = now;
}

void RowSource::skipOwnChange() {
    if (version_ && *version_ + 1 == image_->version()) version_ = image_->version();
}

} // namespace platform
