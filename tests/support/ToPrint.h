#pragma once

#include "platform/failure.h"

#include <QString>
#include <gtest/gtest.h>

#include <optional>
#include <ostream>

// How GoogleTest shows our texts when a case fails. Qt's types live in the global namespace, so do these.
inline void PrintTo(const QString& text, std::ostream* out) { *out << '"' << text.toStdString() << '"'; }
inline void PrintTo(const std::optional<QString>& text, std::ostream* out) {
    if (text) {
        PrintTo(*text, out);
    } else {
        *out << "nothing";
    }
}

/// A text of the source file, which is UTF-8.
inline QString T(const char* text) { return QString::fromUtf8(text); }
