// Each report of a log of N contacts: the log as it is open in memory read through its cursor, the lines
// made, the file written. A log has one contact a second on two bands and in two modes; the folder is in
// memory.
#include "platform/clock.h"
#include "reports/Adif.h"
#include "reports/Cabrillo.h"
#include "reports/Edi.h"
#include "reports/Rapportfil.h"
#include "reports/Summa.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace {

using namespace reports;

/// An open log of so many contacts.
class Logg {
public:
    explicit Logg(qint64 kontakter)
        : mapp_(QStringLiteral("/dev/shm/sorvik-bench-XXXXXX")) {
        const QString fil = mapp_.filePath(QStringLiteral("bench.svk"));
        QFile::copy(QStringLiteral(SORVIK_DATA "/SVK"), fil);
        sqlite3* databas = nullptr;
        sqlite3_open(fil.toUtf8().constData(), &databas);
        const QByteArray sats =
            QStringLiteral(
                "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i+1<%1) INSERT INTO "
                "TESTQSO (Datum, Tid, Signal, Trafiksätt, \"Band \", Sänt, Mottaget, Multiplar, LöpNr, "
                "LöpNrSR, Poäng, NDXCC, NRUTA, Dubblett) SELECT date('2026-11-01', '+' || i || ' "
                "seconds'), time('00:00', '+' || i || ' seconds'), 'SM5' || i, CASE i%2 WHEN 0 THEN "
                "'CW' ELSE 'SSB' END, CASE i%3 WHEN 0 THEN '80 M' ELSE '40 M' END, '599 001', '59 002', "
                "'JO89WJ', '002', '001', 2, '', '', '' FROM n")
                .arg(kontakter)
                .toUtf8();
        if (sqlite3_exec(databas, sats.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(databas));
        sqlite3_close(databas);
        koppling_.Open(fil);
        markör_.Open(QStringLiteral("TESTQSO"), koppling_);
        markör_.Sort(QStringLiteral("Datum, Tid"));
    }
    platform::Recordset& Markör() { return markör_; }
    QString Fil() const { return mapp_.filePath(QStringLiteral("rapport")); }

private:
    QTemporaryDir mapp_;
    platform::Connection koppling_;
    platform::Recordset markör_;
};

/// @param skriv the lines of a report from the log
void Mät(benchmark::State& läge, std::span<const Kolumn> kolumner, auto skriv) {
    Logg logg(läge.range(0));
    for (auto _ : läge) SkrivRapport(logg.Fil(), skriv(LäsLogg(logg.Markör(), kolumner)));
    läge.counters["us_per_contact"] =
        benchmark::Counter(static_cast<double>(läge.range(0)) / 1e6,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void CabrilloMT(benchmark::State& läge) {
    CabrilloUppgifter uppgifter;
    uppgifter.test = 7;
    Mät(läge, CabrilloKolumner(),
        [&](const Loggbild& logg) { return CabrilloRapport(cabrilloMT, uppgifter, logg); });
}
void CabrilloSAC(benchmark::State& läge) {
    CabrilloUppgifter uppgifter;
    uppgifter.test = 9;
    Mät(läge, CabrilloKolumner(),
        [&](const Loggbild& logg) { return CabrilloRapport(cabrilloSAC, uppgifter, logg); });
}
void EDI(benchmark::State& läge) {
    EdiUppgifter uppgifter;
    uppgifter.trafikrad = 0;
    Mät(läge, EdiKolumner(), [&](const Loggbild& logg) { return EdiRapport(uppgifter, logg); });
}
void Summary(benchmark::State& läge) {
    // 100,000 contacts and their points would leave 32 bits; those on one band alone do not.
    Mät(läge, SummaKolumner(), [](Loggbild logg) {
        for (Kontakt& kontakt : logg.kontakter) {
            kontakt.band = QStringLiteral("10 M");
            kontakt.poäng = QStringLiteral("2");
        }
        return SummaRapport({}, logg);
    });
}
void List(benchmark::State& läge) {
    Mät(läge, ListaKolumner(), [](const Loggbild& logg) { return ListaRapport({}, logg); });
}
void ADIF(benchmark::State& läge) {
    Mät(läge, AdifKolumner(), [](const Loggbild& logg) { return AdifRapport(logg, platform::Now()); });
}

#define RAPPORT(namn) BENCHMARK(namn)->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)
RAPPORT(CabrilloMT);
RAPPORT(CabrilloSAC);
RAPPORT(EDI);
RAPPORT(Summary);
RAPPORT(List);
RAPPORT(ADIF);

} // namespace

BENCHMARK_MAIN();
