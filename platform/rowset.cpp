#include "platform/rowset.h"

#include "platform/failure.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace platform {

namespace {

constexpr quint32 kNoRank = std::numeric_limits<quint32>::max();
/// Whole numbers below this add up exactly, however many rows there are.
constexpr double kSmallWhole = 1e9;
/// Room for the contacts of an evening, so that none of them has to wait while a long list is moved.
constexpr size_t kRoom = 4096;

int compareBy(const SortKeys& keys, const Row& a, const Row& b) {
    for (const SortKey& key : keys) {
        const int order = compareKeys(a.key(key.cell), b.key(key.cell));
        if (order != 0) return key.isDescending ? -order : order;
    }
    return 0;
}

/// Numbers the different keys of a column in their order and gives how many there are.
quint32 rankColumn(const RowList& rows, int cell) {
    std::vector<const Key*> different;
    for (const Row* row : rows) row->key(cell).rank = kNoRank;
    for (const Row* row : rows) {
        const Key& key = row->key(cell);
        if (key.rank == kNoRank) {
            key.rank = 0;
            different.push_back(&key);
        }
    }
    sortKeys(different);
    for (size_t i = 0; i < different.size(); ++i) different[i]->rank = static_cast<quint32>(i);
    return static_cast<quint32>(different.size());
}

/// Stable counting sort by the ranks of one column.
RowList sortedByRank(const RowList& rows, const SortKey& key, quint32 ranks) {
    const auto bin = [&](const Row* row) {
        const quint32 rank = row->key(key.cell).rank;
        return static_cast<size_t>(key.isDescending ? ranks - 1 - rank : rank);
    };
    std::vector<quint32> begin(ranks + size_t{1}, 0);
    for (const Row* row : rows) ++begin[bin(row) + 1];
    for (size_t i = 1; i < begin.size(); ++i) begin[i] += begin[i - 1];
    RowList sorted;
    sorted.reserve(rows.size() + kRoom);
    sorted.resize(rows.size());
    for (const Row* row : rows) sorted[begin[bin(row)]++] = row;
    return sorted;
}

RowList sortedList(const std::vector<RowRef>& rows, const SortKeys& keys) {
    RowList list;
    list.reserve(rows.size() + kRoom);
    for (const RowRef& row : rows) list.push_back(row.get());
    // From the last key to the first; each pass keeps the order of the one before among equals.
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        const quint32 ranks = rankColumn(list, key->cell);
        if (ranks > 1) list = sortedByRank(list, *key, ranks);
    }
    return list;
}

} // namespace

std::vector<RowRef> sorted(const std::vector<RowRef>& rows, const SortKeys& keys) {
    const RowList list = sortedList(rows, keys);
    std::vector<RowRef> ordered;
    ordered.reserve(list.size());
    for (const Row* row : list) ordered.emplace_back(row);
    return ordered;
}

RowSet::RowSet(SortKeys natural)
    : natural_(std::move(natural)) {}

void RowSet::assign(std::vector<RowRef> rows) {
    orders_.clear();
    indexes_.clear();
    totals_.clear();
    rows_ = std::move(rows);
    rows_.reserve(rows_.size() + kRoom);
}

void RowSet::replace(const RowRef& before, const RowRef& after) {
    for (auto& [keys, list] : orders_) replaceInOrder(keys, list, before.get(), after.get());
    const auto isBeforeInStore = [this](const Row& a, const Row& b) { return isBefore({}, a, b); };
    for (auto& [cells, index] : indexes_) index.replace(before.get(), after.get(), isBeforeInStore);
    for (auto& [cell, total] : totals_) {
        if (before) total.count(before->key(cell), -1);
        if (after) total.count(after->key(cell), 1);
    }
    replaceOwned(before, after);
}

RowRef RowSet::find(qint64 id) const {
    if (!natural_.empty()) {
        const auto found =
            std::find_if(rows_.begin(), rows_.end(), [id](const RowRef& r) { return r->id == id; });
        return found == rows_.end() ? RowRef() : *found;
    }
    const auto at = std::lower_bound(rows_.begin(), rows_.end(), id,
                                     [](const RowRef& row, qint64 wanted) { return row->id < wanted; });
    return at != rows_.end() && (*at)->id == id ? *at : RowRef();
}

