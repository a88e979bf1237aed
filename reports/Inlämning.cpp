#include "reports/Inlämning.h"

#include "contest/DeladeVärden.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/launch.h"
#include "platform/paths.h"
#include "platform/textfile.h"

#include <QFileInfo>

namespace {

QString Inställningar() {
    const QString fil = platform::DataPath(QStringLiteral("INI/Rapport.ini"));
    return QFileInfo::exists(fil) ? platform::LoadTextFile(fil) : QString();
}

void VisaFilfel() {
    platform::MsgBox(QStringLiteral("Kan inte hitta Programfilen!"), QStringLiteral("Filfel"));
}

} // namespace

void SkickaTill(std::optional<reports::Mottagare> mottagare) {
    if (!mottagare) return;
    try {
        platform::OpenAddress(reports::Adress(*mottagare, Inställningar()));
    } catch (const platform::Failure&) {
        VisaFilfel();
    }
}

void SkickaMedEpost() {
    try {
        platform::StartProgram(delat.OpEpost);
    } catch (const platform::Failure&) {
        VisaFilfel();
    }
}

void LäsRapport(const QString& filter) {
    const auto fil = platform::AskFile({.title = QStringLiteral("Öppna Rapport"),
                                        .folder = platform::DataPath(QStringLiteral("Rapport/")),
                                        .filter = filter});
    if (!fil) return;
    delat.RapportFil = *fil;
    delat.RapportTitel = QFileInfo(*fil).fileName();
    try {
        platform::StartProgram(delat.OpEdit, {*fil});
    } catch (const platform::Failure&) {
        // No editor has been chosen yet, or it is gone; the report is written all the same.
    }
}
