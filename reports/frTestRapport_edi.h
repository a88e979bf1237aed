#pragma once

#include "reports/Edi.h"
#include "reports/Rapportfönster.h"

/// Writes the open log as EDI; the window asks for what the log does not know.
class frTestRapport_edi : public Rapportfönster {
public:
    frTestRapport_edi();
    static frTestRapport_edi& instans();

    /// Writes the report, whatever the contest. What goes wrong is told.
    void EDI_Rapport();
    void Initiera_Combo();
    void ÖppnaEDIRapport();

    Fält *txtTestRapport, *txtDatum, *txtTestSignal, *txtTestLokator, *txtKlubb, *txtOPT1, *txtOPT2,
        *txtRigTX, *txtRigRX, *txtEffekt, *txtAntenn, *txtAntennhöjd, *txtMånad, *txtNotering;
    QComboBox *cmbOp, *cmbBand;
    QPushButton *cmdSkapa, *cmdSkicka, *cmdLäsRapport, *cmdStäng;

protected:
    void Ladda() override;

private:
    reports::EdiUppgifter Uppgifter() const;
};
