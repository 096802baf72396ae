// The cube: bevelled edges and on each face a frame round a sunken lens.

#include "artwork/objects/objects.h"
#include "core/trig.h"
#include "forge/dressing.h"
#include "forge/shapes.h"

#include <cmath>
#include <initializer_list>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double half = 0.35;

// One face looking to -z, from its bevelled rim to the lens: a square, a frame, a cone, a dome.
struct Ring {
    double size;   // half the side, or the radius
    double round;  // 0 square, 1 circle
    double height; // over the face's plane, outwards
};
constexpr Ring rings[] = {{0.315, 0, 0},      {0.285, 0.10, 0.0}, {0.275, 0.12, -0.02}, {0.265, 0.3, -0.02},
                          {0.225, 1, -0.02},  {0.215, 1, 0.015},  {0.180, 1, 0.015},    {0.165, 1, -0.045},
                          {0.105, 1, -0.045}, {0.095, 1, -0.03},  {0.075, 1, 0.005},    {0.045, 1, 0.03},
                          {0.015, 1, 0.04}};
constexpr int around = 32;

std::vector<Point> ringOf(const Ring& ring) {
    std::vector<Point> points;
    for (const Point& p : ringAround({}, 1, around, 0.7853981633974483)) {
        const double square = 1 / std::max(std::fabs(p.x), std::fabs(p.z));
        const double s = ring.size * (square + (1 - square) * ring.round);
        points.push_back({p.x * s, p.z * s, -half - ring.height});
    }
    return points;
}

} // namespace

Model makeCube() {
    Model model;
    const std::uint32_t none = model.addSurface({"unused", {}, {}, {}});
    const Medallion medallions[3] = {addMedallion(model, Axis::Z, {}, 0.50), addMedallion(model, Axis::X, {}, 0.50),
                                     addMedallion(model, Axis::Y, {}, 0.50)};
    Model face;
    std::vector<std::vector<Point>> skin;
    for (const Ring& ring : rings)
        skin.push_back(ringOf(ring));
    addSkin(face, skin, 0);
    addCap(face, skin.back(), 0);
    if (face.normal(face.triangles[0]).z > 0)
        face.flip();
    if (face.normal(face.triangles.back()).z > 0)
        for (std::size_t i = face.triangles.size() - around; i < face.triangles.size(); ++i)
            std::swap(face.triangles[i].corners[1], face.triangles[i].corners[2]);
    const auto place = [](int side) {
        return [side](Point p) -> Point {
            switch (side) {
            case 0:
                return p; // -z
            case 1:
                return {-p.x, p.y, -p.z}; // +z
            case 2:
                return {p.z, p.y, -p.x}; // -x
            case 3:
                return {-p.z, p.y, p.x}; // +x
            case 4:
                return {p.x, p.z, -p.y}; // -y
            default:
                return {p.x, -p.z, p.y}; // +y
            }
        };
    };
    for (int side = 0; side < 6; ++side) {
        const std::size_t first = model.triangles.size();
        model.append(face, place(side), none);
        const Medallion& medallion = medallions[side / 2];
        for (std::size_t i = first; i < model.triangles.size(); ++i)
            model.triangles[i].surface = medallion.surfaceAt(model.centroid(model.triangles[i]));
    }
    // bevels between the faces: four corners of each face's rim, joined edge to edge and corner to corner
    const double b = 0.315;
    const auto rimAt = [b](int k) { // where the square rim's points lie along a side
        const double angle = 0.7853981633974483 * (k / 4.0 - 1);
        return b * trig::sin(angle) / trig::cos(angle);
    };
    const Point signs[8] = {{-1, -1, -1}, {1, -1, -1}, {-1, 1, -1}, {1, 1, -1},
                            {-1, -1, 1},  {1, -1, 1},  {-1, 1, 1},  {1, 1, 1}};
    const auto outward = [&](std::initializer_list<Point> corners) {
        std::vector<std::uint32_t> index;
        Point middle;
        for (const Point& p : corners) {
            index.push_back(model.addPoint(p));
            middle = middle + p * (1.0 / static_cast<double>(corners.size()));
        }
        for (std::size_t i = 1; i + 1 < index.size(); ++i) {
            const bool out = dot(cross(model.points[index[i]] - model.points[index[0]],
                                       model.points[index[i + 1]] - model.points[index[0]]),
                                 middle) > 0;
            model.addTriangle(index[0], out ? index[i] : index[i + 1], out ? index[i + 1] : index[i], none);
        }
    };
    for (const Point& s : signs)
        outward({{s.x * half, s.y * b, s.z * b}, {s.x * b, s.y * half, s.z * b}, {s.x * b, s.y * b, s.z * half}});
    for (const double u : {-1.0, 1.0})
        for (const double v : {-1.0, 1.0})
            for (int k = 0; k < 8; ++k) { // in the pieces that the rims have
                const double t0 = rimAt(k);
                const double t1 = rimAt(k + 1);
                outward({{u * half, v * b, t0}, {u * b, v * half, t0}, {u * b, v * half, t1}, {u * half, v * b, t1}});
                outward({{u * half, t0, v * b}, {u * b, t0, v * half}, {u * b, t1, v * half}, {u * half, t1, v * b}});
                outward({{t0, u * half, v * b}, {t0, u * b, v * half}, {t1, u * b, v * half}, {t1, u * half, v * b}});
            }
    dress(model, none, "bevel", "hullpan.jpg", 0.5);
    model.weld(1e-5);
    return model;
}

} // namespace lumenfold::art
