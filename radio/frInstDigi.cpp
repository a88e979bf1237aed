#include "radio/frInstDigi.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/textfile.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QFile>
#include <QFormLayout>
#include <QGroupBox>

using platform::Named;
using radio::Digitalval;

namespace {

QString SVDDigiFil() { return platform::DataPath(QStringLiteral("INI/SVDDigi.ini")); }

constexpr const char* digiBandbredder[] = {"500", "1K", "2K", "3K"};
constexpr const char* digiPortar[] = {"None", "Com1", "Com2", "Com3", "Com4",
                                      "Com5", "Com6", "Com7", "Com8", "EXTFSK"};
constexpr const char* digiFlöden[] = {"RTS", "DTR", "TXD"};
constexpr const char* digiTrafiksätt[] = {"bpsk", "rtty-L", "rtty-U", "mfsk-L", "mfsk-U"};
constexpr const char* digiVisningar[] = {"FFT", "V.F", "SYN", "WAV"};
constexpr const char* digiDjup[] = {"4", "6", "8", "12", "16", "20", "24", "32"};
constexpr const char* digiLjudkort[] = {"-1", "0", "1", "2", "3"};
constexpr const char* digiKlockor[] = {"6000",  "8000",  "11025", "11100", "12000", "18000",
                                       "22050", "24000", "44100", "48000", "50000"};
constexpr const char* digiAvvikelser[] = {"0.00", "74.50", "-74.50"};

/// The one of a row of buttons that is down; -1 without one.
int Nedtryckt(std::span<QRadioButton* const> knappar) {
    for (size_t i = 0; i < knappar.size(); ++i)
        if (knappar[i]->isChecked()) return static_cast<int>(i);
    return -1;
}

/// Presses a button. A number that none has, which only a file written by hand holds, presses the first.
void TryckKnapp(std::span<QRadioButton* const> knappar, int nummer) {
    const bool finns = nummer >= 0 && nummer < static_cast<int>(knappar.size());
    knappar[finns ? static_cast<size_t>(nummer) : 0]->setChecked(true);
}

/// A frame with one row of radio buttons, "name(0)" and up.
QGroupBox* Knapprad(const QString& rubrik, const char* namn, int första, std::span<QRadioButton*> knappar,
                    std::span<const char* const> texter) {
    auto* grupp = new QGroupBox(rubrik);
    auto* rad = new QHBoxLayout(grupp);
    for (size_t i = 0; i < knappar.size(); ++i) {
        knappar[i] = new QRadioButton(QString::fromUtf8(texter[i]));
        knappar[i]->setObjectName(
            QStringLiteral("%1(%2)").arg(QLatin1String(namn)).arg(första + static_cast<int>(i)));
        rad->addWidget(knappar[i]);
    }
    rad->addStretch(1);
    return grupp;
}

QChar PortSiffra(QChar skrivet, const QLineEdit&) {
    return skrivet >= u'0' && skrivet <= u'9' ? skrivet : QChar();
}

/// A quote would end the value when the file is read, and the next line would be taken for the rest.
QChar UtanCitat(QChar skrivet, const QLineEdit&) { return skrivet == u'"' ? QChar() : skrivet; }

} // namespace

struct frInstDigi::Lista {
    platform::ComboBox* frInstDigi::*ruta;
    const char* namn;
    QString Digitalval::*värde;
    std::span<const char* const> val;
};

struct frInstDigi::Text {
    platform::TextBox* frInstDigi::*ruta;
    const char* namn;
    QString Digitalval::*värde;
};

struct frInstDigi::Kryss {
    QCheckBox* frInstDigi::*ruta;
    const char* namn;
    const char* text;
    int Digitalval::*värde;
};

std::span<const frInstDigi::Lista> frInstDigi::Listor() {
    using F = frInstDigi;
    using D = Digitalval;
    static const Lista listor[] = {
        {&F::cmbBandbredd, "cmbBandbredd", &D::DigiBandbredd, digiBandbredder},
        {&F::cmbComport, "cmbComport", &D::DigiComport, digiPortar},
        {&F::cmbFlöde, "cmbFlöde", &D::DigiFlöde, digiFlöden},
        {&F::cmbTrafik, "cmbTrafik", &D::DigiTrafik, digiTrafiksätt},
        {&F::cmbDisplay, "cmbDisplay", &D::DigiDisplay, digiVisningar},
        {&F::cmbFIFORX, "cmbFIFORX", &D::DigiFIFORX, digiDjup},
        {&F::cmbFIFOTX, "cmbFIFOTX", &D::DigiFIFOTX, digiDjup},
        {&F::cmbID, "cmbID", &D::DigiID, digiLjudkort},
        {&F::cmbRXKlocka, "cmbRXKlocka", &D::DigiRXKlocka, digiKlockor},
        {&F::cmbTXKlocka, "cmbTXKlocka", &D::DigiTXKlocka, digiAvvikelser},
    };
    return listor;
}

