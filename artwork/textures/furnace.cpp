#include "artwork/pictures/pool.h"
#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

#include <algorithm>

// The hall of part 1, a furnace: what its lamps and the fire at the bottom of its shaft do to the stone is painted into
// the textures, since nothing else lights the objects.

namespace lumenfold::art {

namespace {

constexpr int fine = 512;

const Colour soot = fromHex(0x0A0604);
const Colour brick = fromHex(0x6A2A12);
const Colour fire = fromHex(0xE8641C);
const Colour glare = fromHex(0xFFD9A0);

// Courses of dressed stone, joints between. Distances in tiles.
struct Block {
    float inside; // to the nearest joint
    float tone;
};

Block blockAt(float u, float v, int columns, int courses, std::uint32_t seed) {
    const int course = static_cast<int>(std::floor(static_cast<float>(courses) * v));
    const float row = static_cast<float>(courses) * v - static_cast<float>(course);
    const float place = static_cast<float>(columns) * u + 0.5F * static_cast<float>(course % 2);
    const int column = static_cast<int>(std::floor(place));
    const float across = place - static_cast<float>(column);
    const float high = std::min(row, 1 - row) / static_cast<float>(courses);
    const float wide = std::min(across, 1 - across) / static_cast<float>(columns);
    return {std::min(high, wide), hashUnit(column % columns, course % courses, 0, seed)};
}

} // namespace

// "hall1.jpg": eleven units of wall from the floor to the spring of the vault, a lamp row near either end.
Bitmap makeHallStone() {
    constexpr float high = 11;
    const auto blocks = [](float u, float v) { return blockAt(u, v, 2, 6, 525); };
    const Relief heights = Relief(fine, [&](float u, float v) {
                               const float wear = 0.012F * fractalNoise({7 * u, 9 * v, 1}, 3, 521, {7, 9});
                               return smoothStep(0.002F, 0.020F, blocks(u, v).inside + wear) +
                                      0.20F * fractalNoise({6 * u, 8 * v, 3}, 4, 522, {6, 8});
                           }).lowPass(1.2F);
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const float u = (static_cast<float>(x) + 0.5F) / fine;
        const float v = (static_cast<float>(y) + 0.5F) / fine;
        const float up = high * (1 - v);
        const Block block = blocks(u, v);
        const Vec3 normal = heights.normal(x, y, 0.030F);
        const float stain = fractalNoise({3 * u, 2 * v, 4}, 4, 523, {3, 2});
        const Colour body = mix(brick * 0.55F, brick * 1.5F, saturate(0.15F + 0.7F * block.tone + 0.5F * stain));
        const auto lamp = [&](float at, float reach) {
            const float away = at - up;
            const Vec3 towards = normalize(Vec3{0, -away, 0.9F}); // rows run downwards
            return exponential(-std::fabs(away) / reach) * saturate(0.25F + 1.1F * dot(normal, towards));
        };
        const float low = lamp(1.15F, 1.6F);
        const float top = lamp(10.6F, 2.0F);
        Colour light = body * (0.10F + 1.9F * low + 1.7F * top);
        light += fire * (0.35F * low * low + 0.30F * top * top) + glare * (0.22F * power(low, 4));
        return light * smoothStep(-0.001F, 0.006F, block.inside) + soot * 0.5F;
    });
    picture = withBloom(picture, {2, 0.10F, 10, 0.10F}, Edge::wrap);
    return developed(picture, {1.9F, true, 0.6F});
}

// "ribwall.jpg": fluted stone with a vein of fire in every second flute; rows run along the shaft of a column.
Bitmap makeRibWall() {
    constexpr float flutes = 4;
    Picture picture = texture(256, 3, [](float u, float v) {
        const float place = flutes * u - std::floor(flutes * u);
        const int flute = static_cast<int>(flutes * u);
        const float round = std::sqrt(saturate(1 - 4 * (place - 0.5F) * (place - 0.5F)));
        const float grime = fractalNoise({4 * u, 4 * v, 6}, 4, 512, {4, 4});
        Colour light = brick * ((0.25F + 0.85F * round) * (0.85F + 0.8F * grime));
        light += fire * (0.22F * bell(place - 0.18F, 0.10F)) + glare * (0.10F * bell(place - 0.80F, 0.05F));
        if (flute % 2 == 1) {
            const float gap = std::min(place, 1 - place);
            light += fire * (1.2F * bell(gap, 0.085F)) + glare * (0.9F * bell(gap, 0.035F));
        }
        const float drum = std::fabs(3 * v - std::floor(3 * v) - 0.5F);
        return light * (1 - 0.7F * smoothStep(0.470F, 0.495F, drum));
    });
    picture = withBloom(picture, {2.5F, 0.12F, 12, 0.14F}, Edge::wrap);
    return developed(picture, {1.5F, true, 0.6F});
}

// "shaft1.jpg": the whole depth of the shaft, black at its rim, white hot at its foot, niches in five storeys.
Bitmap makeShaftWall() {
    constexpr int storeys = 5;
    Picture picture = texture(256, 4, [](float u, float v) {
        const float storey = storeys * v - std::floor(storeys * v);
        const int number = static_cast<int>(storeys * v);
        const float place = 6 * u + 0.5F * static_cast<float>(number % 2);
        const float across = std::fabs(place - std::floor(place) - 0.5F);
        // an arched niche: straight sides, round head
        const float head = 0.42F;
        const float dy = std::max(head - storey, 0.0F);
        const float niche = length(across / 0.26F, dy / 0.22F) - 1;
        const bool within = niche < 0 && storey < 0.88F;
        const Block block = blockAt(u, v, 24, 30, 541);
        const float grime = fractalNoise({8 * u, 8 * v, 2}, 4, 542, {8, 8});
        const float heat = power(v, 1.9F); // the fire lies below
        Colour body = mix(brick * 0.7F, brick * 1.6F, block.tone) * (0.9F + 0.6F * grime);
        body = body * smoothStep(0, 0.004F, block.inside);
        Colour light = body * (0.06F + 2.4F * heat) + fire * (0.55F * heat * heat) + glare * (0.50F * power(v, 7));
        light += fire * (0.55F * heat * bell(niche, 0.10F)); // the niche's edge catches the light
        if (within)
            light = soot + fire * (1.1F * heat * smoothStep(0.50F, 0.90F, storey)) +
                    glare * (0.7F * heat * heat * smoothStep(0.75F, 0.90F, storey));
        light += glare * (0.9F * heat * bell(storey - 0.955F, 0.018F)); // the lip of the ledge
        return light;
    });
    picture = withBloom(picture, {2, 0.10F, 12, 0.14F}, Edge::clamp);
    return developed(picture, {1.5F, true, 0.6F});
}

// "pool1.jpg": the bottom of the shaft: the oil pool of the next picture, and the ring of fire that feeds the light.
Bitmap makeShaftPool() {
    constexpr float half = 178; // pixels of the picture from the middle to the edge
    Picture picture = texture(256, 4, [](float u, float v) {
        const float x = half * (2 * u - 1);
        const float y = half * (2 * v - 1);
        const float r = length(x, y);
        const Colour oil = oilPoolAt(256 + x, 192 + y);
        const float ring = smoothStep(163, 167, r);
        const float flicker = 0.8F + 0.5F * fractalNoise({9 * u, 9 * v, 3}, 3, 551);
        return mix(oil, (glare * 1.1F + fire * 0.3F) * flicker, ring);
    });
    picture = withBloom(picture, {2, 0.10F, 12, 0.10F}, Edge::clamp);
    return developed(picture, {1.1F, true, 0.6F});
}

} // namespace lumenfold::art
