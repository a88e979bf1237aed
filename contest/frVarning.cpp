#include "contest/frVarning.h"

#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/widgets.h"
#include "platform/windows.h"
#include "store/PrefixSök.h"

#include <QVBoxLayout>

using platform::Named;

namespace {
const QString dubblettText = QStringLiteral("DUBBLETT !!!");
const QString ejGiltigText = QStringLiteral("EJ GILTIG !!!");
} // namespace

frVarning::frVarning()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frVarning"));
    setWindowTitle(QStringLiteral("VARNING !"));
    auto* plats = new QVBoxLayout(this);
    plats->setContentsMargins(40, 24, 40, 20);
    plats->setSpacing(14);
    const auto etikett = [&](const char* namn, const QString& text, double gånger) {
        auto* ny = Named(new QLabel(text), namn);
        QFont stor = ny->font();
        stor.setPointSizeF(stor.pointSizeF() * gånger);
        stor.setBold(true);
        ny->setFont(stor);
        ny->setAlignment(Qt::AlignCenter);
        ny->setStyleSheet(QStringLiteral("color: #c00000;"));
        plats->addWidget(ny);
        return ny;
    };
    lblVarning1 = etikett("lblVarning1", QStringLiteral("VARNING"), 1.8);
    lblVarning2 = etikett("lblVarning2", dubblettText, 2.6);
    cmdOK = Named(new QPushButton(QStringLiteral("OK")), "cmdOK");
    cmdOK->setDefault(true);
    plats->addWidget(cmdOK, 0, Qt::AlignCenter);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frVarning& frVarning::instans() { return platform::SingleWindow<frVarning>::get(); }

void frVarning::VisaModalt() {
    frTest& f = frTest::instans();
    if (contest::TestFör(delat.AktuelltTest).dubblett.ejNordiska &&
        store::ÄrNordisk(f.lblDXCC->text(), f.lblKont->text()))
        lblVarning2->setText(ejGiltigText);
    delat.VarningUppe = true;
    const bool ok = exec() == QDialog::Accepted;
    lblVarning2->setText(dubblettText);
    delat.VarningUppe = false;
    f.activateWindow(); // the next key belongs to the form, however the window went away
    if (!ok) return;
    f.RensaTest();
    f.txtSignal->setFocus();
}
