#include "store/frEditorTest.h"

#include "contest/DeladeVärden.h"
#include "contest/Klocka.h"
#include "contest/frTest.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "store/Databaser.h"
#include "store/Landsstatus.h"
#include "store/RäknaModul.h"
#include "store/Sökning.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QScreen>

using platform::Named;
using platform::Recordset;

/// One field of a contact: its column, and whether it is written back as it stands.
struct frEditorTest::Kolumnfält {
    const char* kolumn;
    const char* namn;
    Fält* frEditorTest::*fält;
    bool skrivs = true;
};

const std::vector<frEditorTest::Kolumnfält>& frEditorTest::Kolumner() {
    using F = frEditorTest;
    static const std::vector<Kolumnfält> kolumner = {
        {"Datum", "txtDatum", &F::txtDatum},
        {"Tid", "txtUTCTid", &F::txtUTCTid},
        {"Signal", "txtSignal", &F::txtSignal},
        {"Frekvens", "txtFrekvens", &F::txtFrekvens},
        {"Mottaget", "txtRSTM", &F::txtRSTM},
        {"Sänt", "txtRSTS", &F::txtRSTS},
        {"Namn", "txtNamn", &F::txtNamn},
        {"QTH", "txtQTH", &F::txtQTH},
        {"ITU", "txtITU", &F::txtITU},
        {"Zon", "txtWAZ", &F::txtWAZ},
        {"Multiplar", "txtTest", &F::txtTest, false},
        {"DXCC", "txtDXCC", &F::txtDXCC},
        {"DXCC Nr", "txtDXCCNR", &F::txtDXCCNR},
        {"Prefix", "txtPrefix", &F::txtPrefix},
        {"Land", "txtLand", &F::txtLand},
        {"Notering", "txtNotering", &F::txtNotering},
        {"Diplom", "txtDiplom", &F::txtDiplom, false},
    };
    return kolumner;
}

namespace {

const QString rubrikUtanKontakt = QStringLiteral("Logg Data");

/// A log to work on; the close menu leaves the window without one.
bool HarLogg() { return frTest::instans().HarLogg(); }

QString Kolumn(const char* namn) { return db().rsTESTQSO.Field(QString::fromUtf8(namn)).text(); }

void FyllLista(platform::ComboBox& lista, std::initializer_list<const char*> poster) {
    const QString text = lista.Text();
    lista.Clear();
    for (const char* post : poster) lista.addItem(QString::fromUtf8(post));
    lista.Text(text);
}

} // namespace

frEditorTest::frEditorTest()
    : QDialog(&frTest::instans()) {
    setObjectName(QStringLiteral("frEditorTest"));
    setWindowTitle(QStringLiteral("Logg Data (Editor)"));
    Bygg();
    Koppla();
    Ladda();
}

frEditorTest& frEditorTest::instans() { return platform::SingleWindow<frEditorTest>::get(); }

// ---- the window ---------------------------------------------------------------------------------------

