#pragma once

#include "platform/widgets.h"

#include <QDialog>

#include <array>

/// The spots as they come in. Closing the window closes the connection to the cluster too.
class frDXSpott : public QDialog {
public:
    static constexpr int kolumner = 6;

    frDXSpott();
    static frDXSpott& instans();
    /// Lets go of the window, and of the connection.
    static void LaddaUr();

    /// Spotter, call, frequency, mode, nothing, and the band as a number, hidden. Row 0 holds the headings.
    platform::FlexGrid* fgDXSpott;
    QPushButton* cmdCancel;

    void Visa();
    void Initiera_Fönster();
    /// Makes room for a row.
    void GePlats(int rad);
    /// Makes a row the current one and keeps it and the eleven before it in view.
    void VisaSenaste(int rad);
    void SkrivRad(int rad, const std::array<QString, kolumner>& texter);
    /// Carries the spot of the current row to the entry form.
    void fgDXSpott_DblClick();

    /// Escape: the way back to the entry form.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;
};
