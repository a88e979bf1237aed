#pragma once

#include "platform/widgets.h"

#include <QCheckBox>
#include <QDialog>

#include <array>
#include <span>

/// Which bands and modes of spots are wanted, and a sound that can be tried.
class frDXSpottFörval : public QDialog {
public:
    frDXSpottFörval();
    static frDXSpottFörval& instans();

    std::array<QCheckBox*, 10> chkBand{};      ///< index 1 to 9
    std::array<QCheckBox*, 8> chkTrafiksätt{}; ///< index 1 to 7
    QPushButton *cmdBandAlla, *cmdBandIngen, *cmdTrafiksättAlla, *cmdTrafiksättIngen;
    QComboBox* cmbljud;
    QPushButton *Command1, *cmdSpara, *cmdAvbryt;

    void Visa();
    /// Reads the file. If it cannot be read, its message comes and everything is wanted.
    void LäsDXSpottFörvalIni();
    /// Writes the file. A failure shows its message.
    void SparaDXSpottFörvalIni();
    /// Everything is wanted, the sound is the first and off.
    void NollställDXSPottFörvalIni();
    void InitieraCheckBoxes();
    void InitieraComboBox();
    void cmdSpara_Click();
    void Command1_Click();

private:
    /// Everything that stands in the file, or is wanted as long as there is none, into the window.
    void Ladda();
    /// File name of the sound that the list shows.
    QString ValdLjudfil() const;
    QWidget* ByggVal(const QString& rubrik, const char* namn, std::span<QCheckBox*> rutor,
                     std::span<const char* const> texter, QPushButton* alla, QPushButton* ingen);
};
