#include "effects/sprite_ring.h"

#include <gtest/gtest.h>

#include <vector>

namespace lumenfold {
namespace {

TEST(SpriteRing, OutsideThePictureIsLeftOut) {
    const std::vector<Pixel32> sprite(32 * 32, 0xFFFFFFFF);
    SpriteRing ring;
    ring.sprite = sprite.data();
    ring.span = 360;
    std::vector<Pixel32> pixels(40 * 30 + 1);
    drawSpriteRing(ring, {40, 30, 0, 0, 0}, 100.0, pixels.data(), true);
    EXPECT_EQ(pixels.back(), 0U);
}

TEST(SpriteRing, CrestsStepThroughTwoToFiveWhereTheWaveCloses) {
    SpriteRing ring;
    const auto crestsAfter = [&ring](double T) {
        drawSpriteRing(ring, {0, 0, 0, 0, 0}, T, nullptr, false);
        return ring.frequency;
    };
    constexpr double closing = 62.83185307; // 20 pi
    float before = 2.0F;
    for (const float after : {3.0F, 4.0F, 5.0F, 2.0F}) {
        EXPECT_EQ(crestsAfter(closing - 0.119), before);
        EXPECT_EQ(crestsAfter(closing + 0.118), after);
        before = after;
    }
}

} // namespace
} // namespace lumenfold
