#include "store/Landsökning.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "store/Databaser.h"
#include "store/Filter.h"
#include "store/Filtervakt.h"
#include "store/LokatorModul.h"
#include "store/PrefixSök.h"

#include <algorithm>
#include <array>

namespace {

QString Prefixfält(const char* namn) { return db().rsPrefix.Field(QString::fromUtf8(namn)).text(); }

qsizetype AntalPrefix(const QString& nyckel) {
    platform::Recordset& prefix = db().rsPrefix;
    prefix.Filter(store::PrefixFilter(nyckel));
    return prefix.RecordCount();
}

/// Puts rsPrefix on the one row of the call. False leaves it filtered on what did not match.
bool HittaPrefix(const QString& anrop) { return store::SökEntydigtPrefix(anrop, AntalPrefix).has_value(); }

/// The key that a contact being edited was stored with, empty for a new one.
QString LagratPrefix() {
    const platform::Recordset& logg = db().rsTESTQSO;
    if (!delat.RedigeraQSO || !logg.IsOpen() || logg.IsBOF() || logg.IsEOF()) return {};
    return logg.Field(QStringLiteral("Prefix")).text();
}

constexpr std::array bandkolumner = {u"160 M", u"80 M", u"40 M", u"30 M", u"20 M", u"17 M",
                                     u"15 M",  u"12 M", u"10 M", u"6 M",  u"2 M",  u"70 CM"};
constexpr std::array trafikkolumner = {u"RTTY", u"CW", u"SSB", u"AM", u"FM"};

template <class Kolumner>
bool AllaTomma(const platform::Recordset& rad, const Kolumner& kolumner) {
    return std::all_of(kolumner.begin(), kolumner.end(), [&rad](const char16_t* namn) {
        return rad.Field(QString::fromUtf16(namn)).text().isEmpty();
    });
}

} // namespace

void FärgaEtikett(QLabel* etikett, bool blå) {
    QPalette färger = etikett->parentWidget()->palette();
    if (blå) färger.setColor(QPalette::WindowText, QColor(0, 0, 255));
    etikett->setPalette(färger);
}

void VisaTestDXCC() {
    platform::Recordset& prefix = db().rsPrefix;
    if (!prefix.IsOpen()) return; // the close menu has closed it
    frTest& f = frTest::instans();
    prefix.Filter(QString());
    const QString lagrat = LagratPrefix();
    if (!(lagrat.isEmpty() ? HittaPrefix(f.txtSignal->text()) : AntalPrefix(lagrat) == 1)) return;
    f.lblLand->setText(Prefixfält("Land"));
    f.lblDXCC->setText(Prefixfält("DXCC"));
    f.lblKont->setText(Prefixfält("Kontinent"));
    for (QLabel* etikett : {f.lblLand, f.lblDXCC, f.lblKont, f.lblTid}) FärgaEtikett(etikett, true);
    f.landFärgat = true;
    f.txtITUM->setText(Prefixfält("ITU"));
    f.txtZONM->setText(Prefixfält("Zon"));
    f.txtPrefix->setText(Prefixfält("Prefix"));
    f.txtDXCCNR->setText(Prefixfält("Kod"));
    VisaRiktningAvstånd(EgenTestLokator(), Prefixfält("Lokator"));
    f.Initiera_fgTestData2();
}

void KollaDXCC() {
    frTest& f = frTest::instans();
    if (!contest::TestFör(delat.AktuelltTest).kollaDXCC || !f.HarLogg()) return;
    if (f.txtDXCCNR->text().isEmpty()) return;
    platform::Recordset& körda = db().rsDXCCBand;
    körda.Filter(store::DXCCNrFilter(f.txtDXCCNR->text()));
    if (körda.RecordCount() == 0) {
        f.lblNyttLand->show();
        f.txtNDXCC->setText(QStringLiteral("N"));
    }
    körda.Filter(QString());
}

void KollaDiplom() {
    frTest& f = frTest::instans();
    if (!contest::TestFör(delat.AktuelltTest).kollaDistrikt || !f.HarLogg()) return;
    const auto filter = store::DistriktFilter(f.lblDXCC->text(), f.txtPrefix->text());
    if (!filter) return;
    platform::Recordset& distrikt = db().rsDistrikt;
    distrikt.Filter(*filter);
    if (distrikt.RecordCount() == 0) f.lblDistrikt->show();
    distrikt.Filter(QString());
}

void LäggTillKördaDXCC(QString& DXCC, QString& Trafiksätt, QString& Band) {
    try {
        platform::Recordset& status = db().rsTESTDXCC;
        if (Trafiksätt.startsWith(QLatin1String("PSK31"))) Trafiksätt = QStringLiteral("PSK31");
        status.Filter(store::Lika(u"DXCC", DXCC));
        if (status.RecordCount() != 1) return;
        status.Field(Trafiksätt, QStringLiteral("W"));
        status.Field(Band, QStringLiteral("W"));
        status.Update();
    } catch (const platform::Failure&) {
        // Half a mark must not be written along with the next one.
        if (db().rsTESTDXCC.IsOpen()) db().rsTESTDXCC.CancelUpdate();
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid sparande av körda dxcc."),
                         QStringLiteral("LäggTillKördaDXCC"));
    }
}

void KollaSpotPrefix() {
    if (SpotSignal.isEmpty()) return;
    const store::Filtervakt landPåFormuläret(db().rsPrefix);
    SpotPrefix = HittaPrefix(SpotSignal) ? Prefixfält("Prefix") : QStringLiteral("?");
}

void KontrolleraNyttLand(QString& DXCC, QString& Band, QString& Trafiksätt) {
    if (delat.RedigeraQSO) return;
    if (Trafiksätt.startsWith(QLatin1String("PSK"))) Trafiksätt = QStringLiteral("PSK31");
    while (Band.startsWith(QLatin1Char(' '))) Band.remove(0, 1);
    platform::Recordset& status = db().rsTESTDXCC;
    status.MoveFirst();
    status.Find(store::Lika(u"DXCC", DXCC));
    if (status.IsEOF()) return;
    // The two answers are worked out and dropped: what happens to a spot is settled by its filter alone.
    (void)(AllaTomma(status, trafikkolumner) && AllaTomma(status, bandkolumner));
}
