#include "reports/Rapportfönster.h"

#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"

#include <algorithm>

using platform::Named;

Rapportfönster::Rapportfönster(const char* namn, const QString& titel)
    : QDialog(&frTest::instans())
    , fält_(new QGridLayout)
    , knappar_(new QHBoxLayout) {
    setObjectName(QLatin1String(namn));
    setWindowTitle(titel);
    fält_->setHorizontalSpacing(8);
    for (int kolumn = 0; kolumn < 2; ++kolumn) fält_->setColumnStretch(2 * kolumn + 1, 1);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(fält_);
    plats->addStretch(1);
    plats->addLayout(knappar_);
    resize(720, 0);
}

void Rapportfönster::Visa(const QString& titel) {
    setWindowTitle(titel);
    if (!isVisible()) Ladda();
    show();
    raise();
    activateWindow();
}

void Rapportfönster::LäggTill(QWidget* kontroll, const char* rubrik, int kolumn) {
    auto* etikett = new QLabel(QString::fromUtf8(rubrik));
    etikett->setBuddy(kontroll);
    kontroll->setAccessibleName(etikett->text());
    const int rad = rader_[static_cast<size_t>(kolumn)]++;
    fält_->addWidget(etikett, rad, 2 * kolumn);
    fält_->addWidget(kontroll, rad, 2 * kolumn + 1);
}

Rapportfönster::Fält* Rapportfönster::NyttFält(const char* namn, const char* rubrik, int kolumn) {
    auto* nytt = Named(new Fält, namn);
    LäggTill(nytt, rubrik, kolumn);
    return nytt;
}

Rapportfönster::Lista* Rapportfönster::NyLista(const char* namn, const char* rubrik, int kolumn) {
    auto* ny = Named(new Lista, namn);
    LäggTill(ny, rubrik, kolumn);
    return ny;
}

QComboBox* Rapportfönster::NyttVal(const char* namn, const char* rubrik, int kolumn) {
    auto* nytt = Named(new QComboBox, namn);
    LäggTill(nytt, rubrik, kolumn);
    return nytt;
}

QPushButton* Rapportfönster::NyKnapp(const char* namn, const char* text) {
    auto* ny = Named(new QPushButton(QString::fromUtf8(text)), namn);
    ny->setAutoDefault(false);
    knappar_->addWidget(ny);
    return ny;
}

QPushButton* Rapportfönster::NyStängknapp() {
    knappar_->addStretch(1);
    QPushButton* stäng = NyKnapp("cmdStäng", "Stäng");
    connect(stäng, &QPushButton::clicked, this, &QWidget::close);
    return stäng;
}

reports::Stationsuppgifter Rapportfönster::Stationsuppgifter() {
    const frTestInst& station = Station();
    return {.signal = station.txtSignal->text(),
            .lokator = station.txtTestLokator->text(),
            .namn = station.txtNamn->text(),
            .adress = station.txtAdress->text(),
            .postnr = station.txtPostnr->text(),
            .postAdress = station.txtPostAdress->text(),
            .land = station.txtLand->text(),
            .email = station.txtEmail->text(),
            .effekt = station.txtEffekt->text()};
}

void SkapaRapport(const Rapporttexter& texter, const std::function<void()>& skriv) {
    try {
        skriv();
    } catch (const platform::Failure&) {
        return platform::MsgBox(texter.fel, texter.felTitel);
    }
    frTest::instans().Initiera_dgLogg1();
    platform::MsgBox(texter.klar, texter.klarTitel);
}

bool SaknarUppgifter(std::initializer_list<const QLineEdit*> fält) {
    if (std::none_of(fält.begin(), fält.end(), [](const QLineEdit* ett) { return ett->text().isEmpty(); }))
        return false;
    platform::MsgBox(QStringLiteral("Saknar viktiga uppgifter! Var god kontrollera dessa."),
                     QStringLiteral("Saknar uppgifter"));
    return true;
}

void FyllRapportlista(QComboBox& lista, std::initializer_list<const char*> poster) {
    lista.clear();
    for (const char* post : poster) lista.addItem(QString::fromUtf8(post));
    lista.setCurrentIndex(0);
}
