#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"

#include <algorithm>

// "svampbak.jpg": a wall of coral stone with turquoise light in its joints. Part 9 takes it down stone by stone along
// diagonals, 32 x 24 pixels each, so every stone stands exactly on that grid. The middle right stays dark: flares ring
// there.

namespace lumenfold::art {

namespace {

constexpr int columns = 16;
constexpr int rows = 16;
constexpr float stoneWidth = 32;
constexpr float stoneHeight = 24;

// Six stones that the scene never takes: the corner is open from the start.
bool missing(int column, int row) {
    return (column >= 14 && row == 0) || (column == 15 && row == 1);
}

struct Stone {
    float stands; // out of the wall, 0 to 1
    float tone;
    Vec3 tilt;
};

Stone stoneAt(int column, int row) {
    const auto random = [&](int which) { return hashUnit(column, row, which, 911); };
    return {random(0), random(1), {0.30F * (random(2) - 0.5F), 0.30F * (random(3) - 0.5F), 1}};
}

constexpr float oculusX = 350;
constexpr float oculusY = 190;

// A sun was carved over the stones: a hollow, two mouldings and a wreath of petals around it, then rays that run to the
// edges of the wall. Pixels.
float carving(float x, float y) {
    const float dx = x - oculusX;
    const float dy = y - oculusY;
    const float r = length(dx, dy);
    const float petal = std::fabs(sine(12 * angleOf(dy, dx)));
    const float wreath = smoothStep(122, 128, r) * smoothStep(172, 150 + 16 * petal, r);
    return 9 * bell(r - 100, 6) + 6 * bell(r - 116, 3.5F) - 26 * smoothStep(94, 84, r) +
           wreath * (4 + 9 * petal) * smoothStep(0.05F, 0.35F, petal) +
           smoothStep(170, 200, r) * (0.055F * r) * std::fabs(cosine(12 * angleOf(dy, dx)));
}

// Height of the wall's face over the mortar at a place in pixels, and what stone it belongs to.
struct Place {
    int column;
    int row;
    float inside; // distance to the stone's edge, pixels
    float height; // pixels
};

Place placeAt(float x, float y) {
    const int column = std::clamp(static_cast<int>(std::floor(x / stoneWidth)), 0, columns - 1);
    const int row = std::clamp(static_cast<int>(std::floor(y / stoneHeight)), 0, rows - 1);
    const float dx = x - stoneWidth * static_cast<float>(column);
    const float dy = y - stoneHeight * static_cast<float>(row);
    const float chips = 1.6F * fractalNoise({0.11F * x, 0.11F * y, 3}, 3, 912);
    const float inside = std::min({dx, stoneWidth - dx, dy, stoneHeight - dy}) + std::min(chips, 0.4F);
    const Stone stone = stoneAt(column, row);
    const float rough = 1.1F * fractalNoise({0.16F * x, 0.16F * y, static_cast<float>(column + 17 * row)}, 4, 913);
    const float face = 5.5F + 3.0F * stone.stands + carving(x, y) + rough + 0.05F * (dx - 16) * stone.tilt.x * 10 +
                       0.05F * (dy - 12) * stone.tilt.y * 10;
    return {column, row, inside, missing(column, row) ? 0 : face - 5.0F * smoothStep(2.4F, 0.2F, inside)};
}

// How much of the light from the right, low over the wall, reaches a place.
float lightOver(float x, float y, float height) {
    constexpr float rise = 0.42F; // of the ray, pixels a pixel
    float lit = 1;
    for (float step = 1.5F; step < 44; step += 1.5F) {
        const float over = placeAt(x + step, y - 0.45F * step).height - (height + rise * step);
        lit = std::min(lit, smoothStep(1.4F, -1.0F, over));
    }
    return lit;
}

Colour wallAt(float x, float y) {
    const Place place = placeAt(x, y);
    const Stone stone = stoneAt(place.column, place.row);
    const float slopeX = placeAt(x + 0.7F, y).height - placeAt(x - 0.7F, y).height;
    const float slopeY = placeAt(x, y + 0.7F).height - placeAt(x, y - 0.7F).height;
    const Vec3 normal = normalize(Vec3{-slopeX, -slopeY, 1.4F});
    const Vec3 sun = normalize(Vec3{0.80F, -0.36F, 0.48F});
    const float lit = saturate(dot(normal, sun)) * lightOver(x, y, place.height);
    const float grain = fractalNoise({0.30F * x, 0.30F * y, 8}, 3, 914);
    Colour body = mix(fromHex(0xB83A30), fromHex(0xDA6A50), stone.tone);
    body = mix(body, fromHex(0xFFB48C), 0.5F * smoothStep(0.7F, 1, hashUnit(place.column, place.row, 5, 911)));
    body = body * (1 + 0.5F * grain);
    Colour light = body * (0.10F + 1.15F * lit) + fromHex(0xFFD8B0) * (0.10F * lit * lit);
    // what the sun does not reach lies in turquoise daylight
    light += fromHex(0x12B5B0) * ((0.16F + 0.46F * saturate(0.4F - 0.8F * normal.x + 0.5F * normal.y)) * (1 - lit));
    // turquoise from behind, through the joints
    const float joint = smoothStep(1.3F, -0.2F, place.inside);
    const float breath = 0.35F + 0.65F * smoothStep(-0.2F, 0.35F, fractalNoise({0.012F * x, 0.016F * y, 1}, 3, 915));
    light = light * (1 - 0.85F * joint) + fromHex(0x12B5B0) * (0.85F * joint * breath);
    if (missing(place.column, place.row))
        return {};
    const float hollow = smoothStep(80, 98, length(x - oculusX, y - oculusY)); // where the flares ring
    return light * mix(0.05F, 1, hollow) * mix(0.40F, 1.15F, smoothStep(0, 1, x / 512));
}

} // namespace

Bitmap makeMasonry() {
    Picture picture = renderPicture(512, 384, 3, [](float x, float y, std::uint32_t) { return wallAt(x, y); });
    picture = withBloom(picture, {2.5F, 0.10F, 16, 0.10F}, Edge::clamp);
    picture.change([](Colour light, int x, int y) {
        return missing(x / static_cast<int>(stoneWidth), y / static_cast<int>(stoneHeight)) ? Colour{} : light;
    });
    return developed(picture, {1.15F, true, 0.6F});
}

} // namespace lumenfold::art
