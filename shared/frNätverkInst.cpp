#include "shared/frNätverkInst.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/textfile.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QFormLayout>

using platform::Named;

namespace {
QString Inifil() { return platform::DataPath(QStringLiteral("INI/Nätverk.ini")); }
} // namespace

frNätverkInst::frNätverkInst()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frNätverkInst"));
    setWindowTitle(QStringLiteral("Nätverk Inställning"));
    cmbEnhet = Named(new platform::ComboBox, "cmbEnhet");
    txtSökväg = Named(new platform::TextBox, "txtSökväg");
    cmdSök = Named(new QPushButton(QStringLiteral("Bläddra")), "cmdSök");
    cmdSpara = Named(new QPushButton(QStringLiteral("Spara")), "cmdSpara");
    cmdStäng = Named(new QPushButton(QStringLiteral("Stäng")), "cmdStäng");
    cmdSök->setAutoDefault(false);
    cmdSpara->setDefault(true);
    cmbEnhet->setAccessibleName(QStringLiteral("Enhet"));
    txtSökväg->setAccessibleName(QStringLiteral("Mapp"));
    txtSökväg->setMinimumWidth(320);

    auto* mapp = new QHBoxLayout;
    mapp->addWidget(txtSökväg, 1);
    mapp->addWidget(cmdSök);
    auto* rader = new QFormLayout;
    rader->addRow(QStringLiteral("Enhet:"), cmbEnhet);
    rader->addRow(QStringLiteral("Mapp:"), mapp);
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    for (QPushButton* knapp : {cmdSpara, cmdStäng}) knappar->addWidget(knapp);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(rader);
    plats->addStretch(1);
    plats->addLayout(knappar);

    connect(cmdSök, &QPushButton::clicked, this, [this] { cmdSök_Click(); });
    connect(cmdSpara, &QPushButton::clicked, this, [this] {
        Spara_Nätverk();
        close();
    });
    connect(cmdStäng, &QPushButton::clicked, this, &QWidget::close);
}

frNätverkInst& frNätverkInst::instans() { return platform::SingleWindow<frNätverkInst>::get(); }

void frNätverkInst::Visa() {
    if (!isVisible()) {
        Initiera_Combo();
        cmbEnhet->Choose(delat.NätverkEnhet);
        txtSökväg->setText(delat.NätverkMapp);
    }
    show();
    raise();
    activateWindow();
    cmbEnhet->setFocus();
}

void frNätverkInst::Initiera_Combo() {
    cmbEnhet->Clear();
    for (char enhet = 'J'; enhet <= 'Z'; ++enhet) cmbEnhet->addItem(QLatin1Char(enhet) + QStringLiteral(":"));
    cmbEnhet->setCurrentIndex(-1);
}

void frNätverkInst::cmdSök_Click() {
    try {
        const auto fil = platform::AskFile({.title = QStringLiteral("Nätveks enhet"),
                                            .folder = QStringLiteral("C:"),
                                            .filter = QStringLiteral("TestLogg (*.svk)|*.svk")});
        if (fil) txtSökväg->setText(*fil);
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid sökning av Nätverksenhet!"),
                         QStringLiteral("SökvägNätverk"));
    }
}

void frNätverkInst::Spara_Nätverk() {
    delat.NätverkEnhet = cmbEnhet->Text();
    delat.NätverkMapp = txtSökväg->text();
}

void frNätverkInst::LäsNätverksini() {
    try {
        platform::ItemReader läsare(platform::LoadTextFile(Inifil()));
        delat.NätverkEnhet = läsare.Next();
        delat.NätverkMapp = läsare.Next();
    } catch (const platform::Failure&) {
        delat.NätverkEnhet.clear();
        delat.NätverkMapp.clear();
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid inläsning av ini-filen för Nätverk. "
                                        "Värden sätts till standard."),
                         QStringLiteral("LäsNätverkini"));
    }
}

void frNätverkInst::SparaNätverkini() {
    platform::SaveTextFile(Inifil(), platform::LinesToText({platform::WriteItem(delat.NätverkEnhet),
                                                            platform::WriteItem(delat.NätverkMapp)}));
}
