#include "reports/Summa.h"

#include "platform/failure.h"
#include "platform/text.h"
#include "reports/Titlar.h"

#include <QStringBuilder>

#include <array>

namespace reports {
namespace {

struct Bandrad {
    const char* band;
    const char* rubrik;
};
constexpr std::array<Bandrad, 6> bandrader = {{{"160 M", "160 M   "},
                                               {"80 M", " 80 M   "},
                                               {"40 M", " 40 M   "},
                                               {"20 M", " 20 M   "},
                                               {"15 M", " 15 M   "},
                                               {"10 M", " 10 M   "}}};

/// The first characters of a text, filled with blanks behind.
QString Fast(const QString& text, qsizetype bredd) { return text.leftJustified(bredd, u' ', true); }

/// Three figures side by side, those of a band or the totals.
struct Siffror {
    QString qso, poäng, multiplar;

    QString Text() const { return Fast(qso, 8) % Fast(poäng, 9) % Fast(multiplar, 8); }
};

Siffror FörBand(const Loggbild& logg, const QString& band) {
    qsizetype antal = 0;
    double poäng = 0;
    for (const Kontakt& kontakt : logg.kontakter) {
        if (kontakt.band.compare(band, Qt::CaseInsensitive) != 0) continue;
        ++antal;
        poäng += platform::Val(kontakt.poäng);
    }
    return {QString::number(antal), QString::number(poäng, 'f', 0), QStringLiteral("0")};
}

Siffror Totalt(const std::vector<Siffror>& band) {
    int qso = 0, poäng = 0, multiplar = 0;
    for (const Siffror& siffror : band) {
        qso = LäggTillBand(qso, siffror.qso);
        poäng = LäggTillBand(poäng, siffror.poäng);
        multiplar = LäggTillBand(multiplar, siffror.multiplar);
    }
    return {QString::number(qso), QString::number(poäng), QString::number(multiplar)};
}

QString Streck(qsizetype antal) { return QString(antal, u'-'); }

/// The contest's title as a part of a file name.
QString Titeldel(int test) { return SummaTitel(test).replace(QLatin1String("NAC"), QLatin1String("_")); }

} // namespace

int LäggTillBand(int total, const QString& fält) {
    return platform::ToInt32(platform::ToNumber(QString::number(total) % fält));
}

QString SummaFilnamn(const SummaUppgifter& u) {
    return u"SVK" % KortDatum(u.formulärdatum) % u'_' % Titeldel(u.test);
}

QString ListaFilnamn(const SummaUppgifter& u) {
    return u.station.signal % KortDatum(u.formulärdatum) % u'_' % Titeldel(u.test);
}

std::span<const Kolumn> SummaKolumner() {
    using K = Kontakt;
    static constexpr Kolumn kolumner[] = {
        {"Trafiksätt", &K::trafiksätt}, {"Band ", &K::band}, {"Poäng", &K::poäng}, {"Datum", &K::datum}};
    return kolumner;
}

std::span<const Kolumn> ListaKolumner() {
    using K = Kontakt;
    static constexpr Kolumn kolumner[] = {
        {"Datum", &K::datum}, {"Tid", &K::tid},   {"Signal", &K::signal},     {"Trafiksätt", &K::trafiksätt},
        {"Band ", &K::band},  {"Sänt", &K::sänt}, {"Mottaget", &K::mottaget}, {"Multiplar", &K::multiplar},
        {"Poäng", &K::poäng}};
    return kolumner;
}

Rapport SummaRapport(const SummaUppgifter& u, const Loggbild& logg) {
    if (!logg.läsbar || logg.kontakter.empty()) throw platform::Failure(QStringLiteral("Loggen är tom."));
    const Kontakt& första = logg.kontakter.front();
    const QString trafik = Fast(första.trafiksätt, 8); // of the first contact, in every row
    std::vector<Siffror> band;
    band.reserve(bandrader.size());
    for (const Bandrad& rad : bandrader) band.push_back(FörBand(logg, QString::fromLatin1(rad.band)));
    const Siffror totalt = Totalt(band);
    const QString indrag(19, u' ');
    Rapport rapport{{u"Contest:           " % SummaTitel(u.test),
                     {},
                     u"Contest Date:      " % första.datum,
                     {},
                     u"Callsign:          " % u.station.signal,
                     u"Operators:         " % u.operatörer,
                     {},
                     u"Category:          " % u.op,
                     u"Category Assisted: " % u.assist,
                     {},
                     u"Equipment:         " % u.riggar,
                     u"Antennas:          " % u.antenner,
                     {},
                     u"Name:              " % u.station.namn,
                     u"Address:           " % u.station.adress,
                     indrag % u.station.postnr,
                     indrag % u.station.postAdress,
                     {},
                     u"E-mail:            " % u.station.email,
                     {},
                     u"Claimed Score:     " % u.totalPoäng,
                     {},
                     QStringLiteral("Band    Mode    QSO:s   Points   Mults   "),
                     Streck(41)}};
    for (size_t i = 0; i < band.size(); ++i)
        rapport.rader << QString::fromLatin1(bandrader[i].rubrik) % trafik % band[i].Text();
    rapport.rader << Streck(41) << u"   Total        " % totalt.Text() << QString()
                  << u"Comments:          " % u.notering << QString() << QString()
                  << QStringLiteral("Created by:        Sorvik " SORVIK_VERSION) << u.idag;
    return rapport;
}

Rapport ListaRapport(const SummaUppgifter& u, const Loggbild& logg) {
    Rapport rapport{
        {u"Contest: " % SummaTitel(u.test),
         u"Callsign: " % u.station.signal,
         {},
         QStringLiteral(
             "Date        UTC       Callsign      Mode    Band    Sent       Rcvd       Mults      "
             "Pts    "),
         Streck(92)},
        logg.läsbar && !logg.kontakter.empty()};
    if (!rapport.hel) return rapport;
    constexpr int raderPåSida = 48;
    int rad = 5; // the head is on the first page
    for (const Kontakt& k : logg.kontakter) {
        rapport.rader << Fast(k.datum, 10) % u"  " % Fast(KortTid(k.tid), 8) % u"  " % Fast(k.signal, 12) %
                             u"  " % Fast(k.trafiksätt, 6) % u"  " % Fast(k.band, 5) % u"   " %
                             Fast(k.sänt, 9) % u"  " % Fast(k.mottaget, 9) % u"  " % Fast(k.multiplar, 6) %
                             u"     " % Fast(k.poäng, 6);
        if (++rad < raderPåSida) continue;
        rad = 0;
        for (int i = 0; i < 4; ++i) rapport.rader << QString();
    }
    return rapport;
}

} // namespace reports