void frEditorTest::Bygg() {
    dgTestLogg = Named(new platform::DataGrid, "dgTestLogg");
    dgTestLogg->setAccessibleName(QStringLiteral("Logg"));
    lblTestlogg = Named(new QLabel(rubrikUtanKontakt), "lblTestlogg");
    QFont fet = lblTestlogg->font();
    fet.setBold(true);
    lblTestlogg->setFont(fet);

    auto* fält = new QGridLayout;
    fält->setHorizontalSpacing(8);
    const auto sätt = [fält](QWidget* ruta, const char* rubrik, int rad, int plats, int bredd = 1) {
        auto* etikett = new QLabel(QString::fromUtf8(rubrik));
        etikett->setBuddy(ruta);
        ruta->setAccessibleName(etikett->text());
        fält->addWidget(etikett, rad, 2 * plats);
        fält->addWidget(ruta, rad, 2 * plats + 1, 1, 2 * bredd - 1);
    };
    for (const Kolumnfält& kolumn : Kolumner()) this->*kolumn.fält = Named(new Fält, kolumn.namn);
    cmbTrafiksätt = Named(new Lista, "cmbTrafiksätt");
    cmbBand = Named(new Lista, "cmbBand");
    txtLokalTid = Named(new Fält, "txtLokalTid");
    cmdPrefix = Named(new QPushButton(QStringLiteral("Visa Prefix")), "cmdPrefix");
    cmdDXCC = Named(new QPushButton(QStringLiteral("Visa DXCC")), "cmdDXCC");

    sätt(txtSignal, "Signal", 0, 0);
    sätt(txtDatum, "Datum", 0, 1);
    sätt(txtUTCTid, "UTC", 0, 2);
    sätt(txtLokalTid, "Lokal tid", 0, 3);
    sätt(cmbTrafiksätt, "Trafiksätt", 1, 0);
    sätt(cmbBand, "Band", 1, 1);
    sätt(txtFrekvens, "Frekvens", 1, 2);
    sätt(txtTest, "Multiplar", 1, 3);
    sätt(txtRSTM, "RST mott.", 2, 0);
    sätt(txtRSTS, "RST sänt", 2, 1);
    sätt(txtNamn, "Namn", 2, 2);
    sätt(txtDiplom, "Diplom", 2, 3);
    sätt(txtPrefix, "Prefix", 3, 0);
    sätt(txtDXCC, "DXCC", 3, 1);
    sätt(txtDXCCNR, "DXCC Nr", 3, 2);
    sätt(txtQTH, "QTH", 3, 3);
    sätt(txtLand, "Land", 4, 0);
    sätt(txtITU, "ITU", 4, 1);
    sätt(txtWAZ, "Zon", 4, 2);
    sätt(txtNotering, "Notering", 4, 3);
    for (int plats = 0; plats < 4; ++plats) fält->setColumnStretch(2 * plats + 1, 1);

    // No column of the log stands behind these; they are no use to the operator.
    const auto tyst = [this](auto* ruta, const char* namn) {
        Named(ruta, namn)->setParent(this);
        ruta->hide();
        return ruta;
    };
    txtKont = tyst(new Fält, "txtKont");
    txtIOTA = tyst(new Fält, "txtIOTA");
    txtWAS = tyst(new Fält, "txtWAS");
    txtUSCounty = tyst(new Fält, "txtUSCounty");
    txtEffekt = tyst(new Fält, "txtEffekt");
    txtQSO = tyst(new Fält, "txtQSO");
    txtLöpnrS = tyst(new Fält, "txtLöpnrS");
    txtLöpnrM = tyst(new Fält, "txtLöpnrM");
    cmbDiplom = tyst(new Lista, "cmbDiplom");
    cmbKond = tyst(new Lista, "cmbKond");

    auto* knappar = new QHBoxLayout;
    const auto knapp = [knappar](const char* text, const char* namn) {
        auto* ny = Named(new QPushButton(QString::fromUtf8(text)), namn);
        knappar->addWidget(ny);
        return ny;
    };
    cmdVisa = knapp("Visa", "cmdVisa");
    cmdSpara = knapp("Spara", "cmdSpara");
    cmdRadera = knapp("Radera", "cmdRadera");
    cmdRensa = knapp("Avbryt", "cmdRensa");
    knappar->addSpacing(16);
    for (QPushButton* en : {cmdPrefix, cmdDXCC}) knappar->addWidget(en);
    knappar->addStretch(1);
    cmdStäng = knapp("Stäng", "cmdStäng");
    for (QPushButton* en : {cmdVisa, cmdSpara, cmdRadera, cmdRensa, cmdPrefix, cmdDXCC, cmdStäng})
        en->setAutoDefault(false);
    lblTestlogg->setTextFormat(Qt::PlainText); // a call is no markup

    auto* plats = new QVBoxLayout(this);
    plats->addWidget(dgTestLogg, 1);
    plats->addWidget(lblTestlogg);
    plats->addLayout(fält);
    plats->addLayout(knappar);
    constexpr int allaKolumner = 1190;
    resize(qMin(allaKolumner, screen()->availableSize().width() - 40), 560);
}

void frEditorTest::Koppla() {
    const auto vid = [this](QPushButton* knapp, auto gör) {
        connect(knapp, &QPushButton::clicked, this, gör);
    };
    dgTestLogg->OnChoose([this] { Välj(); });
    connect(txtNotering, &QLineEdit::textChanged, this, [this] { txtNotering->setPalette({}); });
    vid(cmdVisa, [this] { cmdVisa_Click(); });
    vid(cmdSpara, [this] {
        if (txtSignal->text().isEmpty()) return;
        txtSignal->setFocus();
        SparaQSO();
    });
    vid(cmdRadera, [this] {
        RaderaQSO();
        txtSignal->setFocus();
        setTabOrder(txtSignal, cmdVisa);
    });
    vid(cmdRensa, [this] { Rensa(); });
    vid(cmdStäng, [this] { close(); });
    vid(cmdPrefix, [this] { VisaSignalPrefix(); });
    vid(cmdDXCC, [this] { VisaSignalLand(); });
}

