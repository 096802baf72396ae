#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

#include <algorithm>
#include <cmath>

// The rock of the flight, from one rib's middle to the next along the columns and from 18 units above the water to 2
// below it along the rows; as seen from near and through haze. Every bay has a window on the sky. The light comes off
// the water and through the windows, as nothing else lights the objects.

namespace lumenfold::art {

namespace {

// Dawn: rose light over jade.
const Colour night = fromHex(0x0C1E2C);
const Colour jade = fromHex(0x1E6B66);
const Colour mint = fromHex(0x5CC8B4);
const Colour rose = fromHex(0xF2789A);
const Colour sun = fromHex(0xFFD28A);

constexpr int fine = 512;
constexpr float rise = 11;        // units from rib to rib
constexpr float ribReach = 1.25F; // units from a rib's middle to the wall beside it
constexpr float crestReach = 0.75F;

float fraction(float x) {
    return x - std::floor(x);
}

float heightAbove(float v) {
    return 18 - 20 * v;
}

// Units from the nearest rib's middle, negative before it.
float fromRib(float u) {
    return rise * (u < 0.5F ? u : u - 1);
}

// Signed distance to the window in the middle of a bay, in units: straight jambs under a pointed arch, negative inside.
float fromWindow(float u, float v) {
    constexpr float halfWidth = 2.1F;
    constexpr float sill = 2.6F;
    constexpr float springs = 6.5F; // where the arch begins
    const float across = std::fabs(rise * (u - 0.5F));
    const float up = heightAbove(v) + 0.25F * fractalNoise({5 * u, 7 * v, 1}, 3, 631, {5, 7});
    if (up < springs)
        return std::max(across - halfWidth, sill - up);
    return length(across + 1.4F, up - springs) - (halfWidth + 1.4F); // two circles that meet in a point
}

// The sky in the window: gold at the sill, rose, then violet.
Colour sky(float v) {
    const float up = heightAbove(v);
    Colour light = mix(sun * 1.1F, rose, smoothStep(2.6F, 5.6F, up));
    return mix(light, fromHex(0x5A5A8C), smoothStep(5.5F, 10, up));
}

float rockHeight(float u, float v) {
    const float rough = 0.16F * fractalNoise({6 * u, 8 * v, 3}, 3, 634, {6, 8});
    const float rib = std::fabs(fromRib(u));
    if (rib < ribReach) {
        const float block = fraction(8 * v + 0.06F * fromRib(u));
        const float proud = smoothStep(0, 0.07F, block) * smoothStep(1, 0.93F, block);
        return rib < crestReach ? 0.7F * proud + 2.2F * rough : rough;
    }
    // broken rock: cells that stand out by different heights, cracked along their borders
    const Cell cell = cellNoise(5 * u, 8 * v, 632, {5, 8}, 0.8F, 14);
    const float reveal = smoothStep(0.05F, 0.55F, fromWindow(u, v));
    return reveal * (0.5F + 0.9F * unitOf(cell.id, 0) * smoothStep(0, 0.16F, cell.border) + 1.6F * rough);
}

Colour rockLight(float u, float v, Vec3 normal) {
    const float window = fromWindow(u, v);
    if (window < 0)
        return sky(v) * smoothStep(0.0F, -0.30F, window);
    const Vec3 water = normalize(Vec3{-0.45F, 0.70F, 0.50F});
    // day comes through the window: from its middle towards the place
    const float across = rise * (u - 0.5F);
    const float up = std::max(heightAbove(v), 0.0F);
    const Vec3 day = normalize(Vec3{-across, up - 5.5F, 1.2F});
    const float near = exponential(-up / 6);
    const Cell cell = cellNoise(5 * u, 8 * v, 632, {5, 8}, 0.8F, 14);
    const Colour body = mix(night * 2.2F, jade * 1.5F, 0.25F + 0.75F * unitOf(cell.id, 1));
    Colour light = body * (0.14F + (0.35F + 0.55F * near) * saturate(dot(normal, water)));
    const float spill = 0.55F * exponential(-window / 1.3F);
    light += (rose * 0.75F + sun * 0.35F) * (spill * saturate(0.15F + dot(normal, day)));
    light += mint * (0.16F * (0.25F + near) * power(saturate(dot(normal, water)), 4));
    light += sun * (0.8F * bell(window - 0.10F, 0.10F)); // the jamb
    // ribs shade the wall beside them, the niche's upper end lies in the dark
    const float beside = std::fabs(fromRib(u)) - ribReach;
    return light * (0.35F + 0.65F * smoothStep(0, 1.2F, beside)) * (0.30F + 0.70F * smoothStep(16, 6, up));
}

Colour ribLight(float u, float v, Vec3 normal) {
    const float across = fromRib(u);
    const float up = std::max(heightAbove(v), 0.0F);
    const float block = std::floor(8 * v + 0.06F * across);
    const float tone = 0.65F + 0.6F * hashUnit(static_cast<int>(block) % 8, 3, 0, 637);
    const float facet = across < 0 ? 1.0F : 0.55F; // two faces, one lit by the water, one by daybreak
    const Colour daybreak = across < 0 ? Colour{} : rose * 0.32F;
    const float crest = smoothStep(crestReach + 0.08F, crestReach - 0.04F, std::fabs(across));
    const Colour body = jade * (1.2F * tone);
    Colour light = body * (0.10F + 0.62F * facet * crest) * (0.15F + 0.85F * saturate(normal.z * normal.z * normal.z)) *
                   (0.55F + 0.45F * exponential(-up / 8));
    const Colour edge = across < 0 ? mint * 0.8F : rose * 0.9F + sun * 0.3F;
    light += daybreak * crest * (0.4F + 0.6F * normal.z);
    light += edge * (0.42F * bell(std::fabs(across) - crestReach + 0.13F, 0.05F));
    light += sun * (0.06F * bell(across, 0.06F));
    const Vec3 lower = normalize(Vec3{0, 0.85F, 0.5F});
    return light + mint * (0.22F * crest * power(saturate(dot(normal, lower)), 6));
}

// haze: the share of the distance's own light.
Bitmap makeCave(float haze) {
    const Relief heights = Relief(fine, rockHeight).lowPass(2.6F);
    const Colour air = jade * 0.30F + rose * 0.16F;
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const float u = (static_cast<float>(x) + 0.5F) / fine;
        const float v = (static_cast<float>(y) + 0.5F) / fine;
        const Vec3 normal = heights.normal(x, y, 0.030F);
        const float up = heightAbove(v);
        Colour light = std::fabs(fromRib(u)) < ribReach ? ribLight(u, v, normal) : rockLight(u, v, normal);
        // wet where the water laps
        light += (mint * 0.15F + sun * 0.05F) * bell(up - 0.05F, 0.22F);
        light = mix(light, air, haze * (1 - 0.5F * smoothStep(5, 16, up)));
        return light * smoothStep(-1.4F, -0.1F, up) * smoothStep(18, 13, up);
    });
    picture = withBloom(picture, {2, 0.10F, 10, 0.10F}, Edge::wrap);
    return developed(picture, {1.6F, true, 0.6F});
}

} // namespace

// "cave1.jpg" to "cave3.jpg"
Bitmap makeCaveNear() {
    return makeCave(0);
}
Bitmap makeCaveMiddle() {
    return makeCave(0.35F);
}
Bitmap makeCaveFar() {
    return makeCave(0.68F);
}

} // namespace lumenfold::art
