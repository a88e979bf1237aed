#pragma once

#include "platform/value.h"

#include <QStringView>

#include <unordered_map>
#include <unordered_set>
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

/// One value, kept once however many rows hold it; equal values have the same Cell.
class Cell {
public:
    const Value value;
    const KeyRef key;

    void retain() const { ++uses_; }
    void release() const;

private:
    friend class CellPool;
    Cell(CellPool& pool, Value v, KeyRef k, size_t hash)
        : value(std::move(v))
        , key(std::move(k))
        , pool_(pool)
        , hash_(hash) {}
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

    /// Values held, for tests of what is given back.
    size_t size() const { return texts_.size() + numbers_.size(); }

private:
    friend class Cell;
    friend class Key;

    // The hash is kept in the object: growing the sets would read every text again.
    struct Hashed {
        using is_transparent = void;
        size_t operator()(const Cell* cell) const { return cell->hash_; }
        size_t operator()(const Key* key) const { return key->hash_; }
        size_t operator()(QStringView text) const { return qHash(text); }
    };
    struct SameText {
        using is_transparent = void;
        static QStringView of(const Cell* cell);
        static QStringView of(const Key* key) { return key->text; }
        static QStringView of(QStringView text) { return text; }
        template <class A, class B>
        bool operator()(A a, B b) const {
            return of(a) == of(b);
        }
    };

    void forget(const Cell* cell);
    void forget(const Key* key);

    std::unordered_set<const Cell*, Hashed, SameText> texts_;
    std::unordered_set<const Key*, Hashed, SameText> textKeys_;
    std::unordered_map<double, const Cell*> numbers_;
    std::unordered_map<double, const Key*> numberKeys_;
    CellRef null_;
    CellRef empty_;
};

/// One row as it was read; never changed, shared by all cursors that see it.
class Row {
public:
    Row(qint64 rowId, std::vector<CellRef> rowCells)
        : id(rowId)
        , cells(std::move(rowCells)) {}

    const qint64 id;
    const std::vector<CellRef> cells;

    const Key& key(int cell) const { return *cells[static_cast<size_t>(cell)]->key; }

    void retain() const { ++uses_; }
    void release() const {
        if (--uses_ == 0) delete this;
    }

private:
    mutable quint32 uses_ = 0;
};
using RowRef = Ref<const Row>;

} // namespace platform
