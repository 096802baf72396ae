#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// "petrolenv.jpg": three ribbons of silk, violet, magenta and gold. The twin tunnel bends their rows into rings around
// its mouths, part 7 lets them flow over the whole frame and part 1 dissolves into them, so they are broad, soft and
// bright, and tile both ways.

namespace lumenfold::art {

namespace {

struct Silk {
    Colour shadow;
    Colour body;
    Colour sheen;
};

// Where the fold across a ribbon catches light: 0 at its dark hem, two crests between.
float foldLight(float across, float slack) {
    const float hem = smoothStep(0, 0.24F, across) * smoothStep(1, 0.86F, across);
    const float crest = bell(across - 0.38F - 0.08F * slack, 0.16F);
    const float second = 0.55F * bell(across - 0.76F + 0.05F * slack, 0.07F);
    return hem * (0.26F + 0.74F * crest + second);
}

} // namespace

Bitmap makePetrolEnvironment() {
    static const Silk ribbons[] = {
        {fromHex(0x12042A), fromHex(0x6A22B8), fromHex(0xC9A0FF)},
        {fromHex(0x2A0430), fromHex(0xE83FA8), fromHex(0xFFC4E4)},
        {fromHex(0x3A1008), fromHex(0xE08A2A), fromHex(0xFFE2A0)},
    };
    Picture picture = texture(256, 4, [](float u, float v) {
        const float turn = 2 * pi * u;
        const float slack = gradientNoise({3 * u, 3 * v, 0.5F}, 41, {3, 3});
        const float drift = 0.11F * sine(turn + 0.6F) + 0.045F * sine(2 * turn + 2.1F) + 0.050F * slack;
        const float place = 3 * (v + drift) + 6;
        const int index = static_cast<int>(std::floor(place));
        const float across = place - static_cast<float>(index);
        const Silk& silk = ribbons[index % 3];
        const float lit = foldLight(across, slack + 0.6F * sine(turn + 2.0F * static_cast<float>(index % 3)));
        const float thread = 1 + 0.10F * fractalNoise({4 * u, 24 * v, 2}, 3, 42, {4, 24});
        Colour light = mix(silk.shadow * 0.6F, silk.body, saturate(1.1F * lit * lit) * thread);
        light += silk.sheen * (0.55F * power(saturate(lit - 0.55F), 1.5F));
        // light that the neighbour throws back under the hem
        const Silk& next = ribbons[(index + 1) % 3];
        light += next.body * (0.20F * bell(across - 0.93F, 0.06F));
        return light;
    });
    picture = withBloom(picture, {3, 0.22F, 16, 0.14F}, Edge::wrap);
    return developed(picture, {0.80F, true, 0.6F});
}

} // namespace lumenfold::art
