#include "reports/Cabrillo.h"

#include "platform/failure.h"
#include "reports/FastText.h"

#include <QDate>
#include <QStringBuilder>

#include <array>

namespace reports {

struct Cabrilloform {
    struct Namn {
        int test;
        const char* namn;
    };
    struct Post {
        const char* ilogg;
        const char* ifil;
    };
    enum class Utväxling { Lokator, Nummer, Effekt };

    std::array<Namn, 2> testnamn;
    std::span<const Post> band;
    std::span<const Post> trafik;
    Utväxling utväxling;
    bool mt; ///< short category, assistance, overlay by the operator; named after the month
};

namespace {

using Form = Cabrilloform;

// The lower edge of the band in kHz.
constexpr Form::Post sexBand[] = {{"160 M", "1800"}, {"80 M", "3500"},  {"40 M", "7000"},
                                  {"20 M", "14000"}, {"15 M", "21000"}, {"10 M", "28000"}};
constexpr Form::Post trafik[] = {{"CW", "CW"}, {"SSB", "PH"}, {"RTTY", "RY"}};
constexpr std::span<const Form::Post> allaBand(sexBand);
constexpr std::span<const Form::Post> allTrafik(trafik);

} // namespace

constexpr Form cabrilloMT{.testnamn = {{{7, "SSA-MT-CW"}, {8, "SSA-MT-SSB"}}},
                          .band = allaBand.subspan(1, 2),
                          .trafik = allTrafik.first(2),
                          .utväxling = Form::Utväxling::Lokator,
                          .mt = true};
// The contest's name hangs on numbers that do not lead here, so every report goes without.
constexpr Form cabrilloSAC{.testnamn = {{{11, "SAC-CW"}, {12, "SAC-SSB"}}},
                           .band = allaBand.subspan(1, 5),
                           .trafik = allTrafik,
                           .utväxling = Form::Utväxling::Nummer,
                           .mt = false};
constexpr Form cabrilloARRLDX{.testnamn = {{{41, "ARRL-CW"}, {42, "ARRL-SSB"}}},
                              .band = allaBand,
                              .trafik = allTrafik.first(2),
                              .utväxling = Form::Utväxling::Effekt,
                              .mt = false};

namespace {

QString Testnamn(const Form& form, int test) {
    for (const Form::Namn& namn : form.testnamn)
        if (namn.test == test) return QString::fromLatin1(namn.namn);
    return {};
}

/// Year and month of a date, two digits each; a year of two digits is of this century.
/// @throws platform::Failure
QString ÅrMånad(const QString& datum) {
    const QString text = datum.trimmed().section(u' ', 0, 0); // a time of day may stand behind
    for (const char* form : {"yyyy-M-d", "yyyy/M/d", "yyyy.M.d"})
        for (const QString& läst : {text, QStringLiteral("20") + text})
            if (const QDate dag = QDate::fromString(läst, QLatin1String(form)); dag.isValid())
                return dag.toString(QStringLiteral("yyMM"));
    throw platform::Failure(QStringLiteral("Datumet kan inte läsas."));
}

QStringList Huvud(const Form& form, const CabrilloUppgifter& u) {
    QStringList rader{QStringLiteral("START-OF-LOG: 2.0"), u"CALLSIGN: " % u.station.signal};
    if (form.mt)
        rader << u"CATEGORY: " % u.op << u"CATEGORY-ASSISTED: " % u.assist;
    else
        rader << u"CATEGORY: " % u.op % u' ' % u.band % u' ' % u.effekt;
    const bool rookie = form.mt && u.rookie;
    rader << QStringLiteral("CATEGORY-OVERLAY: ") + QLatin1String(rookie ? "ROOKIE" : "EXPERT")
          << u"CLAIMED-SCORE: " % u.totalPoäng << u"CLUB: " % u.klubb << u"CONTEST: " % Testnamn(form, u.test)
          << QStringLiteral("CREATED-BY: Sorvik " SORVIK_VERSION) << u"NAME: " % u.station.namn
          << u"ADDRESS: " % u.station.adress << u"ADDRESS: " % u.station.postnr % u' ' % u.station.postAdress
          << u"ADDRESS: " % u.station.land << u"OPERATORS: " % u.operatörer << u"SOAPBOX: " % u.station.email
          << u"SOAPBOX: " % u.notering;
    return rader;
}

/// The columns of a line. They live through the whole report: what a contact does not set stays.
class QSORad {
public:
    QSORad(const Form& form, const CabrilloUppgifter& u)
        : form_(form)
        , uppgifter_(u) {}

