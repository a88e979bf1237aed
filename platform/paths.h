#pragma once

#include <QString>

namespace platform {

/// Folder of the running program; everything the program owns lies below it in Data/.
QString ProgramFolder();

/// Puts another folder in its place (tests run in a folder of their own).
void SetProgramFolder(const QString& folder);

/// Full path of a file or folder below Data/.
/// @param relative with forward slashes and without "Data/" in front, for instance "Loggar/".
QString DataPath(const QString& relative);

} // namespace platform
