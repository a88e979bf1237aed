#include "platform/view.h"

#include <algorithm>
#include <bit>

namespace platform {

namespace {

/// Up to this many candidates no better index is looked for.
constexpr size_t kFew = 256;

} // namespace

void View::setFilter(std::shared_ptr<const Filter> filter) {
    filter_ = std::move(filter);
    reset();
}

void View::setOrder(SortKeys keys) {
    keys_ = std::move(keys);
    isSorted_ = false;
}

void View::reset() {
    found_.reset();
    kept_.clear();
}

qsizetype View::count() const {
    if (!filter_) return rows_.size();
    if (!found_) {
        const auto known = candidates();
        if (known && known->isExact) return static_cast<qsizetype>(known->rows.size());
        collect();
    }
    return static_cast<qsizetype>(found_->size());
}

RowSpan View::rows() const {
    if (!filter_) return rows_.ordered(keys_);
    if (!found_) collect();
    if (!isSorted_) sort();
    return *found_;
}

void View::replace(const Row* before, const Row* after, Keep keep) {
    if (!filter_) return;
    const bool isHidden = after && !filter_->matches(*after);
    const bool isKept = isHidden && (keep == Keep::Always || (before && isVisible(*before)));
    if (isKept && !found_) collect();
    std::erase(kept_, before);
    if (isKept) kept_.push_back(after);
    if (!found_) return;
    RowList& found = *found_;
    if (before) {
        const auto at =
            isSorted_ ? found.begin() + place(*before) : std::find(found.begin(), found.end(), before);
        if (at != found.end() && *at == before) found.erase(at);
    }
    if (!after || (isHidden && !isKept)) return;
    found.insert(isSorted_ ? found.begin() + place(*after) : found.end(), after);
}

std::optional<View::Candidates> View::candidates() const {
    std::vector<const Comparison*> equal;
    const Comparison* beginning = nullptr;
    for (const Comparison& comparison : filter_->required()) {
        const auto sameColumn = [&](const Comparison* other) { return other->cell() == comparison.cell(); };
        if (comparison.onlyKey() && equal.size() < RowIndex::kColumns &&
            std::none_of(equal.begin(), equal.end(), sameColumn)) {
            equal.push_back(&comparison);
        }
        if (comparison.prefix() && !comparison.prefix()->isEmpty()) beginning = &comparison;
    }
    std::optional<Candidates> best;
    if (!equal.empty()) best = byKeys(equal);
    if (beginning && (!best || (best->rows.size() > kFew && !best->isExact))) {
        const RowSpan rows = rows_.beginning(beginning->cell(), *beginning->prefix());
        const bool isExact = filter_->isConjunction() && filter_->required().size() == 1;
        if (!best || rows.size() < best->rows.size()) best = Candidates{rows, isExact, false};
    }
    return best;
}

View::Candidates View::byKeys(const std::vector<const Comparison*>& equal) const {
    auto byColumn = equal;
    std::sort(byColumn.begin(), byColumn.end(),
              [](const Comparison* a, const Comparison* b) { return a->cell() < b->cell(); });
    RowSet::Wanted wanted;
    for (const Comparison* comparison : byColumn) {
        wanted.cells.push_back(comparison->cell());
        wanted.keys.push_back(comparison->onlyKey());
    }
    const bool isExact = filter_->isConjunction() && filter_->required().size() == equal.size();
    return {rows_.matching(wanted), isExact, true};
}

void View::collect() const {
    RowList found;
    const auto known = candidates();
    const RowSpan among = known ? known->rows : RowSpan(rows_.ordered(keys_));
    if (known && known->isExact) {
        found.assign(among.begin(), among.end());
    } else {
        std::copy_if(among.begin(), among.end(), std::back_inserter(found),
                     [this](const Row* row) { return filter_->matches(*row); });
    }
    isSorted_ = !known || (known->isNatural && keys_.empty());
    found_ = std::move(found);
}

void View::sort() const {
    RowList& found = *found_;
    const size_t comparisons = found.size() * std::bit_width(found.size());
    if (comparisons < static_cast<size_t>(rows_.size())) {
        std::sort(found.begin(), found.end(),
                  [this](const Row* a, const Row* b) { return rows_.isBefore(keys_, *a, *b); });
    } else {
        // With so many hits it is cheaper to walk the order of all rows.
        found.clear();
        const RowList& all = rows_.ordered(keys_);
        std::copy_if(all.begin(), all.end(), std::back_inserter(found),
                     [this](const Row* row) { return isVisible(*row); });
    }
    isSorted_ = true;
}

bool View::isVisible(const Row& row) const {
    return filter_->matches(row) || std::find(kept_.begin(), kept_.end(), &row) != kept_.end();
}

} // namespace platform
