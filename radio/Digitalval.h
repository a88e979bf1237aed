#pragma once

#include <QString>

/// The settings of the digital modes, and their file.
namespace radio {

struct Digitalval {
    QString DigiBandbredd = QStringLiteral("500");                       ///< width of the spectrum view
    int DigiUOS = 0, DigiAFC = 0, DigiHPF = 0, DigiATC = 0, DigiNET = 0; ///< 0 or 1
    QString DigiComport = QStringLiteral("None");                        ///< the line that keys the radio
    QString DigiFlöde = QStringLiteral("RTS");
    QString DigiTrafik = QStringLiteral("bpsk");
    QString DigiDisplay = QStringLiteral("FFT");
    QString DigiFIFORX = QStringLiteral("12");
    QString DigiFIFOTX = QStringLiteral("6");
    int DigiKanalA = 0;                             ///< 0 mono, 1 left, 2 right
    int DigiKanalB = 3;                             ///< 3 to 5, the same of the second radio
    QString DigiID = QStringLiteral("-1");          ///< of the sound card
    int DigiPrio = 0;                               ///< 0 to 2
    QString DigiRXKlocka = QStringLiteral("11025"); ///< samples a second
    QString DigiTXKlocka = QStringLiteral("0.00");
    int Rad19 = 0; ///< kept as it is; nothing asks for it
    QString DigiEffekt;
    QString DigiUDP; ///< port on which the FT8 program tells of its contacts; empty: none
    bool operator==(const Digitalval&) const = default;
};

/// The settings as their file holds them, 21 values, one a line. A text stands between double quotes or bare,
/// a number bare with blanks around it.
QString DigitalvalTillText(const Digitalval& val);

/// @throws platform::Failure if a line is missing, or a number is none or does not fit its 8 or 16 bits
Digitalval DigitalvalFrånText(const QString& text);

} // namespace radio
