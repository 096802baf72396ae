// The opening's tunnel: a corridor along z that turns at a right angle into one along x, built from bays of 2.4 units
// with a rib each. The camera flies 0.2 below its middle line.

#include "artwork/objects/objects.h"
#include "forge/dressing.h"
#include "forge/object_views.h"
#include "forge/seen_faces.h"
#include "forge/shapes.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double bay = 2.4;
constexpr Point corner{-0.7, -0.3, 16}; // where the middle lines meet
constexpr double turn = 2.0;            // the first bay begins that far from the corner
constexpr int baysBefore = 14;          // z from -19.6
constexpr int baysAfter = 11;           // x to 27.7

// What a side of the corridor's section is.
enum class Side { floor, wall, lamp };

struct Corner {
    double right; // seen along the flight
    double up;
    Side side; // of the side that begins here
};

// Counter-clockwise, seen along the flight.
constexpr Corner section[] = {
    {1.15, -1.35, Side::wall}, {1.85, -0.75, Side::wall}, {1.85, 0.60, Side::wall},   {1.66, 0.79, Side::lamp},
    {1.34, 1.11, Side::wall},  {1.05, 1.40, Side::floor}, {-1.05, 1.40, Side::wall},  {-1.34, 1.11, Side::lamp},
    {-1.66, 0.79, Side::wall}, {-1.85, 0.60, Side::wall}, {-1.85, -0.75, Side::wall}, {-1.15, -1.35, Side::floor},
};
constexpr std::size_t sides = sizeof section / sizeof section[0];

// A place in the corridor; travel is negative before the corner. Across the mitre both legs meet.
Point placeAt(double travel, double right, double up) {
    if (travel < 0)
        return corner + Point{right, up, std::min(travel, -right)};
    return corner + Point{std::max(travel, right), up, -right};
}

// A ring of the corridor's wall, drawn in towards the middle by `inset`.
std::vector<Point> ringAt(double travel, double inset) {
    std::vector<Point> ring;
    for (const Corner& c : section) {
        const double s = 1 - inset / 1.85;
        ring.push_back(travel == 0 ? corner + Point{c.right * s, c.up * s, -c.right * s}
                                   : placeAt(travel, c.right * s, c.up * s));
    }
    return ring;
}

// The surfaces of one leg. The bay's picture runs along the leg; which axis is across depends on the leg.
struct Leg {
    std::uint32_t wall, floor, lamp, face;
};

Leg addLeg(Model& model, bool along, double begin) {
    const std::string name = along ? "x" : "z";
    const Point origin = along ? Point{begin, 6, 20} : Point{-5, 6, begin};
    const Point tile{bay, bay, bay};
    const Axis across = along ? Axis::Z : Axis::X;
    Leg leg;
    leg.wall = addSurface(model, name + "wall", tiledMap("tunbay1.jpg", across, origin, tile));
    leg.floor =
        addSurface(model, name + "floor", tiledMap(along ? "tunbay1.jpg" : "tunbay2.jpg", Axis::Y, origin, tile));
    leg.lamp = addSurface(model, name + "lamp", lampMap(Lamp::teal, across, corner.y + 0.95, 0.36, bay));
    leg.face =
        addSurface(model, name + "face", tiledMap("hullpan.jpg", along ? Axis::X : Axis::Z, {}, {1.2, 1.2, 1.2}));
    return leg;
}

struct Station {
    double travel;
    double inset;
    bool face; // the strip that begins here stands across the flight
};

// Wall from station to station, seen from inside.
void addWall(Model& model, const std::vector<Station>& stations, const Leg& leg) {
    std::vector<std::uint32_t> last;
    for (std::size_t i = 0; i < stations.size(); ++i) {
        std::vector<std::uint32_t> ring;
        for (const Point& p : ringAt(stations[i].travel, stations[i].inset))
            ring.push_back(model.addPoint(p));
        if (i > 0) {
            for (std::size_t k = 0; k < sides; ++k) {
                const std::size_t next = (k + 1) % sides;
                const Side side = section[k].side;
                const std::uint32_t surface = stations[i - 1].face  ? leg.face
                                              : side == Side::floor ? leg.floor
                                              : side == Side::lamp  ? leg.lamp
                                                                    : leg.wall;
                model.addQuad(last[k], ring[k], ring[next], last[next], surface);
            }
        }
        last = ring;
    }
}

std::vector<Station> baysFrom(double begin, int count) {
    std::vector<Station> stations;
    for (int i = 0; i < count; ++i) {
        const double t = begin + i * bay;
        stations.insert(stations.end(), {{t, 0, false},
                                         {t + 0.66 * bay, 0, true},
                                         {t + 0.69 * bay, 0.26, false},
                                         {t + 0.935 * bay, 0.26, true},
                                         {t + 0.965 * bay, 0, false}});
    }
    stations.push_back({begin + count * bay, 0, false});
    return stations;
}

// Pipes follow the corridor through its ribs and round the corner.
void addPipe(Model& model, double right, double up, double radius, std::uint32_t surface) {
    std::vector<std::vector<Point>> rings;
    const auto ring = [&](double travel) {
        rings.emplace_back();
        for (int k = 0; k < 5; ++k) {
            const Point round = ringAround({}, radius, 5)[static_cast<std::size_t>(k)];
            const double r = right + round.x;
            const double u = up + round.z;
            rings.back().push_back(travel == 0 ? corner + Point{r, u, -r} : placeAt(travel, r, u));
        }
    };
    for (int i = baysBefore; i >= 0; --i)
        ring(-turn - i * bay);
    ring(0);
    for (int i = 0; i <= baysAfter; ++i)
        ring(turn + i * bay);
    const std::size_t first = model.triangles.size();
    addSkin(model, rings, surface);
    const Triangle& t = model.triangles[first];
    if (dot(model.normal(t), model.centroid(t) - placeAt(-turn - (baysBefore - 0.5) * bay, right, up)) < 0)
        for (std::size_t i = first; i < model.triangles.size(); ++i)
            std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
}

