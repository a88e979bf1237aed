// What lies between the program and the card: the ring that the sound system writes into, and what stands in
// where there is no card.
#include "platform/mmvari/soundcard.h"
#include "platform/mmvari/soundring.h"

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <thread>

namespace {

thread_local bool counting = false;
thread_local int allocations = 0;

} // namespace

void* operator new(std::size_t size) {
    if (counting) ++allocations;
    if (void* place = std::malloc(size)) return place;
    throw std::bad_alloc();
}
void operator delete(void* place) noexcept { std::free(place); }
void operator delete(void* place, std::size_t) noexcept { std::free(place); }

namespace {

using platform::SoundRing;

std::vector<std::int16_t> Samples(int first, int count) {
    std::vector<std::int16_t> samples;
    for (int i = 0; i < count; ++i) samples.push_back(static_cast<std::int16_t>(first + i));
    return samples;
}

void Write(SoundRing& ring, const std::vector<std::int16_t>& samples) {
    const auto bytes = static_cast<qint64>(samples.size() * sizeof(std::int16_t));
    EXPECT_EQ(ring.write(reinterpret_cast<const char*>(samples.data()), bytes), bytes);
}

/// As whole numbers again.
std::vector<std::int16_t> Take(SoundRing& ring) {
    std::vector<float> taken;
    ring.Take(taken);
    std::vector<std::int16_t> samples;
    for (const float sample : taken)
        samples.push_back(static_cast<std::int16_t>(std::lround(sample * 32768)));
    return samples;
}

} // namespace

TEST(SoundRing, GivesWhatWasWrittenOnceInItsOrder) {
    SoundRing ring(16, 1);
    EXPECT_EQ(Take(ring), Samples(0, 0));
    Write(ring, {-32768, -1, 0, 1, 32767});
    Write(ring, {7});
    EXPECT_EQ(Take(ring), (std::vector<std::int16_t>{-32768, -1, 0, 1, 32767, 7}));
    EXPECT_EQ(Take(ring), Samples(0, 0));
}

TEST(SoundRing, GoesRoundAndRound) {
    SoundRing ring(16, 1);
    for (int at = 0; at < 1000; at += 11) {
        Write(ring, Samples(at, 11));
        EXPECT_EQ(Take(ring), Samples(at, 11));
    }
}

TEST(SoundRing, WhatFindsNoPlaceIsLostAndTheDeviceDoesNotNotice) {
    SoundRing ring(10, 1); // sixteen
    Write(ring, Samples(0, 12));
    Write(ring, Samples(100, 12));
    std::vector<std::int16_t> kept = Samples(0, 12);
    for (int i = 0; i < 4; ++i) kept.push_back(static_cast<std::int16_t>(100 + i));
    EXPECT_EQ(Take(ring), kept);
    Write(ring, Samples(200, 3));
    EXPECT_EQ(Take(ring), Samples(200, 3));
}

TEST(SoundRing, PutsTogetherWhatTheDeviceCutInTwo) {
    for (const int channels : {1, 2}) {
        SoundRing ring(64, channels);
        const std::vector<std::int16_t> samples = Samples(300, 20);
        const auto* bytes = reinterpret_cast<const char*>(samples.data());
        for (qint64 at = 0; at < 40; at += 3) ring.write(bytes + at, std::min<qint64>(3, 40 - at));
        EXPECT_EQ(Take(ring), samples) << channels;
    }
}

TEST(SoundRing, LeftStaysLeftAlsoWhenAFrameComesInPiecesOrIsLost) {
    SoundRing ring(8, 2);
    Write(ring, {1, -1, 2});
    EXPECT_EQ(Take(ring), (std::vector<std::int16_t>{1, -1})) << "a frame that is whole";
    Write(ring, {-2, 3, -3});
    EXPECT_EQ(Take(ring), (std::vector<std::int16_t>{2, -2, 3, -3}));
    Write(ring, {4, -4, 5, -5, 6, -6, 7});
    Write(ring, {-7, 8, -8, 9, -9});
    EXPECT_EQ(Take(ring), (std::vector<std::int16_t>{4, -4, 5, -5, 6, -6, 7, -7}));
    Write(ring, {10, -10});
    EXPECT_EQ(Take(ring), (std::vector<std::int16_t>{10, -10}));
}

TEST(SoundRing, WritingAllocatesNothing) {
    SoundRing ring(1 << 14, 2);
    const std::vector<std::int16_t> samples = Samples(0, 2048);
    std::vector<float> taken;
    allocations = 0;
    for (int i = 0; i < 20; ++i) {
        counting = true;
        ring.write(reinterpret_cast<const char*>(samples.data()), 4095);
        counting = false;
        if (i % 3 == 0) ring.Take(taken);
    }
    EXPECT_EQ(allocations, 0);
    counting = true;
    delete new int(1);
    counting = false;
    EXPECT_EQ(allocations, 1) << "they are counted";
}

TEST(SoundRing, ServesAWriterOnAThreadOfItsOwn) {
    SoundRing ring(1 << 12, 1);
    std::atomic<bool> enough = false;
    long written = 0;
    // It writes until enough was heard: on a busy machine most of it may find no place.
    std::thread writer([&] {
        for (; !enough; written += 100) Write(ring, Samples(static_cast<int>(written % 30'000), 100));
    });
    // Whatever is lost, what comes stands in rows of a hundred that follow on one another.
    long heard = 0;
    const auto look = [&] {
        const std::vector<std::int16_t> taken = Take(ring);
        for (std::size_t i = 1; i < taken.size(); ++i)
            EXPECT_TRUE(taken[i] % 100 == 0 || taken[i] == taken[i - 1] + 1) << taken[i];
        heard += static_cast<long>(taken.size());
    };
    while (heard < 10'000) look();
    enough = true;
    writer.join();
    look();
    EXPECT_LE(heard, written);
}

// ---- where there is none ------------------------------------------------------------------------------

TEST(SilentCard, GoesAtThePaceOfTheClock) {
    const auto input = platform::SilentInput(8000);
    const auto output = platform::SilentOutput({.rate = 8000, .seconds = 0.1});
    EXPECT_EQ(output->Free(), 800U);
    output->Write(std::vector<float>(800, 1.0F));
    EXPECT_FALSE(output->Drained());
    std::this_thread::sleep_for(std::chrono::milliseconds(150));
    EXPECT_TRUE(output->Drained());
    EXPECT_EQ(output->Free(), 800U);
    std::vector<float> frames;
    input->Read(frames);
    EXPECT_GE(frames.size(), 1100U);
    EXPECT_LE(frames.size(), 8000U) << "no more than a second, however long nobody asked";
    for (const float sample : frames) EXPECT_EQ(sample, 0.0F);
}
