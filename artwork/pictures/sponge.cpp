#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/parallel.h"
#include "forge/sdf.h"
#include "forge/studio.h"
#include "forge/trace.h"

// "svampbak.jpg": a cavern of living sponge. Bubbles of many sizes eat a body that glows from behind; the same
// bubbles, four times smaller, pierce what is left with pores. The middle right stays dark: flares ring there.

namespace lumenfold::art {

namespace {

constexpr int cells = 4;  // bubbles per period along each axis, one unit each
constexpr int grain = 24; // samples of the table per unit
constexpr int side = cells * grain;

// Distance to the bubbles' joined surface, positive outside, for a pattern that repeats after `cells` units.
float bubbles(Vec3 p) {
    const int cx = static_cast<int>(std::floor(p.x));
    const int cy = static_cast<int>(std::floor(p.y));
    const int cz = static_cast<int>(std::floor(p.z));
    const auto around = [](int i) { return ((i % cells) + cells) % cells; };
    float joined = 0; // exponential smooth minimum: round necks where bubbles meet
    for (int z = cz - 1; z <= cz + 1; ++z) {
        for (int y = cy - 1; y <= cy + 1; ++y) {
            for (int x = cx - 1; x <= cx + 1; ++x) {
                const std::uint32_t id = hashOf(around(x), around(y), around(z), 431);
                const Vec3 centre = {static_cast<float>(x) + 0.15F + 0.70F * unitOf(id, 0),
                                     static_cast<float>(y) + 0.15F + 0.70F * unitOf(id, 1),
                                     static_cast<float>(z) + 0.15F + 0.70F * unitOf(id, 2)};
                const float radius = 0.36F + 0.24F * unitOf(id, 3);
                joined += exponential(-13 * (length(p - centre) - radius));
            }
        }
    }
    return -logarithm(std::max(joined, 1e-9F)) / 13;
}

// The bubbles sampled once, since the tracer asks millions of times.
class BubbleTable {
  public:
    BubbleTable() : samples(static_cast<std::size_t>(side) * side * side) {
        parallelFor(side, [&](int z) {
            for (int y = 0; y < side; ++y) {
                for (int x = 0; x < side; ++x) {
                    samples[at(x, y, z)] = bubbles(
                        Vec3{static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)} * (1.0F / grain));
                }
            }
        });
    }

    float operator()(Vec3 p) const {
        const Vec3 q = p * static_cast<float>(grain);
        const Vec3 low = {std::floor(q.x), std::floor(q.y), std::floor(q.z)};
        const Vec3 f = q - low;
        const int x = wrapped(low.x);
        const int y = wrapped(low.y);
        const int z = wrapped(low.z);
        const auto row = [&](int v, int w) { return mix(samples[at(x, v, w)], samples[at(next(x), v, w)], f.x); };
        return mix(mix(row(y, z), row(next(y), z), f.y), mix(row(y, next(z)), row(next(y), next(z)), f.y), f.z);
    }

