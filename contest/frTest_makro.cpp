// The macro buttons.
#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/textfile.h"
#include "radio/frMacroEditor.h"

#include <QGridLayout>

QWidget* frTest::ByggMakro() {
    fmMacro = platform::Named(new QGroupBox(QStringLiteral("Macro")), "fmMacro");
    auto* plats = new QGridLayout(fmMacro);
    plats->setContentsMargins(4, 2, 4, 4);
    plats->setSpacing(3);
    constexpr int perRad = 6;
    for (int i = 1; i <= radio::makroKnappar; ++i) {
        auto* knapp = new platform::PushButton;
        knapp->setObjectName(QStringLiteral("cmdMacro(%1)").arg(i));
        // The mouse leaves the focus in the field where the operator types.
        knapp->setFocusPolicy(Qt::TabFocus);
        knapp->setAutoDefault(true); // Enter on a focused button presses that button
        // All of one width, whatever their captions.
        knapp->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        knapp->setMinimumWidth(knapp->fontMetrics().averageCharWidth() * 10 + 14);
        connect(knapp, &QPushButton::clicked, this, [this, i] { cmdMacro_Click(i); });
        knapp->OnRightPress([i] { frMacroEditor::instans().VisaModalt(i); });
        cmdMacro[static_cast<size_t>(i)] = knapp;
        plats->addWidget(knapp, (i - 1) / perRad, (i - 1) % perRad);
        VisaMakroknapp(i);
    }
    return fmMacro;
}

void frTest::VisaMakroknapp(int nummer) {
    const QString& rubrik = delat.MakroTabell.at(static_cast<size_t>(nummer - 1))[0];
    platform::PushButton& knapp = *cmdMacro.at(static_cast<size_t>(nummer));
    knapp.setText(QString(rubrik).replace(u'&', QLatin1String("&&")));
    knapp.setAccessibleName(rubrik.isEmpty() ? QStringLiteral("Macro %1").arg(nummer) : rubrik);
}

void frTest::cmdMacro_Click(int nummer) {
    const radio::Makrovärden värden{.minSignal = delat.OpSignal.isEmpty() ? delat.EgenSignal : delat.OpSignal,
                                    .motSignal = txtSignal->text(),
                                    .sändRapport = txtRSTS->text(),
                                    .mottagenRapport = txtRSTM->text(),
                                    .mittNamn = delat.OpNamn,
                                    .mottagetNamn = txtNamn->text(),
                                    .mittQTH = delat.OpPostadr,
                                    .minLokator = delat.OpTestLokator,
                                    .datum = platform::Now().date().toString(QStringLiteral("yyyy-MM-dd"))};
    const QString& makro = delat.MakroTabell.at(static_cast<size_t>(nummer - 1))[1];
    const radio::Makrosändning sändning = radio::ExpanderaMakro(makro, värden);
    if (sändning.tx) TX();
    if (sändning.rx) RX();
    TXWindow->moveCursor(QTextCursor::End);
    TXWindow->insertPlainText(sändning.text);
}

void frTest::LäsTestMakroIni(const QString& filnamn) {
    delat.MakroDigital = true;
    bool läst = true;
    try {
        radio::LäsMakron(platform::LoadTextFile(filnamn), delat.MakroTabell);
    } catch (const platform::Failure&) {
        läst = false;
    }
    // After a failure too: what a button says is what it sends.
    if (delat.MakroDigital)
        for (int i = 1; i <= radio::makroKnappar; ++i) VisaMakroknapp(i);
    if (!läst)
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid läsning av Makro Ini."),
                         QStringLiteral("LäsTestMakroIni"));
}

void frTest::SparaTestMakro(const QString& filnamn) {
    const int allaMakron = static_cast<int>(delat.MakroTabell.size());
    try {
        for (const auto& [väljs, antal] :
             {std::pair{delat.MakroDigital, radio::makroKnappar}, {delat.MakroCW, allaMakron}})
            if (väljs) platform::SaveTextFile(filnamn, radio::MakronTillText(delat.MakroTabell, antal));
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid sparning av Makro Ini"),
                         QStringLiteral("SparaTestMakro"));
    }
}

void frTest::LaddaMakrofil(const QString& mapp) {
    const auto fil = platform::AskFile({.title = QStringLiteral("Ladda Fil"),
                                        .folder = platform::DataPath(mapp),
                                        .filter = QStringLiteral("Fil (*.ini)|*.ini")});
    if (fil) LäsTestMakroIni(*fil);
}
