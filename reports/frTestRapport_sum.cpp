#include "reports/frTestRapport_sum.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "reports/Inlämning.h"
#include "reports/Rapportfil.h"
#include "store/Databaser.h"

frTestRapport_sum::frTestRapport_sum()
    : Rapportfönster("frTestRapport_sum", QStringLiteral("Rapport (Summa, Rapport)")) {
    txtTestRapport = NyttFält("txtTestRapport", "Test", 0);
    txtTestSignal = NyttFält("txtTestSignal", "Signal", 0);
    txtKlubb = NyttFält("txtKlubb", "Klubb", 0);
    cmbOp = NyttVal("cmbOp", "Operatör sätt", 0);
    cmbAssist = NyttVal("cmbAssist", "Medhjälpare", 0);
    txtOperatörer = NyttFält("txtOperatörer", "Operatörer", 1);
    txtRiggar = NyttFält("txtRiggar", "Rig TX / RX", 1);
    txtAntenner = NyttFält("txtAntenner", "Antenn", 1);
    txtNotering = NyttFält("txtNotering", "Notering", 1);
    cmdSkapaSumma = NyKnapp("cmdSkapaSumma", "Skapa Summa");
    cmdSkapaRapport = NyKnapp("cmdSkapaRapport", "Skapa Rapport");
    cmdSkicka = NyKnapp("cmdSkicka", "Skicka...");
    cmdLäsRapport = NyKnapp("cmdLäsRapport", "Läs Rapport...");
    cmdStäng = NyStängknapp();
    connect(cmdSkapaSumma, &QPushButton::clicked, this, [this] { Summa_Rapport(); });
    connect(cmdSkapaRapport, &QPushButton::clicked, this, [this] { Rapport_rapport(); });
    connect(cmdSkicka, &QPushButton::clicked, this, [] { SkickaMedEpost(); });
    connect(cmdLäsRapport, &QPushButton::clicked, this, [this] { ÖppnaSUMRapport(); });
}

frTestRapport_sum& frTestRapport_sum::instans() { return platform::SingleWindow<frTestRapport_sum>::get(); }

void frTestRapport_sum::Ladda() {
    const frTestInst& station = Station();
    txtTestRapport->setText(frTest::instans().windowTitle());
    txtTestSignal->setText(station.txtSignal->text());
    txtKlubb->setText(station.txtKlubbSignal->text());
    txtRiggar->setText(station.txtRig->text());
    for (Fält* fält : {txtOperatörer, txtAntenner, txtNotering}) fält->clear();
    Initiera_Combo();
    txtTestRapport->setFocus();
}

void frTestRapport_sum::Initiera_Combo() {
    FyllRapportlista(*cmbOp, {"Single Op", "Single Assisted", "Multi One", "Multi Two", "Multi Multi",
                              "Club Single", "Club Multi", "Rookie", "DX", "Expert", "Checklog"});
    FyllRapportlista(*cmbAssist, {"No Assisted", "Assisted"});
}

reports::SummaUppgifter frTestRapport_sum::Uppgifter() const {
    const frTest& huvud = frTest::instans();
    return {.test = delat.AktuelltTest,
            .station = Stationsuppgifter(),
            .operatörer = txtOperatörer->text(),
            .op = cmbOp->currentText(),
            .assist = cmbAssist->currentText(),
            .riggar = txtRiggar->text(),
            .antenner = txtAntenner->text(),
            .notering = txtNotering->text(),
            .totalPoäng = huvud.lblTotalPoäng->text(),
            .formulärdatum = huvud.txtDatum->text(),
            .idag = platform::Now().date().toString(QStringLiteral("yyyy-MM-dd"))};
}

void frTestRapport_sum::Summa_Rapport() {
    SkapaRapport(
        {.fel = QStringLiteral("Ett fel har inträffat vid sparande av Summa Rapport."),
         .felTitel = QStringLiteral("SparaSumma"),
         .klar = QStringLiteral("Rapport till Summafil utfördes felfritt."),
         .klarTitel = QStringLiteral("SummaRapport")},
        [this] {
            const reports::Loggbild logg = reports::LäsLogg(db().rsTESTQSO, reports::SummaKolumner());
            const reports::SummaUppgifter uppgifter = Uppgifter();
            const reports::Rapport rapport = reports::SummaRapport(uppgifter, logg);
            db().rsTESTQSO.MoveFirst(); // where counting the bands leaves it
            SkrivRapport(Rapportväg(reports::SummaFilnamn(uppgifter), QStringLiteral(".sum")), rapport);
        });
}

void frTestRapport_sum::Rapport_rapport() {
    SkapaRapport({.fel = QStringLiteral("Ett fel har inträffat vid sparande av Rapport."),
                  .felTitel = QStringLiteral("Spararapport"),
                  .klar = QStringLiteral("Rapport till Rapportfil utfördes felfritt."),
                  .klarTitel = QStringLiteral("Rapportfil")},
                 [this] {
                     const reports::Loggbild logg =
                         reports::LäsLogg(db().rsTESTQSO, reports::ListaKolumner());
                     const reports::SummaUppgifter uppgifter = Uppgifter();
                     SkrivRapport(Rapportväg(reports::ListaFilnamn(uppgifter), QStringLiteral(".all")),
                                  reports::ListaRapport(uppgifter, logg));
                 });
}

void frTestRapport_sum::ÖppnaSUMRapport() {
    LäsRapport(QStringLiteral("TestLogg (*.sum *.all)|*.sum;*.all"));
}
