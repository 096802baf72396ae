#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/picture_file.h"

#include <stdexcept>

// The additive sprites. They overlap by the dozen, so their energy is set by what the sum may reach, and their rim
// is exactly black.

namespace lumenfold::art {

namespace {

// place: -1 to 1 across the sprite.
Picture sprite(int side, const std::function<Colour(float x, float y)>& shade) {
    const float half = static_cast<float>(side) / 2;
    return renderPicture(side, side, 8, [&](float x, float y, std::uint32_t) -> Colour {
        const float u = x / half - 1;
        const float v = y / half - 1;
        const float edge = power(saturate((0.92F - length(u, v)) / 0.92F), 1.6F);
        return shade(u, v) * edge;
    });
}

constexpr Develop plain = {1, false, 0}; // no grain: what is black stays black

} // namespace

// "bfs1.pcx": flare of the ring, where neighbours overlap four- to tenfold, and the welding torch: a flat wide core of
// white within a rim of orange.
Bitmap makeRingFlare() {
    const Picture picture = sprite(32, [](float x, float y) {
        const float r = length(x, y);
        Colour light = fromHex(0xF2F6FF) * (0.26F * smoothStep(0.30F, 0.12F, r));
        light += fromHex(0x4E7BFF) * (0.16F * exponential(-r * 5.0F));
        light += fromHex(0xFF7A2C) * (0.11F * bell(r - 0.36F, 0.07F) + 0.03F * exponential(-r * 3.5F));
        return light;
    });
    return developed(picture, plain);
}

// "bfs0.pcx": a spark, and one of the 1000 to 1700 flares of a metaball. As wide as it can be and so dim that the four
// or more on each crossing of the grid stay coals: only where front and back overlap does the body turn white.
Bitmap makeSparkFlare() {
    const Picture picture = renderPicture(16, 16, 8, [](float x, float y, std::uint32_t) -> Colour {
        const float r = length(x - 8, y - 8);                 // pixels
        return fromHex(0x2C1406) * smoothStep(7.3F, 1.8F, r); // the rim stays black
    });
    return developed(picture, plain);
}

// "petrolflare.jpg": flare of the feedback ring. It is added to its own fading trail dozens of times, so every lobe is
// a pure colour, dim, and clear of the others. Red is the weakest channel by far: where everything overlaps, the sum
// ends in teal and violet instead of white.
Bitmap makePetrolFlare() {
    const Picture picture = sprite(32, [](float x, float y) {
        const Colour tealOnly = palette::teal * Vec3{0, 1, 0.75F};
        const Colour violetOnly = palette::violet * Vec3{0.35F, 0, 1};
        const Colour amberOnly = palette::amber * Vec3{1, 0.35F, 0};
        const auto lobe = [&](float atX, float atY, float width) { return bell(length(x - atX, y - atY), width); };
        Colour light = tealOnly * (0.095F * lobe(-0.10F, -0.24F, 0.16F));
        light += violetOnly * (0.026F * lobe(-0.22F, 0.38F, 0.16F));
        light += amberOnly * (0.046F * lobe(0.44F, 0.14F, 0.13F));
        return light;
    });
    return withBlackBorder([&](float share) { return developed(picture, {share, false, 0}); });
}

} // namespace lumenfold::art
