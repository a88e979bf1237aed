#include "contest/Programval.h"

#include "contest/DeladeVärden.h"
#include "platform/dialogs.h"
#include "store/Databaser.h"

namespace {

/// @throws platform::Failure if the row cannot be written; the shared value keeps the old path then.
void VäljProgram(const char* kolumn, QString DeladeVärden::*värde) {
    // Programs have no extension of their own on this platform, so every file is offered as well.
    const auto fil = platform::AskFile({.title = QStringLiteral("Program"),
                                        .folder = QStringLiteral("/usr/bin"),
                                        .filter = QStringLiteral("Program|*.exe|Alla filer|*")});
    if (!fil) return;
    ÅteröppnaDatabasar();
    platform::Recordset& rad = db().rsSVDINI;
    try {
        rad.Field(QString::fromUtf8(kolumn), *fil);
        rad.Update();
    } catch (const platform::Failure&) {
        rad.CancelUpdate();
        throw;
    }
    delat.*värde = *fil;
}

} // namespace

void VäljEpostprogram() {
    try {
        VäljProgram("OpEpost", &DeladeVärden::OpEpost);
    } catch (const platform::Failure&) {
        // Ends without a word; the stored path is unchanged.
    }
}

void VäljEditor() {
    try {
        VäljProgram("OpEdit", &DeladeVärden::OpEdit);
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Kan inte hitta någon programfil"), QStringLiteral("Fil"));
    }
}
