// The engine as it sends: the key, the states, the requests, the sound that goes out.
#include "platform/mmvari/Modemprov.h"

using namespace platform;
using namespace platform::mmvstate;
using modem::Mode;

// ---- states and text ----------------------------------------------------------------------------------

TEST_F(SendTest, KeysWaitsSendsAndComesBack) {
    StartQuick();
    text = "CQ DE SM5ABC";
    modem->Transmit(true);
    EXPECT_EQ(modem->State(), Wait);
    EXPECT_TRUE(line.down);
    EXPECT_EQ(requests, 0);
    ASSERT_TRUE(RunTo(Transmit));
    ASSERT_TRUE(Run([&] { return text.isEmpty(); }));
    EXPECT_EQ(modem->State(), Transmit) << "without a text it idles";
    modem->EndTransmit();
    EXPECT_EQ(modem->State(), ToReceive);
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_EQ(states, (std::vector<int>{Wait, Transmit, ToReceive, Receive}));
    EXPECT_FALSE(line.down);
    EXPECT_EQ(card.outputs, 0);
    EXPECT_EQ(Sent(), "CQ DE SM5ABC");
}

TEST_F(SendTest, SendsEveryModeAtEverySpeed) {
    modem->Carrier(0, 1500);
    modem->Start();
    for (int i = 0; i < modem->ModeCount(); ++i) {
        modem->Mode(0, modem->ModeName(i));
        for (const double baud : modem::Info(static_cast<Mode>(i)).speeds) {
            modem->Speed(0, QString::number(baud, 'g', 8));
            Send("CQ 73");
            const std::string sent = Sent({.mode = static_cast<Mode>(i), .baud = baud, .carrier = 1500});
            EXPECT_EQ(provkanal::Fel("CQ 73", sent), 0) << i << ", " << baud << ": " << sent;
        }
    }
}

TEST_F(SendTest, SendsAtTheCardsOwnClock) {
    for (const auto& [cards, ours] : {std::pair{48000, 11025}, {8000, 50000}, {44100, 44100}}) {
        card.rate = cards;
        modem->RxClock(ours);
        StartQuick();
        Send("CQ 73");
        EXPECT_EQ(card.outWishes.back().rate, ours);
        EXPECT_EQ(Sent(), "CQ 73") << cards << " from " << ours;
        modem->Stop();
    }
}

TEST_F(SendTest, AsksForOneCharacterAtATimeAsLateAsCanBe) {
    StartQuick();
    int waiting = 0;
    modem->events.transmitRequest = [&] {
        ++requests;
        if (text.isEmpty()) return;
        modem->SendCharacter(text.front());
        text.remove(0, 1);
        ++waiting;
    };
    text = "AAAAAAAAAA";
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    EXPECT_NEAR(card.outWishes.back().seconds, 0.3, 1e-9);
    EXPECT_LE(waiting, 2)
        << "what waits for the card is three tenths of a second, and the preamble is longer";
    ASSERT_TRUE(Run([&] { return text.isEmpty(); }));
    // An A has nine bits with its gap: the last is asked for when the one before has begun.
    const double heard = static_cast<double>(card.played) / card.rate;
    const double asked = (32 + 8 * 9) / 125.0 - 0.3;
    EXPECT_NEAR(heard, asked, 0.15);
}

TEST_F(SendTest, EndDuringTheWaitLetsTheTextGoOutAllTheSame) {
    StartQuick();
    Send("QSL TU");
    EXPECT_EQ(states, (std::vector<int>{Wait, ToReceive, Receive}));
    EXPECT_EQ(Sent(), "QSL TU");
}

TEST_F(SendTest, TransmitDuringTheWaitTakesTheEndBack) {
    StartQuick();
    modem->Transmit(true);
    modem->EndTransmit();
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    EXPECT_EQ(states, (std::vector<int>{Wait, Transmit}));
}

TEST_F(SendTest, CharactersMayComeUnasked) {
    StartQuick();
    modem->Transmit(true);
    for (const QChar character : QString("TEST")) modem->SendCharacter(character);
    modem->EndTransmit();
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_EQ(Sent(), "TEST");
    modem->SendCharacter('X');
    Send("");
    EXPECT_EQ(Sent(), "") << "nobody sends what comes while the radio receives";
}

