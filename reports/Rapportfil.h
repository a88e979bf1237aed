#pragma once

#include "reports/Loggbild.h"

/// Full path of a report in the folder of reports.
/// @param namn what the report is called. A call may hold a slash, which no file name can; a low line takes
/// its place.
/// @param ändelse with its dot
QString Rapportväg(const QString& namn, const QString& ändelse);

/// Writes a report over whatever has that name. What could be written stays, also after a failure: operators
/// look there for how far it came.
/// @throws platform::Failure if the file cannot be written, or if the report is not whole
void SkrivRapport(const QString& fil, const reports::Rapport& rapport);
