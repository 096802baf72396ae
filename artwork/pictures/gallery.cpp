#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/sdf.h"
#include "forge/studio.h"
#include "forge/trace.h"

// "part3bak.jpg": a gallery of segmented rings over black water. Bright chrome bodies tumble in the mouth of the first
// ring, left of the middle, so its inside stays calm and dark; so do the columns from 420 on, where a strip is added.

namespace lumenfold::art {

namespace {

enum Part { water, wall, pillar, pillarLamp, block, tooth, ringLamp, rib, ribLamp, crease };

constexpr float waterHeight = -3.55F;
constexpr float ringDepth = 2.5F; // z of the great ring
constexpr float ringRadius = 4.25F;
constexpr int blockCount = 34;
constexpr int toothCount = 90;
constexpr float ribSpacing = 3.4F;
constexpr float pillarSpacing = 3.6F;
constexpr Vec3 creaseLeft = {-26, -1.75F, 17};
constexpr Vec3 creaseRight = {14, 0.35F, 17}; // rises three degrees

// The great ring: blocks of changing size on a rail, a toothed ring within, a lamp in the gap between.
Nearest greatRing(Vec3 p) {
    const Vec3 q = p - Vec3{0, 0, ringDepth};
    const float bound = sdf::ring(q, ringRadius + 0.1F, 0.85F, 0.55F);
    if (bound > 0.4F) {
        return {bound, block};
    }
    const sdf::Sector sector = sdf::sectored(q, blockCount);
    const auto random = [&](int which) { return hashUnit(sector.index, which, 0, 911); };
    const float length = 0.30F + 0.09F * random(0);
    const Vec3 place = sector.place - Vec3{ringRadius + 0.30F + 0.16F * random(1), 0, 0.14F * random(2)};
    const Vec3 half = {0.34F + 0.18F * random(3), length, 0.28F + 0.12F * random(4)};
    float body = sdf::box(place, half, 0.035F);
    const Vec3 front = {place.x, place.y, place.z + half.z};
    body = random(5) < 0.45F ? sdf::cut(body, sdf::box(front, {half.x * 0.62F, half.y * 0.62F, 0.05F}, 0.02F))
                             : sdf::cut(body, sdf::box(front, {0.025F, half.y * 2, 0.06F}));
    const Vec3 bolt = {std::fabs(place.x) - half.x * 0.80F, std::fabs(place.y) - half.y * 0.80F, front.z};
    body = std::min(body, sdf::sphere(bolt, 0.045F));
    Nearest nearest = {body, block};
    nearest = nearer(nearest, {sdf::ring(q, ringRadius + 0.30F, 0.10F, 0.16F, 0.02F), tooth});
    const sdf::Sector small = sdf::sectored(q, toothCount);
    const float teeth = sdf::box(small.place - Vec3{ringRadius - 0.36F, 0, 0}, {0.10F, 0.085F, 0.20F}, 0.02F);
    nearest = nearer(nearest, {std::min(teeth, sdf::ring(q, ringRadius - 0.40F, 0.07F, 0.15F, 0.02F)), tooth});
    return nearer(nearest, {sdf::torus(q - Vec3{0, 0, -0.10F}, ringRadius - 0.17F, 0.035F), ringLamp});
}

// The rings that follow the great one into the dark.
Nearest ribs(Vec3 p) {
    const float count = std::clamp(std::floor((p.z - ringDepth) / ribSpacing + 0.5F), 1.0F, 6.0F);
    const Vec3 q = p - Vec3{0, 0, ringDepth + count * ribSpacing};
    const float bound = sdf::ring(q, ringRadius + 0.25F, 0.50F, 0.40F);
    if (bound > 0.5F) {
        return {bound, rib};
    }
    const sdf::Sector sector = sdf::sectored(q, 24);
    const Vec3 place = sector.place - Vec3{ringRadius + 0.30F, 0, 0};
    Nearest nearest = {sdf::box(place, {0.34F, 0.50F, 0.26F}, 0.04F), rib};
    return nearer(nearest, {sdf::torus(q - Vec3{0, 0, -0.16F}, ringRadius - 0.13F, 0.022F), ribLamp});
}

struct Upright {
    Vec3 place; // from the pillar's axis
    int index;
};
Upright nearestPillar(Vec3 p) {
    const sdf::Copy copy = sdf::repeated(p.z - 1.2F, pillarSpacing);
    return {{std::fabs(p.x) - 6.7F, p.y, copy.place}, copy.index};
}

float creaseDistance(Vec3 p) {
    return sdf::capsule(p, creaseLeft, creaseRight, 0.035F);
}

Nearest nearestPart(Vec3 p) {
    const float ripple = p.y < waterHeight + 0.4F ? 0.020F * gradientNoise({0.8F * p.x, 5, 0.45F * p.z}, 921) +
                                                        0.004F * gradientNoise({2.6F * p.x, 2, 1.5F * p.z}, 922)
                                                  : 0;
    Nearest nearest = {0.9F * (p.y - waterHeight - ripple), water};
    nearest = nearer(nearest, greatRing(p));
    nearest = nearer(nearest, ribs(p));
    const Upright upright = nearestPillar(p);
    const Vec3 q = upright.place;
    nearest = nearer(nearest, {sdf::box({q.x, 0, q.z}, {0.55F, 9, 0.55F}, 0.10F), pillar});
    const sdf::Copy band = sdf::repeated(q.y, 1.6F);
    nearest = nearer(nearest, {sdf::box({q.x, band.place, q.z}, {0.64F, 0.10F, 0.64F}, 0.04F), pillar});
    const float y = q.y - std::clamp(q.y, waterHeight + 0.5F, 5.0F);
    nearest = nearer(nearest, {length(Vec3{q.x + 0.57F, y, q.z + 0.42F}) - 0.035F, pillarLamp});
    const sdf::Copy plate = sdf::repeated(p.y + 0.4F, 2.2F);
    const float joint = 0.07F * smoothStep(0.05F, 0.02F, 1.1F - std::fabs(plate.place));
    nearest = nearer(nearest, {std::min(8.6F - std::fabs(p.x), 7.5F - p.y) + joint, wall});
    return nearer(nearest, {creaseDistance(p), crease});
}

// The lamp of the great ring runs from ice at the upper left through teal to amber at the right.
Colour ringColour(Vec3 p) {
    const float side = p.x / ringRadius;
    const float up = p.y / ringRadius;
    const Colour cold = mix(palette::teal * 0.75F, palette::ice * 1.2F, smoothStep(0.1F, 1.3F, up - side));
    return mix(cold, palette::amber * 1.25F, smoothStep(0.25F, 0.75F, side - 0.25F * up));
}

// The same lamp's light on the blocks around it.
Colour spill(Vec3 p) {
    const float far = sdf::torus(p - Vec3{0, 0, ringDepth - 0.35F}, ringRadius - 0.17F, 0);
    return ringColour(p) * (0.16F / (0.12F + far * far));
}

Material steel(Colour base, float roughness) {
    Material m;
    m.base = base;
    m.metal = 0.62F;
    m.roughness = roughness;
    return m;
}

Material materialOf(int part, Vec3 p, Vec3) {
    const float grime = fractalNoise(p * 1.7F, 4, 931);
    Material m;
    switch (part) {
    case water:
        m = steel(Colour{0.13F, 0.20F, 0.23F}, 0.010F);
        m.metal = 0.97F;
        break;
    case block: {
        const int index = sdf::sectored(p - Vec3{0, 0, ringDepth}, blockCount).index;
        m = steel(mix(Colour{0.04F, 0.12F, 0.14F}, Colour{0.20F, 0.40F, 0.44F}, hashUnit(index, 8, 0, 932)),
                  0.03F + 0.06F * hashUnit(index, 9, 0, 932));
        m.base = m.base * (0.85F + 0.6F * grime);
        m.emission = m.base * spill(p);
        break;
    }
    case tooth:
        m = steel(Colour{0.30F, 0.36F, 0.38F} * (0.8F + 0.6F * grime), 0.12F);
        m.emission = m.base * spill(p) * 0.5F;
        break;
    case ringLamp: {
        const sdf::Sector dash = sdf::sectored(p - Vec3{0, 0, ringDepth}, blockCount);
        const float on = hashUnit(dash.index, 3, 0, 933) < 0.86F ? 1.0F : 0.06F;
        m.emission = ringColour(p) * (5.5F * on);
        break;
    }
    case rib:
        m = steel(mix(palette::deep, palette::petrol, 0.5F + grime) * 1.1F, 0.16F);
        break;
    case ribLamp: { // only their upper left shines, ever weaker
        const float upperLeft = smoothStep(0.1F, 0.9F, (p.y - p.x) / ringRadius);
        m.emission = palette::teal * (1.6F * upperLeft * exponential(-0.10F * p.z)) + palette::ink;
        break;
    }
    case pillarLamp: {
        const bool right = p.x > 0;
        m.base = palette::ink;
        const float row = 0.7F * p.y - std::floor(0.7F * p.y);
        const float on = row < 0.82F && (!right || p.z > 3) ? 1.0F : 0.0F; // none in the strip's columns
        m.emission = right ? palette::amber * (0.9F * on) : (palette::teal * 1.8F + palette::ice * 0.4F) * on;
        break;
    }
    case crease:
        m.emission = palette::ice * (9.0F * smoothStep(creaseRight.x, creaseRight.x - 16, p.x));
        break;
    case pillar:
        m = steel(mix(palette::deep * 0.8F, palette::petrol, 0.4F + grime), 0.20F);
        m.metal = 0.5F;
        break;
    default: // wall
        m.base = palette::petrol * (0.8F + 0.8F * grime);
        m.metal = 0.3F;
        m.roughness = 0.25F;
        break;
    }
    return m;
}

Colour haze(Vec3 p) {
    const auto around = [](float distance, float width) { return 1 / (distance * distance + width * width); };
    const Vec3 q = p - Vec3{0, 0, ringDepth};
    Colour light = ringColour(p) * (0.0055F * around(sdf::torus(q, ringRadius - 0.17F, 0), 0.16F));
    light += palette::ice *
             (0.006F * around(creaseDistance(p) + 0.035F, 0.30F) * smoothStep(creaseRight.x, creaseRight.x - 16, p.x));
    const float shaft = smoothStep(1.6F, 0, std::fabs(p.x + 0.55F * p.y + 2.6F) - 0.4F); // the key from upper left
    light += palette::petrol * (0.035F * shaft * smoothStep(-4, 7, p.y));
    return light + palette::petrol * (0.0060F * exponential(-0.7F * (p.y - waterHeight)));
}

World galleryWorld() {
    World world;
    world.nearest = nearestPart;
    world.material = materialOf;
    world.sky = [](Vec3 direction) {
        return studioLight({direction.x, direction.y, -direction.z}) *
               mix(0.9F, 0.06F, smoothStep(-0.4F, 0.6F, direction.z));
    };
    world.glow = haze;
    world.keyDirection = {-0.65F, 0.75F, -0.60F};
    world.keyLight = palette::ice * 2.6F;
    world.fog = palette::deep * 0.16F;
    world.fogDensity = 0.11F;
    world.fogStart = 7;
    world.farthest = 34;
    world.reflections = 2;
    return world;
}

} // namespace

void makeRingGallery(const std::string& path) {
    const Camera camera = {{0, 0, -5}, {0, 0, 0}, 1.06F, 0};
    const World world = galleryWorld();
    // the gallery's vanishing point lies at column 195, behind the tumbling body
    Picture picture = renderPicture(
        512, 384, 4,
        [&](float x, float y, std::uint32_t seed) { return trace(world, camera.through(x + 61, y, 512, 384), seed); },
        0.25F);
    picture = withBloom(picture, {2.5F, 0.12F, 16, 0.12F}, Edge::clamp);
    picture.change([](Colour c, int x, int) { // the strip's ground
        return c * mix(1, 0.42F, smoothStep(385, 430, static_cast<float>(x)));
    });
    addVignette(picture, 0.45F);
    writeBitmap(path, developed(picture, {1.3F, true, 0.6F}));
}

} // namespace lumenfold::art