TEST_F(SendTest, WhatTheCodePageHoldsGoesOutAndTheRestIsAQuestionMark) {
    StartQuick();
    Send(T("ÅÄÖ€Ω"));
    EXPECT_EQ(Sent(), "\xc5\xc4\xd6\x80?");
}

TEST_F(SendTest, OffStopsAtOnceAndThrowsAwayWhatWaits) {
    StartQuick();
    text = "THE FIRST TEXT";
    modem->Transmit(true);
    ASSERT_TRUE(Run([&] { return text.size() == 5; }));
    for (const QChar character : QString("WAITING")) modem->SendCharacter(character);
    modem->Transmit(false);
    EXPECT_EQ(modem->State(), Receive);
    EXPECT_EQ(states.back(), Receive);
    EXPECT_FALSE(line.down);
    EXPECT_EQ(card.outputs, 0);
    EXPECT_LT(card.played, card.sent.size());
    Send("NEXT");
    EXPECT_EQ(Sent(), "NEXT");
}

TEST_F(SendTest, OffDuringTheWaitAndTheEndingStopsToo) {
    StartQuick();
    modem->Transmit(true);
    modem->Transmit(false);
    EXPECT_FALSE(line.down);
    EXPECT_EQ(card.outWishes.size(), 0);
    text = "E";
    modem->Transmit(true);
    modem->EndTransmit();
    ASSERT_TRUE(Run([&] { return text.isEmpty() && card.played > 4000; }));
    modem->Transmit(false);
    EXPECT_EQ(states, (std::vector<int>{Wait, Receive, Wait, ToReceive, Receive}));
    modem->Transmit(false);
    modem->EndTransmit();
    EXPECT_EQ(states.size(), 5U) << "already there";
    EXPECT_EQ(modem->State(), Receive);
}

TEST_F(SendTest, TransmitAgainWhileTheTextRunsOutGoesOn) {
    StartQuick();
    text = "FIRST TEXT";
    modem->Transmit(true);
    modem->EndTransmit();
    ASSERT_TRUE(Run([&] { return text.size() == 3; }));
    modem->Transmit(true);
    text += " SECOND";
    ASSERT_TRUE(Run([&] { return text.isEmpty(); }));
    Run([] { return false; }, 1);
    EXPECT_EQ(modem->State(), Transmit);
    modem->EndTransmit();
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_EQ(states, (std::vector<int>{Wait, ToReceive, Transmit, ToReceive, Receive}));
    EXPECT_EQ(Sent(), "FIRST TEXT SECOND");
}

TEST_F(SendTest, TransmitDuringTheEndingGoesOnBehindIt) {
    StartQuick();
    modem->Mode(0, "rtty-L");
    modem->Speed(0, "75");
    // Before the ending, in the midst of it, and when it is generated and not yet heard.
    for (const double into : {0.02, 0.15, 0.25, 0.4}) {
        states.clear();
        text = "FIRST";
        modem->Transmit(true);
        modem->EndTransmit();
        ASSERT_TRUE(Run([&] { return text.isEmpty(); }));
        Run([] { return false; }, into);
        ASSERT_EQ(modem->State(), ToReceive);
        modem->Transmit(true);
        for (const QChar character : QString("BOTH ")) modem->SendCharacter(character);
        text = "SECOND";
        modem->EndTransmit();
        ASSERT_TRUE(RunTo(Receive)) << into;
        EXPECT_EQ(states, (std::vector<int>{Wait, ToReceive, Transmit, ToReceive, Receive})) << into;
        const std::string sent = Sent({.mode = Mode::RttyL, .baud = 75, .carrier = 1500});
        EXPECT_NE(sent.find("FIRST"), std::string::npos) << into << ": " << sent;
        EXPECT_NE(sent.find("BOTH SECOND"), std::string::npos) << into << ": " << sent;
    }
}

