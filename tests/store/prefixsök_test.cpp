#include "store/PrefixSök.h"
#include "support/ToPrint.h"

#include <QStringList>

namespace store {
namespace {

struct SökFall {
    const char* namn;
    QStringList nycklar;
    const char* anrop;
    const char* bäst;
};

AntalNycklar Tabell(const QStringList& nycklar) {
    return [nycklar](const QString& nyckel) { return nycklar.count(nyckel); };
}

class SökTest : public testing::TestWithParam<SökFall> {};

TEST_P(SökTest, GerDenBästaNyckeln) {
    const SökFall& fall = GetParam();
    SCOPED_TRACE(fall.namn);
    EXPECT_EQ(SökPrefix(T(fall.anrop), Tabell(fall.nycklar)), T(fall.bäst));
}

INSTANTIATE_TEST_SUITE_P(
    LängstaBörjan, SökTest,
    testing::Values(SökFall{"one key", {"SM"}, "SM5ABC", "SM"},
                    SökFall{"a longer key overrides a shorter", {"S", "SM", "SM5"}, "SM5ABC", "SM5"},
                    SökFall{"a gap does not end the search", {"S", "SM5"}, "SM5ABC", "SM5"},
                    SökFall{"the order of the table does not matter", {"SM5", "S"}, "SM5ABC", "SM5"},
                    SökFall{"the whole call may be a key", {"SM5ABC", "SM"}, "SM5ABC", "SM5ABC"},
                    SökFall{"a key longer than the call does not count", {"SM5ABC", "SM"}, "SM5AB", "SM"},
                    SökFall{"a key in the middle of the call does not count", {"M5"}, "SM5ABC", ""},
                    SökFall{"an unknown call", {"SM"}, "QQ1AA", ""}, SökFall{"an empty call", {"SM"}, "", ""},
                    SökFall{"an empty table", {}, "SM5ABC", ""},
                    SökFall{"a portable call is taken from its left end", {"SM", "OH"}, "SM5ABC/OH", "SM"},
                    SökFall{"so is one with the country in front", {"SM", "OH"}, "OH/SM5ABC", "OH"}));

INSTANTIATE_TEST_SUITE_P(
    Särfall, SökTest,
    testing::Values(SökFall{"4U with no key becomes 4U", {"SM"}, "4U1UN", "4U"},
                    SökFall{"4U with a key of its own keeps it", {"4U1UN"}, "4U1UN", "4U1UN"},
                    SökFall{"a key for 4 alone stays", {"4"}, "4U1UN", "4"},
                    SökFall{"FT with F becomes FT", {"F"}, "FT5XO", "FT"},
                    SökFall{"FT with a key FT is FT", {"F", "FT"}, "FT5XO", "FT"},
                    SökFall{"FT with a longer key keeps it", {"F", "FT5X"}, "FT5XO", "FT5X"},
                    SökFall{"FT with no key at all stays empty", {"SM"}, "FT5XO", ""},
                    SökFall{"another French call keeps F", {"F"}, "F5ABC", "F"},
                    SökFall{"lower case is no special case", {"f"}, "ft5xo", "f"}));

INSTANTIATE_TEST_SUITE_P(
    SammansattaNycklar, SökTest,
    testing::Values(
        SökFall{"the digit is left out", {"VP", "VP/F"}, "VP8FA", "VP/F"},
        SökFall{"and a second character is tried", {"VP", "VP/F", "VP/FA"}, "VP8FA", "VP/FA"},
        SökFall{"the second alone is not found", {"VP", "VP/FA"}, "VP8FA", "VP"},
        SökFall{"what follows the second is not read", {"VP", "VP/F", "VP/FA"}, "VP8FAB", "VP/FA"},
        SökFall{"another second character keeps the first", {"VP", "VP/F", "VP/FA"}, "VP8FB", "VP/F"},
        SökFall{"another first character keeps the key", {"VP", "VP/F"}, "VP8GA", "VP"},
        SökFall{"a key with the digit hides the composed one", {"VP", "VP8", "VP/F"}, "VP8FA", "VP8"},
        SökFall{"two digits: the second is tried as the character", {"VP8", "VP8/F"}, "VP85FA", "VP8/F"},
        SökFall{"no digit behind the key", {"VP", "VP/F"}, "VPFA", "VP"},
        SökFall{"the call ends with the key", {"VP", "VP/F"}, "VP", "VP"},
        SökFall{"nothing behind the digit", {"VP", "VP/F"}, "VP8", "VP"},
        SökFall{"one character behind the digit", {"VP", "VP/F", "VP/FA"}, "VP8F", "VP/F"},
        SökFall{"a digit of another script is none", {"VP", "VP/F"}, "VP٨FA", "VP"},
        SökFall{"the French special case goes on to them", {"F", "FT/X"}, "FT5XO", "FT/X"},
        SökFall{"so does the one of 4U", {"4U/U"}, "4U1UN", "4U/U"},
        SökFall{"without any key the first digit is left out", {"/X"}, "9XYZ", "/X"},
        SökFall{"a key that ends in the slash takes a lone digit", {"VP", "VP/"}, "VP8", "VP/"}));

TEST(SökPrefix, FrågarAldrigEfterMerÄn255Tecken) {
    qsizetype längsta = 0;
    const auto antal = [&längsta](const QString& nyckel) {
        längsta = std::max(längsta, nyckel.size());
        return qsizetype{0};
    };
    SökPrefix(QString(255, u'A'), antal);
    EXPECT_EQ(längsta, 255);
    SökPrefix(QString(256, u'A'), antal);
    SökPrefix(QString(100'000, u'A'), antal);
    EXPECT_EQ(längsta, 255);
}

TEST(SökPrefix, FinnerEnNyckelMedPrecis255Tecken) {
    const QString nyckel(255, u'A');
    EXPECT_EQ(SökPrefix(QString(300, u'A'), Tabell({nyckel})), nyckel);
    EXPECT_EQ(SökPrefix(QString(300, u'A'), Tabell({QString(256, u'A')})), T(""));
}

TEST(SökPrefix, LåterEttFelITabellenGåVidare) {
    const auto fel = [](const QString&) -> qsizetype { throw platform::Failure(QStringLiteral("fel")); };
    EXPECT_THROW(SökPrefix(T("SM'5"), fel), platform::Failure);
}

TEST(SökEntydigtPrefix, GodtarPrecisEnRad) {
    EXPECT_EQ(SökEntydigtPrefix(T("SM5ABC"), Tabell({"SM"})), std::optional(T("SM")));
    EXPECT_EQ(SökEntydigtPrefix(T("SM5ABC"), Tabell({"SM", "SM"})), std::nullopt);
    EXPECT_EQ(SökEntydigtPrefix(T("QQ1AA"), Tabell({"SM"})), std::nullopt);
    EXPECT_EQ(SökEntydigtPrefix(T(""), Tabell({"SM"})), std::nullopt);
}

TEST(SökEntydigtPrefix, FinnerInget4UUtanNyckel) {
    EXPECT_EQ(SökEntydigtPrefix(T("4U1UN"), Tabell({"SM"})), std::nullopt);
    EXPECT_EQ(SökEntydigtPrefix(T("FT5XO"), Tabell({"F"})), std::nullopt);
}

struct NordenFall {
    const char* dxcc;
    const char* kontinent;
    bool nordisk;
};

class NordiskTest : public testing::TestWithParam<NordenFall> {};

TEST_P(NordiskTest, SerPåKontinentenBaraFörFäröarna) {
    const auto& [dxcc, kontinent, nordisk] = GetParam();
    EXPECT_EQ(ÄrNordisk(T(dxcc), T(kontinent)), nordisk) << dxcc << ' ' << kontinent;
}

INSTANTIATE_TEST_SUITE_P(
    Länder, NordiskTest,
    testing::Values(NordenFall{"OX", "NA", true}, NordenFall{"OJ0", "EU", true}, NordenFall{"JX", "EU", true},
                    NordenFall{"JW", "EU", true}, NordenFall{"OH", "EU", true}, NordenFall{"TF", "EU", true},
                    NordenFall{"OZ", "EU", true}, NordenFall{"LA", "EU", true}, NordenFall{"SM", "EU", true},
                    NordenFall{"SM", "", true}, NordenFall{"LA", "AS", true}, NordenFall{"OY", "EU", true},
                    NordenFall{"OY", "", false}, NordenFall{"OY", "NA", false},
                    NordenFall{"OH0", "EU", false}, NordenFall{"DL", "EU", false},
                    NordenFall{"", "EU", false}, NordenFall{"", "", false}, NordenFall{"sm", "EU", false},
                    NordenFall{"SM5", "EU", false}, NordenFall{"DXCC", "", false}));

TEST(KollarDXCC, GällerNollTillFemSjuOchÅtta) {
    for (int test = -1; test <= 42; ++test) {
        const bool väntat = (test >= 0 && test <= 5) || test == 7 || test == 8;
        EXPECT_EQ(KollarDXCC(test), väntat) << test;
    }
}

TEST(Filter, StårSomMarkörernaLäserDem) {
    EXPECT_EQ(PrefixFilter(T("VP/FA")), T("Prefix = 'VP/FA'"));
    EXPECT_EQ(PrefixFilter(T("")), T("Prefix = ''"));
    EXPECT_EQ(DXCCNrFilter(T("284")), T("[DXCC Nr] = '284'"));
}

TEST(Filter, LåterEnApostrofStåKvar) { EXPECT_EQ(PrefixFilter(T("S'M")), T("Prefix = 'S'M'")); }

TEST(DistriktFilter, FrågarEfterTredjeTecknetFörSvenskaAnrop) {
    EXPECT_EQ(DistriktFilter(T("SM"), T("SM5")), std::optional(T("Distrikt = '5'")));
    EXPECT_EQ(DistriktFilter(T("SM"), T("SK0X")), std::optional(T("Distrikt = '0'")));
}

TEST(DistriktFilter, TigerFörAndraLänderOchKortaPrefix) {
    EXPECT_EQ(DistriktFilter(T("OH"), T("OH5")), std::nullopt);
    EXPECT_EQ(DistriktFilter(T("SM"), T("SM")), std::nullopt);
    EXPECT_EQ(DistriktFilter(T("SM"), T("")), std::nullopt);
}

} // namespace
} // namespace store
