// How the running text of a cluster is taken apart, step by step.
#include "cluster/Spottolk.h"
#include "support/ToPrint.h"

#include <gtest/gtest.h>

#include <vector>

using cluster::Annons;
using cluster::Arbetstext;
using cluster::DelaNotering;
using cluster::FormaFrekvens;
using cluster::Notering;
using cluster::VisbarText;

namespace {

/// What one announcement yields: spotter, frequency, call, comment, and whether it had a line end.
struct Spott {
    QString spotter, frekvens, signal, notering;
    bool radslut = true;
    bool operator==(const Spott&) const = default;
};

void PrintTo(const Spott& s, std::ostream* ut) {
    *ut << '[' << s.spotter.toStdString() << "] [" << s.frekvens.toStdString() << "] ["
        << s.signal.toStdString() << "] [" << s.notering.toStdString() << "] " << s.radslut;
}

/// All announcements of a text, none of them a repeat.
std::vector<Spott> Läs(const QString& text) {
    Arbetstext arbete(text);
    std::vector<Spott> spottar;
    Annons annons;
    while (arbete.LäsHuvud(annons)) {
        const bool radslut = arbete.LäsNotering(annons);
        spottar.push_back({annons.spotter, annons.frekvens, annons.signal, annons.notering, radslut});
    }
    return spottar;
}

QString Rad(const char* text) { return QString::fromUtf8(text) + QStringLiteral("\r\n"); }

using Spottar = std::vector<Spott>;

} // namespace

// ---- one line -----------------------------------------------------------------------------------------

TEST(Spottolk, TakesATidyLineApart) {
    EXPECT_EQ(Läs(Rad("DX de XX9AA:   14025.5  XX9BB   big signal                  1234Z")),
              (Spottar{{"XX9AA", "14,025,50", "XX9BB", "big signal                  1234Z"}}));
}

TEST(Spottolk, FindsSmallAndMixedLettersAsWell) {
    EXPECT_EQ(Läs(Rad("dx de rx7k:  7154.0 rk7r cq 1650z")),
              (Spottar{{"rx7k", "7,154,00", "rk7r", "cq 1650z"}}));
    EXPECT_EQ(Läs(Rad("Dx De RX7K:  7154.0 RK7R cq")).size(), 1u);
}

TEST(Spottolk, SkipsWhatStandsInFrontOfAnAnnouncement) {
    EXPECT_EQ(Läs(Rad("XX9AA de XX9BB-1 21-Nov-2026 1333Z   CCC >DX de XX9CC: 7005.0 XX9DD x")),
              (Spottar{{"XX9CC", "7,005,00", "XX9DD", "x"}}));
}

TEST(Spottolk, NeedsNoBlankAfterTheColon) {
    EXPECT_EQ(Läs(Rad("DX de EA8/XX4UE-#:21149.0  XX9ATQ/B    CW  9 dB 10 WPM BEACON         1117Z")),
              (Spottar{{"EA8/XX4UE-#", "21,149,00", "XX9ATQ/B", "CW  9 dB 10 WPM BEACON         1117Z"}}));
}

TEST(Spottolk, KeepsABlankInsideTheSpotter) {
    EXPECT_EQ(Läs(Rad("DX de  XX9AA :   7005.0 XX9BB x"))[0].spotter, "XX9AA");
    EXPECT_EQ(Läs(Rad("DX de XX9AA via XX9CC: 7005.0 XX9BB x"))[0].spotter, "XX9AA via XX9CC");
}

TEST(Spottolk, OfALineWithoutAColonTheFirstTwoWordsCount) {
    // Nothing is cut off in front of them, so they are the words of the announcement itself.
    EXPECT_EQ(Läs(Rad("DX de 9K2/XX2SES  14205.0  XX9BB  x")),
              (Spottar{{"", "DX", "de", "9K2/XX2SES  14205.0  XX9BB  x"}}));
    EXPECT_EQ(Läs(Rad("Hej alla\r\nDX de XX2SES  14205.0  XX9BB  x")),
              (Spottar{{"", "Hej", "alla\r\nDX", "de XX2SES  14205.0  XX9BB  x"}}));
}

TEST(Spottolk, AColonFurtherOnEndsTheSpotterWhereverItStands) {
    EXPECT_EQ(Läs(Rad("DX de XX2SES  14205.0  XX9BB  x") + Rad("DX de XX9AA: 7005.0 XX9CC y")),
              (Spottar{{"XX2SES  14205.0  XX9BB  x\r\nDX de XX9AA", "7,005,00", "XX9CC", "y"}}));
}

