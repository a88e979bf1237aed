#include "contest/frTest.h"

#include "contest/DeladeVärden.h"
#include "contest/Grafik.h"
#include "platform/windows.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QStatusBar>

namespace {

using platform::Named;
using platform::Twips;

const char* const mottagetFärg = "background: rgb(255,255,192); color: rgb(255,0,0);";
const char* const säntFärg = "background: rgb(128,255,128); color: black;";
const char* const låstFärg = "background: palette(window); color: palette(window-text);";

QFont Större(const QWidget* widget, double gånger, bool fet = true) {
    QFont font = widget->font();
    font.setPointSizeF(font.pointSizeF() * gånger);
    font.setBold(fet);
    return font;
}

/// A field that is wide enough for so many characters and can be squeezed to three.
frTest::Fält* NyttFält(const char* namn, int tecken, const char* färg = nullptr) {
    auto* fält = Named(new frTest::Fält, namn);
    // A field that the contest does not use is grey, whatever it is for.
    if (färg) fält->setStyleSheet(QStringLiteral("QLineEdit:enabled { %1 }").arg(QLatin1String(färg)));
    fält->setMinimumWidth(fält->fontMetrics().averageCharWidth() * qMin(tecken, 12) + 14);
    fält->setMaximumWidth(fält->fontMetrics().averageCharWidth() * tecken * 2 + 14);
    return fält;
}

frTest::Fält* DoltFält(const char* namn, QWidget* ägare) {
    auto* fält = Named(new frTest::Fält(ägare), namn);
    fält->hide();
    return fält;
}

frTest::Lista* NyLista(const char* namn, int tecken) {
    auto* lista = Named(new frTest::Lista, namn);
    lista->setMinimumWidth(lista->fontMetrics().averageCharWidth() * tecken + 34);
    return lista;
}

/// Caption above control, which is also what a screen reader says.
QWidget* Under(const QString& rubrik, QWidget* kontroll) {
    auto* ruta = new QWidget;
    auto* rad = new QVBoxLayout(ruta);
    rad->setContentsMargins(0, 0, 0, 0);
    rad->setSpacing(1);
    rad->addWidget(new QLabel(rubrik));
    rad->addWidget(kontroll);
    rad->addStretch(1);
    kontroll->setAccessibleName(rubrik);
    return ruta;
}

QLabel* NyttTecken(const char* namn, const QString& text) {
    auto* tecken = Named(new QLabel(text), namn);
    tecken->setAlignment(Qt::AlignCenter);
    tecken->setStyleSheet(
        QStringLiteral("background: #c00000; color: white; padding: 1px 5px; border-radius: 3px;"));
    tecken->setFont(Större(tecken, 1.0));
    QSizePolicy plats = tecken->sizePolicy();
    plats.setRetainSizeWhenHidden(true); // nothing jumps when a sign comes on
    tecken->setSizePolicy(plats);
    tecken->hide();
    return tecken;
}

QLabel* NyttVärde(const char* namn, const QString& rubrik, double storlek) {
    auto* värde = Named(new QLabel(QStringLiteral("0")), namn);
    värde->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    värde->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    värde->setFont(Större(värde, storlek));
    värde->setAccessibleName(rubrik);
    värde->setStyleSheet(QStringLiteral("background: palette(base); padding: 1px 4px;"));
    return värde;
}

/// Name on the left, number on the right. The name is a label of its own where the contest renames it.
void LäggRad(QGridLayout* tavla, int rad, QLabel* text, QLabel* värde) {
    tavla->addWidget(text, rad, 0);
    tavla->addWidget(värde, rad, 1);
}

platform::FlexGrid* NyttBandrutnät(const char* namn, int rader) {
    auto* rutnät = Named(new platform::FlexGrid, namn);
    rutnät->Clear(rader, 10);
    rutnät->setFocusPolicy(Qt::ClickFocus);
    rutnät->setSelectionMode(QAbstractItemView::NoSelection);
    rutnät->verticalHeader()->setMinimumSectionSize(10);
    rutnät->verticalHeader()->setDefaultSectionSize(rutnät->fontMetrics().height() + 3);
    rutnät->horizontalHeader()->setMinimumSectionSize(10);
    const int kolumn = qMax(Twips(400), rutnät->fontMetrics().horizontalAdvance(QStringLiteral("160")) + 8);
    const int första = qMax(Twips(580), rutnät->fontMetrics().horizontalAdvance(QStringLiteral("DIGI")) + 12);
    rutnät->setColumnWidth(0, första);
    for (int i = 1; i < 10; ++i) rutnät->setColumnWidth(i, kolumn);
    rutnät->setFixedSize(första + 9 * kolumn + 4, rader * rutnät->verticalHeader()->defaultSectionSize() + 4);
    rutnät->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    rutnät->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return rutnät;
}

QBoxLayout* Rad(std::initializer_list<QWidget*> delar, int sträck = -1) {
    auto* rad = new QHBoxLayout;
    rad->setSpacing(5);
    for (QWidget* del : delar) rad->addWidget(del);
    if (sträck < 0) rad->addStretch(1);
    return rad;
}

QPushButton* NyKnapp(const char* namn, const QString& text) {
    auto* knapp = Named(new QPushButton(text), namn);
    knapp->setAutoDefault(true); // Enter on a focused button presses that button
    return knapp;
}

} // namespace

