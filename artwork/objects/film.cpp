// The film strip: a band along x at z 0 with real holes, its ends curling away from the viewer. Two of its frames
// fill the screen exactly from their cameras; the others show the show's own matter.

#include "artwork/objects/objects.h"
#include "forge/dressing.h"
#include "forge/shapes.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double frameWidth = 0.5125;
constexpr double frameHeight = 0.384;
constexpr double pitch = 0.9;  // from frame to frame
constexpr int reach = 6;       // frames on each side
constexpr double cell = 0.09;  // from hole to hole
constexpr double rail = 0.212; // where the row of holes begins, above and below
constexpr double border = 0.312;

Point curled(Point p) {
    const double beyond = std::max(std::fabs(p.x + pitch / 2) - 1.0, 0.0);
    return {p.x, p.y, 0.10 * beyond * beyond};
}

// A rectangle facing the viewer, in columns as the strip curls.
void addPanel(Model& model, double left, double right, double low, double high, int columns, std::uint32_t surface) {
    std::vector<std::vector<Point>> rows(2);
    for (int k = 0; k <= columns; ++k) {
        const double x = left + (right - left) * k / columns;
        rows[0].push_back(curled({x, low, 0}));
        rows[1].push_back(curled({x, high, 0}));
    }
    addSheet(model, rows, surface);
}

// One hole with the film around it.
void addHole(Model& model, double x, double y, double halfHeight, std::uint32_t surface) {
    constexpr double w = 0.026;
    constexpr double h = 0.034;
    constexpr double cut = 0.012;
    const auto at = [&](double dx, double dy) { return model.addPoint(curled({x + dx, y + dy, 0})); };
    const double half = cell / 2;
    const std::uint32_t outer[4] = {at(-half, halfHeight), at(half, halfHeight), at(half, -halfHeight),
                                    at(-half, -halfHeight)};
    const std::uint32_t inner[8] = {at(-w, h - cut), at(-w + cut, h), at(w - cut, h),   at(w, h - cut),
                                    at(w, -h + cut), at(w - cut, -h), at(-w + cut, -h), at(-w, -h + cut)};
    for (std::size_t k = 0; k < 4; ++k) { // clockwise from the upper left corner
        model.addTriangle(outer[k], inner[2 * k + 1], inner[2 * k], surface);
        model.addQuad(outer[k], outer[(k + 1) % 4], inner[(2 * k + 2) % 8], inner[2 * k + 1], surface);
    }
}

} // namespace

Model makeFilm() {
    Model model;
    const auto frame = [&](const char* name, const char* image, double x) {
        return addSurface(model, name, {image, Axis::Z, {x, 0, 0}, {frameWidth, frameHeight, 1}});
    };
    const std::uint32_t last = frame("frame", "(none)", 0);
    const std::uint32_t first = frame("frame2", "(none)", -pitch);
    // the pitch is no multiple of the frame's width: each picture has its own place
    const char* matter[] = {"pool1.jpg", "paper1.jpg", "petrolenv.jpg", "cubet4.jpg", "slem4.jpg"};
    const std::uint32_t base = // drawn for one pitch, with a glint where each hole is
        addSurface(model, "base", {"film1.jpg", Axis::Z, {0, 0, 0}, {pitch, 2 * border, 1}});
    const std::uint32_t line = addSurface(model, "line", lampMap(Lamp::amber, Axis::Z, 0.202, 0.02, 0.9));
    const std::uint32_t lineLow = addSurface(model, "linelow", lampMap(Lamp::amber, Axis::Z, -0.202, 0.02, 0.9));
    for (int i = -reach; i <= reach; ++i) {
        const double x = pitch * i;
        const bool special = i == 0 || i == -1;
        const std::uint32_t picture =
            i == 0    ? last
            : i == -1 ? first
                      : frame(("matter" + std::to_string(i + reach)).c_str(), matter[(i + reach) % 5], x);
        addPanel(model, x - frameWidth / 2, x + frameWidth / 2, -frameHeight / 2, frameHeight / 2, special ? 1 : 4,
                 picture);
        addPanel(model, x + frameWidth / 2, x + pitch - frameWidth / 2, -frameHeight / 2, frameHeight / 2, 3, base);
    }
    const int cells = 2 * reach * 10;
    const double left = -pitch * reach;
    addPanel(model, left, -left, frameHeight / 2, rail, cells, line);
    addPanel(model, left, -left, -rail, -frameHeight / 2, cells, lineLow);
    for (int i = 0; i < cells; ++i)
        for (const double side : {-1.0, 1.0})
            addHole(model, left + (i + 0.5) * cell, side * (rail + border) / 2, (border - rail) / 2, base);
    for (Triangle& t : model.triangles)
        if (model.normal(t).z > 0)
            std::swap(t.corners[1], t.corners[2]);
    return model;
}

} // namespace lumenfold::art
