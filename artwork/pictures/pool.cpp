#include "artwork/pictures/pool.h"
#include "artwork/pictures/pictures.h"

#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/studio.h"

// "skum3.jpg": a pool of black oil seen from above. A drop has just fallen: a crown stands 150 pixels around the middle
// of the frame and ripples run outwards, mirroring soft boxes in cobalt and silver. Inside the crown the oil is calm,
// for a ring of flares; the left third is dim, for a scrolling text.

namespace lumenfold::art {

namespace {

constexpr float middleX = 256;
constexpr float middleY = 192;
constexpr float crownRadius = 150;

// Height of the oil, pixels.
float oilAt(float x, float y) {
    const float dx = x - middleX;
    const float dy = y - middleY;
    const float r = length(dx, dy);
    const float angle = angleOf(dy, dx);
    const float teeth = 0.5F + 0.5F * cosine(24 * angle + 1.5F * sine(3 * angle));
    const float swell = 5.0F * fractalNoise({0.006F * x, 0.006F * y, 1}, 3, 951);
    const float out = r - crownRadius;
    const float ripples = out > 0 ? 3.4F * sine(0.21F * out) * exponential(-out / 75) * smoothStep(0, 14, out)
                                  : 1.5F * sine(0.17F * out) * exponential(out / 46);
    return swell + ripples + bell(out, 5.5F) * (8 + 5 * teeth);
}

// What stands over the pool: two long boxes, a round one, a cobalt sky that darkens towards its middle.
Colour ceiling(Vec3 direction) {
    static const SoftBox left = {{-0.62F, 0.20F, 0.75F}, {0, 1, 0}, 0.10F, 1.30F, 0.10F};
    static const SoftBox slit = {{-0.34F, 0.20F, 0.88F}, {0, 1, 0}, 0.030F, 1.30F, 0.04F};
    static const SoftBox right = {{0.70F, -0.25F, 0.62F}, {0.3F, 1, 0}, 0.16F, 0.80F, 0.22F};
    static const SoftBox ember = {{0.15F, 0.85F, 0.52F}, {1, 0, 0}, 0.05F, 0.60F, 0.06F};
    Colour light = mix(fromHex(0x03040C), fromHex(0x16246B), smoothStep(0.995F, 0.72F, direction.z));
    light +=
        fromHex(0x4E7BFF) * (0.55F * smoothStep(0.92F, 0.45F, direction.z) * smoothStep(-0.6F, 0.7F, -direction.y));
    light += fromHex(0xF2F6FF) * (2.2F * seen(left, direction) + 1.5F * seen(slit, direction));
    light += fromHex(0x7FA2FF) * (1.5F * seen(right, direction));
    return light + fromHex(0xFF3B1F) * (1.6F * seen(ember, direction));
}

} // namespace

Colour oilPoolAt(float x, float y) {
    const float slopeX = 0.5F * (oilAt(x + 1, y) - oilAt(x - 1, y));
    const float slopeY = 0.5F * (oilAt(x, y + 1) - oilAt(x, y - 1));
    const Vec3 normal = normalize(Vec3{-slopeX, -slopeY, 1.25F});
    // the viewer stands over the middle: towards the rim the oil is seen at a slant
    const Vec3 view = normalize(Vec3{(x - middleX) / 620, (y - middleY) / 620, -1});
    const Vec3 direction = reflect(view, normal);
    const float grazing = power(1 - saturate(-dot(view, normal)), 3);
    return ceiling(direction) * (0.62F + 0.8F * grazing) + fromHex(0x050818) * 0.5F;
}

Bitmap makeOilPool() {
    Picture picture = renderPicture(
        512, 384, 4, [](float x, float y, std::uint32_t) { return oilPoolAt(x, y); }, 0.25F);
    picture = withBloom(picture, {2.5F, 0.12F, 18, 0.12F}, Edge::clamp);
    picture.change([](Colour c, int x, int) { return c * mix(0.20F, 1, smoothStep(60, 190, static_cast<float>(x))); });
    return developed(picture, {1.42F, true, 0.6F});
}

} // namespace lumenfold::art
