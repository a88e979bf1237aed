#include "contest/frTest.h"

#include "contest/DeladeVärden.h"
#include "contest/Klocka.h"
#include "contest/Löpnummer.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "radio/frOmni.h"
#include "store/Databaser.h"
#include "store/Dubbletter.h"
#include "store/Landsökning.h"
#include "store/LokatorModul.h"
#include "store/RäknaModul.h"
#include "store/SparaModul.h"
#include "store/frEditorTest.h"

#include <QKeyEvent>

namespace {

QChar Frekvenstecken(QChar typed, const QLineEdit&) {
    return (typed >= QLatin1Char('0') && typed <= QLatin1Char('9')) || typed == QLatin1Char(',') ? typed
                                                                                                 : QChar();
}

/// The report that a mode starts with; empty where the mode says nothing of it.
QString RapportFör(const QString& trafiksätt) {
    if (trafiksätt == QLatin1String("CW") || trafiksätt == QLatin1String("RTTY"))
        return QStringLiteral("599");
    if (trafiksätt == QLatin1String("SSB")) return QStringLiteral("59");
    return {};
}

} // namespace

void frTest::KopplaFormulär() {
    for (Fält* fält : {txtSignal, txtLokator}) fält->OnKeyPress(platform::UpperCaseNoBlank);
    // A locator in small letters would not decode.
    for (Fält* fält : {txtLöpnrM, txtDiplom}) fält->OnKeyPress(platform::UpperCase);
    txtFrekvens->OnKeyPress(Frekvenstecken);
    for (Fält* fält : {txtSignal, txtFrekvens, txtITUM, txtRSTM, txtRSTS, txtZONM}) fält->SelectAllOnFocus();

    txtSignal->OnChange([this] { txtSignal_Change(); });
    txtSignal->OnLostFocus([this] { txtSignal_LostFocus(); });
    txtLöpnrM->OnLostFocus([this] { txtLöpnrM_LostFocus(); });
    txtLöpnrS->OnChange([this] { txtLöpnrS_Change(); });
    txtDiplom->OnChange([this] { txtDiplom_Change(); });
    txtDiplom->OnGotFocus([this] { txtDiplom_GotFocus(); });
    txtDiplom->OnLostFocus([this] { txtDiplom_LostFocus(); });
    cmbTrafik->OnClick([this] { cmbTrafik_Click(); });
    cmbBand->OnClick([this] { cmbBand_Click(); });

    // Index by index as the window was drawn; fields without a number of their own fill the gaps.
    tabbordning_ = {txtSignal, txtRSTM, txtLöpnrM, txtDiplom,   cmbTrafik,  cmbBand,  cmbDiplom, txtFrekvens,
                    txtITUM,   txtZONM, txtNamn,   txtNotering, txtLokator, txtDatum, cmdSpara,  cmdAvbryt,
                    txtLöpnrS, cmdVisa, cmdRadera, cmdVila,     txtInfo,    dgLogg,   txtRSTS};
    txtLöpnrS->TabStop(false);
    VerkställTabbordning();
}

void frTest::KopplaKnappar() {
    connect(cmdSpara, &QPushButton::clicked, this, [this] { cmdSpara_Click(); });
    connect(cmdAvbryt, &QPushButton::clicked, this, [this] { cmdAvbryt_Click(); });
    connect(cmdVisa, &QPushButton::clicked, this, [this] { cmdVisa_Click(); });
    connect(cmdRadera, &QPushButton::clicked, this, [this] { cmdRadera_Click(); });
    connect(cmdVila, &QPushButton::clicked, this, [this] { cmdVila_Click(); });
    connect(cmdRensa, &QPushButton::clicked, this, [this] { cmdRensa_Click(); });
    connect(dgLogg, &QTableView::doubleClicked, this, [] { frEditorTest::instans().VisaVald(); });
    Image1->OnClick([this] { Meny("mnufönster_Grid")->trigger(); });
}

// ---- the call -----------------------------------------------------------------------------------------

void frTest::txtSignal_Change() {
    if (txtSignal->text().isEmpty()) return;
    VisaTestDXCC();
    KollaDXCC();
    VisaTestQSO();
}

void frTest::txtSignal_LostFocus() {
    if (txtSignal->text().isEmpty()) return;
    const bool statTest = contest::ÄrStatTest(delat.AktuelltTest);
    if (!delat.RedigeraQSO && !statTest) KollaTidigare();
    if (!statTest) KollaPoängOmDags();
    if (Test().kollaLokator) KollaLokator();
    VisaTestQSO();
}

void frTest::KollaPoängOmDags() {
    if (txtSignal->text().isEmpty() || delat.DubblettFlagga) return;
    if (delat.RedigeraQSO) {
        // A logged contact whose call was not changed keeps the points on the form.
        const platform::Recordset& logg = db().rsTESTQSO;
        const bool harRad = logg.IsOpen() && logg.RecordCount() > 0 && !logg.IsBOF() && !logg.IsEOF();
        if (!harRad || logg.Field(QStringLiteral("Signal")).text() == txtSignal->text()) return;
    }
    KollaPoäng(delat.AktuelltTest);
}

