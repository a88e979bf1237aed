#include "platform/application.h"

#include "platform/failure.h"

#include <QLocale>
#include <QMessageBox>
#include <QTranslator>

#include <cstdio>
#include <cstdlib>

namespace platform {

namespace {
std::function<void(int)>& replacedEnd() {
    static std::function<void(int)> end;
    return end;
}
} // namespace

std::function<void()>& letGo() {
    static std::function<void()> function;
    return function;
}

void EndProcess(int status) {
    if (replacedEnd()) return replacedEnd()(status);
    std::fflush(nullptr);
    // Without destructors: an open log keeps its clocks unwritten, and SQLite needs no farewell.
    std::_Exit(status);
}

void SetEndProcess(std::function<void(int)> end) { replacedEnd() = std::move(end); }

void SetLetGo(std::function<void()> function) { letGo() = std::move(function); }

void EndByFailure(const QString& message) {
    static bool ending = false; // a timer may fail too while the box stands
    if (ending) return;
    ending = true;
    try {
        if (letGo()) letGo()();
    } catch (const std::exception&) {
        // The failure that is being told of is the one that counts.
    }
    std::fprintf(stderr, "Sorvik: run-time error: %s\n", message.toUtf8().constData());
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Sorvik"),
                    QStringLiteral("Run-time error:\n\n") + message, QMessageBox::Ok);
    box.setTextFormat(Qt::PlainText);
    box.setObjectName(QStringLiteral("RuntimeError"));
    if (!replacedEnd()) box.exec();
    ending = false;
    EndProcess(1);
}

Application::Application(int& argc, char** argv)
    : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Sorvik"));
    setApplicationDisplayName(QString());
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const Failure& failure) {
        EndByFailure(failure.message());
    } catch (const std::exception& failure) {
        EndByFailure(QString::fromLocal8Bit(failure.what()));
    }
    return false;
}

void DoEvents() { QCoreApplication::processEvents(); }

void InstallSwedish() {
    QLocale::setDefault(QLocale(QLocale::Swedish, QLocale::Sweden));
    // Qt's translation first: the later one is asked first and holds what Qt's lacks.
    for (const char* name : {":/sprak/qt_sv.qm", ":/sprak/sorvik_sv.qm"}) {
        auto* translator = new QTranslator(qApp);
        if (translator->load(QString::fromUtf8(name))) QCoreApplication::installTranslator(translator);
    }
}

} // namespace platform
