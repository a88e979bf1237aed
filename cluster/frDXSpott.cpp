#include "cluster/frDXSpott.h"

#include "cluster/DXSpottModul.h"
#include "cluster/frDXCluster.h"
#include "contest/frTest.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>

using platform::Named;
using platform::Twips;

namespace {

struct Spottkolumn {
    const char* rubrik;
    int bredd;          ///< in 1/1440 inch; 0: hidden
    const char* längst; ///< the longest text that comes
};
constexpr std::array<Spottkolumn, frDXSpott::kolumner> spottkolumner{{{"DX de", 1275, "EA8/DF4UE-#"},
                                                                      {"DX Spot", 1275, "SV3/SV1NN/P"},
                                                                      {"Frekvens", 1025, "144,300,00"},
                                                                      {"Trafiksätt", 900, "Trafiksätt"},
                                                                      {"", 0, ""},
                                                                      {"", 0, ""}}};

} // namespace

frDXSpott::frDXSpott()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frDXSpott"));
    setWindowTitle(QStringLiteral("DX Spot"));
    fgDXSpott = Named(new platform::FlexGrid(Qt::AlignLeft | Qt::AlignVCenter), "fgDXSpott");
    fgDXSpott->setAccessibleName(QStringLiteral("DX Spot"));
    cmdCancel = platform::NewButton("cmdCancel", QStringLiteral("ESC"));
    auto* knappar = new QHBoxLayout;
    knappar->addStretch(1);
    knappar->addWidget(cmdCancel);
    auto* plats = new QVBoxLayout(this);
    plats->setContentsMargins(4, 4, 4, 4);
    plats->addWidget(fgDXSpott, 1);
    plats->addLayout(knappar);
    connect(cmdCancel, &QPushButton::clicked, this, &frDXSpott::reject);
    connect(fgDXSpott, &QTableWidget::cellDoubleClicked, this, [this](int rad, int) {
        // A spot that came between the two clicks has made its own row the current one.
        fgDXSpott->Row(rad);
        fgDXSpott_DblClick();
    });
    Initiera_Fönster();
}

frDXSpott& frDXSpott::instans() { return platform::SingleWindow<frDXSpott>::get(); }

void frDXSpott::LaddaUr() {
    if (!platform::SingleWindow<frDXSpott>::exists()) return;
    frDXCluster::LaddaUr();
    frTest::instans().SBarTest(4, QString());
    platform::SingleWindow<frDXSpott>::unload();
}

void frDXSpott::Visa() { platform::ShowInFront(*this); }

void frDXSpott::Initiera_Fönster() {
    constexpr int rader = 17;
    constexpr int synliga = 12;
    fgDXSpott->setItemDelegate(new platform::OneLineDelegate(fgDXSpott));
    fgDXSpott->setWordWrap(false);
    // Small enough for the strip beside the main window.
    QFont liten = font();
    liten.setPointSizeF(liten.pointSizeF() * 0.9);
    fgDXSpott->setFont(liten);
    fgDXSpott->horizontalHeader()->setFont(liten);
    const QFontMetrics mått(liten);
    fgDXSpott->setAlternatingRowColors(true);
    fgDXSpott->Clear(rader, kolumner);
    QHeaderView& rubriker = *fgDXSpott->horizontalHeader();
    rubriker.setMinimumSectionSize(0);
    rubriker.setHighlightSections(false);
    rubriker.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QStringList texter;
    int bredd = 0;
    for (int i = 0; i < kolumner; ++i) {
        const Spottkolumn& kolumn = spottkolumner[static_cast<size_t>(i)];
        const QString rubrik = QString::fromUtf8(kolumn.rubrik);
        fgDXSpott->Cell(0, i, rubrik);
        texter << rubrik;
        const int text = mått.horizontalAdvance(QString::fromUtf8(kolumn.längst)) + 6;
        const int vidd = kolumn.bredd == 0 ? 0 : qMax(Twips(kolumn.bredd), text);
        fgDXSpott->setColumnWidth(i, vidd);
        fgDXSpott->setColumnHidden(i, kolumn.bredd == 0);
        bredd += vidd;
    }
    // The headings stay in view as the rows scroll; row 0 holds them for whoever reads the cells.
    fgDXSpott->setHorizontalHeaderLabels(texter);
    rubriker.show();
    fgDXSpott->setRowHidden(0, true);
    const int radhöjd = mått.height() + 6;
    fgDXSpott->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fgDXSpott->verticalHeader()->setDefaultSectionSize(radhöjd);
    const int ram = 2 * fgDXSpott->frameWidth();
    fgDXSpott->setMinimumWidth(bredd + ram + fgDXSpott->verticalScrollBar()->sizeHint().width());
    fgDXSpott->setMinimumHeight(4 * radhöjd);
    resize(minimumSizeHint().width(),
           synliga * radhöjd + rubriker.sizeHint().height() + ram + cmdCancel->sizeHint().height() + 16);
    // Beside the main window, which makes room for it when a connection is made; on a screen that has none,
    // down at the log, where it hides nothing of the entry form.
    const QRect skärm = screen()->availableGeometry();
    const bool harRum = width() + frTest::instans().width() <= skärm.width();
    platform::MoveOntoScreen(*this, {0, harRum ? Twips(380) : skärm.bottom()});
}

void frDXSpott::GePlats(int rad) {
    constexpr int rymsAlltid = 13;
    if (rad > rymsAlltid) fgDXSpott->setRowCount(rad + 1);
}

void frDXSpott::VisaSenaste(int rad) {
    constexpr int iSikte = 11;
    rad = qMin(rad, fgDXSpott->rowCount() - 1); // the grid may have been moved since
    fgDXSpott->Row(rad);
    if (rad - iSikte > 0) fgDXSpott->verticalScrollBar()->setValue(rad - iSikte - 1);
}

void frDXSpott::SkrivRad(int rad, const std::array<QString, kolumner>& texter) {
    for (int i = 0; i < kolumner; ++i) fgDXSpott->Cell(rad, i, texter[static_cast<size_t>(i)]);
}

void frDXSpott::fgDXSpott_DblClick() {
    const auto text = [this, rad = fgDXSpott->Row()](int kolumn) { return fgDXSpott->Cell(rad, kolumn); };
    if (text(1).isEmpty()) return frTest::instans().FokusTillSignal();
    SpottTillFormulär({.signal = text(1), .frekvens = text(2), .trafiksätt = text(3), .band = text(5)});
}

void frDXSpott::reject() { frTest::instans().FokusTillSignal(); }

void frDXSpott::closeEvent(QCloseEvent* event) {
    event->ignore();
    frTest::instans().DXSpotAv();
    LaddaUr();
}
