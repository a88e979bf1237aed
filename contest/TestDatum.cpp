#include "contest/TestDatum.h"

#include <array>

namespace contest {
namespace {

struct DatumRegel {
    int ordning = 0;
    int veckodag = 0;
};

constexpr int tisdag = 3;
constexpr int torsdag = 5;

/// By contest number. Contest 6 has no rule, though it is held together with 3 to 5.
constexpr std::array<DatumRegel, 6> regler{
    {{2, tisdag}, {1, tisdag}, {4, tisdag}, {1, torsdag}, {1, torsdag}, {1, torsdag}}};

constexpr int dagarPerVecka = 7;

} // namespace

bool ÄrNteVeckodag(QDate datum, int ordning, int veckodag) {
    if (!datum.isValid()) return false;
    const int dag = datum.dayOfWeek() % dagarPerVecka + 1; // Qt counts Monday 1 to Sunday 7
    return dag == veckodag && (datum.day() - 1) / dagarPerVecka + 1 == ordning;
}

bool TestDatumStämmer(int test, QDate idag) {
    if (test >= 7 && test <= 10) return true;
    const bool harRegel = test >= 0 && test < static_cast<int>(regler.size());
    const DatumRegel regel = harRegel ? regler[static_cast<std::size_t>(test)] : DatumRegel{};
    return ÄrNteVeckodag(idag, regel.ordning, regel.veckodag);
}

} // namespace contest
