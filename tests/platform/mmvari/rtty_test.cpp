// Radio teletype: the alphabet, the search for characters, the levels, and the way from text to text.
#include "platform/mmvari/modem/evidence.h"
#include "platform/mmvari/modem/ita2.h"
#include "platform/mmvari/modem/rtty_afc.h"
#include "platform/mmvari/modem/rtty_framing.h"
#include "platform/mmvari/modem/rtty_levels.h"
#include "platform/mmvari/modem/rtty_tones.h"
#include "support/Kanal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace platform::modem {
namespace {

using provkanal::Audio;
using provkanal::Väg;
using ModemSetup = Setup; // a test class has a Setup of its own

std::vector<int> Codes(const std::string& text, bool unshift = true) {
    Ita2Encoder encoder;
    encoder.UnshiftOnSpace(unshift);
    std::vector<std::uint8_t> codes;
    for (const char character : text) encoder.Encode(character, codes);
    return {codes.begin(), codes.end()};
}

std::string Decoded(const std::vector<int>& codes, bool unshift = true) {
    Ita2Decoder decoder;
    decoder.UnshiftOnSpace(unshift);
    std::string text;
    for (const int code : codes)
        if (const auto character = decoder.Decode(static_cast<std::uint8_t>(code))) text += *character;
    return text;
}

const std::string allPrintable = "ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789 -$!&#'()\":?,./; ";

TEST(Ita2, ShiftsOnlyWhereTheCaseChanges) {
    EXPECT_EQ(Codes("AB1"), (std::vector{3, 25, 27, 23}));
    EXPECT_EQ(Codes("1A"), (std::vector{27, 23, 31, 3}));
    EXPECT_EQ(Codes("12-3"), (std::vector{27, 23, 19, 3, 1}));
}

TEST(Ita2, ASpaceGoesBackToLettersByItself) {
    EXPECT_EQ(Codes("1 A"), (std::vector{27, 23, 4, 3}));
    EXPECT_EQ(Codes("1 2"), (std::vector{27, 23, 4, 27, 19}));
    EXPECT_EQ(Codes("1 A", false), (std::vector{27, 23, 4, 31, 3}));
    EXPECT_EQ(Codes("1 2", false), (std::vector{27, 23, 4, 19}));
}

TEST(Ita2, WhatTheAlphabetHasIsReadBack) {
    for (const bool unshift : {true, false})
        EXPECT_EQ(Decoded(Codes(allPrintable, unshift), unshift), allPrintable);
    EXPECT_EQ(Decoded({27, 23, 4, 23}), "1 Q") << "unshift on space";
    EXPECT_EQ(Decoded({27, 23, 4, 23}, false), "1 1");
}

TEST(Ita2, SmallLettersGoAsCapitalsAndSwedishOnesAsTheirPlainOnes) {
    EXPECT_EQ(Decoded(Codes("sm0abc")), "SM0ABC");
    EXPECT_EQ(Decoded(Codes("\xC5\xC4\xD6\xE5\xE4\xF6\xC9")), "AAOAAOE");
}

TEST(Ita2, WhatItDoesNotHaveIsLeftOut) {
    EXPECT_TRUE(Codes("+=@%*<>[]{}~\x80\xFF").empty());
    EXPECT_TRUE(Codes(std::string(1, '\0')).empty());
    EXPECT_EQ(Decoded({0, 27, 5, 31, 4}), " ") << "no tape, no bell";
}

TEST(Ita2, ALineEndIsCarriageReturnAndLineFeed) {
    EXPECT_EQ(Codes("A\nB"), (std::vector{3, 8, 2, 25}));
    EXPECT_EQ(Codes("A\r\nB"), (std::vector{3, 8, 2, 25}));
    EXPECT_EQ(Decoded({3, 8, 2, 25}), "A\r\nB");
}

TEST(Ita2, IdleIsLetters) {
    Ita2Encoder encoder;
    std::vector<std::uint8_t> codes;
    encoder.Encode('1', codes);
    EXPECT_EQ(encoder.Idle(), ita2Letters);
    encoder.Encode('A', codes);
    EXPECT_EQ(codes, (std::vector<std::uint8_t>{27, 23, 3})) << "letters stand already";
}

// ---- the search for characters
// -------------------------------------------------------------------------------

/// Ratios as a clean signal gives them: bits of 16 steps, a window of one bit sees what it covers.
class Stream {
public:
    explicit Stream(double strength)
        : strength_(strength) {}
    void Mark(double bits) { Bit(1, bits); }
    void Character(int code, double stop = 1.5) {
        starts.push_back(static_cast<double>(level_.size()));
        Bit(-1, 1);
        for (int i = 0; i < 5; ++i) Bit((code >> i & 1) != 0 ? 1 : -1, 1);
        Bit(1, stop);
    }
    /// What a search finds in it.
    std::vector<double> Search() {
        FrameSearch search;
        std::vector<double> found;
        for (std::size_t step = 0; step + hopsPerBit <= level_.size(); ++step) {
            double sum = 0;
            for (std::size_t i = 0; i < hopsPerBit; ++i) sum += level_[step + i];
            search.Push(strength_ * sum / hopsPerBit, found);
        }
        return found;
    }

