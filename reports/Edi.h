#pragma once

#include "reports/Loggbild.h"

/// Contest logs in the EDI exchange format, REG1TEST version 1 (IARU region 1), with the keys and the use of
/// them that the contests' own robots have come to know from this program.
namespace reports {

struct EdiUppgifter {
    int test = 0; ///< contest number
    Stationsuppgifter station;
    // Of the report window.
    QString datum, testSignal, testLokator, klubb, op, band, operatör1, operatör2, rigTX, rigRX, effekt,
        antenn, antennhöjd, månad, notering;
    // Of the main window.
    QString antalQSO, totalQSOPoäng, multiplar, diplom, totalPoäng, formulärdatum;
    int trafikrad = -1; ///< row of the mode list on the entry form; all contacts get its code
    // Of the contest and the log.
    QString rutPoäng, kmPoäng;
    QString längstaQSO; ///< as it is stored: "Längsta QSO : SM5ABC  JO89WJ  500 Km"
};

/// Name of the file without folder and extension; blanks are part of it.
QString EdiFilnamn(const EdiUppgifter& uppgifter);

/// The columns of the log that the writer reads.
std::span<const Kolumn> EdiKolumner();

/// The stored text of the longest contact as call, locator and distance with semicolons between.
QString LängstaQSOFält(const QString& längstaQSO);

/// Every line of the file. A log that cannot be read ends it where the first record would stand.
Rapport EdiRapport(const EdiUppgifter& uppgifter, const Loggbild& logg);

} // namespace reports
