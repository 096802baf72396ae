#include "artwork/textures/textures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/relief.h"

// The two textures of the ray-cast fields, which move fast and are sampled without filtering.

namespace lumenfold::art {

namespace {

// Distance to the nearest multiple of 1, 0 to 0.5.
float fromLine(float x) {
    return std::fabs(x - std::floor(x + 0.5F));
}

// A lamp under glass: a hot core in a soft glow.
Colour tube(float distance, float width, Colour colour) {
    return colour * bell(distance, width) + palette::ice * (0.55F * bell(distance, width * 0.45F));
}

} // namespace

// "fdgrid.jpg": glass floor over light channels. One large plate to a tile, seen far off at grazing angles and
// scrolled 22 texels a frame: nothing in it is narrower than about eight texels.
void makeFloorGrid(const std::string& path) {
    Picture picture = texture(256, 3, [](float u, float v) {
        const float du = fromLine(u);
        const float dv = fromLine(v);
        const float cloud = fractalNoise({3 * u, 3 * v, 1}, 3, 401, {3, 3});
        Colour light = mix(palette::ink, palette::deep, 0.9F + 1.2F * cloud);
        const float plate = smoothStep(0.055F, 0.085F, std::min(du, dv));
        light += palette::petrol * (plate * (0.22F + 0.35F * (1 - v) * u + 0.30F * cloud));
        const float inner = std::max(std::fabs(u - 0.5F), std::fabs(v - 0.5F));
        light += palette::petrol * (0.7F * bell(inner - 0.36F, 0.020F));
        light += tube(du, 0.020F, palette::teal * 1.1F);
        light += tube(dv, 0.020F, palette::teal * 0.8F);
        const float knot = length(du, dv);
        light += palette::amber * (1.6F * bell(knot, 0.050F)) + palette::ember * (0.7F * bell(knot, 0.13F));
        // the plate is folded along a diagonal: one half faces the light, the crease glows
        const float fold = (u - 0.5F) + (v - 0.5F);
        const float inPlate = smoothStep(0.345F, 0.325F, inner);
        light += palette::petrol *
                 (0.55F * inPlate * smoothStep(0.015F, -0.015F, fold) * (0.5F + 1.2F * (u + 1 - v) * 0.5F));
        light += mix(palette::teal, palette::ice, 0.5F) * (0.55F * inPlate * bell(fold, 0.016F));
        light += palette::petrol * (0.35F * inPlate * bell(fold, 0.07F));
        return light;
    });
    picture = withBloom(picture, {3, 0.12F, 14, 0.16F}, Edge::wrap);
    writeBitmap(path, developed(picture));
}

} // namespace lumenfold::art
