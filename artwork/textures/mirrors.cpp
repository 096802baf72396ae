#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"
#include "forge/studio.h"

// The environment maps: what a surface shows for each normal. Column (nx + 1) x 128, row (ny + 1) x 128, so the
// middle faces the viewer and light from above stands in the bottom rows. Only a disc is read; its rim is carried on
// into the corners.

namespace lumenfold::art {

namespace {

// normal: x right, y up, z towards the viewer.
Picture environmentMap(const std::function<Colour(Vec3 normal)>& shade) {
    return texture(256, 4, [&](float u, float v) {
        Vec3 normal = {2 * u - 1, 2 * v - 1, 0};
        const float radius = length(normal.x, normal.y);
        constexpr float rim = 0.985F;
        normal = radius > rim ? normal * (rim / radius) : normal;
        normal.z = std::sqrt(1 - normal.x * normal.x - normal.y * normal.y);
        return shade(normal);
    });
}

// Lamps compressed so that their colour survives the sum of highlights.
Colour tamed(Colour light, float amount) {
    return light * (1 / (1 + amount * largest(light)));
}

float fresnel(Vec3 normal) {
    return power(1 - normal.z, 4);
}

Vec3 mirrorDirection(Vec3 normal) {
    return reflect({0, 0, -1}, normal);
}

} // namespace

// Polished chrome in the studio. One scene reads it exchanged (x for y), so the lamps stand in pairs about the
// diagonal: the exchanged map is lit from the other side but as strongly.
void makeChromeMirror(const std::string& path) {
    static const SoftBox key = {{-0.70F, 0.66F, 0.50F}, {0, 1, 0}, 0.12F, 0.70F, 0.22F};
    static const SoftBox keySlit = {{-0.26F, 0.80F, 0.70F}, {0, 1, 0}, 0.04F, 0.60F, 0.08F};
    static const SoftBox rim = {{0.86F, -0.40F, 0.10F}, {0, 1, 0}, 0.14F, 0.60F, 0.40F};
    static const SoftBox above = {{0.45F, 0.80F, -0.30F}, {1, 0, 0}, 0.55F, 0.30F, 0.35F};
    Picture picture = environmentMap([](Vec3 normal) {
        const Vec3 direction = mirrorDirection(normal);
        const float cloud = fractalNoise(direction * 1.7F + Vec3{8, 2, 1}, 3, 71);
        const float diagonal = 0.7F * (direction.x + direction.y);
        Colour light =
            mix(palette::deep * 0.45F, palette::petrol * 0.9F, smoothStep(-0.7F, 0.9F, diagonal + 0.9F * cloud));
        const float keyGlow = power(saturate(dot(direction, normalize(key.centre))), 6);
        const float horizon = bell(diagonal - 0.12F + 0.25F * cloud, 0.10F);
        light += palette::teal * (0.35F * horizon) + palette::ice * (0.15F * horizon * horizon);
        light += palette::ice * (3.6F * seen(key, direction) * (0.6F + 0.4F * keyGlow) +
                                 1.2F * seen(keySlit, direction) + 0.22F * keyGlow);
        light +=
            mix(palette::ember, palette::amber, 0.6F + 0.4F * seen(rim, direction)) * (1.5F * seen(rim, direction));
        light += palette::teal * (1.4F * seen(above, direction));
        light += palette::petrol * (1.1F * fresnel(normal));
        return tamed(light, 0.22F) * mix(Colour{0.80F, 0.90F, 0.94F}, Colour{1, 1, 1}, fresnel(normal));
    });
    picture = withBloom(picture, {2, 0.20F, 10, 0.14F}, Edge::clamp);
    writeBitmap(path, developed(picture));
}

// Petrol under oil: bands of interference that follow the angle, folded by slow noise.
void makeOilMirror(const std::string& path) {
    Picture picture = environmentMap([](Vec3 normal) {
        const Vec3 direction = mirrorDirection(normal);
        const float swirl = fractalNoise(normal * 1.15F + Vec3{1, 6, 2}, 2, 81);
        const float bands = 0.44F - 0.44F * normal.y + 0.16F * normal.x + 0.85F * swirl + 0.22F * (1 - normal.z);
        const float wave = 0.5F + 0.5F * sine(10.0F * bands + 5.0F * swirl);
        const float facing = smoothStep(-0.9F, 0.9F, 0.85F * normal.y - 0.45F * normal.x);
        Colour light = iridescence(bands) * mix(0.20F, 0.85F, facing) * mix(0.30F, 1, wave);
        const Colour lamps = tamed(studioLight(direction), 0.45F);
        light += lamps * mix(Colour{1, 1, 1}, iridescence(bands) * 2, 0.6F) * 0.55F;
        light += palette::teal * (0.55F * fresnel(normal));
        return light;
    });
    picture = withBloom(picture, {2, 0.22F, 12, 0.14F}, Edge::clamp);
    writeBitmap(path, developed(picture));
}

// Polished bone in a red throat: two soft boxes, a horizon, and the red that the walls throw back from all sides.
void makeBoneMirror(const std::string& path) {
    static const SoftBox key = {{-0.58F, 0.72F, 0.52F}, {0, 1, 0}, 0.30F, 0.52F, 0.20F};
    static const SoftBox fill = {{0.78F, 0.30F, 0.30F}, {0, 1, 0}, 0.16F, 0.70F, 0.25F};
    Picture picture = environmentMap([](Vec3 normal) {
        const Vec3 direction = mirrorDirection(normal);
        const float up = direction.y + 0.10F * sine(2.2F * direction.x + 0.7F);
        const float lit = saturate(0.34F + 0.66F * dot(normal, normalize({-0.45F, 0.62F, 0.64F})));
        Colour light = mix(fromHex(0x3A0710), fromHex(0xE9DCC4) * 0.85F, lit * lit);
        light =
            mix(light, fromHex(0x7A1018) * 0.8F, 0.55F * smoothStep(0.05F, -0.25F, up) * smoothStep(-1.0F, -0.3F, up));
        light += fromHex(0xFF7A3C) * (0.35F * bell(up + 0.02F, 0.06F));
        light += fromHex(0xFFF6E6) * (1.1F * seen(key, direction) + 0.6F * seen(fill, direction));
        light += fromHex(0xC81E2B) * (0.9F * fresnel(normal));
        return tamed(light, 0.12F);
    });
    picture = withBloom(picture, {2, 0.15F, 10, 0.10F}, Edge::clamp);
    writeBitmap(path, developed(picture, {0.95F, true, 0.6F}));
}

// The colour layer of the two-layer body: lit membranes, dim enough for the sum with the chrome highlights. Read
// with x and y exchanged, so the normal is taken exchanged here.
void makeMembraneMirror(const std::string& path) {
    Picture picture = environmentMap([](Vec3 stored) {
        const Vec3 normal = {stored.y, stored.x, stored.z};
        const float bent = 1 / (0.55F + 0.45F * normal.z); // cells grow smaller towards the silhouette
        const Vec3 warp = {0.25F * fractalNoise(normal * 2.5F, 2, 61), 0.25F * fractalNoise(normal * 2.5F, 2, 62), 0};
        const Cell cell = cellNoise(3.4F * normal.x * bent + warp.x, 3.4F * normal.y * bent + warp.y, 63, {});
        const float light = saturate(0.25F + 0.75F * dot(normal, normalize({-0.55F, 0.60F, 0.58F})));
        const float back = power(saturate(dot(normal, normalize({0.85F, -0.15F, 0.35F}))), 2);
        const float depth = smoothStep(0.02F, 0.55F, cell.border);
        Colour body = mix(palette::petrol, palette::teal * 0.8F, unitOf(cell.id, 0));
        body = mix(body, palette::violet * 0.5F, unitOf(cell.id, 1) > 0.8F ? 0.6F : 0.0F);
        Colour colour = body * light * light * mix(0.25F, 0.9F, depth);
        colour += palette::teal * (0.30F * bell(cell.border - 0.07F, 0.035F) * light);
        const float size = 0.07F + 0.12F * unitOf(cell.id, 2);
        const float heart = smoothStep(1.5F * size, 0.7F * size, cell.nearest);
        colour += mix(palette::ember, palette::amber, light) * (0.55F * heart * light);
        colour += mix(palette::ember, palette::amber, 0.4F) * (0.55F * back * (1 - heart) * depth * depth);
        return colour;
    });
    picture = withBloom(picture, {2, 0.15F, 10, 0.10F}, Edge::clamp);
    writeBitmap(path, developed(picture, {0.33F, true, 0.6F})); // the chrome is added to it
}

} // namespace lumenfold::art
