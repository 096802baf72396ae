// The fillers' rules one by one, expected pixels written out by hand.

#include "filler_scene.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace lumenfold::test {

namespace {

constexpr int width = 40;
constexpr int height = 8;

// Texel (column, row) is row * 256 + column + 1: every texel tells where it stands, none is 0.
std::vector<Pixel32> numberedTexture() {
    std::vector<Pixel32> texels(texturePixels);
    for (std::size_t i = 0; i < texels.size(); ++i)
        texels[i] = static_cast<Pixel32>(i) + 1;
    return texels;
}
constexpr Pixel32 texel(int column, int row) {
    return static_cast<Pixel32>(row) * 256 + static_cast<Pixel32>(column) + 1;
}

constexpr std::int32_t fixed(int value) {
    return value * 65536;
}

class FillerRules : public testing::Test {
  protected:
    // One affine row with one texel per pixel, u from `left`, in row `row`.
    void affineRow(int left, int right, int row, float bias = 0.0F) {
        drawSpanAffine(fixed(left), fixed(right), 1.0F, 1.0F, fixed(100 + left), fixed(100 + right), fixed(7), fixed(7),
                       row, texture.data(), picture.info(), picture.select(), bias);
    }
    Pixel32 pixel(int x, int y) { return picture.target()[y * width + x]; }

    // A square's upper left half of the given side at (0, 0), facing the eye, one texel per pixel from (u, v) on.
    static void corner(PerspectiveCorner (&corners)[3], float side, float u, float v) {
        corners[0] = {0, 0, 1.0F, u, v};
        corners[1] = {side, 0, 1.0F, u + side, v};
        corners[2] = {0, side, 1.0F, u, v + side};
    }
    void perspective(float u, float v, float bias) {
        PerspectiveCorner corners[3];
        corner(corners, 6, u, v);
        drawTexturedPerspective(corners, texture.data(), picture.info(), picture.select(), bias);
    }
    void perspectiveAdd(float u, float v, float bias, std::int32_t scroll) {
        PerspectiveCorner corners[3];
        corner(corners, 6, u, v);
        drawTexturedPerspectiveAdd(corners, texture.data(), picture.info(), picture.select(), bias, scroll);
    }
    GuardedPicture picture{width, height};
    std::vector<Pixel32> texture = numberedTexture();
};

TEST_F(FillerRules, AffineRowLeavesOutItsEnd) {
    affineRow(10, 20, 3);
    for (int x = 0; x < width; ++x)
        EXPECT_EQ(pixel(x, 3), x >= 10 && x < 20 ? texel(100 + x, 7) : 0) << x;
}

TEST_F(FillerRules, AffineRowCutAtTheRightLeavesOutTheLastColumn) {
    for (const int right : {width, width + 1, width + 300}) {
        picture.clear();
        affineRow(30, right, 2);
        EXPECT_EQ(pixel(width - 2, 2), texel(100 + width - 2, 7)) << right;
        EXPECT_EQ(pixel(width - 1, 2), 0U) << right;
    }
    picture.clear();
    affineRow(30, width - 1, 2);
    EXPECT_EQ(pixel(width - 2, 2), texel(100 + width - 2, 7));
}

TEST_F(FillerRules, AddedAffineWritesDepthAndSaturates) {
    std::fill_n(picture.target(), picture.size(), 0xFFFFFFFF);
    drawSpanAffineAdd(fixed(3), fixed(9), 2.0F, 2.0F, fixed(0), fixed(60), 0, 0, 1, texture.data(), picture.info(),
                      picture.select(), 0.25F);
    for (int x = 3; x < 9; ++x) {
        EXPECT_EQ(pixel(x, 1), 0xFFFFFFFF);
        EXPECT_EQ(picture.depth()[width + x], 0.75F);
    }
}

TEST_F(FillerRules, TwoLayersReadColumnFromVAndRowFromU) {
    const std::vector<Pixel32> black(texturePixels);
    const TwoLayerCoordinates a{fixed(9), fixed(20), 0, 0};
    const TwoLayerCoordinates b{fixed(9), fixed(30), 0, 0};
    drawSpanTwoLayer(fixed(5), fixed(15), 1.0F, 1.0F, a, b, 4, texture.data(), black.data(), picture.info(),
                     picture.select(), 0.0F);
    EXPECT_EQ(pixel(5, 4), texel(20, 9));
    EXPECT_EQ(pixel(14, 4), texel(29, 9));
    picture.clear();
    drawSpanTwoLayer(fixed(5), fixed(15), 1.0F, 1.0F, {0, 0, a.u1, a.v1}, {0, 0, b.u1, b.v1}, 4, black.data(),
                     texture.data(), picture.info(), picture.select(), 0.0F);
    EXPECT_EQ(pixel(14, 4), texel(29, 9));
}

TEST_F(FillerRules, AddedPerspectiveLeavesTheDepthAndScrolls) {
    perspectiveAdd(10, 20, 0.5F, 5);
    EXPECT_EQ(pixel(0, 0), texel(15, 20));
    EXPECT_EQ(picture.depth()[0], 0.0F);
    perspectiveAdd(10, 20, 0.5F, 5 - 256); // again: nothing has been marked as drawn
    EXPECT_EQ(pixel(0, 0), 2 * texel(15, 20));

    perspective(0, 0, 0.5F);
    const Pixel32 opaque = pixel(0, 0);
    perspectiveAdd(10, 20, 0.5F, 5); // equal depth
    EXPECT_EQ(pixel(0, 0), opaque);
}

} // namespace

} // namespace lumenfold::test
