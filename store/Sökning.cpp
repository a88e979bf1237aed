#include "store/Sökning.h"

#include "platform/dialogs.h"
#include "store/Filter.h"

void SökLika(platform::Recordset& markör, QStringView kolumn, const QString& text, const QString& titel) {
    try {
        markör.Filter(store::Lika(kolumn, text));
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Sökningen kan inte göras. Kontrollera texten."), titel);
    }
}
