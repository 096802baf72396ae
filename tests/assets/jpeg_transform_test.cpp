// The inverse transform against the sums that define it, for blocks whose samples lie close to a step.

#include "assets/jpeg_transform.h"
#include "core/convert.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <string>

namespace lumenfold::test {

namespace {

using Samples = std::array<std::uint8_t, 64>;

Samples sumLiterally(const JpegBlock& block) {
    Samples samples;
    for (std::size_t pixel = 0; pixel < 64; ++pixel) {
        double sum = 0.0;
        for (std::size_t i = 0; i < 64; ++i)
            sum += jpegCosines().products[i][pixel] * block.coefficients[i];
        samples[pixel] = static_cast<std::uint8_t>(std::clamp(truncate(sum + 128.0), 0, 255));
    }
    return samples;
}

// Set coefficients at random places, up to a largest absolute value.
JpegBlock randomBlock(std::mt19937& random, int count, int largest) {
    const auto range = static_cast<std::uint32_t>(largest);
    JpegBlock block{};
    block.count = count;
    block.coefficients[0] = static_cast<std::int32_t>(random() % 1024) - 512;
    for (int i = 1; i < count; ++i)
        block.coefficients[random() % 64] = static_cast<std::int32_t>(random() % (2 * range + 1) - range);
    return block;
}

} // namespace

// Among so many samples some lie within 10^-6 of a step for every kind of block: an error beyond the one that is
// allowed for shows.
TEST(JpegTransform, DecidesEverySampleAsTheSums) {
    struct Kind {
        int count;
        int largest;
        int blocks;
    };
    const Kind kinds[] = {{1, 0, 100},      {2, 700, 2000},       {3, 700, 10000},    {5, 100, 5000},
                          {12, 300, 10000}, {40, 60, 10000},      {64, 12, 10000},    {64, 500, 5000},
                          {64, 2047, 1000}, {20, 16000, 1000},    {20, 1 << 28, 500}, {6, 4000, 20000},
                          {3, 8, 2000},     {64, 2147483647, 500}};
    std::mt19937 random(8);
    for (const Kind& kind : kinds) {
        std::map<std::string, int> wrong;
        for (int n = 0; n < kind.blocks; ++n) {
            const JpegBlock block = randomBlock(random, kind.count, kind.largest);
            const Samples expected = sumLiterally(block);
            onEveryTarget([&] {
                Samples samples;
                jpegTransform(block, samples.data(), 8);
                wrong[vectorTarget()] += samples != expected;
            });
        }
        for (const auto& [target, count] : wrong)
            EXPECT_EQ(count, 0) << target << ", " << kind.count << " coefficients up to " << kind.largest;
    }
}

} // namespace lumenfold::test
