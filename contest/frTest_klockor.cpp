#include "contest/frTest.h"

#include "contest/DeladeVärden.h"
#include "contest/Klocka.h"
#include "platform/application.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/text.h"
#include "store/Databaser.h"

void frTest::TestTimer_Tick() {
    if (!delat.KlockaPå || delat.RedigeraQSO) return;
    const QDateTime nu = platform::Now();
    txtLokalTid->setText(contest::TidText(nu));
    txtUTCTid->setText(contest::UTCTidText(nu, delat.OpUTCTid));
    txtDatum->setText(contest::TestDatumText(nu, delat.OpUTCTid));
}

void frTest::AktivTestTid() { EnSekund(txtAktiv); }

void frTest::VilaTesttid() { EnSekund(txtVila); }

void frTest::EnSekund(Fält* klocka) {
    try {
        klocka->setText(contest::EnSekundTill(klocka->text()));
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Ett fel har inträffat vid uppdatering av QSO Tid."),
                         QStringLiteral("UppdateraQSOTid"));
    }
}

void frTest::Timer_Wait_Tick() {
    ++delat.Räknare10min;
    ++delat.Räknare1tim;
    Taktrapport(delat.Räknare10min, 600, delat.QSO10min, QStringLiteral("Antal QSO under 10 min. "));
    Taktrapport(delat.Räknare1tim, 3600, delat.QSO1tim, QStringLiteral("Antal QSO under 1 tim. "));
}

void frTest::Taktrapport(int& räknare, int gräns, int& qsoVidSenaste, const QString& text) {
    if (räknare < gräns) return;
    platform::DoEvents();
    if (HarLogg()) {
        // rsPoäng has a row for each contact, whatever part of the log the editor shows.
        const int antal = platform::ToInt16(static_cast<double>(db().rsPoäng.RecordCount()));
        // insertPlainText and not appendPlainText: the report ends its own line.
        txtInfo->moveCursor(QTextCursor::End);
        txtInfo->insertPlainText(text + QString::number(antal - qsoVidSenaste) + QStringLiteral(" st.\r\n"));
        txtInfo->moveCursor(QTextCursor::End);
        qsoVidSenaste = antal;
    }
    räknare = 0;
}

void frTest::StannaKlockor() {
    delat.TidGår = false;
    for (platform::Timer* timer : {TimerAktiv, TimerVila}) timer->Interval(0);
}

void frTest::cmdVila_Click() {
    if (!delat.TidGår) return;
    delat.TidGår = false;
    TimerAktiv->Interval(0);
    TimerVila->Interval(1000);
}

void frTest::mnuRedigera_NollställTimer_Click() {
    for (platform::Timer* timer : {TimerVila, TimerAktiv, Timer_Wait}) timer->Interval(0);
    for (Fält* klocka : {txtAktiv, txtVila}) klocka->setText(QStringLiteral("00:00:00"));
}
