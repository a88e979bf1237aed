// The engine as it listens: modes, clocks, sides, switches, views, and sound cards that fail.
#include "platform/mmvari/Modemprov.h"

#include <QDialog>
#include <QEventLoop>
#include <QTimer>

using namespace platform;
using modem::Mode;

namespace {

const QString noCard = "Inget ljudkort: modemet hör bara tystnad";
/// The carriers lie where all clocks have room for them.
constexpr modem::Setup bpsk31{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500};

/// The clocks of the settings.
constexpr int clocks[] = {6000, 8000, 11025, 11100, 12000, 18000, 22050, 24000, 44100, 48000, 50000};

} // namespace

// ---- what it offers -----------------------------------------------------------------------------------

TEST_F(ModemTest, OffersFiveModesAndTheirSpeedsTheUsualOneFirst) {
    QStringList modes;
    for (int i = 0; i < modem->ModeCount(); ++i) {
        modes << modem->ModeName(i);
        modem->Mode(0, modes.back());
        EXPECT_EQ(modem->Mode(0), modes.back());
        EXPECT_EQ(modem->Speed(0), modem->Speeds(0).front());
        modes << modem->Speeds(0).join('/');
    }
    EXPECT_EQ(modes, (QStringList{"bpsk", "31.25/62.5/125", "rtty-L", "45.45/50/75", "rtty-U", "45.45/50/75",
                                  "mfsk-L", "15.625/7.8125/31.25", "mfsk-U", "15.625/7.8125/31.25"}));
}

TEST_F(ModemTest, BeginsAsASettingThatWasNeverMade) {
    for (const int channel : {0, 1}) {
        EXPECT_EQ(modem->Mode(channel), "bpsk");
        EXPECT_EQ(modem->Carrier(channel), 2125);
        EXPECT_EQ(modem->ReceiveChoice(channel), 0);
    }
    EXPECT_EQ(modem->State(), mmvstate::Receive);
    EXPECT_TRUE(card.inWishes.isEmpty()) << "no card is taken before the start";
    EXPECT_TRUE(line.opened.isEmpty());
}

TEST_F(ModemTest, TellsAChangeOfModeAndSpeedForItsChannelAndNothingElse) {
    modem->Mode(0, "rtty-L");
    EXPECT_EQ(changes, (QStringList{"speed 0", "list 0"}));
    modem->Mode(0, "rtty-L");
    modem->Speed(0, "45.45");
    EXPECT_EQ(changes.size(), 2) << "nothing has changed";
    modem->Speed(0, "75");
    modem->Mode(1, "mfsk-U");
    EXPECT_EQ(changes, (QStringList{"speed 0", "list 0", "speed 0", "speed 1", "list 1"}));
    EXPECT_EQ(modem->Speed(0), "75");
    EXPECT_EQ(modem->Mode(0), "rtty-L");
    modem->Mode(0, "rtty-U");
    EXPECT_EQ(modem->Speed(0), "45.45") << "another mode begins with its usual speed";
}

TEST_F(ModemTest, UnknownTextsChangeNothing) {
    for (const char* mode : {"", "RTTY", "cw", "bpsk "}) modem->Mode(0, mode);
    for (const char* speed : {"", "45.45", "31", "31.250"}) modem->Speed(0, speed);
    EXPECT_EQ(modem->Mode(0), "bpsk");
    EXPECT_EQ(modem->Speed(0), "31.25");
    EXPECT_EQ(changes, QStringList());
}

TEST_F(ModemTest, SwitchesTellOfTheirChangesAlone) {
    EXPECT_TRUE(modem->IsOn(mmvswitch::Uos));
    modem->Afc(0, false);
    for (const int which : {mmvswitch::Atc, mmvswitch::Net, mmvswitch::Hpf}) {
        modem->Switch(which, true);
        modem->Switch(which, true);
        EXPECT_TRUE(modem->IsOn(which));
    }
    modem->Switch(mmvswitch::Uos, false);
    modem->Afc(0, true);
    modem->Afc(1, true);
    EXPECT_EQ(changes, (QStringList{"switch 1", "switch 2", "switch 4", "switch 3", "switch 0"}));
    EXPECT_TRUE(modem->IsOn(mmvswitch::Afc));
}

