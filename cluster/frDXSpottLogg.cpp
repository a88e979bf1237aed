#include "cluster/frDXSpottLogg.h"

#include "cluster/DXSpottModul.h"
#include "cluster/Spottext.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/windows.h"
#include "store/Databaser.h"
#include "store/Sökning.h"

#include <QBoxLayout>
#include <QHeaderView>
#include <QHideEvent>

using platform::Named;

namespace {

/// @throws platform::Failure if the empty store cannot take the place of the full one
void PrövaTomLogg() {
    platform::Connection anslutning;
    anslutning.Open(platform::DataPath(QStringLiteral("DXS")));
    platform::Recordset markör;
    markör.Open(QStringLiteral("DXSpottLogg"), anslutning);
    for (const QString& kolumn : db().rsDXSpottLogg.FieldNames()) markör.FieldIndex(kolumn);
}

/// A store that could not be emptied is to go on storing.
void FörsökÖppna() {
    try {
        ÖppnaSpottlogg();
    } catch (const platform::Failure&) {
        return; // the message comes either way
    }
}

} // namespace

frDXSpottLogg::frDXSpottLogg()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frDXSpottLogg"));
    setWindowTitle(QStringLiteral("DX Spot Logg"));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    dgDXspottLogg = Named(new platform::DataGrid, "dgDXspottLogg");
    dgDXspottLogg->setAccessibleName(windowTitle());
    dgDXspottLogg->setItemDelegate(new platform::OneLineDelegate(dgDXspottLogg));
    txtSökOrd = Named(new platform::TextBox, "txtSökOrd");
    txtSökOrd->OnKeyPress(platform::UpperCase);
    txtSökOrd->setToolTip(QStringLiteral("SM5ABC hittar just den signalen, SM5* alla som börjar så"));
    txtSumma = Named(new platform::TextBox, "txtSumma");
    txtSumma->setReadOnly(true);
    txtSumma->TabStop(false);
    txtSumma->setMaximumWidth(90);
    cmdSök = platform::NewButton("cmdSök", QStringLiteral("Sök"));
    cmdTömLogg = platform::NewButton("cmdTömLogg", QStringLiteral("Töm Logg"));
    cmdAvbryt = platform::NewButton("cmdAvbryt", QStringLiteral("Avbryt"));
    cmdSök->setDefault(true);

    auto* rad = new QHBoxLayout;
    const auto etikett = [rad](const char* text, platform::TextBox* fält) {
        auto* ny = new QLabel(QString::fromUtf8(text));
        ny->setBuddy(fält);
        fält->setAccessibleName(ny->text());
        rad->addWidget(ny);
        rad->addWidget(fält);
    };
    etikett("Sök DX Spot :", txtSökOrd);
    rad->addWidget(cmdSök);
    rad->addWidget(cmdAvbryt);
    rad->addStretch(1);
    etikett("Antal:", txtSumma);
    rad->addWidget(cmdTömLogg);
    auto* plats = new QVBoxLayout(this);
    plats->addWidget(dgDXspottLogg, 1);
    plats->addLayout(rad);
    resize(860, 420);
    connect(cmdSök, &QPushButton::clicked, this, [this] { cmdSök_Click(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, [this] { cmdAvbryt_Click(); });
    connect(cmdTömLogg, &QPushButton::clicked, this, [this] { TömDXSpottLogg(); });
    connect(dgDXspottLogg, &QTableView::doubleClicked, this, [this](const QModelIndex& cell) {
        // A spot that came between the two clicks has taken the cursor along.
        platform::Recordset& logg = db().rsDXSpottLogg;
        if (logg.IsOpen() && cell.row() < logg.RecordCount()) logg.AbsolutePosition(cell.row());
        dgDXspottLogg_DblClick();
    });
    dgDXspottLogg->OnRefresh([this] { VisaAntal(); });
}

frDXSpottLogg& frDXSpottLogg::instans() { return platform::SingleWindow<frDXSpottLogg>::get(); }

void frDXSpottLogg::Visa() {
    if (!isVisible()) {
        Formatera_dgDXSpottLogg();
        platform::Recordset& logg = db().rsDXSpottLogg;
        if (logg.IsOpen() && !logg.IsEOF()) logg.MoveLast();
        VisaAntal();
    }
    platform::ShowInFront(*this);
    txtSökOrd->setFocus();
}

void frDXSpottLogg::Formatera_dgDXSpottLogg() {
    const auto bredd = [this](const char* text) {
        return fontMetrics().horizontalAdvance(QString::fromUtf8(text)) + 14;
    };
    dgDXspottLogg->Bind(
        &db().rsDXSpottLogg,
        {{QStringLiteral("Datum"), QStringLiteral("Datum"), bredd("2026-12-01")},
         {QStringLiteral("Tid"), QStringLiteral("Tid"), bredd("00:00:00")},
         {QStringLiteral("Signal"), QStringLiteral("Signal"), bredd("SV3/SV1NN/P")},
         {QStringLiteral("Frekvens"), QStringLiteral("Frekvens"), bredd("144,300,00")},
         {QStringLiteral("DXBand"), QStringLiteral("DXBand"), bredd("DXBand")},
         {QStringLiteral("Trafiksätt"), QStringLiteral("TrafikSätt"), bredd("TrafikSätt")},
         {QStringLiteral("Notering"), QStringLiteral("Notering"), bredd("CW    24 dB  22 WPM  NCDXF B ")},
         {QStringLiteral("Spott Tid"), QStringLiteral("Spott Tid"), bredd("Spott Tid")},
         {QStringLiteral("Prefix"), QStringLiteral("Prefix"), bredd("Prefix")}});
    dgDXspottLogg->horizontalHeader()->setStretchLastSection(true);
}

void frDXSpottLogg::VisaAntal() {
    const platform::Recordset& logg = db().rsDXSpottLogg;
    txtSumma->setText(logg.IsOpen() ? QString::number(logg.RecordCount()) : QString());
}

void frDXSpottLogg::TömDXSpottLogg() {
    Databaser& d = db();
    const bool visas = dgDXspottLogg->Bound();
    const bool varÖppen = d.rsDXSpottLogg.IsOpen();
    try {
        if (d.rsDXSpottLogg.RecordCount() == 0) return;
        PrövaTomLogg();
        dgDXspottLogg->Unbind();
        StängSpottlogg();
        platform::CopyDatabase(platform::DataPath(QStringLiteral("DXS")),
                               platform::DataPath(QStringLiteral("DXSpott.Dat")));
        ÖppnaSpottlogg();
        kluster.ClusterLäser = true;
    } catch (const platform::Failure&) {
        if (varÖppen && !d.rsDXSpottLogg.IsOpen()) FörsökÖppna();
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid tömning av DXSpottLogg."),
                         QStringLiteral("mnuDXSpott_DXLogg_TömLogg"));
    }
    if (visas) Formatera_dgDXSpottLogg();
    VisaAntal();
}

