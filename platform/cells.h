#pragma once

#include "platform/pointertable.h"
#include "platform/value.h"

#include <QStringView>

#include <span>
#include <utility>
#include <vector>

namespace platform {

class CellPool;

/// Counted pointer without atomics: everything here lives on one thread.
template <class T>
class Ref {
public:
    Ref() = default;
    explicit Ref(T* object)
        : object_(object) {
        if (object_) object_->retain();
    }
    Ref(const Ref& other)
        : Ref(other.object_) {}
    Ref(Ref&& other) noexcept
        : object_(std::exchange(other.object_, nullptr)) {}
    Ref& operator=(Ref other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Ref() {
        if (object_) object_->release();
    }

    T* get() const { return object_; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }
    friend bool operator==(const Ref&, const Ref&) = default;

private:
    T* object_ = nullptr;
};

/// What a comparison sees of a value: the text without regard to case, or the number. There is one Key for
/// all values of a pool that compare equal, so equality is that of the pointers.
class Key {
public:
    Value::Kind kind = Value::Kind::Null;
    /// Whether number holds: a number, or a text that is one.
    bool isNumeric = false;
    double number = 0;
    /// Folded; of a number the text that is shown.
    QString text;
    /// Scratch of whoever sorts keys just now.
    mutable quint32 rank = 0;

    void retain() const { ++uses_; }
    void release() const;

private:
    friend class CellPool;
    Key(CellPool& pool, size_t hash)
        : pool_(pool)
        , hash_(hash) {}
    CellPool& pool_;
    size_t hash_;
    mutable quint32 uses_ = 0;
};
using KeyRef = Ref<const Key>;

/// Negative, zero or positive: null before numbers before texts, texts by their folded code units.
int compareKeys(const Key& a, const Key& b);
/// Sorts by compareKeys.
void sortKeys(std::vector<const Key*>& keys);

/// One value, kept once however many rows hold it; equal values have the same Cell.
class Cell {
public:
    const Value value;

    /// Made when first asked for; most columns are never compared.
    const Key& key() const {
        if (!key_) makeKey();
        return *key_;
    }

    void retain() const { ++uses_; }
    void release() const;

private:
    friend class CellPool;
    Cell(CellPool& pool, Value v, size_t hash)
        : value(std::move(v))
        , pool_(pool)
        , hash_(hash) {}
    void makeKey() const;

    mutable KeyRef key_;
    CellPool& pool_;
    size_t hash_;
    mutable quint32 uses_ = 0;
};
using CellRef = Ref<const Cell>;

/// All values of one connection. They go when the last row that holds them goes.
class CellPool {
public:
    CellPool();
    ~CellPool();
    CellPool(const CellPool&) = delete;
    CellPool& operator=(const CellPool&) = delete;

    const CellRef& null() const { return null_; }
    const CellRef& emptyText() const { return empty_; }
    CellRef text(QStringView text);
    CellRef number(double number);
    CellRef cell(const Value& value);

    /// The key that every spelling of the text has.
    KeyRef textKey(const QString& text);
    KeyRef numberKey(double number);
    KeyRef keyOf(const Value& value);

    /// Gives up finding values again, which lets them go faster. For the time when all of them go.
    void forgetAll();

    /// Values held, for tests of what is given back.
    size_t size() const { return texts_.size() + numbers_.size(); }

private:
    friend class Cell;
    friend class Key;

    void forget(const Cell* cell);
    void forget(const Key* key);

    PointerTable<const Cell> texts_;
    PointerTable<const Key> textKeys_;
    PointerTable<const Cell> numbers_;
    PointerTable<const Key> numberKeys_;
    KeyRef nullKey_;
    CellRef null_;
    CellRef empty_;
};

/// One row as it was read; never changed, shared by all cursors that see it. Its cells lie behind it in the
/// same piece of memory: a row is looked at far more often than it is made.
class Row {
public:
    /// Moves the cells into a new row.
    static Ref<const Row> make(qint64 id, std::span<CellRef> cells);
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    const qint64 id;
    std::span<const CellRef> cells() const { return {reinterpret_cast<const CellRef*>(this + 1), size_}; }
    const CellRef& cell(int index) const { return cells()[static_cast<size_t>(index)]; }
    const Key& key(int index) const { return cell(index)->key(); }
    bool hasCells(std::span<const CellRef> other) const;

    void retain() const { ++uses_; }
    void release() const {
        if (--uses_ == 0) destroy();
    }

private:
    Row(qint64 rowId, std::span<CellRef> cells);
    ~Row();
    void destroy() const;

    const quint32 size_;
    mutable quint32 uses_ = 0;
};
using RowRef = Ref<const Row>;

} // namespace platform
