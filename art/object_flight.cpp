// The flight: landscape tube, water and aircraft.

#include "art/isosurface.h"
#include "art/objects.h"
#include "art/shapes.h"
#include "core/trig.h"

#include <cmath>

namespace lumenfold::art {

Model makeLandscape() {
    std::vector<std::vector<Point>> rings;
    for (int i = 0; i <= 56; ++i) {
        const double z = -82 + i * 2.0;
        rings.emplace_back();
        for (int k = 0; k < 32; ++k) {
            const double angle = -k * 0.19634954;
            const double bulge = 1.2 * trig::sin(z * 0.31 + 2 * angle) + 1.0 * trig::sin(z * 0.17 - 5 * angle);
            const double radius = 13 + bulge + (i == 0 || i == 56 ? -13.9 : 0);
            const double r = i == 0 || i == 56 ? 0.01 : radius;
            rings.back().push_back({10 + trig::cos(angle) * r * 1.15, 2 + trig::sin(angle) * r * 0.75, z});
        }
    }
    Model model;
    model.addSurface({"unused", {}, {}, {}});
    addSkin(model, rings, 0);
    if (dot(model.normal(model.triangles[640]), Point{10, 2, -40} - model.centroid(model.triangles[640])) < 0)
        model.flip();
    const DirectionalSurfaces s = addTiledSurfaces(model, "rock", "slem4.jpg", 9.0, {10, 2, 0});
    model.assignByDirection(s.x, s.y, s.z, 0);
    return model;
}

Model makeWater() {
    Model model;
    model.addSurface({"water", {47, 183, 168}, {{"cell1.jpg", Axis::Y, {10, 0, 0}, {14, 14, 14}}}, {}});
    std::vector<std::vector<Point>> rows;
    for (int i = 0; i <= 22; ++i) {
        rows.emplace_back();
        for (int k = 0; k <= 6; ++k)
            rows.back().push_back({-5 + k * 5.0, 0, -80 + i * 5.0});
    }
    addSheet(model, rows, 0);
    if (model.normal(model.triangles[0]).y < 0)
        model.flip();
    return model;
}

Model makeAircraft() {
    Model model;
    model.addSurface({"hull", {11, 42, 51}, {{"petrolenv.jpg", Axis::Y, {}, {9, 9, 9}}}, {}});
    model.addSurface({"glow", {255, 138, 30}, {{"bfs1x.jpg", Axis::Z, {}, {1, 1, 1}}}, {}});
    model.surfaces[1].colourMap[0].image = "cell1.jpg";
    const Point nose{0, 0, 3.2}, top{0, 0.8, -0.6}, tail{0, 0.25, -2.2}, belly{0, -0.35, -0.4};
    for (int side = -1; side <= 1; side += 2) {
        const Point tip{side * 4.0, -0.05, -2.4}, notch{side * 1.5, 0.05, -1.7}, shoulder{side * 1.1, 0.15, 0.6};
        const auto face = [&](Point a, Point b, Point c, std::uint32_t surface) {
            const std::uint32_t p = model.addPoint(a), q = model.addPoint(b), r = model.addPoint(c);
            const Point n = cross(b - a, c - a);
            const Point out = (a + b + c) * (1.0 / 3) - Point{0, 0.05, -0.6};
            if (dot(n, out) > 0)
                model.addTriangle(p, q, r, surface);
            else
                model.addTriangle(p, r, q, surface);
        };
        face(nose, shoulder, top, 0);
        face(shoulder, tip, notch, 0);
        face(shoulder, notch, top, 0);
        face(top, notch, tail, 0);
        face(nose, shoulder, belly, 0);
        face(shoulder, tip, belly, 0);
        face(tip, notch, belly, 0);
        face(notch, tail, belly, 1);
    }
    model.weld(1e-4);
    return model;
}

} // namespace lumenfold::art
