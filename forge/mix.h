#pragma once

#include <cstddef>
#include <string>
#include <vector>

// What a finished tune sounds like, in figures. A mix is measured as a listener gets it, through the demo's own player
// library; its stems are the same module with all other instruments muted.

namespace lumenfold::forge {

inline constexpr int mixRate = 48000; // sample frames a second

// Stereo sound, -1 to 1.
struct Mix {
    std::vector<float> left;
    std::vector<float> right;

    double seconds() const { return static_cast<double>(left.size()) / mixRate; }
};

// The part of a mix between two times in seconds, cut at its ends.
Mix excerpt(const Mix& mix, double from, double to);

// One pass through a module. With prefixes only the instruments whose names begin with one of them are heard.
// Throws std::runtime_error naming the file.
Mix playModule(const std::string& path, const std::vector<std::string>& instrumentPrefixes = {});
std::vector<std::string> instrumentNames(const std::string& path);

// Integrated loudness by EBU R128 in LUFS; -70 for silence or less than half a second.
double loudness(const Mix& mix);
// The largest true peak of both channels in dB relative to full scale, four times oversampled.
double truePeak(const Mix& mix);

// Pearson's correlation of left and right; 1 for silence.
double correlation(const Mix& mix);
// How much louder stereo is than its mono sum, in LU.
double monoLoss(const Mix& mix);
// Energy of half the difference against half the sum of the channels within a band, in dB.
double sideToMid(const Mix& mix, double lowHertz, double highHertz);
// Energy within a band against the whole, in dB.
double bandLevel(const Mix& mix, double lowHertz, double highHertz);

// How much the spectrum rises from one moment to the next.
//
// Flux of 40 bands between 40 and 16000 Hz, evenly spaced on the mel scale: power in windows of 1024 samples (Hann), a
// hop of 240 (5 ms), decibels above a floor of -60, rises only, mean over the bands. A step stands for the time at
// which its window's newer half begins.
struct Flux {
    static constexpr double stepSeconds = 0.005;
    std::vector<double> steps;

    // The largest rise between two times in seconds, and when it is.
    struct Rise {
        double height = 0.0;
        double seconds = 0.0;
    };
    Rise largest(double from, double to) const;
};
Flux fluxOf(const Mix& mix);

// How hard something strikes at a time in seconds: the largest rise from 12 ms before to 30 ms after it.
double accent(const Flux& flux, double seconds);

// How far a passage is carried by its strikes: the mean rise of log(1 + magnitude) over windows of 2048 samples, a hop
// of 512 and all bins, scaled so that a dense breakbeat reads about a third and a pad near nothing.
double onsetStrength(const Mix& mix);

} // namespace lumenfold::forge
