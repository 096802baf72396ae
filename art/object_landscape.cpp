// The landscape of the flight: a cave of coral along z with ribs, arches and spires, crystals that glow, and daybreak
// beyond both ends. The camera stays within x 6.5 to 13.7, y 2.5, z -10 to 5 and turns all the way round.

#include "art/dressing.h"
#include "art/isosurface.h"
#include "art/noise.h"
#include "art/objects.h"
#include "art/shapes.h"
#include "core/trig.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double back = -80;
constexpr double front = 30;

double noise(Point p, double size, std::uint32_t seed) {
    const auto at = [size](double x) { return static_cast<float>(x / size); };
    return static_cast<double>(fractalNoise({at(p.x), at(p.y), at(p.z)}, 3, seed));
}

// Distance into the free space, negative where one can fly.
double wall(Point p) {
    const double x = (p.x - 10 - 1.6 * trig::sin(p.z * 0.11)) / 1.25;
    const double y = p.y - 2.5;
    const double around = std::sqrt(x * x + y * y);
    const double angle = trig::atan2(y, x);
    const double folds = 0.7 * trig::sin(angle * 6 + p.z * 0.35) + 0.5 * trig::sin(angle * 11 - p.z * 0.55);
    return around - 11.5 + folds + 3.2 * noise(p, 9, 701);
}

// Ribs of the cave: rings that stand slightly askew, thicker at their feet.
double ribs(Point p) {
    const double step = 11;
    const double lean = p.z + 0.22 * (p.x - 10) + 0.9 * trig::sin(p.y * 0.35);
    const double index = std::floor(lean / step + 0.5);
    const double along = lean - index * step;
    const double x = (p.x - 10 - 1.6 * trig::sin(p.z * 0.11)) / 1.25;
    const double y = p.y - 2.5;
    const double out = std::sqrt(x * x + y * y) - 10.2;
    const double thick = 0.85 + 0.35 * trig::sin(index * 2.1) + std::max(-y, 0.0) * 0.07;
    return std::sqrt(along * along + out * out) - thick + 0.5 * noise(p, 3, 702);
}

struct Spire {
    Point foot, tip;
    double radius;
};
// Spires from the water and stumps from the roof, clear of the camera's way.
constexpr Spire spires[] = {
    {{3.2, -5, 17}, {4.4, 6.5, 16}, 1.7},   {{15.5, -5, 22}, {14.2, 4.2, 21}, 1.5},
    {{9, -6, 26}, {8.3, 2.4, 26}, 1.6},     {{-1, -5, 2}, {0.8, 5.0, 1}, 1.8},
    {{20.5, -5, 9}, {19.5, 6.0, 8}, 1.7},   {{21.5, -5, -3}, {20.2, 3.4, -4}, 1.4},
    {{-0.5, -5, -14}, {1, 3.2, -15}, 1.5},  {{17.5, -6, -24}, {17, 5.5, -25}, 1.7},
    {{4, -6, -31}, {4.6, 3.4, -32}, 1.6},   {{3, 15, -3}, {3.4, 7.0, -4}, 1.5},
    {{17, 15, 14}, {16.4, 7.5, 14}, 1.4},   {{9, 16, -21}, {9.6, 9.2, -20}, 1.6},
    {{20, -6, -44}, {18.5, 4.8, -44}, 1.9}, {{1, -6, -55}, {2, 6.2, -55}, 1.9},
    {{11, 16, 24}, {11, 8.5, 23}, 1.5},
};

double space(Point p) {
    double d = solid::join(ribs(p), -wall(p), 1.2);
    // what stands clear of d by more than noise and fillet changes nothing; most of the cave is spared the noise
    for (const Spire& s : spires)
        if (const double spire = solid::capsule(p, s.foot, s.tip, s.radius, 0.25); spire < d + 1.5)
            d = solid::join(d, spire + 0.45 * noise(p, 2.2, 703), 0.9);
    // an arch from wall to wall ahead of the camera
    if (const double arch = solid::torus({p.y + 3, p.z - 13, p.x - 10}, {}, 9.0, 0.9); arch < d + 1.5)
        d = solid::join(d, arch + 0.5 * noise(p, 2.5, 704), 0.8);
    return std::max({-d, p.z - front, back - p.z});
}

