#include "platform/mmvari/modem/psk_evidence.h"
#include "platform/mmvari/modem/psk_loop.h"
#include "platform/mmvari/modem/psk_phase.h"
#include "platform/mmvari/modem/psk_pulse.h"
#include "platform/mmvari/modem/psk_search.h"
#include "platform/mmvari/modem/psk_sequence.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>

namespace platform::modem {
namespace {

constexpr double pi = std::numbers::pi;

/// Baseband of symbols with the transmitter's pulse. @param turn radians a sample, @param first its middle
PskSamples Baseband(const std::vector<int>& symbols, double symbol, double first, double turn,
                    double noise = 0) {
    const auto length = static_cast<std::size_t>(first + symbol * static_cast<double>(symbols.size() + 1));
    PskSamples samples(length);
    std::mt19937 random(5);
    std::normal_distribution<double> normal(0, 1);
    for (std::size_t n = 0; n < length; ++n) {
        double amplitude = 0;
        for (std::size_t k = 0; k < symbols.size(); ++k) {
            const double t = (static_cast<double>(n) - first) / symbol - static_cast<double>(k);
            if (std::abs(t) < 1) amplitude += symbols[k] * (1 + std::cos(pi * t)) / 2;
        }
        std::complex<double> value = std::polar(amplitude, turn * static_cast<double>(n));
        value += noise * std::complex<double>(normal(random), normal(random));
        samples.Incoming().push_back(Complex(value));
    }
    return samples;
}

std::vector<int> RandomSymbols(int count, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<int> symbols(static_cast<std::size_t>(count));
    for (int& symbol : symbols) symbol = random() % 2 != 0 ? 1 : -1;
    return symbols;
}

TEST(PskSamples, KeepTheirNumbersWhenTheOldestGo) {
    PskSamples samples(10);
    for (int i = 0; i < 100; ++i) {
        samples.Incoming().emplace_back(static_cast<float>(i), 0.0F);
        samples.Trim();
        EXPECT_EQ(samples.End(), i + 1);
        EXPECT_LE(samples.Begin(), std::max(0, i + 1 - 10));
        EXPECT_EQ(samples.At(samples.Begin())->real(), static_cast<float>(samples.Begin()));
    }
    samples.Clear();
    EXPECT_EQ(samples.Begin(), 100);
    EXPECT_EQ(samples.End(), 100);
}

TEST(PskPulse, GivesTheAmplitudeInTheMiddleASixthNextToItAndNothingFurtherOff) {
    const double symbol = 8.018;
    const PskSamples samples = Baseband({0, 0, 1, 0, 0, 0}, symbol, 20.3, 0.4);
    const PskPulse pulse(symbol);
    for (int k = 0; k < 6; ++k) {
        const double moment = 20.3 + k * symbol;
        const PskStrobe strobe = pulse.At(samples, moment, 0.4);
        EXPECT_NEAR(std::abs(strobe.value),
                    k == 2             ? 1
                    : k == 1 || k == 3 ? PskPulse::neighbour
                                       : 0,
                    0.005)
            << k;
        if (k == 2) {
            EXPECT_NEAR(std::remainder(std::arg(strobe.value) - 0.4 * moment, 2 * pi), 0, 0.005);
        }
    }
}

TEST(PskPulse, ItsSlopeTellsHowFarTheMiddleIsAway) {
    const double symbol = 8.018;
    const PskSamples samples = Baseband({0, 0, 1, 0, 0, 0}, symbol, 20.3, -0.3);
    const PskPulse pulse(symbol);
    for (const double early : {-0.1, -0.05, 0.0, 0.05, 0.1}) {
        const PskStrobe strobe = pulse.At(samples, 20.3 + (2 - early) * symbol, -0.3);
        EXPECT_NEAR((strobe.slope * std::conj(strobe.value)).real() / PskPulse::curvature, early, 0.01)
            << early;
    }
}

TEST(PskLoop, FollowsARampAndKnowsItsRate) {
    PskLoop loop({.value = 1, .rate = 0.1, .error = 0.2, .wander = 1e-4, .lowest = -1, .highest = 1}, 0, 0);
    std::mt19937 random(3);
    std::normal_distribution<double> noise(0, 0.2);
    for (int i = 0; i < 500; ++i) {
        loop.Predict();
        loop.Correct(0.5 + 0.03 * i + noise(random) - loop.Value());
    }
    EXPECT_NEAR(loop.Value(), 0.5 + 0.03 * 499, 0.06);
    EXPECT_NEAR(loop.Rate(), 0.03, 0.002);
}

TEST(PskLoop, HoldsItsRateWithinItsLimits) {
    PskLoop loop({.value = 1, .rate = 1, .error = 0.1, .wander = 0.1, .lowest = -0.02, .highest = 0.01}, 0,
                 0);
    for (int i = 0; i < 50; ++i) {
        loop.Predict();
        loop.Correct(0.3);
    }
    EXPECT_DOUBLE_EQ(loop.Rate(), 0.01);
}

/// Symbols decided on wrongly of a thousand behind a matched filter.
int Wrong(double noise, double amplitude) {
    const std::vector<int> symbols = RandomSymbols(1005, 11);
    std::mt19937 random(7);
    std::normal_distribution<double> normal(0, noise);
    std::vector<double> filtered(symbols.size());
    for (std::size_t k = 0; k < symbols.size(); ++k) {
        filtered[k] = symbols[k] + normal(random);
        if (k > 0) filtered[k] += PskPulse::neighbour * symbols[k - 1];
        if (k + 1 < symbols.size()) filtered[k] += PskPulse::neighbour * symbols[k + 1];
    }
    PskSequence sequence;
    int wrong = 0;
    for (std::size_t k = 0; k < 1000; ++k)
        wrong += sequence.Decide(std::span(filtered).subspan(k, 5), amplitude) != symbols[k];
    return wrong;
}

TEST(PskSequence, FindsTheSymbolsAndTakesNeighboursOutOfAccount) {
    EXPECT_EQ(Wrong(0, 1), 0);
    // Without a thought for the neighbours (an amplitude of 0) more are wrong.
    const int without = Wrong(0.4, 0), with = Wrong(0.4, 1);
    EXPECT_GT(without, 10);
    EXPECT_LT(with, without * 2 / 3);
}

TEST(PskEvidence, OpensOnASignalWithinASecondAndClosesBehindIt) {
    PskEvidence evidence;
    int symbols = 0;
    while (!evidence.Open() && symbols < 100) evidence.Put(0.9), ++symbols;
    EXPECT_LT(symbols, 31);
    EXPECT_GT(evidence.Quality(), 0.5);
    std::mt19937 random(1);
    std::uniform_real_distribution<double> angle(0, 2 * pi);
    for (symbols = 0; evidence.Open() && symbols < 100; ++symbols) evidence.Put(std::cos(angle(random)));
    EXPECT_LT(symbols, 60);
}

TEST(PskEvidence, StandsAnglesThatAllSpeakAgainstASignal) {
    PskEvidence evidence;
    for (int i = 0; i < 500; ++i) {
        evidence.Put(-1);
        EXPECT_NO_THROW(evidence.Ended(0)) << i;
    }
    EXPECT_FALSE(evidence.Ended(0)) << "a signal that never was";
    EXPECT_EQ(evidence.Quality(), 0);
    EXPECT_FALSE(evidence.Open());
}

TEST(PskEvidence, StaysClosedThroughHoursOfNoise) {
    PskEvidence evidence;
    std::mt19937 random(2);
    std::uniform_real_distribution<double> angle(0, 2 * pi);
    int open = 0;
    for (int i = 0; i < 2000000; ++i) { // nearly eighteen hours at 31.25 baud
        evidence.Put(std::cos(angle(random)));
        open += evidence.Open();
    }
    EXPECT_EQ(open, 0);
}

TEST(PskPhase, FollowsATurningPhaseThroughNoiseWithoutASlip) {
    PskPhase phase;
    std::mt19937 random(4);
    std::normal_distribution<double> noise(0, 0.3);
    const std::vector<int> symbols = RandomSymbols(600, 8);
    const double rate = 0.05;
    double before = 0;
    for (int k = 0; k < 600; ++k) {
        phase.Put(std::polar(1.0 * symbols[static_cast<std::size_t>(k)], rate * k) +
                  std::complex<double>(noise(random), noise(random)));
        if (phase.Count() <= PskPhase::ahead) continue;
        const double now = phase.Estimate(rate);
        const auto middle = static_cast<double>(k - PskPhase::ahead);
        // Up to half a turn, that no square tells; the same one throughout.
        const double error = now - rate * middle;
        if (k > 50) {
            EXPECT_NEAR(error, before, 0.5) << k;
            EXPECT_NEAR(std::remainder(error, pi), 0, 0.3) << k;
        }
        before = error;
    }
}

TEST(PskPhase, TurnsToAShorterSpanWhenThePhaseTurnsUnforeseen) {
    PskPhase phase;
    int far = 0;
    for (int k = 0; k < 400; ++k) {
        const auto turning = [](double n) { return 0.9 * std::sin(n / 5); };
        phase.Put(std::polar(1.0, turning(k)));
        if (phase.Count() <= PskPhase::ahead) continue;
        const double error =
            std::remainder(phase.Estimate(0) - turning(static_cast<double>(k - PskPhase::ahead)), pi);
        if (k > 100) far += std::abs(error) > 0.3;
    }
    EXPECT_EQ(far, 0);
}

class PskSearchFinds : public testing::TestWithParam<double> {};
INSTANTIATE_TEST_SUITE_P(Carriers, PskSearchFinds,
                         testing::Values(-0.95, -0.5, -0.1, 0.0, 0.3, 0.62, 0.95)); // baud

TEST_P(PskSearchFinds, CarrierAndClockOfDataAndIdle) {
    const double symbol = 8.018, turn = 2 * pi * GetParam() / symbol;
    std::vector<int> idle(100, 1);
    for (std::size_t k = 1; k < idle.size(); k += 2) idle[k] = -1;
    for (const std::vector<int>& symbols : {RandomSymbols(100, 1), idle}) {
        const PskSamples samples = Baseband(symbols, symbol, 11.6, turn, 0.3);
        PskSearch search(symbol);
        search.Advance(samples);
        const auto found = search.Strongest(0, 2 * pi / symbol);
        ASSERT_TRUE(found);
        EXPECT_NEAR(found->turn, turn, 2 * pi * 0.02 / symbol);
        EXPECT_NEAR(std::remainder(found->moment - 11.6, symbol), 0, 0.15 * symbol);
        EXPECT_GT(found->coherence, 0.7);
    }
}

TEST(PskSearch, TellsWhereASignalBegan) {
    const double symbol = 8;
    std::vector<int> symbols(70, 0);
    for (const int s : RandomSymbols(30, 2)) symbols.push_back(s);
    const PskSamples samples = Baseband(symbols, symbol, 16, 0, 0.3);
    PskSearch search(symbol);
    search.Advance(samples);
    const auto found = search.Strongest(0, 2 * pi / symbol);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->begin, 16 + 70 * symbol, 4 * symbol);
}

TEST(PskSearch, TakesNoSideOfAStrongerSignalOutsideForOneInside) {
    const double symbol = 8, neighbour = 2 * pi * 1.3 / symbol;
    const PskSamples samples = Baseband(RandomSymbols(100, 1), symbol, 16, neighbour, 0.05);
    PskSearch search(symbol);
    search.Advance(samples);
    const auto found = search.Strongest(0, 2 * pi / symbol);
    EXPECT_TRUE(!found || found->turn < 2 * pi * 0.7 / symbol);
}

} // namespace
} // namespace platform::modem
