#pragma once

#include <QDialog>
#include <QPlainTextEdit>
#include <QPushButton>

/// The help text that lies beside the program.
class frHjälp : public QDialog {
public:
    frHjälp();
    static frHjälp& instans();
    void Visa();

    QPlainTextEdit* txtHjälp;
    QPushButton* cmdStäng;
};
