#include "artwork/pictures/crease.h"
#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/parallel.h"

// "bkfire.jpg": a wreath of folded flame on true black, added over a turning tunnel behind a cube. The flame is drawn
// as sheets of burning silk: every sheet is a strip (u around the wreath, v from its root outwards) that moving air has
// bent. Points scattered evenly over the strip fall on the picture; where the sheet lies folded they crowd together,
// and the fold shows as a sharp crease, white hot.

namespace lumenfold::art {

namespace {

constexpr int width = 512;
constexpr int height = 384;
constexpr int pointsAround = 6000; // per sheet
constexpr int pointsAlong = 420;

struct Sheet {
    float radius;    // of the root, in pixels
    float reach;     // from root to tip, negative inwards
    float swirl;     // radians that the tips lag behind
    float roughness; // how far the air bends it, in pixels
    float heat;      // weight of its light
    std::uint32_t seed;
};
constexpr Sheet sheets[] = {{140, 260, 0.95F, 88, 1.2F, 301},  {152, 190, 1.35F, 66, 1.0F, 312},
                            {134, 320, 0.60F, 104, 1.2F, 323}, {170, 210, -0.75F, 70, 0.9F, 334},
                            {146, 380, 1.15F, 120, 1.0F, 345}, {138, 70, 0.50F, 46, 0.8F, 356},
                            {142, -62, 0.90F, 52, 0.55F, 367}};

// How a point of the sheet lies in the picture, after the air has bent it: a broad bend, then a finer one of the bent
// place, so that folds fold again.
Point2 bentPlace(const Sheet& sheet, float u, float v) {
    const float angle = 2 * pi * u + sheet.swirl * v * (0.5F + 0.5F * v);
    const float tongue = 0.55F + 0.9F * fractalNoise({9 * u, 1.3F * v, 4}, 3, sheet.seed, {9, 0});
    const float waist = 30 * gradientNoise({3 * u, 0.4F, 2}, sheet.seed + 7, {3, 0});
    const float r = sheet.radius + waist + sheet.reach * v * (0.35F + 0.65F * std::max(0.05F, tongue + 0.3F));
    Point2 p = {1.10F * r * cosine(angle), 0.84F * r * sine(angle)};
    const float lift = std::fabs(sheet.reach) * 0.30F * v * v;
    const float loose = 0.30F + 0.70F * smoothStep(0, 0.6F, v); // the root moves least
    const Vec3 broad = {p.x / 96, p.y / 96, 0.55F * v};
    const float bx = gradientNoise(broad, sheet.seed + 1);
    const float by = gradientNoise(broad, sheet.seed + 2);
    p = {p.x + sheet.roughness * loose * bx, p.y + sheet.roughness * loose * by - lift};
    const Vec3 finer = {p.x / 34, p.y / 34, 1.1F * v + 7};
    const float fx = gradientNoise(finer, sheet.seed + 3);
    const float fy = gradientNoise(finer, sheet.seed + 4);
    const float small = 0.30F * sheet.roughness * loose;
    return {p.x + small * fx, p.y + small * fy};
}

// Threads of the silk: bright lines along v, thinner than the sheet's folds.
float threads(const Sheet& sheet, float u, float v) {
    const float fine = ridgedNoise({150 * u, 1.7F * v, 2}, 2, sheet.seed + 5, {150, 0});
    const float broad = 0.5F + gradientNoise({26 * u, 1.2F * v, 8}, sheet.seed + 6, {26, 0});
    const float burning = smoothStep(-0.32F, 0.30F, gradientNoise({4 * u, 0.3F, 5}, sheet.seed + 8, {4, 0}));
    return burning * std::max(0.0F, broad) * (0.16F + 2.0F * power(saturate(fine), 4));
}

Colour flameColour(float v) {
    const Colour body = mix(fromHex(0xFFC46A), fromHex(0xFF5A1A), smoothStep(0.0F, 0.28F, v));
    return mix(body, fromHex(0x8A0E14), smoothStep(0.30F, 0.95F, v));
}

void splat(Picture& picture, Point2 p, Colour light) {
    const float x = p.x + width / 2.0F - 0.5F;
    const float y = p.y + height / 2.0F - 0.5F;
    const int column = static_cast<int>(std::floor(x));
    const int row = static_cast<int>(std::floor(y));
    if (column < 0 || row < 0 || column + 1 >= width || row + 1 >= height) {
        return;
    }
    const float fx = x - static_cast<float>(column);
    const float fy = y - static_cast<float>(row);
    picture.at(column, row) += light * ((1 - fx) * (1 - fy));
    picture.at(column + 1, row) += light * (fx * (1 - fy));
    picture.at(column, row + 1) += light * ((1 - fx) * fy);
    picture.at(column + 1, row + 1) += light * (fx * fy);
}

Picture burn(const Sheet& sheet) {
    Picture picture(width, height);
    for (int i = 0; i < pointsAround; ++i) {
        for (int k = 0; k < pointsAlong; ++k) {
            const float u = (static_cast<float>(i) + hashUnit(i, k, 0, sheet.seed)) / pointsAround;
            const float v = (static_cast<float>(k) + hashUnit(i, k, 1, sheet.seed)) / pointsAlong;
            const float fade = smoothStep(0, 0.30F, v) * power(1 - v, 1.3F);
            const float weight = fade * threads(sheet, u, v);
            if (weight > 0.01F) {
                const float area = std::fabs(sheet.reach) * sheet.radius / 15000;
                splat(picture, bentPlace(sheet, u, v), flameColour(v) * (0.060F * weight * sheet.heat * area));
            }
        }
    }
    return picture;
}

} // namespace

Bitmap makeFireWreath() {
    constexpr int count = sizeof sheets / sizeof sheets[0];
    std::vector<Picture> burnt(count, Picture(1, 1));
    parallelFor(count, [&](int i) { burnt[static_cast<std::size_t>(i)] = burn(sheets[i]); });
    Picture picture(width, height);
    picture.change([&](Colour, int x, int y) {
        Colour sum;
        for (const Picture& sheet : burnt) {
            sum += sheet.at(x, y);
        }
        const float hot = luminance(sum); // crowded folds glow towards gold
        sum = sum * (0.20F + 2.0F * hot) + palette::gold * (0.40F * hot * hot);
        return sum;
    });
    picture = withBloom(picture, {2.5F, 0.14F, 14, 0.08F}, Edge::clamp);
    addCrease(picture);
    return withTrueBlack(developed(picture, {0.8F, true, 0}), 6);
}

} // namespace lumenfold::art
