#pragma once

#include "platform/datagrid.h"
#include "platform/widgets.h"

#include <QDialog>

/// The store of spots: all of them in a grid, a search, and the emptying.
class frDXSpottLogg : public QDialog {
public:
    frDXSpottLogg();
    static frDXSpottLogg& instans();

    platform::DataGrid* dgDXspottLogg;
    platform::TextBox *txtSökOrd, *txtSumma;
    QPushButton *cmdSök, *cmdTömLogg, *cmdAvbryt;

    void Visa();
    void Formatera_dgDXSpottLogg();
    /// Empties the store by putting an empty file in its place, without a question. A failure shows its
    /// message and leaves the store as it was.
    void TömDXSpottLogg();
    void cmdSök_Click();
    void cmdAvbryt_Click();
    /// Carries the current spot to the entry form.
    void dgDXspottLogg_DblClick();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void VisaAntal();
};
