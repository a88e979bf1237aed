#include "platform/files.h"

#include "platform/failure.h"

#include <QFile>
#include <QSaveFile>

namespace platform {

void CopyDatabase(const QString& from, const QString& to) {
    QFile source(from);
    if (!source.open(QFile::ReadOnly)) throw Failure(QStringLiteral("Filen %1 kan inte läsas.").arg(from));
    const QByteArray content = source.readAll();
    QSaveFile copy(to);
    const bool isWritten = source.error() == QFile::NoError && copy.open(QFile::WriteOnly) &&
                           copy.write(content) == content.size() && copy.commit();
    if (!isWritten) throw Failure(QStringLiteral("Filen %1 kan inte skrivas.").arg(to));
    // They belong to the file that is gone and would be read into the new one.
    for (const char* journal : {"-journal", "-wal", "-shm"}) QFile::remove(to + QLatin1String(journal));
}

} // namespace platform
