// The strips of text beside the scenes: the verse at the left of the ring, the roles beside the showcase, the
// greetings beside the ray tunnel, and the banner of the twin tunnel.

#include "artwork/lettering/lettering.h"
#include "forge/canvas.h"
#include "forge/encode.h"

#include <cairo.h>

namespace lumenfold::art {

namespace {

using Face = Canvas::Face;

constexpr std::uint32_t ink = 0x05070D, deep = 0x0B2A33, petrol = 0x14525C, teal = 0x2FB7A8, ice = 0xEAF6FF,
                        amber = 0xFF8A1E, ember = 0x8C1F0A;

struct Verse {
    const char* strong;
    const char* lines[4];
};

} // namespace

// Added onto the picture, so black is clear; wraps after 512 rows, so the last verse leaves room for the first.
void makeTextStrip(const std::string& path) {
    constexpr Verse verses[] = {
        {"light", {"is a sheet", "of paper.", "fold it once:", "a crease."}},
        {"sound", {"is a hand", "that folds", "in time,", "row by row."}},
        {"matter", {"is what stays", "when folded", "light", "grows cold."}},
        {"you", {"are the fold", "in which", "all of this", "is bright."}},
    };
    const Canvas canvas(128, 512, 0);
    double y = 26;
    int number = 1;
    for (const Verse& verse : verses) {
        canvas.ink(amber, 0.9);
        canvas.rectangle(10, y - 6, 6, 6);
        canvas.ink(teal, 0.8);
        canvas.text(22, y, "0" + std::to_string(number++), Face::TextBold, 9, 1);
        canvas.ink(teal, 0.45);
        canvas.rectangle(38, y - 3.4, 76, 0.8);
        canvas.ink(ice, 0.92);
        canvas.text(9, y + 27, verse.strong, Face::StrongBold, 27, 0.4);
        canvas.ink(0xBFEDE6, 0.78);
        double row = y + 45;
        for (const char* line : verse.lines) {
            canvas.text(11, row, line, Face::TextBold, 13, 0.5);
            row += 15.5;
        }
        y += 128;
    }
    writeBitmap(path, withTrueBlack(canvas.bitmap(), 6));
}

// Added at the right edge over a dark place; 91 x 351.
void makeRoleStrip(const std::string& path) {
    constexpr const char* roles[][2] = {
        {"code", "every pixel"}, {"pictures", "every ray"}, {"objects", "every fold"}, {"music", "every row"}};
    const Canvas canvas(91, 351, 0);
    canvas.plane({{91, 0}, {91, 351}, {0, 351}, {0, 0}}, {0x0E3A44, 0.55}, {ink, 0.2});
    canvas.plane({{91, 20}, {91, 150}, {18, 230}, {40, 120}}, {teal, 0.34}, {deep, 0});
    canvas.plane({{91, 150}, {91, 262}, {30, 330}, {18, 230}}, {amber, 0.30}, {ember, 0});
    canvas.plane({{40, 120}, {18, 230}, {0, 180}}, {ice, 0.15}, {teal, 0});
    canvas.ink(ice, 0.5);
    canvas.line(91, 20, 40, 120, 0.7);
    canvas.line(40, 120, 18, 230, 0.7);
    canvas.line(18, 230, 30, 330, 0.7);
    for (int i = 0; i < 351; i += 6) {
        canvas.ink(teal, i % 30 == 0 ? 0.9 : 0.35);
        canvas.rectangle(5, i, i % 30 == 0 ? 7 : 3, 0.9);
    }
    double y = 38;
    for (const auto& role : roles) {
        canvas.ink(amber);
        canvas.rectangle(17, y - 7, 5.5, 5.5);
        canvas.ink(0x8FE8DA);
        canvas.text(26, y - 1.2, role[0], Face::TextBold, 11, 0.5);
        canvas.ink(ice);
        canvas.text(17, y + 14, role[1], Face::StrongBold, 12.5, 0.1);
        canvas.ink(ice, 0.3);
        canvas.rectangle(17, y + 20, 66, 0.8);
        y += 78;
    }
    canvas.ink(teal, 0.8);
    cairo_set_line_width(canvas.cairo(), 1);
    cairo_rectangle(canvas.cairo(), 0.5, 0.5, 90, 350);
    cairo_stroke(canvas.cairo());
    writeBitmap(path, canvas.bitmap());
}

// Opaque, repeats after 256 columns: dark metal with a crease of light and the name.
void makeBanner(const std::string& path) {
    const Canvas canvas(256, 36, deep);
    canvas.plane({{0, 0}, {256, 0}, {256, 36}, {0, 36}}, {petrol, 0.0}, {petrol, 0.0});
    for (int i = 0; i < 4; ++i) { // folded planes, the last one continued by the first
        const auto x = static_cast<float>(i * 64);
        canvas.plane({{x, 0}, {x + 64, 0}, {x + 64, 36}, {x + 24, 36}}, {0x1B6A74, 0.75}, {ink, 0.55});
        canvas.plane({{x, 0}, {x + 24, 36}, {x, 36}}, {ink, 0.65}, {deep, 0.2});
        canvas.ink(ice, 0.28);
        canvas.line(static_cast<double>(x), 0, static_cast<double>(x) + 24, 36, 0.7);
    }
    canvas.ink(ink, 0.55);
    canvas.rectangle(0, 7, 256, 22);
    canvas.ink(teal, 0.9);
    canvas.rectangle(0, 0, 256, 1.2);
    canvas.rectangle(0, 34.8, 256, 1.2);
    canvas.ink(amber, 0.9);
    for (int i = 0; i < 32; ++i)
        canvas.rectangle(i * 8 + 2, 3.2, i % 4 == 0 ? 4 : 1.5, 1.4);
    for (int i = 0; i < 32; ++i)
        canvas.rectangle(i * 8 + 2, 31.4, i % 4 == 2 ? 4 : 1.5, 1.4);
    canvas.ink(ice);
    const double wide = canvas.text(14, 23.6, "lumenfold", Face::StrongBold, 18, 1.6);
    canvas.ink(amber);
    canvas.rectangle(14 + wide + 8, 14.5, 7, 7);
    canvas.ink(0x8FE8DA);
    canvas.text(14 + wide + 23, 22.6, "light, folded", Face::TextBold, 14, 0.8);
    writeBitmap(path, canvas.bitmap());
}

// Opaque, 32 x 2048, scrolls up and wraps: one line of type turned by a quarter, read from top to bottom.
void makeGreetings(const std::string& path) {
    const Canvas canvas(32, 2048, ink);
    cairo_t* cairo = canvas.cairo();
    for (int i = 0; i < 16; ++i) {
        const auto y = static_cast<float>(i * 128);
        canvas.plane({{0, y}, {32, y + 12}, {32, y + 128}, {0, y + 128}}, {petrol, 0.75}, {ink, 0.2});
        canvas.ink(ice, 0.35);
        canvas.line(0, static_cast<double>(y), 32, static_cast<double>(y) + 12, 0.8);
    }
    for (int y = 0; y < 2048; y += 8) {
        canvas.ink(teal, y % 64 == 0 ? 0.9 : 0.4);
        canvas.rectangle(0, y, y % 64 == 0 ? 5 : 2.5, 1);
    }
    canvas.ink(teal, 0.8);
    canvas.rectangle(31, 0, 1, 2048);
    const char* greetings[] = {
        "greetings fold out to", "all who count cycles", "tracker hands",   "pixel eyes",    "vertex benders",
        "the night coders",      "whoever shares",       "whoever listens", "whoever stays", "and to you"};
    cairo_translate(cairo, 0, 0);
    cairo_rotate(cairo, 1.5707963267948966);
    double total = 0;
    for (const char* words : greetings)
        total += canvas.widthOf(words, Face::StrongBold, 19, 0.8);
    const double gap = (2048 - total) / 10;
    double x = gap / 2;
    for (const char* words : greetings) {
        const bool first = words == greetings[0];
        canvas.ink(first ? amber : ice);
        x += canvas.text(x, -11, words, Face::StrongBold, 19, 0.8);
        canvas.ink(amber);
        canvas.rectangle(x + gap / 2 - 3.5, -20.5, 7, 7);
        x += gap;
    }
    writeBitmap(path, canvas.bitmap());
}

} // namespace lumenfold::art
