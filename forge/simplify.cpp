#include "forge/isosurface.h"

#include <algorithm>
#include <cmath>
#include <queue>
#include <set>

namespace lumenfold::art {

namespace {

// The squared distance to a set of planes as a quadratic form: symmetric 4 x 4, upper triangle.
struct Quadric {
    std::array<double, 10> q{};

    void addPlane(Point n, double d, double weight) {
        const double v[4] = {n.x, n.y, n.z, d};
        std::size_t slot = 0;
        for (int i = 0; i < 4; ++i)
            for (int j = i; j < 4; ++j)
                q[slot++] += weight * v[i] * v[j];
    }
    void add(const Quadric& other) {
        for (std::size_t i = 0; i < q.size(); ++i)
            q[i] += other.q[i];
    }
    double error(Point p) const {
        return q[0] * p.x * p.x + 2 * q[1] * p.x * p.y + 2 * q[2] * p.x * p.z + 2 * q[3] * p.x + q[4] * p.y * p.y +
               2 * q[5] * p.y * p.z + 2 * q[6] * p.y + q[7] * p.z * p.z + 2 * q[8] * p.z + q[9];
    }
    // The point of least error; false where the form is nearly flat.
    bool minimum(Point& p) const {
        const Point a{q[0], q[1], q[2]};
        const Point b{q[1], q[4], q[5]};
        const Point c{q[2], q[5], q[7]};
        const double det = dot(a, cross(b, c));
        const double scale = q[0] + q[4] + q[7];
        if (std::fabs(det) < 1e-4 * scale * scale * scale)
            return false;
        const Point r{-q[3], -q[6], -q[8]};
        p = {dot(r, cross(b, c)) / det, dot(a, cross(r, c)) / det, dot(a, cross(b, r)) / det};
        return true;
    }
};

struct Collapse {
    double error;
    std::uint32_t from;
    std::uint32_t to;
    std::uint32_t version; // sum of both ends' versions when it was weighed
    Point place;
    bool operator<(const Collapse& other) const {
        if (error != other.error)
            return error > other.error; // the smallest error first
        return from != other.from ? from > other.from : to > other.to;
    }
};

class Simplifier {
  public:
    explicit Simplifier(Model& target)
        : model(target), quadrics(target.points.size()), faces(target.points.size()), version(target.points.size()),
          fixed(target.points.size()) {
        for (std::uint32_t t = 0; t < model.triangles.size(); ++t)
            for (std::uint32_t corner : model.triangles[t].corners)
                faces[corner].insert(t);
        for (const Triangle& t : model.triangles) {
            const Point& a = model.points[t.corners[0]];
            const Point area = cross(model.points[t.corners[1]] - a, model.points[t.corners[2]] - a);
            const Point n = normalize(area);
            for (std::uint32_t corner : t.corners)
                quadrics[corner].addPlane(n, -dot(n, a), length(area));
        }
        alive = model.triangles.size();
        fixSeams();
        for (std::uint32_t p = 0; p < faces.size(); ++p)
            weighAround(p, true);
    }

    void run(std::size_t wanted) {
        while (alive > wanted && !queue.empty()) {
            const Collapse next = queue.top();
            queue.pop();
            if (faces[next.from].empty() || faces[next.to].empty() ||
                version[next.from] + version[next.to] != next.version || !allowed(next))
                continue;
            collapse(next);
        }
        pack();
    }

  private:
    std::set<std::uint32_t> neighbours(std::uint32_t p) const {
        std::set<std::uint32_t> around;
        for (std::uint32_t t : faces[p])
            for (std::uint32_t corner : model.triangles[t].corners)
                if (corner != p)
                    around.insert(corner);
        return around;
    }

    // Points on an open border or between two surfaces do not move.
    void fixSeams() {
        for (std::uint32_t p = 0; p < faces.size(); ++p) {
            if (faces[p].empty())
                continue;
            const std::uint32_t surface = model.triangles[*faces[p].begin()].surface;
            for (std::uint32_t t : faces[p])
                fixed[p] = fixed[p] || model.triangles[t].surface != surface;
            fixed[p] = fixed[p] || neighbours(p).size() != faces[p].size();
        }
    }

