#include "core/float_sum.h"

#include "core/random.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>

namespace lumenfold {

namespace {

// Any sign, exponents from 2^-range to 2^range, few or many places in use.
float anyFloat(int range) {
    const int places = (rand() << 9 ^ rand()) & (rand() % 2 == 0 ? 0x7FFFFF : 0x700000);
    const float size = std::ldexp(1.0F + std::ldexp(static_cast<float>(places), -23), rand() % (2 * range) - range);
    return rand() % 2 == 0 ? size : -size;
}

void expectPlainSum(float start, float step, int count) {
    float sum = start;
    for (int i = 0; i < count; ++i)
        sum += step;
    const float jumped = addRepeatedly(start, step, count);
    if (std::isnan(sum))
        ASSERT_TRUE(std::isnan(jumped));
    else
        ASSERT_EQ(std::bit_cast<std::uint32_t>(jumped), std::bit_cast<std::uint32_t>(sum))
            << start << " + " << count << " x " << step;
}

TEST(FloatSum, JumpsToWhatSingleAdditionsLeave) {
    for (int i = 0; i < 60000; ++i)
        expectPlainSum(anyFloat(20), anyFloat(20), rand() % 300);
    for (int i = 0; i < 300; ++i)
        expectPlainSum(anyFloat(12), anyFloat(12), 100000 + rand());
    for (int i = 0; i < 20000; ++i) { // steps of half places, where sums round to even
        const float step = std::ldexp(static_cast<float>(rand() % 64 + 0.5), -23);
        expectPlainSum(1.0F + std::ldexp(static_cast<float>(rand()), -17), rand() % 2 == 0 ? step : -step, rand());
    }
}

TEST(FloatSum, EndsWhereNumbersDo) {
    using limits = std::numeric_limits<float>;
    for (const float start :
         {0.0F, -0.0F, 1.0F, limits::denorm_min(), limits::max(), limits::infinity(), limits::quiet_NaN()})
        for (const float step : {0.0F, -0.0F, limits::denorm_min(), -limits::min(), -limits::infinity(), limits::max()})
            for (const int count : {0, 1, 2, 3, 1000})
                expectPlainSum(start, step, count);
    EXPECT_EQ(addRepeatedly(-1e9F, 0.5F, std::int64_t{1} << 62), -1e9F) << "steps too small to count";
    EXPECT_EQ(addRepeatedly(-16777216.0F, 1.0F, 33554432), 16777216.0F);
}

} // namespace

} // namespace lumenfold
