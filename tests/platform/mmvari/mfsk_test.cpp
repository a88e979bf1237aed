// MFSK16, MFSK8 and MFSK32: the words of the characters, the waveform, and what a receiver makes of it.
#include "platform/mmvari/modem/likelihood.h"
#include "platform/mmvari/modem/mfsk.h"
#include "platform/mmvari/modem/mfsk_bank.h"
#include "platform/mmvari/modem/mfsk_code.h"
#include "platform/mmvari/modem/mfsk_correlator.h"
#include "platform/mmvari/modem/mfsk_soft.h"
#include "platform/mmvari/modem/mfsk_tracker.h"
#include "platform/mmvari/modem/mfsk_varicode.h"
#include "platform/mmvari/modem/mfsk_viterbi.h"
#include "support/Kanal.h"

#include <cmath>
#include <complex>
#include <gtest/gtest.h>
#include <numbers>
#include <set>
#include <stdexcept>

using namespace platform::modem;
using provkanal::Audio;

namespace {

using ModemSetup = platform::modem::Setup; // a test has a function of that name
constexpr ModemSetup mfsk16{.mode = Mode::MfskU, .baud = 15.625, .carrier = 1500, .rate = 11025};

std::string Bits(MfskWord word) {
    std::string bits;
    for (int i = word.length - 1; i >= 0; --i)
        bits += (word.bits >> static_cast<unsigned>(i) & 1U) != 0 ? '1' : '0';
    return bits;
}
std::string Bits(int character) { return Bits(MfskWords()[static_cast<std::size_t>(character)]); }

/// The audio's complex amplitude at a frequency over a stretch; a full tone has magnitude 1.
double Strength(const Audio& audio, double rate, double hertz, double from, double seconds) {
    std::complex<double> sum;
    const auto first = static_cast<std::size_t>(from * rate),
               count = static_cast<std::size_t>(seconds * rate);
    for (std::size_t i = first; i < first + count; ++i)
        sum += static_cast<double>(audio.at(i)) *
               std::polar(1.0, -2 * std::numbers::pi * hertz * static_cast<double>(i) / rate);
    return 2 * std::abs(sum) / static_cast<double>(count);
}

/// The loudest tone, from the lowest, in the middle of symbol number `symbol`.
int Loudest(const Audio& audio, const ModemSetup& setup, int tones, int symbol) {
    int best = 0;
    double most = 0;
    for (int tone = 0; tone < tones; ++tone) {
        const double hertz = setup.carrier + (tone - (tones - 1) / 2.0) * setup.baud;
        const double strength = Strength(audio, setup.rate, hertz, symbol / setup.baud, 1 / setup.baud);
        if (strength > most) {
            most = strength;
            best = tone;
        }
    }
    return best;
}

/// What a receiver makes of audio that comes in pieces, with six seconds of silence behind it.
std::string Received(Receiver& receiver, const Audio& audio, double rate, std::size_t piece = 441) {
    std::string text;
    for (std::size_t i = 0; i < audio.size(); i += piece)
        receiver.Receive(std::span(audio).subspan(i, std::min(piece, audio.size() - i)), text);
    receiver.Receive(Audio(static_cast<std::size_t>(6 * rate)), text);
    return text;
}
std::string Received(const ModemSetup& setup, const Audio& audio, bool afc = false) {
    const auto receiver = MakeReceiver(setup);
    receiver->Afc(afc);
    return Received(*receiver, audio, setup.rate);
}

constexpr const char* text = "CQ TEST de SM5X {599} 0012 ~ pse k";

} // namespace

TEST(MfskVaricode, EachOf256WordsIsItsOwnAndEndsOnlyAtItsEnd) {
    std::set<std::string> seen;
    for (int c = 0; c < 256; ++c) {
        const std::string word = Bits(c);
        ASSERT_GE(word.size(), 3U) << c;
        ASSERT_LE(word.size(), 12U) << c;
        EXPECT_EQ(word.front(), '1') << c;
        EXPECT_TRUE(word.ends_with("00")) << word;
        EXPECT_EQ(word.find("001"), std::string::npos) << word;
        EXPECT_TRUE(seen.insert(word).second) << word;
    }
}

