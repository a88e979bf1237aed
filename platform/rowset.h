#pragma once

#include "platform/rowindex.h"

#include <map>
#include <memory>
#include <tuple>

namespace platform {

struct SortKey {
    int cell = 0;
    bool isDescending = false;
    friend bool operator<(const SortKey& a, const SortKey& b) {
        return std::tie(a.cell, a.isDescending) < std::tie(b.cell, b.isDescending);
    }
};
using SortKeys = std::vector<SortKey>;

/// The rows in the order of the keys; those that compare equal keep their order.
std::vector<RowRef> sorted(const std::vector<RowRef>& rows, const SortKeys& keys);

/// The rows of one cursor's snapshot with the orders and indexes that were asked for. Those are built when
/// first needed and then kept up to date from change to change.
class RowSet {
public:
    /// @param natural the order in which rows stand that no sort tells apart; by id when it is empty
    explicit RowSet(SortKeys natural = {});

    /// Replaces all rows. @pre they are in natural order
    void assign(std::vector<RowRef> rows);
    /// Takes one row out and puts another in; either may be none.
    void replace(const RowRef& before, const RowRef& after);

    qsizetype size() const { return static_cast<qsizetype>(rows_.size()); }
    /// The row with the id, none if there is none.
    RowRef find(qint64 id) const;

    /// All rows in the order of the keys.
    const RowList& ordered(const SortKeys& keys) const;
    /// Whether a comes before b in that order; no two rows are equal in it.
    bool isBefore(const SortKeys& keys, const Row& a, const Row& b) const;
    /// Where the row stands in a list in that order, or would.
    qsizetype place(const SortKeys& keys, RowSpan list, const Row& row) const;

    /// Columns and the keys wanted in them.
    struct Wanted {
        std::vector<int> cells;
        std::vector<const Key*> keys;
    };
    /// The rows that have the keys, in natural order. @pre 1 to RowIndex::kColumns ascending cells
    RowSpan matching(const Wanted& wanted) const;
    /// The rows whose text in the column begins so, in the order of that column.
    RowSpan beginning(int cell, const QString& prefix) const;

    /// Sum of a column. @throws Failure if a value is not a number.
    double sum(int cell) const;

private:
    struct Total {
        double whole = 0;
        qsizetype fractions = 0;
        qsizetype notNumbers = 0;
        void count(const Key& key, int sign);
    };

    void replaceInOrder(const SortKeys& keys, RowList& list, const Row* before, const Row* after) const;
    void replaceOwned(const RowRef& before, const RowRef& after);
    int compare(const SortKeys& keys, const Row& a, const Row& b) const;

    SortKeys natural_;
    std::vector<RowRef> rows_;
    // Filled by need; what they hold follows from the rows.
    mutable std::map<SortKeys, RowList> orders_;
    mutable std::map<std::vector<int>, RowIndex> indexes_;
    mutable std::map<int, Total> totals_;
};

} // namespace platform
