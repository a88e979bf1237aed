#include "contest/frTestVal.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "contest/frTestInst.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "store/Databaser.h"

#include <QBoxLayout>
#include <QHeaderView>

using platform::Named;
using platform::Twips;

namespace {
/// The grid is longer than the catalogue; the empty rows can be chosen and leave the contest as it is.
constexpr int antalRader = 18;
} // namespace

frTestVal::frTestVal()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frTestVal"));
    setWindowTitle(QStringLiteral("Val av Test"));
    fgTestVal = Named(new platform::FlexGrid, "fgTestVal");
    fgTestVal->setAccessibleName(QStringLiteral("Tester"));
    fgTestVal->verticalHeader()->setDefaultSectionSize(fgTestVal->fontMetrics().height() + 8);
    cmdNyTest = Named(new QPushButton(QStringLiteral("NY")), "cmdNyTest");
    cmdTidigare = Named(new QPushButton(QStringLiteral("Tidigare")), "cmdTidigare");
    cmdAvbryt = Named(new QPushButton(QStringLiteral("Stäng")), "cmdAvbryt");
    cmdNyTest->setDefault(true);
    auto* knappar = new QHBoxLayout;
    for (QPushButton* knapp : {cmdNyTest, cmdTidigare}) knappar->addWidget(knapp);
    knappar->addStretch(1);
    knappar->addWidget(cmdAvbryt);
    auto* plats = new QVBoxLayout(this);
    plats->addWidget(fgTestVal, 1);
    plats->addLayout(knappar);

    connect(cmdNyTest, &QPushButton::clicked, this, [this] { ValavTest(); });
    connect(cmdTidigare, &QPushButton::clicked, this, [this] {
        close();
        frTest::instans().ÖppnaTestLogg();
    });
    connect(cmdAvbryt, &QPushButton::clicked, this, &QWidget::close);
    connect(fgTestVal, &QTableWidget::cellDoubleClicked, this, [this](int, int) {
        ValavTest();
        frTest::instans().TimerAktiv->Interval(0);
        frTest::instans().TimerVila->Interval(0);
    });
}

frTestVal& frTestVal::instans() { return platform::SingleWindow<frTestVal>::get(); }

void frTestVal::Visa() {
    if (!isVisible()) Initiera_TestVal();
    show();
    raise();
    activateWindow();
    fgTestVal->setFocus();
}

void frTestVal::Initiera_TestVal() {
    fgTestVal->Clear(antalRader, 1);
    fgTestVal->setColumnWidth(0, Twips(5290));
    for (int nummer = 0; nummer < contest::antalTest; ++nummer) {
        fgTestVal->Cell(nummer, 0, contest::TestFör(nummer).radText.toString());
        fgTestVal->item(nummer, 0)->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
    fgTestVal->setCurrentCell(0, 0);
    const int höjd = antalRader * fgTestVal->verticalHeader()->defaultSectionSize() + 6;
    fgTestVal->setMinimumSize(Twips(5290) + 24, qMin(höjd, 360));
    resize(Twips(5290) + 48, höjd + 70);
}

void frTestVal::ValavTest() {
    try {
        const int rad = fgTestVal->currentRow();
        if (rad >= 0 && rad < contest::antalTest) delat.AktuelltTest = rad;
        close();
        frTest& f = frTest::instans();
        f.NyTestLogg();
        frTestInst::instans().VisaModalt();
        if (!f.HarLogg()) return;
        f.VisaStation();
        delat.TestVald = true;
        delat.TidGår = false;
        f.TimerAktiv->Interval(0);
        f.TimerVila->Interval(0);
        f.txtAktiv->setText(db().rsINFO.Field(QStringLiteral("AktivTid")).text());
        f.txtVila->setText(db().rsINFO.Field(QStringLiteral("ViloTid")).text());
        f.lblMultiplar->setText(QStringLiteral("0"));
        f.lblDiplom->setText(QStringLiteral("0"));
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid val av test!"),
                         QStringLiteral("ValavTest"));
    }
}