  private:
    static std::size_t at(int x, int y, int z) { return (static_cast<std::size_t>(z) * side + y) * side + x; }
    static int wrapped(float i) { return ((static_cast<int>(i) % side) + side) % side; }
    static int next(int i) { return i + 1 == side ? 0 : i + 1; }
    std::vector<float> samples;
};

const BubbleTable& table() {
    static const BubbleTable made;
    return made;
}

constexpr float poreScale = 4.3F;

// The hollow that the viewer looks into: a gallery that winds away, wide at the middle right.
float hollow(Vec3 p) {
    const float bendX = 0.55F + 0.30F * sine(0.5F * p.z);
    const float bendY = 0.10F + 0.25F * sine(0.4F * p.z + 1);
    return length((p.x - bendX) * 0.80F, p.y - bendY) - 1.15F;
}

Nearest sponge(Vec3 p) {
    float body = -table()(p); // the body is what the bubbles leave
    body = sdf::smoothCut(body, hollow(p), 0.35F);
    if (body < 0.14F) {
        const float pore = table()(p * poreScale + Vec3{0.3F, 1.7F, 0.9F}) / poreScale;
        body = sdf::smoothCut(body, pore + 0.035F, 0.045F);
    }
    return {0.75F * body, 0};
}

constexpr Vec3 eye = {0.35F, 0.15F, -1.6F};
constexpr Vec3 lamp = {2.0F, -1.35F, 2.2F}; // the amber glow, behind the wall at the lower right

Material flesh(int, Vec3 p, Vec3 normal) {
    Material m;
    const float stain = fractalNoise(p * 1.4F, 3, 441);
    m.base = mix(palette::deep, palette::petrol * 0.9F, smoothStep(-0.3F, 0.4F, stain));
    m.base = mix(m.base, palette::teal * 0.8F, 0.6F * smoothStep(0.2F, 0.6F, stain + 0.3F * normal.y));
    // the ground in front lies in dusk: the tube stands on it and outshines it
    const float ground =
        smoothStep(0.15F, 0.75F, normal.y) * smoothStep(-0.25F, -0.75F, p.y) * smoothStep(3.5F, 1.0F, p.z);
    m.base = m.base * (1 - 0.78F * ground);
    m.metal = 0.25F * (1 - 0.6F * ground);
    m.roughness = 0.03F;
    // light that comes through thin walls: how soon the body ends on the way towards the lamps
    const auto through = [&](Vec3 direction, float depth) {
        return smoothStep(-0.09F, 0.10F, sponge(p + direction * depth).distance);
    };
    const Vec3 toLamp = lamp - p;
    const float far = dot(toLamp, toLamp);
    const float edge = 0.25F + 0.75F * power(1 - saturate(-normal.z), 2);
    const float warm = through(normalize(toLamp), 0.15F) * edge / (0.25F + 0.65F * far);
    m.emission += mix(palette::ember, palette::amber, saturate(2.2F * warm)) * (2.9F * warm);
    const float cold = through(normalize({-0.5F, 0.8F, 0.5F}), 0.13F) * edge * (1 - 0.85F * ground);
    m.emission += palette::teal * (0.22F * cold * exponential(-0.35F * std::max(0.0F, p.z)));
    // the crease: a thin sheet of light, nearly in line with the eye, drawn over whatever it meets
    const float sheet = p.y - eye.y + 0.07F + 0.40F * (p.z - eye.z) - 0.052F * (p.x - eye.x);
    const float fading = exponential(-0.30F * std::max(0.0F, p.z));
    m.emission +=
        (palette::ice * (1.5F * bell(sheet, 0.004F)) + palette::teal * (0.30F * bell(sheet, 0.035F))) * fading;
    return m;
}

World spongeWorld() {
    World world;
    world.nearest = sponge;
    world.material = flesh;
    world.sky = [](Vec3 direction) {
        static const SoftBox crease = {{-0.2F, 0.72F, -0.70F}, {-0.05F, 1, 0}, 1.5F, 0.02F, 0.04F};
        return studioLight({direction.x, direction.y, -direction.z}) * 0.8F +
               palette::ice * (2.5F * seen(crease, direction));
    };
    world.glow = [](Vec3 p) {
        const Vec3 d = p - lamp;
        return mix(palette::ember, palette::amber, 0.6F) * (0.010F / (0.12F + dot(d, d)));
    };
    world.keyDirection = {-0.6F, 0.75F, -0.55F};
    world.keyLight = palette::ice * 4.2F;
    world.fog = mix(palette::ink, palette::deep, 0.25F) * 0.7F;
    world.fogDensity = 0.42F;
    world.fogStart = 1.6F;
    world.farthest = 9;
    world.reflections = 2;
    world.ambientReach = 0.32F;
    return world;
}

} // namespace

void makeSpongeCavern(const std::string& path) {
    const Camera camera = {eye, {0.35F, 0.10F, 2}, 0.95F, 0.02F};
    const World world = spongeWorld();
    // the gallery ends to the right of the middle, where the flares will ring
    Picture picture = renderPicture(
        512, 384, 4,
        [&](float x, float y, std::uint32_t seed) { return trace(world, camera.through(x - 70, y, 512, 384), seed); },
        0.25F);
    picture = withBloom(picture, {2.5F, 0.10F, 18, 0.10F}, Edge::clamp);
    addVignette(picture, 0.5F);
    writeBitmap(path, developed(picture, {1.9F, true, 0.6F}));
}

} // namespace lumenfold::art
