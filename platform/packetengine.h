#pragma once

#include <QString>

namespace platform {

/// Hands a command to the packet engine, a library that operators of a packet radio modem have. It is looked
/// for beside the program and where libraries lie, when it is first used.
///
/// @param anrop a call sign, in the 8-bit code page as data is
/// @param kind code of the character that names the command: c connect, d disconnect, D data
/// @param längd characters of data
/// @param kanal 0
/// @throws Failure if the library or its function cannot be found
void AGWPutData(const QString& anrop, const QString& data, int kind, int längd, int kanal);

} // namespace platform
