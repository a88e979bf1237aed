#include "store/LokatorModul.h"

#include "contest/frTest.h"
#include "contest/frTestInst.h"
#include "platform/dialogs.h"
#include "store/Databaser.h"
#include "store/Dubblett.h"
#include "store/Landsökning.h"
#include "store/Lokator.h"
#include "store/SparaModul.h"

namespace {

QString LandLokator() {
    const platform::Recordset& prefix = db().rsPrefix;
    if (!prefix.IsOpen() || prefix.IsBOF() || prefix.IsEOF()) return {};
    return prefix.Field(QStringLiteral("Lokator")).text();
}

} // namespace

QString EgenTestLokator() { return frTestInst::instans().txtTestLokator->text(); }

void VisaRiktningAvstånd(const QString& Från, const QString& Till) {
    frTest& f = frTest::instans();
    f.avståndFör = f.txtDiplom->text();
    const auto mål = store::VäljMål(f.lblTyp->text(), f.txtDiplom->text(), Till, LandLokator());
    const auto väg = mål ? store::RiktningAvstånd(Från, *mål) : std::nullopt;
    if (!väg) {
        platform::MsgBox(
            QStringLiteral("Problem att räkna ut riktning och avstånd. Kontrollera att din lokator "
                           "är rätt angiven!"),
            QStringLiteral("VisaRiktningAvstånd"));
        return;
    }
    f.lblAvstånd->setText(store::AvståndText(*väg));
    f.lblRiktning->setText(store::RiktningText(*väg));
    for (QLabel* etikett : {f.lblAvstånd, f.lblRiktning}) FärgaEtikett(etikett, true);
}

void KollaLokator() {
    frTest& f = frTest::instans();
    if (f.txtSignal->text().isEmpty()) return;
    try {
        platform::Recordset& minne = db().rsLokator;
        minne.Filter(store::SignalFilter(f.txtSignal->text()));
        if (minne.RecordCount() == 1) {
            const QString lokator = minne.Field(QStringLiteral("Lokator")).text();
            f.txtDiplom->setText(lokator);
            f.txtRutor->setText(lokator);
        }
        minne.Filter(QString());
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Fel har intäffat vid läsning av Lokator Databas."),
                         QStringLiteral("KollaLokator"));
    }
}

void SparaLokator() {
    frTest& f = frTest::instans();
    const QString signal = f.txtSignal->text();
    const QString lokator = f.txtDiplom->text();
    if (signal.isEmpty() || lokator.isEmpty()) return;
    platform::Recordset& minne = db().rsLokator;
    try {
        minne.Filter(store::SignalFilter(signal));
        if (minne.RecordCount() == 0) {
            minne.AddNew();
            minne.Field(QStringLiteral("Signal"), signal);
        }
        minne.Field(QStringLiteral("Lokator"), lokator);
        minne.Update();
        minne.Filter(QString());
    } catch (const platform::Failure&) {
        if (minne.IsOpen()) minne.CancelUpdate();
        platform::MsgBox(QStringLiteral("Fel har intäffat vid sparning av Test Lokator"),
                         QStringLiteral("SparaTestLokator"));
    }
}

void UppdateraLängstaQSO() {
    platform::Recordset& logg = db().rsTESTQSO;
    if (!logg.IsOpen() || logg.RecordCount() == 0) return; // a first contact that was refused leaves none
    if (logg.EditPending()) return; // it could not be written and is none of the log yet
    logg.Sort(QStringLiteral("Poäng DESC"));
    const platform::Value poäng = logg.Field(QStringLiteral("Poäng"));
    const QString text = store::LängstaQSOText(logg.Field(QStringLiteral("Signal")).text(),
                                               logg.Field(QStringLiteral("Multiplar")).text(), poäng.text());
    frTest::instans().lblLängstaQSO->setText(text);
    SkrivINFO([&](platform::Recordset& info) {
        info.Field(QStringLiteral("QSOLängd"), poäng);
        info.Field(QStringLiteral("LängstaQSOSträng"), text);
    });
    logg.Sort(QStringLiteral("Datum, Tid"));
}
