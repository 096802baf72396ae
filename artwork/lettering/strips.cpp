// The strips of text beside the scenes: the verse at the left of the ring, the roles beside the showcase, the
// greetings beside the ray tunnel, and the banner of the twin tunnel.

#include "artwork/lettering/lettering.h"
#include "core/trig.h"
#include "forge/canvas.h"
#include "forge/encode.h"

#include <cairo.h>

namespace lumenfold::art {

namespace {

using Face = Canvas::Face;

struct Verse {
    const char* strong;
    const char* lines[4];
};

} // namespace

// Added onto the picture, so black is clear; wraps after 512 rows, so the last verse leaves room for the first.
Bitmap makeTextStrip() {
    constexpr Verse verses[] = {
        {"light", {"is a sheet", "of paper.", "fold it once:", "a crease."}},
        {"sound", {"is a hand", "that folds", "in time,", "row by row."}},
        {"matter", {"is what stays", "when folded", "light", "grows cold."}},
        {"you", {"are the fold", "in which", "all of this", "is bright."}},
    };
    constexpr std::uint32_t silver = 0xF2F6FF, blue = 0x4E7BFF, vermilion = 0xFF3B1F;
    const Canvas canvas(128, 512, 0);
    double y = 26;
    int number = 1;
    for (const Verse& verse : verses) {
        canvas.ink(vermilion, 0.95);
        canvas.rectangle(10, y - 6, 6, 6);
        canvas.ink(blue, 0.9);
        canvas.text(22, y, "0" + std::to_string(number++), Face::TextBold, 9, 1);
        canvas.ink(blue, 0.5);
        canvas.rectangle(38, y - 3.4, 76, 0.8);
        canvas.ink(silver, 0.95);
        canvas.text(9, y + 27, verse.strong, Face::StrongBold, 27, 0.4);
        canvas.ink(0xC4D2FF, 0.8);
        double row = y + 45;
        for (const char* line : verse.lines) {
            canvas.text(11, row, line, Face::TextBold, 13, 0.5);
            row += 15.5;
        }
        y += 128;
    }
    return withTrueBlack(canvas.bitmap(), 6);
}

// Added at the right edge over a dark place; 91 x 351.
Bitmap makeRoleStrip() {
    constexpr std::uint32_t ivory = 0xE9E6DC, stone = 0x9FA7A9, vermilion = 0xE23B1C;
    constexpr const char* roles[][2] = {
        {"code", "every pixel"}, {"pictures", "every ray"}, {"objects", "every fold"}, {"music", "every row"}};
    const Canvas canvas(91, 351, 0);
    canvas.plane({{91, 20}, {91, 190}, {18, 230}, {40, 120}}, {stone, 0.22}, {stone, 0.02});
    canvas.plane({{91, 190}, {91, 300}, {30, 330}, {18, 230}}, {vermilion, 0.55}, {vermilion, 0.05});
    canvas.plane({{40, 120}, {18, 230}, {0, 180}}, {ivory, 0.12}, {ivory, 0});
    canvas.ink(ivory, 0.55);
    canvas.line(91, 20, 40, 120, 0.7);
    canvas.line(40, 120, 18, 230, 0.7);
    canvas.line(18, 230, 30, 330, 0.7);
    double y = 26;
    for (const auto& role : roles) {
        canvas.ink(vermilion);
        canvas.rectangle(10, y - 7, 6, 6);
        canvas.ink(stone);
        canvas.text(21, y - 1.2, role[0], Face::TextBold, 11, 0.5);
        canvas.ink(ivory);
        canvas.text(10, y + 15, role[1], Face::StrongBold, 13.5, 0.1);
        y += 66;
    }
    return canvas.bitmap();
}

// Opaque, repeats after 256 columns and also runs upside down: bars that swell and shrink, 16 above and 18 below, so
// that the two rows drift in and out of step like a moire.
Bitmap makeBanner() {
    const Canvas canvas(256, 36, 0x12042A);
    constexpr std::uint32_t violet = 0x5B1A8C, magenta = 0xE83FA8, gold = 0xFFC857, white = 0xFFF1D0;
    const auto row = [&](int bars, double centre, double height, std::uint32_t rgb, double phase) {
        const double step = 256.0 / bars;
        for (int bar = 0; bar < bars; ++bar) {
            const double turn = 6.283185307179586 * (bar + 0.5) / bars + phase;
            const double swell = 0.5 + 0.5 * trig::sin(turn);
            const double width = 1.0 + (step - 3.0) * swell;
            const double tall = height * (0.45 + 0.55 * swell);
            canvas.ink(rgb, 0.55 + 0.45 * swell);
            canvas.rectangle((bar + 0.5) * step - 0.5 * width, centre - 0.5 * tall, width, tall);
        }
    };
    canvas.ink(violet, 0.55);
    canvas.rectangle(0, 3, 256, 30);
    row(16, 11.5, 12.0, magenta, 0.0);
    row(18, 24.5, 12.0, gold, 3.1);
    row(32, 18.0, 2.0, white, 1.5);
    canvas.ink(gold, 0.9);
    canvas.rectangle(0, 0, 256, 1.2);
    canvas.rectangle(0, 34.8, 256, 1.2);
    return canvas.bitmap();
}

// Opaque, 32 x 2048, scrolls up and wraps: one line of type turned by a quarter, read from top to bottom.
Bitmap makeGreetings() {
    constexpr std::uint32_t night = 0x12010A, blood = 0x5A0718, red = 0xC81E2B, ember = 0xFF7A3C, bone = 0xFFE3B8;
    const Canvas canvas(32, 2048, night);
    cairo_t* cairo = canvas.cairo();
    for (int i = 0; i < 16; ++i) {
        const auto y = static_cast<float>(i * 128);
        canvas.plane({{0, y}, {32, y}, {32, y + 128}, {0, y + 128}}, {blood, 0.9}, {night, 0.2});
    }
    canvas.ink(red, 0.9);
    canvas.rectangle(0, 0, 1.2, 2048);
    canvas.rectangle(30.8, 0, 1.2, 2048);
    const char* greetings[] = {
        "greetings fold out to", "all who count cycles", "tracker hands",  "pixel eyes",   "vertex benders",
        "the night coders",      "all who share",        "all who listen", "all who stay", "and to you"};
    cairo_rotate(cairo, 1.5707963267948966);
    double total = 0;
    for (const char* words : greetings)
        total += canvas.widthOf(words, Face::StrongBold, 20, 0.8);
    const double gap = (2048 - total) / 10;
    double x = gap / 2;
    for (const char* words : greetings) {
        canvas.ink(words == greetings[0] ? ember : bone);
        x += canvas.text(x, -10.5, words, Face::StrongBold, 20, 0.8);
        canvas.ink(ember);
        canvas.rectangle(x + gap / 2 - 3.5, -19.5, 7, 7);
        x += gap;
    }
    return canvas.bitmap();
}

} // namespace lumenfold::art
