#pragma once

#include "platform/cells.h"

#include <array>
#include <memory>

namespace platform {

/// Rows that someone else holds.
using RowList = std::vector<const Row*>;
using RowSpan = std::span<const Row* const>;

/// Finds the rows with given keys in some columns.
class RowIndex {
public:
    static constexpr size_t kColumns = 4;

    /// @pre 1 to kColumns cells
    explicit RowIndex(std::vector<int> cells)
        : cells_(std::move(cells)) {}

    /// The rows whose columns have the keys, in natural order; good until the next change.
    RowSpan find(const std::vector<const Key*>& keys) const;

    /// @pre the row comes after all others in natural order
    void append(const Row* row);
    /// Takes one row out and puts another in; either may be none.
    template <class IsBefore>
    void replace(const Row* before, const Row* after, IsBefore isBefore) {
        if (before && after && tuple(*before) == tuple(*after)) {
            Bucket& bucket = *findBucket(tuple(*before));
            *place(bucket, *before, isBefore) = after;
            return;
        }
        if (before) {
            Bucket& bucket = *findBucket(tuple(*before));
            takeOut(bucket, place(bucket, *before, isBefore) - bucket.begin());
        }
        if (after) {
            Bucket& bucket = bucketFor(tuple(*after));
            putIn(bucket, place(bucket, *after, isBefore) - bucket.begin(), after);
        }
    }

private:
    using KeyTuple = std::array<const Key*, kColumns>;
    /// Most buckets of a call sign or a serial hold a single row, which needs no list.
    struct Bucket {
        KeyTuple keys{};
        const Row* single = nullptr;
        RowList many;

        const Row** begin() { return single ? &single : many.data(); }
        RowSpan rows() const { return single ? RowSpan(&single, 1) : RowSpan(many); }
    };

    template <class IsBefore>
    const Row** place(Bucket& bucket, const Row& row, IsBefore isBefore) {
        const Row** begin = bucket.begin();
        const Row** end = begin + bucket.rows().size();
        return std::lower_bound(begin, end, &row,
                                [&](const Row* a, const Row* b) { return isBefore(*a, *b); });
    }

    KeyTuple tuple(const Row& row) const;
    size_t hash(const KeyTuple& keys) const;
    Bucket* findBucket(const KeyTuple& keys) const;
    Bucket& bucketFor(const KeyTuple& keys);
    void takeOut(Bucket& bucket, std::ptrdiff_t at);
    static void putIn(Bucket& bucket, std::ptrdiff_t at, const Row* row);

    Bucket* newBucket();

    std::vector<int> cells_;
    PointerTable<Bucket> buckets_;
    // The memory of the buckets, in large pieces: there can be as many as rows.
    static constexpr size_t kChunk = 512;
    std::vector<std::unique_ptr<Bucket[]>> chunks_;
    std::vector<Bucket*> free_;
};

} // namespace platform
