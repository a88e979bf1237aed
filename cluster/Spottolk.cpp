#include "cluster/Spottolk.h"

namespace cluster {

namespace {

constexpr QStringView annonsord = u"dx de";

QStringView UtanLedande(QStringView text) {
    while (text.startsWith(u' ')) text = text.mid(1);
    return text;
}

QStringView UtanAvslutande(QStringView text) {
    while (text.endsWith(u' ')) text.chop(1);
    return text;
}

// ---- the telnet protocol (RFC 854), each byte as the character that the code page has for it -------------
constexpr QChar iac = u'\u00FF';
constexpr QChar se = u'\u00F0';
constexpr QChar sb = u'\u00FA';
constexpr QChar will = u'\u00FB';
constexpr QChar dont = u'\u00FE';

/// Length of the telnet command that a text begins with; 0 if it begins with none.
qsizetype Telnetkommando(QStringView text) {
    if (text.size() < 2 || text[0] != iac || text[1] < se || text[1] > dont) return 0;
    if (text[1] == sb) {
        const qsizetype slut = text.indexOf(QString(iac) + se);
        return slut < 0 ? 2 : slut + 2;
    }
    return text[1] >= will ? qMin<qsizetype>(3, text.size()) : 2;
}

bool ÄrVisbart(QChar tecken) {
    return tecken == u'\n' || tecken == u'\t' || tecken.category() != QChar::Other_Control;
}

} // namespace

bool Arbetstext::LäsHuvud(Annons& annons) {
    annons = {};
    const qsizetype början = kvar_.indexOf(annonsord, 0, Qt::CaseInsensitive);
    if (början < 0) return false;
    if (const qsizetype kolon = kvar_.indexOf(u':', början); kolon >= 0) {
        const QStringView spotter =
            kvar_.sliced(början + annonsord.size(), kolon - början - annonsord.size());
        annons.spotter = UtanAvslutande(UtanLedande(spotter)).toString();
        kvar_ = kvar_.sliced(kolon + 1);
    }
    kvar_ = UtanLedande(kvar_);
    const qsizetype efterFrekvens = kvar_.indexOf(u' ') + 1;
    if (efterFrekvens > 0) annons.frekvens = FormaFrekvens(kvar_.first(efterFrekvens - 1).toString());
    kvar_ = UtanLedande(kvar_.sliced(efterFrekvens));
    efterSignal_ = kvar_.indexOf(u' ') + 1;
    if (efterSignal_ > 0) annons.signal = kvar_.first(efterSignal_ - 1).toString();
    return true;
}

bool Arbetstext::LäsNotering(Annons& annons) {
    kvar_ = UtanLedande(kvar_.sliced(efterSignal_));
    efterSignal_ = 0;
    const qsizetype radslut = kvar_.indexOf(u"\r\n");
    if (radslut < 0) return false;
    annons.notering = kvar_.first(radslut).toString();
    kvar_ = UtanLedande(kvar_.sliced(radslut + 2));
    return true;
}

QString FormaFrekvens(const QString& kHz) {
    QString siffror = kHz;
    siffror.remove(u'.');
    if (siffror.size() < 5 || siffror.size() > 7) return siffror;
    const qsizetype megahertz = siffror.size() - 4;
    return siffror.left(megahertz) + u',' + siffror.mid(megahertz, 3) + u',' + siffror.right(1) + u'0';
}

Notering DelaNotering(const QString& notering) {
    constexpr qsizetype tidLängd = 7;
    if (notering.size() < tidLängd) return {notering, QString()};
    return {UtanAvslutande(QStringView(notering).chopped(tidLängd)).toString(), notering.right(tidLängd)};
}

QString UpprepningsFilter(const QString& signal, const QString& datum, const QString& frekvens,
                          const QString& tid) {
    return QStringLiteral("Signal = '") + signal + QStringLiteral("' AND Datum = '") + datum +
           QStringLiteral("' AND Frekvens = '") + frekvens + QStringLiteral("' AND Tid LIKE '") +
           tid.left(5) + QStringLiteral("*'");
}

QString VisbarText(const QString& text) {
    QString visbar;
    visbar.reserve(text.size());
    for (QStringView kvar = text; !kvar.isEmpty();) {
        const qsizetype kommando = Telnetkommando(kvar);
        if (kommando == 0 && ÄrVisbart(kvar.front())) visbar += kvar.front();
        kvar = kvar.sliced(qMax<qsizetype>(kommando, 1));
    }
    return visbar;
}

} // namespace cluster
