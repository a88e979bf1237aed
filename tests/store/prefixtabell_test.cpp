// The files of the run-time tree as the build makes them: the shape of every table, what a new file starts
// with, and the country reference.
#include "csv.h"
#include "databas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Rader = std::vector<std::vector<std::string>>;

const std::filesystem::path kData = SORVIK_DATA;

/// Every row of a query as text; NULL is shown as "<null>", for no column may hold one.
Rader Fråga(const std::filesystem::path& fil, const std::string& sql) {
    sqlite3* öppnad = nullptr;
    const int svar = sqlite3_open_v2(fil.c_str(), &öppnad, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> db(öppnad, sqlite3_close);
    if (svar != SQLITE_OK) throw std::runtime_error(fil.string() + " kan inte öppnas");
    sqlite3_stmt* sats = nullptr;
    if (sqlite3_prepare_v2(db.get(), sql.c_str(), -1, &sats, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(db.get()));
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> vakt(sats, sqlite3_finalize);
    Rader rader;
    while (sqlite3_step(sats) == SQLITE_ROW) {
        auto& rad = rader.emplace_back();
        for (int i = 0; i < sqlite3_column_count(sats); ++i) {
            const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(sats, i));
            rad.emplace_back(text == nullptr ? "<null>" : text);
        }
    }
    return rader;
}

Rader Prefix(const std::string& sql) { return Fråga(kData / "Data.Dat", sql); }

std::vector<std::string> Första(const Rader& rader) {
    std::vector<std::string> kolumn;
    for (const auto& rad : rader) kolumn.push_back(rad.front());
    return kolumn;
}

/// A file made anew from its template, in a folder of the test's own: what lies in the tree may have been
/// used by the program since it was built.
class NyFil {
public:
    explicit NyFil(const std::string& mall)
        : fil_(std::filesystem::path(testing::TempDir()) / (mall + ".sorvik_prov")) {
        databygge::Databas databas(fil_);
        databas.Kör(std::filesystem::path(SORVIK_MALLAR) / mall);
        databas.Klar();
    }
    ~NyFil() {
        std::error_code ignorerat;
        std::filesystem::remove(fil_, ignorerat);
    }
    NyFil(const NyFil&) = delete;
    NyFil& operator=(const NyFil&) = delete;
    const std::filesystem::path& Fil() const { return fil_; }

private:
    std::filesystem::path fil_;
};

// ---- the shape of the tables ------------------------------------------------------------------------------

struct Tabellfall {
    std::string fil;
    std::string tabell;
    std::vector<std::string> kolumner;
};

std::ostream& operator<<(std::ostream& ut, const Tabellfall& fall) {
    return ut << fall.fil << " " << fall.tabell;
}

const std::vector<std::string> kTestqso{
    "Datum TEXT",    "Tid TEXT",      "Signal TEXT",    "Frekvens TEXT", "Trafiksätt TEXT", "Band  TEXT",
    "Sänt TEXT",     "Mottaget TEXT", "Multiplar TEXT", "LöpNr TEXT",    "Namn TEXT",       "QTH TEXT",
    "ITU TEXT",      "Zon TEXT",      "Diplom TEXT",    "DXCC TEXT",     "Land TEXT",       "Notering TEXT",
    "Prefix TEXT",   "DXCC Nr TEXT",  "Poäng INTEGER",  "Distrikt TEXT", "NDXCC TEXT",      "NRUTA TEXT",
    "Dubblett TEXT", "Rutor TEXT",    "LöpNrSR TEXT"};
const std::vector<std::string> kTestdxcc{
    "DXCC TEXT", "Kod TEXT",  "160 M TEXT", "80 M TEXT",  "40 M TEXT", "30 M TEXT",  "20 M TEXT", "17 M TEXT",
    "15 M TEXT", "12 M TEXT", "10 M TEXT",  "6 M TEXT",   "2 M TEXT",  "70 CM TEXT", "CW TEXT",   "SSB TEXT",
    "AM TEXT",   "FM TEXT",   "RTTY TEXT",  "PSK31 TEXT", "PSK TEXT",  "SSTV TEXT"};
const std::vector<std::string> kInfo{"Aktuellt_Test SMALLINT", "LöpNr INTEGER",         "AktivTid TEXT",
                                     "ViloTid TEXT",           "LängstaQSOSträng TEXT", "QSOLängd INTEGER"};
const std::vector<std::string> kPrefix{"Prefix TEXT", "Land TEXT", "DXCC TEXT", "Kontinent TEXT", "Tid TEXT",
                                       "ITU TEXT",    "Zon TEXT",  "Kod TEXT",  "Lokator TEXT"};
const std::vector<std::string> kSpott{"Datum TEXT",    "Tid TEXT",    "Signal TEXT",
                                      "Frekvens TEXT", "DXBand TEXT", "Trafiksätt TEXT",
                                      "Notering TEXT", "Prefix TEXT", "Spott Tid TEXT"};
const std::vector<std::string> kSvdini{
    "EgenSignal TEXT", "OpSignal TEXT",      "OpNamn TEXT",        "OpAdress TEXT",    "OpPostnr TEXT",
    "OpPostadr TEXT",  "OpEmail TEXT",       "OpLand TEXT",        "OpITU TEXT",       "OpZon TEXT",
    "OpPrefix TEXT",   "OpTestLokator TEXT", "OpUTCTid TEXT",      "OpRig TEXT",       "OpAntenn TEXT",
    "OpHöjdHav TEXT",  "OpHöjdLand TEXT",    "OpKlubbSignal TEXT", "OpTestDatum TEXT", "OpEffekt TEXT",
    "OpEpost TEXT",    "OpEdit TEXT"};
const std::vector<std::string> kLokator{"Signal TEXT", "Lokator TEXT"};
const std::vector<std::string> kFriend{"Signal TEXT", "Namn TEXT"};

class Tabell : public testing::TestWithParam<Tabellfall> {};

TEST_P(Tabell, HasExactlyTheseColumnsInThisOrder) {
    const auto& fall = GetParam();
    const auto kolumner = Fråga(kData / fall.fil, "SELECT name || ' ' || type FROM pragma_table_info('" +
                                                      fall.tabell + "') ORDER BY cid");
    EXPECT_EQ(Första(kolumner), fall.kolumner);
}

INSTANTIATE_TEST_SUITE_P(
    Filer, Tabell,
    testing::Values(Tabellfall{"SVK", "TESTQSO", kTestqso}, Tabellfall{"SVK", "TESTDXCC", kTestdxcc},
                    Tabellfall{"SVK", "INFO", kInfo}, Tabellfall{"Data.Dat", "Prefix", kPrefix},
                    Tabellfall{"DXSpott.Dat", "DXSpottLogg", kSpott},
                    Tabellfall{"DXS", "DXSpottLogg", kSpott}, Tabellfall{"SVD.Dat", "SVDINI", kSvdini},
                    Tabellfall{"Lokator.dat", "Lokator", kLokator},
                    Tabellfall{"Lokator.hdb", "Lokator", kLokator},
                    Tabellfall{"Friend.dat", "Friend", kFriend},
                    Tabellfall{"Friend.hdb", "Friend", kFriend}));

struct Filfall {
    std::string fil;
    std::vector<std::string> objekt;
};

std::ostream& operator<<(std::ostream& ut, const Filfall& fall) { return ut << fall.fil; }

class Databasfil : public testing::TestWithParam<Filfall> {};

TEST_P(Databasfil, IsSoundAndHoldsNothingButItsTables) {
    const auto& fall = GetParam();
    EXPECT_EQ(Första(Fråga(kData / fall.fil, "PRAGMA integrity_check")), std::vector<std::string>{"ok"});
    EXPECT_EQ(Första(Fråga(kData / fall.fil, "SELECT type || ' ' || name FROM sqlite_master ORDER BY 1")),
              fall.objekt);
}

// A log on a shared drive must not be in WAL mode: that needs memory shared by the machines.
TEST_P(Databasfil, KeepsARollbackJournal) {
    EXPECT_NE(Första(Fråga(kData / GetParam().fil, "PRAGMA journal_mode")), std::vector<std::string>{"wal"});
}

INSTANTIATE_TEST_SUITE_P(
    Filer, Databasfil,
    testing::Values(Filfall{"SVK", {"table INFO", "table TESTDXCC", "table TESTQSO"}},
                    Filfall{"Data.Dat", {"index PrefixNyckel", "table Prefix"}},
                    Filfall{"DXSpott.Dat", {"table DXSpottLogg"}}, Filfall{"DXS", {"table DXSpottLogg"}},
                    Filfall{"SVD.Dat", {"table SVDINI"}}, Filfall{"Lokator.dat", {"table Lokator"}},
                    Filfall{"Lokator.hdb", {"table Lokator"}}, Filfall{"Friend.dat", {"table Friend"}},
                    Filfall{"Friend.hdb", {"table Friend"}}));

// ---- what a new file starts with --------------------------------------------------------------------------

TEST(Mallar, NewLogStartsAtSerialOneWithStoppedClocks) {
    EXPECT_THAT(Fråga(kData / "SVK", "SELECT * FROM INFO"),
                ElementsAre(ElementsAre("0", "1", "00:00:00", "00:00:00", "", "0")));
    EXPECT_THAT(Fråga(kData / "SVK", "SELECT * FROM TESTQSO"), IsEmpty());
}

TEST(Mallar, NewStationIsSwedishAndOtherwiseBlank) {
    const NyFil svd("SVD.sql");
    const auto rader =
        Fråga(svd.Fil(), "SELECT OpUTCTid, OpEpost, OpEdit, OpHöjdHav, OpHöjdLand, OpITU, OpZon FROM SVDINI");
    EXPECT_THAT(rader, ElementsAre(ElementsAre("-1", "", "", "0", "0", "18", "14")));
    std::vector<std::string> satta;
    const auto alla = Fråga(svd.Fil(), "SELECT * FROM SVDINI");
    for (const auto& värde : alla.at(0)) {
        if (!värde.empty()) satta.push_back(värde);
    }
    EXPECT_THAT(satta, ElementsAre("18", "14", "-1", "0", "0"));
}

TEST(Mallar, StoresStartEmpty) {
    EXPECT_THAT(Fråga(kData / "DXS", "SELECT * FROM DXSpottLogg"), IsEmpty());
    EXPECT_THAT(Fråga(kData / "Lokator.hdb", "SELECT * FROM Lokator"), IsEmpty());
    EXPECT_THAT(Fråga(kData / "Friend.hdb", "SELECT * FROM Friend"), IsEmpty());
}

TEST(Mallar, CountryStatusHasOneBlankRowACountry) {
    const auto svk = kData / "SVK";
    const auto länder = Prefix("SELECT DISTINCT DXCC, Kod FROM Prefix ORDER BY DXCC");
    EXPECT_EQ(Fråga(svk, "SELECT DXCC, Kod FROM TESTDXCC ORDER BY DXCC"), länder);
    for (auto kolumn = kTestdxcc.begin() + 2; kolumn != kTestdxcc.end(); ++kolumn) {
        const auto namn = kolumn->substr(0, kolumn->rfind(' '));
        EXPECT_THAT(Fråga(svk, "SELECT * FROM TESTDXCC WHERE \"" + namn + "\" IS NOT ''"), IsEmpty()) << namn;
    }
}

TEST(Mallar, TreeHasEveryFolder) {
    for (const auto* mapp : {"Loggar", "Rapport", "INI", "FT8", "Ljud/Test", "Macrofiler/CW",
                             "Macrofiler/Digital", "DX Telnet", "DX Telenet", "Bilder"}) {
        EXPECT_TRUE(std::filesystem::is_directory(kData / mapp)) << mapp;
    }
}

// ---- the country reference --------------------------------------------------------------------------------

TEST(Prefixtabell, HasEachKeyOnceInPlainCapitals) {
    EXPECT_THAT(Prefix("SELECT Prefix FROM Prefix GROUP BY Prefix COLLATE NOCASE HAVING count(*) > 1"),
                IsEmpty());
    EXPECT_THAT(Prefix("SELECT Prefix FROM Prefix WHERE Prefix GLOB '*[^A-Z0-9/]*' OR Prefix = ''"),
                IsEmpty());
}

TEST(Prefixtabell, HasNoEmptyField) {
    for (const auto& kolumn : kPrefix) {
        const auto namn = kolumn.substr(0, kolumn.find(' '));
        EXPECT_THAT(Prefix("SELECT Prefix FROM Prefix WHERE ifnull(" + namn + ", '') = ''"), IsEmpty())
            << namn;
    }
}

TEST(Prefixtabell, HasZonesThatExist) {
    EXPECT_THAT(Prefix("SELECT Prefix FROM Prefix WHERE Zon <> CAST(CAST(Zon AS INTEGER) AS TEXT) "
                       "OR CAST(Zon AS INTEGER) NOT BETWEEN 1 AND 40"),
                IsEmpty());
    EXPECT_THAT(Prefix("SELECT Prefix FROM Prefix WHERE ITU <> CAST(CAST(ITU AS INTEGER) AS TEXT) "
                       "OR CAST(ITU AS INTEGER) NOT BETWEEN 1 AND 90"),
                IsEmpty());
}

TEST(Prefixtabell, HasValidLocators) {
    EXPECT_THAT(Prefix("SELECT Prefix FROM Prefix WHERE Lokator NOT GLOB '[A-R][A-R][0-9][0-9][A-X][A-X]'"),
                IsEmpty());
}

TEST(Prefixtabell, HasOneShortFormOneNumberAndOneNameACountry) {
    for (const auto* kolumn : {"Kod", "DXCC", "Land"}) {
        EXPECT_EQ(Prefix(std::string("SELECT count(DISTINCT ") + kolumn + ") FROM Prefix").at(0).at(0), "340")
            << kolumn;
    }
    EXPECT_EQ(Prefix("SELECT count(*) FROM (SELECT DISTINCT Kod, DXCC, Land FROM Prefix)").at(0).at(0),
              "340");
}

TEST(Prefixtabell, WritesTheNordicCountriesInTheFormTheRulesCompare) {
    const auto norden = Prefix("SELECT DISTINCT DXCC, Land, Kontinent FROM Prefix WHERE Prefix IN "
                               "('OX','OJ0','JX','JW','OH','OH0','TF','OZ','LA','SM','OY') ORDER BY DXCC");
    EXPECT_THAT(norden, ElementsAre(ElementsAre("JW", "Svalbard", "EU"), ElementsAre("JX", "Jan Mayen", "EU"),
                                    ElementsAre("LA", "Norge", "EU"), ElementsAre("OH", "Finland", "EU"),
                                    ElementsAre("OH0", "Åland", "EU"), ElementsAre("OJ0", "Märket", "EU"),
                                    ElementsAre("OX", "Grönland", "NA"), ElementsAre("OY", "Färöarna", "EU"),
                                    ElementsAre("OZ", "Danmark", "EU"), ElementsAre("SM", "Sverige", "EU"),
                                    ElementsAre("TF", "Island", "EU")));
}

TEST(Prefixtabell, HasAKeyWithEachDigitForEverySwedishPrefix) {
    for (const auto* par :
         {"7S", "8S", "SA", "SB", "SC", "SD", "SE", "SF", "SG", "SH", "SI", "SJ", "SK", "SL", "SM"}) {
        EXPECT_EQ(Prefix(std::string("SELECT DXCC FROM Prefix WHERE Prefix = '") + par + "'"),
                  (Rader{{"SM"}}))
            << par;
        const auto siffror =
            Prefix(std::string("SELECT substr(Prefix, 3) FROM Prefix WHERE DXCC = 'SM' AND Prefix GLOB '") +
                   par + "[0-9]' ORDER BY 1");
        EXPECT_THAT(Första(siffror), ElementsAre("0", "1", "2", "3", "4", "5", "6", "7", "8", "9")) << par;
    }
}

TEST(Prefixtabell, PutsEachSwedishDistrictInItsOwnSquare) {
    const auto lokatorer =
        Prefix("SELECT substr(Lokator, 1, 4) FROM Prefix WHERE Prefix GLOB 'SM[0-7]' ORDER BY Prefix");
    EXPECT_THAT(Första(lokatorer),
                ElementsAre("JO99", "JO97", "JP95", "JP72", "JP70", "JO89", "JO68", "JO76"));
}

TEST(Prefixtabell, TellsTheSouthernLandsByTheLetterBehindTheDigit) {
    const auto rader =
        Prefix("SELECT Prefix, DXCC FROM Prefix WHERE Prefix = 'FT' OR Prefix GLOB 'FT/?' ORDER BY 1");
    EXPECT_THAT(rader,
                ElementsAre(ElementsAre("FT", "F"), ElementsAre("FT/E", "FT/J"), ElementsAre("FT/G", "FT/G"),
                            ElementsAre("FT/J", "FT/J"), ElementsAre("FT/T", "FT/T"),
                            ElementsAre("FT/W", "FT/W"), ElementsAre("FT/X", "FT/X"),
                            ElementsAre("FT/Y", "CE9"), ElementsAre("FT/Z", "FT/Z")));
    EXPECT_THAT(Prefix("SELECT Prefix FROM Prefix WHERE Prefix GLOB 'FT[0-9][A-Z]'"), IsEmpty());
}

// A key with a digit would win over the letters alone, and the composed key behind them would never be tried.
TEST(Prefixtabell, LetsNoDigitKeyHideAComposedOne) {
    const auto nycklar = Första(Prefix("SELECT Prefix FROM Prefix"));
    const std::set<std::string> alla(nycklar.begin(), nycklar.end());
    int sammansatta = 0;
    for (const auto& nyckel : nycklar) {
        if (nyckel.size() != 4 || nyckel[2] != '/') continue;
        ++sammansatta;
        EXPECT_TRUE(alla.contains(nyckel.substr(0, 2))) << nyckel;
        for (char siffra = '0'; siffra <= '9'; ++siffra)
            EXPECT_FALSE(alla.contains(nyckel.substr(0, 2) + siffra)) << nyckel;
    }
    EXPECT_GT(sammansatta, 8);
}

TEST(Prefixtabell, GuardsTheLongerCallsBehindAWholeCall) {
    EXPECT_EQ(Prefix("SELECT DXCC FROM Prefix WHERE Prefix = 'KG4WV'"), (Rader{{"KG4"}}));
    EXPECT_EQ(Prefix("SELECT count(*) FROM Prefix WHERE Prefix GLOB 'KG4WV[A-Z]' AND DXCC = 'K'"),
              (Rader{{"26"}}));
}

// ---- the list of calls ------------------------------------------------------------------------------------

TEST(Anropslista, HoldsWellFormedCallsOfCountriesTheTableKnows) {
    std::ifstream in(SORVIK_ANROP, std::ios::binary);
    ASSERT_TRUE(in.is_open());
    int rad = 0;
    databygge::CsvPost post;
    ASSERT_TRUE(databygge::LäsCsvPost(in, rad, post));
    EXPECT_THAT(post.fält, ElementsAre("Anrop", "DXCC", "Zon", "ITU"));
    std::set<std::string> anrop;
    std::set<std::string> länder;
    while (databygge::LäsCsvPost(in, rad, post)) {
        ASSERT_EQ(post.fält.size(), 4U) << "rad " << post.rad;
        EXPECT_TRUE(anrop.insert(post.fält[0]).second) << post.fält[0];
        if (!post.fält[1].empty()) länder.insert(post.fält[1]);
    }
    EXPECT_GE(anrop.size(), 330U);
    std::set<std::string> kända;
    for (const auto& kod : Första(Prefix("SELECT DISTINCT DXCC FROM Prefix"))) kända.insert(kod);
    for (const auto& land : länder) EXPECT_TRUE(kända.contains(land)) << land;
}

} // namespace
