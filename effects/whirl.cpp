#include "effects/whirl.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/trig.h"

#include <cmath>

namespace lumenfold {

Whirl::Whirl(float spin) : angle(spin), x(20 * trig::sin(spin)), y(20 * trig::cos(spin)) {}

void stampFlare(FrameInfo info, Pixel32* frame, const Pixel32* flare, const Whirl& whirl, const Vector3& point) {
    const float depth = 150 + point[2];
    const std::int32_t x = truncate((point[0] - 400) * 256 / depth);
    const std::int32_t y = truncate((point[1] - 400) * 256 / depth);
    const float radius = static_cast<float>(std::sqrt(static_cast<double>(x * x + y * y)));
    const double angle = trig::atan2(y, x) + whirl.angle;
    const std::int32_t px = truncate(radius * trig::cos(angle) + whirl.x + info.width / 2);
    const std::int32_t py = truncate(radius * trig::sin(angle) + whirl.y + info.height / 2);
    if (px > 0 && px < info.width && py > 0 && py < info.height)
        stampAdd(frame, info.width, info.height, flare, whirlFlareSide, whirlFlareSide, px, py);
}

} // namespace lumenfold
