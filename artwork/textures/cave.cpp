#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

#include <algorithm>
#include <cmath>

// The rock of the flight, from one rib's middle to the next along the columns and from 18 units above the water to 2
// below it along the rows; as seen from near and through haze. A bay is a wall of pillars that broke at different
// heights. The light comes off the water and from daybreak, as nothing else lights the objects.

namespace lumenfold::art {

namespace {

constexpr int fine = 512;
constexpr float rise = 11;        // units from rib to rib
constexpr float ribReach = 1.25F; // units from a rib's middle to the wall beside it
constexpr float crestReach = 0.75F;
constexpr int pillars = 5;

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

// Where a place lies in its pillar.
struct OnPillar {
    int index;
    int drum;     // which piece of the broken pillar
    float along;  // 0 at the drum's top to 1 at its foot
    float across; // -1 to 1
};

OnPillar pillarAt(float u, float v) {
    const float sway = 0.10F * gradientNoise({3 * u, 4 * v, 1}, 631, {3, 4});
    const float place = pillars * ((rise * u - ribReach) / (rise - 2 * ribReach)) + sway;
    const int index = std::clamp(static_cast<int>(std::floor(place)), 0, pillars - 1);
    const int drums = 4 + static_cast<int>(3 * hashUnit(index, 0, 0, 632));
    const float down = static_cast<float>(drums) * v + hashUnit(index, 1, 0, 632) +
                       0.25F * gradientNoise({4 * u, 2 * v, 3}, 633, {4, 2});
    const int drum = static_cast<int>(std::floor(down));
    return {index, drum % drums, down - static_cast<float>(drum), 2 * (place - static_cast<float>(index)) - 1};
}

float rockHeight(float u, float v) {
    const float rough = 0.16F * fractalNoise({6 * u, 8 * v, 3}, 3, 634, {6, 8});
    const float rib = std::fabs(fromRib(u));
    if (rib < ribReach) {
        const float block = fraction(8 * v + 0.06F * fromRib(u));
        const float proud = smoothStep(0, 0.07F, block) * smoothStep(1, 0.93F, block);
        return rib < crestReach ? 0.7F * proud + 2.2F * rough : rough;
    }
    const OnPillar on = pillarAt(u, v);
    const float round = 1 - on.across * on.across * on.across * on.across;
    const float cap = smoothStep(0, 0.10F, on.along);
    return 1.0F * round + 0.55F * hashUnit(on.index, on.drum, 1, 635) * cap + 0.25F * cap + rough;
}

Colour pillarLight(float u, float v, Vec3 normal) {
    const OnPillar on = pillarAt(u, v);
    const Vec3 water = normalize({-0.45F, 0.70F, 0.50F});
    const Vec3 dawn = normalize({0.90F, 0.10F, 0.30F});
    const float up = std::max(heightAbove(v), 0.0F);
    const float near = exponential(-up / 6);
    const float tone = hashUnit(on.index, on.drum, 2, 636);
    const Colour body = mix(palette::deep * 1.1F, palette::petrol * 0.95F, 0.25F + 0.75F * tone);
    Colour light = body * (0.12F + (0.40F + 0.55F * near) * saturate(dot(normal, water)));
    light += palette::teal * (0.16F * (0.25F + near) * power(saturate(dot(normal, water)), 4));
    light += mix(palette::ember, palette::amber, 0.4F) * (0.15F * power(saturate(dot(normal, dawn)), 4));
    // ribs shade the wall beside them, the niche's upper end lies in the dark
    const float beside = std::fabs(fromRib(u)) - ribReach;
    return light * (0.30F + 0.70F * smoothStep(0, 1.8F, beside)) * (0.25F + 0.75F * smoothStep(16, 5, up));
}

Colour ribLight(float u, float v, Vec3 normal) {
    const float across = fromRib(u);
    const float up = std::max(heightAbove(v), 0.0F);
    const float block = std::floor(8 * v + 0.06F * across);
    const float tone = 0.65F + 0.6F * hashUnit(static_cast<int>(block) % 8, 3, 0, 637);
    const float facet = across < 0 ? 1.0F : 0.55F; // two faces, one lit by the water, one by daybreak
    const float crest = smoothStep(crestReach + 0.08F, crestReach - 0.04F, std::fabs(across));
    const Colour body = mix(palette::petrol, palette::teal * 0.55F, 0.35F) * tone;
    Colour light = body * (0.10F + 0.62F * facet * crest) * (0.15F + 0.85F * saturate(normal.z * normal.z * normal.z)) *
                   (0.55F + 0.45F * exponential(-up / 8));
    const Colour edge = across < 0 ? palette::teal * 0.8F + palette::ice * 0.25F : palette::amber * 0.75F;
    light += edge * (0.42F * bell(std::fabs(across) - crestReach + 0.13F, 0.05F));
    light += palette::ice * (0.06F * bell(across, 0.06F));
    const Vec3 lower = normalize({0, 0.85F, 0.5F});
    return light + palette::teal * (0.22F * crest * power(saturate(dot(normal, lower)), 6));
}

// haze: the share of the distance's own light.
void makeCave(const std::string& path, float haze) {
    const Relief heights = Relief(fine, rockHeight).lowPass(2.6F);
    const Colour air = palette::petrol * 0.36F + palette::teal * 0.05F + palette::ember * 0.04F;
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const float u = (static_cast<float>(x) + 0.5F) / fine;
        const float v = (static_cast<float>(y) + 0.5F) / fine;
        const Vec3 normal = heights.normal(x, y, 0.030F);
        const float up = heightAbove(v);
        Colour light = std::fabs(fromRib(u)) < ribReach ? ribLight(u, v, normal) : pillarLight(u, v, normal);
        // wet where the water laps
        light += (palette::teal * 0.15F + palette::ice * 0.05F) * bell(up - 0.05F, 0.22F);
        light = mix(light, air, haze * (1 - 0.5F * smoothStep(5, 16, up)));
        return light * smoothStep(-1.4F, -0.1F, up) * smoothStep(18, 13, up);
    });
    picture = withBloom(picture, {2, 0.10F, 10, 0.10F}, Edge::wrap);
    writeBitmap(path, developed(picture, {1.3F, true, 0.6F}));
}

} // namespace

// "cave1.jpg" to "cave3.jpg"
void makeCaveNear(const std::string& path) {
    makeCave(path, 0);
}
void makeCaveMiddle(const std::string& path) {
    makeCave(path, 0.35F);
}
void makeCaveFar(const std::string& path) {
    makeCave(path, 0.68F);
}

} // namespace lumenfold::art
