#pragma once

#include <QString>

/// The operator's choice of spots, and its file.
namespace cluster {

struct Spottförval {
    /// 160, 80, 40, 20, 15, 10, 6, 2 m and 70 cm, index 1 to 9. 30, 17 and 12 m have no choice and always
    /// pass.
    bool SpotBandVal[10] = {false, true, true, true, true, true, true, true, true, true};
    /// CW, SSB, RTTY, PSK31, SSTV, AM and FM, index 1 to 7.
    bool SpotTrafikVal[8] = {false, true, true, true, true, true, true, true};
    /// Kept from run to run; a spot makes no sound.
    bool SpotLjudPå = false;
    QString SpotLjudFil = QStringLiteral("1.wav");
    bool operator==(const Spottförval&) const = default;
};

/// The choice as its file holds it, one value a line: nine bands, sound on, sound file, seven modes.
QString FörvalTillText(const Spottförval& förval);

/// @throws platform::Failure if a line is missing or a flag is none
Spottförval FörvalFrånText(const QString& text);

} // namespace cluster