// ---- the exchange -------------------------------------------------------------------------------------

void frTest::txtDiplom_Change() {
    const auto längd = txtDiplom->text().size();
    if (lblTyp->text() == QLatin1String("Lokator") && (längd == 6 || längd == 4)) KollaDiplom();
    if (lblTyp->text() == QLatin1String("State/Province")) {
        if (längd == 2) KollaTidigare();
        KollaPoäng(delat.AktuelltTest);
    }
}

void frTest::txtDiplom_GotFocus() {
    if (lblTyp->text() == QStringLiteral("Län") && txtDiplom->text().size() == 2) KollaDiplom();
}

void frTest::txtDiplom_LostFocus() {
    if (!Test().diplomVisarVäg || txtDiplom->text().isEmpty()) return;
    VisaRiktningAvstånd(EgenTestLokator(), txtDiplom->text());
}

void frTest::UppdateraAvstånd() {
    if (Test().poäng != store::PoängRegel::Km) return;
    if (txtDiplom->text().isEmpty() || txtDiplom->text() == avståndFör) return;
    VisaRiktningAvstånd(EgenTestLokator(), txtDiplom->text());
}

// ---- serials ------------------------------------------------------------------------------------------

void frTest::txtLöpnrM_LostFocus() {
    if (Test().fyllLöpnrM) txtLöpnrM->setText(contest::FyllMottagetLöpnr(txtLöpnrM->text()));
}

void frTest::txtLöpnrS_Change() {
    const QString formaterat = contest::FormateraLöpnr(txtLöpnrS->text(), delat.LöpnrFormat);
    if (formaterat != txtLöpnrS->text()) txtLöpnrS->setText(formaterat);
}

void frTest::mnuRedigera_NollställLöpnr_Click() {
    if (!HarLogg()) return;
    SkrivINFO([](platform::Recordset& info) { info.Field(QStringLiteral("LöpNr"), 1); });
    txtLöpnrS->setText(QStringLiteral("1"));
}

// ---- mode and band ------------------------------------------------------------------------------------

void frTest::cmbTrafik_Click() {
    const QString trafiksätt = cmbTrafik->Text();
    delat.FT8Läge = trafiksätt == QLatin1String("FT8");
    const bool telegrafi = trafiksätt == QLatin1String("PSK31") || trafiksätt == QLatin1String("RTTY") ||
                           trafiksätt == QLatin1String("CW");
    const QString rapport = telegrafi ? QStringLiteral("599") : QStringLiteral("59");
    for (Fält* fält : {txtRSTM, txtRSTS}) {
        fält->setText(delat.FT8Läge ? QString() : rapport);
        fält->TabStop(!delat.FT8Läge);
    }
    Meny("mnuCW")->menu()->setEnabled(trafiksätt == QLatin1String("CW"));
    Meny("mnuDigital")->menu()->setEnabled(delat.FT8Läge || trafiksätt == QLatin1String("RTTY"));
}

void frTest::Initiera_Combo() {
    for (const char* trafiksätt : {"CW", "SSB", "RTTY", "FM", "AM"})
        cmbTrafik->addItem(QLatin1String(trafiksätt));
    for (const char* band : {"160 M", "80 M", "40 M", "20 M", "15 M", "10 M", "6 M", "2 M", "70 CM"})
        cmbBand->addItem(QLatin1String(band));
}

// ---- a logged contact ---------------------------------------------------------------------------------

namespace {

/// Selects the entry that equals a text; without one the list stays as it is.
void VäljPost(platform::ComboBox& lista, const QString& text) {
    for (int i = 0; i < lista.count(); ++i)
        if (lista.itemText(i) == text) return lista.Row(i);
}

} // namespace

void frTest::VisaTestQSOData() {
    try {
        const auto kolumn = [](const char* namn) {
            return db().rsTESTQSO.Field(QString::fromUtf8(namn)).text();
        };
        txtDatum->setText(kolumn("Datum"));
        txtUTCTid->setText(kolumn("Tid"));
        txtPrefix->setText(kolumn("Prefix"));
        txtDXCCNR->setText(kolumn("DXCC Nr"));
        txtSignal->setText(kolumn("Signal"));
        lblLand->setText(kolumn("Land"));
        lblDXCC->setText(kolumn("DXCC"));
        txtFrekvens->setText(kolumn("Frekvens"));
        lblQSOPoäng->setText(kolumn("Poäng"));
        // Before the reports: choosing a mode sets those.
        VäljPost(*cmbTrafik, kolumn("Trafiksätt"));
        VäljPost(*cmbBand, kolumn("Band "));
        txtRSTM->setText(kolumn("Mottaget"));
        txtRSTS->setText(kolumn("Sänt"));
        txtNamn->setText(kolumn("Namn"));
        txtNotering->setText(kolumn("Notering"));
        txtITUM->setText(kolumn("ITU"));
        txtZONM->setText(kolumn("Zon"));
        txtDiplom->setText(kolumn("Diplom"));
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid visning av QSO"),
                         QStringLiteral("VisaTestQSOData"));
    }
}

