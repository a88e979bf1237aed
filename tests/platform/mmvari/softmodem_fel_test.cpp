// What fails around the engine as it listens: cards that go and come, and settings that no engine can use.
#include "platform/mmvari/Modemprov.h"
#include "platform/mmvari/patience.h"

using namespace platform;

namespace {

const QString noCard = "Inget ljudkort: modemet hör bara tystnad";
const QString noAnswer = "Ljudkortet svarar inte";
constexpr modem::Setup bpsk31{.mode = modem::Mode::Bpsk, .baud = 31.25, .carrier = 1500};

} // namespace

// ---- cards that go and come ---------------------------------------------------------------------------

TEST_F(ModemTest, ACardThatWasGoneIsHeardAgainByItself) {
    SoundCards().retryEvery = 30;
    modem->Carrier(0, 1500);
    modem->Start();
    card.inputTrouble = noAnswer;
    card.inputOpens = false;
    modem->Turn();
    EXPECT_EQ(statuses, QStringList(noAnswer));
    ASSERT_TRUE(QTest::qWaitFor([&] { return card.inWishes.size() >= 4; }));
    EXPECT_EQ(statuses, (QStringList{noAnswer, noCard})) << "it is said once";
    EXPECT_GT(pictures, 0) << "silence stands in";
    card.inputTrouble.clear();
    card.inputOpens = true;
    card.rate = 48000; // another card altogether
    card.channels = 2;
    ASSERT_TRUE(QTest::qWaitFor([&] { return card.inputs == 1; }));
    EXPECT_EQ(statuses.size(), 2) << "back it is when it is heard";
    const Audio sound = Sound(bpsk31, "CQ");
    Hear(sound, sound);
    EXPECT_EQ(heardA, "CQ");
    EXPECT_EQ(statuses, (QStringList{noAnswer, noCard, ""}));
    const qsizetype opened = card.inWishes.size();
    QTest::qWait(100);
    EXPECT_EQ(card.inWishes.size(), opened) << "a card that works is left alone";
}

TEST_F(ModemTest, TheRadiosCardIsWaitedForAndNoOtherTakesItsPlace) {
    SoundCards().retryEvery = 20;
    modem->SoundCard(1);
    modem->Start();
    EXPECT_EQ(card.inWishes.back().card, "") << "by its place in the list, the first time";
    card.inputTrouble = noAnswer;
    card.inputOpens = false;
    modem->Turn();
    ASSERT_TRUE(QTest::qWaitFor([&] { return card.inWishes.size() >= 3; }));
    EXPECT_EQ(card.inWishes.back().card, "radions") << "its place may be another's now";
    modem->Start(); // the settings were saved: another one may be meant
    modem->Turn();
    EXPECT_EQ(card.inWishes.back().card, "");
}

TEST_F(ModemTest, ACardThatWasMissingAtTheStartIsFoundLater) {
    SoundCards().retryEvery = 30;
    card.inputOpens = false;
    modem->Start();
    QTest::qWait(50);
    EXPECT_EQ(statuses, QStringList(noCard));
    card.inputOpens = true;
    ASSERT_TRUE(QTest::qWaitFor([&] { return card.inputs == 1; }));
    Hear(Tone(1000, 0.1, 0.5));
    EXPECT_EQ(statuses.back(), "");
}

TEST_F(ModemTest, ACardThatOpensAndDiesAtOnceIsTriedAtACalmPaceAndSaidOnce) {
    SoundCards().retryEvery = 30;
    modem->Start();
    card.inputTrouble = noAnswer;
    QElapsedTimer clock;
    clock.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return card.inWishes.size() >= 5; }));
    EXPECT_GE(clock.elapsed(), 4 * 30 - 5);
    EXPECT_EQ(statuses, QStringList(noAnswer));
}

TEST_F(ModemTest, TheUsualPaceIsTwoToThreeSeconds) {
    EXPECT_GE(SoundCards().retryEvery, 2000);
    EXPECT_LE(SoundCards().retryEvery, 3000);
    card.inputOpens = false;
    modem->Start();
    QTest::qWait(150);
    EXPECT_EQ(card.inWishes.size(), 1);
}

TEST_F(ModemTest, AfterStopNothingIsTriedAgain) {
    SoundCards().retryEvery = 10;
    card.inputOpens = false;
    modem->Start();
    modem->Stop();
    const qsizetype opened = card.inWishes.size();
    QTest::qWait(50);
    EXPECT_EQ(card.inWishes.size(), opened);
    EXPECT_EQ(statuses.back(), "");
}

TEST(PatienceOfACard, EndsWithoutASignOfLife) {
    Patience patience(2000);
    for (int now = 10; now <= 1990; now += 10) EXPECT_FALSE(patience.Over(now, false)) << now;
    EXPECT_FALSE(patience.Over(2000, true)) << "and begins anew with one";
    for (int now = 2010; now <= 4000; now += 10) EXPECT_FALSE(patience.Over(now, false)) << now;
    EXPECT_TRUE(patience.Over(4010, false));
}

TEST(PatienceOfACard, APauseOfTheProgramsOwnIsNotTheCards) {
    Patience patience(2000);
    EXPECT_FALSE(patience.Over(10, true));
    EXPECT_FALSE(patience.Over(30'000, false)) << "a large log was read";
    EXPECT_FALSE(patience.Over(30'010, false));
}

// ---- settings that cannot be used -----------------------------------------------------------------------

TEST_F(ModemTest, NumbersThatCannotBeUsedAreTheUsualOnesAndTheStatusSaysSo) {
    for (const int bad : {0, -5, 1'000'000, mmvUnreadable}) {
        statuses.clear();
        modem->FifoRx(bad);
        modem->FifoTx(bad);
        modem->RxClock(bad);
        modem->SoundCard(mmvUnreadable);
        EXPECT_EQ(statuses, QStringList()) << "a modem at rest misses nothing";
        modem->Start();
        const QStringList wrong{
            "FIFO RX går inte att använda: 12 gäller", "FIFO TX går inte att använda: 6 gäller",
            "Ljudkort ID går inte att använda: -1 gäller", "RX Klocka går inte att använda: 11025 gäller"};
        EXPECT_EQ(statuses, QStringList(wrong.join("; "))) << bad;
        EXPECT_EQ(card.inWishes.back(),
                  (SoundWish{.id = -1, .rate = 11025, .channels = 2, .seconds = 12 * 0.1}));
        modem->Transmit(true);
        ASSERT_TRUE(RunTo(mmvstate::Transmit));
        EXPECT_EQ(card.outWishes.back(),
                  (SoundWish{.id = -1, .rate = 11025, .channels = 1, .seconds = 6 * 0.05}));
        modem->RxClock(8000);
        EXPECT_EQ(statuses.back(), wrong.first(3).join("; "));
        modem->FifoRx(64);
        modem->FifoTx(1);
        modem->SoundCard(0);
        EXPECT_EQ(statuses.back(), "");
        modem->Stop();
    }
}

TEST_F(ModemTest, ACardNumberBeyondAllCardsIsSilenceThatSaysSo) {
    card.inputOpens = card.outputOpens = false;
    modem->SoundCard(99);
    modem->Speed(0, "125");
    modem->Start();
    EXPECT_EQ(statuses, QStringList("Ljudkort 99 finns inte: modemet hör bara tystnad"));
    modem->Transmit(true);
    modem->EndTransmit();
    ASSERT_TRUE(QTest::qWaitFor([&] { return modem->State() == mmvstate::Receive; }, 20'000));
    EXPECT_EQ(statuses.back(), statuses.front() + T("; Inget ljudkort att sända med: inget hörs"));
}
