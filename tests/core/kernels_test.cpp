#include "core/kernels.h"

#include "core/packed.h"
#include "core/random.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace lumenfold {

namespace {

using Pixels = std::vector<Pixel32>;

TEST(Packed, EveryPairOfBytesInEveryPlace) {
    const auto add = [](unsigned a, unsigned b) { return a + b > 255 ? 255 : a + b; };
    const auto subtract = [](unsigned a, unsigned b) { return a > b ? a - b : 0; };
    for (unsigned a = 0; a < 256; ++a)
        for (unsigned b = 0; b < 256; ++b) {
            const Pixel32 x = a << 24 | (255 - b) << 16 | b << 8 | a;
            const Pixel32 y = b << 24 | a << 16 | (a ^ b) << 8 | (255 - a);
            ASSERT_EQ(addSaturated(x, y), test::perByte(x, y, add));
            ASSERT_EQ(subtractSaturated(x, y), test::perByte(x, y, subtract));
            ASSERT_EQ(crossFaded(x, y, a),
                      test::perByte(x, y, [a](unsigned p, unsigned q) { return (p * a + q * (255 - a)) >> 8; }));
        }
}

using test::perByte;

// Runs an operation on blocks of every short length, so that whole vectors and every remainder occur; expected gives a
// pixel of the result.
template <class Operation, class Expected>
void expectPixels(const char* what, Operation operation, Expected expected) {
    test::onEveryTarget([&] {
        for (std::size_t count = 0; count < 70; ++count) {
            const Pixels start = test::randomPixels(count + 3, 1);
            const Pixels other = test::randomPixels(count + 3, 2);
            Pixels pixels = start;
            operation(pixels.data(), other.data(), count);
            for (std::size_t i = 0; i < start.size(); ++i)
                ASSERT_EQ(pixels[i], i < count ? expected(start[i], other[i], i, count) : start[i])
                    << what << ", pixel " << i << " of " << count;
        }
    });
}

TEST(Kernels, DoTheSameToEveryByte) {
    const auto sum = [](unsigned a, unsigned b) { return a + b > 255 ? 255 : a + b; };
    const auto mean = [](unsigned a, unsigned b) { return a / 2 + b / 2; };
    using Size = std::size_t;
    expectPixels(
        "sum", [](Pixel32* p, const Pixel32* q, Size n) { addSaturated(p, q, n); },
        [&](Pixel32 a, Pixel32 b, Size, Size) { return perByte(a, b, sum); });
    expectPixels(
        "sum with a constant", [](Pixel32* p, const Pixel32*, Size n) { addSaturatedConstant(p, 0x80FF0140, n); },
        [&](Pixel32 a, Pixel32, Size, Size) { return perByte(a, 0x80FF0140, sum); });
    expectPixels(
        "mean", [](Pixel32* p, const Pixel32* q, Size n) { averageHalves(p, p, q, n); },
        [&](Pixel32 a, Pixel32 b, Size, Size) { return perByte(a, b, mean); });
    expectPixels(
        "filling", [](Pixel32* p, const Pixel32*, Size n) { fillPixels(p, 0x12345678, n); },
        [](Pixel32, Pixel32, Size, Size) { return 0x12345678U; });
    const Pixel32 key = test::randomPixels(10, 2)[7];
    expectPixels(
        "overlay", [key](Pixel32* p, const Pixel32* q, Size n) { overlayKeyed(p, q, key, n); },
        [key](Pixel32 a, Pixel32 b, Size, Size) { return b == key ? a : b; });
    for (const unsigned factor : {0U, 1U, 127U, 254U, 255U}) {
        const auto level = static_cast<std::uint8_t>(factor);
        const auto mix = [factor](unsigned a, unsigned b) { return (a * factor + b * (255 - factor)) >> 8; };
        expectPixels(
            "fade", [level](Pixel32* p, const Pixel32*, Size n) { fade(p, level, n); },
            [&](Pixel32 a, Pixel32, Size, Size) { return perByte(a, 0, mix); });
        expectPixels(
            "cross-fade", [level](Pixel32* p, const Pixel32* q, Size n) { crossFade(p, q, level, n); },
            [&](Pixel32 a, Pixel32 b, Size, Size) { return perByte(a, b, mix); });
    }
}

TEST(Kernels, LookUpATable) {
    const Pixels texture = test::randomPixels(texturePixels, 3);
    std::vector<std::uint16_t> table(100);
    for (std::uint16_t& entry : table)
        entry = static_cast<std::uint16_t>(rand() * 2);
    for (const std::int32_t offset : {0, 1, 65535, -257, 2147483647}) {
        const auto texel = [&](std::size_t entry) {
            return texture[(table[entry] + static_cast<std::uint32_t>(offset)) & 0xFFFF];
        };
        expectPixels(
            "table",
            [&](Pixel32* p, const Pixel32*, std::size_t n) { mapTable(p, table.data(), offset, texture.data(), n); },
            [&](Pixel32, Pixel32, std::size_t i, std::size_t) { return texel(i); });
        expectPixels(
            "table backwards",
            [&](Pixel32* p, const Pixel32*, std::size_t n) {
                mapTableReversed(p, table.data(), offset, texture.data(), n);
            },
            [&](Pixel32, Pixel32, std::size_t i, std::size_t n) { return texel(n - 1 - i); });
    }
}

TEST(Kernels, TableEntriesCarryFromColumnIntoRowAndWrap) {
    Pixels texture(texturePixels);
    std::iota(texture.begin(), texture.end(), 0U);
    const std::uint16_t table[3] = {0x00FF, 0xFFFF, 0x1234};
    Pixel32 out[3];
    mapTable(out, table, 1, texture.data(), 3);
    EXPECT_EQ(out[0], 0x0100U);
    EXPECT_EQ(out[1], 0x0000U);
    mapTableReversed(out, table, -1, texture.data(), 3);
    EXPECT_EQ(out[0], 0x1233U);
    EXPECT_EQ(out[2], 0x00FEU);
}

TEST(Kernels, SmearsReadWhatTheyHaveJustWritten) {
    Pixels row = {0, 0, 0x80, 0, 0, 0, 0, 0};
    smearHalves(row.data() + 1, 1, 6); // pixel 1 takes half of pixel 2, pixel 2 half of the new pixel 1, and so on
    EXPECT_EQ(row, (Pixels{0, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0}));

    Pixels field(5 * 4, 0x00FCFCFC); // rows of four pixels
    smearQuarters(field.data() + 4, 4, 12);
    EXPECT_EQ(field, Pixels(20, 0x00FCFCFC)) << "quarters of equal pixels keep their value";
    field.assign(20, 0x00030303);
    smearQuarters(field.data() + 4, 4, 12);
    EXPECT_EQ(field[7], 0U) << "each quarter loses its two low bits";
    EXPECT_EQ(field[19], 0x00030303U);
}

// Distances within a vector, of one and beyond it; before the run and after it as many pixels as they reach.
TEST(Kernels, SmearsGoOneByOne) {
    const auto quarters = [](Pixel32 pixel) { return perByte(pixel, 0, [](unsigned a, unsigned) { return a / 4; }); };
    const auto mean = [](unsigned a, unsigned b) { return a / 2 + b / 2; };
    for (const std::size_t distance : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 15U, 16U, 17U, 64U})
        for (std::size_t count = 0; count < 100; ++count) {
            const auto reach = static_cast<std::ptrdiff_t>(distance);
            const Pixels start = test::randomPixels(distance + count + distance, 5);
            Pixels halved = start;
            Pixels quartered = start;
            for (std::size_t i = distance; i < distance + count; ++i) {
                halved[i] = perByte(halved[i - distance], halved[i + distance], mean);
                quartered[i] = quarters(quartered[i - 1]) + quarters(quartered[i + 1]) +
                               quarters(quartered[i - distance]) + quarters(quartered[i + distance]);
            }
            test::onEveryTarget([&] {
                Pixels pixels = start;
                smearHalves(pixels.data() + distance, reach, count);
                ASSERT_EQ(pixels, halved) << "halves, distance " << distance << ", " << count << " pixels";
                if (distance == 1)
                    return;
                pixels = start;
                smearQuarters(pixels.data() + distance, reach, count);
                ASSERT_EQ(pixels, quartered) << "quarters, distance " << distance << ", " << count << " pixels";
            });
        }
}

TEST(Kernels, StampIsCutAtEveryEdge) {
    const Pixels sprite = test::randomPixels(5 * 3, 4);
    for (int y = -4; y <= 9; ++y)
        for (int x = -6; x <= 14; ++x) {
            Pixels target(13 * 8, 0x00101010);
            Pixels expected = target;
            for (int row = 0; row < 3; ++row)
                for (int column = 0; column < 5; ++column)
                    if (x + column >= 0 && x + column < 13 && y + row >= 0 && y + row < 8) {
                        Pixel32& pixel = expected[static_cast<std::size_t>((y + row) * 13 + x + column)];
                        pixel = addSaturated(pixel, sprite[static_cast<std::size_t>(row * 5 + column)]);
                    }
            stampAdd(target.data(), 13, 8, sprite.data(), 5, 3, x, y);
            ASSERT_EQ(target, expected) << x << ' ' << y;
        }
    Pixels target(16);
    stampAdd(target.data(), 4, 4, sprite.data(), 5, 3, INT32_MAX, INT32_MIN);
    EXPECT_EQ(target, Pixels(16));
}

} // namespace
} // namespace lumenfold