TEST(MfskVaricode, KnowsThePublishedWords) {
    const std::pair<int, const char*> published[] = {
        {' ', "100"},          {'e', "1000"},        {'t', "1100"},         {'o', "10000"},
        {'a', "10100"},        {'n', "11100"},       {'h', "110000"},       {'d', "110100"},
        {'m', "1000000"},      {'p', "1010100"},     {'j', "10000000"},     {',', "10100000"},
        {'\b', "10101000"},    {'\r', "10101100"},   {'T', "10110000"},     {'E', "10111000"},
        {'0', "11100000"},     {'1', "11110000"},    {'9', "110101100"},    {'Q', "110110000"},
        {'?', "111010000"},    {'/', "111101000"},   {'&', "1000000000"},   {'~', "1011110000"},
        {160, "1011110100"},   {195, "1111111100"},  {196, "10000000000"},  {255, "11101011000"},
        {0, "11101011100"},    {1, "11101100000"},   {'\t', "11110000000"}, {'\n', "11110100000"},
        {29, "11111111100"},   {30, "100000000000"}, {31, "101000000000"},  {127, "101010000000"},
        {128, "101010100000"},
    };
    for (const auto& [character, word] : published) EXPECT_EQ(Bits(character), word) << character;
}

TEST(MfskVaricode, CutsAStreamIntoItsCharacters) {
    MfskWordReader reader;
    std::string read;
    const auto take = [&](const std::string& bits) {
        for (const char bit : bits)
            if (const auto c = reader.Take(bit == '1')) read += *c;
    };
    take("0000");
    for (int c = 0; c < 256; ++c) take(Bits(c));
    take("1");
    ASSERT_EQ(read.size(), 256U);
    for (int c = 0; c < 256; ++c) EXPECT_EQ(static_cast<unsigned char>(read[static_cast<std::size_t>(c)]), c);
}

TEST(MfskVaricode, AOneAndManyZerosAreNoCharacter) {
    MfskWordReader reader;
    for (int zeros = 12; zeros < 70; ++zeros) {
        EXPECT_FALSE(reader.Take(true));
        for (int i = 0; i < zeros; ++i) EXPECT_FALSE(reader.Take(false));
    }
    EXPECT_FALSE(reader.Take(true));
    EXPECT_FALSE(reader.Take(false));
    EXPECT_FALSE(reader.Take(false));
    EXPECT_EQ(reader.Take(true), ' ');
}

TEST(MfskCode, TonesSideBySideDifferInOneBit) {
    for (unsigned tone = 0; tone < 32; ++tone) {
        EXPECT_EQ(MfskToneOfBits(MfskBitsOfTone(tone)), tone);
        if (tone > 0) {
            const unsigned differ = MfskBitsOfTone(tone) ^ MfskBitsOfTone(tone - 1);
            EXPECT_EQ(differ & (differ - 1), 0U);
        }
    }
}

TEST(MfskCode, AOneComesOutSpreadOverSevenBitsAndThirtySymbols) {
    MfskEncoder encoder(MfskShapeOf(mfsk16));
    std::vector<unsigned> bits;
    for (int i = 0; i < 100; ++i)
        if (const auto tone = encoder.Take(i == 0)) bits.push_back(MfskBitsOfTone(*tone));
    ASSERT_EQ(bits.size(), 50U);
    // A lone one shows the polynomials by turns, from their lowest bit: 1011011 and 1111001.
    std::string undelayed;
    for (std::size_t n = 0; n < 4; ++n)
        for (unsigned i = 0; i < 4; ++i)
            undelayed += (bits[n + std::size_t{10} * i] >> (3 - i) & 1U) != 0 ? '1' : '0';
    EXPECT_EQ(undelayed, "1101111100101100");
    for (std::size_t n = 34; n < 50; ++n) EXPECT_EQ(bits[n], 0U);
}