    std::vector<double> starts;

private:
    void Bit(double level, double bits) {
        level_.insert(level_.end(), static_cast<std::size_t>(std::lround(bits * hopsPerBit)), level);
    }
    double strength_;
    std::vector<double> level_;
};

void ExpectFound(const std::vector<double>& found, const std::vector<double>& starts) {
    ASSERT_GE(found.size(), starts.size());
    for (std::size_t i = 0; i < starts.size(); ++i) EXPECT_NEAR(found[i], starts[i], 3) << i;
}

TEST(FrameSearch, FindsCharactersThatFollowEachOther) {
    Stream stream(14);
    stream.Mark(20);
    for (const int code : {31, 31, 3, 25, 14, 16, 4, 10}) stream.Character(code);
    stream.Mark(40);
    ExpectFound(stream.Search(), stream.starts);
    EXPECT_EQ(stream.Search().size(), stream.starts.size()) << "steady mark is no character";
}

TEST(FrameSearch, FindsCharactersAfterPausesOfAnyLength) {
    Stream stream(14);
    stream.Mark(10);
    for (const double pause : {0.3, 1.7, 5.0, 12.4, 0.0, 3.3}) {
        stream.Character(10);
        stream.Mark(pause);
    }
    stream.Mark(30);
    ExpectFound(stream.Search(), stream.starts);
}

TEST(FrameSearch, FollowsSendersWithOneOrTwoStopBits) {
    for (const double stop : {1.0, 1.42, 2.0}) {
        Stream stream(14);
        stream.Mark(20);
        for (int i = 0; i < 30; ++i) stream.Character(i % 2 == 0 ? 10 : 21, stop);
        stream.Mark(30);
        ExpectFound(stream.Search(), stream.starts);
    }
}

TEST(FrameSearch, DecidesACharacterOneCharacterLater) {
    Stream stream(14);
    stream.Mark(20);
    for (int i = 0; i < 3; ++i) stream.Character(10);
    // One and a half characters behind the first one's end, the half for what the search still looks at.
    EXPECT_EQ(stream.Search().size(), 1U);
}

// ---- levels
// ----------------------------------------------------------------------------------------------------

TEST(SignalRatio, SpeaksForASignalAndAgainstNoise) {
    std::vector<BitEnergy> clean(7, BitEnergy{1, 0.01}), noise(7, BitEnergy{1, 0.8}),
        wrong(7, BitEnergy{1, 0.01});
    clean.front() = {0.01, 1}; // the start bit is space
    EXPECT_GT(SignalRatio(clean), 8);
    EXPECT_LT(SignalRatio(noise), -3);
    EXPECT_LT(SignalRatio(wrong), SignalRatio(clean) - 6) << "mark where the start bit should be";
    for (BitEnergy& bit : clean) bit = {bit.mark * 1e6, bit.space * 1e6};
    EXPECT_GT(SignalRatio(clean), 8) << "loudness does not matter";
    EXPECT_LT(SignalRatio(std::vector<BitEnergy>(7)), 0) << "nor does silence";
}

TEST(ToneLevels, SeparateLevelsDecideAWeakToneAtItsOwnMeasure) {
    const BitEnergy weakSpace{0.05, 0.1}, mark{1, 0.01};
    for (const bool separate : {false, true}) {
        ToneLevels levels;
        levels.Separate(separate);
        for (int i = 0; i < 64; ++i) levels.Hear({0.01, 0.01});
        for (int i = 0; i < 60; ++i)
            levels.Learn(
                std::vector{BitEnergy{0.01, 0.1}, mark, BitEnergy{0.01, 0.1}, mark, mark, mark, mark}, 1);
        // A mark would be much stronger than this.
        const BitEnergy doubtful{0.12, 0.1};
        EXPECT_EQ(levels.MarkRatio(doubtful) < 0, separate);
        EXPECT_LT(levels.MarkRatio(weakSpace), 0);
        EXPECT_GT(levels.MarkRatio(mark), 0);
    }
}

TEST(Evidence, HoldsBackWhatNoiseMayHaveMade) {
    Evidence evidence(12, 16, 3);
    std::string text;
    evidence.Weigh(5);
    evidence.Print('A', text);
    EXPECT_EQ(text, "");
    evidence.Weigh(8);
    evidence.Print('B', text);
    EXPECT_EQ(text, "AB") << "enough for both";
    evidence.Weigh(-3);
    evidence.Print('C', text);
    EXPECT_EQ(text, "AB") << "waits for better company";
    evidence.Weigh(4);
    evidence.Print('D', text);
    EXPECT_EQ(text, "ABCD");
    for (const char noise : {'x', 'y', 'z'}) {
        evidence.Weigh(-8);
        evidence.Print(noise, text);
    }
    EXPECT_FALSE(evidence.Open());
    evidence.Weigh(20);
    evidence.Print('E', text);
    EXPECT_EQ(text, "ABCDE") << "what the noise made is gone";
}

TEST(Evidence, NoTextBeginsWithADoubtfulCharacter) {
    Evidence evidence(12, 16, 3);
    std::string text;
    const std::pair<double, char> characters[] = {{2, 'x'}, {7, 'A'}, {1, 'B'}, {7, 'C'}};
    for (const auto& [ratio, character] : characters) {
        evidence.Weigh(ratio);
        evidence.Print(character, text);
    }
    EXPECT_EQ(text, "ABC");
}

TEST(Evidence, OffLetsEverythingThrough) {
    Evidence evidence(12, 16, 3);
    evidence.On(false);
    std::string text;
    evidence.Weigh(-9);
    evidence.Print('x', text);
    EXPECT_EQ(text, "x");
}

TEST(ToneIntegral, IsTheToneBetweenAnyTwoMoments) {
    constexpr double rate = 1575, hertz = 85;
    ToneIntegral integral(rate, hertz, 400);
    for (int n = 0; n < 5000; ++n)
        integral.Push(std::polar(0.5F, static_cast<float>(2 * std::numbers::pi * hertz * n / rate)));
    EXPECT_EQ(integral.Count(), 5000U);
    EXPECT_NEAR(std::abs(integral.Between(4800.25, 4834.9)), 0.5 * 34.65, 0.01);
}

// ---- from text to text
// -----------------------------------------------------------------------------------------

std::string Received(const ModemSetup& setup, const Audio& audio, bool afc = false, std::size_t piece = 441) {
    const auto receiver = MakeReceiver(setup);
    receiver->Afc(afc);
    std::string text;
    for (std::size_t i = 0; i < audio.size(); i += piece)
        receiver->Receive(std::span(audio).subspan(i, std::min(piece, audio.size() - i)), text);
    return text;
}

Audio OnTheAir(const ModemSetup& setup, const std::string& text, const Väg& väg = {}) {
    return provkanal::Sänd(provkanal::Koda(setup, text), setup.rate, väg);
}

class RttySpeeds : public testing::TestWithParam<std::tuple<Mode, double>> {
protected:
    ModemSetup At(double rate) const {
        const auto& [mode, baud] = GetParam();
        return {.mode = mode, .baud = baud, .carrier = 1500, .rate = rate};
    }
};
INSTANTIATE_TEST_SUITE_P(All, RttySpeeds,
                         testing::Combine(testing::Values(Mode::RttyL, Mode::RttyU),
                                          testing::Values(45.45, 50, 75)));

TEST_P(RttySpeeds, TextComesThroughAtEveryReceiveClock) {
    for (const double rate : {6000, 8000, 11025, 11100, 12000, 18000, 22050, 24000, 44100, 48000, 50000})
        EXPECT_EQ(Received(At(rate), OnTheAir(At(rate), allPrintable + "END")), allPrintable + "END") << rate;
}

TEST_P(RttySpeeds, AnErrorOfTheClockIsFollowed) {
    const std::string text = provkanal::Testtext(300, 1);
    for (const double error : {-0.005, -0.0002, 0.0002, 0.005}) {
        ModemSetup sender = At(11025);
        sender.baud *= 1 + error;
        EXPECT_EQ(Received(At(11025), OnTheAir(sender, text)), text) << error;
    }
}

TEST_P(RttySpeeds, AfcFindsASignalBesideTheCarrier) {
    const std::string text = provkanal::Testtext(100, 2);
    for (const double offset : {-35, -20, -5, 5, 20, 35}) {
        ModemSetup sender = At(11025);
        sender.carrier += offset;
        Väg väg;
        väg.snr = 0;
        // What stands in front is for tuning.
        const std::string received = Received(At(11025), OnTheAir(sender, "RYRYRYRYRYRY " + text, väg), true);
        EXPECT_EQ(provkanal::Fel(text, received), 0) << offset << ": " << received;
    }
}

TEST(RttyReceiver, AfcEndsWithinAHertzOfTheSignal) {
    ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025};
    for (const double offset : {-20, 20}) {
        ModemSetup sender = setup;
        sender.carrier += offset;
        Väg väg;
        väg.snr = 0;
        väg.tystnad = 0;
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(true);
        std::string text;
        receiver->Receive(OnTheAir(sender, provkanal::Testtext(100, 3), väg), text);
        EXPECT_NEAR(receiver->Carrier(), sender.carrier, 1) << offset;
    }
}

