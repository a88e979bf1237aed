#include "platform/packetengine.h"

#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/textfile.h"

#include <QLibrary>

namespace platform {

namespace {

using PutData = void (*)(const char* call, const char* data, int kind, int length, int channel);

PutData Lookup() {
    const QString name = QStringLiteral("agwdll32");
    for (const QString& path : {ProgramFolder() + u'/' + name, name})
        if (const auto function = QLibrary::resolve(path, "AGWPutData"))
            return reinterpret_cast<PutData>(function);
    throw Failure(QStringLiteral("Biblioteket %1 saknas.").arg(name));
}

} // namespace

void AGWPutData(const QString& anrop, const QString& data, int kind, int längd, int kanal) {
    static const PutData put = Lookup();
    put(ToCp1252(anrop).constData(), ToCp1252(data).constData(), kind, längd, kanal);
}

} // namespace platform
