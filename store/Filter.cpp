#include "store/Filter.h"

#include <QStringBuilder>

namespace store {

QString Lika(QStringView kolumn, const QString& värde) { return kolumn % u" = '" % värde % u"'"; }

QString BörjarMed(QStringView kolumn, const QString& början) { return kolumn % u" LIKE '" % början % u"*'"; }

} // namespace store
