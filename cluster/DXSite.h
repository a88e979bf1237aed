#pragma once

#include <QString>

/// A cluster that can be connected to, and its file.
namespace cluster {

struct DXSite {
    QString namn;
    QString adress; ///< host name or IP address
    int port = 0;
    int servertyp = 0; ///< 0 or 1, which of the two choices in the editor is on
    bool operator==(const DXSite&) const = default;
};

/// The four lines of a site file. A quotation mark in a text ends it when it is read.
QString SiteTillText(const DXSite& site);

/// @throws platform::Failure if an item is missing or a number is none
DXSite SiteFrånText(const QString& text);

/// A site's file name, with the extension that every site file has.
QString SiteFilnamn(const QString& namn);

} // namespace cluster
