#include "platform/omnirig/rigdaemon.h"

#include "platform/listener.h"

#include <QCoreApplication>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTimer>

#include <csignal>
#include <sys/prctl.h>
#include <unistd.h>

namespace platform {

namespace {

/// So long, in milliseconds, one that was asked to end may take.
constexpr int kFarewell = 1000;

/// So many characters of what it writes are kept, the last ones.
constexpr qsizetype kWords = 200;

} // namespace

QString RigctldPath() { return QStandardPaths::findExecutable(QStringLiteral("rigctld")); }

RigDaemon::RigDaemon(QObject* parent)
    : QObject(parent) {}

RigDaemon::~RigDaemon() { Stop(); }

int RigDaemon::FreePort() {
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

void RigDaemon::Start(const QStringList& arguments) {
    // It may have to end after this object has gone.
    auto* process = new QProcess(QCoreApplication::instance());
    process_ = process;
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setChildProcessModifier([parent = getpid()] {
        prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (getppid() != parent) _exit(1); // gone already
    });
    connect(process, &QProcess::readyRead, this, [this, process] {
        lastWords_ = (lastWords_ + QString::fromUtf8(process->readAll())).simplified().right(kWords);
    });
    connect(process, &QProcess::finished, this, [this] { Ended(lastWords_); });
    connect(process, &QProcess::errorOccurred, this, [this, process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) Ended(process->errorString());
    });
    lastWords_.clear();
    process->start(RigctldPath(), arguments);
}

void RigDaemon::Ended(const QString& lastWords) {
    if (!process_) return;
    process_->deleteLater();
    process_.clear();
    lastWords_ = lastWords;
    Call(end_);
}

void RigDaemon::Stop() {
    if (!process_) return;
    QProcess* process = process_;
    process_.clear();
    process->disconnect();
    if (process->state() == QProcess::NotRunning) return process->deleteLater();
    ++ending_;
    connect(process, &QObject::destroyed, [] { --ending_; });
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    // One that never came to run does not finish.
    connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) process->deleteLater();
    });
    process->terminate();
    QTimer::singleShot(kFarewell, process, &QProcess::kill);
}

} // namespace platform