void frDXSpottLogg::cmdSök_Click() {
    const QString ord = txtSökOrd->text();
    if (ord.isEmpty()) return;
    if (!SökMed(db().rsDXSpottLogg, cluster::SökFilter(ord), windowTitle())) return;
    VisaAntal();
    txtSökOrd->clear();
}

void frDXSpottLogg::cmdAvbryt_Click() {
    if (db().rsDXSpottLogg.IsOpen()) db().rsDXSpottLogg.Filter(QString());
    VisaAntal();
    txtSökOrd->clear();
}

void frDXSpottLogg::dgDXspottLogg_DblClick() {
    const platform::Recordset& logg = db().rsDXSpottLogg;
    if (!logg.IsOpen() || logg.IsBOF() || logg.IsEOF()) return;
    const auto fält = [&logg](const char* namn) { return logg.Field(QString::fromUtf8(namn)).text(); };
    SpottTillFormulär({.signal = fält("Signal"),
                       .frekvens = fält("Frekvens"),
                       .trafiksätt = fält("Trafiksätt"),
                       .band = fält("DXBand")});
}

void frDXSpottLogg::hideEvent(QHideEvent* event) {
    QDialog::hideEvent(event);
    if (event->spontaneous()) return; // only made small
    // Nobody looks, so nothing is followed; a search ends with its window.
    dgDXspottLogg->Unbind();
    if (db().rsDXSpottLogg.IsOpen()) db().rsDXSpottLogg.Filter(QString());
}
