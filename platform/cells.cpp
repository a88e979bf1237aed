#include "platform/cells.h"

#include "platform/numbertext.h"

#include <QHashFunctions>

#include <algorithm>
#include <memory>
#include <new>

namespace platform {

namespace {

/// The first seven code units as one number whose order never contradicts that of the keys. A unit that does
/// not fit a byte ends it: what follows such a one must not decide. Null comes before numbers before texts.
quint64 sortHead(const Key& key) {
    if (key.kind != Value::Kind::Text) return key.kind == Value::Kind::Null ? 0 : 1;
    constexpr qsizetype length = 7;
    constexpr quint64 textKind = 2;
    quint64 head = textKind;
    bool isOpen = true;
    for (qsizetype i = 0; i < length; ++i) {
        const char16_t unit = isOpen && i < key.text.size() ? key.text[i].unicode() : u'\0';
        head = head << 8 | std::min<quint64>(unit, 0xff);
        isOpen = isOpen && unit < 0xff;
    }
    return head;
}

} // namespace

int compareKeys(const Key& a, const Key& b) {
    if (&a == &b) return 0;
    if (a.kind != b.kind) {
        // Null, number, text.
        const auto place = [](Value::Kind kind) {
            return kind == Value::Kind::Null ? 0 : kind == Value::Kind::Number ? 1 : 2;
        };
        return place(a.kind) - place(b.kind);
    }
    if (a.kind == Value::Kind::Number) return a.number < b.number ? -1 : a.number > b.number ? 1 : 0;
    return a.text.compare(b.text);
}

void Key::release() const {
    if (--uses_ > 0) return;
    pool_.forget(this);
    delete this;
}

void Cell::makeKey() const { key_ = pool_.keyOf(value); }

void Cell::release() const {
    if (--uses_ > 0) return;
    pool_.forget(this);
    delete this;
}

CellPool::CellPool()
    : nullKey_(new Key(*this, 0))
    , null_(new Cell(*this, Value(), 0))
    , empty_(text(QStringView(u""))) {}

CellPool::~CellPool() = default;

CellRef CellPool::text(QStringView text) {
    const size_t hash = qHash(text);
    const Cell* known = texts_.find(hash, [&](const Cell& cell) { return cell.value.rawText() == text; });
    if (known) return CellRef(known);
    CellRef cell(new Cell(*this, Value(text.toString()), hash));
    texts_.insert(hash, cell.get());
    return cell;
}

CellRef CellPool::number(double number) {
    // Minus zero is zero, to the table as well.
    const double plain = number == 0 ? 0.0 : number;
    const size_t hash = qHash(plain);
    const Cell* known = numbers_.find(hash, [&](const Cell& cell) { return cell.value.number() == plain; });
    if (known) return CellRef(known);
    CellRef cell(new Cell(*this, Value(plain), hash));
    numbers_.insert(hash, cell.get());
    return cell;
}

CellRef CellPool::cell(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Text: return text(value.rawText());
    case Value::Kind::Number: return number(value.number());
    case Value::Kind::Null: break;
    }
    return null_;
}

KeyRef CellPool::textKey(const QString& text) {
    const QString folded = text.toCaseFolded();
    const size_t hash = qHash(QStringView(folded));
    const Key* known = textKeys_.find(hash, [&](const Key& key) { return key.text == folded; });
    if (known) return KeyRef(known);
    auto* key = new Key(*this, hash);
    key->kind = Value::Kind::Text;
    if (const auto number = textNumber(folded)) {
        key->isNumeric = true;
        key->number = *number;
    }
    key->text = folded;
    textKeys_.insert(hash, key);
    return KeyRef(key);
}

KeyRef CellPool::numberKey(double number) {
    const size_t hash = qHash(number == 0 ? 0.0 : number);
    const Key* known = numberKeys_.find(hash, [&](const Key& key) { return key.number == number; });
    if (known) return KeyRef(known);
    auto* key = new Key(*this, hash);
    key->kind = Value::Kind::Number;
    key->isNumeric = true;
    key->number = number == 0 ? 0.0 : number;
    key->text = numberText(key->number).toCaseFolded();
    numberKeys_.insert(hash, key);
    return KeyRef(key);
}

KeyRef CellPool::keyOf(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Text: return textKey(value.rawText());
    case Value::Kind::Number: return numberKey(value.number());
    case Value::Kind::Null: break;
    }
    return nullKey_;
}

void CellPool::forgetAll() {
    texts_.clear();
    textKeys_.clear();
    numbers_.clear();
    numberKeys_.clear();
}

void CellPool::forget(const Cell* cell) {
    if (cell->value.kind() == Value::Kind::Text) texts_.erase(cell->hash_, cell);
    if (cell->value.kind() == Value::Kind::Number) numbers_.erase(cell->hash_, cell);
}

void CellPool::forget(const Key* key) {
    if (key->kind == Value::Kind::Text) textKeys_.erase(key->hash_, key);
    if (key->kind == Value::Kind::Number) numberKeys_.erase(key->hash_, key);
}

static_assert(alignof(Row) >= alignof(CellRef) && sizeof(Row) % alignof(CellRef) == 0);

RowRef Row::make(qint64 id, std::span<CellRef> cells) {
    void* memory = ::operator new(sizeof(Row) + cells.size() * sizeof(CellRef));
    return RowRef(new (memory) Row(id, cells));
}

Row::Row(qint64 rowId, std::span<CellRef> cells)
    : id(rowId)
    , size_(static_cast<quint32>(cells.size())) {
    std::uninitialized_move(cells.begin(), cells.end(), reinterpret_cast<CellRef*>(this + 1));
}

Row::~Row() { std::destroy_n(reinterpret_cast<CellRef*>(this + 1), size_); }

void Row::destroy() const {
    this->~Row();
    ::operator delete(const_cast<Row*>(this));
}

bool Row::hasCells(std::span<const CellRef> other) const { return std::ranges::equal(cells(), other); }

void sortKeys(std::vector<const Key*>& keys) {
    // The first characters beside the pointer decide most comparisons without a look at the key.
    struct Headed {
        quint64 head;
        const Key* key;
    };
    std::vector<Headed> headed;
    headed.reserve(keys.size());
    for (const Key* key : keys) headed.push_back({sortHead(*key), key});
    std::sort(headed.begin(), headed.end(), [](const Headed& a, const Headed& b) {
        return a.head != b.head ? a.head < b.head : compareKeys(*a.key, *b.key) < 0;
    });
    std::transform(headed.begin(), headed.end(), keys.begin(), [](const Headed& h) { return h.key; });
}

} // namespace platform
