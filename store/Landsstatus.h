#pragma once

#include <QString>

/// The status of each country in the open log: which bands and modes of it are worked.

/// Withdraws what no contact in the log holds up any more, after one of them was changed or deleted. Polling
/// of the cluster stands still meanwhile. A failure shows the procedure's message. The filter of the log is
/// left behind.
/// @param DXCC short form of the country
/// @param Trafiksätt, Band of the contact as it was; the mode becomes the one whose column it counts in
void Uppdatera_DXCC(QString& DXCC, QString& Trafiksätt, QString& Band);

/// Empties the columns of a mode and a band for a country; with neither, all of them, confirmed ones too. A
/// failure shows the procedure's message.
void TaBortKördaDXCC(QString& DXCC, QString& Trafiksätt, QString& Band);