void frEditorTest::Ladda() {
    const QDateTime nu = platform::Now();
    txtLokalTid->setText(contest::TidText(nu));
    txtDatum->setText(nu.date().toString(QStringLiteral("yyyy-MM-dd")));
    txtEffekt->setText(delat.Digital.DigiEffekt);
    Initiera_Fönster();
}

void frEditorTest::Initiera_Fönster() {
    FyllLista(*cmbTrafiksätt, {"CW", "SSB", "FM", "AM", "FT8", "RTTY", "PSK31"});
    FyllLista(*cmbBand, {"160 M", "80 M", "40 M", "30 M", "20 M", "17 M", "15 M", "12 M", "10 M", "6 M",
                         "2 M", "70 CM"});
}

void frEditorTest::Formatera_dgLogg() {
    if (!HarLogg()) return dgTestLogg->Unbind();
    std::vector<platform::GridColumn> kolumner;
    const std::pair<const char*, int> bredder[] = {
        {"Datum", 84}, {"Tid", 68},  {"Signal", 96},   {"Frekvens", 84},  {"Trafiksätt", 66},
        {"Band ", 54}, {"Sänt", 70}, {"Mottaget", 70}, {"Multiplar", 80}, {"Diplom", 90},
        {"DXCC", 54},  {"Land", 96}, {"Namn", 90},     {"Poäng", 54},     {"Notering", 90}};
    for (const auto& [namn, bredd] : bredder) {
        const QString fält = QString::fromUtf8(namn);
        kolumner.push_back({fält, fält.trimmed(), bredd});
    }
    dgTestLogg->Bind(&db().rsTESTQSO, kolumner);
}

void frEditorTest::Visa() {
    if (!isVisible()) {
        Ladda();
        Formatera_dgLogg();
    }
    show();
    raise();
    activateWindow();
    dgTestLogg->setFocus();
}

void frEditorTest::VisaVald() {
    Visa();
    Välj();
}

void frEditorTest::FöljLogg(bool öppnad) {
    if (!platform::SingleWindow<frEditorTest>::exists()) return;
    frEditorTest& editor = instans();
    if (!editor.isVisible()) return;
    if (!öppnad) return editor.dgTestLogg->Unbind();
    editor.Rensa(); // a contact of the log before has no place in this one
    editor.Formatera_dgLogg();
}

void frEditorTest::done(int resultat) {
    QDialog::done(resultat);
    dgTestLogg->Unbind();
    // A contact that stays chosen behind a closed window would be written over by the next one on the entry
    // form.
    Rensa();
    if (HarLogg()) VisaHelaLoggen();
}

void frEditorTest::Notera(const QString& text) {
    txtNotering->setText(text);
    QPalette färger = txtNotering->palette();
    färger.setColor(QPalette::Text, QColor(255, 0, 0));
    txtNotering->setPalette(färger);
}

// ---- a contact ----------------------------------------------------------------------------------------

void frEditorTest::Välj() {
    if (!HarLogg() || db().rsTESTQSO.IsBOF() || db().rsTESTQSO.IsEOF()) return;
    delat.RedigeraQSO = true;
    delat.RedigeradBookmark = db().rsTESTQSO.GetBookmark();
    VisaTestQSOData();
}

void frEditorTest::cmdVisa_Click() {
    if (!HarLogg()) return;
    const Recordset& logg = db().rsTESTQSO;
    if (!logg.IsBOF() && !logg.IsEOF()) delat.RedigeradBookmark = logg.GetBookmark();
    VisaTestQSOData();
    txtSignal->setFocus();
}

void frEditorTest::VisaTestQSOData() {
    try {
        for (const Kolumnfält& kolumn : Kolumner()) (this->*kolumn.fält)->setText(Kolumn(kolumn.kolumn));
        cmbTrafiksätt->Choose(Kolumn("Trafiksätt"));
        cmbBand->Choose(Kolumn("Band "));
        lblTestlogg->setText(QStringLiteral("Redigera: ") + Kolumn("Signal"));
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid visning av QSO"),
                         QStringLiteral("VisaTestQSOData"));
    }
}

