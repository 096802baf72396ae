#include "driver/loading_bar.h"

#include <cassert>

namespace lumenfold {

void drawLoadingBar(FrameInfo info, Pixel32* frame, std::int32_t width) {
    assert(width <= info.width);
    constexpr std::int32_t firstRow = 178;
    constexpr std::int32_t rows = 16;
    for (std::int32_t row = firstRow; row < firstRow + rows; ++row)
        for (std::int32_t x = 1; x < width; x += 2)
            frame[row * info.width + x] = 0x00FF0000 | (static_cast<Pixel32>(x) & 0x1FE) << 7;
}

} // namespace lumenfold
