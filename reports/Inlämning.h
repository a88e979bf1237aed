#pragma once

#include "reports/Mottagare.h"

/// What follows a report: the organiser's page, the mail program, the text editor. The program itself sends
/// nothing.

/// Opens the organiser's page in the browser; without an organiser it does nothing. If that cannot be done
/// the operator is told.
void SkickaTill(std::optional<reports::Mottagare> mottagare);

/// Starts the operator's mail program. If that cannot be done the operator is told.
void SkickaMedEpost();

/// Asks for a report and opens it in the operator's text editor. Whatever goes wrong, it ends without a word.
/// @param filter of the file dialog
void LäsRapport(const QString& filter);
