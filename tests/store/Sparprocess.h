#pragma once

#include "Provanrop.h"

#include <QDeadlineTimer>
#include <QProcess>
#include <QStringList>

#include <optional>

/// A run of the program on a log in a process of its own, with keys from within; sparprocess.cpp tells what
/// it can be asked for.
class Sparprocess {
public:
    Sparprocess(const QString& mapp, const QString& logg, const QStringList& vad) {
        process_.start(QStringLiteral(SPARPROCESS), QStringList{mapp, logg} + vad);
    }

    /// The log is open and the first contact can be typed.
    bool Redo(int ms = 30000) {
        const QDeadlineTimer gräns(ms);
        while (!ut_.contains("ready\n") && !gräns.hasExpired() && process_.state() != QProcess::NotRunning)
            Läs(gräns);
        return ut_.contains("ready\n");
    }
    void Börja() {
        process_.write("\n");
        process_.waitForBytesWritten();
    }
    /// Takes what the process says until then.
    void KörTill(const QDeadlineTimer& gräns) {
        while (!gräns.hasExpired() && process_.state() != QProcess::NotRunning) Läs(gräns);
    }
    /// SIGKILL. @return whether the process was still alive.
    bool Döda() {
        const bool levde = process_.state() == QProcess::Running;
        process_.kill();
        process_.waitForFinished();
        return levde && process_.exitStatus() == QProcess::CrashExit;
    }
    /// Its exit status, or nothing if it has not ended by then.
    std::optional<int> Slut(int ms) {
        if (process_.state() != QProcess::NotRunning && !process_.waitForFinished(ms)) return std::nullopt;
        if (process_.exitStatus() != QProcess::NormalExit) return std::nullopt;
        return process_.exitCode();
    }

    /// What stood behind a word at the start of a line: "saved", "message", "box".
    QStringList Sagt(const QString& ord) {
        ut_ += process_.readAllStandardOutput();
        QStringList svar;
        for (const QString& rad : QString::fromUtf8(ut_).split(QLatin1Char('\n')))
            if (rad.startsWith(ord + QLatin1Char(' '))) svar += rad.mid(ord.size() + 1);
        return svar;
    }
    QString Feltext() { return QString::fromUtf8(process_.readAllStandardError()); }

private:
    void Läs(const QDeadlineTimer& gräns) {
        process_.waitForReadyRead(static_cast<int>(gräns.remainingTime()));
        ut_ += process_.readAllStandardOutput();
    }

    QProcess process_;
    QByteArray ut_;
};
