#include "driver/extended.h"

#include <cmath>

namespace lumenfold {

namespace {

constexpr std::uint64_t topBit = std::uint64_t{1} << 63;

// high x 2^64 + low, and whether anything not zero lies below, as a normalised number.
struct Wide {
    std::uint64_t high;
    std::uint64_t low;
};

Wide multiply(std::uint64_t a, std::uint64_t b) {
    constexpr std::uint64_t lowMask = 0xFFFFFFFF;
    const std::uint64_t lowLow = (a & lowMask) * (b & lowMask);
    const std::uint64_t highLow = (a >> 32) * (b & lowMask) + (lowLow >> 32);
    const std::uint64_t lowHigh = (a & lowMask) * (b >> 32) + (highLow & lowMask);
    return {(a >> 32) * (b >> 32) + (highLow >> 32) + (lowHigh >> 32), lowHigh << 32 | (lowLow & lowMask)};
}

// Rounds value, whose top bit of high is set, to its upper 64 bits; exponent is that of the upper word.
Extended rounded(Wide value, std::int32_t exponent) {
    const bool up = value.low > topBit || (value.low == topBit && (value.high & 1) != 0);
    if (!up)
        return {value.high, exponent};
    if (value.high == ~std::uint64_t{0})
        return {topBit, exponent + 1};
    return {value.high + 1, exponent};
}

} // namespace

Extended Extended::fromInteger(std::uint64_t value) {
    if (value == 0)
        return {};
    std::int32_t exponent = 0;
    while ((value & topBit) == 0) {
        value <<= 1;
        --exponent;
    }
    return {value, exponent};
}

Extended Extended::fromFloat(float value) {
    int exponent = 0;
    const float fraction = std::frexp(value, &exponent); // 0.5 to 1, exact
    Extended result = fromInteger(static_cast<std::uint64_t>(std::ldexp(fraction, 24)));
    result.exponent += exponent - 24;
    return result;
}

Extended Extended::reciprocal(std::uint64_t divisor) {
    const Extended d = fromInteger(divisor);
    if (d.mantissa == topBit) // a power of two: exact
        return {topBit, -126 - d.exponent};
    // 2^127 / mantissa has 64 bits: long division, one bit a step, then one more word for the rounding.
    std::uint64_t remainder = topBit;
    Wide quotient{0, 0};
    for (int bit = 0; bit < 128; ++bit) {
        const bool carry = (remainder & topBit) != 0;
        remainder <<= 1;
        const bool fits = carry || remainder >= d.mantissa;
        if (fits)
            remainder -= d.mantissa;
        quotient.high = quotient.high << 1 | quotient.low >> 63;
        quotient.low = quotient.low << 1 | (fits ? 1U : 0U);
    }
    if (remainder != 0)
        quotient.low |= 1; // below the half or above it, never a tie
    return rounded(quotient, -127 - d.exponent);
}

Extended Extended::operator*(Extended other) const {
    Wide product = multiply(mantissa, other.mantissa);
    if (product.high == 0 && product.low == 0)
        return {};
    std::int32_t sum = exponent + other.exponent + 64;
    if ((product.high & topBit) == 0) {
        product.high = product.high << 1 | product.low >> 63;
        product.low <<= 1;
        --sum;
    }
    return rounded(product, sum);
}

float Extended::toFloat() const {
    if (mantissa == 0)
        return 0.0F;
    constexpr int dropped = 40; // a float has 24 bits
    constexpr std::uint64_t halfUnit = std::uint64_t{1} << (dropped - 1);
    const std::uint64_t rest = mantissa & (2 * halfUnit - 1);
    std::uint64_t kept = mantissa >> dropped;
    if (rest > halfUnit || (rest == halfUnit && (kept & 1) != 0))
        ++kept;
    return std::ldexp(static_cast<float>(kept), exponent + dropped);
}

std::uint32_t Extended::lowWord() const {
    if (exponent <= -64 || exponent >= 32)
        return 0;
    return static_cast<std::uint32_t>(exponent < 0 ? mantissa >> -exponent : mantissa << exponent);
}

} // namespace lumenfold
