#include "core/float_sum.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace lumenfold {

namespace {

constexpr std::int32_t places = 1 << 23; // floats of one sign and exponent

std::int32_t bitsOf(float value) {
    std::int32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

float floatOf(std::int32_t bits) {
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

bool sameGrid(float a, float b) {
    return (bitsOf(a) ^ bitsOf(b)) >> 23 == 0;
}

// How often `difference` places may be added to the place within the grid and leave two places free at its ends, where
// sums round on another grid.
std::int64_t additionsWithin(std::int32_t place, std::int32_t difference) {
    const std::int32_t room = difference > 0 ? places - 3 - place : place - 2;
    return std::max(room, 0) / std::abs(difference);
}

} // namespace

// Floats of one sign and exponent lie on a grid, and their bits count its places. Adding the step moves each by the
// same whole number of places, the step rounded to the grid. Only a step that falls half way between two places may
// round differently the first time; that sum lands on an even place, and from there on all round alike. So the second
// difference holds as long as the grid does.
float addRepeatedly(float start, float step, std::int64_t count) {
    while (count > 0) {
        const float first = start + step;
        const float second = first + step;
        --count;
        if (second == first || std::isnan(first))
            return first;
        if (sameGrid(start, first) && sameGrid(first, second)) {
            const std::int32_t difference = bitsOf(second) - bitsOf(first);
            const std::int64_t jump = std::min(count, additionsWithin(bitsOf(first) & (places - 1), difference));
            start = floatOf(bitsOf(first) + static_cast<std::int32_t>(jump * difference));
            count -= jump;
        } else {
            start = first;
        }
    }
    return start;
}

} // namespace lumenfold
