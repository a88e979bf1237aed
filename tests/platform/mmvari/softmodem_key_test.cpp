// The key of the radio and the card that is sent on, with all that may be wrong with them.
#include "platform/mmvari/Modemprov.h"

using namespace platform;
using namespace platform::mmvstate;

namespace {

const QString noLines = "Porten Com1 styr inte RTS och DTR: radion nycklas inte";
const QString noAnswer = "Ljudkortet svarar inte";

} // namespace

// ---- the key ------------------------------------------------------------------------------------------

TEST_F(SendTest, TheKeyIsDownFiftyMillisecondsBeforeTheSoundAndUpRightBehindIt) {
    StartQuick();
    qint64 before = -1;
    double behind = -1;
    line.told = [&](bool down) {
        if (down) return;
        // The last sample that belongs to the signal, and the place where the card is.
        std::size_t last = card.sent.size();
        while (last > 0 && std::abs(card.sent[last - 1]) < 1e-3F) --last;
        behind = (static_cast<double>(card.played) - static_cast<double>(last)) / card.rate;
        before = line.keyed.elapsed() - card.firstWrite.elapsed();
    };
    Send("CQ");
    EXPECT_GE(before, 49) << "less what the two clocks round";
    EXPECT_GE(behind, 0) << "nothing is cut off";
    EXPECT_LE(behind, 0.05);
    EXPECT_EQ(line.opened, QStringList("Com1"));
}

TEST_F(SendTest, WhatIsSentIsNeverCutOffByTheCardsClippingAndBeginsSoftly) {
    StartQuick();
    Send("CQ CQ CQ");
    const auto [low, high] = std::minmax_element(card.sent.begin(), card.sent.end());
    EXPECT_GT(*high, 0.5F);
    EXPECT_LT(*high, 0.95F);
    EXPECT_GT(*low, -0.95F);
}

TEST_F(SendTest, AMissingPortIsSaidAndTheSoundGoesOutAllTheSame) {
    line.exists = false;
    StartQuick();
    EXPECT_EQ(statuses, QStringList(T("Porten Com1 kan inte öppnas: radion nycklas inte")));
    Send("CQ");
    EXPECT_EQ(Sent(), "CQ");
    EXPECT_EQ(statuses.size(), 1);
    line.exists = true;
    modem->ComPort("Com2");
    EXPECT_EQ(statuses.back(), "");
    EXPECT_EQ(line.opened, (QStringList{"Com1", "Com1", "Com2"})) << "once for the transmission";
}

TEST_F(SendTest, APortWhoseLinesCannotBeSetIsSaidAndTheSoundGoesOutAllTheSame) {
    line.works = false;
    StartQuick();
    ASSERT_EQ(statuses, QStringList(noLines));
    Send("CQ");
    Send("CQ");
    EXPECT_EQ(Sent(), "CQ");
    EXPECT_EQ(statuses.size(), 1) << "it is said once";
    EXPECT_EQ(line.opened.size(), 3) << "and tried once for each transmission";
    EXPECT_EQ(line.open, 0) << "nobody else is kept from it";
    line.works = true;
    modem->ComPort("Com1");
    EXPECT_EQ(statuses.back(), "") << "the same name opens it anew";
    modem->ComPort("Com1");
    EXPECT_EQ(line.opened.size(), 4) << "but not while it works";
    modem->Transmit(true);
    EXPECT_TRUE(line.down);
}

TEST_F(SendTest, APortThatFailsUnderTheKeyIsOpenAgainAtTheNextTransmission) {
    StartQuick();
    line.told = [&](bool down) { line.works = !down; };
    Send("CQ");
    EXPECT_EQ(Sent(), "CQ");
    EXPECT_EQ(statuses, QStringList(noLines));
    EXPECT_EQ(modem->State(), Receive);
    line.told = {};
    line.works = true;
    line.down = false; // the radio without its cable
    modem->Transmit(true);
    EXPECT_TRUE(line.down);
    EXPECT_EQ(statuses.back(), "");
    EXPECT_EQ(line.opened, (QStringList{"Com1", "Com1"}));
}

TEST_F(SendTest, APortThatWasPulledOutAndPutBackKeysAtOnce) {
    StartQuick();
    line.told = [&](bool) { line.works = true; };
    KeyLines().open = [&, open = KeyLines().open](const QString& name) {
        line.works = true;
        return open(name);
    };
    line.works = false; // what was opened before is dead
    modem->Transmit(true);
    EXPECT_TRUE(line.down);
    EXPECT_EQ(statuses, QStringList());
}

TEST_F(SendTest, APortThatIsPulledOutIsMissedBeforeTheNextTransmission) {
    StartQuick();
    line.works = false;
    modem->Turn();
    EXPECT_EQ(statuses, QStringList());
    SoundCards().retryEvery = 20;
    ASSERT_TRUE(QTest::qWaitFor([&] { return !statuses.isEmpty(); }));
    EXPECT_EQ(statuses, QStringList(noLines));
    EXPECT_EQ(line.open, 0);
    QTest::qWait(100);
    EXPECT_EQ(line.opened.size(), 1) << "nobody knocks at it while nothing is sent";
}

TEST_F(SendTest, NonePortIsNone) {
    for (const char* name : {"", "None", "none"}) {
        modem->ComPort(name);
        modem->Start();
        modem->Stop();
    }
    EXPECT_EQ(line.opened, QStringList());
    EXPECT_EQ(statuses, QStringList());
}

