// A program that starts a rigctld, says its process id and is killed.
#include "platform/omnirig/rigdaemon.h"
#include "platform/omnirig/rigsettings.h"

#include <QCoreApplication>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    platform::RigDaemon daemon(nullptr);
    daemon.Start(platform::DaemonArguments({.way = platform::RigSettings::Way::Model, .model = 1},
                                           platform::RigDaemon::FreePort()));
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &poll, [&] {
        if (daemon.ProcessId() == 0) return;
        std::printf("%lld\n", static_cast<long long>(daemon.ProcessId()));
        std::fflush(stdout);
        poll.stop();
    });
    poll.start(10);
    return QCoreApplication::exec();
}
