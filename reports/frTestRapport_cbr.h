#pragma once

#include "reports/Cabrillo.h"
#include "reports/Rapportfönster.h"

/// Writes the open log as Cabrillo; the window asks for what the log does not know.
class frTestRapport_cbr : public Rapportfönster {
public:
    frTestRapport_cbr();
    static frTestRapport_cbr& instans();

    /// Writes the report of a contest; only Månadstest and SAC have one, the others do nothing.
    void Cabrillo_Rapport(const int& test);
    void Cabrillo_MT();
    void Cabrillo_SAC();
    /// Has no contest in the catalogue.
    void Cabrillo_ARRLDX();
    // No report is written for these.
    void Cabrillo_BARTGSPRING() {}
    void Cabrillo_BALTIC() {}
    void Cabrillo_URRTTY() {}
    void Cabrillo_UR() {}
    void Cabrillo_ESOPEN() {}
    void Cabrillo_SARTG() {}
    void Cabrillo_BARTG() {}
    void Cabrillo_IOTA() {}
    void Cabrillo_DLDX() {}
    void Cabrillo_WPX() {}
    void Cabrillo_CQWW() {}
    void Cabrillo_CQWW160() {}
    void Initiera_Combo();
    void ÖppnaCBRRapport();

    Fält *txtTestRapport, *txtDatum, *txtSignal, *txtKlubb, *txtOperatörer, *txtNotering;
    Lista *cmbOp, *cmbBand, *cmbTrafik, *cmbEffekt, *cmbAssist;
    QPushButton *cmdSkapa, *cmdSkicka, *cmdLäs, *cmdStäng;

protected:
    void Ladda() override;

private:
    reports::CabrilloUppgifter Uppgifter() const;
    void Skriv(const reports::Cabrilloform& form);
};
