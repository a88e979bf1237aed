#include "store/PrefixSök.h"

#include "store/Filter.h"

#include <algorithm>
#include <array>

namespace store {
namespace {

/// The longest start of the call that is a key. A gap does not end the search: with the keys S and SM5 the
/// call SM5ABC gives SM5, though SM is none.
QString LängstaBörjan(const QString& anrop, const AntalNycklar& antal) {
    QString bäst;
    const qsizetype längd = std::min(anrop.size(), maxAnropLängd);
    for (qsizetype n = 1; n <= längd; ++n) {
        const QString början = anrop.left(n);
        if (antal(början) > 0) bäst = början;
    }
    return bäst;
}

/// The United Nations' block and the French overseas block resolve to keys of their own.
QString Särfall(const QString& anrop, const QString& bäst) {
    if (bäst.isEmpty() && anrop.startsWith(u"4U")) return QStringLiteral("4U");
    if (bäst == u"F" && anrop.startsWith(u"FT")) return QStringLiteral("FT");
    return bäst;
}

bool ÄrSiffra(QChar tecken) { return tecken >= u'0' && tecken <= u'9'; }

/// Composed keys leave the call-area digit out: VP8FA is looked up as VP/F and VP/FA.
QString SammansattNyckel(const QString& anrop, const QString& bäst, const AntalNycklar& antal) {
    const qsizetype längd = bäst.size();
    if (anrop.size() <= längd || !ÄrSiffra(anrop[längd])) return bäst;
    const QString ett = bäst + u'/' + anrop.mid(längd + 1, 1);
    if (antal(ett) == 0) return bäst;
    const QString två = ett + anrop.mid(längd + 2, 1);
    return antal(två) == 0 ? ett : två;
}

} // namespace

QString SökPrefix(const QString& anrop, const AntalNycklar& antal) {
    return SammansattNyckel(anrop, Särfall(anrop, LängstaBörjan(anrop, antal)), antal);
}

std::optional<QString> SökEntydigtPrefix(const QString& anrop, const AntalNycklar& antal) {
    QString nyckel = SökPrefix(anrop, antal);
    if (antal(nyckel) != 1) return std::nullopt;
    return nyckel;
}

QString PrefixFilter(const QString& nyckel) { return Lika(u"Prefix", nyckel); }

bool ÄrNordisk(const QString& dxcc, const QString& kontinent) {
    static constexpr std::array<QStringView, 9> länder{u"OX", u"OJ0", u"JX", u"JW", u"OH",
                                                       u"TF", u"OZ",  u"LA", u"SM"};
    return std::find(länder.begin(), länder.end(), dxcc) != länder.end() ||
           (dxcc == u"OY" && kontinent == u"EU");
}

QString DXCCNrFilter(const QString& dxccNr) { return Lika(u"[DXCC Nr]", dxccNr); }

std::optional<QString> DistriktFilter(const QString& dxcc, const QString& prefix) {
    if (dxcc != u"SM" || prefix.size() < 3) return std::nullopt;
    return Lika(u"Distrikt", prefix.mid(2, 1));
}

} // namespace store
