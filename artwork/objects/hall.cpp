// The hall: a barrel-vaulted nave along z that opens into a round chamber. Under (0, y, 32) its floor falls into a
// shaft that fire lights from below. The camera comes along the nave, rises in the chamber looking down, and sinks.

#include "artwork/objects/objects.h"
#include "core/trig.h"
#include "forge/dressing.h"
#include "forge/shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace lumenfold::art {

namespace {

using std::numbers::pi;

constexpr double floorY = -4;
constexpr double half = 9;   // of the nave's width
constexpr double spring = 7; // where its vault begins; it is round: its top lies at spring + half
constexpr double entrance = -14;
constexpr Point chamber{0, floorY, 32};
constexpr double chamberRadius = 15;
constexpr double chamberTop = 34;
constexpr double chamberFloor = 10.2; // where its paving ends
constexpr double shaftRadius = 9.97;
constexpr double ledgeRadius = 9.3;
constexpr double shaftDepth = 13;
const double mouth = chamber.z - std::sqrt(chamberRadius * chamberRadius - half * half); // nave meets chamber

struct Surfaces {
    std::uint32_t stoneX, stoneY, stoneZ, lampX, lampZ, lowLampX, lowLampZ, runner, plates, paving, shaftX, shaftZ,
        pool;
};

// Adds a wall over rows of points and turns it so that it faces `towards`.
void addFacing(Model& model, const std::vector<std::vector<Point>>& rows, Point towards, std::uint32_t surface) {
    const std::size_t first = model.triangles.size();
    addSheet(model, rows, surface);
    const Triangle& t = model.triangles[first];
    if (dot(model.normal(t), towards - model.centroid(t)) < 0)
        for (std::size_t i = first; i < model.triangles.size(); ++i)
            std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
}

std::vector<Point> line(Point from, Point to, int parts) {
    std::vector<Point> row;
    for (int i = 0; i <= parts; ++i)
        row.push_back(from + (to - from) * (double(i) / parts));
    return row;
}

// A wall from bottom to top between two feet, with lamp rows let in; alongX tells which way it runs.
void addBandedWall(Model& model, Point a, Point b, double top, int parts, Point towards, bool alongX,
                   const Surfaces& s) {
    struct Row {
        double from, to;
        int lamp; // 0 stone, 1 low lamp, 2 high lamp
    };
    const Row rows[] = {{floorY, -3.0, 0}, {-3.0, -2.7, 1}, {-2.7, 2.0, 0},
                        {2.0, 6.4, 0},     {6.4, 6.8, 2},   {6.8, top, 0}};
    for (const Row& r : rows) {
        const std::uint32_t stone = alongX ? s.stoneZ : s.stoneX;
        const std::uint32_t surface = r.lamp == 0   ? stone
                                      : r.lamp == 1 ? (alongX ? s.lowLampZ : s.lowLampX)
                                                    : (alongX ? s.lampZ : s.lampX);
        const auto lift = [](Point p, double y) { return Point{p.x, y, p.z}; };
        addFacing(model, {line(lift(a, r.from), lift(b, r.from), parts), line(lift(a, r.to), lift(b, r.to), parts)},
                  towards, surface);
    }
}

void addNave(Model& model, const Surfaces& s) {
    const Point inside{0, 2, 5};
    const int parts = 9;
    for (const double side : {-half, half})
        addBandedWall(model, {side, 0, entrance}, {side, 0, mouth}, spring, parts, inside, false, s);
    // floor: a runner of light in the middle
    const double columns[] = {-half, -4.5, -0.6, 0.6, 4.5, half};
    for (int i = 0; i < 5; ++i)
        addFacing(model,
                  {line({columns[i], floorY, entrance}, {columns[i], floorY, mouth}, parts),
                   line({columns[i + 1], floorY, entrance}, {columns[i + 1], floorY, mouth}, parts)},
                  inside, i == 2 ? s.runner : s.plates);
    // vault and the wall behind
    std::vector<std::vector<Point>> vault;
    std::vector<Point> gable;
    for (int i = 0; i <= 16; ++i) {
        const double a = pi * i / 16;
        const Point p{-half * trig::cos(a), spring + half * trig::sin(a), 0};
        vault.push_back(line({p.x, p.y, entrance}, {p.x, p.y, mouth}, parts));
        gable.push_back(p);
    }
    const std::size_t first = model.triangles.size();
    addFacing(model, vault, inside, s.stoneY);
    for (std::size_t i = first; i < model.triangles.size(); ++i)
        if (std::fabs(model.normal(model.triangles[i]).x) > 0.72)
            model.triangles[i].surface = s.stoneX;
    std::vector<Point> low;
    std::vector<Point> high;
    std::vector<Point> top;
    for (const Point& p : gable) {
        low.push_back({p.x, floorY, entrance});
        high.push_back({p.x, p.y, entrance});
        top.push_back({p.x, chamberTop, mouth});
    }
    addFacing(model, {low, high}, inside, s.stoneZ);
    // the wall above the arch where the nave opens
    for (Point& p : high)
        p.z = mouth;
    addFacing(model, {high, top}, chamber, s.stoneZ);
}

Point onCircle(double radius, double angle, double y) {
    return {chamber.x + radius * trig::sin(angle), y, chamber.z - radius * trig::cos(angle)};
}

// A well below the chamber: five storeys, each with a ledge and twelve brackets that are turned seven degrees against
// those above, so that the sinking camera sees them pass. On its bottom lies the pool.
void addShaft(Model& model, const Surfaces& s, const std::vector<Point>& rim) {
    constexpr int storeys = 5;
    constexpr double high = shaftDepth / storeys;
    const auto ringAt = [&](double radius, double y) {
        std::vector<Point> ring;
        for (const Point& p : rim)
            ring.push_back(chamber + normalize(p - chamber) * radius + Point{0, y, 0});
        return ring;
    };
    const Point axis = chamber + Point{0, 60, 0};
    for (int storey = 0; storey < storeys; ++storey) {
        const double top = -high * storey;
        const std::size_t first = model.triangles.size();
        addFacing(model, {ringAt(shaftRadius, top - 0.3), ringAt(shaftRadius, top - high)},
                  chamber + Point{0, top - high, 0}, s.shaftX);
        addFacing(model, {ringAt(ledgeRadius, top), ringAt(ledgeRadius, top - 0.3)}, chamber + Point{0, top, 0},
                  s.shaftX);
        for (std::size_t i = first; i < model.triangles.size(); ++i) {
            const Point n = model.normal(model.triangles[i]);
            model.triangles[i].surface = std::fabs(n.x) > std::fabs(n.z) ? s.shaftX : s.shaftZ;
        }
        addFacing(model, {ringAt(storey == 0 ? chamberFloor : shaftRadius, top), ringAt(ledgeRadius, top)}, axis,
                  s.paving);
        for (int bracket = 0; storey > 0 && bracket < 12; ++bracket) {
            const double angle = 2 * pi * bracket / 12 + storey * 7 * pi / 180;
            const auto at = [&](double radius, double side, double y) {
                return onCircle(radius, angle + side / radius, chamber.y + y);
            };
            constexpr double reach = ledgeRadius - 1.1;
            addFacing(model,
                      {{at(ledgeRadius, -0.25, top), at(ledgeRadius, 0.25, top)},
                       {at(reach, -0.16, top), at(reach, 0.16, top)}},
                      axis, s.paving);
            addFacing(model,
                      {{at(reach, -0.16, top), at(reach, 0.16, top)},
                       {at(reach, -0.16, top - 0.5), at(reach, 0.16, top - 0.5)}},
                      chamber + Point{0, top, 0}, s.shaftX);
        }
    }
    const std::vector<Point> edge = ringAt(shaftRadius, -shaftDepth);
    const std::vector<Point> middle(edge.size(), chamber + Point{0, -shaftDepth, 0});
    addFacing(model, {edge, middle}, axis, s.pool);
}

void addChamber(Model& model, const Surfaces& s) {
    const Point inside{0, 6, chamber.z};
    const double open = trig::atan2(half, chamber.z - mouth); // half the angle of the opening
    // corners stand in the four main directions too, where the medallion's quarters meet
    std::vector<Point> foot;
    const auto arc = [&](double from, double to, int parts) {
        for (int i = 0; i < parts; ++i)
            foot.push_back(onCircle(chamberRadius, from + (to - from) * i / parts, floorY));
    };
    arc(open, pi / 2, 3);
    arc(pi / 2, pi, 5);
    arc(pi, 1.5 * pi, 5);
    arc(1.5 * pi, 2 * pi - open, 3);
    foot.push_back(onCircle(chamberRadius, 2 * pi - open, floorY));
    const auto walls = static_cast<int>(foot.size()) - 1;
    for (int i = 0; i < walls; ++i) {
        const Point a = foot[static_cast<std::size_t>(i)];
        const Point b = foot[static_cast<std::size_t>(i) + 1];
        addBandedWall(model, a, b, chamberTop, 1, inside, std::fabs(a.x - b.x) > std::fabs(a.z - b.z), s);
    }
    for (int i = 1; i < 16; ++i)
        foot.push_back({-half * trig::cos(pi * i / 16), floorY, mouth});
    // ceiling, and the floor round the pit
    std::vector<Point> rim;
    std::vector<Point> outer;
    foot.push_back(foot.front());
    for (const Point& p : foot) {
        const Point d = normalize(p - chamber);
        rim.push_back(chamber + d * chamberFloor);
        outer.push_back(p);
    }
    addFacing(model, {outer, rim}, inside, s.paving);
    std::vector<std::vector<Point>> ceiling(2);
    for (const Point& p : outer) {
        ceiling[0].push_back({p.x, chamberTop, p.z});
        ceiling[1].push_back({chamber.x, chamberTop, chamber.z});
    }
    addFacing(model, ceiling, inside, s.stoneY);
    addShaft(model, s, rim);
}

// A column with base and capital, its shaft between ribs of light.
Model column(double radius, double height) {
    Model model;
    model.addSurface({"shaft", {}, {}, {}});
    struct Ring {
        double radius, y;
    };
    const Ring rings[] = {{1.75, 0},           {1.75, 0.45},        {1.45, 0.6},          {1.45, 0.95},
                          {1.05, 1.25},        {1.0, height - 1.6}, {1.15, height - 1.4}, {1.15, height - 1.1},
                          {1.7, height - 0.5}, {1.7, height}};
    std::vector<std::vector<Point>> skin;
    for (const Ring& r : rings)
        skin.push_back(ringAround({0, r.y, 0}, r.radius * radius, 12, pi / 12));
    addSkin(model, skin, 0);
    std::vector<Point> top = skin.back();
    addCap(model, top, 0);
    if (dot(model.normal(model.triangles[0]), model.centroid(model.triangles[0]) - Point{0, 0.2, 0}) < 0)
        model.flip();
    for (std::size_t i = model.triangles.size() - 12; i < model.triangles.size(); ++i)
        if (model.normal(model.triangles[i]).y < 0)
            std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
    return model;
}

// An arch of rectangular section under the vault, from column to column.
void addArch(Model& model, double z, std::uint32_t face, std::uint32_t inner) {
    std::vector<std::vector<Point>> rings;
    for (int i = 0; i <= 14; ++i) {
        const double a = pi * i / 14;
        const auto at = [&](double radius, double dz) {
            return Point{-radius * trig::cos(a), spring + radius * trig::sin(a), z + dz};
        };
        rings.push_back({at(7.1, -0.7), at(7.1, 0.7), at(9.1, 0.7), at(9.1, -0.7)});
    }
    for (std::size_t i = 0; i + 1 < rings.size(); ++i) {
        const Point middle{0, spring, z};
        addFacing(model, {{rings[i][0], rings[i][1]}, {rings[i + 1][0], rings[i + 1][1]}}, middle, inner);
        for (const std::size_t k : {1U, 3U}) {
            const std::size_t next = (k + 1) % 4;
            addFacing(model, {{rings[i][k], rings[i][next]}, {rings[i + 1][k], rings[i + 1][next]}},
                      {0, spring, z + (k == 1 ? 50.0 : -50.0)}, face);
        }
    }
}

} // namespace

