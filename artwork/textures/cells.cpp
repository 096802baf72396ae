#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// Seamless tissue: the organic family of the show.

namespace lumenfold::art {

namespace {

struct Tissue {
    int cells;     // across the texture
    float warp;    // how far noise bends the borders, in cells
    float nucleus; // largest nucleus radius, in cells
    float depth;   // height of a cell, in units of the whole side
    float brightness;
    float warmth;          // of rims and nuclei: 1 embers, 0 cold light
    float softness;        // sigma of the last blur in texels: what is magnified most has the softest edges
    Colour low, high, odd; // body colours of common cells and of a rare one
    std::uint32_t seed;
};

struct TissuePoint {
    float height = 0;
    float border = 0;
    float nucleus = 0; // 1 inside
    std::uint32_t id = 0;
};

TissuePoint tissueAt(const Tissue& tissue, float u, float v) {
    const auto count = static_cast<float>(tissue.cells);
    const Vec3 place = {3 * u, 3 * v, 1.3F};
    const float x = u * count + tissue.warp * fractalNoise(place, 3, tissue.seed, {3, 3});
    const float y = v * count + tissue.warp * fractalNoise(place + Vec3{0, 0, 6.4F}, 3, tissue.seed + 3, {3, 3});
    const Cell cell = cellNoise(x, y, tissue.seed + 10, {tissue.cells, tissue.cells});
    TissuePoint point;
    point.id = cell.id;
    point.border = cell.border + 0.10F;
    const float rise = 1 - saturate((point.border - 0.05F) / 0.62F);
    const float dome = std::sqrt(1 - rise * rise);
    // nuclei: every cell has its own size, place and shape, a few have none
    const float size = tissue.nucleus * (unitOf(cell.id, 1) < 0.14F ? 0.0F : 0.55F + 0.45F * unitOf(cell.id, 1));
    const Point2 shift = {cell.toCentre.x + 0.16F * (2 * unitOf(cell.id, 2) - 1),
                          cell.toCentre.y + 0.16F * (2 * unitOf(cell.id, 3) - 1)};
    const Point2 turnedShift = turned(shift.x, shift.y, 6.28F * unitOf(cell.id, 3));
    const float stretch = 1 + 0.5F * unitOf(cell.id, 2);
    const float distance = length(turnedShift.x * stretch, turnedShift.y) +
                           0.03F * gradientNoise({12 * u, 12 * v, 3}, tissue.seed + 20, {12, 12});
    point.nucleus = size > 0 ? smoothStep(size * 1.25F, size * 0.65F, distance) : 0;
    const float pores = gradientNoise({24 * u, 24 * v, 3}, tissue.seed + 21, {24, 24});
    const float grain = gradientNoise({48 * u, 48 * v, 5}, tissue.seed + 22, {48, 48});
    point.height = dome + 0.16F * point.nucleus * std::sqrt(point.nucleus) + 0.05F * pores * dome + 0.02F * grain;
    return point;
}

Colour tissueColour(const Tissue& tissue, const TissuePoint& point, Vec3 normal, Vec3 hollowTint) {
    static const Vec3 key = normalize(Vec3{-0.5F, -0.62F, 0.62F});
    static const Vec3 rim = normalize(Vec3{0.75F, 0.55F, 0.15F});
    static const Vec3 half = normalize(key + Vec3{0, 0, 1});
    const float lit = saturate(dot(normal, key));
    const float back = saturate(dot(normal, rim));
    const float shine = power(saturate(dot(normal, half)), 80);
    const float edge = (1 - normal.z) * (1 - normal.z);
    Colour body = mix(tissue.low, tissue.high, unitOf(point.id, 0));
    body = mix(body, tissue.odd, 0.7F * smoothStep(0.80F, 1, unitOf(point.id, 1)));
    const float depth = saturate((point.border - 0.05F) / 0.5F);
    Colour light = body * ((0.10F + 0.80F * lit) * (0.35F + 0.65F * depth));
    light += palette::teal * (0.55F * edge * lit) +
             palette::amber * (0.42F * tissue.warmth * back * back * (1 - point.nucleus));
    const Colour gleam = mix(palette::teal * 0.6F + palette::ice * 0.2F, palette::ice * 0.9F, tissue.warmth);
    light += gleam * shine;
    const Colour ember = mix(palette::ember * 0.8F, palette::amber * 0.85F, lit);
    const Colour cold = mix(palette::violet * 0.5F, palette::teal * 1.1F, lit);
    const Colour kernel = mix(cold, ember, tissue.warmth) * (0.35F + 0.7F * lit);
    light = mix(light, kernel + palette::ice * (0.6F * shine), 0.85F * point.nucleus);
    light += mix(palette::teal * 0.9F, fromHex(0x8FE8DA), tissue.warmth) *
             (0.28F * bell(point.border - 0.115F, 0.025F) * (0.35F + lit));
    return mix(hollowTint, light, smoothStep(0.035F, 0.085F, point.border)) * tissue.brightness;
}

Bitmap makeTissue(const Tissue& tissue, int fine) {
    const Relief heights(fine, [&](float u, float v) { return tissueAt(tissue, u, v).height; });
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const float u = (static_cast<float>(x) + 0.5F) / static_cast<float>(fine);
        const float v = (static_cast<float>(y) + 0.5F) / static_cast<float>(fine);
        const float mud = gradientNoise({32 * u, 32 * v, 9}, tissue.seed + 23, {32, 32});
        const Colour hollow = palette::ink * 0.8F + palette::deep * (0.5F + 0.8F * mud);
        return tissueColour(tissue, tissueAt(tissue, u, v), heights.normal(x, y, tissue.depth), hollow);
    });
    picture = withBloom(picture, {tissue.softness, 0.55F, 9, 0.06F}, Edge::wrap);
    return developed(picture, {1, false, 0.6F});
}

} // namespace

// "cell1.jpg": walls of the rotating tunnel, magnified about five times there: soft gradients in the red of blood, dim,
// since fire is added to them.
Bitmap makeTunnelCells() {
    Picture picture = texture(256, 2, [](float u, float v) {
        const float drift = fractalNoise({2 * u, 2 * v, 1}, 2, 21, {2, 2});
        const float bands = 0.5F + 0.5F * sine(2 * pi * (4 * v + u + 0.9F * drift));
        const float glow = 0.5F + 0.5F * sine(2 * pi * (3 * u - v + 0.7F * drift) + 1);
        return mix(fromHex(0x0B0203), fromHex(0x6A0C14), bands) + fromHex(0xFF5A1A) * (0.07F * bands * glow * glow);
    });
    return developed(blurred(picture, 2, Edge::wrap), {1, false, 0.6F});
}

// "cell5a.jpg": added to the petrol texture, so it leaves room above: dim bodies, bright only at the membranes.
Bitmap makeAddedCells() {
    return makeTissue(
        {9, 0.55F, 0.17F, 0.030F, 0.50F, 1, 0.7F, fromHex(0x0B2A33), fromHex(0x1C6A6A), fromHex(0x5A2A1A), 121}, 768);
}

} // namespace lumenfold::art
