#include "effects/whirl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace lumenfold {
namespace {

TEST(Whirl, FlaresInTheFirstColumnOrRowAreLeftOutAndOthersCut) {
    constexpr FrameInfo frame{512, 384, 0, 0, 0};
    const std::vector<Pixel32> flare(whirlFlareSide * whirlFlareSide, 1);
    const Vector3 middle{400, 400, 0};
    const struct {
        double x, y; // of the whirl, from the frame's middle
        std::ptrdiff_t pixels;
    } cases[] = {{0, 0, 256},    {-255, 0, 256}, {-255.5, 0, 0}, {-256, 0, 0}, {255, 0, 16}, {256, 0, 0},
                 {0, -191, 256}, {0, -191.5, 0}, {0, -192, 0},   {0, 191, 16}, {0, 192, 0},  {255, 191, 1}};
    for (const auto& c : cases) {
        Whirl whirl(0.0F);
        whirl.x = c.x;
        whirl.y = c.y;
        std::vector<Pixel32> pixels(512 * 384);
        stampFlare(frame, pixels.data(), flare.data(), whirl, middle);
        EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 1U), c.pixels) << c.x << ", " << c.y;
    }
}

} // namespace
} // namespace lumenfold
