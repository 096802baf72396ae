#include "effects/wave_grid.h"

#include "core/convert.h"
#include "core/trig.h"

#include <gtest/gtest.h>

namespace lumenfold {
namespace {

using trig::cos;
using trig::sin;

TEST(WaveGrid, MatchesTheFormulaAtEveryPoint) {
    for (const float t : {0.0F, 1.5F, 77.25F, 4321.0F, 3.0e6F, 6.8e7F}) {
        const double T = t * 0.12;
        const double P = sin(0.5 * T) * 0.1 + 0.15, Q = sin(0.1 * T) * 14.0 + 20.0, R = sin(0.14 * T) * 0.3 + 2.0;
        const double U = 30 * T, V = sin(0.5 * T) * 10.0, W = sin(0.3 * T) * 0.1 + 0.13;
        const double X = sin(0.05 * T) * 14.0 + 20.0, Y = cos(0.04 * T) * 0.4 + 2.0, Z = 50 * T;
        WarpGrid grid;
        buildWaveGrid(grid, t);
        const WarpPoint* point = grid.data();
        for (int j = -24; j <= 24; ++j) {
            const double A = X * sin((j + V) * W);
            for (int i = -32; i <= 32; ++i, ++point) {
                ASSERT_EQ(static_cast<std::uint16_t>(point->u), truncate(Q * sin(P * i) + U + R * j) & 0xFFFF)
                    << t << ' ' << i << ' ' << j;
                ASSERT_EQ(static_cast<std::uint16_t>(point->v), truncate(Y * i + Z + A) & 0xFFFF)
                    << t << ' ' << i << ' ' << j;
            }
        }
    }
}

} // namespace
} // namespace lumenfold
