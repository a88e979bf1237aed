// The operator's waiting times against the size of the log.
//
//   KeyPress/N          one character typed at the end of a call in txtSignal: country search, new country,
//                       earlier contacts, worked bands, labels, and the paint of what changed
//   SaveChain/N         Enter on a filled form, files in memory: everything but the disk's commit
//   WorkedBands/N       the part of a save that marks 45 pairs of mode and band, after a contact has changed
//   WholeSave/K         the same on the disk at 1,000 contacts, each beside a bare SQLite insert and commit
//   of the
//                       same row into a copy of the log; K is the kind of contact. The counters tell.
//   OpenLog/N           from the chosen file to an idle form
//
// A log has N contacts on one band with N/3 stations in 250 squares and 40 countries; seeds are fixed.

#include "Bänkprogram.h"
#include "platform/application.h"
#include "platform/clock.h"

#include <QDir>
#include <QElapsedTimer>
#include <benchmark/benchmark.h>

#include <map>
#include <random>

namespace {

constexpr const char* länder[] = {"SM5", "SM0", "SM7", "OZ", "LA", "OH", "DL", "SP", "PA", "G"};

/// A call of its own for every number: a duplicate would bring up its warning.
QString Station(unsigned nummer) {
    QString signal = QString::fromLatin1(länder[nummer % std::size(länder)]);
    if (signal.size() < 3) signal += QString::number(nummer % 9 + 1);
    nummer /= std::size(länder);
    for (int i = 0; i < 3 || nummer > 0; ++i, nummer /= 26) signal += QChar(u'A' + nummer % 26);
    return signal;
}

QString Lokator(unsigned nummer) {
    return QStringLiteral("J%1%2%3%4%5")
        .arg(QChar(u'N' + nummer % 3))
        .arg(nummer / 3 % 10)
        .arg(nummer / 30 % 10)
        .arg(QChar(u'A' + nummer % 24))
        .arg(QChar(u'A' + nummer / 7 % 24));
}

void Kör(sqlite3* databas, const char* sats) {
    char* fel = nullptr;
    if (sqlite3_exec(databas, sats, nullptr, nullptr, &fel) != SQLITE_OK) qFatal("%s: %s", sats, fel);
}

const char* const radSats =
    "INSERT INTO TESTQSO VALUES ('2026-12-01', ?1, ?2, '0,000,00', 'CW', '2 M', '599', '599', ?3, '', '', "
    "'', '18', "
    "'14', substr(?3,1,4), 'SM', 'Sverige', '', 'SM5', ?4, ?5, '', '', '', '', substr(?3,1,4), '0001')";

/// A statement that inserts rows like those the program writes.
class Radskrivare {
public:
    explicit Radskrivare(const QString& fil) {
        if (sqlite3_open(fil.toUtf8().constData(), &databas_) != SQLITE_OK) qFatal("cannot open");
        if (sqlite3_prepare_v2(databas_, radSats, -1, &sats_, nullptr) != SQLITE_OK)
            qFatal("%s", sqlite3_errmsg(databas_));
    }
    ~Radskrivare() {
        sqlite3_finalize(sats_);
        sqlite3_close(databas_);
    }
    Radskrivare(const Radskrivare&) = delete;
    Radskrivare& operator=(const Radskrivare&) = delete;
    sqlite3* Databas() { return databas_; }

    void Rad(unsigned n, unsigned station) {
        Text(1, QTime(0, 0).addSecs(static_cast<int>(n % 86400)).toString(QStringLiteral("HH:mm:ss")));
        Text(2, Station(station));
        Text(3, Lokator(station));
        Text(4, QString::number(200 + station % 40));
        sqlite3_bind_int(sats_, 5, static_cast<int>(station % 900));
        if (sqlite3_step(sats_) != SQLITE_DONE) qFatal("%s", sqlite3_errmsg(databas_));
        sqlite3_reset(sats_);
    }

private:
    void Text(int plats, const QString& text) {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(sats_, plats, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    }

    sqlite3* databas_ = nullptr;
    sqlite3_stmt* sats_ = nullptr;
};

/// The program on a log of so many contacts, in a folder on the disk or in memory.
class Program : public Bänkprogram {
public:
    Program(int test, unsigned kontakter, const QString& plats)
        : Bänkprogram(plats, [=] { FyllLogg(test, kontakter); }) {
        Öppna();
    }

