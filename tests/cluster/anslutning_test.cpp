// The connection to a cluster, from the choice of a site to the loss of the link.
#include "cluster/Klusterprov.h"
#include "cluster/Provserver.h"

#include "cluster/frAnslut.h"
#include "cluster/frAnslutEditor.h"
#include "cluster/frSändDX.h"
#include "platform/textfile.h"
#include "platform/windows.h"

#include <QDir>
#include <QFile>
#include <QScreen>

#include <fcntl.h>
#include <unistd.h>

namespace {

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
    /// Chooses the one site in frAnslut and connects.
    QTcpSocket* Anslut() {
        NärFönster("frAnslut", [](QWidget*) {
            frAnslut::instans().fgAnslut->Row(1);
            frAnslut::instans().cmdAnslut->click();
        });
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

const char* const lugn = "Nothing was sent for a while";

} // namespace

// ---- connect and disconnect ---------------------------------------------------------------------------

TEST_F(AnslutProv, ConnectShowsBothWindowsAndTheSiteInTheStatusBar) {
    frTest& f = StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    EXPECT_TRUE(frDXSpott::instans().isVisible());
    EXPECT_TRUE(Fönster().isVisible());
    EXPECT_FALSE(Fönster().isModal());
    EXPECT_EQ(f.SBarTest(4), "Ansluten till: Provklustret");
    EXPECT_TRUE(kluster.ClusterAnsluten);
    EXPECT_TRUE(kluster.ClusterLäser);
    EXPECT_EQ(kluster.ClusterTyp, 1);
    EXPECT_EQ(Fönster().TimerDXCluster->Interval(), 500);
    EXPECT_FALSE(frAnslut::instans().isVisible());
}

TEST_F(AnslutProv, TheStatusBarSaysSoWhetherOrNotTheConnectionComesUp) {
    frTest& f = StartaMedSite();
    server.Stäng();
    NärFönster("frAnslut", [](QWidget*) {
        frAnslut::instans().fgAnslut->Row(1);
        frAnslut::instans().cmdAnslut->click();
    });
    DXTele_Connect();
    EXPECT_EQ(f.SBarTest(4), "Ansluten till: Provklustret");
    EXPECT_TRUE(kluster.ClusterAnsluten);
    EXPECT_TRUE(QTest::qWaitFor([] { return Text() == "*** DISCONNECTED ***"; }, 3000));
    EXPECT_FALSE(kluster.ClusterAnsluten);
    EXPECT_EQ(f.SBarTest(4), "Ansluten till: Provklustret") << "the text stays";
}

TEST_F(AnslutProv, ASiteThatCannotBeAskedForGivesItsMessage) {
    StartaMedSite();
    SkrivSite("DX Telnet", "Prov", "Provklustret", 0);
    NärFönster("frAnslut", [](QWidget*) {
        frAnslut::instans().fgAnslut->Row(1);
        frAnslut::instans().cmdAnslut->click();
    });
    DXTele_Connect();
    EXPECT_EQ(Tag(),
              (Meddelande{T("Fel vid initieringen av DXCluster! Inställningar för modemet är inte rätt "
                            "konfigurerade."),
                          T("InitieraDXCluster")}));
    EXPECT_FALSE(kluster.ClusterAnsluten);
    EXPECT_FALSE(kluster.ClusterLäser);
}

TEST_F(AnslutProv, TheWindowsComeUpAlsoWhenTheConnectionCannotBeAskedFor) {
    StartaMedSite();
    SkrivSite("DX Telnet", "Prov", "Provklustret", 0);
    NärFönster("frAnslut", [](QWidget*) {
        frAnslut::instans().fgAnslut->Row(1);
        frAnslut::instans().cmdAnslut->click();
    });
    DXTele_Connect();
    EXPECT_EQ(Tag().titel, "InitieraDXCluster");
    EXPECT_TRUE(frDXSpott::instans().isVisible());
    EXPECT_TRUE(Fönster().isVisible());
}

// Where the windows stand shows on a screen with room for them; elsewhere they stay whole.
TEST_F(AnslutProv, TheWindowsStandWhereTheyHaveRoom) {
    const bool storSkärm = qEnvironmentVariableIsSet("SORVIK_STORSKARM");
    frTest& f = StartaMedSite();
    const QRect skärm = f.screen()->availableGeometry();
    f.move(10, f.y());
    frAnslut::instans().Initiera_fgAnslut();
    frAnslut::instans().fgAnslut->Row(1);
    frAnslut::instans().fgAnslut_DblClick();
    EXPECT_EQ(f.x(), 10) << "a double click moves nothing";
    frAnslut::instans().cmdAnslut->click();
    EXPECT_EQ(f.x(), storSkärm ? 332 : qMax(0, qMin(332, skärm.right() - f.width())));
    const QRect kluster_ = Fönster().geometry();
    EXPECT_EQ(kluster_.size(), QSize(679, 239));
    EXPECT_EQ(kluster_.topLeft(),
              storSkärm ? QPoint(533, 600) : QPoint(skärm.right() - 679, skärm.bottom() - 239));
}

TEST_F(AnslutProv, ConnectWithALinkUpStopsSilently) {
    frTest& f = StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    f.Meny("mnuDXSpot_DXSpot_Connect")->trigger();
    EXPECT_FALSE(server.HarGäst());
    EXPECT_EQ(gäst->state(), QAbstractSocket::ConnectedState);
}

TEST_F(AnslutProv, ConnectWithASerialModemActiveGivesItsMessage) {
    StartaMedSite();
    kluster.ClusterAnsluten = true;
    DXTele_Connect();
    EXPECT_EQ(Tag(),
              (Meddelande{T("DX TNC är Aktivt. Kan ej ansluta till DX Telnet !"), T("Fel vid Anslutning")}));
}

TEST_F(AnslutProv, DisconnectWritesItsLineAndClosesTheLink) {
    frTest& f = StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    f.Meny("mnuDXSpot_DXSpot_Disconnect")->trigger();
    EXPECT_EQ(Text(), "*** DISCONNECTED\n");
    EXPECT_FALSE(kluster.ClusterAnsluten);
    EXPECT_TRUE(kluster.ClusterLäser) << "until the end of the run";
    EXPECT_EQ(f.SBarTest(4), "Ansluten till: Provklustret");
    EXPECT_TRUE(QTest::qWaitFor([&] { return gäst->state() == QAbstractSocket::UnconnectedState; }));
    QTest::qWait(20);
    EXPECT_EQ(Text(), "*** DISCONNECTED\n") << "the close event is the other side's alone";
}

TEST_F(AnslutProv, DisconnectDoesNothingBeforeAConnection) {
    frTest& f = StartaMedSite();
    f.Meny("mnuDXSpot_DXSpot_Disconnect")->trigger();
    EXPECT_EQ(Text(), "");
}

TEST_F(AnslutProv, AServerThatGoesIsToldAndComesBack) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    gäst->write(Rad("XX9BB").toLatin1());
    gäst->disconnectFromHost();
    ASSERT_TRUE(QTest::qWaitFor([] { return Text().endsWith("*** DISCONNECTED ***"); }, 3000));
    EXPECT_EQ(Spottrad(1)[1], "XX9BB") << "what it sent last is taken first";
    EXPECT_FALSE(kluster.ClusterAnsluten);
    gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    gäst->write(Rad("XX9CC").toLatin1());
    EXPECT_TRUE(QTest::qWaitFor([] { return Spottrad(2)[1] == "XX9CC"; }, 3000));
}