// A long hexagonal crystal.
void addCrystal(Model& model, Point foot, Point direction, double size, std::uint32_t surface) {
    const Point up = normalized(direction);
    const Point side = normalized(cross(up, std::fabs(up.x) < 0.8 ? Point{1, 0, 0} : Point{0, 0, 1}));
    const Point across = cross(up, side);
    const std::size_t first = model.triangles.size();
    const auto ring = [&](double height, double radius) {
        std::vector<std::uint32_t> points;
        for (int k = 0; k < 6; ++k) {
            const double a = k * 1.0471975511965976;
            points.push_back(model.addPoint(foot + up * (height * size) + side * (trig::cos(a) * radius * size) +
                                            across * (trig::sin(a) * radius * size)));
        }
        return points;
    };
    const auto low = ring(0, 0.10);
    const auto high = ring(0.72, 0.17);
    const std::uint32_t tip = model.addPoint(foot + up * size);
    const std::uint32_t root = model.addPoint(foot - up * (0.1 * size));
    for (std::size_t k = 0; k < 6; ++k) {
        const std::size_t next = (k + 1) % 6;
        model.addQuad(low[k], high[k], high[next], low[next], surface);
        model.addTriangle(high[k], tip, high[next], surface);
        model.addTriangle(low[next], root, low[k], surface);
    }
    if (dot(model.normal(model.triangles[first]),
            model.centroid(model.triangles[first]) - (foot + up * (0.36 * size))) < 0)
        for (std::size_t i = first; i < model.triangles.size(); ++i)
            std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
}

// A bunch of crystals that spreads about the direction.
void addCluster(Model& model, Point foot, Point direction, double size, Lamp lamp, int crystals) {
    const int number = static_cast<int>(model.surfaces.size());
    const double y = foot.y + normalized(direction).y * size * 0.55;
    const std::uint32_t surface =
        addSurface(model, "crystal" + std::to_string(number), lampMap(lamp, Axis::X, y, size * 1.05, 40));
    for (int k = 0; k < crystals; ++k) {
        const auto spread = [&](int axis) { return 0.9 * (static_cast<double>(hashUnit(number, k, axis, 705)) - 0.5); };
        const Point d = normalized(direction) + Point{spread(0), spread(1) * 0.6, spread(2)};
        addCrystal(model, foot + Point{spread(3), 0, spread(4)} * (0.5 * size), d, size * (1 - 0.13 * k), surface);
    }
}

} // namespace

Model makeLandscape() {
    Model model = meshSolid(space, {-10, -13, back - 2}, {30, 19, front + 2}, 0.80);
    simplify(model, 5600);
    model.flip();
    model.surfaces.clear();
    model.addSurface({"unused", {}, {}, {}});
    // daybreak: its horizon lies on the water
    const std::uint32_t dawn = addSurface(model, "dawn", {"dawn1.jpg", Axis::Z, {10, 2.0, 0}, {34, 26, 1}});
    for (Triangle& t : model.triangles) {
        const Point c = model.centroid(t);
        if ((c.z > front - 0.4 || c.z < back + 0.4) && std::fabs(model.normal(t).z) > 0.7)
            t.surface = dawn;
    }
    const std::uint32_t ribbed = model.addSurface({"ribbed", {}, {}, {}});
    for (Triangle& t : model.triangles)
        if (t.surface == 0 && model.centroid(t).y > -0.8 && ribs(model.centroid(t)) < 0.5)
            t.surface = ribbed;
    dress(model, 0, "rock", "cave1.jpg", 15);
    dress(model, ribbed, "rib", "coral1.jpg", 11);
    for (const Spire& s : spires)
        addCluster(model, {s.foot.x + (s.foot.x < 10 ? 1.5 : -1.5), s.foot.y > 0 ? s.tip.y + 2.5 : -0.8, s.foot.z - 1},
                   {s.foot.x < 10 ? 0.5 : -0.5, s.foot.y > 0 ? -1.0 : 1.0, 0}, 2.2,
                   static_cast<int>(s.foot.z) % 2 == 0 ? Lamp::amber : Lamp::teal, 5);
    for (int i = -6; i <= 2; ++i)
        for (const double side : {-1.0, 1.0})
            addCluster(model, {10 + side * 9.8, -0.4, i * 11 + 5 + side * 3}, {-side * 0.4, 1, 0}, 1.7,
                       (i + (side > 0 ? 1 : 0)) % 2 == 0 ? Lamp::teal : Lamp::amber, 3);
    return model;
}

} // namespace lumenfold::art
