#pragma once

namespace lumenfold {

// Time within one phase of a scene: demo time runs from the counter's own origin, so a phase measures from the demo
// time of its first frame.
struct PhaseClock {
    unsigned frames = 0; // frames that have asked so far
    float start = 0.0F;  // demo time of the first of them

    // Counts a frame and gives the time since the first one, which gets 0.
    float advance(float time) {
        if (++frames == 1)
            start = time;
        return time - start;
    }
};

} // namespace lumenfold