TEST_F(AnslutProv, TheSerialSwitchConnectsAndRefusesBesideTCP) {
    frTest& f = StartaMedSite();
    kluster.DXVärdAdress = "127.0.0.1";
    kluster.DXVärdPort = server.Port();
    kluster.DXVärdNamn = "Modem";
    f.DXSpotPå();
    EXPECT_TRUE(kluster.ClusterAnsluten);
    EXPECT_EQ(f.SBarTest(4), "Ansluten till: Modem");
    f.DXSpotPå();
    EXPECT_TRUE(meddelanden.empty()) << "a modem that is active already is left alone";
    kluster.ClusterTyp = 1;
    f.DXSpotPå();
    EXPECT_EQ(Tag(),
              (Meddelande{T("DX Tele är Aktivt. Kan ej ansluta till DX TNC !"), T("Fel vid Anslutning")}));
    f.DXSpotAv();
    EXPECT_TRUE(kluster.ClusterAnsluten);
}

TEST_F(AnslutProv, ClosingTheSpotWindowEndsTheLink) {
    frTest& f = StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    frDXSpott::instans().close();
    EXPECT_EQ(f.SBarTest(4), "");
    EXPECT_FALSE(kluster.ClusterAnsluten);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gäst->state() == QAbstractSocket::UnconnectedState; }));
    EXPECT_FALSE(frDXSpott::instans().isVisible());
    EXPECT_FALSE(Fönster().isVisible());
    EXPECT_NE(Anslut(), nullptr) << "and Connect works again";
    EXPECT_TRUE(Fönster().isVisible());
}

TEST_F(AnslutProv, TheSpotWindowMayBeClosedWhileTextIsTaken) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    gäst->write(Rad("XX9BB").toLatin1());
    // The text stands in the window before events run and is taken apart after them: this closes in between.
    bool emellan = false;
    QTimer ögonblick;
    QObject::connect(&ögonblick, &QTimer::timeout, &ögonblick, [&emellan] {
        if (emellan || !kluster.ClusterBuffert.contains("XX9BB")) return;
        frDXSpott::instans().close();
        emellan = true;
    });
    ögonblick.start(0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return emellan; }));
    QTest::qWait(30);
    EXPECT_FALSE(kluster.ClusterAnsluten);
    EXPECT_EQ(AntalLagrade(), 0) << "what a link sent that is gone is not taken";
    EXPECT_FALSE(platform::SingleWindow<frDXSpott>::exists());
    EXPECT_FALSE(platform::SingleWindow<frDXCluster>::exists());
}

