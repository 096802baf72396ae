#include "artwork/pictures/crease.h"

namespace lumenfold::art {

void addCrease(Picture& picture, float strength) {
    picture.change([&](Colour light, int x, int y) {
        const float line = 300 - 18 * static_cast<float>(x) / 511;
        const float far = std::fabs(static_cast<float>(y) - line);
        const float core = smoothStep(1.6F, 0.8F, far);
        const float skirt = 0.42F * smoothStep(10, 1, far) * smoothStep(10, 1, far);
        return mix(light + fromHex(0xBFF3FF) * (skirt * strength), Colour{1.4F, 1.4F, 1.4F}, core);
    });
}

} // namespace lumenfold::art
