// Log files: made, opened, closed, and what goes wrong with each.
#include "support/Programprov.h"
#include "support/ToPrint.h"

#include "contest/frTestInst.h"
#include "platform/windows.h"

#include <QAbstractItemModel>
#include <QDir>
#include <QFile>

namespace {

using Rader = std::vector<std::vector<QString>>;

class LoggfilProv : public Programprov {
protected:
    const Meddelande nyFel{T("Ett fel har inträffat vid skapandet av ny Testlogg! Åtgärden avbryts!"),
                           T("NyTestLogg")};
    const Meddelande öppnaFel{T("Ett fel har inträffat vid öppning av loggen! Sorvik avslutas!"),
                              T("ÖppnaTestLogg")};
    const Meddelande stängFel{T("Ett databasfel har inträffat."), T("StängTestLogg")};

    void Ny(const QString& fil) {
        filval.push_back(fil);
        frTest::instans().NyTestLogg();
    }
    void Öppna(const QString& fil) {
        filval.push_back(fil);
        frTest::instans().mnuArkiv_ÖppnaTestlogg_Click();
    }
    /// Opens a file that cannot be opened as a log: one message, and the process ends with status 1.
    void ÖppnaOdugling(const QString& fil) {
        filval.push_back(fil);
        EXPECT_THROW(frTest::instans().mnuArkiv_ÖppnaTestlogg_Click(), ProcessSlut);
        EXPECT_EQ(Tag(), öppnaFel);
        EXPECT_EQ(slut, 1);
    }
    void SkrivFil(const QString& fil, const QByteArray& innehåll) {
        QFile ut(fil);
        ASSERT_TRUE(ut.open(QIODevice::WriteOnly));
        ut.write(innehåll);
    }
    static QByteArray Innehåll(const QString& fil) {
        QFile in(fil);
        EXPECT_TRUE(in.open(QIODevice::ReadOnly)) << fil.toStdString();
        return in.readAll();
    }
    /// A log on the disk that no window has had open.
    QString Kopia(const QString& namn, const QString& sats = {}) {
        const QString fil = Logg(namn);
        EXPECT_TRUE(QFile::copy(Fil("SVK"), fil));
        if (!sats.isEmpty()) Ändra(fil, sats);
        return fil;
    }
    QString INFO(const char* kolumn, const QString& namn = QStringLiteral("prov.svk")) const {
        return LäsEtt(Logg(namn), QStringLiteral("SELECT %1 FROM INFO").arg(QString::fromUtf8(kolumn)));
    }
    QString Antal(const QString& namn = QStringLiteral("prov.svk")) const {
        return LäsEtt(Logg(namn), "SELECT count(*) FROM TESTQSO");
    }
    /// From here on no change of INFO reaches the file.
    void SpärraINFO(const QString& namn = QStringLiteral("prov.svk")) {
        Ändra(Logg(namn), "CREATE TRIGGER spärr BEFORE UPDATE ON INFO BEGIN SELECT RAISE(ABORT, 'nej'); END");
    }
};

} // namespace

// ---- a new log ----------------------------------------------------------------------------------------

TEST_F(LoggfilProv, ANewLogDiffersFromItsTemplateInTheContestNumberAlone) {
    StartaLogg(9);
    for (const char* tabell : {"TESTQSO", "TESTDXCC"}) {
        const QString fråga = QStringLiteral("SELECT * FROM %1 ORDER BY rowid").arg(QLatin1String(tabell));
        EXPECT_EQ(Läs(Logg(), fråga), Läs(Fil("SVK"), fråga));
    }
    const QString övrigt = "SELECT LöpNr, AktivTid, ViloTid, LängstaQSOSträng, QSOLängd FROM INFO";
    EXPECT_EQ(Läs(Logg(), övrigt), Läs(Fil("SVK"), övrigt));
    EXPECT_EQ(INFO("Aktuellt_Test"), "9");
    EXPECT_EQ(LäsEtt(Fil("SVK"), "SELECT Aktuellt_Test FROM INFO"), "0");
}

TEST_F(LoggfilProv, TheTemplateIsNeverTouched) {
    const QByteArray före = Innehåll(Fil("SVK"));
    StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    frTest::instans().mnuArkiv_StängTestlogg_Click();
    EXPECT_EQ(Innehåll(Fil("SVK")), före);
}

