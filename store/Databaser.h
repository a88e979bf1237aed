#pragma once

#include "platform/recordset.h"

#include <memory>

/// The connections and cursors of the process.
///
/// Three databases are open from start to exit but for the close menu, the locator and friend databases from
/// the first open log, the cursors over the log as long as it is open. Query cursors are snapshots: who
/// changes TESTQSO asks them anew.
struct Databaser {
    platform::Connection DataDB, DXSpottDB, SVDDB, LokatorDB, FriendDB, TestDB;

    platform::Recordset rsPrefix, rsDXSpottLogg, rsSVDINI;
    platform::Recordset rsLokator, rsFriend;
    bool minnenFinns = false; ///< the locator and friend databases have been opened in this run

    platform::Recordset rsTESTQSO, rsTESTDXCC, rsINFO;
    platform::Recordset rsDXCCBand, rsITU, rsZon, rsTidigare, rsPoäng, rsSignal, rsDXCC, rsDiplom, rsDistrikt,
        rsRutor, rsMultiplar;
    /// Only for the contest numbers 41 and 42, which the catalogue does not have.
    platform::Recordset rsState, rsProvince;
};

/// The databases of this process.
Databaser& db();

/// Gives the process a new, closed set of databases; what was open is closed without a write. For tests.
void NollställDatabaser();

/// Opens the reference, spot and settings databases with their cursors. @throws platform::Failure
void ÖppnaDatabasar();

/// Closes the five shared databases that are open. @throws platform::Failure
void StängDatabasar();

/// Opens the reference, spot and settings databases that the close menu closed, and leaves open ones alone.
/// @throws platform::Failure
void ÅteröppnaDatabasar();

/// Closes the spot store, cursor first, if it is open.
void StängSpottlogg();

/// Opens the spot store. @throws platform::Failure; it is closed then
void ÖppnaSpottlogg();

/// The memory of locators and the one of names.
enum class Minnesdb { Lokator, Friend };

/// Closes the database of a memory, cursor first, if it is open.
void StängMinne(Minnesdb minne);

/// Opens the database of a memory anew. @throws platform::Failure; it is closed then
void ÖppnaMinne(Minnesdb minne);

/// StängMinne for one of them.
void StängLokatorDB();
void StängFriendDB();

/// ÖppnaMinne for one of them. A failure shows the procedure's message.
void ÖppnaLokator();
void ÖppnaFriend();

/// Opens the query cursors of the open log in their fixed order.
/// @param test contest number: 41 and 42 have cursors of their own.
/// @throws platform::Failure
void ÖppnaFrågor(int test);
