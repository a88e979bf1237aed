#include "platform/scanner.h"

#include "platform/failure.h"

#include <algorithm>
#include <array>

namespace platform {

namespace {

bool isWordChar(QChar c) { return c.isLetterOrNumber() || c.isMark() || c.isSurrogate() || c == u'_'; }

bool isDigit(QChar c) { return c >= u'0' && c <= u'9'; }

} // namespace

Scanner::Scanner(const QString& text)
    : source_(text) {
    advance();
}

bool Scanner::isColumn() const {
    if (part_ == Part::Name) return true;
    if (part_ != Part::Word) return false;
    static constexpr std::array<QStringView, 4> reserved = {u"and", u"or", u"like", u"not"};
    return std::none_of(reserved.begin(), reserved.end(), [this](QStringView word) { return isWord(word); });
}

void Scanner::advance() {
    while (at_ < source_.size() && source_[at_].isSpace()) ++at_;
    text_.clear();
    if (at_ == source_.size()) {
        part_ = Part::End;
        return;
    }
    const QChar c = source_[at_];
    if (c == u'[') return scanEnclosed(Part::Name, u']');
    if (c == u'\'') return scanEnclosed(Part::Text, u'\'');
    if (scanNumber()) return;
    if (isWordChar(c)) return scanWord();
    scanSign();
}

bool Scanner::takeSign(QStringView sign) {
    if (!isSign(sign)) return false;
    advance();
    return true;
}

bool Scanner::takeWord(QStringView word) {
    if (!isWord(word)) return false;
    advance();
    return true;
}

void Scanner::fail() const { throw Failure(QStringLiteral("Felaktigt uttryck: %1").arg(source_)); }

void Scanner::scanEnclosed(Part part, QChar end) {
    const qsizetype close = source_.indexOf(end, at_ + 1);
    if (close < 0) fail();
    part_ = part;
    text_ = source_.mid(at_ + 1, close - at_ - 1);
    at_ = close + 1;
}

void Scanner::scanWord() {
    const qsizetype begin = at_;
    while (at_ < source_.size() && isWordChar(source_[at_])) ++at_;
    part_ = Part::Word;
    text_ = source_.mid(begin, at_ - begin);
}

/// Takes a plain number. Digits that run on into letters are a word.
bool Scanner::scanNumber() {
    qsizetype at = at_;
    const auto digits = [&] {
        const qsizetype begin = at;
        while (at < source_.size() && isDigit(source_[at])) ++at;
        return at - begin;
    };
    if (source_[at] == u'-' || source_[at] == u'+') ++at;
    qsizetype count = digits();
    if (at < source_.size() && source_[at] == u'.') {
        ++at;
        count += digits();
    }
    if (count == 0 || (at < source_.size() && (isWordChar(source_[at]) || source_[at] == u'.'))) return false;
    part_ = Part::Number;
    text_ = source_.mid(at_, at - at_);
    at_ = at;
    return true;
}

void Scanner::scanSign() {
    static constexpr std::array<QStringView, 9> signs = {u"<>", u"<=", u">=", u"<", u">",
                                                         u"=",  u"(",  u")",  u","};
    const QStringView rest = QStringView(source_).mid(at_);
    const auto sign =
        std::find_if(signs.begin(), signs.end(), [&](QStringView s) { return rest.startsWith(s); });
    if (sign == signs.end()) fail();
    part_ = Part::Sign;
    text_ = sign->toString();
    at_ += sign->size();
}

} // namespace platform
