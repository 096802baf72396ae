#include "effects/warp.h"

#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

namespace lumenfold {
namespace {

using test::onEveryTarget;
using test::randomPixels;

// 16.16 values in 32 bits that wrap.
std::int32_t low32(std::int64_t value) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(value));
}

using Corners = std::array<std::int32_t, 4>;

// Down both edges and across each row, sample(row, column) giving a pixel for 16.16 coordinates.
template <class Sample>
void warpRows(std::vector<Pixel32>& target, int start, int pitch, int columns, int rows, const Corners& x,
              const Corners& y, Sample sample) {
    const auto step = [rows](std::int32_t top, std::int32_t bottom) {
        return low32((std::int64_t{bottom} - top) * 65536) / rows;
    };
    std::int32_t xL = low32(std::int64_t{x[0]} * 65536), xR = low32(std::int64_t{x[1]} * 65536);
    std::int32_t yL = low32(std::int64_t{y[0]} * 65536), yR = low32(std::int64_t{y[1]} * 65536);
    for (int row = 0; row < rows; ++row) {
        const std::int32_t dx = low32(std::int64_t{xR} - xL) / columns;
        const std::int32_t dy = low32(std::int64_t{yR} - yL) / columns;
        std::int32_t px = xL, py = yL;
        for (int column = 0; column < columns; ++column) {
            target[static_cast<std::size_t>(start + row * pitch + column)] = sample(py, px);
            px = low32(std::int64_t{px} + dx);
            py = low32(std::int64_t{py} + dy);
        }
        xL = low32(std::int64_t{xL} + step(x[0], x[2]));
        xR = low32(std::int64_t{xR} + step(x[1], x[3]));
        yL = low32(std::int64_t{yL} + step(y[0], y[2]));
        yR = low32(std::int64_t{yR} + step(y[1], y[3]));
    }
}

auto wrapped(const std::vector<Pixel32>& texture) {
    return [&texture](std::int32_t row, std::int32_t column) {
        return texture[static_cast<std::size_t>(((row >> 16) & 255) * 256 + ((column >> 16) & 255))];
    };
}

auto clamped(const std::vector<Pixel32>& source) {
    return [&source](std::int32_t row, std::int32_t column) {
        return source[static_cast<std::size_t>(std::clamp(row >> 16, 0, 511) * 512 + std::clamp(column >> 16, 0, 511))];
    };
}

Corners randomCorners(std::mt19937& random, int low, int high) {
    std::uniform_int_distribution<int> value(low, high);
    return {value(random), value(random), value(random), value(random)};
}

struct Area {
    int width, height;
    int low, high; // range of the corners
};

class QuadWarp : public testing::TestWithParam<Area> {};

TEST_P(QuadWarp, MatchesTheRowByRowWalk) {
    const int width = GetParam().width, height = GetParam().height, low = GetParam().low, high = GetParam().high;
    const FrameInfo area{width, height, 0, 0, 0};
    const auto source = randomPixels(512 * 512, 1);
    std::vector<Pixel32> expected(static_cast<std::size_t>(width * height) + 8, 7);
    std::mt19937 random(2);
    for (int turn = 0; turn < 8; ++turn) {
        const WarpQuad quad{randomCorners(random, low, high), randomCorners(random, low, high)};
        onEveryTarget([&] {
            std::vector<Pixel32> shipped(expected.size(), 7); // the tail must stay
            warpRows(expected, 0, width, width, height, quad.x, quad.y, clamped(source));
            warpQuadClamped(area, shipped.data(), source.data(), quad);
            ASSERT_EQ(shipped, expected);
            warpRows(expected, 0, width, width, height, quad.x, quad.y, wrapped(source));
            warpQuadWrapped(area, shipped.data(), source.data(), quad);
            ASSERT_EQ(shipped, expected);
        });
    }
}

INSTANTIATE_TEST_SUITE_P(Areas, QuadWarp,
                         testing::Values(Area{512, 384, 0, 511}, Area{512, 384, -400, 900}, Area{61, 5, -300, 300},
                                         Area{7, 3, -100000, 100000}, Area{1, 1, 0, 255},
                                         Area{16, 16, -2147483647, 2147483647}));

TEST(QuadWarp, NothingToFill) {
    Pixel32 pixel = 5;
    const WarpQuad quad{};
    for (const FrameInfo area : {FrameInfo{0, 8, 0, 0, 0}, FrameInfo{8, 0, 0, 0, 0}, FrameInfo{8, -1, 0, 0, 0}})
        warpQuadWrapped(area, &pixel, &pixel, quad);
    EXPECT_EQ(pixel, 5U);
}

WarpGrid randomGrid(unsigned seed) {
    std::mt19937 random(seed);
    WarpGrid grid;
    for (WarpPoint& point : grid)
        point = {static_cast<std::int16_t>(random()), static_cast<std::int16_t>(random())};
    return grid;
}

// Every cell by its place: 64 columns and 48 rows of whole cells.
std::vector<Pixel32> gridWarp(int width, int height, const WarpGrid& grid, const std::vector<Pixel32>& texture,
                              std::int32_t offset) {
    std::vector<Pixel32> target(static_cast<std::size_t>(width * height), 7);
    const int cellWidth = width / 64, cellHeight = height / 48;
    for (int j = 0; j < 48; ++j)
        for (int i = 0; i < 64; ++i) {
            Corners u, v;
            for (std::size_t k = 0; k < 4; ++k) {
                const WarpPoint& point =
                    grid[(static_cast<std::size_t>(j) + k / 2) * 65 + static_cast<std::size_t>(i) + k % 2];
                u[k] = low32(std::int64_t{point.u} + offset);
                v[k] = low32(std::int64_t{point.v} + offset);
            }
            warpRows(target, j * cellHeight * width + i * cellWidth, width, cellWidth, cellHeight, u, v,
                     wrapped(texture));
        }
    return target;
}

TEST(GridWarp, FillsEveryCellAndMovesTheOffset) {
    const auto texture = randomPixels(texturePixels, 3);
    for (const auto& [width, height] : {std::pair{512, 384}, std::pair{512, 240}, std::pair{192, 96}}) {
        for (const std::int32_t offset : {0, 257, -1000000, 2147483000}) {
            const WarpGrid grid = randomGrid(static_cast<unsigned>(offset));
            const auto expected = gridWarp(width, height, grid, texture, offset);
            onEveryTarget([&, w = width, h = height] {
                std::vector<Pixel32> shipped(expected.size(), 7);
                warpOffset = offset;
                drawGridWarp(shipped.data(), {w, h, 0, 0, 0}, grid, texture.data(), 1000);
                ASSERT_EQ(shipped, expected);
                ASSERT_EQ(warpOffset, low32(std::int64_t{offset} + 1000));
            });
        }
    }
}

// Sizes that are no multiple of a cell, or smaller than one, stay inside the area and end.
TEST(GridWarp, OddSizesStayInside) {
    const auto texture = randomPixels(texturePixels, 4);
    const WarpGrid grid = randomGrid(5);
    for (const auto& [width, height] :
         {std::pair{500, 383}, std::pair{639, 95}, std::pair{63, 47}, std::pair{512, 0}, std::pair{0, 384}}) {
        std::vector<Pixel32> target(static_cast<std::size_t>(width * height) + 1, 7);
        warpOffset = 0;
        drawGridWarp(target.data(), {width, height, 0, 0, 0}, grid, texture.data(), 257);
        EXPECT_EQ(target.back(), 7U);
        EXPECT_EQ(warpOffset, 257);
    }
}

} // namespace
} // namespace lumenfold
