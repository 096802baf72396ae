// Bodies for environment maps: two organic blobs and the knot. Smooth closed surfaces; what colours them is
// chosen by the scenes, so their one surface has no texture.

#include "artwork/objects/objects.h"
#include "core/trig.h"
#include "forge/isosurface.h"
#include "forge/shapes.h"

#include <cmath>

namespace lumenfold::art {

namespace {

using namespace solid;

Model body(const Solid& field, double reach, double spacing, std::size_t triangles, double scale) {
    Model model = meshSolid(field, {-reach, -reach, -reach}, {reach, reach, reach}, spacing);
    simplify(model, triangles);
    for (Point& point : model.points)
        point = point * scale;
    model.addSurface({"skin", {20, 82, 92}, {}, {}});
    return model;
}

} // namespace

// A body of nine curved horns that grow out of each other.
Model makeBlob() {
    return body(
        [](Point p) {
            double d = sphere(p, {}, 0.78);
            for (int i = 0; i < 9; ++i) {
                const double a = i * 2.399963;
                const double y = 1 - 2 * (i + 0.5) / 9;
                const double r = std::sqrt(1 - y * y);
                const Point out{r * trig::cos(a), y, r * trig::sin(a)};
                const Point aside = normalized(cross(out, Point{0.3, 1, 0.2})) * 0.26;
                const Point knee = out * 0.98 + aside;
                const Point tip = out * (1.34 + 0.05 * (i % 3)) + aside * -0.5;
                d = join(d, capsule(p, out * 0.4, knee, 0.40, 0.25), 0.30);
                d = join(d, capsule(p, knee, tip, 0.25, 0.09), 0.13);
            }
            // shallow rings, as on shells
            return d + 0.012 * trig::sin(9 * length(p));
        },
        1.9, 0.042, 4000, 1.0);
}

Model makeSeed() {
    return body(
        [](Point p) {
            const double twist = 2.2 * p.y;
            const double x = p.x * trig::cos(twist) - p.z * trig::sin(twist);
            const double z = p.x * trig::sin(twist) + p.z * trig::cos(twist);
            double d = ellipsoid({x, p.y, z}, {}, {0.55, 1.35, 0.55});
            for (int i = 0; i < 3; ++i) {
                const double a = i * 2.0943951;
                d = join(d,
                         capsule({x, p.y, z}, Point{trig::cos(a), 0, trig::sin(a)} * 0.55 + Point{0, -0.9, 0},
                                 Point{trig::cos(a), 0, trig::sin(a)} * 0.55 + Point{0, 0.9, 0}, 0.2, 0.2),
                         0.22);
            }
            return d * 0.6;
        },
        1.6, 0.04, 3000, 0.40);
}

Model makeKnot() {
    return body(
        [](Point p) {
            double d = 1e9;
            const auto place = [](double t) {
                return Point{trig::sin(t) + 2 * trig::sin(2 * t), trig::cos(t) - 2 * trig::cos(2 * t),
                             -trig::sin(3 * t)} *
                       0.27;
            };
            for (int i = 0; i < 96; ++i) {
                const double t = i * 0.06544985;
                d = std::min(d, capsule(p, place(t), place(t + 0.06544985), 0.17, 0.17));
            }
            for (int i = 0; i < 18; ++i) {
                const Point from = place(i * 0.349066);
                const Point out = normalized(from + Point{0, 0, (i & 1) != 0 ? 0.5 : -0.5});
                d = join(d, capsule(p, from, from + out * 0.36, 0.10, 0.012), 0.07);
            }
            return d;
        },
        1.35, 0.033, 3600, 1.0);
}

} // namespace lumenfold::art