TEST_F(SendTest, AnotherPortInTheMidstOfATransmissionTakesTheKeyOver) {
    StartQuick();
    modem->Transmit(true);
    QList<bool> told;
    line.told = [&](bool down) { told << down; };
    // The fake is one line: it goes up with the first port and down with the second.
    modem->ComPort("None");
    EXPECT_FALSE(line.down);
    modem->ComPort("Com2");
    EXPECT_TRUE(line.down);
    EXPECT_EQ(told, (QList<bool>{false, true}));
    modem->Transmit(false);
    EXPECT_FALSE(line.down);
}

TEST_F(SendTest, StopAndTheEndOfTheEngineLiftTheKey) {
    StartQuick();
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    modem->Stop();
    EXPECT_FALSE(line.down);
    EXPECT_EQ(line.open + card.inputs + card.outputs, 0);
    EXPECT_EQ(states, (std::vector<int>{Wait, Transmit, Receive}));
    modem->Start();
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    states.clear();
    modem.reset();
    EXPECT_FALSE(line.down);
    EXPECT_EQ(line.open + card.inputs + card.outputs, 0);
    EXPECT_EQ(states, std::vector<int>()) << "nobody is told any more";
}

TEST_F(SendTest, BeforeTheStartNothingIsKeyed) {
    modem->Transmit(true);
    modem->EndTransmit();
    EXPECT_EQ(states, std::vector<int>());
    EXPECT_EQ(modem->State(), Receive);
}

// ---- the card -----------------------------------------------------------------------------------------

TEST_F(SendTest, WithoutACardToSendOnItSaysSoAndComesBack) {
    card.outputOpens = false;
    StartQuick();
    modem->Carrier(0, 1500);
    text = "E";
    modem->Transmit(true);
    modem->EndTransmit();
    // Silence goes at the pace of the clock.
    ASSERT_TRUE(QTest::qWaitFor([&] { return modem->State() == Receive; }, 30'000));
    EXPECT_EQ(statuses, QStringList(T("Inget ljudkort att sända med: inget hörs")));
    EXPECT_EQ(text, "");
    EXPECT_FALSE(line.down);
    card.outputOpens = true;
    Send("CQ");
    EXPECT_EQ(Sent(), "CQ");
    EXPECT_EQ(statuses.back(), "");
}

TEST_F(SendTest, ACardThatDiesWhileItSendsLiftsTheKey) {
    StartQuick();
    text = "CQ CQ CQ";
    modem->Transmit(true);
    ASSERT_TRUE(Run([&] { return text.size() == 4; }));
    card.outputTrouble = "Ljudkortet svarar inte";
    modem->Turn();
    EXPECT_EQ(modem->State(), Receive);
    EXPECT_FALSE(line.down);
    EXPECT_EQ(statuses, QStringList("Ljudkortet svarar inte"));
    card.outputTrouble.clear();
    Send("CQ");
    EXPECT_EQ(Sent(), "CQ");
    EXPECT_EQ(statuses.back(), "");
}

TEST_F(SendTest, ALateTurnLosesNothing) {
    StartQuick();
    modem->FifoTx(4);
    text = "CQ DE SM5ABC";
    modem->Transmit(true);
    modem->EndTransmit();
    ASSERT_TRUE(RunTo(ToReceive));
    for (int i = 0; i < 400 && modem->State() != Receive; ++i) {
        card.Play(0.3); // all that was there, and more
        modem->Turn();
    }
    EXPECT_EQ(modem->State(), Receive);
    EXPECT_EQ(Sent(), "CQ DE SM5ABC");
}

TEST_F(SendTest, ACardThatTakesNothingLiftsTheKeyAfterAWhile) {
    EXPECT_GT(SoundCards().stuckAfter, 3200) << "the deepest buffer";
    StartQuick();
    Send("");
    const std::size_t all = card.sent.size();
    SoundCards().stuckAfter = 60;
    states.clear();
    text = "CQ CQ CQ";
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    QElapsedTimer stands;
    stands.start();
    ASSERT_TRUE(QTest::qWaitFor([&] { return modem->State() == Receive; }));
    EXPECT_GE(stands.elapsed(), 55);
    EXPECT_FALSE(line.down);
    EXPECT_EQ(card.outputs, 0);
    EXPECT_EQ(states, (std::vector<int>{Wait, Transmit, Receive}));
    EXPECT_EQ(statuses, QStringList(noAnswer));
    // And with all of it written, and nothing more heard.
    text = "";
    modem->Transmit(true);
    modem->EndTransmit();
    ASSERT_TRUE(Run([&] { return card.sent.size() == all; }));
    ASSERT_LT(card.played, all);
    const qsizetype before = statuses.size();
    ASSERT_TRUE(QTest::qWaitFor([&] { return modem->State() == Receive; }));
    EXPECT_FALSE(line.down);
    EXPECT_EQ(statuses.size(), before + 1);
    EXPECT_EQ(statuses.back(), noAnswer);
}

TEST_F(SendTest, APauseBetweenTwoTransmissionsIsNoStuckCard) {
    SoundCards().stuckAfter = 60;
    StartQuick();
    Send("E");
    QTest::qWait(80);
    Send("CQ");
    EXPECT_EQ(Sent(), "CQ");
    EXPECT_EQ(statuses, QStringList());
}

TEST_F(SendTest, ACardThatTakesAsMuchEachTimeIsNotStuck) {
    SoundCards().stuckAfter = 40;
    StartQuick();
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    for (int i = 0; i < 40; ++i) {
        QThread::msleep(3);
        card.Play(0.01);
        modem->Turn();
    }
    EXPECT_EQ(modem->State(), Transmit);
    EXPECT_EQ(statuses, QStringList());
}
