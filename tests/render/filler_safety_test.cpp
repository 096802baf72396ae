// Corners that no scene makes: nothing is written or read beside the picture, and no call takes long.

#include "filler_scene.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace lumenfold::test {

namespace {

float coordinate(Random& random, float ordinary) {
    switch (below(random, 8)) {
    case 0:
        return absurd(random);
    case 1:
        return between(random, -70000.0F, 70000.0F);
    default:
        return between(random, -0.3F * ordinary, 1.3F * ordinary);
    }
}

float depth(Random& random) {
    const int kind = below(random, 12);
    if (kind == 0)
        return absurd(random);
    return kind < 4 ? between(random, 0.2F, 90.0F) : between(random, 0.2F, 1.0F);
}

AffineCorner corner(Random& random, const FrameInfo& info) {
    return {coordinate(random, static_cast<float>(info.width)),
            coordinate(random, static_cast<float>(info.height)),
            depth(random),
            coordinate(random, 256),
            coordinate(random, 256),
            coordinate(random, 256),
            coordinate(random, 256)};
}

void drawAll(const AffineCorner (&t)[3], const Pixel32* texture, GuardedPicture& picture, float bias) {
    PerspectiveCorner corners[3];
    toPerspective(t, corners);
    Pixel32* target = picture.select();
    drawTexturedPerspective(corners, texture, picture.info(), target, bias);
    drawTexturedPerspectiveAdd(corners, texture, picture.info(), target, bias, 1 << 30);
    drawTriangleAffine(t, texture, picture.info(), target, bias);
    drawTriangleAffineAdd(t, texture, picture.info(), target, bias);
    drawTriangleTwoLayer(t, texture, texture, picture.info(), target, bias);
}

void drawSpans(Random& random, const Pixel32* texture, GuardedPicture& picture, float bias) {
    const auto any = [&random] { return static_cast<std::int32_t>(random()) >> below(random, 24); };
    const std::int32_t row = below(random, picture.info().height + 2) - 1;
    Pixel32* target = picture.select();
    const std::int32_t xa = any();
    const std::int32_t xb = any();
    const float za = depth(random);
    const float zb = depth(random);
    const TwoLayerCoordinates a{any(), any(), any(), any()};
    const TwoLayerCoordinates b{any(), any(), any(), any()};
    drawSpanAffine(xa, xb, za, zb, a.u1, b.u1, a.v1, b.v1, row, texture, picture.info(), target, bias);
    drawSpanAffineAdd(xa, xb, za, zb, a.u1, b.u1, a.v1, b.v1, row, texture, picture.info(), target, bias);
    drawSpanTwoLayer(xa, xb, za, zb, a, b, row, texture, texture, picture.info(), target, bias);
}

int triangleCount() {
    const char* wanted = std::getenv("LUMENFOLD_TEST_TRIANGLES");
    return wanted != nullptr ? std::atoi(wanted) : 20000;
}

TEST(FillerSafety, AbsurdCornersStayInThePicture) {
    const std::vector<Pixel32> texture = randomPixels(texturePixels, 3);
    onEveryTarget([&] {
        Random random(11);
        const int sizes[][2] = {{64, 24}, {1, 1}, {7, 5}, {512, 3}, {16, 32}};
        for (const auto& size : sizes) {
            GuardedPicture picture(size[0], size[1]);
            for (int i = 0; i < triangleCount() / 5; ++i) {
                const FrameInfo info = picture.info();
                const float bias = below(random, 20) == 0 ? absurd(random) : between(random, -1.0F, 1.0F);
                drawAll({corner(random, info), corner(random, info), corner(random, info)}, texture.data(), picture,
                        bias);
                drawSpans(random, texture.data(), picture, bias);
                ASSERT_TRUE(i % 64 != 0 || picture.guardsIntact()) << "triangle " << i << ", width " << info.width;
            }
            ASSERT_TRUE(picture.guardsIntact());
        }
    });
}

} // namespace

} // namespace lumenfold::test
