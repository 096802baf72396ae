#pragma once

#include "core/pixel.h"

#include <vector>

namespace lumenfold {

// A picture strip that slides down from the top edge of a 512 x 384 picture, five rows a frame.
struct StripReveal {
    static constexpr int width = 91;
    static constexpr int height = 351;

    std::vector<Pixel32> strip; // width x height
    int rows = 0;               // shown so far

    // Adds the next step onto the frame; the last one is added into the background too and stays there. Does
    // nothing once the whole strip has been shown.
    void advance(Pixel32* frame, Pixel32* background);
};

} // namespace lumenfold
