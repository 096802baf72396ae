#include "assets/pcx.h"
#include "assets/tga.h"
#include "core/dynamic_error.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

namespace lumenfold::test {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr Pixel32 untouched = 0x7E57BEEF;

// Every byte that may stand for itself does, the others as runs of one.
Bytes packed(const Bytes& lines) {
    Bytes file(128, 0xEE);
    for (const std::uint8_t byte : lines) {
        if (byte >= 0xC0)
            file.push_back(0xC1);
        file.push_back(byte);
    }
    return file;
}

// The plane lines of a picture whose pixel (x, y) is 0x00(x)(y)(x + y), each byte times 20.
Bytes planeLines(int width, int height) {
    Bytes lines;
    for (int y = 0; y < height; ++y)
        for (int plane = 0; plane < 3; ++plane)
            for (int x = 0; x < width; ++x)
                lines.push_back(static_cast<std::uint8_t>((plane == 0 ? x : plane == 1 ? y : x + y) * 20));
    return lines;
}
Pixel32 expectedPixel(int x, int y) {
    return static_cast<Pixel32>(x * 20 & 0xFF) << 16 | static_cast<Pixel32>(y * 20 & 0xFF) << 8 |
           static_cast<Pixel32>((x + y) * 20 & 0xFF);
}

struct Result {
    std::int32_t status;
    std::vector<Pixel32> pixels;
};

// With the file and the target in allocations of exactly their sizes.
Result decode(const Bytes& file, int sourceWidth, int sourceHeight, int width, int height, int resample) {
    const auto data = std::make_unique<std::uint8_t[]>(file.size());
    std::copy(file.begin(), file.end(), data.get());
    Result result{0, std::vector<Pixel32>(static_cast<std::size_t>(width * height), untouched)};
    result.status = decodePcx(data.get(), file.size(), result.pixels.data(), sourceWidth, sourceHeight,
                              {width, height, 0, 0, 0}, resample);
    return result;
}

} // namespace

TEST(Pcx, CropsToTheTarget) {
    const Bytes file = packed(planeLines(12, 9));
    for (const auto& [width, height] :
         {std::pair(12, 9), std::pair(20, 15), std::pair(5, 4), std::pair(5, 30), std::pair(30, 4), std::pair(1, 1)}) {
        const Result result = decode(file, 12, 9, width, height, 0);
        EXPECT_EQ(result.status, 0);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                EXPECT_EQ(result.pixels[static_cast<std::size_t>(y * width + x)],
                          x < 12 && y < 9 ? expectedPixel(x, y) : untouched)
                    << width << ' ' << height << ' ' << x << ' ' << y;
    }
}

// The step is a single-precision number and so is its product with the position: 49 x (2 / 98) is 1.
TEST(Pcx, ScalesToTheTarget) {
    const Bytes file = packed(planeLines(12, 9));
    for (const auto& [width, height] : {std::pair(24, 18), std::pair(12, 9), std::pair(7, 4), std::pair(588, 441)}) {
        const Result result = decode(file, 12, 9, width, height, 1);
        const float stepX = 12.0f / static_cast<float>(width);
        const float stepY = 9.0f / static_cast<float>(height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) {
                const float column = static_cast<float>(x) * stepX;
                const float row = static_cast<float>(y) * stepY;
                ASSERT_EQ(result.pixels[static_cast<std::size_t>(y * width + x)],
                          expectedPixel(static_cast<int>(column), static_cast<int>(row)))
                    << x << ' ' << y;
            }
    }
}

TEST(Pcx, RunsCrossLinesAndRows) {
    Bytes file(128, 0);
    // 2 x 2 pixels, 12 bytes: a literal, an empty run, a run over three lines into the next row, a literal, and a
    // run of which three bytes are the last of the picture.
    for (const int byte : {0xBF, 0xC0, 0x99, 0xC7, 0xFF, 0x00, 0xC9, 0x41})
        file.push_back(static_cast<std::uint8_t>(byte));
    const Result result = decode(file, 2, 2, 2, 2, 0);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.pixels, (std::vector<Pixel32>{0xBFFFFF, 0xFFFFFF, 0xFF0041, 0xFF4141}));
}