TEST_F(ModemTest, ACarrierStaysWhereTheWholeSignalFitsInTheSound) {
    for (int i = 0; i < modem->ModeCount(); ++i) {
        modem->Mode(0, modem->ModeName(i));
        for (const int rate : clocks) {
            modem->RxClock(rate);
            modem->Carrier(0, 0);
            EXPECT_GT(modem->Carrier(0), 0);
            EXPECT_LT(modem->Carrier(0), 600);
            modem->Carrier(0, 1e6);
            EXPECT_LT(modem->Carrier(0), rate / 2);
            EXPECT_GT(modem->Carrier(0), rate / 2 - 600);
        }
    }
    modem->RxClock(6000);
    EXPECT_LT(modem->Carrier(0), 3000) << "a slower clock takes the carrier along";
}

// ---- characters ---------------------------------------------------------------------------------------

TEST_F(ModemTest, ReadsEveryModeAtEverySpeed) {
    modem->Carrier(0, 1500);
    modem->Start();
    for (int i = 0; i < modem->ModeCount(); ++i) {
        modem->Mode(0, modem->ModeName(i));
        const auto mode = static_cast<Mode>(i);
        for (const double baud : modem::Info(mode).speeds) {
            modem->Speed(0, QString::number(baud, 'g', 8));
            heardA.clear();
            Hear(Sound({.mode = mode, .baud = baud, .carrier = 1500}, "SM5ABC 599"));
            Hear(Audio(static_cast<std::size_t>(card.rate) * 4));
            EXPECT_EQ(provkanal::Fel("SM5ABC 599", heardA.toStdString()), 0)
                << i << ", " << baud << ": " << heardA.toStdString();
            EXPECT_LE(heardA.trimmed().size(), 12) << "next to nothing else";
        }
    }
}

TEST_F(ModemTest, LettersOfTheCodePageAreHeardAsThemselves) {
    modem->Carrier(0, 1500);
    modem->Start();
    Hear(Sound(bpsk31, "\xc5\xc4\xd6"));
    EXPECT_EQ(heardA, T("ÅÄÖ"));
}

TEST_F(ModemTest, ReadsAtEveryClock) {
    for (const int rate : clocks) {
        card.rate = rate;
        modem->RxClock(rate);
        modem->Carrier(0, 1500);
        modem->Start();
        EXPECT_EQ(card.inWishes.back().rate, rate);
        heardA.clear();
        Hear(Sound(bpsk31, "CQ"));
        EXPECT_EQ(heardA, "CQ") << rate;
        modem->Stop();
    }
}

TEST_F(ModemTest, ACardWithAClockOfItsOwnIsReadToo) {
    card.channels = 2;
    modem->Carrier(0, 1500);
    modem->Start();
    for (const auto& [cards, ours] :
         {std::pair{48000, 11025}, {44100, 6000}, {11025, 48000}, {48000, 48000}}) {
        card.rate = cards;
        modem->RxClock(ours == 48000 ? 8000 : 48000); // so that the card is opened anew
        modem->RxClock(ours);
        modem->Turn();
        heardA.clear();
        const Audio sound = Sound(bpsk31, "CQ");
        Hear(sound, sound);
        EXPECT_EQ(heardA, "CQ") << cards << " for " << ours;
    }
}

TEST_F(ModemTest, EachRadioIsHeardOnItsSide) {
    card.channels = 2;
    for (const int channel : {0, 1}) modem->Carrier(channel, 1500);
    modem->Start();
    const Audio left = Sound(bpsk31, "LEFT"), right = Sound(bpsk31, "RIGHT");
    for (const bool swapped : {false, true}) {
        modem->SoundChannel(0, swapped ? 2 : 1);
        modem->SoundChannel(1, swapped ? 1 : 2);
        heardA.clear();
        heardB.clear();
        Hear(left, right);
        EXPECT_EQ(heardA, swapped ? "RIGHT" : "LEFT");
        EXPECT_EQ(heardB, swapped ? "LEFT" : "RIGHT");
    }
    modem->SoundChannel(0, 1);
    modem->SoundChannel(0, 7);
    modem->SoundChannel(0, -3);
    heardA.clear();
    Hear(left, right);
    EXPECT_EQ(heardA, "LEFT") << "a side that does not exist changes nothing";
}

TEST_F(ModemTest, MonoIsBothSidesTogether) {
    card.channels = 2;
    modem->Carrier(0, 1500);
    modem->Start();
    Hear(Sound(bpsk31, "LEFT"), {});
    Hear({}, Sound(bpsk31, "RIGHT"));
    EXPECT_EQ(heardA, "LEFTRIGHT");
}