// ---- tab order ----------------------------------------------------------------------------------------

void frTest::SättTabIndex(QWidget* fält, int index) {
    std::erase(tabbordning_, fält);
    tabbordning_.insert(tabbordning_.begin() + index, fält);
}

void frTest::VerkställTabbordning() {
    for (size_t i = 1; i < tabbordning_.size(); ++i)
        QWidget::setTabOrder(tabbordning_[i - 1], tabbordning_[i]);
}

void frTest::Tabbföljd(int nummer) {
    const contest::Namnlista namn = nummer == 1 ? Test().tabbföljd1 : Test().tabbföljd2;
    int index = 0;
    for (const QStringView fält : namn) SättTabIndex(frmLogg->findChild<QWidget*>(fält.toString()), index++);
    VerkställTabbordning();
    Meny("mnuInställning_RoppaCQ")->setChecked(nummer == 1);
    Meny("mnuInställning_SvaraCQ")->setChecked(nummer == 2);
}

void frTest::TabbstoppRST(bool på) {
    delat.TabbstopRST = på;
    for (Fält* fält : {txtRSTM, txtRSTS}) fält->TabStop(på);
    Meny("mnuInställning_Tabbstop_RST")->setChecked(på);
}

void frTest::TabbstoppLöpnr(bool på) {
    delat.TabbstopLöpnr = på;
    txtLöpnrM->TabStop(på);
    Meny("mnuInställning_Tabbstop_Löpnr")->setChecked(på);
}

// ---- clearing -----------------------------------------------------------------------------------------

void frTest::RensaBedömning() {
    for (QLabel* etikett : {lblKont, lblTid, lblDXCC, lblRiktning, lblAvstånd, lblLand})
        FärgaEtikett(etikett, false);
    for (QLabel* etikett : {lblDXCC, lblLand, lblKont, lblRiktning, lblAvstånd}) etikett->clear();
    landFärgat = false;
    avståndFör.clear();
    for (QLabel* tecken :
         {lblNyttLand, lblNyttBand, lblDistrikt, lblMultipel, lblNyRuta, lblDubblett, lblNyIOTA})
        tecken->hide();
    for (Fält* fält : {txtDXCCNR, txtPrefix, txtNDXCC, txtNRUTA, txtDubblett}) fält->clear();
    delat.DubblettFlagga = false;
    lblQSOPoäng->setText(QStringLiteral("0"));
}

void frTest::RensaTest() {
    // The clock's own date: a contact that is saved before its next tick must not have the date of another
    // day than its time.
    const QDateTime nu = platform::Now();
    txtDatum->setText(delat.KlockaPå ? contest::TestDatumText(nu, delat.OpUTCTid)
                                     : nu.date().toString(QStringLiteral("yyyy-MM-dd")));
    txtSignal->clear();
    // A frequency that was typed or came with a spot gives way to where the radio is.
    if (delat.RadioPå) txtFrekvens->setText(frOmni::instans().Label3->text());
    if (const QString rapport = RapportFör(cmbTrafik->Text()); !rapport.isEmpty()) {
        txtRSTM->setText(rapport);
        txtRSTS->setText(rapport);
    }
    for (Fält* fält : {txtNamn, txtNotering, txtDiplom, txtITUM, txtZONM, txtLöpnrM}) fält->clear();
    txtLöpnrM->setEnabled(true);
    RensaBedömning(); // now, since a field that is emptied may count its points
    frmTQSO->setTitle(QStringLiteral("Tidigare QSO"));
    if (HarLogg()) db().rsTidigare.Filter(store::SignalFilter(QString()));
    delat.RedigeraQSO = false;
    Initiera_fgTestData2();
    Initiera_Contest();
    if (!HarLogg()) return;
    Initiera_fgDXCC();
    Initiera_fgSignal();
    Initiera_dgTidigareQSO();
    Initiera_dgMulti();
    db().rsTESTQSO.Filter(QString());
    if (!db().rsTESTQSO.IsEOF()) db().rsTESTQSO.MoveLast();
    // A report leaves the layout of SAC behind.
    if (prefixLoggVisas_ != Test().prefixLogg) Initiera_dgLogg();
    if (const auto kolumn = Test().loggKolumn) dgLogg->Caption(kolumn->nummer, kolumn->rubrik.toString());
}

void frTest::Initiera_Contest() {
    if (HarLogg()) txtLöpnrS->setText(db().rsINFO.Field(QStringLiteral("LöpNr")).text());
}