void frTest::ByggFönster() {
    setObjectName(QStringLiteral("frTest"));
    auto* mitt = new QWidget;
    auto* allt = new QVBoxLayout(mitt);
    allt->setContentsMargins(6, 4, 6, 4);
    allt->setSpacing(5);

    auto* vänster = new QVBoxLayout;
    vänster->addWidget(ByggFormulär());
    vänster->addWidget(ByggTakt(), 1);
    auto* höger = new QVBoxLayout;
    höger->addWidget(ByggTavla());
    höger->addWidget(ByggKlockor());
    höger->addStretch(1);
    auto* övre = new QHBoxLayout;
    övre->setSpacing(8);
    övre->addLayout(vänster, 5);
    övre->addWidget(ByggVärde(), 0);
    övre->addLayout(höger, 3);
    allt->addLayout(övre);
    allt->addWidget(ByggListor());

    dgLogg = Named(new platform::DataGrid, "dgLogg");
    dgLogg->setAccessibleName(QStringLiteral("Logg"));
    dgLogg->setMinimumHeight(76);
    dgLogg->setFocusPolicy(Qt::ClickFocus);
    allt->addWidget(dgLogg, 1);
    allt->addWidget(ByggDigital());
    setCentralWidget(mitt);

    TestTimer = new platform::Timer(
        QStringLiteral("TestTimer"), [this] { TestTimer_Tick(); }, this);
    TimerAktiv = new platform::Timer(
        QStringLiteral("TimerAktiv"), [this] { AktivTestTid(); }, this);
    TimerVila = new platform::Timer(
        QStringLiteral("TimerVila"), [this] { VilaTesttid(); }, this);
    Timer_Wait = new platform::Timer(
        QStringLiteral("Timer_Wait"), [this] { Timer_Wait_Tick(); }, this);
    Nettimer = new platform::Timer(
        QStringLiteral("Nettimer"), [this] { UppdateraViaNät(); }, this);
    Timer_Radio = new platform::Timer(
        QStringLiteral("Timer_Radio"), [] {}, this);
    mscRadio1 = new platform::SerialPort(QStringLiteral("mscRadio1"), this);
    Winsock1 = new platform::UdpSocket(QStringLiteral("Winsock1"), this);
    Winsock1->OnDataArrival([this] { Winsock1_DataArrival(); });
    Winsock1->HoldWhile(FT8FårVänta);
    ByggStatusrad();
}

