#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"
#include "filler_reference.h"
#include "render/depth_buffer.h"
#include "tests/support/pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

// What the tests of the renderer share: pictures between guard bands, random numbers.

namespace lumenfold::test {

using Random = std::mt19937;

inline float between(Random& random, float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
}
inline int below(Random& random, int count) {
    return std::uniform_int_distribution<int>(0, count - 1)(random);
}
// Numbers that no scene makes.
inline float absurd(Random& random) {
    constexpr float inf = std::numeric_limits<float>::infinity();
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    const float values[] = {0.0F,        -0.0F,    1e30F,   -1e30F,   inf,           -inf,      nan,    0.2F,
                            0.19999F,    -1.0F,    90.1F,   0.4F,     -0.4F,         3e9F,      -3e9F,  2e10F,
                            -5e12F,      1e38F,    3.4e38F, -3.4e38F, 65536.0F,      -32769.0F, 1e-40F, -1e-40F,
                            16777216.0F, 32767.5F, 4e6F,    -1e5F,    2147483648.0F, -32768.0F};
    return values[below(random, static_cast<int>(std::size(values)))];
}

inline void toPerspective(const AffineCorner (&from)[3], PerspectiveCorner (&to)[3]) {
    for (int i = 0; i < 3; ++i)
        to[i] = {from[i].x, from[i].y, from[i].z, from[i].u1, from[i].v1};
}

// A target and a depth buffer with guard bands before and behind; the fillers' depth buffer while it lives.
class GuardedPicture {
  public:
    GuardedPicture(int width, int height)
        : width_(width), height_(height), pixels_(size() + 2 * guard, guardPixel),
          depth_(size() + 2 * guard, guardDepth), previous_(depthBuffer) {
        clear();
    }
    ~GuardedPicture() { depthBuffer = previous_; }
    GuardedPicture(const GuardedPicture&) = delete;
    GuardedPicture& operator=(const GuardedPicture&) = delete;

    void clear() {
        for (std::size_t i = 0; i < size(); ++i) {
            target()[i] = 0;
            depth()[i] = 0.0F;
        }
    }
    Pixel32* target() { return pixels_.data() + guard; }
    const Pixel32* target() const { return pixels_.data() + guard; }
    float* depth() { return depth_.data() + guard; }
    const float* depth() const { return depth_.data() + guard; }
    std::size_t drawn() const { return size() - static_cast<std::size_t>(std::count(target(), target() + size(), 0U)); }
    Pixel32* select() {
        depthBuffer = depth();
        return target();
    }
    FrameInfo info() const { return {width_, height_, 0, 0, 0}; }
    reference::Picture reference() { return {width_, height_, target(), depth()}; }
    std::size_t size() const { return static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_); }

    bool guardsIntact() const {
        for (std::size_t i = 0; i < guard; ++i) {
            const std::size_t behind = guard + size() + i;
            if (pixels_[i] != guardPixel || pixels_[behind] != guardPixel || depth_[i] != guardDepth ||
                depth_[behind] != guardDepth)
                return false;
        }
        return true;
    }

  private:
    static constexpr std::size_t guard = 1024;
    static constexpr Pixel32 guardPixel = 0xA5C3F00D;
    static constexpr float guardDepth = -1e30F; // farther than any triangle, so that a stray pixel would show

    int width_;
    int height_;
    std::vector<Pixel32> pixels_;
    std::vector<float> depth_;
    float* previous_;
};

// In every pixel and every bit of depth, and nothing is written beside them.
inline testing::AssertionResult samePictures(const GuardedPicture& expected, const GuardedPicture& actual) {
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (expected.target()[i] == actual.target()[i] &&
            // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison)
            std::memcmp(expected.depth() + i, actual.depth() + i, sizeof(float)) == 0)
            continue;
        const auto width = static_cast<std::size_t>(expected.info().width);
        return testing::AssertionFailure()
               << "at column " << i % width << ", row " << i / width << ": " << std::hex << actual.target()[i]
               << " instead of " << expected.target()[i] << ", depth " << std::hexfloat << actual.depth()[i]
               << " instead of " << expected.depth()[i];
    }
    if (!actual.guardsIntact())
        return testing::AssertionFailure() << "written beside the picture";
    return testing::AssertionSuccess();
}

} // namespace lumenfold::test
