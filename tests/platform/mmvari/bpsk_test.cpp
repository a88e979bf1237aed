#include "platform/mmvari/modem/bpsk_varicode.h"
#include "support/Kanal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <numbers>
#include <set>

namespace platform::modem {
namespace {

using provkanal::Audio;
using ModemSetup = Setup; // a test class has a Setup of its own

std::string Bits(unsigned word) {
    std::string text;
    for (; word != 0; word /= 2) text.insert(text.begin(), word % 2 != 0 ? '1' : '0');
    return text;
}

std::vector<std::string> AllWords() {
    std::vector<std::string> words;
    words.reserve(256);
    for (int i = 0; i < 256; ++i) words.push_back(Bits(VaricodeWord(static_cast<char>(i))));
    return words;
}

TEST(Varicode, WordsBeginAndEndWithAOneHoldNoTwoZerosAndDiffer) {
    std::set<std::string> seen;
    for (const std::string& word : AllWords()) {
        EXPECT_EQ(word.front(), '1') << word;
        EXPECT_EQ(word.back(), '1') << word;
        EXPECT_EQ(word.find("00"), std::string::npos) << word;
        EXPECT_TRUE(seen.insert(word).second) << word;
    }
}

TEST(Varicode, HoldsTheFirstWordsInNumericOrderWithoutAGap) {
    // The lower 128 are the 128 smallest in another order, the upper 128 follow in theirs.
    std::vector<unsigned> words;
    for (unsigned word = 1; words.size() < 256; ++word)
        if (const std::string bits = Bits(word); word % 2 == 1 && bits.find("00") == std::string::npos)
            words.push_back(word);
    std::set<unsigned> lower;
    for (int i = 0; i < 128; ++i) lower.insert(VaricodeWord(static_cast<char>(i)));
    EXPECT_EQ(lower, std::set<unsigned>(words.begin(), words.begin() + 128));
    for (std::size_t i = 128; i < 256; ++i) EXPECT_EQ(VaricodeWord(static_cast<char>(i)), words[i]) << i;
}

TEST(Varicode, GivesCommonCharactersShortWords) {
    EXPECT_EQ(Bits(VaricodeWord(' ')), "1");
    EXPECT_EQ(Bits(VaricodeWord('e')), "11");
    EXPECT_EQ(Bits(VaricodeWord('t')), "101");
    EXPECT_EQ(Bits(VaricodeWord('\r')), "11111");
    EXPECT_EQ(Bits(VaricodeWord('\n')), "11101");
    EXPECT_EQ(Bits(VaricodeWord('E')), "1110111");
    EXPECT_EQ(Bits(VaricodeWord('0')), "10110111");
    EXPECT_EQ(Bits(VaricodeWord('Z')), "1010101101");
    EXPECT_EQ(Bits(VaricodeWord('~')), "1011010111");
    EXPECT_EQ(Bits(VaricodeWord('\x80')), "1110111101");
}

std::string Read(const std::string& bits) {
    VaricodeReader reader;
    std::string text;
    for (const char bit : bits)
        if (const auto character = reader.Put(bit == '1')) text += *character;
    return text;
}

TEST(Varicode, IsReadBack) {
    std::string bits = "000", text;
    for (int i = 0; i < 256; ++i) {
        text += static_cast<char>(i);
        bits += Bits(VaricodeWord(static_cast<char>(i))) + "00";
    }
    EXPECT_EQ(Read(bits), text);
}

TEST(Varicode, PassesOverIdleAndWhatIsNoWord) {
    EXPECT_EQ(Read("0000000"), "");
    EXPECT_EQ(Read("11100000"), "o");
    EXPECT_EQ(Read("11111111111111100"
                   "1100"),
              "e"); // fifteen ones
    EXPECT_EQ(Read(std::string(1000, '1') + "00"
                                            "10100"),
              "t"); // steady carrier
    EXPECT_EQ(Read("11111111111100"
                   "10100"),
              "t"); // twelve ones: beyond the last word
    EXPECT_EQ(Read(std::string(64, '1') + "10101100"
                                          "10100"),
              "t"); // its end looks like a word
}

double Envelope(const Audio& audio, const ModemSetup& setup, double seconds) {
    // Both quadratures of the carrier from neighbouring samples: exact while the envelope stands still.
    const auto n = static_cast<std::size_t>(std::lround(seconds * setup.rate));
    const double turn = 2 * std::numbers::pi * setup.carrier / setup.rate;
    const double phase = turn * static_cast<double>(n);
    const double a = audio[n], b = audio[n + 1];
    const double cosine = (b - a * std::cos(turn)) / std::sin(turn);
    return a * std::sin(phase) + cosine * std::cos(phase);
}

class BpskSpeeds : public testing::TestWithParam<double> {};
INSTANTIATE_TEST_SUITE_P(All, BpskSpeeds, testing::Values(31.25, 62.5, 125.0));

TEST_P(BpskSpeeds, TheTransmitterReversesThePhaseForAZeroAndKeepsItForAOne) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = GetParam(), .carrier = 1000, .rate = 48000};
    const Audio audio = provkanal::Koda(setup, "e"); // 11 and the two zeros behind it
    std::string bits(32, '0');
    bits += "1100" + std::string(32, '1');
    double amplitude = 1;
    for (std::size_t k = 0; k < bits.size(); ++k) {
        const double middle = (static_cast<double>(k) + 1) / setup.baud;
        const double before = Envelope(audio, setup, middle);
        EXPECT_NEAR(before, amplitude, 0.02) << k;
        const double between = Envelope(audio, setup, middle + 0.5 / setup.baud);
        EXPECT_NEAR(between, bits[k] == '1' ? amplitude : 0, 0.02) << k;
        if (bits[k] == '0') amplitude = -amplitude;
    }
    // From silence to silence: half a pulse more in front and behind.
    EXPECT_NEAR(static_cast<double>(audio.size()),
                (static_cast<double>(bits.size()) + 2) / setup.baud * 48000, 257);
    EXPECT_NEAR(audio.front(), 0, 1e-6);
    EXPECT_NEAR(audio.back(), 0, 1e-5);
}

