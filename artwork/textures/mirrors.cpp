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

namespace {

// A hall of machines around the object: lamps in rows along rings of latitude, dark panels between.
Colour machineHall(Vec3 direction) {
    const float elevation = angleOf(direction.y, length(direction.x, direction.z));
    const float azimuth = angleOf(direction.x, direction.z);
    Colour light = mix(palette::ink * 0.6F, palette::petrol * 0.5F, smoothStep(-0.7F, 1.2F, elevation));
    const float row = (elevation + 0.5F * pi) * 4.1F;
    const int ring = static_cast<int>(std::floor(row));
    const float across = std::fabs(row - static_cast<float>(ring) - 0.5F);
    const float segments = 12;
    const float column = (azimuth / (2 * pi) + 0.5F) * segments + 0.37F * static_cast<float>(ring);
    const int segment = static_cast<int>(std::floor(column));
    const float along = std::fabs(column - static_cast<float>(segment) - 0.5F);
    const int wrappedSegment = segment % static_cast<int>(segments);
    const float choice = hashUnit(wrappedSegment, ring, 0, 92);
    const float panel = smoothStep(0.47F, 0.40F, across) * smoothStep(0.48F, 0.43F, along);
    light += palette::petrol * (0.55F * panel * (0.25F + 0.75F * hashUnit(wrappedSegment, ring, 1, 92)));
    const float strip = smoothStep(0.15F, 0.08F, across) * smoothStep(0.44F, 0.36F, along);
    const Colour lamp = choice < 0.16F ? palette::amber * 2.0F : choice < 0.46F ? palette::teal * 1.5F : Colour{};
    light += lamp * strip;
    light += palette::ice * (1.1F * (choice > 0.93F ? strip : 0.0F));
    return light;
}

} // namespace

// Dark glass in a hall of light strips, for facets and spikes: each facet catches another lamp.
void makeMachineMirror(const std::string& path) {
    static const SoftBox key = {{-0.62F, 0.70F, 0.58F}, {0, 1, 0}, 0.15F, 0.55F, 0.12F};
    Picture picture = environmentMap([](Vec3 normal) {
        const Vec3 direction = mirrorDirection(normal);
        Colour light = machineHall(direction) + palette::ice * (4.0F * seen(key, direction));
        light += thinFilm(normal.z, 0.75F) * palette::teal * 0.10F;
        light += mix(palette::teal, palette::amber, smoothStep(-0.2F, 0.7F, normal.x)) * (0.8F * fresnel(normal));
        return tamed(light, 0.2F);
    });
    picture = withBloom(picture, {2.5F, 0.25F, 12, 0.16F}, Edge::clamp);
    writeBitmap(path, developed(picture));
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
