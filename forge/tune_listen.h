#pragma once

#include <string>
#include <vector>

#include "artwork/tunes/sync.h"

// Verifies the finished tunes by ear: plays the files as the demo does and measures what is heard.

namespace lumenfold::art {

struct HeardSync {
    double seconds;
    int value;
};

// One pass through a tune, from its first sample to the end of its last row.
struct HeardTune {
    double seconds = 0.0;
    double peak = 0.0;       // decibels, 0 is full scale
    double loudness = 0.0;   // root of the mean square, decibels
    double longestGap = 0.0; // seconds below -60 decibels
    double offset = 0.0;     // mean of all samples, which should be near 0
    std::vector<HeardSync> syncs;
};

// Throws std::runtime_error naming the file when it cannot be played.
HeardTune listen(const std::string& path);

// All that can be verified about the two tunes of a show: the choreography against the scenes, the files against the
// choreography, level, gaps and length.
std::vector<TuneCheck> checkTunes(const std::string& folder);

} // namespace lumenfold::art
