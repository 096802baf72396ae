#include "effects/sparks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace lumenfold {
namespace {

TEST(Sparks, NearTheBordersAreNotDrawn) {
    constexpr FrameInfo frame{512, 384, 0, 0, 0};
    const std::vector<Pixel32> sprite(sparkSide * sparkSide, 1);
    const struct {
        float x, y;
        std::ptrdiff_t pixels;
    } cases[] = {{256, 100, 256}, {18, 100, 0},       {18.5F, 100, 256},
                 {494, 100, 0},   {493.5F, 100, 256}, {256, 366, 0},
                 {256, -20, 0},   {256, 365.5F, 256}, {256, -10, 5 * sparkSide}};
    for (const auto& c : cases) {
        SparkShower shower;
        shower.sparks[0] = {c.x, c.y, 0, 0};
        shower.sparks[1] = {256, 200, 0, 0}; // not counted
        shower.count = 1;
        std::vector<Pixel32> pixels(512 * 384);
        drawSparks(pixels.data(), frame, shower, sprite.data());
        EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 1U), c.pixels) << c.x << ", " << c.y;
    }
}

} // namespace
} // namespace lumenfold
