#include "platform/filter.h"

#include "platform/failure.h"
#include "platform/numbertext.h"
#include "platform/scanner.h"

#include <algorithm>

namespace platform {

namespace {

using Sign = Comparison::Sign;

bool holds(Sign sign, int order) {
    switch (sign) {
    case Sign::Equal:
    case Sign::Like: return order == 0;
    case Sign::NotEqual: return order != 0;
    case Sign::Less: return order < 0;
    case Sign::LessEqual: return order <= 0;
    case Sign::Greater: return order > 0;
    case Sign::GreaterEqual: return order >= 0;
    }
    return false;
}

int order(double a, double b) { return a < b ? -1 : a > b ? 1 : 0; }

} // namespace

Comparison Comparison::withText(Column column, Sign sign, const QString& text, CellPool& pool) {
    Comparison made;
    made.cell_ = column.cell;
    made.isNumberColumn_ = column.isNumber;
    made.sign_ = sign;
    made.text_ = text.toCaseFolded();
    const qsizetype star = sign == Sign::Like ? text.indexOf(u'*') : -1;
    if (star >= 0) {
        if (star != text.size() - 1)
            throw Failure(QStringLiteral("* får bara stå sist i en LIKE-text: %1").arg(text));
        made.kind_ = Kind::Prefix;
        made.text_ = text.chopped(1).toCaseFolded();
        return made;
    }
    if (column.isNumber && sign != Sign::Like) {
        if (const auto number = textNumber(text)) return withNumber(column, sign, *number, pool);
        return made; // Never: a number is not equal to a text that is none.
    }
    const bool byKey = sign == Sign::Equal || sign == Sign::NotEqual || sign == Sign::Like;
    made.kind_ = byKey && !column.isNumber ? Kind::Key : Kind::Text;
    if (made.kind_ == Kind::Key) made.key_ = pool.textKey(text);
    return made;
}

Comparison Comparison::withNumber(Column column, Sign sign, double number, CellPool& pool) {
    if (sign == Sign::Like) throw Failure(QStringLiteral("LIKE kräver en text."));
    Comparison made;
    made.cell_ = column.cell;
    made.sign_ = sign;
    made.number_ = number;
    made.kind_ = Kind::Number;
    // In a number column the equal numbers share one key; texts that are the same number do not.
    if (column.isNumber && (sign == Sign::Equal || sign == Sign::NotEqual)) {
        made.kind_ = Kind::Key;
        made.key_ = pool.numberKey(number);
    }
    return made;
}

bool Comparison::matches(const Row& row) const {
    const Key& key = row.key(cell_);
    if (key.kind == Value::Kind::Null) return false;
    switch (kind_) {
    case Kind::Key: return (&key == key_.get()) == (sign_ != Sign::NotEqual);
    case Kind::Text: return holds(sign_, key.text.compare(text_));
    case Kind::Prefix: return key.text.startsWith(text_);
    case Kind::Number:
        if (key.isNumeric) return holds(sign_, order(key.number, number_));
        break;
    case Kind::Never: break;
    }
    return sign_ == Sign::NotEqual;
}

const Key* Comparison::onlyKey() const {
    return kind_ == Kind::Key && sign_ != Sign::NotEqual ? key_.get() : nullptr;
}

const QString* Comparison::prefix() const {
    return kind_ == Kind::Prefix && !isNumberColumn_ ? &text_ : nullptr;
}

/// Recursive descent: OR of ANDs of comparisons and bracketed filters.
class FilterParser {
public:
    FilterParser(const QString& text, const ColumnLookup& columns, CellPool& pool)
        : scanner_(text)
        , columns_(columns)
        , pool_(pool) {}

    Filter parse() {
        Filter::Node root = parseOr();
        if (scanner_.part() != Scanner::Part::End) scanner_.fail();
        return Filter(std::move(root));
    }