TEST(BpskTransmitter, IdlesUntilItIsToldToFinish) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 8000};
    const auto transmitter = MakeTransmitter(setup);
    Audio audio(80000);
    transmitter->Generate(audio);
    EXPECT_FALSE(transmitter->Done());
    for (const char character : std::string("abc")) transmitter->Put(character);
    EXPECT_EQ(transmitter->Waiting(), 3);
    audio.resize(8000);
    transmitter->Generate(audio);
    EXPECT_EQ(transmitter->Waiting(), 0);
    transmitter->Finish();
    audio.resize(16000);
    transmitter->Generate(audio);
    EXPECT_TRUE(transmitter->Done());
    EXPECT_EQ(audio.back(), 0);
}

/// What a receiver makes of audio that comes in pieces, and two seconds of silence behind it.
std::string Heard(Receiver& receiver, const Audio& audio, double rate, std::size_t piece = 441) {
    std::string text;
    for (std::size_t i = 0; i < audio.size(); i += piece)
        receiver.Receive(std::span(audio).subspan(i, std::min(piece, audio.size() - i)), text);
    receiver.Receive(Audio(static_cast<std::size_t>(2 * rate)), text);
    return text;
}

/// The text without an error, and in front or behind no more than a blank or two that noise made; how seldom
/// it does is a test of its own.
void ExpectText(const std::string& heard, const std::string& text) {
    EXPECT_NE(heard.find(text), std::string::npos) << heard;
    EXPECT_LE(heard.size(), text.size() + 3) << heard;
}

/// Everything that BPSK can carry and a receiver shows.
std::string EveryCharacter() {
    std::string text = "\r\n\b";
    for (int code = 32; code < 256; ++code)
        if (code != 127) text += static_cast<char>(code);
    return text;
}

