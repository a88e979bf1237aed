#pragma once

#include "reports/Loggbild.h"

/// Contest logs as Cabrillo 2.0 (the format is published by the World Wide Radio Operators Foundation).
namespace reports {

/// In what one writer differs from another.
struct Cabrilloform;
extern const Cabrilloform cabrilloMT;
extern const Cabrilloform cabrilloSAC;
extern const Cabrilloform cabrilloARRLDX; ///< no contest leads to it

/// What the header is made of, and the columns that are the same on every line.
struct CabrilloUppgifter {
    int test = 0; ///< contest number
    Stationsuppgifter station;
    // Of the report window.
    QString datum, klubb, operatörer, notering, op, band, trafik, effekt, assist;
    bool rookie = false; ///< that row of the operator list is chosen
    // Of the main window.
    QString totalPoäng, formulärdatum;
};

/// Name of the file without folder and extension.
/// @throws platform::Failure if the date of the report window is needed and is no date
QString CabrilloFilnamn(const Cabrilloform& form, const CabrilloUppgifter& uppgifter);

/// The columns of the log that a writer reads.
std::span<const Kolumn> CabrilloKolumner();

/// Header, one QSO line for each contact, end line. A log without contacts, or one that cannot be read, ends
/// the report behind its header.
Rapport CabrilloRapport(const Cabrilloform& form, const CabrilloUppgifter& uppgifter, const Loggbild& logg);

} // namespace reports