TEST(MfskTransmitter, SendsItsTonesOneAfterTheOtherWithoutAJump) {
    for (const double baud : {15.625, 7.8125, 31.25})
        for (const Mode mode : {Mode::MfskU, Mode::MfskL}) {
            ModemSetup setup = mfsk16;
            setup.baud = baud;
            setup.mode = mode;
            const MfskShape shape = MfskShapeOf(setup);
            const Audio audio = provkanal::Koda(setup, "CQ TEST");

            MfskEncoder encoder(shape);
            std::vector<unsigned> tones;
            const auto take = [&](const std::string& bits) {
                for (const char bit : bits)
                    if (const auto tone = encoder.Take(bit == '1')) tones.push_back(*tone);
            };
            take(std::string(static_cast<std::size_t>(16 * shape.bits / 2), '0'));
            take("10000000000001000000000000");
            for (const char c : std::string("CQ TEST")) take(Bits(c));
            take("1" + std::string(100, '0'));
            for (std::size_t symbol = 0; symbol < tones.size() - 10; ++symbol) {
                const auto tone = static_cast<int>(tones[symbol]);
                EXPECT_EQ(Loudest(audio, setup, shape.Tones(), static_cast<int>(symbol)),
                          mode == Mode::MfskU ? tone : shape.Tones() - 1 - tone)
                    << baud << ' ' << symbol;
            }
            // No step is longer than that of the highest tone at full strength.
            float peak = 0, step = 0;
            for (std::size_t i = 1; i < audio.size(); ++i) {
                peak = std::max(peak, std::abs(audio[i]));
                step = std::max(step, std::abs(audio[i] - audio[i - 1]));
            }
            EXPECT_LE(peak, 1.0F);
            EXPECT_GT(peak, 0.999F);
            const double highest = setup.carrier + shape.Tones() / 2.0 * baud;
            EXPECT_LE(step, 2 * std::sin(std::numbers::pi * highest / setup.rate) + 1e-3);
        }
}

TEST(MfskTransmitter, IdlesUntilACharacterComesAndEndsWhenToldTo) {
    const auto transmitter = MakeTransmitter(mfsk16);
    Audio audio(static_cast<std::size_t>(10 * mfsk16.rate));
    transmitter->Generate(audio);
    EXPECT_FALSE(transmitter->Done());
    EXPECT_NEAR(Strength(audio, mfsk16.rate, 1500 - 7.5 * 15.625, 0.1, 0.5), 1, 0.01);
    transmitter->Put('A');
    transmitter->Put('B');
    EXPECT_EQ(transmitter->Waiting(), 2);
    // The character waits for the shortest idling that cannot be taken for one, not for the whole.
    audio.resize(static_cast<std::size_t>(0.8 * mfsk16.rate));
    transmitter->Generate(audio);
    EXPECT_LT(transmitter->Waiting(), 2);
    transmitter->Finish();
    audio.resize(static_cast<std::size_t>(5 * mfsk16.rate));
    transmitter->Generate(audio);
    EXPECT_TRUE(transmitter->Done());
    EXPECT_EQ(audio.back(), 0.0F);
}

TEST(MfskShape, RefusesWhatIsNoneOfItsSpeedsOrHasNoRoom) {
    ModemSetup setup = mfsk16;
    setup.baud = 45.45;
    EXPECT_THROW(MakeTransmitter(setup), std::invalid_argument);
    setup.baud = 31.25;
    setup.carrier = 200;
    EXPECT_THROW(MakeTransmitter(setup), std::invalid_argument);
}

TEST(MfskSoft, KnowsTheBesselFunction) {
    for (const float x : {0.0F, 0.5F, 1.0F, 3.7F, 3.8F, 10.0F, 60.0F}) {
        const double value = std::cyl_bessel_i(0.0, static_cast<double>(x));
        EXPECT_NEAR(static_cast<double>(BesselI0(x)) / value, 1, 1e-5) << x;
        EXPECT_NEAR(static_cast<double>(LogI0(x)), std::log(value), 1e-5) << x;
    }
    EXPECT_NEAR(LogI0(1000.0F), 995.627, 0.01);
}

TEST(MfskSoft, IsSureOfAClearToneAndNotOfNoise) {
    MfskSoftBits soft(MfskShapeOf(mfsk16), 20);
    std::mt19937 random(1);
    std::exponential_distribution<float> noise(1);
    std::vector<float> energies(20), bits(4);
    double sure = 0;
    for (int symbol = 0; symbol < 200; ++symbol) {
        for (float& energy : energies) energy = noise(random);
        soft.Take(energies);
        soft.Bits(2, bits);
        for (const float bit : bits) sure += std::abs(static_cast<double>(bit)) / 800;
    }
    EXPECT_LT(sure, 2.5);
    EXPECT_NEAR(soft.Levels().Noise(), 1, 0.35);
    for (int symbol = 0; symbol < 40; ++symbol) {
        for (float& energy : energies) energy = noise(random);
        energies[2 + 5] += 50; // tone 5 carries 0111
        soft.Take(energies);
        soft.Bits(2, bits);
    }
    EXPECT_NEAR(soft.Levels().Signal(), 50, 10);
    EXPECT_GT(bits[0], 5);
    for (std::size_t i = 1; i < 4; ++i) EXPECT_LT(bits[i], -5);
}

