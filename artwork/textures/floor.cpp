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

// "cubet4.jpg": ribs of the ray tunnel. A row is drawn up to eight pixels long and more where the tunnel is near, and a
// column two or three wide; the two halves of the tunnel mirror each other at columns 0 and 255. Along the rows every
// edge falls between two texels: a slow glow would show as steps.
void makeRibTunnel(const std::string& path) {
    Picture picture = texture(256, 4, [](float u, float v) {
        const int row = static_cast<int>(256 * v);
        const int rib = row / 32; // eight ribs to a tile
        const int part = row % 32;
        const auto within = [part](int first, int end) { return part >= first && part < end ? 1.0F : 0.0F; };
        const float mirrored = 2 * fromLine(0.5F * u); // 0 at one seam, 1 at the other
        const float panels = 6;
        const float column = mirrored * panels + 0.5F * static_cast<float>(rib % 2);
        const int panel = static_cast<int>(std::floor(column));
        const float across = fromLine(column);
        const float shade = hashUnit(panel, rib & 7, 0, 411);
        const float cloud = fractalNoise({8 * mirrored, 3, 2}, 2, 412);
        // a recessed channel, a raised rib with bevels, panels with a step between
        const float seam = smoothStep(0.020F, 0.045F, across);
        const float inner = smoothStep(0.10F, 0.12F, across);
        Colour light = palette::deep * (0.30F + 0.3F * cloud);
        const Colour plate = palette::petrol * (0.30F + 0.65F * shade + 0.3F * cloud);
        light = mix(light, plate * 0.72F, within(3, 20) * seam);
        light = mix(light, plate, within(7, 16) * inner);
        light += palette::teal * (0.26F * within(2, 3) * seam) +
                 palette::amber * (0.24F * within(20, 21) * seam * (rib % 2 == 0 ? 1.0F : 0.0F));
        const Colour glow = rib % 4 == 2 ? palette::amber : palette::teal;
        const float cut = smoothStep(0.42F, 0.39F, fromLine(3 * mirrored + 0.2F * static_cast<float>(rib)));
        const float lit = rib % 2 == 0 ? cut : 0.0F; // lamps in every second channel
        light += (glow * (0.30F * within(24, 29)) + palette::ice * (0.75F * within(25, 28))) * lit;
        return light;
    });
    writeBitmap(path, developed(picture));
}

} // namespace lumenfold::art
