#include "platform/cells.h"

#include "platform/numbertext.h"

namespace platform {

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

void Cell::release() const {
    if (--uses_ > 0) return;
    pool_.forget(this);
    delete this;
}

QStringView CellPool::SameText::of(const Cell* cell) { return cell->value.rawText(); }

CellPool::CellPool() {
    null_ = CellRef(new Cell(*this, Value(), KeyRef(new Key(*this, 0)), 0));
    empty_ = text(QStringView(u""));
}

CellPool::~CellPool() = default;

CellRef CellPool::text(QStringView text) {
    const auto found = texts_.find(text);
    if (found != texts_.end()) return CellRef(*found);
    QString own = text.toString();
    KeyRef key = textKey(own);
    CellRef cell(new Cell(*this, Value(std::move(own)), std::move(key), qHash(text)));
    texts_.insert(cell.get());
    return cell;
}

CellRef CellPool::number(double number) {
    // Minus zero is zero, to the table as well.
    const double plain = number == 0 ? 0.0 : number;
    const auto found = numbers_.find(plain);
    if (found != numbers_.end()) return CellRef(found->second);
    CellRef cell(new Cell(*this, Value(plain), numberKey(plain), 0));
    numbers_.emplace(plain, cell.get());
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
    const auto found = textKeys_.find(QStringView(folded));
    if (found != textKeys_.end()) return KeyRef(*found);
    auto* key = new Key(*this, qHash(QStringView(folded)));
    key->kind = Value::Kind::Text;
    if (const auto number = textNumber(folded)) {
        key->isNumeric = true;
        key->number = *number;
    }
    key->text = folded;
    KeyRef held(key);
    textKeys_.insert(key);
    return held;
}

KeyRef CellPool::numberKey(double number) {
    const auto found = numberKeys_.find(number);
    if (found != numberKeys_.end()) return KeyRef(found->second);
    auto* key = new Key(*this, 0);
    key->kind = Value::Kind::Number;
    key->isNumeric = true;
    key->number = number;
    key->text = numberText(number).toCaseFolded();
    KeyRef held(key);
    numberKeys_.emplace(number, key);
    return held;
}

void CellPool::forget(const Cell* cell) {
    if (cell->value.kind() == Value::Kind::Text) texts_.erase(cell);
    if (cell->value.kind() == Value::Kind::Number) numbers_.erase(cell->value.number());
}

void CellPool::forget(const Key* key) {
    if (key->kind == Value::Kind::Text) textKeys_.erase(key);
    if (key->kind == Value::Kind::Number) numberKeys_.erase(key->number);
}

} // namespace platform