TEST_F(AnslutProv, ClosingTheClusterWindowOnlyHidesIt) {
    frTest& f = StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    Fönster().close();
    EXPECT_FALSE(Fönster().isVisible());
    EXPECT_EQ(gäst->state(), QAbstractSocket::ConnectedState);
    gäst->write(Rad("XX9BB").toLatin1());
    EXPECT_TRUE(QTest::qWaitFor([] { return Spottrad(1)[1] == "XX9BB"; }, 3000));
    f.Meny("mnufrDXSpotMeny_VisaDXCluster")->trigger();
    EXPECT_TRUE(Fönster().isVisible());
    f.Meny("mnufrDXSpotMeny_DöljDXCluster")->trigger();
    EXPECT_FALSE(Fönster().isVisible());
}

TEST_F(AnslutProv, TheExitUnloadsTheWindowsAndTheLink) {
    frTest& f = StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    jaNej = {true};
    EXPECT_THROW(f.close(), ProcessSlut);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gäst->state() == QAbstractSocket::UnconnectedState; }));
}

// ---- login and reception ------------------------------------------------------------------------------

TEST_F(AnslutProv, LoginIsAnsweredWithTheOwnCallAtOnce) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    gäst->write("Welcome\r\nlogin: ");
    EXPECT_EQ(Hör(gäst, 8), "SM7ABC\r\n");
    gäst->write("login: ");
    EXPECT_EQ(Hör(gäst, 8), "SM7ABC\r\n") << "each time it asks";
}

TEST_F(AnslutProv, WithoutAnOwnCallTheContestCallIsSent) {
    StartaMedSite();
    delat.EgenSignal.clear();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    gäst->write("login: ");
    EXPECT_EQ(Hör(gäst, 7), "SK7MW\r\n");
}

TEST_F(AnslutProv, LoginWithoutItsBlankOrWithTextBehindGetsNothing) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    ASSERT_TRUE(Sänd(gäst, "login:", "login:"));
    ASSERT_TRUE(Sänd(gäst, " \r\n", "login: \n"));
    ASSERT_TRUE(Sänd(gäst, "login: \r\nhej", "hej"));
    ASSERT_TRUE(Sänd(gäst, "Login: ", "Login: "));
    ASSERT_TRUE(Sänd(gäst, "password: ", "password: "));
    QTest::qWait(30);
    EXPECT_EQ(gäst->readAll(), "") << lugn;
}

TEST_F(AnslutProv, WhatArrivesStandsInTheWindowAsItIs) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    ASSERT_TRUE(Sänd(gäst, "To ALL de XX9AA: H\xe4lsningar fr\xe5n \xd6\r\n\a", T("Hälsningar från Ö\n")));
    EXPECT_EQ(Text(), T("To ALL de XX9AA: Hälsningar från Ö\n"));
    EXPECT_TRUE(Fönster().txtMSCom->textCursor().atEnd());
}

TEST_F(AnslutProv, TrafficOfAllKindsYieldsItsSpots) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    gäst->write("\xff\xfb\x01Running on XX9ZZ-1\r\n\r\nlogin: ");
    EXPECT_EQ(Hör(gäst, 8), "SM7ABC\r\n");
    gäst->write("Hello SM7ABC, this is XX9ZZ-1\r\nCluster: 34 nodes, 512 local / 2048 total users\r\n"
                "SM7ABC de XX9ZZ-1 21-Nov-2026 1333Z >\r\n"
                "DX de XX1AAA:     14025.5  XX2BB        up 2                           1333Z\a\a\r\n"
                "WWV de XX9ZZ <12>:   SFI=90, A=5, K=1, No Storms -> No Storms\r\n"
                "dx de xx3cc-#:    7003.0  xx4dd       cw 8 db 28 wpm cq              1801z\r\n"
                "DX de EA8/XX4UE-#:21149.0  XX9ATQ/B    CW  9 dB 10 WPM BEACON         1117Z\r\n"
                "To ALL de XX5EE <1334Z> : contest this evening\r\n"
                "DX de XX6FF-#:    50313.0 XX7GG        FT8 -14dB Q:4 Z:4,5          4 0647Z  3\r\n"
                "WCY de XX9ZZ <12> : K=1 expK=0 A=5 R=10 SFI=90\r\n");
    ASSERT_TRUE(QTest::qWaitFor([] { return SpotRad == 5; }, 3000));
    EXPECT_EQ(Lagrade(), (std::vector<std::vector<QString>>{{"XX2BB", "14,025,50", "CW", "20"},
                                                            {"xx4dd", "7,003,00", "CW", "40"},
                                                            {"XX9ATQ/B", "21,149,00", "CW", "15"},
                                                            {"XX7GG", "50,313,00", "SSB", "6"}}));
}