    /// A filled form, the caret in the exchange.
    void Fyll(unsigned station, const QString& löpnr = {}) const {
        frTest& f = Fönster();
        f.txtSignal->setFocus();
        f.txtSignal->setText(Station(station));
        f.txtDiplom->setFocus();
        f.txtDiplom->setText(Lokator(station));
        f.txtLöpnrM->setText(löpnr);
    }

private:
    static void FyllLogg(int test, unsigned kontakter) {
        NyLogg(test);
        Radskrivare skrivare(Logg());
        std::mt19937 slump(1);
        Kör(skrivare.Databas(), "BEGIN");
        const unsigned stationer = std::max(1U, kontakter / 3);
        for (unsigned n = 0; n < kontakter; ++n) skrivare.Rad(n, slump() % stationer);
        Kör(skrivare.Databas(), "COMMIT");
    }
};

const QString iMinne = QStringLiteral("/dev/shm");
const QString påDisk = QDir::currentPath();

void KeyPress(benchmark::State& läge) {
    const Program program(1, static_cast<unsigned>(läge.range(0)), iMinne);
    frTest& f = Program::Fönster();
    f.txtSignal->setFocus();
    const QString signal = Station(7);
    for (auto _ : läge) {
        läge.PauseTiming();
        f.txtSignal->setText(signal.chopped(1));
        QCoreApplication::processEvents();
        läge.ResumeTiming();
        QTest::keyClick(f.txtSignal, signal.back().toLatin1());
        QCoreApplication::processEvents();
    }
}
BENCHMARK(KeyPress)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void SaveChain(benchmark::State& läge) {
    const Program program(1, static_cast<unsigned>(läge.range(0)), iMinne);
    unsigned station = 1'000'000;
    for (auto _ : läge) {
        läge.PauseTiming();
        program.Fyll(station++);
        QCoreApplication::processEvents();
        läge.ResumeTiming();
        Program::Fönster().cmdSpara_Click();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(SaveChain)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void WorkedBands(benchmark::State& läge) {
    const Program program(1, static_cast<unsigned>(läge.range(0)), iMinne);
    platform::Recordset& logg = db().rsTESTQSO;
    for (auto _ : läge) {
        läge.PauseTiming();
        logg.Filter(QString());
        logg.MoveLast();
        const bool cw = logg.Field(QStringLiteral("Trafiksätt")).text() == u"CW";
        logg.Field(QStringLiteral("Trafiksätt"), cw ? QStringLiteral("SSB") : QStringLiteral("CW"));
        logg.Update();
        läge.ResumeTiming();
        Program::Fönster().UppdateraBand();
    }
}
BENCHMARK(WorkedBands)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

enum Slag { NacKänd, NacNy, Månadstest };

/// A whole save and a bare insert by turns, so that both meet the same moods of the disk.
void WholeSave(benchmark::State& läge) {
    const auto slag = static_cast<Slag>(läge.range(0));
    const Program program(slag == Månadstest ? 7 : 1, 1000, påDisk);
    const QString bar = program.Logg() + QStringLiteral(".bar");
    QFile::copy(program.Logg(), bar);
    Radskrivare skrivare(bar);
    Kör(skrivare.Databas(), "PRAGMA synchronous=FULL");
    std::vector<double> spara, bart;
    unsigned station = 2'000'000;
    QElapsedTimer klocka;
    for (auto _ : läge) {
        // A known call finds its locator in the memory; a new one is written there too.
        if (slag == NacKänd) {
            db().rsLokator.AddNew();
            db().rsLokator.Field(QStringLiteral("Signal"), Station(station));
            db().rsLokator.Field(QStringLiteral("Lokator"), Lokator(station));
            db().rsLokator.Update();
        }
        program.Fyll(station, slag == Månadstest ? QStringLiteral("12") : QString());
        QCoreApplication::processEvents();
        klocka.start();
        Program::Fönster().cmdSpara_Click();
        spara.push_back(static_cast<double>(klocka.nsecsElapsed()));
        klocka.start();
        skrivare.Rad(station, station);
        bart.push_back(static_cast<double>(klocka.nsecsElapsed()));
        läge.SetIterationTime(spara.back() / 1e9);
        ++station;
    }
    const auto median = [](std::vector<double>& tider) {
        std::nth_element(tider.begin(), tider.begin() + static_cast<std::ptrdiff_t>(tider.size() / 2),
                         tider.end());
        return tider[tider.size() / 2];
    };
    läge.counters["save_us"] = median(spara) / 1e3;
    läge.counters["bare_us"] = median(bart) / 1e3;
    läge.counters["ratio"] = median(spara) / median(bart);
}
BENCHMARK(WholeSave)
    ->ArgName("0=NAC,known_1=NAC,new_2=MT")
    ->Arg(NacKänd)
    ->Arg(NacNy)
    ->Arg(Månadstest)
    ->UseManualTime()
    ->Iterations(400)
    ->Unit(benchmark::kMicrosecond);

void OpenLog(benchmark::State& läge) {
    const Program program(1, static_cast<unsigned>(läge.range(0)), iMinne);
    for (auto _ : läge) program.Öppna();
}
BENCHMARK(OpenLog)->Arg(100)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    platform::Application program(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    platform::SetClock([] { return QDateTime(QDate(2026, 12, 1), QTime(19, 0)); });
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
