#include "store/SparaModul.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "store/Databaser.h"
#include "store/SparaKolumner.h"
#include "store/frEditorTest.h"

namespace {

using platform::Recordset;

store::QSOFormulär LäsFormulär() {
    const frTest& f = frTest::instans();
    return {.txtDatum = f.txtDatum->text(),
            .txtUTCTid = f.txtUTCTid->text(),
            .txtSignal = f.txtSignal->text(),
            .txtFrekvens = f.txtFrekvens->text(),
            .cmbTrafik = f.cmbTrafik->Text(),
            .cmbBand = f.cmbBand->Text(),
            .txtRSTM = f.txtRSTM->text(),
            .txtRSTS = f.txtRSTS->text(),
            .txtLöpnrM = f.txtLöpnrM->text(),
            .txtLöpnrS = f.txtLöpnrS->text(),
            .txtNamn = f.txtNamn->text(),
            .txtITUM = f.txtITUM->text(),
            .txtZONM = f.txtZONM->text(),
            .txtDiplom = f.txtDiplom->text(),
            .txtLokator = f.txtLokator->text(),
            .lblTyp = f.lblTyp->text(),
            .lblDXCC = f.lblDXCC->text(),
            .lblKont = f.lblKont->text(),
            .lblLand = f.lblLand->text(),
            .txtNotering = frEditorTest::instans().txtNotering->text(),
            .txtPrefix = f.txtPrefix->text(),
            .txtDXCCNR = f.txtDXCCNR->text(),
            .lblQSOPoäng = f.lblQSOPoäng->text(),
            .txtNDXCC = f.txtNDXCC->text(),
            .txtNRUTA = f.txtNRUTA->text(),
            .txtDubblett = f.txtDubblett->text()};
}

/// How often a change of INFO is made again because another station has written there in between.
constexpr int antalFörsök = 20;

void LäsOmINFO() {
    Recordset& info = db().rsINFO;
    info.CancelUpdate();
    info.Requery();
    if (!info.IsBOF()) info.MoveFirst();
}

/// The contact and the next serial in one transaction, so that no crash leaves one without the other. The
/// drawn number was shown and sent: another station's save moves the counter on, not back.
void SkrivMedLöpnr() {
    SkrivINFO(
        [](Recordset& info) {
            info.Field(QStringLiteral("LöpNr"), info.Field(QStringLiteral("LöpNr")).integer() + 1);
        },
        &db().rsTESTQSO);
}

/// @return false if mandatory data is missing; nothing has been changed then.
bool BörjaRad(store::Sparare sparare, const store::QSOFormulär& formulär) {
    Recordset& logg = db().rsTESTQSO;
    if (delat.RedigeraQSO) {
        logg.SetBookmark(delat.RedigeradBookmark);
        return true;
    }
    if (store::SaknarData(sparare, formulär)) {
        platform::MsgBox(
            QStringLiteral("Saknar viktig data för att spara QSO! Var god kontrollera dina uppgifter."),
            QStringLiteral("SparaQSO"));
        return false;
    }
    logg.AddNew();
    frTest::instans().TömTESTQSO();
    return true;
}

void SparaQSO(store::Sparare sparare) {
    Databaser& d = db();
    frTest& f = frTest::instans();
    const store::QSOFormulär formulär = LäsFormulär();
    if (!BörjaRad(sparare, formulär)) return;
    if (sparare == store::Sparare::SAC) d.rsDiplom.Filter(QString());
    for (const auto& [kolumn, värde] : store::Kolumner(sparare, formulär, delat.RedigeraQSO))
        d.rsTESTQSO.Field(kolumn, värde);
    // A shared counter would belong to the server; no station is ever connected to one.
    const bool löpnr = !delat.RedigeraQSO && store::RäknarLöpnr(sparare);
    const bool serverRäknar = löpnr && sparare == store::Sparare::MT && delat.NätverkAnsluten;
    if (löpnr && !serverRäknar)
        SkrivMedLöpnr();
    else
        d.rsTESTQSO.Update();
    d.rsTESTQSO.Sort(QStringLiteral("Datum, Tid"));
    if (löpnr) {
        const QString nästa = d.rsINFO.Field(QStringLiteral("LöpNr")).text();
        f.txtLöpnrS->setText(serverRäknar ? delat.NätverkMapp + nästa : nästa);
    }
    f.UppdateraTest();
    f.UppdateraBand();
}

} // namespace

void SparaTestQSO(int Test) {
    const auto sparare = contest::TestFör(Test).sparare;
    if (!sparare) return; // contests 11, 12 and 13 store nothing, on purpose
    try {
        SparaQSO(*sparare);
    } catch (const platform::Failure&) {
        platform::MsgBox(store::SparaFelText(*sparare).toString(), QStringLiteral("SparaQSO"));
    }
}

void RequeryFrågor() {
    Databaser& d = db();
    const bool statTest = contest::ÄrStatTest(delat.AktuelltTest);
    platform::RequeryTogether({&d.rsTESTQSO, &d.rsDXCCBand, statTest ? &d.rsState : &d.rsSignal,
                               statTest ? &d.rsProvince : &d.rsDXCC, &d.rsDiplom, &d.rsTidigare, &d.rsITU,
                               &d.rsZon, &d.rsMultiplar, &d.rsPoäng, &d.rsDistrikt, &d.rsRutor});
}

void SkrivINFO(const std::function<void(Recordset& info)>& ändra, Recordset* med) {
    Recordset& info = db().rsINFO;
    for (int försök = 1;; ++försök) {
        LäsOmINFO();
        ändra(info);
        try {
            if (med)
                platform::UpdateTogether({med, &info});
            else
                info.Update();
            return;
        } catch (const platform::Failure&) {
            const bool annanStationHann = !info.EditPending() && (!med || med->EditPending());
            info.CancelUpdate();
            if (!annanStationHann || försök == antalFörsök) throw;
        }
    }
}
