#include "render/sprite.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "filler_scene.h"

#include <gtest/gtest.h>

#include <limits>

namespace lumenfold {
namespace {

using namespace test;

// The drawer once more, pixel by pixel. Texels beyond the image are left out.
void drawLiterally(const Sprite& sprite, const reference::Picture& picture, float depthBias) {
    const int w = picture.width;
    const int h = picture.height;
    const float z = sprite.position[2];
    if (!(z > 0.35))
        return;
    const int px = truncate(static_cast<double>(sprite.position[0]) * w * 0.8 / z + (w >> 1));
    const int py = truncate(-static_cast<double>(sprite.position[1]) * w * 0.8 / z + (h >> 1));
    const float d = 1 / z + depthBias;
    const int width = static_cast<int>(sprite.width);
    const int height = static_cast<int>(sprite.height);
    if (sprite.scaled == 0) {
        if (px < 0 || px + width >= w || py < 0 || py + height >= h)
            return;
        for (int i = 0; i < width * height; ++i) {
            const Pixel32 texel = sprite.image[i];
            Pixel32& pixel = picture.target[(py + i / width) * w + px + i % width];
            if (sprite.blend == 3 && texel != 0)
                pixel = texel;
            if (sprite.blend == 1)
                pixel = addSaturated(texel, pixel);
            if (sprite.blend == 2)
                pixel = ((texel >> 1) & 0x7F7F7F7F) + ((pixel >> 1) & 0x7F7F7F7F);
        }
        return;
    }
    const int sw = truncate(static_cast<double>(sprite.width) * w * 0.0028 / z);
    const int sh = truncate(static_cast<double>(sprite.height) * w * 0.0028 / z);
    if (sw < 1 || sh < 1 || (sprite.blend != 1 && sprite.blend != 3))
        return;
    if (sprite.blend == 1 && !(0 < px && px < w && 0 < py && py < h && picture.depth[py * w + px] < d))
        return;
    const unsigned sA = sprite.width * 256 / static_cast<unsigned>(sw);
    const unsigned sB = sprite.height * 256 / static_cast<unsigned>(sh);
    unsigned a = 0;
    for (int row = 0; row < (sprite.blend == 1 ? sh - 1 : sh); ++row) {
        a += sA;
        unsigned b = 0;
        for (int column = 0; column < sw; ++column, b += sB) {
            const int x = px - (sw >> 1) + column;
            const int y = py - (sh >> 1) + row;
            const unsigned index =
                sprite.blend == 1 ? (a >> 8) * sprite.width + (b >> 8) : (b >> 8) * sprite.width + (a >> 8);
            if (x < 0 || x >= w || y < 0 || y >= h || index >= sprite.width * sprite.height)
                continue;
            Pixel32& pixel = picture.target[y * w + x];
            if (sprite.blend == 1) {
                pixel = addSaturated(sprite.image[index], pixel);
            } else if (sprite.image[index] != 0) {
                pixel = sprite.image[index];
                picture.depth[y * w + x] = z;
            }
        }
    }
}

// An image of its exact size, so that a sanitizer sees what is read beyond it.
std::vector<Pixel32> imageOf(std::uint32_t width, std::uint32_t height, Random& random) {
    std::vector<Pixel32> image(std::size_t{width} * height);
    for (Pixel32& texel : image)
        texel = below(random, 4) == 0 ? 0 : random();
    return image;
}

std::size_t drawnPixels(const Sprite& sprite, int width = 512, int height = 384) {
    GuardedPicture picture(width, height);
    drawSprite(sprite, picture.select(), picture.info(), 0.0F);
    return picture.drawn();
}

TEST(Sprite, EqualsTheReference) {
    Random random(7);
    GuardedPicture picture(80, 60);
    GuardedPicture expected(80, 60);
    for (int round = 0; round < 5000; ++round) {
        Sprite sprite;
        sprite.width = static_cast<std::uint32_t>(1 + below(random, 40));
        sprite.height = below(random, 2) == 0 ? sprite.width : static_cast<std::uint32_t>(1 + below(random, 40));
        const std::vector<Pixel32> image = imageOf(sprite.width, sprite.height, random);
        sprite.image = image.data();
        sprite.scaled = static_cast<std::uint8_t>(below(random, 2));
        sprite.blend = static_cast<std::uint32_t>(below(random, 5));
        const float z = between(random, 0.3F, 3.0F);
        sprite.position = {between(random, -z, z), between(random, -z, z), z};
        const float bias = static_cast<float>(round) / 100.0F;
        drawSprite(sprite, picture.select(), picture.info(), bias);
        drawLiterally(sprite, expected.reference(), bias);
        ASSERT_TRUE(samePictures(expected, picture)) << round;
    }
}

TEST(Sprite, WhereItIsDrawn) {
    const std::vector<Pixel32> image(16 * 16, 0x00FFFFFF);
    const struct {
        const char* what;
        Vector3 position;
        std::uint8_t scaled;
        std::uint32_t blend;
        std::size_t pixels;
    } cases[] = {
        {"too close", {0, 0, 0.35F}, 1, 3, 0},
        {"just far enough", {0, 0, 0.36F}, 1, 3, 63 * 63},
        {"two pixels wide, opaque", {0, 0, 10}, 1, 3, 4},
        {"two pixels wide, added: one row less", {0, 0, 10}, 1, 1, 2},
        {"too small", {0, 0, 30}, 1, 3, 0},
        {"no scaled average", {0, 0, 1}, 1, 2, 0},
        {"its own size", {0, 0, 10}, 0, 1, 256},
        {"last column but one", {(239.5F) / 409.6F, 0, 1}, 0, 3, 256},
        {"right edge at the frame's", {(240.5F) / 409.6F, 0, 1}, 0, 3, 0},
        {"no such blend", {0, 0, 1}, 0, 4, 0},
    };
    for (const auto& c : cases) {
        const Sprite sprite = {c.position, image.data(), 16, 16, c.scaled, c.blend};
        EXPECT_EQ(drawnPixels(sprite), c.pixels) << c.what;
    }
}

// 16 pixels shown as 2: the rows step by 8 before the first, the columns after the first.
TEST(Sprite, TexelsOfAScaledOne) {
    std::vector<Pixel32> image(16 * 16);
    for (Pixel32 i = 0; i < 256; ++i)
        image[i] = i + 1;
    GuardedPicture added(512, 384);
    drawSprite({{0, 0, 10}, image.data(), 16, 16, 1, 1}, added.select(), added.info(), 0.0F);
    EXPECT_EQ(added.target()[191 * 512 + 255], 8U * 16 + 0 + 1);
    EXPECT_EQ(added.target()[191 * 512 + 256], 8U * 16 + 8 + 1);
    GuardedPicture opaque(512, 384);
    drawSprite({{0, 0, 10}, image.data(), 16, 16, 1, 3}, opaque.select(), opaque.info(), 0.0F);
    EXPECT_EQ(opaque.target()[191 * 512 + 255], 0U * 16 + 8 + 1);
    EXPECT_EQ(opaque.target()[191 * 512 + 256], 8U * 16 + 8 + 1);
    EXPECT_EQ(opaque.target()[192 * 512 + 256], 8U * 16 + 16 + 1); // runs on into the next line of the image
    EXPECT_EQ(opaque.depth()[192 * 512 + 256], 10.0F);
}

TEST(Sprite, NumbersOfAnyKind) {
    const float numbers[] = {0.0F,   0.4F,      -0.4F,       1e9F,
                             -1e9F,  3e38F,     1e-40F,      std::numeric_limits<float>::infinity(),
                             -3e38F, -INFINITY, 0.35000002F, std::numeric_limits<float>::quiet_NaN()};
    const std::vector<Pixel32> image(70000, 1);
    GuardedPicture picture(64, 48);
    for (const float x : numbers)
        for (const float z : numbers)
            for (const std::uint8_t scaled : {0, 1})
                for (const std::uint32_t blend : {1U, 2U, 3U})
                    for (const std::uint32_t width : {0U, 1U, 70000U}) {
                        const Sprite sprite = {{x, -x, z}, image.data(), width, width > 1 ? 1 : width, scaled, blend};
                        drawSprite(sprite, picture.select(), picture.info(), 0.0F);
                        ASSERT_TRUE(picture.guardsIntact());
                    }
    drawSprite({{0, 0, 1}, nullptr, 4, 4, 0, 3}, picture.select(), picture.info(), 0.0F);
}

} // namespace
} // namespace lumenfold