QWidget* frTest::ByggFormulär() {
    frmLogg = Named(new QGroupBox(QStringLiteral("TestLogg Fil")), "frmLogg");
    auto* form = new QVBoxLayout(frmLogg);
    form->setContentsMargins(8, 4, 8, 6);
    form->setSpacing(4);

    txtSignal = NyttFält("txtSignal", 14, mottagetFärg);
    txtRSTM = NyttFält("txtRSTM", 4, mottagetFärg);
    txtLöpnrM = NyttFält("txtLöpnrM", 5, mottagetFärg);
    txtDiplom = NyttFält("txtDiplom", 8, mottagetFärg);
    txtSignal->setFont(Större(txtSignal, 2.2));
    txtSignal->setMaximumWidth(QWIDGETSIZE_MAX);
    txtSignal->setMinimumWidth(190);
    for (Fält* fält : {txtRSTM, txtLöpnrM, txtDiplom}) fält->setFont(Större(fält, 1.5));
    txtDiplom->setMinimumWidth(110);
    lblTyp = Named(new QLabel(QStringLiteral("Lokator")), "lblTyp");
    auto* diplom = new QWidget;
    auto* diplomRad = new QVBoxLayout(diplom);
    diplomRad->setContentsMargins(0, 0, 0, 0);
    diplomRad->setSpacing(1);
    diplomRad->addWidget(lblTyp);
    diplomRad->addWidget(txtDiplom);
    diplomRad->addStretch(1);
    txtDiplom->setAccessibleName(QStringLiteral("Lokator"));
    auto* första =
        Rad({Under(QStringLiteral("Signal"), txtSignal), Under(QStringLiteral("RST mott."), txtRSTM),
             Under(QStringLiteral("Löpnr mott."), txtLöpnrM), diplom},
            1);
    första->setStretch(0, 1);
    form->addLayout(första);

    txtRSTS = NyttFält("txtRSTS", 4, säntFärg);
    txtLöpnrS = NyttFält("txtLöpnrS", 5, säntFärg);
    txtLöpnrS->setReadOnly(true);
    for (Fält* fält : {txtRSTS, txtLöpnrS}) fält->setFont(Större(fält, 1.5));
    cmbTrafik = NyLista("cmbTrafik", 6);
    cmbBand = NyLista("cmbBand", 6);
    txtFrekvens = NyttFält("txtFrekvens", 11);
    txtDatum = NyttFält("txtDatum", 10);
    form->addLayout(
        Rad({Under(QStringLiteral("RST sänt"), txtRSTS), Under(QStringLiteral("Löpnr sänt"), txtLöpnrS),
             Under(QStringLiteral("Trafiksätt"), cmbTrafik), Under(QStringLiteral("Band"), cmbBand),
             Under(QStringLiteral("Frekvens"), txtFrekvens), Under(QStringLiteral("Datum"), txtDatum)}));

    txtNamn = NyttFält("txtNamn", 14, mottagetFärg);
    txtNotering = NyttFält("txtNotering", 20);
    txtLokator = NyttFält("txtLokator", 7);
    txtITUM = NyttFält("txtITUM", 3, mottagetFärg);
    txtZONM = NyttFält("txtZONM", 3, mottagetFärg);
    cmbDiplom = NyLista("cmbDiplom", 6);
    cmbDiplom->Text(QStringLiteral("Diplom"));
    form->addLayout(
        Rad({Under(QStringLiteral("Namn"), txtNamn), Under(QStringLiteral("Notering"), txtNotering),
             Under(QStringLiteral("Lokator"), txtLokator), Under(QStringLiteral("ITU"), txtITUM),
             Under(QStringLiteral("Zon"), txtZONM), Under(QStringLiteral("Typ"), cmbDiplom)}));

    cmdSpara = NyKnapp("cmdSpara", QStringLiteral("Spara [Ent]"));
    cmdSpara->setDefault(true);
    cmdAvbryt = NyKnapp("cmdAvbryt", QStringLiteral("Avbryt [Esc]"));
    cmdVisa = NyKnapp("cmdVisa", QStringLiteral("Visa [Ent.]"));
    cmdRadera = NyKnapp("cmdRadera", QStringLiteral("Radera [F3l]"));
    form->addLayout(Rad({cmdSpara, cmdAvbryt, cmdVisa, cmdRadera}));
    form->addStretch(1);

    txtDXCCNR = DoltFält("txtDXCCNR", frmLogg);
    txtPrefix = DoltFält("txtPrefix", frmLogg);
    txtNDXCC = DoltFält("txtNDXCC", frmLogg);
    txtNRUTA = DoltFält("txtNRUTA", frmLogg);
    txtDubblett = DoltFält("txtDubblett", frmLogg);
    txtRutor = DoltFält("txtRutor", frmLogg);
    txtData = DoltFält("txtData", frmLogg);
    txtData->setMaxLength(65536); // the largest datagram there is
    return frmLogg;
}

