// The main window's side of the DX cluster.
#include "cluster/DXSpottModul.h"
#include "cluster/frDXSpott.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/windows.h"
#include "store/Dubbletter.h"

void frTest::DXSpotPå() {
    if (!kluster.ClusterAnsluten)
        InitieraDXCluster();
    else if (kluster.ClusterTyp == 1)
        platform::MsgBox(QStringLiteral("DX Tele är Aktivt. Kan ej ansluta till DX TNC !"),
                         QStringLiteral("Fel vid Anslutning"));
}

void frTest::mnuDXSpot_Visa_Click() {
    const platform::FlexGrid& spottar = *frDXSpott::instans().fgDXSpott;
    if (!GårAttLogga(spottar.Cell(spottar.Row(), 1))) return;
    RensaTest();
    txtSignal->setText(spottar.Cell(spottar.Row(), 1));
    txtFrekvens->setText(spottar.Cell(spottar.Row(), 2));
    update();
    VisaTestQSO();
}

void frTest::FokusTillSignal() {
    activateWindow();
    txtSignal->setFocus();
}

void frTest::Vänsterkant(int vänster) {
    // A window that fills its screen has no edge to move.
    if (!isMaximized()) platform::MoveOntoScreen(*this, {vänster, y()});
}
