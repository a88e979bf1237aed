#pragma once

#include "platform/widgets.h"

#include <QDialog>

/// The choice of a contest: the row number is the contest number.
class frTestVal : public QDialog {
public:
    frTestVal();
    static frTestVal& instans();

    /// Shows the window without waiting for it.
    void Visa();
    void Initiera_TestVal();
    /// Takes the contest of the current row, makes a new log for it and shows the station data.
    void ValavTest();

    platform::FlexGrid* fgTestVal;
    QPushButton *cmdNyTest, *cmdTidigare, *cmdAvbryt;
};
