#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/sdf.h"
#include "forge/studio.h"
#include "forge/trace.h"

// "morph3.jpg": the machine at rest: two segmented rings around a core of liquid chrome, over a wet floor, in a hall of
// light strips. It stands behind the split picture and is then seen as a small film frame, so its shapes are large.

namespace lumenfold::art {

namespace {

enum Part { floorPart, outerSegment, innerSegment, amberRing, tealRing, core, pillar, strip, cable };

constexpr Vec3 middle = {0, 1.30F, 0};
constexpr float floorHeight = -0.62F;
constexpr float outerRadius = 1.72F;
constexpr float innerRadius = 1.06F;
constexpr float amberRadius = 1.43F;
constexpr float tealRadius = 0.80F;
constexpr int outerCount = 26;
constexpr int innerCount = 15;

// The inner ring stands turned about the upright axis and leans.
Vec3 intoInnerRing(Vec3 p) {
    const Point2 flat = turned(p.x, p.z, 0.42F);
    const Point2 lean = turned(p.y, flat.y, -0.16F);
    return {flat.x, lean.x, lean.y};
}

// One ring of blocks of changing size; `bound` of it is returned far away.
float segments(Vec3 p, float radius, int count, float length, std::uint32_t seed) {
    const float bound = sdf::ring(p, radius, 0.24F, 0.24F);
    if (bound > 0.25F) {
        return bound;
    }
    const sdf::Sector sector = sdf::sectored(p, count);
    const auto random = [&](int which) { return hashUnit(sector.index, which, 0, seed); };
    const Vec3 place = sector.place - Vec3{radius + 0.07F * (random(0) - 0.5F), 0, 0.10F * (random(1) - 0.5F)};
    const Vec3 half = {0.13F + 0.05F * random(2), length * (0.80F + 0.20F * random(3)), 0.10F + 0.05F * random(4)};
    float block = sdf::box(place, half, 0.018F);
    // a groove around every third block, a slot in the face of the others
    const Vec3 slot = {place.x, place.y, place.z + half.z};
    block = random(5) < 0.35F ? sdf::cut(block, sdf::box(place, {0.3F, 0.014F, 0.3F}))
                              : sdf::cut(block, sdf::box(slot, {half.x * 0.55F, half.y * 0.5F, 0.02F}));
    const float rail = sdf::ring(p, radius, 0.05F, 0.05F, 0.01F);
    return std::min(block, rail);
}

float chromeCore(Vec3 p) {
    const float bound = length(p) - 0.78F;
    if (bound > 0.3F) {
        return bound;
    }
    static constexpr Vec3 drops[] = {{0.02F, 0.02F, 0},       {0.24F, 0.14F, -0.05F},   {-0.22F, 0.16F, 0.02F},
                                     {0.05F, -0.26F, -0.06F}, {-0.16F, -0.14F, -0.20F}, {0.16F, -0.06F, -0.22F},
                                     {0.02F, 0.30F, -0.08F}};
    float body = 9;
    for (const Vec3 drop : drops) {
        body = sdf::smoothUnion(body, sdf::sphere(p - drop * 1.25F, 0.26F), 0.14F);
    }
    return body + 0.010F * sine(9 * p.x + 3 * p.y) * sine(8 * p.y - 5 * p.z);
}

struct Strip {
    float distance;
    int index;
};

// Upright lamps on the pillars in the background.
Strip nearestStrip(Vec3 p) {
    const sdf::Copy copy = sdf::repeated(p.x + 0.35F, 1.35F);
    const float depth = 3.6F + 1.6F * hashUnit(copy.index, 0, 0, 833);
    const float top = 3.2F + 1.2F * hashUnit(copy.index, 1, 0, 833);
    const float y = p.y - std::clamp(p.y, floorHeight + 0.15F, top);
    return {length(Vec3{copy.place, y, p.z - depth + 0.32F}) - 0.022F, copy.index};
}

Nearest nearestPart(Vec3 p) {
    const Vec3 ring = p - middle;
    const Vec3 inner = intoInnerRing(ring);
    const float ripple = p.y < floorHeight + 0.3F ? 0.008F * gradientNoise({2.2F * p.x, 5, 1.1F * p.z}, 831) +
                                                        0.004F * gradientNoise({7 * p.x, 2, 4 * p.z}, 832)
                                                  : 0;
    Nearest nearest = {0.9F * (p.y - floorHeight - ripple), floorPart};
    nearest = nearer(nearest, {segments(ring, outerRadius, outerCount, 0.175F, 841), outerSegment});
    nearest = nearer(nearest, {segments(inner, innerRadius, innerCount, 0.185F, 842), innerSegment});
    nearest = nearer(nearest, {sdf::torus(ring - Vec3{0, 0, -0.03F}, amberRadius, 0.026F), amberRing});
    nearest = nearer(nearest, {sdf::torus(inner, tealRadius, 0.018F), tealRing});
    nearest = nearer(nearest, {0.8F * chromeCore(ring), core});
    const Strip lamp = nearestStrip(p);
    nearest = nearer(nearest, {std::min(0.6F, lamp.distance), strip});
    const sdf::Copy copy = sdf::repeated(p.x + 0.35F, 1.35F);
    const float depth = 3.6F + 1.6F * hashUnit(copy.index, 0, 0, 833);
    nearest =
        nearer(nearest,
               {std::min(0.6F, sdf::box(Vec3{copy.place, p.y - 2, p.z - depth}, {0.24F, 3.2F, 0.24F}, 0.03F)), pillar});
    for (int i = 0; i < 3; ++i) { // cables that carry the outer ring
        const float sag = 0.03F * p.x * p.x * (1 + 0.3F * static_cast<float>(i));
        const float y = p.y - 0.95F - 0.28F * static_cast<float>(i) - sag - 0.05F * p.x;
        nearest = nearer(nearest, {0.9F * (length(y, p.z - 0.55F - 0.08F * static_cast<float>(i)) - 0.045F), cable});
    }
    return nearest;
}

Material materialOf(int part, Vec3 p, Vec3) {
    Material m;
    switch (part) {
    case floorPart:
        m.metal = 0.7F;
        m.base = mix(palette::deep * 0.35F, Colour{0.16F, 0.20F, 0.22F},
                     smoothStep(-0.2F, 0.35F, fractalNoise({0.9F * p.x, 3, 0.6F * p.z}, 3, 851)));
        m.roughness = 0.035F;
        break;
    case outerSegment:
    case innerSegment: {
        const Vec3 q = part == outerSegment ? p - middle : intoInnerRing(p - middle);
        const int index = sdf::sectored(q, part == outerSegment ? outerCount : innerCount).index;
        const float tone = hashUnit(index, 8, part, 861);
        m.metal = 0.9F;
        m.base = mix(Colour{0.22F, 0.27F, 0.29F}, Colour{0.62F, 0.70F, 0.73F}, tone);
        m.roughness = 0.10F + 0.14F * hashUnit(index, 9, part, 861);
        const Vec3 fine = q * 9;
        m.base = m.base * (0.9F + 0.25F * fractalNoise(fine, 3, 862));
        break;
    }
    case amberRing:
        m.emission = palette::amber * 6 + palette::ice * 0.6F;
        break;
    case tealRing:
        m.emission = palette::teal * 4 + palette::ice * 0.8F;
        break;
    case core:
        m.metal = 1;
        m.base = {0.82F, 0.88F, 0.90F};
        m.film = 0.45F;
        m.filmThickness = 0.62F + 0.3F * gradientNoise(p * 2.2F, 871);
        break;
    case pillar:
        m.base = palette::deep * 0.8F;
        m.metal = 0.2F;
        m.roughness = 0.3F;
        break;
    case strip:
        m.emission = (nearestStrip(p).index % 3 == 0 ? palette::amber * 3.2F : palette::teal * 3) + palette::ice * 0.5F;
        break;
    default: // cable
        m.base = Colour{0.10F, 0.11F, 0.12F};
        m.metal = 0.8F;
        m.roughness = 0.2F;
        break;
    }
    return m;
}

// Light that the lamps throw into the haze.
Colour haze(Vec3 p) {
    const auto around = [](float distance, float width) { return 1 / (distance * distance + width * width); };
    const Vec3 ring = p - middle;
    const Strip lamp = nearestStrip(p);
    const Colour stripColour = lamp.index % 3 == 0 ? palette::amber : palette::teal;
    Colour light = palette::amber * (0.0042F * around(sdf::torus(ring, amberRadius, 0), 0.07F));
    light += palette::teal * (0.0022F * around(sdf::torus(intoInnerRing(ring), tealRadius, 0), 0.07F));
    light += stripColour * (0.0034F * around(std::max(0.0F, lamp.distance), 0.12F));
    return light + palette::petrol * (0.003F * exponential(-0.8F * std::max(0.0F, p.y - floorHeight)));
}

World machineWorld() {
    World world;
    world.nearest = nearestPart;
    world.material = materialOf;
    world.sky = [](Vec3 direction) {
        static const SoftBox crease = {{-0.1F, 0.62F, -0.78F}, {-0.05F, 1, 0}, 1.8F, 0.03F, 0.06F};
        return studioLight({direction.x, direction.y, -direction.z}) *
                   mix(0.75F, 0.10F, smoothStep(-0.3F, 0.8F, direction.z)) +
               palette::ice * (2.0F * seen(crease, direction));
    };
    world.glow = haze;
    world.keyDirection = {-0.6F, 0.8F, -0.55F};
    world.keyLight = palette::ice * 2.2F;
    world.fog = palette::deep * 0.30F;
    world.fogDensity = 0.10F;
    world.fogStart = 4;
    world.farthest = 22;
    world.reflections = 3;
    return world;
}

} // namespace

namespace {

// Tungsten light: every colour by its brightness, from the brown of old film to a warm white.
Colour tungsten(Colour light) {
    const float level = filmic(1.35F * luminance(light));
    Colour tone = mix(fromHex(0x120B06), fromHex(0x5A3A1E), smoothStep(0, 0.22F, level));
    tone = mix(tone, fromHex(0xD9A25B), smoothStep(0.18F, 0.62F, level));
    return mix(tone, fromHex(0xFFF3DC), smoothStep(0.55F, 0.95F, level));
}

} // namespace

Bitmap makeMachineCore() {
    const Camera camera = {{0.85F, 0.95F, -4.35F}, {0.02F, 1.12F, 0}, 1.42F, 0.04F};
    Picture picture = photograph(machineWorld(), camera, 512, 384, 4);
    picture = withBloom(picture, {3, 0.12F, 16, 0.12F}, Edge::clamp);
    picture.change([](Colour light, int, int) { return tungsten(light); });
    addVignette(picture, 0.45F);
    return developed(picture, {1.0F, false, 0.6F});
}

} // namespace lumenfold::art
