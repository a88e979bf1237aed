#include "store/Poäng.h"

#include "platform/text.h"
#include "store/Filter.h"
#include "store/PrefixSök.h"

#include <QStringBuilder>

#include <cmath>

namespace store {
namespace {

bool ÄrLokatorLängd(const QString& text) { return text.size() == 4 || text.size() == 6; }

} // namespace

std::optional<QString> KmFilter(const QString& diplom) {
    if (!ÄrLokatorLängd(diplom)) return std::nullopt;
    return RutaFilter(diplom);
}

Bedömning BedömKm(const KmFråga& fråga) {
    if (!ÄrLokatorLängd(fråga.diplom)) return {};
    Bedömning svar{.poäng = platform::ToInt32(std::floor(platform::Val(fråga.avstånd)))};
    // The row being edited is the one that holds the square: nothing else is asked then.
    if (fråga.redigera && fråga.antalMultiplar == 1) return svar;
    // Whole texts are compared: a 4-character locator differs from the own one of 6 characters and is scored
    // by its distance, which may be 0.
    if (fråga.diplom == fråga.lokator) {
        svar.poäng = 1;
    } else {
        svar.nyRuta = fråga.antalMultiplar == 0;
    }
    return svar;
}

std::optional<QString> MTFilter(const QString& diplom, const QString& band) {
    if (!ÄrLokatorLängd(diplom)) return std::nullopt;
    return Lika(u"Diplom", diplom.left(4) + u' ' + band);
}

namespace {

Bedömning BedömNyMT(const MTFråga& fråga) {
    const bool nyRuta = fråga.antalDiplom == 0 && fråga.diplom.left(4) != fråga.lokator.left(4);
    return {.poäng = 2, .nyRuta = nyRuta, .döljNyttLand = nyRuta};
}

/// An edited contact is asked about by the whole cursor of multipliers, and only here can the own locator
/// bring the points down to 1.
Bedömning BedömRedigeradMT(const MTFråga& fråga) {
    if (fråga.antalMultiplar == 1) return {.poäng = 2};
    if (fråga.lokator == fråga.diplom) return {.poäng = 1};
    return {.poäng = 2, .nyRuta = fråga.antalMultiplar == 0};
}

} // namespace

Bedömning BedömMT(const MTFråga& fråga) {
    if (!ÄrLokatorLängd(fråga.diplom)) return {.poäng = 2};
    return fråga.redigera ? BedömRedigeradMT(fråga) : BedömNyMT(fråga);
}

namespace {

int SACPoäng(const QString& dxcc, const QString& kontinent, const QString& band) {
    if (ÄrNordisk(dxcc, kontinent)) return 0;
    if (kontinent == u"EU") return 1;
    if (band == u"80 M" || band == u"40 M") return 3;
    if (band == u"20 M" || band == u"15 M" || band == u"10 M") return 1;
    return 0;
}

} // namespace

std::optional<QString> SACFilter(const QString& dxcc, const QString& kontinent, const QString& band) {
    if (dxcc.isEmpty() || ÄrNordisk(dxcc, kontinent)) return std::nullopt;
    // The column holds the matched prefix where this asks for the country: the sign can come up for a
    // multiplier that is in the log already, and the two agree where prefix and country are the same text.
    return Lika(u"Diplom", dxcc % u" (" % band % u')');
}

Bedömning BedömSAC(const SACFråga& fråga) {
    const bool frågas = SACFilter(fråga.dxcc, fråga.kontinent, fråga.band).has_value();
    return {.poäng = SACPoäng(fråga.dxcc, fråga.kontinent, fråga.band),
            .nyMultipel = frågas && fråga.antalDiplom == 0};
}

Ställning RäknaRutor(double sumPoäng, qsizetype antalRader, qsizetype antalDiplom, const QString& rutPoäng) {
    if (antalRader == 0) return {};
    const int rutor = platform::ToInt32(static_cast<double>(antalDiplom));
    const int totalRutPoäng = platform::ToInt32(platform::ToNumber(rutPoäng) * rutor);
    const int totalQSOPoäng = platform::ToInt32(sumPoäng);
    const int totalPoäng = platform::ToInt32(static_cast<double>(totalQSOPoäng) + totalRutPoäng);
    return {totalPoäng, totalQSOPoäng, totalRutPoäng, rutor};
}

Ställning RäknaMultiplar(double sumPoäng, qsizetype antalRader, qsizetype antalMultiplar,
                         qsizetype antalDiplom) {
    if (antalRader == 0) return {};
    const int multiplar = platform::ToInt32(static_cast<double>(antalMultiplar));
    const int totalQSOPoäng = platform::ToInt32(sumPoäng);
    const int totalPoäng =
        multiplar == 0 ? totalQSOPoäng : platform::ToInt32(static_cast<double>(multiplar) * totalQSOPoäng);
    return {totalPoäng, totalQSOPoäng, multiplar, platform::ToInt32(static_cast<double>(antalDiplom))};
}

std::optional<Ställning> Räkna(PoängRegel regel, const LoggAntal& antal, const QString& rutPoäng) {
    switch (regel) {
    case PoängRegel::Km: return RäknaRutor(antal.sumPoäng, antal.poängRader, antal.diplom, rutPoäng);
    case PoängRegel::MT:
        return RäknaMultiplar(antal.sumPoäng, antal.poängRader, antal.diplom, antal.multiplar);
    case PoängRegel::SAC:
        return RäknaMultiplar(antal.sumPoäng, antal.poängRader, antal.multiplar, antal.diplom);
    case PoängRegel::Ingen: break;
    }
    return std::nullopt;
}

std::optional<QString> TvåPoängFilter(const QString& multiplar) {
    if (multiplar.size() < 4) return std::nullopt;
    return RutaFilter(multiplar) % u" AND Poäng = 2";
}

QString RutaFilter(const QString& multiplar) { return BörjarMed(u"Multiplar", multiplar.left(4)); }

} // namespace store
