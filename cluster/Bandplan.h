#pragma once

#include "cluster/Spottförval.h"

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

/// Whether a spot is refused: outside every range, or on a band or in a mode that is not wanted.
bool ÄrAvvisad(const BandTrafik& spott, const Spottförval& förval);

} // namespace cluster
