// The small set behind the frame, within 0.75 of the middle; the camera goes round it at 1.1 to 1.5, 0.13 to 0.53 high:
// a pedestal with a head, a sign box on struts above it, four claws, a pole of fire with its base, and lettering;
// around it the dome of the forge.

#include "artwork/objects/objects.h"
#include "core/trig.h"
#include "forge/dressing.h"
#include "forge/isosurface.h"
#include "forge/sdf.h"
#include "forge/shapes.h"

#include <cmath>
#include <numbers>
#include <string>
#include <utility>

namespace lumenfold::art {

namespace {

constexpr double raised = 0.2; // the scene lifts base and nameplate by that much

// The sign box: its long sides lean out towards the top, as lettering is laid by x and z.
constexpr double signLow = 0.36;
constexpr double signHigh = 0.56;
constexpr double signLowX = 0.10;
constexpr double signHighX = 0.17;
constexpr double signZ = 0.37;

struct Turned {
    double radius, y;
};

// A turned body, its profile from the lower middle outwards and up to the upper middle.
template <std::size_t count>
void addTurned(Model& model, const Turned (&profile)[count], int around, std::uint32_t surface) {
    std::vector<std::vector<Point>> rings;
    for (std::size_t i = count; i-- > 0;) // a skin's front is outside where its rings sink
        rings.push_back(
            ringAround({0, profile[i].y, 0}, profile[i].radius, around)); // corners on the axes, where medallions fold
    addSkin(model, rings, surface);
}

// A closed prism-like box from eight corners, low four then high four, both in the same order round.
void addBlock(Model& model, const Point (&c)[8], std::uint32_t surface) {
    std::uint32_t p[8];
    Point middle;
    for (int i = 0; i < 8; ++i) {
        p[i] = model.addPoint(c[i]);
        middle = middle + c[i] * 0.125;
    }
    constexpr int sides[6][4] = {{0, 1, 2, 3}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}};
    for (const auto& s : sides) {
        model.addQuad(p[s[0]], p[s[1]], p[s[2]], p[s[3]], surface);
        for (std::size_t i = model.triangles.size() - 2; i < model.triangles.size(); ++i)
            if (dot(model.normal(model.triangles[i]), model.centroid(model.triangles[i]) - middle) < 0)
                std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
    }
}

// Dresses a surface with one picture that covers it once from top to bottom, seen along x and z.
void dressUpright(Model& model, std::uint32_t from, const std::string& name, const std::string& image, Point centre,
                  Point size) {
    const std::uint32_t x = addSurface(model, name + "x", {image, Axis::X, centre, size});
    const std::uint32_t z = addSurface(model, name + "z", {image, Axis::Z, centre, size});
    model.assignByDirection(x, z, z, from);
}

// The forge around the set: eight walls that lean inwards, a floor and a crown.
void addDome(Model& model) {
    constexpr int sides = 8;
    constexpr double radius = 3.4;
    constexpr double wide = 2.9; // of a wall, about what a picture covers
    const std::uint32_t wall = model.addSurface({"wall", {}, {}, {}});
    const std::uint32_t ground = addSurface(model, "ground", tiledMap("hall1.jpg", Axis::Y, {}, {1.6, 1, 2.9}));
    const auto ring = [&](double r, double y) { return ringAround({0, y, 0}, r, sides, std::numbers::pi / sides); };
    const std::vector<std::vector<Point>> rings{ring(radius, -0.42), ring(radius, 0.9), ring(radius * 0.8, 1.7),
                                                ring(radius * 0.3, 2.3)};
    Model dome;
    addSkin(dome, rings, 0);
    if (dot(dome.normal(dome.triangles[0]), dome.centroid(dome.triangles[0])) > 0)
        dome.flip();
    model.append(
        dome, [](Point p) { return p; }, wall);
    for (const auto& [height, up] : {std::pair{-0.42, 1.0}, std::pair{2.3, -1.0}}) {
        const std::vector<Point> edge = ring(height < 0 ? radius : radius * 0.3, height);
        const std::size_t first = model.triangles.size();
        addCap(model, edge, ground);
        if (model.normal(model.triangles[first]).y * up < 0)
            for (std::size_t i = first; i < model.triangles.size(); ++i)
                std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
    }
    dressUpright(model, wall, "wall", "dome1.jpg", {0, 0.94, 0}, {wide, 2.72, wide});
}

} // namespace

