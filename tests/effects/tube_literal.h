#pragma once

#include "core/convert.h"
#include "core/trig.h"
#include "effects/tube.h"
#include "render/depth_buffer.h"
#include "tests/support/pixels.h"

#include <algorithm>
#include <cmath>

// The tube told step by step, for comparison with the shipped one.
namespace lumenfold::test {

inline void literalBuildTube(std::vector<TubePoint>& points, float t) {
    using trig::cos;
    using trig::sin;
    const double k = 0.017453277777777776;
    const float a1 = static_cast<float>((sin(0.2 * t) + 1) * 30), a2 = static_cast<float>((sin(0.1 * t) + 1) * 0.6);
    const float a3 = static_cast<float>((sin(0.2 * t) + 1) * 20), a4 = static_cast<float>(sin(0.15 * t) + 1);
    const float a5 = static_cast<float>(sin(0.3 * t) + 3), a6 = 20.0F;
    for (int i = 0; i < static_cast<int>(points.size() / 6); ++i) {
        const double A = 2 * std::fabs(sin(0.0083 * i));
        const double B = sin((static_cast<float>(i) * a4 + a3) * k);
        const double C = static_cast<float>(i) * a2;
        for (int j = 0; j < 6; ++j) {
            const double R = sin(60 * j * A * k) * a5 * B + a6;
            const double theta = (60 * j + C + a1) * k;
            points[static_cast<std::size_t>(6 * i + j)].x = static_cast<float>(cos(theta) * R);
            points[static_cast<std::size_t>(6 * i + j)].z = static_cast<float>(sin(theta) * R);
        }
    }
}

inline std::int32_t literalShade(const TubePoint& p) {
    const float r2 = p.x * p.x + p.z * p.z;
    const float nz = p.z / std::sqrt(r2);
    return std::clamp(wrapSub(truncate(r2 * r2 * 0.0004 + nz * -1.0F * 40), 64), 0, 255);
}

// Columns beyond the frame are stepped over, never written.
inline void literalDrawTube(const std::vector<TubePoint>& points, const Pixel32* texture, std::uint32_t zoom,
                            Pixel32* frame, int W, float base) {
    const float D = static_cast<float>(zoom);
    const std::size_t rings = points.size() / 6;
    for (std::size_t i = 0; i < rings; ++i)
        for (std::size_t j = 0; j < 6; ++j) {
            if (i == rings - 1 && j == 5)
                continue;
            const TubePoint P = points[6 * i + j];
            const TubePoint Q = j == 5 ? points[6 * (i + 1)] : points[6 * i + j + 1];
            const std::int32_t x0 = truncate(P.x * 256 / (D + P.z) + 100), x1 = truncate(Q.x * 256 / (D + Q.z) + 100);
            const std::int32_t shade0 = literalShade(P), shade1 = literalShade(Q);
            if (!(x0 < x1))
                continue;
            const std::int32_t n = x1 - x0;
            const std::int32_t dS = ((shade1 << 16) - (shade0 << 16)) / n, dU = ((Q.u << 16) - (P.u << 16)) / n;
            std::int32_t s = shade0 << 16, u = 0;
            float depth = base + 1 / P.z;
            const float step = (1 / Q.z - 1 / P.z) / static_cast<float>(n);
            for (std::int32_t x = x0; x < x1; ++x) {
                const std::size_t at = i * static_cast<std::size_t>(W) + static_cast<std::size_t>(std::max(x, 0));
                if (x >= 0 && x < W && depthBuffer[at] < depth) {
                    const auto texel = static_cast<std::uint32_t>(P.u + (u >> 16) + 256 * static_cast<int>(i)) & 0xFFFF;
                    const auto shade = static_cast<Pixel32>(s >> 16);
                    frame[at] = saturatedSum(texture[texel], shade | shade << 8 | shade << 16);
                    depthBuffer[at] = depth;
                }
                s += dS;
                u += dU;
                depth += step;
            }
        }
}

} // namespace lumenfold::test
