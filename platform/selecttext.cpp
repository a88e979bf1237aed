#include "platform/selecttext.h"

#include "platform/scanner.h"

#include <QRegularExpression>

namespace platform {

namespace {

QString takeColumn(Scanner& scanner) {
    if (!scanner.isColumn()) scanner.fail();
    QString name = scanner.text();
    scanner.advance();
    return name;
}

SelectText::Except takeExcept(Scanner& scanner) {
    if (!scanner.takeWord(u"not")) scanner.fail();
    SelectText::Except except;
    except.column = takeColumn(scanner);
    if (!scanner.takeSign(u"=") || scanner.part() != Scanner::Part::Text) scanner.fail();
    except.text = scanner.text();
    scanner.advance();
    return except;
}

bool looksLikeSelect(const QString& source) {
    static const QRegularExpression begin(QStringLiteral("^\\s*select\\s"),
                                          QRegularExpression::CaseInsensitiveOption);
    return begin.match(source).hasMatch();
}

} // namespace

SelectText parseSelect(const QString& source) {
    SelectText select;
    if (!looksLikeSelect(source)) {
        select.table = source;
        return select;
    }
    Scanner scanner(source);
    scanner.takeWord(u"select");
    select.isSelect = true;
    select.isDistinct = scanner.takeWord(u"distinct");
    do {
        select.columns.push_back(takeColumn(scanner));
    } while (scanner.takeSign(u","));
    if (!scanner.takeWord(u"from")) scanner.fail();
    select.table = takeColumn(scanner);
    if (scanner.takeWord(u"where")) select.except = takeExcept(scanner);
    if (scanner.part() != Scanner::Part::End) scanner.fail();
    return select;
}

std::vector<SortTerm> parseSort(const QString& text) {
    std::vector<SortTerm> terms;
    Scanner scanner(text);
    if (scanner.part() == Scanner::Part::End) return terms;
    do {
        SortTerm term;
        term.column = takeColumn(scanner);
        term.isDescending = scanner.takeWord(u"desc");
        if (!term.isDescending) scanner.takeWord(u"asc");
        terms.push_back(term);
    } while (scanner.takeSign(u","));
    if (scanner.part() != Scanner::Part::End) scanner.fail();
    return terms;
}

} // namespace platform
