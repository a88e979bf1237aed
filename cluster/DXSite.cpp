#include "cluster/DXSite.h"

#include "platform/text.h"
#include "platform/textfile.h"

namespace cluster {

QString SiteTillText(const DXSite& site) {
    return platform::LinesToText({platform::WriteItem(site.namn), platform::WriteItem(site.adress),
                                  QString::number(site.port), platform::PrintNumber(site.servertyp)});
}

DXSite SiteFrånText(const QString& text) {
    platform::ItemReader poster(text);
    DXSite site;
    site.namn = poster.Next();
    site.adress = poster.Next();
    site.port = platform::ToInt32(poster.NextNumber());
    site.servertyp = platform::ToInt16(poster.NextNumber());
    return site;
}

QString SiteFilnamn(const QString& namn) {
    const QString ändelse = QStringLiteral(".dxt");
    // A slash would lead to another folder.
    QString fil = QString(namn).replace(u'/', u'_');
    return fil.endsWith(ändelse) ? fil : fil + ändelse;
}

} // namespace cluster