struct Case {
    double baud, rate;
};
class BpskRoundTrip : public testing::TestWithParam<Case> {};
INSTANTIATE_TEST_SUITE_P(ClocksAndSpeeds, BpskRoundTrip,
                         testing::Values(Case{31.25, 6000}, Case{31.25, 11025}, Case{31.25, 48000},
                                         Case{62.5, 7350}, Case{62.5, 22050}, Case{62.5, 50000},
                                         Case{125, 6000}, Case{125, 8000}, Case{125, 44100},
                                         Case{125, 48000}));

TEST_P(BpskRoundTrip, GivesBackEveryCharacterOnce) {
    const ModemSetup setup{
        .mode = Mode::Bpsk, .baud = GetParam().baud, .carrier = 1200, .rate = GetParam().rate};
    const std::string text = EveryCharacter();
    const Audio clean = provkanal::Koda(setup, text);
    for (const double snr : {100.0, 10.0}) {
        if (snr > 50 && setup.rate > 20000) continue; // a second time costs much and tells little
        const auto receiver = MakeReceiver(setup);
        EXPECT_EQ(Heard(*receiver, provkanal::Sänd(clean, setup.rate, {.snr = snr}), setup.rate), text)
            << snr;
    }
}

TEST_P(BpskRoundTrip, CopesWithASoundCardWhoseClockIsOff) {
    const ModemSetup setup{
        .mode = Mode::Bpsk, .baud = GetParam().baud, .carrier = 1200, .rate = GetParam().rate};
    const std::string text = provkanal::Testtext(setup.rate > 20000 ? 40 : 120, 3);
    for (const double off : {0.005, -0.005, 0.0002}) {
        ModemSetup sent = setup;
        sent.baud *= 1 + off;
        const auto receiver = MakeReceiver(setup);
        const Audio audio = provkanal::Sänd(provkanal::Koda(sent, text), setup.rate, {.snr = 10});
        ExpectText(Heard(*receiver, audio, setup.rate), text);
    }
}

TEST_P(BpskSpeeds, AfcFindsACarrierThatIsOffAndTellsIt) {
    for (const double off : {-0.9, -0.64, -0.3, 0.16, 0.64, 0.9}) { // baud
        const ModemSetup setup{.mode = Mode::Bpsk, .baud = GetParam(), .carrier = 1500, .rate = 8000};
        ModemSetup sent = setup;
        sent.carrier += off * setup.baud;
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(true);
        const Audio audio =
            provkanal::Sänd(provkanal::Koda(sent, "CQ TEST DE SM5XYZ SM5XYZ TEST"), setup.rate, {.snr = 10});
        ExpectText(Heard(*receiver, audio, setup.rate), "CQ TEST DE SM5XYZ SM5XYZ TEST");
        EXPECT_NEAR(receiver->Carrier(), sent.carrier, 1) << off;
    }
}

TEST_P(BpskSpeeds, WithoutAfcASmallErrorIsFollowedAndTheCarrierStaysWhereItIs) {
    for (const double off : {-0.12, 0.12}) { // baud
        const ModemSetup setup{.mode = Mode::Bpsk, .baud = GetParam(), .carrier = 1500, .rate = 8000};
        ModemSetup sent = setup;
        sent.carrier += off * setup.baud;
        const auto receiver = MakeReceiver(setup);
        const Audio audio =
            provkanal::Sänd(provkanal::Koda(sent, "CQ TEST DE SM5XYZ"), setup.rate, {.snr = 10});
        ExpectText(Heard(*receiver, audio, setup.rate), "CQ TEST DE SM5XYZ");
        EXPECT_EQ(receiver->Carrier(), 1500);
    }
}

