#pragma once

#include <QString>

namespace reports {

/// A field of fixed width in a report.
///
/// It is kept from record to record, and one that is given nothing shows what it was given for the record
/// before. Until it is first given anything it holds zero bytes.
class FastText {
public:
    /// @param bredd in characters
    explicit FastText(qsizetype bredd)
        : bredd_(bredd)
        , text_(bredd, QChar(u'\0')) {}

    /// The first characters of the value, with blanks behind.
    void Vänster(const QString& värde) { text_ = värde.leftJustified(bredd_, u' ', true); }
    /// The first characters of the value, with blanks in front.
    void Höger(const QString& värde) { text_ = värde.left(bredd_).rightJustified(bredd_, u' '); }
    const QString& Text() const { return text_; }

private:
    qsizetype bredd_;
    QString text_;
};

} // namespace reports
