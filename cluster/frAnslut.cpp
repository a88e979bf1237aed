#include "cluster/frAnslut.h"

#include "cluster/DXSpottModul.h"
#include "cluster/frAnslutEditor.h"
#include "cluster/frDXCluster.h"
#include "contest/frTest.h"
#include "platform/paths.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QDir>
#include <QHeaderView>

using platform::Named;
using platform::Twips;

frAnslut::frAnslut()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frAnslut"));
    setWindowTitle(QStringLiteral("Anslut Till"));
    fgAnslut = Named(new platform::FlexGrid(Qt::AlignLeft | Qt::AlignVCenter), "fgAnslut");
    fgAnslut->setAccessibleName(QStringLiteral("DX-Telnet Cluster"));
    fgAnslut->horizontalHeader()->setStretchLastSection(true);
    fgAnslut->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    fgAnslut->setTabKeyNavigation(false);
    fgAnslut->setMinimumSize(Twips(3600), Twips(4200));
    auto* knappar = new QVBoxLayout;
    const auto knapp = [&](const char* namn, const char* text, auto gör) {
        auto* ny = Named(new QPushButton(QString::fromUtf8(text)), namn);
        ny->setAutoDefault(true); // Enter presses the button that has the focus, and Anslut from the list
        connect(ny, &QPushButton::clicked, this, gör);
        knappar->addWidget(ny);
        return ny;
    };
    cmdAnslut = knapp("cmdAnslut", "Anslut", [this] { cmdAnslut_Click(); });
    cmdNy = knapp("cmdNy", "Ny", [] { frAnslutEditor::instans().VisaModalt(true); });
    cmdÄndra = knapp("cmdÄndra", "Ändra", [] { frAnslutEditor::instans().VisaModalt(false); });
    cmdTaBort = knapp("cmdTaBort", "Ta Bort", [this] { cmdTaBort_Click(); });
    knappar->addStretch(1);
    cmdAvbryt = knapp("cmdAvbryt", "Stäng", [this] { cmdAvbryt_Click(); });
    cmdAnslut->setDefault(true);
    auto* plats = new QHBoxLayout(this);
    plats->addWidget(fgAnslut, 1);
    plats->addLayout(knappar);
    connect(fgAnslut, &QTableWidget::cellDoubleClicked, this, [this] { fgAnslut_DblClick(); });
}

frAnslut& frAnslut::instans() { return platform::SingleWindow<frAnslut>::get(); }

void frAnslut::VisaModalt() {
    Initiera_fgAnslut();
    fgAnslut->setFocus();
    exec();
}

void frAnslut::Initiera_fgAnslut() {
    fgAnslut->Clear(1, 1);
    fgAnslut->Cell(0, 0, QStringLiteral("DX-Telnet Cluster"));
    fgAnslut->item(0, 0)->setBackground(palette().button());
    const QDir mapp(platform::DataPath(QStringLiteral("DX Telnet/")));
    const QStringList filer = mapp.entryList({QStringLiteral("*.dxt")}, QDir::Files | QDir::CaseSensitive,
                                             QDir::Name | QDir::IgnoreCase);
    for (const QString& fil : filer) {
        const int rad = fgAnslut->rowCount();
        fgAnslut->setRowCount(rad + 1);
        fgAnslut->Cell(rad, 0, fil.chopped(4));
    }
    fgAnslut->Row(0);
}

QString frAnslut::ValdSite() const { return fgAnslut->Cell(qMax(0, fgAnslut->currentRow()), 0); }

void frAnslut::cmdAnslut_Click() {
    if (fgAnslut->currentRow() < 1 || !LäsDXSite(Sitemapp::Telnet, ValdSite())) return;
    frTest::instans().Vänsterkant(Twips(4990));
    done(Accepted);
}

void frAnslut::fgAnslut_DblClick() {
    if (fgAnslut->currentRow() < 1 || !LäsDXSite(Sitemapp::Telenet, ValdSite())) return;
    done(Accepted);
}

void frAnslut::cmdTaBort_Click() {
    // With no site chosen the heading's text names no file, and nothing goes.
    QFile::remove(SiteFil(Sitemapp::Telnet, ValdSite()));
    Initiera_fgAnslut();
}

void frAnslut::cmdAvbryt_Click() {
    kluster.AvbrytAnslut = true;
    kluster.ClusterAnsluten = false;
    frDXCluster::instans().WinsockSVK->Close();
    done(Rejected);
}
