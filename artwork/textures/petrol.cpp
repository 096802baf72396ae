#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"
#include "forge/studio.h"

// "petrolenv.jpg": liquid chrome under a film of oil. Three scenes look through it magnified two to five times, and
// two of them let it stream past, so its shapes are as large as a tile allows. Two add a second texture to it: it keeps
// a third of the range free for that.

namespace lumenfold::art {

namespace {

// Folded like heavy cloth: a sine of a place that noise and another sine have moved.
float foldHeight(float u, float v) {
    const Period period = {2, 2};
    const Vec3 place = {2 * u, 2 * v, 0.4F};
    const float warpU = 0.34F * fractalNoise(place, 2, 41, period);
    const float warpV = 0.34F * fractalNoise(place + Vec3{0, 0, 5}, 2, 42, period);
    const float phase = 2 * pi * (u + 2 * v + 1.6F * warpU + 1.2F * warpV);
    const float fold = sine(phase + 1.1F * sine(2 * pi * (2 * u - v + warpV)));
    return 0.5F * fold + 0.22F * sine(2 * pi * (2 * u - v + 1.5F * warpV) + 0.8F) +
           0.35F * gradientNoise({3 * u, 3 * v, 2.5F}, 43, {3, 3});
}

} // namespace

void makePetrolEnvironment(const std::string& path) {
    constexpr int fine = 768;
    const Relief heights = Relief(fine, foldHeight).lowPass(9.0F);
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const Vec3 slope = heights.normal(x, y, 0.10F);
        const Vec3 normal = {slope.x, -slope.y, slope.z}; // the studio's y points up
        const float height = heights.at(x, y);
        const Vec3 place = {2 * static_cast<float>(x) / fine, 2 * static_cast<float>(y) / fine, 7};
        const float drift = fractalNoise(place, 3, 44, {2, 2});
        const Colour oil = iridescence(0.37F + 0.24F * height - 0.50F * normal.y + 0.32F * normal.x + 0.80F * drift);
        const float facing = smoothStep(-0.75F, 0.65F, normal.y * 0.8F - normal.x * 0.6F + 0.3F * height);
        Colour light = oil * mix(0.10F, 0.95F, facing * facing) * mix(0.35F, 1.0F, smoothStep(-0.95F, 0.3F, height));
        const Colour lamps = mirrored(normalize(normal * Vec3{0.8F, 0.8F, 1}));
        light += lamps * (1 / (1 + 0.35F * largest(lamps))) * mix(Colour{1, 1, 1}, oil * 2, 0.85F) * 0.28F;
        return light + palette::petrol * 0.06F;
    });
    picture = withBloom(picture, {2, 0.20F, 14, 0.12F}, Edge::wrap);
    writeBitmap(path, developed(picture, {0.27F, true, 0.6F}));
}

} // namespace lumenfold::art
