#pragma once

#include <cstdint>
#include <cstring>

namespace lumenfold {

// The floats that repeated addition gives: start, start + step, (start + step) + step and so on, each sum rounded.
//
// As long as the sums keep sign and exponent they lie on one grid, and adding the step moves each by the same whole
// number of grid places: the step rounded to the grid. Only a step that falls half way between two places may round
// differently from the first sum, which lands on an even place, and from there on always alike. So the second
// difference holds for all that follow, and its multiples are exact.
struct FloatRamp {
    // count: floats that will be asked for, at most 2^23.
    FloatRamp(float begin, float step, std::int32_t count) : start(begin), first(begin + step) {
        difference = (first + step) - first;
        // one place past the last float, so that no sum rounds on the finer grid below
        const float end = first + static_cast<float>(count - 1) * difference;
        regular = sameBinade(start, end) && end == end;
    }

    // Float number 0 is start; number n from 1 on is first + (n - 1) x difference, if the ramp is regular. Else the
    // sums change their exponent on the way and have to be added up one by one.
    float start;
    float first;
    float difference;
    bool regular;

  private:
    static bool sameBinade(float a, float b) {
        std::uint32_t bits[2];
        std::memcpy(&bits[0], &a, sizeof a);
        std::memcpy(&bits[1], &b, sizeof b);
        return (bits[0] ^ bits[1]) >> 23 == 0;
    }
};

} // namespace lumenfold