TEST(Spottolk, ALineCutAfterTheSpotterHasNeitherFrequencyNorCall) {
    EXPECT_EQ(Läs("DX de XX9AA:"), (Spottar{{"XX9AA", "", "", "", false}}));
    EXPECT_EQ(Läs("DX de XX9AA:   14025.5"), (Spottar{{"XX9AA", "", "", "", false}}));
}

TEST(Spottolk, ALineCutInsideTheCallHasNoCall) {
    EXPECT_EQ(Läs("DX de XX9AA:   14025.5  XX9B"), (Spottar{{"XX9AA", "14,025,50", "", "", false}}));
}

TEST(Spottolk, ALineCutInTheCommentHasNoComment) {
    EXPECT_EQ(Läs("DX de XX9AA:   14025.5  XX9BB   big si"),
              (Spottar{{"XX9AA", "14,025,50", "XX9BB", "", false}}));
    EXPECT_EQ(Läs("DX de XX9AA:   14025.5  XX9BB   big signal 1234Z\r"),
              (Spottar{{"XX9AA", "14,025,50", "XX9BB", "", false}}))
        << "a carriage return alone is no line end";
}

TEST(Spottolk, ACallAtTheLineEndTakesTheNextLineAlong) {
    EXPECT_EQ(Läs(Rad("DX de XX9AA: 7005.0 XX9BB")), (Spottar{{"XX9AA", "7,005,00", "", "XX9BB"}}))
        << "with no blank behind it, it is no call";
    EXPECT_EQ(Läs(Rad("DX de XX9AA: 7005.0 XX9BB") + Rad("DX de XX9CC: 7006.0 XX9DD y")),
              (Spottar{{"XX9AA", "7,005,00", "XX9BB\r\nDX", "de XX9CC: 7006.0 XX9DD y"}}));
}

TEST(Spottolk, ALineFeedAloneIsNoLineEnd) {
    EXPECT_EQ(
        Läs("DX de XX9AA: 7005.0 XX9BB x 1234Z\nDX de XX9CC: 7006.0 XX9DD y 1234Z\n"),
        (Spottar{{"XX9AA", "7,005,00", "XX9BB", "", false}, {"XX9CC", "7,006,00", "XX9DD", "", false}}));
}

TEST(Spottolk, ATabIsNoBlank) {
    EXPECT_EQ(Läs(Rad("DX de XX9AA:\t7005.0 XX9BB x"))[0].frekvens, "\t7,005,00");
}

TEST(Spottolk, AFrequencyThatIsNoneIsTakenAsItStands) {
    EXPECT_EQ(Läs(Rad("DX de XX9AA: FREKVENS XX9BB x")), (Spottar{{"XX9AA", "FREKVENS", "XX9BB", "x"}}));
}

TEST(Spottolk, AnEmptyCommentIsEmpty) {
    EXPECT_EQ(Läs(Rad("DX de XX9AA: 7005.0 XX9BB ")), (Spottar{{"XX9AA", "7,005,00", "XX9BB", ""}}));
}

// ---- several lines ------------------------------------------------------------------------------------

TEST(Spottolk, TakesLineAfterLine) {
    EXPECT_EQ(Läs(Rad("DX de XX9AA: 7005.0 XX9BB x") + Rad("WWV de XX9ZZ <18>: SFI=90, A=5") +
                  Rad("DX de XX9CC: 14005.0 XX9DD y")),
              (Spottar{{"XX9AA", "7,005,00", "XX9BB", "x"}, {"XX9CC", "14,005,00", "XX9DD", "y"}}));
}

TEST(Spottolk, AnAnnouncementThatIsLeftBehindHasItsCommentLookedThrough) {
    // A repeat is not read to its line end, so what its comment holds can be an announcement of its own.
    Arbetstext arbete(Rad("DX de XX9AA: 7005.0 XX9BB heard dx de XX9CC: 7006.0 XX9DD y"));
    Annons annons;
    ASSERT_TRUE(arbete.LäsHuvud(annons));
    ASSERT_TRUE(arbete.LäsHuvud(annons));
    EXPECT_EQ(annons.spotter, "XX9CC");
    EXPECT_EQ(annons.signal, "XX9DD");
    EXPECT_TRUE(arbete.LäsNotering(annons));
    EXPECT_EQ(annons.notering, "y");
    EXPECT_FALSE(arbete.LäsHuvud(annons));
}