TEST_F(AnslutProv, TrafficCutAtEveryByteNeverHangsAndKeepsTheScreenWhole) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    const QByteArray trafik = "hej> DX de XX1AAA:     14025.5  XX2BB   up 2 åäö  1333Z\a\a\r\n";
    QString väntat;
    for (qsizetype kapad = 0; kapad <= trafik.size(); ++kapad) {
        väntat += QString::fromLatin1(trafik).remove('\a').remove('\r');
        for (const QByteArray& del : {trafik.left(kapad), trafik.mid(kapad)}) {
            if (del.isEmpty()) continue;
            const QString före = Text();
            gäst->write(del);
            gäst->flush();
            const QString syns = QString::fromLatin1(del).remove('\a').remove('\r');
            ASSERT_TRUE(QTest::qWaitFor(
                [&] { return Text().size() >= före.size() + syns.size() || syns.isEmpty(); }, 3000))
                << kapad;
        }
        nu = nu.addSecs(60);
    }
    EXPECT_EQ(Text(), väntat);
    // Cut in front of the announcement or behind its line end, it is whole.
    const QString hel =
        "SELECT count(*) FROM DXSpottLogg WHERE Signal='XX2BB' AND Frekvens='14,025,50' AND Notering='up 2 "
        "\u00C3\u00A5\u00C3\u00A4\u00C3\u00B6' AND [Spott Tid]='1333Z\a\a'";
    EXPECT_EQ(LäsEtt(Fil("DXSpott.Dat"), hel), "7");
    EXPECT_EQ(
        LäsEtt(Fil("DXSpott.Dat"), "SELECT count(*) FROM DXSpottLogg WHERE Signal='XX2BB' AND Notering=''"),
        "24")
        << "cut behind the call, it has no comment";
}

TEST_F(AnslutProv, NothingIsReadBeforeTheFirstConnection) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    kluster.ClusterLäser = false;
    gäst->write("login: ");
    QTest::qWait(50);
    EXPECT_EQ(Text(), "");
    EXPECT_EQ(gäst->readAll(), "");
}

TEST_F(AnslutProv, TheCaretGoesToTheEndOfTheWindowTextFirst) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    QPlainTextEdit& text = *Fönster().txtMSCom;
    ASSERT_TRUE(Sänd(gäst, "ett\r\n", "ett\n"));
    text.moveCursor(QTextCursor::Start);
    ASSERT_TRUE(Sänd(gäst, "tre\r\n", "ett\ntre\n"));
    text.moveCursor(QTextCursor::Start);
    KopplaFrånDXCluster();
    EXPECT_EQ(Text(), "ett\ntre\n*** DISCONNECTED\n");
    text.moveCursor(QTextCursor::Start);
    gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    gäst->disconnectFromHost();
    EXPECT_TRUE(
        QTest::qWaitFor([] { return Text() == "ett\ntre\n*** DISCONNECTED\n*** DISCONNECTED ***"; }, 3000));
}

TEST_F(AnslutProv, DisconnectWritesItsLineAlsoWithNoLink) {
    StartaMedSite();
    kluster.ClusterTyp = 1;
    kluster.ClusterAnsluten = true;
    KopplaFrånDXCluster();
    EXPECT_EQ(Text(), "*** DISCONNECTED\n");
    EXPECT_FALSE(kluster.ClusterAnsluten);
}

// ---- sending a line -----------------------------------------------------------------------------------

TEST_F(AnslutProv, ALineGoesOutInCapitalsWithItsLineEnd) {
    StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    ASSERT_TRUE(Aktivera(Fönster()));
    SkrivI(Fönster().txtCMD, "sh/dx 5å");
    EXPECT_EQ(Fönster().txtCMD->text(), T("SH/DX 5Å"));
    Tryck(Qt::Key_Return);
    EXPECT_EQ(Hör(gäst, 10), "SH/DX 5\xc5\r\n");
    EXPECT_EQ(Fönster().txtCMD->text(), "");
}

TEST_F(AnslutProv, WithoutALinkTheLineStaysInTheField) {
    StartaMedSite();
    frDXCluster& f = Fönster();
    for (const int typ : {0, 1}) {
        kluster.ClusterTyp = typ;
        f.txtCMD->setText("SH/DX");
        f.cmdEnter->click();
        EXPECT_EQ(f.txtCMD->text(), "SH/DX");
    }
}

TEST_F(AnslutProv, ThePacketEngineGetsCommandsByTheirFirstLetters) {
    StartaMedSite();
    frDXCluster& f = Fönster();
    kluster.ClusterTyp = 2;
    f.txtCMD->setText("DISC");
    f.cmdEnter->click();
    EXPECT_EQ(Tag().text, T("Texten kunde inte sändas till DX cluster.")) << "no engine on this machine";
    EXPECT_EQ(f.txtCMD->text(), "DISC");
    ASSERT_TRUE(QFile::copy(QStringLiteral(SORVIK_AGWDLL), Fil("../agwdll32.so")));
    qputenv("SORVIK_AGW", Fil("agw.txt").toUtf8());
    for (const char* text : {"DISC", "D", "C XX9AA-1", "C", "DISCO", "SH/DX"}) {
        f.txtCMD->setText(text);
        f.cmdEnter->click();
        EXPECT_EQ(f.txtCMD->text(), "");
    }
    EXPECT_EQ(platform::LoadTextFile(Fil("agw.txt")),
              "[] [] d 0 0\n[] [] d 0 0\n[XX9AA-1] [] c 0 0\n[] [C] D 1 0\n"
              "[] [DISCO] D 5 0\n[] [SH/DX] D 5 0\n");
}

