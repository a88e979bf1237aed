// What the band does to all modes alike: neighbours, tones, stations of unlike strength, the ends of the
// audio.
#include "support/Kanal.h"

#include <cmath>
#include <gtest/gtest.h>
#include <numbers>

namespace platform::modem {
namespace {

using provkanal::Audio;
using ModemSetup = Setup; // a test class has a Setup of its own

constexpr double rate = 8000;

/// Adds what begins at a moment, so much stronger.
void Mix(Audio& into, const Audio& what, double gain, double at) {
    const auto first = static_cast<std::size_t>(at * rate);
    into.resize(std::max(into.size(), first + what.size()));
    for (std::size_t i = 0; i < what.size(); ++i) into[first + i] += static_cast<float>(gain) * what[i];
}
Audio Noise(double seconds, double sigma, std::uint32_t seed = 1) {
    Audio noise = provkanal::Brus(seconds, rate, seed);
    for (float& sample : noise) sample *= static_cast<float>(sigma / 0.1);
    return noise;
}
/// The noise's standard deviation beside a signal of amplitude 1 on the air. @param snr dB in 2,500 Hz
double Sigma(double snr) { return std::sqrt(0.5 / std::pow(10, snr / 10) / 2500 * rate / 2); }
Audio Tone(double hertz, double seconds) {
    Audio tone(static_cast<std::size_t>(seconds * rate));
    for (std::size_t i = 0; i < tone.size(); ++i)
        tone[i] = static_cast<float>(std::sin(2 * std::numbers::pi * hertz * static_cast<double>(i) / rate));
    return tone;
}
double Seconds(const Audio& audio) { return static_cast<double>(audio.size()) / rate; }

/// What a receiver with AFC makes of it, and how far its carrier went.
struct Heard {
    std::string text;
    double carrier = 0, furthest = 0; ///< Hz
};
Heard Hear(const ModemSetup& setup, Audio audio, bool atc = false, bool squelch = true) {
    for (float& sample : audio) sample *= 0.1F;
    const auto receiver = MakeReceiver(setup);
    receiver->Afc(true);
    receiver->Atc(atc);
    receiver->Squelch(squelch);
    Heard heard;
    const auto piece = static_cast<std::size_t>(setup.rate / 50);
    for (std::size_t i = 0; i < audio.size(); i += piece) {
        receiver->Receive(std::span(audio).subspan(i, std::min(piece, audio.size() - i)), heard.text);
        heard.furthest = std::max(heard.furthest, std::abs(receiver->Carrier() - setup.carrier));
    }
    heard.carrier = receiver->Carrier();
    return heard;
}

class EachMode : public testing::TestWithParam<std::pair<Mode, double>> {
protected:
    ModemSetup At(double carrier = 1500) const {
        return {.mode = GetParam().first, .baud = GetParam().second, .carrier = carrier, .rate = rate};
    }
    bool IsMfsk() const { return GetParam().first == Mode::MfskL || GetParam().first == Mode::MfskU; }
    bool IsRtty() const { return GetParam().first == Mode::RttyL || GetParam().first == Mode::RttyU; }
};
INSTANTIATE_TEST_SUITE_P(Modes, EachMode,
                         testing::Values(std::pair{Mode::Bpsk, 31.25}, std::pair{Mode::Bpsk, 62.5},
                                         std::pair{Mode::RttyL, 45.45}, std::pair{Mode::RttyU, 45.45},
                                         std::pair{Mode::RttyL, 75.0}, std::pair{Mode::MfskU, 15.625},
                                         std::pair{Mode::MfskL, 31.25}));

TEST_P(EachMode, AStationOutsideTheRangeMovesNoCarrier) {
    for (const double snr : {20.0, 0.0})
        for (const double off : {60.0, -60.0, 80.0, -80.0, 100.0, -100.0}) {
            // BPSK's AFC reaches as far as a baud.
            if (GetParam().first == Mode::Bpsk && std::abs(off) <= 1.1 * GetParam().second) continue;
            Audio station = provkanal::Koda(At(1500 + off), provkanal::Testtext(110, 3));
            station.resize(static_cast<std::size_t>(12 * rate));
            Audio audio = Noise(13, Sigma(snr));
            Mix(audio, station, 1, 0.5);
            EXPECT_LE(Hear(At(), audio).furthest, 2) << snr << " dB, " << off << " Hz";
        }
}

TEST(MfskAfc, ASignalThatIsTunedToIsNotLeftForWhereItWasBefore) {
    const ModemSetup setup{.mode = Mode::MfskU, .baud = 15.625, .carrier = 1500, .rate = rate};
    ModemSetup sent = setup;
    sent.carrier = 1503.5;
    const Audio audio =
        provkanal::Sänd(provkanal::Koda(sent, provkanal::Testtext(120, 5)), rate, {.snr = 10});
    const auto receiver = MakeReceiver(setup);
    receiver->Afc(true);
    std::string text;
    const auto half = audio.size() / 2, piece = static_cast<std::size_t>(rate / 50);
    receiver->Receive(std::span(audio).first(half), text);
    ASSERT_NEAR(receiver->Carrier(), 1503.5, 1);
    receiver->Carrier(1503.5);
    for (std::size_t i = half; i + piece <= audio.size() - static_cast<std::size_t>(rate); i += piece) {
        receiver->Receive(std::span(audio).subspan(i, piece), text);
        ASSERT_NEAR(receiver->Carrier(), 1503.5, 1) << static_cast<double>(i) / rate;
    }
}

TEST(RttyAfc, ADriftIsFollowedBesideALouderStation) {
    const ModemSetup own{.mode = Mode::RttyL, .baud = 45.45, .carrier = 1500, .rate = rate};
    ModemSetup other = own;
    other.carrier = 1578;
    const std::string text = provkanal::Testtext(450, 11);
    Audio both = provkanal::Koda(own, text);
    const double seconds = Seconds(both);
    Mix(both, provkanal::Koda(other, provkanal::Testtext(440, 12)), 2, 3);
    // The whole band drifts: it is the receiver that does.
    const Audio audio = provkanal::Sänd(both, rate, {.snr = 25, .drift = 20});
    const Heard heard = Hear(own, audio);
    EXPECT_NEAR(heard.carrier, 1500 + seconds / 60 * 20, 4);
    EXPECT_LE(provkanal::Fel(text, heard.text), 10);
}

TEST_P(EachMode, ASteadyToneBesideASignalDoesNotKeepTheCarrier) {
    const std::string text = provkanal::Testtext(20, 4);
    const Audio signal = provkanal::Koda(At(), "RYRYRY " + text);
    for (const double lead : {0.0, 2.0})
        for (const double off : {-38.0, -20.0, 20.0, 35.0}) {
            const double seconds = Seconds(signal) + lead;
            Audio audio = Noise(seconds, Sigma(10), 7);
            Mix(audio, signal, 1, lead);
            Mix(audio, Tone(1500 + off, seconds), IsRtty() ? 0.5 : 0.3, 0);
            const Heard heard = Hear(At(), audio);
            EXPECT_NEAR(heard.carrier, 1500, 4) << off;
            // RTTY's AFC knows a tone that is not keyed; a carrier is also what BPSK and MFSK begin with.
            if (IsRtty()) {
                EXPECT_LE(heard.furthest, 18) << off;
            }
        }
}

TEST_P(EachMode, AWeakAnswerIsReadRightBehindAStrongStation) {
    const std::string strong = "CQ DE SM0ABC", weak = "SM7XYZ 599 K";
    const Audio first = provkanal::Koda(At(), strong), second = provkanal::Koda(At(), weak);
    for (const double drop : {20.0, 40.0, 60.0}) {
        // MFSK's interleaver mixes the two for two seconds.
        if (IsMfsk() && drop > 20) continue;
        for (const double gap : {0.0, 0.3, 1.0})
            for (const bool atc : {false, true}) {
                if (atc && !IsRtty()) continue;
                const double gain = std::pow(10, -drop / 20), begins = 0.5 + Seconds(first) + gap;
                Audio audio = Noise(begins + Seconds(second) + 4, gain * Sigma(10), 3);
                Mix(audio, first, 1, 0.5);
                Mix(audio, second, gain, begins);
                const Heard heard = Hear(At(), audio, atc);
                EXPECT_EQ(provkanal::Fel(strong, heard.text), 0) << drop << ' ' << gap << ": " << heard.text;
                EXPECT_LE(provkanal::Fel(weak, heard.text), 1) << drop << ' ' << gap << ": " << heard.text;
            }
    }
}

TEST_P(EachMode, SignalsAtBothLimitsAreReadAndTheCarrierStaysWithinThem) {
    const auto [low, high] = CarrierRange(At());
    for (const double limit : {low, high})
        // And one that drifts away beyond the limit, a quarter of a hertz a second.
        for (const double drift : {0.0, limit == low ? -15.0 : 15.0}) {
            ModemSetup setup = At(limit);
            const Audio clean = provkanal::Koda(setup, "CQ TEST DE SM5XYZ");
            Audio audio = provkanal::Sänd(clean, rate, {.snr = 10, .drift = drift, .frö = 3});
            if (IsMfsk()) audio.resize(audio.size() + static_cast<std::size_t>(3 * rate));
            const auto receiver = MakeReceiver(setup);
            for (const bool afc : {false, true}) {
                if (!afc && drift != 0) continue;
                receiver->Carrier(limit);
                receiver->Afc(afc);
                std::string text;
                for (std::size_t i = 0; i < audio.size(); i += 400) {
                    receiver->Receive(
                        std::span(audio).subspan(i, std::min<std::size_t>(400, audio.size() - i)), text);
                    EXPECT_GE(receiver->Carrier(), low);
                    EXPECT_LE(receiver->Carrier(), high);
                }
                if (drift == 0) {
                    EXPECT_EQ(provkanal::Fel("CQ TEST DE SM5XYZ", text), 0) << limit << ' ' << afc << text;
                }
            }
        }
}

TEST_P(EachMode, TextComesThroughAtEveryReceiveClock) {
    const std::string text = "CQ TEST DE SM5XYZ";
    for (const double clock : {6000, 8000, 11025, 11100, 12000, 18000, 22050, 24000, 44100, 48000, 50000}) {
        ModemSetup setup = At();
        setup.rate = clock;
        const auto receiver = MakeReceiver(setup);
        std::string received;
        receiver->Receive(provkanal::Sänd(provkanal::Koda(setup, text), clock, {.snr = 15, .tystnad = 0.5}),
                          received);
        receiver->Receive(Audio(static_cast<std::size_t>((IsMfsk() ? 3 : 1) * clock)), received);
        EXPECT_EQ(provkanal::Fel(text, received), 0) << clock << ": " << received;
    }
}

TEST_P(EachMode, WithTheSquelchOffNoiseDoesNotCarryTheCarrierAway) {
    EXPECT_LE(Hear(At(), Noise(60, 1, 5), false, false).furthest, 2);
}

TEST_P(EachMode, NoiseAndASignalSoundTheSameHoweverTheyAreCut) {
    Audio audio =
        provkanal::Sänd(provkanal::Koda(At(1507), "TEST SM5XYZ"), rate, {.snr = -6, .tystnad = 4, .frö = 2});
    const auto read = [&](std::size_t piece) {
        const auto receiver = MakeReceiver(At());
        receiver->Afc(true);
        receiver->Squelch(false);
        std::string text;
        for (std::size_t i = 0; i < audio.size(); i += piece)
            receiver->Receive(std::span(audio).subspan(i, std::min(piece, audio.size() - i)), text);
        return text + std::to_string(receiver->Carrier());
    };
    const std::string whole = read(audio.size());
    for (const std::size_t piece : {3U, 997U, 30011U}) EXPECT_EQ(read(piece), whole) << piece;
}

TEST(RttyReceiver, NothingOfAnotherPlaceIsReadWhereItIsTunedTo) {
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 2125, .rate = rate};
    const ModemSetup there{.mode = Mode::RttyL, .baud = 45.45, .carrier = 1500, .rate = rate};
    const Audio loud = provkanal::Koda(setup, "CQ TEST DE SM0ABC"), soft = provkanal::Koda(there, "SM7XYZ K");
    for (int cut = 0; cut < 8; ++cut) {
        const auto receiver = MakeReceiver(setup);
        std::string text;
        // In the midst of a character.
        receiver->Receive(
            std::span(loud).first(loud.size() - static_cast<std::size_t>((1 + 0.02 * cut) * rate)), text);
        text.clear();
        receiver->Carrier(1500);
        Audio after = Noise(1, 1e-3);
        Mix(after, soft, 0.01, 1);
        after.resize(after.size() + static_cast<std::size_t>(rate));
        receiver->Receive(after, text);
        EXPECT_EQ(text, "SM7XYZ K") << cut;
    }
}

TEST(RttyReceiver, NoiseAddsACharacterToEverySecondShortSignalAtMost) {
    const ModemSetup setup{.mode = Mode::RttyL, .baud = 45.45, .carrier = 1500, .rate = rate};
    constexpr std::uint32_t signals = 40;
    const Audio clean = provkanal::Koda(setup, "TEST");
    std::size_t more = 0;
    for (std::uint32_t seed = 1; seed <= signals; ++seed) {
        const Heard heard = Hear(setup, provkanal::Sänd(clean, rate, {.snr = 0, .tystnad = 2, .frö = seed}));
        EXPECT_NE(heard.text.find("TEST"), std::string::npos) << heard.text;
        more += heard.text.size() - 4;
    }
    EXPECT_LE(more, signals / 2);
}

/// Someone idles, and beside him someone else sends.
TEST(BpskReceiver, AnIdleSignalIsNotLeftForAWeakerOneThatSends) {
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 62.5, .carrier = 1500, .rate = rate};
    for (const double off : {-75.0, -60.0, 60.0, 75.0}) {
        ModemSetup beside = setup;
        beside.carrier += off;
        const auto transmitter = MakeTransmitter(setup);
        Audio signal;
        const auto send = [&](const std::string& text, double idle) {
            for (const char character : text) transmitter->Put(character);
            Audio piece(80);
            double left = idle * rate;
            while (transmitter->Waiting() > 0 || left > 0) {
                if (transmitter->Waiting() == 0) left -= 80;
                transmitter->Generate(piece);
                signal.insert(signal.end(), piece.begin(), piece.end());
            }
        };
        send("CQ TEST DE SM0ABC", 4);
        send("PSE K ", 1);
        Audio audio = Noise(Seconds(signal), Sigma(15));
        Audio other = provkanal::Koda(beside, provkanal::Testtext(80, 9));
        other.resize(std::min(other.size(), signal.size() - static_cast<std::size_t>(2 * rate)));
        Mix(audio, signal, 1, 0);
        Mix(audio, other, 0.9, 2.007);
        const Heard heard = Hear(setup, audio);
        EXPECT_NE(heard.text.find("PSE K"), std::string::npos) << off << ": " << heard.text;
        EXPECT_LE(heard.furthest, 4) << off;
    }
}

TEST(BpskReceiver, TwoStationsRightBehindEachOtherLoseACharacterAtMost) {
    // Their symbols have not the same phase.
    const ModemSetup setup{.mode = Mode::Bpsk, .baud = 62.5, .carrier = 1500, .rate = rate};
    const Audio first = provkanal::Koda(setup, "FIRSTa"), second = provkanal::Koda(setup, "SECONa TU");
    for (int phase = 0; phase < 8; ++phase) {
        const double begins = 0.5 + Seconds(first) + phase / 8.0 / setup.baud;
        Audio audio = Noise(begins + Seconds(second) + 1, Sigma(10), 2);
        Mix(audio, first, 1, 0.5);
        Mix(audio, second, 1, begins);
        const std::string heard = Hear(setup, audio).text;
        EXPECT_EQ(provkanal::Fel("FIRSTa", heard), 0) << phase << ": " << heard;
        EXPECT_LE(provkanal::Fel("SECONa TU", heard), 1) << phase << ": " << heard;
    }
}

} // namespace
} // namespace platform::modem
