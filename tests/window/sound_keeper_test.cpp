#include "platform/sdl/sound_keeper.h"
#include "tests/platform/tiny_xm.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// The keeper on a clock and with a device of the test's own.

namespace lumenfold::test {
namespace {

using namespace std::chrono_literals;

constexpr std::size_t buffer = 512;
constexpr SoundTime epoch{1h};

std::vector<std::uint32_t> heardCommands;
SoundTime theTime;
std::vector<SoundTime> heardAt;

void hear(std::uint32_t value, std::uint32_t, std::uint32_t) {
    heardCommands.push_back(value);
    heardAt.push_back(theTime);
}

// A command every 5760 frames: 120 ms.
ModulePlayer tickingTune() {
    TinyXm xm{2, 6, 125, 0, {0}, {16}, {}};
    for (int row = 0; row < 16; ++row)
        xm.commands.push_back({0, row, 0, 0x20, static_cast<std::uint8_t>(row), true});
    return {xm.bytes(), "ticking.xm"};
}
constexpr SoundClock::duration row = 120ms;
constexpr std::int64_t rowFrames = 5760;

struct FakeDevice : SoundDevice {
    State now = State::open;
    State next = State::lost; // what comes of an attempt
    int attempts = 0;

    void open() override {
        ++attempts;
        now = next;
    }
    State state() override { return now; }
    std::string fault() override { return "the fake is broken"; }
};

class Keeper : public testing::Test {
  protected:
    void SetUp() override {
        heardCommands.clear();
        heardAt.clear();
        theTime = epoch;
        playback.run(true);
        playback.start(tune);
        playback.setSyncCallback(hear);
        keeper.begin(theTime);
        testing::internal::CaptureStderr();
    }
    void TearDown() override { testing::internal::GetCapturedStderr(); }

