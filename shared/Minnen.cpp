#include "shared/Minnen.h"

#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/textfile.h"
#include "shared/Minnesposter.h"
#include "store/Databaser.h"
#include "store/Dubblett.h"

namespace {

using platform::Recordset;

/// In what the two memories differ.
struct Minnesval {
    Minnesdb minne;
    Recordset Databaser::*markör;
    const char* namn;   ///< as it stands in the texts and the names of the files
    const char* kolumn; ///< what is remembered
};
constexpr Minnesval lokatorer{Minnesdb::Lokator, &Databaser::rsLokator, "Lokator", "Lokator"};
constexpr Minnesval vänner{Minnesdb::Friend, &Databaser::rsFriend, "Friend", "Namn"};

/// A text with the memory's name in the place of %1.
QString Text(const char* text, const Minnesval& val) {
    return QString::fromUtf8(text).arg(QString::fromUtf8(val.namn));
}

void LäggTill(Recordset& markör, const QString& kolumn, const shared::Minnespost& post) {
    markör.Filter(store::SignalFilter(post.signal));
    if (markör.RecordCount() > 0) return;
    markör.AddNew();
    markör.Field(QStringLiteral("Signal"), post.signal);
    markör.Field(kolumn, post.värde);
    markör.Update();
}

/// @throws platform::Failure
void LäsIn(const Minnesval& val, const QString& fil) {
    Recordset& markör = db().*val.markör;
    // Before the first log there is no memory to update.
    if (!db().minnenFinns) throw platform::Failure(QStringLiteral("Databasen är inte öppen."));
    ÖppnaMinne(val.minne);
    if (!markör.IsBOF()) markör.MoveFirst();
    for (const shared::Minnespost& post : shared::LäsMinnesposter(platform::LoadTextFile(fil)))
        LäggTill(markör, QString::fromUtf8(val.kolumn), post);
    markör.Filter(QString());
}

void Uppdatera(const Minnesval& val) {
    const QString titel = Text("Uppdatera %1 Databas", val);
    const auto fil = platform::AskFile({.title = Text("Öppna %1 fil för Uppdatering", val),
                                        .folder = platform::DataPath(QString()),
                                        .filter = Text("%1 filer (*.ini)|*.ini", val)});
    if (!fil) return;
    platform::MsgBox(QStringLiteral("OBS! Detta kan ta några minuter, en meddelanderuta bekräftar när "
                                    "uppdateringen är slutförd. Var vänlig vänta..."),
                     titel);
    try {
        LäsIn(val, *fil);
    } catch (const platform::Failure&) {
        Recordset& markör = db().*val.markör;
        if (markör.IsOpen()) {
            markör.CancelUpdate();
            markör.Filter(QString());
        }
        platform::MsgBox(Text("Ett fel har inträffat vid uppdatering av filen %1.ini.", val),
                         Text("Uppdatera%1", val));
        return;
    }
    platform::MsgBox(Text("Uppdatering av %1 databas är slutförd.", val), titel);
}

/// A memory that could not be emptied is to go on remembering.
void FörsökÖppna(Minnesdb minne) {
    try {
        ÖppnaMinne(minne);
    } catch (const platform::Failure&) {
        return; // the message comes either way
    }
}

void Töm(const Minnesval& val) {
    Recordset& markör = db().*val.markör;
    const bool varÖppen = markör.IsOpen();
    try {
        markör.Filter(QString()); // the list window may have left one
        if (markör.RecordCount() == 0) return;
        StängMinne(val.minne);
        platform::CopyDatabase(platform::DataPath(Text("%1.hdb", val)),
                               platform::DataPath(Text("%1.dat", val)));
        ÖppnaMinne(val.minne);
    } catch (const platform::Failure&) {
        if (varÖppen && !markör.IsOpen()) FörsökÖppna(val.minne);
        platform::MsgBox(Text("Ett fel har inträffat vid tömning av %1 Databas.", val),
                         Text("mnuTöm%1Databas", val));
    }
}

} // namespace

void UppdateraLokator() { Uppdatera(lokatorer); }

void UppdateraFriend() { Uppdatera(vänner); }

void TömLokator() { Töm(lokatorer); }

void TömFriend() { Töm(vänner); }
