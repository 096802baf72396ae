#include "effects/metaballs.h"

#include <gtest/gtest.h>

#include <random>

namespace lumenfold {
namespace {

float& sampleAt(MetaballGrid& grid, int x, int y, int z) {
    return grid.samples[static_cast<std::size_t>(x + 20 * z + 400 * y)];
}

// Edge by edge, in the order of the points.
std::vector<Vector3> crossings(MetaballGrid& grid, float L) {
    std::vector<Vector3> points;
    const auto edge = [&](int x, int y, int z, int axis) {
        const float a = sampleAt(grid, x, y, z);
        const float b = sampleAt(grid, x + (axis == 0), y + (axis == 1), z + (axis == 2));
        if (!((a <= L || b <= L) && (a >= L || b >= L) && a != b) || points.size() >= 6000)
            return;
        Vector3 point{40.0F * static_cast<float>(x), 40.0F * static_cast<float>(y), 40.0F * static_cast<float>(z)};
        point[static_cast<std::size_t>(axis)] += (L - a) / ((b - a) / 40.0F);
        points.push_back(point);
    };
    for (int x = 0; x < 19; ++x)
        for (int y = 0; y < 19; ++y)
            for (int z = 0; z < 19; ++z) {
                bool below = false, above = false;
                for (int corner = 0; corner < 8; ++corner) {
                    const float value = sampleAt(grid, x + (corner & 1), y + (corner >> 1 & 1), z + (corner >> 2));
                    below = below || value <= L;
                    above = above || value >= L;
                }
                if (!below || !above)
                    continue;
                edge(x, y, z, 2), edge(x, y + 1, z, 2), edge(x + 1, y, z, 2), edge(x + 1, y + 1, z, 2);
                edge(x, y, z, 0), edge(x, y, z + 1, 0), edge(x, y + 1, z, 0), edge(x, y + 1, z + 1, 0);
                edge(x, y, z, 1), edge(x, y, z + 1, 1), edge(x + 1, y, z, 1), edge(x + 1, y, z + 1, 1);
            }
    return points;
}

TEST(Metaballs, PointsComeCellByCellAndEdgeByEdge) {
    std::vector<Vector3> points(5, Vector3{1.0F, 2.0F, 3.0F}); // of the frame before
    for (int moment = 0; moment < 12; ++moment) {
        MetaballGrid grid;
        addMetaball(grid, {300 + 17 * moment, 400 - 9 * moment, 350, 100, 0.004F});
        addMetaball(grid, {10 + 60 * moment, 380, 720, 120, 0.004F}); // leaves the grid: an open surface
        polygonise(grid, 60.0F, points);
        ASSERT_GT(points.size(), 200U);
        ASSERT_EQ(points, crossings(grid, 60.0F));
    }
}

TEST(Metaballs, SamplesAtTheLevelAreBelowAndAbove) {
    MetaballGrid grid;
    std::mt19937 random(3);
    for (int i = 0; i < 40; ++i) // thin, so that the points stay within their room
        grid.samples[random() % grid.samples.size()] = static_cast<float>(59 + random() % 3);
    std::vector<Vector3> points;
    polygonise(grid, 60.0F, points);
    EXPECT_EQ(points, crossings(grid, 60.0F));
    for (float& sample : grid.samples)
        sample = 60.0F; // equal samples cross nowhere
    polygonise(grid, 60.0F, points);
    EXPECT_TRUE(points.empty());
}

TEST(Metaballs, KeepNoMorePointsThanTheirRoom) {
    MetaballGrid grid;
    for (std::size_t i = 0; i < grid.samples.size(); ++i)
        grid.samples[i] = (i / 400 + i / 20 + i) % 2 == 0 ? 0.0F : 100.0F;
    std::vector<Vector3> points;
    polygonise(grid, 60.0F, points);
    EXPECT_EQ(points.size(), 6000U);
    EXPECT_EQ(points, crossings(grid, 60.0F));
}

} // namespace
} // namespace lumenfold
