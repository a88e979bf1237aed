#include "contest/frTest.h"

#include "contest/DeladeVärden.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/windows.h"
#include "store/Databaser.h"
#include "store/RäknaModul.h"
#include "store/SparaKolumner.h"
#include "store/SparaModul.h"
#include "store/frEditorTest.h"

#include <QFileInfo>

namespace {

const QString loggFilter = QStringLiteral("TestLogg (*.svk)|*.svk");

/// The log folder of a shared server. No station is ever connected to one, so the operator's own setting
/// stands in for a fixed address.
QString Loggmapp() {
    return delat.NätverkAnsluten ? delat.NätverkMapp : platform::DataPath(QStringLiteral("Loggar/"));
}

QString Loggmall() {
    return delat.NätverkAnsluten ? delat.NätverkMapp + QStringLiteral("/SVK")
                                 : platform::DataPath(QStringLiteral("SVK"));
}

void SkrivAktuelltTest(const QString& fil) {
    platform::Connection anslutning;
    anslutning.Open(fil);
    anslutning.CursorLocation(3);
    platform::Recordset info;
    info.Open(QStringLiteral("INFO"), anslutning);
    if (!info.IsBOF()) info.MoveFirst();
    info.Field(QStringLiteral("Aktuellt_Test"), delat.AktuelltTest);
    info.Update();
    info.Close();
    anslutning.Close();
}

void StängMarkör(platform::Recordset& markör) {
    if (markör.IsOpen()) markör.Close();
}

} // namespace

bool frTest::HarLogg() const {
    // The last cursor to be opened: an opening that failed halfway has left no log.
    return delat.TestLoggÖppen && db().rsTESTQSO.IsOpen() && db().rsMultiplar.IsOpen();
}

void frTest::NyTestLogg() {
    try {
        StängTestLogg();
        const auto fil = platform::AskFile(
            {.title = QStringLiteral("Ny Logg"), .folder = Loggmapp(), .filter = loggFilter, .save = true});
        if (!fil) return StannaMMVari(); // without a log nobody is on the air
        platform::CopyDatabase(Loggmall(), *fil);
        delat.TestLoggFil = *fil;
        delat.TestLoggTitel = QFileInfo(*fil).fileName();
        SkrivAktuelltTest(*fil);
        VerkställÖppnaTestLogg();
    } catch (const platform::Failure&) {
        StannaMMVari(); // the message may stand for hours
        platform::MsgBox(
            QStringLiteral("Ett fel har inträffat vid skapandet av ny Testlogg! Åtgärden avbryts!"),
            QStringLiteral("NyTestLogg"));
    }
}

void frTest::ÖppnaTestLogg() {
    try {
        AvbrytSändning(); // the dialog may stand for long
        const auto fil = platform::AskFile(
            {.title = QStringLiteral("Öppna Logg"), .folder = Loggmapp(), .filter = loggFilter});
        if (!fil) return;
        delat.TestLoggFil = *fil;
        delat.TestLoggTitel = QFileInfo(*fil).fileName();
        platform::DoEvents();
        VerkställÖppnaTestLogg();
    } catch (const platform::Failure&) {
        StannaMMVari(); // the message may stand for hours
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid öppning av loggen! Sorvik avslutas!"),
                         QStringLiteral("ÖppnaTestLogg"));
        platform::EndProcess(1);
    }
}

void frTest::mnuArkiv_ÖppnaTestlogg_Click() {
    ÖppnaTestLogg();
    if (delat.TestLoggÖppen) StannaKlockor();
}

