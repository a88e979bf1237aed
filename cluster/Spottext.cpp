#include "cluster/Spottext.h"

#include <QStringList>

namespace cluster {

QString SpottRad(const QString& frekvens, const QString& signal, const QString& notering) {
    QString siffror = frekvens;
    siffror.remove(u',');
    siffror.chop(1);
    siffror.insert(qMax<qsizetype>(siffror.size() - 1, 0), u'.');
    return QStringList{QStringLiteral("DX"), siffror, signal, notering}.join(u' ');
}

QString SökFilter(const QString& ord) {
    const bool början = ord.endsWith(u'*');
    const QString lika = QStringLiteral(" = '") + ord + u'\'';
    const QString som = QStringLiteral(" LIKE '") + ord + u'\'';
    QStringList villkor;
    for (const char* kolumn : {"Datum", "Tid", "Signal", "Frekvens", "Notering", "[Spott Tid]"})
        villkor << QString::fromUtf8(kolumn) + (början ? som : lika);
    return villkor.join(QStringLiteral(" OR "));
}

} // namespace cluster
