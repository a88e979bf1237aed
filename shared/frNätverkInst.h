#pragma once

#include "platform/widgets.h"

#include <QDialog>

/// Drive and folder of a shared log, for the rest of the run. Nothing connects to them: a shared log is
/// opened like any other on the drive that the operator has mapped.
class frNätverkInst : public QDialog {
public:
    frNätverkInst();
    static frNätverkInst& instans();

    /// Shows the window with the values as they are.
    void Visa();

    /// Fills the list of drive letters.
    void Initiera_Combo();
    /// Takes the values of the window over for the rest of the run.
    void Spara_Nätverk();
    /// Reads the values from their file; nobody asks for it. A failure shows its message and empties the
    /// values.
    void LäsNätverksini();
    /// Writes the values to their file; nobody asks for it. @throws platform::Failure
    void SparaNätverkini();

    platform::ComboBox* cmbEnhet;
    platform::TextBox* txtSökväg;
    QPushButton *cmdSök, *cmdSpara, *cmdStäng;

private:
    void cmdSök_Click();
};
