// How soon the entry form shows what the radio does, and whether a radio that fails holds anything up.
//
//   Delay/own:0   from a change at Hamlib's dummy radio, behind a rigctld that runs already, to the text in
//                 txtFrekvens. The knob is turned at times that have nothing to do with the program's
//                 questions. Counters: median, 95 %, longest, in milliseconds.
//   Delay/own:1   the same with a radio at this machine: a rigctld that the program has started stands
//                 between, and remembers for a while what it has read
//   Stall/K       longest time, in milliseconds, that a key in txtSignal waits and takes. One is pressed
//                 every 25 ms for six seconds, and the radio tuned twice a second. K is the radio: 0 one
//                 that answers, 1 one whose daemon hangs, 2 one that talks nonsense, 3 one that hangs up
//                 at once, 4 none
#include "Bänkprogram.h"
#include "Operatör.h"
#include "platform/application.h"
#include "platform/omnirig/rigsettings.h"
#include "platform/textfile.h"
#include "radio/frOmni.h"
#include "support/Riggprov.h"

#include <benchmark/benchmark.h>

#include <future>
#include <random>

namespace {

using platform::RigSettings;

/// The program with a log open and a radio.
class Program : public Bänkprogram {
public:
    explicit Program(const RigSettings& radio)
        : Bänkprogram(QStringLiteral("/dev/shm"), [&radio] {
            platform::AllRigSettings riggar;
            riggar[0] = radio;
            platform::SaveTextFile(platform::DataPath(QStringLiteral("INI/OmniRig.ini")),
                                   platform::RigSettingsToText(riggar));
            NyLogg(11);
        }) {
        Öppna();
        Fönster().Meny("mnuRadio_På")->trigger();
        Fönster().activateWindow();
        (void)QTest::qWaitForWindowActive(&Fönster());
        Fönster().txtSignal->setFocus();
    }
    static void VäntaPåRadion() {
        if (!QTest::qWaitFor([] { return frOmni::instans().Label8->text() == QLatin1String("On-line"); },
                             10000))
            qFatal("the radio does not come on line");
    }
};

double Andel(std::vector<double> tider, double del) {
    std::sort(tider.begin(), tider.end());
    return tider[static_cast<size_t>(del * static_cast<double>(tider.size() - 1))];
}

void Delay(benchmark::State& läge) {
    Rigctld radio;
    constexpr int netRigctl = 2; // Hamlib's model of a radio behind another rigctld
    const Program program(
        läge.range(0) == 0
            ? RigSettings{.way = RigSettings::Way::Address, .address = radio.Adress()}
            : RigSettings{.way = RigSettings::Way::Model, .model = netRigctl, .port = radio.Adress()});
    Program::VäntaPåRadion();
    std::mt19937 slump(1);
    std::vector<double> tider;
    int kilohertz = 14000;
    for (auto _ : läge) {
        QTest::qWait(static_cast<int>(300 + slump() % 400));
        kilohertz = 14000 + (kilohertz + 7) % 350;
        const QString visning = QStringLiteral("14,%1,00").arg(kilohertz - 14000, 3, 10, QLatin1Char('0'));
        QElapsedTimer klocka;
        klocka.start();
        radio.Vrid(kilohertz * 1000LL);
        while (Program::Fönster().txtFrekvens->text() != visning)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        tider.push_back(static_cast<double>(klocka.nsecsElapsed()) / 1e6);
    }
    läge.counters["ms_median"] = Andel(tider, 0.5);
    läge.counters["ms_95"] = Andel(tider, 0.95);
    läge.counters["ms_max"] = Andel(tider, 1);
}
BENCHMARK(Delay)->ArgName("own")->Arg(0)->Arg(1)->Iterations(200)->UseRealTime()->Unit(
    benchmark::kMillisecond);

void Stall(benchmark::State& läge) {
    Rigctld radio;
    FalskRigctld falsk;
    const auto slag = läge.range(0);
    if (slag == 2) falsk.svara = [](const QByteArray&) { return FalskRigctld::Svar{QByteArray(3000, '7')}; };
    if (slag == 3)
        falsk.svara = [&](const QByteArray&) {
            falsk.Gäst()->disconnectFromHost();
            return FalskRigctld::Svar{};
        };
    if (slag == 4) falsk.Stäng();
    const Program program(
        {.way = RigSettings::Way::Address, .address = slag < 2 ? radio.Adress() : falsk.Adress()});
    if (slag < 2) Program::VäntaPåRadion();
    if (slag == 1) radio.Frys();
    frTest& f = Program::Fönster();
    Operatör operatör(f.txtSignal);
    QTest::qWait(500);
    operatör.Glöm();
    QTimer ställare;
    int tur = 0;
    QObject::connect(&ställare, &QTimer::timeout, &ställare, [&] {
        f.txtFrekvens->setText(QStringLiteral("7,%1,00").arg(++tur % 200, 3, 10, QLatin1Char('0')));
        f.Meny("mnuRadio_Shift")->trigger();
    });
    ställare.start(500);
    for (auto _ : läge) QTest::qWait(6000);
    läge.counters["key_ms_median"] = operatör.Andel(0.5);
    läge.counters["key_ms_max"] = operatör.Andel(1);
    if (slag == 1) radio.Tina();
}
BENCHMARK(Stall)->Arg(0)->Arg(1)->Arg(2)->Arg(3)->Arg(4)->Iterations(1)->UseRealTime()->Unit(
    benchmark::kMillisecond);

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
