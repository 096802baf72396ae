#include "effects/metaballs.h"

#include <algorithm>

namespace lumenfold {

namespace {

using Corner = std::array<int, 3>; // grid coordinates x, y, z

// An edge of a cell: where it starts, seen from the cell's first corner, and the axis along which it runs.
struct Edge {
    Corner start;
    std::size_t axis; // 0 x, 1 y, 2 z
};

// Along z, then x, then y.
constexpr std::array<Edge, 12> edges{{{{0, 0, 0}, 2},
                                      {{0, 1, 0}, 2},
                                      {{1, 0, 0}, 2},
                                      {{1, 1, 0}, 2},
                                      {{0, 0, 0}, 0},
                                      {{0, 0, 1}, 0},
                                      {{0, 1, 0}, 0},
                                      {{0, 1, 1}, 0},
                                      {{0, 0, 0}, 1},
                                      {{0, 0, 1}, 1},
                                      {{1, 0, 0}, 1},
                                      {{1, 0, 1}, 1}}};

constexpr std::array<int, 3> strides{1, MetaballGrid::strideY, MetaballGrid::strideZ};

// Whether the level lies within the cell; a corner exactly at the level counts as below and above.
bool crossesLevel(const float* first, float level) {
    bool below = false;
    bool above = false;
    for (const int y : {0, MetaballGrid::strideY})
        for (const int z : {0, MetaballGrid::strideZ})
            for (const int x : {0, 1}) {
                const float value = first[x + y + z];
                below |= value <= level;
                above |= value >= level;
            }
    return below && above;
}

void addCrossings(const float* first, const Corner& cell, float level, std::vector<Vector3>& points) {
    for (const Edge& edge : edges) {
        const float* sample =
            first + edge.start[0] * strides[0] + edge.start[1] * strides[1] + edge.start[2] * strides[2];
        const float a = sample[0];
        const float b = sample[strides[edge.axis]];
        if (!((a <= level || b <= level) && (a >= level || b >= level) && a != b))
            continue;
        if (points.size() == maxCrossings)
            return;
        Vector3 point;
        for (std::size_t axis = 0; axis < 3; ++axis)
            point[axis] = MetaballGrid::spacing * static_cast<float>(cell[axis] + edge.start[axis]);
        point[edge.axis] += (level - a) / ((b - a) / MetaballGrid::spacing);
        points.push_back(point);
    }
}

} // namespace

void addMetaball(MetaballGrid& grid, const Metaball& ball) {
    constexpr int step = static_cast<int>(MetaballGrid::spacing);
    const float strength = static_cast<float>(ball.strength);
    std::array<std::int32_t, MetaballGrid::side> squaresX; // of the distances along x
    for (int x = 0; x < MetaballGrid::side; ++x)
        squaresX[static_cast<std::size_t>(x)] = (step * x - ball.x) * (step * x - ball.x);
    float* row = grid.samples.data();
    for (int y = 0; y < MetaballGrid::side; ++y)
        for (int z = 0; z < MetaballGrid::side; ++z, row += MetaballGrid::side) {
            const std::int32_t square =
                (step * y - ball.y) * (step * y - ball.y) + (step * z - ball.z) * (step * z - ball.z);
            for (std::size_t x = 0; x < MetaballGrid::side; ++x)
                row[x] += std::max(strength - static_cast<float>(squaresX[x] + square) * ball.falloff, 0.0F);
        }
}

void polygonise(const MetaballGrid& grid, float level, std::vector<Vector3>& points) {
    constexpr int cells = MetaballGrid::side - 1;
    points.clear();
    for (int x = 0; x < cells; ++x)
        for (int y = 0; y < cells; ++y)
            for (int z = 0; z < cells; ++z) {
                const float* first =
                    &grid.samples[static_cast<std::size_t>(x + MetaballGrid::strideY * y + MetaballGrid::strideZ * z)];
                if (crossesLevel(first, level))
                    addCrossings(first, {x, y, z}, level, points);
            }
}

} // namespace lumenfold
