#include "effects/cut_blocks.h"

#include "core/kernels.h"
#include "effects/frame_size.h"

namespace lumenfold {

void cutDiagonal(Pixel32* picture, std::uint32_t steps) {
    constexpr std::uint32_t blockWidth = 32;
    constexpr std::uint32_t blockHeight = 24;
    constexpr std::uint32_t columns = frameWidth / blockWidth;
    for (std::uint32_t row = 0; row < steps; ++row) {
        const std::uint32_t column = columns - steps + row;
        fillBlock(picture + row * blockHeight * frameWidth + column * blockWidth, frameWidth, blockWidth, blockHeight,
                  0);
    }
}

} // namespace lumenfold
