#pragma once

#include "platform/datagrid.h"
#include "platform/widgets.h"

#include <QDialog>

/// The list of remembered locators, with a search by call or locator. It looks through the cursor that the
/// entry form asks too: a search stays in force when the window is closed.
class frData : public QDialog {
public:
    frData();
    static frData& instans();

    /// Shows the window over the locators as they are now.
    void Visa();
    void Init_Lokator();

    platform::DataGrid* dgLokator;
    platform::TextBox *txtS, *txtL;
    QPushButton *cmdSökS, *cmdSökL, *cmdRensa, *cmdF, *cmdS, *cmdStäng;

private:
    void Koppla();
    void Sök(const QString& kolumn, const QString& text);
    void cmdRensa_Click();
};