TEST_F(LoggfilProv, PathAndTitleOfTheOpenLogAreShared) {
    StartaLogg(1, "min logg.svk");
    EXPECT_EQ(delat.TestLoggFil, Logg("min logg.svk"));
    EXPECT_EQ(delat.TestLoggTitel, "min logg.svk");
    EXPECT_EQ(frTest::instans().frmLogg->title(), "TestLogg Fil [min logg.svk]");
}

TEST_F(LoggfilProv, ALogMayLieInAnyFolderAndBearAnyName) {
    Starta();
    const QString mapp = Fil("Loggar/2026 å'ä");
    ASSERT_TRUE(QDir().mkpath(mapp));
    Ny(mapp + "/prov utan ändelse");
    EXPECT_EQ(LäsEtt(mapp + "/prov utan ändelse", "SELECT Aktuellt_Test FROM INFO"), "0");
    EXPECT_EQ(frTest::instans().frmLogg->title(), "TestLogg Fil [prov utan ändelse]");
}

TEST_F(LoggfilProv, ALogMadeFromAWriteProtectedTemplateCanBeWritten) {
    QFile::setPermissions(Fil("SVK"), QFile::ReadOwner);
    StartaLogg(1);
    EXPECT_TRUE(QFile::permissions(Logg()) & QFile::WriteOwner);
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Antal(), "1");
}

TEST_F(LoggfilProv, WhatACrashLeftBesideTheOldLogDoesNotReachTheNewOne) {
    Starta();
    SkrivFil(Logg(), "en gammal logg");
    for (const char* rest : {"-journal", "-wal", "-shm"}) SkrivFil(Logg() + rest, "rester");
    Ny(Logg());
    EXPECT_EQ(INFO("Aktuellt_Test"), "0");
    EXPECT_EQ(QDir(Fil("Loggar")).entryList(QDir::Files), QStringList{"prov.svk"});
}

TEST_F(LoggfilProv, TheOldLogIsClosedWithItsClocksBeforeTheNameIsAsked) {
    frTest& f = StartaLogg(1, "gammal.svk");
    f.txtAktiv->setText("00:00:42");
    QString vidFrågan;
    platform::Dialogs().file = [&](const platform::FileQuestion&) -> std::optional<QString> {
        vidFrågan = INFO("AktivTid", "gammal.svk");
        EXPECT_FALSE(db().TestDB.IsOpen());
        return std::nullopt;
    };
    f.NyTestLogg();
    EXPECT_EQ(vidFrågan, "00:00:42");
}

TEST_F(LoggfilProv, AfterACancelledNewLogTheFormTakesCallsAndSavesWithoutALog) {
    frTest& f = StartaLogg(1);
    filval.push_back(std::nullopt);
    f.NyTestLogg();
    EXPECT_TRUE(delat.TestLoggÖppen);
    Kör("sm5abc", "jo89wj");
    f.cmdVisa_Click();
    f.cmdRadera_Click();
    f.mnuRedigera_NollställLöpnr_Click();
    meddelanden.clear(); // whatever the checks had to say: nothing was open
    EXPECT_EQ(Antal(), "0");
    Öppna(Logg());
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Antal(), "1");
}

TEST_F(LoggfilProv, AMissingTemplateIsToldAndTheLogThatStoodThereStays) {
    StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    QFile::remove(Fil("SVK"));
    Ny(Logg());
    EXPECT_EQ(Tag(), nyFel);
    EXPECT_EQ(Antal(), "1");
    EXPECT_FALSE(slut.has_value());
}

TEST_F(LoggfilProv, ALogThatFailedHalfwayIsNoLogEvenIfOneWasOpenBefore) {
    frTest& f = StartaLogg(1);
    Ändra(Fil("SVK"), "DROP TABLE TESTDXCC");
    Ny(Logg("ny.svk"));
    EXPECT_EQ(Tag(), nyFel);
    EXPECT_FALSE(f.HarLogg());
    SkrivI(f.txtSignal, "sm5abc");
    Tryck(Qt::Key_Escape);
    EXPECT_EQ(f.txtSignal->text(), "");
}

TEST_F(LoggfilProv, AnAmpersandInTheNameIsShown) {
    StartaLogg(1, "a&b.svk");
    EXPECT_EQ(frTest::instans().frmLogg->title(), "TestLogg Fil [a&&b.svk]");
}

