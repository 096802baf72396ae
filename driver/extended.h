#pragma once

#include <cstdint>

namespace lumenfold {

// A positive number in extended precision: mantissa x 2^exponent with a 64-bit mantissa whose top bit is set (or zero,
// with mantissa 0). long double has this precision with some compilers only; demo time must come out the same
// with all of them, so the few operations that it needs are done in whole numbers. Every operation rounds to
// nearest, ties to even.
struct Extended {
    std::uint64_t mantissa = 0;
    std::int32_t exponent = 0;

    static Extended fromInteger(std::uint64_t value);
    static Extended fromFloat(float value);            // value is not negative and not subnormal
    static Extended reciprocal(std::uint64_t divisor); // 1 / divisor; divisor is not 0

    Extended operator*(Extended other) const;

    float toFloat() const;

    // The low 32 bits of the number truncated towards zero.
    std::uint32_t lowWord() const;
};

} // namespace lumenfold
