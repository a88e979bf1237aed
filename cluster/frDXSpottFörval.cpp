#include "cluster/frDXSpottFörval.h"

#include "cluster/DXClusterModul.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/textfile.h"
#include "platform/windows.h"
#include "radio/ModuleTest.h"

#include <QBoxLayout>
#include <QFile>
#include <QGroupBox>

#include <utility>

using platform::Named;

namespace {

constexpr std::array bandtexter{"160 M", "80 M", "40 M", "20 M", "15 M", "10 M", "6 M", "2 M", "70 CM"};
constexpr std::array trafiktexter{"CW", "SSB", "RTTY", "PSK31/63", "SSTV", "AM", "FM"};
constexpr int antalLjud = 10;

QString Inifil() { return platform::DataPath(QStringLiteral("INI/DXSpottFörval.ini")); }

void SättAlla(std::span<QCheckBox*> rutor, bool på) {
    for (QCheckBox* ruta : rutor) ruta->setChecked(på);
}

} // namespace

frDXSpottFörval::frDXSpottFörval()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frDXSpottFörval"));
    setWindowTitle(QStringLiteral("Förval  DX Spot"));
    cmdBandAlla = platform::NewButton("cmdBandAlla", QStringLiteral("Alla"));
    cmdBandIngen = platform::NewButton("cmdBandIngen", QStringLiteral("Ingen"));
    cmdTrafiksättAlla = platform::NewButton("cmdTrafiksättAlla", QStringLiteral("Alla"));
    cmdTrafiksättIngen = platform::NewButton("cmdTrafiksättIngen", QStringLiteral("Ingen"));
    cmbljud = Named(new QComboBox, "cmbljud");
    cmbljud->setAccessibleName(QStringLiteral("Ljud"));
    Command1 = platform::NewButton("Command1", QStringLiteral("Prova ljud"));
    cmdSpara = platform::NewButton("cmdSpara", QStringLiteral("Spara"));
    cmdAvbryt = platform::NewButton("cmdAvbryt", QStringLiteral("Stäng"));
    cmdSpara->setDefault(true);

    auto* val = new QHBoxLayout;
    val->addWidget(ByggVal(QStringLiteral("Band"), "chkBand(%1)", std::span(chkBand).subspan(1), bandtexter,
                           cmdBandAlla, cmdBandIngen));
    val->addWidget(ByggVal(QStringLiteral("Trafiksätt"), "chkTrafiksätt(%1)",
                           std::span(chkTrafiksätt).subspan(1), trafiktexter, cmdTrafiksättAlla,
                           cmdTrafiksättIngen));
    auto* ljud = new QHBoxLayout;
    ljud->addWidget(cmbljud, 1);
    ljud->addWidget(Command1);
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    knappar->addWidget(cmdSpara);
    knappar->addWidget(cmdAvbryt);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(val);
    plats->addLayout(ljud);
    plats->addLayout(knappar);

    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(cmdSpara, &QPushButton::clicked, this, [this] { cmdSpara_Click(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, &QWidget::close);
    Ladda();
}

void frDXSpottFörval::Ladda() {
    if (QFile::exists(Inifil()))
        LäsDXSpottFörvalIni();
    else
        NollställDXSPottFörvalIni();
    InitieraCheckBoxes();
    InitieraComboBox();
}

frDXSpottFörval& frDXSpottFörval::instans() { return platform::SingleWindow<frDXSpottFörval>::get(); }

QWidget* frDXSpottFörval::ByggVal(const QString& rubrik, const char* namn, std::span<QCheckBox*> rutor,
                                  std::span<const char* const> texter, QPushButton* alla,
                                  QPushButton* ingen) {
    auto* grupp = new QGroupBox(rubrik);
    auto* plats = new QVBoxLayout(grupp);
    for (size_t i = 0; i < rutor.size(); ++i) {
        rutor[i] = new QCheckBox(QString::fromUtf8(texter[i]));
        rutor[i]->setObjectName(QString::fromUtf8(namn).arg(i + 1));
        plats->addWidget(rutor[i]);
    }
    plats->addStretch(1);
    auto* knappar = new QHBoxLayout;
    knappar->addWidget(alla);
    knappar->addWidget(ingen);
    plats->addLayout(knappar);
    connect(alla, &QPushButton::clicked, this, [rutor] { SättAlla(rutor, true); });
    connect(ingen, &QPushButton::clicked, this, [rutor] { SättAlla(rutor, false); });
    return grupp;
}

void frDXSpottFörval::Visa() {
    if (!isVisible()) Ladda();
    platform::ShowInFront(*this);
}

void frDXSpottFörval::LäsDXSpottFörvalIni() {
    try {
        SpotFörval = cluster::FörvalFrånText(platform::LoadTextFile(Inifil()));
    } catch (const platform::Failure&) {
        NollställDXSPottFörvalIni();
        platform::MsgBox(
            QStringLiteral("Ett fel har inträffat vid inläsning av ini-filen för DXSpott förval. "
                           "Värden sätts till standard."),
            QStringLiteral("LäsDXSpottFörvalIni"));
    }
}

void frDXSpottFörval::SparaDXSpottFörvalIni() {
    try {
        platform::SaveTextFile(Inifil(), cluster::FörvalTillText(SpotFörval));
    } catch (const platform::Failure&) {
        platform::MsgBox(
            QStringLiteral("Ett fel har inträffat vid sparning av ini-filen för DXSpott förval."),
            QStringLiteral("SparaDXSpottFörvalIni"));
    }
}

void frDXSpottFörval::NollställDXSPottFörvalIni() { SpotFörval = {}; }

void frDXSpottFörval::InitieraCheckBoxes() {
    for (size_t i = 1; i < chkBand.size(); ++i) chkBand[i]->setChecked(SpotFörval.SpotBandVal[i]);
    for (size_t i = 1; i < chkTrafiksätt.size(); ++i)
        chkTrafiksätt[i]->setChecked(SpotFörval.SpotTrafikVal[i]);
}

void frDXSpottFörval::InitieraComboBox() {
    cmbljud->clear();
    for (int i = 1; i <= antalLjud; ++i) cmbljud->addItem(QStringLiteral("Ljud %1").arg(i));
    // The file may have been written by hand; a number of some digits is all that can name an entry.
    constexpr qsizetype siffror = 4;
    const double nummer = platform::Val(SpotFörval.SpotLjudFil.left(siffror));
    cmbljud->setCurrentIndex(cmbljud->findText(QStringLiteral("Ljud %1").arg(nummer)));
}

QString frDXSpottFörval::ValdLjudfil() const {
    if (cmbljud->currentIndex() < 0) return SpotFörval.SpotLjudFil;
    return cmbljud->currentText().remove(QStringLiteral("Ljud ")) + QStringLiteral(".wav");
}

void frDXSpottFörval::cmdSpara_Click() {
    for (size_t i = 1; i < chkBand.size(); ++i) SpotFörval.SpotBandVal[i] = chkBand[i]->isChecked();
    for (size_t i = 1; i < chkTrafiksätt.size(); ++i)
        SpotFörval.SpotTrafikVal[i] = chkTrafiksätt[i]->isChecked();
    SpotFörval.SpotLjudFil = ValdLjudfil();
    SparaDXSpottFörvalIni();
    close();
}

void frDXSpottFörval::Command1_Click() {
    // Trying a sound is not choosing it.
    const QString vald = std::exchange(SpotFörval.SpotLjudFil, ValdLjudfil());
    SpelaLjud();
    SpotFörval.SpotLjudFil = vald;
}
