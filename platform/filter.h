#pragma once

#include "platform/cells.h"

#include <functional>
#include <optional>

namespace platform {

/// Where a named column lies in the rows of a cursor.
struct Column {
    int cell = 0;
    bool isNumber = false;
};
/// Gives the column of a name as it is written in a filter; nothing for an unknown one.
using ColumnLookup = std::function<std::optional<Column>(const QString& name)>;

/// One comparison of a filter, made ready to be asked of many rows.
class Comparison {
public:
    enum class Sign { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual, Like };

    /// @throws Failure if LIKE goes with anything but a text with at most one *, at its end.
    static Comparison withText(Column column, Sign sign, const QString& text, CellPool& pool);
    static Comparison withNumber(Column column, Sign sign, double number, CellPool& pool);

    bool matches(const Row& row) const;

    int cell() const { return cell_; }
    /// If just the rows with one key match, that key.
    const Key* onlyKey() const;
    /// If just the texts of a text column that begin with something match, that beginning, folded.
    const QString* prefix() const;

private:
    enum class Kind { Key, Text, Number, Prefix, Never };

    int cell_ = 0;
    bool isNumberColumn_ = false;
    Kind kind_ = Kind::Never;
    Sign sign_ = Sign::Equal;
    KeyRef key_;
    QString text_;
    double number_ = 0;
};

/// A parsed filter.
class Filter {
public:
    /// Parses the comparisons of a filter text.
    /// @throws Failure if it is malformed or names an unknown column.
    static Filter parse(const QString& text, const ColumnLookup& columns, CellPool& pool);
    /// Parses a find text, a single comparison. @throws Failure as parse
    static Filter parseSingle(const QString& text, const ColumnLookup& columns, CellPool& pool);

    bool matches(const Row& row) const { return matches(root_, row); }
    /// The comparisons that every match must meet; empty if an OR stands at the top.
    const std::vector<Comparison>& required() const { return required_; }
    /// Whether required() is all there is to meet.
    bool isConjunction() const { return isConjunction_; }

private:
    friend class FilterParser;
    struct Node {
        enum class Kind { Leaf, And, Or } kind = Kind::Leaf;
        std::optional<Comparison> leaf;
        std::vector<Node> parts;
    };
    explicit Filter(Node root);
    static bool matches(const Node& node, const Row& row);

    Node root_;
    std::vector<Comparison> required_;
    bool isConjunction_ = true;
};

} // namespace platform
