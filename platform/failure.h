#pragma once

#include <QString>

#include <exception>

namespace platform {

/// A failure at run time: a database error, a malformed filter, a text that is no number, an overflow.
/// A procedure with a handler catches it and shows its own fixed words; one that reaches the event loop
/// ends the process.
class Failure : public std::exception {
public:
    explicit Failure(QString message)
        : message_(std::move(message))
        , utf8_(message_.toUtf8()) {}

    const QString& message() const { return message_; }
    const char* what() const noexcept override { return utf8_.constData(); }

private:
    QString message_;
    QByteArray utf8_;
};

} // namespace platform
