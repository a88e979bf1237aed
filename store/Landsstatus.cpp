#include "store/Landsstatus.h"

#include "cluster/frDXCluster.h"
#include "platform/dialogs.h"
#include "store/Databaser.h"
#include "store/Filter.h"

#include <array>

namespace {

constexpr std::array statuskolumner = {u"RTTY",  u"PSK",  u"SSTV", u"CW",   u"SSB",  u"AM",   u"FM",
                                       u"160 M", u"80 M", u"40 M", u"30 M", u"20 M", u"17 M", u"15 M",
                                       u"12 M",  u"10 M", u"6 M",  u"2 M",  u"70 CM"};

/// The modes that are counted as PSK31.
void TillStatuskolumn(QString& trafiksätt) {
    if (trafiksätt == u"BPSK" || trafiksätt == u"PSK63") trafiksätt = QStringLiteral("PSK31");
}

/// Keeps the cluster from being polled as long as it lives.
class KlusterPaus {
public:
    KlusterPaus() { frDXCluster::instans().TimerDXCluster->Interval(0); }
    ~KlusterPaus() { frDXCluster::instans().TimerDXCluster->Interval(frDXCluster::pollning); }
    KlusterPaus(const KlusterPaus&) = delete;
    KlusterPaus& operator=(const KlusterPaus&) = delete;
};

/// Withdraws the status in one column unless a contact of the country still has it.
/// @param land filter for the contacts with the country
/// @param fält where the log keeps what the column stands for
/// @param kolumn a mode or band; a contact without one gave no status
void Pröva(const QString& land, QStringView fält, const QString& kolumn, auto taBort) {
    if (kolumn.isEmpty()) return;
    platform::Recordset& logg = db().rsTESTQSO;
    platform::Recordset& status = db().rsTESTDXCC;
    const QString båda = land + QStringLiteral(" AND ") + store::Lika(fält, kolumn);
    logg.Filter(båda);
    if (logg.RecordCount() == 0) return taBort();
    if (status.Field(kolumn).text() != u"C") return;
    // Confirmations are kept nowhere in the log, and nothing marks a country as confirmed.
    logg.Filter(båda + QStringLiteral(" AND [QSL M] <> 'N'"));
    if (logg.RecordCount() == 0) status.Field(kolumn, QStringLiteral("W"));
}

/// After a failure: half of a change must not go with the next one.
void LåtBliStatus() {
    if (db().rsTESTDXCC.IsOpen()) db().rsTESTDXCC.CancelUpdate();
}

} // namespace

void Uppdatera_DXCC(QString& DXCC, QString& Trafiksätt, QString& Band) {
    const KlusterPaus paus;
    try {
        platform::Recordset& status = db().rsTESTDXCC;
        TillStatuskolumn(Trafiksätt);
        status.Filter(store::Lika(u"DXCC", DXCC));
        const QString land = store::Lika(u"[DXCC Nr]", status.Field(QStringLiteral("Kod")).text());
        QString ingen;
        db().rsTESTQSO.Filter(land);
        if (db().rsTESTQSO.RecordCount() == 0) TaBortKördaDXCC(DXCC, ingen, ingen);
        Pröva(land, u"Trafiksätt", Trafiksätt, [&] { TaBortKördaDXCC(DXCC, Trafiksätt, ingen); });
        Pröva(land, u"[Band ]", Band, [&] { TaBortKördaDXCC(DXCC, ingen, Band); });
        status.Update();
    } catch (const platform::Failure&) {
        LåtBliStatus();
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid uppdatering av körda DXCC."),
                         QStringLiteral("UppdateraKördaDXCC"));
    }
}

void TaBortKördaDXCC(QString& DXCC, QString& Trafiksätt, QString& Band) {
    try {
        platform::Recordset& status = db().rsTESTDXCC;
        TillStatuskolumn(Trafiksätt);
        status.Filter(store::Lika(u"DXCC", DXCC));
        for (const QString* kolumn : {&Trafiksätt, &Band})
            if (!kolumn->isEmpty()) status.Field(*kolumn, QString());
        if (Trafiksätt.isEmpty() && Band.isEmpty())
            for (const char16_t* kolumn : statuskolumner) status.Field(QString::fromUtf16(kolumn), QString());
        status.Update();
    } catch (const platform::Failure&) {
        LåtBliStatus();
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid radering av körda dxcc."),
                         QStringLiteral("TaBortKördaDXCC"));
    }
}