TEST(RttyReceiver, AfcStaysWhereTheSignalWasWhenItHasEnded) {
    // The answer goes out just then.
    for (const double baud : {45.45, 75.0})
        for (std::uint32_t seed = 1; seed <= 5; ++seed) {
            const ModemSetup setup{.mode = Mode::RttyL, .baud = baud, .carrier = 2125, .rate = 11025};
            ModemSetup sender = setup;
            sender.carrier += 12;
            Väg väg;
            väg.snr = 10;
            väg.tystnad = 4;
            väg.frö = seed;
            const auto receiver = MakeReceiver(setup);
            receiver->Afc(true);
            std::string text;
            receiver->Receive(OnTheAir(sender, provkanal::Testtext(60, seed), väg), text);
            EXPECT_NEAR(receiver->Carrier(), sender.carrier, 1.2) << baud << ' ' << seed;
        }
}

TEST(RttyReceiver, OneSampleThatIsNoNumberSpoilsNothingForGood) {
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025};
    for (const float bad : {std::nanf(""), INFINITY, -INFINITY, 1e30F}) {
        const auto receiver = MakeReceiver(setup);
        std::string text;
        receiver->Receive(std::vector{0.1F, bad, 0.1F}, text);
        receiver->Receive(OnTheAir(setup, "CQ TEST SM0ABC"), text);
        EXPECT_EQ(text, "CQ TEST SM0ABC") << bad;
    }
}

