#include "reports/Adif.h"

#include "platform/text.h"

#include <QLocale>
#include <QStringBuilder>

#include <algorithm>
#include <array>

namespace reports {
namespace {

/// A field: its tag, its column, and what becomes of the column's text.
struct Adiffält {
    const char* tagg;
    Kolumn kolumn;
    QString (*som)(const QString&) = nullptr;
};

QString UtanStreck(const QString& datum) { return QString(datum).remove(u'-'); }
QString UtanKolon(const QString& tid) { return QString(tid).remove(u':'); }

using K = Kontakt;
constexpr std::array<Adiffält, 19> fält = {{{"<CALL:", {"Signal", &K::signal}},
                                            {"<QSO_DATE:", {"Datum", &K::datum}, UtanStreck},
                                            {"<TIME_ON:", {"Tid", &K::tid}, UtanKolon},
                                            {"<BAND:", {"Band ", &K::band}, AdifBand},
                                            {"<MODE:", {"Trafiksätt", &K::trafiksätt}},
                                            {"<FREQ:", {"Frekvens", &K::frekvens}},
                                            {"<RST_RCVD:", {"Mottaget", &K::mottaget}},
                                            {"<RST_SENT:", {"Sänt", &K::sänt}},
                                            {"<QTH:", {"QTH", &K::qth}},
                                            {"<NAME:", {"Namn", &K::namn}},
                                            {"<ITUZ:", {"ITU", &K::itu}},
                                            {"<CQZ:", {"Zon", &K::zon}},
                                            {"<DXCC:", {"DXCC", &K::dxcc}},
                                            {"<ADI:", {"DXCC Nr", &K::dxccNr}},
                                            {"<Award:", {"Diplom", &K::diplom}},
                                            {"<Points:", {"Poäng", &K::poäng}},
                                            {"<LAND:", {"Land", &K::land}},
                                            {"<Multipels:", {"Multiplar", &K::multiplar}},
                                            {"<COMMENS:", {"Notering", &K::notering}}}};

} // namespace

std::span<const Kolumn> AdifKolumner() {
    static const auto kolumner = [] {
        std::array<Kolumn, fält.size()> alla{};
        std::transform(fält.begin(), fält.end(), alla.begin(),
                       [](const Adiffält& ett) { return ett.kolumn; });
        return alla;
    }();
    return kolumner;
}

QString AdifBand(const QString& band) {
    if (band.isEmpty()) return {};
    const double nummer = platform::Val(band);
    return QString::number(nummer, 'f', QLocale::FloatingPointShortest) +
           (nummer == 70 ? QStringLiteral("CM") : QStringLiteral("M"));
}

QString AdifPost(const Kontakt& kontakt) {
    QString post;
    for (const Adiffält& ett : fält) {
        const QString& text = kontakt.*ett.kolumn.fält;
        const QString värde = ett.som ? ett.som(text) : text;
        post += QLatin1String(ett.tagg) % QString::number(värde.size()) % u'>' % värde;
    }
    return post % u"<EOR>";
}

Rapport AdifRapport(const Loggbild& logg, const QDateTime& nu) {
    Rapport rapport{{QString(),
                     QStringLiteral("ADIF Export from Sorvik " SORVIK_VERSION ", Sorviks utvecklare 2026"),
                     nu.toString(QStringLiteral("yyyy-MM-dd  HH:mm:ss")),
                     QStringLiteral("https://sorvik.example/  sorvik@sorvik.example"), QString(),
                     QStringLiteral("<EOH>")},
                    logg.läsbar};
    if (!rapport.hel) return rapport;
    for (const Kontakt& kontakt : logg.kontakter) rapport.rader << AdifPost(kontakt);
    return rapport;
}

} // namespace reports
