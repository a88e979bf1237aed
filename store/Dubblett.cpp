#include "store/Dubblett.h"

#include "store/Filter.h"

#include <QStringBuilder>

namespace store {

QString SignalFilter(const QString& anrop) { return Lika(u"Signal", anrop); }

QString SignalBandFilter(const QString& anrop, const QString& band) {
    return SignalFilter(anrop) % u" AND " % Lika(u"[Band ]", band);
}

QString TidigareRubrik(const QString& anrop, qsizetype antal) {
    return u"Tidigare QSO för " % anrop % u" (" % QString::number(antal) % u')';
}

} // namespace store
