// The end scroller: 512 x 1400, wraps, so its first and last rows are the same ground.

#include "artwork/lettering/lettering.h"
#include "artwork/lettering/name.h"
#include "forge/canvas.h"
#include "forge/encode.h"

#include <cairo.h>

namespace lumenfold::art {

namespace {

using Face = Canvas::Face;

constexpr std::uint32_t ink = 0x05070D, deep = 0x0B2A33, petrol = 0x14525C, teal = 0x2FB7A8, ice = 0xEAF6FF,
                        amber = 0xFF8A1E, ember = 0x8C1F0A;
constexpr int width = 512;
constexpr int height = 1400;

// Faceted planes, drawn three times so that what leaves at the bottom comes in at the top.
void drawGround(const Canvas& canvas) {
    for (int copy = -1; copy <= 1; ++copy) {
        const auto y = static_cast<float>(copy * height);
        const auto facet = [&](std::initializer_list<Point2> corners, Canvas::Stop from, Canvas::Stop to) {
            canvas.plane(corners, from, to);
        };
        facet({{0, y + 40}, {300, y + 210}, {120, y + 520}, {0, y + 430}}, {petrol, 0.60}, {deep, 0.10});
        facet({{300, y + 210}, {512, y + 120}, {512, y + 420}, {120, y + 520}}, {deep, 0.75}, {ink, 0.0});
        facet({{512, y + 420}, {120, y + 520}, {260, y + 760}, {512, y + 700}}, {0x1B6A74, 0.38}, {deep, 0.05});
        facet({{120, y + 520}, {0, y + 430}, {0, y + 900}, {260, y + 760}}, {deep, 0.60}, {ink, 0.0});
        facet({{260, y + 760}, {512, y + 700}, {512, y + 1010}, {330, y + 1060}}, {amber, 0.17}, {ember, 0.0});
        facet({{260, y + 760}, {330, y + 1060}, {90, y + 1230}, {0, y + 900}}, {petrol, 0.50}, {ink, 0.05});
        facet({{330, y + 1060}, {512, y + 1010}, {512, y + 1400}, {90, y + 1230}}, {deep, 0.70}, {ink, 0.0});
        facet({{90, y + 1230}, {420, y + 1365}, {0, y + 1440}, {0, y + 1180}}, {0x1B6A74, 0.28}, {deep, 0.0});
        const float creases[][4] = {{0, 40, 300, 210},      {300, 210, 512, 120},  {300, 210, 120, 520},
                                    {0, 430, 120, 520},     {120, 520, 512, 420},  {120, 520, 260, 760},
                                    {260, 760, 512, 700},   {260, 760, 0, 900},    {260, 760, 330, 1060},
                                    {330, 1060, 512, 1010}, {330, 1060, 90, 1230}, {90, 1230, 0, 1180}};
        for (const auto& c : creases) {
            canvas.ink(ice, 0.14);
            canvas.line(static_cast<double>(c[0]), static_cast<double>(c[1] + y), static_cast<double>(c[2]),
                        static_cast<double>(c[3] + y), 0.9);
        }
    }
}

class Column {
  public:
    explicit Column(const Canvas& target) : canvas(target) {}
    double y = 0;

    void centred(const std::string& words, Face face, double size, std::uint32_t colour, double spacing) {
        canvas.ink(colour);
        canvas.text((width - canvas.widthOf(words, face, size, spacing)) / 2, y, words, face, size, spacing);
    }
    void rule(double wide) {
        canvas.ink(teal, 0.7);
        canvas.rectangle((width - wide) / 2, y, wide, 1);
        canvas.ink(amber);
        canvas.rectangle(width / 2.0 - 3, y - 2.5, 6, 6);
    }
    void role(const std::string& name, std::initializer_list<const char*> lines) {
        centred(name, Face::TextBold, 17, 0x8FE8DA, 3);
        y += 30;
        for (const char* line : lines) {
            centred(line, Face::StrongBold, 25, ice, 0.4);
            y += 31;
        }
        y += 40;
    }

  private:
    const Canvas& canvas;
};

} // namespace

void makeEndScroll(const std::string& path) {
    const Canvas canvas(width, height, ink);
    drawGround(canvas);
    cairo_t* cairo = canvas.cairo();
    cairo_save(cairo);
    cairo_translate(cairo, (width - nameWidth() * 0.8) / 2, 62);
    cairo_scale(cairo, 0.8, 0.8);
    canvas.ink(teal, 0.22);
    drawName(cairo, 3);
    canvas.ink(ice);
    drawName(cairo, 0);
    cairo_restore(cairo);

    Column column(canvas);
    column.y = 146;
    column.centred("light folded into matter", Face::TextBold, 19, 0x8FE8DA, 1.4);
    column.y = 186;
    column.rule(300);
    column.y = 248;
    column.role("CODE", {"every pixel by our own hand", "no accelerator was harmed"});
    column.role("PICTURES", {"signed distance and patience", "one ray at a time"});
    column.role("OBJECTS", {"shells, ribs and a quiet face"});
    column.role("MUSIC", {"twelve tones, one crease", "sixty-four rows a page"});
    column.role("SYNC", {"the tune leads,", "the picture follows"});
    column.rule(220);
    column.y += 52;
    column.centred("greetings", Face::StrongBold, 34, amber, 1);
    column.y += 40;
    for (const char* line : {"to everyone who draws in code", "to everyone who codes in music",
                             "to those who keep old machines warm", "to those who start tonight"}) {
        column.centred(line, Face::Strong, 21, ice, 0.3);
        column.y += 31;
    }
    column.y += 34;
    column.rule(220);
    column.y += 60;
    column.centred("thank you for watching", Face::StrongBold, 32, ice, 0.4);
    column.y += 36;
    column.centred("fold it again", Face::TextBold, 19, 0x8FE8DA, 2);
    writeBitmap(path, canvas.bitmap());
}

} // namespace lumenfold::art
