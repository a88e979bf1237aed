#include "cluster/Bandplan.h"

#include <algorithm>
#include <array>
#include <span>

namespace cluster {

namespace {

struct Område {
    int band;
    QStringView trafiksätt;
    int från; ///< in units of 10 Hz, both ends belong to the range
    int till;
};

// Read from top to bottom, the last match counts. Three rows have their limits the wrong way round or hold a
// single value; spots have always been sorted with them so.
constexpr auto områden = std::to_array<Område>({
    {160, u"CW", 181000, 185000},       {160, u"PSK31", 183600, 183800},   {160, u"RTTY", 183800, 184200},
    {160, u"SSB", 184200, 185000},      {160, u"SSTV", 184000, 184200},    {80, u"CW", 350000, 380000},
    {80, u"PSK31", 357100, 357400},     {80, u"RTTY", 358000, 362000},     {80, u"SSB", 360000, 380000},
    {80, u"SSTV", 374000, 374000},      {40, u"CW", 700000, 710000},       {40, u"PSK31", 703200, 703400},
    {40, u"RTTY", 703500, 704500},      {40, u"SSB", 704500, 710000},      {40, u"SSTV", 703500, 704000},
    {30, u"CW", 1010000, 1014000},      {30, u"PSK31", 1011000, 1012000},  {30, u"RTTY", 1014000, 1015000},
    {30, u"SSB", 1013000, 1014000},     {30, u"SSTV", 1014000, 1015000},   {20, u"CW", 1400000, 1435000},
    {20, u"PSK31", 1407000, 1407500},   {20, u"RTTY", 1408000, 1409000},   {20, u"SSB", 1410000, 1435000},
    {20, u"SSTV", 1422500, 1423500},    {17, u"CW", 1806800, 1816800},     {17, u"PSK31", 1809000, 1809500},
    {17, u"RTTY", 1810000, 1810900},    {17, u"SSB", 1811000, 1816800},    {17, u"SSTV", 1810000, 1810900},
    {15, u"CW", 2100000, 2145000},      {15, u"PSK31", 2107000, 2107500},  {15, u"RTTY", 2108000, 2109000},
    {15, u"SSB", 2115000, 2145000},     {15, u"SSTV", 2133500, 2134500},   {12, u"CW", 2489000, 2499000},
    {12, u"PSK31", 2490000, 2489100},   {12, u"RTTY", 2492000, 2492900},   {12, u"SSB", 2493000, 2499000},
    {12, u"SSTV", 2492000, 2492900},    {10, u"CW", 2800000, 2970000},     {10, u"PSK31", 2805000, 2808000},
    {10, u"RTTY", 2808000, 2812000},    {10, u"SSB", 2822500, 2970000},    {10, u"SSTV", 2867500, 2868500},
    {6, u"CW", 5000000, 5200000},       {6, u"PSK31", 5059000, 5062000},   {6, u"RTTY", 5062000, 5075000},
    {6, u"SSB", 5010000, 5200000},      {6, u"SSTV", 5050000, 5052000},    {2, u"CW", 14400000, 14600000},
    {2, u"PSK31", 14462300, 14462500},  {2, u"RTTY", 14462500, 14467500},  {2, u"SSB", 14415000, 14500000},
    {2, u"SSTV", 14449000, 14452000},   {2, u"FM", 14500000, 14600000},    {70, u"CW", 43200000, 43250000},
    {70, u"PSK31", 43270000, 43267500}, {70, u"RTTY", 43267500, 43277500}, {70, u"SSB", 43215000, 43250000},
});

constexpr std::array valbaraBand = {160, 80, 40, 20, 15, 10, 6, 2, 70};
constexpr std::array<QStringView, 7> valbaraTrafiksätt = {u"CW",   u"SSB", u"RTTY", u"PSK31",
                                                          u"SSTV", u"AM",  u"FM"};

/// False only if the value has a choice of its own and it is off.
template <class Lista, class Värde>
bool Önskad(const Lista& lista, const Värde& värde, std::span<const bool> val) {
    const auto plats = std::find(lista.begin(), lista.end(), värde);
    return plats == lista.end() || val[static_cast<size_t>(plats - lista.begin()) + 1];
}

} // namespace

BandTrafik HittaBandTrafik(int frekvens) {
    const auto hit = std::find_if(områden.rbegin(), områden.rend(), [frekvens](const Område& område) {
        return område.från <= frekvens && frekvens <= område.till;
    });
    return hit == områden.rend() ? BandTrafik{} : BandTrafik{hit->band, hit->trafiksätt};
}

bool ÄrAvvisad(const BandTrafik& spott, const Spottförval& förval) {
    if (spott.band == 0 || spott.trafiksätt.isEmpty()) return true;
    return !Önskad(valbaraBand, spott.band, förval.SpotBandVal) ||
           !Önskad(valbaraTrafiksätt, spott.trafiksätt, förval.SpotTrafikVal);
}

} // namespace cluster
