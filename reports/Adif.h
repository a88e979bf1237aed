#pragma once

#include "reports/Loggbild.h"

#include <QDateTime>

/// Contest logs as ADIF: fields that tell their own length. Some tags are this program's own, and their
/// spelling is part of the format.
namespace reports {

/// The columns of the log that the writer reads.
std::span<const Kolumn> AdifKolumner();

/// One contact: nineteen fields, an empty one with length 0, and the end mark.
QString AdifPost(const Kontakt& kontakt);

/// The band as ADIF has it: "80 M" gives "80M". Only 70 is taken for centimetres.
QString AdifBand(const QString& band);

/// Six lines of header and one for each contact. A log that cannot be read ends it behind the header.
/// @param nu local time, for the header
Rapport AdifRapport(const Loggbild& logg, const QDateTime& nu);

} // namespace reports