TEST_F(AnslutProv, ASerialModemIsPolledByTheTimerAndSentTo) {
    StartaMedSite();
    const int ände = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(ände) | unlockpt(ände), 0);
    frDXCluster& f = Fönster();
    f.mscCluster->CommPort(QString::fromUtf8(ptsname(ände)));
    f.mscCluster->PortOpen(true);
    kluster.ClusterAnsluten = true;
    const QByteArray rad = Rad("XX9BB").toLatin1();
    ASSERT_EQ(write(ände, rad.constData(), static_cast<size_t>(rad.size())), rad.size());
    ASSERT_TRUE(QTest::qWaitFor([&] { return f.mscCluster->InBufferCount() == rad.size(); }));
    f.mscCluster->InputLen(3); // of an earlier use
    kluster.ClusterAnsluten = false;
    f.TimerDXCluster->Tick();
    EXPECT_EQ(Text(), "") << "nothing is polled without a connection";
    kluster.ClusterAnsluten = true;
    f.txtMSCom->setPlainText("före\n");
    f.txtMSCom->moveCursor(QTextCursor::Start);
    f.TimerDXCluster->Tick();
    EXPECT_TRUE(Text().startsWith(T("före\nDX de XX9AA")));
    EXPECT_EQ(Spottrad(1)[1], "XX9BB");
    f.txtCMD->setText("HEJ");
    f.cmdEnter->click();
    QTest::qWait(20);
    char svar[16] = {};
    EXPECT_EQ(read(ände, svar, sizeof svar), 4);
    EXPECT_STREQ(svar, "HEJ\r");
    close(ände);
}

TEST_F(AnslutProv, TheTimerLeavesATCPLinkAlone) {
    StartaMedSite();
    kluster.ClusterAnsluten = true;
    kluster.ClusterTyp = 1;
    kluster.ClusterBuffert = Rad("XX9BB");
    Fönster().TimerDXCluster->Tick();
    EXPECT_EQ(Spottrad(1)[1], "");
}

TEST_F(AnslutProv, EscapeGoesBackToTheCall) {
    frTest& f = StartaMedSite();
    for (QDialog* fönster :
         {static_cast<QDialog*>(&Fönster()), static_cast<QDialog*>(&frDXSpott::instans())}) {
        fönster->show();
        ASSERT_TRUE(Aktivera(*fönster));
        QTest::keyClick(fönster, Qt::Key_Escape);
        EXPECT_TRUE(HarFokus(f.txtSignal));
        EXPECT_TRUE(fönster->isVisible());
    }
}

// ---- the choice of a site -----------------------------------------------------------------------------

TEST_F(AnslutProv, AFirstInstallationHasSitesInBothFolders) {
    StartaLogg(1);
    const QStringList ena = QDir(Fil("DX Telnet")).entryList(QDir::Files);
    EXPECT_GE(ena.size(), 5);
    EXPECT_EQ(ena, QDir(Fil("DX Telenet")).entryList(QDir::Files));
    for (const QString& fil : ena) {
        ASSERT_TRUE(LäsDXSite(Sitemapp::Telnet, fil.chopped(4))) << fil.toStdString();
        EXPECT_GT(kluster.DXVärdPort, 0);
        EXPECT_TRUE(kluster.DXVärdAdress.contains('.'));
        EXPECT_FALSE(kluster.DXVärdNamn.isEmpty());
    }
}

TEST_F(AnslutProv, TheListHasAHeadingAndTheSitesOfTheFirstFolder) {
    StartaMedSite();
    SkrivSite("DX Telnet", "andra", "Andra", 1);
    SkrivSite("DX Telenet", "bara där", "Där", 1);
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    EXPECT_EQ(f.windowTitle(), "Anslut Till");
    ASSERT_EQ(f.fgAnslut->rowCount(), 3);
    EXPECT_EQ(f.fgAnslut->Cell(0, 0), "DX-Telnet Cluster");
    EXPECT_EQ(f.fgAnslut->item(0, 0)->background(), f.palette().button());
    EXPECT_EQ(f.fgAnslut->Cell(1, 0), "andra");
    EXPECT_EQ(f.fgAnslut->Cell(2, 0), "Prov");
}

