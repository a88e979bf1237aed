#include "platform/launch.h"

#include "platform/failure.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

namespace platform {

LaunchSeam& Launches() {
    static LaunchSeam seam;
    return seam;
}

void OpenAddress(const QString& address) {
    const bool opened = Launches().address ? Launches().address(address)
                                           : QDesktopServices::openUrl(QUrl(address, QUrl::StrictMode));
    if (!opened) throw Failure(QStringLiteral("Adressen kan inte öppnas: ") + address);
}

void StartProgram(const QString& program, const QStringList& arguments) {
    const bool started =
        !program.isEmpty() && (Launches().program ? Launches().program(program, arguments)
                                                  : QProcess::startDetached(program, arguments));
    if (!started) throw Failure(QStringLiteral("Programmet kan inte startas: ") + program);
}

} // namespace platform
