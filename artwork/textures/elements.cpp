#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// Water, fire and ground for the objects. Water and fire are added, so their black is exact.

namespace lumenfold::art {

// "ripple.jpg": the net that light draws through moving water, on black, added over what lies below. Wider than deep,
// since the surface is seen at a slant.
Bitmap makeRipples() {
    const auto net = [](float u, float v, int across, int along, std::uint32_t seed) {
        const float bendU = 0.55F * fractalNoise({3 * u, 3 * v, 2}, 3, seed, {3, 3});
        const float bendV = 0.55F * fractalNoise({3 * u, 3 * v, 8}, 3, seed + 4, {3, 3});
        const float x = static_cast<float>(across) * u + bendU;
        const float y = static_cast<float>(along) * v + bendV;
        return cellNoise(x, y, seed + 8, {across, along}, 0.9F, 12).border + 0.06F;
    };
    Picture picture = texture(256, 3, [&](float u, float v) {
        const float broad = net(u, v, 5, 8, 601);
        const float fine = net(u, v, 9, 14, 631);
        const float swell = smoothStep(-0.25F, 0.35F, fractalNoise({2 * u, 3 * v, 5}, 2, 661, {2, 3}));
        const float line = bell(std::max(0.0F, broad), 0.075F);
        const float thread = bell(std::max(0.0F, fine), 0.10F);
        Colour light =
            fromHex(0x5CC8B4) * (0.36F * line * mix(0.35F, 1, swell)) + fromHex(0x1E6B66) * (0.40F * thread * swell);
        light += fromHex(0xFFD28A) * (0.95F * line * line * thread * swell);
        light += fromHex(0xF2789A) * (0.85F * line * thread * (1 - swell));
        return light;
    });
    picture = withBloom(picture, {1.5F, 0.14F, 7, 0.12F}, Edge::wrap);
    return withTrueBlack(developed(picture, {0.9F, false, 0}), 5);
}

// "fire1.jpg": fire that flows along the columns and wraps there.
Bitmap makeFire() {
    Picture picture = texture(256, 3, [](float u, float v) -> Colour {
        // tongues: noise stretched along u and dragged by slower noise
        const float drag = 0.22F * fractalNoise({2 * u, 3 * v, 1}, 2, 611, {2, 3});
        const float flow = fractalNoise({3 * u + 2 * drag, 6 * (v + drag), 3}, 4, 612, {3, 6});
        const float tongue = std::fabs(gradientNoise({2 * u, 4 * (v + 0.7F * drag), 5}, 613, {2, 4}));
        const float heat = saturate(1.05F * power(saturate(1 - 2.7F * tongue), 2.2F) * (0.62F + 1.7F * flow));
        Colour light = palette::ember * (1.3F * smoothStep(0.02F, 0.35F, heat));
        light = light * smoothStep(0, 0.3F, heat) + palette::amber * (1.0F * smoothStep(0.22F, 0.75F, heat));
        light += palette::gold * (0.9F * smoothStep(0.62F, 1, heat));
        return light;
    });
    picture = withBloom(picture, {1.5F, 0.15F, 8, 0.12F}, Edge::wrap);
    return withTrueBlack(developed(picture, {0.9F, true, 0}), 6);
}

} // namespace lumenfold::art
