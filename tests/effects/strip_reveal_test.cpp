#include "effects/strip_reveal.h"

#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumenfold {
namespace {

using test::randomPixels;
using test::saturatedSum;

void addRows(std::vector<Pixel32>& picture, const std::vector<Pixel32>& strip, int rows) {
    for (int y = 0; y < rows; ++y)
        for (int x = 0; x < 91; ++x) {
            Pixel32& pixel = picture[static_cast<std::size_t>(y * 512 + 420 + x)];
            pixel = saturatedSum(pixel, strip[static_cast<std::size_t>((351 - rows + y) * 91 + x)]);
        }
}

TEST(StripReveal, ShowsFiveRowsMoreThenStaysInTheBackground) {
    StripReveal reveal;
    reveal.strip = randomPixels(91 * 351, 1);
    const auto picture = randomPixels(512 * 384, 2);
    auto background = picture;
    for (int frame = 1; frame <= 73; ++frame) {
        auto expected = background, shipped = background;
        const int rows = std::min(frame * 5, 351);
        if (frame <= 71)
            addRows(expected, reveal.strip, rows);
        reveal.advance(shipped.data(), background.data());
        ASSERT_EQ(shipped, expected) << "frame " << frame;
        auto joined = picture;
        if (frame >= 71)
            addRows(joined, reveal.strip, 351);
        ASSERT_EQ(background, joined) << "frame " << frame;
    }
}

} // namespace
} // namespace lumenfold
