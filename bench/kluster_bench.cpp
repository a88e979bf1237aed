// A flood of spots against the size of the store, with an operator at the keyboard.
//
//   Spots/stored:N    spots as a skimmer feed sends them (all different, all wanted), from the server's
//   socket to
//                     the grid row and the stored record, both windows of the cluster open and painted, and a
//                     key pressed in txtSignal every 25 ms. The counters are spots a second, and how long a
//                     key took from the press to the end of what it does (median, 99 %, longest).
//   Repeats/stored:N  the same spots again: what it costs to know them as repeats
//   Soak/spots:N      N spots with the store emptied every 50,000: memory after the first emptying, one in
//   the
//                     middle and the last
//   Grow/spots:N      N spots into one store: bytes of memory for a stored spot
//
// The server is a thread of its own that writes as fast as the socket takes it.
#include "Bänkprogram.h"
#include "Operatör.h"
#include "cluster/DXClusterModul.h"
#include "cluster/DXSpottModul.h"
#include "cluster/frDXCluster.h"
#include "cluster/frDXSpott.h"
#include "cluster/frDXSpottLogg.h"
#include "platform/application.h"
#include "platform/clock.h"

#include <benchmark/benchmark.h>

#include <arpa/inet.h>
#include <fstream>
#include <sqlite3.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr const char* länder[] = {"SM5", "SM0", "SM7", "OZ1", "LA1", "OH2", "DL1", "SP5", "PA3", "G4"};

/// A line as a skimmer sends it; another call or frequency for every number.
QByteArray Spottrad(qint64 nummer) {
    QByteArray signal = länder[nummer % 10];
    for (qint64 n = nummer / 10 % 17576, i = 0; i < 3; ++i, n /= 26)
        signal += static_cast<char>('A' + n % 26);
    const qint64 hekto = 140000 + nummer / 175760 % 990;
    QByteArray rad =
        "DX de SM5AAA-#:    " + QByteArray::number(hekto / 10) + '.' + QByteArray::number(hekto % 10);
    rad = rad.leftJustified(26) + signal;
    rad = rad.leftJustified(39) + "CW    " + QByteArray::number(nummer % 40 + 3) + " dB  25 WPM  CQ";
    return rad.leftJustified(70) + "1334Z\r\n";
}

/// A cluster in a thread of its own.
class Server {
public:
    Server()
        : lyssnar_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in adress{};
        adress.sin_family = AF_INET;
        adress.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t längd = sizeof adress;
        if (bind(lyssnar_, reinterpret_cast<sockaddr*>(&adress), längd) != 0 || listen(lyssnar_, 1) != 0 ||
            getsockname(lyssnar_, reinterpret_cast<sockaddr*>(&adress), &längd) != 0)
            qFatal("no server");
        port_ = ntohs(adress.sin_port);
    }
    ~Server() {
        VäntaKlar();
        close(gäst_);
        close(lyssnar_);
    }
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;
    int Port() const { return port_; }
    void TaEmot() { gäst_ = accept(lyssnar_, nullptr, nullptr); }
    /// Sends the spots with these numbers.
    void Sänd(qint64 från, qint64 antal) {
        VäntaKlar();
        tråd_ = std::thread([this, från, antal] {
            QByteArray text;
            for (qint64 n = från; n < från + antal; ++n) {
                text += Spottrad(n);
                if (text.size() < 60000 && n + 1 < från + antal) continue;
                for (qsizetype skrivet = 0; skrivet < text.size();) {
                    const ssize_t del =
                        write(gäst_, text.constData() + skrivet, static_cast<size_t>(text.size() - skrivet));
                    if (del <= 0) return;
                    skrivet += del;
                }
                text.clear();
            }
        });
    }
    void VäntaKlar() {
        if (tråd_.joinable()) tråd_.join();
    }

private:
    int lyssnar_;
    int gäst_ = -1;
    int port_ = 0;
    std::thread tråd_;
};

