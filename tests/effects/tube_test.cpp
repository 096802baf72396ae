#include "effects/tube.h"

#include "effects/cut_blocks.h"
#include "tube_literal.h"

#include <gtest/gtest.h>

namespace lumenfold {
namespace {

using test::randomPixels;

constexpr FrameInfo frameInfo{512, 384, 0, 0, 0};
constexpr std::size_t framePixels = 512 * 384;

void expectSamePoints(const std::vector<TubePoint>& shipped, const std::vector<TubePoint>& literal) {
    ASSERT_EQ(shipped.size(), literal.size());
    for (std::size_t i = 0; i < shipped.size(); ++i) {
        ASSERT_EQ(shipped[i].x, literal[i].x) << i;
        ASSERT_EQ(shipped[i].z, literal[i].z) << i;
    }
}

TEST(Tube, RingsFollowTheFormula) {
    Tube tube(384);
    std::vector<TubePoint> literal(384 * 6);
    for (const float t : {0.0F, 12.7F, 333.3F, 98765.4F}) {
        buildTube(tube, t);
        test::literalBuildTube(literal, t);
        expectSamePoints(tube.points, literal);
    }
}

TEST(Tube, ColumnsAreThoseOfTheTubeAsItStood) {
    Tube tube(384);
    buildTube(tube, 0.0F);
    mapTube(tube);
    const auto mapped = tube.points;
    buildTube(tube, 50.0F);
    for (std::size_t i = 0; i < mapped.size(); ++i) {
        EXPECT_EQ(mapped[i].u, truncate(std::fabs(trig::atan2(mapped[i].x, mapped[i].z)) * 40.58454476873176));
        EXPECT_EQ(tube.points[i].u, mapped[i].u);
        EXPECT_LE(mapped[i].u, 127);
    }
}

// Draws three tubes over one another with both routines and compares frame and depth.
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

TEST(Tube, SpansEqualTheLiteralOnes) {
    std::vector<TubePoint> points(384 * 6);
    Tube start(384);
    buildTube(start, 0.0F);
    mapTube(start);
    points = start.points;
    for (const float t : {0.0F, 31.4F, 100.0F, 7777.7F})
        for (const std::uint32_t zoom : {73U, 97U, 112U}) {
            test::literalBuildTube(points, t);
            expectSameDrawing(points, zoom, t * 200.0F);
        }
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

TEST(CutBlocks, OneDiagonalEndsAtTheRightEdge) {
    const auto picture = randomPixels(framePixels, 5);
    for (std::uint32_t steps = 3; steps <= 15; ++steps) {
        auto shipped = picture, literal = picture;
        cutDiagonal(shipped.data(), steps);
        for (std::uint32_t r = 0; r < steps; ++r)
            for (std::uint32_t y = 24 * r; y < 24 * r + 24; ++y)
                for (std::uint32_t x = 32 * (16 - steps + r); x < 32 * (16 - steps + r) + 32; ++x)
                    literal[y * 512 + x] = 0;
        ASSERT_EQ(shipped, literal) << steps;
    }
}

} // namespace
} // namespace lumenfold
