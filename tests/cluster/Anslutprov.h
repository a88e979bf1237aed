#pragma once

#include "cluster/Klusterprov.h"
#include "cluster/Provserver.h"

#include "cluster/frAnslut.h"
#include "platform/textfile.h"

#include <QDir>

/// The program with a cluster of the test's own to connect to.
class AnslutProv : public Klusterprov {
protected:
    void SkrivSite(const char* mapp, const char* namn, const QString& värd, int port) {
        platform::SaveTextFile(
            Fil(QString::fromUtf8(mapp)) + u'/' + QString::fromUtf8(namn) + ".dxt",
            QStringLiteral("\"%1\"\r\n\"127.0.0.1\"\r\n%2\r\n 0 \r\n").arg(värd).arg(port));
    }
    /// The program with one site, that of the server, in both folders.
    frTest& StartaMedSite() {
        frTest& f = StartaLogg(1);
        for (const char* mapp : {"DX Telnet", "DX Telenet"}) {
            for (const QFileInfo& fil : QDir(Fil(QString::fromUtf8(mapp))).entryInfoList(QDir::Files))
                QFile::remove(fil.filePath());
            SkrivSite(mapp, "Prov", "Provklustret", server.Port());
        }
        delat.EgenSignal = "SM7ABC";
        return f;
    }
    /// Chooses the one site in frAnslut when it comes up.
    static void VäljProv() {
        NärFönster("frAnslut", [](QWidget*) {
            frAnslut::instans().fgAnslut->Row(1);
            frAnslut::instans().cmdAnslut->click();
        });
    }
    /// Chooses the one site and connects.
    QTcpSocket* Anslut() {
        VäljProv();
        frTest::instans().Meny("mnuDXSpot_DXSpot_Connect")->trigger();
        return server.Gäst();
    }
    static frDXCluster& Fönster() { return frDXCluster::instans(); }
    static QString Text() { return Fönster().txtMSCom->toPlainText(); }
    /// What the program has sent, when so many bytes of it have come.
    static QByteArray Hör(QTcpSocket* gäst, qint64 minst) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return gäst->bytesAvailable() >= minst; }, 2000));
        return gäst->readAll();
    }
    /// Sends from the cluster, and waits for the text to be on the screen.
    static bool Sänd(QTcpSocket* gäst, const QByteArray& text, const QString& syns) {
        gäst->write(text);
        return QTest::qWaitFor([&] { return Text().contains(syns); }, 3000);
    }

    Provserver server;
};
