#include "effects/sparks.h"

#include "core/random.h"
#include "random_pixels.h"

#include <gtest/gtest.h>

namespace lumenfold {
namespace {

using test::randomPixels;
using test::saturatedSum;

constexpr FrameInfo settings{512, 384, 1, 22050, 1};

TEST(Sparks, DrawTwiceSidewaysThenDown) {
    SparkShower shower;
    resetRand();
    std::uint32_t state = 1;
    const auto draw = [&] {
        state = state * 214013 + 2531011;
        return static_cast<int>(state >> 16 & 0x7FFF);
    };
    int sideways = 0;
    for (int i = 0; i < 300; ++i) {
        igniteSpark(shower, i, settings);
        if (i >= 199)
            continue; // all are in flight: nothing is drawn from the generator any more
        const int first = draw() / 16000, second = draw() / 16000;
        const Spark& spark = shower.sparks[static_cast<std::size_t>(i)];
        ASSERT_EQ(spark.vx, static_cast<float>(first - second)) << i;
        ASSERT_EQ(spark.vy, static_cast<float>(draw() * 1.6666667e-05)) << i;
        ASSERT_EQ(spark.x, 256.0F);
        ASSERT_EQ(spark.y, static_cast<float>(i));
        sideways += spark.vx != 0.0F;
        ++shower.count;
    }
    EXPECT_GT(sideways, 20);
    EXPECT_EQ(rand(), draw());
}

TEST(Sparks, FallUntilTheBottomAndStartAgainAtTheTorch) {
    std::array<Spark, 3> sparks{
        {{256.0F, 10.0F, -1.0F, 0.25F}, {100.0F, 380.0F, 2.0F, 3.5F}, {1.0F, 2.0F, 3.0F, 4.0F}}};
    const Spark untouched = sparks[2];
    float y = 10.0F, vy = 0.25F, x = 256.0F;
    int restarts = 0;
    for (int frame = 0; frame < 200; ++frame) {
        const int torch = frame * 2;
        updateSparks(sparks.data(), torch, settings, 2);
        if (y + vy < 384.0F) {
            x += -1.0F;
            y += vy;
            vy = static_cast<float>(vy + 0.9);
        } else {
            y = static_cast<float>(torch);
            x = 256.0F;
            vy = 0.0F;
            ++restarts;
        }
        ASSERT_EQ(sparks[0].x, x) << frame;
        ASSERT_EQ(sparks[0].y, y) << frame;
        ASSERT_EQ(sparks[0].vy, vy) << frame;
        if (frame == 0) { // 383.5 is still above the bottom
            ASSERT_EQ(sparks[1].y, 383.5F);
            ASSERT_EQ(sparks[1].x, 102.0F);
        } else if (frame == 1) {
            ASSERT_EQ(sparks[1].y, 2.0F);
            ASSERT_EQ(sparks[1].vx, 2.0F);
        }
    }
    EXPECT_GT(restarts, 2);
    EXPECT_EQ(sparks[2].y, untouched.y); // beyond the count
}

TEST(Sparks, GlowHangsLeftBelowItsPlaceAndSparesTwoRows) {
    const auto picture = randomPixels(512 * 384, 1);
    for (const int side : {16, 32}) {
        const auto sprite = randomPixels(static_cast<std::size_t>(side * side), 2);
        for (const int y0 : {-40, -32, -10, -1, 0, 1, 200, 341}) {
            constexpr int x0 = 270;
            auto shipped = picture, literal = picture;
            stampGlow(shipped.data(), settings, sprite.data(), side, x0, y0);
            for (int r = 0; r < side; ++r)
                for (int c = 0; c < side && y0 + r > 0; ++c) {
                    Pixel32& pixel = literal[static_cast<std::size_t>((y0 + 1 + r) * 512 + x0 - side + c)];
                    pixel = saturatedSum(pixel, sprite[static_cast<std::size_t>(r * side + c)]);
                }
            ASSERT_EQ(shipped, literal) << side << ' ' << y0;
        }
    }
}

} // namespace
} // namespace lumenfold
