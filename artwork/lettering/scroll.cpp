// The end scroller: one tall painting, 512 x 1400, from night into dawn over water, with the text on a hairline.

#include "artwork/lettering/lettering.h"
#include "artwork/lettering/name.h"
#include "forge/canvas.h"
#include "forge/encode.h"
#include "forge/noise.h"

#include <algorithm>
#include <cairo.h>
#include <iterator>

namespace lumenfold::art {

namespace {

using Face = Canvas::Face;

constexpr int width = 512;
constexpr int height = 1400;
constexpr float horizon = 1130; // the row where sky and water meet
constexpr int hairline = 64;    // the column of the crease that all text hangs on

// Night at the top, dawn at the horizon; below it the water carries the sky down into night again, so that the last row
// meets the first.
Colour skyAt(float height01) { // 0 zenith, 1 horizon
    struct Stop {
        float at;
        std::uint32_t rgb;
    };
    constexpr Stop stops[] = {{0.00F, 0x03040C}, {0.28F, 0x070D22}, {0.52F, 0x0C1E2C},  {0.70F, 0x1E5A62},
                              {0.83F, 0x8A5A78}, {0.92F, 0xF2789A}, {0.975F, 0xFFD28A}, {1.00F, 0xFFF0C8}};
    for (std::size_t i = 1; i < std::size(stops); ++i)
        if (height01 <= stops[i].at)
            return mix(fromHex(stops[i - 1].rgb), fromHex(stops[i].rgb),
                       smoothStep(stops[i - 1].at, stops[i].at, height01));
    return fromHex(stops[std::size(stops) - 1].rgb);
}

// Ridges of mountains before the dawn, the farther the paler. 1 inside.
float ridge(float x, float y, float top, float rough, std::uint32_t seed) {
    const float edge = top - rough * (0.6F + fractalNoise({0.009F * x, 0.5F, 2}, 6, seed));
    return smoothStep(edge, edge + 1.2F, y);
}

Colour above(float x, float y) {
    const float cloud = fractalNoise({0.0045F * x, 0.016F * y, 3}, 5, 701);
    Colour light = skyAt(saturate(y / horizon + 0.05F * cloud));
    const float late = smoothStep(0.55F, 0.95F, y / horizon);
    light += fromHex(0xF2789A) * (0.35F * late * smoothStep(0.05F, 0.40F, cloud)) * (1 - 0.6F * late * late);
    const float sun = length(x - 330, y - horizon + 84);
    light += fromHex(0xFFE8B0) * (1.6F * smoothStep(31, 28, sun) + 0.55F * exponential(-sun / 70));
    light = mix(light, fromHex(0x9A5A78), ridge(x, y, horizon - 34, 60, 702));
    light = mix(light, fromHex(0x2A3046), ridge(x, y, horizon - 12, 44, 703));
    return light;
}

Colour paintingAt(float x, float y) {
    if (y <= horizon)
        return above(x, y);
    const float deep = (y - horizon) / (height - horizon);
    const float wave = 3 + 34 * deep;
    const float shift = wave * fractalNoise({0.012F * x / (0.15F + deep), 30 * power(deep, 0.45F), 4}, 3, 704);
    const Colour mirrored = above(x + shift, horizon - (y - horizon) * 2.2F - std::fabs(shift) * 1.5F);
    const float fade = power(1 - deep, 1.6F);
    const float glint = smoothStep(0.30F, 0.55F, fractalNoise({0.03F * x, 70 * power(deep, 0.45F), 8}, 3, 705)) *
                        bell(x - 330, 26 + 110 * deep);
    return mix(fromHex(0x03040C), mirrored * 0.80F + fromHex(0xFFD28A) * (0.8F * glint), fade);
}

Picture painting() {
    Picture picture = renderPicture(width, height, 2, [](float x, float y, std::uint32_t) { return paintingAt(x, y); });
    picture.change([](Colour light, int x, int y) {
        const float night = smoothStep(620, 120, static_cast<float>(y)) + smoothStep(1340, 1399, static_cast<float>(y));
        const float star = hashUnit(x, y, 0, 706);
        if (star > 0.9985F)
            light += fromHex(0xD8E8FF) * (night * 0.75F * hashUnit(x, y, 1, 706));
        return light;
    });
    return picture;
}

// Text that hangs on the hairline, set from the top downwards.
class Column {
  public:
    explicit Column(const Canvas& target) : canvas(target) {}
    double y = 0;