    void weigh(std::uint32_t a, std::uint32_t b) {
        if (fixed[a] || fixed[b])
            return;
        Quadric sum = quadrics[a];
        sum.add(quadrics[b]);
        Point place;
        const Point middle = (model.points[a] + model.points[b]) * 0.5;
        const double edge = length(model.points[a] - model.points[b]);
        if (!sum.minimum(place) || length(place - middle) > edge)
            place = middle;
        // long edges cost a little more, so that flat areas keep well-shaped triangles
        queue.push(
            {std::max(0.0, sum.error(place)) + 1e-7 * edge * edge * edge * edge, a, b, version[a] + version[b], place});
    }

    void weighAround(std::uint32_t p, bool onlyHigher) {
        for (std::uint32_t other : neighbours(p))
            if (!onlyHigher || other > p)
                weigh(p, other);
    }

    bool allowed(const Collapse& c) const {
        const std::set<std::uint32_t> a = neighbours(c.from);
        const std::set<std::uint32_t> b = neighbours(c.to);
        if (a.count(c.to) == 0)
            return false;
        std::size_t shared = 0;
        for (std::uint32_t p : a)
            shared += b.count(p);
        return shared == 2 && !turnsOver(c.from, c.to, c.place) && !turnsOver(c.to, c.from, c.place);
    }

    bool turnsOver(std::uint32_t moved, std::uint32_t other, Point place) const {
        for (std::uint32_t t : faces[moved]) {
            Triangle triangle = model.triangles[t];
            if (std::count(triangle.corners.begin(), triangle.corners.end(), other) != 0)
                continue;
            const Point before = model.normal(triangle);
            std::array<Point, 3> p;
            for (std::size_t i = 0; i < 3; ++i)
                p[i] = triangle.corners[i] == moved ? place : model.points[triangle.corners[i]];
            if (dot(before, normalize(cross(p[1] - p[0], p[2] - p[0]))) < 0.3)
                return true;
        }
        return false;
    }

    void collapse(const Collapse& c) {
        model.points[c.to] = c.place;
        quadrics[c.to].add(quadrics[c.from]);
        const std::set<std::uint32_t> moving = faces[c.from];
        for (std::uint32_t t : moving) {
            Triangle& triangle = model.triangles[t];
            if (faces[c.to].count(t) != 0) {
                for (std::uint32_t corner : triangle.corners)
                    faces[corner].erase(t);
                --alive;
            } else {
                std::replace(triangle.corners.begin(), triangle.corners.end(), c.from, c.to);
                faces[c.to].insert(t);
            }
        }
        faces[c.from].clear();
        ++version[c.to];
        weighAround(c.to, false);
    }

    void pack() {
        std::vector<std::uint32_t> newIndex(model.points.size());
        std::vector<Point> kept;
        std::set<std::uint32_t> living;
        for (std::uint32_t p = 0; p < faces.size(); ++p) {
            if (faces[p].empty())
                continue;
            newIndex[p] = static_cast<std::uint32_t>(kept.size());
            kept.push_back(model.points[p]);
            living.insert(faces[p].begin(), faces[p].end());
        }
        std::vector<Triangle> triangles;
        for (std::uint32_t t : living) {
            Triangle triangle = model.triangles[t];
            for (std::uint32_t& corner : triangle.corners)
                corner = newIndex[corner];
            triangles.push_back(triangle);
        }
        model.points = std::move(kept);
        model.triangles = std::move(triangles);
    }

    Model& model;
    std::vector<Quadric> quadrics;
    std::vector<std::set<std::uint32_t>> faces; // triangles around each point
    std::vector<std::uint32_t> version;
    std::vector<bool> fixed;
    std::priority_queue<Collapse> queue;
    std::size_t alive = 0;
};

} // namespace

void simplify(Model& model, std::size_t triangles) {
    if (model.triangles.size() > triangles)
        Simplifier(model).run(triangles);
}

} // namespace lumenfold::art