Model makeCentrepiece() {
    Model model;
    const std::uint32_t plates = model.addSurface({"plates", {}, {}, {}});
    const std::uint32_t head = model.addSurface({"head", {}, {}, {}});
    const std::uint32_t lampX = addSurface(model, "lampx", lampMap(Lamp::amber, Axis::X, -0.185, 0.06, 0.5));
    const std::uint32_t lampZ = addSurface(model, "lampz", lampMap(Lamp::amber, Axis::Z, -0.185, 0.06, 0.5));
    const Medallion top = addMedallion(model, Axis::Y, {0, -0.15, 0}, 0.36);
    constexpr Turned foot[] = {{0.0, -0.42},  {0.50, -0.42}, {0.50, -0.34},
                               {0.46, -0.30}, {0.38, -0.28}, {0.38, -0.215}};
    constexpr Turned band[] = {{0.38, -0.215}, {0.36, -0.155}};
    constexpr Turned deck[] = {{0.36, -0.155}, {0.335, -0.14}, {0.19, -0.14}, {0.17, -0.165}, {0.10, -0.165}};
    addTurned(model, foot, 16, plates);
    const std::size_t lamps = model.triangles.size();
    addTurned(model, band, 16, lampX);
    for (std::size_t i = lamps; i < model.triangles.size(); ++i) {
        const Point n = model.normal(model.triangles[i]);
        model.triangles[i].surface = std::fabs(n.x) > std::fabs(n.z) ? lampX : lampZ;
    }
    const std::size_t deckFirst = model.triangles.size();
    addTurned(model, deck, 16, top.first);
    for (std::size_t i = deckFirst; i < model.triangles.size(); ++i)
        model.triangles[i].surface = top.surfaceAt(model.centroid(model.triangles[i]));
    model.append(
        headOf(1800, 0.30),
        [](Point p) {
            return p + Point{0, 0.055, 0};
        },
        head);
    addBlock(model,
             {{-signLowX, signLow, -signZ},
              {signLowX, signLow, -signZ},
              {signLowX, signLow, signZ},
              {-signLowX, signLow, signZ},
              {-signHighX, signHigh, -signZ},
              {signHighX, signHigh, -signZ},
              {signHighX, signHigh, signZ},
              {-signHighX, signHigh, signZ}},
             plates);
    for (const double z : {-0.33, 0.33}) {
        const auto at = [&](double x, double y, double dz) { return Point{x, y, z + dz}; };
        addBlock(model,
                 {at(-0.02, -0.3, -0.02), at(0.02, -0.3, -0.02), at(0.02, -0.3, 0.02), at(-0.02, -0.3, 0.02),
                  at(-0.012, 0.4, -0.012), at(0.012, 0.4, -0.012), at(0.012, 0.4, 0.012), at(-0.012, 0.4, 0.012)},
                 plates);
    }
    dress(model, plates, "plate", "hall1.jpg", 0.42);
    dressUpright(model, head, "head", "head1.jpg", {0, 0.055, 0}, {0.36, 0.44, 0.36});
    addDome(model);
    model.weld(1e-5);
    return model;
}

// Opens towards +x, low enough for the camera to look over it.
Model makeClaw() {
    Model model = meshSolid(
        [](Point p) {
            const Point joints[7] = {{-0.03, -0.33, 0}, {-0.11, -0.17, 0}, {-0.10, 0.0, 0}, {0.0, 0.12, 0},
                                     {0.13, 0.155, 0},  {0.25, 0.12, 0},   {0.36, 0.02, 0}};
            double d = sdf::box(p - Point{-0.02, -0.36, 0}, {0.10, 0.05, 0.08}, 0.025); // the foot
            for (int i = 0; i < 6; ++i) {
                const double thinner = 0.008 * i;
                d = sdf::smoothUnion(d, sdf::capsule(p, joints[i], joints[i + 1], 0.055 - thinner, 0.047 - thinner),
                                     0.022);
                d = sdf::smoothUnion(d, sdf::sphere(p - joints[i], 0.064 - thinner), 0.012);
            }
            const double ridge = sdf::capsule(p, {-0.15, -0.05, 0}, {-0.07, 0.15, 0}, 0.018, 0.004); // along the back
            return sdf::smoothUnion(d, ridge, 0.03);
        },
        {-0.25, -0.45, -0.15}, {0.45, 0.28, 0.15}, 0.013);
    simplify(model, 1600);
    model.addSurface({"unused", {}, {}, {}});
    dress(model, 0, "claw", "steel1.jpg", 0.42);
    return model;
}

