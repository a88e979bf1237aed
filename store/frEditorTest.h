#pragma once

#include "platform/datagrid.h"
#include "platform/widgets.h"

#include <QDialog>

/// The editor of logged contacts: the open log in a grid, and the fields of one contact. It corrects what
/// stands in the log and nothing follows from that: points, squares and marks stay as they were saved.
///
/// Its note field doubles as the note of the contact on the entry form, so the window lives, unseen, from the
/// first save or duplicate on. Being closed does away with what stood in it.
class frEditorTest : public QDialog {
public:
    using Fält = platform::TextBox;
    using Lista = platform::ComboBox;

    frEditorTest();
    static frEditorTest& instans();

    /// Shows the window over the open log.
    void Visa();
    /// The same, with the current row of the log chosen.
    void VisaVald();
    /// A window on screen follows the log that has been opened, or lets go of the one that is to be closed.
    static void FöljLogg(bool öppnad);

    /// Puts a red note there, which the next saves take over until the field is changed.
    void Notera(const QString& text);

    void Initiera_Fönster();
    void Formatera_dgLogg();
    /// Copies the current row of the log into the fields. A failure shows its message.
    void VisaTestQSOData();
    /// Writes the fields back over the chosen contact, if one is chosen. A failure shows its message.
    void SparaQSO();
    /// Asks, and deletes the chosen contact, if one is chosen. @throws platform::Failure
    void RaderaQSO();
    /// Empties the fields and lets go of the chosen contact.
    void Rensa();
    /// Show the contacts with the prefix, or the country, that stands in its field.
    void VisaSignalPrefix();
    void VisaSignalLand();

    platform::DataGrid* dgTestLogg;
    QLabel* lblTestlogg;
    Fält *txtDatum, *txtUTCTid, *txtPrefix, *txtDXCCNR, *txtSignal, *txtLand, *txtDXCC, *txtFrekvens,
        *txtRSTM, *txtRSTS, *txtNamn, *txtQTH, *txtNotering, *txtITU, *txtWAZ, *txtDiplom, *txtTest;
    Lista *cmbTrafiksätt, *cmbBand;
    /// Fields without a column in the log.
    Fält *txtKont, *txtIOTA, *txtWAS, *txtUSCounty, *txtEffekt, *txtQSO, *txtLokalTid, *txtLöpnrS, *txtLöpnrM;
    Lista *cmbDiplom, *cmbKond;
    QPushButton *cmdVisa, *cmdSpara, *cmdRadera, *cmdRensa, *cmdStäng, *cmdPrefix, *cmdDXCC;

    /// Every way of closing the window.
    void done(int resultat) override;

private:
    struct Kolumnfält;
    static const std::vector<Kolumnfält>& Kolumner();

    void Bygg();
    void Koppla();
    void Ladda();
    void Välj();
    void cmdVisa_Click();
    void SättKolumner();
    /// The fields over the current row, all of them or none. @throws platform::Failure
    void SkrivRad();
    static void VisaHelaLoggen();
};
