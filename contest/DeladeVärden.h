#pragma once

#include "platform/recordset.h"
#include "radio/Digitalval.h"
#include "radio/Makro.h"

#include <QString>

/// What every part of the program reads and writes while it runs. One thread, so no locks.
struct DeladeVärden {
    int AktuelltTest = 0; ///< contest number 0 to 14, the one selector of what differs between contests
    bool TestLoggÖppen = false;
    QString TestLoggFil;   ///< full path of the open log
    QString TestLoggTitel; ///< its file name
    bool TestVald = false; ///< a contest was chosen and a new log made in this run
    bool DigitalTest = false;
    bool TidGår = false; ///< the activity clock was started by a save
    bool TabbstopRST = true;
    bool TabbstopLöpnr = false;
    bool KlockaPå = true;
    bool RedigeraQSO = false; ///< the entry form holds a logged contact
    platform::Bookmark RedigeradBookmark;
    bool DubblettFlagga = false;
    bool VarningUppe = false;
    QString LöpnrFormat; ///< "01", "001" or empty
    bool RadioPå = false;
    QString RadioFrekvens; ///< last frequency of a rig on line, in units of 10 Hz
    bool FT8Läge = false;
    radio::Digitalval Digital; ///< as frInstDigi read or saved them last

    radio::MakroTabell MakroTabell; ///< row 0 is button 1
    bool MakroDigital = false;      ///< macro files hold 12 pairs
    bool MakroCW = false;           ///< macro files hold 14 pairs; nothing sets it
    int MakroKnapp = 1;             ///< button of the macro that frMacroEditor shows

    // Shared logs over a network drive are opened like any other; nothing sets the flag.
    bool NätverkAnsluten = false;
    QString NätverkEnhet;
    QString NätverkMapp;

    int Räknare10min = 0, Räknare1tim = 0; ///< seconds since the last rate report
    int QSO10min = 0, QSO1tim = 0;         ///< contacts at the last rate report

    QString RutPoäng; ///< points of one square
    QString KmPoäng;  ///< points of one kilometre
    int TotalPoäng = 0, TotalQSOPoäng = 0, TotalRutPoäng = 0;

    bool ProgramAvslutas = false;
    bool LoggIgång = false;

    QString RapportFil;   ///< full path of the report last opened to be read
    QString RapportTitel; ///< its file name

    // The station data of SVDINI.
    QString EgenSignal, OpSignal, OpNamn, OpAdress, OpPostnr, OpPostadr, OpEmail, OpLand, OpITU, OpZon,
        OpPrefix, OpTestLokator, OpUTCTid, OpRig, OpAntenn, OpHöjdHav, OpHöjdLand, OpKlubbSignal, OpTestDatum,
        OpEffekt, OpEpost, OpEdit;
};

/// The values of this process. Tests assign `{}` to start anew.
inline DeladeVärden delat;

/// Product name and version as the captions show them.
inline const QString Produkt = QStringLiteral("Sorvik");
inline const QString Version = QStringLiteral(SORVIK_VERSION);
