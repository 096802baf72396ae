#include "core/convert.h"
#include "core/random.h"
#include "core/sync_state.h"
#include "core/trig.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace lumenfold {

namespace {

// Distance in units of the last place, for finite values.
std::int64_t ulpsBetween(double a, double b) {
    const auto ordered = [](double value) {
        std::int64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        return bits < 0 ? std::numeric_limits<std::int64_t>::min() - bits : bits;
    };
    return std::abs(ordered(a) - ordered(b));
}

TEST(Trig, WithinOneUlpOfTheCLibrary) {
    std::int64_t worst = 0;
    for (int i = 0; i < 600000; ++i) {
        const double scale = std::ldexp(1.0, i % 40 - 20);
        const double x = (rand() * 32768.0 + rand() - 536870912.0) / 536870912.0 * (i % 40 == 39 ? 1e6 : scale);
        const double y = (rand() - 16383.5) * std::ldexp(1.0, i % 23 - 11);
        worst = std::max({worst, ulpsBetween(trig::sin(x), std::sin(x)), ulpsBetween(trig::cos(x), std::cos(x)),
                          ulpsBetween(trig::atan2(y, x), std::atan2(y, x))});
    }
    EXPECT_LE(worst, 1);
}

TEST(Trig, SameBitsEverywhere) {
    // Sums over a sweep: a single differing result anywhere would show.
    std::uint64_t hash = 14695981039346656037U;
    const auto mix = [&hash](double value) {
        std::uint64_t bits;
        std::memcpy(&bits, &value, sizeof bits);
        hash = (hash ^ bits) * 1099511628211U;
    };
    for (int i = -50000; i < 50000; ++i) {
        mix(trig::sin(i * 0.37));
        mix(trig::cos(i * 19.9));
        mix(trig::atan2(i * 0.01, 77.0 - i % 251));
    }
    EXPECT_EQ(hash, 17471681691142917953U);
}

TEST(Trig, QuadrantsAndSpecialPoints) {
    const double pi = std::acos(-1.0);
    const double infinity = std::numeric_limits<double>::infinity();
    for (double y : {0.0, -0.0, 1.0, -1.0, 5e-324, -3e300, 1.7e308, infinity})
        for (double x : {0.0, -0.0, 1.0, -1.0, 5e-324, -3e300, 1.7e308, -infinity})
            EXPECT_LE(ulpsBetween(trig::atan2(y, x), std::atan2(y, x)), 1) << y << ' ' << x;
    EXPECT_EQ(trig::sin(0.0), 0.0);
    EXPECT_TRUE(std::signbit(trig::sin(-0.0)));
    EXPECT_EQ(trig::cos(0.0), 1.0);
    EXPECT_EQ(trig::sin(pi / 2), 1.0);
    EXPECT_TRUE(std::isfinite(trig::sin(1e300)));
    EXPECT_TRUE(std::isfinite(trig::cos(infinity))) << "a defined value, never an endless reduction";
}

TEST(Convert, TruncatesTowardsZeroAndGivesTheSmallestForWhatDoesNotFit) {
    const std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(truncate(-0.99), 0);
    EXPECT_EQ(truncate(-1.5), -1);
    EXPECT_EQ(truncate(2147483647.9), 2147483647);
    EXPECT_EQ(truncate(-2147483648.9), smallest);
    for (double value : {2147483648.0, -2147483649.0, 1e300, std::nan(""), HUGE_VAL})
        EXPECT_EQ(truncate(value), smallest) << value;
    EXPECT_EQ(lowByte(-1.0), 255);
    EXPECT_EQ(toFixed16(40000), static_cast<std::int32_t>(40000U << 16));
    EXPECT_EQ(wrapDiv(smallest, -1), smallest);
    EXPECT_EQ(wrapDiv(-7, 2), -3);
}

TEST(Random, GivesTheSequenceOfItsRecurrence) {
    resetRand();
    for (std::int32_t expected : {41, 18467, 6334, 26500, 19169})
        EXPECT_EQ(rand(), expected);
}

TEST(SyncBytes, CountWrapsAndZeroClearsAll) {
    syncState.zero();
    syncState.currentPart = 255;
    syncState.currentPart.increment();
    EXPECT_EQ(syncState.currentPart, 0);
    auto* bytes = reinterpret_cast<SyncByte*>(&syncState);
    for (int i = 0; i < 20; ++i)
        bytes[i] = static_cast<std::uint8_t>(i + 1);
    EXPECT_EQ(syncState.syncFlag32, 2);
    EXPECT_EQ(syncState.syncFlag33, 3);
    EXPECT_EQ(syncState.syncFlag36, 5);
    EXPECT_EQ(syncState.syncFlag37, 6);
    EXPECT_EQ(syncState.syncFlag39, 8);
    EXPECT_EQ(syncState.syncFlag59, 12);
    syncState.zero();
    for (int i = 0; i < 20; ++i)
        EXPECT_EQ(bytes[i], 0) << i;
}

} // namespace
} // namespace lumenfold
