#include "platform/text.h"
#include "platform/textfile.h"
#include "support/ToPrint.h"

#include <cmath>
#include <limits>

namespace platform {
namespace {

struct ValCase {
    const char* name;
    const char* text;
    double value;
};

class ValTest : public testing::TestWithParam<ValCase> {};

TEST_P(ValTest, ReadsTheLeadingNumber) {
    SCOPED_TRACE(GetParam().name);
    EXPECT_DOUBLE_EQ(Val(T(GetParam().text)), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Accepted, ValTest,
    testing::Values(ValCase{"a band in metres", "80 M", 80}, ValCase{"a band in centimetres", "70 CM", 70},
                    ValCase{"a distance", "512 Km", 512}, ValCase{"blanks and tabs in front", " \t  42", 42},
                    ValCase{"a blank between digits is passed over", "1 60 M", 160},
                    ValCase{"a line feed between digits too", "1\n60", 160},
                    ValCase{"a minus sign", "-3", -3}, ValCase{"a blank behind the sign", "- 3", -3},
                    ValCase{"a plus sign", "+7", 7}, ValCase{"a decimal point", "3.25x", 3.25},
                    ValCase{"no digit before the point", ".5", 0.5},
                    ValCase{"no digit behind the point", "5.", 5},
                    ValCase{"the second point ends the number", "1.2.3", 1.2},
                    ValCase{"a comma ends the number", "14,025,50", 14}, ValCase{"an exponent", "12e2", 1200},
                    ValCase{"an exponent after D", "12D2", 1200}, ValCase{"a signed exponent", "5E-1", 0.5},
                    ValCase{"an exponent without digits is no exponent", "5E", 5},
                    ValCase{"nor is one of a sign alone", "5E+", 5},
                    ValCase{"the E of a following word is none", "5 Ek", 5},
                    ValCase{"leading zeros", "007", 7}));

INSTANTIATE_TEST_SUITE_P(Rejected, ValTest,
                         testing::Values(ValCase{"an empty text", "", 0}, ValCase{"blanks alone", "   ", 0},
                                         ValCase{"a word", "Km 512", 0}, ValCase{"a sign alone", "-", 0},
                                         ValCase{"two signs", "--5", 0}, ValCase{"a point alone", ".", 0},
                                         ValCase{"a sign and a point", "-.", 0},
                                         ValCase{"a comma in front", ",5", 0},
                                         ValCase{"an exponent alone", "E5", 0},
                                         ValCase{"digits of another script", "٣", 0},
                                         ValCase{"a carriage return is no blank", "\r5", 0}));

TEST(Val, FailsOnANumberTooLargeForADouble) {
    EXPECT_DOUBLE_EQ(Val(QStringLiteral("1E308")), 1e308);
    EXPECT_THROW(Val(QStringLiteral("1E309")), Failure);
}

TEST(Val, TakesTheValueOfAnyWholeNumberThatIsFollowedByAUnit) {
    for (int number = -2000; number <= 2000; ++number) {
        EXPECT_EQ(Val(QString::number(number) + QStringLiteral(" M")), number);
    }
}

struct NumberCase {
    const char* name;
    const char* text;
    std::optional<double> value;
};

class ReadNumberTest : public testing::TestWithParam<NumberCase> {};

TEST_P(ReadNumberTest, TakesAWholeTextOrNothing) {
    const NumberCase& c = GetParam();
    SCOPED_TRACE(c.name);
    EXPECT_EQ(ReadNumber(T(c.text)), c.value);
    if (c.value) {
        EXPECT_EQ(ToNumber(T(c.text)), *c.value);
    } else {
        EXPECT_THROW(ToNumber(T(c.text)), Failure);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Accepted, ReadNumberTest,
    testing::Values(NumberCase{"digits", "500", 500.0}, NumberCase{"blanks around", "  500\t", 500.0},
                    NumberCase{"a sign", "-2", -2.0}, NumberCase{"a decimal comma", "1,5", 1.5},
                    NumberCase{"a decimal point", "1.5", 1.5}, NumberCase{"an exponent", "1e3", 1000.0},
                    NumberCase{"zero", "0", 0.0},
                    NumberCase{"the largest double", "1.7976931348623157e308",
                               std::numeric_limits<double>::max()}));

INSTANTIATE_TEST_SUITE_P(Rejected, ReadNumberTest,
                         testing::Values(NumberCase{"an empty text", "", std::nullopt},
                                         NumberCase{"blanks alone", "  ", std::nullopt},
                                         NumberCase{"a unit behind", "500 p", std::nullopt},
                                         NumberCase{"a blank between digits", "5 00", std::nullopt},
                                         NumberCase{"two commas", "14,025,50", std::nullopt},
                                         NumberCase{"a word", "nan", std::nullopt},
                                         NumberCase{"infinity by name", "inf", std::nullopt},
                                         NumberCase{"hexadecimal digits", "0x10", std::nullopt},
                                         NumberCase{"a sign alone", "-", std::nullopt},
                                         NumberCase{"an unfinished exponent", "1e", std::nullopt},
                                         NumberCase{"a number too large for a double", "1e309",
                                                    std::nullopt}));

TEST(RoundHalfEven, SendsHalvesToTheEvenNeighbour) {
    const std::pair<double, double> cases[] = {{0.5, 0},   {1.5, 2},   {2.5, 2},    {3.5, 4},    {-0.5, 0},
                                               {-1.5, -2}, {-2.5, -2}, {2.4999, 2}, {2.5001, 3}, {7, 7}};
    for (const auto& [number, rounded] : cases) EXPECT_EQ(RoundHalfEven(number), rounded) << number;
}

TEST(RoundHalfEven, LeavesWhatIsNoNumber) {
    EXPECT_TRUE(std::isnan(RoundHalfEven(std::nan(""))));
    EXPECT_EQ(RoundHalfEven(HUGE_VAL), HUGE_VAL);
}

struct RangeCase {
    const char* name;
    int (*convert)(double);
    double lowest;
    double highest;
};

class RangeTest : public testing::TestWithParam<RangeCase> {};

TEST_P(RangeTest, TakesItsLimitsAndNothingBeyond) {
    const auto& [name, convert, lowest, highest] = GetParam();
    SCOPED_TRACE(name);
    EXPECT_EQ(convert(lowest), lowest);
    EXPECT_EQ(convert(highest), highest);
    EXPECT_EQ(convert(lowest - 0.4), lowest);
    EXPECT_EQ(convert(highest + 0.4), highest);
    EXPECT_THROW(convert(lowest - 1), Failure);
    EXPECT_THROW(convert(highest + 1), Failure);
    EXPECT_THROW(convert(std::nan("")), Failure);
    EXPECT_THROW(convert(HUGE_VAL), Failure);
    EXPECT_THROW(convert(-HUGE_VAL), Failure);
}

TEST_P(RangeTest, RoundsHalvesToEven) {
    EXPECT_EQ(GetParam().convert(2.5), 2);
    EXPECT_EQ(GetParam().convert(3.5), 4);
}

INSTANTIATE_TEST_SUITE_P(Widths, RangeTest,
                         testing::Values(RangeCase{"a byte", ToByte, 0, 255},
                                         RangeCase{"16 bits", ToInt16, -32768, 32767},
                                         RangeCase{"32 bits", ToInt32, -2147483648.0, 2147483647.0}));

TEST(Range, AHalfAboveTheLimitGoesToTheEvenNeighbourOutside) {
    EXPECT_THROW(ToByte(255.5), Failure);
    EXPECT_THROW(ToInt16(32767.5), Failure);
    EXPECT_EQ(ToInt16(-32768.5), -32768);
    EXPECT_EQ(ToByte(-0.5), 0);
}

TEST(PadLeft, FillsShortTextsAndLeavesLongOnes) {
    EXPECT_EQ(PadLeft(T("7"), 3, u'0'), T("007"));
    EXPECT_EQ(PadLeft(T("7"), 3), T("  7"));
    EXPECT_EQ(PadLeft(T("1234"), 3, u'0'), T("1234"));
    EXPECT_EQ(PadLeft(T(""), 2, u'0'), T("00"));
}

struct DigitsCase {
    const char* name;
    const char* text;
    int minDigits;
    const char* digits;
};

class FormatDigitsTest : public testing::TestWithParam<DigitsCase> {};

TEST_P(FormatDigitsTest, WritesAtLeastTheDigitsTold) {
    const DigitsCase& c = GetParam();
    SCOPED_TRACE(c.name);
    EXPECT_EQ(FormatDigits(T(c.text), c.minDigits), T(c.digits));
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, FormatDigitsTest,
    testing::Values(DigitsCase{"one digit to two", "7", 2, "07"},
                    DigitsCase{"one digit to four", "7", 4, "0007"},
                    DigitsCase{"a number wide enough", "123", 2, "123"},
                    DigitsCase{"what is formatted already", "007", 3, "007"},
                    DigitsCase{"too many zeros are dropped", "00007", 3, "007"},
                    DigitsCase{"blanks around", " 7 ", 3, "007"}, DigitsCase{"zero", "0", 2, "00"},
                    DigitsCase{"a half goes away from zero", "2.5", 1, "3"},
                    DigitsCase{"a negative number", "-7", 3, "-007"},
                    DigitsCase{"a negative number that rounds to zero", "-0.2", 2, "00"}));

INSTANTIATE_TEST_SUITE_P(NoNumbers, FormatDigitsTest,
                         testing::Values(DigitsCase{"an empty text", "", 4, ""},
                                         DigitsCase{"a blank", " ", 4, " "},
                                         DigitsCase{"a letter behind", "7A", 4, "7A"},
                                         DigitsCase{"a word", "fem", 2, "fem"},
                                         DigitsCase{"a serial with a slash", "1/2", 2, "1/2"}));

TEST(ToUpper, KeepsTheNumberOfCharacters) {
    EXPECT_EQ(ToUpper(T("sm5abc/m")), T("SM5ABC/M"));
    EXPECT_EQ(ToUpper(T("åäöéüñæø")), T("ÅÄÖÉÜÑÆØ"));
    EXPECT_EQ(ToUpper(T("straße")), T("STRAßE"));
    EXPECT_EQ(ToUpper(T("ÿšœž")), T("ŸŠŒŽ"));
    EXPECT_EQ(ToUpper(T("")), T(""));
    EXPECT_EQ(ToUpper(T("1 ,.-/'")), T("1 ,.-/'"));
}

TEST(ToUpper, NeverLeavesTheCodePage) {
    for (int byte = 0; byte < 256; ++byte) {
        const QString text = FromCp1252(QByteArray(1, static_cast<char>(byte)));
        const QString upper = ToUpper(text);
        ASSERT_EQ(upper.size(), 1);
        EXPECT_EQ(FromCp1252(ToCp1252(upper)), upper) << byte;
        EXPECT_EQ(ToUpper(upper), upper) << byte;
    }
}

} // namespace
} // namespace platform
