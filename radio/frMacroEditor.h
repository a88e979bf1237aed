#pragma once

#include "platform/widgets.h"

#include <QDialog>

/// The editor of one macro, the one of the button MakroKnapp, and the list of placeholders beside it.
class frMacroEditor : public QDialog {
public:
    frMacroEditor();
    static frMacroEditor& instans();

    /// Shows the macro of a button and waits until the window is closed. @param knapp 1 to 12
    void VisaModalt(int knapp);

    void Initiera_gridKortKom();
    /// Asks for a file and writes the macros to it.
    void SparaMacro();

    platform::FlexGrid* gridKortKom;
    QLabel* lblKnapp;
    platform::TextBox *txtKnapp, *txtMakro;
    QPushButton *cmdSpara, *cmdRensa, *cmdStäng;
    QPushButton *cmdKnappfärg, *cmdÅter; ///< without a function: buttons have no colours

private:
    void Bygg();
    void cmdSpara_Click();
};
