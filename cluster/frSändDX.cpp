#include "cluster/frSändDX.h"

#include "cluster/Spottext.h"
#include "cluster/frDXCluster.h"
#include "contest/frTest.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QFormLayout>

using platform::Named;

frSändDX::frSändDX()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frSändDX"));
    setWindowTitle(QStringLiteral("Sänd DX"));
    auto* rader = new QFormLayout;
    const auto fält = [rader](const char* namn, const char* rubrik) {
        auto* nytt = Named(new platform::TextBox, namn);
        nytt->setAccessibleName(QString::fromUtf8(rubrik));
        rader->addRow(nytt->accessibleName(), nytt);
        return nytt;
    };
    txtSignal = fält("txtSignal", "Signal");
    txtFrekvens = fält("txtFrekvens", "Frekvens");
    txtNotering = fält("txtNotering", "Notering");
    txtSignal->OnKeyPress(platform::UpperCase);
    txtNotering->setMinimumWidth(240);
    cmdSänd = Named(new QPushButton(QStringLiteral("Sänd")), "cmdSänd");
    cmdRensa = Named(new QPushButton(QStringLiteral("Rensa")), "cmdRensa");
    cmdAvbryt = Named(new QPushButton(QStringLiteral("Stäng")), "cmdAvbryt");
    cmdSänd->setDefault(true);
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    for (QPushButton* knapp : {cmdSänd, cmdRensa, cmdAvbryt}) {
        knapp->setAutoDefault(knapp == cmdSänd);
        knappar->addWidget(knapp);
    }
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(rader);
    plats->addLayout(knappar);
    connect(cmdSänd, &QPushButton::clicked, this, [this] { cmdSänd_Click(); });
    connect(cmdRensa, &QPushButton::clicked, this, [this] { cmdRensa_Click(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, &QWidget::close);
}

frSändDX& frSändDX::instans() { return platform::SingleWindow<frSändDX>::get(); }

void frSändDX::VisaModalt() {
    cmdRensa_Click();
    exec();
}

void frSändDX::showEvent(QShowEvent* event) {
    const frTest& f = frTest::instans();
    if (!f.txtSignal->text().isEmpty()) txtSignal->setText(f.txtSignal->text());
    if (!f.txtFrekvens->text().isEmpty()) txtFrekvens->setText(f.txtFrekvens->text());
    QDialog::showEvent(event);
}

void frSändDX::cmdSänd_Click() {
    if (txtSignal->text().isEmpty() || txtFrekvens->text().isEmpty()) return;
    platform::TcpSocket& länk = *frDXCluster::instans().WinsockSVK;
    if (länk.State() == platform::TcpSocket::sckConnected)
        länk.SendData(cluster::SpottRad(txtFrekvens->text(), txtSignal->text(), txtNotering->text()) +
                      QStringLiteral("\r\n"));
    close();
    frTest::instans().FokusTillSignal();
}

void frSändDX::cmdRensa_Click() {
    for (platform::TextBox* fält : {txtSignal, txtFrekvens, txtNotering}) fält->clear();
    txtSignal->setFocus();
}