TEST_F(LoggfilProv, ANameInAFolderThatDoesNotExistIsTold) {
    frTest& f = Starta();
    Ny(Fil("Loggar/finns inte/prov.svk"));
    EXPECT_EQ(Tag(), nyFel);
    EXPECT_FALSE(delat.TestLoggÖppen);
    EXPECT_EQ(f.frmLogg->title(), "TestLogg Fil");
}

TEST_F(LoggfilProv, ANameThatIsAFolderIsToldAndNothingIsLeftBesideIt) {
    Starta();
    ASSERT_TRUE(QDir().mkpath(Logg("mapp.svk")));
    Ny(Logg("mapp.svk"));
    EXPECT_EQ(Tag(), nyFel);
    EXPECT_TRUE(QDir(Fil("Loggar")).entryList(QDir::Files).isEmpty());
}

TEST_F(LoggfilProv, AFailureAfterTheCopyLeavesTheFileOnTheDisk) {
    Ändra(Fil("SVK"), "DELETE FROM INFO");
    frTest& f = Starta();
    Ny(Logg());
    EXPECT_EQ(Tag(), nyFel);
    EXPECT_TRUE(QFile::exists(Logg()));
    EXPECT_FALSE(f.HarLogg());
    EXPECT_FALSE(delat.TestLoggÖppen);
}

TEST_F(LoggfilProv, AStationOnTheNetworkMakesAndOpensItsLogsInItsFolder) {
    frTest& f = Starta();
    const QString server = Fil("server");
    ASSERT_TRUE(QDir().mkpath(server));
    ASSERT_TRUE(QFile::copy(Fil("SVK"), server + "/SVK"));
    Ändra(server + "/SVK", "UPDATE INFO SET LöpNr=40");
    delat.NätverkAnsluten = true;
    delat.NätverkMapp = server;
    delat.AktuelltTest = 9;
    Ny(server + "/gemensam.svk");
    EXPECT_EQ(filfrågor.back().folder, server);
    EXPECT_EQ(f.txtLöpnrS->text(), "040");
    filval.push_back(std::nullopt);
    f.ÖppnaTestLogg();
    EXPECT_EQ(filfrågor.back().folder, server);
}

// ---- opening ------------------------------------------------------------------------------------------

TEST_F(LoggfilProv, TheFileDialogOfAnOpenAsksForAFileThatExists) {
    frTest& f = Starta();
    filval.push_back(std::nullopt);
    f.Meny("mnuArkiv_ÖppnaTestlogg")->trigger();
    ASSERT_EQ(filfrågor.size(), 1U);
    EXPECT_EQ(filfrågor[0].title, "Öppna Logg");
    EXPECT_EQ(filfrågor[0].filter, "TestLogg (*.svk)|*.svk");
    EXPECT_EQ(filfrågor[0].folder, Fil("Loggar/"));
    EXPECT_FALSE(filfrågor[0].save);
    EXPECT_FALSE(delat.TestLoggÖppen);
}

TEST_F(LoggfilProv, ACancelledOpenKeepsTheLogThatIsOpen) {
    frTest& f = StartaLogg(1);
    f.txtAktiv->setText("00:00:42");
    filval.push_back(std::nullopt);
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_TRUE(f.HarLogg());
    EXPECT_EQ(f.txtAktiv->text(), "00:00:42");
    EXPECT_EQ(INFO("AktivTid"), "00:00:00");
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(Antal(), "1");
}

TEST_F(LoggfilProv, TheOpenMenuStopsTheClocksEvenWhenItWasCancelledOverAnOpenLog) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    f.TimerVila->Interval(1000);
    filval.push_back(std::nullopt);
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_FALSE(delat.TidGår);
    EXPECT_EQ(f.TimerAktiv->Interval(), 0);
    EXPECT_EQ(f.TimerVila->Interval(), 0);
}

TEST_F(LoggfilProv, AnOpenThatEndsWithNoLogLeavesTheClocksAlone) {
    frTest& f = Starta();
    f.TimerAktiv->Interval(1000);
    filval.push_back(std::nullopt);
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(f.TimerAktiv->Interval(), 1000);
}

