// The connection to a cluster, from the login to the loss of the link.
#include "cluster/Anslutprov.h"

#include "platform/windows.h"

#include <QScreen>

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
    EXPECT_EQ(db().rsDXSpottLogg.Sort(), "Datum") << "the store is made ready, not changed";
    EXPECT_EQ(db().rsDXSpottLogg.Filter(), "");
    EXPECT_FALSE(frAnslut::instans().isVisible());
}

TEST_F(AnslutProv, TheStatusBarSaysSoWhetherOrNotTheConnectionComesUp) {
    frTest& f = StartaMedSite();
    server.Stäng();
    VäljProv();
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
    VäljProv();
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
    VäljProv();
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
    EXPECT_EQ(gäst->readAll(), "") << "nothing was sent for a while";
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
