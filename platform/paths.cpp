#include "platform/paths.h"

#include <QCoreApplication>

namespace platform {

namespace {
QString& replacedFolder() {
    static QString folder;
    return folder;
}
} // namespace

QString ProgramFolder() {
    return replacedFolder().isEmpty() ? QCoreApplication::applicationDirPath() : replacedFolder();
}

void SetProgramFolder(const QString& folder) { replacedFolder() = folder; }

QString DataPath(const QString& relative) { return ProgramFolder() + QStringLiteral("/Data/") + relative; }

} // namespace platform
