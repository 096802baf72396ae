#pragma once

#include "core/pixel.h"
#include "core/vector_target.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace lumenfold::test {

// Pixels of every value, the top byte too.
inline std::vector<Pixel32> randomPixels(std::size_t count, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<Pixel32> pixels(count);
    for (Pixel32& pixel : pixels)
        pixel = static_cast<Pixel32>(random());
    return pixels;
}

// One byte at a time, as pixel arithmetic is defined.
template <class Operation>
Pixel32 perByte(Pixel32 a, Pixel32 b, Operation operation) {
    Pixel32 result = 0;
    for (int shift = 0; shift < 32; shift += 8)
        result |= static_cast<Pixel32>(operation(a >> shift & 255, b >> shift & 255) & 255) << shift;
    return result;
}

// Runs a test's body with the loops of every target that this processor has; leaves the best one in use.
template <class Body>
void onEveryTarget(Body body) {
    const std::vector<std::string> targets = vectorTargets();
    for (auto name = targets.rbegin(); name != targets.rend(); ++name) {
        SCOPED_TRACE(*name);
        useVectorTarget(*name);
        body();
    }
}

} // namespace lumenfold::test
