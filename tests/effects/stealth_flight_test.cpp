#include "effects/stealth_flight.h"

#include "core/convert.h"
#include "show_scenes.h"

#include <algorithm>
#include <set>

namespace lumenfold {
namespace {

class StealthFlight : public test::ShowScenes {
  protected:
    // Frames of a new run at the local times given; the flag is set before the frames named.
    std::vector<test::Frame> run(const std::vector<float>& localTimes, const std::set<std::size_t>& flags) {
        load({stealthFlight});
        std::vector<test::Frame> frames(localTimes.size(), test::Frame(pixelCount(frameInfo), 0x00123456));
        for (std::size_t n = 0; n < frames.size(); ++n) {
            if (flags.count(n) != 0)
                syncState.syncFlag37 = 1;
            draw(stealthFlight, frames[n], static_cast<float>(localTimes[n] / 1.5));
            EXPECT_EQ(syncState.syncFlag37, 0);
        }
        return frames;
    }
};

TEST_F(StealthFlight, FlagShakesEightFramesAndStartsAgain) {
    const std::vector<float> times{0,   10,  20,  30,  40,  50,  60,  70,  80,  90,  100, 110,
                                   120, 335, 340, 345, 350, 360, 370, 380, 390, 400, 410, 420};
    const auto steady = run(times, {});
    const auto shaken = run(times, {1, 12, 15});
    int shake = 0;
    for (std::size_t n = 0; n < times.size(); ++n) {
        if (n == 1 || n == 12 || n == 15)
            shake = 8;
        auto expected = steady[n];
        if (shake > 0) {
            for (int i = 0; i < 512 * 382; ++i) {
                const auto at = [&](int index) -> Pixel32& { return expected[static_cast<std::size_t>(index)]; };
                at(512 + i) = ((at(512 + i + shake) >> 1) & 0x7F7F7F7F) + ((at(512 + i - shake) >> 1) & 0x7F7F7F7F);
            }
            --shake;
        }
        ASSERT_EQ(shaken[n], expected) << "frame " << n;
    }
}

TEST_F(StealthFlight, FadeReachesNothingAt460AndWraps) {
    const auto frames = run({0.0F, 396.0F, 459.4F, 460.0F, 460.6F}, {});
    const auto darkerThan = [](const test::Frame& frame, Pixel32 limit) {
        return std::all_of(frame.begin(), frame.end(), [limit](Pixel32 p) {
            return (p & 255) < limit && (p >> 8 & 255) < limit && (p >> 16 & 255) < limit;
        });
    };
    EXPECT_TRUE(darkerThan(frames[1], 128)); // x 128 / 256
    EXPECT_TRUE(darkerThan(frames[2], 1));   // 1
    EXPECT_TRUE(darkerThan(frames[3], 1));   // 0
    EXPECT_FALSE(darkerThan(frames[4], 60)); // -1 reads as 255
}

} // namespace
} // namespace lumenfold
