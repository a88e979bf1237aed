#include "cluster/DXClusterModul.h"

#include "cluster/DXSpottModul.h"
#include "cluster/Spottolk.h"
#include "cluster/frDXCluster.h"
#include "cluster/frDXSpott.h"
#include "contest/frTest.h"
#include "platform/application.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/text.h"
#include "platform/windows.h"
#include "store/Databaser.h"
#include "store/Filtervakt.h"
#include "store/Landsökning.h"
#include "store/PrefixSök.h"

namespace {

const QString tidsordning = QStringLiteral("Datum, Tid");

/// Does one step. A step that fails changes nothing more, and the next one goes on from there: text from the
/// network must not end the program.
template <class Steg>
void Prova(Steg steg) {
    try {
        steg();
    } catch (const platform::Failure&) {
        // The step is left undone.
    }
}

/// @throws platform::Failure if the display form holds no whole number
int SpotFrekvensTal() { return platform::ToInt32(platform::ToNumber(QString(SpotFrekvens).remove(u','))); }

/// What a serial modem has sent since the last time, shown in the window as it is taken.
QString LäsModem() {
    QString text;
    Prova([&text] {
        frDXCluster& f = frDXCluster::instans();
        f.mscCluster->InputLen(0);
        if (f.mscCluster->InBufferCount() == 0) return;
        text = f.mscCluster->Input();
        f.VisaText(text);
    });
    return text;
}

/// Whether the store has the spot at hand from this very minute already. A call that no filter can hold, one
/// with an apostrophe, is held against all that the store shows: it counts as a repeat as soon as that is any
/// spot.
bool ÄrUpprepad() {
    platform::Recordset& logg = db().rsDXSpottLogg;
    qsizetype antal = 0;
    Prova([&] { logg.Filter(cluster::UpprepningsFilter(SpotSignal, SpotDatum, SpotFrekvens, SpotTid)); });
    Prova([&] { antal = logg.RecordCount(); });
    Prova([&] { logg.Filter(QString()); });
    return antal > 0;
}

/// One announcement of the text.
/// @param senasteRad becomes the row that it has been given, whether or not it is shown there
/// @return false if there is none left, or if the one that was shown had no line end
bool TaNästaSpott(cluster::Arbetstext& arbete, std::optional<int>& senasteRad) {
    RensaSpotFält();
    SpotAvvisad = false;
    cluster::Annons annons;
    if (!arbete.LäsHuvud(annons)) return false;
    SpotFrekvens = annons.frekvens;
    SpotSignal = annons.signal;
    const QDateTime nu = platform::Now();
    SpotTid = nu.time().toString(QStringLiteral("HH:mm:ss"));
    SpotDatum = nu.date().toString(QStringLiteral("yyyy-MM-dd"));
    if (ÄrUpprepad()) return true;
    const bool harRadslut = arbete.LäsNotering(annons);
    if (harRadslut) {
        SpotNotering = annons.notering;
        DelaNotering();
    }
    if (SpotSignal.isEmpty()) return true;
    frDXSpott& f = frDXSpott::instans();
    f.GePlats(SpotRad);
    senasteRad = SpotRad;
    Prova([] { KollaSpotPrefix(); });
    Prova([] { TaUtBandTrafiksätt(SpotFrekvensTal()); });
    Prova([] { KollaSpotLand(); });
    if (SpotAvvisad) return true;
    f.SkrivRad(SpotRad, {annons.spotter, SpotSignal, SpotFrekvens, SpotTrafiksätt, QString(),
                         QString::number(SpotBand)});
    Prova([] { SparaDXSpott(); });
    frTest::instans().txtInfo->moveCursor(QTextCursor::End);
    constexpr int sistaRad = 40;
    if (SpotRad > sistaRad) FlyttaSpotRader();
    ++SpotRad;
    return harRadslut;
}

} // namespace

void TolkaDXClusterData() {
    platform::DoEvents();
    QString text;
    if (kluster.ClusterTyp == 0) text = LäsModem();
    if (kluster.ClusterTyp == 1) text = kluster.ClusterBuffert;
    cluster::Arbetstext arbete(text);
    std::optional<int> senasteRad;
    bool fler = true;
    while (fler && !arbete.Kvar().isEmpty()) fler = TaNästaSpott(arbete, senasteRad);
    // Once for all of them: each change of the current row has the grid laid out anew.
    if (senasteRad) frDXSpott::instans().VisaSenaste(*senasteRad);
    if (platform::SingleWindow<frDXCluster>::exists()) frDXCluster::instans().KortaText();
    kluster.ClusterBuffert.clear();
}

