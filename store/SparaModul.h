#pragma once

#include "platform/recordset.h"

#include <functional>

/// Saving of the contact on the entry form.

/// Runs the saver of the contest's family; contests without one store nothing. A failure shows the saver's
/// message and leaves the row uncommitted in the cursor.
void SparaTestQSO(int Test);

/// Asks every cursor of the open log anew, so that what another station has saved comes in too. @throws
/// platform::Failure
void RequeryFrågor();

/// Reads the row of INFO as it is in the file now, changes it and writes it. Another station on the same file
/// may write in between; then both steps are done again.
/// @param med a recordset of the log whose pending row goes into the same transaction
/// @throws platform::Failure; a pending row of med stays pending then
void SkrivINFO(const std::function<void(platform::Recordset& info)>& ändra,
               platform::Recordset* med = nullptr);
