#include "render/ray_field.h"

#include "core/convert.h"
#include "core/trig.h"
#include "core/vector_target.h"
#include "filler_scene.h"
#include "render/matrix.h"

#include <gtest/gtest.h>

#include <cmath>

namespace lumenfold {
namespace {

using namespace test;

constexpr FrameInfo frameInfo = {512, 384, 0, 0, 0};

// The fill of one cell, pixel by pixel.
void fillLiterally(const std::int32_t (&u)[4], const std::int32_t (&v)[4], const std::int32_t (&s)[4],
                   const Pixel32* texture, Pixel32* pixels) {
    const std::int32_t* quantities[] = {u, v, s}; // corners: top left, top right, bottom left, bottom right
    std::int32_t left[3];
    std::int32_t right[3];
    std::int32_t leftStep[3];
    std::int32_t rightStep[3];
    for (int q = 0; q < 3; ++q) {
        left[q] = wrapMul(quantities[q][0], 65536);
        right[q] = wrapMul(quantities[q][1], 65536);
        leftStep[q] = wrapMul(wrapSub(quantities[q][2], quantities[q][0]), 65536) / 16;
        rightStep[q] = wrapMul(wrapSub(quantities[q][3], quantities[q][1]), 65536) / 16;
    }
    for (int row = 0; row < 16; ++row) {
        std::int32_t value[3];
        std::int32_t step[3];
        for (int q = 0; q < 3; ++q) {
            value[q] = left[q];
            step[q] = wrapSub(left[q], right[q]) >> 4;
        }
        for (int x = 0; x < 16; ++x) {
            const Pixel32 texel = texture[((value[1] >> 16) & 255) * 256 + ((value[0] >> 16) & 255)];
            const int shade = (value[2] >> 16) & 255;
            Pixel32 pixel = texel & 0xFF000000;
            for (int shift = 0; shift < 24; shift += 8) {
                const int byte = static_cast<int>(texel >> shift & 255) - shade;
                pixel |= static_cast<Pixel32>(byte < 0 ? 0 : byte) << shift;
            }
            pixels[row * 512 + x] = pixel;
            for (int q = 0; q < 3; ++q)
                value[q] = wrapSub(value[q], step[q]);
        }
        for (int q = 0; q < 3; ++q) {
            left[q] = wrapAdd(left[q], leftStep[q]);
            right[q] = wrapAdd(right[q], rightStep[q]);
        }
    }
}

// One call for the frame of 512 x 384, one statement for each rule. Work arrays of its own.
void drawLiterally(RayField& field, Pixel32* target) {
    Matrix m;
    composeRotation(m, field.matrix, field.angles[0], field.angles[1], field.angles[2]);
    std::vector<std::int32_t> words;
    std::vector<std::int32_t> shades;
    for (Vector3& ray : field.rays) {
        const Vector3 r = ray;
        ray = {r[0] * m[0] + r[1] * m[4] + r[2] * m[8] + m[12], r[0] * m[1] + r[1] * m[5] + r[2] * m[9] + m[13],
               r[0] * m[2] + r[1] * m[6] + r[2] * m[10] + m[14]};
        const double x = ray[0];
        const double y = ray[1];
        const double z = ray[2];
        std::int32_t u = 0;
        std::int32_t v = 0;
        std::int32_t shade = 255;
        if (field.shape == RayShape::Plane) {
            if (!(y >= -0.002 && y <= 0.002)) {
                const double t = std::fabs(field.distance / y);
                u = truncate(t * x * 6.0);
                v = truncate(t * z * 6.0);
                shade = truncate(t * 0.7);
            }
        } else {
            const double r2 = std::sqrt(x * x + y * y);
            if (r2 != 0.0) {
                u = truncate(std::fabs(trig::atan2(y, x)) * 81.4873996925124);
                v = truncate(z / r2 * 32.0);
                shade = truncate(std::fabs(z / r2) * 6.0);
            }
        }
        words.push_back(wrapAdd(wrapMul(v, 65536), u));
        shades.push_back(shade > 255 ? 255 : shade);
    }
    for (int row = 0; row < 24; ++row) {
        for (int column = 0; column < 32; ++column) {
            std::int32_t u[4];
            std::int32_t v[4];
            std::int32_t s[4];
            for (int i = 0; i < 4; ++i) {
                const auto ray = static_cast<std::size_t>((row + i / 2) * 33 + column + i % 2);
                u[i] = wrapAdd(static_cast<std::int16_t>(words[ray] & 0xFFFF), field.scrollU);
                v[i] = wrapAdd(static_cast<std::int16_t>(words[ray] >> 16), field.scrollV);
                s[i] = shades[ray];
            }
            fillLiterally(u, v, s, field.texture, target + row * 16 * 512 + column * 16);
        }
    }
}

class RayFieldTest : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override { useVectorTarget(GetParam()); }
    void TearDown() override { useVectorTarget(vectorTargets().front()); }

