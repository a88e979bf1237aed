#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

/// The warning of a duplicate, or of a station that does not count. OK throws away what stands on the entry
/// form; closing the window in any other way keeps it.
class frVarning : public QDialog {
public:
    frVarning();
    static frVarning& instans();

    void VisaModalt();

    QLabel *lblVarning1, *lblVarning2;
    QPushButton* cmdOK;
};
