#include "render/line.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

// The error term after s steps along the major axis is (major / 2 + s x minor) mod major, and the quotient is the
// number of minor steps taken, so that the walk can begin at the first step inside the frame.

namespace lumenfold {

namespace {

constexpr Pixel32 lineColour = 0xFFFFFFFF;

// One axis of the line.
struct Axis {
    std::int64_t start;
    std::int64_t length; // |end - start|
    std::int64_t step;   // its sign
    std::int64_t size;   // of the frame
    std::int64_t pitch;  // pixels from one position to the next

    Axis(int from, int to, int frameSize, std::int64_t pixelPitch)
        : start(from), length(std::abs(static_cast<std::int64_t>(to) - from)), step((to > from) - (to < from)),
          size(frameSize), pitch(pixelPitch) {}
};

void walk(const Axis& major, const Axis& minor, Pixel32* target) {
    // The steps whose position on the major axis lies within the frame.
    std::int64_t first = 0;
    std::int64_t last = major.length;
    if (major.step > 0) {
        first = std::max<std::int64_t>(first, -major.start);
        last = std::min(last, major.size - 1 - major.start);
    } else if (major.step < 0) {
        first = std::max(first, major.start - (major.size - 1));
        last = std::min(last, major.start);
    } else if (major.start < 0 || major.start >= major.size) {
        return;
    }
    if (first > last)
        return;

    // At most (2^32 - 1)^2 + 2^31: fits without a sign.
    const auto length = static_cast<std::uint64_t>(std::max<std::int64_t>(major.length, 1));
    const std::uint64_t covered =
        length / 2 + static_cast<std::uint64_t>(first) * static_cast<std::uint64_t>(minor.length);
    std::uint64_t error = covered % length;
    std::int64_t a = major.start + major.step * first;
    std::int64_t b = minor.start + minor.step * static_cast<std::int64_t>(covered / length);
    for (std::int64_t s = first; s <= last; ++s) {
        if (b >= 0 && b < minor.size)
            target[a * major.pitch + b * minor.pitch] = lineColour;
        a += major.step;
        error += static_cast<std::uint64_t>(minor.length);
        if (error >= length) {
            error -= length;
            b += minor.step;
        }
    }
}

} // namespace

void drawLine(int x0, int y0, int x1, int y1, Pixel32* target, int width, int height) {
    const Axis x(x0, x1, width, 1);
    const Axis y(y0, y1, height, width);
    if (x.length > y.length)
        walk(x, y, target);
    else
        walk(y, x, target);
}

} // namespace lumenfold
