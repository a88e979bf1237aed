// The real windows on a real log in a process of its own, worked by keys:
//
//     sparprocess FOLDER LOG save PREFIX NUMBER    saves so many contacts, 0 for no end
//     sparprocess FOLDER LOG type TEXT             saves three contacts, then types the text as a call
//
// It says "ready", waits for a line, and goes on as told. Lines on stdout: "saved CALL" once the form has
// cleared, "message TITLE: TEXT" for a message box, "box TITLE: TEXT" for the runtime's.
#include "Provanrop.h"

#include "contest/frTest.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "store/Databaser.h"
#include "support/Provmapp.h"

#include <QMessageBox>
#include <QTest>

#include <cstdio>

namespace {

void Säg(const QString& rad) {
    std::fputs((rad + QLatin1Char('\n')).toUtf8().constData(), stdout);
    std::fflush(stdout);
}

void Skriv(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
void Tryck(Qt::Key tangent) { QTest::keyClick(QApplication::focusWidget(), tangent); }

/// Call, Tab until the exchange, locator, Enter. @return whether the form has cleared.
bool Spara(const QString& signal, const QString& lokator) {
    const frTest& f = frTest::instans();
    Skriv(signal.toLower());
    for (int i = 0; i < 10 && QApplication::focusWidget() != f.txtDiplom; ++i) Tryck(Qt::Key_Tab);
    Skriv(lokator.toLower());
    Tryck(Qt::Key_Return);
    const bool rensat = f.txtSignal->text().isEmpty() && f.txtDiplom->text().isEmpty();
    if (rensat) Säg(QStringLiteral("saved ") + signal);
    platform::DoEvents(); // the grids draw themselves
    return rensat;
}

/// Contacts go on from those in the log, so that a run continues the one before.
bool SparaFlera(const QString& prefix, qsizetype antal) {
    const qsizetype första = db().rsTESTQSO.RecordCount();
    for (qsizetype i = 0; antal == 0 || i < antal; ++i)
        if (!Spara(Provanrop(prefix, första + i), Provlokator(första + i))) return false;
    return true;
}

void KopplaDialoger(const QString& logg) {
    platform::Dialogs() = {
        .message = [](const QString& text,
                      const QString& titel) { Säg(QStringLiteral("message %1: %2").arg(titel, text)); },
        .yesNo = [](const QString&, const QString&) { return false; },
        .file = [logg](const platform::FileQuestion&) { return std::optional(logg); }};
    NärFönsterSyns(
        "RuntimeError",
        [](QWidget* fönster) {
            auto* ruta = static_cast<QMessageBox*>(fönster);
            Säg(QStringLiteral("box %1: %2").arg(ruta->windowTitle(), ruta->text().simplified()));
            QTest::mouseClick(ruta->button(QMessageBox::Ok), Qt::LeftButton);
        },
        1000000);
}

bool Utför(const QStringList& vad) {
    if (vad[0] == QLatin1String("save")) return SparaFlera(vad[1], vad[2].toLongLong());
    if (!SparaFlera(QStringLiteral("SM5"), 3)) return false;
    Skriv(vad[1]);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    platform::Application program(argc, argv);
    platform::InstallSwedish();
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList val = QApplication::arguments();
    if (val.size() < 5) return 2;
    platform::SetProgramFolder(val[1]);
    KopplaDialoger(val[2]);
    HoppaÖverSplash();
    frTest& f = frTest::instans();
    f.Ladda();
    if (!QTest::qWaitForWindowActive(&f)) return 2;
    f.mnuArkiv_ÖppnaTestlogg_Click();
    f.TestTimer_Tick();
    Säg(QStringLiteral("ready"));
    std::getchar();
    const bool gick = Utför(val.mid(3));
    std::fflush(nullptr);
    std::_Exit(gick ? 0 : 3);
}
