#pragma once

#include "reports/Rapportfönster.h"
#include "reports/Summa.h"

/// Writes the summary sheet and the list of contacts; the window asks for what the log does not know.
class frTestRapport_sum : public Rapportfönster {
public:
    frTestRapport_sum();
    static frTestRapport_sum& instans();

    /// Write the summary sheet, and the list of all contacts. What goes wrong is told.
    void Summa_Rapport();
    void Rapport_rapport();
    void Initiera_Combo();
    void ÖppnaSUMRapport();

    Fält *txtTestRapport, *txtTestSignal, *txtKlubb, *txtOperatörer, *txtRiggar, *txtAntenner, *txtNotering;
    QComboBox *cmbOp, *cmbAssist;
    QPushButton *cmdSkapaSumma, *cmdSkapaRapport, *cmdSkicka, *cmdLäsRapport, *cmdStäng;

protected:
    void Ladda() override;

private:
    reports::SummaUppgifter Uppgifter() const;
};