// A bevelled console on a side wall; its front is a lamp field or a plate.
void addConsole(Model& model, double travel, double side, std::uint32_t front, std::uint32_t edge) {
    const auto quad = [&](double depth, double shrink) {
        std::vector<std::uint32_t> q;
        const double w = side * (1.85 - depth);
        for (const auto& [t, u] : {std::pair{0.34 + shrink, -0.55 + shrink},
                                   {0.34 + shrink, 0.40 - shrink},
                                   {1.34 - shrink, 0.40 - shrink},
                                   {1.34 - shrink, -0.55 + shrink}})
            q.push_back(model.addPoint(placeAt(travel + t, w, u)));
        return q;
    };
    const auto back = quad(-0.02, 0);
    const auto face = quad(0.13, 0.07);
    const auto add = [&](std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d, std::uint32_t surface) {
        if (side < 0)
            model.addQuad(a, b, c, d, surface);
        else
            model.addQuad(d, c, b, a, surface);
    };
    for (std::size_t i = 0; i < 4; ++i)
        add(back[i], back[(i + 1) % 4], face[(i + 1) % 4], face[i], edge);
    add(face[0], face[1], face[2], face[3], front);
}

// The corridor's section with corners on its middle lines, where medallions fold.
std::vector<Point> foldedRing(double travel) {
    std::vector<Point> ring;
    for (std::size_t k = 0; k < sides; ++k) {
        const Corner& a = section[k];
        const Corner& b = section[(k + 1) % sides];
        ring.push_back(placeAt(travel, a.right, a.up));
        if (a.right * b.right < 0)
            ring.push_back(placeAt(travel, 0, a.up));
        if (a.up * b.up < 0)
            ring.push_back(placeAt(travel, a.right, 0));
    }
    return ring;
}

// A round light on a wall, its front towards a place.
void addEnd(Model& model, const Medallion& medallion, const std::vector<Point>& rim, Point towards) {
    const std::uint32_t middle = model.addPoint(medallion.centre);
    std::vector<std::uint32_t> ring;
    for (const Point& p : rim)
        ring.push_back(model.addPoint(p));
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const std::size_t next = (i + 1) % ring.size();
        const Point between = (rim[i] + rim[next]) * 0.5;
        model.addTriangle(middle, ring[i], ring[next], medallion.surfaceAt(between));
        if (dot(model.normal(model.triangles.back()), towards - medallion.centre) < 0)
            std::swap(model.triangles.back().corners[1], model.triangles.back().corners[2]);
    }
}

} // namespace

Model makeTunnel() {
    Model model;
    const double first = corner.z - turn - baysBefore * bay;
    const Leg before = addLeg(model, false, first);
    const Leg after = addLeg(model, true, corner.x + turn);
    const std::uint32_t edge = addSurface(model, "edge", tiledMap("hullpan.jpg", Axis::Y, {}, {0.7, 0.7, 0.7}));
    std::vector<Station> stations = baysFrom(-turn - baysBefore * bay, baysBefore);
    stations.push_back({0, 0, false});
    addWall(model, stations, before);
    stations = baysFrom(turn, baysAfter);
    stations.insert(stations.begin(), {0, 0, false});
    addWall(model, stations, after);
    for (const double side : {-1.0, 1.0}) {
        addPipe(model, side * 1.52, -1.02, 0.11, edge);
        addPipe(model, side * 1.36, -1.20, 0.07, edge);
        addPipe(model, side * 0.55, 1.26, 0.10, edge);
    }
    for (int i = 0; i < baysBefore; ++i)
        for (const double side : {-1.0, 1.0})
            addConsole(model, -turn - (i + 1) * bay, side, (i + (side > 0 ? 1 : 0)) % 2 == 0 ? before.wall : edge,
                       edge);
    for (int i = 0; i < baysAfter; ++i)
        for (const double side : {-1.0, 1.0})
            addConsole(model, turn + i * bay, side, (i + (side > 0 ? 1 : 0)) % 2 == 0 ? after.wall : edge, edge);
    // a light at each end, and one on the corner's wall for those who come along z
    const double last = turn + baysAfter * bay;
    addEnd(model, addMedallion(model, Axis::X, placeAt(last, 0, 0), 1.9), foldedRing(last), corner);
    std::vector<Point> lens;
    for (const Point& p : ringAround({}, 0.72, 32))
        lens.push_back(corner + Point{p.x, p.z, 1.80});
    addEnd(model, addMedallion(model, Axis::Z, corner + Point{0, 0, 1.80}, 0.72), lens, corner);
    const double begin = -turn - baysBefore * bay;
    addEnd(model, addMedallion(model, Axis::Z, placeAt(begin, 0, 0), 1.9), foldedRing(begin), corner);
    dress(model, edge, "plate", "hullpan.jpg", 1.7);
    model.weld(1e-4);
    keepSeen(model, tunnelViews(2), 0.469);
    orderBy(model, [](Point p) { return p.z < corner.z - turn ? p.z : corner.z + p.x; }); // as one flies past
    return model;
}

} // namespace lumenfold::art
