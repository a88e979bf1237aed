#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

/// The About window.
class frTestOm : public QDialog {
public:
    frTestOm();
    static frTestOm& instans();
    void Visa();

    /// Starts the platform's system information program. This platform has none that is registered.
    void StartSysInfo();

    QLabel *lblTitle, *lblVersion;
    QPushButton *cmdOK, *cmdSysInfo;
};