void FörberedSpottlogg() {
    Prova([] { db().rsDXSpottLogg.Prepare(cluster::UpprepningsFilter({}, {}, {}, {}), tidsordning); });
}

void RensaSpotFält() {
    for (QString* fält : {&SpotDatum, &SpotTid, &SpotSignal, &SpotFrekvens, &SpotTrafiksätt, &SpotPrefix,
                          &SpotNotering, &SpotTidRapport})
        fält->clear();
}

void DelaNotering() {
    const cluster::Notering delad = cluster::DelaNotering(SpotNotering);
    SpotNotering = delad.text;
    SpotTidRapport = delad.tid;
}

void SparaDXSpott() {
    platform::Recordset& logg = db().rsDXSpottLogg;
    try {
        logg.AddNew();
        logg.Field(QStringLiteral("Frekvens"), SpotFrekvens);
        logg.Field(QStringLiteral("Signal"), SpotSignal);
        logg.Field(QStringLiteral("Datum"), SpotDatum);
        logg.Field(QStringLiteral("Tid"), SpotTid);
        logg.Field(QStringLiteral("Notering"), SpotNotering);
        logg.Field(QStringLiteral("DXBand"), SpotBand);
        logg.Field(QStringLiteral("Trafiksätt"), SpotTrafiksätt);
        logg.Field(QStringLiteral("Spott Tid"), SpotTidRapport);
        logg.Field(QStringLiteral("Prefix"), SpotPrefix);
        logg.Update();
    } catch (const platform::Failure&) {
        // A spot that could not be written must not go into the store with the next one.
        if (logg.IsOpen()) logg.CancelUpdate();
        throw;
    }
    logg.Sort(tidsordning);
    if (!logg.IsEOF()) logg.MoveLast();
}

void FlyttaSpotRader() {
    constexpr int flyttade = 29;
    constexpr int bort = 11;
    platform::FlexGrid& rutnät = *frDXSpott::instans().fgDXSpott;
    for (int rad = 1; rad <= flyttade; ++rad) rutnät.CopyRow(rad + bort, rad);
    rutnät.setRowCount(flyttade + 2);
    SpotRad = flyttade + 1;
}

void TaUtBandTrafiksätt(int frekvens) {
    try {
        const cluster::BandTrafik träff = cluster::HittaBandTrafik(frekvens);
        SpotBand = träff.band;
        SpotTrafiksätt = träff.trafiksätt.toString();
        if (cluster::ÄrAvvisad(träff, SpotFörval)) SpotAvvisad = true;
    } catch (const platform::Failure&) {
        // Cannot come while the plan is a table; the words are those that operators have been told of.
        platform::MsgBox(
            QStringLiteral("Ett fel har påträffats när befintligt Band och Trafiksätt skulle kollas!"),
            QStringLiteral("TaUtBandTrafiksätt"));
    }
}

void KollaSpotLand() {
    if (SpotPrefix.isEmpty() || SpotPrefix == QLatin1String("?")) return;
    platform::Recordset& prefix = db().rsPrefix;
    const store::Filtervakt landPåFormuläret(prefix);
    prefix.Filter(store::PrefixFilter(SpotPrefix));
    const QString sök = QStringLiteral("Kod = ") + prefix.Field(QStringLiteral("KOD")).text();
    platform::Recordset& status = db().rsTESTDXCC;
    status.Filter(QString());
    status.Find(sök);
    if (status.IsEOF()) return;
    TaUtBandTrafiksätt(SpotFrekvensTal());
    if (SpotAvvisad) return;
    QString dxcc = prefix.Field(QStringLiteral("DXCC")).text();
    QString band =
        QString::number(SpotBand) + (SpotBand == 70 ? QStringLiteral(" CM") : QStringLiteral(" M"));
    // Who asks stands where others have a mode; the answer is dropped either way.
    QString trafiksätt = QStringLiteral("DXCluster");
    KontrolleraNyttLand(dxcc, band, trafiksätt);
}