void frEditorTest::SättKolumner() {
    Recordset& logg = db().rsTESTQSO;
    const auto skriv = [&logg](const char* kolumn, const QString& text) {
        logg.Field(QString::fromUtf8(kolumn), text);
    };
    for (const Kolumnfält& kolumn : Kolumner()) {
        if (!kolumn.skrivs) continue;
        const QString text = (this->*kolumn.fält)->text();
        skriv(kolumn.kolumn, kolumn.fält == &frEditorTest::txtSignal ? text.toUpper() : text);
    }
    skriv("Trafiksätt", cmbTrafiksätt->Text());
    skriv("Band ", cmbBand->Text());
    if (txtTest->text().isEmpty()) return;
    // Whatever the contest keeps in Diplom otherwise.
    for (const char* kolumn : {"Multiplar", "Diplom"}) skriv(kolumn, txtTest->text());
}

void frEditorTest::SkrivRad() {
    Recordset& logg = db().rsTESTQSO;
    try {
        SättKolumner();
        logg.Update();
    } catch (const platform::Failure&) {
        // The fields still hold the correction; a later save must not bring it unasked.
        logg.CancelUpdate();
        throw;
    }
}

void frEditorTest::SparaQSO() {
    if (!delat.RedigeraQSO || !HarLogg()) return;
    try {
        Recordset& logg = db().rsTESTQSO;
        frTest& f = frTest::instans();
        logg.Update(); // a new contact that could not be written yet is not to go with a failure here
        logg.SetBookmark(delat.RedigeradBookmark);
        QString dxcc = Kolumn("DXCC");
        QString trafiksätt = Kolumn("Trafiksätt");
        QString band = Kolumn("Band ");
        const bool statusÄndras =
            txtDXCC->text() != dxcc || cmbTrafiksätt->Text() != trafiksätt || cmbBand->Text() != band;
        SkrivRad();
        // What the board counts is the log as it is now.
        f.UppdateraTest();
        f.UppdateraBand();
        Rensa();
        f.RensaTest();
        if (!statusÄndras) return;
        Uppdatera_DXCC(dxcc, trafiksätt, band);
        VisaHelaLoggen();
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid sparande/uppdatering av QSO."),
                         QStringLiteral("SparaQSO"));
    }
}

void frEditorTest::RaderaQSO() {
    if (!delat.RedigeraQSO || !HarLogg()) return;
    Recordset& logg = db().rsTESTQSO;
    frTest& f = frTest::instans();
    logg.SetBookmark(delat.RedigeradBookmark);
    if (!platform::AskYesNo(QStringLiteral("Vill du verkligen radera ") + Kolumn("Signal") +
                                QStringLiteral(" från loggen?"),
                            QStringLiteral("Radera")))
        return;
    QString dxcc = Kolumn("DXCC");
    QString trafiksätt = Kolumn("Trafiksätt");
    QString band = Kolumn("Band ");
    logg.Delete();
    logg.Update();
    f.UppdateraTest();
    Uppdatera_DXCC(dxcc, trafiksätt, band);
    f.UppdateraBand();
    Rensa();
    f.RensaTest();
}

void frEditorTest::VisaHelaLoggen() {
    Recordset& logg = db().rsTESTQSO;
    logg.Filter(QString());
    if (!logg.IsEOF()) logg.MoveLast();
}

void frEditorTest::Rensa() {
    if (HarLogg()) {
        db().rsTESTQSO.Filter(QString());
        db().rsTESTDXCC.Filter(QString());
    }
    for (QLineEdit* fält : findChildren<QLineEdit*>(QString(), Qt::FindDirectChildrenOnly)) fält->clear();
    for (Lista* lista : {cmbTrafiksätt, cmbBand, cmbDiplom, cmbKond}) lista->Text(QString());
    for (Fält* fält : {txtRSTS, txtRSTM}) fält->setText(QStringLiteral("59"));
    lblTestlogg->setText(rubrikUtanKontakt);
    delat.RedigeraQSO = false;
    if (!HarLogg()) return;
    // The count leaves its sum in lblQSOPoäng, where the points of a contact on the entry form may stand.
    QLabel& poäng = *frTest::instans().lblQSOPoäng;
    const QString påFormuläret = poäng.text();
    RäknaPoäng(delat.AktuelltTest);
    poäng.setText(påFormuläret);
}

void frEditorTest::VisaSignalPrefix() {
    if (txtPrefix->text().isEmpty() || !HarLogg()) return;
    delat.RedigeraQSO = false;
    SökLika(db().rsTESTQSO, u"Prefix", txtPrefix->text(), windowTitle());
}

void frEditorTest::VisaSignalLand() {
    if (txtDXCC->text().isEmpty() || !HarLogg()) return;
    delat.RedigeraQSO = false;
    SökLika(db().rsTESTQSO, u"DXCC", txtDXCC->text(), windowTitle());
}