    std::vector<Pixel32> draw(RayField& field) const {
        std::vector<Pixel32> pixels(512 * 384, 0xDEADBEEF);
        drawRayField(field, pixels.data(), frameInfo);
        return pixels;
    }
};
INSTANTIATE_TEST_SUITE_P(Targets, RayFieldTest, testing::ValuesIn(vectorTargets()),
                         [](const auto& target) { return target.param; });

TEST_P(RayFieldTest, EqualsTheReference) {
    Random random(8);
    const std::vector<Pixel32> texture = randomPixels(texturePixels, 9);
    for (int round = 0; round < 120; ++round) {
        RayField field = makeRayField(round % 2 == 0 ? RayShape::Plane : RayShape::Tunnel, texture.data());
        field.angles = {between(random, -180, 180), between(random, -180, 180), between(random, -180, 180)};
        field.scrollU = below(random, 100000) - 50000;
        field.scrollV = static_cast<std::int32_t>(random());
        field.distance = between(random, 0.5F, 400.0F);
        if (round % 5 == 4) // a long field: coordinates beyond 16 bits
            field.matrix = {1, 0, 0, 0, 0, 0.01F, 0, 0, 0, 0, 90, 0, 0.5F, 0.25F, -3, 1};
        RayField expected = field;
        for (int call = 0; call < 3; ++call) {
            std::vector<Pixel32> pixels(512 * 384);
            drawLiterally(expected, pixels.data());
            ASSERT_EQ(draw(field), pixels) << round;
            ASSERT_EQ(field.rays, expected.rays);
        }
    }
}

TEST_P(RayFieldTest, FramesOfOtherSizesStayInside) {
    const std::vector<Pixel32> texture = randomPixels(texturePixels, 10);
    for (const int width : {1, 31, 32, 50, 500, 640}) {
        for (const int height : {1, 23, 24, 100, 400}) {
            GuardedPicture picture(width, height);
            RayField field = makeRayField(RayShape::Plane, texture.data());
            drawRayField(field, picture.select(), picture.info());
            useVectorTarget(vectorTargets().back()); // cells that are no multiple of a vector wide
            GuardedPicture other(width, height);
            drawRayField(field, other.select(), other.info());
            useVectorTarget(GetParam());
            ASSERT_TRUE(samePictures(picture, other)) << width << " x " << height;
            ASSERT_TRUE(picture.guardsIntact()) << width << " x " << height;
        }
    }
}

TEST(RayField, RaysAreUnitVectorsThroughTheGrid) {
    const RayField field = makeRayField(RayShape::Plane, nullptr);
    ASSERT_EQ(field.rays.size(), 33U * 25U);
    Vector3 expected = {-16, -12, 16};
    vectorNormalize(expected);
    EXPECT_EQ(field.rays.front(), expected);
    EXPECT_EQ(field.rays[12 * 33 + 16], (Vector3{0, 0, 1}));
    EXPECT_EQ(field.rays.back()[0], -expected[0]);
}

} // namespace
} // namespace lumenfold
