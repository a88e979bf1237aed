#pragma once

#include "cluster/DXSite.h"

#include <QString>

/// The connection to a DX cluster: what is known of it, and how it is made.
struct Klusterläge {
    bool ClusterAnsluten = false; ///< from the moment a connection is asked for until it is closed
    int ClusterTyp = 0;           ///< 0 serial modem, 1 TCP, 2 packet engine; the menus know TCP alone
    bool ClusterLäser = false; ///< what arrives is read; true once a connection was made or the store emptied
    QString ClusterBuffert;    ///< what arrived last
    QString DXVärdNamn, DXVärdAdress;
    int DXVärdPort = 0;
    int DXServerTyp = 0;
    bool AvbrytAnslut = false; ///< frAnslut was closed without a choice
    bool NyDXSite = false;     ///< the editor of sites makes a new one
};

/// The one connection of this process. Tests assign `{}` to start anew.
inline Klusterläge kluster;

/// Lets the operator choose a cluster and connects to it. One that is up already is left alone.
void DXTele_Connect();

/// Asks for the connection to the chosen site and says in the status bar that it stands, whether or not it
/// comes up. A site that cannot be asked for gives a message.
void InitieraDXCluster();

/// Closes the connection at the operator's wish.
void KopplaFrånDXCluster();

/// A spot as the grids show it.
struct ValdSpott {
    QString signal, frekvens, trafiksätt, band;
};

/// Carries a spot to the entry form, in this order: call, frequency, mode, band; then the focus goes to the
/// call. Mode and band only where the contest's lists have them; a band that changes tunes the radio. A call
/// with an apostrophe, which no search of the log can hold, gives a message.
void SpottTillFormulär(const ValdSpott& spott);

/// Whether the entry form can take the call; if not, its message has been shown.
bool GårAttLogga(const QString& signal);

/// The two folders of sites: connecting reads and deletes in the first, the editor and the double click work
/// on the second.
enum class Sitemapp { Telnet, Telenet };

/// Full path of a site's file. @param namn without its extension, as the list has it
QString SiteFil(Sitemapp mapp, const QString& namn);

/// Reads a site's file into the connection's values. A failure shows its message.
/// @return whether it was read
bool LäsDXSite(Sitemapp mapp, const QString& namn);