Model makeHall() {
    Model model;
    constexpr double tile = 6;
    const auto stone = [&](const char* name, Axis axis) {
        return addSurface(model, name, tiledMap("hall1.jpg", axis, {0, floorY, 0}, {tile, spring - floorY, tile}));
    };
    Surfaces s{};
    s.stoneX = stone("stonex", Axis::X);
    s.stoneY = stone("stoney", Axis::Y);
    s.stoneZ = stone("stonez", Axis::Z);
    s.lampX = addSurface(model, "lampx", lampMap(Lamp::amber, Axis::X, 6.6, 0.4, 4));
    s.lampZ = addSurface(model, "lampz", lampMap(Lamp::amber, Axis::Z, 6.6, 0.4, 4));
    s.lowLampX = addSurface(model, "lowlampx", lampMap(Lamp::amber, Axis::X, -2.85, 0.3, 6));
    s.lowLampZ = addSurface(model, "lowlampz", lampMap(Lamp::amber, Axis::Z, -2.85, 0.3, 6));
    s.runner =
        addSurface(model, "runner", tiledMap("ribwall.jpg", Axis::Y, {-1.2 - 0.47 * 2.4 + 1.2, 0, 0}, {2.4, 1, 2.4}));
    s.plates = addSurface(model, "plates", tiledMap("hall1.jpg", Axis::Y, {-4.5, 0, -11}, {3.9, 1, 6}));
    s.paving = addSurface(model, "paving", tiledMap("hall1.jpg", Axis::Y, {}, {5, 1, 5}));
    constexpr Point shaftSize{shaftDepth, shaftDepth, shaftDepth};
    s.shaftX = addSurface(model, "shaftx", tiledMap("shaft1.jpg", Axis::X, {0, floorY, chamber.z}, shaftSize));
    s.shaftZ = addSurface(model, "shaftz", tiledMap("shaft1.jpg", Axis::Z, {0, floorY, chamber.z}, shaftSize));
    // the picture that fades in shows a crown of 150 pixels; from where it takes over, so does the pool
    s.pool = addSurface(model, "pool", {"pool1.jpg", Axis::Y, chamber, {2 * shaftRadius, 1, 2 * shaftRadius}});
    addNave(model, s);
    addChamber(model, s);
    const std::uint32_t archFace = addSurface(model, "archface", tiledMap("hall1.jpg", Axis::Z, {}, {3, 3, 3}));
    const std::uint32_t archInner = addSurface(model, "archinner", tiledMap("hall1.jpg", Axis::Y, {}, {3, 3, 3}));
    const std::uint32_t shaft = model.addSurface({"columns", {}, {}, {}});
    const Model tall = column(0.95, spring - floorY);
    for (int i = 0; i < 6; ++i) {
        const double z = -11 + i * 6.0;
        for (const double side : {-7.3, 7.3})
            model.append(
                tall,
                [&](Point p) {
                    return p + Point{side, floorY, z};
                },
                shaft);
        addArch(model, z, archFace, archInner);
    }
    const Model around = column(0.8, 15);
    for (int i = 2; i <= 12; ++i)
        model.append(
            around, [&](Point p) { return p + onCircle(12.4, i * pi / 7, floorY); }, shaft);
    dress(model, shaft, "column", "ribwall.jpg", 2.2);
    model.weld(1e-4);
    return model;
}

} // namespace lumenfold::art
