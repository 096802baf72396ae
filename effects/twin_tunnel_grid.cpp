#include "effects/twin_tunnel_grid.h"

#include "core/convert.h"
#include "core/trig.h"

#include <cmath>

namespace lumenfold {

namespace {

constexpr double unitsPerTime = 0.12;                 // of animation time in one unit of demo time
constexpr double texelsPerRadian = 81.16908953746352; // 255 / 3.14159

// Where the two tunnels stand at one moment, in grid columns from the middle of the rectangle.
struct Tunnels {
    double phase;
    double x1, y1, x2, y2; // centres
    double depth1, depth2; // texels along the wall at distance 1
    double wobble;
};

Tunnels tunnelsAt(double t) {
    using trig::cos;
    using trig::sin;
    return {t,
            (sin(1.2 * t) * 5 + 14) * sin(0.7 * t) - 7,
            (sin(1.4 * t) * 5 + 14) * cos(1.4 * t) - 7,
            (sin(1.5 * t) * 5 + 14) * sin(0.2 * t + 3) + 7,
            (sin(1.6 * t) * 5 + 14) * cos(0.5 * t + 3) + 7,
            sin(t) * 700 + 1100,
            cos(0.7 * t) * 700 + 1000,
            sin(2 * t)};
}

std::int16_t low16(double value) {
    return static_cast<std::int16_t>(truncate(value));
}

// The sum of both tunnels' coordinates: the first is cut to 16 bits before the second is added. At a centre the
// depth is infinite and reads as 0.
WarpPoint pointAt(const Tunnels& tunnels, double column, double row) {
    const double x1 = column + tunnels.x1;
    const double y1 = row + tunnels.y1;
    const double x2 = column + tunnels.x2;
    const double y2 = row + tunnels.y2;
    const double angle1 = trig::atan2(x1, y1); // the column is the first operand: angles from the vertical
    const double angle2 = trig::atan2(x2, y2);
    const double radius1 = std::sqrt(x1 * x1 + y1 * y1);
    const double radius2 = std::sqrt(x2 * x2 + y2 * y2);
    const double t = tunnels.phase;

    const std::int16_t u1 = low16(std::fabs(angle1) * texelsPerRadian + 128);
    const std::int16_t v1 = low16(tunnels.depth1 / radius1 + trig::sin(4 * angle1 + t) * tunnels.wobble * 50);
    return {low16(u1 + std::fabs(angle2) * texelsPerRadian),
            low16(v1 + tunnels.depth2 / radius2 + trig::sin(4 * angle2 + t) * tunnels.wobble * 50)};
}

} // namespace

void buildTwinTunnelGrid(WarpGrid& grid, TwinTunnelClock& clock, bool pulse, float time) {
    if (pulse) {
        clock.offset = static_cast<float>(clock.offset - (time - clock.lastPulse) * unitsPerTime);
        clock.lastPulse = time;
    }
    const Tunnels tunnels = tunnelsAt(time * unitsPerTime + clock.offset);
    auto point = grid.begin();
    for (int j = -warpGridHeight / 2; j <= warpGridHeight / 2; ++j)
        for (int i = -warpGridWidth / 2; i <= warpGridWidth / 2; ++i)
            *point++ = pointAt(tunnels, i, 0.625 * j); // the band's cells are 8 x 5 pixels
}

} // namespace lumenfold
