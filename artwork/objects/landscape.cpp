// The landscape of the flight: a flooded vault of rock along z. Ribs carry pointed arches, strata run level through the
// bays between, crystals glow at the ribs' feet and crowns, haze takes the distance, and day breaks beyond both ends.
// The camera stays within x 6.5 to 13.7, y 2.5, z -10 to 5 and turns all the way round.

#include "artwork/objects/objects.h"
#include "core/trig.h"
#include "forge/dressing.h"
#include "forge/noise.h"
#include "forge/object_views.h"
#include "forge/seen_faces.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <string>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double middleX = 10;
constexpr double rise = 11; // from rib to rib along z
constexpr int firstRib = -7;
constexpr int lastRib = 2;
constexpr double ribPhase = 4; // rib 0 stands there
constexpr double back = -80;
constexpr double front = 30;
constexpr double shelf = -1.7;  // where the rock is lost in the water
constexpr double depth = -9;    // of the bed, which nothing lights
constexpr double wallTile = 20; // units of height in a picture of the strata, from -2 upwards

double noise(Point p, double size, std::uint32_t seed) {
    const auto at = [size](double x) { return static_cast<float>(x / size); };
    return static_cast<double>(fractalNoise({at(p.x), at(p.y), at(p.z)}, 2, seed));
}

// How far the vault reaches sideways at the water; it narrows towards daybreak ahead.
double halfWidth(double z) {
    return 11.6 - 0.055 * std::max(z - 8, 0.0) - 0.012 * std::max(-20 - z, 0.0);
}

// A ring of points round the vault: the left half up to the crown, then the right half down, below the water at both
// ends. A pointed arch of two circles about (-0.8, 0) and (0.8, 0), in half widths. inset: towards the middle.
constexpr int above = 9; // points of one side over the water
std::vector<Point> vault(double z, double inset) {
    std::vector<Point> ring;
    const double w = halfWidth(z);
    const double crown = 1.1102; // the angle at which the circles meet: cos = 0.8 / 1.8
    const double sway = middleX + 1.2 * trig::sin(z * 0.09);
    const auto add = [&](double side, double x, double y, double out) {
        Point p{sway + side * x, y, z};
        p = p + Point{side, 0.4, 0} * (0.8 * noise(p, 7, 701));
        const double foot = 0.55 / (1 + y * y * 0.15); // ribs stand on broader feet
        const double in = inset < 0 ? inset : inset * (1 + foot);
        ring.push_back(p - Point{side * trig::cos(out), trig::sin(out), 0} * in);
    };
    const auto half = [&](double side, bool up) {
        for (int i = 0; i <= above; ++i) {
            const int k = up ? i : above - i;
            const double a = crown * k / above;
            add(side, w * (1.8 * trig::cos(a) - 0.8), w * 1.8 * trig::sin(a), a);
        }
    };
    ring.push_back({sway - 0.8 * w, depth, z});
    ring.push_back({sway - w, shelf, z});
    half(-1, true);
    half(1, false);
    ring.push_back({sway + w, shelf, z});
    ring.push_back({sway + 0.8 * w, depth, z});
    return ring;
}

struct Station {
    double z;
    double inset;
};

std::vector<Station> stations() {
    std::vector<Station> all = {{back, 0}};
    for (int i = firstRib; i <= lastRib; ++i) {
        const double z = ribPhase + i * rise;
        if (i < -4) { // seen from afar
            all.insert(all.end(), {{z - 1.1, -0.2}, {z, 1.3}, {z + 1.1, -0.2}});
            continue;
        }
        all.insert(all.end(), {{z - 1.25, -0.2}, {z - 0.75, 1.1}, {z, 1.35}, {z + 0.75, 1.1}, {z + 1.25, -0.2}});
        if (i < lastRib) // the bay's niche
            all.insert(all.end(), {{z + 3.4, -0.9}, {z + 7.6, -0.9}});
    }
    all.push_back({front, 0});
    return all;
}

// Pictures of the same rock as it looks from near and through more and more haze.
int hazeAt(double z) {
    const double far = std::max(z - 5, -8 - z);
    return far < 14 ? 0 : far < 32 ? 1 : 2;
}

// The vault's picture holds a rib and a bay along its columns; needles show it along x as well.
struct Rock {
    std::uint32_t alongZ, alongX;
};

