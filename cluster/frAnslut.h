#pragma once

#include "platform/widgets.h"

#include <QDialog>

/// The choice of a DX cluster to connect to.
class frAnslut : public QDialog {
public:
    frAnslut();
    static frAnslut& instans();

    platform::FlexGrid* fgAnslut;
    QPushButton *cmdAnslut, *cmdNy, *cmdÄndra, *cmdTaBort, *cmdAvbryt;

    /// Returns when a site has been chosen, or AvbrytAnslut is set.
    void VisaModalt();
    /// Lists the sites that can be connected to.
    void Initiera_fgAnslut();
    /// Text of the chosen row; that of the heading when none is chosen.
    QString ValdSite() const;

    void cmdAnslut_Click();
    void fgAnslut_DblClick();
    void cmdTaBort_Click();
    void cmdAvbryt_Click();

    /// Escape and the frame's close box: no choice.
    void reject() override { cmdAvbryt_Click(); }
};
