#include "contest/frTest.h"

#include "cluster/DXClusterModul.h"
#include "cluster/frDXCluster.h"
#include "cluster/frDXSpott.h"
#include "cluster/frDXSpottFörval.h"
#include "contest/DeladeVärden.h"
#include "contest/Klocka.h"
#include "contest/frSplashTest.h"
#include "contest/frTestInst.h"
#include "contest/frTestVal.h"
#include "platform/application.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/mmvari/mmvari.h"
#include "platform/paths.h"
#include "platform/windows.h"
#include "radio/frInstDigi.h"
#include "radio/frOmni.h"
#include "store/Databaser.h"

#include <QCloseEvent>
#include <QScreen>

using platform::Twips;

namespace {

/// Lets go of a network drive. This platform has no drives of that kind and nothing sets the flag in front of
/// it, so it is never reached.
void WNetCancelConnection2A(const QString& namn, int flaggor, bool tvinga) {
    Q_UNUSED(namn)
    Q_UNUSED(flaggor)
    Q_UNUSED(tvinga)
}

} // namespace

frTest::frTest() {
    ByggFönster();
    ByggMenyer();
    KopplaFormulär();
    KopplaKnappar();
    KopplaMenyer();
    platform::SetLetGo([this] { StannaMMVari(); });
}

frTest::~frTest() { platform::SetLetGo({}); }

frTest& frTest::instans() { return platform::SingleWindow<frTest>::get(); }

void frTest::Ladda() {
    frSplashTest::instans().VisaModalt();
    platform::DoEvents();
    ÖppnaDatabasar();
    delat.TestLoggÖppen = false;
    frTestInst::instans().LäsSVDIni();
    frInstDigi::instans();      // reads the settings of the digital modes
    frDXSpottFörval::instans(); // reads the spot presets
    AktiveraMenyer(delat.TestLoggÖppen);
    TestTimer->Interval(1000);
    SpotRad = 1;
    delat.TabbstopRST = true;
    delat.KlockaPå = true;
    delat.MakroDigital = true;
    Initiera_Fönster();
    SättRubrik(Produkt + QLatin1Char(' ') + Version);
    Meny("mnuRadio_Av")->setChecked(true);
    // At start the number is always 0; the other branch stands here for a log of contest 6.
    delat.DigitalTest = delat.AktuelltTest == 6;
    if (delat.DigitalTest) Initiera_MMVari();
    frmDigital->setVisible(delat.DigitalTest);
    dgLogg->setMaximumHeight(delat.AktuelltTest == 6 ? Twips(3855) : QWIDGETSIZE_MAX);
    Placera(QPoint(Twips(4680), Twips(380)));
    lblV->setText(Version);
    show();
}

void frTest::Placera(QPoint plats) {
    // Where the screen is too small for the place or the size, the whole window counts for more than either.
    const QRect skärm = screen()->availableGeometry();
    if (width() >= skärm.width() || height() >= skärm.height()) return setWindowState(Qt::WindowMaximized);
    platform::MoveOntoScreen(*this, plats);
}

void frTest::Initiera_Fönster() {
    // The start size in full where the screen has room for it.
    const QSize önskad(Twips(19605), Twips(15000));
    resize(önskad.boundedTo(screen()->availableGeometry().size()));
    move(0, 0);
    for (QLabel* tecken :
         {lblNyttLand, lblNyttBand, lblDistrikt, lblMultipel, lblNyRuta, lblDubblett, lblNyIOTA})
        tecken->hide();
    const QDateTime nu = platform::Now();
    txtLokalTid->setText(contest::TidText(nu));
    SBarTest(1, QStringLiteral("Datum: ") + nu.date().toString(QStringLiteral("yyyy-MM-dd")));
}

void frTest::AktiveraMenyer(bool på) {
    frmLogg->setEnabled(på);
    for (const char* namn : {"mnuRedigera", "mnuDXCluster", "mnuRadio", "mnuRapport", "mnufönster"})
        Meny(namn)->menu()->setEnabled(på);
    for (QPushButton* knapp : {cmdVisa, cmdAvbryt, cmdSpara, cmdRadera}) knapp->setEnabled(på);
    if (på) {
        Meny("mnuInställning")->menu()->setEnabled(true);
        return;
    }
    // Settings stay in reach with no log open. Keying menus are turned on by mode and contest alone.
    for (const char* namn : {"mnuCW", "mnuDigital"}) Meny(namn)->menu()->setEnabled(false);
}

void frTest::SättRubrik(const QString& titel) {
    setWindowTitle(titel + QStringLiteral("  TestSignal: ") + delat.OpSignal);
}

void frTest::SBarTest(int panel, const QString& text) {
    paneler_.at(static_cast<size_t>(panel - 1))->setText(text);
    // Several troubles at once are longer than the bar.
    paneler_.at(static_cast<size_t>(panel - 1))->setToolTip(text);
}

QString frTest::SBarTest(int panel) const { return paneler_.at(static_cast<size_t>(panel - 1))->text(); }

const contest::Test& frTest::Test() const { return contest::TestFör(delat.AktuelltTest); }

void frTest::StängAlltOchSpara() {
    delat.ProgramAvslutas = true;
    delat.LoggIgång = false;
    SkrivHållenKontakt();
    frTestInst::instans().SparaSVDIni();
    frDXSpottFörval::instans().SparaDXSpottFörvalIni();
    StängDatabasar();
}

void frTest::closeEvent(QCloseEvent* event) {
    event->ignore();
    AvbrytSändning(); // the question may stand for long
    if (!platform::AskYesNo(QStringLiteral("Vill du verkligen avsluta Sorvik ?"), QStringLiteral("Sorvik")))
        return;
    // The log that may be open is left alone: its clocks are not written back at exit.
    StannaMMVari(); // no radio stays keyed, whatever messages come
    StängAlltOchSpara();
    hide();
    frDXCluster::LaddaUr();
    frDXSpott::LaddaUr();
    frOmni::LaddaUr();
    if (delat.NätverkAnsluten) {
        WNetCancelConnection2A(delat.NätverkEnhet, 1, false);
        delat.NätverkAnsluten = false;
    }
    platform::EndProcess(0);
}

void frTest::keyPressEvent(QKeyEvent* event) {
    // The window's default and cancel buttons: keys that no field has taken for itself.
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (cmdSpara->isEnabled()) cmdSpara->click();
        break;
    case Qt::Key_Escape:
        if (cmdAvbryt->isEnabled()) cmdAvbryt->click();
        break;
    default: QMainWindow::keyPressEvent(event);
    }
}
