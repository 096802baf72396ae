#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// "cubet4.jpg": the throat of part 4's ray tunnel. A texel of its near wall covers fourteen pixels, so nothing here is
// sharper than a soft gradient: flesh from domain-warped noise, and two rings of light that run towards the viewer.

namespace lumenfold::art {

namespace {

// Noise at a place that two other noises have moved, after I. Quilez's "domain warping".
float flesh(float u, float v, std::uint32_t seed) {
    constexpr Period period{4, 2};
    const Vec3 place{4 * u, 2 * v, 0.5F};
    const float x = fractalNoise(place, 2, seed, period);
    const float y = fractalNoise(place + Vec3{0, 0, 5}, 2, seed + 1, period);
    return fractalNoise(place + Vec3{1.3F * x, 1.1F * y, 9}, 2, seed + 2, period);
}

} // namespace

Bitmap makeThroat() {
    Picture picture = texture(256, 2, [](float u, float v) {
        const float tissue = flesh(u, v, 811);
        const float folds = 0.5F + 0.5F * sine(2 * pi * (4 * v + 0.55F * tissue + 0.05F * sine(4 * pi * u)));
        const float deep = smoothStep(-0.45F, 0.50F, tissue + 0.35F * (folds - 0.5F));
        Colour light = mix(fromHex(0x2A0410), fromHex(0xC81E2B), deep);
        light = mix(light, fromHex(0xFF7A3C), 0.55F * smoothStep(0.45F, 1.0F, deep) * folds);
        const float fromRing = std::fabs(2 * v - std::floor(2 * v) - 0.5F) / 2; // in tiles
        light +=
            fromHex(0xFFE3B8) * (0.62F * bell(fromRing, 0.040F)) + fromHex(0xFF7A3C) * (0.20F * bell(fromRing, 0.10F));
        return light;
    });
    picture = blurred(picture, 2.2F, Edge::wrap);
    return developed(picture, {0.95F, false, 0.6F});
}

} // namespace lumenfold::art
