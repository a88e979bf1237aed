#include "recordset_fixture.h"

namespace platform::testing {
namespace {

/// A table with the awkward names and contents, its rows told apart by the column N.
class FilterTest : public LogFile {
protected:
    void SetUp() override {
        LogFile::SetUp();
        runSql(path_, R"(
            CREATE TABLE T (N INTEGER, Signal TEXT, "Band " TEXT, "DXCC Nr" TEXT, "Trafiksätt" TEXT, "Poäng" INTEGER,
                            "2" TEXT, "Or" TEXT, "4Q" TEXT);
            INSERT INTO T VALUES (1,'SM5ABC','2 M','284','CW',2,'x','y','z'),
                                 (2,'sm5abc','70 CM','284','SSB',10,'','',''),
                                 (3,'ÅLAND','2 M','05','cw',2,'','',''),
                                 (4,'åland','','5','FM',2.5,'','',''),
                                 (5,NULL,NULL,NULL,NULL,NULL,NULL,NULL,NULL),
                                 (6,'','6 M','','CW',-1,'','',''),
                                 (7,'SM5ABCD','2 M','x5','RTTY','text','','',''),
                                 (8,'5*','2 M','5.0','%',100,'','','');)");
        rows_.Open("T", connection_);
    }

    /// The numbers of the rows that the filter shows, joined by commas.
    QString shown(const QString& filter) {
        rows_.Filter(filter);
        EXPECT_EQ(rows_.Filter(), filter);
        return column(rows_, QStringLiteral("N")).join(u',');
    }

