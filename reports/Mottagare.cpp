#include "reports/Mottagare.h"

#include <QStringList>

namespace reports {
namespace {

struct Sida {
    const char* namn;   ///< in the settings file
    const char* adress; ///< until the operator writes another there
};

Sida SidaFör(Mottagare mottagare) {
    switch (mottagare) {
    case Mottagare::MT: return {"MT", "https://www.ssa.se/ssa-mt/robot/"};
    case Mottagare::SAC: return {"SAC", "https://www.sactest.net/robot/"};
    case Mottagare::EDI: break;
    }
    return {"EDI", "https://contest.ssa.se/?upload=true"};
}

bool Mellan(int test, int första, int sista) { return test >= första && test <= sista; }

} // namespace

std::optional<Mottagare> CabrilloMottagare(int test) {
    if (Mellan(test, 7, 8)) return Mottagare::MT;
    if (Mellan(test, 9, 10)) return Mottagare::SAC;
    return std::nullopt;
}

std::optional<Mottagare> EdiMottagare(int test) {
    return Mellan(test, 0, 6) ? Mottagare::EDI : CabrilloMottagare(test);
}

QString Adress(Mottagare mottagare, const QString& inställningar) {
    const Sida sida = SidaFör(mottagare);
    for (const QString& rad : inställningar.split(u'\n')) {
        const QString namn = rad.section(u'=', 0, 0).trimmed();
        QString adress = rad.section(u'=', 1).trimmed();
        if (namn.compare(QLatin1String(sida.namn), Qt::CaseInsensitive) == 0 && !adress.isEmpty())
            return adress;
    }
    return QString::fromLatin1(sida.adress);
}

} // namespace reports
