#include "store/Dubblett.h"
#include "support/ToPrint.h"

namespace store {
namespace {

struct RegelFall {
    int test;
    bool helaLoggen;
    bool sammaBand;
    bool ejNordiska;
};

class DubblettRegelTest : public testing::TestWithParam<RegelFall> {};

TEST_P(DubblettRegelTest, FöljerTesten) {
    const RegelFall& fall = GetParam();
    const DubblettRegel regel = DubblettRegelFör(fall.test);
    EXPECT_EQ(regel.helaLoggen, fall.helaLoggen) << fall.test;
    EXPECT_EQ(regel.sammaBand, fall.sammaBand) << fall.test;
    EXPECT_EQ(regel.ejNordiska, fall.ejNordiska) << fall.test;
}

INSTANTIATE_TEST_SUITE_P(Tester, DubblettRegelTest,
                         testing::Values(RegelFall{0, true, false, false}, RegelFall{1, true, true, false},
                                         RegelFall{2, true, true, false}, RegelFall{3, true, true, false},
                                         RegelFall{4, true, true, false}, RegelFall{5, true, true, false},
                                         RegelFall{6, false, true, false}, RegelFall{7, false, true, false},
                                         RegelFall{8, false, true, false}, RegelFall{9, false, true, true},
                                         RegelFall{10, false, true, true}, RegelFall{11, false, true, false},
                                         RegelFall{12, false, true, false}, RegelFall{13, false, true, false},
                                         RegelFall{14, false, true, false}, RegelFall{15, false, true, false},
                                         RegelFall{-1, false, true, false},
                                         RegelFall{255, false, true, false}));

TEST(DubblettFilter, JämförHelaAnropet) {
    EXPECT_EQ(SignalFilter(T("SM5ABC/P")), T("Signal = 'SM5ABC/P'"));
    EXPECT_EQ(SignalFilter(T("")), T("Signal = ''"));
    EXPECT_EQ(SignalBandFilter(T("SM5ABC"), T("80 M")), T("Signal = 'SM5ABC' AND [Band ] = '80 M'"));
}

TEST(DubblettFilter, SkyddarIngenApostrof) { EXPECT_EQ(SignalFilter(T("SM'A")), T("Signal = 'SM'A'")); }

TEST(TidigareRubrik, NämnerAnropOchAntal) {
    EXPECT_EQ(TidigareRubrik(T("SM5ABC"), 3), T("Tidigare QSO för SM5ABC (3)"));
    EXPECT_EQ(TidigareRubrik(T("OH2X"), 0), T("Tidigare QSO för OH2X (0)"));
}

} // namespace
} // namespace store
