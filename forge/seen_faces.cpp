#include "forge/seen_faces.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace lumenfold::art {

namespace {

constexpr double nearPlane = 0.2;

// What is known of a triangle: it never shows its front on the screen, something hides it, it is to be seen.
enum Seen : char { away, hidden, shown };

// A picture of triangle numbers, as one view sees them.
class SeenFaces {
  public:
    explicit SeenFaces(double height) : height_(height), depth_(columns * rows), face_(columns * rows) {}

    void look(const Model& model, const View& view, std::vector<Seen>& seen) {
        std::fill(depth_.begin(), depth_.end(), 0.0);
        std::fill(face_.begin(), face_.end(), none);
        const auto [right, up, ahead] = axesOf(view);
        std::vector<Point> places;
        for (const Point& p : model.points) {
            const Point d = p - view.place;
            places.push_back({dot(d, right), dot(d, up), dot(d, ahead)});
        }
        for (std::size_t i = 0; i < model.triangles.size(); ++i) {
            const auto& c = model.triangles[i].corners;
            const bool before = cut({places[c[0]], places[c[1]], places[c[2]]}, static_cast<std::uint32_t>(i));
            if (before && seen[i] == away)
                seen[i] = hidden;
        }
        for (const std::uint32_t face : face_)
            if (face != none)
                seen[face] = shown;
    }

  private:
    static constexpr int columns = 384;
    static constexpr int rows = 288;
    static constexpr std::uint32_t none = ~0U;

    // What lies in front of the near plane, as a fan of triangles. False when none of it shows its front on the screen.
    bool cut(const std::array<Point, 3>& corners, std::uint32_t face) {
        std::vector<Point> rest;
        for (std::size_t i = 0; i < 3; ++i) {
            const Point& a = corners[i];
            const Point& b = corners[(i + 1) % 3];
            if (a.z >= nearPlane)
                rest.push_back(onScreen(a));
            if ((a.z >= nearPlane) != (b.z >= nearPlane))
                rest.push_back(onScreen(a + (b - a) * ((nearPlane - a.z) / (b.z - a.z))));
        }
        bool any = false;
        for (std::size_t i = 1; i + 1 < rest.size(); ++i)
            any = fill(rest[0], rest[i], rest[i + 1], face) || any;
        return any;
    }

    // Column, row and 1 / z.
    Point onScreen(Point p) const {
        return {(p.x / p.z / halfFrameWidth + 1) * columns / 2, (1 - p.y / p.z / height_) * rows / 2, 1 / p.z};
    }

    bool fill(Point a, Point b, Point c, std::uint32_t face) {
        const double area = (b.x - a.x) * (c.y - a.y) - (c.x - a.x) * (b.y - a.y);
        if (area <= 0)
            return false; // its back
        const auto first = [](double low) { return static_cast<int>(std::ceil(std::max(low, 0.0) - 0.5)); };
        const double bottom = std::min(std::max({a.y, b.y, c.y}), static_cast<double>(rows));
        const double end = std::min(std::max({a.x, b.x, c.x}), static_cast<double>(columns));
        if (bottom < 0 || end < 0 || std::min({a.y, b.y, c.y}) > rows || std::min({a.x, b.x, c.x}) > columns)
            return false;
        for (int y = std::max(0, first(std::min({a.y, b.y, c.y}))); y + 0.5 <= bottom; ++y)
            for (int x = std::max(0, first(std::min({a.x, b.x, c.x}))); x + 0.5 <= end; ++x) {
                const double px = x + 0.5;
                const double py = y + 0.5;
                const double u = ((px - a.x) * (c.y - a.y) - (c.x - a.x) * (py - a.y)) / area;
                const double v = ((b.x - a.x) * (py - a.y) - (px - a.x) * (b.y - a.y)) / area;
                if (u < 0 || v < 0 || u + v > 1)
                    continue;
                const double z = a.z + (b.z - a.z) * u + (c.z - a.z) * v;
                const auto at = static_cast<std::size_t>(y) * columns + static_cast<std::size_t>(x);
                if (z > depth_[at]) {
                    depth_[at] = z;
                    face_[at] = face;
                }
            }
        return true;
    }

    double height_;
    std::vector<double> depth_;       // 1 / z
    std::vector<std::uint32_t> face_; // the nearest triangle, or none
};

void dropUnusedPoints(Model& model) {
    std::vector<std::uint32_t> place(model.points.size(), 0);
    for (const Triangle& t : model.triangles)
        for (const std::uint32_t corner : t.corners)
            place[corner] = 1;
    std::vector<Point> kept;
    for (std::size_t i = 0; i < place.size(); ++i)
        if (place[i] != 0) {
            place[i] = static_cast<std::uint32_t>(kept.size());
            kept.push_back(model.points[i]);
        }
    model.points = std::move(kept);
    for (Triangle& t : model.triangles)
        for (std::uint32_t& corner : t.corners)
            corner = place[corner];
}

} // namespace

void keepSeen(Model& model, const std::vector<View>& views, double height) {
    std::vector<Seen> seen(model.triangles.size(), away);
    SeenFaces picture(height);
    for (const View& view : views)
        picture.look(model, view, seen);
    std::vector<char> touched(model.points.size(), 0); // a corner of a triangle that is to be seen
    for (std::size_t i = 0; i < seen.size(); ++i)
        if (seen[i] == shown)
            for (const std::uint32_t corner : model.triangles[i].corners)
                touched[corner] = 1;
    std::vector<Triangle> kept;
    for (std::size_t i = 0; i < seen.size(); ++i) {
        const Triangle& t = model.triangles[i];
        const auto isTouched = [&](std::uint32_t corner) { return touched[corner] != 0; };
        if (seen[i] != away && std::any_of(t.corners.begin(), t.corners.end(), isTouched))
            kept.push_back(t);
    }
    model.triangles = std::move(kept);
    dropUnusedPoints(model);
}

void orderBy(Model& model, const std::function<double(Point)>& distance) {
    std::stable_sort(model.triangles.begin(), model.triangles.end(), [&](const Triangle& a, const Triangle& b) {
        return distance(model.centroid(a)) < distance(model.centroid(b));
    });
}

} // namespace lumenfold::art
