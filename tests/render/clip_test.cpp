#include "render/clip.h"

#include "clip_reference.h"
#include "filler_scene.h"
#include "render/line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace lumenfold {
namespace {

using namespace test;

constexpr std::uint32_t allModes[] = {0x09,  0x29, 0x401, 0x501, 0x11, 0x19,  0x200, 0x201,
                                      0x209, 0x0B, 0x01,  0x31,  0x08, 0x400, 0x109};

std::unique_ptr<TextureLayer> layerOf(std::vector<Pixel32>& texels) {
    auto layer = std::make_unique<TextureLayer>();
    layer->texels = texels.data();
    return layer;
}

// One face with its own corners, material and two textures.
struct TestFace {
    std::vector<Pixel32> first = randomPixels(texturePixels, 1);
    std::vector<Pixel32> second = randomPixels(texturePixels, 2);
    std::array<MeshVertex, 3> vertices{};
    MeshMaterial material;
    MeshFace face;

    TestFace() {
        material.colourLayer = layerOf(first);
        material.reflectionLayer = layerOf(second);
        material.mode = 0x09;
        face.material = &material;
        for (std::size_t i = 0; i < 3; ++i)
            face.corners[i] = &vertices[i];
        face.uv1 = {0, 0, 100, 0, 100, 100};
        face.uv2 = {20, 30, 200, 50, 90, 150};
        place({-1, 1, 4}, {1, 1, 4}, {1, -1, 4});
    }
    void place(const Vector3& a, const Vector3& b, const Vector3& c) {
        const Vector3* points[] = {&a, &b, &c};
        for (std::size_t i = 0; i < 3; ++i) {
            vertices[i].x = (*points[i])[0];
            vertices[i].y = (*points[i])[1];
            vertices[i].z = (*points[i])[2];
        }
    }
};

std::size_t drawnPixels(const TestFace& face, int width = 64, int height = 48) {
    GuardedPicture picture(width, height);
    clipAndDrawFace(face.face, picture.info(), picture.select(), 0.0F);
    EXPECT_TRUE(picture.guardsIntact());
    return picture.drawn();
}

TEST(Clip, WhichFacesAreDrawn) {
    const float nearest = 0.2F; // as a float a little beyond the plane
    const struct {
        const char* what;
        Vector3 a, b, c;
        bool drawn;
    } cases[] = {
        {"in view", {-1, 1, 4}, {1, 1, 4}, {1, -1, 4}, true},
        {"the other way round", {-1, 1, 4}, {1, -1, 4}, {1, 1, 4}, false},
        {"one corner far", {-1, 1, 1}, {1, 1, 1}, {100, -100, 100}, true},
        {"all corners far", {-100, 100, 90.5F}, {100, 100, 91}, {100, -100, 95}, false},
        {"all at the far limit", {-100, 100, 90}, {100, 100, 90}, {100, -100, 90}, true},
        {"all just beyond it", {-100, 100, 90.00001F}, {100, 100, 90.00001F}, {100, -100, 90.00001F}, false},
        {"all behind", {-1, 1, 0.1F}, {1, 1, -4}, {1, -1, 0}, false},
        {"all on the near plane", {-.1F, .1F, nearest}, {.1F, .1F, nearest}, {.1F, -.1F, nearest}, true},
        {"flat in y", {-1, 0, 1}, {1, 0, 1}, {0, 0, 3}, false},
        {"left of the screen", {-9, 1, 4}, {-8, 1, 4}, {-8, -1, 4}, false},
        {"right of the screen", {8, 1, 4}, {9, 1, 4}, {9, -1, 4}, false},
        {"above the screen", {-1, 9, 4}, {1, 9, 4}, {1, 8, 4}, false},
        {"below the screen", {-1, -8, 4}, {1, -8, 4}, {1, -9, 4}, false},
    };
    for (const auto& c : cases) {
        TestFace face;
        face.place(c.a, c.b, c.c);
        EXPECT_EQ(drawnPixels(face) > 0, c.drawn) << c.what;
    }
}

TEST(Clip, FacesWithoutMaterialOrTextureDrawNothing) {
    for (const std::uint32_t mode : {0x09U, 0x19U}) {
        TestFace face;
        face.material.mode = mode;
        face.material.reflectionLayer->texels = nullptr;
        EXPECT_EQ(drawnPixels(face) > 0, mode == 0x09);
        face.material.reflectionLayer.reset();
        EXPECT_EQ(drawnPixels(face) > 0, mode == 0x09);
        face.material.colourLayer->texels = nullptr;
        EXPECT_EQ(drawnPixels(face), 0U);
        face.material.colourLayer.reset();
        EXPECT_EQ(drawnPixels(face), 0U);
        face.face.material = nullptr;
        EXPECT_EQ(drawnPixels(face), 0U);
    }
}

// Faces around the near plane and the screen's edges; every third one with a corner at a place of its own kind.
void randomize(TestFace& face, Random& random) {
    for (std::size_t i = 0; i < 3; ++i) {
        MeshVertex& vertex = face.vertices[i];
        vertex.z = below(random, 12) == 0 ? 0.2F : between(random, -1.5F, below(random, 4) == 0 ? 100.0F : 4.0F);
        const float reach = std::max(std::abs(vertex.z), 0.3F) * 1.2F;
        vertex.x = between(random, -reach, reach);
        vertex.y = below(random, 12) == 0 ? 0.0F : between(random, -reach, reach);
        for (std::size_t k = 2 * i; k < 2 * i + 2; ++k) {
            face.face.uv1[k] = between(random, -300, 300);
            face.face.uv2[k] = between(random, 0, 256);
        }
    }
    face.material.mode = allModes[static_cast<std::size_t>(below(random, static_cast<int>(std::size(allModes))))];
    face.material.doubleSided = static_cast<std::uint32_t>(below(random, 2));
    face.material.scroll = below(random, 600) - 300;
}

TEST(Clip, EqualsTheReference) {
    Random random(3);
    TestFace face;
    GuardedPicture picture(80, 60);
    GuardedPicture expected(80, 60);
    for (int round = 0; round < 20000; ++round) {
        if (round % 100 == 0) {
            picture.clear();
            expected.clear();
        }
        randomize(face, random);
        const float bias = static_cast<float>(round % 100);
        clipAndDrawFace(face.face, picture.info(), picture.select(), bias);
        reference::clipAndDrawFace(face.face, expected.info(), expected.select(), bias);
        ASSERT_TRUE(samePictures(expected, picture)) << round;
    }
}

TEST(Clip, NumbersOfAnyKindStayInTheFrame) {
    Random random(4);
    const auto any = [&]() { return below(random, 3) == 0 ? between(random, -5, 5) : absurd(random); };
    TestFace face;
    GuardedPicture picture(64, 48);
    for (int round = 0; round < 20000; ++round) {
        randomize(face, random);
        for (MeshVertex& vertex : face.vertices)
            vertex = {any(), any(), any(), 0, 0, 0, 0};
        for (float& value : face.face.uv1)
            value = any();
        clipAndDrawFace(face.face, picture.info(), picture.select(), 0.0F);
        ASSERT_TRUE(picture.guardsIntact()) << round;
    }
}

TEST(Line, SmallLines) {
    const struct {
        int x0, y0, x1, y1;
        const char* rows; // 5 x 3
    } cases[] = {
        {0, 0, 3, 1, "##...|..##.|.....|"},   {3, 1, 0, 0, "##...|..##.|.....|"},  {2, 1, 2, 1, ".....|..#..|.....|"},
        {0, 0, 2, 2, "#....|.#...|..#..|"},   {4, -5, 4, 9, "....#|....#|....#|"}, {-3, 2, 9, 2, ".....|.....|#####|"},
        {-9, 5, -1, 1, ".....|.....|.....|"},
    };
    for (const auto& c : cases) {
        std::vector<Pixel32> drawn(15);
        drawLine(c.x0, c.y0, c.x1, c.y1, drawn.data(), 5, 3);
        std::string rows;
        for (std::size_t i = 0; i < 15; ++i) {
            rows += drawn[i] == 0xFFFFFFFF ? '#' : '.';
            if (i % 5 == 4)
                rows += '|';
        }
        EXPECT_EQ(rows, c.rows) << c.x0 << ", " << c.y0 << " to " << c.x1 << ", " << c.y1;
    }
}

TEST(Line, EqualsTheReference) {
    Random random(5);
    for (int round = 0; round < 20000; ++round) {
        const int reach = round % 2 == 0 ? 60 : 3000;
        const auto any = [&]() { return below(random, 2 * reach) - reach / 2; };
        const int ends[] = {any(), any(), any(), any()};
        GuardedPicture picture(40, 30);
        GuardedPicture expected(40, 30);
        drawLine(ends[0], ends[1], ends[2], ends[3], picture.target(), 40, 30);
        reference::drawLine(ends[0], ends[1], ends[2], ends[3], expected.target(), 40, 30);
        ASSERT_TRUE(samePictures(expected, picture)) << round;
    }
}

TEST(Line, EndsAnywhere) {
    constexpr int least = std::numeric_limits<int>::min();
    constexpr int most = std::numeric_limits<int>::max();
    std::vector<Pixel32> pixels(40 * 30);
    drawLine(least, least, most, most, pixels.data(), 40, 30);
    for (int i = 0; i < 30; ++i)
        EXPECT_EQ(pixels[static_cast<std::size_t>(41 * i)], 0xFFFFFFFF);
    const int ends[] = {least, -1, 0, 20, most};
    for (const int x0 : ends)
        for (const int y0 : ends)
            for (const int x1 : ends)
                for (const int y1 : ends)
                    drawLine(x0, y0, x1, y1, pixels.data(), 40, 30);
}

} // namespace
} // namespace lumenfold