    Recordset rows_;
};

struct Accepted {
    const char* name;
    const char* filter;
    const char* shown;
};
void PrintTo(const Accepted& accepted, std::ostream* out) { *out << accepted.filter; }
class AcceptedFilter : public FilterTest, public ::testing::WithParamInterface<Accepted> {};

TEST_P(AcceptedFilter, ShowsTheRowsThatMeetIt) {
    EXPECT_EQ(shown(QString::fromUtf8(GetParam().filter)), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Filters, AcceptedFilter,
    ::testing::Values(
        Accepted{"EqualityIgnoresCase", "Signal = 'Sm5Abc'", "1,2"},
        Accepted{"EqualityIgnoresCaseOfSwedishLetters", "Signal = 'ÅlAnD'", "3,4"},
        Accepted{"ColumnNamesIgnoreCase", "SIGNAL = 'SM5ABC'", "1,2"},
        Accepted{"ColumnNamesIgnoreCaseOfSwedishLetters", "TRAFIKSÄTT = 'CW'", "1,3,6"},
        Accepted{"BareNamesMayHaveSwedishLetters", "Poäng = 2", "1,3"},
        Accepted{"BlankOfAColumnNameCounts", "[Band ] = '2 M'", "1,3,7,8"},
        Accepted{"BracketedNamesIgnoreCase", "[dxcc nr] = '284'", "1,2"},
        Accepted{"ReservedWordsAreColumnsInBrackets", "[Or] = 'y'", "1"},
        Accepted{"DigitsAreAColumnInBrackets", "[2] = 'x'", "1"},
        Accepted{"BareNamesMayBeginWithADigit", "4Q = 'z'", "1"},
        Accepted{"BlanksBetweenDoNotMatter", "  Signal='SM5ABC'AND  Poäng=2 ", "1"},
        Accepted{"TwoBlanksBeforeTheSign", "Signal  = 'SM5ABC'", "1,2"},
        Accepted{"BlanksInATextMatter", "Signal = 'SM5ABC '", ""},
        Accepted{"EmptyTextIsNotNull", "Signal = ''", "6"}, Accepted{"NothingEqual", "Signal = 'QQ0QQ'", ""},
        Accepted{"NullIsNeverUnequal", "Signal <> 'SM5ABC'", "3,4,6,7,8"},
        Accepted{"Less", "Signal < 'SM5ABCD'", "1,2,6,8"},
        Accepted{"LessOrEqual", "Signal <= 'sm5abcd'", "1,2,6,7,8"},
        Accepted{"GreaterOfTextGoesByCodeUnits", "Signal > 'SM5ABC'", "3,4,7"},
        Accepted{"GreaterOrEqual", "Signal >= 'SM5ABC'", "1,2,3,4,7"},
        Accepted{"NumbersCompareAsNumbers", "Poäng > 2.4", "2,4,8"},
        Accepted{"NegativeNumber", "Poäng = -1", "6"}, Accepted{"PlusSign", "Poäng = +10", "2"},
        Accepted{"NumberWithDecimals", "Poäng = 2.50", "4"},
        Accepted{"NumberBeginningWithAPoint", "Poäng > .5 AND Poäng < 2.", ""},
        Accepted{"ATextThatIsNoNumberIsUnequalToAllNumbers", "Poäng <> 2", "2,4,6,7,8"},
        Accepted{"NumberColumnAgainstQuotedNumber", "Poäng = '2'", "1,3"},
        Accepted{"NumberColumnAgainstQuotedNumberByOrder", "Poäng > '9'", "2,8"},
        Accepted{"NumberColumnAgainstTextIsUnequal", "Poäng = 'abc'", ""},
        Accepted{"NumberColumnAgainstTextIsUnequalForAllButNull", "Poäng <> 'abc'", "1,2,3,4,6,7,8"},
        Accepted{"NumberColumnAgainstTextHasNoOrder", "Poäng < 'abc' OR Poäng >= 'abc'", ""},
        Accepted{"NumberColumnAgainstTextItHolds", "Poäng = 'text'", ""},
        Accepted{"TextColumnAgainstNumber", "[DXCC Nr] = 5", "3,4,8"},
        Accepted{"TextColumnAgainstNumberUnequal", "[DXCC Nr] <> 5", "1,2,6,7"},
        Accepted{"TextColumnAgainstNumberByOrder", "[DXCC Nr] > 100", "1,2"},
        Accepted{"TextColumnAgainstQuotedNumberIsText", "[DXCC Nr] = '5'", "4"},
        Accepted{"LikeBeginning", "Signal LIKE 'sm5*'", "1,2,7"},
        Accepted{"LikeIgnoresCaseOfSwedishLetters", "Signal LIKE 'å*'", "3,4"},
        Accepted{"LikeWithoutStarIsEquality", "Signal LIKE 'SM5ABC'", "1,2"},
        Accepted{"LikeStarIsAllButNull", "Signal LIKE '*'", "1,2,3,4,6,7,8"},
        Accepted{"LikeEmptyIsTheEmptyText", "Signal LIKE ''", "6"},
        Accepted{"LikePercentIsNoWildcard", "Trafiksätt LIKE '%'", "8"},
        Accepted{"LikeOnANumberReadsItsText", "Poäng LIKE '1*'", "2,8"},
        Accepted{"LikeOnANumberWithoutStar", "Poäng LIKE '10'", "2"},
        Accepted{"LikeWordIgnoresCase", "Signal lIkE 'sm5*'", "1,2,7"},
        Accepted{"StarOutsideLikeIsACharacter", "Signal = '5*'", "8"},
        Accepted{"And", "Signal = 'SM5ABC' AND [Band ] = '2 M'", "1"},
        Accepted{"AndOfThree", "Signal = 'SM5ABC' AND [Band ] = '2 M' and Trafiksätt = 'CW'", "1"},
        Accepted{
            "AndOfSixColumns",
            "Signal = 'SM5ABC' AND [Band ] = '2 M' AND Trafiksätt = 'CW' AND [DXCC Nr] = '284' AND Poäng = 2 "
            "AND [2] = 'x'",
            "1"},
        Accepted{"SameColumnTwice", "Signal = 'SM5ABC' AND Signal = 'ÅLAND'", ""},
        Accepted{"EqualityAndBeginning", "Signal LIKE 'SM5*' AND Poäng = 2", "1"},
        Accepted{"TwoBeginnings", "Signal LIKE 'SM*' AND Trafiksätt LIKE 'R*'", "7"},
        Accepted{"EqualityAndUnequal", "[DXCC Nr] = '284' AND Trafiksätt <> 'CW'", "2"},
        Accepted{"Or", "Signal = 'ÅLAND' OR Poäng = 100", "3,4,8"},
        Accepted{"AndBindsTighterThanOr", "Poäng = 100 OR Poäng = 2 AND Signal = 'ÅLAND'", "3,8"},
        Accepted{"BracketsBindFirst", "(Poäng = 100 OR Poäng = 2) AND Signal = 'ÅLAND'", "3"},
        Accepted{"BracketsInBrackets", "((Signal = 'ÅLAND') AND (Poäng = 2 OR (Poäng = 10)))", "3"},
        Accepted{"OrInAnAnd", "[Band ] = '2 M' AND (Poäng = 2 OR Poäng = 100)", "1,3,8"},
        Accepted{"AllPartsOfTheSearchBox",
                 "Signal LIKE '5*' OR [Band ] LIKE '5*' OR [DXCC Nr] LIKE '5*' OR Trafiksätt LIKE '5*'",
                 "4,8"}),
    [](const auto& instance) { return std::string(instance.param.name); });

struct Rejected {
    const char* name;
    const char* filter;
};
void PrintTo(const Rejected& rejected, std::ostream* out) { *out << rejected.filter; }
class RejectedFilter : public FilterTest, public ::testing::WithParamInterface<Rejected> {};

TEST_P(RejectedFilter, IsAFailureAndTheFilterThatWasSetStays) {
    rows_.Filter("Poäng = 2");
    EXPECT_THROW(rows_.Filter(QString::fromUtf8(GetParam().filter)), Failure);
    EXPECT_EQ(rows_.Filter(), "Poäng = 2");
    EXPECT_EQ(column(rows_, QStringLiteral("N")), QStringList({"1", "3"}));
}

INSTANTIATE_TEST_SUITE_P(
    Filters, RejectedFilter,
    ::testing::Values(
        Rejected{"ApostropheInAText", "Signal = 'O'BRIEN'"},
        Rejected{"DoubledApostrophe", "Signal = 'O''BRIEN'"},
        Rejected{"ApostropheAtTheEnd", "Signal = 'SM5'' "}, Rejected{"ApostropheAlone", "Signal = '''"},
        Rejected{"OpenText", "Signal = 'SM5ABC"}, Rejected{"TextWithoutApostrophes", "Signal = SM5ABC"},
        Rejected{"DoubleQuotes", "Signal = \"SM5ABC\""}, Rejected{"NoLiteral", "Signal ="},
        Rejected{"NoSign", "Signal 'SM5ABC'"}, Rejected{"NoColumn", "= 'SM5ABC'"},
        Rejected{"ColumnAlone", "Signal"}, Rejected{"TextAlone", "'SM5ABC'"},
        Rejected{"UnknownColumn", "QSL = 'N'"}, Rejected{"UnknownBracketedColumn", "[QSL M] <> 'N'"},
        Rejected{"ColumnWithoutItsBlank", "[Band] = '2 M'"},
        Rejected{"BareColumnWithoutItsBlank", "Band = '2 M'"}, Rejected{"BlankTooMany", "[Signal ] = 'x'"},
        Rejected{"BareNameWithABlank", "DXCC Nr = '284'"}, Rejected{"OpenBracketOfAName", "[Band  = '2 M'"},
        Rejected{"EmptyName", "[] = 'x'"}, Rejected{"ReservedWordAsABareColumn", "Or = 'y'"},
        Rejected{"OpenBracket", "(Signal = 'x'"}, Rejected{"ClosingBracketTooMany", "Signal = 'x')"},
        Rejected{"EmptyBrackets", "()"}, Rejected{"CrossedBrackets", "(Signal = 'x' AND (Poäng = 2)"},
        Rejected{"AndAtTheEnd", "Signal = 'x' AND"}, Rejected{"OrAtTheBeginning", "OR Signal = 'x'"},
        Rejected{"AndTwice", "Signal = 'x' AND AND Poäng = 2"}, Rejected{"NoAnd", "Signal = 'x' Poäng = 2"},
        Rejected{"CommaForAnd", "Signal = 'x', Poäng = 2"}, Rejected{"Not", "NOT Signal = 'x'"},
        Rejected{"StarAtTheBeginningOfLike", "Signal LIKE '*ABC'"},
        Rejected{"StarsOnBothSides", "Signal LIKE '*5*'"}, Rejected{"StarInTheMiddle", "Signal LIKE 'S*C'"},
        Rejected{"TwoStars", "Signal LIKE 'S**'"}, Rejected{"LikeANumber", "Poäng LIKE 2"},
        Rejected{"LikeWithoutText", "Signal LIKE"}, Rejected{"EqualTwice", "Signal == 'x'"},
        Rejected{"SignTurnedRound", "Poäng >< 2"}, Rejected{"SignApart", "Poäng < > 2"},
        Rejected{"ExclamationMark", "Poäng != 2"}, Rejected{"NumberRunningIntoLetters", "Poäng = 2abc"},
        Rejected{"TwoPointsInANumber", "Poäng = 1.2.3"}, Rejected{"CommaInANumber", "Poäng = 1,5"},
        Rejected{"Exponent", "Poäng = 1e3"}, Rejected{"SignWithoutDigits", "Poäng = -"},
        Rejected{"PointAlone", "Poäng = ."}, Rejected{"TwoSignsOfANumber", "Poäng = --1"},
        Rejected{"NullWord", "Signal = Null"}, Rejected{"ColumnOnBothSides", "Signal = Signal"},
        Rejected{"TrailingSemicolon", "Signal = 'x';"}, Rejected{"TrailingWord", "Signal = 'x' y"},
        Rejected{"Hash", "Datum = #2024-05-07#"}),
    [](const auto& instance) { return std::string(instance.param.name); });

TEST_F(FilterTest, AnEmptyTextLiftsTheFilter) {
    rows_.Filter("Poäng = 2");
    rows_.Filter("");
    EXPECT_EQ(rows_.Filter(), "");
    EXPECT_EQ(rows_.RecordCount(), 8);
    rows_.Filter("Poäng = 2");
    rows_.Filter("  ");
    EXPECT_EQ(rows_.Filter(), "");
    EXPECT_EQ(rows_.RecordCount(), 8);
}

TEST_F(FilterTest, PreparingChangesNothingThatIsSeen) {
    rows_.Sort("Poäng DESC");
    rows_.Filter("Trafiksätt = 'CW'");
    rows_.MoveNext();
    const QString before = rows_.Field("N").text();
    rows_.Prepare("Signal = '' AND Poäng = 2", "Signal, N");
    EXPECT_EQ(rows_.Field("N").text(), before);
    EXPECT_EQ(rows_.Filter(), "Trafiksätt = 'CW'");
    EXPECT_EQ(rows_.Sort(), "Poäng DESC");
    EXPECT_EQ(rows_.RecordCount(), 3);
    rows_.Filter("Signal = 'SM5ABC' AND Poäng = 2");
    EXPECT_EQ(rows_.RecordCount(), 1);
    EXPECT_THROW(rows_.Prepare("Finns = 'inte'", "N"), Failure);
    EXPECT_THROW(rows_.Prepare("N = 1", "Finns"), Failure);
}

TEST_F(FilterTest, BracketsWithoutEndAreAFailureAndNotACrash) {
    const QString open(100000, u'(');
    const QString close(100000, u')');
    EXPECT_THROW(rows_.Filter(open + "Poäng = 2" + close), Failure);
    EXPECT_THROW(rows_.Filter(open), Failure);
    EXPECT_EQ(shown(QString(100, u'(') + "Poäng = 2" + QString(100, u')')), "1,3");
}

TEST_F(FilterTest, ALongChainOfComparisonsWorks) {
    QString chain = QStringLiteral("Poäng = 2");
    for (int i = 0; i < 5000; ++i) chain += QStringLiteral(" OR Signal = 'X%1'").arg(i);
    EXPECT_EQ(shown(chain), "1,3");
}

TEST_F(FilterTest, AFilterKeepsItsMeaningWhenATextComesFirstAfterItWasSet) {
    rows_.Filter("Signal = 'NEW1CALL'");
    EXPECT_EQ(rows_.RecordCount(), 0);
    rows_.AddNew();
    rows_.Field("N", 9);
    rows_.Field("Signal", "new1call");
    rows_.Update();
    rows_.Requery();
    EXPECT_EQ(column(rows_, QStringLiteral("N")), QStringList({"9"}));
}

TEST_F(FilterTest, TheSearchBoxOverTheWholeTableShowsAllButNull) {
    EXPECT_EQ(shown(QStringLiteral("Signal LIKE '*' OR [Band ] LIKE '*'")), "1,2,3,4,6,7,8");
}

TEST_F(FilterTest, FindGoesForwardFromTheCurrentRowInclusive) {
    rows_.Find("Signal = 'sm5abc'");
    EXPECT_EQ(rows_.Field("N").integer(), 1);
    rows_.MoveNext();
    rows_.Find("Signal = 'sm5abc'");
    EXPECT_EQ(rows_.Field("N").integer(), 2);
    rows_.Find("[DXCC Nr] = 5");
    EXPECT_EQ(rows_.Field("N").integer(), 3);
    rows_.Find("Poäng > 50");
    EXPECT_EQ(rows_.Field("N").integer(), 8);
}

TEST_F(FilterTest, FindThatFindsNothingEndsAtEof) {
    rows_.MoveLast();
    rows_.Find("Signal = 'sm5abc'");
    EXPECT_TRUE(rows_.IsEOF());
    rows_.Find("Signal = 'sm5abc'");
    EXPECT_TRUE(rows_.IsEOF());
}

TEST_F(FilterTest, FindFromBofStartsAtTheFirstRow) {
    rows_.MovePrevious();
    ASSERT_TRUE(rows_.IsBOF());
    rows_.Find("Signal LIKE 'sm5*'");
    EXPECT_EQ(rows_.Field("N").integer(), 1);
}

TEST_F(FilterTest, FindKeepsToTheFilterAndTheSort) {
    rows_.Filter("Signal LIKE 'SM5*'");
    rows_.Sort("N DESC");
    rows_.Find("[Band ] = '2 M'");
    EXPECT_EQ(rows_.Field("N").integer(), 7);
    rows_.MoveFirst();
    rows_.Find("Signal = 'ÅLAND'");
    EXPECT_TRUE(rows_.IsEOF());
}

TEST_F(FilterTest, FindInAnEmptyTableStaysAtEof) {
    rows_.Filter("N = 0");
    rows_.Find("Signal = 'SM5ABC'");
    EXPECT_TRUE(rows_.IsEOF());
}

TEST_F(FilterTest, FindTakesAllComparisons) {
    const std::pair<const char*, int> cases[] = {
        {"Poäng <> 2", 2},       {"Poäng < 0", 6},         {"Poäng >= 10", 2}, {"Poäng <= -1", 6},
        {"Signal LIKE 'Å*'", 3}, {"[Band ] = '70 CM'", 2}, {"Poäng = 2.5", 4}, {"Poäng > '99'", 8}};
    for (const auto& [criterion, row] : cases) {
        rows_.MoveFirst();
        rows_.Find(QString::fromUtf8(criterion));
        ASSERT_FALSE(rows_.IsEOF()) << criterion;
        EXPECT_EQ(rows_.Field("N").integer(), row) << criterion;
    }
}

TEST_F(FilterTest, FindTakesASingleComparisonOnly) {
    rows_.MoveNext();
    for (const char* criterion :
         {"", " ", "Signal = 'O'BRIEN'", "Signal = 'x' AND Poäng = 2", "Signal = 'x' OR Poäng = 2",
          "(Poäng = 2)", "Unknown = 'x'", "Signal LIKE '*x'", "Poäng", "[Band] = '2 M'", "Kod = 'x' y"}) {
        EXPECT_THROW(rows_.Find(QString::fromUtf8(criterion)), Failure) << criterion;
    }
    EXPECT_EQ(rows_.Field("N").integer(), 2);
}

} // namespace
} // namespace platform::testing