TEST(BpskReceiver, AfcFollowsADriftAndStationsOneBehindTheOther) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 2740, .rate = 11025};
    const auto receiver = MakeReceiver(setup);
    receiver->Afc(true);
    const std::string text = provkanal::Testtext(60, 2);
    const Audio drifting =
        provkanal::Sänd(provkanal::Koda(setup, text), setup.rate, {.snr = 10, .drift = 10});
    EXPECT_EQ(Heard(*receiver, drifting, setup.rate), text);
    double carrier = receiver->Carrier();
    EXPECT_NEAR(carrier, 2740 + 10.0 / 60 * (static_cast<double>(drifting.size()) / setup.rate - 2), 1.5);
    for (const double step : {25.0, 25.0, 25.0, -15.0}) {
        ModemSetup sent = setup;
        sent.carrier = carrier + step;
        const Audio audio =
            provkanal::Sänd(provkanal::Koda(sent, "R TU 599"), setup.rate, {.snr = 10, .tystnad = 2});
        ExpectText(Heard(*receiver, audio, setup.rate), "R TU 599");
        EXPECT_NEAR(receiver->Carrier(), sent.carrier, 1);
        carrier = receiver->Carrier();
    }
}

TEST(BpskReceiver, TakesNoPartOfAStrongSignalForTheWhole) {
    // An idle signal's tones lie half a baud on either side of it, and what is heard of it a whole baud off
    // has its rhythm too.
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 62.5, .carrier = 1500, .rate = 8000};
    for (std::uint32_t seed = 1; seed <= 30; ++seed) {
        ModemSetup sent = setup;
        sent.carrier += seed % 2 != 0 ? -40 : 55;
        sent.baud *= 0.995;
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(true);
        const Audio audio =
            provkanal::Sänd(provkanal::Koda(sent, "TEST SM5XYZ"), setup.rate, {.snr = 5, .frö = seed});
        EXPECT_NE(Heard(*receiver, audio, setup.rate).find("TEST SM5XYZ"), std::string::npos) << seed;
        EXPECT_NEAR(receiver->Carrier(), sent.carrier, 1) << seed;
    }
}

TEST(BpskReceiver, DoesNotJumpToANeighbourWhileItHasASignal) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 8000};
    ModemSetup other = setup;
    for (const double away : {-60.0, 60.0}) {
        other.carrier = 1500 + away;
        const std::string text = provkanal::Testtext(80, 1);
        Audio audio = provkanal::Sänd(provkanal::Koda(setup, text), setup.rate, {.snr = 10});
        const Audio neighbour = provkanal::Koda(other, provkanal::Testtext(120, 2));
        for (std::size_t i = 0; i < std::min(audio.size(), neighbour.size()); ++i)
            audio[i] += 0.5F * neighbour[i]; // twice as strong
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(true);
        EXPECT_EQ(provkanal::Fel(text, Heard(*receiver, audio, setup.rate)), 0) << away;
        EXPECT_NEAR(receiver->Carrier(), 1500, 1) << away;
    }
}

TEST(BpskReceiver, WhatItGivesDoesNotDependOnThePieces) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 62.5, .carrier = 1500, .rate = 11025};
    ModemSetup sent = setup;
    sent.carrier += 17;
    const Audio audio =
        provkanal::Sänd(provkanal::Koda(sent, provkanal::Testtext(100, 6)), setup.rate, {.snr = -9});
    std::string whole;
    for (const std::size_t piece : {audio.size(), std::size_t{1}, std::size_t{7}, std::size_t{1000}}) {
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(true);
        const std::string text = Heard(*receiver, audio, setup.rate, piece);
        if (whole.empty()) whole = text;
        EXPECT_EQ(text, whole) << piece;
    }
    EXPECT_GT(whole.size(), 80U);
}

TEST(BpskReceiver, TheLastCharacterComesWhateverFollowsIt) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 8000};
    const std::string text = "CQ TEST";
    Audio cut = provkanal::Koda(setup, text);
    // Without the ending: the pulse of the second zero is the last.
    cut.resize(cut.size() - static_cast<std::size_t>(32 / setup.baud * setup.rate));
    for (const double snr : {100.0, 20.0, 0.0}) {
        SCOPED_TRACE(snr);
        const auto receiver = MakeReceiver(setup);
        ExpectText(Heard(*receiver, provkanal::Sänd(cut, setup.rate, {.snr = snr}), setup.rate), text);
    }
}

