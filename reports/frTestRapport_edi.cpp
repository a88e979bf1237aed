#include "reports/frTestRapport_edi.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "reports/Inlämning.h"
#include "reports/Rapportfil.h"
#include "reports/Titlar.h"
#include "store/Databaser.h"

namespace {

/// Row of the band list that a contest begins with.
int Bandrad(int test) {
    if (test == 7 || test == 8) return 4;
    return test >= 0 && test <= 2 ? 3 - test : 0;
}

} // namespace

frTestRapport_edi::frTestRapport_edi()
    : Rapportfönster("frTestRapport_edi", QStringLiteral("Rapport (EDI)")) {
    txtTestRapport = NyttFält("txtTestRapport", "Test :", 0);
    txtDatum = NyttFält("txtDatum", "Test Datum :", 0);
    txtTestSignal = NyttFält("txtTestSignal", "Test Signal :", 0);
    txtTestLokator = NyttFält("txtTestLokator", "Test Lokator :", 0);
    txtKlubb = NyttFält("txtKlubb", "Klubb :", 0);
    cmbOp = NyttVal("cmbOp", "Operatör sätt :", 0);
    cmbBand = NyttVal("cmbBand", "Band :", 0);
    txtMånad = NyttFält("txtMånad", "Månad :", 0);
    txtOPT1 = NyttFält("txtOPT1", "Operatör 1 :", 1);
    txtOPT2 = NyttFält("txtOPT2", "Operatör 2 :", 1);
    txtRigTX = NyttFält("txtRigTX", "Rig TX :", 1);
    txtRigRX = NyttFält("txtRigRX", "Rig RX :", 1);
    txtEffekt = NyttFält("txtEffekt", "Effekt :", 1);
    txtAntenn = NyttFält("txtAntenn", "Antenn :", 1);
    txtAntennhöjd = NyttFält("txtAntennhöjd", "Antenn höjd  ( över L ;  H  ) :", 1);
    txtNotering = NyttFält("txtNotering", "Notering :", 1);
    cmdSkapa = NyKnapp("cmdSkapa", "Skapa");
    cmdSkicka = NyKnapp("cmdSkicka", "Skicka...");
    cmdLäsRapport = NyKnapp("cmdLäsRapport", "Läs Rapport...");
    cmdStäng = NyStängknapp();
    for (Fält* fält : {txtKlubb, txtRigRX, txtRigTX, txtTestLokator, txtTestSignal})
        fält->OnKeyPress(platform::UpperCase);
    connect(cmdSkapa, &QPushButton::clicked, this, [this] { EDI_Rapport(); });
    connect(cmdSkicka, &QPushButton::clicked, this,
            [] { SkickaTill(reports::EdiMottagare(delat.AktuelltTest)); });
    connect(cmdLäsRapport, &QPushButton::clicked, this, [this] { ÖppnaEDIRapport(); });
}

frTestRapport_edi& frTestRapport_edi::instans() { return platform::SingleWindow<frTestRapport_edi>::get(); }

void frTestRapport_edi::Ladda() {
    const frTestInst& station = Station();
    txtTestRapport->setText(reports::KortTitel(delat.AktuelltTest));
    txtDatum->setText(station.txtTestDatum->text());
    txtTestSignal->setText(station.txtSignal->text());
    txtTestLokator->setText(station.txtTestLokator->text());
    txtKlubb->setText(station.txtKlubbSignal->text());
    for (Fält* fält : {txtRigTX, txtRigRX}) fält->setText(station.txtRig->text());
    txtAntenn->setText(station.txtAntenn->text());
    txtAntennhöjd->setText(station.txtHöjdLand->text() + u';' + station.txtHöjdHav->text());
    for (Fält* fält : {txtOPT1, txtOPT2, txtEffekt, txtMånad, txtNotering}) fält->clear();
    Initiera_Combo();
    txtTestRapport->setFocus();
}

void frTestRapport_edi::Initiera_Combo() {
    FyllRapportlista(*cmbOp, {"Single Operator", "Multi Operator"});
    FyllRapportlista(*cmbBand, {"28 MHz", "50 MHz", "144 MHz", "433 MHz", "80/40 M"});
    cmbBand->setCurrentIndex(Bandrad(delat.AktuelltTest));
}

reports::EdiUppgifter frTestRapport_edi::Uppgifter() const {
    const frTest& huvud = frTest::instans();
    return {.test = delat.AktuelltTest,
            .station = Stationsuppgifter(),
            .datum = txtDatum->text(),
            .testSignal = txtTestSignal->text(),
            .testLokator = txtTestLokator->text(),
            .klubb = txtKlubb->text(),
            .op = cmbOp->currentText(),
            .band = cmbBand->currentText(),
            .operatör1 = txtOPT1->text(),
            .operatör2 = txtOPT2->text(),
            .rigTX = txtRigTX->text(),
            .rigRX = txtRigRX->text(),
            .effekt = txtEffekt->text(),
            .antenn = txtAntenn->text(),
            .antennhöjd = txtAntennhöjd->text(),
            .månad = txtMånad->text(),
            .notering = txtNotering->text(),
            .antalQSO = huvud.lblQSO->text(),
            .totalQSOPoäng = huvud.lblTotalQSOPoäng->text(),
            .multiplar = huvud.lblMultiplar->text(),
            .diplom = huvud.lblDiplom->text(),
            .totalPoäng = huvud.lblTotalPoäng->text(),
            .formulärdatum = huvud.txtDatum->text(),
            .trafikrad = huvud.cmbTrafik->Row(),
            .rutPoäng = delat.RutPoäng,
            .kmPoäng = delat.KmPoäng,
            .längstaQSO = db().rsINFO.Field(QStringLiteral("LängstaQSOSträng")).text()};
}

void frTestRapport_edi::EDI_Rapport() {
    const frTestInst& station = Station();
    if (SaknarUppgifter({station.txtTestLokator, station.txtSignal, station.txtAdress, station.txtNamn}))
        return;
    SkapaRapport({.fel = QStringLiteral("Ett fel har inträffat vid sparande av EDI Rapport."),
                  .felTitel = QStringLiteral("Spara EDI"),
                  .klar = QStringLiteral("Rapport till EDI utfördes felfritt."),
                  .klarTitel = QStringLiteral("EDI Rapport")},
                 [&] {
                     const reports::Loggbild logg = reports::LäsLogg(db().rsTESTQSO, reports::EdiKolumner());
                     const reports::EdiUppgifter uppgifter = Uppgifter();
                     SkrivRapport(Rapportväg(reports::EdiFilnamn(uppgifter), QStringLiteral(".edi")),
                                  reports::EdiRapport(uppgifter, logg));
                 });
}

void frTestRapport_edi::ÖppnaEDIRapport() { LäsRapport(QStringLiteral("TestLogg (*.edi)|*.edi")); }