std::span<const frInstDigi::Text> frInstDigi::Texter() {
    static const Text texter[] = {
        {&frInstDigi::txtEffekt, "txtEffekt", &Digitalval::DigiEffekt},
        {&frInstDigi::txtUDP, "txtUDP", &Digitalval::DigiUDP},
    };
    return texter;
}

std::span<const frInstDigi::Kryss> frInstDigi::Kryssen() {
    using F = frInstDigi;
    using D = Digitalval;
    static const Kryss kryssen[] = {
        {&F::chkUOS, "chkUOS", "UOS", &D::DigiUOS}, {&F::chkAFC, "chkAFC", "AFC", &D::DigiAFC},
        {&F::chkHPT, "chkHPT", "HPF", &D::DigiHPF}, {&F::chkATC, "chkATC", "ATC", &D::DigiATC},
        {&F::chkNET, "chkNET", "NET", &D::DigiNET},
    };
    return kryssen;
}

frInstDigi::frInstDigi()
    : QDialog(&frTest::instans()) {
    Bygg();
    Initiera_Combo();
    connect(cmdSpara, &QPushButton::clicked, this, [this] { cmdSpara_Click(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, &QWidget::close);
    txtUDP->OnKeyPress(PortSiffra);
    txtEffekt->OnKeyPress(UtanCitat);
    if (QFile::exists(SVDDigiFil()))
        LäsStation();
    else
        NollställInställningar();
    Initiera_Inst();
}

frInstDigi& frInstDigi::instans() { return platform::SingleWindow<frInstDigi>::get(); }

void frInstDigi::Bygg() {
    setObjectName(QStringLiteral("frInstDigi"));
    setWindowTitle(QStringLiteral("Inställnigar"));
    for (const Lista& lista : Listor()) this->*lista.ruta = Named(new platform::ComboBox, lista.namn);
    for (const Text& text : Texter()) this->*text.ruta = Named(new platform::TextBox, text.namn);
    for (const Kryss& kryss : Kryssen())
        this->*kryss.ruta = Named(new QCheckBox(QLatin1String(kryss.text)), kryss.namn);
    cmdSpara = Named(new QPushButton(QStringLiteral("Spara")), "cmdSpara");
    cmdAvbryt = Named(new QPushButton(QStringLiteral("Stäng")), "cmdAvbryt");
    cmdSpara->setDefault(true);
    cmdAvbryt->setAutoDefault(false);

    auto* vänster = new QVBoxLayout;
    vänster->addWidget(ByggModem());
    vänster->addWidget(ByggÖvrigt());
    vänster->addStretch(1);
    auto* höger = new QVBoxLayout;
    höger->addWidget(ByggLjud());
    höger->addWidget(ByggSändning());
    höger->addStretch(1);
    auto* rutor = new QHBoxLayout;
    rutor->addLayout(vänster, 1);
    rutor->addLayout(höger, 1);
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    for (QPushButton* knapp : {cmdSpara, cmdAvbryt}) knappar->addWidget(knapp);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(rutor);
    plats->addLayout(knappar);
}

namespace {

/// A row of a form, which is also what a screen reader says.
void LäggTillRad(QFormLayout* rader, const char* rubrik, QWidget* ruta) {
    ruta->setAccessibleName(QString::fromUtf8(rubrik));
    rader->addRow(QString::fromUtf8(rubrik), ruta);
}

} // namespace

QGroupBox* frInstDigi::ByggModem() {
    auto* grupp = new QGroupBox(QStringLiteral("Modem"));
    auto* rader = new QFormLayout(grupp);
    LäggTillRad(rader, "Trafiksätt", cmbTrafik);
    LäggTillRad(rader, "Display", cmbDisplay);
    LäggTillRad(rader, "Bandbredd", cmbBandbredd);
    auto* kryssen = new QHBoxLayout;
    for (QCheckBox* ruta : {chkUOS, chkAFC, chkHPT, chkATC, chkNET}) kryssen->addWidget(ruta);
    rader->addRow(kryssen);
    LäggTillRad(rader, "FIFO RX", cmbFIFORX);
    LäggTillRad(rader, "FIFO TX", cmbFIFOTX);
    rader->addRow(Knapprad(QStringLiteral("Prioritet"), "optPrio", 0, optPrio,
                           std::array{"Normal", "Högre", "Högsta"}));
    return grupp;
}

QGroupBox* frInstDigi::ByggLjud() {
    auto* grupp = new QGroupBox(QStringLiteral("Ljudkort"));
    auto* rader = new QFormLayout(grupp);
    LäggTillRad(rader, "Ljudkort ID", cmbID);
    LäggTillRad(rader, "RX Klocka", cmbRXKlocka);
    LäggTillRad(rader, "TX Offset", cmbTXKlocka);
    constexpr std::array sidor{"Mono", "Vänster", "Höger"};
    const std::span kanaler(optKanal);
    rader->addRow(Knapprad(QStringLiteral("Ingång kanal Radio A"), "optKanal", 0, kanaler.first(3), sidor));
    rader->addRow(Knapprad(QStringLiteral("Ingång kanal Radio B"), "optKanal", 3, kanaler.subspan(3), sidor));
    return grupp;
}

QGroupBox* frInstDigi::ByggSändning() {
    auto* grupp = new QGroupBox(QStringLiteral("Sändning"));
    auto* rader = new QFormLayout(grupp);
    LäggTillRad(rader, "Com Port", cmbComport);
    LäggTillRad(rader, "Flöde", cmbFlöde);
    return grupp;
}

QGroupBox* frInstDigi::ByggÖvrigt() {
    auto* grupp = new QGroupBox(QStringLiteral("Övrigt"));
    auto* rader = new QFormLayout(grupp);
    LäggTillRad(rader, "Effekt", txtEffekt);
    LäggTillRad(rader, "UDP Port (FT8)", txtUDP);
    return grupp;
}

void frInstDigi::Visa() {
    if (!isVisible()) Initiera_Inst(); // what was typed and not saved the last time is gone
    platform::ShowInFront(*this);
    cmbTrafik->setFocus();
}

void frInstDigi::Initiera_Combo() {
    for (const Lista& lista : Listor()) {
        (this->*lista.ruta)->Clear();
        for (const char* val : lista.val) (this->*lista.ruta)->addItem(QLatin1String(val));
    }
}

void frInstDigi::LäsStation() {
    try {
        delat.Digital = radio::DigitalvalFrånText(platform::LoadTextFile(SVDDigiFil()));
    } catch (const platform::Failure&) {
        NollställInställningar();
        platform::MsgBox(
            QStringLiteral("Ett fel har inträffat vid läsning av Inställningar för Digital Mode! "
                           "Inställningarna har återgått till standard."),
            QStringLiteral("LäsDigi.ini"));
    }
}

void frInstDigi::NollställInställningar() { delat.Digital = {}; }

void frInstDigi::Initiera_Inst() {
    const Digitalval& val = delat.Digital;
    for (const Lista& lista : Listor()) (this->*lista.ruta)->Choose(val.*lista.värde);
    for (const Text& text : Texter()) (this->*text.ruta)->setText(val.*text.värde);
    for (const Kryss& kryss : Kryssen()) (this->*kryss.ruta)->setChecked(val.*kryss.värde != 0);
    const std::span kanaler(optKanal);
    TryckKnapp(kanaler.first(3), val.DigiKanalA);
    TryckKnapp(kanaler.subspan(3), val.DigiKanalB - 3);
    TryckKnapp(optPrio, val.DigiPrio);
}

bool frInstDigi::SparaStation() {
    Digitalval& val = delat.Digital;
    for (const Lista& lista : Listor()) val.*lista.värde = (this->*lista.ruta)->Text();
    for (const Text& text : Texter()) val.*text.värde = (this->*text.ruta)->text();
    for (const Kryss& kryss : Kryssen()) val.*kryss.värde = (this->*kryss.ruta)->isChecked();
    const std::span kanaler(optKanal);
    val.DigiKanalA = Nedtryckt(kanaler.first(3));
    val.DigiKanalB = 3 + Nedtryckt(kanaler.subspan(3));
    val.DigiPrio = Nedtryckt(optPrio);
    try {
        platform::SaveTextFile(SVDDigiFil(), radio::DigitalvalTillText(val));
        return true;
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid sparning av stationsinställningar!"),
                         QStringLiteral("SparaStation"));
        return false;
    }
}

void frInstDigi::cmdSpara_Click() {
    const bool sparat = SparaStation();
    frTest::instans().Initiera_MMVari();
    if (sparat) close();
}