TEST_F(ModemTest, AMonoCardIsOnAllSides) {
    modem->Carrier(0, 1500);
    modem->Start();
    for (const int side : {0, 1, 2}) {
        modem->SoundChannel(0, side);
        heardA.clear();
        Hear(Sound(bpsk31, "CQ"));
        EXPECT_EQ(heardA, "CQ") << side;
    }
}

TEST_F(ModemTest, TheSecondChannelHasAModeAndAnAfcOfItsOwn) {
    modem->Mode(1, "rtty-U");
    for (const int channel : {0, 1}) modem->Carrier(channel, 1500);
    modem->Afc(0, true);
    modem->Afc(1, false);
    modem->Start();
    modem->Speed(1, "50"); // made anew, it keeps what it was set to
    Hear(Sound({.mode = Mode::RttyU, .baud = 50, .carrier = 1508}, "SM5ABC SM5ABC SM5ABC"));
    EXPECT_TRUE(heardB.contains("SM5ABC")) << heardB.toStdString();
    EXPECT_EQ(modem->Carrier(1), 1500);
}

TEST_F(ModemTest, AfcFollowsAndATurnOfTheDialBeginsAnew) {
    modem->Carrier(0, 1500);
    modem->Afc(0, true);
    modem->Start();
    Hear(Sound({.mode = Mode::Bpsk, .carrier = 1506}, "THE QUICK BROWN FOX"));
    EXPECT_NEAR(modem->Carrier(0), 1506, 1);
    EXPECT_NEAR(picture.tones.at(0), 1506, 1) << "the mark follows";
    modem->Carrier(0, 2125);
    EXPECT_EQ(modem->Carrier(0), 2125);
}

TEST_F(ModemTest, WithoutSquelchNoiseIsPrintedAndWithItHardlyAny) {
    modem->Mode(0, "rtty-L");
    modem->Start();
    Audio noise = provkanal::Brus(20, card.rate, 1);
    for (float& sample : noise) sample *= 0.05F;
    modem->ReceiveChoice(0, 1);
    EXPECT_EQ(modem->ReceiveChoice(0), 1);
    Hear(noise);
    EXPECT_GT(heardA.size(), 10);
    heardA.clear();
    modem->ReceiveChoice(0, 0);
    Hear(noise);
    EXPECT_LE(heardA.size(), 2);
    EXPECT_EQ(modem->ReceiveList(0).size(), 2);
}

TEST_F(ModemTest, TheHighPassTakesHumOutAndLeavesTheSignal) {
    modem->Carrier(0, 1500);
    modem->Start();
    const auto level = [&](double hertz) {
        Hear(Tone(hertz, 1, 0.9));
        return levels.back();
    };
    EXPECT_NEAR(level(50), 0.9, 0.02);
    modem->Switch(mmvswitch::Hpf, true);
    EXPECT_LT(level(50), 0.09) << "20 dB";
    EXPECT_NEAR(level(2125), 0.9, 0.02);
    Audio both = Sound(bpsk31, "CQ");
    const Audio hum = Tone(50, static_cast<double>(both.size()) / card.rate, 0.5);
    for (std::size_t i = 0; i < hum.size(); ++i) both[i] = both[i] * 0.2F + hum[i];
    heardA.clear();
    Hear(both);
    EXPECT_EQ(heardA, "CQ");
}

// ---- views --------------------------------------------------------------------------------------------

TEST_F(ModemTest, ViewsGetTheirPicturesAtOnePaceHoweverTheSoundComes) {
    modem->Start();
    const Audio sound = Tone(1000, 4, 0.5);
    for (const double piece : {0.01, 0.021, 1.0, 4.0}) {
        pictures = 0;
        levels.clear();
        Hear(sound, {}, piece);
        EXPECT_NEAR(pictures, 84, 2) << piece;
        EXPECT_EQ(std::ssize(levels), pictures);
        for (std::size_t i = 1; i < levels.size(); ++i) EXPECT_NEAR(levels[i], 0.5, 0.02) << piece;
    }
}

