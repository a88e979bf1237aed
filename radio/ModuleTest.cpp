#include "radio/ModuleTest.h"

#include "cluster/DXClusterModul.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/launch.h"
#include "platform/paths.h"
#include "platform/sound.h"

void SpelaLjud() {
    try {
        platform::PlaySound(platform::DataPath(QStringLiteral("Ljud/Test/")) + SpotFörval.SpotLjudFil);
    } catch (const platform::Failure&) {
        platform::MsgBox(
            QStringLiteral("Kan inte spela upp ljud! Kontrollera att valda ljudfiler existerar."),
            QStringLiteral("SpelaLjud"));
    }
}

void StartaVolymkontroll() {
    const QString program = QStringLiteral("pavucontrol");
    try {
        platform::StartProgram(program);
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Volymkontrollen (%1) kan inte startas.").arg(program),
                         QStringLiteral("Volymkontroll"));
    }
}