TEST_F(LoggfilProv, WhatWaitsRunsOnceBeforeTheOldLogIsClosed) {
    frTest& f = StartaLogg(1, "gammal.svk");
    const QString ny = Kopia("ny.svk");
    QString öppen;
    bool flagga = false;
    platform::Dialogs().file = [&](const platform::FileQuestion&) -> std::optional<QString> {
        QTimer::singleShot(0, &f, [&] {
            öppen = db().TestDB.Path();
            flagga = delat.TestLoggÖppen;
        });
        return ny;
    };
    f.ÖppnaTestLogg();
    EXPECT_EQ(öppen, Logg("gammal.svk"));
    EXPECT_TRUE(flagga);
    EXPECT_EQ(db().TestDB.Path(), ny);
}

TEST_F(LoggfilProv, AnOpenedLogBringsItsContactsItsSerialItsClocksAndItsLongestContact) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    Kör("sm6xyz", "jo57aa");
    f.txtAktiv->setText("01:30:00");
    f.txtVila->setText("00:10:00");
    const QString längsta = f.lblLängstaQSO->text();
    const QString total = f.lblTotalPoäng->text();
    EXPECT_NE(längsta, "");
    f.mnuArkiv_StängTestlogg_Click();
    frTest& g = StartaOm();
    Öppna(Logg());
    EXPECT_EQ(g.lblQSO->text(), "2");
    EXPECT_EQ(g.lblTotalPoäng->text(), total);
    EXPECT_EQ(g.txtAktiv->text(), "01:30:00");
    EXPECT_EQ(g.txtVila->text(), "00:10:00");
    EXPECT_TRUE(g.lblLängstaQSO->isVisible());
    EXPECT_EQ(g.lblLängstaQSO->text(), längsta);
    EXPECT_EQ(g.lblQSOPoäng->text(), "0");
    EXPECT_TRUE(HarFokus(g.txtSignal));
    g.dgLogg->Refresh();
    EXPECT_EQ(g.dgLogg->model()->rowCount(), 2);
    EXPECT_EQ(db().rsTESTQSO.AbsolutePosition(), 1) << "the newest contact is the current row";
}

TEST_F(LoggfilProv, TheStoredLongestContactIsPutIntoItsLabelForContestsNoughtToSix) {
    frTest& f = Starta();
    for (int nummer = 0; nummer < 15; ++nummer) {
        SCOPED_TRACE(nummer);
        const QString fil =
            Kopia(QStringLiteral("%1.svk").arg(nummer),
                  QStringLiteral("UPDATE INFO SET Aktuellt_Test=%1, LängstaQSOSträng='Längsta QSO : %1'")
                      .arg(nummer));
        f.lblLängstaQSO->setText("förut");
        Öppna(fil);
        EXPECT_EQ(f.lblLängstaQSO->text(), nummer <= 6 ? QStringLiteral("Längsta QSO : %1").arg(nummer) : "");
    }
}

TEST_F(LoggfilProv, TheRowsOfAnOpenedLogStandInTheOrderOfDateAndTime) {
    Starta();
    Öppna(Kopia("prov.svk", "INSERT INTO TESTQSO (Datum, Tid, Signal, Poäng) VALUES "
                            "('2026-12-02','00:10:00','C',1), ('2026-12-01','23:00:00','B',1), "
                            "('2026-12-01','19:00:00','A',1)"));
    const platform::Recordset& logg = db().rsTESTQSO;
    EXPECT_EQ(logg.Sort(), "Datum, Tid");
    QString följd;
    for (qsizetype i = 0; i < logg.RecordCount(); ++i) följd += logg.At(i, logg.FieldIndex("Signal")).text();
    EXPECT_EQ(följd, "ABC");
    EXPECT_EQ(logg.Filter(), "");
}

TEST_F(LoggfilProv, AllCursorsOfTheLogAreOpenAndTheGridsShowTheirs) {
    frTest& f = StartaLogg(1);
    const Databaser& d = db();
    for (const platform::Recordset* markör :
         {&d.rsINFO, &d.rsTESTQSO, &d.rsTESTDXCC, &d.rsDXCCBand, &d.rsITU, &d.rsZon, &d.rsTidigare,
          &d.rsPoäng, &d.rsSignal, &d.rsDXCC, &d.rsDiplom, &d.rsDistrikt, &d.rsRutor, &d.rsMultiplar,
          &d.rsLokator, &d.rsFriend})
        EXPECT_TRUE(markör->IsOpen());
    EXPECT_FALSE(d.rsState.IsOpen());
    EXPECT_FALSE(d.rsProvince.IsOpen());
    EXPECT_EQ(f.dgLogg->Source(), &d.rsTESTQSO);
    EXPECT_EQ(f.dgDXCC->Source(), &d.rsDXCC);
    EXPECT_EQ(f.dgTidigareQSO->Source(), &d.rsTidigare);
}

