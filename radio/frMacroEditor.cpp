#include "radio/frMacroEditor.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QHeaderView>

#include <utility>

using platform::Twips;

namespace {

/// The macro that is edited.
std::array<QString, 2>& EditeratMakro() {
    return delat.MakroTabell.at(static_cast<size_t>(delat.MakroKnapp - 1));
}

} // namespace

frMacroEditor::frMacroEditor()
    : QDialog(&frTest::instans()) {
    Bygg();
    Initiera_gridKortKom();
    for (platform::TextBox* fält : {txtKnapp, txtMakro}) fält->OnKeyPress(platform::UpperCase);
    connect(cmdSpara, &QPushButton::clicked, this, [this] { cmdSpara_Click(); });
    connect(cmdRensa, &QPushButton::clicked, this, [this] {
        for (platform::TextBox* fält : {txtKnapp, txtMakro}) fält->clear();
    });
    connect(cmdStäng, &QPushButton::clicked, this, &QWidget::close);
    adjustSize();
}

frMacroEditor& frMacroEditor::instans() { return platform::SingleWindow<frMacroEditor>::get(); }

void frMacroEditor::Bygg() {
    setObjectName(QStringLiteral("frMacroEditor"));
    setWindowTitle(QStringLiteral("Macro Editor"));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    gridKortKom = platform::Named(new platform::FlexGrid(Qt::AlignLeft | Qt::AlignVCenter), "gridKortKom");
    gridKortKom->setAccessibleName(QStringLiteral("Kommandon"));
    gridKortKom->setFocusPolicy(Qt::ClickFocus);
    // Its longest text, so that the window has its size when it is given its place.
    lblKnapp = platform::Named(new QLabel(QStringLiteral("Knapp 12")), "lblKnapp");
    txtKnapp = platform::Named(new platform::TextBox, "txtKnapp");
    txtMakro = platform::Named(new platform::TextBox, "txtMakro");
    txtKnapp->setAccessibleName(QStringLiteral("Knapp"));
    txtMakro->setAccessibleName(QStringLiteral("Makro"));
    txtMakro->setMinimumWidth(txtMakro->fontMetrics().averageCharWidth() * 60);
    cmdSpara = platform::NewButton("cmdSpara", QStringLiteral("Spara"));
    cmdRensa = platform::NewButton("cmdRensa", QStringLiteral("Rensa"));
    cmdStäng = platform::NewButton("cmdStäng", QStringLiteral("Stäng"));
    cmdKnappfärg = platform::NewButton("cmdKnappfärg", QStringLiteral("Knapp färg"));
    cmdÅter = platform::NewButton("cmdÅter", QStringLiteral("Grundställ Färg"));
    cmdSpara->setDefault(true);
    for (QPushButton* knapp : {cmdRensa, cmdStäng, cmdKnappfärg, cmdÅter})
        knapp->setAutoDefault(true); // Enter on a focused button presses that button

    auto* rader = new QFormLayout;
    rader->addRow(lblKnapp, txtKnapp);
    rader->addRow(QStringLiteral("Makro"), txtMakro);
    auto* färger = new QHBoxLayout;
    for (QPushButton* knapp : {cmdKnappfärg, cmdÅter}) färger->addWidget(knapp);
    färger->addStretch(1);
    auto* knappar = new QHBoxLayout;
    for (QPushButton* knapp : {cmdSpara, cmdRensa}) knappar->addWidget(knapp);
    knappar->addStretch(1);
    knappar->addWidget(cmdStäng);
    auto* vänster = new QVBoxLayout;
    vänster->addLayout(rader);
    vänster->addLayout(färger);
    vänster->addStretch(1);
    vänster->addLayout(knappar);
    auto* plats = new QHBoxLayout(this);
    plats->addLayout(vänster, 1);
    plats->addWidget(gridKortKom);
    // From the text to what is done with it.
    for (QWidget* förra = txtMakro;
         QPushButton * knapp : {cmdSpara, cmdRensa, cmdStäng, cmdKnappfärg, cmdÅter})
        setTabOrder(std::exchange(förra, knapp), knapp);
}

void frMacroEditor::Initiera_gridKortKom() {
    constexpr int antal = static_cast<int>(std::size(radio::makrokommandon));
    gridKortKom->Clear(antal + 1, 2);
    gridKortKom->Cell(0, 0, QStringLiteral("Kommando"));
    gridKortKom->Cell(0, 1, QStringLiteral("Beskrivning"));
    for (int rad = 0; rad < antal; ++rad) {
        const radio::Makrokommando& kommando = radio::makrokommandon[rad];
        gridKortKom->Cell(rad + 1, 0, QString::fromUtf8(kommando.kommando));
        gridKortKom->Cell(rad + 1, 1, QString::fromUtf8(kommando.hjälp));
    }
    const QFontMetrics mått = gridKortKom->fontMetrics();
    gridKortKom->verticalHeader()->setDefaultSectionSize(mått.height() + 3);
    gridKortKom->setColumnWidth(0, mått.horizontalAdvance(QStringLiteral("Kommando")) + 14);
    gridKortKom->setColumnWidth(1, mått.horizontalAdvance(QStringLiteral("Mot stations Signal")) + 14);
    gridKortKom->setFixedSize(gridKortKom->columnWidth(0) + gridKortKom->columnWidth(1) + 4,
                              (antal + 1) * gridKortKom->verticalHeader()->defaultSectionSize() + 4);
}

void frMacroEditor::VisaModalt(int knapp) {
    delat.MakroKnapp = knapp;
    lblKnapp->setText(QStringLiteral("Knapp %1").arg(knapp));
    txtKnapp->setText(EditeratMakro()[0]);
    txtMakro->setText(EditeratMakro()[1]);
    txtKnapp->setFocus();
    platform::MoveOntoScreen(*this, {Twips(2400), Twips(6400)});
    exec();
}

void frMacroEditor::SparaMacro() {
    const auto fil = platform::AskFile(
        {.title = QStringLiteral("Spara Fil"),
         .folder = platform::DataPath(delat.MakroDigital ? QStringLiteral("Macrofiler/Digital")
                                                         : QStringLiteral("Macrofiler/CW")),
         .filter = QStringLiteral("Fil (*.ini)|*.ini"),
         .save = true});
    if (!fil) return;
    platform::DoEvents();
    frTest::instans().SparaTestMakro(*fil);
}

void frMacroEditor::cmdSpara_Click() {
    EditeratMakro() = {txtKnapp->text(), txtMakro->text()};
    if (delat.MakroDigital) frTest::instans().VisaMakroknapp(delat.MakroKnapp);
    SparaMacro();
}