    Filter parseSingle() {
        Filter::Node root = parseComparison();
        if (scanner_.part() != Scanner::Part::End) scanner_.fail();
        return Filter(std::move(root));
    }

private:
    using Node = Filter::Node;

    Node parseOr() { return parseChain(Node::Kind::Or, u"or", &FilterParser::parseAnd); }
    Node parseAnd() { return parseChain(Node::Kind::And, u"and", &FilterParser::parseTerm); }

    Node parseChain(Node::Kind kind, QStringView word, Node (FilterParser::*parsePart)()) {
        Node first = (this->*parsePart)();
        if (!scanner_.isWord(word)) return first;
        Node chain;
        chain.kind = kind;
        chain.parts.push_back(std::move(first));
        while (scanner_.takeWord(word)) chain.parts.push_back((this->*parsePart)());
        return chain;
    }

    Node parseTerm() {
        if (!scanner_.takeSign(u"(")) return parseComparison();
        // A limit keeps a text full of brackets from using up the stack.
        if (++depth_ > kMaxDepth) scanner_.fail();
        Node inner = parseOr();
        --depth_;
        if (!scanner_.takeSign(u")")) scanner_.fail();
        return inner;
    }

    Node parseComparison() {
        const Column column = parseColumn();
        const Sign sign = parseSign();
        Node node;
        const QString literal = scanner_.text();
        if (scanner_.part() == Scanner::Part::Text) {
            node.leaf = Comparison::withText(column, sign, literal, pool_);
        } else if (scanner_.part() == Scanner::Part::Number) {
            node.leaf = Comparison::withNumber(column, sign, literal.toDouble(), pool_);
        } else {
            scanner_.fail();
        }
        scanner_.advance();
        return node;
    }

    Column parseColumn() {
        if (!scanner_.isColumn()) scanner_.fail();
        const auto column = columns_(scanner_.text());
        if (!column) throw Failure(QStringLiteral("Okänd kolumn: %1").arg(scanner_.text()));
        scanner_.advance();
        return *column;
    }

    Sign parseSign() {
        if (scanner_.takeWord(u"like")) return Sign::Like;
        static const std::pair<QStringView, Sign> signs[] = {
            {u"=", Sign::Equal},      {u"<>", Sign::NotEqual}, {u"<", Sign::Less},
            {u"<=", Sign::LessEqual}, {u">", Sign::Greater},   {u">=", Sign::GreaterEqual}};
        for (const auto& [text, sign] : signs) {
            if (scanner_.takeSign(text)) return sign;
        }
        scanner_.fail();
    }

    static constexpr int kMaxDepth = 200;
    Scanner scanner_;
    const ColumnLookup& columns_;
    CellPool& pool_;
    int depth_ = 0;
};

Filter Filter::parse(const QString& text, const ColumnLookup& columns, CellPool& pool) {
    return FilterParser(text, columns, pool).parse();
}

Filter Filter::parseSingle(const QString& text, const ColumnLookup& columns, CellPool& pool) {
    return FilterParser(text, columns, pool).parseSingle();
}

Filter::Filter(Node root)
    : root_(std::move(root)) {
    if (root_.kind == Node::Kind::Leaf) required_.push_back(*root_.leaf);
    if (root_.kind == Node::Kind::Or) isConjunction_ = false;
    if (root_.kind != Node::Kind::And) return;
    for (const Node& part : root_.parts) {
        if (part.kind == Node::Kind::Leaf) {
            required_.push_back(*part.leaf);
        } else {
            isConjunction_ = false;
        }
    }
}

bool Filter::matches(const Node& node, const Row& row) {
    const auto part = [&row](const Node& inner) { return matches(inner, row); };
    switch (node.kind) {
    case Node::Kind::Leaf: return node.leaf->matches(row);
    case Node::Kind::And: return std::all_of(node.parts.begin(), node.parts.end(), part);
    case Node::Kind::Or: return std::any_of(node.parts.begin(), node.parts.end(), part);
    }
    return false;
}

} // namespace platform
