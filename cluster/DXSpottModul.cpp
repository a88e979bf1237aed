#include "cluster/DXSpottModul.h"

#include "cluster/DXClusterModul.h"
#include "cluster/frAnslut.h"
#include "cluster/frDXCluster.h"
#include "cluster/frDXSpott.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/textfile.h"

void DXTele_Connect() {
    if (kluster.ClusterAnsluten) {
        if (kluster.ClusterTyp == 0)
            platform::MsgBox(QStringLiteral("DX TNC är Aktivt. Kan ej ansluta till DX Telnet !"),
                             QStringLiteral("Fel vid Anslutning"));
        return;
    }
    try {
        kluster.AvbrytAnslut = false;
        frAnslut::instans().VisaModalt();
        if (kluster.AvbrytAnslut) return;
        kluster.ClusterTyp = 1;
        InitieraDXCluster();
        frDXSpott::instans().Visa();
        frDXCluster::instans().Visa();
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid start av DX Telnet."),
                         QStringLiteral("DXTele_Connect"));
    }
}

void InitieraDXCluster() {
    try {
        frDXCluster& f = frDXCluster::instans();
        f.WinsockSVK->RemoteHost(kluster.DXVärdAdress);
        f.WinsockSVK->RemotePort(kluster.DXVärdPort);
        f.WinsockSVK->Connect();
        f.TimerDXCluster->Interval(frDXCluster::pollning);
        kluster.ClusterLäser = true;
        kluster.ClusterAnsluten = true;
        frTest::instans().SBarTest(4, QStringLiteral("Ansluten till: ") + kluster.DXVärdNamn);
        FörberedSpottlogg();
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Fel vid initieringen av DXCluster! Inställningar för modemet är "
                                        "inte rätt konfigurerade."),
                         QStringLiteral("InitieraDXCluster"));
    }
}

void KopplaFrånDXCluster() {
    if (kluster.ClusterTyp == 0) return;
    frDXCluster& f = frDXCluster::instans();
    f.VisaText(QStringLiteral("*** DISCONNECTED\r\n"));
    kluster.ClusterAnsluten = false;
    f.WinsockSVK->Close();
}

bool GårAttLogga(const QString& signal) {
    if (!signal.contains(u'\'')) return true;
    platform::MsgBox(QStringLiteral("Signalen %1 kan inte loggas.").arg(signal), QStringLiteral("DX Spot"));
    return false;
}

void SpottTillFormulär(const ValdSpott& spott) {
    if (!GårAttLogga(spott.signal)) return;
    frTest& f = frTest::instans();
    f.txtSignal->setText(spott.signal);
    f.txtFrekvens->setText(spott.frekvens);
    for (int i = 0; i < f.cmbTrafik->count(); ++i)
        if (f.cmbTrafik->itemText(i) == spott.trafiksätt) f.cmbTrafik->Row(i);
    const double band = platform::Val(spott.band);
    for (int i = 0; i < f.cmbBand->count(); ++i)
        if (platform::Val(f.cmbBand->itemText(i)) == band) f.cmbBand->Row(i);
    f.FokusTillSignal();
}

QString SiteFil(Sitemapp mapp, const QString& namn) {
    return platform::DataPath(mapp == Sitemapp::Telnet ? QStringLiteral("DX Telnet/")
                                                       : QStringLiteral("DX Telenet/")) +
           namn + QStringLiteral(".dxt");
}

bool LäsDXSite(Sitemapp mapp, const QString& namn) {
    try {
        const cluster::DXSite site = cluster::SiteFrånText(platform::LoadTextFile(SiteFil(mapp, namn)));
        kluster.DXVärdNamn = site.namn;
        kluster.DXVärdAdress = site.adress;
        kluster.DXVärdPort = site.port;
        kluster.DXServerTyp = site.servertyp;
        return true;
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid läsning av DX-Telnet."),
                         QStringLiteral("Läs DX-Telnet"));
        return false;
    }
}
