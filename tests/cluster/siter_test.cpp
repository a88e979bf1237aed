// The choice of a cluster, and the editor of their files.
#include "cluster/Anslutprov.h"

#include "cluster/frAnslutEditor.h"

#include <QFile>

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