    void line(const std::string& words, Face face, double size, std::uint32_t colour, double spacing) {
        canvas.ink(colour);
        canvas.text(hairline + 22, y, words, face, size, spacing);
    }
    void knot() {
        canvas.ink(bone);
        canvas.rectangle(hairline - 4, y - 12, 9, 9);
    }
    void role(const std::string& name, std::initializer_list<const char*> lines) {
        knot();
        line(name, Face::TextBold, 17, rose, 3);
        y += 30;
        for (const char* words : lines) {
            line(words, Face::StrongBold, 25, bone, 0.4);
            y += 31;
        }
        y += 40;
    }

    static constexpr std::uint32_t bone = 0xFFF3DC, rose = 0xFF9AB4, gold = 0xFFD28A;

  private:
    const Canvas& canvas;
};

// The text lies in the light of the painting: a shadow under it, itself on top.
Bitmap joined(const Bitmap& ground, const Bitmap& text) {
    Picture mask(width, height);
    mask.change([&](Colour, int x, int y) {
        const std::uint8_t* const rgb =
            &text.rgb[3 * (static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x))];
        const float cover = static_cast<float>(std::max({rgb[0], rgb[1], rgb[2]})) / 255;
        return Colour{cover, cover, cover};
    });
    const Picture shadow = blurred(mask, 3.5F, Edge::wrap);
    Bitmap result = ground;
    for (std::size_t i = 0; i < result.rgb.size(); ++i) {
        const std::size_t pixel = i / 3;
        const int x = static_cast<int>(pixel % width);
        const int y = static_cast<int>(pixel / width);
        const float under = static_cast<float>(ground.rgb[i]) * (1 - 0.75F * std::min(1.0F, 1.6F * shadow.at(x, y).x));
        const float over = static_cast<float>(text.rgb[i]) + (1 - mask.at(x, y).x) * under;
        result.rgb[i] = static_cast<std::uint8_t>(std::min(over + 0.5F, 255.0F));
    }
    return result;
}

} // namespace

Bitmap makeEndScroll() {
    const Canvas canvas(width, height, 0);
    cairo_t* cairo = canvas.cairo();
    canvas.ink(0xBFF3FF, 0.35); // the crease
    canvas.rectangle(hairline - 1, 0, 3, height);
    canvas.ink(0xFFFFFF);
    canvas.rectangle(hairline, 0, 1, height);
    cairo_save(cairo);
    cairo_translate(cairo, hairline + 22, 62);
    cairo_scale(cairo, 0.8, 0.8);
    canvas.ink(Column::bone);
    drawName(cairo, 0);
    cairo_restore(cairo);

    Column column(canvas);
    column.y = 146;
    column.line("light folded into matter", Face::TextBold, 19, Column::rose, 1.4);
    column.y = 248;
    column.role("CODE", {"every pixel by our own hand", "no accelerator was harmed"});
    column.role("PICTURES", {"signed distance and patience", "one ray at a time"});
    column.role("OBJECTS", {"stone, bone and a quiet face"});
    column.role("MUSIC", {"one hook, one crease", "sixty-four rows a page"});
    column.role("SYNC", {"the tune leads,", "the picture follows"});
    column.y += 12;
    column.knot();
    column.line("greetings", Face::StrongBold, 34, Column::gold, 1);
    column.y += 40;
    for (const char* words : {"to everyone who draws in code", "to everyone who codes in music",
                              "to those who keep old machines warm", "to those who start tonight"}) {
        column.line(words, Face::Strong, 21, Column::bone, 0.3);
        column.y += 31;
    }
    column.y = 1290;
    column.knot();
    column.line("thank you for watching", Face::StrongBold, 32, Column::bone, 0.4);
    column.y += 36;
    column.line("fold it again", Face::TextBold, 19, Column::rose, 2);
    return joined(developed(painting(), {1, false, 0.25F}), canvas.bitmap());
}

} // namespace lumenfold::art
