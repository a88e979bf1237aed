// A radio's frequency and mode in the forms of the service, the entry form and the log.
#include "platform/omnirig/omnirig.h"
#include "radio/Rigfrekvens.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace radio;

TEST(Rigfrekvens, HertzBecomeTheEntryFormsFrequency) {
    struct Fall {
        const char *hertz, *tioHertz, *visning;
    };
    for (const Fall& fall : {Fall{"14025000", "1402500", "14,025,00"},
                             {"1825000", "182500", "1,825,00"},
                             {"144300000", "14430000", "144,300,00"},
                             {"14025009", "1402500", "14,025,00"}, // cut, not rounded
                             {"3500000", "350000", "3,500,00"},
                             {"1000000", "100000", "1,000,00"},
                             {"999999999", "99999999", "999,999,99"}}) {
        EXPECT_EQ(TioHertz(fall.hertz), fall.tioHertz);
        EXPECT_EQ(FrekvensVisning(TioHertz(fall.hertz)), QString(fall.visning));
    }
}

TEST(Rigfrekvens, UnderOneMHzAndFromOneGHzThereIsNoForm) {
    for (const char* hertz : {"999999", "472000", "1", "0", "", "1000000000", "10368100000"})
        EXPECT_EQ(FrekvensVisning(TioHertz(hertz)), std::nullopt) << hertz;
}

TEST(Rigfrekvens, TheEntryFormsFrequencyBecomesHertz) {
    EXPECT_EQ(Hertz(Siffror("7,022,50")), 7022500);
    EXPECT_EQ(Hertz(Siffror("14,025,00")), 14025000);
    EXPECT_EQ(Hertz(Siffror("144,300,00")), 144300000);
    EXPECT_EQ(Hertz(Siffror("999,999,99")), 999999990);
    for (const char* text :
         {"0,000,00", "14.025.0", "DX12345", "1e56789", "-1402500", "+1402500", " 1402500"})
        EXPECT_EQ(Hertz(Siffror(text)), std::nullopt) << text;
}

TEST(Rigfrekvens, VersionsFrom257UpTo665AreTaken) {
    for (const int version : {257, 258, 512, 665}) EXPECT_TRUE(VersionDuger(version)) << version;
    for (const int version : {-1, 0, 256, 666, 1000}) EXPECT_FALSE(VersionDuger(version)) << version;
}

TEST(Rigfrekvens, EachModeHasItsText) {
    for (const auto& [mode, text] : {std::pair{0x800000, "CW_U"},
                                     {0x1000000, "CW_L"},
                                     {0x2000000, "USB"},
                                     {0x4000000, "LSB"},
                                     {0x8000000, "RTTY_U"},
                                     {0x10000000, "RTTY_L"},
                                     {0x20000000, "AM"},
                                     {0x40000000, "FM"}})
        EXPECT_EQ(TrafiksättText(mode), QString(text));
    for (const int mode : {0, 1, 0x400000, 0x2000001, -1})
        EXPECT_EQ(TrafiksättText(mode), std::nullopt) << mode;
}
