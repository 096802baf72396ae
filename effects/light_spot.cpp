#include "effects/light_spot.h"

#include "core/convert.h"
#include "core/trig.h"

#include <algorithm>

namespace lumenfold {

void paintLightSpot(Pixel32* picture) {
    constexpr int half = lightSpotSide / 2;
    for (int y = -half; y < half; ++y)
        for (int x = -half; x < half; ++x) {
            const int light = std::clamp(255 - (x * x + y * y) / 256, 0, 255);
            *picture++ = static_cast<Pixel32>(light << 16 | light << 8 | light * light / 256);
        }
}

WarpQuad LightSpot::closeIn(float time) {
    // Of the corners, top-left, top-right, bottom-left, bottom-right; the frame's sides are exchanged.
    static const float directions[4] = {
        static_cast<float>(trig::atan2(-160, -120)), static_cast<float>(trig::atan2(160, -120)),
        static_cast<float>(trig::atan2(-160, 120)), static_cast<float>(trig::atan2(160, 120))};
    constexpr int centre = lightSpotSide / 2;
    const double turn = time * 0.04;
    WarpQuad quad;
    for (std::size_t corner = 0; corner < 4; ++corner) {
        const double angle = directions[corner] + turn;
        quad.x[corner] = wrapAdd(truncate(trig::cos(angle) * radius), centre);
        quad.y[corner] = wrapAdd(truncate(trig::sin(angle) * radius), centre);
    }
    if (radius > static_cast<float>(shrink))
        radius -= static_cast<float>(shrink);
    if (shrink > 5)
        --shrink;
    return quad;
}

} // namespace lumenfold
