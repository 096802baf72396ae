#include "forge/studio.h"

#include "forge/noise.h"

namespace lumenfold::art {

float seen(const SoftBox& box, Vec3 direction) {
    const Vec3 ahead = normalize(box.centre);
    const float depth = dot(direction, ahead);
    if (depth <= 0) {
        return 0;
    }
    const Vec3 right = normalize(cross(box.up, ahead));
    const Vec3 upward = cross(ahead, right);
    const float across = std::fabs(dot(direction, right) / depth);
    const float along = std::fabs(dot(direction, upward) / depth);
    const float soft = box.softness;
    return smoothStep(box.halfWidth + soft, box.halfWidth - 0.5F * soft, across) *
           smoothStep(box.halfHeight + 1.4F * soft, box.halfHeight - 0.5F * soft, along);
}

Colour studioLight(Vec3 direction) {
    static const SoftBox key = {{-0.75F, 0.62F, 0.55F}, {0, 1, 0}, 0.16F, 0.9F, 0.22F};
    static const SoftBox companion = {{-0.15F, 0.80F, 0.75F}, {0, 1, 0}, 0.05F, 0.7F, 0.10F};
    static const SoftBox rim = {{0.85F, 0.42F, 0.15F}, {0, 1, 0}, 0.25F, 0.6F, 0.35F};
    static const SoftBox above = {{0.1F, 0.9F, -0.5F}, {1, 0, 0}, 0.5F, 0.5F, 0.6F};
    static const SoftBox low = {{-0.6F, 0.12F, -0.6F}, {0, 1, 0}, 0.4F, 0.25F, 0.5F};
    Colour light = mix(palette::deep * 0.2F, palette::petrol * 0.9F, smoothStep(-0.2F, 0.9F, direction.y));
    const float horizon = power(saturate(1 - std::fabs(direction.y - 0.02F) * 2.2F), 3);
    light += palette::ember * (0.55F * horizon * smoothStep(-0.6F, 0.9F, direction.x));
    light = light * (1 + 1.1F * fractalNoise(direction * 2.1F + Vec3{3, 0, 0}, 4, 11));
    light += palette::ice * (5.5F * seen(key, direction) + 1.6F * seen(companion, direction));
    light += palette::amber * (3.4F * seen(rim, direction));
    light += palette::teal * (1.7F * seen(above, direction));
    light += palette::violet * (0.55F * seen(low, direction));
    return light;
}

} // namespace lumenfold::art