TEST_F(SendTest, ModeAndClockOfATransmissionAreThoseOfItsBeginning) {
    StartQuick();
    text = "CQ TEST";
    modem->Transmit(true);
    modem->RxClock(48000);
    modem->EndTransmit();
    ASSERT_TRUE(Run([&] { return text.size() == 3; }));
    modem->RxClock(8000);
    modem->Mode(0, "rtty-L");
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_EQ(Sent(), "CQ TEST");
    Send("CQ 73");
    EXPECT_EQ(provkanal::Fel("CQ 73", Sent({.mode = Mode::RttyL, .baud = 45.45, .carrier = 1500})), 0);
}

TEST_F(SendTest, HearsNothingWhileItSends) {
    StartQuick();
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    Hear(Sound(bpsk125, "ITSELF"));
    EXPECT_EQ(heardA, "");
    modem->Transmit(false);
    Hear(Sound(bpsk125, "OTHERS"));
    EXPECT_EQ(heardA, "OTHERS");
}

TEST_F(SendTest, SendsByTheSameCardEachTimeUntilTheSettingsAreSaved) {
    StartQuick();
    for (const QByteArray& wished : {QByteArray(), QByteArray("radions")}) {
        Send("A");
        EXPECT_EQ(card.outWishes.back().card, wished);
    }
    modem->Start();
    Send("A");
    EXPECT_EQ(card.outWishes.back().card, "");
}

TEST_F(SendTest, TheViewsShowWhatIsSentAtTheirUsualPace) {
    StartQuick();
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Transmit));
    pictures = 0;
    levels.clear();
    Run([] { return false; }, 2);
    EXPECT_NEAR(pictures, 42, 4);
    EXPECT_TRUE(picture.own);
    const auto peak = std::max_element(picture.line.begin(), picture.line.end());
    EXPECT_NEAR(static_cast<double>(peak - picture.line.begin()) * picture.spacing, 1500, 130)
        << "reversals are two tones, half the speed to both sides";
    EXPECT_NEAR(levels.back(), 0.7, 0.1);
    modem->Transmit(false);
    Hear(SendTest::ModemTest::Tone(1000, 1, 0.1));
    EXPECT_FALSE(picture.own);
    // A clock that is another than the transmission's would put it in the wrong place.
    modem->Transmit(true);
    modem->RxClock(8000);
    pictures = 0;
    ASSERT_TRUE(RunTo(Transmit));
    Run([] { return false; }, 0.5);
    EXPECT_EQ(pictures, 0);
}

// ---- NET ----------------------------------------------------------------------------------------------

TEST_F(SendTest, WithNetItSendsWhereItHearsAndWithoutWhereItWasTuned) {
    struct Case {
        const char* mode;
        Mode id;
        double baud, first; ///< Hz from the carrier to the tone that stands at the beginning
        double from, seconds;
    };
    // BPSK's ending is a bare carrier, RTTY begins with mark, MFSK with its lowest tone.
    const Case cases[] = {{"rtty-L", Mode::RttyL, 45.45, 0, 0.02, 0.15},
                          {"rtty-U", Mode::RttyU, 45.45, 0, 0.02, 0.15},
                          {"mfsk-U", Mode::MfskU, 15.625, -7.5 * 15.625, 0.1, 0.8},
                          {"mfsk-L", Mode::MfskL, 15.625, 7.5 * 15.625, 0.1, 0.8}};
    modem->Afc(0, true);
    modem->Start();
    for (const Case& c : cases) {
        modem->Mode(0, c.mode);
        modem->Carrier(0, 1500);
        Hear(Sound({.mode = c.id, .baud = c.baud, .carrier = 1506.5}, "THE QUICK BROWN FOX 599"));
        const double heard = modem->Carrier(0);
        EXPECT_NEAR(heard, 1506.5, 1) << c.mode;
        for (const bool net : {true, false}) {
            modem->Switch(mmvswitch::Net, net);
            Send("E");
            const double wanted = (net ? heard : 1500) + c.first;
            EXPECT_NEAR(Tone(wanted, c.from, c.seconds), wanted, 1) << c.mode << net;
        }
    }
    modem->Mode(0, "bpsk");
    modem->Carrier(0, 1500);
    Hear(Sound({.mode = Mode::Bpsk, .carrier = 1506.5}, "THE QUICK BROWN FOX 599"));
    EXPECT_NEAR(modem->Carrier(0), 1506.5, 1);
    for (const bool net : {true, false}) {
        modem->Switch(mmvswitch::Net, net);
        Send("");
        const double end = static_cast<double>(card.sent.size()) / card.rate;
        const double wanted = net ? modem->Carrier(0) : 1500;
        EXPECT_NEAR(Tone(wanted, end - 0.9, 0.8), wanted, 1) << net;
    }
}

