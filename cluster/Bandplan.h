#pragma once

#include <QStringView>

/// Which band and mode a frequency belongs to.
namespace cluster {

struct BandTrafik {
    int band = 0;           ///< metres, 70 for 70 cm, 0 for none
    QStringView trafiksätt; ///< empty for none
    bool operator==(const BandTrafik&) const = default;
};

/// Band and mode by the plan that spots are sorted with. Ranges overlap, and the last that fits counts: phone
/// lies inside the telegraphy range of its band, picture calls inside phone.
/// @param frekvens in units of 10 Hz
BandTrafik HittaBandTrafik(int frekvens);

/// The operator's choice of spots.
struct Spottförval {
    /// 160, 80, 40, 20, 15, 10, 6, 2 and 70, index 1 to 9. 30, 17 and 12 m have no choice and always pass.
    bool band[10] = {false, true, true, true, true, true, true, true, true, true};
    /// CW, SSB, RTTY, PSK31, SSTV, AM and FM, index 1 to 7.
    bool trafik[8] = {false, true, true, true, true, true, true, true};
};

/// Whether a spot is refused: outside every range, or on a band or in a mode that is not wanted.
bool ÄrAvvisad(const BandTrafik& spott, const Spottförval& förval);

} // namespace cluster
