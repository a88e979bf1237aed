#pragma once

#include <QStringList>

#include <functional>

/// Other programs of the operator's.
namespace platform {

/// Opens a web address in the operator's browser. @throws Failure if none can be started
void OpenAddress(const QString& address);

/// Starts a program that goes on by itself. Each argument reaches it whole, blanks and quotes included.
/// @param program a path, or a name that is looked for where programs lie
/// @throws Failure if it cannot be started
void StartProgram(const QString& program, const QStringList& arguments = {});

/// What stands in for other programs in tests. An unset function starts the real one; one that returns false
/// could not.
struct LaunchSeam {
    std::function<bool(const QString& address)> address;
    std::function<bool(const QString& program, const QStringList& arguments)> program;
};
LaunchSeam& Launches();

} // namespace platform
