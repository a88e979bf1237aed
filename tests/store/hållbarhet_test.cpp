// Kills at any moment, two stations on one log, and an end by the runtime: what was saved is in the file.
#include "Sparprocess.h"
#include "Sparprov.h"

#include "platform/windows.h"

#include <QFileInfo>

#include <random>
#include <thread>

#include <sqlite3.h>

class Hållbarhet : public Sparprov {
protected:
    /// The folder and an empty log of a contest, with no window left in this process.
    void Förbered(std::initializer_list<std::pair<int, const char*>> loggar) {
        bool första = true;
        for (const auto& [test, namn] : loggar) {
            if (std::exchange(första, false))
                StartaLogg(test, namn);
            else
                NyLogg(test, namn);
        }
        platform::DestroyAllWindows();
        NollställDatabaser();
        delat = {};
    }
    QString Mapp() const { return QFileInfo(Fil("..")).canonicalFilePath(); }
};

namespace {

/// One log over all its runs.
struct Station {
    QString fil;
    int test;
    qsizetype rader = 0;
    int avbrutna = 0; ///< kills in the midst of a transaction, or between it and the printing
};

} // namespace

class Dödad : public Hållbarhet {
protected:
    /// What an outside reader finds after a kill.
    static void Granska(Station& station, Sparprocess& process) {
        const bool journal = QFileInfo::exists(station.fil + "-journal");
        const QStringList sparade = process.Sagt("saved");
        EXPECT_EQ(process.Sagt("message"), QStringList());
        ASSERT_EQ(LäsEtt(station.fil, "PRAGMA integrity_check"), "ok");
        const QStringList rader = Rader(station.fil, "Signal");
        for (qsizetype i = 0; i < rader.size(); ++i) ASSERT_EQ(rader[i], Provanrop("SM5", i));
        // Every call that was printed, and at most the one whose form had not cleared yet.
        const qsizetype utskrivna = station.rader + sparade.size();
        ASSERT_GE(rader.size(), utskrivna);
        ASSERT_LE(rader.size(), utskrivna + 1);
        station.avbrutna += journal || rader.size() > utskrivna;
        station.rader = rader.size();
        GranskaRader(station);
    }

    /// Whole rows, and an INFO that is no further behind than the save that was cut.
    static void GranskaRader(const Station& station) {
        EXPECT_EQ(LäsEtt(station.fil,
                         "SELECT count(*) FROM TESTQSO WHERE Datum='' OR Tid='' OR length(Multiplar)<>6 OR "
                         "DXCC<>'SM' OR Prefix<>'SM5' OR LöpNrSR='' OR Poäng IS NULL"),
                  "0");
        if (station.test == 7) {
            EXPECT_EQ(LäsEtt(station.fil, "SELECT LöpNr FROM INFO").toLongLong(), station.rader + 1)
                << "contact and serial are one";
            EXPECT_EQ(
                LäsEtt(station.fil, "SELECT count(*) FROM TESTQSO WHERE CAST(LöpNrSR AS INTEGER)<>rowid"),
                "0");
        } else {
            EXPECT_EQ(
                LäsEtt(station.fil,
                       "SELECT QSOLängd <= (SELECT coalesce(max(Poäng), 0) FROM TESTQSO) AND QSOLängd >= "
                       "(SELECT coalesce(max(Poäng), 0) FROM TESTQSO WHERE rowid < (SELECT max(rowid) FROM "
                       "TESTQSO)) FROM INFO"),
                "1");
        }
    }
};

TEST_F(Dödad, AProgramKilledAtAnyMomentLosesNoContactWhoseFormHadCleared) {
    Förbered({{1, "nac.svk"}, {7, "månad.svk"}});
    Station stationer[] = {{Logg("nac.svk"), 1}, {Logg("månad.svk"), 7}};
    std::mt19937 slump(20261201);
    std::uniform_int_distribution<int> ms(0, 250);
    for (int varv = 0; varv < 100; ++varv) {
        SCOPED_TRACE(varv);
        const QStringList vad = {"save", "SM5", "0"};
        Sparprocess nac(Mapp(), stationer[0].fil, vad);
        Sparprocess månad(Mapp(), stationer[1].fil, vad);
        ASSERT_TRUE(nac.Redo() && månad.Redo())
            << nac.Feltext().toStdString() << månad.Feltext().toStdString();
        const QDeadlineTimer slutNac(ms(slump));
        const QDeadlineTimer slutMånad(ms(slump));
        nac.Börja();
        månad.Börja();
        Sparprocess& förr = slutNac < slutMånad ? nac : månad;
        Sparprocess& sedan = slutNac < slutMånad ? månad : nac;
        förr.KörTill(qMin(slutNac, slutMånad));
        ASSERT_TRUE(förr.Döda());
        sedan.KörTill(qMax(slutNac, slutMånad));
        ASSERT_TRUE(sedan.Döda());
        ASSERT_NO_FATAL_FAILURE(Granska(stationer[0], nac));
        ASSERT_NO_FATAL_FAILURE(Granska(stationer[1], månad));
        ASSERT_EQ(LäsEtt(Fil("Lokator.dat"), "PRAGMA integrity_check"), "ok");
    }
    for (const Station& station : stationer) {
        RecordProperty("contacts_in_contest_" + std::to_string(station.test),
                       static_cast<int>(station.rader));
        RecordProperty("cut_saves_in_contest_" + std::to_string(station.test), station.avbrutna);
        EXPECT_GT(station.rader, 0) << "the kills came while it was saving";
        EXPECT_GT(station.avbrutna, 0);
    }
    // What the last run left opens like any other log.
    frTest& f = Starta();
    filval.push_back(stationer[1].fil);
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(f.lblQSO->text(), QString::number(stationer[1].rader));
    EXPECT_EQ(f.txtLöpnrS->text().toLongLong(), stationer[1].rader + 1);
}