TEST(RttyReceiver, AnotherStationBeginsWithLetters) {
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025};
    const auto receiver = MakeReceiver(setup);
    receiver->UnshiftOnSpace(false);
    std::string text;
    receiver->Receive(OnTheAir(setup, "59912345"), text);
    receiver->Carrier(1500);
    ModemSetup other = setup;
    other.carrier = 1500;
    Audio audio = provkanal::Koda(other, "QWERTY");
    // Tuned in behind the letters in front of the text.
    audio.erase(audio.begin(), audio.begin() + static_cast<std::ptrdiff_t>(0.55 * setup.rate));
    text.clear();
    receiver->Receive(audio, text);
    receiver->Receive(Audio(11025), text);
    EXPECT_NE(text.find("ERTY"), std::string::npos) << text;
}

TEST(RttyReceiver, AfcStaysWhereItIsOnNoise) {
    const auto receiver = MakeReceiver({.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025});
    receiver->Afc(true);
    std::string text;
    receiver->Receive(provkanal::Brus(300, 11025, 5), text);
    EXPECT_EQ(receiver->Carrier(), 2125);
}

TEST(RttyReceiver, NoiseAlonePrintsNextToNothing) {
    // A character a minute is allowed.
    for (const double rate : {8000, 48000}) {
        const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = rate};
        EXPECT_LE(Received(setup, provkanal::Brus(300, rate, 7)).size(), 5U) << rate;
    }
}

