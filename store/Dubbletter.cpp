#include "store/Dubbletter.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "contest/frVarning.h"
#include "store/Databaser.h"
#include "store/PrefixSök.h"
#include "store/frEditorTest.h"

namespace {

void Varna() {
    if (!delat.VarningUppe) frVarning::instans().VisaModalt();
}

void MarkeraDubblett() {
    frEditorTest::instans().Notera(QStringLiteral("DUBBLETT"));
    frTest::instans().txtDubblett->setText(QStringLiteral("D"));
    delat.DubblettFlagga = true;
    Varna();
}

/// The form is read anew each time: a warning that was accepted has cleared it.
void KollaSammaBand() {
    frTest& f = frTest::instans();
    db().rsTidigare.Filter(store::SignalBandFilter(f.txtSignal->text(), f.cmbBand->Text()));
    f.Initiera_dgTidigareQSO();
    if (db().rsTidigare.RecordCount() > 0) MarkeraDubblett();
}

} // namespace

void VisaTestQSO() {
    frTest& f = frTest::instans();
    const QString signal = f.txtSignal->text();
    if (signal.isEmpty() || !f.HarLogg()) return;
    db().rsTidigare.Filter(store::SignalFilter(signal));
    f.frmTQSO->setTitle(store::TidigareRubrik(signal, db().rsTidigare.RecordCount()));
    f.Initiera_dgTidigareQSO();
}

void KollaTidigare() {
    frTest& f = frTest::instans();
    if (!f.HarLogg()) return;
    delat.DubblettFlagga = false;
    const store::DubblettRegel regel = contest::TestFör(delat.AktuelltTest).dubblett;
    if (regel.helaLoggen && db().rsTidigare.RecordCount() > 0) MarkeraDubblett();
    if (regel.sammaBand) KollaSammaBand();
    if (regel.ejNordiska) {
        if (store::ÄrNordisk(f.lblDXCC->text(), f.lblKont->text())) Varna();
        KollaSammaBand();
    }
    db().rsDiplom.Filter(QString());
}
