#pragma once

#include "core/frame_info.h"

#include <cstddef>

namespace lumenfold {

// The frame that the scenes' fixed places count in.
inline constexpr int frameWidth = 512;
inline constexpr int frameHeight = 384;

inline std::size_t pixelCount(FrameInfo info) {
    return static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height);
}

} // namespace lumenfold
