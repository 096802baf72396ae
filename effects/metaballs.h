#pragma once

#include "assets/mesh.h"

#include <array>
#include <cstdint>
#include <vector>

namespace lumenfold {

// A scalar field sampled on a grid of 20 x 20 x 20 points, 40 units apart; sample (x, y, z) stands at index
// x + 20z + 400y for the point (40x, 40y, 40z).
struct MetaballGrid {
    static constexpr int side = 20;
    static constexpr int strideZ = side;
    static constexpr int strideY = side * side;
    static constexpr float spacing = 40.0F;

    std::array<float, side * side * side> samples{};
};

struct Metaball {
    std::int32_t x, y, z; // centre, within a few thousand units of the grid
    std::int32_t strength;
    float falloff; // per unit of squared distance
};

// Adds the ball's field, strength - squared distance x falloff and not below 0, to every sample.
void addMetaball(MetaballGrid& grid, const Metaball& ball);

inline constexpr std::size_t maxCrossings = 6000;

// Replaces points by those, in units, where the field crosses the level on an edge of the grid. Each cell between eight
// samples gives its own points, so a point occurs once for every cell at its edge. No more than maxCrossings are kept:
// the rest of the grid is left out then.
void polygonise(const MetaballGrid& grid, float level, std::vector<Vector3>& points);

} // namespace lumenfold
