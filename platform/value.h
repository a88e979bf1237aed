#pragma once

#include <QString>

namespace platform {

/// One field of a row: null, a text or a number.
///
/// Columns declared with a number type (INTEGER, SMALLINT, REAL ...) hold numbers, all others texts.
class Value {
public:
    enum class Kind : quint8 { Null, Text, Number };

    Value() = default;
    // Implicit: a field is assigned whatever a window's field holds.
    Value(QString text)
        : kind_(Kind::Text)
        , text_(std::move(text)) {}
    Value(const char* text)
        : Value(QString::fromUtf8(text)) {}
    Value(double number)
        : kind_(Kind::Number)
        , number_(number) {}
    Value(int number)
        : Value(static_cast<double>(number)) {}
    Value(qlonglong number)
        : Value(static_cast<double>(number)) {}

    Kind kind() const { return kind_; }
    bool isNull() const { return kind_ == Kind::Null; }

    /// The text as it is shown: a whole number without decimals, null as the empty text.
    QString text() const;

    /// The stored text without a copy; empty if this is no text.
    const QString& rawText() const { return text_; }

    /// The number. @throws Failure if the value is null or a text that is not a number.
    double number() const;

    /// number() rounded half to even. @throws Failure as number(), and outside 32 bits.
    int integer() const;

    /// Exact equality: kind, case and all. This is what the optimistic lock compares with.
    friend bool operator==(const Value& a, const Value& b) {
        return a.kind_ == b.kind_ && a.number_ == b.number_ && a.text_ == b.text_;
    }

private:
    Kind kind_ = Kind::Null;
    QString text_;
    double number_ = 0;
};

} // namespace platform
