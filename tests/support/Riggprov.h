#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <optional>
#include <sys/prctl.h>

/// Hamlib's daemon with its dummy radio, on the loopback address, and a line of the test's own to it: the
/// hand at the radio's knob.
class Rigctld {
public:
    explicit Rigctld(QStringList extra = {})
        : extra_(std::move(extra)) {
        QTcpServer ledig;
        ledig.listen(QHostAddress::LocalHost);
        port_ = ledig.serverPort();
        ledig.close();
        Starta();
    }
    ~Rigctld() { Döda(); }

    quint16 Port() const { return port_; }
    QString Adress() const { return QStringLiteral("127.0.0.1:%1").arg(port_); }
    /// On the same port as before.
    void Starta() {
        process_.setStandardErrorFile(QProcess::nullDevice());
        process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); }); // a test may crash
        process_.start("rigctld",
                       QStringList{"-m", "1", "-T", "127.0.0.1", "-t", QString::number(port_)} + extra_);
        ASSERT_TRUE(process_.waitForStarted()) << "rigctld is not installed";
        for (int försök = 0; försök < 500; ++försök) {
            linje_.connectToHost(QHostAddress(QHostAddress::LocalHost), port_);
            if (linje_.waitForConnected(100)) return;
            linje_.abort();
            QTest::qSleep(10);
        }
        FAIL() << "rigctld does not listen";
    }
    void Döda() {
        linje_.abort();
        process_.kill();
        process_.waitForFinished();
    }
    void Frys() { kill(static_cast<pid_t>(process_.processId()), SIGSTOP); }
    void Tina() { kill(static_cast<pid_t>(process_.processId()), SIGCONT); }

    /// Says a line to the daemon and waits for so many lines of answer.
    QByteArray Säg(const QByteArray& rad, int rader = 1) {
        linje_.write(rad + '\n');
        QByteArray svar;
        while (svar.count('\n') < rader) {
            if (!linje_.bytesAvailable() && !linje_.waitForReadyRead(3000)) break;
            svar += linje_.readAll();
        }
        return svar;
    }
    void Vrid(qint64 hertz) { EXPECT_EQ(Säg("F " + QByteArray::number(hertz)), "RPRT 0\n"); }
    void Trafiksätt(const QByteArray& namn) { EXPECT_EQ(Säg("M " + namn + " 0"), "RPRT 0\n"); }
    qint64 Frekvens() { return Säg("f").trimmed().toLongLong(); }

private:
    QStringList extra_;
    QProcess process_;
    QTcpSocket linje_;
    quint16 port_ = 0;
};

/// A daemon that the test makes behave as it likes.
class FalskRigctld {
public:
    /// What a line is answered with, and how many milliseconds later.
    struct Svar {
        QByteArray text;
        int efter = 0;
    };

    FalskRigctld() {
        Lyssna();
        QObject::connect(&server_, &QTcpServer::newConnection, &server_, [this] {
            QTcpSocket* gäst = server_.nextPendingConnection();
            gäst_ = gäst;
            ++gäster;
            QObject::connect(gäst, &QTcpSocket::readyRead, gäst, [this, gäst] {
                while (gäst->canReadLine()) Ta(gäst, gäst->readLine().trimmed());
            });
            QObject::connect(gäst, &QTcpSocket::disconnected, gäst, &QObject::deleteLater);
            if (hälsning) gäst->write(*hälsning);
        });
    }

    QString Adress() const { return QStringLiteral("127.0.0.1:%1").arg(port_); }
    bool Lyssna() {
        const bool går = server_.listen(QHostAddress::LocalHost, port_);
        port_ = server_.serverPort();
        return går;
    }
    void Stäng() {
        server_.close();
        if (gäst_) gäst_->abort();
    }
    QTcpSocket* Gäst() const { return gäst_; }

    /// A radio like any other, until the test says otherwise.
    qint64 frekvens = 14025000;
    QByteArray trafiksätt = "CW";
    /// In place of the radio's answer: nothing for the usual one, an empty text for none at all.
    std::function<std::optional<Svar>(const QByteArray& rad)> svara;
    std::optional<QByteArray> hälsning;
    QList<QByteArray> rader; ///< all that has been said to it
    int gäster = 0;

    /// Answers a line in another way from now on.
    void Svara(const QByteArray& rad, const Svar& svar) {
        svara = [rad, svar](const QByteArray& kommen) {
            return kommen.startsWith(rad) ? std::optional(svar) : std::nullopt;
        };
    }
    /// The lines that tune.
    QList<QByteArray> Skrivna() const {
        QList<QByteArray> skrivna;
        for (const QByteArray& rad : rader)
            if (rad.startsWith('F')) skrivna << rad;
        return skrivna;
    }

private:
    void Ta(QTcpSocket* gäst, const QByteArray& rad) {
        rader << rad;
        const auto eget = svara ? svara(rad) : std::nullopt;
        const Svar svar = eget ? *eget : Svar{Vanligt(rad)};
        if (svar.text.isEmpty()) return;
        QTimer::singleShot(svar.efter, gäst, [gäst, text = svar.text] { gäst->write(text); });
    }
    QByteArray Vanligt(const QByteArray& rad) {
        if (rad == "\\chk_vfo") return "0\n";
        if (rad == "f") return QByteArray::number(frekvens) + '\n';
        if (rad == "m") return trafiksätt + "\n500\n";
        if (rad.startsWith("F ")) {
            frekvens = rad.mid(2).toLongLong();
            return "RPRT 0\n";
        }
        return {}; // the real one is silent too
    }

    QTcpServer server_;
    QPointer<QTcpSocket> gäst_;
    quint16 port_ = 0;
};
