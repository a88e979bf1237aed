#pragma once

#include "platform/omnirig/omnirig.h"
#include "platform/widgets.h"

#include <QDialog>
#include <QRadioButton>

#include <array>
#include <memory>

/// The radio: which of the service's four it is, and where it stands. As long as the window is there, the
/// entry form's frequency follows the radio; closing it lets the radio go.
class frOmni : public QDialog {
public:
    frOmni();
    static frOmni& instans();
    /// Takes the window away, if it is there, and what belongs to it.
    static void LaddaUr();

    std::array<QRadioButton*, 4> Option; ///< Option1 to Option4
    QPushButton* Command1;
    QLabel *Label3, *lblTrafiksätt, *Label8;

    /// What holds the radios; none without the service.
    std::unique_ptr<platform::OmniRigX> OmniRigEngine;
    platform::RigX* Rig = nullptr; ///< the chosen one
    int RigNummer = 0;

    /// Starts the service if the window has just been made, and shows the window.
    void Visa();
    /// Puts the window where it hides nothing of the entry form.
    void Init_Fönster();
    /// The service, and rig 1 of it. Without one there is a message, and the window stays without a rig.
    void StartaOmniRig();
    /// Rig 1 to 4 is the one that counts.
    void VäljRig(int nummer);

    /// Tunes the radio to the frequency on the entry form while rig control is on.
    /// @param text overwritten by the entry form's
    void RadioSkick(QString text);
    /// Tunes the radio, both its VFO A and the one in use. Without a rig nothing happens.
    /// @param värde units of 10 Hz; a text that is no number tunes nothing
    void Freq6(const QString& värde);
    void Freq7(const QString& värde);
    void Freq8(const QString& värde);
    /// The band is the operator's to choose; it does not follow the radio.
    void BandOmni(const QString& text) { Q_UNUSED(text) }

    /// The service's two events. @param rig the number of the rig they are about
    void OmniRigEngine_StatusChange(int rig);
    void OmniRigEngine_ParamsChange(int rig, int parametrar);

    void Command1_Click();

    /// Escape leads back to the entry form; the radio stays.
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Sänd(const QString& tioHertz);

    bool laddad_ = false;
};
