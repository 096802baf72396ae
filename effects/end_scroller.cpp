#include "effects/end_scroller.h"

#include "core/convert.h"
#include "core/kernels.h"
#include "effects/picture.h"

#include <algorithm>

namespace lumenfold {

std::uint8_t endScrollDone = 0;

namespace {

constexpr int pictureWidth = 512;
constexpr int pictureHeight = 1400;
constexpr int lastRow = 2000; // the picture has wrapped once and rolled 600 rows further

struct State {
    // loaded once
    std::vector<Pixel32> picture; // 512 x 1400

    // runs on from frame to frame
    float position = 0.0F; // rows scrolled
} state;

void init() {
    state = State{};
    endScrollDone = 0;
    state.picture = loadPicture("endscroll.pcx", pictureWidth, pictureHeight);
}

// The row that stands at the top of this frame.
int scroll() {
    const double sum = state.position + 0.2; // the row is taken from the sum before it is rounded to the position
    state.position = static_cast<float>(sum);
    return truncate(sum);
}

void render(FrameInfo info, Pixel32* pixels) {
    const int top = scroll();
    if (top > lastRow)
        endScrollDone = 1;
    for (int y = 0, rows = 0; y < info.height; y += rows) {
        const int row = (top + y) % pictureHeight;
        rows = std::min(info.height - y, pictureHeight - row); // up to where the picture wraps
        copyBlock(pixels + y * info.width, info.width, state.picture.data() + row * pictureWidth, pictureWidth,
                  pictureWidth, rows);
    }
}

} // namespace

void endScroller(FrameInfo info, EffectCommand command, Pixel32* pixels, float) {
    if (command == EffectCommand::Init)
        init();
    else if (command == EffectCommand::Render)
        render(info, pixels);
}

} // namespace lumenfold
