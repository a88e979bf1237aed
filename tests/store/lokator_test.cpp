#include "store/Lokator.h"
#include "support/ToPrint.h"

#include <array>
#include <cmath>
#include <random>

namespace store {
namespace {

// Decoding.

struct AvkodFall {
    const char* namn;
    const char* lokator;
    double longitud;
    double latitud;
};

class AvkodTest : public testing::TestWithParam<AvkodFall> {};

TEST_P(AvkodTest, GerMittenAvVadLokatornNämner) {
    SCOPED_TRACE(GetParam().namn);
    const auto plats = AvkodaLokator(T(GetParam().lokator));
    ASSERT_TRUE(plats.has_value());
    EXPECT_NEAR(plats->longitud, GetParam().longitud, 1e-9);
    EXPECT_NEAR(plats->latitud, GetParam().latitud, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(
    Godtagna, AvkodTest,
    testing::Values(AvkodFall{"two characters give the centre of the field", "JO", 10, 55},
                    AvkodFall{"four give the centre of the square", "JO89", 17, 59.5},
                    AvkodFall{"six give the centre of the subsquare", "JO89XI", 17 + 1 - 1.0 / 24,
                              59 + 8.5 / 24},
                    AvkodFall{"the first field", "AA", -170, -85}, AvkodFall{"the last field", "RR", 170, 85},
                    AvkodFall{"the first subsquare", "AA00AA", -180 + 1.0 / 24, -90 + 0.5 / 24},
                    AvkodFall{"the last subsquare", "RR99XX", 180 - 1.0 / 24, 90 - 0.5 / 24},
                    AvkodFall{"east of Greenwich and north of the equator", "JJ00", 1, 0.5},
                    AvkodFall{"what follows the sixth character is not read", "JO89XI99??", 17 + 1 - 1.0 / 24,
                              59 + 8.5 / 24}));

class AvkodFelTest : public testing::TestWithParam<std::pair<const char*, const char*>> {};

TEST_P(AvkodFelTest, GerIngenPlats) {
    SCOPED_TRACE(GetParam().first);
    EXPECT_FALSE(AvkodaLokator(T(GetParam().second)).has_value());
    EXPECT_FALSE(RiktningAvstånd(T(GetParam().second), T("JO89")).has_value());
    EXPECT_FALSE(RiktningAvstånd(T("JO89"), T(GetParam().second)).has_value());
}

INSTANTIATE_TEST_SUITE_P(
    Avvisade, AvkodFelTest,
    testing::Values(std::pair{"an empty text", ""}, std::pair{"one character", "J"},
                    std::pair{"three characters", "JO8"}, std::pair{"five characters", "JO89X"},
                    std::pair{"lower case", "jo89xi"}, std::pair{"a field in mixed case", "Jo89"},
                    std::pair{"a subsquare in lower case", "JO89xi"}, std::pair{"the field behind R", "SA"},
                    std::pair{"the field behind R in latitude", "AS"}, std::pair{"the code before A", "@A"},
                    std::pair{"the code before zero", "JO/9"}, std::pair{"the code behind nine", "JO8:"},
                    std::pair{"a letter for a digit", "JOAB"}, std::pair{"the subsquare behind X", "JO89YA"},
                    std::pair{"the subsquare behind X in latitude", "JO89AY"},
                    std::pair{"the code before A in the subsquare", "JO89@A"},
                    std::pair{"a digit for a letter", "1234"}, std::pair{"a blank in front", " JO89"},
                    std::pair{"blanks for the square", "JO  "}, std::pair{"Swedish letters", "ÅÄ"}));

TEST(AvkodaLokator, LäggerAllaFältRutorOchDelrutorIntillVarandra) {
    for (int öst = 0; öst < 18; ++öst) {
        for (int norr = 0; norr < 18; ++norr) {
            const QString fält = QString(QChar(u'A' + öst)) + QChar(u'A' + norr);
            const auto mitt = AvkodaLokator(fält);
            ASSERT_TRUE(mitt.has_value());
            EXPECT_EQ(mitt->longitud, -180 + 20 * öst + 10);
            EXPECT_EQ(mitt->latitud, -90 + 10 * norr + 5);
            for (int i = 0; i < 100; ++i) {
                const QString ruta = fält + QChar(u'0' + i / 10) + QChar(u'0' + i % 10);
                const auto plats = AvkodaLokator(ruta);
                ASSERT_TRUE(plats.has_value());
                EXPECT_EQ(plats->longitud, -180 + 20 * öst + 2 * (i / 10) + 1);
                EXPECT_EQ(plats->latitud, -90 + 10 * norr + i % 10 + 0.5);
            }
        }
    }
    for (int i = 0; i < 24 * 24; ++i) {
        const int öst = i / 24;
        const int norr = i % 24;
        const QString delruta = T("JO89") + QChar(u'A' + öst) + QChar(u'A' + norr);
        const auto plats = AvkodaLokator(delruta);
        ASSERT_TRUE(plats.has_value());
        EXPECT_NEAR(plats->longitud, 16 + (öst + 0.5) / 12, 1e-9);
        EXPECT_NEAR(plats->latitud, 59 + (norr + 0.5) / 24, 1e-9);
    }
}

TEST(AvkodaLokator, TarIngaAndraTeckenPåNågonPlats) {
    const QString mall = T("JO89XI");
    const std::array<std::pair<int, int>, 3> gränser{{{'A', 'R'}, {'0', '9'}, {'A', 'X'}}};
    for (int plats = 0; plats < 6; ++plats) {
        const auto [första, sista] = gränser[static_cast<std::size_t>(plats / 2)];
        for (int kod = 0; kod < 512; ++kod) {
            QString lokator = mall;
            lokator[plats] = QChar(static_cast<char16_t>(kod));
            EXPECT_EQ(AvkodaLokator(lokator).has_value(), kod >= första && kod <= sista)
                << plats << ' ' << kod;
        }
    }
}

// Distance and bearing.

struct VägFall {
    const char* namn;
    Position från;
    Position till;
    double km;
    double bäring;
    double geodet; ///< length of the true geodesic of the same ellipsoid
};

class VägTest : public testing::TestWithParam<VägFall> {};

// The values come from tests/store/geodesi_referens.py.

TEST_P(VägTest, StämmerMedReferensen) {
    const VägFall& fall = GetParam();
    SCOPED_TRACE(fall.namn);
    const Väg väg = BeräknaVäg(fall.från, fall.till);
    EXPECT_NEAR(väg.km, fall.km, 1e-5);
    EXPECT_NEAR(väg.bäring, fall.bäring, 1e-5);
}

TEST_P(VägTest, LiggerNäraDenSannaGeodeten) {
    const VägFall& fall = GetParam();
    SCOPED_TRACE(fall.namn);
    const double tolerans = fall.geodet < 1000 ? 0.05 : fall.geodet < 19700 ? 2 : 10;
    EXPECT_NEAR(BeräknaVäg(fall.från, fall.till).km, fall.geodet, tolerans);
}

INSTANTIATE_TEST_SUITE_P(
    Referens, VägTest,
    testing::Values(
        VägFall{"samma punkt", {18.0, 59.0}, {18.0, 59.0}, 0.000000, 0.000000, 0.000},
        VägFall{"nordpolen till sig själv", {0.0, 90.0}, {120.0, 90.0}, 0.000000, 0.000000, 0.000},
        VägFall{"en delruta österut",
                {18.041666666666668, 59.35416666666667},
                {18.125, 59.35416666666667},
                4.740348,
                89.964153,
                4.740},
        VägFall{"under en halv kilometer", {18.0, 59.0}, {18.005, 59.0}, 0.287378, 0.000000, 0.287},
        VägFall{"Stockholm till Göteborg", {18.07, 59.33}, {11.97, 57.71}, 398.442820, 245.668331, 398.440},
        VägFall{"Stockholm till Luleå", {18.07, 59.33}, {22.15, 65.58}, 727.349790, 15.001184, 727.340},
        VägFall{"Stockholm till London", {18.07, 59.33}, {-0.13, 51.51}, 1436.520998, 240.656607, 1436.506},
        VägFall{"Stockholm till New York", {18.07, 59.33}, {-74.0, 40.71}, 6337.483882, 295.186597, 6337.247},
        VägFall{
            "Stockholm till Sydney", {18.07, 59.33}, {151.21, -33.87}, 15585.727632, 71.386688, 15586.133},
        VägFall{"Stockholm till Tokyo", {18.07, 59.33}, {139.69, 35.69}, 8190.101402, 46.173772, 8189.628},
        VägFall{
            "Stockholm till Kapstaden", {18.07, 59.33}, {18.42, -33.92}, 10333.571067, 179.709096, 10334.273},
        VägFall{"längs ekvatorn", {0.0, 0.0}, {90.0, 0.0}, 10018.758884, 90.000000, 10018.759},
        VägFall{"längs ekvatorn västerut", {0.0, 0.0}, {-90.0, 0.0}, 10018.758884, 270.000000, 10018.759},
        VägFall{"ekvatorn till nordpolen", {0.0, 0.0}, {0.0, 90.0}, 10002.075961, 0.000000, 10001.970},
        VägFall{"ekvatorn till sydpolen", {0.0, 0.0}, {0.0, -90.0}, 10002.075961, 180.000000, 10001.970},
        VägFall{"pol till pol", {0.0, 90.0}, {0.0, -90.0}, 20004.151922, 0.000000, 20003.940},
        VägFall{"över datumgränsen österut", {179.0, 52.0}, {-179.0, 52.0}, 137.352320, 89.211959, 137.352},
        VägFall{"över datumgränsen västerut", {-179.0, 52.0}, {179.0, 52.0}, 137.352320, 270.788041, 137.352},
        VägFall{"över nordpolen", {0.0, 80.0}, {180.0, 80.0}, 2233.668677, 0.000002, 2233.653},
        VägFall{"antipoder vid ekvatorn", {0.0, 0.0}, {180.0, 0.0}, 20004.151922, 0.000000, 20003.940},
        VägFall{"antipoder vid latitud 30", {10.0, 30.0}, {-170.0, -30.0}, 20004.151922, 0.000000, 20003.940},
        VägFall{"antipoder vid latitud 60", {18.0, 60.0}, {-162.0, -60.0}, 20004.151922, 0.000000, 20003.940},
        VägFall{
            "nästan antipoder vid ekvatorn", {0.0, 0.0}, {179.7, 0.0}, 19995.809323, 90.000000, 19995.634},
        VägFall{"nästan antipoder, 1 grad i longitud",
                {0.0, 30.0},
                {179.0, -30.0},
                19928.847367,
                90.250005,
                19932.677},
        VägFall{"nästan antipoder, en halv grad i latitud",
                {0.0, -30.0},
                {179.8, 29.5},
                19946.792252,
                160.799236,
                19946.760},
        VägFall{"antipodrättningens början", {0.0, 0.0}, {178.5, 0.5}, 19858.298131, 71.562651, 19856.715},
        VägFall{"fältets mitt till fältets mitt",
                {10.0, 55.0},
                {-70.0, -15.0},
                10735.268828,
                253.274537,
                10735.562}));

struct LokatorFall {
    const char* från;
    const char* till;
    const char* avstånd;
    const char* riktning;
    double geodet;
};

class LokatorVägTest : public testing::TestWithParam<LokatorFall> {};

TEST_P(LokatorVägTest, GerTexternaPåSkärmen) {
    const LokatorFall& fall = GetParam();
    SCOPED_TRACE(std::string(fall.från) + " to " + fall.till);
    const auto väg = RiktningAvstånd(T(fall.från), T(fall.till));
    ASSERT_TRUE(väg.has_value());
    EXPECT_EQ(AvståndText(*väg), T(fall.avstånd));
    EXPECT_EQ(RiktningText(*väg), T(fall.riktning));
    EXPECT_NEAR(väg->km, fall.geodet, fall.geodet < 19700 ? 2 : 10);
}

INSTANTIATE_TEST_SUITE_P(Referens, LokatorVägTest,
                         testing::Values(LokatorFall{"JO89XI", "JO89XI", "0 Km", "0° / 180°", 0.000},
                                         LokatorFall{"JO89XI", "JO89WI", "5 Km", "270° / 90°", 4.740},
                                         LokatorFall{"JO89XI", "JO99AI", "5 Km", "90° / 270°", 4.740},
                                         LokatorFall{"JO89XI", "JO89", "57 Km", "287° / 107°", 56.771},
                                         LokatorFall{"JO89", "JO89", "0 Km", "0° / 180°", 0.000},
                                         LokatorFall{"JO89", "JO", "655 Km", "223° / 43°", 654.807},
                                         LokatorFall{"JO89XI", "JO67BQ", "387 Km", "244° / 64°", 387.121},
                                         LokatorFall{"JO89XI", "KP25", "775 Km", "25° / 205°", 774.512},
                                         LokatorFall{"JP80", "JO65", "605 Km", "205° / 25°", 604.769},
                                         LokatorFall{"JO57XX", "JO58AA", "113 Km", "273° / 93°", 113.429},
                                         LokatorFall{"JO89XI", "IO91WM", "1431 Km", "240° / 60°", 1431.203},
                                         LokatorFall{"JO89XI", "FN20", "6401 Km", "296° / 116°", 6400.259},
                                         LokatorFall{"JO89XI", "QF56", "15546 Km", "71° / 251°", 15546.546},
                                         LokatorFall{"JO89XI", "RR99XX", "3422 Km", "0° / 180°", 3422.058},
                                         LokatorFall{"AA00AA", "RR99XX", "20000 Km", "360° / 180°",
                                                     19999.286},
                                         LokatorFall{"JJ00AA", "II99XX", "10 Km", "243° / 63°", 10.358},
                                         LokatorFall{"JA00", "JR09", "19892 Km", "0° / 180°", 19892.246},
                                         LokatorFall{"KO59", "HJ", "7926 Km", "247° / 67°", 7926.290},
                                         LokatorFall{"AR", "RA", "18904 Km", "190° / 10°", 18904.047}));

class SlumpadeVägar : public testing::Test {
protected:
    Position Plats() {
        return {.longitud = grader_(slump_) * 180, .latitud = std::asin(grader_(slump_)) * 180 / M_PI};
    }

    std::mt19937 slump_{20260101};
    std::uniform_real_distribution<double> grader_{-1, 1};
};

double Skillnad(double vinkel1, double vinkel2) { return std::abs(std::remainder(vinkel1 - vinkel2, 360)); }

TEST_F(SlumpadeVägar, ÄrLikaLångaÅtBådaHållen) {
    for (int i = 0; i < 20'000; ++i) {
        const Position ett = Plats();
        const Position två = Plats();
        EXPECT_NEAR(BeräknaVäg(ett, två).km, BeräknaVäg(två, ett).km, 1e-4);
    }
}

TEST_F(SlumpadeVägar, LiggerMellanNollOchHalvaJordensOmkrets) {
    for (int i = 0; i < 20'000; ++i) {
        const Väg väg = BeräknaVäg(Plats(), Plats());
        EXPECT_GE(väg.km, 0);
        EXPECT_LE(väg.km, 20'020);
        EXPECT_GE(väg.bäring, 0);
        EXPECT_LE(väg.bäring, 360);
    }
}

TEST_F(SlumpadeVägar, SpeglasIMeridianenOchIEkvatorn) {
    for (int i = 0; i < 20'000; ++i) {
        const Position ett = Plats();
        const Position två = Plats();
        const Väg väg = BeräknaVäg(ett, två);
        const Väg öst = BeräknaVäg({-ett.longitud, ett.latitud}, {-två.longitud, två.latitud});
        EXPECT_NEAR(väg.km, öst.km, 1e-6);
        EXPECT_LT(Skillnad(väg.bäring, -öst.bäring), 1e-6);
        const Väg söder = BeräknaVäg({ett.longitud, -ett.latitud}, {två.longitud, -två.latitud});
        EXPECT_NEAR(väg.km, söder.km, 1e-4);
        EXPECT_LT(Skillnad(väg.bäring, 180 - söder.bäring), 1e-4);
    }
}

TEST_F(SlumpadeVägar, BörjarÅtMotsattHållPåEnStorcirkelsBortreSida) {
    // Towards the antipode of the target the way starts in the opposite direction.
    for (int i = 0; i < 20'000; ++i) {
        const Position ett = Plats();
        const Position två = Plats();
        const Position antipod{två.longitud > 0 ? två.longitud - 180 : två.longitud + 180, -två.latitud};
        const Väg väg = BeräknaVäg(ett, två);
        const Väg bortåt = BeräknaVäg(ett, antipod);
        if (väg.km < 1 || bortåt.km < 1 || väg.km > 20'000 || bortåt.km > 20'000) continue;
        EXPECT_LT(Skillnad(väg.bäring, bortåt.bäring + 180), 1e-4);
    }
}

TEST_F(SlumpadeVägar, ÄrNollTillSammaPlats) {
    for (int i = 0; i < 5'000; ++i) {
        const Position plats = Plats();
        // The cosine of a vanishing angle leaves it known to some tens of centimetres.
        const Väg väg = BeräknaVäg(plats, plats);
        EXPECT_NEAR(väg.km, 0, 1e-3);
        EXPECT_EQ(väg.bäring, 0);
        EXPECT_EQ(AvståndText(väg), T("0 Km"));
    }
}

TEST(BeräknaVäg, HarIngenBäringUnderEnHalvKilometer) {
    const double gradPerKm = 180 / (M_PI * 6378.14);
    EXPECT_EQ(BeräknaVäg({0, 0}, {0.499 * gradPerKm, 0}).bäring, 0);
    EXPECT_NEAR(BeräknaVäg({0, 0}, {0.501 * gradPerKm, 0}).bäring, 90, 1e-6);
}

TEST(BeräknaVäg, HarIngenBäringVidAntipoden) {
    // Over the south pole the bearing is 180, so that 0 can be told from it; so close to the antipode it is
    // known to a fraction of a degree.
    int nära = 0;
    for (int i = 1; i <= 2000; ++i) {
        const Väg väg = BeräknaVäg({0, 0}, {180, -i * 1e-5});
        EXPECT_NEAR(väg.bäring, väg.km > 20003.5 ? 0 : 180, 0.5) << väg.km;
        nära += std::abs(väg.km - 20003.5) < 0.005;
    }
    EXPECT_GT(nära, 0);
}

TEST(BeräknaVäg, ÄrÄndligFörAllaParAvFältmittOchHörn) {
    for (int lon1 = -180; lon1 <= 180; lon1 += 45) {
        for (int lat1 = -90; lat1 <= 90; lat1 += 45) {
            for (int lon2 = -180; lon2 <= 180; lon2 += 45) {
                for (int lat2 = -90; lat2 <= 90; lat2 += 45) {
                    const Väg väg = BeräknaVäg({double(lon1), double(lat1)}, {double(lon2), double(lat2)});
                    EXPECT_TRUE(std::isfinite(väg.km) && std::isfinite(väg.bäring))
                        << lon1 << ' ' << lat1 << ' ' << lon2 << ' ' << lat2;
                }
            }
        }
    }
}

TEST(RiktningAvstånd, GerNollMellanLikaLokatorer) {
    for (const char* lokator : {"JO", "JO89", "JO89XI", "AA00AA", "RR99XX", "JJ00"}) {
        const auto väg = RiktningAvstånd(T(lokator), T(lokator));
        ASSERT_TRUE(väg.has_value());
        EXPECT_EQ(AvståndText(*väg), T("0 Km"));
        EXPECT_EQ(RiktningText(*väg), T("0° / 180°"));
    }
}

// Texts.

TEST(AvståndText, AvrundarHalvorUppåt) {
    const std::pair<double, const char*> fall[] = {{0, "0 Km"},   {0.49, "0 Km"}, {0.5, "1 Km"},
                                                   {1.5, "2 Km"}, {2.5, "3 Km"},  {511.999, "512 Km"}};
    for (const auto& [km, text] : fall) EXPECT_EQ(AvståndText({km, 0}), T(text)) << km;
}

TEST(RiktningText, VänderBäringenFöreAvrundningen) {
    const std::pair<double, const char*> fall[] = {
        {0, "0° / 180°"},       {12.4, "12° / 192°"}, {12.5, "13° / 193°"}, {179.4, "179° / 359°"},
        {179.5, "180° / 360°"}, {180, "180° / 0°"},   {270, "270° / 90°"},  {359.4, "359° / 179°"},
        {359.6, "360° / 180°"}, {180.4, "180° / 0°"}, {180.5, "181° / 1°"}};
    for (const auto& [bäring, text] : fall) EXPECT_EQ(RiktningText({0, bäring}), T(text)) << bäring;
}

TEST(LängstaQSOText, SkiljerDelarnaMedTvåBlanka) {
    EXPECT_EQ(LängstaQSOText(T("SM5ABC"), T("JO89XI"), T("512")), T("Längsta QSO : SM5ABC  JO89XI  512 Km"));
    EXPECT_EQ(LängstaQSOText(T(""), T(""), T("0")), T("Längsta QSO :     0 Km"));
}

// The target.

struct MålFall {
    const char* namn;
    const char* typ;
    const char* diplom;
    const char* land;
    std::optional<QString> mål;
};

class VäljMålTest : public testing::TestWithParam<MålFall> {};

TEST_P(VäljMålTest, TarDetSkrivnaNärDetÄrEnLokator) {
    const MålFall& fall = GetParam();
    SCOPED_TRACE(fall.namn);
    EXPECT_EQ(VäljMål(T(fall.typ), T(fall.diplom), T("GIVET"), T(fall.land)), fall.mål);
}

INSTANTIATE_TEST_SUITE_P(
    Mål, VäljMålTest,
    testing::Values(
        MålFall{"an empty exchange leaves the given target", "Lokator", "", "JO65", T("GIVET")},
        MålFall{"another kind of exchange leaves it too", "Län", "JO89", "JO65", T("GIVET")},
        MålFall{"so does no kind at all", "", "JO89XI", "JO65", T("GIVET")},
        MålFall{"the kind is compared exactly", "lokator", "JO89", "JO65", T("GIVET")},
        MålFall{"one character points at the country", "Lokator", "J", "JO65", T("JO65")},
        MålFall{"two characters point at the country", "Lokator", "JO", "KP20LI", T("KP20LI")},
        MålFall{"three characters keep their last two", "Lokator", "XJO", "JO65", T("JO")},
        MålFall{"three characters of a locator become an invalid one", "Lokator", "JO8", "JO65", T("O8")},
        MålFall{"four characters are taken whole", "Lokator", "JO89", "JO65", T("JO89")},
        MålFall{"five characters keep their last four", "Lokator", "JO89X", "JO65", T("O89X")},
        MålFall{"six characters are taken whole", "Lokator", "JO89XI", "JO65", T("JO89XI")},
        MålFall{"seven characters are given up", "Lokator", "JO89XI1", "JO65", std::nullopt},
        MålFall{"the country's locator may be a field", "Lokator", "J", "KP", T("KP")},
        MålFall{"a country's locator of one character is given up", "Lokator", "J", "K", std::nullopt},
        MålFall{"one of seven is given up too", "Lokator", "J", "KP20LI1", std::nullopt},
        MålFall{"a short exchange without a country is given up", "Lokator", "JO", "", std::nullopt}));

TEST(VäljMål, EttHalvskrivetMålAvvisasAvAvkodningen) {
    for (const char* diplom : {"JO8", "JO89X"}) {
        const auto mål = VäljMål(T("Lokator"), T(diplom), T("JO65"), T("JO65"));
        ASSERT_TRUE(mål.has_value());
        EXPECT_FALSE(RiktningAvstånd(T("JO89XI"), *mål).has_value()) << diplom;
    }
}

} // namespace
} // namespace store
