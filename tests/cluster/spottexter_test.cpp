// The operator's own texts about spots, and the two files that belong to the cluster.
#include "cluster/DXSite.h"
#include "cluster/Spottext.h"
#include "cluster/Spottförval.h"
#include "platform/failure.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace cluster;

// ---- a spot to send -----------------------------------------------------------------------------------

TEST(SpottRad, GivesTheFrequencyInKilohertzWithOneDecimal) {
    EXPECT_EQ(SpottRad("14,025,50", "XX9BB", "big signal"), "DX 14025.5 XX9BB big signal");
    EXPECT_EQ(SpottRad("144,300,00", "XX9BB", "x"), "DX 144300.0 XX9BB x");
    EXPECT_EQ(SpottRad("7,022,50", "XX9BB", "x"), "DX 7022.5 XX9BB x");
}

TEST(SpottRad, KeepsATrailingBlankWhenTheNoteIsEmpty) {
    EXPECT_EQ(SpottRad("14,025,50", "XX9BB", ""), "DX 14025.5 XX9BB ");
}

TEST(SpottRad, OfAShortFrequencyStartsWithThePoint) {
    EXPECT_EQ(SpottRad("5", "XX9BB", "x"), "DX . XX9BB x");
    EXPECT_EQ(SpottRad("14", "XX9BB", "x"), "DX .1 XX9BB x");
    EXPECT_EQ(SpottRad(",", "XX9BB", "x"), "DX . XX9BB x");
}

TEST(SpottRad, TakesAFrequencyWithoutCommasAsItIs) {
    EXPECT_EQ(SpottRad("1402550", "XX9BB", "x"), "DX 14025.5 XX9BB x");
}

// ---- a search -----------------------------------------------------------------------------------------

TEST(Spottsökning, AsksForTheWordInSixColumns) {
    EXPECT_EQ(SökFilter("SM5ABC"),
              "Datum = 'SM5ABC' OR Tid = 'SM5ABC' OR Signal = 'SM5ABC' OR Frekvens = 'SM5ABC' OR "
              "Notering = 'SM5ABC' OR [Spott Tid] = 'SM5ABC'");
}

TEST(Spottsökning, WithAStarAsksForItsBeginning) {
    EXPECT_EQ(SökFilter("SM*"),
              "Datum LIKE 'SM*' OR Tid LIKE 'SM*' OR Signal LIKE 'SM*' OR Frekvens LIKE 'SM*' OR "
              "Notering LIKE 'SM*' OR [Spott Tid] LIKE 'SM*'");
}

// ---- the presets' file --------------------------------------------------------------------------------

namespace {
const QString förvald = QStringLiteral("#TRUE#\r\n").repeated(9) + "#FALSE#\r\n1.wav\r\n" +
                        QStringLiteral("#TRUE#\r\n").repeated(7);
} // namespace

TEST(Spottförval, HasEverythingOnAndTheFirstSoundOffAtFirst) {
    EXPECT_EQ(FörvalTillText({}), förvald);
    EXPECT_EQ(FörvalFrånText(förvald), Spottförval{});
}

TEST(Spottförval, HasALineForEachValueInOrder) {
    for (int rad = 0; rad < 18; ++rad) {
        QStringList rader = förvald.split("\r\n");
        rader[rad] = rad == 9 ? "#TRUE#" : rad == 10 ? "7.wav" : "#FALSE#";
        const Spottförval läst = FörvalFrånText(rader.join("\r\n"));
        Spottförval väntat;
        if (rad < 9) väntat.SpotBandVal[rad + 1] = false;
        if (rad == 9) väntat.SpotLjudPå = true;
        if (rad == 10) väntat.SpotLjudFil = "7.wav";
        if (rad > 10) väntat.SpotTrafikVal[rad - 10] = false;
        EXPECT_EQ(läst, väntat) << rad;
        EXPECT_EQ(FörvalTillText(läst), rader.join("\r\n")) << rad;
    }
}

TEST(Spottförval, ThatIsCutOrHoldsSomethingElseFails) {
    EXPECT_THROW(FörvalFrånText(""), platform::Failure);
    EXPECT_THROW(FörvalFrånText(förvald.left(förvald.size() - 8)), platform::Failure)
        << "the last line is missing";
    EXPECT_THROW(FörvalFrånText(QString(förvald).replace(0, 6, "ja")), platform::Failure);
}

// ---- a site's file ------------------------------------------------------------------------------------

TEST(DXSite, HasFourLinesWithTheTextsInQuotes) {
    const DXSite site{.namn = "Klustret, norra", .adress = "kluster.example", .port = 7300, .servertyp = 1};
    EXPECT_EQ(SiteTillText(site), "\"Klustret, norra\"\r\n\"kluster.example\"\r\n7300\r\n 1 \r\n");
    EXPECT_EQ(SiteFrånText(SiteTillText(site)), site);
}

TEST(DXSite, IsReadItemByItem) {
    EXPECT_EQ(SiteFrånText("namn,adress,23,0\n"),
              (DXSite{.namn = "namn", .adress = "adress", .port = 23, .servertyp = 0}));
}

TEST(DXSite, ThatIsCutOrHasNoNumbersFails) {
    EXPECT_THROW(SiteFrånText(""), platform::Failure);
    EXPECT_THROW(SiteFrånText("\"a\"\r\n\"b\"\r\n7300\r\n"), platform::Failure);
    EXPECT_THROW(SiteFrånText("\"a\"\r\n\"b\"\r\nport\r\n 0 \r\n"), platform::Failure);
    EXPECT_THROW(SiteFrånText("\"a\"\r\n\"b\"\r\n99999999999\r\n 0 \r\n"), platform::Failure);
}

TEST(DXSite, HasItsExtensionOnce) {
    EXPECT_EQ(SiteFilnamn("hub"), "hub.dxt");
    EXPECT_EQ(SiteFilnamn("hub.dxt"), "hub.dxt");
    EXPECT_EQ(SiteFilnamn("hub.dx"), "hub.dx.dxt");
}

TEST(DXSite, StaysInItsFolder) { EXPECT_EQ(SiteFilnamn("../INI/hub"), ".._INI_hub.dxt"); }
