#include "contest/frTest.h"

#include "contest/DeladeVärden.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "store/Databaser.h"
#include "store/Dubbletter.h"
#include "store/Filter.h"
#include "store/Landsökning.h"
#include "store/LokatorModul.h"
#include "store/RäknaModul.h"
#include "store/SparaModul.h"

#include <QFile>

namespace {

/// The contact that the digital program handed over is in the log now.
void TaBortFT8QSO() {
    if (delat.FT8Läge) QFile::remove(platform::DataPath(QStringLiteral("FT8/TestQSO.ADI")));
}

} // namespace

bool frTest::SparaVägras() {
    if (delat.AktuelltTest == contest::ingenTest) {
        platform::MsgBox(QStringLiteral("Du har inte valt någon Test!"), QStringLiteral("Välj en TEST"));
        return true;
    }
    const auto längd = txtDiplom->text().size();
    if (cmbDiplom->Text() == QLatin1String("Lokator") && längd != 4 && längd != 6 && längd != 0) {
        platform::MsgBox(QStringLiteral("Felaktigt angiven lokator! Kontrollera."),
                         QStringLiteral("Lokator"));
        return true;
    }
    return false;
}

void frTest::StartaKlockor() {
    delat.TidGår = true;
    TimerVila->Interval(0);
    // One that runs is left alone, or every contact would cost the clock the second it is in.
    for (platform::Timer* timer : {TimerAktiv, Timer_Wait})
        if (timer->Interval() != 1000) timer->Interval(1000);
}

void frTest::EfterSparad() {
    if (!HarLogg()) return;
    db().rsTESTQSO.Filter(QString());
    if (!Test().sparaLokator) return;
    UppdateraLängstaQSO();
    SparaLokator();
}

void frTest::cmdSpara_Click() {
    if (txtSignal->text().isEmpty() || SparaVägras()) return;
    UppdateraAvstånd();
    KollaPoängOmDags();
    SparaTestQSO(delat.AktuelltTest);
    RäknaPoäng(delat.AktuelltTest);
    EfterSparad();
    StartaKlockor();
    RensaTest();
    txtSignal->setFocus();
    TaBortFT8QSO();
}

// The menu's save differs from the button's: it counts the log before it saves, so that the row gets the sum
// of all points, and it marks the country as worked. Neither is to be evened out: logs depend on both.
void frTest::mnuRedigera_SparaQSO_Click() {
    if (txtSignal->text().isEmpty()) return;
    for (platform::Timer* timer : {TimerVila, TimerAktiv, Timer_Wait}) timer->Interval(0);
    if (SparaVägras()) return;
    UppdateraAvstånd();
    KollaPoängOmDags();
    RäknaPoäng(delat.AktuelltTest);
    SparaTestQSO(delat.AktuelltTest);
    RäknaPoäng(delat.AktuelltTest);
    EfterSparad();
    const platform::Recordset& logg = db().rsTESTQSO;
    if (HarLogg() && !logg.EditPending() && !logg.IsBOF() && !logg.IsEOF()) {
        QString dxcc = logg.Field(QStringLiteral("DXCC")).text();
        QString trafiksätt = logg.Field(QStringLiteral("Trafiksätt")).text();
        QString band = logg.Field(QStringLiteral("Band ")).text();
        LäggTillKördaDXCC(dxcc, trafiksätt, band);
    }
    StartaKlockor();
    RäknaPoäng(delat.AktuelltTest);
    txtSignal->setFocus();
    RensaTest();
    TaBortFT8QSO();
}

void frTest::cmdAvbryt_Click() {
    RensaTest();
    txtSignal->setFocus();
}

void frTest::cmdVisa_Click() {
    VisaTestQSO();
    KollaTidigare();
    if (!txtSignal->text().isEmpty() && !delat.DubblettFlagga) KollaPoäng(delat.AktuelltTest);
}

void frTest::cmdRensa_Click() {
    RXWindow->clear();
    TömTXWindow();
}

void frTest::cmdRadera_Click() {
    platform::Recordset& logg = db().rsTESTQSO;
    if (!delat.RedigeraQSO || !HarLogg() || logg.IsBOF() || logg.IsEOF()) return;
    const QString signal = logg.Field(QStringLiteral("Signal")).text();
    if (!platform::AskYesNo(QStringLiteral("Vill du verkligen radera ") + signal +
                                QStringLiteral(" från loggen?"),
                            QStringLiteral("Radera")))
        return;
    const QString multiplar = logg.Field(QStringLiteral("Multiplar")).text();
    logg.Delete();
    logg.Update();
    if (logg.RecordCount() > 0 && !logg.IsBOF()) logg.MoveFirst();
    if (Test().ärverTvåPoäng) ÄrvTvåPoäng(multiplar);
    logg.Filter(QString());
    logg.Sort(QStringLiteral("Datum, Tid"));
    RequeryFrågor();
    lblQSO->setNum(static_cast<int>(logg.RecordCount()));
    lblMultiplar->setNum(static_cast<int>(db().rsMultiplar.RecordCount()));
    RäknaPoäng(delat.AktuelltTest);
    UppdateraBand();
    RensaTest();
}

// Where the first contact of a square carries two points, the next one takes them over when it goes. Rows
// hold kilometres, which this step does not know of.
void frTest::ÄrvTvåPoäng(const QString& multiplar) {
    const auto tvåPoäng = store::TvåPoängFilter(multiplar);
    if (!tvåPoäng) return;
    platform::Recordset& logg = db().rsTESTQSO;
    logg.Filter(*tvåPoäng);
    if (logg.RecordCount() > 0) return;
    logg.Filter(store::RutaFilter(multiplar));
    if (logg.RecordCount() == 0) return;
    logg.MoveFirst();
    logg.Field(QStringLiteral("Poäng"), 2);
    logg.Update();
}
