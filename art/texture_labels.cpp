#include "art/textures.h"

#include "art/cairo_picture.h"
#include "art/encode.h"
#include "art/noise.h"
#include "art/relief.h"

// Textures that carry drawn shapes: the nameplate and the film strip.

namespace lumenfold::art {

namespace {

// The seven letter shapes of the name in a square, stroked alphabet: x from 0, baseline 0, x height 1, ascender 1.6.
// Each pen stroke is a row of points; a letter is 1 wide at most.
void drawName(cairo_t* cairo) {
    const auto line = [cairo](std::initializer_list<Point2> points) {
        bool first = true;
        for (const Point2 p : points) {
            (first ? cairo_move_to : cairo_line_to)(cairo, p.x, -p.y);
            first = false;
        }
        cairo_stroke(cairo);
    };
    struct Glyph {
        char letter;
        float x;
    };
    constexpr Glyph word[] = {{'l', 0},    {'u', 0.75F}, {'m', 2.0F}, {'e', 3.9F}, {'n', 5.15F},
                              {'f', 6.4F}, {'o', 7.25F}, {'l', 8.5F}, {'d', 9.2F}};
    for (const Glyph glyph : word) {
        cairo_save(cairo);
        cairo_translate(cairo, static_cast<double>(glyph.x), 0);
        switch (glyph.letter) {
        case 'l':
            line({{0, 1.6F}, {0, 0.15F}, {0.15F, 0}, {0.4F, 0}});
            break;
        case 'u':
            line({{0, 1}, {0, 0.15F}, {0.15F, 0}, {0.9F, 0}, {0.9F, 1}});
            break;
        case 'm':
            line({{0, 0}, {0, 1}, {1.45F, 1}, {1.6F, 0.85F}, {1.6F, 0}});
            line({{0.8F, 0}, {0.8F, 1}});
            break;
        case 'e':
            line({{0, 0.5F},
                  {0.9F, 0.5F},
                  {0.9F, 0.85F},
                  {0.75F, 1},
                  {0.15F, 1},
                  {0, 0.85F},
                  {0, 0.15F},
                  {0.15F, 0},
                  {0.9F, 0}});
            break;
        case 'n':
            line({{0, 0}, {0, 1}, {0.75F, 1}, {0.9F, 0.85F}, {0.9F, 0}});
            break;
        case 'f':
            line({{0.15F, 0}, {0.15F, 1.45F}, {0.3F, 1.6F}, {0.6F, 1.6F}});
            line({{-0.1F, 1}, {0.5F, 1}});
            break;
        case 'o':
            line({{0.15F, 0},
                  {0, 0.15F},
                  {0, 0.85F},
                  {0.15F, 1},
                  {0.75F, 1},
                  {0.9F, 0.85F},
                  {0.9F, 0.15F},
                  {0.75F, 0},
                  {0.15F, 0},
                  {0, 0.15F}});
            break;
        default: // d
            line({{0.9F, 1.6F}, {0.9F, 0}, {0.15F, 0}, {0, 0.15F}, {0, 0.85F}, {0.15F, 1}, {0.9F, 1}});
            break;
        }
        cairo_restore(cairo);
    }
}
constexpr double nameWidth = 10.1;

} // namespace

// "plate1.jpg": the nameplate: the name in light between two rules, on black, because the plate is added. The scene
// moves the columns on by 32 with the music, so the whole wraps there.
void makeNameplate(const std::string& path) {
    const int side = 256 * 3;
    Picture mask = drawn(side, side, [&](cairo_t* cairo) {
        cairo_set_line_cap(cairo, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(cairo, CAIRO_LINE_JOIN_ROUND);
        const double scale = side * 0.82 / nameWidth;
        cairo_translate(cairo, side * 0.09, side * 0.56);
        cairo_scale(cairo, scale, scale * 2.1); // the plate is about twice as wide as high
        cairo_set_line_width(cairo, 0.20);
        drawName(cairo);
    });
    const Picture soft = blurred(mask, 9, Edge::wrap);
    const Picture wide = blurred(mask, 40, Edge::wrap);
    Picture picture = texture(256, 3, [&](float u, float v) -> Colour {
        const int x = std::min(side - 1, static_cast<int>(u * side));
        const int y = std::min(side - 1, static_cast<int>(v * side));
        const float stroke = mask.at(x, y).x;
        const float crease = 0.50F - 0.05F * (u - 0.5F); // the fold of light: ice above, gold below
        const Colour metal = mix(palette::ice, palette::gold * 0.8F, smoothStep(-0.02F, 0.03F, v - crease));
        Colour light = metal * (stroke * (0.45F + 0.55F * smoothStep(0.3F, 0.9F, soft.at(x, y).x)));
        light += palette::amber * (0.55F * soft.at(x, y).x * (1 - stroke)) + palette::ember * (0.9F * wide.at(x, y).x);
        const float rule = std::min(std::fabs(v - 0.16F), std::fabs(v - 0.84F));
        light += palette::amber * (0.7F * bell(rule, 0.010F)) + palette::ember * (0.5F * bell(rule, 0.03F));
        const float tick = std::fabs(16 * u - std::floor(16 * u) - 0.5F);
        const float outer = std::min(std::fabs(v - 0.10F), std::fabs(v - 0.90F));
        light += palette::teal * (0.5F * smoothStep(0.016F, 0.010F, outer) * smoothStep(0.30F, 0.24F, tick));
        return light * 0.85F;
    });
    writeBitmap(path, withTrueBlack(developed(picture, {1, true, 0}), 3));
}

// "film1.jpg": one length of film base along the columns: perforation at both edges, a dark frame between, edge marks.
void makeFilmStrip(const std::string& path) {
    const auto hole = [](float u, float v) {
        const float column = 8 * u - std::floor(8 * u) - 0.5F;
        const float row = std::min(std::fabs(v - 0.085F), std::fabs(v - 0.915F));
        const float dx = std::max(0.0F, std::fabs(column) - 0.16F) / 8;
        const float dy = std::max(0.0F, row - 0.022F);
        return length(dx, dy);
    };
    Picture picture = texture(256, 4, [&](float u, float v) -> Colour {
        const float grain = fractalNoise({6 * u, 6 * v, 2}, 3, 701, {6, 6});
        const float sheen = fractalNoise({2 * u, 3 * v, 5}, 2, 702, {2, 3});
        Colour base = mix(palette::ember * 0.22F, palette::amber * 0.18F, 0.5F + 0.8F * sheen) * (0.8F + 0.5F * grain);
        base += palette::petrol * 0.06F;
        const float frame = std::max(std::fabs(u - 0.5F) - 0.46F, std::fabs(v - 0.5F) - 0.32F);
        base = mix(base, palette::deep * (0.55F + 0.6F * sheen), smoothStep(0.006F, -0.006F, frame));
        base += palette::teal * (0.25F * bell(frame, 0.008F));
        const float distance = hole(u, v);
        base = mix(base, palette::ink * 0.1F, smoothStep(0.014F, 0.009F, distance));
        base += palette::gold * (0.45F * bell(distance - 0.017F, 0.005F));
        const float marks = std::min(std::fabs(v - 0.025F), std::fabs(v - 0.975F));
        const float dash = 16 * u - std::floor(16 * u);
        return base + palette::amber *
                          (0.7F * smoothStep(0.008F, 0.004F, marks) * smoothStep(0.30F, 0.25F, std::fabs(dash - 0.5F)));
    });
    picture = withBloom(picture, {2, 0.12F, 9, 0.10F}, Edge::wrap);
    writeBitmap(path, developed(picture, {1.35F, true, 0.6F}));
}

} // namespace lumenfold::art