// ---- listeners ----------------------------------------------------------------------------------------

TEST_F(SendTest, AListenerMayStopTheTransmissionFromWhateverItIsTold) {
    StartQuick();
    modem->events.transmitRequest = [&] { modem->Transmit(false); };
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_FALSE(line.down);

    modem->events.transmitRequest = [&] { modem->Stop(); };
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_EQ(card.inputs + card.outputs + line.open, 0);

    for (const bool all : {false, true}) {
        Listen();
        modem->events.level = [&, all](double) { all ? modem->Stop() : modem->Transmit(false); };
        modem->Start();
        modem->Transmit(true);
        ASSERT_TRUE(RunTo(Receive)) << all;
        EXPECT_EQ(card.outputs, 0);
        EXPECT_FALSE(line.down);
    }

    for (const int state : {Wait, Transmit, ToReceive}) {
        Listen();
        modem->events.transmitState = [&, state](int told) {
            if (told == state) modem->Stop();
        };
        modem->Start();
        modem->Transmit(true);
        RunTo(Transmit);
        modem->EndTransmit();
        ASSERT_TRUE(RunTo(Receive)) << state;
        EXPECT_EQ(card.inputs + card.outputs + line.open, 0) << state;
    }
    card.outputOpens = false;
    Listen();
    modem->events.status = [&](const QString&) { modem->Stop(); };
    modem->Start();
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_EQ(card.inputs + line.open, 0);
}

TEST_F(SendTest, AListenerMayBeginAnewFromWhateverItIsTold) {
    StartQuick();
    int asked = 0;
    modem->events.transmitRequest = [&] {
        if (++asked == 3) {
            modem->Transmit(false);
            modem->Transmit(true);
            text = "ANEW";
            modem->EndTransmit();
        } else if (!text.isEmpty()) {
            modem->SendCharacter(text.front());
            text.remove(0, 1);
        }
    };
    modem->Transmit(true);
    ASSERT_TRUE(RunTo(Receive));
    EXPECT_EQ(states, (std::vector<int>{Wait, Transmit, Receive, Wait, ToReceive, Receive}));
    EXPECT_EQ(Sent(), "ANEW");

    Listen();
    bool once = false;
    modem->events.transmitState = [&](int state) {
        if (state != Receive || std::exchange(once, true)) return;
        text = "AFTER";
        modem->Transmit(true);
        modem->EndTransmit();
    };
    modem->Transmit(true);
    modem->EndTransmit();
    ASSERT_TRUE(Run([&] { return once && modem->State() == Receive; }));
    EXPECT_EQ(Sent(), "AFTER");
    // While it stops there is nothing to begin with.
    modem->events.transmitState = [&](int state) {
        if (state == Receive) modem->Transmit(true);
    };
    modem->Transmit(true);
    modem->Stop();
    EXPECT_EQ(modem->State(), Receive);
    EXPECT_FALSE(line.down);
}

TEST_F(SendTest, RunsByItselfOnTheMessageLoop) {
    StartQuick();
    QTimer player;
    player.setTimerType(Qt::PreciseTimer);
    QObject::connect(&player, &QTimer::timeout, &player, [&] { card.Play(0.05); });
    player.start(5);
    text = "CQ 73";
    modem->Transmit(true);
    modem->EndTransmit();
    ASSERT_TRUE(QTest::qWaitFor([&] { return modem->State() == Receive; }, 30'000));
    EXPECT_EQ(Sent(), "CQ 73");
}