    // The clock runs on. A device that asks does so when its last buffer has passed.
    void pass(SoundClock::duration time, bool asking, SoundClock::duration step = 1ms) {
        for (const SoundTime end = theTime + time; theTime < end; theTime += step) {
            if (asking && theTime >= asks) {
                float samples[buffer * 2];
                keeper.request(samples, buffer, 0, theTime);
                asks = std::max(asks, theTime - 100ms) + std::chrono::nanoseconds(buffer * 1'000'000'000 / soundRate);
            }
            keeper.look(theTime);
        }
    }

    std::int64_t missing() const { // frames that the tune lags the clock
        return (theTime - epoch) / 1us * soundRate / 1'000'000 - tune.position();
    }

    ModulePlayer tune = tickingTune();
    Playback playback;
    FakeDevice device;
    SoundKeeper keeper{playback, device};
    SoundTime asks = epoch;
};

TEST_F(Keeper, LeavesTheTuneToADeviceThatAsks) {
    pass(10s, true);
    EXPECT_NEAR(static_cast<double>(missing()), 0.0, buffer);
    EXPECT_EQ(device.attempts, 0);
}

// A device that stutters keeps the tune for half a second; then the tune makes up for it and keeps the clock's speed.
TEST_F(Keeper, IsPatientWithASilentDevice) {
    pass(2s, true);
    const std::int64_t before = tune.position();
    pass(400ms, false);
    EXPECT_EQ(tune.position(), before);
    pass(200ms, false);
    EXPECT_LE(missing(), 0);
    pass(7s, false);
    EXPECT_NEAR(static_cast<double>(missing()), 0.0, buffer);
    EXPECT_EQ(device.attempts, 0); // it may only be suspended
    asks = theTime;
    pass(3s, true);
    EXPECT_NEAR(static_cast<double>(missing()), 0.0, 2.0 * buffer);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "lumenfold: the sound device does not answer; the tune goes on in silence until there is sound\n"
              "lumenfold: there is sound again\n");
    testing::internal::CaptureStderr();
}

// What a device was late by is its own affair; it does not shorten the patience with it.
TEST_F(Keeper, ForgetsShortStutters) {
    for (int i = 0; i < 5; ++i) {
        pass(400ms, false);
        pass(1s, true);
    }
    EXPECT_GT(missing(), soundRate * 14 / 10);
    EXPECT_LT(missing(), soundRate * 21 / 10);
}

TEST_F(Keeper, OpensALostDeviceEveryTwoSecondsWhileTheTuneGoesOn) {
    pass(3s, true);
    device.now = SoundDevice::State::lost;
    pass(100ms, false);
    EXPECT_NEAR(static_cast<double>(missing()), 0.0, buffer); // at once
    EXPECT_EQ(device.attempts, 1);
    pass(5s, false);
    EXPECT_EQ(device.attempts, 3);
    device.next = SoundDevice::State::opening; // hangs
    pass(20s, false);
    EXPECT_EQ(device.attempts, 4);
    device.now = SoundDevice::State::open;
    asks = theTime;
    pass(1s, true);
    EXPECT_NEAR(static_cast<double>(missing()), 0.0, 2.0 * buffer);
    ASSERT_GT(heardCommands.size(), 200U);
    for (std::size_t i = 0; i < heardCommands.size(); ++i) {
        EXPECT_EQ(heardCommands[i], i % 16);
        EXPECT_NEAR(std::chrono::duration<double>(heardAt[i] - epoch).count(),
                    std::chrono::duration<double>(row * i).count(), 0.03);
    }
}

// Two seconds of sound asked for in a moment are not owed again when the device falls silent.
TEST_F(Keeper, CountsWhatALargeBufferHolds) {
    float samples[buffer * 2];
    for (std::size_t frames = 0; frames < std::size_t{soundRate} * 2; frames += buffer)
        keeper.request(samples, buffer, 0, theTime);
    const std::int64_t before = tune.position();
    pass(2400ms, false);
    EXPECT_EQ(tune.position(), before);
    pass(1s, false);
    EXPECT_NEAR(static_cast<double>(missing()), 0.0, buffer);
}

// The first device may take its time; the tune waits and then begins at its beginning.
TEST_F(Keeper, WaitsForTheFirstDevice) {
    device.now = SoundDevice::State::opening;
    pass(1400ms, false);
    EXPECT_EQ(tune.position(), 0);
    pass(2s, false);
    EXPECT_NEAR(static_cast<double>(tune.position()), soundRate * 1.9, soundRate * 0.02);
}

// After a pause of the whole machine nothing is played in a rush.
TEST_F(Keeper, DoesNotMakeUpForLongPauses) {
    device.now = SoundDevice::State::lost;
    pass(1s, false);
    const std::int64_t before = tune.position();
    theTime += 900ms;
    pass(20ms, false);
    EXPECT_NEAR(static_cast<double>(tune.position() - before), soundRate * 0.92, buffer);
    theTime += 30s;
    pass(20ms, false);
    EXPECT_LT(tune.position() - before, soundRate);
}

TEST(PlaybackTest, DeliversCommandsWhenTheyAreHeard) {
    heardCommands.clear();
    ModulePlayer tune = tickingTune();
    Playback playback;
    playback.start(tune);
    playback.setSyncCallback(hear);
    float samples[buffer * 2];
    playback.fill(samples, buffer, 0);
    EXPECT_EQ(tune.position(), 0); // not running yet
    playback.run(true);
    constexpr std::int64_t latency = 1000;
    for (std::size_t expected = 0; tune.position() < rowFrames * 40; expected = heardCommands.size()) {
        const std::int64_t heard = tune.position() - latency; // the first frame that is not heard yet, at this call
        playback.fill(samples, buffer, latency);
        EXPECT_EQ(heardCommands.size(), heard < 0 ? 0 : static_cast<std::size_t>(heard / rowFrames) + 1);
        EXPECT_GE(heardCommands.size(), expected);
    }
    const std::size_t before = heardCommands.size();
    playback.setSyncCallback(nullptr);
    for (int i = 0; i < 100; ++i)
        playback.fill(samples, buffer, latency);
    EXPECT_EQ(heardCommands.size(), before);
    playback.stop();
    samples[7] = 1.0F;
    playback.fill(samples, buffer, latency);
    EXPECT_TRUE(std::all_of(samples, samples + buffer * 2, [](float sample) { return sample == 0.0F; }));
}

// A buffer is no whole number of nanoseconds, and many of them no whole number of anything else.
TEST(PaceTest, LosesNothingToRounding) {
    Pace pace;
    pace.begin(epoch);
    std::int64_t frames = 0;
    for (int i = 0; i < 100'000; ++i) {
        const std::size_t some = buffer + static_cast<std::size_t>(i % 7);
        pace.handOut(some);
        frames += static_cast<std::int64_t>(some);
        const std::int64_t passed = (pace.end() - epoch) / 1ns;
        ASSERT_EQ(passed, frames / soundRate * 1'000'000'000 +
                              (frames % soundRate * 1'000'000'000 + soundRate - 1) / soundRate);
    }
}

TEST(PaceTest, MakesUpForASecondAtMost) {
    Pace pace;
    pace.begin(epoch);
    pace.limitDelay(epoch + 999ms);
    EXPECT_EQ(pace.end(), epoch);
    pace.limitDelay(epoch + 1001ms);
    EXPECT_EQ(pace.end(), epoch + 1001ms);
}

} // namespace
} // namespace lumenfold::test
