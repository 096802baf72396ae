#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// "slem4.jpg": seven eyes in slime. Part 7 adds the turning quad over the petrol silk, so all between the eyes is dark;
// part 9 adds light to it as the skin of its tube, so it stays saturated and its mean low.

namespace lumenfold::art {

namespace {

struct Eye {
    float u;
    float v;
    float radius; // of the iris, in tiles
    float lookU;  // where the pupil has wandered
    float lookV;
};

constexpr Eye eyes[] = {
    {0.17F, 0.19F, 0.112F, 0.12F, 0.08F},  {0.52F, 0.13F, 0.082F, -0.15F, 0.20F},
    {0.83F, 0.30F, 0.120F, -0.10F, 0.06F}, {0.43F, 0.46F, 0.126F, 0.02F, -0.04F},
    {0.13F, 0.62F, 0.090F, 0.20F, -0.05F}, {0.68F, 0.71F, 0.116F, -0.08F, -0.12F},
    {0.33F, 0.86F, 0.098F, 0.06F, -0.20F},
};

float wrapped(float distance) {
    return distance - std::floor(distance + 0.5F);
}

// The iris from its pupil outwards, at a distance r in units of its radius; the angle is for its fibres.
Colour iris(float r, float angle, float fibre) {
    const Colour lime = fromHex(0x8CFF14);
    const Colour moss = fromHex(0x3E7A00);
    const float pupil = smoothStep(0.30F, 0.40F, r);
    const float inside = smoothStep(1.0F, 0.93F, r);
    const float rays = 0.5F + 0.5F * sine(17 * angle + 5 * fibre);
    Colour light = mix(moss * 0.35F, moss * 1.3F, rays * smoothStep(0.34F, 0.7F, r));
    light += fromHex(0xFFD23C) * (0.30F * bell(r - 0.43F, 0.07F));
    light += lime * (0.85F * bell(r - 0.90F, 0.075F));
    return light * pupil * inside;
}

} // namespace

Bitmap makeSlime() {
    Picture picture = texture(256, 4, [](float u, float v) {
        const float pull = gradientNoise({4 * u, 4 * v, 1}, 305, {4, 4});
        const float strings = ridgedNoise({3 * u + 0.3F * pull, 3 * v - 0.3F * pull, 2}, 3, 306, {3, 3});
        Colour light = fromHex(0x0A1400) * 0.4F + fromHex(0x3E7A00) * (0.22F * power(strings, 3));
        for (const Eye& eye : eyes) {
            const float du = wrapped(u - eye.u) / eye.radius;
            const float dv = wrapped(v - eye.v) / eye.radius;
            const float r = length(du, dv);
            if (r > 1.6F)
                continue;
            const float lid = smoothStep(1.0F, 1.35F, r); // the socket's shadow parts the strings
            light = light * lid;
            const float fibre = fractalNoise({9 * u, 9 * v, 4}, 2, 307, {9, 9});
            // the pupil looks away from the middle, the rim stays
            const float shift = saturate(1 - r);
            const float pu = du - eye.lookU * shift;
            const float pv = dv - eye.lookV * shift;
            light += iris(length(pu, pv), angleOf(pv, pu), fibre);
            light += fromHex(0xE8FFC0) * (0.9F * bell(length(du + 0.34F, dv + 0.38F), 0.10F)) +
                     fromHex(0xE8FFC0) * (0.25F * bell(length(du - 0.40F, dv - 0.30F), 0.07F));
            light += fromHex(0xB6FF3C) * (0.10F * bell(r - 1.0F, 0.16F));
        }
        return light;
    });
    picture = withBloom(picture, {1.5F, 0.10F, 8, 0.08F}, Edge::wrap);
    return developed(picture, {0.50F, false, 0.6F});
}

} // namespace lumenfold::art
