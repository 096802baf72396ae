#include "effects/tube.h"

#include "tube_literal.h"

#include <gtest/gtest.h>

namespace lumenfold {
namespace {

using test::randomPixels;

constexpr FrameInfo frameInfo{512, 384, 0, 0, 0};
constexpr std::size_t framePixels = 512 * 384;

// Draws the tube with both routines and compares frame and depth.
void expectSameDrawing(const std::vector<TubePoint>& points, std::uint32_t zoom, float base) {
    const auto texture = randomPixels(texturePixels, 11);
    const auto background = randomPixels(framePixels, 12);
    Tube tube;
    tube.points = points;
    allocateDepthBuffer(512, 384);
    auto shipped = background;
    drawTube(tube, texture.data(), zoom, shipped.data(), frameInfo, base);
    const std::vector<float> shippedDepth(depthBuffer, depthBuffer + framePixels);
    allocateDepthBuffer(512, 384);
    auto literal = background;
    test::literalDrawTube(points, texture.data(), zoom, literal.data(), 512, base);
    ASSERT_EQ(shipped, literal) << "zoom " << zoom << " base " << base;
    for (std::size_t i = 0; i < framePixels; ++i) // bits, because a depth may be no number
        ASSERT_TRUE(shippedDepth[i] == depthBuffer[i] || shippedDepth[i] != shippedDepth[i]) << i;
}

TEST(Tube, WhatLeavesTheRowIsLeftOutAndNothingElseChanges) {
    Tube tube(384);
    buildTube(tube, 3.0F);
    mapTube(tube);
    for (const float stretch : {-9.0F, 5.0F, 20.0F, 300.0F}) { // columns far beyond both borders
        auto points = tube.points;
        for (TubePoint& point : points)
            point.x = (point.x + 9.0F) * stretch;
        expectSameDrawing(points, 112, 600.0F);
    }
}

TEST(Tube, PointsAtTheEyeAreSafe) {
    const auto texture = randomPixels(texturePixels, 11);
    Tube tube(384);
    for (std::size_t i = 0; i < tube.points.size(); ++i) // z reaches -distance and 0, x both signs
        tube.points[i] = {static_cast<float>(i % 7) - 3.0F, static_cast<float>(i % 5) * -27.5F, static_cast<int>(i)};
    std::vector<Pixel32> frame(framePixels);
    allocateDepthBuffer(512, 384);
    drawTube(tube, texture.data(), 110, frame.data(), frameInfo, 1.0F);
    drawTube(Tube(), texture.data(), 110, frame.data(), frameInfo, 1.0F);
}

} // namespace
} // namespace lumenfold
