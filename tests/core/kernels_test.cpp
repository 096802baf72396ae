#include "core/kernels.h"

#include "core/kernel_table.h"
#include "core/random.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <functional>
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

// Runs an operation in both forms on runs of every short length, so that whole vectors and every remainder occur.
void expectSameBits(const std::function<void(Pixels&, const Pixels&, std::size_t)>& operation) {
    if (vectorKernels() == nullptr)
        GTEST_SKIP() << "this processor has no vectorised kernels";
    for (std::size_t count = 0; count < 70; ++count) {
        const Pixels start = test::randomPixels(count + 3, 1);
        const Pixels other = test::randomPixels(count + 3, 2);
        Pixels plain = start;
        Pixels vector = start;
        setVectorCode(false);
        operation(plain, other, count);
        setVectorCode(true);
        operation(vector, other, count);
        ASSERT_EQ(plain, vector) << count << " pixels";
        ASSERT_TRUE(std::equal(start.begin() + static_cast<std::ptrdiff_t>(count), start.end(),
                               vector.begin() + static_cast<std::ptrdiff_t>(count)))
            << "wrote past " << count << " pixels";
    }
}

TEST(Kernels, VectorisedFormsEqualPlain) {
    const Pixels texture = test::randomPixels(texturePixels, 3);
    std::vector<std::uint16_t> table(100);
    for (std::uint16_t& entry : table)
        entry = static_cast<std::uint16_t>(rand() * 2);
    expectSameBits([](Pixels& p, const Pixels& q, std::size_t n) { addSaturated(p.data(), q.data(), n); });
    expectSameBits([](Pixels& p, const Pixels& q, std::size_t n) { addSaturatedConstant(p.data(), q[0], n); });
    expectSameBits([](Pixels& p, const Pixels& q, std::size_t n) { averageHalves(p.data(), p.data(), q.data(), n); });
    expectSameBits([](Pixels& p, const Pixels& q, std::size_t n) { overlayKeyed(p.data(), q.data(), q[n / 2], n); });
    for (int factor : {0, 1, 127, 254, 255}) {
        const auto a = static_cast<std::uint8_t>(factor);
        expectSameBits([a](Pixels& p, const Pixels&, std::size_t n) { fade(p.data(), a, n); });
        expectSameBits([a](Pixels& p, const Pixels& q, std::size_t n) { crossFade(p.data(), q.data(), a, n); });
    }
    for (std::int32_t offset : {0, 1, 65535, -257, 2147483647}) {
        expectSameBits([&](Pixels& p, const Pixels&, std::size_t n) {
            mapTable(p.data(), table.data(), offset, texture.data(), n);
        });
        expectSameBits([&](Pixels& p, const Pixels&, std::size_t n) {
            mapTableReversed(p.data(), table.data(), offset, texture.data(), n);
        });
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

// Distances within a vector, of one and beyond it; before the run and behind it as many pixels as they reach.
TEST(Kernels, VectorisedSmearsEqualPlain) {
    using Smear = void (*)(Pixel32*, std::ptrdiff_t, std::size_t);
    for (const Smear smear : {Smear{smearHalves}, Smear{smearQuarters}})
        for (const std::size_t distance : {1U, 2U, 3U, 4U, 5U, 6U, 7U, 8U, 9U, 15U, 16U, 17U, 64U}) {
            if (distance == 1 && smear == Smear{smearQuarters})
                continue;
            for (std::size_t count = 0; count < 100; ++count) {
                Pixels forms[2];
                for (const bool vectorised : {false, true}) {
                    setVectorCode(vectorised);
                    Pixels& pixels = forms[vectorised];
                    pixels = test::randomPixels(distance + count + distance, 5);
                    smear(pixels.data() + distance, static_cast<std::ptrdiff_t>(distance), count);
                }
                ASSERT_EQ(forms[0], forms[1]) << "distance " << distance << ", " << count << " pixels";
            }
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