TEST(MfskViterbi, CorrectsWrongBitsAndKnowsACodeFromNoise) {
    std::mt19937 random(2);
    MfskViterbi viterbi, idle;
    std::vector<bool> sent;
    unsigned window = 0;
    for (int step = 0; step < 400; ++step) {
        sent.push_back(random() % 2 != 0);
        window = (window << 1U | (sent.back() ? 1U : 0U)) & 127U;
        const unsigned code = MfskCode::Output(window);
        float first = (code & 2U) != 0 ? -3.0F : 3.0F;
        const float second = (code & 1U) != 0 ? -3.0F : 3.0F;
        // Every fourteenth bit is wrong.
        if (step % 7 == 3) first = -first;
        const bool decided = viterbi.Take(first, second);
        if (step > 2 * MfskViterbi::lookBack) {
            EXPECT_EQ(decided, sent[sent.size() - 1 - MfskViterbi::lookBack]) << step;
        }
        const auto any = [&] { return random() % 2 != 0 ? 3.0F : -3.0F; };
        const float a = any(), b = any();
        idle.Take(a, b);
    }
    EXPECT_GT(viterbi.Evidence(64), 10);
    EXPECT_LT(idle.Evidence(64), 0);
    EXPECT_EQ(viterbi.Steps(), 400);
}

TEST(MfskBank, WeighsATonesEnergyInItsBin) {
    const double symbol = 61.3, lowest = -0.1;
    MfskBank bank(symbol, 40, lowest, 0.25 / symbol);
    std::vector<Complex> samples;
    samples.reserve(400);
    for (int n = 0; n < 400; ++n)
        samples.emplace_back(std::polar(1.0, 2 * std::numbers::pi * (lowest + 12 * 0.25 / symbol) * n));
    std::vector<float> energies(40);
    for (std::size_t at = 0; at + static_cast<std::size_t>(bank.Needs()) < samples.size();) {
        const auto needs = static_cast<std::size_t>(bank.Needs());
        bank.Take(&samples[at], energies);
        at += needs;
    }
    EXPECT_NEAR(energies[12] / (symbol * symbol), 1, 0.05);
    // A tone's distance away it is gone, a quarter of it away it has lost a tenth of its amplitude.
    EXPECT_NEAR(energies[13] / energies[12], 0.81, 0.03);
    EXPECT_LT(energies[16] / energies[12], 0.01);
}

TEST(MfskCorrelator, TakesASymbolThatBeginsBetweenSamplesAndLiesOff) {
    const double symbol = 61.3, lowest = -7.5 / symbol;
    MfskCorrelator correlator(symbol, 16, lowest);
    std::vector<Complex> samples;
    samples.reserve(400);
    for (std::size_t n = 0; n < correlator.Reach(); ++n)
        samples.emplace_back(
            std::polar(1.0, 2 * std::numbers::pi * (lowest + 3.3 / symbol) * static_cast<double>(n)));
    correlator.Take(samples.data(), 0.37, symbol, 0.3);
    EXPECT_NEAR(correlator.Energies()[3] / (symbol * symbol), 1, 0.01);
    EXPECT_LT(correlator.Energies()[4] / (symbol * symbol), 0.001);
    // Taken for 0.1 lower it turns by a tenth of half a circle.
    correlator.Take(samples.data(), 0.37, symbol, 0.2);
    std::vector<float> weights(16, 0.0F);
    weights[3] = 1;
    EXPECT_NEAR(std::arg(correlator.Turn(weights)) / std::numbers::pi, 0.1, 0.01);
}

TEST(MfskTracker, FollowsAFastClockWithoutLag) {
    MfskTracker tracker;
    const double rate = -0.004, begin = 0.3;
    std::vector<float> logs(std::size_t{MfskTracker::fractions} * MfskTracker::phases);
    double at = 0;
    for (int symbol = 0; symbol < 300; ++symbol) {
        at = begin + rate * symbol;
        for (int fraction = 0; fraction < MfskTracker::fractions; ++fraction)
            for (int phase = 0; phase < MfskTracker::phases; ++phase) {
                const double late = phase / 16.0 - at;
                logs[static_cast<std::size_t>(fraction) * MfskTracker::phases +
                     static_cast<std::size_t>(phase)] =
                    static_cast<float>((fraction == 3 ? 4 : 3) * (1 - std::abs(late - std::round(late))));
            }
        tracker.Take(logs);
    }
    const double late = tracker.Now().phase - at;
    EXPECT_NEAR(late - std::round(late), 0, 0.02);
    EXPECT_NEAR(tracker.Now().rate, rate, 0.0011);
    EXPECT_NEAR(tracker.Now().fraction, 0.25, 0.1);
}

