// The two rooms of the opening: the tunnel with its bend, seen from inside, and the hall.

#include "art/isosurface.h"
#include "art/objects.h"
#include "art/shapes.h"
#include "core/trig.h"

#include <algorithm>
#include <cmath>

namespace lumenfold::art {

namespace {

// Splits a model's surface 0 among three tiled surfaces by direction.
void dress(Model& model, const char* name, const char* image, double tile) {
    model.surfaces.clear();
    model.addSurface({"unused", {}, {}, {}});
    const DirectionalSurfaces s = addTiledSurfaces(model, name, image, tile);
    model.assignByDirection(s.x, s.y, s.z, 0);
}

} // namespace

Model makeTunnel() {
    const Solid space = [](Point p) {
        const double along = std::max(std::fabs(p.z + 2) - 18, 0.0);
        (void)along;
        double d = solid::capsule(p, {-0.3, 0, -20}, {-0.3, 0, 16}, 2.1, 2.1);
        d = solid::join(d, solid::capsule(p, {0, 0, 16}, {30, 0, 16}, 2.1, 2.1), 0.8);
        d = solid::join(d, solid::sphere(p, {0, 0, 16}, 3.6), 0.6);
        const double rib = std::max(std::fabs(p.z - std::round(p.z / 2.4) * 2.4) - 0.22, p.z - 12.5);
        const double ribAlongX = std::max(std::fabs(p.x - std::round(p.x / 2.4) * 2.4) - 0.22, 3.8 - p.x);
        const double ring = std::max(std::min(rib, ribAlongX), -(d + 0.30));
        return std::max(d, -ring);
    };
    Model model = meshSolid(space, {-5, -5, -23}, {33, 5, 21}, 0.22);
    simplify(model, 6000);
    model.flip();
    dress(model, "wall", "cubet4.jpg", 4.0);
    return model;
}

Model makeHall() {
    Model model;
    model.addSurface({"unused", {}, {}, {}});
    const auto room = [&](Point low, Point high) {
        Model inside;
        addBox(inside, low, high, 0);
        inside.flip();
        model.append(
            inside, [](Point p) { return p; }, 0);
    };
    room({-11, -4, -12}, {11, 26, 44});
    for (int i = 0; i < 6; ++i)
        for (int side = -1; side <= 1; side += 2) {
            const double z = -6 + i * 8.0;
            addBox(model, {side * 7.0 - 1, -4, z - 1}, {side * 7.0 + 1, 22, z + 1}, 0);
            addBox(model, {side * 7.0 - 1.5, -4, z - 1.5}, {side * 7.0 + 1.5, -2.6, z + 1.5}, 0);
            addBox(model, {side * 7.0 - 1.5, 21, z - 1.5}, {side * 7.0 + 1.5, 22.4, z + 1.5}, 0);
        }
    const DirectionalSurfaces s = addTiledSurfaces(model, "stone", "cubet4.jpg", 6.0);
    model.assignByDirection(s.x, s.y, s.z, 0);
    return model;
}

Model makeCube() {
    Model model;
    for (const auto& [name, axis] : {std::pair{"x", Axis::X}, {"y", Axis::Y}, {"z", Axis::Z}})
        model.addSurface({name, {128, 128, 128}, {{"cubet5.jpg", axis, {}, {0.7, 0.7, 0.7}}}, {}});
    addBox(model, {-0.35, -0.35, -0.35}, {0.35, 0.35, 0.35}, 0);
    model.assignByDirection(0, 1, 2, 0);
    return model;
}

} // namespace lumenfold::art
