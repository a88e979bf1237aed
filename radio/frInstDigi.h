#pragma once

#include "platform/widgets.h"

#include <QCheckBox>
#include <QDialog>
#include <QRadioButton>

#include <array>
#include <span>

class QGroupBox;

/// The settings of the digital modes: their file, and the window in which they are changed. The values in
/// force stand in delat.Digital.
class frInstDigi : public QDialog {
public:
    frInstDigi();
    static frInstDigi& instans();

    /// Shows the window with the values in force.
    void Visa();

    /// Fills the lists.
    void Initiera_Combo();
    /// Takes the values over from the file. If it cannot be read, its message comes and they are the
    /// defaults.
    void LäsStation();
    /// The defaults are in force; nothing is stored.
    void NollställInställningar();
    /// Takes the values of the window over and writes the file. A failure shows its message; the values are
    /// in force nevertheless. @return whether they are stored
    bool SparaStation();
    /// The values in force into the controls.
    void Initiera_Inst();

    platform::ComboBox *cmbBandbredd, *cmbComport, *cmbFlöde, *cmbTrafik, *cmbDisplay, *cmbFIFORX, *cmbFIFOTX,
        *cmbID, *cmbRXKlocka, *cmbTXKlocka;
    QCheckBox *chkUOS, *chkAFC, *chkHPT, *chkATC, *chkNET;
    std::array<QRadioButton*, 6> optKanal{}; ///< 0 to 2 of radio A, 3 to 5 of radio B
    std::array<QRadioButton*, 3> optPrio{};
    platform::TextBox *txtEffekt, *txtUDP;
    QPushButton *cmdSpara, *cmdAvbryt;

private:
    struct Lista;
    struct Text;
    struct Kryss;
    static std::span<const Lista> Listor();
    static std::span<const Text> Texter();
    static std::span<const Kryss> Kryssen();

    void Bygg();
    QGroupBox* ByggModem();
    QGroupBox* ByggLjud();
    QGroupBox* ByggSändning();
    QGroupBox* ByggÖvrigt();
    void cmdSpara_Click();
};
