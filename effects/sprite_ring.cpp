#include "effects/sprite_ring.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "core/trig.h"

#include <cmath>

namespace lumenfold {

namespace {

constexpr int degreesPerSprite = 3;
constexpr double degree = 0.017453277777777776; // 3.14159 / 180

// A pulse pushes by 20 pixels, then by 3 less in every frame, down to 2; those stay.
int pulsePush(SpriteRing& ring, bool pulse) {
    if (pulse)
        ring.pulseRadius = 20;
    const int push = ring.pulseRadius;
    if (ring.pulseRadius - 3 > 0)
        ring.pulseRadius -= 3;
    return push;
}

// The number of crests changes while their height is next to nothing.
void stepFrequency(SpriteRing& ring, double T) {
    if (std::fabs(1 - trig::cos(T * 0.1)) < 7e-05)
        ring.frequency += 1.0F;
    if (ring.frequency == 6.0F)
        ring.frequency = 2.0F;
}

} // namespace

void drawSpriteRing(SpriteRing& ring, FrameInfo settings, double T, Pixel32* pixels, bool pulse) {
    const auto mean = static_cast<float>(pulsePush(ring, pulse) + (1 - trig::sin(T * 0.025)) * 10.0 + 50.0);
    const auto amplitude = static_cast<float>((1 - trig::cos(T * 0.1)) * 30.0);
    const double phase = trig::sin(T * 0.05) * 100.0;
    const double spin = T * 4.0;
    stepFrequency(ring, T);

    constexpr int side = SpriteRing::spriteSide;
    const int middleX = settings.width / 2;
    const int middleY = settings.height / 2;
    for (int step = 0; step < ring.span; step += degreesPerSprite) {
        const auto a = static_cast<float>(step);
        const double radius = trig::sin((ring.frequency * a + phase) * degree) * amplitude + mean;
        const double angle = (spin + a) * degree;
        const int y = truncate(trig::sin(angle) * radius + middleY);
        if (y <= 0 || y >= settings.height)
            continue;
        const int x = truncate(trig::cos(angle) * radius + middleX);
        stampAdd(pixels, settings.width, settings.height, ring.sprite, side, side, x - side / 2, y - side / 2);
    }
    if (ring.span < 360)
        ring.span += degreesPerSprite;
}

} // namespace lumenfold