TEST_F(ModemTest, APictureHoldsSpectrumWaveformDecisionsAndMarks) {
    modem->Mode(0, "rtty-L");
    modem->Start();
    Hear(Tone(1000, 2, 0.5));
    const auto peak = std::max_element(picture.line.begin(), picture.line.end());
    EXPECT_NEAR(static_cast<double>(peak - picture.line.begin()) * picture.spacing, 1000, picture.spacing);
    EXPECT_NEAR(static_cast<double>(*peak), 20 * std::log10(0.5), 1.5);
    EXPECT_EQ(picture.waveform.size(), 512U);
    EXPECT_NEAR(static_cast<double>(*std::max_element(picture.waveform.begin(), picture.waveform.end())), 0.5,
                0.01);
    EXPECT_EQ(picture.tones, (std::vector<double>{2125, 2295}));
    Hear(Sound({.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125}, "SM5ABC"));
    EXPECT_FALSE(picture.sync.empty());
    for (const float point : picture.sync) EXPECT_LE(std::abs(point), 1);
}

TEST_F(ModemTest, TheLevelIsNeverAboveOne) {
    modem->Start();
    Hear(Tone(1000, 0.5, 3));
    EXPECT_EQ(levels.back(), 1);
    Hear(Audio(static_cast<std::size_t>(card.rate)));
    EXPECT_NEAR(levels.back(), 0, 1e-6);
}

// ---- the card -----------------------------------------------------------------------------------------

TEST_F(ModemTest, AsksForTheCardThatWasChosen) {
    modem->SoundCard(2);
    modem->RxClock(8000);
    modem->FifoRx(12);
    modem->Start();
    ASSERT_EQ(card.inWishes.size(), 1);
    EXPECT_EQ(card.inWishes[0].id, 2);
    EXPECT_EQ(card.inWishes[0].rate, 8000);
    EXPECT_EQ(card.inWishes[0].channels, 2);
    EXPECT_NEAR(card.inWishes[0].seconds, 1.2, 1e-9);
    EXPECT_EQ(card.inputs, 1);
    EXPECT_EQ(statuses, QStringList());
}

TEST_F(ModemTest, WhatIsChangedWhileItRunsIsTakenOverAndOnlyThat) {
    modem->Start();
    modem->Start();
    modem->Turn();
    EXPECT_EQ(card.inWishes.size(), 1);
    modem->FifoRx(32);
    modem->SoundCard(1);
    modem->RxClock(48000);
    modem->Turn();
    ASSERT_EQ(card.inWishes.size(), 2);
    EXPECT_EQ(card.inWishes[1].id, 1);
    EXPECT_EQ(card.inWishes[1].rate, 48000);
    EXPECT_NEAR(card.inWishes[1].seconds, 3.2, 1e-9);
    modem->FifoRx(32);
    modem->SoundCard(1);
    modem->RxClock(48000);
    modem->Turn();
    EXPECT_EQ(card.inWishes.size(), 2);
    EXPECT_EQ(card.inputs, 1);
}

