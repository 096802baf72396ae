// The small set behind the frame: centre piece, claw, fire pole with its base, and nameplate.

#include "art/isosurface.h"
#include "art/objects.h"
#include "art/shapes.h"
#include "core/trig.h"

#include <cmath>

namespace lumenfold::art {

namespace {

void dress(Model& model, const char* name, const char* image, double tile) {
    model.surfaces.clear();
    model.addSurface({"unused", {}, {}, {}});
    const DirectionalSurfaces s = addTiledSurfaces(model, name, image, tile);
    model.assignByDirection(s.x, s.y, s.z, 0);
}

} // namespace

Model makeCentrepiece() {
    Model model = meshSolid(
        [](Point p) {
            double d = solid::box(p, {0, -0.12, 0}, {0.30, 0.05, 0.30}, 0.02);
            d = std::min(d, solid::torus(p, {0, 0.02, 0}, 0.24, 0.035));
            return solid::join(d, solid::torus(p, {0, 0.10, 0}, 0.16, 0.03), 0.03);
        },
        {-0.4, -0.3, -0.4}, {0.4, 0.3, 0.4}, 0.022);
    simplify(model, 1500);
    dress(model, "metal", "eftex.jpg", 0.5);
    return model;
}

Model makeClaw() {
    Model model = meshSolid(
        [](Point p) {
            double d = solid::box(p, {-0.02, -0.14, 0}, {0.12, 0.05, 0.10}, 0.02);
            const Point joints[5] = {{0, -0.12, 0}, {-0.06, 0.08, 0}, {0.0, 0.26, 0}, {0.14, 0.38, 0}, {0.30, 0.40, 0}};
            for (int i = 0; i < 4; ++i)
                d = solid::join(d, solid::capsule(p, joints[i], joints[i + 1], 0.065 - 0.013 * i, 0.052 - 0.013 * i),
                                0.03);
            return d;
        },
        {-0.3, -0.3, -0.2}, {0.45, 0.6, 0.2}, 0.02);
    simplify(model, 900);
    dress(model, "claw", "petrolenv.jpg", 0.6);
    return model;
}

Model makeFirePole() {
    Model model;
    model.addSurface({"fire", {255, 138, 30}, {{"cell1.jpg", Axis::Z, {}, {0.3, 0.8, 0.3}}}, {}});
    std::vector<std::vector<Point>> rings;
    for (int i = 0; i <= 10; ++i)
        rings.push_back(ringAround({0, 0.1 + i * 0.07, 0}, 0.075 + 0.02 * trig::sin(i * 1.1), 16));
    addSkin(model, rings, 0);
    const Triangle& first = model.triangles[0];
    const Point centre = model.centroid(first);
    if (dot(model.normal(first), {centre.x, 0, centre.z}) < 0)
        model.flip();
    return model;
}

Model makeFireBase() {
    Model model;
    model.addSurface({"glow", {255, 138, 30}, {{"cell1.jpg", Axis::Y, {}, {0.5, 0.5, 0.5}}}, {}});
    std::vector<std::vector<Point>> rings;
    for (int i = 0; i <= 4; ++i)
        rings.push_back(ringAround({0, -0.16 + i * 0.02, 0}, 0.30 - i * 0.05, 24));
    addSkin(model, rings, 0);
    if (model.normal(model.triangles[0]).y < 0)
        model.flip();
    return model;
}

Model makeNameplate() {
    Model model;
    model.addSurface({"plate", {255, 217, 160}, {{"cubet4.jpg", Axis::Z, {0, 0.22, 0}, {0.8, 0.2, 1}}}, {}});
    std::vector<std::vector<Point>> rows;
    for (int i = 0; i <= 2; ++i) {
        rows.emplace_back();
        for (int k = 0; k <= 8; ++k)
            rows.back().push_back({-0.4 + k * 0.1, 0.12 + i * 0.1, 0});
    }
    addSheet(model, rows, 0);
    return model;
}

} // namespace lumenfold::art
