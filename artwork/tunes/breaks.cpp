#include "artwork/tunes/instruments.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

// Drum loops of one bar, played as a drummer plays a kit in a room, then squeezed together. At 140 beats a minute a
// sixteenth is 14 blocks of 256 samples, so that a sample offset cuts the loop at any of its rows.

namespace lumenfold::art {

using namespace synth;

namespace {

constexpr int step = breakStep;

// One step a sixteenth: 1 to 9 strike, 'o' in the cymbals opens the hat, '.' rests.
struct Drummer {
    std::string kick;
    std::string snare;
    std::string ghosts;
    std::string cymbals;
    std::uint32_t seed;
};

void strike(Samples& bar, const Samples& drum, double at, double gain) {
    const auto first = static_cast<std::size_t>(std::max(0.0, at));
    for (std::size_t i = 0; i < drum.size() && first + i < bar.size(); ++i)
        bar[first + i] += drum[i] * gain;
}

Samples normalised(Samples sound) {
    normalise(sound, 1.0);
    return sound;
}

// Lowers what is loud, 2.5 to 1, opening within four milliseconds and closing within ninety.
void compress(Samples& sound, double threshold) {
    const double rise = 1.0 - exponential(-1.0 / (0.004 * sampleRate));
    const double fall = 1.0 - exponential(-1.0 / (0.09 * sampleRate));
    double level = 0.0;
    for (double& value : sound) {
        const double loud = std::fabs(value);
        level += (loud - level) * (loud > level ? rise : fall);
        if (level > threshold)
            value *= power(threshold / level, 0.6);
    }
}

Samples played(const Drummer& drummer) {
    constexpr double jitter = 0.0012 * sampleRate;
    constexpr double late = 0.07 * step; // every second sixteenth
    const Samples kick = normalised(drumBody(0.30, 55.0, 150.0, 0.10, 1.9, 0.4));
    const Samples snares[3] = {normalised(snare(0)), normalised(snare(1)), normalised(snare(2))};
    const Samples ghost = normalised(filtered(snare(1), 700.0, 5000.0));
    const Samples hats[2] = {normalised(metal(0.09, 0.018, 6600.0, 0.6, 171)),
                             normalised(metal(0.11, 0.026, 6600.0, 0.6, 173))};
    const Samples open = normalised(metal(0.40, 0.10, 6400.0, 0.6, 175));
    constexpr std::size_t length = 16 * step;
    Samples bar(2 * length, 0.0);
    for (int i = 0; i < 16; ++i) {
        const auto place = static_cast<std::size_t>(i);
        const double on = i * step;
        const double sway = on + (i % 2 == 1 ? late : 0.0);
        const auto drift = [&](std::uint32_t voice) {
            return jitter * (0.5 + 0.5 * noise(drummer.seed, static_cast<std::uint32_t>(i) * 4 + voice));
        };
        const auto force = [&](const std::string& steps) {
            return steps[place] == '.' ? 0.0 : (steps[place] - '0') / 9.0;
        };
        strike(bar, kick, on, 0.95 * force(drummer.kick)); // the row itself is never late
        strike(bar, snares[i % 3], on, 0.9 * force(drummer.snare));
        strike(bar, ghost, sway + drift(1), 0.5 * force(drummer.ghosts));
        if (drummer.cymbals[place] == 'o')
            strike(bar, open, sway + drift(2), 0.42);
        else
            strike(bar, hats[i % 2], sway + drift(2), 0.55 * force(drummer.cymbals));
    }
    Samples room = withRoom(bar, 0.20, 0.24, 7000.0, 177);
    for (std::size_t i = length; i < room.size() && i < 2 * length; ++i)
        room[i - length] += room[i]; // tails fold round: the bar follows itself
    room.resize(length);
    normalise(room, 1.0);
    compress(room, 0.16);
    normalise(room, 1.0);
    shapeWith(room, 2.0);
    return filtered(room, 150.0, 0.0, 1); // the kick has a channel of its own
}

} // namespace

XmInstrument breakLoop(Sound sound) {
    switch (sound) {
    case Sound::breakPlain:
        return oneShot("break plain",
                       played({"9.....6...9.....", "....9.......9...", ".....2.3.3....23", "5263524652635o46", 181}),
                       0.95);
    case Sound::breakBusy:
        return oneShot("break busy",
                       played({"9..7......8..6..", "....9..5....9.4.", "..2..3...2.3...3", "52635246526352o6", 183}),
                       0.95);
    case Sound::breakHalf:
        return oneShot("break half time",
                       played({"9.....5...7.....", "........9.......", "...2..2...3..3.2", "5.3.5.36.34.5.o.", 187}),
                       0.95);
    default:
        throw std::logic_error("not a break");
    }
}

} // namespace lumenfold::art
