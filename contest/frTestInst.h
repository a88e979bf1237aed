#pragma once

#include "platform/widgets.h"

#include <QDialog>

/// Data of the station and the operator: the window, and the row of SVDINI behind it.
class frTestInst : public QDialog {
public:
    using Fält = platform::TextBox;

    frTestInst();
    static frTestInst& instans();

    void VisaModalt();

    /// Copies the stored row to the shared values. @throws platform::Failure
    void LäsSVDIni();
    /// Checks, takes the fields over into the shared values and stores them; without the required three it
    /// only says so. @throws platform::Failure
    void SparaSVDIni();
    /// Empties the window to its start values; nothing is stored.
    void Instini();
    /// Tells the operator when today is not the contest's day.
    void KollaTestDatum();
    void Initiera_Combo();

    Fält *txtEgenSignal, *txtNamn, *txtAdress, *txtPostnr, *txtPostAdress, *txtEmail, *txtLand, *txtRig,
        *txtAntenn, *txtHöjdHav, *txtHöjdLand, *txtKlubbSignal, *txtTestDatum, *txtSignal, *txtTestLokator,
        *txtITU, *txtZON, *txtPrefix, *txtEffekt;
    platform::ComboBox* cmbUTC;
    QPushButton *cmdSpara, *cmdRensa, *cmdAvbryt;

    void done(int resultat) override;

private:
    struct Uppgift;
    static const std::vector<Uppgift>& Uppgifter();
    QString Text(const Uppgift& uppgift) const;
    void Text(const Uppgift& uppgift, const QString& text);

    void ByggFönster();
    void VisaDelade();
};
