#pragma once

#include <QString>

/// What counts as an earlier contact with a station.
namespace store {

/// The tests that a contest makes of a call, in this order.
struct DubblettRegel {
    bool helaLoggen = false; ///< the call anywhere in the log is a duplicate
    bool sammaBand = false;  ///< the call on the same band is one, whatever the mode
    bool ejNordiska = false; ///< a Nordic station is warned of; then the band test is made once more
};

/// @param test any number; those outside the catalogue get the band test as well.
constexpr DubblettRegel DubblettRegelFör(int test) {
    return {
        .helaLoggen = test >= 0 && test <= 5, .sammaBand = test != 0, .ejNordiska = test == 9 || test == 10};
}

/// Filter for the contacts with a station: "Signal = 'SM5ABC'". The whole call is compared, so a portable
/// form is another station.
QString SignalFilter(const QString& anrop);

/// Filter for the contacts with a station on a band: "Signal = 'SM5ABC' AND [Band ] = '80 M'".
QString SignalBandFilter(const QString& anrop, const QString& band);

/// "Tidigare QSO för SM5ABC (3)"
QString TidigareRubrik(const QString& anrop, qsizetype antal);

} // namespace store
