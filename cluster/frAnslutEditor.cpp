#include "cluster/frAnslutEditor.h"

#include "cluster/DXSpottModul.h"
#include "cluster/frAnslut.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "platform/textfile.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QFormLayout>

using platform::Named;

frAnslutEditor::frAnslutEditor()
    : QDialog(&frAnslut::instans()) {
    setObjectName(QStringLiteral("frAnslutEditor"));
    setWindowTitle(QStringLiteral("Anslut Editor"));
    auto* rader = new QFormLayout;
    const auto fält = [rader](const char* namn, const char* rubrik) {
        auto* nytt = Named(new platform::TextBox, namn);
        nytt->setAccessibleName(QString::fromUtf8(rubrik));
        nytt->setMinimumWidth(220);
        rader->addRow(nytt->accessibleName(), nytt);
        return nytt;
    };
    txtFilNamn = fält("txtFilNamn", "Filnamn");
    txtVärdNamn = fält("txtVärdNamn", "Namn");
    txtVärdAdress = fält("txtVärdAdress", "Nät- eller IP-adress");
    txtPortadress = fält("txtPortadress", "Port");
    auto* typ = new QHBoxLayout;
    for (size_t i = 0; i < optServer.size(); ++i) {
        optServer[i] = new QRadioButton(i == 0 ? QStringLiteral("DXSpider") : QStringLiteral("Annan"));
        optServer[i]->setObjectName(QStringLiteral("optServer(%1)").arg(i));
        typ->addWidget(optServer[i]);
    }
    typ->addStretch(1);
    optServer[0]->setChecked(true);
    rader->addRow(QStringLiteral("Servertyp"), typ);
    cmdSpara = Named(new QPushButton(QStringLiteral("Spara")), "cmdSpara");
    cmdAvbryt = Named(new QPushButton(QStringLiteral("Stäng")), "cmdAvbryt");
    cmdSpara->setDefault(true);
    cmdAvbryt->setAutoDefault(false);
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    knappar->addWidget(cmdSpara);
    knappar->addWidget(cmdAvbryt);
    auto* plats = new QVBoxLayout(this);
    plats->addLayout(rader);
    plats->addLayout(knappar);
    connect(cmdSpara, &QPushButton::clicked, this, [this] { cmdSpara_Click(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, &QWidget::close);
}

frAnslutEditor& frAnslutEditor::instans() { return platform::SingleWindow<frAnslutEditor>::get(); }

void frAnslutEditor::VisaModalt(bool ny) {
    kluster.NyDXSite = ny;
    exec();
}

void frAnslutEditor::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    txtFilNamn->setEnabled(kluster.NyDXSite);
    RensaAnslutEditor();
    if (kluster.NyDXSite) {
        optServer[0]->setChecked(true);
        txtFilNamn->setFocus();
    } else {
        LäsDXTelnet();
        txtVärdNamn->setFocus();
    }
}

void frAnslutEditor::RensaAnslutEditor() {
    for (platform::TextBox* fält : {txtFilNamn, txtVärdNamn, txtVärdAdress, txtPortadress}) fält->clear();
}

void frAnslutEditor::LäsDXTelnet() {
    const QString namn = frAnslut::instans().ValdSite();
    txtFilNamn->setText(namn);
    if (!LäsDXSite(Sitemapp::Telenet, namn)) return;
    txtVärdNamn->setText(kluster.DXVärdNamn);
    txtVärdAdress->setText(kluster.DXVärdAdress);
    txtPortadress->setText(QString::number(kluster.DXVärdPort));
    optServer[kluster.DXServerTyp == 0 ? 0 : 1]->setChecked(true);
}

bool frAnslutEditor::SparaDXTelnetFil() {
    for (const platform::TextBox* fält : {txtFilNamn, txtVärdNamn, txtVärdAdress})
        if (fält->text().isEmpty()) return false;
    try {
        kluster.DXVärdNamn = txtVärdNamn->text();
        kluster.DXVärdAdress = txtVärdAdress->text();
        kluster.DXVärdPort = platform::ToInt32(platform::ToNumber(txtPortadress->text()));
        kluster.DXServerTyp = optServer[0]->isChecked() ? 0 : 1;
        const QString fil = cluster::SiteFilnamn(txtFilNamn->text());
        platform::SaveTextFile(SiteFil(Sitemapp::Telenet, fil.chopped(4)),
                               cluster::SiteTillText({.namn = kluster.DXVärdNamn,
                                                      .adress = kluster.DXVärdAdress,
                                                      .port = kluster.DXVärdPort,
                                                      .servertyp = kluster.DXServerTyp}));
        return true;
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid sparning av DX-Telnet!"),
                         QStringLiteral("Spara DX-Telnet"));
        return false;
    }
}

void frAnslutEditor::cmdSpara_Click() {
    if (!SparaDXTelnetFil()) return;
    close();
    frAnslut::instans().Initiera_fgAnslut();
}
