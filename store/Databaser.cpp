#include "store/Databaser.h"

#include "platform/dialogs.h"
#include "platform/paths.h"

namespace {

using platform::Connection;
using platform::Durability;
using platform::Recordset;

std::unique_ptr<Databaser>& databaser() {
    static std::unique_ptr<Databaser> ett = std::make_unique<Databaser>();
    return ett;
}

void ÖppnaKlient(Connection& anslutning, const char* fil, Durability hållbarhet) {
    anslutning.Open(platform::DataPath(QString::fromUtf8(fil)), hållbarhet);
    anslutning.CursorLocation(3);
}

void Stäng(Recordset& markör, Connection& anslutning) {
    if (!anslutning.IsOpen()) return;
    if (markör.IsOpen()) markör.Close();
    anslutning.Close();
}

void ÖppnaMinne(Recordset& markör, Connection& anslutning, const char* fil, const char* tabell) {
    Stäng(markör, anslutning);
    // What is remembered of other stations can be heard again, so it need not wait for the disk as a log
    // does.
    ÖppnaKlient(anslutning, fil, Durability::Relaxed);
    markör.Open(QString::fromUtf8(tabell), anslutning);
}

} // namespace

Databaser& db() { return *databaser(); }

void NollställDatabaser() { databaser() = std::make_unique<Databaser>(); }

void ÖppnaDatabasar() {
    Databaser& d = db();
    ÖppnaKlient(d.DataDB, "Data.Dat", Durability::Full); // only read
    ÖppnaKlient(d.DXSpottDB, "DXSpott.Dat", Durability::Relaxed);
    d.SVDDB.Open(platform::DataPath(QStringLiteral("SVD.Dat")));
    d.rsPrefix.Open(QStringLiteral("Prefix"), d.DataDB);
    d.rsPrefix.Sort(QStringLiteral("Prefix"));
    d.rsDXSpottLogg.Open(QStringLiteral("DXSpottLogg"), d.DXSpottDB);
    d.rsDXSpottLogg.Sort(QStringLiteral("Datum"));
    d.rsSVDINI.Open(QStringLiteral("SVDINI"), d.SVDDB);
}

void StängDatabasar() {
    Databaser& d = db();
    Stäng(d.rsPrefix, d.DataDB);
    Stäng(d.rsDXSpottLogg, d.DXSpottDB);
    Stäng(d.rsSVDINI, d.SVDDB);
    StängFriendDB();
    StängLokatorDB();
}

void ÅteröppnaDatabasar() {
    if (!db().DataDB.IsOpen()) ÖppnaDatabasar();
}

void StängLokatorDB() { Stäng(db().rsLokator, db().LokatorDB); }

void StängFriendDB() { Stäng(db().rsFriend, db().FriendDB); }

void ÖppnaLokator() {
    try {
        ÖppnaMinne(db().rsLokator, db().LokatorDB, "Lokator.dat", "Lokator");
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid läsning av Lokator databas."),
                         QStringLiteral("ÖppnaLokator"));
    }
}

void ÖppnaFriend() {
    try {
        ÖppnaMinne(db().rsFriend, db().FriendDB, "Friend.dat", "Friend");
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid läsning av Friend databas."),
                         QStringLiteral("ÖppnaFriend"));
    }
}

void ÖppnaFrågor(int test) {
    Databaser& d = db();
    const auto öppna = [&d](Recordset& markör, const char* fråga) {
        markör.Open(QString::fromUtf8(fråga), d.TestDB);
    };
    öppna(d.rsDXCCBand, "select [DXCC Nr], [Band ], ITU, Zon from TESTQSO");
    öppna(d.rsITU, "select DISTINCT ITU from TESTQSO");
    öppna(d.rsZon, "select DISTINCT Zon from TESTQSO");
    öppna(d.rsTidigare,
          "select Datum, Tid, Signal, Frekvens, Trafiksätt, [Band ], Sänt, Mottaget from TESTQSO");
    öppna(d.rsPoäng, "select Poäng from TESTQSO");
    if (test == 41 || test == 42) {
        öppna(d.rsState, "select DISTINCT State from TESTQSO WHERE NOT State = ''");
        öppna(d.rsProvince, "select DISTINCT Province from TESTQSO WHERE NOT Province = ''");
    } else {
        öppna(d.rsSignal, "select DISTINCT Signal from TESTQSO");
        öppna(d.rsDXCC, "select DISTINCT DXCC from TESTQSO");
    }
    öppna(d.rsDiplom, "select DISTINCT Diplom from TESTQSO WHERE NOT Diplom = ''");
    öppna(d.rsDistrikt, "select DISTINCT Distrikt from TESTQSO WHERE NOT Distrikt = ''");
    öppna(d.rsRutor, "select DISTINCT Rutor from TESTQSO WHERE NOT Rutor = ''");
    öppna(d.rsMultiplar, "select DISTINCT Multiplar from TESTQSO WHERE NOT Multiplar = ''");
}
