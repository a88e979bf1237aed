#pragma once

#include "reports/Loggbild.h"

/// The summary sheet and the list of all contacts, plain text for people.
namespace reports {

struct SummaUppgifter {
    int test = 0; ///< contest number
    Stationsuppgifter station;
    // Of the report window.
    QString operatörer, op, assist, riggar, antenner, notering;
    // Of the main window.
    QString totalPoäng, formulärdatum;
    QString idag; ///< today as it is to stand there
};

/// Names of the two files without folder and extension.
QString SummaFilnamn(const SummaUppgifter& uppgifter);
QString ListaFilnamn(const SummaUppgifter& uppgifter);

/// The columns of the log that the writers read.
std::span<const Kolumn> SummaKolumner();
std::span<const Kolumn> ListaKolumner();

/// The summary sheet: six short-wave bands, whatever else is in the log.
/// @throws platform::Failure for an empty log, and if a total leaves 32 bits
Rapport SummaRapport(const SummaUppgifter& uppgifter, const Loggbild& logg);

/// The list of all contacts, four empty lines between pages. A log without contacts, or one that cannot be
/// read, ends it behind its head.
Rapport ListaRapport(const SummaUppgifter& uppgifter, const Loggbild& logg);

/// The present total with a band's figure put behind its digits, which is how the sheet adds up: 3, 0 and 12
/// give 3, 30 and 3012. It is no sum, and is kept so.
/// @throws platform::Failure if the result leaves 32 bits
int LäggTillBand(int total, const QString& fält);

} // namespace reports
