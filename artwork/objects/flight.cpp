// The water under the flight, and the aircraft that comes up the cave.

#include "artwork/objects/objects.h"
#include "forge/dressing.h"
#include "forge/shapes.h"

#include <array>
#include <utility>

namespace lumenfold::art {

Model makeWater() {
    Model model;
    addSurface(model, "water", tiledMap("ripple.jpg", Axis::Y, {10, 0, 0}, {11, 1, 11}));
    std::vector<std::vector<Point>> rows;
    for (int i = 0; i <= 22; ++i) {
        rows.emplace_back();
        for (int k = 0; k <= 5; ++k)
            rows.back().push_back({-5 + k * 6.0, 0, -80 + i * 5.0});
    }
    addSheet(model, rows, 0);
    if (model.normal(model.triangles[0]).y < 0)
        model.flip();
    return model;
}

namespace {

// Adds a face whose front looks along the hint.
void addFace(Model& model, const std::vector<Point>& corners, Point hint, std::uint32_t surface) {
    std::vector<std::uint32_t> index;
    for (const Point& p : corners)
        index.push_back(model.addPoint(p));
    for (std::size_t i = 1; i + 1 < index.size(); ++i) {
        model.addTriangle(index[0], index[i], index[i + 1], surface);
        if (dot(model.normal(model.triangles.back()), hint) < 0)
            std::swap(model.triangles.back().corners[1], model.triangles.back().corners[2]);
    }
}

} // namespace

// A faceted wing of 8.4 units, nose to +z: dark plates, rims of ice along the leading edges. The second surface is
// added light: canopy slit, intakes, and the flare behind the engines.
Model makeAircraft() {
    Model model;
    const std::uint32_t hull = addSurface(model, "hull", tiledMap("hullpan.jpg", Axis::Y, {}, {3.2, 1, 3.2}));
    const std::uint32_t glow = addSurface(model, "glow", {"glow1.jpg", Axis::Z, {0, 0.35, 0}, {13, 6.5, 1}});
    const std::uint32_t rim = addSurface(model, "rim", lampMap(Lamp::teal, Axis::Z, 0.01, 0.16, 2.4));
    const std::uint32_t slit = addSurface(model, "slit", lampMap(Lamp::amber, Axis::Z, 0.52, 0.35, 2));
    const std::uint32_t side = addSurface(model, "side", tiledMap("hullpan.jpg", Axis::X, {}, {1, 2.2, 2.2}));
    const Point up{0, 1, 0}, down{0, -1, 0}, ahead{0, 0, 1}, behind{0, 0, -1};
    for (const double s : {-1.0, 1.0}) {
        const auto at = [s](double x, double y, double z) { return Point{s * x, y, z}; };
        const Point nose = at(0, 0.08, 3.6), noseLow = at(0, -0.05, 3.6);
        const Point edge = at(1.6, 0.08, 1.5), edgeLow = at(1.6, -0.06, 1.5);
        const Point tip = at(4.2, 0.04, -1.9), tipLow = at(4.2, -0.05, -1.9);
        const Point front = at(0, 0.42, 2.1), brow = at(0, 0.62, 1.5), peak = at(0, 1.0, 0.2);
        const Point cheek = at(0.42, 0.36, 1.75), temple = at(0.52, 0.55, 1.2), shoulder = at(0.95, 0.55, 0.1);
        const std::array<Point, 4> rear = {at(0, 0.40, -1.7), at(1.0, 0.20, -2.6), at(2.2, 0.16, -1.3),
                                           at(3.5, 0.06, -2.6)};
        const std::array<Point, 4> rearLow = {at(0, -0.22, -1.7), at(1.0, -0.12, -2.6), at(2.2, -0.1, -1.3),
                                              at(3.5, -0.08, -2.6)};
        const Point keel = at(0, -0.50, 0.6);
        for (const auto& face : {std::array<Point, 3>{nose, front, cheek},
                                 {nose, cheek, edge},
                                 {edge, cheek, temple},
                                 {edge, temple, shoulder},
                                 {brow, peak, temple},
                                 {peak, shoulder, temple},
                                 {peak, rear[0], shoulder},
                                 {shoulder, rear[0], rear[1]},
                                 {shoulder, rear[1], rear[2]},
                                 {shoulder, rear[2], edge},
                                 {edge, rear[2], rear[3]},
                                 {edge, rear[3], tip}})
            addFace(model, {face[0], face[1], face[2]}, up, hull);
        addFace(model, {front, brow, temple, cheek}, up + ahead, slit);
        for (const auto& face : {std::array<Point, 3>{noseLow, edgeLow, keel},
                                 {edgeLow, rearLow[2], keel},
                                 {keel, rearLow[2], rearLow[1]},
                                 {keel, rearLow[1], rearLow[0]},
                                 {edgeLow, tipLow, rearLow[3]},
                                 {edgeLow, rearLow[3], rearLow[2]}})
            addFace(model, {face[0], face[1], face[2]}, down, hull);
        addFace(model, {nose, edge, edgeLow, noseLow}, at(0.5, 0, 1), rim);
        addFace(model, {edge, tip, tipLow, edgeLow}, at(0.5, 0, 1), rim);
        addFace(model, {tip, rear[3], rearLow[3], tipLow}, at(1, 0, -1), side);
        for (std::size_t i = 0; i < 3; ++i)
            addFace(model, {rear[i], rear[i + 1], rearLow[i + 1], rearLow[i]}, behind, rim);
        // canted fins, seen from both sides
        const Point fin[] = {at(0.95, 0.35, -0.9), at(1.75, 1.35, -2.3), at(1.65, 1.30, -2.7), at(1.05, 0.2, -2.5)};
        addFace(model, {fin[0], fin[1], fin[2], fin[3]}, at(1, 0, 0), side);
        addFace(model, {fin[0], fin[1], fin[2], fin[3]}, at(-1, 0, 0), side);
    }
    // the flare behind the engines, seen from ahead, in pieces as the mapping is affine
    std::vector<std::vector<Point>> rows;
    for (int i = 0; i <= 6; ++i) {
        rows.emplace_back();
        for (int k = 0; k <= 12; ++k)
            rows.back().push_back({-6.4 + k * 12.8 / 12, 0.35 - 3.2 + i * 6.4 / 6, -2.8});
    }
    const std::size_t first = model.triangles.size();
    addSheet(model, rows, glow);
    if (model.normal(model.triangles[first]).z < 0)
        for (std::size_t i = first; i < model.triangles.size(); ++i)
            std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
    model.weld(1e-4);
    return model;
}

} // namespace lumenfold::art
