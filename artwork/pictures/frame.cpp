#include "artwork/pictures/crease.h"
#include "artwork/pictures/pictures.h"

#include "artwork/lettering/name.h"
#include "forge/canvas.h"
#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/sdf.h"
#include "forge/studio.h"
#include "forge/trace.h"

// "3dframe.jpg": the iron door of a forge around a pane of 320 x 220 pixels. Seen straight on and without perspective,
// so that the pane's edge falls on whole pixels; one unit is 64 of them, the origin lies in the pane's middle, z runs
// into the wall. The wide column at the left carries a mask in relief, lit from the pane.

namespace lumenfold::art {

namespace {

// The key of the forge.
const Colour soot = fromHex(0x120806);
const Colour iron = fromHex(0x5A3220);
const Colour flame = fromHex(0xFF7A18);
const Colour blaze = fromHex(0xFF5A10);
const Colour glare = fromHex(0xFFF5D0);

enum Part { plate, bevel, tube, bolt, lamp, cable, mask, niche };

constexpr float unit = 64;
constexpr float paneColumn = 160;
constexpr float paneRow = 85;
constexpr float paneWidth = 320;
constexpr float paneHeight = 220;
constexpr float halfX = paneWidth / 2 / unit;
constexpr float halfY = paneHeight / 2 / unit;
constexpr float leftEdge = -halfX - paneColumn / unit;
constexpr Vec3 maskPlace = {-4.02F, 0.10F, 0.02F};

// The name, written upwards along the pane, as a soft-edged field: 1 in the letters.
const Picture& nameField() {
    static const Picture field = blurred(coverage(512, 384,
                                                  [](cairo_t* cairo) {
                                                      cairo_translate(cairo, 114, 303);
                                                      cairo_rotate(cairo, -1.5707963);
                                                      const double scale = 216 / nameWidth();
                                                      cairo_scale(cairo, scale, scale);
                                                      drawName(cairo, 0);
                                                  }),
                                         0.8F, Edge::clamp);
    return field;
}
float nameAt(Vec3 p) {
    const float x = p.x * unit + paneColumn + paneWidth / 2 - 0.5F;
    const float y = paneRow + paneHeight / 2 - p.y * unit - 0.5F;
    const int column = std::clamp(static_cast<int>(std::floor(x)), 0, 510);
    const int row = std::clamp(static_cast<int>(std::floor(y)), 0, 382);
    const float fx = saturate(x - static_cast<float>(column));
    const float fy = saturate(y - static_cast<float>(row));
    const Picture& f = nameField();
    return mix(mix(f.at(column, row).x, f.at(column + 1, row).x, fx),
               mix(f.at(column, row + 1).x, f.at(column + 1, row + 1).x, fx), fy);
}

// A sleeping face; y up, the nose towards -z, about 2.2 units tall, folded over the brow by a crest.
float face(Vec3 p) {
    const float bound = sdf::box(p - Vec3{0, -0.20F, 0}, {0.90F, 1.35F, 0.65F});
    if (bound > 0.35F) {
        return bound;
    }
    const Vec3 q = {p.x, p.y, -p.z};
    const Vec3 m = {std::fabs(p.x), p.y, -p.z};
    using sdf::capsule;
    using sdf::ellipsoid;
    using sdf::smoothCut;
    using sdf::smoothUnion;
    float d = ellipsoid(q - Vec3{0, 0.58F, -0.06F}, {0.375F, 0.43F, 0.47F});
    d = smoothUnion(d, ellipsoid(q - Vec3{0, 0.22F, 0.12F}, {0.265F, 0.42F, 0.33F}), 0.16F);
    d = smoothUnion(d, capsule(m, {0, -0.135F, 0.30F}, {0.07F, -0.12F, 0.27F}, 0.072F), 0.14F);
    d = smoothUnion(d, capsule(m, {0.10F, -0.08F, 0.24F}, {0.27F, 0.14F, 0}, 0.065F), 0.12F);
    d = smoothUnion(d, sdf::sphere(m - Vec3{0.205F, 0.25F, 0.27F}, 0.085F), 0.12F);
    d = smoothUnion(d, capsule(m, {0.05F, 0.475F, 0.405F}, {0.23F, 0.49F, 0.30F}, 0.050F), 0.07F);
    d = smoothCut(d, ellipsoid(m - Vec3{0.145F, 0.385F, 0.47F}, {0.10F, 0.062F, 0.115F}), 0.07F);
    d = smoothUnion(d, ellipsoid(m - Vec3{0.140F, 0.375F, 0.335F}, {0.078F, 0.052F, 0.06F}), 0.025F);
    d = smoothUnion(d, capsule(q, {0, 0.44F, 0.425F}, {0, 0.235F, 0.515F}, 0.043F), 0.055F);
    d = smoothUnion(d, sdf::sphere(m - Vec3{0.048F, 0.213F, 0.465F}, 0.036F), 0.03F);
    d = smoothUnion(d, ellipsoid(q - Vec3{0, 0.112F, 0.425F}, {0.105F, 0.030F, 0.055F}), 0.025F);
    d = smoothUnion(d, ellipsoid(q - Vec3{0, 0.052F, 0.420F}, {0.085F, 0.032F, 0.055F}), 0.025F);
    d = smoothCut(d, capsule(m, {0, 0.083F, 0.50F}, {0.10F, 0.083F, 0.43F}, 0.011F), 0.02F);
    d = smoothUnion(d, capsule(q, {0, 0, -0.10F}, {0, -0.95F, -0.16F}, 0.21F), 0.07F);
    d = smoothUnion(d, capsule(m, {0.23F, 0.12F, -0.08F}, {0.05F, -0.75F, 0.0F}, 0.045F), 0.07F);
    d = smoothUnion(d, capsule(m, {0, -0.72F, -0.16F}, {0.66F, -0.92F, -0.16F}, 0.21F), 0.22F);
    d = smoothUnion(d, ellipsoid(q - Vec3{0, -1.14F, -0.06F}, {0.66F, 0.48F, 0.33F}), 0.20F);
    const float shell = ellipsoid(q - Vec3{0, 0.62F, -0.06F}, {0.40F, 0.475F, 0.495F});
    return smoothUnion(d, std::max(shell, m.x - 0.022F), 0.02F); // the crest
}

float maskDistance(Vec3 p) {
    constexpr float scale = 2.05F;
    Vec3 q = (p - maskPlace) * (1 / scale);
    const Point2 turnedHead = turned(q.x, q.z, -0.50F); // looks towards the pane
    q = {turnedHead.x, q.y + 0.22F, turnedHead.y};
    return 0.9F * scale * face(q);
}

// Segments of a lamp along x, above the pane.
struct Segments {
    float distance;
    int index;
};
Segments lampSegments(Vec3 p) {
    const float inside = std::clamp(p.x, -2.30F, 2.30F);
    const sdf::Copy copy = sdf::repeated(inside, 0.46F);
    const Vec3 q = {copy.place + p.x - inside, p.y - halfY - 0.86F, p.z + 0.13F};
    return {sdf::box(q, {0.16F, 0.035F, 0.04F}, 0.02F), copy.index};
}

float boltDistance(Vec3 p) {
    const sdf::Copy along = sdf::repeated(p.x + 0.23F, 0.92F);
    const float rowGap = std::fabs(std::fabs(p.y) - halfY - 0.47F);
    float d = sdf::cylinder({along.place, p.z + 0.13F, rowGap}, 0.075F, 0.045F, 0.015F);
    const sdf::Copy up = sdf::repeated(p.y + 0.4F, 0.8F);
    d = std::min(d, sdf::cylinder({p.x - halfX - 0.33F, p.z + 0.13F, up.place}, 0.065F, 0.045F, 0.015F));
    return std::min(d,
                    sdf::cylinder({std::fabs(p.x - maskPlace.x) - 0.87F, p.z + 0.13F, up.place}, 0.05F, 0.04F, 0.01F));
}

Nearest nearestPart(Vec3 p) {
    // the plates: a front sheet with joints, an opening with two steps down to the pane
    const float pane = sdf::rectangle(p.x, p.y, halfX, halfY);
    const float column = std::fabs(p.x - maskPlace.x) - 0.86F;
    float front = std::max(-p.z - 0.10F, -(pane - 0.22F));
    const sdf::Copy joint = sdf::repeated(p.x + 0.69F, 1.84F);
    const float lines = std::min({std::fabs(joint.place) + (std::fabs(p.y) > halfY + 0.22F ? 0.0F : 9.0F),
                                  std::fabs(std::fabs(p.y) - halfY - 0.66F) + (p.x > leftEdge + 2.3F ? 0.0F : 9.0F)});
    front = sdf::smoothCut(front, std::max(lines - 0.022F, -p.z - 0.30F), 0.02F);
    const float nicheBody = sdf::rectangle(p.x - maskPlace.x, p.y, 0.70F, 2.66F) - 0.06F;
    front = sdf::smoothCut(front, nicheBody, 0.03F);
    if (p.x > -3.25F && p.x < -2.7F) {
        front += 0.035F * nameAt(p); // engraved
    }
    Nearest nearest = {0.8F * front, plate};
    // bevel: the wall of the opening leans inwards
    const float lean = 0.22F - 0.35F * saturate((p.z + 0.10F) / 0.6F);
    nearest = nearer(nearest, {0.7F * std::max({-p.z - 0.04F, lean * 0.5F - pane, -(0.6F - p.z)}), bevel});
    nearest = nearer(nearest, {0.45F - p.z > 0 ? std::max(0.45F - p.z, 0.0F) : -0.01F, niche});
    nearest = nearer(nearest, {length(Vec3{pane - 0.16F, p.z + 0.06F, 0}) - 0.030F, tube});
    nearest = nearer(nearest, {boltDistance(p), bolt});
    nearest = nearer(nearest, {lampSegments(p).distance, lamp});
    for (int i = 0; i < 3; ++i) { // cables along the upper edge and down the left side
        const float offset = 0.10F * static_cast<float>(i);
        const float sway = 0.05F * sine(1.3F * p.x + 1.9F * static_cast<float>(i));
        nearest = nearer(nearest, {0.9F * (length(p.y - halfY - 1.27F + offset - sway, p.z + 0.20F) - 0.050F), cable});
    }
    if (column < 0.4F) {
        nearest = nearer(nearest, {maskDistance(p), mask});
    }
    return nearest;
}

// What the tube and the segments throw on the metal beside them.
Colour spill(Vec3 p) {
    const float pane = std::max(0.0F, sdf::rectangle(p.x, p.y, halfX, halfY) - 0.16F);
    const float teal = std::max(0.0F, lampSegments(p).distance);
    return flame * (0.075F / (0.035F + pane * pane)) + blaze * (0.06F / (0.02F + teal * teal));
}

Material materialOf(int part, Vec3 p, Vec3) {
    const float grime = fractalNoise(p * 2.3F, 4, 951);
    const float scratch = fractalNoise({1.5F * p.x, 26 * p.y, 3}, 3, 952);
    Material m;
    m.metal = 0.75F;
    switch (part) {
    case plate:
        m.base = mix(soot, iron, saturate(0.40F + 1.2F * grime + 0.3F * scratch));
        m.base = m.base * mix(0.35F, 1.15F, smoothStep(-3.5F, 5.5F, p.y * 1.4F - p.x)); // the key lamp falls off
        m.emission = m.base * spill(p);
        if (p.x > -3.25F && p.x < -2.7F) { // the letters' ground glows
            m.emission += (blaze * 0.75F + glare * 0.12F) * power(nameAt(p), 2);
        }
        m.roughness = 0.16F;
        break;
    case bevel:
        m.base = Colour{0.18F, 0.12F, 0.09F} * (0.8F + 0.7F * grime);
        m.roughness = 0.12F;
        break;
    case tube:
        m.emission = flame * 3.4F + glare * 0.15F;
        break;
    case lamp: {
        const int index = lampSegments(p).index;
        const float on = hashUnit(index, 1, 0, 953) < 0.75F ? 1.0F : 0.05F;
        m.emission = (blaze * 3.2F + glare * 0.7F) * on;
        break;
    }
    case bolt:
        m.base = Colour{0.42F, 0.36F, 0.30F} * mix(0.5F, 1.2F, smoothStep(-3.5F, 5.5F, p.y * 1.4F - p.x));
        m.emission = m.base * spill(p) * 0.6F;
        m.roughness = 0.10F;
        break;
    case cable:
        m.base = {0.05F, 0.06F, 0.065F};
        m.roughness = 0.18F;
        break;
    case mask:
        m.metal = 1;
        m.base = fromHex(0x31485C) * 3.2F;
        m.film = 0.0F;
        m.roughness = 0.02F;
        break;
    default: // the ground of the niche
        m.base = iron * (0.40F + 0.6F * grime);
        m.metal = 0.85F;
        m.roughness = 0.2F;
        break;
    }
    return m;
}

World frameWorld() {
    World world;
    world.nearest = nearestPart;
    world.material = materialOf;
    world.sky = [](Vec3 direction) {
        static const SoftBox pane = {{0.93F, 0.05F, 0.30F}, {0, 1, 0}, 0.30F, 0.45F, 0.20F};
        static const SoftBox crease = {{0.1F, 0.45F, 0.88F}, {-0.05F, 1, 0}, 2.0F, 0.02F, 0.04F};
        const Vec3 d = {direction.x, direction.y, -direction.z};
        return studioLight(d) * 0.9F + flame * (2.2F * seen(pane, d)) + glare * (2.2F * seen(crease, d));
    };
    world.glow = [](Vec3 p) {
        const float pane = sdf::rectangle(p.x, p.y, halfX, halfY);
        const float far = length(pane - 0.16F, p.z + 0.06F);
        const float teal = std::max(0.0F, lampSegments(p).distance);
        return flame * (0.0055F / (0.02F + far * far)) + blaze * (0.003F / (0.02F + teal * teal));
    };
    world.keyDirection = {-0.6F, 0.7F, -0.6F};
    world.keyLight = glare * 2.4F;
    world.farthest = 6;
    world.reflections = 1;
    world.ambientReach = 0.30F;
    return world;
}

} // namespace

Bitmap makeForgeDoor() {
    const World world = frameWorld();
    Picture picture = renderPicture(
        512, 384, 3,
        [&](float x, float y, std::uint32_t seed) -> Colour {
            const float px = (x - paneColumn - paneWidth / 2) / unit;
            const float py = (paneRow + paneHeight / 2 - y) / unit;
            if (sdf::rectangle(px, py, halfX, halfY) < 0) {
                return {};
            }
            return trace(world, {{px, py, -2}, {0, 0, 1}}, seed);
        },
        0.25F);
    picture = withBloom(picture, {2.5F, 0.12F, 14, 0.10F}, Edge::clamp);
    addVignette(picture, 0.5F);
    addCrease(picture);
    picture.change([](Colour c, int x, int y) {
        const bool inPane = x >= 160 && x < 480 && y >= 85 && y < 305;
        return inPane ? Colour{} : c;
    });
    return developed(picture, {1.6F, true, 0.6F});
}

} // namespace lumenfold::art
