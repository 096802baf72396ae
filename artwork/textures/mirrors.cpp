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

// Daylight in a gloss: a window, a lower one beside it, the bright floor. Black elsewhere, since one scene adds it to a
// skin. One reads it exchanged (x for y), so the lamps stand in pairs about the diagonal: the exchanged map is lit from
// the other side but as strongly.
Bitmap makeDaylightMirror() {
    static const SoftBox key = {{-0.66F, 0.66F, 0.52F}, {0, 1, 0}, 0.22F, 0.44F, 0.10F};
    static const SoftBox cross = {{-0.66F, 0.66F, 0.52F}, {0, 1, 0}, 0.030F, 0.60F, 0.02F};
    static const SoftBox fill = {{0.72F, -0.72F, 0.20F}, {0, 1, 0}, 0.10F, 0.70F, 0.30F};
    Picture picture = environmentMap([](Vec3 normal) {
        const Vec3 direction = mirrorDirection(normal);
        const float diagonal = 0.7F * (direction.x + direction.y);
        const float cloud = fractalNoise(direction * 1.4F + Vec3{8, 2, 1}, 3, 71);
        Colour light = fromHex(0x9FA7A9) * (0.22F * smoothStep(0.05F, 0.9F, diagonal + 0.4F * cloud));
        light += fromHex(0xE9E6DC) * (0.28F * bell(diagonal + 0.42F + 0.15F * cloud, 0.12F));
        light += fromHex(0xFFFAF0) * (2.2F * seen(key, direction) * (1 - 0.8F * seen(cross, direction)));
        light += fromHex(0xFFD9B8) * (0.8F * seen(fill, direction));
        light += fromHex(0xDCE8F0) * (0.55F * fresnel(normal));
        return tamed(light, 0.18F);
    });
    picture = withBloom(picture, {2, 0.16F, 10, 0.10F}, Edge::clamp);
    return developed(picture);
}

// Vermilion lacquer in daylight: deep red in the shade, orange where the sun stands, a white window in the gloss.
Bitmap makeLacquerMirror() {
    static const SoftBox window = {{-0.60F, 0.70F, 0.52F}, {0, 1, 0}, 0.24F, 0.40F, 0.08F};
    static const SoftBox side = {{0.85F, 0.10F, 0.20F}, {0, 1, 0}, 0.10F, 0.80F, 0.25F};
    Picture picture = environmentMap([](Vec3 normal) {
        const Vec3 direction = mirrorDirection(normal);
        const float lit = saturate(0.30F + 0.70F * dot(normal, normalize(Vec3{-0.55F, 0.62F, 0.58F})));
        Colour light = mix(fromHex(0x4A0608), fromHex(0xE23B1C), lit);
        light = mix(light, fromHex(0xFF8A4A), 0.45F * smoothStep(0.75F, 1, lit));
        light += fromHex(0xFFC9A0) * (0.22F * bell(direction.y + 0.25F, 0.10F)); // the floor
        light += fromHex(0xFFF8EC) * (1.3F * seen(window, direction) + 0.45F * seen(side, direction));
        light += fromHex(0xE9E6DC) * (0.35F * fresnel(normal));
        return tamed(light, 0.10F);
    });
    picture = withBloom(picture, {2, 0.14F, 12, 0.10F}, Edge::clamp);
    return developed(picture);
}

// Polished bone in a red throat: two soft boxes, a horizon, and the red that the walls throw back from all sides.
Bitmap makeBoneMirror() {
    static const SoftBox key = {{-0.58F, 0.72F, 0.52F}, {0, 1, 0}, 0.30F, 0.52F, 0.20F};
    static const SoftBox fill = {{0.78F, 0.30F, 0.30F}, {0, 1, 0}, 0.16F, 0.70F, 0.25F};
    Picture picture = environmentMap([](Vec3 normal) {
        const Vec3 direction = mirrorDirection(normal);
        const float up = direction.y + 0.10F * sine(2.2F * direction.x + 0.7F);
        const float lit = saturate(0.34F + 0.66F * dot(normal, normalize(Vec3{-0.45F, 0.62F, 0.64F})));
        Colour light = mix(fromHex(0x3A0710), fromHex(0xE9DCC4) * 0.85F, lit * lit);
        light =
            mix(light, fromHex(0x7A1018) * 0.8F, 0.55F * smoothStep(0.05F, -0.25F, up) * smoothStep(-1.0F, -0.3F, up));
        light += fromHex(0xFF7A3C) * (0.35F * bell(up + 0.02F, 0.06F));
        light += fromHex(0xFFF6E6) * (1.1F * seen(key, direction) + 0.6F * seen(fill, direction));
        light += fromHex(0xC81E2B) * (0.9F * fresnel(normal));
        return tamed(light, 0.12F);
    });
    picture = withBloom(picture, {2, 0.15F, 10, 0.10F}, Edge::clamp);
    return developed(picture, {0.95F, true, 0.6F});
}

// The colour layer of the two-layer body: obsidian, nearly black, that glows vermilion where it turns away from the
// light. Read with x and y exchanged, so the normal is taken exchanged here.
Bitmap makeObsidianMirror() {
    Picture picture = environmentMap([](Vec3 stored) {
        const Vec3 normal = {stored.y, stored.x, stored.z};
        const float lit = saturate(0.35F + 0.65F * dot(normal, normalize(Vec3{-0.55F, 0.60F, 0.58F})));
        const float vein = ridgedNoise(normal * 1.6F + Vec3{3, 1, 2}, 4, 61);
        Colour light = mix(fromHex(0x07080A), fromHex(0x2C3136), lit * lit);
        light += fromHex(0xE9E6DC) * (0.06F * power(vein, 6) * lit);
        const float back = saturate(dot(normal, normalize(Vec3{0.75F, -0.55F, 0.10F})));
        light += fromHex(0xE23B1C) * (0.85F * back * back) + fromHex(0xFF9A5A) * (0.25F * power(back, 6));
        return light;
    });
    picture = withBloom(picture, {2, 0.15F, 10, 0.10F}, Edge::clamp);
    return developed(picture, {0.80F, true, 0.6F});
}

} // namespace lumenfold::art
