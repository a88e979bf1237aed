#include "reports/frTestRapport_cbr.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/windows.h"
#include "reports/Inlämning.h"
#include "reports/Rapportfil.h"
#include "reports/Titlar.h"
#include "store/Databaser.h"

namespace {

constexpr int radSSB = 2;
constexpr int radRookie = 7;

} // namespace

frTestRapport_cbr::frTestRapport_cbr()
    : Rapportfönster("frTestRapport_cbr", QStringLiteral("Rapport (CBR)")) {
    txtTestRapport = NyttFält("txtTestRapport", "Test:", 0);
    txtDatum = NyttFält("txtDatum", "Test Datum:", 0);
    txtSignal = NyttFält("txtSignal", "Test Signal:", 0);
    txtKlubb = NyttFält("txtKlubb", "Klubb:", 0);
    txtOperatörer = NyttFält("txtOperatörer", "Operatörer:", 0);
    txtNotering = NyttFält("txtNotering", "Notering:", 0);
    cmbOp = NyLista("cmbOp", "Operatör sätt", 1);
    cmbBand = NyLista("cmbBand", "Band:", 1);
    cmbTrafik = NyLista("cmbTrafik", "Trafiksätt:", 1);
    cmbEffekt = NyLista("cmbEffekt", "Effekt:", 1);
    cmbAssist = NyLista("cmbAssist", "Medhjälpare:", 1);
    cmdSkapa = NyKnapp("cmdSkapa", "Skapa");
    cmdSkicka = NyKnapp("cmdSkicka", "Skicka...");
    cmdLäs = NyKnapp("cmdLäs", "Läs Rapport...");
    cmdStäng = NyStängknapp();
    for (Fält* fält : {txtKlubb, txtOperatörer}) fält->OnKeyPress(platform::UpperCase);
    connect(cmdSkapa, &QPushButton::clicked, this, [this] { Cabrillo_Rapport(delat.AktuelltTest); });
    connect(cmdSkicka, &QPushButton::clicked, this,
            [] { SkickaTill(reports::CabrilloMottagare(delat.AktuelltTest)); });
    connect(cmdLäs, &QPushButton::clicked, this, [this] { ÖppnaCBRRapport(); });
}

frTestRapport_cbr& frTestRapport_cbr::instans() { return platform::SingleWindow<frTestRapport_cbr>::get(); }

void frTestRapport_cbr::Ladda() {
    const frTestInst& station = Station();
    txtTestRapport->setText(reports::KortTitel(delat.AktuelltTest));
    txtDatum->setText(station.txtTestDatum->text());
    txtSignal->setText(station.txtSignal->text());
    txtKlubb->setText(station.txtKlubbSignal->text());
    for (Fält* fält : {txtOperatörer, txtNotering}) fält->clear();
    Initiera_Combo();
    // Two of the numbers are outside the catalogue.
    for (const int test : {7, 8, 35, 36})
        if (delat.AktuelltTest == test) cmbBand->Choose(QStringLiteral("80/40"));
    txtTestRapport->setFocus();
}

void frTestRapport_cbr::Initiera_Combo() {
    FyllRapportlista(*cmbOp, {"SINGLE-OP", "SINGLE-ASSISTED", "MULTI-ONE", "MULTI-TWO", "MULTI-MULTI",
                              "CLUB-SINGLE", "CLUB-MULTI", "ROOKIE", "EXPERT", "CHECKLOG"});
    FyllRapportlista(*cmbAssist, {"NON-ASSISTED", "ASSISTED"});
    FyllRapportlista(*cmbEffekt, {"", "LOW", "HIGH", "QRP"});
    FyllRapportlista(*cmbBand, {"", "ALL", "160M", "80M", "40M", "20M", "15M", "10M", "6M", "2M", "70CM"});
    FyllRapportlista(*cmbTrafik, {"", "CW", "SSB", "RTTY", "MIXED"});
}

reports::CabrilloUppgifter frTestRapport_cbr::Uppgifter() const {
    const frTest& huvud = frTest::instans();
    return {.test = delat.AktuelltTest,
            .station = Stationsuppgifter(),
            .datum = txtDatum->text(),
            .klubb = txtKlubb->text(),
            .operatörer = txtOperatörer->text(),
            .notering = txtNotering->text(),
            .op = cmbOp->Text(),
            .band = cmbBand->Text(),
            .trafik = cmbTrafik->Text(),
            .effekt = cmbEffekt->Text(),
            .assist = cmbAssist->Text(),
            .rookie = cmbOp->Row() == radRookie,
            .totalPoäng = huvud.lblTotalPoäng->text(),
            .formulärdatum = huvud.txtDatum->text()};
}

void frTestRapport_cbr::Cabrillo_Rapport(const int& test) {
    if (test == 7 || test == 8) Cabrillo_MT();
    if (test == 9 || test == 10) Cabrillo_SAC();
}

void frTestRapport_cbr::Cabrillo_MT() { Skriv(reports::cabrilloMT); }

void frTestRapport_cbr::Cabrillo_SAC() { Skriv(reports::cabrilloSAC); }

void frTestRapport_cbr::Cabrillo_ARRLDX() { Skriv(reports::cabrilloARRLDX); }

void frTestRapport_cbr::Skriv(const reports::Cabrilloform& form) {
    const frTestInst& station = Station();
    if (SaknarUppgifter({station.txtTestLokator, station.txtSignal, txtTestRapport, txtDatum})) return;
    SkapaRapport(
        {.fel = QStringLiteral("Ett fel har inträffat vid sparande av Cabrillo Rapport."),
         .felTitel = QStringLiteral("SparaCabrillo"),
         .klar = QStringLiteral("Rapport till Cabrillo utfördes felfritt."),
         .klarTitel = QStringLiteral("CabrilloRapport")},
        [&] {
            const reports::Loggbild logg = reports::LäsLogg(db().rsTESTQSO, reports::CabrilloKolumner());
            // Telephony is written PH in the robots' names of files.
            if (&form == &reports::cabrilloMT && cmbTrafik->Row() == radSSB)
                cmbTrafik->Text(QStringLiteral("PH"));
            const reports::CabrilloUppgifter uppgifter = Uppgifter();
            SkrivRapport(Rapportväg(reports::CabrilloFilnamn(form, uppgifter), QStringLiteral(".log")),
                         reports::CabrilloRapport(form, uppgifter, logg));
        });
}

void frTestRapport_cbr::ÖppnaCBRRapport() { LäsRapport(QStringLiteral("TestLogg (*.log)|*.log|")); }
