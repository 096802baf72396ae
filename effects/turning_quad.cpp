#include "effects/turning_quad.h"

#include "core/convert.h"
#include "core/trig.h"

namespace lumenfold {

WarpQuad turningQuad(float time, double radius) {
    // of the corners at rest: top-left, top-right, bottom-left, bottom-right of the target
    static const float directions[4] = {
        static_cast<float>(trig::atan2(-160, -120)), static_cast<float>(trig::atan2(160, -120)),
        static_cast<float>(trig::atan2(-160, 120)), static_cast<float>(trig::atan2(160, 120))};
    constexpr int centre = 256;
    const double turn = time * 0.04;
    WarpQuad quad;
    for (std::size_t corner = 0; corner < 4; ++corner) {
        const double angle = directions[corner] + turn;
        quad.x[corner] = wrapAdd(truncate(trig::cos(angle) * radius), centre);
        quad.y[corner] = wrapAdd(truncate(trig::sin(angle) * radius), centre);
    }
    return quad;
}

} // namespace lumenfold