TEST(BpskReceiver, NoiseAddsACharacterToOneSignalInFifteenAtMost) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 8000};
    constexpr std::uint32_t signals = 60;
    std::size_t more = 0;
    for (std::uint32_t seed = 1; seed <= signals; ++seed) {
        const auto receiver = MakeReceiver(setup);
        const Audio audio = provkanal::Sänd(provkanal::Koda(setup, "TEST"), setup.rate,
                                            {.snr = 10, .tystnad = 2.5, .frö = seed});
        const std::string text = Heard(*receiver, audio, setup.rate);
        EXPECT_NE(text.find("TEST"), std::string::npos) << text;
        more += text.size() - 4;
    }
    EXPECT_LE(more, signals / 15);
}

/// Seconds by which characters come later than the ends of their second zeros, at the worst.
double Latency(double baud, double rate, double snr) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = baud, .carrier = 1500, .rate = rate};
    const std::string text = provkanal::Testtext(80, 4);
    const Audio audio = provkanal::Sänd(provkanal::Koda(setup, text), rate, {.snr = snr});
    // The pulse of bit number n, from 0, has its middle n + 2 symbols behind the start.
    std::vector<double> ends;
    double bits = 32;
    for (const char character : text) {
        bits += static_cast<double>(std::bit_width(VaricodeWord(character))) + 2;
        ends.push_back(1 + (bits + 1) / baud);
    }
    const auto receiver = MakeReceiver(setup);
    std::string heard;
    const auto piece = static_cast<std::size_t>(rate / 500);
    std::size_t known = 0;
    double worst = 0;
    for (std::size_t i = 0; i + piece <= audio.size(); i += piece) {
        receiver->Receive(std::span(audio).subspan(i, piece), heard);
        for (; known < heard.size() && known < ends.size(); ++known)
            worst = std::max(worst, static_cast<double>(i + piece) / rate - ends[known]);
    }
    EXPECT_EQ(heard, text);
    return worst;
}

TEST(BpskReceiver, ACharacterIsOutHalfASecondBehindItsEnd) {
    for (const double rate : {8000.0, 48000.0}) {
        EXPECT_LT(Latency(31.25, rate, 10), 0.5) << rate;
        EXPECT_LT(Latency(62.5, rate, 10), 0.3) << rate;
        EXPECT_LT(Latency(125, rate, 10), 0.25) << rate;
    }
}

TEST(BpskReceiver, NoiseAlonePrintsNothingAndMovesNoCarrier) {
    for (const double baud : {31.25, 62.5, 125.0}) {
        const ModemSetup setup{.mode = Mode::Bpsk, .baud = baud, .carrier = 1500, .rate = 8000};
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(true);
        const std::string text = Heard(*receiver, provkanal::Brus(120, setup.rate, 5), setup.rate);
        EXPECT_LE(text.size(), 1U) << text;
        EXPECT_EQ(receiver->Carrier(), 1500);
        EXPECT_LT(receiver->Now().quality, 0.5);
    }
}

TEST(BpskReceiver, SquelchOffPrintsNoise) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 8000};
    const auto receiver = MakeReceiver(setup);
    receiver->Squelch(false);
    EXPECT_GT(Heard(*receiver, provkanal::Brus(60, setup.rate, 5), setup.rate).size(), 60U);
}

/// Errors in five hundred characters of contest text, or so many times that.
int Errors(double baud, double snr, std::uint32_t times, double off = 0, double clock = 0) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = baud, .carrier = 1500, .rate = 8000};
    ModemSetup sent = setup;
    sent.carrier += off;
    sent.baud *= 1 + clock;
    int errors = 0;
    for (std::uint32_t seed = 1; seed <= times; ++seed) {
        const std::string text = provkanal::Testtext(500, seed);
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(off != 0);
        const Audio audio =
            provkanal::Sänd(provkanal::Koda(sent, text + " "), setup.rate, {.snr = snr, .frö = seed});
        errors += provkanal::Fel(text, Heard(*receiver, audio, setup.rate));
    }
    return errors;
}