void FyllLager(const QString& fil, qint64 antal) {
    sqlite3* databas = nullptr;
    sqlite3_stmt* sats = nullptr;
    if (sqlite3_open(fil.toUtf8().constData(), &databas) != SQLITE_OK ||
        sqlite3_exec(databas, "BEGIN", nullptr, nullptr, nullptr) != SQLITE_OK ||
        sqlite3_prepare_v2(
            databas,
            "INSERT INTO DXSpottLogg VALUES (?1, ?2, ?3, '7,005,00', '40', 'CW', ?4, 'SM5', '  1200Z')", -1,
            &sats, nullptr) != SQLITE_OK)
        qFatal("%s", sqlite3_errmsg(databas));
    const QByteArray idag = QDate::currentDate().toString("yyyy-MM-dd").toUtf8();
    for (qint64 n = 0; n < antal; ++n) {
        const QByteArray tid = QTime(0, 0).addMSecs(static_cast<int>(n * 10)).toString("HH:mm:ss").toUtf8();
        const QByteArray signal = Spottrad(n).mid(26, 6);
        const QByteArray notering = "CW " + QByteArray::number(n % 40) + " dB 25 WPM CQ";
        int plats = 0;
        for (const QByteArray& text : {idag, tid, signal, notering})
            sqlite3_bind_text(sats, ++plats, text.constData(), static_cast<int>(text.size()),
                              SQLITE_TRANSIENT);
        if (sqlite3_step(sats) != SQLITE_DONE) qFatal("%s", sqlite3_errmsg(databas));
        sqlite3_reset(sats);
    }
    sqlite3_finalize(sats);
    sqlite3_exec(databas, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(databas);
}

/// The program with a log open, connected to a cluster, on a store of so many spots.
class Program : public Bänkprogram {
public:
    explicit Program(qint64 lagrade)
        : Bänkprogram(QStringLiteral("/dev/shm"), [lagrade] {
            kluster = {};
            NyLogg(1);
            FyllLager(platform::DataPath(QStringLiteral("DXSpott.Dat")), lagrade);
        }) {
        Öppna();
        kluster.DXVärdAdress = QStringLiteral("127.0.0.1");
        kluster.DXVärdPort = server.Port();
        kluster.ClusterTyp = 1;
        InitieraDXCluster();
        server.TaEmot();
        frDXSpott::instans().Visa();
        frDXCluster::instans().Visa();
        Fönster().activateWindow();
        (void)QTest::qWaitForWindowActive(&Fönster());
        Fönster().txtSignal->setFocus();
    }
    // The cluster's windows go before the server does: it waits for whom it talks to.
    ~Program() { platform::DestroyAllWindows(); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Lets the program run until the store has so many spots.
    static void Vänta(qint64 lagrade) {
        while (db().rsDXSpottLogg.RecordCount() < lagrade)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    Server server;
};

double MinneMB() {
    std::ifstream fil("/proc/self/statm");
    double allt = 0;
    double här = 0;
    fil >> allt >> här;
    return här * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1048576;
}

void Spots(benchmark::State& läge) {
    const qint64 lagrade = läge.range(0);
    constexpr qint64 omgång = 3000;
    Program program(lagrade);
    qint64 nummer = 1000000;
    Operatör operatör(frTest::instans().txtSignal);
    QTest::qWait(500);
    operatör.Glöm();
    for (auto _ : läge) {
        program.server.Sänd(nummer, omgång);
        nummer += omgång;
        Program::Vänta(lagrade + nummer - 1000000);
    }
    läge.counters["spots_per_s"] =
        benchmark::Counter(static_cast<double>(nummer - 1000000), benchmark::Counter::kIsRate);
    läge.counters["key_ms_median"] = operatör.Andel(0.5);
    läge.counters["key_ms_99"] = operatör.Andel(0.99);
    läge.counters["key_ms_max"] = operatör.Andel(1);
}
BENCHMARK(Spots)->ArgName("stored")->Arg(100)->Arg(10000)->Arg(100000)->Iterations(5)->UseRealTime()->Unit(
    benchmark::kMillisecond);

/// Spots that are all in the store already. The clock stands still for them: a minute that ends would make
/// them new.
void Repeats(benchmark::State& läge) {
    const qint64 lagrade = läge.range(0);
    constexpr qint64 omgång = 1000;
    Program program(lagrade);
    program.server.Sänd(2000000, omgång);
    Program::Vänta(lagrade + omgång);
    QString text;
    for (qint64 n = 0; n < omgång; ++n) text += QString::fromLatin1(Spottrad(2000000 + n));
    platform::SetClock([nu = db().rsDXSpottLogg.Field(QStringLiteral("Datum")).text() + QLatin1Char(' ') +
                             db().rsDXSpottLogg.Field(QStringLiteral("Tid")).text()] {
        return QDateTime::fromString(nu, QStringLiteral("yyyy-MM-dd HH:mm:ss"));
    });
    for (auto _ : läge) {
        kluster.ClusterBuffert = text;
        TolkaDXClusterData();
    }
    platform::SetClock({});
    läge.counters["us_per_spot"] =
        benchmark::Counter(static_cast<double>(omgång) / 1e6,
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(Repeats)->ArgName("stored")->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

void Soak(benchmark::State& läge) {
    const qint64 alla = läge.range(0);
    const qint64 omgång = std::min<qint64>(50000, alla / 4);
    Program program(0);
    std::vector<double> minne;
    for (auto _ : läge)
        for (qint64 n = 0; n < alla; n += omgång) {
            program.server.Sänd(n, omgång);
            Program::Vänta(omgång);
            frDXSpottLogg::instans().TömDXSpottLogg();
            minne.push_back(MinneMB());
            if (frDXCluster::instans().txtMSCom->document()->characterCount() > 16100)
                qFatal("the text has grown");
        }
    läge.counters["MB_first"] = minne.front();
    läge.counters["MB_middle"] = minne[minne.size() / 2];
    läge.counters["MB_last"] = minne.back();
    läge.counters["spots_per_s"] = benchmark::Counter(static_cast<double>(alla), benchmark::Counter::kIsRate);
}
BENCHMARK(Soak)->ArgName("spots")->Arg(1000000)->Arg(2000)->Iterations(1)->UseRealTime()->Unit(
    benchmark::kSecond);

void Grow(benchmark::State& läge) {
    const qint64 alla = läge.range(0);
    Program program(0);
    const double före = MinneMB();
    for (auto _ : läge) {
        program.server.Sänd(0, alla);
        Program::Vänta(alla);
    }
    läge.counters["bytes_per_spot"] = (MinneMB() - före) * 1048576 / static_cast<double>(alla);
    läge.counters["spots_per_s"] = benchmark::Counter(static_cast<double>(alla), benchmark::Counter::kIsRate);
}
BENCHMARK(Grow)->ArgName("spots")->Arg(300000)->Iterations(1)->UseRealTime()->Unit(benchmark::kSecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    platform::Application program(argc, argv);
    platform::InstallSwedish();
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
