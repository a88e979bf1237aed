#pragma once

#include "platform/widgets.h"

#include <QDialog>

/// Sends a spot of the operator's own to the cluster.
class frSändDX : public QDialog {
public:
    frSändDX();
    static frSändDX& instans();

    platform::TextBox *txtSignal, *txtFrekvens, *txtNotering;
    QPushButton *cmdSänd, *cmdRensa, *cmdAvbryt;

    void VisaModalt();
    void cmdSänd_Click();
    void cmdRensa_Click();

protected:
    void showEvent(QShowEvent* event) override;
};
