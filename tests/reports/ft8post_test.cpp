// One ADIF record as the FT8 program sends it.
#include "platform/failure.h"
#include "reports/FT8Post.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

using namespace reports;

namespace {

const QString record = QStringLiteral(
    "<call:5>XX9AA <gridsquare:6>jo65mr <mode:3>FT8 <rst_sent:3>-10 <rst_rcvd:3>+03 <qso_date:8>20261201 "
    "<time_on:6>191500 <qso_date_off:8>20261201 <time_off:6>191600 <band:3>20m <freq:9>14.075500 "
    "<station_callsign:5>XX9ZZ <my_gridsquare:6>JO89XI <comment:25>FT8  Sent: -10  Rcvd: +03 <eor>");

std::optional<QString> Tagg(const QString& text, const char* tagg, int siffror) {
    return LäsTagg(text, QLatin1String(tagg), siffror);
}

} // namespace

// ---- the five readers ---------------------------------------------------------------------------------

TEST(FT8Post, ARecordHasAValueForEveryField) {
    EXPECT_EQ(LäsFT8Signal(record), "XX9AA");
    EXPECT_EQ(LäsFT8Frekvens(record), "14.075500");
    EXPECT_EQ(LäsFT8Mottaget(record), "+03");
    EXPECT_EQ(LäsFT8Sänt(record), "-10");
    EXPECT_EQ(LäsFT8Lokator(record), "JO65MR");
}

TEST(FT8Post, TagsInCapitalsAreReadLikeOnesInSmallLetters) {
    const QString stor = record.toUpper();
    EXPECT_EQ(LäsFT8Signal(stor), "XX9AA");
    EXPECT_EQ(LäsFT8Frekvens(stor), "14.075500");
    EXPECT_EQ(LäsFT8Mottaget(stor), "+03");
    EXPECT_EQ(LäsFT8Sänt(stor), "-10");
    EXPECT_EQ(LäsFT8Lokator(stor), "JO65MR");
}

TEST(FT8Post, TheCallStandsAsItWasSent) { EXPECT_EQ(LäsFT8Signal("<call:7>xx9aa/p<eor>"), "xx9aa/p"); }

TEST(FT8Post, LocatorComesBeforeLokatorBeforeGridsquare) {
    const QString grid = "<gridsquare:4>AA11", lokator = "<lokator:4>BB22", locator = "<locator:4>cc33";
    EXPECT_EQ(LäsFT8Lokator(grid + locator), "CC33");
    EXPECT_EQ(LäsFT8Lokator(grid + lokator), "BB22");
    EXPECT_EQ(LäsFT8Lokator(grid + lokator + locator), "CC33");
    EXPECT_EQ(LäsFT8Lokator(grid), "AA11");
    EXPECT_EQ(LäsFT8Lokator("<my_gridsquare:4>AA11"), std::nullopt) << "the own one is another tag";
}

TEST(FT8Post, AnEmptyLocatorCountsForMoreThanAGridSquare) {
    EXPECT_EQ(LäsFT8Lokator("<gridsquare:4>AA11<locator:0>"), "");
}

TEST(FT8Post, AMissingTagGivesNothing) {
    const QString text = "<call:4>XX9A<eor>";
    EXPECT_EQ(LäsFT8Signal(text), "XX9A");
    for (const auto läs : {LäsFT8Frekvens, LäsFT8Mottaget, LäsFT8Sänt, LäsFT8Lokator})
        EXPECT_EQ(läs(text), std::nullopt);
    EXPECT_EQ(LäsFT8Signal(""), std::nullopt);
}

TEST(FT8Post, TheFirstOfTwoTagsCounts) {
    EXPECT_EQ(LäsFT8Signal(record + "<call:5>XX9BB"), "XX9AA");
    EXPECT_EQ(LäsFT8Signal("<call:5>XX9AA <comment:13><call:5>XX9BB <eor>"), "XX9AA");
    EXPECT_EQ(LäsFT8Signal("<comment:13><call:5>XX9BB <call:5>XX9AA <eor>"), "XX9BB")
        << "a tag is a tag, in a comment too";
}

TEST(FT8Post, FourAndSixCharactersOfALocatorAreRead) {
    EXPECT_EQ(LäsFT8Lokator("<gridsquare:4>JO65 <mode"), "JO65");
    EXPECT_EQ(LäsFT8Lokator("<gridsquare:6>JO65mr <mode"), "JO65MR");
}

