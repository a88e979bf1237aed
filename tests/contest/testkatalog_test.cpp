#include "contest/TestKatalog.h"
#include "support/ToPrint.h"

#include <QSet>
#include <QStringList>

namespace contest {
namespace {

using Katalogtest = contest::Test; // inside a test body the bare name is GoogleTest's

const Katalogtest& Nr(int nummer) {
    const Katalogtest* test = HämtaTest(nummer);
    if (!test) throw std::out_of_range("no such contest");
    return *test;
}

QString Poster(Namnlista lista) {
    QStringList texter;
    for (const QStringView post : lista) texter.append(post.toString());
    return texter.join(u'|');
}

/// The text of an optional, "-" where the set-up leaves things as they are.
QString Text(const std::optional<QStringView>& text) { return text ? text->toString() : T("-"); }
QString Text(const std::optional<bool>& på) { return !på ? T("-") : *på ? T("on") : T("off"); }

// The catalogue, a row a contest.

struct Katalograd {
    int nummer;
    const char* radText;
    const char* titel;
    Familj familj;
    const char* trafiksätt;
    bool trafiksättLåst;
    const char* band;
    bool bandLåst;
    const char* rst;
    const char* löpnrFormat;
};

class KatalogTest : public testing::TestWithParam<Katalograd> {};

TEST_P(KatalogTest, HarSinRad) {
    const Katalograd& rad = GetParam();
    SCOPED_TRACE(rad.radText);
    const Katalogtest& test = Nr(rad.nummer);
    EXPECT_EQ(test.nummer, rad.nummer);
    EXPECT_EQ(test.radText.toString(), T(rad.radText));
    EXPECT_EQ(test.titel.toString(), T(rad.titel));
    EXPECT_EQ(test.familj, rad.familj);
    EXPECT_EQ(Poster(test.trafiksätt.poster), T(rad.trafiksätt));
    EXPECT_EQ(test.trafiksätt.låst, rad.trafiksättLåst);
    EXPECT_EQ(Poster(test.band.poster), T(rad.band));
    EXPECT_EQ(test.band.låst, rad.bandLåst);
    EXPECT_EQ(Text(test.rst), T(rad.rst));
    EXPECT_EQ(Text(test.löpnrFormat), T(rad.löpnrFormat));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Tester, KatalogTest,
    testing::Values(
        Katalograd{0, "NAC Test 70 CM", "NAC 70 CM", Familj::NacVhf, "CW|SSB", false, "70 CM", true, "-", "-"},
        Katalograd{1, "NAC Test 2 M", "NAC 2 M", Familj::NacVhf, "CW|SSB|FT8", false, "2 M", true, "-", "-"},
        Katalograd{2, "NAC Test 6 M", "NAC 6 M", Familj::NacVhf, "CW|SSB|FT8", false, "6 M", true, "-", "-"},
        Katalograd{3, "NAC Test 10 M (CW)", "NAC Test 10 M (CW)", Familj::Nac10m, "CW", true, "10 M", true, "599", "-"},
        Katalograd{4, "NAC Test 10 M (SSB)", "NAC Test 10 M (SSB)", Familj::Nac10m, "SSB", true, "10 M", true, "59", "-"},
        Katalograd{5, "NAC Test 10 M (FM)", "NAC Test 10 M (FM)", Familj::Nac10m, "FM", true, "10 M", true, "59", "-"},
        Katalograd{6, "NAC Test 10 M (RTTY)", "NAC Test 10 M (Digi)", Familj::Nac10m, "RTTY", true, "10 M", true, "599", "-"},
        Katalograd{7, "Månads Test (CW)", "Månads Test KV (MT CW)", Familj::Månadstest, "CW", true, "80 M|40 M", false, "599", "01"},
        Katalograd{8, "Månads Test (SSB)", "Månads Test KV (MT SSB)", Familj::Månadstest, "SSB", true, "80 M|40 M", false, "59", "01"},
        Katalograd{9, "SAC Contest (CW)", "SAC Contest (CW)", Familj::Sac, "CW", true, "80 M|40 M|20 M|15 M|10 M", false, "599", "001"},
        Katalograd{10, "SAC Contest (SSB)", "SAC Contest (SSB)", Familj::Sac, "SSB", true, "80 M|40 M|20 M|15 M|10 M", false, "59", "001"},
        Katalograd{11, "Kvartal Test", "Kvartal Test", Familj::Ingen, "CW|SSB", false, "80 M|40 M", false, "-", "-"},
        Katalograd{12, "Baltic Test (CW)", "NRAU Baltic Contest (CW)", Familj::Ingen, "CW", true, "80 M|40 M", false, "599", "001"},
        Katalograd{13, "Baltic Test (SSB)", "NRAU Baltic Contest (SSB)", Familj::Ingen, "SSB", true, "80 M|40 M", false, "59", "001"},
        Katalograd{14, "VUS CHRISTMAS CONTEST", "VUS CHRISTMAS CONTEST", Familj::Vus, "CW|SSB", false, "2 M|70 CM|24 CM", false, "-", "001"}));
// clang-format on

// The labels and the exchange field.

struct Fältrad {
    QList<int> nummer;
    const char* lblTyp;
    const char* lblMultipelText;
    const char* lblDiplomText;
    bool egenLokator;
    const char* txtZONM;
    bool txtDiplom;
    const char* cmbDiplom;
    const char* längstaQSO;
};

class FältTest : public testing::TestWithParam<Fältrad> {};

TEST_P(FältTest, HarSinaRubrikerOchSittUtbyte) {
    const Fältrad& rad = GetParam();
    for (const int nummer : rad.nummer) {
        SCOPED_TRACE(nummer);
        const Katalogtest& test = Nr(nummer);
        EXPECT_EQ(Text(test.lblTyp), T(rad.lblTyp));
        EXPECT_EQ(Text(test.lblMultipelText), T(rad.lblMultipelText));
        EXPECT_EQ(Text(test.lblDiplomText), T(rad.lblDiplomText));
        EXPECT_EQ(test.egenLokator, rad.egenLokator);
        EXPECT_EQ(Text(test.txtZONMTabb), T(rad.txtZONM));
        EXPECT_EQ(test.txtDiplomTabb, rad.txtDiplom);
        EXPECT_EQ(Text(test.cmbDiplomPå), T(rad.cmbDiplom));
        EXPECT_EQ(Text(test.lblLängstaQSOSynlig), T(rad.längstaQSO));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Grupper, FältTest,
    testing::Values(
        Fältrad{{0, 1, 2, 11, 14}, "Lokator", "Rut Poäng", "Antal Rutor", true, "off", true, "on", "on"},
        Fältrad{{3, 4, 5, 6}, "Lokator", "Rut Poäng", "Antal Rutor", true, "-", true, "on", "-"},
        Fältrad{{7, 8}, "Lokator", "Multiplar", "Rutor", true, "-", true, "on", "-"},
        Fältrad{{9, 10}, "", "Multiplar", "Prefix / Band", false, "off", false, "-", "-"},
        Fältrad{{12, 13}, "Län", "-", "-", false, "-", true, "on", "-"}));

// Everything that holds for some numbers and not for others.

using Fråga = bool (*)(const Katalogtest&);

struct Numren {
    const char* namn;
    Fråga fråga;
    QSet<int> gäller;
};

class NummerTest : public testing::TestWithParam<Numren> {};

TEST_P(NummerTest, GällerDessaTesterOchIngaAndra) {
    const Numren& fall = GetParam();
    SCOPED_TRACE(fall.namn);
    for (int nummer = -1; nummer <= antalTest; ++nummer) {
        EXPECT_EQ(fall.fråga(TestFör(nummer)), fall.gäller.contains(nummer)) << nummer;
    }
}

bool HarKolumn(const Katalogtest& test, int nummer, QStringView rubrik) {
    return test.loggKolumn && test.loggKolumn->nummer == nummer && test.loggKolumn->rubrik == rubrik;
}

INSTANTIATE_TEST_SUITE_P(
    Frågor, NummerTest,
    testing::Values(
        Numren{
            "serial fields", [](const Katalogtest& rad) { return rad.löpnrPå; }, {7, 8, 9, 10, 12, 13, 14}},
        Numren{"a serial format",
               [](const Katalogtest& rad) { return rad.löpnrFormat.has_value(); },
               {7, 8, 9, 10, 12, 13, 14}},
        Numren{"the points of a square",
               [](const Katalogtest& rad) { return rad.rutPoäng == u"500"; },
               {0, 1, 2, 3, 4, 5, 6, 11, 14}},
        Numren{"the points of a kilometre",
               [](const Katalogtest& rad) { return rad.kmPoäng == u"1"; },
               {0, 1, 2, 3, 4, 5, 6, 11, 14}},
        Numren{"square points left as they were",
               [](const Katalogtest& rad) { return !rad.rutPoäng && !rad.kmPoäng; },
               {-1, 7, 8, 9, 10, 12, 13, 15}},
        Numren{"the locator column",
               [](const Katalogtest& rad) { return HarKolumn(rad, 8, u"Lokator"); },
               {0, 1, 2, 3, 4, 5, 6, 7, 8}},
        Numren{"the prefix column",
               [](const Katalogtest& rad) { return HarKolumn(rad, 11, u"Prefix / Band"); },
               {9, 10}},
        Numren{"no column at all",
               [](const Katalogtest& rad) { return !rad.loggKolumn; },
               {-1, 11, 12, 13, 14, 15}},
        Numren{
            "the log laid out for prefixes", [](const Katalogtest& rad) { return rad.prefixLogg; }, {9, 10}},
        Numren{"room for the modem", [](const Katalogtest& rad) { return rad.dgLoggHöjd == 3855; }, {6}},
        Numren{"the full height",
               [](const Katalogtest& rad) { return rad.dgLoggHöjd == 6825; },
               {-1, 0, 1, 2, 3, 4, 5, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
        Numren{"the digital menu", [](const Katalogtest& rad) { return rad.meny == MenyVal::Digital; }, {6}},
        Numren{"the CW menu", [](const Katalogtest& rad) { return rad.meny == MenyVal::Cw; }, {3, 7, 9}},
        Numren{
            "new countries", [](const Katalogtest& rad) { return rad.kollaDXCC; }, {0, 1, 2, 3, 4, 5, 7, 8}},
        Numren{"new call areas", [](const Katalogtest& rad) { return rad.kollaDistrikt; }, {3, 4, 5}},
        Numren{"known locators",
               [](const Katalogtest& rad) { return rad.kollaLokator; },
               {0, 1, 2, 3, 4, 5, 6, 7, 8, 14}},
        Numren{"the way to a typed locator",
               [](const Katalogtest& rad) { return rad.diplomVisarVäg; },
               {0, 1, 2, 3, 4, 5, 6}},
        Numren{"padding of a received serial", [](const Katalogtest& rad) { return rad.fyllLöpnrM; }, {7, 8}},
        Numren{"longest contact and locator memory",
               [](const Katalogtest& rad) { return rad.sparaLokator; },
               {0, 1, 2, 3, 4, 5, 6, 7, 8}},
        Numren{"the stored longest contact",
               [](const Katalogtest& rad) { return rad.visaLängstaQSO; },
               {0, 1, 2, 3, 4, 5, 6}},
        Numren{"the date rule",
               [](const Katalogtest& rad) { return rad.kollaTestDatum; },
               {0, 1, 2, 3, 4, 5, 6}},
        Numren{"inherited points", [](const Katalogtest& rad) { return rad.ärverTvåPoäng; }, {3, 4, 5}},
        Numren{"a duplicate anywhere in the log",
               [](const Katalogtest& rad) { return rad.dubblett.helaLoggen; },
               {0, 1, 2, 3, 4, 5}},
        Numren{"a duplicate on the same band",
               [](const Katalogtest& rad) { return rad.dubblett.sammaBand; },
               {-1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
        Numren{"no Nordic stations", [](const Katalogtest& rad) { return rad.dubblett.ejNordiska; }, {9, 10}},
        Numren{"a saver",
               [](const Katalogtest& rad) { return rad.sparare.has_value(); },
               {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14}},
        Numren{"a counter",
               [](const Katalogtest& rad) { return rad.poäng != store::PoängRegel::Ingen; },
               {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 14}}));

TEST(TestKatalog, HarSammaRegelIFamiljen) {
    for (int nummer = 0; nummer < antalTest; ++nummer) {
        EXPECT_EQ(Nr(nummer).sparare, store::SparareFör(nummer)) << nummer;
        EXPECT_EQ(Nr(nummer).poäng, store::PoängRegelFör(nummer)) << nummer;
        EXPECT_EQ(Nr(nummer).familj == Familj::Ingen, !Nr(nummer).sparare.has_value()) << nummer;
    }
}

// Tab orders.

TEST(Tabbföljd, SänderFörstDenSomRopar) {
    for (const int nummer : {3, 4, 5}) {
        EXPECT_EQ(Poster(Nr(nummer).tabbföljd1), T("txtSignal|txtRSTS|txtRSTM|txtLöpnrM|txtDiplom"));
        EXPECT_EQ(Poster(Nr(nummer).tabbföljd2), T("txtSignal|txtRSTM|txtLöpnrM|txtDiplom|txtRSTS"));
    }
    for (const int nummer : {0, 1, 2}) {
        EXPECT_EQ(Poster(Nr(nummer).tabbföljd1), T("txtSignal|txtRSTS|txtRSTM|txtDiplom"));
        EXPECT_EQ(Poster(Nr(nummer).tabbföljd2), T("txtSignal|txtRSTM|txtDiplom|txtRSTS"));
    }
}

TEST(Tabbföljd, ÄndrasIMånadstestBaraFörDenSomSvarar) {
    for (const int nummer : {7, 8}) {
        EXPECT_TRUE(Nr(nummer).tabbföljd1.empty());
        EXPECT_EQ(Poster(Nr(nummer).tabbföljd2), T("txtSignal|txtRSTM|txtLöpnrM|txtDiplom|txtRSTS"));
    }
}

TEST(Tabbföljd, ÄndrasInteIAndraTester) {
    for (const int nummer : {6, 9, 10, 11, 12, 13, 14}) {
        EXPECT_TRUE(Nr(nummer).tabbföljd1.empty()) << nummer;
        EXPECT_TRUE(Nr(nummer).tabbföljd2.empty()) << nummer;
    }
}

// Lookup.

TEST(HämtaTest, GerIngentingUtanförKatalogen) {
    for (const int nummer : {-32768, -1, 15, 16, 17, 41, 42, ingenTest, 32767}) {
        EXPECT_EQ(HämtaTest(nummer), nullptr) << nummer;
    }
    for (int nummer = 0; nummer < antalTest; ++nummer) EXPECT_EQ(HämtaTest(nummer), &TestFör(nummer));
}

TEST(TestFör, GerEnRadUtanFamiljUtanförKatalogen) {
    for (const int nummer : {-1, 15, 41, ingenTest}) {
        const Katalogtest& test = TestFör(nummer);
        EXPECT_EQ(test.nummer, -1);
        EXPECT_EQ(test.familj, Familj::Ingen);
        EXPECT_TRUE(test.trafiksätt.poster.empty());
        EXPECT_TRUE(test.band.poster.empty());
        EXPECT_TRUE(test.trafiksätt.första().isEmpty());
        EXPECT_FALSE(test.sparare.has_value());
    }
}

TEST(ListVal, VisarSinFörstaPost) {
    EXPECT_EQ(Nr(14).band.första(), u"2 M");
    EXPECT_EQ(Nr(7).band.första(), u"80 M");
    EXPECT_EQ(Nr(6).trafiksätt.första(), u"RTTY");
}

TEST(ListVal, HarEnPostNärDenÄrLåst) {
    for (int nummer = 0; nummer < antalTest; ++nummer) {
        for (const ListVal& val : {Nr(nummer).trafiksätt, Nr(nummer).band}) {
            EXPECT_EQ(val.låst, val.poster.size() == 1) << nummer;
        }
    }
}

TEST(ÄrStatTest, GällerFyrtioettOchFyrtiotvå) {
    for (int nummer = -1; nummer <= 255; ++nummer) {
        EXPECT_EQ(ÄrStatTest(nummer), nummer == 41 || nummer == 42) << nummer;
    }
}

} // namespace
} // namespace contest
