#include "contest/frTestInst.h"

#include "contest/DeladeVärden.h"
#include "contest/TestDatum.h"
#include "contest/TestKatalog.h"
#include "contest/frTest.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "store/Databaser.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QGroupBox>

using platform::Named;

/// One value of the station data: its column, its shared value, its field, and what Rensa puts there.
struct frTestInst::Uppgift {
    const char* kolumn;
    QString DeladeVärden::*värde;
    Fält* frTestInst::*fält; ///< nullptr: the UTC box
    const char* start;
};

const std::vector<frTestInst::Uppgift>& frTestInst::Uppgifter() {
    using D = DeladeVärden;
    using F = frTestInst;
    static const std::vector<Uppgift> uppgifter = {
        {"EgenSignal", &D::EgenSignal, &F::txtEgenSignal, ""},
        {"OpNamn", &D::OpNamn, &F::txtNamn, ""},
        {"OpAdress", &D::OpAdress, &F::txtAdress, ""},
        {"OpPostnr", &D::OpPostnr, &F::txtPostnr, ""},
        {"OpPostadr", &D::OpPostadr, &F::txtPostAdress, ""},
        {"OpEmail", &D::OpEmail, &F::txtEmail, ""},
        {"OpLand", &D::OpLand, &F::txtLand, ""},
        {"OpRig", &D::OpRig, &F::txtRig, ""},
        {"OpAntenn", &D::OpAntenn, &F::txtAntenn, ""},
        {"OpHöjdHav", &D::OpHöjdHav, &F::txtHöjdHav, "0"},
        {"OpHöjdLand", &D::OpHöjdLand, &F::txtHöjdLand, "0"},
        {"OpKlubbSignal", &D::OpKlubbSignal, &F::txtKlubbSignal, ""},
        {"OpTestDatum", &D::OpTestDatum, &F::txtTestDatum, ""},
        {"OpSignal", &D::OpSignal, &F::txtSignal, ""},
        {"OpTestLokator", &D::OpTestLokator, &F::txtTestLokator, ""},
        {"OpUTCTid", &D::OpUTCTid, nullptr, ""},
        {"OpITU", &D::OpITU, &F::txtITU, "18"},
        {"OpZon", &D::OpZon, &F::txtZON, "14"},
        {"OpPrefix", &D::OpPrefix, &F::txtPrefix, ""},
        {"OpEffekt", &D::OpEffekt, &F::txtEffekt, ""},
    };
    return uppgifter;
}

QString frTestInst::Text(const Uppgift& uppgift) const {
    return uppgift.fält ? (this->*uppgift.fält)->text() : cmbUTC->Text();
}

void frTestInst::Text(const Uppgift& uppgift, const QString& text) {
    if (uppgift.fält)
        (this->*uppgift.fält)->setText(text);
    else
        cmbUTC->Choose(text);
}