QWidget* frTest::ByggVärde() {
    auto* ruta = new QWidget;
    auto* värde = new QVBoxLayout(ruta);
    värde->setContentsMargins(0, 6, 0, 0);
    värde->setSpacing(4);

    const auto info = [](const char* namn, const QString& text, const QString& rubrik, double storlek) {
        auto* etikett = Named(new QLabel(text), namn);
        etikett->setFont(Större(etikett, storlek));
        etikett->setAccessibleName(rubrik);
        etikett->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        etikett->setAlignment(Qt::AlignCenter);
        return etikett;
    };
    lblLand = info("lblLand", QString(), QStringLiteral("Land"), 1.3);
    lblDXCC = info("lblDXCC", QStringLiteral("DXCC"), QStringLiteral("DXCC"), 1.1);
    lblKont = info("lblKont", QString(), QStringLiteral("Kontinent"), 1.1);
    lblTid = info("lblTid", QStringLiteral("Tid"), QStringLiteral("Tid"), 1.1);
    lblAvstånd = info("lblAvstånd", QString(), QStringLiteral("Avstånd"), 1.3);
    lblRiktning = info("lblRiktning", QString(), QStringLiteral("Riktning"), 1.3);
    auto* land = Rad({lblLand, lblDXCC, lblKont, lblTid}, 1);
    land->setStretch(0, 1);
    värde->addLayout(land);
    värde->addLayout(Rad({lblAvstånd, lblRiktning}, 1));

    lblNyttLand = NyttTecken("lblNyttLand", QStringLiteral("NYTT LAND !"));
    lblNyttBand = NyttTecken("lblNyttBand", QStringLiteral("NYTT BAND !"));
    lblNyRuta = NyttTecken("lblNyRuta", QStringLiteral("RUTA"));
    lblMultipel = NyttTecken("lblMultipel", QStringLiteral("MULTIPEL"));
    lblDubblett = NyttTecken("lblDubblett", QStringLiteral("DUBBLET"));
    lblDistrikt = NyttTecken("lblDistrikt", QStringLiteral("DISTRIKT"));
    lblNyIOTA = NyttTecken("lblNyIOTA", QStringLiteral("IOTA"));
    värde->addLayout(Rad({lblNyttLand, lblNyRuta, lblMultipel, lblDubblett}));
    värde->addLayout(Rad({lblNyttBand, lblDistrikt, lblNyIOTA}));

    fgTestData2 = NyttBandrutnät("fgTestData2", 4);
    fgTestData2->setAccessibleName(QStringLiteral("Band för stationens land och zoner"));
    värde->addWidget(fgTestData2, 0, Qt::AlignLeft);
    fgTestData1 = NyttBandrutnät("fgTestData1", 6);
    fgTestData1->setAccessibleName(QStringLiteral("Körda band och trafiksätt"));
    värde->addWidget(fgTestData1, 0, Qt::AlignLeft);
    lblLängstaQSO = Named(new QLabel, "lblLängstaQSO");
    lblLängstaQSO->setTextFormat(Qt::PlainText);
    lblLängstaQSO->setFont(Större(lblLängstaQSO, 1.0));
    QSizePolicy plats = lblLängstaQSO->sizePolicy();
    plats.setRetainSizeWhenHidden(true);
    lblLängstaQSO->setSizePolicy(plats);
    värde->addWidget(lblLängstaQSO);
    värde->addStretch(1);
    return ruta;
}

QWidget* frTest::ByggTavla() {
    auto* ruta = new QGroupBox(QStringLiteral("Poäng"));
    auto* tavla = new QVBoxLayout(ruta);
    tavla->setContentsMargins(6, 2, 6, 6);
    auto* rader = new QGridLayout;
    rader->setVerticalSpacing(2);
    lblMultipelText = Named(new QLabel(QStringLiteral("Multiplar")), "lblMultipelText");
    lblDiplomText = Named(new QLabel(QStringLiteral("Rutor")), "lblDiplomText");
    const auto ny = [&](int rad, QLabel* text, const char* namn, double storlek) {
        auto* värde = NyttVärde(namn, text->text(), storlek);
        LäggRad(rader, rad, text, värde);
        return värde;
    };
    lblQSO = ny(0, new QLabel(QStringLiteral("Antal QSO")), "lblQSO", 1.2);
    lblQSOPoäng = ny(1, new QLabel(QStringLiteral("QSO Poäng")), "lblQSOPoäng", 1.2);
    lblTotalQSOPoäng = ny(2, new QLabel(QStringLiteral("Tot.QSO Poäng")), "lblTotalQSOPoäng", 1.2);
    lblMultiplar = ny(3, lblMultipelText, "lblMultiplar", 1.2);
    lblDiplom = ny(4, lblDiplomText, "lblDiplom", 1.2);
    lblTotalPoäng = ny(5, new QLabel(QStringLiteral("Total Poäng")), "lblTotalPoäng", 1.5);
    rader->setColumnStretch(1, 1);
    tavla->addLayout(rader);
    return ruta;
}