TEST(Spottolk, OneThatIsReadToItsEndTakesItsCommentAlong) {
    EXPECT_EQ(Läs(Rad("DX de XX9AA: 7005.0 XX9BB heard dx de XX9CC: 7006.0 XX9DD y")).size(), 1u);
}

TEST(Spottolk, NothingIsFoundInOtherText) {
    for (const char* text :
         {"", "\r\n", "login: ", "To ALL de XX9AA: hello", "DXde XX9AA: 1 2 3", "dx  de XX9AA:"})
        EXPECT_TRUE(Läs(QString::fromUtf8(text)).empty()) << text;
}

TEST(Spottolk, WorksOffTheWholeTextAndComesToAnEnd) {
    Arbetstext arbete(Rad("DX de XX9AA: 7005.0 XX9BB x"));
    Annons annons;
    ASSERT_TRUE(arbete.LäsHuvud(annons));
    ASSERT_TRUE(arbete.LäsNotering(annons));
    EXPECT_TRUE(arbete.Kvar().isEmpty());
    // Words of the announcement that are found again and again, with no colon to cut them off.
    EXPECT_LE(Läs(QStringLiteral("dx de ").repeated(1000)).size(), 1000u);
    EXPECT_LE(Läs(QStringLiteral("dx de:").repeated(1000)).size(), 1000u);
}

TEST(Spottolk, TakesControlCharactersAsTheyCome) {
    const QString text = QStringLiteral("\a\aDX de XX9AA: 7005.0 XX") + QChar(u'\0') +
                         QStringLiteral("9BB cq 1650z kn75\a\a\r\n");
    const auto spottar = Läs(text);
    ASSERT_EQ(spottar.size(), 1u);
    EXPECT_EQ(spottar[0].signal, QStringLiteral("XX") + QChar(u'\0') + QStringLiteral("9BB"));
    EXPECT_EQ(spottar[0].notering, "cq 1650z kn75\a\a");
}

// ---- lines as different clusters send them ------------------------------------------------------------

struct Klusterrad {
    const char* namn;
    const char* rad;
    const char *spotter, *frekvens, *signal, *notering, *tid;
};

void PrintTo(const Klusterrad& rad, std::ostream* ut) { *ut << rad.namn; }

class Klusterrader : public ::testing::TestWithParam<Klusterrad> {};

TEST_P(Klusterrader, YieldWhatTheirColumnsHold) {
    const Klusterrad& fall = GetParam();
    const auto spottar = Läs(Rad(fall.rad));
    ASSERT_EQ(spottar.size(), 1u);
    EXPECT_EQ(spottar[0].spotter, fall.spotter);
    EXPECT_EQ(spottar[0].frekvens, fall.frekvens);
    EXPECT_EQ(spottar[0].signal, fall.signal);
    const Notering delad = DelaNotering(spottar[0].notering);
    EXPECT_EQ(delad.text, fall.notering);
    EXPECT_EQ(delad.tid, fall.tid);
}

INSTANTIATE_TEST_SUITE_P(
    Fall, Klusterrader,
    ::testing::Values(
        // Nothing but the time is less than seven characters, so it stays as the comment.
        Klusterrad{"WithATimeAlone",
                   "DX de XX5AM:      7170.5  XX79Q                                        1117Z", "XX5AM",
                   "7,170,50", "XX79Q", "1117Z", ""},
        // The time's first digits go with the comment: only seven characters are the time.
        Klusterrad{"WithALocatorBehindTheTime",
                   "DX de XX7K:       7154.0  XX7R         cq          1650Z KN75", "XX7K", "7,154,00",
                   "XX7R", "cq          165", "0Z KN75"},
        Klusterrad{"WithBellsBehindTheTime", "DX de XX1SMX:    14090.0  XX9NT        tks  73'      1650Z\a\a",
                   "XX1SMX", "14,090,00", "XX9NT", "tks  73'", "1650Z\a\a"},
        // Two decimals make the frequency one digit longer, so it is read ten times too high.
        Klusterrad{"SkimmerWithTwoDecimals",
                   "DX de XX3CB-#:   7018.20  XX1W           CW    10 dB  18 WPM  CQ  2259Z", "XX3CB-#",
                   "70,182,00", "XX1W", "CW    10 dB  18 WPM  CQ", "  2259Z"},
        Klusterrad{"SkimmerWithZonesBehindTheTime",
                   "DX de XX8DGY-#:     7018.3 XX1W         CW  23dB Q:9* Z:20  16 2259Z 14", "XX8DGY-#",
                   "7,018,30", "XX1W", "CW  23dB Q:9* Z:20  16 2", "259Z 14"},
        Klusterrad{"WithoutDecimals", "DX de XX9AA:   14025  XX9BB   x                  1234Z", "XX9AA",
                   "1,402,50", "XX9BB", "x", "  1234Z"},
        Klusterrad{"OnTwoMetres", "DX de XX9AA:  144300.0  XX9BB   JO65<TR>JO89         1234Z", "XX9AA",
                   "144,300,00", "XX9BB", "JO65<TR>JO89", "  1234Z"},
        Klusterrad{"OnMicrowaves", "DX de XX9AA: 1296100.0  XX9BB   x        1234Z", "XX9AA", "12961000",
                   "XX9BB", "x", "  1234Z"}),
    [](const auto& fall) { return std::string(fall.param.namn); });

