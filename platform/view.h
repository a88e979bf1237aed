#pragma once

#include "platform/filter.h"
#include "platform/rowset.h"

#include <memory>

namespace platform {

/// The rows of a row set that a filter lets through, in the order of a sort. Counting them does not sort
/// them; both wait until they are asked for.
class View {
public:
    explicit View(const RowSet& rows)
        : rows_(rows) {}

    /// No filter shows all rows. Rows that were kept in sight are let go.
    void setFilter(std::shared_ptr<const Filter> filter);
    void setOrder(SortKeys keys);

    qsizetype count() const;
    /// The visible rows in order; good until the next change.
    RowSpan rows() const;
    /// Where the row stands among the visible rows, or would.
    qsizetype place(const Row& row) const { return rows_.place(keys_, rows(), row); }

    /// Begins anew after changes to the row set that it was not told of.
    void reset();
    /// Whether a row that comes and that the filter would hide is shown until the filter is set anew: always,
    /// or if the row in whose place it comes was in sight.
    enum class Keep { Always, IfSeen };
    /// To be called before the row set replaces a row; either may be none.
    void replace(const Row* before, const Row* after, Keep keep);

private:
    /// Rows among which all matches are, found through an index.
    struct Candidates {
        RowSpan rows;
        bool isExact = false;
        bool isNatural = false;
    };
    std::optional<Candidates> candidates() const;
    Candidates byKeys(const std::vector<const Comparison*>& equal) const;
    void collect() const;
    void sort() const;
    bool isVisible(const Row& row) const;

    const RowSet& rows_;
    std::shared_ptr<const Filter> filter_;
    SortKeys keys_;
    /// Visible rows that the filter would hide.
    RowList kept_;
    // The visible rows under a filter, once they were needed.
    mutable std::optional<RowList> found_;
    mutable bool isSorted_ = false;
};

} // namespace platform
