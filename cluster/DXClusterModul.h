#pragma once

#include "cluster/Bandplan.h"

#include <QString>

/// The spot at hand, beside SpotSignal and SpotPrefix of its country search.
inline QString SpotDatum, SpotTid; ///< when it was received, by the computer's clock
inline QString SpotFrekvens;       ///< in the display form, "14,025,50"
inline QString SpotTrafiksätt;     ///< empty outside every range
inline QString SpotNotering;       ///< without the time at its end
inline QString SpotTidRapport;     ///< the time at the end of the comment, as the cluster sent it
inline int SpotBand = 0;           ///< metres, 70 for 70 cm
inline bool SpotAvvisad = false;
inline int SpotRad = 1; ///< next free row of fgDXSpott
inline cluster::Spottförval SpotFörval;

/// Takes the spots out of what the cluster has sent: each one that is wanted and no repeat comes into the
/// grid and into the store. Nothing that the text may hold ends it: what a step cannot do is left undone, and
/// the next step goes on from there.
///
/// A line that comes in two texts is not joined again; over TCP the socket sees to it that few do.
void TolkaDXClusterData();

/// Has the store build what the search for repeats needs, so that the first spot after the connection is made
/// does not wait for it on a store of many.
void FörberedSpottlogg();

/// Empties the texts of the spot at hand.
void RensaSpotFält();

/// Cuts the reported time off SpotNotering into SpotTidRapport.
void DelaNotering();

/// Appends the spot at hand to the store. @throws platform::Failure; nothing is stored then
void SparaDXSpott();

/// Makes room in a full grid: its first eleven spots go. The row that follows the moved ones keeps its text.
void FlyttaSpotRader();

/// Band and mode of a frequency into SpotBand and SpotTrafiksätt; SpotAvvisad becomes true if the spot is not
/// wanted, and stays true.
/// @param frekvens in units of 10 Hz
void TaUtBandTrafiksätt(int frekvens);

/// Looks up the country of the spot's key in the log's country status and, if the spot is wanted, evaluates
/// it.
/// @throws platform::Failure if no log is open or the frequency is no number
void KollaSpotLand();
