#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// Walls for the objects: plates, ribs, dressed stone. Drawn without filtering, often at a slant, so their joints are
// wide and their grain is soft.

namespace lumenfold::art {

namespace {

constexpr int fine = 512;

// One rectangular plate of a wall: its corners in 0 to 1 of the tile.
struct Plate {
    float left, top, right, bottom;
};

// Which plate a place belongs to and how far it is inside it.
struct OnPlate {
    int index = 0;
    float inside = 0; // distance to the nearest edge, in units of the tile
    Plate plate{};
    float u = 0; // the place's column as this plate counts it
};

OnPlate find(const Plate* plates, int count, float u, float v) {
    OnPlate best{0, -1, {}, u};
    for (int i = 0; i < count; ++i) {
        const Plate& p = plates[i];
        for (const float shift : {-1.0F, 0.0F, 1.0F}) { // plates may reach over the tile's right edge
            const float x = u + shift;
            const float inside = std::min({x - p.left, p.right - x, v - p.top, p.bottom - v});
            if (inside > best.inside) {
                best = {i, inside, p, x};
            }
        }
    }
    return best;
}

// Dull steel lit from the upper left with a warm rim from the lower right.
Colour steel(Vec3 normal, Colour body, float shine) {
    static const Vec3 key = normalize(Vec3{-0.50F, -0.62F, 0.62F});
    static const Vec3 rim = normalize(Vec3{0.80F, 0.50F, 0.30F});
    const float lit = saturate(dot(normal, key));
    const float back = saturate(dot(normal, rim));
    Colour light = body * (0.18F + 0.82F * lit);
    light += palette::ice * (shine * power(saturate(dot(normal, normalize(key + Vec3{0, 0, 1}))), 36));
    light +=
        mix(palette::ember, palette::amber, 0.4F) * (0.30F * std::max(0.0F, back - 0.35F) * (0.4F + 6 * largest(body)));
    return light;
}

Vec3 placeOf(int x, int y) {
    return {(static_cast<float>(x) + 0.5F) / fine, (static_cast<float>(y) + 0.5F) / fine, 0.5F};
}

// 1 inside a horizontal slot with rounded ends.
float slot(float u, float v, float left, float right, float row, float radius) {
    const float dx = u - std::clamp(u, left, right);
    return smoothStep(radius * 1.15F, radius * 0.75F, length(dx, v - row));
}

} // namespace

// "hullpan.jpg": dark hull plates of different sizes, with bolts and two short light slots.
Bitmap makeHullPanels() {
    static const Plate plates[] = {{0.00F, 0.00F, 0.62F, 0.36F}, {0.62F, 0.00F, 1.00F, 0.20F},
                                   {0.62F, 0.20F, 1.00F, 0.62F}, {0.00F, 0.36F, 0.30F, 1.00F},
                                   {0.30F, 0.36F, 0.62F, 0.74F}, {0.30F, 0.74F, 1.14F, 1.00F},
                                   {0.62F, 0.62F, 1.00F, 0.74F}, {0.14F, 0.74F, 0.30F, 1.00F}};
    constexpr int count = sizeof plates / sizeof plates[0];
    const Relief heights =
        Relief(fine, [](float u, float v) {
            const OnPlate on = find(plates, count, u, v);
            const float raised = smoothStep(0.006F, 0.026F, on.inside);
            const float tread = 0.12F * smoothStep(0.052F, 0.060F, on.inside);
            const float bolt = smoothStep(0.016F, 0.008F,
                                          length(std::fabs(std::fabs(on.u - 0.5F * (on.plate.left + on.plate.right)) -
                                                           0.5F * (on.plate.right - on.plate.left) + 0.04F),
                                                 std::fabs(v - 0.5F * (on.plate.top + on.plate.bottom)) -
                                                     0.5F * (on.plate.bottom - on.plate.top) + 0.04F));
            return raised - tread * (hashUnit(on.index, 4, 0, 7) > 0.4F ? 1.0F : 0.0F) + 0.35F * bolt +
                   0.05F * fractalNoise({8 * u, 8 * v, 3}, 3, 501, {8, 8});
        }).lowPass(1.2F);
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const Vec3 p = placeOf(x, y);
        const OnPlate on = find(plates, count, p.x, p.y);
        const float grime = fractalNoise({5 * p.x, 3 * p.y, 6}, 4, 502, {5, 3});
        Colour body = mix(palette::deep, palette::petrol, 0.2F + 0.6F * hashUnit(on.index, 1, 0, 503));
        body = body * (1.1F + 1.1F * grime) * (0.75F + 0.25F * smoothStep(0, 0.09F, on.inside));
        Colour light =
            steel(heights.normal(x, y, 0.014F), body, 0.22F) * mix(0.15F, 1, smoothStep(0.002F, 0.012F, on.inside));
        light += (palette::teal * 1.3F + palette::ice * 0.5F) * slot(p.x, p.y, 0.70F, 0.92F, 0.105F, 0.014F);
        light += (palette::amber * 1.3F) * slot(p.x, p.y, 0.07F, 0.22F, 0.88F, 0.014F);
        return light;
    });
    picture = withBloom(picture, {2.5F, 0.14F, 10, 0.12F}, Edge::wrap);
    return developed(picture, {1.25F, true, 0.6F});
}

} // namespace lumenfold::art
