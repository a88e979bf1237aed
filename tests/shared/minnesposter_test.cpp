// Update files of the memories, as texts.
#include "shared/Minnesposter.h"

#include "support/ToPrint.h"

#include <gtest/gtest.h>

namespace shared {
namespace {

struct Fall {
    const char* namn;
    const char* text;
    std::vector<std::pair<const char*, const char*>> poster;
};
class Poster : public ::testing::TestWithParam<Fall> {};

TEST_P(Poster, ÄrTexternasSomHarLikhetstecken) {
    std::vector<Minnespost> väntat;
    for (const auto& [signal, värde] : GetParam().poster) väntat.push_back({T(signal), T(värde)});
    EXPECT_EQ(LäsMinnesposter(T(GetParam().text)), väntat);
}
INSTANTIATE_TEST_SUITE_P(
    Filer, Poster,
    ::testing::Values(
        Fall{"empty", "", {}}, Fall{"oneEntry", "SM5ABC=JO89WJ\r\n", {{"SM5ABC", "JO89WJ"}}},
        Fall{"sectionHeadsAndNotes",
             "[Lokator]\r\n; not\r\n\r\nSM5ABC=JO89WJ\r\nsnart\r\n",
             {{"SM5ABC", "JO89WJ"}}},
        Fall{"aSecondEqualsSignStays", "SM5ABC=JO89=WJ\r\n", {{"SM5ABC", "JO89=WJ"}}},
        Fall{"anEmptyValue", "SM5ABC=\r\n", {{"SM5ABC", ""}}},
        Fall{"anEmptyCall", "=JO89\r\n", {{"", "JO89"}}},
        Fall{"aCommaEndsAnItem", "SM5ABC=JO89,SM6ABC=JO67\r\n", {{"SM5ABC", "JO89"}, {"SM6ABC", "JO67"}}},
        Fall{"quotesAroundAnItem", "\"SM5ABC=Bo, Ek\"\r\n", {{"SM5ABC", "Bo, Ek"}}},
        Fall{"caseIsKept", "sm5abc=jo89wj\n", {{"sm5abc", "jo89wj"}}},
        Fall{"noLineEndAtTheEnd", "SM5ABC=Åke", {{"SM5ABC", "Åke"}}},
        Fall{"theSameCallTwice", "SM5ABC=A\nSM5ABC=B\n", {{"SM5ABC", "A"}, {"SM5ABC", "B"}}},
        Fall{"binary", "\x01\x02\xC2\x80\x03", {}}),
    [](const auto& fall) { return std::string(fall.param.namn); });

TEST(Poster, HarHögst255Tecken) {
    const QString lång(255, u'S');
    EXPECT_EQ(LäsMinnesposter(lång + u'=' + lång), (std::vector<Minnespost>{{lång, lång}}));
    EXPECT_THROW(LäsMinnesposter(lång + "S=JO89"), platform::Failure);
    EXPECT_THROW(LäsMinnesposter("SM5ABC=" + lång + 'S'), platform::Failure);
    EXPECT_EQ(LäsMinnesposter(QString(1'000'000, u'x')), std::vector<Minnespost>())
        << "no entry, however long";
}

} // namespace
} // namespace shared
