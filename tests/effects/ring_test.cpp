#include "effects/ring_backdrop.h"
#include "effects/sprite_ring.h"

#include "core/convert.h"
#include "core/trig.h"

#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumenfold {
namespace {

using test::randomPixels;
using test::saturatedSum;
using test::withBothForms;
using trig::cos;
using trig::sin;

constexpr FrameInfo frame{512, 384, 0, 0, 0};

// The whole ring in one piece, sprites written without a limit.
struct PlainRing {
    int P = 0, n = 0;
    float F = 2.0F;

    void draw(const std::vector<Pixel32>& sprite, double T, std::vector<Pixel32>& pixels, bool pulse) {
        if (pulse)
            P = 20;
        const float R0 = static_cast<float>(P + (1 - sin(T * 0.025)) * 10.0 + 50.0);
        if (P - 3 > 0)
            P = P - 3;
        const float A = static_cast<float>((1 - cos(T * 0.1)) * 30.0);
        const double phase = sin(T * 0.05) * 100.0, spin = T * 4.0;
        if (std::fabs(1 - cos(T * 0.1)) < 7e-05)
            F = F + 1.0F;
        if (F == 6.0F)
            F = 2.0F;
        const double deg = 0.017453277777777776;
        for (float a = 0; a < static_cast<float>(n); a += 3) {
            const double radius = sin((F * a + phase) * deg) * A + R0;
            const double angle = (spin + a) * deg;
            const int y = truncate(sin(angle) * radius + 384 / 2);
            if (!(0 < y && y < 384))
                continue;
            const int x = truncate(cos(angle) * radius + 512 / 2);
            for (int row = 0; row < 32; ++row)
                for (int column = 0; column < 32; ++column) {
                    Pixel32& pixel = pixels.at(static_cast<std::size_t>((y - 16 + row) * 512 + x - 16 + column));
                    pixel = saturatedSum(pixel, sprite[static_cast<std::size_t>(row * 32 + column)]);
                }
        }
        if (n < 360)
            n += 3;
    }
};

TEST(SpriteRing, MatchesTheDescriptionFrameByFrame) {
    auto sprite = randomPixels(32 * 32, 1);
    for (Pixel32& pixel : sprite)
        pixel &= 0x0F0F0F0F; // many overlap before a byte saturates
    SpriteRing ring;
    ring.sprite = sprite.data();
    PlainRing plain;
    for (int call = 0; call < 300; ++call) {
        const double T = static_cast<float>(call) * 0.261F * 1.6 + 30.0;
        const bool pulse = call % 41 == 40;
        std::vector<Pixel32> expected(512 * 384), shipped(512 * 384);
        plain.draw(sprite, T, expected, pulse);
        drawSpriteRing(ring, frame, T, shipped.data(), pulse);
        ASSERT_EQ(shipped, expected) << "call " << call;
        ASSERT_EQ(ring.frequency, plain.F);
    }
    EXPECT_NE(ring.frequency, 2.0F); // the run has crossed a change of the number of crests
}

TEST(SpriteRing, OutsideThePictureIsLeftOut) {
    const std::vector<Pixel32> sprite(32 * 32, 0xFFFFFFFF);
    SpriteRing ring;
    ring.sprite = sprite.data();
    ring.span = 360;
    std::vector<Pixel32> pixels(40 * 30 + 1);
    drawSpriteRing(ring, {40, 30, 0, 0, 0}, 100.0, pixels.data(), true);
    EXPECT_EQ(pixels.back(), 0U);
}

TEST(RingBackdrop, BandsAndStripFrameByFrame) {
    const auto band = randomPixels(512 * 70, 5);
    const auto strip = randomPixels(128 * 512, 6);
    const auto picture = randomPixels(512 * 384, 7);
    withBothForms([&] {
        RingBackdrop backdrop;
        backdrop.set(band, strip);
        std::size_t bandScroll = 0, stripOffset = 0;
        for (int call = 0; call < 300; ++call) {
            if (call % 37 == 0 || (call > 125 && call < 131)) { // where the scroll wraps, every frame
                std::vector<Pixel32> expected = picture, shipped = picture;
                for (std::size_t k = 0; k < 40 * 512; ++k) {
                    const Pixel32 q = band[(k + bandScroll) % 35840];
                    Pixel32& upper = expected[57 * 512 + k];
                    upper = saturatedSum(q, upper);
                    Pixel32& lower = expected[161280 - k];
                    lower = saturatedSum(q, lower);
                }
                for (std::size_t y = 0; y < 384; ++y)
                    for (std::size_t j = 0; j < 128; ++j) {
                        Pixel32& pixel = expected[512 * y + j];
                        pixel = saturatedSum(strip[(stripOffset + 128 * y + j) & 0xFFFF], pixel);
                    }
                backdrop.addBands(shipped.data());
                backdrop.addStrip(shipped.data());
                ASSERT_EQ(shipped, expected) << "frame " << call;
            }
            backdrop.scroll();
            bandScroll = bandScroll + 4 == 512 ? 0 : bandScroll + 4;
            stripOffset = (stripOffset + 0xFF00) % 65536;
        }
    });
}

} // namespace
} // namespace lumenfold