void frTest::VerkställÖppnaTestLogg() {
    StängTestLogg();
    StannaKlockor(); // whichever way led here: they are not those of the log to come
    // The close menu has closed the reference databases as well; the log cannot do without them.
    ÅteröppnaDatabasar();
    Databaser& d = db();
    d.TestDB.Open(delat.TestLoggFil);
    d.TestDB.CursorLocation(3);
    d.rsINFO.Open(QStringLiteral("INFO"), d.TestDB);
    if (!d.rsINFO.IsBOF()) d.rsINFO.MoveFirst();
    delat.AktuelltTest = platform::ToInt16(d.rsINFO.Field(QStringLiteral("Aktuellt_Test")).number());
    d.rsTESTQSO.Open(QStringLiteral("TESTQSO"), d.TestDB);
    d.rsTESTDXCC.Open(QStringLiteral("TESTDXCC"), d.TestDB);
    Initiera_dgLogg();
    d.rsTESTQSO.Sort(QStringLiteral("Datum, Tid"));
    ÖppnaFrågor(delat.AktuelltTest);
    ÖppnaLokator();
    ÖppnaFriend();
    delat.TestLoggÖppen = true;
    AktiveraMenyer(true);
    cmbTrafik->Locked(false);
    cmbBand->Locked(false);
    lblQSO->setNum(static_cast<int>(d.rsTESTQSO.RecordCount()));
    // The rate is of contacts made from now on.
    delat.QSO10min = delat.QSO1tim = static_cast<int>(d.rsTESTQSO.RecordCount());
    QString titel = delat.TestLoggTitel;
    titel.replace(QLatin1Char('&'), QLatin1String("&&")); // one alone would mark a key
    frmLogg->setTitle(QStringLiteral("TestLogg Fil [") + titel + QLatin1Char(']'));
    Initiera_dgLogg();
    Initiera_fgTestData1();
    Initiera_fgTestData2();
    Initiera_fgDXCC();
    Initiera_fgSignal();
    Initiera_dgTidigareQSO();
    Initiera_dgMulti();
    lblLängstaQSO->hide();
    lblLängstaQSO->clear(); // two contests show it without ever writing it
    InitieraTest(delat.AktuelltTest);
    // Where nothing is counted the board of the log before must not stay.
    if (Test().poäng == store::PoängRegel::Ingen)
        for (QLabel* etikett : {lblMultiplar, lblDiplom, lblTotalQSOPoäng}) etikett->setNum(0);
    RäknaPoäng(delat.AktuelltTest);
    UppdateraBand();
    txtZONM->setText(delat.OpZon);
    txtLöpnrS->setText(delat.LöpnrFormat);
    if (Test().visaLängstaQSO)
        lblLängstaQSO->setText(d.rsINFO.Field(QStringLiteral("LängstaQSOSträng")).text());
    dgLogg->setMaximumHeight(delat.AktuelltTest == 6 ? platform::Twips(Test().dgLoggHöjd) : QWIDGETSIZE_MAX);
    frmDigital->setVisible(delat.AktuelltTest == 6);
    txtAktiv->setText(d.rsINFO.Field(QStringLiteral("AktivTid")).text());
    txtVila->setText(d.rsINFO.Field(QStringLiteral("ViloTid")).text());
    RensaTest();
    frEditorTest::FöljLogg(true);
    TestTimer_Tick(); // a contact within the first second has a time too
    txtSignal->setFocus();
}

void frTest::SkrivHållenKontakt() {
    platform::Recordset& logg = db().rsTESTQSO;
    if (!logg.IsOpen() || !logg.EditPending()) return;
    try {
        logg.Update();
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett databasfel har inträffat."), QStringLiteral("StängTestLogg"));
    }
}

void frTest::StängTestLogg() {
    AvbrytSändning();
    try {
        Databaser& d = db();
        if (d.TestDB.IsOpen()) {
            SkrivHållenKontakt();
            KopplaFrånRutnät();
            for (platform::Recordset* markör : {&d.rsTESTQSO, &d.rsDXCCBand}) StängMarkör(*markör);
            if (contest::ÄrStatTest(delat.AktuelltTest))
                for (platform::Recordset* markör : {&d.rsState, &d.rsProvince}) StängMarkör(*markör);
            else
                for (platform::Recordset* markör : {&d.rsSignal, &d.rsDXCC}) StängMarkör(*markör);
            for (platform::Recordset* markör :
                 {&d.rsDiplom, &d.rsTidigare, &d.rsITU, &d.rsZon, &d.rsMultiplar, &d.rsPoäng, &d.rsDistrikt})
                StängMarkör(*markör);
            if (d.rsINFO.IsOpen()) {
                SkrivINFO([this](platform::Recordset& info) {
                    info.Field(QStringLiteral("AktivTid"), txtAktiv->text());
                    info.Field(QStringLiteral("ViloTid"), txtVila->text());
                });
                d.rsINFO.Close();
            }
            StängMarkör(d.rsTESTDXCC);
            d.TestDB.Close(); // rsRutor goes with it
        }
        lblLängstaQSO->hide();
    } catch (const platform::Failure&) {
        lblLängstaQSO->hide();
        platform::MsgBox(QStringLiteral("Ett databasfel har inträffat."), QStringLiteral("StängTestLogg"));
    }
}

