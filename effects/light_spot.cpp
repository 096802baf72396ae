#include "effects/light_spot.h"

#include "effects/turning_quad.h"

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
    const WarpQuad quad = turningQuad(time, radius);
    if (radius > static_cast<float>(shrink))
        radius -= static_cast<float>(shrink);
    if (shrink > 5)
        --shrink;
    return quad;
}

} // namespace lumenfold