Rock addRock(Model& model, int haze) {
    const std::string number = std::to_string(haze + 1);
    const auto add = [&](const char* name, Axis axis, Point origin) {
        return addSurface(model, name + number,
                          tiledMap("cave" + number + ".jpg", axis, origin, {rise, wallTile, rise}));
    };
    return {add("rock", Axis::X, {0, wallTile - 2, ribPhase}), add("needle", Axis::Z, {0, wallTile - 2, 0})};
}

void addVault(Model& model, const Rock (&rocks)[3], std::uint32_t bed) {
    std::vector<std::uint32_t> last;
    double from = 0;
    for (const Station& s : stations()) {
        std::vector<std::uint32_t> ring;
        for (const Point& p : vault(s.z, s.inset))
            ring.push_back(model.addPoint(p));
        if (!last.empty()) {
            const std::uint32_t surface = rocks[hazeAt((from + s.z) / 2)].alongZ;
            for (std::size_t k = 0; k < ring.size(); ++k) {
                const std::size_t next = (k + 1) % ring.size();
                const bool deep = k == 0 || k + 2 >= ring.size();
                model.addQuad(last[k], last[next], ring[next], ring[k], deep ? bed : surface);
            }
        }
        last = ring;
        from = s.z;
    }
}

// Daybreak closes an end; its horizon lies on the water.
void addEnd(Model& model, double z, double side, std::uint32_t dawn) {
    const auto ring = vault(z, 0);
    const std::uint32_t eye = model.addPoint({middleX, 1, z});
    std::vector<std::uint32_t> rim;
    for (const Point& p : ring)
        rim.push_back(model.addPoint(p));
    for (std::size_t k = 0; k < rim.size(); ++k) {
        model.addTriangle(eye, rim[k], rim[(k + 1) % rim.size()], dawn);
        if (model.normal(model.triangles.back()).z * side > 0)
            std::swap(model.triangles.back().corners[1], model.triangles.back().corners[2]);
    }
}

struct Spire {
    Point foot, tip;
    double radius;
};
// Needles of rock out of the water, clear of the camera's way.
constexpr Spire spires[] = {
    {{3.4, -5, 18}, {4.4, 6.5, 17}, 1.9},   {{15.8, -5, 23}, {14.6, 4.2, 22}, 1.6},
    {{9, -6, 26}, {8.3, 2.6, 26}, 1.7},     {{0.8, -5, -1}, {1.8, 5.0, -2}, 1.8},
    {{20.0, -5, 9}, {19.2, 6.0, 8}, 1.8},   {{18.5, -5, -4}, {18.3, 3.4, -5}, 1.5},
    {{1.5, -5, -15}, {2.2, 3.2, -16}, 1.6}, {{17.5, -6, -24}, {17, 5.5, -25}, 1.8},
    {{3, -6, -31}, {3.6, 3.8, -32}, 1.7},   {{18, -6, -44}, {17, 5.2, -44}, 2.0},
    {{2.5, -6, -55}, {3.2, 6.2, -55}, 2.0},
};

void addSpire(Model& model, const Spire& spire, const Rock& rock, std::uint32_t bed) {
    constexpr std::size_t sides = 8;
    // share of the height over the water, and of the radius
    constexpr double profile[][2] = {{0, 1.25}, {0, 1}, {0.45, 0.60}, {0.75, 0.25}, {1, 0}};
    constexpr std::size_t rings = std::size(profile);
    std::vector<std::vector<std::uint32_t>> index;
    for (std::size_t r = 0; r < rings; ++r) {
        const double y = r == 0 ? depth : shelf + (spire.tip.y - shelf) * profile[r][0];
        const double t = (y - spire.foot.y) / (spire.tip.y - spire.foot.y);
        const Point centre = spire.foot + (spire.tip - spire.foot) * t;
        index.emplace_back();
        for (std::size_t k = 0; k < sides; ++k) {
            const double a = static_cast<double>(k) * 0.7853981633974483;
            const double radius = spire.radius * profile[r][1];
            const Point p = centre + Point{trig::cos(a) * radius, 0, trig::sin(a) * radius};
            index.back().push_back(model.addPoint(p + Point{1, 0, 0.6} * (0.7 * radius * noise(p, 1.5, 703))));
        }
    }
    for (std::size_t r = 0; r + 1 < rings; ++r)
        for (std::size_t k = 0; k < sides; ++k) {
            const std::size_t next = (k + 1) % sides;
            const std::size_t first = model.triangles.size();
            model.addQuad(index[r][k], index[r + 1][k], index[r + 1][next], index[r][next], bed);
            for (std::size_t i = first; i < model.triangles.size(); ++i) {
                Triangle& t = model.triangles[i];
                const Point n = model.normal(t);
                const Point out = model.centroid(t) - (spire.foot + spire.tip) * 0.5;
                if (n.x * out.x + n.z * out.z < 0)
                    std::swap(t.corners[1], t.corners[2]);
                if (r > 0)
                    t.surface = std::fabs(n.x) > std::fabs(n.z) ? rock.alongZ : rock.alongX;
            }
        }
}