TEST(BpskReceiver, GetsOneCharacterInAHundredWrongAtMostInTheNoiseItIsMadeFor) {
    EXPECT_LE(Errors(31.25, -11.1, 2), 10);
    EXPECT_LE(Errors(62.5, -8.1, 2), 10);
    EXPECT_LE(Errors(125, -5.1, 2), 10);
}

TEST(BpskReceiver, LosesLessThanHalfADecibelToAWrongCarrierOrClock) {
    EXPECT_LE(Errors(31.25, -10.8, 1, 20), 5);
    EXPECT_LE(Errors(31.25, -10.8, 1, -20), 5);
    EXPECT_LE(Errors(31.25, -10.8, 1, 0, 0.005), 5);
    EXPECT_LE(Errors(31.25, -10.8, 1, 0, -0.005), 5);
}

TEST(BpskReceiver, TheSquelchLetsASignalThroughThatHasATenthOfItsCharactersWrong) {
    EXPECT_LE(Errors(31.25, -13.7, 1), 75);
}

TEST(BpskReceiver, ASlipOfThePhaseCostsACharacterAndNoMore) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 8000};
    const std::string text = provkanal::Testtext(80, 9);
    for (const double at : {0.4, 0.5, 0.6}) {
        Audio audio = provkanal::Sänd(provkanal::Koda(setup, text), setup.rate, {.snr = 10});
        for (auto i = static_cast<std::size_t>(at * static_cast<double>(audio.size())); i < audio.size(); ++i)
            audio[i] = -audio[i];
        const auto receiver = MakeReceiver(setup);
        EXPECT_LE(provkanal::Fel(text, Heard(*receiver, audio, setup.rate)), 2) << at;
    }
}

TEST(BpskReceiver, CommandsAreNotText) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 125, .carrier = 1500, .rate = 8000};
    std::string sent = "a";
    for (int code = 0; code < 32; ++code) sent += static_cast<char>(code);
    const auto receiver = MakeReceiver(setup);
    EXPECT_EQ(Heard(*receiver,
                    provkanal::Sänd(provkanal::Koda(setup, sent + "\x7fz"), setup.rate, {.snr = 20}),
                    setup.rate),
              "a\b\n\rz");
}

TEST(BpskReceiver, TuningMovesItToAnotherSignal) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 62.5, .carrier = 1000, .rate = 11025};
    ModemSetup second = setup;
    second.carrier = 1900;
    const auto receiver = MakeReceiver(setup);
    EXPECT_EQ(
        Heard(*receiver, provkanal::Sänd(provkanal::Koda(setup, "one"), setup.rate, {.snr = 10}), setup.rate),
        "one");
    receiver->Carrier(1900);
    EXPECT_EQ(receiver->Carrier(), 1900);
    EXPECT_EQ(Heard(*receiver, provkanal::Sänd(provkanal::Koda(second, "two"), setup.rate, {.snr = 10}),
                    setup.rate),
              "two");
}

TEST(BpskReceiver, ShowsTheSymbolsAndHowWellTheyAreReceived) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 31.25, .carrier = 1500, .rate = 8000};
    const auto receiver = MakeReceiver(setup);
    Audio audio =
        provkanal::Sänd(provkanal::Koda(setup, provkanal::Testtext(40, 1)), setup.rate, {.snr = 20});
    audio.resize(audio.size() / 2); // in the midst of it
    std::string text;
    receiver->Receive(audio, text);
    const Sync sync = receiver->Now();
    EXPECT_GT(sync.quality, 0.9);
    ASSERT_GT(sync.points.size(), 20U);
    for (const float point : sync.points) {
        EXPECT_GE(std::abs(point), 0.3F);
        EXPECT_LE(std::abs(point), 1.0F);
    }
}

} // namespace
} // namespace platform::modem
