#include "platform/rowsource.h"

#include "platform/failure.h"

#include <algorithm>

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

    struct Spelling {
        std::vector<CellRef> cells;
        qsizetype rows = 0;
    };
    struct Group {
        std::vector<Spelling> spellings;
        RowRef shown;
    };
    using KeyTuple = std::vector<const Key*>;
    struct TupleHash {
        size_t operator()(const KeyTuple& tuple) const { return qHashRange(tuple.begin(), tuple.end()); }
    };
    using Groups = std::unordered_map<KeyTuple, Group, TupleHash>;

    void load(RowSet& rows) override {
        Groups old;
        std::swap(old, groups_);
        for (const RowRef& row : image().rows()) {
            if (isWanted(*row)) count(groups_[tuple(*row)], *row, 1);
        }
        std::vector<RowRef> shown;
        shown.reserve(groups_.size());
        for (auto& [key, group] : groups_) {
            // A content that was there before keeps its id, and with it the bookmarks to it.
            const auto known = old.find(key);
            group.shown = makeRow(known == old.end() ? ++lastId_ : known->second.shown->id, group);
            shown.push_back(group.shown);
        }
        RowSet order(naturalOrder());
        std::sort(shown.begin(), shown.end(),
                  [&](const RowRef& a, const RowRef& b) { return order.isBefore({}, *a, *b); });
        rows.assign(std::move(shown));
    }

    void apply(RowSet& rows, const TableImage::Change& change) override {
        const RowRef before = change.before && isWanted(*change.before) ? change.before : RowRef();
        const RowRef after = change.after && isWanted(*change.after) ? change.after : RowRef();
        if (before && after && cells(*before) == cells(*after)) return;
        if (before) recount(rows, *before, -1);
        if (after) recount(rows, *after, 1);
    }

    void recount(RowSet& rows, const Row& row, int sign) {
        const KeyTuple key = tuple(row);
        Group& group = groups_[key];
        count(group, row, sign);
        if (group.spellings.empty()) {
            rows.replace(group.shown, RowRef());
            groups_.erase(key);
            return;
        }
        if (group.shown && group.shown->cells == spelling(group).cells) return;
        const RowRef shown = makeRow(group.shown ? group.shown->id : ++lastId_, group);
        rows.replace(group.shown, shown);
        group.shown = shown;
    }

    void count(Group& group, const Row& row, int sign) const {
        const std::vector<CellRef> wanted = cells(row);
        auto known = std::find_if(group.spellings.begin(), group.spellings.end(),
                                  [&](const Spelling& spelling) { return spelling.cells == wanted; });
        if (known == group.spellings.end()) known = group.spellings.insert(known, {wanted, 0});
        known->rows += sign;
        if (known->rows == 0) group.spellings.erase(known);
    }

    static const Spelling& spelling(const Group& group) {
        const auto isBefore = [](const Spelling& a, const Spelling& b) {
            return std::lexicographical_compare(
                a.cells.begin(), a.cells.end(), b.cells.begin(), b.cells.end(),
                [](const CellRef& x, const CellRef& y) { return x->value.rawText() < y->value.rawText(); });
        };
        return *std::min_element(group.spellings.begin(), group.spellings.end(), isBefore);
    }

    static RowRef makeRow(qint64 id, const Group& group) {
        return RowRef(new Row(id, spelling(group).cells));
    }

    std::vector<CellRef> cells(const Row& row) const {
        std::vector<CellRef> wanted;
        wanted.reserve(tableCells_.size());
        for (const int cell : tableCells_) wanted.push_back(row.cells[static_cast<size_t>(cell)]);
        return wanted;
    }

    KeyTuple tuple(const Row& row) const {
        KeyTuple keys;
        keys.reserve(tableCells_.size());
        for (const int cell : tableCells_) keys.push_back(&row.key(cell));
        return keys;
    }

    /// The columns in the table's rows; in the rows made here they stand in the order of the select.
    std::vector<int> tableCells_;
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
