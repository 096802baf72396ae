#include "forge/shapes.h"

#include "core/trig.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumenfold::art {

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
        const double angle = turn + 2 * std::numbers::pi * i / count;
        ring.push_back(centre + Point{trig::sin(angle) * radius, 0, trig::cos(angle) * radius});
    }
    return ring;
}

} // namespace lumenfold::art
