#include "store/RäknaModul.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "store/Databaser.h"
#include "store/Poäng.h"

namespace {

/// Rows of a distinct cursor under a filter, which stays; 0 without asking when the rule has none.
qsizetype Antal(platform::Recordset& markör, const std::optional<QString>& filter) {
    if (!filter) return 0;
    markör.Filter(*filter);
    return markör.RecordCount();
}

void Visa(const store::Bedömning& bedömning) {
    frTest& f = frTest::instans();
    if (bedömning.nyRuta) {
        f.lblNyRuta->show();
        f.txtNRUTA->setText(QStringLiteral("N"));
    }
    if (bedömning.döljNyttLand) f.lblNyttLand->hide();
    if (bedömning.nyMultipel) f.lblMultipel->show();
    f.lblQSOPoäng->setNum(bedömning.poäng);
}

void KollaPoängKm() {
    const frTest& f = frTest::instans();
    const QString diplom = f.txtDiplom->text();
    Visa(store::BedömKm({.diplom = diplom,
                         .lokator = f.txtLokator->text(),
                         .avstånd = f.lblAvstånd->text(),
                         .antalMultiplar = Antal(db().rsMultiplar, store::KmFilter(diplom)),
                         .redigera = delat.RedigeraQSO}));
}

void KollaPoängMT() {
    const frTest& f = frTest::instans();
    const QString diplom = f.txtDiplom->text();
    Visa(store::BedömMT({.diplom = diplom,
                         .lokator = f.txtLokator->text(),
                         .antalDiplom = Antal(db().rsDiplom, store::MTFilter(diplom, f.cmbBand->Text())),
                         .antalMultiplar = db().rsMultiplar.RecordCount(),
                         .redigera = delat.RedigeraQSO}));
}

void KollaPoängSAC() {
    const frTest& f = frTest::instans();
    const QString dxcc = f.lblDXCC->text();
    const QString kontinent = f.lblKont->text();
    const QString band = f.cmbBand->Text();
    Visa(store::BedömSAC({.dxcc = dxcc,
                          .kontinent = kontinent,
                          .band = band,
                          .antalDiplom = Antal(db().rsDiplom, store::SACFilter(dxcc, kontinent, band))}));
}

} // namespace

void KollaPoäng(int /*Test*/) {
    if (!frTest::instans().HarLogg()) return;
    switch (contest::TestFör(delat.AktuelltTest).poäng) {
    case store::PoängRegel::Km: KollaPoängKm(); break;
    case store::PoängRegel::MT: KollaPoängMT(); break;
    case store::PoängRegel::SAC: KollaPoängSAC(); break;
    case store::PoängRegel::Ingen: break;
    }
    db().rsMultiplar.Filter(QString());
    db().rsDiplom.Filter(QString());
    frTest::instans().Initiera_dgMulti(); // the newest in view again
}

void RäknaPoäng(int Test) {
    const Databaser& d = db();
    if (!d.rsPoäng.IsOpen()) return; // no log: the board keeps what it shows
    frTest& f = frTest::instans();
    delat.TotalPoäng = 0;
    delat.TotalQSOPoäng = 0;
    const store::PoängRegel regel = contest::TestFör(Test).poäng;
    const bool räknas = regel != store::PoängRegel::Ingen;
    const auto ställning = store::Räkna(regel,
                                        {.sumPoäng = räknas ? d.rsPoäng.Sum(QStringLiteral("Poäng")) : 0,
                                         .poängRader = d.rsPoäng.RecordCount(),
                                         .diplom = d.rsDiplom.RecordCount(),
                                         .multiplar = d.rsMultiplar.RecordCount()},
                                        delat.RutPoäng);
    if (ställning) {
        delat.TotalPoäng = ställning->totalPoäng;
        delat.TotalQSOPoäng = ställning->totalQSOPoäng;
        if (regel == store::PoängRegel::Km && d.rsPoäng.RecordCount() > 0)
            delat.TotalRutPoäng = ställning->multiplar;
        f.lblMultiplar->setNum(ställning->multiplar);
        f.lblDiplom->setNum(ställning->diplom);
        f.lblTotalQSOPoäng->setNum(ställning->totalQSOPoäng);
    }
    f.lblTotalPoäng->setNum(delat.TotalPoäng);
    f.lblQSOPoäng->setNum(delat.TotalQSOPoäng);
}
