#include "contest/Löpnummer.h"
#include "support/ToPrint.h"

namespace contest {
namespace {

struct LöpnrFall {
    const char* namn;
    const char* text;
    const char* format;
    const char* väntat;
};

class LöpnrTest : public testing::TestWithParam<LöpnrFall> {};

TEST_P(LöpnrTest, SkrivsMedTestensBredd) {
    const LöpnrFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    EXPECT_EQ(FormateraLöpnr(T(f.text), T(f.format)), T(f.väntat));
}

INSTANTIATE_TEST_SUITE_P(Format, LöpnrTest,
                         testing::Values(LöpnrFall{"two digits", "1", "01", "01"},
                                         LöpnrFall{"two digits, grown past them", "123", "01", "123"},
                                         LöpnrFall{"three digits", "1", "001", "001"},
                                         LöpnrFall{"three digits, two given", "42", "001", "042"},
                                         LöpnrFall{"three digits, grown past them", "1000", "001", "1000"},
                                         LöpnrFall{"no marker: four", "1", "", "0001"},
                                         LöpnrFall{"an unknown marker: four", "1", "1", "0001"},
                                         LöpnrFall{"a marker for four: four", "7", "0001", "0007"},
                                         LöpnrFall{"the marker itself stays", "01", "01", "01"},
                                         LöpnrFall{"the longer marker itself stays", "001", "001", "001"},
                                         LöpnrFall{"a wider serial is made narrower", "0007", "01", "07"},
                                         LöpnrFall{"zero", "0", "001", "000"}));

INSTANTIATE_TEST_SUITE_P(IngaTal, LöpnrTest,
                         testing::Values(LöpnrFall{"an empty text", "", "01", ""},
                                         LöpnrFall{"a letter", "A", "001", "A"},
                                         LöpnrFall{"a digit and a letter", "1A", "001", "1A"},
                                         LöpnrFall{"a blank", " ", "", " "}));

TEST(FormateraLöpnr, ÄndrarInteVadDetHarSkrivit) {
    for (const char* format : {"", "01", "001"}) {
        for (int nummer = 0; nummer <= 12'000; nummer += 7) {
            const QString text = FormateraLöpnr(QString::number(nummer), T(format));
            EXPECT_EQ(FormateraLöpnr(text, T(format)), text);
            EXPECT_EQ(text.toInt(), nummer);
        }
    }
}

TEST(FyllMottagetLöpnr, FyllerEttTeckenTillTvå) {
    EXPECT_EQ(FyllMottagetLöpnr(T("7")), T("07"));
    EXPECT_EQ(FyllMottagetLöpnr(T("A")), T("0A"));
    EXPECT_EQ(FyllMottagetLöpnr(T("")), T(""));
    EXPECT_EQ(FyllMottagetLöpnr(T("12")), T("12"));
    EXPECT_EQ(FyllMottagetLöpnr(T("123")), T("123"));
}

} // namespace
} // namespace contest
