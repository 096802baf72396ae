#pragma once

#include "forge/maths.h"

#include <cstdint>

// Noise from an integer hash: the same numbers everywhere. Two-dimensional patterns that must tile give a period.

namespace lumenfold::art {

// After how many lattice steps a pattern repeats along x and y; 0 = never. Only whole steps can repeat.
struct Period {
    int x = 0;
    int y = 0;
};

std::uint32_t hashOf(int x, int y, int z, std::uint32_t seed);
float hashUnit(int x, int y, int z, std::uint32_t seed); // 0 to below 1

// Gradient noise with a quintic blend, about -1 to 1, mean 0; one lattice step per unit.
float gradientNoise(Vec3 place, std::uint32_t seed, Period period = {});

// Octaves of gradient noise, each of half the size and weight of the one before (first weight 0.5). The period is
// that of the first octave.
float fractalNoise(Vec3 place, int octaves, std::uint32_t seed, Period period = {});

// As fractalNoise with every octave folded at zero and turned over: sharp ridges, 0 to about 1.
float ridgedNoise(Vec3 place, int octaves, std::uint32_t seed, Period period = {});

// The cells around scattered points, one point per lattice square.
struct Cell {
    float nearest = 0;    // distance to this cell's point
    float border = 0;     // 0 on the border, grows inwards; round in the corners
    Point2 toCentre;      // from the place to this cell's point
    std::uint32_t id = 0; // hash of the cell
};
// jitter: 0 a square lattice, 1 fully scattered. roundness: 9 soft corners, 30 nearly straight borders.
Cell cellNoise(float x, float y, std::uint32_t seed, Period period, float jitter = 0.74F, float roundness = 9);

// 0 to 1 from eight bits of a cell's hash; `which` 0 to 3.
inline float unitOf(std::uint32_t id, int which) {
    return static_cast<float>(id >> (8 * which) & 255) / 255;
}

} // namespace lumenfold::art