TEST_F(LoggfilProv, SerialAndClocksGoThroughACursorThatStaysOpenWithTheLog) {
    frTest& f = StartaLogg(9);
    EXPECT_TRUE(db().rsINFO.IsOpen());
    Kör("dl1abc", "001");
    EXPECT_TRUE(db().rsINFO.IsOpen());
    EXPECT_EQ(INFO("LöpNr"), "2");
    f.StängTestLogg();
    EXPECT_FALSE(db().rsINFO.IsOpen());
}

TEST_F(LoggfilProv, TheModeOfAnEarlierContestWithAFixedOneDoesNotStayLocked) {
    frTest& f = StartaLogg(3, "cw.svk");
    EXPECT_TRUE(f.cmbTrafik->Locked());
    NyLogg(14, "vus.svk");
    EXPECT_FALSE(f.cmbTrafik->Locked());
    EXPECT_FALSE(f.cmbBand->Locked());
}

// ---- opens that fail ----------------------------------------------------------------------------------

TEST_F(LoggfilProv, AFileThatIsNoDatabaseEndsTheProgramWithTheMessage) {
    Starta();
    const QByteArray text = QByteArray("CQ CQ CQ de SK7MW\r\n").repeated(100);
    SkrivFil(Logg(), text);
    ÖppnaOdugling(Logg());
    EXPECT_EQ(Innehåll(Logg()), text);
}

TEST_F(LoggfilProv, AFileThatIsNotThereEndsTheProgramWithTheMessage) {
    Starta();
    ÖppnaOdugling(Logg("finns inte.svk"));
    EXPECT_FALSE(QFile::exists(Logg("finns inte.svk")));
}

TEST_F(LoggfilProv, ALogThatLacksATableAColumnOrItsInfoRowEndsTheProgramWithTheMessage) {
    const char* const satser[] = {"DROP TABLE INFO",
                                  "DROP TABLE TESTQSO",
                                  "DROP TABLE TESTDXCC",
                                  "DELETE FROM INFO",
                                  "ALTER TABLE INFO DROP COLUMN Aktuellt_Test",
                                  "ALTER TABLE TESTQSO DROP COLUMN \"Band \"",
                                  "ALTER TABLE TESTQSO DROP COLUMN Multiplar"};
    int nummer = 0;
    for (const char* sats : satser) {
        SCOPED_TRACE(sats);
        StartaOm();
        slut.reset();
        ÖppnaOdugling(Kopia(QStringLiteral("%1.svk").arg(nummer++), QLatin1String(sats)));
    }
}

TEST_F(LoggfilProv, AnOpenThatFailsHasClosedTheOldLogWithItsClocks) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    f.txtAktiv->setText("00:20:00");
    ÖppnaOdugling(Kopia("trasig.svk", "DROP TABLE INFO"));
    EXPECT_EQ(INFO("AktivTid"), "00:20:00");
    EXPECT_EQ(Antal(), "1");
}

TEST_F(LoggfilProv, AMissingLocatorMemoryIsToldAndTheLogOpensAllTheSame) {
    frTest& f = Starta();
    QFile::remove(Fil("Lokator.dat"));
    Ny(Logg());
    EXPECT_EQ(Tag(),
              (Meddelande{T("Ett fel har inträffat vid läsning av Lokator databas."), T("ÖppnaLokator")}));
    EXPECT_TRUE(f.HarLogg());
    EXPECT_EQ(f.frmLogg->title(), "TestLogg Fil [prov.svk]");
}

// ---- closing ------------------------------------------------------------------------------------------

TEST_F(LoggfilProv, ClosingWritesTheTwoClocksAndNothingElse) {
    frTest& f = StartaLogg(9);
    Kör("dl1abc", "001");
    const QString övrigt = "SELECT Aktuellt_Test, LöpNr, LängstaQSOSträng, QSOLängd FROM INFO";
    const auto info = Läs(Logg(), övrigt);
    const auto rader = Läs(Logg(), "SELECT * FROM TESTQSO");
    const auto länder = Läs(Logg(), "SELECT * FROM TESTDXCC");
    f.txtLöpnrS->setText("99");
    f.txtAktiv->setText("aktiv");
    f.txtVila->setText("vila");
    f.StängTestLogg();
    EXPECT_EQ(INFO("AktivTid"), "aktiv");
    EXPECT_EQ(INFO("ViloTid"), "vila");
    EXPECT_EQ(Läs(Logg(), övrigt), info);
    EXPECT_EQ(Läs(Logg(), "SELECT * FROM TESTQSO"), rader);
    EXPECT_EQ(Läs(Logg(), "SELECT * FROM TESTDXCC"), länder);
}

