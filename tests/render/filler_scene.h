#pragma once

#include "core/frame_info.h"
#include "core/pixel.h"
#include "filler_reference.h"
#include "render/depth_buffer.h"
#include "tests/support/pixels.h"

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

// What the filler tests share: pictures between guard bands, random numbers.

namespace lumenfold::test {

using Random = std::mt19937;

inline float between(Random& random, float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(random);
}
inline int below(Random& random, int count) {
    return std::uniform_int_distribution<int>(0, count - 1)(random);
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
    float* depth() { return depth_.data() + guard; }
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

} // namespace lumenfold::test
