#include "store/Databaser.h"

#include "contest/TestKatalog.h"
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

} // namespace

Databaser& db() { return *databaser(); }

void NollställDatabaser() { databaser() = std::make_unique<Databaser>(); }

void ÖppnaDatabasar() {
    Databaser& d = db();
    ÖppnaKlient(d.DataDB, "Data.Dat", Durability::Full); // only read
    ÖppnaSpottlogg();
    d.SVDDB.Open(platform::DataPath(QStringLiteral("SVD.Dat")));
    d.rsPrefix.Open(QStringLiteral("Prefix"), d.DataDB);
    d.rsPrefix.Sort(QStringLiteral("Prefix"));
    d.rsSVDINI.Open(QStringLiteral("SVDINI"), d.SVDDB);
}

void StängDatabasar() {
    Databaser& d = db();
    Stäng(d.rsPrefix, d.DataDB);
    StängSpottlogg();
    Stäng(d.rsSVDINI, d.SVDDB);
    StängFriendDB();
    StängLokatorDB();
}

void ÅteröppnaDatabasar() {
    if (db().DataDB.IsOpen()) return;
    try {
        ÖppnaDatabasar();
    } catch (const platform::Failure&) {
        StängDatabasar(); // all or none: the program goes on, and the next try asks one of them
        throw;
    }
}

void StängSpottlogg() { Stäng(db().rsDXSpottLogg, db().DXSpottDB); }

void ÖppnaSpottlogg() {
    Databaser& d = db();
    try {
        ÖppnaKlient(d.DXSpottDB, "DXSpott.Dat", Durability::Relaxed);
        d.rsDXSpottLogg.Open(QStringLiteral("DXSpottLogg"), d.DXSpottDB);
        d.rsDXSpottLogg.Sort(QStringLiteral("Datum"));
    } catch (const platform::Failure&) {
        StängSpottlogg();
        throw;
    }
}

void StängMinne(Minnesdb minne) {
    Databaser& d = db();
    if (minne == Minnesdb::Lokator)
        Stäng(d.rsLokator, d.LokatorDB);
    else
        Stäng(d.rsFriend, d.FriendDB);
}

void ÖppnaMinne(Minnesdb minne) {
    Databaser& d = db();
    const bool lokator = minne == Minnesdb::Lokator;
    Recordset& markör = lokator ? d.rsLokator : d.rsFriend;
    Connection& anslutning = lokator ? d.LokatorDB : d.FriendDB;
    d.minnenFinns = true;
    Stäng(markör, anslutning);
    try {
        // What is remembered of other stations can be heard again, so it need not wait for the disk as a log
        // does.
        ÖppnaKlient(anslutning, lokator ? "Lokator.dat" : "Friend.dat", Durability::Relaxed);
        markör.Open(lokator ? QStringLiteral("Lokator") : QStringLiteral("Friend"), anslutning);
    } catch (const platform::Failure&) {
        Stäng(markör, anslutning);
        throw;
    }
}

void StängLokatorDB() { StängMinne(Minnesdb::Lokator); }

void StängFriendDB() { StängMinne(Minnesdb::Friend); }

void ÖppnaLokator() {
    try {
        ÖppnaMinne(Minnesdb::Lokator);
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid läsning av Lokator databas."),
                         QStringLiteral("ÖppnaLokator"));
    }
}

void ÖppnaFriend() {
    try {
        ÖppnaMinne(Minnesdb::Friend);
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
    if (contest::ÄrStatTest(test)) {
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
