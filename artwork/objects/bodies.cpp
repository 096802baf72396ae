// Bodies for environment maps: horns, a star of paper and the knot. Closed surfaces; what colours them is chosen by the
// scenes, so their one surface has no texture.

#include "artwork/objects/objects.h"
#include "core/trig.h"
#include "forge/isosurface.h"
#include "forge/sdf.h"
#include "forge/shapes.h"

#include <cmath>

namespace lumenfold::art {

namespace {

using namespace sdf;

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
            double d = sphere(p, 0.78);
            for (int i = 0; i < 9; ++i) {
                const double a = i * 2.399963;
                const double y = 1 - 2 * (i + 0.5) / 9;
                const double r = std::sqrt(1 - y * y);
                const Point out{r * trig::cos(a), y, r * trig::sin(a)};
                const Point aside = normalize(cross(out, Point{0.3, 1, 0.2})) * 0.26;
                const Point knee = out * 0.98 + aside;
                const Point tip = out * (1.34 + 0.05 * (i % 3)) + aside * -0.5;
                d = smoothUnion(d, capsule(p, out * 0.4, knee, 0.40, 0.25), 0.30);
                d = smoothUnion(d, capsule(p, knee, tip, 0.25, 0.09), 0.13);
            }
            // shallow rings, as on shells
            return d + 0.012 * trig::sin(9 * length(p));
        },
        1.9, 0.042, 4000, 1.0);
}

namespace {

// Faces of an icosahedron with its corners, and what lies between them, pushed in and out: paper folded along hard
// creases. Every facet has corners of its own, so that no normal is smoothed over a crease.
class Folding {
  public:
    void fold(Point a, Point b, Point c, int depth) {
        if (depth == 0) {
            const std::uint32_t first = model.addPoint(a);
            model.addPoint(b);
            model.addPoint(c);
            model.addTriangle(first, first + 1, first + 2, 0);
            return;
        }
        const double reach = depth == 2 ? 0.66 : 1.02; // of the corners around
        const Point ab = between(a, b, reach);
        const Point bc = between(b, c, reach);
        const Point ca = between(c, a, reach);
        fold(a, ab, ca, depth - 1);
        fold(ab, b, bc, depth - 1);
        fold(ca, bc, c, depth - 1);
        fold(ab, bc, ca, depth - 1);
    }

    Model model;

  private:
    static Point between(Point a, Point b, double reach) {
        return normalize(a + b) * (0.5 * (length(a) + length(b)) * reach);
    }
};

} // namespace

// A star of folded paper.
Model makePaperStar() {
    constexpr double golden = 1.618033988749895;
    const Point corners[] = {{-1, golden, 0}, {1, golden, 0}, {-1, -golden, 0}, {1, -golden, 0},
                             {0, -1, golden}, {0, 1, golden}, {0, -1, -golden}, {0, 1, -golden},
                             {golden, 0, -1}, {golden, 0, 1}, {-golden, 0, -1}, {-golden, 0, 1}};
    constexpr int faces[][3] = {{0, 11, 5},  {0, 5, 1},  {0, 1, 7},  {0, 7, 10}, {0, 10, 11}, {1, 5, 9}, {5, 11, 4},
                                {11, 10, 2}, {10, 7, 6}, {7, 1, 8},  {3, 9, 4},  {3, 4, 2},   {3, 2, 6}, {3, 6, 8},
                                {3, 8, 9},   {4, 9, 5},  {2, 4, 11}, {6, 2, 10}, {8, 6, 7},   {9, 8, 1}};
    Folding folding;
    for (const auto& face : faces)
        folding.fold(normalize(corners[face[0]]) * 0.62, normalize(corners[face[1]]) * 0.62,
                     normalize(corners[face[2]]) * 0.62, 2);
    folding.model.addSurface({"paper", {220, 214, 200}, {}, {}});
    return folding.model;
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
                const Point out = normalize(from + Point{0, 0, (i & 1) != 0 ? 0.5 : -0.5});
                d = smoothUnion(d, capsule(p, from, from + out * 0.36, 0.10, 0.012), 0.07);
            }
            return d;
        },
        1.35, 0.033, 3600, 1.0);
}

} // namespace lumenfold::art
