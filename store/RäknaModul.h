#pragma once

/// Points of the contact on the form, and the total of the log.

/// Judges the contact on the entry form: its points into lblQSOPoäng, the signs for a new square or
/// multiplier. The shared contest number decides, whatever is handed over. @throws platform::Failure
void KollaPoäng(int Test);

/// Counts the log anew and shows the total. The sum of the points goes to lblQSOPoäng as well.
/// @throws platform::Failure on an overflow or a row whose points are no number; the labels keep their
/// values.
void RäknaPoäng(int Test);