TEST(RttyReceiver, WithTheSquelchOffNoisePrints) {
    const auto receiver = MakeReceiver({.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025});
    receiver->Squelch(false);
    std::string text;
    receiver->Receive(provkanal::Brus(60, 11025, 7), text);
    EXPECT_GT(text.size(), 60U);
}

TEST(RttyReceiver, PrintsNothingMuchInFrontOfASignal) {
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025};
    constexpr std::uint32_t signals = 20;
    std::size_t more = 0;
    for (std::uint32_t seed = 1; seed <= signals; ++seed) {
        Väg väg;
        väg.snr = 8;
        väg.tystnad = 3;
        väg.frö = seed;
        const std::string received = Received(setup, OnTheAir(setup, "SM0ABC", väg));
        const std::size_t at = received.find("SM0ABC");
        EXPECT_NE(at, std::string::npos) << received;
        more += received.size() - 6;
    }
    EXPECT_LE(more, signals / 4);
}

TEST(RttyReceiver, PrintsNothingMuchBehindTheEndOfASignal) {
    Väg väg;
    väg.snr = 0;
    väg.tystnad = 30;
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025};
    const std::string text = provkanal::Testtext(60, 1),
                      received = Received(setup, OnTheAir(setup, text, väg));
    EXPECT_EQ(provkanal::Fel(text, received), 0);
    EXPECT_LE(received.size(), text.size() + 3) << received;
}

TEST(RttyReceiver, HearsTheSameHoweverTheSoundIsCut) {
    Väg väg;
    väg.snr = -7;
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025};
    ModemSetup sender = setup;
    sender.carrier += 12;
    const Audio audio = OnTheAir(sender, "RYRYRYRY " + provkanal::Testtext(150, 4), väg);
    const std::string whole = Received(setup, audio, true, audio.size());
    EXPECT_EQ(Received(setup, audio, true, 1), whole);
    EXPECT_EQ(Received(setup, audio, true, 97), whole);
    EXPECT_EQ(Received(setup, audio, true, 4096), whole);
}

