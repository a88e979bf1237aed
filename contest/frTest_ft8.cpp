// The contacts that the FT8 program hands over.
#include "contest/DeladeVärden.h"
#include "contest/frTest.h"
#include "platform/dialogs.h"
#include "platform/failure.h"
#include "platform/launch.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/textfile.h"
#include "reports/FT8Post.h"
#include "store/Databaser.h"
#include "store/Lokator.h"
#include "store/LokatorModul.h"
#include "store/frEditorTest.h"

#include <QApplication>
#include <QScopeGuard>

namespace {

QString FT8Fil() { return platform::DataPath(QStringLiteral("FT8/TestQSO.ADI")); }

/// The title of the hand-off's own message while it stands.
QString ft8Meddelande;

/// Datagrams go on arriving behind a message: of those that would give one each, the operator answers one.
void FT8Meddelande(const QString& text, const QString& titel) {
    if (!ft8Meddelande.isEmpty()) return;
    ft8Meddelande = titel;
    const auto nere = qScopeGuard([] { ft8Meddelande.clear(); });
    platform::MsgBox(text, titel);
}

bool ÄrHelLokator(const QString& text) {
    return (text.size() == 4 || text.size() == 6) && store::AvkodaLokator(text);
}

struct FT8Läsare {
    std::optional<QString> (*läs)(const QString& text);
    frTest::Fält* frTest::*fält;
    bool söks = false; ///< the log is searched for it
};

/// In this order; a tag that cannot be read ends the rest.
constexpr FT8Läsare ft8Läsare[] = {
    {reports::LäsFT8Signal, &frTest::txtSignal, true},  {reports::LäsFT8Frekvens, &frTest::txtFrekvens},
    {reports::LäsFT8Mottaget, &frTest::txtRSTM},        {reports::LäsFT8Sänt, &frTest::txtRSTS},
    {reports::LäsFT8Lokator, &frTest::txtDiplom, true},
};

} // namespace

void frTest::StartFT8() {
    Winsock1->Close();
    try {
        Winsock1->LocalPort(platform::ToInt32(platform::Val(delat.Digital.DigiUDP)));
        Winsock1->Bind();
    } catch (const platform::Failure&) {
        // Started all the same, the program would hand its contacts to nobody.
        const QString port =
            delat.Digital.DigiUDP.isEmpty()
                ? QStringLiteral("Ingen UDP-port är vald.")
                : QStringLiteral("UDP-porten %1 kan inte öppnas.").arg(delat.Digital.DigiUDP);
        platform::MsgBox(port + QStringLiteral(" Välj en under Inställning - Digital Inställning..."),
                         QStringLiteral("StartFT8"));
        return;
    }
    try {
        platform::StartProgram(QStringLiteral("wsjtx"));
        delat.FT8Läge = true;
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Kan inte hitta Filen!"), QStringLiteral("Filfel"));
    }
}

bool frTest::FT8FårVänta() {
    const QWidget* uppe = QApplication::activeModalWidget();
    return uppe && (ft8Meddelande.isEmpty() || uppe->windowTitle() != ft8Meddelande);
}

void frTest::SläppRättning() {
    if (!delat.RedigeraQSO) return;
    // Saved as it is now, the new contact would be written over the one that is being corrected.
    frEditorTest::instans().Rensa();
    if (!db().rsTESTQSO.IsEOF()) db().rsTESTQSO.MoveLast();
}

void frTest::LämnaFörraQSO(bool lokatorKommer) {
    RensaBedömning();
    for (Fält* fält : {txtITUM, txtZONM}) fält->clear();
    Initiera_fgTestData2();
    // Half a locator that was being typed cannot be measured, and the message would come for the new call.
    if (lokatorKommer && !ÄrHelLokator(txtDiplom->text())) txtDiplom->clear();
}

void frTest::Winsock1_DataArrival() {
    txtData->setText(Winsock1->GetData());
    SparaData();
    ImporteraAdif();
}

void frTest::SparaData() {
    try {
        platform::SaveTextFile(FT8Fil(), platform::LinesToText({platform::WriteItem(txtData->text())}));
    } catch (const platform::Failure&) {
        FT8Meddelande(QStringLiteral("Ett fel har inträffat vid sparande av Data."),
                      QStringLiteral("SparaData"));
    }
}

void frTest::VisaFT8Avstånd() {
    if (ÄrHelLokator(txtDiplom->text()) && ÄrHelLokator(EgenTestLokator())) txtDiplom_LostFocus();
}

void frTest::ImporteraAdif() {
    try {
        platform::Recordset& logg = db().rsTESTQSO;
        if (!logg.IsOpen())
            return FT8Meddelande(
                QStringLiteral("Det finns ingen aktiv logg. Du måste skapa en ny eller öppna en "
                               "befintlig logg innan du kan importera en ADIF-fil."),
                QStringLiteral("ImporteraAdif"));
        // A contact that is being corrected stays where it is until another one takes the form.
        if (!delat.RedigeraQSO && !logg.IsEOF()) logg.MoveLast();
        const QString text = reports::FT8Text(platform::LoadTextFile(FT8Fil()));
        const bool lokatorKommer = reports::HarFT8Lokator(text);
        for (const FT8Läsare& läsare : ft8Läsare) {
            const auto värde = läsare.läs(text);
            if (!värde) continue;
            // No search can hold one, and the next step of the operator would end the program.
            if (läsare.söks && värde->contains(u'\'')) throw platform::Failure(*värde);
            SläppRättning();
            if (läsare.fält == &frTest::txtSignal && *värde != txtSignal->text())
                LämnaFörraQSO(lokatorKommer);
            (this->*läsare.fält)->setText(*värde);
        }
        if (lokatorKommer) VisaFT8Avstånd();
    } catch (const platform::Failure&) {
        FT8Meddelande(QStringLiteral("Ett fel har inträffat vid importering av ADIF-fil."),
                      QStringLiteral("ImportFT8"));
    }
}