TEST_F(AnslutProv, TheHeadingCanNeitherBeConnectedToNorDeleted) {
    StartaMedSite();
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    f.show();
    for (const int rad : {0, -1}) {
        f.fgAnslut->setCurrentCell(rad, 0);
        f.cmdAnslut->click();
        f.fgAnslut_DblClick();
        f.cmdTaBort->click();
        EXPECT_TRUE(f.isVisible());
        EXPECT_EQ(f.fgAnslut->rowCount(), 2);
    }
    EXPECT_EQ(kluster.DXVärdNamn, "");
}

TEST_F(AnslutProv, TheButtonReadsTheFirstFolderAndTheDoubleClickTheSecond) {
    frTest& t = StartaMedSite();
    SkrivSite("DX Telnet", "Prov", "Ettan", 1);
    SkrivSite("DX Telenet", "Prov", "Tvåan", 2);
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    f.fgAnslut->Row(1);
    f.cmdAnslut->click();
    EXPECT_EQ(kluster.DXVärdNamn, "Ettan");
    EXPECT_EQ(kluster.DXVärdPort, 1);
    EXPECT_FALSE(kluster.AvbrytAnslut);
    f.show();
    const QPoint plats = f.fgAnslut->visualItemRect(f.fgAnslut->item(1, 0)).center();
    QTest::mouseClick(f.fgAnslut->viewport(), Qt::LeftButton, {}, plats);
    QTest::mouseDClick(f.fgAnslut->viewport(), Qt::LeftButton, {}, plats);
    EXPECT_EQ(kluster.DXVärdNamn, T("Tvåan"));
    EXPECT_FALSE(f.isVisible());
    EXPECT_TRUE(t.isVisible());
}

TEST_F(AnslutProv, ASiteThatCannotBeReadGivesItsMessageAndKeepsTheDialogOpen) {
    StartaMedSite();
    QFile::remove(Fil("DX Telenet/Prov.dxt"));
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    f.show();
    f.fgAnslut->Row(1);
    f.fgAnslut_DblClick();
    EXPECT_EQ(Tag(), (Meddelande{T("Ett fel har inträffat vid läsning av DX-Telnet."), T("Läs DX-Telnet")}));
    EXPECT_TRUE(f.isVisible());
}

TEST_F(AnslutProv, StängAndEscapeCloseWithoutAChoiceAndEndALinkThatIsUp) {
    StartaMedSite();
    for (const bool knapp : {true, false}) {
        kluster.AvbrytAnslut = false;
        kluster.ClusterAnsluten = false;
        NärFönster("frAnslut", [knapp](QWidget* fönster) {
            if (knapp)
                frAnslut::instans().cmdAvbryt->click();
            else
                QTest::keyClick(fönster, Qt::Key_Escape);
        });
        DXTele_Connect();
        EXPECT_TRUE(kluster.AvbrytAnslut);
        EXPECT_FALSE(kluster.ClusterAnsluten);
        EXPECT_EQ(kluster.ClusterTyp, 0);
        EXPECT_FALSE(Fönster().isVisible());
    }
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    frAnslut::instans().show();
    frAnslut::instans().cmdAvbryt->click();
    EXPECT_FALSE(kluster.ClusterAnsluten);
    EXPECT_TRUE(QTest::qWaitFor([&] { return gäst->state() == QAbstractSocket::UnconnectedState; }));
}

TEST_F(AnslutProv, ASiteWhoseNameEndsLikeItsFileIsItsOwn) {
    StartaMedSite();
    SkrivSite("DX Telnet", "Prov.dxt", "Dubbel", 2);
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    ASSERT_EQ(f.fgAnslut->Cell(2, 0), "Prov.dxt");
    f.fgAnslut->Row(2);
    f.cmdAnslut->click();
    EXPECT_EQ(kluster.DXVärdNamn, "Dubbel");
    f.Initiera_fgAnslut();
    f.fgAnslut->Row(2);
    f.cmdTaBort->click();
    EXPECT_TRUE(QFile::exists(Fil("DX Telnet/Prov.dxt")));
    EXPECT_FALSE(QFile::exists(Fil("DX Telnet/Prov.dxt.dxt")));
}

TEST_F(AnslutProv, TaBortDeletesInTheFirstFolderWithoutAQuestion) {
    StartaMedSite();
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    f.fgAnslut->Row(1);
    f.cmdTaBort->click();
    EXPECT_EQ(f.fgAnslut->rowCount(), 1);
    EXPECT_FALSE(QFile::exists(Fil("DX Telnet/Prov.dxt")));
    EXPECT_TRUE(QFile::exists(Fil("DX Telenet/Prov.dxt")));
}

// ---- the editor of sites ------------------------------------------------------------------------------

