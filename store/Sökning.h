#pragma once

#include "platform/recordset.h"

/// Shows the rows of a cursor whose column equals a text that the operator has typed. A text that no filter
/// can hold (an apostrophe) is told, and the rows stay as they are.
/// @param kolumn as it stands in a filter
/// @param titel title of the message
void SökLika(platform::Recordset& markör, QStringView kolumn, const QString& text, const QString& titel);
