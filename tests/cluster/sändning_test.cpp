// What goes out to a cluster: commands, by each way that a connection can have, and a spot of one's own.
#include "cluster/Anslutprov.h"
#include "support/Linje.h"

#include "cluster/frSändDX.h"

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
    Linje linje;
    frDXCluster& f = Fönster();
    f.mscCluster->CommPort(linje.Enhet());
    f.mscCluster->PortOpen(true);
    kluster.ClusterAnsluten = true;
    const QByteArray rad = Rad("XX9BB").toLatin1();
    linje.Skriv(rad);
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
    EXPECT_EQ(linje.Läs(), "HEJ\r");
}

TEST_F(AnslutProv, TheTimerLeavesATCPLinkAlone) {
    StartaMedSite();
    kluster.ClusterAnsluten = true;
    kluster.ClusterTyp = 1;
    kluster.ClusterBuffert = Rad("XX9BB");
    Fönster().TimerDXCluster->Tick();
    EXPECT_EQ(Spottrad(1)[1], "");
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
    const Linje linje;
    Fönster().mscCluster->CommPort(linje.Enhet());
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
