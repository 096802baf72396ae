// The welded plate that comes apart, and the film strip.

#include "art/objects.h"
#include "art/shapes.h"
#include "core/trig.h"

#include <cmath>

namespace lumenfold::art {

namespace {

// The plate fills the frame from the camera's first place: 5 x 3.75 units at distance 4.
constexpr Point plateCentre{0, 1.92, 0};
constexpr double plateBottom = 0.045;
constexpr double plateTop = 3.795;

// Where the tear runs at a height.
double tear(double y) {
    return 0.09 * trig::sin(y * 9.7) + 0.05 * trig::sin(y * 23.0 + 1) + 0.03 * trig::sin(y * 51.0);
}

Model makePlate(double outer) {
    Model model;
    model.addSurface({"plate", {128, 128, 128}, {{"(none)", Axis::Z, plateCentre, {5, 3.75, 1}}}, {}});
    std::vector<std::vector<Point>> rows;
    for (int i = 0; i <= 30; ++i) {
        const double y = plateBottom + (plateTop - plateBottom) * i / 30;
        rows.emplace_back();
        for (int k = 0; k <= 6; ++k)
            rows.back().push_back({outer + (tear(y) - outer) * k / 6, y, 0});
    }
    addSheet(model, rows, 0);
    if (model.normal(model.triangles[0]).z > 0)
        model.flip();
    return model;
}

} // namespace

Model makePlateLeft() {
    return makePlate(-2.5);
}
Model makePlateRight() {
    return makePlate(2.5);
}

Model makeFilmStrip() {
    Model model;
    constexpr double width = 0.5125;
    constexpr double height = 0.384;
    const auto frameMap = [](double x) { return PlanarMap{"(none)", Axis::Z, {x, 0, 0}, {width, height, 1}}; };
    const std::uint32_t now = model.addSurface({"frame", {128, 128, 128}, {frameMap(0)}, {}});
    const std::uint32_t before = model.addSurface({"frame2", {128, 128, 128}, {frameMap(-0.9)}, {}});
    const std::uint32_t strip =
        model.addSurface({"strip", {20, 20, 20}, {{"cubet4.jpg", Axis::Z, {}, {0.9, 0.9, 0.9}}}, {}});
    const auto panel = [&](double left, double right, double bottom, double top, std::uint32_t surface, int columns) {
        std::vector<std::vector<Point>> rows;
        for (int i = 0; i <= 4; ++i) {
            rows.emplace_back();
            for (int k = 0; k <= columns; ++k)
                rows.back().push_back({left + (right - left) * k / columns, bottom + (top - bottom) * i / 4, 0});
        }
        addSheet(model, rows, surface);
    };
    for (int i = -5; i <= 5; ++i) {
        const double x = 0.9 * i;
        panel(x - width / 2, x + width / 2, -height / 2, height / 2, i == 0 ? now : i == -1 ? before : strip, 6);
        panel(x + width / 2, x + 0.9 - width / 2, -height / 2, height / 2, strip, 4);
    }
    panel(-4.8, 4.8, height / 2, height / 2 + 0.09, strip, 60);
    panel(-4.8, 4.8, -height / 2 - 0.09, -height / 2, strip, 60);
    for (Triangle& triangle : model.triangles)
        if (model.normal(triangle).z > 0)
            std::swap(triangle.corners[1], triangle.corners[2]);
    return model;
}

} // namespace lumenfold::art
