#include "artwork/lettering/name.h"

#include <numbers>

namespace lumenfold::art {

namespace {

using std::numbers::pi;

constexpr double stroke = 10.5;
constexpr double half = stroke / 2;
constexpr double xHeight = 28;
constexpr double baseline = 62;
constexpr double ascender = 9;
constexpr double radius = 11;          // of every corner, on the middle of the stroke
constexpr double top = xHeight + half; // middle lines of the strokes
constexpr double bottom = baseline - half;

// The pen: strokes along straight lines and quarter circles. Angles in quarter turns, clockwise from the right.
class Pen {
  public:
    Pen(cairo_t* target, double start) : cairo(target), x(start) {
        cairo_set_line_width(cairo, stroke);
        cairo_set_line_join(cairo, CAIRO_LINE_JOIN_MITER);
    }
    double left() const { return x + half; }
    void from(double px, double py) { cairo_move_to(cairo, px, py); }
    void to(double px, double py) { cairo_line_to(cairo, px, py); }
    void turnRight(double cx, double cy, int from) {
        cairo_arc(cairo, cx, cy, radius, from * pi / 2, (from + 1) * pi / 2);
    }
    void turnLeft(double cx, double cy, int from) {
        cairo_arc_negative(cairo, cx, cy, radius, from * pi / 2, (from - 1) * pi / 2);
    }
    void end() { cairo_stroke(cairo); }
    void thin(bool on) { cairo_set_line_width(cairo, on ? stroke * 0.62 : stroke); }
    void closePath() { cairo_close_path(cairo); }
    void newPath() { cairo_new_sub_path(cairo); }
    void advance(double width, double gap = 10.5) { x += width + gap; }
    double origin() const { return x; }

  private:
    cairo_t* cairo;
    double x;
};

void letterL(Pen& pen) {
    const double x = pen.left();
    pen.from(x, ascender);
    pen.to(x, bottom - radius);
    pen.turnLeft(x + radius, bottom - radius, 2);
    pen.to(x + radius + 4, bottom);
    pen.end();
    pen.advance(stroke + radius + 1, 8);
}

void letterU(Pen& pen) {
    const double x = pen.left();
    const double right = x + 46 - stroke;
    pen.from(x, xHeight);
    pen.to(x, bottom - radius);
    pen.turnLeft(x + radius, bottom - radius, 2);
    pen.to(right, bottom);
    pen.end();
    pen.from(right, xHeight);
    pen.to(right, baseline);
    pen.end();
    pen.advance(46);
}

void arch(Pen& pen, double width, bool middle) {
    const double x = pen.left();
    const double right = x + width - stroke;
    pen.from(x, baseline);
    pen.to(x, xHeight);
    pen.end();
    pen.from(x, top);
    pen.to(right - radius, top);
    pen.turnRight(right - radius, top + radius, -1);
    pen.to(right, baseline);
    pen.end();
    if (middle) {
        pen.from((x + right) / 2, top);
        pen.to((x + right) / 2, baseline);
        pen.end();
    }
    pen.advance(width);
}

void letterE(Pen& pen) {
    const double x = pen.left();
    const double right = x + 46 - stroke;
    const double bar = (top + bottom) / 2 + 0.5;
    pen.from(right + 1, bottom);
    pen.to(x + radius, bottom);
    pen.turnRight(x + radius, bottom - radius, 1);
    pen.to(x, top + radius);
    pen.turnRight(x + radius, top + radius, 2);
    pen.to(right - radius, top);
    pen.turnRight(right - radius, top + radius, -1);
    pen.to(right, bar + half * 0.62);
    pen.end();
    pen.thin(true);
    pen.from(x + half + 3, bar + half * 0.31);
    pen.to(right, bar + half * 0.31);
    pen.end();
    pen.thin(false);
    pen.advance(46);
}

void letterF(Pen& pen) {
    const double x = pen.left() + 7;
    const double crown = ascender + half;
    pen.from(x, baseline);
    pen.to(x, crown + radius);
    pen.turnRight(x + radius, crown + radius, 2);
    pen.to(pen.origin() + 33, crown);
    pen.end();
    pen.from(pen.origin() - 2, top);
    pen.to(pen.origin() + 30, top);
    pen.end();
    pen.advance(33, 7);
}

void letterO(Pen& pen) {
    const double x = pen.left();
    const double right = x + 48 - stroke;
    pen.newPath();
    pen.turnRight(x + radius, top + radius, 2);
    pen.turnRight(right - radius, top + radius, 3);
    pen.turnRight(right - radius, bottom - radius, 0);
    pen.turnRight(x + radius, bottom - radius, 1);
    pen.closePath();
    pen.end();
    pen.advance(48);
}

void letterD(Pen& pen) {
    const double x = pen.left();
    const double right = x + 48 - stroke;
    pen.from(right, ascender);
    pen.to(right, baseline);
    pen.end();
    pen.from(right, top);
    pen.to(x + radius, top);
    pen.turnLeft(x + radius, top + radius, 3);
    pen.to(x, bottom - radius);
    pen.turnLeft(x + radius, bottom - radius, 2);
    pen.to(right, bottom);
    pen.end();
    pen.advance(48);
}

} // namespace

void drawName(cairo_t* cairo, double x) {
    Pen pen(cairo, x);
    letterL(pen);
    letterU(pen);
    arch(pen, 72, true);
    letterE(pen);
    arch(pen, 46, false);
    letterF(pen);
    letterO(pen);
    letterL(pen);
    letterD(pen);
}

double nameWidth() {
    constexpr double letters = 2 * (stroke + radius + 1) + 46 + 72 + 46 + 46 + 33 + 48 + 48;
    constexpr double gaps = 2 * 8 + 7 + 5 * 10.5;
    return letters + gaps;
}

} // namespace lumenfold::art
