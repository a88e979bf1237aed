#include "cluster/DXClusterModul.h"

#include "platform/text.h"
#include "store/Databaser.h"
#include "store/Landsökning.h"
#include "store/PrefixSök.h"

void TaUtBandTrafiksätt(int frekvens) {
    const cluster::BandTrafik träff = cluster::HittaBandTrafik(frekvens);
    SpotBand = träff.band;
    SpotTrafiksätt = träff.trafiksätt.toString();
    if (cluster::ÄrAvvisad(träff, SpotFörval)) SpotAvvisad = true;
}

void KollaSpotLand() {
    if (SpotPrefix.isEmpty() || SpotPrefix == QLatin1String("?")) return;
    platform::Recordset& prefix = db().rsPrefix;
    prefix.Filter(store::PrefixFilter(SpotPrefix));
    const QString sök = QStringLiteral("Kod = ") + prefix.Field(QStringLiteral("KOD")).text();
    platform::Recordset& status = db().rsTESTDXCC;
    status.Filter(QString());
    status.Find(sök);
    if (status.IsEOF()) return;
    TaUtBandTrafiksätt(platform::ToInt32(platform::ToNumber(QString(SpotFrekvens).remove(QLatin1Char(',')))));
    if (SpotAvvisad) return;
    QString dxcc = prefix.Field(QStringLiteral("DXCC")).text();
    QString band =
        QString::number(SpotBand) + (SpotBand == 70 ? QStringLiteral(" CM") : QStringLiteral(" M"));
    QString trafiksätt = QStringLiteral("DXCluster");
    KontrolleraNyttLand(dxcc, band, trafiksätt);
}
