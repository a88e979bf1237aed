#include "store/Poäng.h"
#include "support/ToPrint.h"

#include <limits>

namespace store {

// Outside the anonymous namespace, where GoogleTest finds them.
void PrintTo(const Bedömning& svar, std::ostream* out) {
    *out << "poäng " << svar.poäng << (svar.nyRuta ? " ruta" : "") << (svar.nyMultipel ? " multipel" : "")
         << (svar.döljNyttLand ? " dölj" : "");
}
void PrintTo(const Ställning& s, std::ostream* out) {
    *out << "total " << s.totalPoäng << " qso " << s.totalQSOPoäng << " multiplar " << s.multiplar
         << " diplom " << s.diplom;
}

namespace {

TEST(PoängRegel, FöljerTestensFamilj) {
    const std::pair<int, PoängRegel> fall[] = {
        {0, PoängRegel::Km},     {1, PoängRegel::Km},     {2, PoängRegel::Km},   {3, PoängRegel::Km},
        {4, PoängRegel::Km},     {5, PoängRegel::Km},     {6, PoängRegel::Km},   {7, PoängRegel::MT},
        {8, PoängRegel::MT},     {9, PoängRegel::SAC},    {10, PoängRegel::SAC}, {11, PoängRegel::Ingen},
        {12, PoängRegel::Ingen}, {13, PoängRegel::Ingen}, {14, PoängRegel::Km},  {15, PoängRegel::Ingen},
        {-1, PoängRegel::Ingen}, {255, PoängRegel::Ingen}};
    for (const auto& [test, regel] : fall) EXPECT_EQ(PoängRegelFör(test), regel) << test;
}

// Kilometres.

struct KmFall {
    const char* namn;
    const char* diplom;
    const char* lokator;
    const char* avstånd;
    qsizetype antalMultiplar;
    bool redigera;
    Bedömning svar;
};

class BedömKmTest : public testing::TestWithParam<KmFall> {};

TEST_P(BedömKmTest, GerPoängOchRuta) {
    const KmFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    EXPECT_EQ(BedömKm({T(f.diplom), T(f.lokator), T(f.avstånd), f.antalMultiplar, f.redigera}), f.svar);
}

INSTANTIATE_TEST_SUITE_P(
    NyttQSO, BedömKmTest,
    testing::Values(
        KmFall{"six characters in a new square",
               "JO67BQ",
               "JO89XI",
               "387 Km",
               0,
               false,
               {.poäng = 387, .nyRuta = true}},
        KmFall{"four characters in a new square",
               "JO67",
               "JO89XI",
               "390 Km",
               0,
               false,
               {.poäng = 390, .nyRuta = true}},
        KmFall{"a square that is worked keeps the kilometres",
               "JO67BQ",
               "JO89XI",
               "387 Km",
               1,
               false,
               {.poäng = 387}},
        KmFall{"worked many times", "JO67BQ", "JO89XI", "387 Km", 9, false, {.poäng = 387}},
        KmFall{"the own locator gives one point and no square",
               "JO89XI",
               "JO89XI",
               "0 Km",
               0,
               false,
               {.poäng = 1}},
        KmFall{"the own locator gives one point whatever the label",
               "JO89XI",
               "JO89XI",
               "57 Km",
               3,
               false,
               {.poäng = 1}},
        KmFall{"four characters differ from the own six and may give 0",
               "JO89",
               "JO89XI",
               "0 Km",
               0,
               false,
               {.poäng = 0, .nyRuta = true}},
        KmFall{"the own locator in another case differs", "jo89xi", "JO89XI", "0 Km", 1, false, {.poäng = 0}},
        KmFall{"only the whole part of the number counts",
               "JO67BQ",
               "JO89XI",
               "387.9 Km",
               1,
               false,
               {.poäng = 387}},
        KmFall{"an empty label is 0", "JO67BQ", "JO89XI", "", 0, false, {.poäng = 0, .nyRuta = true}},
        KmFall{"no exchange", "", "JO89XI", "387 Km", 0, false, {}},
        KmFall{"three characters", "JO6", "JO89XI", "387 Km", 0, false, {}},
        KmFall{"five characters", "JO67B", "JO89XI", "387 Km", 0, false, {}},
        KmFall{"seven characters", "JO67BQ1", "JO89XI", "387 Km", 0, false, {}},
        KmFall{"both locators empty", "", "", "387 Km", 0, false, {}}));

INSTANTIATE_TEST_SUITE_P(
    RedigeratQSO, BedömKmTest,
    testing::Values(
        KmFall{"exactly one row asks nothing further", "JO67BQ", "JO89XI", "387 Km", 1, true, {.poäng = 387}},
        KmFall{"not even about the own locator", "JO89XI", "JO89XI", "57 Km", 1, true, {.poäng = 57}},
        KmFall{
            "no row is a new square", "JO67BQ", "JO89XI", "387 Km", 0, true, {.poäng = 387, .nyRuta = true}},
        KmFall{"two rows are no new square", "JO67BQ", "JO89XI", "387 Km", 2, true, {.poäng = 387}},
        KmFall{"two rows and the own locator give one point",
               "JO89XI",
               "JO89XI",
               "57 Km",
               2,
               true,
               {.poäng = 1}},
        KmFall{
            "no row and the own locator give one point", "JO89XI", "JO89XI", "57 Km", 0, true, {.poäng = 1}},
        KmFall{"a wrong length is worth nothing", "JO67B", "JO89XI", "387 Km", 1, true, {}}));

TEST(BedömKm, FelarNärAvståndetInteRyms) {
    EXPECT_EQ(BedömKm({T("JO67"), T("JO89XI"), T("2147483647 Km"), 1, false}).poäng, 2147483647);
    EXPECT_THROW(BedömKm({T("JO67"), T("JO89XI"), T("2147483648 Km"), 1, false}), platform::Failure);
}

TEST(KmFilter, TarRutanUrEnHelLokator) {
    EXPECT_EQ(KmFilter(T("JO67BQ")), std::optional(T("Multiplar LIKE 'JO67*'")));
    EXPECT_EQ(KmFilter(T("JO67")), std::optional(T("Multiplar LIKE 'JO67*'")));
    for (const char* diplom : {"", "J", "JO", "JO6", "JO67B", "JO67BQ1"}) {
        EXPECT_EQ(KmFilter(T(diplom)), std::nullopt) << diplom;
    }
}

// Månadstest.

struct MTFall {
    const char* namn;
    const char* diplom;
    const char* lokator;
    qsizetype antalDiplom;
    qsizetype antalMultiplar;
    bool redigera;
    Bedömning svar;
};

class BedömMTTest : public testing::TestWithParam<MTFall> {};

TEST_P(BedömMTTest, GerPoängOchRuta) {
    const MTFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    EXPECT_EQ(BedömMT({T(f.diplom), T(f.lokator), f.antalDiplom, f.antalMultiplar, f.redigera}), f.svar);
}

constexpr Bedömning mtNyRuta{.poäng = 2, .nyRuta = true, .döljNyttLand = true};
constexpr Bedömning mtTvå{.poäng = 2};

INSTANTIATE_TEST_SUITE_P(
    NyttQSO, BedömMTTest,
    testing::Values(MTFall{"a new square hides the new country", "JO67BQ", "JO89XI", 0, 5, false, mtNyRuta},
                    MTFall{"four characters too", "JO67", "JO89XI", 0, 0, false, mtNyRuta},
                    MTFall{"a square worked on the band", "JO67BQ", "JO89XI", 1, 0, false, mtTvå},
                    MTFall{"the own locator has two points", "JO89XI", "JO89XI", 0, 0, false, mtTvå},
                    MTFall{"the own square is no new one", "JO89AA", "JO89XI", 0, 0, false, mtTvå},
                    MTFall{"the own square in four characters neither", "JO89", "JO89XI", 0, 0, false, mtTvå},
                    MTFall{"no exchange has two points", "", "JO89XI", 0, 0, false, mtTvå},
                    MTFall{"a wrong length has two points", "JO67B", "JO89XI", 0, 0, false, mtTvå},
                    MTFall{"an exchange that is too long has two points", "JO67BQ1", "JO89XI", 0, 0, false,
                           mtTvå}));

INSTANTIATE_TEST_SUITE_P(
    RedigeratQSO, BedömMTTest,
    testing::Values(
        MTFall{"one multiplier in the whole log asks nothing further", "JO67BQ", "JO89XI", 0, 1, true, mtTvå},
        MTFall{"not even about the own locator", "JO89XI", "JO89XI", 0, 1, true, mtTvå},
        MTFall{"the own locator brings the points down to one", "JO89XI", "JO89XI", 0, 2, true, {.poäng = 1}},
        MTFall{"in a log without multipliers too", "JO89XI", "JO89XI", 0, 0, true, {.poäng = 1}},
        MTFall{"the own square alone does not", "JO89", "JO89XI", 1, 2, true, mtTvå},
        MTFall{"no multiplier is a new square and hides nothing",
               "JO67BQ",
               "JO89XI",
               1,
               0,
               true,
               {.poäng = 2, .nyRuta = true}},
        MTFall{"the own square is then new as well",
               "JO89AA",
               "JO89XI",
               1,
               0,
               true,
               {.poäng = 2, .nyRuta = true}},
        MTFall{"several multipliers are no new square", "JO67BQ", "JO89XI", 0, 2, true, mtTvå},
        MTFall{"a wrong length has two points", "JO67B", "JO67B", 0, 2, true, mtTvå}));

TEST(MTFilter, LäggerBandetTillRutan) {
    EXPECT_EQ(MTFilter(T("JO67BQ"), T("80 M")), std::optional(T("Diplom = 'JO67 80 M'")));
    EXPECT_EQ(MTFilter(T("JO67"), T("40 M")), std::optional(T("Diplom = 'JO67 40 M'")));
    for (const char* diplom : {"", "JO6", "JO67B", "JO67BQ1"})
        EXPECT_EQ(MTFilter(T(diplom), T("80 M")), std::nullopt);
}

// SAC.

struct SACFall {
    const char* namn;
    const char* dxcc;
    const char* kontinent;
    const char* band;
    qsizetype antalDiplom;
    Bedömning svar;
};

class BedömSACTest : public testing::TestWithParam<SACFall> {};

TEST_P(BedömSACTest, GerPoängOchMultipel) {
    const SACFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    EXPECT_EQ(BedömSAC({T(f.dxcc), T(f.kontinent), T(f.band), f.antalDiplom}), f.svar);
}

INSTANTIATE_TEST_SUITE_P(
    Poäng, BedömSACTest,
    testing::Values(
        SACFall{"outside Europe on 80 m", "K", "NA", "80 M", 1, {.poäng = 3}},
        SACFall{"outside Europe on 40 m", "K", "NA", "40 M", 1, {.poäng = 3}},
        SACFall{"outside Europe on 20 m", "JA", "AS", "20 M", 1, {.poäng = 1}},
        SACFall{"outside Europe on 15 m", "JA", "AS", "15 M", 1, {.poäng = 1}},
        SACFall{"outside Europe on 10 m", "JA", "AS", "10 M", 1, {.poäng = 1}},
        SACFall{"outside Europe on another band", "JA", "AS", "30 M", 1, {.poäng = 0}},
        SACFall{"in Europe on a low band", "DL", "EU", "80 M", 1, {.poäng = 1}},
        SACFall{"in Europe on a high band", "DL", "EU", "10 M", 1, {.poäng = 1}},
        SACFall{"in Europe on another band", "DL", "EU", "30 M", 1, {.poäng = 1}},
        SACFall{"Sweden", "SM", "EU", "80 M", 0, {}},
        SACFall{"Sweden without a continent", "SM", "", "80 M", 0, {}},
        SACFall{"Greenland is Nordic, not American", "OX", "NA", "80 M", 0, {}},
        SACFall{"the Faroes", "OY", "EU", "20 M", 0, {}},
        SACFall{"the Faroes under another continent", "OY", "NA", "80 M", 1, {.poäng = 3}},
        SACFall{"Åland has a short form of its own", "OH0", "EU", "80 M", 1, {.poäng = 1}},
        SACFall{"no country counts as outside Europe and raises no sign", "", "", "80 M", 0, {.poäng = 3}}));

INSTANTIATE_TEST_SUITE_P(
    Multipel, BedömSACTest,
    testing::Values(
        SACFall{"a new country on the band", "K", "NA", "80 M", 0, {.poäng = 3, .nyMultipel = true}},
        SACFall{"a new one in Europe", "DL", "EU", "20 M", 0, {.poäng = 1, .nyMultipel = true}},
        SACFall{"a new one on a band without points", "K", "NA", "2 M", 0, {.poäng = 0, .nyMultipel = true}},
        SACFall{"two rows", "DL", "EU", "20 M", 2, {.poäng = 1}}));

TEST(SACFilter, FrågarEfterLandOchBand) {
    EXPECT_EQ(SACFilter(T("DL"), T("EU"), T("20 M")), std::optional(T("Diplom = 'DL (20 M)'")));
    EXPECT_EQ(SACFilter(T("OY"), T("NA"), T("20 M")), std::optional(T("Diplom = 'OY (20 M)'")));
}

TEST(SACFilter, TigerFörNordenOchUtanLand) {
    EXPECT_EQ(SACFilter(T("SM"), T("EU"), T("20 M")), std::nullopt);
    EXPECT_EQ(SACFilter(T("OY"), T("EU"), T("20 M")), std::nullopt);
    EXPECT_EQ(SACFilter(T(""), T("EU"), T("20 M")), std::nullopt);
}

// Totals.

struct RutorFall {
    const char* namn;
    double summa;
    qsizetype rader;
    qsizetype diplom;
    Ställning ställning;
};

class RäknaRutorTest : public testing::TestWithParam<RutorFall> {};

TEST_P(RäknaRutorTest, LäggerRutornaTillPoängen) {
    const RutorFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    EXPECT_EQ(RäknaRutor(f.summa, f.rader, f.diplom, T("500")), f.ställning);
}

INSTANTIATE_TEST_SUITE_P(
    Loggar, RäknaRutorTest,
    testing::Values(
        RutorFall{"an empty log is all zeros", 0, 0, 0, {}},
        RutorFall{"one contact in one square", 387, 1, 1, {887, 387, 500, 1}},
        RutorFall{
            "a square worked twice counts once, both bring their km", 387 + 391, 2, 1, {1278, 778, 500, 1}},
        RutorFall{"several squares", 1000, 5, 4, {3000, 1000, 2000, 4}},
        RutorFall{"contacts without a square", 12, 3, 0, {12, 12, 0, 0}},
        RutorFall{"rows that are worth nothing", 0, 2, 2, {1000, 0, 1000, 2}}));

TEST(RäknaRutor, AvrundarRutornasPoängTillJämntTal) {
    EXPECT_EQ(RäknaRutor(0, 1, 1, T("0,5")).multiplar, 0);
    EXPECT_EQ(RäknaRutor(0, 1, 3, T("0,5")).multiplar, 2);
}

TEST(RäknaRutor, FelarNärRutpoängenInteÄrEttTal) {
    for (const char* text : {"", "fem", "500 p"}) {
        EXPECT_THROW(RäknaRutor(1, 1, 1, T(text)), platform::Failure) << text;
    }
    EXPECT_EQ(RäknaRutor(0, 0, 0, T("fem")), Ställning{});
}

TEST(RäknaRutor, FelarNärNågotInteRymsI32Bitar) {
    constexpr double mest = std::numeric_limits<qint32>::max();
    EXPECT_EQ(RäknaRutor(mest - 500, 2, 1, T("500")).totalPoäng, std::numeric_limits<qint32>::max());
    EXPECT_THROW(RäknaRutor(mest - 499, 2, 1, T("500")), platform::Failure);
    EXPECT_THROW(RäknaRutor(mest + 1, 2, 0, T("500")), platform::Failure);
    EXPECT_THROW(RäknaRutor(0, 2, 4'294'968, T("500")), platform::Failure);
}

struct MultiplarFall {
    const char* namn;
    double summa;
    qsizetype rader;
    qsizetype multiplar;
    qsizetype diplom;
    Ställning ställning;
};

class RäknaMultiplarTest : public testing::TestWithParam<MultiplarFall> {};

TEST_P(RäknaMultiplarTest, MultiplicerarPoängsumman) {
    const MultiplarFall& f = GetParam();
    SCOPED_TRACE(f.namn);
    EXPECT_EQ(RäknaMultiplar(f.summa, f.rader, f.multiplar, f.diplom), f.ställning);
}

INSTANTIATE_TEST_SUITE_P(
    Loggar, RäknaMultiplarTest,
    testing::Values(MultiplarFall{"an empty log is all zeros", 0, 0, 0, 0, {}},
                    MultiplarFall{"no rows, whatever the cursors hold", 0, 0, 3, 2, {}},
                    MultiplarFall{"without multipliers the sum alone", 8, 4, 0, 3, {8, 8, 0, 3}},
                    MultiplarFall{"one multiplier", 8, 4, 1, 3, {8, 8, 1, 3}},
                    MultiplarFall{"several multipliers", 8, 4, 3, 2, {24, 8, 3, 2}},
                    MultiplarFall{"rows that are worth nothing", 0, 2, 2, 2, {0, 0, 2, 2}}));

TEST(RäknaMultiplar, FelarNärNågotInteRymsI32Bitar) {
    EXPECT_EQ(RäknaMultiplar(1'073'741'823, 9, 2, 0).totalPoäng, 2'147'483'646);
    EXPECT_THROW(RäknaMultiplar(1'073'741'824, 9, 2, 0), platform::Failure);
    EXPECT_THROW(RäknaMultiplar(2'147'483'648.0, 9, 0, 0), platform::Failure);
}

TEST(Räkna, TarMarkörernaIFamiljensOrdning) {
    const LoggAntal antal{.sumPoäng = 10, .poängRader = 5, .diplom = 2, .multiplar = 3};
    EXPECT_EQ(Räkna(PoängRegel::Km, antal, T("500")), (Ställning{1010, 10, 1000, 2}));
    EXPECT_EQ(Räkna(PoängRegel::MT, antal, T("500")), (Ställning{20, 10, 2, 3}));
    EXPECT_EQ(Räkna(PoängRegel::SAC, antal, T("500")), (Ställning{30, 10, 3, 2}));
    EXPECT_EQ(Räkna(PoängRegel::Ingen, antal, T("500")), std::nullopt);
}

TEST(Räkna, FrågarEfterRutpoängBaraDärDenRäknas) {
    const LoggAntal antal{.sumPoäng = 10, .poängRader = 5, .diplom = 2, .multiplar = 3};
    EXPECT_THROW(Räkna(PoängRegel::Km, antal, T("")), platform::Failure);
    EXPECT_NO_THROW(Räkna(PoängRegel::MT, antal, T("")));
    EXPECT_NO_THROW(Räkna(PoängRegel::SAC, antal, T("")));
}

// The two points of a square.

TEST(TvåPoäng, ÄrvsITreFyraOchFem) {
    for (int test = -1; test <= 15; ++test) EXPECT_EQ(ÄrverTvåPoäng(test), test >= 3 && test <= 5) << test;
}

TEST(TvåPoäng, SöksMedRutan) {
    EXPECT_EQ(TvåPoängFilter(T("JO67BQ")), std::optional(T("Multiplar LIKE 'JO67*' AND Poäng = 2")));
    EXPECT_EQ(TvåPoängFilter(T("JO67")), std::optional(T("Multiplar LIKE 'JO67*' AND Poäng = 2")));
    EXPECT_EQ(RutaFilter(T("JO67BQ")), T("Multiplar LIKE 'JO67*'"));
    EXPECT_EQ(TvåPoängFilter(T("JO6")), std::nullopt);
    EXPECT_EQ(TvåPoängFilter(T("")), std::nullopt);
}

} // namespace
} // namespace store