TEST(MfskReceiver, ReadsWhatTheTransmitterSendsAtAnySpeedSidebandAndRate) {
    for (const double baud : {15.625, 7.8125, 31.25})
        for (const Mode mode : {Mode::MfskU, Mode::MfskL})
            for (const double rate : {6000.0, 11025.0, 50000.0}) {
                const ModemSetup setup{.mode = mode, .baud = baud, .carrier = 1500, .rate = rate};
                EXPECT_EQ(Received(setup, provkanal::Koda(setup, text)), text) << baud << ' ' << rate;
            }
}

TEST(MfskReceiver, TakesTheSamplesInPiecesOfAnyLength) {
    const Audio audio = provkanal::Sänd(provkanal::Koda(mfsk16, provkanal::Testtext(60, 1)), mfsk16.rate,
                                        {.snr = -14.5, .frö = 3});
    const auto received = [&](std::size_t piece) {
        const auto receiver = MakeReceiver(mfsk16);
        receiver->Squelch(false);
        return Received(*receiver, audio, mfsk16.rate, piece);
    };
    const std::string whole = received(audio.size());
    EXPECT_GT(whole.size(), 50U);
    for (const std::size_t piece : {1U, 7U, 4096U}) EXPECT_EQ(received(piece), whole) << piece;
}

TEST(MfskReceiver, FollowsAClockThatIsOff) {
    for (const double off : {0.005, -0.005, 0.0002}) {
        ModemSetup sent = mfsk16;
        sent.baud *= 1 + off;
        const std::string long_ = provkanal::Testtext(120, 2);
        const Audio audio =
            provkanal::Sänd(provkanal::Koda(sent, long_), mfsk16.rate, {.snr = -12, .frö = 4});
        EXPECT_EQ(Received(mfsk16, audio), long_) << off;
    }
}

TEST(MfskReceiver, FindsASignalTwentyHertzOff) {
    for (const Mode mode : {Mode::MfskU, Mode::MfskL})
        for (const double off : {20.0, -20.0, 8.0}) {
            ModemSetup setup = mfsk16, sent = mfsk16;
            sent.mode = setup.mode = mode;
            sent.carrier += off;
            const Audio audio =
                provkanal::Sänd(provkanal::Koda(sent, text), setup.rate, {.snr = -10, .frö = 5});
            const auto receiver = MakeReceiver(setup);
            receiver->Afc(true);
            EXPECT_EQ(Received(*receiver, audio, setup.rate), text) << off;
            EXPECT_NEAR(receiver->Carrier(), sent.carrier, 1) << off;
        }
}

TEST(MfskReceiver, ReadsASignalSomeHertzOffWithoutAfcAndStaysWhereItIs) {
    for (const double off : {4.0, -4.0}) {
        ModemSetup sent = mfsk16;
        sent.carrier += off;
        const auto receiver = MakeReceiver(mfsk16);
        const Audio audio = provkanal::Sänd(provkanal::Koda(sent, text), mfsk16.rate, {.snr = -10, .frö = 6});
        EXPECT_EQ(Received(*receiver, audio, mfsk16.rate), text) << off;
        EXPECT_EQ(receiver->Carrier(), mfsk16.carrier);
    }
}

TEST(MfskReceiver, FollowsADriftAcrossTheTones) {
    const std::string long_ = provkanal::Testtext(200, 3);
    const Audio audio =
        provkanal::Sänd(provkanal::Koda(mfsk16, long_), mfsk16.rate, {.snr = -10, .drift = 20, .frö = 7});
    EXPECT_LE(provkanal::Fel(long_, Received(mfsk16, audio, true)), 1);
}

TEST(MfskReceiver, ReadsAWeakSignalWithFewErrors) {
    const std::string long_ = provkanal::Testtext(400, 5);
    for (const auto& [baud, snr] : {std::pair(15.625, -13.5), {31.25, -10.5}}) {
        ModemSetup setup = mfsk16;
        setup.baud = baud;
        setup.rate = 8000;
        const Audio audio =
            provkanal::Sänd(provkanal::Koda(setup, "RYRYRY " + long_), setup.rate, {.snr = snr, .frö = 8});
        EXPECT_LE(provkanal::Fel(long_, Received(setup, audio)), 4) << baud;
    }
}