// ---- one tag ------------------------------------------------------------------------------------------

TEST(FT8Post, ALengthOfNoughtEmptiesTheField) {
    EXPECT_EQ(Tagg("<rst_sent:0> <rst", "<rst_sent:", 1), "");
    EXPECT_EQ(Tagg("<gridsquare:0> <mode", "<gridsquare:", 2), "");
}

TEST(FT8Post, AReportWithATwoDigitLengthIsNotRead) {
    EXPECT_EQ(Tagg("<rst_sent:10>0123456789", "<rst_sent:", 1), std::nullopt);
    EXPECT_EQ(LäsFT8Mottaget("<rst_rcvd:03>-10"), std::nullopt);
    EXPECT_EQ(Tagg("<rst_sent:3", "<rst_sent:", 1), std::nullopt) << "nor one that is cut off";
}

TEST(FT8Post, TheLengthIsReadDigitByDigitUpToItsLimit) {
    EXPECT_EQ(Tagg("<call:12>XX9AABBCCDDE", "<call:", 3), "XX9AABBCCDDE");
    EXPECT_EQ(Tagg("<call:005>XX9AABB", "<call:", 3), "XX9AA");
    EXPECT_EQ(Tagg("<call:255>" + QString(300, 'X'), "<call:", 3), QString(255, 'X'));
    EXPECT_EQ(Tagg("<freq:12x14.0755001234", "<freq:", 2), "14.075500123")
        << "behind the last digit all is a bracket";
    EXPECT_EQ(Tagg("<freq:013>", "<freq:", 2), ">") << "the third digit too";
}

TEST(FT8Post, AValueThatIsShorterThanItsLengthIsWhatThereIs) {
    EXPECT_EQ(Tagg("<call:9>XX", "<call:", 3), "XX");
    EXPECT_EQ(Tagg("<call:9>", "<call:", 3), "");
    EXPECT_EQ(Tagg("<freq:10", "<freq:", 2), "");
}

TEST(FT8Post, AValueGoesOnOverWhatLooksLikeATag) {
    EXPECT_EQ(Tagg("<call:12>XX9AA<mode:3>FT8", "<call:", 3), "XX9AA<mode:3");
}

TEST(FT8Post, ALengthThatIsNoNumberOrTooLargeIsAFailure) {
    for (const char* text : {"<call:", "<call:>XX", "<call:x>XX", "<call:1x>XX", "<call:->XX", "<call:-1>XX",
                             "<call: 4>XX9A", "<call:2", "<call:256>X", "<call:999>X"})
        EXPECT_THROW(Tagg(text, "<call:", 3), platform::Failure) << text;
    EXPECT_THROW(LäsFT8Sänt("<rst_sent:x>-10"), platform::Failure);
    EXPECT_THROW(LäsFT8Signal(QString("<call:%1>XX").arg(QChar(0x0665))), platform::Failure)
        << "an Arabic five";
}

// ---- the lines of the file ----------------------------------------------------------------------------

TEST(FT8Post, LinesAreJoinedWithNothingBetweenThemUpToTheEndOfTheRecord) {
    EXPECT_EQ(FT8Text("<call:5>XX\r\n9AA\r\n<eor>\r\n<call:5>XX9BB\r\n"), "<call:5>XX9AA<eor>");
    EXPECT_EQ(FT8Text("ett <EoR> mer\r\ntvå"), "ett <EoR> mer") << "the rest of that line belongs to it";
    EXPECT_EQ(FT8Text("\"<call:5>XX9AA\"\r\n\r\n"), "\"<call:5>XX9AA\"")
        << "with no end, the file is the end";
    EXPECT_EQ(FT8Text("<eo\r\nr>\r\nmer"), "<eor>mer") << "an end across two lines is none";
    EXPECT_EQ(FT8Text(""), "");
}

TEST(FT8Post, ARecordWithAHeaderIsReadLikeOneWithout) {
    const QString text = FT8Text("\"\n<adif_ver:5>3.1.0\n<programid:6>XXXX-X\n<EOH>\n" + record + "\"\r\n");
    EXPECT_EQ(LäsFT8Signal(text), "XX9AA");
    EXPECT_EQ(LäsFT8Lokator(text), "JO65MR");
}