    QString För(const Kontakt& kontakt) {
        Sätt(frekvens_, form_.band, kontakt.band, &FastText::Höger);
        Sätt(trafik_, form_.trafik, kontakt.trafiksätt, &FastText::Vänster);
        if (!kontakt.datum.isEmpty()) datum_.Vänster(kontakt.datum);
        if (!kontakt.tid.isEmpty()) tid_.Vänster(KortTid(kontakt.tid));
        egen_.Vänster(uppgifter_.station.signal);
        rsts_.Vänster(BaraRST(kontakt.sänt));
        signal_.Vänster(kontakt.signal);
        rstm_.Vänster(BaraRST(kontakt.mottaget));
        const auto [sänd, mottagen] = Utväxling(kontakt);
        return u"QSO: " % frekvens_.Text() % u' ' % trafik_.Text() % u' ' % datum_.Text() % u' ' %
               tid_.Text() % u' ' % egen_.Text() % u' ' % rsts_.Text() % u' ' % sänd % u' ' % signal_.Text() %
               u' ' % rstm_.Text() % u' ' % mottagen;
    }

private:
    static void Sätt(FastText& fält, std::span<const Form::Post> poster, const QString& värde,
                     void (FastText::*sätt)(const QString&)) {
        for (const Form::Post& post : poster)
            if (värde == QLatin1String(post.ilogg)) (fält.*sätt)(QString::fromLatin1(post.ifil));
    }

    std::pair<QString, QString> Utväxling(const Kontakt& kontakt) {
        const auto fyra = [](FastText& fält, const QString& värde) {
            fält.Höger(värde);
            return fält.Text();
        };
        switch (form_.utväxling) {
        case Form::Utväxling::Lokator:
            egenLokator_.Vänster(uppgifter_.station.lokator);
            lokator_.Vänster(kontakt.multiplar);
            return {fyra(sänt_, kontakt.löpNrSR) % u' ' % egenLokator_.Text(),
                    fyra(mottaget_, kontakt.löpNr) % u' ' % lokator_.Text()};
        case Form::Utväxling::Nummer: return {fyra(sänt_, kontakt.löpNrSR), fyra(mottaget_, kontakt.löpNr)};
        case Form::Utväxling::Effekt: break;
        }
        return {fyra(sänt_, uppgifter_.station.effekt), fyra(mottaget_, kontakt.multiplar)};
    }

    const Form& form_;
    const CabrilloUppgifter& uppgifter_;
    FastText frekvens_{5}, trafik_{2}, datum_{10}, tid_{4}, egen_{13}, rsts_{3}, sänt_{4}, egenLokator_{6},
        signal_{13}, rstm_{3}, mottaget_{4}, lokator_{6};
};

} // namespace

QString CabrilloFilnamn(const Cabrilloform& form, const CabrilloUppgifter& u) {
    if (form.mt) return u.station.signal % u"_MT" % ÅrMånad(u.datum) % u'_' % u.trafik;
    return u.station.signal % KortDatum(u.formulärdatum) % u'_' % Testnamn(form, u.test);
}

std::span<const Kolumn> CabrilloKolumner() {
    using K = Kontakt;
    static constexpr Kolumn kolumner[] = {{"Band ", &K::band},    {"Trafiksätt", &K::trafiksätt},
                                          {"Datum", &K::datum},   {"Tid", &K::tid},
                                          {"Sänt", &K::sänt},     {"LöpNrSR", &K::löpNrSR},
                                          {"Signal", &K::signal}, {"Mottaget", &K::mottaget},
                                          {"LöpNr", &K::löpNr},   {"Multiplar", &K::multiplar}};
    return kolumner;
}

Rapport CabrilloRapport(const Cabrilloform& form, const CabrilloUppgifter& u, const Loggbild& logg) {
    Rapport rapport{Huvud(form, u)};
    rapport.hel = logg.läsbar && !logg.kontakter.empty();
    if (!rapport.hel) return rapport;
    QSORad rad(form, u);
    for (const Kontakt& kontakt : logg.kontakter) rapport.rader << rad.För(kontakt);
    rapport.rader << QStringLiteral("END-OF-LOG:");
    return rapport;
}

} // namespace reports
