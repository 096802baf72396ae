#include "effects/ring_backdrop.h"

#include "core/kernels.h"
#include "effects/frame_size.h"

#include <utility>

namespace lumenfold {

namespace {
constexpr int shownPixels = 40 * RingBackdrop::bandWidth; // of the band at a time
constexpr int bandPixels = RingBackdrop::bandHeight * RingBackdrop::bandWidth;
constexpr int upperStart = 57 * frameWidth;
constexpr int lowerEnd = 161280; // the turned band's first pixel, from which it runs backwards
} // namespace

void RingBackdrop::set(std::vector<Pixel32> bandPicture, std::vector<Pixel32> stripPicture) {
    band = std::move(bandPicture);
    turnedBand.assign(band.rbegin(), band.rend());
    strip = std::move(stripPicture);
}

// One run of the band's pixels is shown twice: forwards from the upper start and backwards from the lower end. The
// scroll never takes the run past the band's end.
void RingBackdrop::addBands(Pixel32* pixels) const {
    static_assert(shownPixels + 508 <= bandPixels);
    addSaturated(pixels + upperStart, band.data() + bandScroll, shownPixels);
    addSaturated(pixels + lowerEnd - (shownPixels - 1), turnedBand.data() + bandPixels - shownPixels - bandScroll,
                 shownPixels);
}

void RingBackdrop::addStrip(Pixel32* pixels) const {
    for (int y = 0; y < frameHeight; ++y) {
        const int row = (stripOffset + stripWidth * y) & 0xFFFF;
        addSaturated(pixels + y * frameWidth, strip.data() + row, stripWidth);
    }
}

void RingBackdrop::scroll() {
    bandScroll += 4;
    if (bandScroll == bandWidth)
        bandScroll = 0;
    stripOffset = (stripOffset + 0xFF00) & 0xFFFF; // two rows down
}

} // namespace lumenfold
