#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace platform {

/// What a cursor is opened on, taken apart.
struct SelectText {
    /// False for a bare table name, which gives all columns and can be written to.
    bool isSelect = false;
    bool isDistinct = false;
    std::vector<QString> columns;
    QString table;
    /// "WHERE NOT column = 'text'"
    struct Except {
        QString column;
        QString text;
    };
    std::optional<Except> except;
};

/// @throws Failure for another form of select.
SelectText parseSelect(const QString& source);

struct SortTerm {
    QString column;
    bool isDescending = false;
};

/// The columns of a sort text, none for an empty one. @throws Failure if it is malformed.
std::vector<SortTerm> parseSort(const QString& text);

} // namespace platform