TEST_F(LoggfilProv, ClosingLeavesTheFlagAndClosesEveryCursor) {
    frTest& f = StartaLogg(1);
    f.StängTestLogg();
    EXPECT_TRUE(delat.TestLoggÖppen);
    const Databaser& d = db();
    EXPECT_FALSE(d.TestDB.IsOpen());
    for (const platform::Recordset* markör :
         {&d.rsINFO, &d.rsTESTQSO, &d.rsTESTDXCC, &d.rsDXCCBand, &d.rsITU, &d.rsZon, &d.rsTidigare,
          &d.rsPoäng, &d.rsSignal, &d.rsDXCC, &d.rsDiplom, &d.rsDistrikt, &d.rsRutor, &d.rsMultiplar})
        EXPECT_FALSE(markör->IsOpen());
    EXPECT_TRUE(d.DataDB.IsOpen());
    EXPECT_TRUE(d.LokatorDB.IsOpen());
}

TEST_F(LoggfilProv, ClosingHidesTheLongestContactWhetherALogIsOpenOrNot) {
    frTest& f = StartaLogg(1);
    EXPECT_TRUE(f.lblLängstaQSO->isVisible());
    f.StängTestLogg();
    EXPECT_FALSE(f.lblLängstaQSO->isVisible());
    f.lblLängstaQSO->show();
    f.StängTestLogg();
    EXPECT_FALSE(f.lblLängstaQSO->isVisible());
}

TEST_F(LoggfilProv, ACloseThatFailsIsToldAndStopsWhereItWas) {
    frTest& f = StartaLogg(1);
    SpärraINFO();
    f.txtAktiv->setText("00:00:42");
    f.StängTestLogg();
    EXPECT_EQ(Tag(), stängFel);
    EXPECT_FALSE(db().rsTESTQSO.IsOpen());
    EXPECT_FALSE(db().rsDistrikt.IsOpen());
    EXPECT_TRUE(db().rsINFO.IsOpen());
    EXPECT_TRUE(db().rsTESTDXCC.IsOpen());
    EXPECT_TRUE(db().TestDB.IsOpen());
}

TEST_F(LoggfilProv, ACloseThatFailedGoesOnWhereItStoppedWhenTheFileCanBeWrittenAgain) {
    frTest& f = StartaLogg(1);
    SpärraINFO();
    f.txtAktiv->setText("00:00:42");
    f.StängTestLogg();
    EXPECT_EQ(Tag(), stängFel);
    Ändra(Logg(), "DROP TRIGGER spärr");
    f.StängTestLogg();
    EXPECT_FALSE(db().TestDB.IsOpen());
    EXPECT_EQ(INFO("AktivTid"), "00:00:42");
}

TEST_F(LoggfilProv, ALogThatCannotBeClosedStandsInTheWayOfTheNext) {
    frTest& f = StartaLogg(1);
    SpärraINFO();
    f.txtAktiv->setText("00:00:42");
    Ny(Logg("ny.svk"));
    EXPECT_EQ(meddelanden, (std::vector<Meddelande>{stängFel, stängFel, nyFel}));
    meddelanden.clear();
    EXPECT_FALSE(f.HarLogg());
    EXPECT_TRUE(QFile::exists(Logg("ny.svk")));
}

// ---- the close menu -----------------------------------------------------------------------------------

TEST_F(LoggfilProv, TheCloseMenuClosesTheLogAndAllSharedDatabases) {
    frTest& f = StartaLogg(1);
    f.txtAktiv->setText("00:00:42");
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    EXPECT_FALSE(delat.TestLoggÖppen);
    EXPECT_EQ(INFO("AktivTid"), "00:00:42");
    const Databaser& d = db();
    for (const platform::Connection* anslutning :
         {&d.TestDB, &d.DataDB, &d.DXSpottDB, &d.SVDDB, &d.LokatorDB, &d.FriendDB})
        EXPECT_FALSE(anslutning->IsOpen());
    EXPECT_EQ(f.frmLogg->title(), "TestLogg Fil");
}