// ---- two stations -------------------------------------------------------------------------------------

class TvåStationer : public Hållbarhet, public ::testing::WithParamInterface<int> {};
INSTANTIATE_TEST_SUITE_P(Tester, TvåStationer, ::testing::Values(1, 7));

TEST_P(TvåStationer, SaveFiveHundredContactsEachInOneLogAtOnce) {
    Förbered({{GetParam(), "delad.svk"}});
    const QString fil = Logg("delad.svk");
    Sparprocess ena(Mapp(), fil, {"save", "SM5", "500"});
    Sparprocess andra(Mapp(), fil, {"save", "SM7", "500"});
    ASSERT_TRUE(ena.Redo() && andra.Redo());
    ena.Börja();
    andra.Börja();
    EXPECT_EQ(ena.Slut(120000), 0);
    EXPECT_EQ(andra.Slut(120000), 0);
    EXPECT_EQ(ena.Sagt("message"), QStringList());
    EXPECT_EQ(andra.Sagt("message"), QStringList());
    QStringList väntat;
    for (const char* prefix : {"SM5", "SM7"})
        for (int i = 0; i < 500; ++i) väntat += Provanrop(prefix, i);
    QStringList rader = Rader(fil, "Signal");
    rader.sort();
    EXPECT_EQ(rader, väntat);
    EXPECT_EQ(LäsEtt(fil, "PRAGMA integrity_check"), "ok");
    EXPECT_EQ(LäsEtt(fil, "SELECT LöpNr FROM INFO"), GetParam() == 7 ? "1001" : "1")
        << "each contact has moved the counter";
    EXPECT_EQ(Rader(Fil("Lokator.dat"), "Signal", "Lokator").size(), 1000);
    if (GetParam() == 7)
        for (const char* prefix : {"SM5", "SM7"}) {
            int förra = 0;
            for (const auto& rad :
                 Läs(fil,
                     QString("SELECT LöpNrSR FROM TESTQSO WHERE Prefix='%1' ORDER BY rowid").arg(prefix))) {
                EXPECT_GT(rad[0].toInt(), förra) << "a station's serials only rise";
                förra = rad[0].toInt();
            }
        }
    // Each has its own longest contact; the file holds that of one of them.
    EXPECT_NE(LäsEtt(fil, "SELECT LängstaQSOSträng FROM INFO"), "");
}

TEST_F(Hållbarhet, ALogThatIsBusyForAlmostFiveSecondsIsWaitedForWithoutAWord) {
    StartaKlar(7);
    sqlite3* annan = nullptr;
    ASSERT_EQ(sqlite3_open(Logg().toUtf8().constData(), &annan), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(annan, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    std::thread upptagen([annan] {
        std::this_thread::sleep_for(std::chrono::milliseconds(4800));
        sqlite3_exec(annan, "COMMIT", nullptr, nullptr, nullptr);
    });
    Kör("sm5abc", "jo89wj");
    upptagen.join();
    sqlite3_close(annan);
    EXPECT_TRUE(meddelanden.empty());
    EXPECT_EQ(Rader("Signal, LöpNrSR"), QStringList{"SM5ABC|01"});
    EXPECT_EQ(INFO("LöpNr"), "2");
    EXPECT_EQ(frTest::instans().lblQSO->text(), "1");
}

// ---- an end by the runtime ----------------------------------------------------------------------------

TEST_F(Hållbarhet, AnApostropheInACallEndsTheProgramWithTheRuntimesMessageAndTheLogIsWhole) {
    Förbered({{1, "nac.svk"}});
    Sparprocess process(Mapp(), Logg("nac.svk"), {"type", "sm5o'brien"});
    ASSERT_TRUE(process.Redo());
    process.Börja();
    EXPECT_EQ(process.Slut(30000), 1);
    EXPECT_EQ(process.Sagt("box").size(), 1);
    EXPECT_TRUE(process.Sagt("box").join("").startsWith("Sorvik: Run-time error: "))
        << process.Sagt("box").join("").toStdString();
    EXPECT_TRUE(process.Feltext().contains("Sorvik: run-time error: ")) << process.Feltext().toStdString();
    EXPECT_EQ(process.Sagt("saved"), (QStringList{"SM5AAA", "SM5AAB", "SM5AAC"}));
    EXPECT_EQ(process.Sagt("message"), QStringList());
    const QString fil = Logg("nac.svk");
    EXPECT_FALSE(QFileInfo::exists(fil + "-journal"));
    EXPECT_EQ(LäsEtt(fil, "PRAGMA integrity_check"), "ok");
    frTest& f = Starta();
    filval.push_back(fil);
    f.mnuArkiv_ÖppnaTestlogg_Click();
    EXPECT_EQ(f.lblQSO->text(), "3");
    EXPECT_EQ(Rader(fil, "Signal"), (QStringList{"SM5AAA", "SM5AAB", "SM5AAC"}));
    Kör("sm5abc", "jo89wj");
    EXPECT_EQ(f.lblQSO->text(), "4");
}
