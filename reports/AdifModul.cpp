#include "reports/AdifModul.h"

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/paths.h"
#include "reports/Adif.h"
#include "reports/Rapportfil.h"
#include "store/Databaser.h"

void ExporteraAdif() {
    const QString titel = QStringLiteral("ExporteraAdif");
    platform::Recordset& logg = db().rsTESTQSO;
    if (!logg.IsOpen())
        return platform::MsgBox(
            QStringLiteral("Du måste öppna en logg innan du exportera data till en ADIF-fil."), titel);
    if (!logg.Filter().isEmpty()) logg.Filter(QString());
    if (logg.RecordCount() == 0)
        return platform::MsgBox(QStringLiteral("Det finns ingen data att exportera!"), titel);
    const auto fil = platform::AskFile({.title = QStringLiteral("Spara ADIF-fil för exportering som"),
                                        .folder = platform::DataPath(QStringLiteral("Rapport/")),
                                        .filter = QStringLiteral("ADIF-filer (*.adi)|*.adi"),
                                        .save = true});
    if (!fil) return;
    try {
        SkrivRapport(*fil,
                     reports::AdifRapport(reports::LäsLogg(logg, reports::AdifKolumner()), platform::Now()));
    } catch (const platform::Failure&) {
        return platform::MsgBox(
            QStringLiteral("Ett fel har inträffat vid exportering av data till en ADIF-fil."), titel);
    }
    platform::MsgBox(QStringLiteral("Exportering av data till ADIF utfördes felfritt."),
                     QStringLiteral("ExporteraTestAdif"));
}
