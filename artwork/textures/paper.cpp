#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// "paper1.jpg": the light on one face of the folded cube, seen once: four squares, each of four facets in tones from
// white to the orange of the fire, the same light on every face.

namespace lumenfold::art {

Bitmap makeFoldedPaper() {
    Picture picture = texture(256, 4, [](float u, float v) {
        const float su = 2 * u - std::floor(2 * u) - 0.5F;
        const float sv = 2 * v - std::floor(2 * v) - 0.5F;
        const bool upright = std::fabs(sv) > std::fabs(su);
        const bool first = upright ? sv < 0 : su < 0;
        const bool outer = upright ? (sv < 0) == (v < 0.5F) : (su < 0) == (u < 0.5F);
        const float deep = 1 - 2 * std::max(std::fabs(su), std::fabs(sv)); // 1 in the middle of the square
        const float grain = fractalNoise({20 * u, 20 * v, 1}, 2, 961, {20, 20});
        const Colour lit =
            upright ? (first ? fromHex(0xFFFFFF) : fromHex(0xB8663C)) : (first ? fromHex(0xEFE4D8) : fromHex(0xF0A878));
        Colour light = lit * (outer ? 0.80F : 1.0F) * (1 - 0.45F * deep) * (1 + 0.06F * grain);
        light += fromHex(0xFF5A1A) * (0.10F * deep);
        return light;
    });
    picture = blurred(picture, 0.8F, Edge::wrap);
    return developed(picture, {1, false, 0.6F});
}

} // namespace lumenfold::art