TEST(RttyReceiver, AtcReadsASignalWhoseSpaceIsNearlyGone) {
    // An echo half as strong, half a period of the shift late: space is 9.5 dB weaker than mark.
    Väg väg;
    väg.snr = -4;
    väg.eko = 0.5;
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 11025};
    const std::string text = provkanal::Testtext(400, 5);
    const Audio audio = OnTheAir(setup, "RYRYRYRYRY " + text, väg);
    const auto wrong = [&](bool atc) {
        const auto receiver = MakeReceiver(setup);
        receiver->Atc(atc);
        std::string received;
        receiver->Receive(audio, received);
        return provkanal::Fel(text, received);
    };
    EXPECT_LE(wrong(true), 4);
    EXPECT_GE(wrong(false), 20);
}

TEST(RttyReceiver, ACharacterIsOut220MillisecondsBehindItsStopBit) {
    for (const double baud : {45.45, 50.0, 75.0}) {
        const ModemSetup setup{.mode = Mode::RttyL, .baud = baud, .carrier = 2125, .rate = 11025};
        const auto transmitter = MakeTransmitter(setup);
        const auto receiver = MakeReceiver(setup);
        // Letters until the receiver is settled, then one character, letters again.
        Audio audio(static_cast<std::size_t>(setup.rate * 4));
        std::string text;
        transmitter->Generate(audio);
        receiver->Receive(audio, text);
        ASSERT_EQ(text, "");
        transmitter->Put('X');
        audio.resize(1);
        while (transmitter->Waiting() != 0) {
            transmitter->Generate(audio);
            receiver->Receive(audio, text);
        }
        // The character begins with this sample and is seven and a half bits long.
        double samples = 0;
        for (; text.empty() && samples < setup.rate; ++samples) {
            transmitter->Generate(audio);
            receiver->Receive(audio, text);
        }
        EXPECT_EQ(text, "X");
        EXPECT_LE(samples / setup.rate - 7.5 / baud, 0.22) << baud;
    }
}

TEST(RttyReceiver, RefusesWhatItCannotDo) {
    for (const ModemSetup& setup :
         {ModemSetup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 5000},
          ModemSetup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 5400, .rate = 11025},
          ModemSetup{.mode = Mode::RttyU, .baud = 45.45, .carrier = 150, .rate = 11025},
          ModemSetup{.mode = Mode::RttyL, .baud = 0, .carrier = 2125, .rate = 11025},
          ModemSetup{.mode = Mode::RttyL, .baud = std::nan(""), .carrier = 2125, .rate = 11025}}) {
        EXPECT_THROW(MakeReceiver(setup), std::invalid_argument);
        EXPECT_THROW(MakeTransmitter(setup), std::invalid_argument);
    }
}

TEST(RttyTransmitter, SendsMarkAndSpaceWithoutAJump) {
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 50, .carrier = 2125, .rate = 48000};
    const Audio audio = provkanal::Koda(setup, "RYRY");
    float most = 0, leap = 0;
    for (std::size_t i = 1; i < audio.size(); ++i) {
        most = std::max(most, std::abs(audio[i]));
        leap = std::max(leap, std::abs(audio[i] - audio[i - 1]));
    }
    EXPECT_LE(most, 1);
    EXPECT_LE(leap, 2 * std::numbers::pi * 2295 / 48000) << "steeper than the higher tone";
    EXPECT_LT(std::abs(audio.front()), 0.05);
    EXPECT_LT(std::abs(audio.back()), 0.05);
}

TEST(RttyTransmitter, IdlesWithLettersUntilItIsToldToFinish) {
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = 8000};
    const auto transmitter = MakeTransmitter(setup);
    Audio audio(80000);
    transmitter->Generate(audio);
    EXPECT_FALSE(transmitter->Done());
    for (const char character : std::string("ABC")) transmitter->Put(character);
    EXPECT_EQ(transmitter->Waiting(), 3);
    audio.resize(8000);
    transmitter->Generate(audio);
    EXPECT_EQ(transmitter->Waiting(), 0);
    transmitter->Finish();
    transmitter->Generate(audio);
    EXPECT_TRUE(transmitter->Done());
    EXPECT_EQ(audio.back(), 0);
}

} // namespace
} // namespace platform::modem
