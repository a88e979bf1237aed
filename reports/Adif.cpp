#include "reports/Adif.h"

#include "platform/text.h"

#include <QStringBuilder>

namespace reports {
namespace {

QString Fält(const char* tagg, const QString& värde) {
    return QString::fromLatin1(tagg) % QString::number(värde.size()) % u'>' % värde;
}

} // namespace

std::span<const Kolumn> AdifKolumner() {
    using K = Kontakt;
    static constexpr Kolumn kolumner[] = {{"Signal", &K::signal},
                                          {"Datum", &K::datum},
                                          {"Tid", &K::tid},
                                          {"Band ", &K::band},
                                          {"Trafiksätt", &K::trafiksätt},
                                          {"Frekvens", &K::frekvens},
                                          {"Mottaget", &K::mottaget},
                                          {"Sänt", &K::sänt},
                                          {"QTH", &K::qth},
                                          {"Namn", &K::namn},
                                          {"ITU", &K::itu},
                                          {"Zon", &K::zon},
                                          {"DXCC", &K::dxcc},
                                          {"DXCC Nr", &K::dxccNr},
                                          {"Diplom", &K::diplom},
                                          {"Poäng", &K::poäng},
                                          {"Land", &K::land},
                                          {"Multiplar", &K::multiplar},
                                          {"Notering", &K::notering}};
    return kolumner;
}

QString AdifBand(const QString& band) {
    if (band.isEmpty()) return {};
    const double nummer = platform::Val(band);
    return QString::number(nummer) + (nummer == 70 ? QStringLiteral("CM") : QStringLiteral("M"));
}

QString AdifPost(const Kontakt& k) {
    return Fält("<CALL:", k.signal) % Fält("<QSO_DATE:", QString(k.datum).remove(u'-')) %
           Fält("<TIME_ON:", QString(k.tid).remove(u':')) % Fält("<BAND:", AdifBand(k.band)) %
           Fält("<MODE:", k.trafiksätt) % Fält("<FREQ:", k.frekvens) % Fält("<RST_RCVD:", k.mottaget) %
           Fält("<RST_SENT:", k.sänt) % Fält("<QTH:", k.qth) % Fält("<NAME:", k.namn) %
           Fält("<ITUZ:", k.itu) % Fält("<CQZ:", k.zon) % Fält("<DXCC:", k.dxcc) % Fält("<ADI:", k.dxccNr) %
           Fält("<Award:", k.diplom) % Fält("<Points:", k.poäng) % Fält("<LAND:", k.land) %
           Fält("<Multipels:", k.multiplar) % Fält("<COMMENS:", k.notering) % u"<EOR>";
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