// A long hexagonal crystal.
void addCrystal(Model& model, Point foot, Point direction, double size, std::uint32_t surface) {
    const Point up = normalize(direction);
    const Point side = normalize(cross(up, std::fabs(up.x) < 0.8 ? Point{1, 0, 0} : Point{0, 0, 1}));
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
    for (std::size_t k = 0; k < 6; ++k) {
        const std::size_t next = (k + 1) % 6;
        model.addQuad(low[k], high[k], high[next], low[next], surface);
        model.addTriangle(high[k], tip, high[next], surface);
    }
    if (dot(model.normal(model.triangles[first]),
            model.centroid(model.triangles[first]) - (foot + up * (0.36 * size))) < 0)
        for (std::size_t i = first; i < model.triangles.size(); ++i)
            std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
}

// A bunch of crystals that spreads about the direction.
void addCluster(Model& model, Point foot, Point direction, double size, Lamp lamp, int crystals) {
    const int number = static_cast<int>(model.surfaces.size());
    const double y = foot.y + normalize(direction).y * size * 0.55;
    const std::uint32_t surface =
        addSurface(model, "crystal" + std::to_string(number), lampMap(lamp, Axis::X, y, size * 1.05, 40));
    for (int k = 0; k < crystals; ++k) {
        const auto spread = [&](int axis) { return 0.9 * (static_cast<double>(hashUnit(number, k, axis, 705)) - 0.5); };
        const Point d = normalize(direction) + Point{spread(0), spread(1) * 0.6, spread(2)};
        addCrystal(model, foot + Point{spread(3), 0, spread(4)} * (0.5 * size), d, size * (1 - 0.13 * k), surface);
    }
}

// At the feet of every rib, and hanging from the crown of every second one.
void addCrystals(Model& model) {
    for (int i = firstRib + 1; i <= lastRib; ++i) {
        const double z = ribPhase + i * rise;
        const auto ring = vault(z, 1.2);
        for (const double side : {-1.0, 1.0}) {
            const Point foot = side < 0 ? ring[2] : ring[ring.size() - 3];
            addCluster(model, foot + Point{-side * 0.9, -0.3, 1.7 * side}, {-side * 0.4, 1, 0}, 1.8,
                       (i + (side > 0 ? 1 : 0)) % 2 == 0 ? Lamp::teal : Lamp::amber, 4);
        }
        if (i % 2 == 0)
            addCluster(model, ring[2 + above] + Point{0, 0.3, 0}, {0.1, -1, 0}, 2.6, Lamp::amber, 4);
    }
}

} // namespace

Model makeLandscape() {
    Model model;
    const Rock rocks[3] = {addRock(model, 0), addRock(model, 1), addRock(model, 2)};
    // the bed shows the lowest row of the walls' picture, which is black
    const std::uint32_t bed = addSurface(model, "bed", tiledMap("cave1.jpg", Axis::Z, {0, 994, 0}, {rise, 1000, 1}));
    addVault(model, rocks, bed);
    const std::uint32_t dawn = addSurface(model, "dawn", {"dawn1.jpg", Axis::Z, {middleX, 2.72, 0}, {36, 34, 1}});
    addEnd(model, front, 1, dawn);
    addEnd(model, back, -1, dawn);
    for (const Spire& s : spires)
        addSpire(model, s, rocks[hazeAt(s.tip.z)], bed);
    addCrystals(model);
    model.weld(1e-4);
    keepSeen(model, flightViews(2), 0.469);
    orderBy(model, [](Point p) { return length(p - Point{10.5, 2.5, -1}); });
    return model;
}

} // namespace lumenfold::art