int RowSet::compare(const SortKeys& keys, const Row& a, const Row& b) const {
    if (const int order = compareBy(keys, a, b); order != 0) return order;
    if (const int order = compareBy(natural_, a, b); order != 0) return order;
    return a.id < b.id ? -1 : a.id > b.id ? 1 : 0;
}

bool RowSet::isBefore(const SortKeys& keys, const Row& a, const Row& b) const {
    return compare(keys, a, b) < 0;
}

qsizetype RowSet::place(const SortKeys& keys, RowSpan list, const Row& row) const {
    // New rows mostly belong at the end.
    if (list.empty() || isBefore(keys, *list.back(), row)) return static_cast<qsizetype>(list.size());
    const auto at = std::lower_bound(list.begin(), list.end(), &row,
                                     [&](const Row* a, const Row* b) { return isBefore(keys, *a, *b); });
    return at - list.begin();
}

const RowList& RowSet::ordered(const SortKeys& keys) const {
    const auto known = orders_.find(keys);
    if (known != orders_.end()) return known->second;
    return orders_.emplace(keys, sortedList(rows_, keys)).first->second;
}

RowSpan RowSet::matching(const Wanted& wanted) const {
    auto known = indexes_.find(wanted.cells);
    if (known == indexes_.end()) {
        known = indexes_.emplace(wanted.cells, RowIndex(wanted.cells)).first;
        for (const RowRef& row : rows_) known->second.append(row.get());
    }
    return known->second.find(wanted.keys);
}

RowSpan RowSet::beginning(int cell, const QString& prefix) const {
    const RowList& list = ordered({{cell, false}});
    const auto isBelow = [&](const Row* row, int) {
        const Key& key = row->key(cell);
        return key.kind != Value::Kind::Text || key.text < prefix;
    };
    const auto first = std::lower_bound(list.begin(), list.end(), 0, isBelow);
    const auto last = std::partition_point(
        first, list.end(), [&](const Row* row) { return row->key(cell).text.startsWith(prefix); });
    return RowSpan(first, last);
}

double RowSet::sum(int cell) const {
    auto known = totals_.find(cell);
    if (known == totals_.end()) {
        known = totals_.emplace(cell, Total()).first;
        for (const RowRef& row : rows_) known->second.count(row->key(cell), 1);
    }
    const Total& total = known->second;
    if (total.notNumbers > 0) throw Failure(QStringLiteral("En rad saknar tal i den kolumn som summeras."));
    if (total.fractions == 0) return total.whole;
    // Adding and taking away fractions would leave a little behind each time.
    double sum = 0;
    for (const RowRef& row : rows_) sum += row->key(cell).number;
    return sum;
}

void RowSet::Total::count(const Key& key, int sign) {
    if (key.kind != Value::Kind::Number) {
        notNumbers += sign;
    } else if (std::trunc(key.number) == key.number && std::abs(key.number) < kSmallWhole) {
        whole += sign * key.number;
    } else {
        fractions += sign;
    }
}

void RowSet::replaceInOrder(const SortKeys& keys, RowList& list, const Row* before, const Row* after) const {
    if (before) {
        const auto at = list.begin() + place(keys, list, *before);
        if (after && compare(keys, *before, *after) == 0) {
            *at = after;
            return;
        }
        list.erase(at);
    }
    if (after) list.insert(list.begin() + place(keys, list, *after), after);
}

void RowSet::replaceOwned(const RowRef& before, const RowRef& after) {
    const auto at = [&](const Row& row) {
        if (rows_.empty() || compare({}, *rows_.back(), row) < 0) return rows_.end();
        return std::lower_bound(rows_.begin(), rows_.end(), &row,
                                [&](const RowRef& a, const Row* b) { return compare({}, *a, *b) < 0; });
    };
    if (before && after && compare({}, *before, *after) == 0) {
        *at(*before) = after;
        return;
    }
    if (before) rows_.erase(at(*before));
    if (after) rows_.insert(at(*after), after);
}

} // namespace platform