// ---- pieces -------------------------------------------------------------------------------------------

TEST(Spottfrekvens, IsShapedByItsNumberOfDigits) {
    EXPECT_EQ(FormaFrekvens("7022.5"), "7,022,50");
    EXPECT_EQ(FormaFrekvens("14025"), "1,402,50") << "without a decimal it is read ten times too low";
    EXPECT_EQ(FormaFrekvens("14025.5"), "14,025,50");
    EXPECT_EQ(FormaFrekvens("144300.0"), "144,300,00");
    EXPECT_EQ(FormaFrekvens("1.2.3.4.5"), "1,234,50") << "every point goes";
}

TEST(Spottfrekvens, KeepsADecimalCommaAsACharacter) { EXPECT_EQ(FormaFrekvens("14025,5"), "140,25,,50"); }

TEST(Spottfrekvens, OfAnotherLengthStaysBare) {
    EXPECT_EQ(FormaFrekvens(""), "");
    EXPECT_EQ(FormaFrekvens("472.5"), "4725");
    EXPECT_EQ(FormaFrekvens("1296100.0"), "12961000");
    EXPECT_EQ(FormaFrekvens("."), "");
}

TEST(Spottnotering, LosesItsLastSevenCharactersToTheTime) {
    EXPECT_EQ(DelaNotering("big signal                  1234Z"), (Notering{"big signal", "  1234Z"}));
    EXPECT_EQ(DelaNotering("1234567"), (Notering{"", "1234567"}));
}

TEST(Spottnotering, ThatIsShorterStaysWhole) {
    EXPECT_EQ(DelaNotering("1234Z "), (Notering{"1234Z ", ""}));
    EXPECT_EQ(DelaNotering(""), (Notering{"", ""}));
}

TEST(Spottupprepning, IsLookedForByCallDayFrequencyAndMinute) {
    EXPECT_EQ(cluster::UpprepningsFilter("XX9BB", "2026-12-01", "14,025,50", "19:00:31"),
              "Signal = 'XX9BB' AND Datum = '2026-12-01' AND Frekvens = '14,025,50' AND Tid LIKE '19:00*'");
}

TEST(VisbarText, KeepsWhatAnOperatorReads) {
    EXPECT_EQ(VisbarText("Hej på dig\r\n\tXX9AA å\r\n"), "Hej på dig\n\tXX9AA å\n");
}

TEST(VisbarText, DropsBellsNulsAndOtherControlCharacters) {
    const QString text =
        QStringLiteral("a\a\ab") + QChar(u'\0') + QStringLiteral("c\x1b[2Jd\x7f") + QChar(0x9b);
    EXPECT_EQ(VisbarText(text), "abc[2Jd");
}

TEST(VisbarText, DropsTheCommandsOfTheTelnetProtocol) {
    const auto byte = [](std::initializer_list<int> koder) {
        QString text;
        for (const int kod : koder) text += QChar(kod);
        return text;
    };
    EXPECT_EQ(VisbarText("a" + byte({0xff, 0xfb, 0x01}) + "b" + byte({0xff, 0xfd, 0x18, 0xff, 0xf9}) + "c"),
              "abc");
    EXPECT_EQ(VisbarText("a" + byte({0xff, 0xfa, 0x18, 0x01, 0xff, 0xf0}) + "b"), "ab") << "a subnegotiation";
    EXPECT_EQ(VisbarText("a" + byte({0xff, 0xfb})), "a") << "cut off at the end of a read";
    EXPECT_EQ(VisbarText("a" + byte({0xff, 0xfa, 0x18}) + "b"), "ab") << "one that is never ended";
    EXPECT_EQ(VisbarText(byte({0xff}) + "abc"), byte({0xff}) + "abc")
        << "the letter, with no command behind it";
}