TEST_F(LoggfilProv, TheCloseMenuClearsTheFormAndTheGrids) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    SkrivI(f.txtSignal, "sm6xyz");
    f.Meny("mnuArkiv_StängTestlogg")->trigger();
    EXPECT_EQ(f.txtSignal->text(), "");
    EXPECT_EQ(f.lblLand->text(), "");
    for (const platform::DataGrid* rutnät : {f.dgLogg, f.dgMulti, f.dgDXCC, f.dgTidigareQSO})
        EXPECT_EQ(rutnät->model()->rowCount(), 0) << rutnät->objectName().toStdString();
}

TEST_F(LoggfilProv, TheCloseMenuWithNoLogOpenIsHarmlessAsOftenAsItIsChosen) {
    frTest& f = Starta();
    f.mnuArkiv_StängTestlogg_Click();
    f.mnuArkiv_StängTestlogg_Click();
    EXPECT_FALSE(db().DataDB.IsOpen());
    EXPECT_EQ(f.frmLogg->title(), "TestLogg Fil");
}

TEST_F(LoggfilProv, AfterTheCloseMenuTheFormStaysInReachAndStoresNothing) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    EXPECT_TRUE(f.frmLogg->isEnabled());
    EXPECT_TRUE(f.Meny("mnuRedigera")->isEnabled());
    Kör("sm5abc", "jo89wj");
    f.cmdVisa_Click();
    f.cmdAvbryt_Click();
    f.cmdRadera_Click();
    f.TestTimer_Tick();
    meddelanden.clear(); // whatever the checks had to say: nothing was open
    EXPECT_EQ(Antal(), "0");
}

TEST_F(LoggfilProv, AfterTheCloseMenuAnOpenFindsAllDatabasesAgain) {
    frTest& f = StartaLogg(1);
    Kör("sm5abc", "jo89wj");
    f.mnuArkiv_StängTestlogg_Click();
    Öppna(Logg());
    const Databaser& d = db();
    for (const platform::Connection* anslutning :
         {&d.TestDB, &d.DataDB, &d.DXSpottDB, &d.SVDDB, &d.LokatorDB, &d.FriendDB})
        EXPECT_TRUE(anslutning->IsOpen());
    Kör("oh6zz", "kp03sd");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT Land FROM TESTQSO WHERE Signal='OH6ZZ'"), "Finland");
}

TEST_F(LoggfilProv, AfterTheCloseMenuStationDataCanStillBeSaved) {
    frTest& f = StartaLogg(1);
    f.mnuArkiv_StängTestlogg_Click();
    frTestInst::instans().txtRig->setText("IC-9700");
    frTestInst::instans().SparaSVDIni();
    EXPECT_EQ(LäsEtt(Fil("SVD.Dat"), "SELECT OpRig FROM SVDINI"), "IC-9700");
}

// ---- the blank row ------------------------------------------------------------------------------------

TEST_F(LoggfilProv, ARowThatIsBlankedHasNoNullAndItsTwoOwnStartValues) {
    frTest& f = StartaLogg(1);
    platform::Recordset& logg = db().rsTESTQSO;
    logg.AddNew();
    f.TömTESTQSO();
    EXPECT_TRUE(logg.EditPending());
    EXPECT_EQ(Antal(), "0") << "the row is not written here";
    logg.Update();
    const Rader rader = Läs(Logg(), "SELECT * FROM TESTQSO");
    ASSERT_EQ(rader.size(), 1U);
    const QStringList namn = logg.FieldNames();
    ASSERT_EQ(rader[0].size(), size_t(namn.size()));
    for (qsizetype i = 0; i < namn.size(); ++i) {
        const QString& värde = rader[0][size_t(i)];
        EXPECT_FALSE(värde.isNull()) << namn[i].toStdString();
        EXPECT_EQ(värde, namn[i] == "Frekvens" ? "0,000,00"
                         : namn[i] == "Poäng"  ? "0"
                                               : "")
            << namn[i].toStdString();
    }
    EXPECT_EQ(LäsEtt(Logg(), "SELECT typeof(Poäng) FROM TESTQSO"), "integer");
    EXPECT_EQ(LäsEtt(Logg(), "SELECT typeof(\"Band \") FROM TESTQSO"), "text");
}
