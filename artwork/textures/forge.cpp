#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

#include <algorithm>

// The forge of part 8, as the fire in its middle lights it: the wall of the dome, seen once around, the steel of the
// claws and the glow of the head.

namespace lumenfold::art {

namespace {

const Colour soot = fromHex(0x0A0402);
const Colour stone = fromHex(0x6A3418);
const Colour flame = fromHex(0xFF7A18);
const Colour glare = fromHex(0xFFF5D0);
const Colour steel = fromHex(0x31485C);

} // namespace

// "dome1.jpg": from the floor to the crown: blocks, an arch with a furnace mouth, a barred window on a blue night above
// it.
Bitmap makeDomeWall() {
    Picture picture = texture(256, 4, [](float u, float v) {
        const float up = 1 - v;
        const float course = 14 * up;
        const float row = course - std::floor(course);
        const float place = 8 * u + 0.5F * static_cast<float>(static_cast<int>(course) % 2);
        const float column = place - std::floor(place);
        const float joint = std::min({row, 1 - row, 2.0F * std::min(column, 1 - column)});
        const float tone = hashUnit(static_cast<int>(std::floor(place)) % 8, static_cast<int>(course), 0, 971);
        const float grime = fractalNoise({6 * u, 8 * v, 2}, 4, 972, {6, 8});
        const float heat = exponential(-up / 0.34F);
        const Colour body = stone * (0.5F + 0.8F * tone) * (1 + 0.7F * grime) * smoothStep(0.03F, 0.14F, joint);
        Colour light = body * (0.07F + 1.7F * heat);
        // the furnace mouth
        const float across = std::fabs(u - 0.5F);
        const float mouth = up < 0.20F ? across - 0.13F : length(across, 1.1F * (up - 0.20F)) - 0.13F;
        light += flame * (0.75F * bell(std::max(mouth, 0.0F), 0.05F)) + glare * (0.30F * bell(mouth - 0.01F, 0.012F));
        if (mouth < 0) {
            const float coals = 0.5F + fractalNoise({24 * u, 16 * v, 5}, 3, 973);
            light = flame * (1.2F * smoothStep(0.30F, 0.02F, up) * coals) +
                    glare * (0.9F * smoothStep(0.10F, 0.0F, up) * coals);
        }
        // the window
        const float window = std::max(std::fabs(u - 0.5F) - 0.085F, std::fabs(up - 0.60F) - 0.10F);
        if (window < 0) {
            const float bars = std::min(std::fabs(u - 0.47F), std::fabs(u - 0.53F));
            light = (steel * 1.6F + fromHex(0x8FB4D8) * (0.5F * smoothStep(0.50F, 0.70F, up))) *
                    smoothStep(0.008F, 0.014F, bars);
        }
        light += steel * (0.55F * bell(std::max(window, 0.0F), 0.020F));
        return light + soot * 0.4F;
    });
    picture = withBloom(picture, {2, 0.12F, 12, 0.14F}, Edge::clamp);
    return developed(picture, {1.2F, true, 0.6F});
}

// "steel1.jpg": brushed blue steel whose lower rows catch the fire.
Bitmap makeClawSteel() {
    Picture picture = texture(256, 2, [](float u, float v) {
        const float brushed = fractalNoise({4 * u, 40 * v, 1}, 3, 981, {4, 40});
        const float round = 0.5F + 0.5F * sine(2 * pi * (u + 0.15F));
        Colour light = steel * (0.5F + 1.8F * round * round) * (1 + 0.5F * brushed);
        light += fromHex(0xC8DCF0) * (0.5F * power(round, 10));
        return light + flame * (0.9F * power(0.5F - 0.5F * cosine(2 * pi * v), 3) * (1 - 0.6F * round));
    });
    return developed(picture, {0.9F, true, 0.6F});
}

// "head1.jpg": the head in the fire: white hot at the neck, red above, black at the crown. Rows run along its height.
Bitmap makeHotHead() {
    Picture picture = texture(256, 2, [](float u, float v) {
        const float scale = fractalNoise({7 * u, 7 * v, 3}, 4, 991, {7, 7});
        const float heat = saturate(1.08F * v + 0.30F * scale - 0.05F);
        const float side = std::fabs(2 * u - 1);
        Colour light = soot + fromHex(0x8A1404) * smoothStep(0.10F, 0.55F, heat);
        light += flame * (1.0F * smoothStep(0.40F, 0.85F, heat)) + glare * (0.9F * smoothStep(0.72F, 1.05F, heat));
        return light * (0.45F + 0.55F * side) + steel * (0.35F * (1 - v) * side * side);
    });
    return developed(picture, {1, true, 0.6F});
}

} // namespace lumenfold::art
