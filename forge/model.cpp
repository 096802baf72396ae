#include "forge/model.h"

#include <cmath>
#include <map>
#include <tuple>
#include <utility>

namespace lumenfold::art {

std::uint32_t Model::addSurface(Surface surface) {
    surfaces.push_back(std::move(surface));
    return static_cast<std::uint32_t>(surfaces.size() - 1);
}

std::uint32_t Model::addPoint(Point point) {
    points.push_back(point);
    return static_cast<std::uint32_t>(points.size() - 1);
}

void Model::addTriangle(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t surface) {
    triangles.push_back({{a, b, c}, surface});
}

void Model::addQuad(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d, std::uint32_t surface) {
    addTriangle(a, b, c, surface);
    addTriangle(a, c, d, surface);
}

void Model::append(const Model& other, const std::function<Point(Point)>& place, std::uint32_t surface) {
    const auto base = static_cast<std::uint32_t>(points.size());
    for (const Point& point : other.points)
        points.push_back(place(point));
    for (const Triangle& t : other.triangles)
        addTriangle(base + t.corners[0], base + t.corners[1], base + t.corners[2], surface + t.surface);
}

Point Model::normal(const Triangle& triangle) const {
    const Point& a = points[triangle.corners[0]];
    return normalize(cross(points[triangle.corners[1]] - a, points[triangle.corners[2]] - a));
}

Point Model::centroid(const Triangle& triangle) const {
    return (points[triangle.corners[0]] + points[triangle.corners[1]] + points[triangle.corners[2]]) * (1.0 / 3);
}

void Model::flip() {
    for (Triangle& triangle : triangles)
        std::swap(triangle.corners[1], triangle.corners[2]);
}

void Model::weld(double distance) {
    std::map<std::tuple<long, long, long>, std::uint32_t> seen;
    std::vector<Point> kept;
    std::vector<std::uint32_t> newIndex(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Point& p = points[i];
        const auto cell =
            std::make_tuple(std::lround(p.x / distance), std::lround(p.y / distance), std::lround(p.z / distance));
        const auto [place, isNew] = seen.emplace(cell, static_cast<std::uint32_t>(kept.size()));
        if (isNew)
            kept.push_back(p);
        newIndex[i] = place->second;
    }
    points = std::move(kept);
    std::vector<Triangle> whole;
    for (Triangle triangle : triangles) {
        for (std::uint32_t& corner : triangle.corners)
            corner = newIndex[corner];
        const auto& [a, b, c] = triangle.corners;
        if (a != b && b != c && c != a)
            whole.push_back(triangle);
    }
    triangles = std::move(whole);
}

void Model::assignByDirection(std::uint32_t surfaceX, std::uint32_t surfaceY, std::uint32_t surfaceZ,
                              std::uint32_t from) {
    for (Triangle& triangle : triangles) {
        if (triangle.surface != from)
            continue;
        const Point n = normal(triangle);
        const double x = std::fabs(n.x);
        const double y = std::fabs(n.y);
        const double z = std::fabs(n.z);
        triangle.surface = y >= x && y >= z ? surfaceY : x >= z ? surfaceX : surfaceZ;
    }
}

DirectionalSurfaces addTiledSurfaces(Model& model, const std::string& name, const std::string& image, double tile,
                                     Point centre) {
    const auto add = [&](const char* suffix, Axis axis) {
        return model.addSurface({name + suffix, {128, 128, 128}, {{image, axis, centre, {tile, tile, tile}}}, {}});
    };
    return {add("_x", Axis::X), add("_y", Axis::Y), add("_z", Axis::Z)};
}

} // namespace lumenfold::art
