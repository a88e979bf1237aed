#include "contest/Löpnummer.h"

#include "platform/text.h"

namespace contest {
namespace {

int MinstaSiffror(const QString& löpnrFormat) {
    if (löpnrFormat == u"01") return 2;
    if (löpnrFormat == u"001") return 3;
    return 4;
}

} // namespace

QString FormateraLöpnr(const QString& text, const QString& löpnrFormat) {
    return platform::FormatDigits(text, MinstaSiffror(löpnrFormat));
}

QString FyllMottagetLöpnr(const QString& text) { return text.size() == 1 ? u'0' + text : text; }

} // namespace contest
