#pragma once

#include <QDate>

/// The days on which the activity contests are held.
namespace contest {

/// Whether a date is the n-th of a weekday in its month.
/// @param ordning 1 to 5; 0 is met by no date
/// @param veckodag Sunday 1, Monday 2 and so on to Saturday 7; 0 is met by no date
bool ÄrNteVeckodag(QDate datum, int ordning, int veckodag);

/// Whether the contest is held on this day. Contests 7 to 10 have no fixed day and take any; a contest
/// without a rule, number 6 among them, takes none.
bool TestDatumStämmer(int test, QDate idag);

} // namespace contest
