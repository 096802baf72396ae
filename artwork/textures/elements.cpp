#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// Water, fire and ground for the objects. Water and fire are added, so their black is exact.

namespace lumenfold::art {

// "ripple.jpg": the net that light draws through moving water, on black, added over what lies below. Wider than deep,
// since the surface is seen at a slant.
void makeRipples(const std::string& path) {
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
    writeBitmap(path, withTrueBlack(developed(picture, {0.9F, false, 0}), 5));
}

// "fire1.jpg": fire that flows along the columns and wraps there.
void makeFire(const std::string& path) {
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
    writeBitmap(path, withTrueBlack(developed(picture, {0.9F, true, 0}), 6));
}

// "coral1.jpg": one of the matters on the film: branching ridges over dark hollows, cups that glow here and there.
void makeCoral(const std::string& path) {
    constexpr int fine = 768;
    const auto heightAt = [](float u, float v) {
        const float bend = 0.20F * fractalNoise({3 * u, 3 * v, 2}, 3, 621, {3, 3});
        const float branches = std::fabs(gradientNoise({5 * (u + bend), 5 * (v - bend), 1}, 622, {5, 5}));
        const float twigs = std::fabs(gradientNoise({11 * (u - bend), 11 * (v + bend), 4}, 623, {11, 11}));
        const float mass = fractalNoise({3 * u, 3 * v, 7}, 3, 624, {3, 3});
        return 0.7F * power(saturate(1 - 2.0F * branches), 2) + 0.28F * saturate(1 - 2.2F * twigs) + 0.8F * mass;
    };
    const Relief heights = Relief(fine, heightAt).lowPass(2.5F);
    const Relief around = heights.lowPass(26);
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const float u = (static_cast<float>(x) + 0.5F) / fine;
        const float v = (static_cast<float>(y) + 0.5F) / fine;
        const Vec3 normal = heights.normal(x, y, 0.060F);
        const float lit = saturate(dot(normal, normalize({-0.5F, -0.6F, 0.62F})));
        const float back = saturate(dot(normal, normalize({0.8F, 0.45F, 0.25F})));
        const float proud = smoothStep(-0.30F, 0.32F, heights.at(x, y) - around.at(x, y));
        const float tide = fractalNoise({2 * u, 2 * v, 3}, 3, 625, {2, 2});
        Colour body = mix(palette::petrol, palette::teal * 0.8F, smoothStep(-0.3F, 0.4F, tide));
        body = mix(body, palette::ember * 0.9F, 0.65F * smoothStep(0.12F, 0.42F, -tide));
        Colour light = body * ((0.12F + 0.88F * lit) * mix(0.10F, 1, proud));
        light += palette::ice * (0.25F * proud * power(saturate(dot(normal, normalize({-0.25F, -0.3F, 0.9F}))), 40));
        light += palette::amber * (0.35F * back * back * proud);
        const Cell cup = cellNoise(7 * u, 7 * v, 626, {7, 7});
        const float lamp = unitOf(cup.id, 0) > 0.78F ? bell(cup.nearest, 0.10F) : 0;
        return light + mix(palette::teal, palette::amber, unitOf(cup.id, 1) > 0.6F ? 1.0F : 0.0F) * (0.9F * lamp);
    });
    picture = withBloom(picture, {1.5F, 0.08F, 9, 0.10F}, Edge::wrap);
    writeBitmap(path, developed(picture, {1.1F, true, 0.6F}));
}

} // namespace lumenfold::art
