#include "platform/rowindex.h"

#include <QHashFunctions>

#include <algorithm>

namespace platform {

RowSpan RowIndex::find(const std::vector<const Key*>& keys) const {
    KeyTuple wanted{};
    std::copy(keys.begin(), keys.end(), wanted.begin());
    const Bucket* bucket = findBucket(wanted);
    return bucket ? bucket->rows() : RowSpan();
}

void RowIndex::append(const Row* row) {
    Bucket& bucket = bucketFor(tuple(*row));
    putIn(bucket, static_cast<std::ptrdiff_t>(bucket.rows().size()), row);
}

RowIndex::KeyTuple RowIndex::tuple(const Row& row) const {
    KeyTuple keys{};
    for (size_t i = 0; i < cells_.size(); ++i) keys[i] = &row.key(cells_[i]);
    return keys;
}

size_t RowIndex::hash(const KeyTuple& keys) const {
    size_t hash = 0;
    for (size_t i = 0; i < cells_.size(); ++i) hash = qHash(reinterpret_cast<quintptr>(keys[i]), hash);
    return hash;
}

RowIndex::Bucket* RowIndex::findBucket(const KeyTuple& keys) const {
    return buckets_.find(hash(keys), [&](const Bucket& bucket) { return bucket.keys == keys; });
}

RowIndex::Bucket& RowIndex::bucketFor(const KeyTuple& keys) {
    if (Bucket* bucket = findBucket(keys)) return *bucket;
    Bucket* bucket = newBucket();
    bucket->keys = keys;
    buckets_.insert(hash(keys), bucket);
    return *bucket;
}

RowIndex::Bucket* RowIndex::newBucket() {
    if (free_.empty()) {
        chunks_.push_back(std::make_unique<Bucket[]>(kChunk));
        for (size_t i = kChunk; i > 0; --i) free_.push_back(&chunks_.back()[i - 1]);
    }
    Bucket* bucket = free_.back();
    free_.pop_back();
    return bucket;
}

void RowIndex::takeOut(Bucket& bucket, std::ptrdiff_t at) {
    if (bucket.single) {
        bucket.single = nullptr;
    } else {
        bucket.many.erase(bucket.many.begin() + at);
    }
    if (!bucket.rows().empty()) return;
    buckets_.erase(hash(bucket.keys), &bucket);
    bucket = Bucket();
    free_.push_back(&bucket);
}

void RowIndex::putIn(Bucket& bucket, std::ptrdiff_t at, const Row* row) {
    if (!bucket.single && bucket.many.empty()) {
        bucket.single = row;
        return;
    }
    if (bucket.single) {
        bucket.many.push_back(bucket.single);
        bucket.single = nullptr;
    }
    bucket.many.insert(bucket.many.begin() + at, row);
}

} // namespace platform
