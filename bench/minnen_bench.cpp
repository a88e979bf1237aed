// Updating the memory of locators from a file.
//
// Workload: an update file of N calls that the memory does not hold, in the program's own form, read into an
// empty memory on the disk; then the same file again, all of whose calls are known. The figure is the cost of
// one entry: it has to stay flat as N grows.
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "platform/textfile.h"
#include "shared/Minnen.h"
#include "store/Databaser.h"
#include "support/Provmapp.h"

#include <QDir>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

QString Uppdateringsfil(qint64 antal) {
    QString text = QStringLiteral("[Lokator]\r\n");
    for (qint64 n = 0; n < antal; ++n)
        text += QStringLiteral("SM%1ABC=JO%2WJ\r\n").arg(n, 6, 36).arg(n % 100, 2, 10, QChar(u'0'));
    return text;
}

void Update(benchmark::State& läge) {
    const QTemporaryDir mapp(QDir::currentPath() + QStringLiteral("/sorvik-bench-XXXXXX"));
    KopieraMapp(QStringLiteral(SORVIK_DATA), mapp.path() + QStringLiteral("/Data"));
    platform::SetProgramFolder(mapp.path());
    NollställDatabaser();
    const QString fil = mapp.filePath(QStringLiteral("uppdatering.ini"));
    platform::SaveTextFile(fil, Uppdateringsfil(läge.range(0)));
    platform::Dialogs().file = [&fil](const platform::FileQuestion&) { return std::optional(fil); };
    platform::Dialogs().message = [](const QString& text, const QString&) {
        if (text.startsWith(QLatin1String("Ett fel"))) qFatal("%s", qPrintable(text));
    };
    ÖppnaLokator();
    const bool kända = läge.range(1) != 0;
    if (kända) UppdateraLokator();
    for (auto _ : läge) {
        if (!kända) {
            läge.PauseTiming();
            TömLokator();
            läge.ResumeTiming();
        }
        UppdateraLokator();
    }
    läge.counters["us_per_entry"] =
        benchmark::Counter(static_cast<double>(läge.range(0)) / 1e6,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    NollställDatabaser();
}
BENCHMARK(Update)
    ->ArgNames({"entries", "known"})
    ->ArgsProduct({{1000, 10000, 100000}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
