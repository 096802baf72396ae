#include "driver/demo_time.h"
#include "driver/extended.h"

#include <cfloat>
#include <gtest/gtest.h>
#include <random>

namespace lumenfold {
namespace {

TEST(DemoTime, Moments) {
    struct {
        std::int64_t frequency;
        std::int64_t counter;
        std::uint32_t units;
        float time;
    } const cases[] = {
        {1000, 0, 0, 0.0F},
        {1000, 1000, 980, 15.68F},
        {1 << 20, 1 << 19, 490, 7.84F},
        {1 << 20, 1, 0, 0.0F},
        {1'000'000'000, 1'000'000'000, 979, static_cast<float>(979 * 0.016)}, // 1e-9 as a float is a little less
        {10'000'000, 10'000'000, 980, 15.68F},
        // 2^32 / 980 seconds: the units wrap after about 50 days
        {1 << 20, (std::int64_t{1} << 52) / 980, 4294967295U, static_cast<float>(4294967295.0 * 0.016)},
        {1 << 20, (std::int64_t{1} << 52) / 980 + 1, 0, 0.0F},
        {1 << 20, (std::int64_t{1} << 53) / 980 + (1 << 20), 979, static_cast<float>(979 * 0.016)},
    };
    for (const auto& moment : cases) {
        EXPECT_EQ(DemoTime(moment.frequency).timeUnits(moment.counter), moment.units) << moment.counter;
        EXPECT_EQ(DemoTime(moment.frequency).at(moment.counter), moment.time) << moment.counter;
    }
}

// Where the compiler offers the precision, its results are the peer.
TEST(Extended, EqualsLongDouble) {
#if LDBL_MANT_DIG == 64
    std::mt19937_64 random(1);
    for (int i = 0; i < 200000; ++i) {
        const auto frequency = static_cast<std::int64_t>(random() >> (1 + random() % 60)) | 1;
        const std::int64_t counter = static_cast<std::int64_t>(random() >> (1 + random() % 50));
        const float inverse = static_cast<float>(1.0L / static_cast<long double>(frequency));
        ASSERT_EQ(Extended::reciprocal(static_cast<std::uint64_t>(frequency)).toFloat(), inverse) << frequency;
        const long double units = static_cast<long double>(counter) * static_cast<long double>(inverse) * 980.0L;
        if (units < 1.8e19L) {
            ASSERT_EQ(DemoTime(frequency).timeUnits(counter),
                      static_cast<std::uint32_t>(static_cast<std::uint64_t>(units)))
                << frequency << " " << counter;
        }
    }
#else
    GTEST_SKIP() << "this compiler has no number of 64 bits of precision to compare with";
#endif
}

} // namespace
} // namespace lumenfold
