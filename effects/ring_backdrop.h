#pragma once

#include "core/pixel.h"

#include <vector>

namespace lumenfold {

// What scrolls behind the ring of flares: a band near the top and, turned by half a revolution, near the bottom of a
// 512 x 384 picture, and a strip of text down its left side.
struct RingBackdrop {
    static constexpr int bandWidth = 512;
    static constexpr int bandHeight = 70;
    static constexpr int stripWidth = 128;
    static constexpr int stripHeight = 512;

    // loaded once
    std::vector<Pixel32> band;       // bandWidth x bandHeight
    std::vector<Pixel32> turnedBand; // the same read backwards
    std::vector<Pixel32> strip;      // stripWidth x stripHeight

    // runs on from frame to frame
    int bandScroll = 0;  // pixels, 0 to 508
    int stripOffset = 0; // pixels, 0 to 65535

    // Takes the pictures, bandWidth x bandHeight and stripWidth x stripHeight.
    void set(std::vector<Pixel32> bandPicture, std::vector<Pixel32> stripPicture);

    // Add (saturating) onto the 512 x 384 picture.
    void addBands(Pixel32* pixels) const;
    void addStrip(Pixel32* pixels) const;

    // One frame further: four pixels of the band, two rows of the strip.
    void scroll();
};

} // namespace lumenfold
