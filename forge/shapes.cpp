#include "forge/shapes.h"

#include "core/trig.h"

#include <algorithm>
#include <cmath>

namespace lumenfold::art {

namespace {
constexpr double tau = 6.283185307179586;
}

void addBox(Model& model, Point low, Point high, std::uint32_t surface) {
    std::uint32_t corner[8];
    for (unsigned i = 0; i < 8; ++i)
        corner[i] = model.addPoint(
            {(i & 1) != 0 ? high.x : low.x, (i & 2) != 0 ? high.y : low.y, (i & 4) != 0 ? high.z : low.z});
    constexpr unsigned sides[6][4] = {{0, 2, 3, 1}, {5, 7, 6, 4}, {4, 6, 2, 0},
                                      {1, 3, 7, 5}, {2, 6, 7, 3}, {4, 0, 1, 5}};
    for (const auto& side : sides)
        model.addQuad(corner[side[0]], corner[side[1]], corner[side[2]], corner[side[3]], surface);
}

namespace {

std::vector<std::vector<std::uint32_t>> addPoints(Model& model, const std::vector<std::vector<Point>>& rows) {
    std::vector<std::vector<std::uint32_t>> index;
    for (const auto& row : rows) {
        index.emplace_back();
        for (const Point& point : row)
            index.back().push_back(model.addPoint(point));
    }
    return index;
}

void addStrips(Model& model, const std::vector<std::vector<Point>>& rows, std::uint32_t surface, bool closed) {
    const auto index = addPoints(model, rows);
    for (std::size_t r = 0; r + 1 < index.size(); ++r) {
        const std::size_t count = index[r].size();
        for (std::size_t i = 0; i + (closed ? 0 : 1) < count; ++i) {
            const std::size_t next = (i + 1) % count;
            model.addQuad(index[r][i], index[r + 1][i], index[r + 1][next], index[r][next], surface);
        }
    }
}

} // namespace

void addSkin(Model& model, const std::vector<std::vector<Point>>& rings, std::uint32_t surface) {
    addStrips(model, rings, surface, true);
}

void addSheet(Model& model, const std::vector<std::vector<Point>>& rows, std::uint32_t surface) {
    addStrips(model, rows, surface, false);
}

void addCap(Model& model, const std::vector<Point>& ring, std::uint32_t surface) {
    Point middle;
    for (const Point& point : ring)
        middle = middle + point * (1.0 / static_cast<double>(ring.size()));
    const std::uint32_t centre = model.addPoint(middle);
    const auto first = static_cast<std::uint32_t>(model.points.size());
    for (const Point& point : ring)
        model.addPoint(point);
    const auto count = static_cast<std::uint32_t>(ring.size());
    for (std::uint32_t i = 0; i < count; ++i)
        model.addTriangle(centre, first + i, first + (i + 1) % count, surface);
}

std::vector<Point> ringAround(Point centre, double radius, int count, double turn) {
    std::vector<Point> ring;
    for (int i = 0; i < count; ++i) {
        const double angle = turn + tau * i / count;
        ring.push_back(centre + Point{trig::sin(angle) * radius, 0, trig::cos(angle) * radius});
    }
    return ring;
}

namespace solid {

double sphere(Point p, Point centre, double radius) {
    return length(p - centre) - radius;
}

double ellipsoid(Point p, Point centre, Point radii) {
    const Point d = p - centre;
    const double k0 = length({d.x / radii.x, d.y / radii.y, d.z / radii.z});
    const double k1 = length({d.x / (radii.x * radii.x), d.y / (radii.y * radii.y), d.z / (radii.z * radii.z)});
    return k0 * (k0 - 1) / std::max(k1, 1e-6);
}

double capsule(Point p, Point a, Point b, double radiusA, double radiusB) {
    const Point d = b - a;
    const double t = std::clamp(dot(p - a, d) / std::max(dot(d, d), 1e-12), 0.0, 1.0);
    return length(p - (a + d * t)) - (radiusA + (radiusB - radiusA) * t);
}

double box(Point p, Point centre, Point half, double rounding) {
    const Point d{std::fabs(p.x - centre.x) - half.x + rounding, std::fabs(p.y - centre.y) - half.y + rounding,
                  std::fabs(p.z - centre.z) - half.z + rounding};
    const Point outside{std::max(d.x, 0.0), std::max(d.y, 0.0), std::max(d.z, 0.0)};
    return length(outside) + std::min(std::max({d.x, d.y, d.z}), 0.0) - rounding;
}

double torus(Point p, Point centre, double radius, double thickness) {
    const Point d = p - centre;
    const double around = std::sqrt(d.x * d.x + d.z * d.z) - radius;
    return std::sqrt(around * around + d.y * d.y) - thickness;
}

double join(double a, double b, double softness) {
    const double h = std::clamp(0.5 + 0.5 * (b - a) / softness, 0.0, 1.0);
    return b * (1 - h) + a * h - softness * h * (1 - h);
}

double carve(double a, double b, double softness) {
    return -join(-a, b, softness);
}
double common(double a, double b, double softness) {
    return -join(-a, -b, softness);
}

} // namespace solid

} // namespace lumenfold::art
