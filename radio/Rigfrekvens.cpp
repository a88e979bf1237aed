#include "radio/Rigfrekvens.h"

#include "platform/omnirig/omnirig.h"

#include <algorithm>
#include <array>

namespace radio {

bool VersionDuger(int version) { return version >= 257 && version < 666; }

QString TioHertz(const QString& hertz) { return hertz.chopped(qMin<qsizetype>(1, hertz.size())); }

std::optional<QString> FrekvensVisning(const QString& tioHertz) {
    // Hundredths of kHz and kHz are two and three digits; MHz is what is left.
    const qsizetype mhz = tioHertz.size() - 5;
    if (mhz < 1 || mhz > 3) return std::nullopt;
    return tioHertz.first(mhz) + u',' + tioHertz.sliced(mhz, 3) + u',' + tioHertz.last(2);
}

QString Siffror(const QString& visning) { return QString(visning).remove(u','); }

std::optional<int> Hertz(const QString& tioHertz) {
    const bool ärSiffror = std::all_of(tioHertz.begin(), tioHertz.end(), [](QChar c) {
        return c >= QLatin1Char('0') && c <= QLatin1Char('9');
    });
    const int hertz = ärSiffror ? QString(tioHertz + u'0').toInt() : 0;
    return hertz > 0 ? std::optional(hertz) : std::nullopt;
}

std::optional<QString> TrafiksättText(int mode) {
    using namespace platform::rigmode;
    struct Rad {
        int mode;
        const char* text;
    };
    static constexpr std::array tabell{
        Rad{CwUpper, "CW_U"},     Rad{CwLower, "CW_L"},     Rad{Usb, "USB"}, Rad{Lsb, "LSB"},
        Rad{RttyUpper, "RTTY_U"}, Rad{RttyLower, "RTTY_L"}, Rad{Am, "AM"},   Rad{Fm, "FM"}};
    for (const Rad& rad : tabell)
        if (rad.mode == mode) return QString::fromLatin1(rad.text);
    return std::nullopt;
}

} // namespace radio
