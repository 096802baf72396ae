// The title: the name in its own lettering, bevelled from a distance transform, folded along one line into a cold and
// a warm half, with glow. Added over the picture and then smeared sideways, so everything around is true black.

#include "artwork/lettering/lettering.h"
#include "artwork/lettering/name.h"
#include "forge/canvas.h"
#include "forge/picture_file.h"

#include <algorithm>
#include <vector>

namespace lumenfold::art {

namespace {

constexpr int width = 512;
constexpr int height = 80;
constexpr int scale = 4; // the lettering is worked on four times as large
constexpr float bevel = 2.2F;

// The line of the fold: rises to the right.
float foldAt(float x) {
    return 58.5F - 22 * (x + 20) / 560;
}

// Distance of every painted pixel to the nearest unpainted one, in pixels of the large picture, up to `reach`.
Picture distanceInside(const Picture& mask, int reach) {
    const int w = mask.width();
    const int h = mask.height();
    const auto far = static_cast<float>(reach);
    Picture column(w, h); // along the columns only
    for (int x = 0; x < w; ++x) {
        float run = far;
        for (int y = 0; y < h; ++y)
            column.at(x, y).x = run = mask.at(x, y).x > 0.5F ? std::min(run + 1, far) : 0;
        run = far;
        for (int y = h - 1; y >= 0; --y) {
            run = mask.at(x, y).x > 0.5F ? std::min(run + 1, far) : 0;
            column.at(x, y).x = std::min(column.at(x, y).x, run);
        }
    }
    Picture distance(w, h);
    distance.change([&](Colour, int x, int y) {
        float best = far * far;
        for (int s = std::max(-reach, -x); s <= std::min(reach, w - 1 - x); ++s) {
            const float d = column.at(x + s, y).x;
            best = std::min(best, d * d + static_cast<float>(s * s));
        }
        return Colour{std::sqrt(best), 0, 0};
    });
    return distance;
}

// The flat face of a letter: steel falling to teal above the fold, brass falling to amber below it. It is added to a
// moving picture that is bright by itself: a face much over half grey would drown in it, so the bevels carry the light.
// t = 0 at the fold, 1 at the far end of the letter.
Colour coldFace(float t) {
    return mix(fromHex(0x2A7880), fromHex(0x86A0AC), smoothStep(0.05F, 1, t));
}
Colour warmFace(float t) {
    return mix(fromHex(0xA07A30), fromHex(0x9A4C14), smoothStep(0, 0.75F, t));
}

// Half-size steps of `scale`: the mean of each block.
Picture reduced(const Picture& large) {
    Picture small(large.width() / scale, large.height() / scale);
    small.change([&](Colour, int x, int y) {
        Colour sum;
        for (int j = 0; j < scale; ++j)
            for (int i = 0; i < scale; ++i)
                sum += large.at(x * scale + i, y * scale + j);
        return sum * (1.0F / (scale * scale));
    });
    return small;
}

// One letter pixel: the face, and a bevel lit by the tall key at the upper left and the amber rim at the right.
Colour chrome(float x, float y, float slopeX, float slopeY) {
    constexpr float ascender = 9;
    constexpr float baseline = 62;
    const float fold = foldAt(x);
    const bool above = y < fold;
    const Colour face =
        above ? coldFace(saturate((fold - y) / (fold - ascender))) : warmFace(saturate((y - fold) / (baseline - fold)));
    const Vec3 n = normalize(Vec3{-slopeX, -slopeY, 1});
    const float tilt = 1 - n.z;
    const float key = saturate(dot(n, {-0.55F, -0.62F, 0.56F}));
    const float rim = saturate(dot(n, {0.80F, 0.45F, 0.40F}));
    Colour light = mix(face, face * 0.30F, saturate(2.2F * tilt));
    light += palette::ice * (1.9F * saturate(3 * tilt) * key * key);
    light += mix(palette::teal, palette::amber, above ? 0.0F : 1.0F) * (1.3F * saturate(3 * tilt) * rim * rim);
    return light;
}

Picture chromeLetters(const Picture& mask) {
    const Picture distance = distanceInside(mask, static_cast<int>(5.25F * scale) + 2);
    Picture relief(mask.width(), mask.height());
    relief.change([&](Colour, int x, int y) {
        const float q = 1 - saturate(distance.at(x, y).x / scale / bevel);
        return Colour{bevel * 0.85F * std::sqrt(1 - q * q), 0, 0};
    });
    relief = blurred(relief, 1.6F, Edge::clamp);
    Picture letters(mask.width(), mask.height());
    letters.change([&](Colour, int x, int y) -> Colour {
        const auto at = [&](int i, int j) {
            return relief.at(std::clamp(i, 0, mask.width() - 1), std::clamp(j, 0, mask.height() - 1)).x;
        };
        const float slopeX = (at(x + 1, y) - at(x - 1, y)) * scale / 2;
        const float slopeY = (at(x, y + 1) - at(x, y - 1)) * scale / 2;
        const float px = static_cast<float>(x) / scale;
        const float py = static_cast<float>(y) / scale;
        return chrome(px, py, slopeX, slopeY) * mask.at(x, y).x;
    });
    const Picture around = blurred(mask, 6, Edge::clamp);
    letters.change([&](Colour light, int x, int y) {
        const float px = static_cast<float>(x) / scale;
        const float seam = bell(static_cast<float>(y) / scale - foldAt(px), 0.57F);
        const float strength = 0.35F + 0.65F * bell(px - 330, 64);
        return light + palette::ice * (seam * saturate(around.at(x, y).x * 2.2F) * 0.55F * strength);
    });
    return letters;
}

// A spark sits on the fold.
float spark(float x, float y) {
    constexpr float sparkX = 352;
    const float dx = x - sparkX;
    const float dy = y - foldAt(sparkX);
    const float along = std::fabs(dy + 22.0F / 560 * dx);
    return 1.6F * bell(length(dx, dy), 1.55F) + 0.9F * exponential(-along / 0.9F - std::fabs(dx) / 34) +
           0.5F * exponential(-std::fabs(dx) / 0.8F - std::fabs(dy) / 9);
}

} // namespace

Bitmap makeLogo() {
    const Picture mask = coverage(width * scale, height * scale, [](cairo_t* cairo) {
        cairo_scale(cairo, scale, scale);
        drawName(cairo, (width - nameWidth()) / 2);
        // the fold is cut through the letters as a hairline
        cairo_set_operator(cairo, CAIRO_OPERATOR_CLEAR);
        cairo_set_line_width(cairo, 1);
        cairo_move_to(cairo, -20, 58.5);
        cairo_line_to(cairo, 540, 36.5);
        cairo_stroke(cairo);
    });
    const Picture letters = reduced(chromeLetters(mask));
    const Picture cover = reduced(mask);
    const Picture near = blurred(letters, 2.2F, Edge::clamp);
    const Picture wide = blurred(letters, 9, Edge::clamp);
    const Picture halo = blurred(cover, 7, Edge::clamp);
    Picture title(width, height);
    title.change([&](Colour, int x, int y) {
        const auto border = [](int place, int size, float reach) {
            return saturate(static_cast<float>(std::min(place, size - 1 - place) - 1) / reach);
        };
        const float fade = power(border(x, width, 16) * border(y, height, 12), 1.2F);
        const Colour glow = near.at(x, y) * 0.16F + palette::teal * (0.07F * halo.at(x, y).x) + wide.at(x, y) * 0.16F;
        return letters.at(x, y) + glow * (fade * (1 - 0.6F * cover.at(x, y).x)) +
               palette::ice * (spark(static_cast<float>(x), static_cast<float>(y)) * fade);
    });
    return withBlackBorder([&](float share) { return withTrueBlack(developed(title, {1.15F * share, true, 0}), 5); });
}

} // namespace lumenfold::art
