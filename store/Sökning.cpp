#include "store/Sökning.h"

#include "platform/dialogs.h"
#include "store/Filter.h"

bool SökMed(platform::Recordset& markör, const QString& filter, const QString& titel) {
    try {
        markör.Filter(filter);
        return true;
    } catch (const platform::Failure&) {
        platform::MsgBox(QStringLiteral("Sökningen kan inte göras. Kontrollera texten."), titel);
        return false;
    }
}

void SökLika(platform::Recordset& markör, QStringView kolumn, const QString& text, const QString& titel) {
    SökMed(markör, store::Lika(kolumn, text), titel);
}