Model makeFirePole() {
    Model model;
    // columns of the picture run along the height, rows across
    const std::uint32_t fire =
        addSurface(model, "fire", tiledMap("fire1.jpg", Axis::Z, {-0.1, 0, 0}, {0.2, 0.55, 0.2}));
    const std::uint32_t fireX =
        addSurface(model, "firex", tiledMap("fire1.jpg", Axis::X, {0, 0, -0.1}, {0.2, 0.55, 0.2}));
    std::vector<std::vector<Point>> rings;
    for (int i = 0; i <= 16; ++i) {
        const double h = i / 16.0;
        const double radius = (0.055 + 0.035 * trig::sin(h * 7.0 + 0.6)) * (1 - h * h * h) + 0.012;
        rings.push_back(ringAround({0.012 * trig::sin(h * 9), 0.09 + h * 0.85, 0.012 * trig::cos(h * 8)}, radius, 16));
    }
    addSkin(model, rings, fire);
    if (const Point c = model.centroid(model.triangles[0]); dot(model.normal(model.triangles[0]), {c.x, 0, c.z}) < 0)
        model.flip();
    // two ribbons of fire wind about the pole, each seen from both sides
    for (int ribbon = 0; ribbon < 2; ++ribbon) {
        std::vector<std::vector<Point>> rows;
        for (int i = 0; i <= 28; ++i) {
            const double h = i / 28.0;
            const double a = ribbon * std::numbers::pi + h * 9.0;
            const double r = 0.13 * (1 - 0.6 * h);
            rows.push_back({{r * trig::cos(a), 0.08 + h * 0.7, r * trig::sin(a)},
                            {r * trig::cos(a + 0.15), 0.08 + h * 0.7 + 0.055 * (1 - h), r * trig::sin(a + 0.15)}});
        }
        const std::size_t first = model.triangles.size();
        addSheet(model, rows, fire);
        const std::size_t count = model.triangles.size() - first;
        for (std::size_t i = 0; i < count; ++i) {
            const Triangle t = model.triangles[first + i];
            model.addTriangle(t.corners[0], t.corners[2], t.corners[1], t.surface);
        }
    }
    model.assignByDirection(fireX, fire, fire, fire);
    return model;
}

Model makeFireBase() {
    Model model;
    // a pool of light on the deck, a crown of flames round the jewel
    const std::uint32_t pool = addSurface(model, "pool", {"glow1.jpg", Axis::Y, {}, {0.72, 1, 0.72}});
    std::vector<std::vector<Point>> rings;
    for (int i = 0; i <= 3; ++i)
        rings.push_back(ringAround({0, -0.125 - raised, 0}, 0.35 - i * 0.1, 24));
    addSkin(model, rings, pool);
    if (model.normal(model.triangles[0]).y < 0)
        model.flip();
    const std::uint32_t crownZ = addSurface(model, "crownz", tiledMap("fire1.jpg", Axis::Z, {}, {0.3, 0.32, 0.3}));
    const std::uint32_t crownX = addSurface(model, "crownx", tiledMap("fire1.jpg", Axis::X, {}, {0.3, 0.32, 0.3}));
    for (int i = 0; i < 14; ++i) {
        const double a = 2 * std::numbers::pi * i / 14;
        const auto at = [&](double radius, double angle, double y) {
            return model.addPoint({radius * trig::cos(a + angle), y - raised, radius * trig::sin(a + angle)});
        };
        const double tall = 0.02 + 0.05 * ((i * 5) % 7) / 7.0;
        const std::uint32_t surface = std::fabs(trig::cos(a)) > 0.7 ? crownX : crownZ;
        const std::uint32_t left = at(0.20, -0.2, -0.13), right = at(0.20, 0.2, -0.13), tip = at(0.235, 0, tall);
        model.addTriangle(left, tip, right, surface);
        model.addTriangle(left, right, tip, surface);
    }
    return model;
}

// Lettering on both long sides of the sign box, lamps along its edges. The picture's columns follow z and its rows x,
// so the two sides have mirrored maps; the box hides the far side. The scene moves the columns of the first surface:
// the lamps are that one, on both sides, as their rows are the same upside down.
Model makeLettering() {
    Model model;
    constexpr double slope = signHighX - signLowX;
    constexpr double off = 2.5 * slope - signHighX; // a whole number of pictures lies between the sides' upper edges
    const auto map = [](double side) {
        return tiledMap("plate1.jpg", Axis::Y, {side * (signHighX + off), 0, -side * signZ},
                        {-side * slope, 1, side * 2 * signZ});
    };
    const std::uint32_t lamps = addSurface(model, "lamps", map(-1));
    for (const double side : {-1.0, 1.0}) {
        const std::uint32_t name = addSurface(model, side < 0 ? "left" : "right", map(side));
        constexpr double edges[] = {0, 0.2, 0.8, 1}; // of the lamps and of the name, from below
        for (int strip = 0; strip < 3; ++strip) {
            std::vector<std::vector<Point>> rows;
            for (const double up : {edges[strip], edges[strip + 1]}) {
                rows.emplace_back();
                for (int k = 0; k <= 8; ++k)
                    rows.back().push_back({side * (signLowX + off + slope * up),
                                           signLow + (signHigh - signLow) * up - raised, -signZ + k * signZ / 4});
            }
            const std::size_t first = model.triangles.size();
            addSheet(model, rows, strip == 1 ? name : lamps);
            if (model.normal(model.triangles[first]).x * side < 0)
                for (std::size_t i = first; i < model.triangles.size(); ++i)
                    std::swap(model.triangles[i].corners[1], model.triangles[i].corners[2]);
        }
    }
    return model;
}

} // namespace lumenfold::art