frTestInst::frTestInst() {
    ByggFönster();
    for (Fält* fält : {txtSignal, txtEgenSignal, txtKlubbSignal, txtPrefix, txtTestLokator})
        fält->OnKeyPress(platform::UpperCase);
    for (Fält* fält : {txtNamn, txtAdress, txtPostAdress, txtLand})
        fält->OnKeyPress(platform::UpperCaseAtStart, Fält::Pasted::AsIs);
    connect(cmdSpara, &QPushButton::clicked, this, [this] {
        SparaSVDIni();
        if (contest::TestFör(delat.AktuelltTest).kollaTestDatum) KollaTestDatum();
    });
    connect(cmdRensa, &QPushButton::clicked, this, [this] { Instini(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, &QDialog::reject);
    VisaDelade();
    Initiera_Combo();
}

frTestInst& frTestInst::instans() { return platform::SingleWindow<frTestInst>::get(); }

void frTestInst::ByggFönster() {
    setObjectName(QStringLiteral("frTestInst"));
    setWindowTitle(QStringLiteral("Station / Test Inst."));
    const auto grupp = [](const QString& rubrik) {
        auto* ruta = new QGroupBox(rubrik);
        auto* rader = new QFormLayout(ruta);
        rader->setVerticalSpacing(5);
        return std::pair(ruta, rader);
    };
    const auto fält = [](QFormLayout* rader, const char* namn, const char* rubrik, int tecken) {
        auto* nytt = Named(new Fält, namn);
        nytt->setMinimumWidth(nytt->fontMetrics().averageCharWidth() * tecken + 16);
        nytt->setAccessibleName(QString::fromUtf8(rubrik));
        rader->addRow(QString::fromUtf8(rubrik), nytt);
        return nytt;
    };

    auto [test, testRader] = grupp(QStringLiteral("Test"));
    txtSignal = fält(testRader, "txtSignal", "* Test Signal", 14);
    txtTestLokator = fält(testRader, "txtTestLokator", "* Test Lokator", 14);
    txtTestDatum = fält(testRader, "txtTestDatum", "*Test Datum", 14);
    txtPrefix = fält(testRader, "txtPrefix", "Test Prefix", 14);
    txtKlubbSignal = fält(testRader, "txtKlubbSignal", "Klubb Signal", 14);
    txtITU = fält(testRader, "txtITU", "ITU", 14);
    txtZON = fält(testRader, "txtZON", "Zon", 14);
    cmbUTC = Named(new platform::ComboBox, "cmbUTC");
    cmbUTC->setAccessibleName(QStringLiteral("UTC"));
    testRader->addRow(QStringLiteral("UTC"), cmbUTC);
    auto* obs = new QLabel(QStringLiteral("OBS ! * Måste vara ifyllda !"));
    obs->setStyleSheet(QStringLiteral("color: #c00000; font-weight: bold;"));
    testRader->addRow(obs);

    auto [operatör, operatörRader] = grupp(QStringLiteral("Operatör"));
    txtEgenSignal = fält(operatörRader, "txtEgenSignal", "Egen Signal", 26);
    txtNamn = fält(operatörRader, "txtNamn", "Namn", 26);
    txtAdress = fält(operatörRader, "txtAdress", "Adress", 26);
    txtPostnr = fält(operatörRader, "txtPostnr", "Postnr", 26);
    txtPostAdress = fält(operatörRader, "txtPostAdress", "Postadress", 26);
    txtLand = fält(operatörRader, "txtLand", "Land", 26);
    txtEmail = fält(operatörRader, "txtEmail", "E-mail", 26);

    auto [station, stationRader] = grupp(QStringLiteral("Station"));
    txtRig = fält(stationRader, "txtRig", "Rig. TX / RX", 26);
    txtAntenn = fält(stationRader, "txtAntenn", "Antenn", 26);
    txtEffekt = fält(stationRader, "txtEffekt", "Effekt", 26);
    txtHöjdHav = fält(stationRader, "txtHöjdHav", "Höjd över hav (m)", 26);
    txtHöjdLand = fält(stationRader, "txtHöjdLand", "Höjd över land (m)", 26);

    cmdSpara = Named(new QPushButton(QStringLiteral("Spara")), "cmdSpara");
    cmdRensa = Named(new QPushButton(QStringLiteral("Rensa")), "cmdRensa");
    cmdAvbryt = Named(new QPushButton(QStringLiteral("Stäng")), "cmdAvbryt");
    cmdSpara->setDefault(true);
    auto* knappar = new QHBoxLayout;
    for (QPushButton* knapp : {cmdSpara, cmdRensa}) knappar->addWidget(knapp);
    knappar->addStretch(1);
    knappar->addWidget(cmdAvbryt);

    auto* höger = new QVBoxLayout;
    höger->addWidget(operatör);
    höger->addWidget(station);
    auto* rutor = new QHBoxLayout;
    rutor->addWidget(test, 0, Qt::AlignTop);
    rutor->addLayout(höger, 1);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(rutor);
    plats->addStretch(1);
    plats->addLayout(knappar);
}

void frTestInst::Initiera_Combo() {
    const QString text = cmbUTC->Text();
    cmbUTC->Clear();
    for (const char* timmar : {"0", "-1", "-2", "-3"}) cmbUTC->addItem(QLatin1String(timmar));
    cmbUTC->setCurrentIndex(cmbUTC->findText(text));
    cmbUTC->Text(text);
}

void frTestInst::VisaDelade() {
    for (const Uppgift& uppgift : Uppgifter()) Text(uppgift, delat.*uppgift.värde);
}

void frTestInst::VisaModalt() {
    txtSignal->setFocus();
    exec();
}

void frTestInst::done(int resultat) {
    QDialog::done(resultat);
    // What was typed and not saved goes with the window; the next one shows what is in force.
    VisaDelade();
}

void frTestInst::LäsSVDIni() {
    const platform::Recordset& rad = db().rsSVDINI;
    for (const Uppgift& uppgift : Uppgifter())
        delat.*uppgift.värde = rad.Field(QString::fromUtf8(uppgift.kolumn)).text();
    delat.OpEpost = rad.Field(QStringLiteral("OpEpost")).text();
    delat.OpEdit = rad.Field(QStringLiteral("OpEdit")).text();
    if (!isVisible()) VisaDelade();
}

void frTestInst::SparaSVDIni() {
    if (txtSignal->text().isEmpty() || txtTestDatum->text().isEmpty() || txtTestLokator->text().isEmpty()) {
        platform::MsgBox(QStringLiteral("Saknar viktiga uppgifter! Var god kontrollera dessa."),
                         QStringLiteral("Saknar uppgifter"));
        return;
    }
    ÅteröppnaDatabasar();
    platform::Recordset& rad = db().rsSVDINI;
    for (const Uppgift& uppgift : Uppgifter()) delat.*uppgift.värde = Text(uppgift);
    for (const Uppgift& uppgift : Uppgifter())
        rad.Field(QString::fromUtf8(uppgift.kolumn), delat.*uppgift.värde);
    rad.Update();
}

void frTestInst::Instini() {
    for (const Uppgift& uppgift : Uppgifter())
        if (uppgift.fält) Text(uppgift, QString::fromUtf8(uppgift.start));
}

void frTestInst::KollaTestDatum() {
    if (contest::TestDatumStämmer(delat.AktuelltTest, platform::Now().date())) return;
    platform::MsgBox(QStringLiteral("Angivet Test Datum stämmer inte med Aktuell Test!"),
                     QStringLiteral("Fel Datum!"));
}