void frTest::UppdateraViaNät() {
    if (HarLogg()) db().rsTESTQSO.Requery();
}

void frTest::mnuArkiv_StängTestlogg_Click() {
    StannaMMVari(); // without a log nobody is on the air
    StängTestLogg();
    delat.TestLoggÖppen = false;
    StannaKlockor();
    Timer_Wait->Interval(0);
    StängDatabasar();
    RensaTest();
    frmLogg->setTitle(QStringLiteral("TestLogg Fil"));
}

void frTest::TömTESTQSO() {
    for (const store::KolumnVärde& kolumn : store::tomtQSO)
        db().rsTESTQSO.Field(kolumn.kolumn.toString(), kolumn.värde.toString());
}

void frTest::InitieraTest(int test) {
    cmbTrafik->Clear();
    delat.FT8Läge = false; // a locked mode is set without a choice that would clear it
    cmbBand->Clear();
    txtLokator->clear();
    const contest::Test* val = contest::HämtaTest(test);
    if (val) InitieraVal(*val);
    const contest::Test& meny = contest::TestFör(test);
    delat.DigitalTest = meny.meny == contest::MenyVal::Digital; // only then the engine starts
    TömTXWindow(); // what was left there is not for this log's first transmission
    if (delat.DigitalTest)
        Initiera_MMVari();
    else
        StannaMMVari();
    if (meny.meny == contest::MenyVal::Cw) RensaTest();
    Meny("mnuDigital")->menu()->setEnabled(delat.DigitalTest);
    Meny("mnuCW")->menu()->setEnabled(meny.meny == contest::MenyVal::Cw);
}

namespace {

/// One text that is locked, or a list with its first entry selected.
void FyllLista(platform::ComboBox& lista, const contest::ListVal& val) {
    if (val.låst) {
        lista.Text(val.första().toString());
        lista.Locked(true);
        return;
    }
    for (const QStringView post : val.poster) lista.addItem(post.toString());
    lista.setCurrentIndex(0);
}

void Sätt(QLabel* etikett, const std::optional<QStringView>& text) {
    if (text) etikett->setText(text->toString());
}

} // namespace

void frTest::InitieraVal(const contest::Test& val) {
    FyllLista(*cmbTrafik, val.trafiksätt);
    FyllLista(*cmbBand, val.band);
    for (Fält* fält : {txtRSTS, txtRSTM}) {
        fält->TabStop(true);
        if (val.rst) fält->setText(val.rst->toString());
    }
    txtLöpnrM->TabStop(val.löpnrPå);
    txtLöpnrS->setEnabled(val.löpnrPå);
    txtLöpnrM->setEnabled(val.löpnrPå);
    if (val.löpnrFormat) delat.LöpnrFormat = val.löpnrFormat->toString();
    txtLöpnrS->setText(db().rsINFO.Field(QStringLiteral("LöpNr")).text());
    if (val.cmbDiplomPå) cmbDiplom->setEnabled(*val.cmbDiplomPå);
    if (val.txtZONMTabb) txtZONM->TabStop(*val.txtZONMTabb);
    txtDiplom->TabStop(val.txtDiplomTabb);
    Sätt(lblTyp, val.lblTyp);
    txtDiplom->setAccessibleName(lblTyp->text());
    Sätt(lblMultipelText, val.lblMultipelText);
    Sätt(lblDiplomText, val.lblDiplomText);
    lblMultiplar->setAccessibleName(lblMultipelText->text());
    lblDiplom->setAccessibleName(lblDiplomText->text());
    if (val.lblLängstaQSOSynlig) lblLängstaQSO->setVisible(*val.lblLängstaQSOSynlig);
    if (val.rutPoäng) delat.RutPoäng = val.rutPoäng->toString();
    if (val.kmPoäng) delat.KmPoäng = val.kmPoäng->toString();
    VisaStation();
}

void frTest::VisaStation() {
    const contest::Test& val = Test();
    if (val.nummer < 0) return;
    txtLokator->setText(val.egenLokator ? delat.OpTestLokator : QString());
    SättRubrik(val.titel.toString());
}