TEST(Pcx, EveryTruncationLeavesTheTarget) {
    const Bytes whole = packed(planeLines(12, 9));
    for (const int resample : {0, 1})
        for (std::size_t length = 0; length < whole.size(); ++length) {
            const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
            const Result result = decode(cut, 12, 9, 12, 9, resample);
            EXPECT_EQ(result.status, -1) << length;
            EXPECT_EQ(result.pixels, std::vector<Pixel32>(12 * 9, untouched)) << length;
        }
}

TEST(Pcx, SizesWithoutAPicture) {
    const Bytes file = packed(planeLines(12, 9));
    const int huge = 0x7FFFFFFF;
    for (const auto& [width, height] :
         {std::pair(0, 9), std::pair(12, 0), std::pair(-1, 9), std::pair(12, -9), std::pair(huge, huge)})
        EXPECT_EQ(decode(file, width, height, 4, 4, 0).status, -1);
    for (const int resample : {0, 1})
        for (const auto& [width, height] : {std::pair(0, 4), std::pair(4, 0), std::pair(-4, -4)})
            EXPECT_EQ(decodePcx(file.data(), file.size(), nullptr, 12, 9, {width, height, 0, 0, 0}, resample), 0);
}

TEST(Tga, BottomRowFirst) {
    const int width = 91;
    const int height = 351;
    Bytes file(18, 0xEE);
    for (int i = 0; i < width * height; ++i)
        for (const int byte : {i & 0xFF, i >> 8, 0xC3}) // blue, green, red
            file.push_back(static_cast<std::uint8_t>(byte));
    std::vector<Pixel32> pixels(static_cast<std::size_t>(width * height), untouched);
    decodeTga(file.data(), file.size(), pixels.data(), {width, height, 0, 0, 0});
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            ASSERT_EQ(pixels[static_cast<std::size_t>((height - 1 - y) * width + x)],
                      0x00C30000u | static_cast<Pixel32>(y * width + x));
}

TEST(Tga, EveryTruncationReadsZerosAfterItsEnd) {
    const Bytes pattern = {0x11, 0x22, 0x33};
    Bytes whole(18, 0xEE);
    for (int i = 0; i < 5 * 4; ++i)
        whole.insert(whole.end(), pattern.begin(), pattern.end());
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const auto data = std::make_unique<std::uint8_t[]>(length);
        std::copy_n(whole.begin(), length, data.get());
        std::vector<Pixel32> pixels(5 * 4, untouched);
        decodeTga(data.get(), length, pixels.data(), {5, 4, 0, 0, 0});
        for (std::size_t i = 0; i < 20; ++i) { // in the order of the file
            Pixel32 expected = 0;
            for (std::size_t byte = 0; byte < 3; ++byte)
                if (18 + 3 * i + byte < length)
                    expected |= Pixel32{pattern[byte]} << (8 * byte);
            EXPECT_EQ(pixels[(3 - i / 5) * 5 + i % 5], expected) << length << ' ' << i;
        }
    }
    decodeTga(whole.data(), whole.size(), nullptr, {0, 4, 0, 0, 0});
    decodeTga(whole.data(), whole.size(), nullptr, {5, -4, 0, 0, 0});
}

// Files that netpbm has written, with the pixels that it was given.
TEST(PcxTga, FilesOfAnotherProgram) {
    const std::string folder = LUMENFOLD_TEST_DATA "/data/";
    std::vector<Pixel32> expected;
    for (unsigned y = 0; y < 4; ++y)
        for (unsigned x = 0; x < 6; ++x)
            expected.push_back((x * 50) << 16 | (255 - y * 60) << 8 | ((x * y * 17 + 200) & 0xFF));
    std::vector<Pixel32> pixels(6 * 4, untouched);
    EXPECT_EQ(readPcx((folder + "gradient.pcx").c_str(), pixels.data(), 6, 4, {6, 4, 0, 0, 0}, 0), 0);
    EXPECT_EQ(pixels, expected);
    pixels.assign(6 * 4, untouched);
    EXPECT_EQ(readTga((folder + "gradient.tga").c_str(), pixels.data(), 0, 0, {6, 4, 0, 0, 0}, 0), 1);
    EXPECT_EQ(pixels, expected);
}

} // namespace lumenfold::test
