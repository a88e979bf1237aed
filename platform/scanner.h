#pragma once

#include <QString>

namespace platform {

/// Cuts filter, sort and select texts into their parts.
class Scanner {
public:
    enum class Part { Word, Name, Text, Number, Sign, End };

    /// @throws Failure if the first part is malformed.
    explicit Scanner(const QString& text);

    Part part() const { return part_; }
    /// The word, the [name] or the 'text' without what encloses it, the digits or the sign.
    const QString& text() const { return text_; }

    bool isSign(QStringView sign) const { return part_ == Part::Sign && text_ == sign; }
    /// Whether this is the bare word, in any case.
    bool isWord(QStringView word) const {
        return part_ == Part::Word && text_.compare(word, Qt::CaseInsensitive) == 0;
    }
    /// Whether a bare word or a bracketed name stands here that can name a column.
    bool isColumn() const;

    /// @throws Failure if what follows is malformed: an open text or bracket, a stray character.
    void advance();
    /// Goes past the part if it is that sign or word. @throws Failure as advance
    bool takeSign(QStringView sign);
    bool takeWord(QStringView word);

    /// A failure that shows the whole text.
    [[noreturn]] void fail() const;

private:
    void scanEnclosed(Part part, QChar end);
    void scanWord();
    bool scanNumber();
    void scanSign();

    QString source_;
    qsizetype at_ = 0;
    Part part_ = Part::End;
    QString text_;
};

} // namespace platform