TEST_F(ModemTest, WithoutACardItRunsOnSilenceAndSaysSo) {
    card.inputOpens = false;
    modem->Start();
    EXPECT_EQ(statuses, QStringList(noCard));
    // The loop turns by itself.
    ASSERT_TRUE(QTest::qWaitFor([&] { return pictures >= 2; }, 20'000));
    EXPECT_EQ(levels.back(), 0);
    EXPECT_EQ(heardA, "");
    modem->Stop();
    EXPECT_EQ(statuses, (QStringList{noCard, ""})) << "a modem at rest misses nothing";
}

TEST_F(ModemTest, ACardWithANumberThatDoesNotExistIsNamed) {
    card.inputOpens = false;
    modem->SoundCard(3);
    modem->Start();
    EXPECT_EQ(statuses, QStringList(T("Ljudkort 3 finns inte: modemet hör bara tystnad")));
    card.inputOpens = true;
    modem->SoundCard(-1);
    modem->Turn();
    EXPECT_EQ(statuses.back(), "");
}

TEST_F(ModemTest, ACardThatDiesLeavesSilenceAndItsReason) {
    modem->Carrier(0, 1500);
    modem->Start();
    Hear(Sound(bpsk31, "CQ"));
    card.inputTrouble = "Ljudkortet svarar inte";
    modem->Turn();
    EXPECT_EQ(statuses, QStringList("Ljudkortet svarar inte"));
    EXPECT_EQ(card.inputs, 0);
    for (int i = 0; i < 20; ++i) modem->Turn();
    EXPECT_EQ(heardA, "CQ");
    EXPECT_EQ(statuses.size(), 1);
}

TEST_F(ModemTest, AnotherStartTriesAgainWhatWasMissing) {
    card.inputOpens = line.exists = false;
    modem->ComPort("Com3");
    modem->Start();
    modem->Turn();
    EXPECT_EQ(statuses.back(), noCard + T("; Porten Com3 kan inte öppnas: radion nycklas inte"));
    modem->Start();
    modem->Turn();
    card.inputOpens = line.exists = true;
    const qsizetype before = card.inWishes.size();
    modem->Turn();
    EXPECT_EQ(card.inWishes.size(), before) << "not at each turn";
    modem->Start();
    modem->Turn();
    EXPECT_EQ(statuses.back(), "");
    EXPECT_EQ(card.inputs, 1);
    EXPECT_EQ(line.open, 1);
}

TEST_F(ModemTest, StopFreesCardAndPortAndTheNextStartTakesThemAgain) {
    modem->ComPort("Com1");
    modem->Carrier(0, 1500);
    modem->Start();
    EXPECT_EQ(card.inputs, 1);
    EXPECT_EQ(line.open, 1);
    modem->Stop();
    modem->Stop();
    EXPECT_EQ(card.inputs, 0);
    EXPECT_EQ(line.open, 0);
    modem->Turn(); // nothing happens
    modem->RxClock(8000);
    card.rate = 8000;
    modem->Start();
    EXPECT_EQ(card.inWishes.back().rate, 8000);
    Hear(Sound(bpsk31, "CQ"));
    EXPECT_EQ(heardA, "CQ");
    modem.reset();
    EXPECT_EQ(card.inputs, 0);
    EXPECT_EQ(line.open, 0);
}

// ---- listeners ----------------------------------------------------------------------------------------

TEST_F(ModemTest, AListenerMayStopItFromWhateverItIsTold) {
    const Audio sound = Sound(bpsk31, "CQ CQ CQ");
    const auto stopped = [&](const auto& set) {
        modem = std::make_unique<SoftModem>();
        Listen();
        modem->Carrier(0, 1500);
        heardA.clear();
        set(modem->events);
        modem->Start();
        Hear(sound);
        EXPECT_EQ(card.inputs, 0);
    };
    const auto stop = [&] { modem->Stop(); };
    stopped([&](MmvEvents& e) { e.spectrum = [&](const MmvSpectrum&) { stop(); }; });
    stopped([&](MmvEvents& e) { e.level = [&](double) { stop(); }; });
    stopped([&](MmvEvents& e) {
        e.received = [&](int, QChar character) {
            heardA += character;
            stop();
        };
    });
    EXPECT_EQ(heardA, "C");
    card.inputTrouble = "borta";
    stopped([&](MmvEvents& e) { e.status = [&](const QString&) { stop(); }; });
}

TEST_F(ModemTest, AListenerMayChangeModeAndClockFromWhateverItIsTold) {
    modem->Carrier(0, 1500);
    modem->events.spectrum = [&](const MmvSpectrum&) {
        modem->Mode(0, pictures++ % 2 == 0 ? "rtty-L" : "bpsk");
        modem->RxClock(pictures % 3 == 0 ? 8000 : 11025);
    };
    modem->events.received = [&](int, QChar) { modem->Mode(0, "mfsk-U"); };
    modem->Start();
    Hear(Sound(bpsk31, "CQ CQ CQ"), {}, 0.5);
    EXPECT_GT(pictures, 20);
}

TEST_F(ModemTest, ADialogOutOfAnEventStopsTheLoopAndNotTheProgram) {
    modem->Start();
    int dialogs = 0;
    modem->events.level = [&](double) {
        if (++dialogs > 2) return;
        QEventLoop loop;
        QTimer::singleShot(40, &loop, &QEventLoop::quit);
        loop.exec();
    };
    Hear(Tone(1000, 1, 0.5), {}, 1);
    EXPECT_NEAR(dialogs, 21, 2);
}

TEST_F(ModemTest, AModalDialogElsewhereLeavesItRunning) {
    modem->Carrier(0, 1500);
    modem->Start();
    card.coming = Sound(bpsk31, "CQ");
    QDialog dialog;
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, &dialog, [&] {
        if (heardA == "CQ") dialog.accept();
    });
    QTimer::singleShot(20'000, &dialog, &QDialog::reject);
    answer.start(5);
    EXPECT_EQ(dialog.exec(), QDialog::Accepted);
}
