// The tool that makes the database files: what it takes, and what it must refuse.
#include "databas.h"
#include "prefixtabell.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>

namespace {

using namespace databygge;
using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::vector<std::string>> LäsAllt(const std::string& text) {
    std::istringstream in(text);
    std::vector<std::vector<std::string>> poster;
    CsvPost post;
    for (int rad = 0; LäsCsvPost(in, rad, post);) poster.push_back(post.fält);
    return poster;
}

TEST(Csv, PartsFieldsAtCommas) {
    EXPECT_THAT(LäsAllt("a,b\nc,d\n"), ElementsAre(ElementsAre("a", "b"), ElementsAre("c", "d")));
}
TEST(Csv, KeepsEmptyFieldsAtEitherEnd) {
    EXPECT_THAT(LäsAllt(",b,\n"), ElementsAre(ElementsAre("", "b", "")));
}
TEST(Csv, TakesTheLastLineWithoutItsEnd) { EXPECT_THAT(LäsAllt("a,b"), ElementsAre(ElementsAre("a", "b"))); }
TEST(Csv, TakesCarriageReturnsAtLineEnds) {
    EXPECT_THAT(LäsAllt("a,b\r\nc\r\n"), ElementsAre(ElementsAre("a", "b"), ElementsAre("c")));
}
TEST(Csv, SkipsEmptyLines) {
    EXPECT_THAT(LäsAllt("\na\n\n\r\nb\n\n"), ElementsAre(ElementsAre("a"), ElementsAre("b")));
}
TEST(Csv, GivesNothingForAnEmptyFile) { EXPECT_TRUE(LäsAllt("").empty()); }
TEST(Csv, TakesCommasQuotesAndLineEndsBetweenQuotes) {
    EXPECT_THAT(LäsAllt("\"a,b\",\"sa \"\"hej\"\"\",\"två\nrader\"\nc\n"),
                ElementsAre(ElementsAre("a,b", "sa \"hej\"", "två\nrader"), ElementsAre("c")));
}
TEST(Csv, TakesAnEmptyQuotedField) { EXPECT_THAT(LäsAllt("\"\",x\n"), ElementsAre(ElementsAre("", "x"))); }

TEST(Csv, CountsLinesThroughQuotedOnes) {
    std::istringstream in("\"a\nb\"\n\nc\n");
    int rad = 0;
    CsvPost post;
    ASSERT_TRUE(LäsCsvPost(in, rad, post));
    EXPECT_EQ(post.rad, 1);
    ASSERT_TRUE(LäsCsvPost(in, rad, post));
    EXPECT_EQ(post.rad, 4);
}

TEST(Csv, RefusesAQuoteThatIsNeverClosed) { EXPECT_THROW(LäsAllt("a,\"b\nc\n"), Byggfel); }
TEST(Csv, RefusesTextBehindAClosedQuote) { EXPECT_THROW(LäsAllt("\"a\"b,c\n"), Byggfel); }
TEST(Csv, RefusesAQuoteInsideAField) { EXPECT_THROW(LäsAllt("a\"b,c\n"), Byggfel); }

const std::string kRubrik = "Prefix,Land,DXCC,Kontinent,Tid,ITU,Zon,Kod,Lokator\n";
const std::string kSverige = "SM,Sverige,SM,EU,1,18,14,284,JO78PV\n";

/// @return what the reader says of a table with these rows, empty when it takes them
std::string Dom(const std::string& text) {
    std::istringstream in(text);
    try {
        LäsPrefixtabell(in);
    } catch (const Byggfel& fel) {
        return fel.what();
    }
    return {};
}

struct Radfall {
    std::string namn;
    std::string rader;
    std::string väntat;
};

std::ostream& operator<<(std::ostream& ut, const Radfall& fall) { return ut << fall.namn; }

class GodRad : public testing::TestWithParam<Radfall> {};
TEST_P(GodRad, IsTaken) { EXPECT_EQ(Dom(kRubrik + GetParam().rader), ""); }
INSTANTIATE_TEST_SUITE_P(
    Prefixtabell, GodRad,
    testing::Values(Radfall{"plain key", kSverige, ""},
                    Radfall{"composed key", "FT/W,Crozetöarna,FT/W,AF,5,68,39,41,LE53VN\n", ""},
                    Radfall{"quoted name", "SM,\"Sverige, hela\",SM,EU,1,18,14,284,JO78PV\n", ""},
                    Radfall{"half hour", "VU,Indien,VU,AS,5.5,41,22,324,MK82TM\n", ""},
                    Radfall{"quarter hour", "ZL7,Chathamöarna,ZL7,OC,12.75,60,32,34,AE16DD\n", ""},
                    Radfall{"less than an hour behind", "X,Land,X,AF,-0.5,1,1,1,AA00AA\n", ""},
                    Radfall{"first and last of everything", "0,Å,0,AN,-12,90,40,999,RR99XX\n", ""},
                    Radfall{"two keys of a country", "SL" + kSverige.substr(2) + kSverige, ""}));

class FelaktigRad : public testing::TestWithParam<Radfall> {};
TEST_P(FelaktigRad, IsRefused) { EXPECT_THAT(Dom(kRubrik + GetParam().rader), HasSubstr(GetParam().väntat)); }
INSTANTIATE_TEST_SUITE_P(
    Prefixtabell, FelaktigRad,
    testing::Values(
        Radfall{"key given twice", kSverige + kSverige, "finns redan"},
        Radfall{"keys out of order", kSverige + "SL" + kSverige.substr(2), "fel ordning"},
        Radfall{"no key", ",Sverige,SM,EU,1,18,14,284,JO78PV\n", "tomt fält Prefix"},
        Radfall{"no name", "SM,,SM,EU,1,18,14,284,JO78PV\n", "tomt fält Land"},
        Radfall{"no locator", "SM,Sverige,SM,EU,1,18,14,284,\n", "tomt fält Lokator"},
        Radfall{"small letters in the key", "Sm,Sverige,SM,EU,1,18,14,284,JO78PV\n", "ogiltig nyckel"},
        Radfall{"blank in the key", "SM ,Sverige,SM,EU,1,18,14,284,JO78PV\n", "ogiltig nyckel"},
        Radfall{"letter past R", "SM,Sverige,SM,EU,1,18,14,284,JS78PV\n", "ogiltig lokator"},
        Radfall{"letter past X", "SM,Sverige,SM,EU,1,18,14,284,JO78PY\n", "ogiltig lokator"},
        Radfall{"small letters in the locator", "SM,Sverige,SM,EU,1,18,14,284,JO78pv\n", "ogiltig lokator"},
        Radfall{"four characters", "SM,Sverige,SM,EU,1,18,14,284,JO78\n", "ogiltig lokator"},
        Radfall{"seven characters", "SM,Sverige,SM,EU,1,18,14,284,JO78PVA\n", "ogiltig lokator"},
        Radfall{"ITU zone 0", "SM,Sverige,SM,EU,1,0,14,284,JO78PV\n", "ogiltig ITU-zon"},
        Radfall{"ITU zone 91", "SM,Sverige,SM,EU,1,91,14,284,JO78PV\n", "ogiltig ITU-zon"},
        Radfall{"CQ zone 41", "SM,Sverige,SM,EU,1,18,41,284,JO78PV\n", "ogiltig CQ-zon"},
        Radfall{"zone with a zero in front", "SM,Sverige,SM,EU,1,18,014,284,JO78PV\n", "ogiltig CQ-zon"},
        Radfall{"number that is none", "SM,Sverige,SM,EU,1,18,14,284A,JO78PV\n", "ogiltig kod"},
        Radfall{"unknown continent", "SM,Sverige,SM,XX,1,18,14,284,JO78PV\n", "okänd kontinent"},
        Radfall{"time past the date line", "SM,Sverige,SM,EU,15,18,14,284,JO78PV\n", "ogiltig tid"},
        Radfall{"decimal comma", "SM,Sverige,SM,EU,\"5,5\",18,14,284,JO78PV\n", "ogiltig tid"},
        Radfall{"two names of a country", kSverige + "SN,Svea,SM,EU,1,18,14,284,JO78PV\n", "går isär"},
        Radfall{"two numbers of a country", kSverige + "SN,Sverige,SM,EU,1,18,14,285,JO78PV\n", "går isär"},
        Radfall{"eight fields", "SM,Sverige,SM,EU,1,18,14,284\n", "fel antal fält"},
        Radfall{"ten fields", "SM,Sverige,SM,EU,1,18,14,284,JO78PV,\n", "fel antal fält"},
        Radfall{"no rows", "", "tabellen är tom"}));

TEST(Prefixtabell, RefusesAnotherHeading) {
    EXPECT_THAT(Dom("Prefix,Land\n" + kSverige), HasSubstr("fel rubrik"));
    EXPECT_THAT(Dom(""), HasSubstr("fel rubrik"));
}

TEST(Prefixtabell, NamesTheLineThatIsWrong) {
    EXPECT_THAT(Dom(kRubrik + kSverige + kSverige), HasSubstr("rad 3:"));
}

TEST(Prefixtabell, GivesEachCountryOnceByItsShortForm) {
    std::istringstream in(kRubrik + "OH,Finland,OH,EU,2,18,15,224,KP32XX\nSL" + kSverige.substr(2) +
                          kSverige);
    EXPECT_THAT(Länder(LäsPrefixtabell(in)), ElementsAre(Land{"OH", "224"}, Land{"SM", "284"}));
}

class Databasbygge : public testing::Test {
protected:
    void SetUp() override {
        mapp_ = std::filesystem::path(testing::TempDir()) /
                (std::string("sorvik_databygge_") +
                 testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(mapp_);
        std::filesystem::create_directories(mapp_);
        std::ofstream(mapp_ / "t.sql")
            << "CREATE TABLE T (\"A\" TEXT, \"B \" TEXT, \"C\" TEXT); CREATE UNIQUE INDEX I ON T (A);";
    }
    void TearDown() override { std::filesystem::remove_all(mapp_); }

    std::string Bytes(const std::string& namn) const {
        std::ifstream in(mapp_ / namn, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    void Bygg(const std::string& namn, const std::vector<std::vector<std::string>>& rader) const {
        Databas databas(mapp_ / namn);
        databas.Kör(mapp_ / "t.sql");
        databas.Lägg("T", rader);
        databas.Klar();
    }

    std::filesystem::path mapp_;
};

TEST_F(Databasbygge, GivesTheSameBytesFromTheSameSources) {
    Bygg("ett", {{"1", "å"}, {"2"}});
    Bygg("två", {{"1", "å"}, {"2"}});
    EXPECT_GT(Bytes("ett").size(), 0U);
    EXPECT_EQ(Bytes("ett"), Bytes("två"));
}

TEST_F(Databasbygge, RefusesASecondRowForAKeyAndLeavesNoFile) {
    EXPECT_THROW(Bygg("fil", {{"1"}, {"1"}}), Byggfel);
    EXPECT_FALSE(std::filesystem::exists(mapp_ / "fil"));
    EXPECT_FALSE(std::filesystem::exists(mapp_ / "fil.del"));
}

TEST_F(Databasbygge, KeepsTheOlderFileWhenTheNewOneFails) {
    Bygg("fil", {{"1"}});
    const auto förut = Bytes("fil");
    EXPECT_THROW(Bygg("fil", {{"1"}, {"1"}}), Byggfel);
    EXPECT_EQ(Bytes("fil"), förut);
}

TEST_F(Databasbygge, RefusesSqlThatIsWrong) {
    std::ofstream(mapp_ / "fel.sql") << "CREATE TABEL T (A TEXT);";
    Databas databas(mapp_ / "fil");
    EXPECT_THROW(databas.Kör(mapp_ / "fel.sql"), Byggfel);
    EXPECT_THROW(databas.Kör(mapp_ / "finns_inte.sql"), Byggfel);
}

TEST_F(Databasbygge, RefusesAPlaceThatDoesNotExist) {
    EXPECT_THROW(Databas(mapp_ / "ingen" / "fil"), Byggfel);
}

} // namespace
