#pragma once

#include <QString>

namespace platform {

/// Copies a database file, a template, over another or to a new name, in one step and to the disk: after a
/// failure what stood there is untouched. What a crash left of the old file's journals goes with it. A copy
/// of a write-protected template can be written to. No connection may be open on the target.
/// @throws Failure if the template cannot be read or the target not be written
void CopyDatabase(const QString& from, const QString& to);

} // namespace platform
