#pragma once

#include "forge/picture.h"

#include <cairo.h>
#include <functional>
#include <string>

namespace lumenfold::art {

// A drawing in colour with type, made four times as large as the finished picture and averaged down. Coordinates are
// pixels of the finished picture; colours are 0xRRGGBB as a screen shows them.
class Canvas {
  public:
    enum class Face { Text, TextBold, Strong, StrongBold }; // Jura medium and bold, Play regular and bold

    Canvas(int width, int height, std::uint32_t ground);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    cairo_t* cairo() const { return context; }
    void ink(std::uint32_t rgb, double alpha = 1) const;
    void rectangle(double x, double y, double width, double height) const;
    void line(double x0, double y0, double x1, double y1, double thickness) const;

    // A filled polygon whose colour runs from the first point to the third.
    struct Stop {
        std::uint32_t rgb;
        double alpha;
    };
    void plane(std::initializer_list<Point2> corners, Stop from, Stop to) const;

    // Writes a line of UTF-8 text from the baseline point; spacing is added after every letter. Returns its width.
    // Throws std::runtime_error, with the package's name, when the face is not installed.
    double text(double x, double y, const std::string& words, Face face, double size, double spacing = 0) const;
    double widthOf(const std::string& words, Face face, double size, double spacing = 0) const;

    Bitmap bitmap() const;

  private:
    void select(Face face, double size) const;
    int width;
    int height;
    cairo_surface_t* surface;
    cairo_t* context;
};

// What `draw` paints with Cairo, in pixels from the upper left corner, as coverage: 0 untouched, 1 painted, in all
// three channels. The source is set to opaque white before the call.
Picture coverage(int width, int height, const std::function<void(cairo_t*)>& draw);

} // namespace lumenfold::art
