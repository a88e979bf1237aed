#include "reports/Edi.h"

#include "reports/Titlar.h"

#include <QStringBuilder>

#include <algorithm>
#include <array>

namespace reports {
namespace {

/// 10 m by mode: squares are counted as multipliers there, countries as squares.
bool ÄrTioMeter(int test) { return test >= 3 && test <= 5; }

/// Contests whose exchange holds a number behind the report.
bool HarNummer(int test) { return ÄrTioMeter(test) || test == 7 || test == 8; }

qsizetype NyaLänder(const Loggbild& logg) {
    return std::count_if(logg.kontakter.begin(), logg.kontakter.end(), [](const Kontakt& kontakt) {
        return kontakt.ndxcc.compare(u"N", Qt::CaseInsensitive) == 0;
    });
}

/// The mode codes of the format, by the rows of the mode list.
QString Trafikkod(int rad) {
    constexpr std::array koder = {u'2', u'1', u'7', u'6', u'5'};
    const bool finns = rad >= 0 && static_cast<size_t>(rad) < koder.size();
    return finns ? QString(QChar(koder[static_cast<size_t>(rad)])) : QString();
}

QStringList Huvud(const EdiUppgifter& u) {
    const QString datum = QString(u.datum).remove(u'-');
    return {QStringLiteral("[REG1TEST;1]"),
            u"TName=" % EdiTitel(u.test) % u' ' % u.månad,
            u"TDate=" % datum % u';' % datum,
            u"PCall=" % u.testSignal,
            u"PWWLo=" % u.testLokator,
            QStringLiteral("PExch="),
            QStringLiteral("PAdr1="),
            QStringLiteral("PAdr2="),
            u"PSect=" % u.op,
            u"PBand=" % u.band,
            u"PCLUB=" % u.klubb,
            u"RName=" % u.station.namn,
            u"RCAll=" % u.station.signal,
            u"RAdr1=" % u.station.adress,
            QStringLiteral("RAdr2="),
            u"RPoCo=" % u.station.postnr,
            u"RCity=" % u.station.postAdress,
            u"RCoun=" % u.station.land,
            QStringLiteral("RPhon="),
            u"RHBBS=" % u.station.email,
            u"MOpe1=" % u.operatör1,
            u"MOpe2=" % u.operatör2,
            u"STXEq=" % u.rigTX,
            u"SPowe=" % u.effekt,
            u"SRXEq=" % u.rigRX,
            u"SAnte=" % u.antenn,
            u"SAntH=" % u.antennhöjd};
}

/// The claimed score. Band, exchange and country have no bonus in any contest of ours.
QStringList Poänglista(const EdiUppgifter& u, const Loggbild& logg) {
    const bool tioMeter = ÄrTioMeter(u.test);
    QStringList rader{u"CQSOs=" % u.antalQSO % u';', u"CQSOP=" % u.totalQSOPoäng};
    if (u.test >= 0 && u.test <= 5)
        rader << u"CWWLs=" % (tioMeter ? u.multiplar : u.diplom) % u';' % u.rutPoäng % u';' % u.kmPoäng;
    rader << u"CWWLB=" % u.multiplar << QStringLiteral("CExcs=0;0;") << QStringLiteral("CExcB=0")
          << u"CDXCs=" % (tioMeter ? u.diplom : QString::number(NyaLänder(logg))) % u";;"
          << QStringLiteral("CDXCB=") + (tioMeter ? u.diplom : QStringLiteral("0"))
          << u"CToSc=" % u.totalPoäng << u"CODXC=" % LängstaQSOFält(u.längstaQSO);
    return rader;
}

QString QSOPost(const EdiUppgifter& u, const Kontakt& k) {
    const bool nummer = HarNummer(u.test);
    return QStringList{KortDatum(k.datum),
                       KortTid(k.tid),
                       k.signal,
                       Trafikkod(u.trafikrad),
                       nummer ? BaraRST(k.sänt) : k.sänt,
                       nummer ? k.löpNrSR : QString(),
                       nummer ? BaraRST(k.mottaget) : k.mottaget,
                       k.löpNr,
                       QString(),
                       k.multiplar,
                       k.poäng,
                       QString(),
                       k.nruta,
                       k.ndxcc,
                       k.dubblett}
        .join(u';');
}

} // namespace

QString EdiFilnamn(const EdiUppgifter& u) {
    return u"SVK" % KortDatum(u.formulärdatum) % u'_' %
           EdiTitel(u.test).replace(QLatin1String("NAC"), QLatin1String("_"));
}

std::span<const Kolumn> EdiKolumner() {
    using K = Kontakt;
    static constexpr Kolumn kolumner[] = {{"Datum", &K::datum},     {"Tid", &K::tid},
                                          {"Signal", &K::signal},   {"Sänt", &K::sänt},
                                          {"LöpNrSR", &K::löpNrSR}, {"Mottaget", &K::mottaget},
                                          {"LöpNr", &K::löpNr},     {"Multiplar", &K::multiplar},
                                          {"Poäng", &K::poäng},     {"NRUTA", &K::nruta},
                                          {"NDXCC", &K::ndxcc},     {"Dubblett", &K::dubblett}};
    return kolumner;
}

QString LängstaQSOFält(const QString& längstaQSO) {
    const qsizetype kolon = längstaQSO.indexOf(u':');
    QString fält = kolon < 0 ? längstaQSO : längstaQSO.mid(kolon + 2);
    return fält.replace(QLatin1String("  "), QLatin1String(";")).remove(QLatin1String(" Km"));
}

Rapport EdiRapport(const EdiUppgifter& u, const Loggbild& logg) {
    Rapport rapport{Huvud(u), logg.läsbar};
    rapport.rader += Poänglista(u, logg);
    rapport.rader << QStringLiteral("[Remarks]");
    if (!u.notering.isEmpty()) rapport.rader << u.notering;
    rapport.rader << u"[QSORecords;" % u.antalQSO % u']';
    if (!rapport.hel) return rapport;
    for (const Kontakt& kontakt : logg.kontakter) rapport.rader << QSOPost(u, kontakt);
    rapport.rader << QStringLiteral("[END;Sorvik " SORVIK_VERSION "]");
    return rapport;
}

} // namespace reports
