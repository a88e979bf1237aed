#pragma once

#include "platform/widgets.h"

#include <QDialog>
#include <QRadioButton>

#include <array>

/// Makes and changes the file of a DX cluster. Its files lie in a folder of their own: what it saves comes
/// into the list of frAnslut when it is put into that one's folder too.
class frAnslutEditor : public QDialog {
public:
    frAnslutEditor();
    static frAnslutEditor& instans();

    platform::TextBox *txtFilNamn, *txtVärdNamn, *txtVärdAdress, *txtPortadress;
    std::array<QRadioButton*, 2> optServer;
    QPushButton *cmdSpara, *cmdAvbryt;

    /// @param ny a new site; else the one that is chosen in frAnslut
    void VisaModalt(bool ny);
    /// Empties the fields.
    void RensaAnslutEditor();
    /// Fills the fields from the file of the chosen site. A failure shows its message.
    void LäsDXTelnet();
    /// Writes the file. A failure shows its message.
    /// @return false if a field is missing or the file could not be written
    bool SparaDXTelnetFil();
    void cmdSpara_Click();

protected:
    void showEvent(QShowEvent* event) override;
};
