#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>

/// A large map of the locator squares.
class frGrid : public QDialog {
public:
    frGrid();
    static frGrid& instans();
    void Visa();

    QLabel* picKarta;
    QPushButton* cmdAvbryt;
};
