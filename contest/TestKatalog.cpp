#include "contest/TestKatalog.h"

#include "store/PrefixSök.h"

#include <array>
#include <cstddef>

namespace contest {
namespace {

using Text = QStringView;

// Lists of the combo boxes.

constexpr std::array<Text, 1> cw{u"CW"};
constexpr std::array<Text, 1> ssb{u"SSB"};
constexpr std::array<Text, 1> fm{u"FM"};
constexpr std::array<Text, 1> rtty{u"RTTY"};
constexpr std::array<Text, 2> cwSsb{u"CW", u"SSB"};
constexpr std::array<Text, 3> cwSsbFt8{u"CW", u"SSB", u"FT8"};

constexpr std::array<Text, 1> cm70{u"70 CM"};
constexpr std::array<Text, 1> m2{u"2 M"};
constexpr std::array<Text, 1> m6{u"6 M"};
constexpr std::array<Text, 1> m10{u"10 M"};
constexpr std::array<Text, 2> m80m40{u"80 M", u"40 M"};
constexpr std::array<Text, 5> kortvåg{u"80 M", u"40 M", u"20 M", u"15 M", u"10 M"};
constexpr std::array<Text, 3> vusBand{u"2 M", u"70 CM", u"24 CM"};

constexpr ListVal Fast(Namnlista ett) { return {.poster = ett, .låst = true}; }
constexpr ListVal Fritt(Namnlista poster) { return {.poster = poster, .låst = false}; }

// Tab orders: calling CQ the operator sends first, answering he receives first.

constexpr std::array<Text, 4> vhfRopar{u"txtSignal", u"txtRSTS", u"txtRSTM", u"txtDiplom"};
constexpr std::array<Text, 4> vhfSvarar{u"txtSignal", u"txtRSTM", u"txtDiplom", u"txtRSTS"};
constexpr std::array<Text, 5> löpnrRopar{u"txtSignal", u"txtRSTS", u"txtRSTM", u"txtLöpnrM", u"txtDiplom"};
constexpr std::array<Text, 5> löpnrSvarar{u"txtSignal", u"txtRSTM", u"txtLöpnrM", u"txtDiplom", u"txtRSTS"};

// What whole groups of contests share: labels and exchange field.

constexpr LoggKolumn lokatorKolumn{.nummer = 8, .rubrik = u"Lokator"};
constexpr LoggKolumn prefixKolumn{.nummer = 11, .rubrik = u"Prefix / Band"};

constexpr Test rutor{.lblTyp = u"Lokator",
                     .lblMultipelText = u"Rut Poäng",
                     .lblDiplomText = u"Antal Rutor",
                     .egenLokator = true,
                     .cmbDiplomPå = true,
                     .rutPoäng = u"500",
                     .kmPoäng = u"1"};

constexpr Test Vhf() {
    Test test = rutor;
    test.txtZONMTabb = false;
    test.lblLängstaQSOSynlig = true;
    return test;
}
constexpr Test vhf = Vhf();

constexpr Test månad{.lblTyp = u"Lokator",
                     .lblMultipelText = u"Multiplar",
                     .lblDiplomText = u"Rutor",
                     .egenLokator = true,
                     .cmbDiplomPå = true};

constexpr Test sac{.lblTyp = u"",
                   .lblMultipelText = u"Multiplar",
                   .lblDiplomText = u"Prefix / Band",
                   .txtZONMTabb = false,
                   .txtDiplomTabb = false,
                   .prefixLogg = true,
                   .loggKolumn = prefixKolumn};

constexpr Test baltic{.lblTyp = u"Län", .cmbDiplomPå = true};

constexpr Familj FamiljFör(int nummer) {
    if (nummer <= 2) return Familj::NacVhf;
    if (nummer <= 6) return Familj::Nac10m;
    if (nummer <= 8) return Familj::Månadstest;
    if (nummer <= 10) return Familj::Sac;
    return nummer == 14 ? Familj::Vus : Familj::Ingen;
}

constexpr MenyVal MenyFör(int nummer) {
    if (nummer == 6) return MenyVal::Digital;
    // Contest 12 is held on CW too, but its set-up has never turned the menu on.
    return nummer == 3 || nummer == 7 || nummer == 9 ? MenyVal::Cw : MenyVal::Ingen;
}

constexpr void SättTabbföljder(Test& test) {
    if (test.nummer <= 2) {
        test.tabbföljd1 = vhfRopar;
        test.tabbföljd2 = vhfSvarar;
    } else if (test.nummer <= 5) {
        test.tabbföljd1 = löpnrRopar;
        test.tabbföljd2 = löpnrSvarar;
    } else if (test.nummer == 7 || test.nummer == 8) {
        test.tabbföljd2 = löpnrSvarar;
    }
}

/// The switches that follow from the number alone.
constexpr void SättFrågor(Test& test) {
    const int nummer = test.nummer;
    test.familj = FamiljFör(nummer);
    test.meny = MenyFör(nummer);
    if (nummer == 6) test.dgLoggHöjd = 3855; // room for the modem
    if (nummer <= 8) test.loggKolumn = lokatorKolumn;
    test.kollaDXCC = store::KollarDXCC(nummer);
    test.kollaDistrikt = store::KollarDistrikt(nummer);
    test.kollaLokator = nummer <= 8 || nummer == 14;
    test.diplomVisarVäg = nummer <= 6;
    test.fyllLöpnrM = nummer == 7 || nummer == 8;
    test.sparaLokator = nummer <= 8;
    test.visaLängstaQSO = nummer <= 6;
    test.kollaTestDatum = nummer <= 6;
    test.ärverTvåPoäng = store::ÄrverTvåPoäng(nummer);
    test.dubblett = store::DubblettRegelFör(nummer);
    test.sparare = store::SparareFör(nummer);
    test.poäng = store::PoängRegelFör(nummer);
}

using Marke = std::optional<QStringView>;

constexpr Test Rad(int nummer, Text radText, Text titel, const Test& grupp, ListVal trafiksätt, ListVal band,
                   Marke rst, Marke löpnrFormat) {
    Test test = grupp;
    test.nummer = nummer;
    test.radText = radText;
    test.titel = titel;
    test.trafiksätt = trafiksätt;
    test.band = band;
    test.rst = rst;
    test.löpnrPå = löpnrFormat.has_value();
    test.löpnrFormat = löpnrFormat;
    SättTabbföljder(test);
    SättFrågor(test);
    return test;
}

constexpr Marke ingen = std::nullopt;

// clang-format off
constexpr std::array<Test, antalTest> katalog{
    Rad( 0, u"NAC Test 70 CM",      u"NAC 70 CM",          vhf,   Fritt(cwSsb),    Fast(cm70), ingen, ingen),
    Rad( 1, u"NAC Test 2 M",        u"NAC 2 M",            vhf,   Fritt(cwSsbFt8), Fast(m2),   ingen, ingen),
    Rad( 2, u"NAC Test 6 M",        u"NAC 6 M",            vhf,   Fritt(cwSsbFt8), Fast(m6),   ingen, ingen),
    Rad( 3, u"NAC Test 10 M (CW)",  u"NAC Test 10 M (CW)", rutor, Fast(cw),   Fast(m10), u"599", ingen),
    Rad( 4, u"NAC Test 10 M (SSB)", u"NAC Test 10 M (SSB)", rutor, Fast(ssb), Fast(m10), u"59",  ingen),
    Rad( 5, u"NAC Test 10 M (FM)",  u"NAC Test 10 M (FM)", rutor, Fast(fm),   Fast(m10), u"59",  ingen),
    // The choice window says RTTY and the caption Digi.
    Rad( 6, u"NAC Test 10 M (RTTY)", u"NAC Test 10 M (Digi)", rutor, Fast(rtty), Fast(m10), u"599", ingen),
    Rad( 7, u"Månads Test (CW)",  u"Månads Test KV (MT CW)",  månad, Fast(cw),  Fritt(m80m40), u"599", u"01"),
    Rad( 8, u"Månads Test (SSB)", u"Månads Test KV (MT SSB)", månad, Fast(ssb), Fritt(m80m40), u"59",  u"01"),
    Rad( 9, u"SAC Contest (CW)",  u"SAC Contest (CW)",  sac, Fast(cw),  Fritt(kortvåg), u"599", u"001"),
    Rad(10, u"SAC Contest (SSB)", u"SAC Contest (SSB)", sac, Fast(ssb), Fritt(kortvåg), u"59",  u"001"),
    Rad(11, u"Kvartal Test",      u"Kvartal Test",      vhf, Fritt(cwSsb), Fritt(m80m40), ingen, ingen),
    Rad(12, u"Baltic Test (CW)",  u"NRAU Baltic Contest (CW)",  baltic, Fast(cw),  Fritt(m80m40), u"599", u"001"),
    Rad(13, u"Baltic Test (SSB)", u"NRAU Baltic Contest (SSB)", baltic, Fast(ssb), Fritt(m80m40), u"59",  u"001"),
    Rad(14, u"VUS CHRISTMAS CONTEST", u"VUS CHRISTMAS CONTEST", vhf, Fritt(cwSsb), Fritt(vusBand), ingen, u"001"),
};
// clang-format on

constexpr bool RaderIOrdning() {
    for (std::size_t i = 0; i < katalog.size(); ++i) {
        if (katalog[i].nummer != static_cast<int>(i)) return false;
    }
    return true;
}
static_assert(RaderIOrdning(), "the row number is the contest number");

constexpr Test utanTest{};

} // namespace

const Test* HämtaTest(int nummer) {
    if (nummer < 0 || nummer >= antalTest) return nullptr;
    return &katalog[static_cast<std::size_t>(nummer)];
}

const Test& TestFör(int nummer) {
    const Test* test = HämtaTest(nummer);
    return test ? *test : utanTest;
}

} // namespace contest
