#pragma once

#include "platform/recordset.h"

/// Shows the rows of a cursor that a filter lets through. One that is malformed, by an apostrophe in what the
/// operator has typed, is told, and the rows stay as they are.
/// @param titel title of the message
/// @return whether the filter is set
bool SökMed(platform::Recordset& markör, const QString& filter, const QString& titel);

/// SökMed for the rows whose column equals a text.
/// @param kolumn as it stands in a filter
void SökLika(platform::Recordset& markör, QStringView kolumn, const QString& text, const QString& titel);
