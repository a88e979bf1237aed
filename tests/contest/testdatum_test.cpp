#include "contest/TestDatum.h"
#include "support/ToPrint.h"

namespace contest {
namespace {

struct VeckodagFall {
    const char* namn;
    QDate datum;
    int ordning;
    int veckodag;
    bool stämmer;
};

class VeckodagTest : public testing::TestWithParam<VeckodagFall> {};

TEST_P(VeckodagTest, RäknarFrånMånadensBörjan) {
    const VeckodagFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    EXPECT_EQ(ÄrNteVeckodag(f.datum, f.ordning, f.veckodag), f.stämmer);
}

// 2026-01-01 is a Thursday.
INSTANTIATE_TEST_SUITE_P(
    Dagar, VeckodagTest,
    testing::Values(VeckodagFall{"the first of the month can be the first", {2026, 1, 1}, 1, 5, true},
                    VeckodagFall{"the seventh is a first", {2026, 1, 7}, 1, 4, true},
                    VeckodagFall{"the eighth is a second", {2026, 1, 8}, 2, 5, true},
                    VeckodagFall{"and not a first", {2026, 1, 8}, 1, 5, false},
                    VeckodagFall{"the second Tuesday", {2026, 1, 13}, 2, 3, true},
                    VeckodagFall{"the fourth Tuesday", {2026, 1, 27}, 4, 3, true},
                    VeckodagFall{"a fifth Thursday", {2026, 1, 29}, 5, 5, true},
                    VeckodagFall{"the last day of the month", {2026, 1, 31}, 5, 7, true},
                    VeckodagFall{"a Sunday is 1", {2026, 1, 4}, 1, 1, true},
                    VeckodagFall{"a Monday is 2", {2026, 1, 5}, 1, 2, true},
                    VeckodagFall{"a leap day", {2024, 2, 29}, 5, 5, true},
                    VeckodagFall{"the day before", {2026, 1, 12}, 2, 3, false},
                    VeckodagFall{"the day after", {2026, 1, 14}, 2, 3, false},
                    VeckodagFall{"the week before", {2026, 1, 6}, 2, 3, false},
                    VeckodagFall{"an ordinal of zero", {2026, 1, 1}, 0, 5, false},
                    VeckodagFall{"a weekday of zero", {2026, 1, 1}, 1, 0, false},
                    VeckodagFall{"a weekday of eight", {2026, 1, 4}, 1, 8, false},
                    VeckodagFall{"both zero", {2026, 1, 1}, 0, 0, false},
                    VeckodagFall{"a sixth", {2026, 1, 31}, 6, 7, false},
                    VeckodagFall{"no date", {}, 1, 1, false}));

TEST(ÄrNteVeckodag, GällerEttParFörVarjeDatum) {
    for (QDate datum(2020, 1, 1); datum < QDate(2034, 1, 1); datum = datum.addDays(1)) {
        int träffar = 0;
        for (int ordning = 0; ordning <= 6; ++ordning) {
            for (int veckodag = 0; veckodag <= 8; ++veckodag)
                träffar += ÄrNteVeckodag(datum, ordning, veckodag);
        }
        ASSERT_EQ(träffar, 1) << datum.toString(Qt::ISODate).toStdString();
    }
}

/// Days of January 2026 on which the contest is held.
QList<int> Dagar(int test) {
    QList<int> dagar;
    for (int dag = 1; dag <= 31; ++dag) {
        if (TestDatumStämmer(test, QDate(2026, 1, dag))) dagar.append(dag);
    }
    return dagar;
}

TEST(TestDatumStämmer, HarEnDagIMånadenFörNACTesterna) {
    EXPECT_EQ(Dagar(0), QList<int>{13});
    EXPECT_EQ(Dagar(1), QList<int>{6});
    EXPECT_EQ(Dagar(2), QList<int>{27});
    EXPECT_EQ(Dagar(3), QList<int>{1});
    EXPECT_EQ(Dagar(4), QList<int>{1});
    EXPECT_EQ(Dagar(5), QList<int>{1});
}

TEST(TestDatumStämmer, GerIngenDagUtanRegel) {
    for (const int test : {6, 11, 12, 13, 14, 15, -1, 255}) EXPECT_TRUE(Dagar(test).isEmpty()) << test;
}

TEST(TestDatumStämmer, GodtarVarjeDagFörMånadstestOchSAC) {
    for (const int test : {7, 8, 9, 10}) EXPECT_EQ(Dagar(test).size(), 31) << test;
}

TEST(TestDatumStämmer, GällerTestkvällenMenInteDagenEfter) {
    EXPECT_TRUE(TestDatumStämmer(1, QDate(2026, 2, 3)));
    EXPECT_FALSE(TestDatumStämmer(1, QDate(2026, 2, 4)));
}

} // namespace
} // namespace contest
