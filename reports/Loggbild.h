#pragma once

#include "platform/recordset.h"

#include <QString>

#include <span>
#include <vector>

/// The log as the writers of reports see it.
namespace reports {

/// One contact, every column as text; one without a value is empty.
struct Kontakt {
    QString datum, tid, signal, frekvens, trafiksätt, band, sänt, mottaget, multiplar, löpNr, löpNrSR, namn,
        qth, itu, zon, diplom, dxcc, dxccNr, land, notering, poäng, ndxcc, nruta, dubblett;
};

/// A column of the log and its place in a contact.
struct Kolumn {
    const char* namn;
    QString Kontakt::*fält;
};

struct Loggbild {
    std::vector<Kontakt> kontakter; ///< in the order of date and time
    bool läsbar = true;             ///< false: a column that the report needs is missing
};

/// What the reports tell of the station, as it stands in its window.
struct Stationsuppgifter {
    QString signal, lokator, namn, adress, postnr, postAdress, land, email, effekt;
};

/// A report: its lines, and whether the writer came to the end of it.
struct Rapport {
    QStringList rader;
    bool hel = true;
};

/// Reads the whole log, lifts a filter that narrows it, and leaves the cursor at its end.
/// @param kolumner those that the report needs; the others stay empty
/// @throws platform::Failure if the log is not open
Loggbild LäsLogg(platform::Recordset& logg, std::span<const Kolumn> kolumner);

/// The last eight characters of a date without its hyphens: "2026-12-01" gives "261201".
QString KortDatum(const QString& datum);
/// The hours and minutes of a time without the colon: "18:30:00" gives "1830".
QString KortTid(const QString& tid);
/// A report up to its first blank: "599 001" gives "599".
QString BaraRST(const QString& rapport);

} // namespace reports
