#pragma once

#include "cluster/Bandplan.h"

#include <QString>

/// The spot at hand, beside SpotSignal and SpotPrefix of its country search.
inline QString SpotFrekvens;   ///< in the display form, "14,025,50"
inline QString SpotTrafiksätt; ///< empty outside every range
inline int SpotBand = 0;       ///< metres, 70 for 70 cm
inline bool SpotAvvisad = false;
inline cluster::Spottförval SpotFörval;

/// Band and mode of a frequency into SpotBand and SpotTrafiksätt; SpotAvvisad becomes true if the spot is not
/// wanted, and stays true.
/// @param frekvens in units of 10 Hz
void TaUtBandTrafiksätt(int frekvens);

/// Looks up the country of the spot's key in the log's country status and, if the spot is wanted, evaluates
/// it.
/// @throws platform::Failure if no log is open or the frequency is no number
void KollaSpotLand();
