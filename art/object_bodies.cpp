// Bodies for environment maps: the bust, two organic blobs and the knot. Smooth closed surfaces; what colours them is
// chosen by the scenes, so their one surface has no texture.

#include "art/isosurface.h"
#include "art/objects.h"
#include "art/shapes.h"
#include "core/trig.h"

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

// A head with closed eyes on a draped neck and shoulders; mirrored in x; face towards -z, about 2.4 high.
double bust(Point q) {
    const Point p{q.x, q.y, -q.z};
    const Point m{std::fabs(p.x), p.y, p.z};
    double d = ellipsoid(p, {0, 0.58, -0.06}, {0.375, 0.43, 0.47});
    d = join(d, ellipsoid(p, {0, 0.22, 0.12}, {0.265, 0.42, 0.33}), 0.16);
    d = join(d, capsule(m, {0, -0.135, 0.30}, {0.07, -0.12, 0.27}, 0.075, 0.07), 0.14);
    d = join(d, capsule(m, {0.10, -0.08, 0.24}, {0.27, 0.14, 0}, 0.07, 0.06), 0.12);
    d = join(d, sphere(m, {0.205, 0.25, 0.27}, 0.085), 0.12);
    d = join(d, capsule(m, {0.05, 0.475, 0.405}, {0.23, 0.49, 0.30}, 0.055, 0.045), 0.07);
    d = carve(d, ellipsoid(m, {0.145, 0.385, 0.47}, {0.10, 0.062, 0.115}), 0.07);
    d = join(d, ellipsoid(m, {0.14, 0.375, 0.335}, {0.078, 0.052, 0.06}), 0.025);
    d = join(d, capsule(p, {0, 0.44, 0.425}, {0, 0.235, 0.515}, 0.035, 0.055), 0.055);
    d = join(d, sphere(m, {0.048, 0.213, 0.465}, 0.036), 0.03);
    d = join(d, ellipsoid(p, {0, 0.112, 0.425}, {0.105, 0.030, 0.055}), 0.025);
    d = join(d, ellipsoid(p, {0, 0.052, 0.420}, {0.085, 0.032, 0.055}), 0.025);
    d = join(d, ellipsoid(m, {0.375, 0.36, -0.06}, {0.035, 0.125, 0.085}), 0.03);
    d = join(d, common(ellipsoid(p, {0, 0.62, -0.06}, {0.40, 0.475, 0.545}), m.x - 0.022, 0.01), 0.02);
    double neck = capsule(p, {0, 0, -0.10}, {0, -0.60, -0.14}, 0.20, 0.235);
    neck = join(neck, capsule(m, {0.23, 0.12, -0.08}, {0.05, -0.56, 0.14}, 0.045, 0.05), 0.07);
    neck = join(neck, capsule(m, {0, -0.62, -0.16}, {0.66, -0.80, -0.16}, 0.23, 0.20), 0.22);
    neck = join(neck, ellipsoid(p, {0, -1.02, -0.06}, {0.66, 0.48, 0.33}), 0.20);
    d = join(d, neck, 0.07);
    d = common(d, ellipsoid(p, {0, -0.30, -0.05}, {0.90, 1.25, 0.62}), 0.03);
    return common(d, -(p.y + 1.12 + 0.25 * m.x), 0.02);
}

} // namespace

Model makeBust() {
    return body([](Point p) { return bust(p + Point{0, -0.04, 0}); }, 1.3, 0.026, 3800, 10.5);
}

Model makeBlob() {
    return body(
        [](Point p) {
            double d = sphere(p, {}, 0.95);
            for (int i = 0; i < 7; ++i) {
                const double a = i * 2.399963;
                const double y = 1 - 2 * (i + 0.5) / 7;
                const double r = std::sqrt(1 - y * y);
                const Point place = Point{r * trig::cos(a), y, r * trig::sin(a)} * 1.12;
                d = join(d, sphere(p, place, 0.34 + 0.08 * (i % 3)), 0.35);
            }
            return d;
        },
        1.9, 0.045, 3000, 1.0);
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
