// The main window's side of the radio.
#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/windows.h"
#include "radio/frOmni.h"

void frTest::mnuRadio_På_Click() {
    try {
        delat.RadioPå = true;
        frOmni::instans().Visa();
        SBarTest(2, QStringLiteral("OmniRig Aktiv"));
        Vänsterkant(platform::Twips(4990));
    } catch (const platform::Failure&) {
        // A window that is half loaded would be taken for one that is whole the next time.
        frOmni::LaddaUr();
        platform::MsgBox(QStringLiteral("Kan inte hitta Progamfilen!"), QStringLiteral("Filfel"));
    }
    VisaRadioläge();
}

void frTest::mnuRadio_Av_Click() {
    frOmni::LaddaUr();
    delat.RadioPå = false;
    VisaRadioläge();
    SBarTest(2, QStringLiteral("Radio"));
}

void frTest::mnuRadio_Shift_Click() { cmbBand_Click(); }

void frTest::cmbBand_Click() {
    if (delat.RadioPå) frOmni::instans().RadioSkick(cmbBand->Text());
}

void frTest::VisaRadioläge() {
    Meny("mnuRadio_På")->setChecked(delat.RadioPå);
    Meny("mnuRadio_Av")->setChecked(!delat.RadioPå);
    if (!delat.RadioPå) FärgaFrekvens(false);
}

void frTest::FärgaFrekvens(bool följer) {
    QPalette färger;
    if (följer) {
        // Dark on light in a dark theme too.
        färger.setColor(QPalette::Base, QColor(0x80, 0xFF, 0x80));
        färger.setColor(QPalette::Text, Qt::black);
    }
    txtFrekvens->setPalette(färger);
}
