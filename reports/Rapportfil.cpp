#include "reports/Rapportfil.h"

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/textfile.h"

#include <QFile>

QString Rapportväg(const QString& namn, const QString& ändelse) {
    return platform::DataPath(QStringLiteral("Rapport/")) + QString(namn).replace(u'/', u'_') + ändelse;
}

void SkrivRapport(const QString& fil, const reports::Rapport& rapport) {
    QFile ut(fil);
    if (!ut.open(QIODevice::WriteOnly))
        throw platform::Failure(QStringLiteral("Filen kan inte öppnas: ") + ut.errorString());
    platform::TextWriter(ut).Write(platform::LinesToText(rapport.rader));
    if (!ut.flush()) throw platform::Failure(QStringLiteral("Filen kan inte skrivas: ") + ut.errorString());
    if (!rapport.hel) throw platform::Failure(QStringLiteral("Loggen kan inte läsas."));
}