QWidget* frTest::ByggKlockor() {
    auto* ruta = new QGroupBox(QStringLiteral("Tid"));
    auto* rader = new QGridLayout(ruta);
    rader->setContentsMargins(6, 2, 6, 6);
    rader->setVerticalSpacing(3);
    int plats = 0;
    const auto klocka = [&](const char* namn, const QString& rubrik) {
        auto* fält = NyttFält(namn, 8, låstFärg);
        fält->setReadOnly(true);
        fält->TabStop(false);
        fält->setFont(Större(fält, 1.2));
        fält->setAlignment(Qt::AlignCenter);
        fält->setMinimumWidth(fält->fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) + 22);
        fält->setMaximumWidth(QWIDGETSIZE_MAX);
        fält->setAccessibleName(rubrik);
        const int rad = plats / 2;
        const int kolumn = plats % 2 * 2;
        ++plats;
        rader->addWidget(new QLabel(rubrik), rad, kolumn);
        rader->addWidget(fält, rad, kolumn + 1);
        return fält;
    };
    txtUTCTid = klocka("txtUTCTid", QStringLiteral("UTC"));
    txtAktiv = klocka("txtAktiv", QStringLiteral("Total Aktiv"));
    txtLokalTid = klocka("txtLokalTid", QStringLiteral("Lokal tid"));
    txtVila = klocka("txtVila", QStringLiteral("Total Vila"));
    cmdVila = NyKnapp("cmdVila", QStringLiteral("Vila"));
    rader->addWidget(cmdVila, 2, 3);
    rader->setColumnStretch(1, 1);
    rader->setColumnStretch(3, 1);
    return ruta;
}

QWidget* frTest::ByggTakt() {
    auto* ruta = new QWidget;
    auto* rad = new QHBoxLayout(ruta);
    rad->setContentsMargins(0, 0, 0, 0);
    txtInfo = Named(new QPlainTextEdit, "txtInfo");
    txtInfo->setReadOnly(true);
    txtInfo->setFocusPolicy(Qt::ClickFocus);
    txtInfo->setMaximumBlockCount(500);
    txtInfo->setMinimumHeight(36);
    txtInfo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored); // takes what the form leaves
    txtInfo->setAccessibleName(QStringLiteral("Takt"));
    Image1 = Named(new platform::ClickLabel, "Image1");
    if (const QPixmap karta = KartBild(); !karta.isNull())
        Image1->setPixmap(karta.scaled(64, 48, Qt::KeepAspectRatio, Qt::SmoothTransformation));
    Image1->setCursor(Qt::PointingHandCursor);
    Image1->setToolTip(QStringLiteral("Grid Karta"));
    lblV = Named(new QLabel, "lblV");
    lblV->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    rad->addWidget(txtInfo, 1);
    rad->addWidget(Image1);
    rad->addWidget(lblV);
    return ruta;
}

QWidget* frTest::ByggListor() {
    auto* ruta = new QWidget;
    auto* rad = new QHBoxLayout(ruta);
    rad->setContentsMargins(0, 0, 0, 0);
    rad->setSpacing(6);
    const auto lista = [](const char* namn, const QString& rubrik) {
        auto* rutnät = Named(new platform::DataGrid, namn);
        rutnät->setAccessibleName(rubrik);
        rutnät->setFocusPolicy(Qt::ClickFocus);
        rutnät->horizontalHeader()->setStretchLastSection(true);
        return rutnät;
    };
    const auto ram = [](QGroupBox* grupp, QWidget* innehåll) {
        auto* plats = new QVBoxLayout(grupp);
        plats->setContentsMargins(4, 2, 4, 4);
        plats->addWidget(innehåll);
        return grupp;
    };
    frmTQSO = Named(new QGroupBox(QStringLiteral("Tidigare QSO")), "frmTQSO");
    dgTidigareQSO = lista("dgTidigareQSO", QStringLiteral("Tidigare QSO"));
    dgMulti = lista("dgMulti", QStringLiteral("Multiplar"));
    dgDXCC = lista("dgDXCC", QStringLiteral("Körda länder"));
    rad->addWidget(ram(frmTQSO, dgTidigareQSO), 6);
    rad->addWidget(ram(new QGroupBox(QStringLiteral("Multiplar")), dgMulti), 2);
    rad->addWidget(ram(new QGroupBox(QStringLiteral("DXCC")), dgDXCC), 1);
    ruta->setMinimumHeight(80); // on a small screen, with the modem below
    ruta->setMaximumHeight(118);
    return ruta;
}

void frTest::ByggStatusrad() {
    statusBar()->setObjectName(QStringLiteral("SBarTest"));
    for (size_t i = 0; i < paneler_.size(); ++i) {
        paneler_[i] = new QLabel;
        platform::Named(paneler_[i], qPrintable(QStringLiteral("SBarTest(%1)").arg(i + 1)));
        paneler_[i]->setFrameStyle(QFrame::Panel | QFrame::Sunken);
        statusBar()->addWidget(paneler_[i], i == 3 ? 2 : 1);
    }
    SBarTest(2, QStringLiteral("Radio"));
}
