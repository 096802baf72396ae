#include "effects/tube.h"

#include "render/depth_buffer.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumenfold {
namespace {

using test::randomPixels;

constexpr int rows = 384;

// The first 512 columns of a frame of that width.
std::vector<Pixel32> drawn(const Tube& tube, int width) {
    static const auto texture = randomPixels(texturePixels, 11);
    std::vector<Pixel32> frame(static_cast<std::size_t>(width) * rows);
    allocateDepthBuffer(width, rows);
    drawTube(tube, texture.data(), 112, frame.data(), {width, rows, 0, 0, 0}, 600.0F);
    std::vector<Pixel32> columns;
    for (auto row = frame.begin(); row != frame.end(); row += width)
        columns.insert(columns.end(), row, row + 512);
    return columns;
}

// A frame as wide as the tube itself takes what leaves the narrow one on either side.
TEST(Tube, WhatLeavesTheRowIsLeftOutAndNothingElseChanges) {
    for (const float stretch : {-9.0F, 5.0F, 20.0F, 300.0F}) {
        Tube tube(rows);
        buildTube(tube, 3.0F);
        mapTube(tube);
        for (TubePoint& point : tube.points)
            point.x = (point.x + 9.0F) * stretch;
        const auto narrow = drawn(tube, 512);
        EXPECT_EQ(narrow, drawn(tube, 1 << 15)) << stretch;
        EXPECT_GT(std::count_if(narrow.begin(), narrow.end(), [](Pixel32 pixel) { return pixel != 0; }), 1000);
    }
}

TEST(Tube, PointsAtTheEyeAreSafe) {
    Tube tube(rows);
    for (std::size_t i = 0; i < tube.points.size(); ++i) // z reaches -distance and 0, x both signs
        tube.points[i] = {static_cast<float>(i % 7) - 3.0F, static_cast<float>(i % 5) * -28.0F, static_cast<int>(i)};
    drawn(tube, 512);
    drawn(Tube(), 512);
}

} // namespace
} // namespace lumenfold
