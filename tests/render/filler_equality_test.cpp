#include "core/vector_target.h"
#include "filler_scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>

namespace lumenfold::test {

namespace {

struct Textures {
    std::vector<Pixel32> first = randomPixels(texturePixels, 1);
    std::vector<Pixel32> second = randomPixels(texturePixels, 2);
};
const Textures& textures() {
    static const Textures all;
    return all;
}

using Triangle = AffineCorner[3];

struct Mode {
    const char* name;
    std::function<void(const Triangle&, GuardedPicture&, float bias)> shipped;
    std::function<void(const Triangle&, const reference::Picture&, float bias)> slow;
};

Mode perspectiveMode(const char* name, bool add, std::int32_t scroll) {
    const auto operation = add ? reference::Operation::Add : reference::Operation::Opaque;
    return {name,
            [=](const Triangle& t, GuardedPicture& picture, float bias) {
                PerspectiveCorner corners[3];
                toPerspective(t, corners);
                const Pixel32* texture = textures().first.data();
                if (add)
                    drawTexturedPerspectiveAdd(corners, texture, picture.info(), picture.select(), bias, scroll);
                else
                    drawTexturedPerspective(corners, texture, picture.info(), picture.select(), bias);
            },
            [=](const Triangle& t, const reference::Picture& picture, float bias) {
                PerspectiveCorner corners[3];
                toPerspective(t, corners);
                reference::perspective(corners, textures().first.data(), picture, bias, operation, scroll);
            }};
}

Mode affineMode(const char* name, bool add) {
    const auto operation = add ? reference::Operation::Add : reference::Operation::Opaque;
    return {name,
            [=](const Triangle& t, GuardedPicture& picture, float bias) {
                const auto draw = add ? drawTriangleAffineAdd : drawTriangleAffine;
                draw(t, textures().first.data(), picture.info(), picture.select(), bias);
            },
            [=](const Triangle& t, const reference::Picture& picture, float bias) {
                reference::affine(t, textures().first.data(), nullptr, picture, bias, operation);
            }};
}

Mode twoLayerMode() {
    return {"two layers",
            [](const Triangle& t, GuardedPicture& picture, float bias) {
                drawTriangleTwoLayer(t, textures().first.data(), textures().second.data(), picture.info(),
                                     picture.select(), bias);
            },
            [](const Triangle& t, const reference::Picture& picture, float bias) {
                reference::affine(t, textures().first.data(), textures().second.data(), picture, bias,
                                  reference::Operation::Opaque);
            }};
}

std::vector<Mode> allModes() {
    return {perspectiveMode("perspective", false, 0),
            perspectiveMode("perspective added", true, 0),
            perspectiveMode("perspective added, scrolled", true, 1234567),
            perspectiveMode("perspective added, scrolled back", true, -77),
            affineMode("affine", false),
            affineMode("affine added", true),
            twoLayerMode()};
}

// Families of triangles: each fills in x, y and z; coordinates are drawn alike for all.
struct Family {
    const char* name;
    void (*place)(Random& random, Triangle& t, float width, float height);
};

void setDepths(Random& random, Triangle& t, float nearest, float farthest) {
    for (AffineCorner& corner : t)
        corner.z = 1.0F / between(random, 1.0F / farthest, 1.0F / nearest);
}

void placeAround(Random& random, Triangle& t, float x, float y, float spreadX, float spreadY) {
    for (AffineCorner& corner : t) {
        corner.x = x + between(random, -spreadX, spreadX);
        corner.y = y + between(random, -spreadY, spreadY);
    }
}

const Family families[] = {
    {"across all borders",
     [](Random& random, Triangle& t, float width, float height) {
         placeAround(random, t, width / 2, height / 2, 2 * width, 2 * height);
         setDepths(random, t, 0.2F, 90.0F);
     }},
    {"spans of 1 to 40 pixels",
     [](Random& random, Triangle& t, float width, float height) {
         placeAround(random, t, between(random, 0, width), between(random, 0, height), between(random, 0.6F, 21), 6);
         setDepths(random, t, 0.2F, 90.0F);
     }},
    {"whole and half pixels",
     [](Random& random, Triangle& t, float width, float height) {
         for (AffineCorner& corner : t) {
             corner.x = 0.5F * static_cast<float>(below(random, static_cast<int>(2 * width) + 40) - 20);
             corner.y = 0.5F * static_cast<float>(below(random, static_cast<int>(2 * height) + 40) - 20);
         }
         setDepths(random, t, 0.9F, 1.1F);
     }},
    {"flat top or bottom",
     [](Random& random, Triangle& t, float width, float height) {
         placeAround(random, t, width / 2, height / 2, width, height);
         t[1].y = t[0].y;
         if (below(random, 2) == 0)
             t[1].x = t[0].x;
         setDepths(random, t, 0.2F, 4.0F);
     }},
    {"slivers",
     [](Random& random, Triangle& t, float width, float height) {
         const bool upright = below(random, 2) == 0;
         placeAround(random, t, between(random, 0, width), between(random, 0, height), upright ? 1.5F : width,
                     upright ? height : 1.5F);
         setDepths(random, t, 0.2F, 90.0F);
     }},
    {"depths at powers of two",
     [](Random& random, Triangle& t, float width, float height) {
         placeAround(random, t, width / 2, height / 2, width, height);
         for (AffineCorner& corner : t)
             corner.z = 0.25F * static_cast<float>(1 << below(random, 8));
     }},
    {"depths nearly alike",
     [](Random& random, Triangle& t, float width, float height) {
         placeAround(random, t, width / 2, height / 2, width, height);
         const float z = 0.25F * static_cast<float>(1 << below(random, 8));
         setDepths(random, t, z, z * 1.000002F);
     }},
    {"far beyond the screen",
     [](Random& random, Triangle& t, float width, float height) {
         placeAround(random, t, width / 2, height / 2, 20000, 20000);
         setDepths(random, t, 0.2F, 90.0F);
     }},
};

void setCoordinates(Random& random, Triangle& t) {
    const float reach = below(random, 8) == 0 ? 40000.0F : 300.0F;
    for (AffineCorner& corner : t) {
        corner.u1 = between(random, -reach, reach);
        corner.v1 = between(random, -reach, reach);
        corner.u2 = between(random, -reach, reach);
        corner.v2 = between(random, -reach, reach);
    }
}

std::string describe(const Triangle& t, float bias) {
    std::string text = "bias " + std::to_string(bias);
    char line[200];
    for (const AffineCorner& c : t) {
        std::snprintf(line, sizeof line, "\n  {%.9gF, %.9gF, %.9gF, %.9gF, %.9gF, %.9gF, %.9gF}", c.x, c.y, c.z, c.u1,
                      c.v1, c.u2, c.v2);
        text += line;
    }
    return text;
}

class FillerEquality : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override { useVectorTarget(GetParam()); }
    void TearDown() override { useVectorTarget(vectorTargets().front()); }
};

// The pictures run on from triangle to triangle, so that the depth test meets all sorts of depths.
void drawMany(const Mode& mode, const Family& family, int width, int height, int count, unsigned seed) {
    SCOPED_TRACE(std::string(mode.name) + ", " + family.name);
    Random random(seed);
    GuardedPicture expected(width, height);
    GuardedPicture actual(width, height);
    const float biases[] = {0.0F, 0.3F, 3.0F, -0.4F, -6.0F, 0.0F, 2500.0F};
    std::size_t drawn = 0;
    for (int i = 0; i < count; ++i) {
        Triangle t{};
        family.place(random, t, static_cast<float>(width), static_cast<float>(height));
        setCoordinates(random, t);
        std::rotate(t, t + i % 3, t + 3); // all six orders
        if (i % 6 >= 3)
            std::swap(t[0], t[1]);
        if (i % 16 == 0) {
            drawn += expected.drawn();
            expected.clear();
            actual.clear();
            const float cleared = i % 32 == 0 ? 0.0F : -10.0F;
            std::fill_n(expected.depth(), expected.size(), cleared);
            std::fill_n(actual.depth(), actual.size(), cleared);
        }
        const float bias = biases[below(random, 7)];
        mode.slow(t, expected.reference(), bias);
        mode.shipped(t, actual, bias);
        ASSERT_TRUE(samePictures(expected, actual)) << "triangle " << i << ", " << describe(t, bias);
    }
    EXPECT_GT(drawn, static_cast<std::size_t>(count)); // the family does reach the picture
}

TEST_P(FillerEquality, RandomTrianglesEqualTheSlowFiller) {
    unsigned seed = 100;
    for (const Mode& mode : allModes()) {
        for (const Family& family : families) {
            drawMany(mode, family, 96, 40, 400, ++seed);
            drawMany(mode, family, 21, 9, 200, ++seed);
            if (HasFatalFailure())
                return;
        }
    }
}

// Single rows of every length, cut at neither, either and both borders.
TEST_P(FillerEquality, RowsOfEveryLength) {
    const int width = 64;
    GuardedPicture expected(width, 3);
    GuardedPicture actual(width, 3);
    for (const Mode& mode : allModes()) {
        for (int length = 1; length <= 80; ++length) {
            for (int left = -17; left <= width; ++left) {
                const auto x = static_cast<float>(left);
                const auto end = static_cast<float>(left + length);
                const Triangle t = {{x, 0, 1.0F, 3, 5, 100, 7},
                                    {end, 0, 2.0F, 250, 9, 3, 90},
                                    {x, static_cast<float>(1 + length % 3), 0.7F, 12, 99, 0, 255}};
                expected.clear();
                actual.clear();
                mode.slow(t, expected.reference(), 0.25F);
                mode.shipped(t, actual, 0.25F);
                ASSERT_TRUE(samePictures(expected, actual)) << mode.name << ": " << length << " pixels from " << left;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, FillerEquality, testing::ValuesIn(vectorTargets()),
                         [](const auto& target) { return target.param; });

} // namespace

} // namespace lumenfold::test
