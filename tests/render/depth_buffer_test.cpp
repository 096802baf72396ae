#include "render/depth_buffer.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumenfold {
namespace {

TEST(DepthBuffer, IsClearedFromTheFirstPixelToTheLast) {
    for (const int width : {1, 61, 512}) {
        constexpr int height = 3;
        allocateDepthBuffer(width, height);
        float* const end = depthBuffer + width * height;
        EXPECT_TRUE(std::all_of(depthBuffer, end, [](float depth) { return depth == 0.0F; }));
        std::fill(depthBuffer, end, 1.0F);
        clearDepthBuffer();
        EXPECT_TRUE(std::all_of(depthBuffer, end, [](float depth) { return depth == 0.0F; })) << width;
    }
}

} // namespace
} // namespace lumenfold
