#include "reports/FT8Post.h"

#include "platform/failure.h"
#include "platform/text.h"
#include "platform/textfile.h"

#include <algorithm>

namespace reports {

namespace {

int Siffra(const QString& text, qsizetype plats) {
    const QChar tecken = plats < text.size() ? text[plats] : QChar();
    if (tecken < u'0' || tecken > u'9') throw platform::Failure(QStringLiteral("Längden är inget tal."));
    return tecken.unicode() - u'0';
}

bool ÄrSlut(const QString& text, qsizetype plats) { return plats < text.size() && text[plats] == u'>'; }

} // namespace

QString FT8Text(const QString& fil) {
    QString text;
    platform::ItemReader rader(fil);
    while (!rader.AtEnd()) {
        const QString rad = rader.NextLine();
        text += rad;
        if (rad.contains(QLatin1String("<eor>"), Qt::CaseInsensitive)) break;
    }
    return text;
}

std::optional<QString> LäsTagg(const QString& text, QLatin1String tagg, int siffror) {
    qsizetype plats = text.indexOf(tagg, 0, Qt::CaseInsensitive);
    if (plats < 0) return std::nullopt;
    plats += tagg.size();
    int längd = Siffra(text, plats++);
    if (siffror == 1 && !ÄrSlut(text, plats)) return std::nullopt;
    for (int lästa = 1; lästa < siffror && !ÄrSlut(text, plats); ++lästa)
        längd = platform::ToByte(längd * 10 + Siffra(text, plats++));
    return text.mid(plats + 1, längd);
}

std::optional<QString> LäsFT8Signal(const QString& text) { return LäsTagg(text, QLatin1String("<call:"), 3); }

std::optional<QString> LäsFT8Frekvens(const QString& text) {
    return LäsTagg(text, QLatin1String("<freq:"), 2);
}

std::optional<QString> LäsFT8Mottaget(const QString& text) {
    return LäsTagg(text, QLatin1String("<rst_rcvd:"), 1);
}

std::optional<QString> LäsFT8Sänt(const QString& text) {
    return LäsTagg(text, QLatin1String("<rst_sent:"), 1);
}

namespace {
constexpr const char* lokatortaggar[] = {"<locator:", "<lokator:", "<gridsquare:"};
} // namespace

bool HarFT8Lokator(const QString& text) {
    return std::any_of(std::begin(lokatortaggar), std::end(lokatortaggar), [&text](const char* tagg) {
        return text.contains(QLatin1String(tagg), Qt::CaseInsensitive);
    });
}

std::optional<QString> LäsFT8Lokator(const QString& text) {
    for (const char* tagg : lokatortaggar)
        if (const auto lokator = LäsTagg(text, QLatin1String(tagg), 2)) return platform::ToUpper(*lokator);
    return std::nullopt;
}

} // namespace reports
