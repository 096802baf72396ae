#include "effects/strip_reveal.h"

#include "core/kernels.h"
#include "effects/frame_size.h"

#include <algorithm>

namespace lumenfold {

namespace {
constexpr int left = 420;
} // namespace

void StripReveal::advance(Pixel32* frame, Pixel32* background) {
    if (rows >= height)
        return;
    rows = std::min(rows + 5, height);
    const Pixel32* shown = strip.data() + (height - rows) * width;
    stampAdd(frame, frameWidth, frameHeight, shown, width, rows, left, 0);
    if (rows == height)
        stampAdd(background, frameWidth, frameHeight, shown, width, height, left, 0);
}

} // namespace lumenfold