TEST(MfskReceiver, IsQuietOnNoiseAndStaysTuned) {
    for (const double baud : {15.625, 7.8125, 31.25}) {
        ModemSetup setup = mfsk16;
        setup.baud = baud;
        setup.rate = 8000;
        const Audio noise = provkanal::Brus(120, setup.rate, 9);
        const auto receiver = MakeReceiver(setup);
        receiver->Afc(true);
        EXPECT_EQ(Received(*receiver, noise, setup.rate), "") << baud;
        EXPECT_EQ(receiver->Carrier(), setup.carrier);
        EXPECT_LT(receiver->Now().quality, 0.1);
        const auto open = MakeReceiver(setup);
        open->Squelch(false);
        EXPECT_GT(Received(*open, noise, setup.rate).size(), 50U) << baud;
    }
}

TEST(MfskReceiver, PrintsNothingInFrontOfASignalAndBehindIt) {
    for (std::uint32_t seed = 1; seed <= 3; ++seed) {
        const Audio audio = provkanal::Sänd(provkanal::Koda(mfsk16, text), mfsk16.rate,
                                            {.snr = -8, .tystnad = 6, .frö = seed});
        EXPECT_EQ(Received(mfsk16, audio, true), text) << seed;
    }
}

TEST(MfskReceiver, GivesACharacterAtMost3point3SecondsAfterItsEnd) {
    const std::string long_ = provkanal::Testtext(60, 6);
    const Audio audio = provkanal::Koda(mfsk16, long_);
    const auto receiver = MakeReceiver(mfsk16);
    std::string received;
    std::vector<double> came; // seconds
    for (std::size_t i = 0; i + 110 <= audio.size(); i += 110) {
        receiver->Receive(std::span(audio).subspan(i, 110), received);
        came.resize(received.size(), static_cast<double>(i + 110) / mfsk16.rate);
    }
    ASSERT_EQ(received, long_);
    std::size_t bits = 32 + 26; // in front of the text
    for (std::size_t i = 0; i < long_.size(); ++i) {
        bits += MfskWords()[static_cast<unsigned char>(long_[i])].length;
        // A symbol carries two of them; the last bit's is over with its symbol.
        const std::size_t symbols = (bits + 1) / 2;
        const double end = static_cast<double>(symbols) / mfsk16.baud;
        EXPECT_LE(came[i] - end, 3.3) << i;
    }
}

TEST(MfskReceiver, BringsOutTheLastCharacterWhateverFollows) {
    const Audio audio = provkanal::Koda(mfsk16, "TEST K");
    for (const double snr : {100.0, 0.0}) {
        Audio with = provkanal::Sänd(audio, mfsk16.rate, {.snr = snr, .tystnad = 0.5});
        const Audio noise = provkanal::Brus(4, mfsk16.rate, 77);
        with.insert(with.end(), noise.begin(), noise.end());
        std::string received;
        MakeReceiver(mfsk16)->Receive(with, received);
        EXPECT_EQ(received, "TEST K") << snr;
    }
}

TEST(MfskReceiver, DropsControlCharactersButThoseThatMoveTheCursor) {
    const std::string sent = std::string("A\0B\tC\x1b"
                                         "D\x7f"
                                         "E\r\nF\bG\x02\xe5",
                                         16);
    EXPECT_EQ(Received(mfsk16, provkanal::Koda(mfsk16, sent)), "ABCDE\r\nF\bG\xe5");
}

TEST(MfskReceiver, TakesALoneToneForNoText) {
    for (const double hertz : {1390.0, 1450.0, 1503.0, 1600.0}) {
        Audio tone(static_cast<std::size_t>(30 * mfsk16.rate));
        for (std::size_t i = 0; i < tone.size(); ++i)
            tone[i] = static_cast<float>(
                std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / mfsk16.rate));
        EXPECT_LE(Received(mfsk16, provkanal::Sänd(tone, mfsk16.rate, {.snr = 5}), true).size(), 1U) << hertz;
    }
}

TEST(MfskReceiver, ForgetsWhatItHeardWhenItIsTuned) {
    const auto receiver = MakeReceiver(mfsk16);
    std::string received;
    const Audio audio = provkanal::Koda(mfsk16, text);
    receiver->Receive(std::span(audio).first(audio.size() / 2), received);
    received.clear();
    receiver->Carrier(1000);
    EXPECT_EQ(receiver->Carrier(), 1000);
    ModemSetup there = mfsk16;
    there.carrier = 1000;
    EXPECT_EQ(Received(*receiver, provkanal::Koda(there, text), mfsk16.rate), text);
}
