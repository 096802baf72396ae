#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// Textures of the large objects: one bay of the opening's tunnel, lamps, the medallion in the hall's floor, and the
// light at the ends of the flight. Light and shade are painted in, as nothing else lights the objects.

namespace lumenfold::art {

namespace {

constexpr int fine = 512;
constexpr float ribCentre = 0.8125F; // the bay's rib takes 0.667 to 0.958 of its length

float fraction(float x) {
    return x - std::floor(x);
}
float between(float x, float low, float high, float soft) {
    return smoothStep(low - soft, low + soft, x) * smoothStep(high + soft, high - soft, x);
}

struct BayPlace {
    float along;  // 0 to 1 over the bay
    float around; // 0 to 1 over one tile
};

float bayHeight(BayPlace p) {
    const float row = fraction(2 * p.around);
    const float panel = between(p.along, 0.06F, 0.60F, 0.012F) * between(row, 0.05F, 0.95F, 0.02F);
    const float tread = between(p.along, 0.12F, 0.54F, 0.010F) * between(row, 0.16F, 0.84F, 0.02F);
    const float slats = 0.5F + 0.5F * sine(2 * pi * 14 * p.along);
    const bool vent = p.around < 0.5F;
    const float rib = between(p.along, 0.66F, 0.965F, 0.012F) * between(fraction(4 * p.around), 0.04F, 0.96F, 0.03F);
    const float groove = bell(p.along - ribCentre, 0.020F);
    return 0.55F * panel + (vent ? 0.30F * tread * slats : -0.22F * tread) + 1.0F * rib - 0.8F * groove * rib +
           0.04F * fractalNoise({6 * p.along, 6 * p.around, 3}, 3, 601, {6, 6});
}

Picture tunnelBay(bool turned) {
    const auto placeOf = [turned](float u, float v) { return turned ? BayPlace{v, u} : BayPlace{u, v}; };
    const Relief heights = Relief(fine, [&](float u, float v) { return bayHeight(placeOf(u, v)); }).lowPass(1.1F);
    const Vec3 key = normalize(Vec3{-0.45F, -0.55F, 0.70F});
    const Vec3 rim = normalize(Vec3{0.80F, 0.45F, 0.35F});
    Picture picture = shadedRelief(256, heights, [&](int x, int y) {
        const BayPlace p = placeOf((static_cast<float>(x) + 0.5F) / fine, (static_cast<float>(y) + 0.5F) / fine);
        const Vec3 normal = heights.normal(x, y, 0.016F);
        const float grime = fractalNoise({4 * p.along, 4 * p.around, 6}, 4, 602, {4, 4});
        const float fromLamp = std::min(std::fabs(p.along - ribCentre), std::fabs(p.along + 1 - ribCentre));
        const Colour body = mix(palette::deep, palette::petrol, saturate(0.45F + 1.1F * grime));
        // dusk in the middle of the bay, the rib's lamp lights its neighbourhood
        Colour light = body * (0.06F + 0.55F * saturate(dot(normal, key))) * (0.30F + 1.2F * bell(fromLamp, 0.13F));
        light += palette::teal * (0.07F * bell(fromLamp, 0.10F));
        light += palette::ice * (0.16F * power(saturate(dot(normal, normalize(key + Vec3{0, 0, 1}))), 30));
        light += mix(palette::ember, palette::amber, 0.4F) * (0.5F * std::max(0.0F, dot(normal, rim) - 0.4F));
        const float dash = between(fraction(4 * p.around), 0.10F, 0.90F, 0.04F);
        light += (palette::teal * (2.2F * bell(p.along - ribCentre, 0.020F)) +
                  palette::ice * (2.0F * bell(p.along - ribCentre, 0.009F))) *
                 dash;
        const float slot = between(p.along, 0.18F, 0.48F, 0.01F) * bell(p.around - 0.75F, 0.013F);
        light += (palette::amber * 1.6F) * slot;
        return light;
    });
    return withBloom(picture, {2.0F, 0.12F, 9, 0.14F}, Edge::wrap);
}

} // namespace

// "tunbay1.jpg", "tunbay2.jpg": a bay of the tunnel, along the columns and along the rows.
Bitmap makeTunnelBay() {
    return developed(tunnelBay(false), {1.9F, true, 0.6F});
}
Bitmap makeTunnelBayTurned() {
    return developed(tunnelBay(true), {1.9F, true, 0.6F});
}

// "lamps.jpg": four bands of 64 rows: amber, teal and ice light lines in a dark frame, and a vent.
Bitmap makeLampBands() {
    Picture picture = texture(256, 3, [](float u, float v) -> Colour {
        const int band = static_cast<int>(4 * v);
        const float across = fraction(4 * v) - 0.5F;
        const float part = fraction(4 * u);
        const float on = between(part, 0.03F, 0.97F, 0.012F);
        const float frame = between(std::fabs(across), 0.36F, 0.60F, 0.015F);
        const Colour metal = palette::petrol * (0.25F + 0.5F * bell(std::fabs(across) - 0.42F, 0.03F));
        if (band == 3) {
            const float slat = 0.5F + 0.5F * sine(2 * pi * 16 * u);
            const float inside = between(std::fabs(across), -0.1F, 0.33F, 0.02F);
            return metal * frame + mix(palette::deep * 0.25F, palette::petrol * 0.9F, slat * slat) * inside;
        }
        const Colour lamp = band == 0   ? palette::amber
                            : band == 1 ? palette::teal
                                        : mix(palette::teal, palette::ice, 0.7F);
        const Colour core = band == 0 ? palette::gold : palette::ice;
        return metal * frame + (lamp * (1.3F * bell(across, 0.15F)) + core * (1.7F * bell(across, 0.07F))) * on +
               lamp * (0.10F * bell(across, 0.3F));
    });
    picture = withBloom(picture, {1.5F, 0.08F, 4, 0.04F}, Edge::wrap);
    return developed(picture, {1.2F, true, 0.5F});
}

// "medal1.jpg": a quarter of a round medallion, its middle in the upper left corner, radius 256 texels: rings in
// segments with light between, steps that glow at 0.93 and 0.62 of the radius, a lens of light inside.
Bitmap makeMedallion() {
    Picture picture = texture(256, 4, [](float u, float v) -> Colour {
        const float r = length(u, v);
        const float turn = angleOf(v, u) / (pi / 2); // 0 to 1 over the quarter
        struct Ring {
            float inner, outer;
            int parts;
            Colour body;
        };
        static const Ring rings[] = {{0.145F, 0.245F, 6, fromHex(0x7A3016) * 0.9F},
                                     {0.275F, 0.40F, 4, fromHex(0x4A1A0A) * 1.6F},
                                     {0.42F, 0.585F, 9, fromHex(0x7A3016) * 0.55F},
                                     {0.66F, 0.76F, 12, fromHex(0x4A1A0A) * 1.5F},
                                     {0.775F, 0.90F, 5, fromHex(0x7A3016) * 0.6F}};
        Colour light = fromHex(0x0A0604) * 0.6F;
        for (const Ring& ring : rings) {
            const float width = ring.outer - ring.inner;
            const float part = turn * static_cast<float>(ring.parts);
            const float gap = std::min(fraction(part), 1 - fraction(part)) / static_cast<float>(ring.parts) * r * 1.57F;
            const float inside = std::min({r - ring.inner, ring.outer - r, gap - 0.004F});
            const float plate = smoothStep(0, 0.008F, inside);
            const float bevel = smoothStep(0.030F, 0.004F, inside);
            const float shade = 0.75F + 0.5F * hashUnit(static_cast<int>(part), ring.parts, 0, 611);
            const float brushed = 1 + 0.25F * gradientNoise({r * 90, turn * 3, 1}, 612);
            light += ring.body * (plate * shade * brushed * (0.55F + 0.5F * (r - ring.inner) / width));
            light += fromHex(0xFFD9A0) * (0.22F * plate * bevel * (r - ring.inner < width * 0.5F ? 0.4F : 1.0F));
        }
        const auto line = [&](float radius, float width) { return bell(r - radius, width); };
        const float dash = between(fraction(6 * turn), 0.12F, 0.88F, 0.02F);
        light += (palette::amber * 2.2F) * line(0.26F, 0.006F) + (palette::gold * 0.8F) * line(0.26F, 0.003F);
        light +=
            (fromHex(0xE8641C) * 1.8F) * (line(0.41F, 0.004F) * dash) + (palette::amber * 1.5F) * line(0.77F, 0.003F);
        light += fromHex(0xE8641C) * (0.9F * line(0.62F, 0.018F)) + fromHex(0xFFD9A0) * (0.8F * line(0.62F, 0.006F));
        light += fromHex(0xE8641C) * (0.7F * line(0.93F, 0.016F)) + fromHex(0xFFD9A0) * (0.5F * line(0.93F, 0.005F));
        // the crease of light across the lens
        const float lens = smoothStep(0.135F, 0.120F, r);
        const float iris = 0.6F + 0.4F * sine(24 * 2 * pi * turn / 4 + 30 * r);
        light += (fromHex(0xFFD9A0) * (1.6F * bell(r, 0.024F)) +
                  fromHex(0xE8641C) * (0.7F * iris * bell(r - 0.075F, 0.022F)) + fromHex(0x7A3016) * 0.8F +
                  palette::amber * (0.7F * bell(r - 0.115F, 0.008F))) *
                 lens;
        light += palette::amber * (1.6F * bell(r - 0.135F, 0.006F));
        light += fromHex(0xFFD9A0) * (0.5F * bell(v, 0.006F) * smoothStep(0.9F, 0.1F, r));
        return light * (0.65F + 0.35F * smoothStep(1.0F, 0.2F, r));
    });
    picture = withBloom(picture, {2.0F, 0.12F, 10, 0.12F}, Edge::clamp);
    return developed(picture, {1.15F, true, 0.6F});
}

// "dawn1.jpg": daybreak beyond the ends of the flight, horizon at 0.58 of the height: a low sun on a crease of light.
Bitmap makeDawn() {
    Picture picture = texture(256, 3, [](float u, float v) -> Colour {
        const float above = 0.58F + 0.05F * (0.5F - u) - v; // the crease rises to the right
        const float streaks = fractalNoise({3 * u, 14 * v, 2}, 5, 621);
        const float fromSun = length(u - 0.44F, 1.2F * (above - 0.045F));
        const Colour rose = fromHex(0xF2789A);
        const Colour gold = fromHex(0xFFD28A);
        Colour light;
        if (above > 0) {
            light = mix(gold, rose, smoothStep(0.0F, 0.14F, above + 0.05F * streaks));
            light = mix(light, fromHex(0x7A5A86), smoothStep(0.10F, 0.30F, above));
            light = mix(light, fromHex(0x1E4A5C), smoothStep(0.24F, 0.52F, above)) * 0.85F;
            light += gold * (0.55F * smoothStep(0.05F, 0.45F, streaks) * bell(above - 0.12F, 0.10F));
            light +=
                gold * (0.9F * bell(fromSun, 0.10F)) + fromHex(0xFFF0C8) * (2.2F * smoothStep(0.074F, 0.064F, fromSun));
        } else {
            const float trail = bell(u - 0.44F, 0.06F - 0.14F * above);
            const float glitter = saturate(0.5F + 1.6F * fractalNoise({7 * u, 40 * v, 5}, 3, 622));
            light = mix(rose * 0.55F, fromHex(0x0C1E2C), smoothStep(0, -0.22F, above));
            light += gold * (1.5F * trail * glitter * bell(above, 0.14F));
        }
        return light + Colour{1, 1, 1} * (1.6F * bell(above, 0.005F));
    });
    picture = withBloom(picture, {2.5F, 0.14F, 16, 0.14F}, Edge::clamp);
    return developed(picture, {1.0F, true, 0.8F});
}

// "glow1.jpg": the flare behind the aircraft's engines, added: two cores on a long streak, black at the rim.
Bitmap makeEngineGlow() {
    Picture picture = texture(256, 3, [](float u, float v) -> Colour {
        const float x = u - 0.5F;
        const float y = v - 0.5F;
        const float rim = smoothStep(0.48F, 0.22F, length(x, y));
        const float core = bell(length(std::fabs(x) - 0.055F, 1.6F * y), 0.030F);
        Colour light = (palette::amber * 1.5F + palette::gold * 0.7F) * core;
        light += palette::amber * (0.40F * bell(length(x, 1.3F * y), 0.10F)) +
                 palette::ember * (0.35F * bell(length(x, y), 0.18F));
        light += palette::teal * (0.55F * bell(y, 0.012F) * bell(x, 0.20F)) +
                 palette::ice * (0.8F * bell(y, 0.005F) * bell(x, 0.15F));
        return light * rim;
    });
    return withTrueBlack(developed(picture, {1.1F, true, 0.6F}), 4);
}

} // namespace lumenfold::art
