#include "reports/Titlar.h"

#include <array>

namespace reports {
namespace {

constexpr std::array kortaTitlar = {"NAC 432 MHz",    "NAC 144 MHz",   "NAC 50 MHz",      "NAC 28 MHz CW",
                                    "NAC 28 MHz SSB", "NAC 28 MHz FM", "NAC 28 MHz Digi", "MT CW",
                                    "MT SSB",         "SAC CW",        "SAC SSB"};
constexpr int medEdiTitel = 6;

constexpr std::array summaTitlar = {
    "NAC 432 MHz", "NAC 144 MHz", "NAC 50 MHz",  "NAC 28 MHz CW", "NAC 28 MHz SSB", "NAC 28 MHz FM",
    "KVARTAL",     "MT CW",       "MT SSB",      "CQWW CW",       "CQWW SSB",       "SAC CW",
    "SAC SSB",     "WPX CW",      "WPX SSB",     "CQWW SSB",      "SAC CW",         "SAC SSB",
    "WPX CW",      "IOTA",        "CQWW RTTY",   "DLDX RTTY",     "CQRJ RTTY",      "ARRL TEN",
    "ES OPEN",     "IARU HF",     "ASIAN CW",    "ASIAN SSB",     "JAPAN CW",       "JAPAN SSB",
    "JARTS",       "UKRINIA",     "UKRINIA RTTY"};
static_assert(summaTitlar.size() == 33);

template <size_t antal>
QString Ur(const std::array<const char*, antal>& titlar, int test) {
    const bool finns = test >= 0 && static_cast<size_t>(test) < antal;
    return finns ? QString::fromLatin1(titlar[static_cast<size_t>(test)]) : QString();
}

} // namespace

QString KortTitel(int test) { return Ur(kortaTitlar, test); }

QString EdiTitel(int test) { return test < medEdiTitel ? KortTitel(test) : QString(); }

QString SummaTitel(int test) { return Ur(summaTitlar, test); }

} // namespace reports
