// The welded plate that comes apart in two torn halves.

#include "artwork/objects/objects.h"
#include "core/trig.h"
#include "forge/dressing.h"
#include "forge/shapes.h"

#include <cmath>
#include <utility>

namespace lumenfold::art {

namespace {

// The plate fills the frame from the camera's first place: 5 x 3.75 units at distance 4.
constexpr Point plateCentre{0, 1.92, 0};
constexpr double plateBottom = 0.045;
constexpr double plateTop = 3.795;
constexpr int steps = 72;

// Where the tear runs at a height: slow waves, then teeth.
double tear(double y) {
    const double saw = std::fabs(std::fmod(y * 7.3, 2.0) - 1) - 0.5;
    return 0.07 * trig::sin(y * 4.1 + 0.4) + 0.035 * trig::sin(y * 17.0 + 1) + 0.05 * saw + 0.02 * trig::sin(y * 61.0);
}

// The front must stay the first surface: the scene gives it the picture. The second one is the hot edge, on the front
// as a thin rim and along the thickness.
Model makePlate(double side) {
    Model model;
    addSurface(model, "plate", {"(none)", Axis::Z, plateCentre, {5, 3.75, 1}});
    const std::uint32_t edge = addSurface(model, "edge", tiledMap("fire1.jpg", Axis::X, {}, {1, 1.5, 0.16}));
    const std::uint32_t rim = addSurface(model, "rim", tiledMap("fire1.jpg", Axis::Z, {}, {0.5, 1.5, 1}));
    std::vector<std::vector<Point>> front;
    std::vector<std::vector<Point>> glow;
    std::vector<std::vector<Point>> thickness;
    for (int i = 0; i <= steps; ++i) {
        const double y = plateBottom + (plateTop - plateBottom) * i / steps;
        const double x = tear(y);
        front.emplace_back();
        for (int k = 0; k <= 8; ++k)
            front.back().push_back({side * 2.5 + (x - side * 2.5) * k / 8, y, 0});
        const double width = 0.022 + 0.012 * trig::sin(y * 29.0);
        glow.push_back({{x + side * width, y, -0.002}, {x, y, -0.002}});
        thickness.push_back({{x, y, -0.002}, {x, y, 0.10}});
    }
    const auto add = [&](const std::vector<std::vector<Point>>& rows, Point ahead, std::uint32_t surface) {
        const std::size_t first = model.triangles.size();
        addSheet(model, rows, surface);
        if (dot(model.normal(model.triangles[first]), ahead) < 0)
            for (std::size_t i = first; i < model.triangles.size(); ++i)
                std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
    };
    add(front, {0, 0, -1}, 0);
    add(thickness, {-side, 0, 0}, edge);
    add(glow, {0, 0, -1}, rim);
    return model;
}

} // namespace

Model makePlateLeft() {
    return makePlate(-1);
}
Model makePlateRight() {
    return makePlate(1);
}

} // namespace lumenfold::art
