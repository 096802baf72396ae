#include "artwork/textures/textures.h"

#include "artwork/lettering/name.h"
#include "forge/canvas.h"
#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// Textures that carry drawn shapes: the nameplate and the film strip.

namespace lumenfold::art {

// "plate1.jpg": the nameplate: the name in light between two rules, on black, because the plate is added. The outer
// rows hold lamps, one to 32 columns, in two runs that fade out at their tails; the scene moves these on by 32 with the music.
Bitmap makeNameplate() {
    const int side = 256 * 3;
    Picture mask = coverage(side, side, [&](cairo_t* cairo) {
        const double scale = side * 0.86 / nameWidth();
        constexpr double stretch = 2.9; // the plate is about twice as wide as high, and seen from above
        cairo_translate(cairo, side * 0.07, side * 0.5 - 38 * stretch * scale);
        cairo_scale(cairo, scale, stretch * scale);
        drawName(cairo, 0);
    });
    const Picture soft = blurred(mask, 9, Edge::wrap);
    const Picture wide = blurred(mask, 40, Edge::wrap);
    Picture picture = texture(256, 3, [&](float u, float v) -> Colour {
        const int x = std::min(side - 1, static_cast<int>(u * side));
        const int y = std::min(side - 1, static_cast<int>(v * side));
        const float stroke = mask.at(x, y).x;
        const float crease = 0.50F - 0.05F * (u - 0.5F); // the fold of light: ice above, gold below
        const Colour metal = mix(fromHex(0xFFF5D0), palette::gold * 0.8F, smoothStep(-0.02F, 0.03F, v - crease));
        Colour light = metal * (stroke * (0.45F + 0.55F * smoothStep(0.3F, 0.9F, soft.at(x, y).x)));
        light += palette::amber * (0.55F * soft.at(x, y).x * (1 - stroke)) + palette::ember * (0.9F * wide.at(x, y).x);
        const float rule = std::min(std::fabs(v - 0.16F), std::fabs(v - 0.84F));
        light += palette::amber * (0.7F * bell(rule, 0.010F)) + palette::ember * (0.5F * bell(rule, 0.03F));
        const float cell = 8 * u;
        const float run = static_cast<float>(static_cast<int>(cell) % 4) / 3; // 1 is the first lamp of a run
        const float beside = std::max(0.0F, std::fabs(cell - std::floor(cell) - 0.5F) - 0.26F) / 8;
        const float lamp = length(beside, std::min(std::fabs(v - 0.075F), std::fabs(v - 0.925F)) * 0.4F);
        const float on = 0.10F + 0.90F * run * run;
        light +=
            mix(fromHex(0x5A86B0), fromHex(0xFFF5D0), 0.6F * run) * (1.1F * on * smoothStep(0.018F, 0.010F, lamp)) +
            fromHex(0x5A86B0) * (0.30F * on * run * bell(lamp, 0.016F));
        return light * 0.85F;
    });
    return withTrueBlack(developed(picture, {1, true, 0}), 3);
}

// "film1.jpg": one pitch of the film's base, over its whole height: dark celluloid whose outer edges carry amber light,
// a glint around each of the ten holes of a rail (the holes themselves are the model's) and a crease in the gap between
// two pictures. A picture stands before the middle.
Bitmap makeFilmStrip() {
    constexpr float wide = 0.9F; // a pitch and the film's height, in the model's units
    constexpr float high = 0.624F;
    const Picture picture = texture(256, 4, [&](float u, float v) -> Colour {
        const float grain = fractalNoise({8 * u, 6 * v, 2}, 3, 701, {8, 6});
        const float sheen = fractalNoise({2 * u, 3 * v, 5}, 2, 702, {2, 3});
        const float x = std::fabs(u - 0.5F) * wide; // from the picture's middle
        const float y = std::fabs(v - 0.5F) * high;
        Colour base = mix(fromHex(0x120B06), fromHex(0x3A2412), 0.55F + 0.9F * sheen) * (0.75F + 0.35F * grain);
        base += fromHex(0x5A3A1E) * (0.30F * smoothStep(0.9F, 0.1F, v));
        const float edge = high / 2 - y;
        base +=
            fromHex(0x8A5A1E) * (0.45F * std::exp(-edge / 0.025F)) + fromHex(0xFFB45A) * (0.7F * bell(edge, 0.008F));
        const float column = (10 * u - std::floor(10 * u) - 0.5F) * wide / 10;
        const float dx = std::max(0.0F, std::fabs(column) - 0.016F);
        const float dy = std::max(0.0F, std::fabs(y - 0.262F) - 0.024F);
        const float hole = length(dx, dy) - 0.010F; // distance from the rim
        base += mix(fromHex(0xFFF3DC), fromHex(0xD9A25B), smoothStep(0.0F, 0.010F, hole)) *
                (0.22F * bell(hole - 0.001F, 0.004F));
        const float gap = wide / 2 - x; // from the middle of the gap
        const float inGap = smoothStep(0.195F, 0.185F, gap) * smoothStep(0.196F, 0.188F, y);
        base += fromHex(0xD9A25B) * (0.45F * bell(gap - 0.180F, 0.005F) * smoothStep(0.196F, 0.188F, y));
        const float across = u < 0.5F ? u + 0.5F : u - 0.5F; // 0.5 in the middle of the gap
        const float crease = v - 0.5F + 0.09F * (across - 0.5F);
        base += (fromHex(0xD9A25B) * (0.5F * bell(crease, 0.05F)) + fromHex(0xFFF3DC) * (0.6F * bell(crease, 0.010F))) *
                (inGap * smoothStep(0.18F, 0.03F, gap));
        return base;
    });
    return developed(withBloom(picture, {2, 0.12F, 7, 0.08F}, Edge::wrap), {1.35F, true, 0.6F});
}

} // namespace lumenfold::art
