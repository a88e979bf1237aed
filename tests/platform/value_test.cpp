#include "platform/failure.h"
#include "platform/value.h"

#include <gtest/gtest.h>

#include <limits>

namespace platform {
namespace {

TEST(ValueTest, AWholeNumberIsShownWithoutDecimals) {
    EXPECT_EQ(Value(12).text(), "12");
    EXPECT_EQ(Value(-3.0).text(), "-3");
    EXPECT_EQ(Value(-0.0).text(), "0");
    EXPECT_EQ(Value(qlonglong{123456789012}).text(), "123456789012");
}

TEST(ValueTest, OtherNumbersAreShownWithAPointAndNoMoreDigitsThanNeeded) {
    EXPECT_EQ(Value(0.1).text(), "0.1");
    EXPECT_EQ(Value(-2.5).text(), "-2.5");
    EXPECT_EQ(Value(1.0 / 3).text().toDouble(), 1.0 / 3);
    EXPECT_EQ(Value(1e300).text().toDouble(), 1e300);
}

TEST(ValueTest, NullIsShownAsTheEmptyText) {
    EXPECT_EQ(Value().text(), "");
    EXPECT_TRUE(Value().isNull());
    EXPECT_FALSE(Value("").isNull());
}

TEST(ValueTest, ATextThatIsANumberCanBeReadAsOne) {
    EXPECT_EQ(Value("12").number(), 12);
    EXPECT_EQ(Value(" -2.5 ").number(), -2.5);
    EXPECT_EQ(Value("007").number(), 7);
    EXPECT_EQ(Value("1e3").number(), 1000);
    EXPECT_EQ(Value(2.5).number(), 2.5);
}

TEST(ValueTest, OtherTextsAndNullAreNoNumbers) {
    for (const char* text :
         {"", " ", "abc", "12 km", "1,5", "0x10", "nan", "inf", "-inf", "1e999", "--1", "1 2"}) {
        EXPECT_THROW(Value(text).number(), Failure) << text;
    }
    EXPECT_THROW(Value().number(), Failure);
}

TEST(ValueTest, AnIntegerIsRoundedHalfToEven) {
    EXPECT_EQ(Value(0.5).integer(), 0);
    EXPECT_EQ(Value(1.5).integer(), 2);
    EXPECT_EQ(Value(2.5).integer(), 2);
    EXPECT_EQ(Value(-1.5).integer(), -2);
    EXPECT_EQ(Value("2.51").integer(), 3);
}

TEST(ValueTest, AnIntegerOutside32BitsIsAFailure) {
    EXPECT_EQ(Value(2147483647.4).integer(), 2147483647);
    EXPECT_EQ(Value(-2147483648.5).integer(), std::numeric_limits<int>::min());
    EXPECT_THROW(Value(2147483647.5).integer(), Failure);
    EXPECT_THROW(Value(-2147483649.0).integer(), Failure);
    EXPECT_THROW(Value(std::numeric_limits<double>::quiet_NaN()).integer(), Failure);
    EXPECT_THROW(Value("x").integer(), Failure);
    EXPECT_THROW(Value().integer(), Failure);
}

TEST(ValueTest, EqualityIsThatOfKindAndCase) {
    EXPECT_EQ(Value("SM5"), Value(QStringLiteral("SM5")));
    EXPECT_EQ(Value(2), Value(2.0));
    EXPECT_FALSE(Value("SM5") == Value("sm5"));
    EXPECT_FALSE(Value("2") == Value(2));
    EXPECT_FALSE(Value() == Value(""));
    EXPECT_FALSE(Value() == Value(0));
    EXPECT_EQ(Value(), Value());
}

} // namespace
} // namespace platform