TEST_F(AnslutProv, NyOpensAnEmptyEditorAndSavesInTheSecondFolder) {
    StartaMedSite();
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    NärFönster("frAnslutEditor", [](QWidget* fönster) {
        auto& e = static_cast<frAnslutEditor&>(*fönster);
        EXPECT_EQ(e.windowTitle(), "Anslut Editor");
        EXPECT_TRUE(e.txtFilNamn->isEnabled());
        EXPECT_TRUE(HarFokus(e.txtFilNamn));
        EXPECT_EQ(e.txtVärdNamn->text(), "");
        e.txtFilNamn->setText("hub.dxt");
        e.txtVärdNamn->setText(T("Klustret i Ö"));
        e.txtVärdAdress->setText("kluster.example");
        e.txtPortadress->setText("7300");
        e.optServer[1]->setChecked(true);
        e.cmdSpara->click();
    });
    f.cmdNy->click();
    QFile fil(Fil("DX Telenet/hub.dxt"));
    ASSERT_TRUE(fil.open(QFile::ReadOnly));
    EXPECT_EQ(fil.readAll(), "\"Klustret i \xd6\"\r\n\"kluster.example\"\r\n7300\r\n 1 \r\n");
    EXPECT_FALSE(QFile::exists(Fil("DX Telenet/hub.dxt.dxt")));
    EXPECT_EQ(f.fgAnslut->rowCount(), 2) << "the list is that of the other folder";
    EXPECT_FALSE(frAnslutEditor::instans().isVisible());
}

TEST_F(AnslutProv, ÄndraShowsTheChosenSiteAndReplacesItsFile) {
    StartaMedSite();
    SkrivSite("DX Telenet", "Prov", "Gammal", 23);
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    f.fgAnslut->Row(1);
    NärFönster("frAnslutEditor", [](QWidget* fönster) {
        auto& e = static_cast<frAnslutEditor&>(*fönster);
        EXPECT_FALSE(e.txtFilNamn->isEnabled());
        EXPECT_TRUE(HarFokus(e.txtVärdNamn));
        EXPECT_EQ(e.txtFilNamn->text(), "Prov");
        EXPECT_EQ(e.txtVärdNamn->text(), "Gammal");
        EXPECT_EQ(e.txtVärdAdress->text(), "127.0.0.1");
        EXPECT_EQ(e.txtPortadress->text(), "23");
        EXPECT_TRUE(e.optServer[0]->isChecked());
        e.txtVärdNamn->setText("Ny");
        e.cmdSpara->click();
    });
    f.cmdÄndra->click();
    EXPECT_EQ(platform::LoadTextFile(Fil("DX Telenet/Prov.dxt")), "\"Ny\"\r\n\"127.0.0.1\"\r\n23\r\n 0 \r\n");
}

TEST_F(AnslutProv, NyBeginsEmptyAfterÄndra) {
    StartaMedSite();
    platform::SaveTextFile(Fil("DX Telenet/Prov.dxt"), "\"Gammal\"\r\n\"127.0.0.1\"\r\n23\r\n 1 \r\n");
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    f.fgAnslut->Row(1);
    NärFönster("frAnslutEditor", [](QWidget* fönster) {
        EXPECT_TRUE(static_cast<frAnslutEditor&>(*fönster).optServer[1]->isChecked());
        fönster->close();
    });
    f.cmdÄndra->click();
    NärFönster("frAnslutEditor", [](QWidget* fönster) {
        auto& e = static_cast<frAnslutEditor&>(*fönster);
        for (const platform::TextBox* fält : {e.txtFilNamn, e.txtVärdNamn, e.txtVärdAdress, e.txtPortadress})
            EXPECT_EQ(fält->text(), "");
        EXPECT_TRUE(e.optServer[0]->isChecked());
        fönster->close();
    });
    f.cmdNy->click();
}

TEST_F(AnslutProv, ASiteOfTheFirstFolderAloneCanBeMadeForTheSecond) {
    StartaMedSite();
    QFile::remove(Fil("DX Telenet/Prov.dxt"));
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    f.fgAnslut->Row(1);
    NärFönster("frAnslutEditor", [](QWidget* fönster) {
        auto& e = static_cast<frAnslutEditor&>(*fönster);
        EXPECT_EQ(e.txtFilNamn->text(), "Prov");
        e.txtVärdNamn->setText("Ny");
        e.txtVärdAdress->setText("127.0.0.1");
        e.txtPortadress->setText("23");
        e.cmdSpara->click();
    });
    f.cmdÄndra->click();
    EXPECT_EQ(Tag().titel, T("Läs DX-Telnet"));
    EXPECT_TRUE(QFile::exists(Fil("DX Telenet/Prov.dxt")));
}

TEST_F(AnslutProv, ÄndraOfTheHeadingGivesTheReadingsMessage) {
    StartaMedSite();
    frAnslut& f = frAnslut::instans();
    f.Initiera_fgAnslut();
    NärFönster("frAnslutEditor", [](QWidget* fönster) { fönster->close(); });
    f.cmdÄndra->click();
    EXPECT_EQ(Tag(), (Meddelande{T("Ett fel har inträffat vid läsning av DX-Telnet."), T("Läs DX-Telnet")}));
}

