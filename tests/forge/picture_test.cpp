// The picture tools: encoders through the demo's readers, seamless noise, results that no thread count changes.
#include "forge/encode.h"
#include "forge/noise.h"
#include "forge/parallel.h"
#include "forge/picture_file.h"
#include "forge/sdf.h"
#include "forge/trace.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace lumenfold::art {
namespace {

// Smooth colours with a bright disc on exact black; every byte value class of the run-length code occurs.
Bitmap discOnBlack(int width, int height) {
    Bitmap bitmap{width, height, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double dx = (x - width / 2.0) / width;
            const double dy = (y - height / 2.0) / height;
            const double level = std::max(0.0, 1 - 2.6 * std::sqrt(dx * dx + dy * dy));
            for (const double tint : {1.0, 0.7, 0.35}) {
                bitmap.rgb.push_back(static_cast<std::uint8_t>(255 * level * tint));
            }
        }
    }
    return bitmap;
}

class SavedFile {
  public:
    SavedFile(const Bitmap& bitmap, const std::string& ending) : path(testing::TempDir() + "lumenfold_forge" + ending) {
        const std::vector<std::uint8_t> bytes = encodeBitmap(bitmap, path);
        std::ofstream(path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    ~SavedFile() { std::remove(path.c_str()); }
    const std::string path;
};

int channelOf(Pixel32 pixel, int index) {
    return static_cast<int>(pixel >> (16 - 8 * index) & 255);
}

// tolerance: largest difference of one channel.
void expectReadBack(const std::string& ending, int width, int height, int tolerance) {
    const Bitmap bitmap = discOnBlack(width, height);
    const SavedFile file(bitmap, ending);
    const PictureFile read = readPicture(file.path, width, height);
    for (int i = 0; i < width * height; ++i) {
        if (ending == ".jpg" && (i % width == width - 1 || i / width == height - 1)) {
            continue; // the reader repeats the column and row before
        }
        for (int channel = 0; channel < 3; ++channel) {
            const int stored = bitmap.rgb[static_cast<std::size_t>(i) * 3 + channel];
            ASSERT_NEAR(channelOf(read.pixels[static_cast<std::size_t>(i)], channel), stored, tolerance)
                << ending << " pixel " << i << " channel " << channel;
        }
    }
}

TEST(Encoders, TheDemosReadersGiveThePictureBack) {
    expectReadBack(".pcx", 128, 64, 0);
    expectReadBack(".tga", 91, 35, 0);
    expectReadBack(".jpg", 64, 64, 3);
    expectReadBack(".jpg", 256, 36, 3); // not a multiple of eight rows
}

TEST(Encoders, BlackBesideLightStaysExactlyBlackInJpeg) {
    const Bitmap bitmap = discOnBlack(32, 32);
    const SavedFile file(bitmap, ".jpg");
    const PictureFile read = readPicture(file.path, 32, 32);
    for (int i = 0; i < 32; ++i) {
        EXPECT_EQ(read.at(i, 0), 0U);
        EXPECT_EQ(read.at(0, i), 0U);
        EXPECT_EQ(read.at(31, i), 0U);
        EXPECT_EQ(read.at(i, 31), 0U);
    }
}

TEST(Encoders, JpegKeepsItsLimitAndTheFormTheDemoReads) {
    Bitmap noise{256, 192, {}};
    for (int i = 0; i < 256 * 192 * 3; ++i) {
        noise.rgb.push_back(static_cast<std::uint8_t>(hashOf(i, 0, 0, 5)));
    }
    for (const std::size_t limit : {std::size_t{30000}, std::size_t{60000}, jpegLimit}) {
        const std::vector<std::uint8_t> bytes = encodeJpeg(noise, limit);
        EXPECT_LE(bytes.size(), limit);
        EXPECT_GT(bytes.size(), limit * 3 / 4); // the best quality within the limit
        EXPECT_EQ(jpegFault(bytes, 256, 192), "");
        EXPECT_NE(jpegFault(bytes, 256, 256), "");
    }
    EXPECT_THROW(encodeJpeg(noise, 500), std::runtime_error);
}

TEST(Encoders, AnUnknownEndingIsAnError) {
    EXPECT_THROW(encodeBitmap(discOnBlack(8, 8), "picture.bmp"), std::runtime_error);
}

TEST(Noise, RepeatsAfterItsPeriod) {
    const Period period = {3, 5};
    for (int i = 0; i < 200; ++i) {
        const float x = 0.137F * static_cast<float>(i);
        const float y = 0.071F * static_cast<float>(i);
        const auto near = [&](float a, float b) { EXPECT_NEAR(a, b, 2e-3F) << x << " " << y; };
        near(gradientNoise({x, y, 0.3F}, 7, period), gradientNoise({x + 3, y + 5, 0.3F}, 7, period));
        near(fractalNoise({x, y, 0.3F}, 4, 7, period), fractalNoise({x + 3, y - 5, 0.3F}, 4, 7, period));
        near(ridgedNoise({x, y, 0.3F}, 3, 7, period), ridgedNoise({x - 3, y, 0.3F}, 3, 7, period));
        near(cellNoise(x, y, 7, period).border, cellNoise(x + 3, y + 5, 7, period).border);
        EXPECT_EQ(cellNoise(x, y, 7, period).id, cellNoise(x + 3, y + 5, 7, period).id);
    }
}

TEST(Maths, ExponentialAndLogarithmFollowTheCLibrary) {
    for (float x = -80; x < 80; x += 0.37F) {
        EXPECT_NEAR(exponential(x) / std::exp(x), 1, 3e-7F) << x;
        EXPECT_NEAR(logarithm(exponential(x)), x, 1e-5F) << x;
    }
    EXPECT_EQ(power(0, 2.2F), 0);
    EXPECT_NEAR(power(0.5F, 2.4F), std::pow(0.5F, 2.4F), 1e-7F);
}

TEST(Colour, ScreenBytesSurviveTheWayThroughLight) {
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        EXPECT_NEAR(toScreen(fromHex(byte << 16 | byte << 8 | byte).y), static_cast<float>(byte), 0.01F);
    }
}

// A sphere over a mirror floor, rough enough for every random choice of the tracer.
World smallWorld() {
    World world;
    world.nearest = [](Vec3 p) { return nearer({p.y + 1, 0}, {sdf::sphere(p, 1), 1}); };
    world.material = [](int part, Vec3, Vec3) {
        Material material;
        material.metal = part == 0 ? 0.8F : 0.5F;
        material.roughness = 0.2F;
        return material;
    };
    world.sky = [](Vec3 direction) { return Colour{0.2F, 0.3F, 0.5F} * (1 + direction.y); };
    world.keyLight = {1, 1, 1};
    return world;
}

TEST(Tracer, FindsSurfacesWhereTheyAre) {
    const World world = smallWorld();
    EXPECT_NEAR(march(world, {{0, 0, -5}, {0, 0, 1}}, 0).value_or(0), 4, 0.01F);
    EXPECT_NEAR(march(world, {{3, 1, 0}, {0, -1, 0}}, 0).value_or(0), 2, 0.01F);
    EXPECT_FALSE(march(world, {{0, 3, -5}, {0, 0, 1}}, 0).has_value());
}

TEST(Tracer, ThreadsChangeNoBit) {
    const auto picture = [](const char* threads) {
        setenv("LUMENFOLD_FORGE_THREADS", threads, 1);
        const Bitmap bitmap = developed(photograph(smallWorld(), {{0.5F, 1, -4}, {0, 0, 0}, 1, 0}, 24, 18, 2));
        unsetenv("LUMENFOLD_FORGE_THREADS");
        return bitmap.rgb;
    };
    EXPECT_EQ(picture("1"), picture("3"));
}

TEST(Parallel, AnErrorInATaskReachesTheCaller) {
    EXPECT_THROW(parallelFor(50, [](int i) { i == 17 ? throw std::runtime_error("17") : void(); }), std::runtime_error);
}

} // namespace
} // namespace lumenfold::art
