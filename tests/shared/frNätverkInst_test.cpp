// Drive and folder of a shared log.
#include "shared/frNätverkInst.h"

#include "support/Programprov.h"

class NätProv : public Programprov {
protected:
    frNätverkInst& Öppna() {
        StartaLogg(1);
        frTest::instans().Meny("mnuInställning_Nätverk_Inställning")->trigger();
        EXPECT_TRUE(Aktivera(frNätverkInst::instans()));
        return frNätverkInst::instans();
    }
    void SkrivIni(const QByteArray& text) const {
        QFile ini(Fil("INI/Nätverk.ini"));
        ASSERT_TRUE(ini.open(QFile::WriteOnly));
        ini.write(text);
    }
};

TEST_F(NätProv, TheListHoldsTheDrivesFromJToZ) {
    const frNätverkInst& f = Öppna();
    EXPECT_EQ(f.windowTitle(), "Nätverk Inställning");
    ASSERT_EQ(f.cmbEnhet->count(), 17);
    for (int i = 0; i < 17; ++i) EXPECT_EQ(f.cmbEnhet->itemText(i), QString(QChar('J' + i)) + ':');
    EXPECT_EQ(f.cmbEnhet->Text(), "") << "a new run";
    EXPECT_EQ(f.txtSökväg->text(), "");
}

TEST_F(NätProv, SavingKeepsBothForTheRunAndNothingIsConnectedOrWritten) {
    frNätverkInst& f = Öppna();
    f.cmbEnhet->setCurrentIndex(3);
    SkrivI(f.txtSökväg, "/mnt/loggar");
    QTest::mouseClick(f.cmdSpara, Qt::LeftButton);
    EXPECT_FALSE(f.isVisible());
    EXPECT_EQ(delat.NätverkEnhet, "M:");
    EXPECT_EQ(delat.NätverkMapp, "/mnt/loggar");
    EXPECT_FALSE(delat.NätverkAnsluten);
    EXPECT_FALSE(QFile::exists(Fil("INI/Nätverk.ini")));
    frTest::instans().Meny("mnuInställning_Nätverk_Inställning")->trigger();
    EXPECT_EQ(f.cmbEnhet->Text(), "M:");
    EXPECT_EQ(f.txtSökväg->text(), "/mnt/loggar");
    StartaOm().Meny("mnuInställning_Nätverk_Inställning")->trigger();
    const frNätverkInst& ny = frNätverkInst::instans();
    EXPECT_EQ(ny.cmbEnhet->Text() + ny.txtSökväg->text(), "") << "after a restart";
}

TEST_F(NätProv, NoDriveChosenKeepsAnEmptyTextAndCloseKeepsNothing) {
    frNätverkInst& f = Öppna();
    f.cmdSpara->click();
    EXPECT_EQ(delat.NätverkEnhet, "");
    frTest::instans().Meny("mnuInställning_Nätverk_Inställning")->trigger();
    f.cmbEnhet->setCurrentIndex(0);
    f.cmdStäng->click();
    EXPECT_EQ(delat.NätverkEnhet, "");
}

TEST_F(NätProv, TheFolderIsSoughtAmongLogsAndACancelLeavesIt) {
    frNätverkInst& f = Öppna();
    filfrågor.clear();
    filval.push_back("/mnt/loggar/nac.svk");
    f.cmdSök->click();
    ASSERT_EQ(filfrågor.size(), 1U);
    EXPECT_EQ(filfrågor[0].title, "Nätveks enhet");
    EXPECT_EQ(filfrågor[0].folder, "C:");
    EXPECT_EQ(filfrågor[0].filter, "TestLogg (*.svk)|*.svk");
    EXPECT_FALSE(filfrågor[0].save);
    EXPECT_EQ(f.txtSökväg->text(), "/mnt/loggar/nac.svk");
    filval.push_back(std::nullopt);
    f.cmdSök->click();
    EXPECT_EQ(f.txtSökväg->text(), "/mnt/loggar/nac.svk");
}

TEST_F(NätProv, ADialogThatFailsIsTold) {
    const frNätverkInst& f = Öppna();
    platform::Dialogs().file = [](const platform::FileQuestion&) -> std::optional<QString> {
        throw platform::Failure("dialogen");
    };
    f.cmdSök->click();
    EXPECT_EQ(Tag(), (Meddelande{"Ett fel har inträffat vid sökning av Nätverksenhet!", "SökvägNätverk"}));
}

TEST_F(NätProv, TheFileThatNobodyAsksForHoldsTwoQuotedLines) {
    frNätverkInst& f = Öppna();
    delat.NätverkEnhet = "K:";
    delat.NätverkMapp = "/mnt/å";
    f.SparaNätverkini();
    QFile ini(Fil("INI/Nätverk.ini"));
    ASSERT_TRUE(ini.open(QFile::ReadOnly));
    EXPECT_EQ(ini.readAll(), QByteArray("\"K:\"\r\n\"/mnt/\xE5\"\r\n"));
    delat.NätverkEnhet = delat.NätverkMapp = QString();
    f.LäsNätverksini();
    EXPECT_EQ(delat.NätverkEnhet, "K:");
    EXPECT_EQ(delat.NätverkMapp, "/mnt/å");
}

TEST_F(NätProv, AFileThatCannotBeReadEmptiesTheValues) {
    frNätverkInst& f = Öppna();
    const Meddelande fel{
        "Ett fel har inträffat vid inläsning av ini-filen för Nätverk. Värden sätts till standard.",
        "LäsNätverkini"};
    delat.NätverkEnhet = "K:";
    f.LäsNätverksini();
    EXPECT_EQ(Tag(), fel);
    EXPECT_EQ(delat.NätverkEnhet, "");
    SkrivIni("\"K:\"\r\n");
    f.LäsNätverksini();
    EXPECT_EQ(Tag(), fel);
    EXPECT_EQ(delat.NätverkEnhet, "");
}

TEST_F(NätProv, TheServerMenusDoNothingAndTheNetworkTimerStands) {
    frTest& f = StartaLogg(1);
    for (const char* namn : {"mnuArkiv_AnslutServer", "mnuArkiv_KopplafrånServer"}) f.Meny(namn)->trigger();
    EXPECT_FALSE(delat.NätverkAnsluten);
    EXPECT_EQ(f.Nettimer->Interval(), 0);
    Ändra(Logg(),
          "INSERT INTO TESTQSO (Datum, Tid, Signal, Poäng) VALUES ('2026-12-01', '18:00', 'SM1AA', 1)");
    EXPECT_EQ(db().rsTESTQSO.RecordCount(), 0);
    f.Nettimer->Tick();
    EXPECT_EQ(db().rsTESTQSO.RecordCount(), 1);
}
