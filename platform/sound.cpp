#include "platform/sound.h"

#include "platform/failure.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QFile>
#include <QMediaDevices>
#include <QSoundEffect>
#include <QUrl>

namespace platform {

namespace {

void RequireWave(QFile& file) {
    constexpr qint64 kHead = 12;
    const QByteArray head = file.read(kHead);
    if (!head.startsWith("RIFF") || !head.endsWith("WAVE"))
        throw Failure(QStringLiteral("%1 är ingen ljudfil.").arg(file.fileName()));
}

} // namespace

SoundSeam& Sounds() {
    static SoundSeam seam;
    return seam;
}

void PlaySound(const QString& path) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return;
    RequireWave(file);
    if (Sounds().play) return Sounds().play(path);
    // One for the whole run: the next sound takes the place of this one. The application takes it along.
    static auto* const effect = new QSoundEffect(QCoreApplication::instance());
    effect->stop();
    effect->setSource(QUrl::fromLocalFile(path));
    if (!QMediaDevices::defaultAudioOutput().isNull()) effect->play();
}

} // namespace platform
