// The program: load the main window, and let the event loop do the rest.

#include "contest/frTest.h"
#include "platform/application.h"
#include "platform/failure.h"
#include "platform/paths.h"

#include <QIcon>

int main(int argc, char** argv) {
    platform::Application program(argc, argv);
    platform::InstallSwedish();
    QApplication::setWindowIcon(QIcon(platform::DataPath(QStringLiteral("Bilder/Sorvik.png"))));
    // The exit query ends the process; the splash that closes first must not.
    QApplication::setQuitOnLastWindowClosed(false);
    try {
        frTest::instans().Ladda();
    } catch (const platform::Failure& fel) {
        platform::EndByFailure(fel.message());
    } catch (const std::exception& fel) {
        platform::EndByFailure(QString::fromLocal8Bit(fel.what()));
    }
    return QApplication::exec();
}
