#pragma once

#include <cstdint>
#include <limits>

namespace lumenfold {

// Truncates towards zero; a value that no 32-bit integer holds (NaN too) converts to the smallest one.
inline std::int32_t truncate(double value) {
    if (value > -2147483649.0 && value < 2147483648.0)
        return static_cast<std::int32_t>(value);
    return std::numeric_limits<std::int32_t>::min();
}

// The low byte of a truncated value.
inline std::uint8_t lowByte(double value) {
    return static_cast<std::uint8_t>(truncate(value));
}

// 32-bit two's complement arithmetic that wraps around: the fixed-point walkers rely on it.
inline std::int32_t wrapAdd(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}
inline std::int32_t wrapSub(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}
inline std::int32_t wrapMul(std::int32_t a, std::int32_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) * static_cast<std::uint32_t>(b));
}

// A whole number as 16.16 fixed point.
inline std::int32_t toFixed16(std::int32_t value) {
    return wrapMul(value, 65536);
}

// Division that truncates towards zero and wraps where the quotient does not fit (smallest / -1); b is not 0.
inline std::int32_t wrapDiv(std::int32_t a, std::int32_t b) {
    return b == -1 ? wrapSub(0, a) : a / b;
}

} // namespace lumenfold