TEST_F(AnslutProv, AnEditorWithAFieldMissingSavesNothingAndSaysNothing) {
    StartaMedSite();
    frAnslutEditor& e = frAnslutEditor::instans();
    for (platform::TextBox* tomt : {e.txtFilNamn, e.txtVärdNamn, e.txtVärdAdress}) {
        for (platform::TextBox* fält : {e.txtFilNamn, e.txtVärdNamn, e.txtVärdAdress, e.txtPortadress})
            fält->setText("23");
        tomt->clear();
        EXPECT_FALSE(e.SparaDXTelnetFil());
    }
    EXPECT_EQ(QDir(Fil("DX Telenet")).entryList(QDir::Files), QStringList("Prov.dxt"));
}

TEST_F(AnslutProv, APortThatIsNoNumberOrAFolderThatIsGoneGivesTheSavingsMessage) {
    StartaMedSite();
    frAnslutEditor& e = frAnslutEditor::instans();
    const Meddelande väntat{T("Ett fel har inträffat vid sparning av DX-Telnet!"), T("Spara DX-Telnet")};
    for (platform::TextBox* fält : {e.txtFilNamn, e.txtVärdNamn, e.txtVärdAdress}) fält->setText("hub");
    for (const char* port : {"", "port", "99999999999"}) {
        e.txtPortadress->setText(port);
        EXPECT_FALSE(e.SparaDXTelnetFil());
        EXPECT_EQ(Tag(), väntat);
    }
    e.txtPortadress->setText("23");
    ASSERT_TRUE(QDir(Fil("DX Telenet")).removeRecursively());
    EXPECT_FALSE(e.SparaDXTelnetFil());
    EXPECT_EQ(Tag(), väntat);
}

// ---- a spot of the operator's own ---------------------------------------------------------------------

TEST_F(AnslutProv, SändDXWantsASerialModemOnATCPLinkToo) {
    StartaMedSite();
    ASSERT_NE(Anslut(), nullptr);
    Fönster().cmdSändDX->click();
    EXPECT_EQ(Tag(), (Meddelande{T("Det finns inget Modem anslutet!"), T("Kommunikations fel!")}));
}

TEST_F(AnslutProv, ASpotOfOnesOwnTakesCallAndFrequencyFromTheFormAndGoesOverTCP) {
    frTest& f = StartaMedSite();
    QTcpSocket* gäst = Anslut();
    ASSERT_NE(gäst, nullptr);
    const int ände = posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(grantpt(ände) | unlockpt(ände), 0);
    Fönster().mscCluster->CommPort(QString::fromUtf8(ptsname(ände)));
    Fönster().mscCluster->PortOpen(true);
    f.txtSignal->setText("XX9BB");
    f.txtFrekvens->setText("14,025,50");
    NärFönster("frSändDX", [](QWidget* fönster) {
        auto& s = static_cast<frSändDX&>(*fönster);
        EXPECT_EQ(s.windowTitle(), T("Sänd DX"));
        EXPECT_EQ(s.txtSignal->text(), "XX9BB");
        EXPECT_EQ(s.txtFrekvens->text(), "14,025,50");
        SkrivI(s.txtNotering, "big Signal");
        Tryck(Qt::Key_Return);
    });
    Fönster().cmdSändDX->click();
    EXPECT_EQ(Hör(gäst, 29), "DX 14025.5 XX9BB big Signal\r\n");
    EXPECT_TRUE(HarFokus(f.txtSignal));
    close(ände);
}

TEST_F(AnslutProv, WithNoLinkTheSpotWindowClosesAndNothingIsSent) {
    frTest& f = StartaMedSite();
    frSändDX& s = frSändDX::instans();
    s.show();
    ASSERT_TRUE(Aktivera(s));
    SkrivI(s.txtSignal, "xx9bb");
    EXPECT_EQ(s.txtSignal->text(), "XX9BB");
    SkrivI(s.txtFrekvens, "14025,5a");
    EXPECT_EQ(s.txtFrekvens->text(), "14025,5a");
    s.cmdSänd->click();
    EXPECT_FALSE(s.isVisible());
    EXPECT_TRUE(HarFokus(f.txtSignal));
}

TEST_F(AnslutProv, ASpotWithoutCallOrFrequencyIsNotSent) {
    StartaMedSite();
    frSändDX& s = frSändDX::instans();
    s.show();
    ASSERT_TRUE(Aktivera(s));
    s.txtSignal->setText("XX9BB");
    s.cmdSänd->click();
    EXPECT_TRUE(s.isVisible());
    s.txtSignal->clear();
    s.txtFrekvens->setText("14,025,50");
    s.cmdSänd->click();
    EXPECT_TRUE(s.isVisible());
    s.txtNotering->setText("x");
    s.cmdRensa->click();
    for (const platform::TextBox* fält : {s.txtSignal, s.txtFrekvens, s.txtNotering})
        EXPECT_EQ(fält->text(), "");
    EXPECT_TRUE(HarFokus(s.txtSignal));
    s.cmdAvbryt->click();
    EXPECT_FALSE(s.isVisible());
}
