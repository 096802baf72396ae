// Plates with drawn machinery: the circuit band added over the ring, and the frame laid over the metaballs.

#include "artwork/lettering/lettering.h"
#include "forge/canvas.h"
#include "forge/encode.h"
#include "forge/noise.h"

#include <cairo.h>

namespace lumenfold::art {

namespace {

using Face = Canvas::Face;

constexpr std::uint32_t ink = 0x05070D, deep = 0x0B2A33, petrol = 0x14525C, teal = 0x2FB7A8, ice = 0xEAF6FF,
                        amber = 0xFF8A1E;
constexpr double turn = 6.283185307179586;

void ring(const Canvas& canvas, double x, double y, double radius, double thickness, double from = 0,
          double to = turn) {
    cairo_set_line_width(canvas.cairo(), thickness);
    cairo_new_sub_path(canvas.cairo());
    cairo_arc(canvas.cairo(), x, y, radius, from, to);
    cairo_stroke(canvas.cairo());
}

// A segmented wheel with a light in its middle.
void wheel(const Canvas& canvas, double x, double y, double radius, int seed) {
    canvas.ink(petrol, 0.5);
    for (int i = 0; i < 24; ++i)
        if (hashUnit(i, seed, 1, 11) > 0.25F)
            ring(canvas, x, y, radius, 5.5, i * turn / 24, (i + 0.72) * turn / 24);
    canvas.ink(teal, 0.55);
    ring(canvas, x, y, radius - 4.6, 1.0);
    canvas.ink(amber, 0.75);
    const double start = static_cast<double>(hashUnit(seed, 2, 3, 12)) * turn;
    ring(canvas, x, y, radius - 8, 1.6, start, start + 1.9);
    canvas.ink(ice, 0.7);
    ring(canvas, x, y, 2.2, 1.4);
}

} // namespace

// Added; 512 x 70 with 40 rows in sight, running past four columns a frame: closes on itself sideways.
void makeCircuitBand(const std::string& path) {
    const Canvas canvas(512, 70, 0x02070A);
    for (int copy = -1; copy <= 1; ++copy) { // what leaves on the right comes in on the left
        cairo_save(canvas.cairo());
        cairo_translate(canvas.cairo(), copy * 512, 0);
        for (int track = 0; track < 9; ++track) {
            const double y = 4 + track * 7.75;
            double x = static_cast<double>(hashUnit(track, 0, 0, 21)) * 60;
            for (int piece = 0; x < 500; ++piece) {
                const double length = 20 + 70 * static_cast<double>(hashUnit(track, piece, 1, 22));
                const bool bright = hashUnit(track, piece, 2, 23) > 0.72F;
                canvas.ink(bright ? 0x8FE8DA : teal, bright ? 0.40 : 0.20);
                const double bend = hashUnit(track, piece, 3, 24) > 0.5F ? 7.75 : 0;
                canvas.line(x, y, x + length * 0.6, y, bright ? 1.1 : 0.8);
                if (bend > 0)
                    canvas.line(x + length * 0.6, y, x + length * 0.6 + bend, y + bend, 0.8);
                canvas.rectangle(x + length * 0.6 + bend - 1.3, y + bend - 1.3, 2.6, 2.6);
                if (hashUnit(track, piece, 4, 25) > 0.8F) {
                    canvas.ink(amber, 0.7);
                    canvas.rectangle(x - 2, y - 1.6, 5, 3.2);
                }
                x += length + 14;
            }
        }
        wheel(canvas, 70, 22, 17, 1);
        wheel(canvas, 182, 30, 24, 2);
        wheel(canvas, 300, 18, 13, 3);
        wheel(canvas, 372, 42, 22, 4);
        wheel(canvas, 470, 24, 18, 5);
        cairo_restore(canvas.cairo());
    }
    writeBitmap(path, canvas.bitmap());
}

namespace {

// The outline of the opening in the plate, with cut corners and a notch for the name.
void openingPath(cairo_t* cairo, double inset) {
    const double left = 22 + inset, right = 490 - inset, top = 26 + inset, bottom = 352 - inset, cut = 26;
    cairo_move_to(cairo, left + cut, top);
    cairo_line_to(cairo, 300 + inset, top);
    cairo_line_to(cairo, 312 + inset, top + 12);
    cairo_line_to(cairo, right, top + 12);
    cairo_line_to(cairo, right, bottom - cut);
    cairo_line_to(cairo, right - cut, bottom);
    cairo_line_to(cairo, 214 - inset, bottom);
    cairo_line_to(cairo, 200 - inset, bottom - 14);
    cairo_line_to(cairo, left, bottom - 14);
    cairo_line_to(cairo, left, top + cut);
    cairo_close_path(cairo);
}

void drawPlate(const Canvas& canvas) {
    canvas.plane({{0, 0}, {512, 0}, {512, 384}, {0, 384}}, {0x123F49, 1}, {ink, 1});
    canvas.plane({{0, 0}, {250, 0}, {130, 384}, {0, 384}}, {petrol, 0.75}, {deep, 0.1});
    canvas.plane({{330, 0}, {512, 0}, {512, 300}, {420, 120}}, {0x1B6A74, 0.6}, {ink, 0});
    canvas.ink(ice, 0.25);
    canvas.line(250, 0, 130, 384, 0.8);
    canvas.line(330, 0, 512, 210, 0.8);
    cairo_t* cairo = canvas.cairo();
    canvas.ink(teal, 0.95);
    cairo_set_line_width(cairo, 1.6);
    openingPath(cairo, -4);
    cairo_stroke(cairo);
    canvas.ink(amber, 0.95);
    cairo_set_line_width(cairo, 2.2);
    cairo_move_to(cairo, 40, 352 - 14 + 4.2);
    cairo_line_to(cairo, 170, 352 - 14 + 4.2);
    cairo_stroke(cairo);
    canvas.ink(ice, 0.95);
    canvas.text(318, 31, "lumenfold", Face::StrongBold, 20, 2);
    canvas.ink(0x8FE8DA);
    canvas.text(28, 372, "the surface is where light changes its mind", Face::TextBold, 13, 0.7);
    canvas.ink(amber);
    canvas.rectangle(470, 22, 8, 8);
    for (int i = 0; i < 60; ++i) {
        canvas.ink(teal, i % 5 == 0 ? 0.95 : 0.45);
        canvas.rectangle(i % 5 == 0 ? 3 : 6, 30 + i * 5.2, i % 5 == 0 ? 9 : 6, 1);
        canvas.rectangle(500, 30 + i * 5.2, i % 5 == 0 ? 9 : 6, 1);
    }
}

} // namespace

// Opaque where it is not exactly white: the plate is cut without half-covered pixels, so no white shines at its edge.
void makeOverlayPlate(const std::string& path) {
    const Canvas plate(512, 384, ink);
    drawPlate(plate);
    const Canvas hole(512, 384, 0);
    hole.ink(0xFFFFFF);
    openingPath(hole.cairo(), 0);
    cairo_fill(hole.cairo());
    Bitmap picture = plate.bitmap();
    const Bitmap mask = hole.bitmap();
    for (std::size_t i = 0; i < picture.rgb.size(); ++i)
        picture.rgb[i] = mask.rgb[i] >= 128 ? 255 : std::min<std::uint8_t>(picture.rgb[i], 254);
    writeBitmap(path, picture);
}

} // namespace lumenfold::art
