#include "shared/frData.h"

#include "contest/frTest.h"
#include "platform/windows.h"
#include "store/Databaser.h"
#include "store/Sökning.h"

#include <QBoxLayout>
#include <QGridLayout>

using platform::Named;

frData::frData()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frData"));
    setWindowTitle(QStringLiteral("Lokator (lista)"));
    dgLokator = Named(new platform::DataGrid, "dgLokator");
    dgLokator->setAccessibleName(QStringLiteral("Lokatorer"));
    txtS = Named(new platform::TextBox, "txtS");
    txtL = Named(new platform::TextBox, "txtL");
    const auto knapp = [](const char* text, const char* namn) {
        auto* ny = Named(new QPushButton(QString::fromUtf8(text)), namn);
        ny->setAutoDefault(false);
        return ny;
    };
    cmdSökS = knapp("Sök", "cmdSökS");
    cmdSökL = knapp("Sök", "cmdSökL");
    cmdRensa = knapp("Avbryt", "cmdRensa");
    cmdF = knapp("Första", "cmdF");
    cmdS = knapp("Sista", "cmdS");
    cmdStäng = knapp("Stäng", "cmdStäng");

    auto* sök = new QGridLayout;
    const auto rad = [sök](int nummer, const char* rubrik, platform::TextBox* text, QPushButton* starta) {
        auto* etikett = new QLabel(QString::fromUtf8(rubrik));
        etikett->setBuddy(text);
        text->setAccessibleName(etikett->text());
        text->OnKeyPress(platform::UpperCaseNoBlank);
        sök->addWidget(etikett, nummer, 0);
        sök->addWidget(text, nummer, 1);
        sök->addWidget(starta, nummer, 2);
    };
    rad(0, "Signal", txtS, cmdSökS);
    rad(1, "Lokator", txtL, cmdSökL);
    auto* knappar = new QHBoxLayout;
    for (QPushButton* en : {cmdF, cmdS, cmdRensa}) knappar->addWidget(en);
    knappar->addStretch(1);
    knappar->addWidget(cmdStäng);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(sök);
    plats->addWidget(dgLokator, 1);
    plats->addLayout(knappar);
    setMinimumWidth(360);
    Koppla();
}

frData& frData::instans() { return platform::SingleWindow<frData>::get(); }

void frData::Koppla() {
    connect(cmdSökS, &QPushButton::clicked, this, [this] { Sök(QStringLiteral("Signal"), txtS->text()); });
    connect(cmdSökL, &QPushButton::clicked, this, [this] { Sök(QStringLiteral("Lokator"), txtL->text()); });
    connect(txtS, &QLineEdit::returnPressed, cmdSökS, &QPushButton::click);
    connect(txtL, &QLineEdit::returnPressed, cmdSökL, &QPushButton::click);
    connect(cmdRensa, &QPushButton::clicked, this, [this] { cmdRensa_Click(); });
    connect(cmdF, &QPushButton::clicked, this, [] {
        platform::Recordset& minne = db().rsLokator;
        if (minne.IsOpen() && !minne.IsBOF()) minne.MoveFirst();
    });
    connect(cmdS, &QPushButton::clicked, this, [] {
        platform::Recordset& minne = db().rsLokator;
        if (minne.IsOpen() && !minne.IsEOF()) minne.MoveLast();
    });
    connect(cmdStäng, &QPushButton::clicked, this, &QWidget::close);
}

void frData::Visa() {
    if (!isVisible()) {
        for (platform::TextBox* text : {txtS, txtL}) text->clear();
        Init_Lokator();
    }
    show();
    raise();
    activateWindow();
    txtS->setFocus();
}

void frData::Init_Lokator() {
    resize(width(), platform::Twips(5025));
    dgLokator->Bind(&db().rsLokator, {{QStringLiteral("Signal"), QStringLiteral("Signal"), 150},
                                      {QStringLiteral("Lokator"), QStringLiteral("Lokator"), 120}});
}

void frData::Sök(const QString& kolumn, const QString& text) {
    platform::Recordset& minne = db().rsLokator;
    if (!minne.IsOpen()) return; // the close menu has closed it
    SökLika(minne, kolumn, text, windowTitle());
}

void frData::cmdRensa_Click() {
    if (db().rsLokator.IsOpen()) db().rsLokator.Filter(QString());
    for (platform::TextBox* text : {txtS, txtL}) text->clear();
}
