#include "radio/Makro.h"

#include "platform/failure.h"
#include "platform/textfile.h"

namespace radio {

namespace {

struct Platshållare {
    const char* kommando;
    QString Makrovärden::*värde;
};

using M = Makrovärden;
/// In the order in which they are replaced.
constexpr Platshållare platshållare[] = {
    {"%SS", &M::minSignal},       {"%SM", &M::motSignal},  {"%RS", &M::sändRapport},
    {"%RM", &M::mottagenRapport}, {"%NS", &M::mittNamn},   {"%NM", &M::mottagetNamn},
    {"%QS", &M::mittQTH},         {"%LS", &M::minLokator}, {"%DS", &M::datum},
};

/// Takes a command out of the text wherever it stands. @return whether it stood there
bool TaUt(QString& text, const char* kommando) {
    const qsizetype längd = text.size();
    text.remove(QLatin1String(kommando), Qt::CaseInsensitive);
    return text.size() != längd;
}

} // namespace

Makrosändning ExpanderaMakro(QString text, const Makrovärden& värden) {
    const bool tx = TaUt(text, "%TX");
    const bool rx = TaUt(text, "%RX");
    for (const Platshållare& plats : platshållare)
        text.replace(QLatin1String(plats.kommando), värden.*plats.värde, Qt::CaseInsensitive);
    return {.text = text, .tx = tx, .rx = rx};
}

QString MakronTillText(const MakroTabell& tabell, int antal) {
    QStringList rader;
    for (size_t i = 0; i < static_cast<size_t>(antal); ++i)
        for (const QString& värde : tabell.at(i)) rader << platform::WriteItem(värde);
    return platform::LinesToText(rader);
}

void LäsMakron(const QString& text, MakroTabell& tabell) {
    platform::ItemReader poster(text);
    size_t lästa = 0;
    do {
        if (lästa == tabell.size()) throw platform::Failure(QStringLiteral("Filen har för många makron."));
        for (QString& värde : tabell[lästa]) värde = poster.Next();
        ++lästa;
    } while (!poster.AtEnd());
    if (lästa >= makroKnappar) return;
    for (size_t rad = lästa - 1; rad < makroKnappar; ++rad) tabell[rad] = {};
}

} // namespace radio
