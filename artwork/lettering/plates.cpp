// Plates with drawn machinery: the circuit band added over the ring, and the frame laid over the metaballs.

#include "artwork/lettering/lettering.h"
#include "forge/canvas.h"
#include "forge/encode.h"
#include "forge/noise.h"

#include <algorithm>
#include <cairo.h>
#include <vector>

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

// Four letters, two to a row, so large that every edge of the screen cuts them, and a round window where they meet.
void letterHoles(const Canvas& canvas) {
    constexpr const char* letters[2][2] = {{"F", "O"}, {"L", "D"}};
    constexpr double size = 318; // capitals of 220 pixels
    for (int row = 0; row < 2; ++row)
        for (int column = 0; column < 2; ++column) {
            const char* const letter = letters[row][column];
            const double wide = canvas.widthOf(letter, Face::StrongBold, size);
            const double x = column == 0 ? -18 : 530 - wide;
            canvas.text(x, row == 0 ? 196 : 408, letter, Face::StrongBold, size);
        }
    cairo_arc(canvas.cairo(), 256, 192, 118, 0, turn);
    cairo_fill(canvas.cairo());
}

// How far a pixel is from the nearest hole, for the first few pixels: the bevel of the cut.
std::vector<float> fromHole(const Bitmap& mask, int reach) {
    std::vector<float> distance(static_cast<std::size_t>(mask.width) * mask.height, static_cast<float>(reach));
    for (int y = 0; y < mask.height; ++y)
        for (int x = 0; x < mask.width; ++x) {
            float& nearest = distance[static_cast<std::size_t>(y) * mask.width + x];
            for (int dy = -reach; dy <= reach; ++dy)
                for (int dx = -reach; dx <= reach; ++dx) {
                    const int px = std::clamp(x + dx, 0, mask.width - 1);
                    const int py = std::clamp(y + dy, 0, mask.height - 1);
                    if (mask.rgb[3 * (static_cast<std::size_t>(py) * mask.width + px)] >= 128)
                        nearest = std::min(nearest, length(static_cast<float>(dx), static_cast<float>(dy)));
                }
        }
    return distance;
}

} // namespace

// Opaque where it is not exactly white: ink with gold along the cut, which has no half-covered pixels, so that no white
// shines at its edge.
void makeOverlayPlate(const std::string& path) {
    constexpr int reach = 9;
    const Canvas hole(512, 384, 0);
    hole.ink(0xFFFFFF);
    letterHoles(hole);
    const Bitmap mask = hole.bitmap();
    const std::vector<float> distance = fromHole(mask, reach);
    Picture plate(512, 384);
    plate.change([&](Colour, int x, int y) {
        const float far = distance[static_cast<std::size_t>(y) * 512 + static_cast<std::size_t>(x)];
        const float u = static_cast<float>(x) / 512;
        const float v = static_cast<float>(y) / 384;
        const float sheen = bell(u - 0.25F - 0.5F * v, 0.10F) + 0.6F * bell(u - 0.62F - 0.5F * v, 0.05F);
        Colour light = mix(fromHex(0x03040C), fromHex(0x10206B), 0.30F + 0.45F * sheen);
        light = light * (1 + 0.25F * fractalNoise({6 * u, 90 * v, 1}, 2, 77));
        const float lit = smoothStep(1.2F, 0.1F, u + v - 0.25F);
        light += fromHex(0xFFC04A) * (bell(far - 1.0F, 0.9F) * (0.45F + 0.8F * lit));
        light += fromHex(0xFFC04A) * (0.10F * bell(far - 2.0F, 3.0F));
        return light;
    });
    Bitmap picture = developed(plate, {1, false, 0});
    for (std::size_t i = 0; i < picture.rgb.size(); ++i)
        picture.rgb[i] = mask.rgb[i] >= 128 ? 255 : std::min<std::uint8_t>(picture.rgb[i], 250);
    writeBitmap(path, picture);
}

} // namespace lumenfold::art
