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

} // namespace

// "fdgrid.jpg": gold laid into ink. Part 10 dances over it, and under the film strip of part 5 it reads as sepia. Seen
// at grazing angles and scrolled 22 texels a frame: nothing in it is narrower than about eight texels.
Bitmap makeFloorGrid() {
    Picture picture = texture(256, 3, [](float u, float v) {
        const float du = fromLine(u);
        const float dv = fromLine(v);
        const float cloud = fractalNoise({3 * u, 3 * v, 1}, 3, 401, {3, 3});
        Colour light = mix(fromHex(0x03040C), fromHex(0x10206B), 0.35F + 0.7F * cloud);
        const Colour gold = fromHex(0xFFC04A);
        light += gold * (0.75F * bell(du, 0.022F) + 0.55F * bell(dv, 0.022F));
        light += fromHex(0x8A4A10) * (0.30F * bell(du, 0.070F) + 0.25F * bell(dv, 0.070F));
        const float middle = length(u - 0.5F, v - 0.5F);
        light +=
            gold * (0.42F * bell(middle - 0.27F, 0.020F)) + fromHex(0x8A4A10) * (0.20F * bell(middle - 0.27F, 0.06F));
        light += fromHex(0xFFF0C8) * (0.9F * bell(length(du, dv), 0.045F)) + gold * (0.5F * bell(middle, 0.050F));
        return light;
    });
    picture = withBloom(picture, {3, 0.12F, 14, 0.16F}, Edge::wrap);
    return developed(picture, {1.7F, true, 0.6F});
}

} // namespace lumenfold::art
