#include "contest/Klocka.h"
#include "support/ToPrint.h"

namespace contest {
namespace {

struct SekundFall {
    const char* före;
    const char* efter;
};

class EnSekundTillTest : public testing::TestWithParam<SekundFall> {};

TEST_P(EnSekundTillTest, StegarKlockan) {
    EXPECT_EQ(EnSekundTill(T(GetParam().före)), T(GetParam().efter)) << GetParam().före;
}

INSTANTIATE_TEST_SUITE_P(
    Klockor, EnSekundTillTest,
    testing::Values(SekundFall{"00:00:00", "00:00:01"}, SekundFall{"00:00:09", "00:00:10"},
                    SekundFall{"00:00:59", "00:01:00"}, SekundFall{"00:09:59", "00:10:00"},
                    SekundFall{"00:59:59", "01:00:00"}, SekundFall{"09:59:59", "10:00:00"},
                    SekundFall{"23:59:59", "24:00:00"}, SekundFall{"98:59:59", "99:00:00"},
                    SekundFall{"99:59:59", "99:00:00"}, SekundFall{"99:00:00", "99:00:01"}));

INSTANTIATE_TEST_SUITE_P(
    UdaTexter, EnSekundTillTest,
    testing::Values(SekundFall{"00.00.05", "00:00:06"}, SekundFall{"00:00:5", "00:00:06"},
                    SekundFall{" 1: 2: 3", "01:02:04"}, SekundFall{"00:00:75", "00:01:00"},
                    SekundFall{"00:75:59", "01:00:00"}, SekundFall{"01:02:03 och mer", "01:02:04"}));

TEST(EnSekundTill, FelarPåEnTextUtanTal) {
    for (const char* text : {"", "00:00", "00:00:", "aa:00:00", "00:bb:00", "00:00:cc", "1:02:03",
                             "::::::::", "-1:00:00", "0x:00:00", "00:00:1x", "١٢:00:00"}) {
        EXPECT_THROW(EnSekundTill(T(text)), platform::Failure) << text;
    }
}

TEST(EnSekundTill, GårHundraTimmarSomEnRäknare) {
    QString klocka = T("00:00:00");
    for (int sekund = 1; sekund < 100 * 3600; ++sekund) {
        klocka = EnSekundTill(klocka);
        const QTime inomTimmen = QTime(0, 0).addSecs(sekund % 3600);
        ASSERT_EQ(klocka,
                  QString::number(sekund / 3600).rightJustified(2, u'0') + inomTimmen.toString(u":mm:ss"));
    }
    EXPECT_EQ(EnSekundTill(klocka), T("99:00:00"));
}

QDateTime Tid(const char* text) { return QDateTime::fromString(T(text), T("yyyy-MM-dd HH:mm:ss")); }

TEST(TidText, ÄrTimmarMinuterOchSekunder) {
    EXPECT_EQ(TidText(Tid("2026-01-06 09:05:03")), T("09:05:03"));
    EXPECT_EQ(TidText(Tid("2026-01-06 00:00:00")), T("00:00:00"));
}

struct UTCFall {
    const char* nu;
    const char* timmar;
    const char* utc;
};

class UTCTest : public testing::TestWithParam<UTCFall> {};

TEST_P(UTCTest, LäggerTimmarnaTillLokalTid) {
    EXPECT_EQ(UTCTidText(Tid(GetParam().nu), T(GetParam().timmar)), T(GetParam().utc)) << GetParam().timmar;
}

INSTANTIATE_TEST_SUITE_P(Förskjutningar, UTCTest,
                         testing::Values(UTCFall{"2026-01-06 19:00:05", "-1", "18:00:05"},
                                         UTCFall{"2026-07-06 19:00:05", "-2", "17:00:05"},
                                         UTCFall{"2026-07-06 19:00:05", "-3", "16:00:05"},
                                         UTCFall{"2026-07-06 19:00:05", "0", "19:00:05"},
                                         UTCFall{"2026-01-06 00:30:00", "-1", "23:30:00"},
                                         UTCFall{"2026-01-06 01:59:59", "-2", "23:59:59"},
                                         UTCFall{"2026-01-06 12:00:00", "", "12:00:00"},
                                         UTCFall{"2026-01-06 12:00:00", "x", "12:00:00"},
                                         UTCFall{"2026-03-29 03:30:00", "-2", "01:30:00"}));

struct DatumFall {
    const char* nu;
    const char* timmar;
    const char* datum;
};

class TestDatumTextTest : public testing::TestWithParam<DatumFall> {};

TEST_P(TestDatumTextTest, FöljerUTCDygnet) {
    EXPECT_EQ(TestDatumText(Tid(GetParam().nu), T(GetParam().timmar)), T(GetParam().datum))
        << GetParam().nu << ' ' << GetParam().timmar;
}

INSTANTIATE_TEST_SUITE_P(Dygn, TestDatumTextTest,
                         testing::Values(DatumFall{"2026-03-01 00:00:00", "-1", "2026-02-28"},
                                         DatumFall{"2026-03-01 00:59:59", "-1", "2026-02-28"},
                                         DatumFall{"2026-03-01 01:00:00", "-1", "2026-03-01"},
                                         DatumFall{"2026-01-01 01:59:59", "-2", "2025-12-31"},
                                         DatumFall{"2026-01-01 02:00:00", "-2", "2026-01-01"},
                                         DatumFall{"2024-03-02 02:59:59", "-3", "2024-02-29"},
                                         DatumFall{"2026-03-02 00:00:00", "-3", "2026-02-28"},
                                         DatumFall{"2026-03-02 03:00:00", "-3", "2026-03-02"},
                                         DatumFall{"2026-03-02 23:59:59", "-3", "2026-03-02"},
                                         DatumFall{"2026-03-02 00:30:00", "0", "2026-03-02"},
                                         DatumFall{"2026-03-02 00:30:00", "", "2026-03-02"},
                                         DatumFall{"2026-03-02 00:30:00", "-4", "2026-03-02"},
                                         DatumFall{"2026-03-02 23:30:00", "1", "2026-03-02"},
                                         DatumFall{"2026-03-02 00:30:00", " -1", "2026-03-02"}));

} // namespace
} // namespace contest
