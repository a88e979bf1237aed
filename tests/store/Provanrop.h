#pragma once

#include <QString>

/// The call of contact number `nummer` of a station: SM5AAA, SM5AAB and so on; 17,576 differ.
inline QString Provanrop(const QString& prefix, qsizetype nummer) {
    QString anrop = prefix;
    for (const int vikt : {676, 26, 1}) anrop += QChar(u'A' + static_cast<int>(nummer / vikt % 26));
    return anrop;
}

/// A locator that differs from contact to contact, somewhere in the field JO.
inline QString Provlokator(qsizetype nummer) {
    return QStringLiteral("JO%1%2%2")
        .arg(nummer % 100, 2, 10, QLatin1Char('0'))
        .arg(QChar(u'A' + static_cast<int>(nummer / 100 % 24)));
}
