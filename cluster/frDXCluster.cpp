#include "cluster/frDXCluster.h"

#include "cluster/DXClusterModul.h"
#include "cluster/DXSpottModul.h"
#include "cluster/Spottolk.h"
#include "cluster/frSändDX.h"
#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/packetengine.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QLabel>

using platform::Named;
using platform::Twips;

frDXCluster::frDXCluster()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frDXCluster"));
    setWindowTitle(QStringLiteral("DX Cluster"));
    ByggFönster();
    TimerDXCluster = new platform::Timer(
        QStringLiteral("TimerDXCluster"), [this] { TimerDXCluster_Tick(); }, this);
    WinsockSVK = new platform::TcpSocket(QStringLiteral("WinsockSVK"), this);
    WinsockSVK->OnDataArrival([this] { WinsockSVK_DataArrival(); });
    WinsockSVK->OnClose([this] { WinsockSVK_Close(); });
    mscCluster = new platform::SerialPort(QStringLiteral("mscCluster"), this);
    connect(cmdEnter, &QPushButton::clicked, this, [this] { cmdEnter_Click(); });
    connect(cmdSändDX, &QPushButton::clicked, this, [this] { cmdSändDX_Click(); });
    connect(cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
    resize(Twips(10185), Twips(3585));
    platform::MoveOntoScreen(*this, {Twips(8000), Twips(9000)});
}

frDXCluster& frDXCluster::instans() { return platform::SingleWindow<frDXCluster>::get(); }

void frDXCluster::LaddaUr() {
    if (!platform::SingleWindow<frDXCluster>::exists()) return;
    instans().WinsockSVK->Close();
    instans().TimerDXCluster->Interval(0);
    platform::SingleWindow<frDXCluster>::unload();
    kluster.ClusterAnsluten = false;
    kluster.ClusterBuffert.clear(); // the window may go while what arrived last is about to be read
}

void frDXCluster::ByggFönster() {
    txtMSCom = Named(new QPlainTextEdit, "txtMSCom");
    txtMSCom->setAccessibleName(QStringLiteral("Text från DX cluster"));
    txtMSCom->setReadOnly(true);
    txtMSCom->setUndoRedoEnabled(false);
    txtMSCom->setTabChangesFocus(true);
    QFont fast(QStringLiteral("DejaVu Sans Mono"));
    fast.setStyleHint(QFont::Monospace);
    fast.setPointSizeF(font().pointSizeF());
    txtMSCom->setFont(fast);
    txtCMD = Named(new platform::TextBox, "txtCMD");
    txtCMD->OnKeyPress(platform::UpperCase);
    auto* lblCMD = new QLabel(QStringLiteral("Cmd:"));
    lblCMD->setBuddy(txtCMD);
    txtCMD->setAccessibleName(lblCMD->text());
    cmdEnter = platform::NewButton("cmdEnter", QStringLiteral("Enter"));
    cmdEnter->setDefault(true);
    cmdSändDX = platform::NewButton("cmdSändDX", QStringLiteral("Sänd DX"));
    cmdCancel = platform::NewButton("cmdCancel", QStringLiteral("ESC"));

    auto* rad = new QHBoxLayout;
    rad->addWidget(lblCMD);
    rad->addWidget(txtCMD, 1);
    for (QPushButton* knapp : {cmdEnter, cmdSändDX, cmdCancel}) rad->addWidget(knapp);
    auto* plats = new QVBoxLayout(this);
    plats->setContentsMargins(6, 6, 6, 6);
    plats->addWidget(txtMSCom, 1);
    plats->addLayout(rad);
    txtCMD->setFocus();
}

void frDXCluster::Visa() { platform::ShowInFront(*this); }

void frDXCluster::VisaText(const QString& text) {
    txtMSCom->moveCursor(QTextCursor::End);
    txtMSCom->insertPlainText(cluster::VisbarText(text));
    txtMSCom->ensureCursorVisible();
}

void frDXCluster::KortaText() {
    constexpr int längst = 15000;
    constexpr int kvar = 10000;
    const int längd = txtMSCom->document()->characterCount() - 1;
    if (längd <= längst) return;
    QTextCursor början(txtMSCom->document());
    början.setPosition(längd - kvar, QTextCursor::KeepAnchor);
    början.removeSelectedText();
}

void frDXCluster::WinsockSVK_DataArrival() {
    if (!kluster.ClusterLäser) return;
    kluster.ClusterBuffert = WinsockSVK->GetData();
    VisaText(kluster.ClusterBuffert);
    if (kluster.ClusterBuffert.endsWith(QLatin1String("login: "))) LoggaIn();
    TolkaDXClusterData();
}

void frDXCluster::LoggaIn() {
    try {
        WinsockSVK->SendData((delat.EgenSignal.isEmpty() ? delat.OpSignal : delat.EgenSignal) +
                             QStringLiteral("\r\n"));
    } catch (const platform::Failure&) {
        // The link is going down; its end has a line of its own in the window.
    }
}

void frDXCluster::WinsockSVK_Close() {
    VisaText(QStringLiteral("*** DISCONNECTED ***"));
    kluster.ClusterAnsluten = false;
    WinsockSVK->Close();
}

void frDXCluster::TimerDXCluster_Tick() {
    if (kluster.ClusterAnsluten && kluster.ClusterTyp != 1) TolkaDXClusterData();
}

bool frDXCluster::Sänd(const QString& text) {
    switch (kluster.ClusterTyp) {
    case 0:
        if (!mscCluster->PortOpen()) return false;
        mscCluster->Output(text + u'\r');
        return true;
    case 1:
        if (WinsockSVK->State() != platform::TcpSocket::sckConnected) return false;
        WinsockSVK->SendData(text + QStringLiteral("\r\n"));
        return true;
    default: break;
    }
    if (text.startsWith(QLatin1String("C ")))
        platform::AGWPutData(text.mid(2), QString(), 'c', 0, 0);
    else if (text == u"DISC" || text == u"D")
        platform::AGWPutData(QString(), QString(), 'd', 0, 0);
    else
        platform::AGWPutData(QString(), text, 'D', static_cast<int>(text.size()), 0);
    return true;
}

void frDXCluster::cmdEnter_Click() {
    try {
        if (Sänd(txtCMD->text())) txtCMD->clear();
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Texten kunde inte sändas till DX cluster."), windowTitle());
    }
}

void frDXCluster::cmdSändDX_Click() {
    if (!mscCluster->PortOpen())
        return platform::MsgBox(QStringLiteral("Det finns inget Modem anslutet!"),
                                QStringLiteral("Kommunikations fel!"));
    frSändDX::instans().VisaModalt();
}

void frDXCluster::cmdCancel_Click() { frTest::instans().FokusTillSignal(); }

void frDXCluster::closeEvent(QCloseEvent* event) {
    event->ignore();
    hide();
}
