// Which band and mode a spot's frequency belongs to, and whether it is wanted.
#include "cluster/Bandplan.h"

#include <QByteArray>
#include <gtest/gtest.h>

using cluster::BandTrafik;
using cluster::HittaBandTrafik;
using cluster::ÄrAvvisad;

struct BandplanFall {
    const char* namn;
    int frekvens; // units of 10 Hz
    int band;
    QStringView trafiksätt;
};

void PrintTo(const BandplanFall& fall, std::ostream* ut) { *ut << fall.namn; }

class Bandplan : public ::testing::TestWithParam<BandplanFall> {};

TEST_P(Bandplan, GivesBandAndModeOfTheLastRangeThatFits) {
    const BandTrafik hit = HittaBandTrafik(GetParam().frekvens);
    EXPECT_EQ(hit.band, GetParam().band);
    EXPECT_EQ(hit.trafiksätt, GetParam().trafiksätt);
}

INSTANTIATE_TEST_SUITE_P(
    Fall, Bandplan,
    ::testing::Values(
        BandplanFall{"TelegraphyOn160", 181500, 160, u"CW"},
        BandplanFall{"PskInsideTelegraphy", 183650, 160, u"PSK31"},
        BandplanFall{"RttyBeginsWherePskEnds", 183800, 160, u"RTTY"},
        BandplanFall{"PictureOverwritesRtty", 184100, 160, u"SSTV"},
        BandplanFall{"OneBelowTheBand", 180999, 0, u""}, BandplanFall{"LowerEdge", 181000, 160, u"CW"},
        BandplanFall{"UpperEdge", 185000, 160, u"SSB"}, BandplanFall{"OneAboveTheBand", 185001, 0, u""},
        BandplanFall{"TheOnePictureFrequencyOn80", 374000, 80, u"SSTV"},
        BandplanFall{"BesideItIsPhone", 374001, 80, u"SSB"},
        BandplanFall{"PictureTakesAllOfRttyOn30", 1014500, 30, u"SSTV"},
        BandplanFall{"PhoneInsideTelegraphyOn20", 1420000, 20, u"SSB"},
        BandplanFall{"PictureOverPhoneOn20", 1423000, 20, u"SSTV"},
        BandplanFall{"TheTurnedPskRowOn12NeverFits", 2490000, 12, u"CW"},
        BandplanFall{"PhoneOn6", 5030000, 6, u"SSB"}, BandplanFall{"RepeatersOn2", 14550000, 2, u"FM"},
        BandplanFall{"TheTurnedPskRowOn70NeverFits", 43268000, 70, u"RTTY"},
        BandplanFall{"NoBandAt23Centimetres", 129610000, 0, u""}, BandplanFall{"Zero", 0, 0, u""},
        BandplanFall{"Negative", -1400000, 0, u""}),
    [](const auto& fall) { return std::string(fall.param.namn); });

TEST(Spottfilter, TakesEverythingWithinABandAtFirst) {
    EXPECT_FALSE(ÄrAvvisad({20, u"CW"}, {}));
    EXPECT_FALSE(ÄrAvvisad({70, u"RTTY"}, {}));
}

TEST(Spottfilter, RefusesWhatLiesOutsideEveryRange) {
    EXPECT_TRUE(ÄrAvvisad({0, u""}, {}));
    EXPECT_TRUE(ÄrAvvisad({20, u""}, {}));
    EXPECT_TRUE(ÄrAvvisad({0, u"CW"}, {}));
}

TEST(Spottfilter, RefusesABandOrModeThatIsOff) {
    cluster::Spottförval förval;
    förval.SpotBandVal[4] = false;   // 20 m
    förval.SpotTrafikVal[2] = false; // SSB
    EXPECT_TRUE(ÄrAvvisad({20, u"CW"}, förval));
    EXPECT_TRUE(ÄrAvvisad({40, u"SSB"}, förval));
    EXPECT_FALSE(ÄrAvvisad({40, u"CW"}, förval));
}

TEST(Spottfilter, HasAChoiceForEachBand) {
    constexpr int band[] = {160, 80, 40, 20, 15, 10, 6, 2, 70};
    for (size_t av = 0; av < std::size(band); ++av) {
        cluster::Spottförval förval;
        förval.SpotBandVal[av + 1] = false;
        for (const int prövat : band)
            EXPECT_EQ(ÄrAvvisad({prövat, u"CW"}, förval), prövat == band[av]) << prövat;
    }
}

TEST(Spottfilter, HasAChoiceForEachMode) {
    constexpr QStringView trafiksätt[] = {u"CW", u"SSB", u"RTTY", u"PSK31", u"SSTV", u"AM", u"FM"};
    for (size_t av = 0; av < std::size(trafiksätt); ++av) {
        cluster::Spottförval förval;
        förval.SpotTrafikVal[av + 1] = false;
        for (const QStringView prövat : trafiksätt)
            EXPECT_EQ(ÄrAvvisad({20, prövat}, förval), prövat == trafiksätt[av])
                << prövat.toUtf8().constData();
    }
}

TEST(Spottfilter, LetsTheBandsWithoutAChoicePassWithAllBandsOff) {
    cluster::Spottförval förval;
    for (bool& val : förval.SpotBandVal) val = false;
    EXPECT_FALSE(ÄrAvvisad({30, u"CW"}, förval));
    EXPECT_FALSE(ÄrAvvisad({17, u"CW"}, förval));
    EXPECT_FALSE(ÄrAvvisad({12, u"CW"}, förval));
    EXPECT_TRUE(ÄrAvvisad({160, u"CW"}, förval));
}
