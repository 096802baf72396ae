#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "artwork/tunes/instruments.h"

namespace lumenfold::art {

using namespace synth;

namespace {

constexpr double barSeconds = 12.0 / 7.0; // sixteen rows at 140 beats a minute

// White noise whose band climbs: narrow static bands, each swelling when the sweep passes it.
Samples climbingNoise(double seconds, double fromHertz, double octaves, std::uint32_t seed) {
    constexpr int bands = 9;
    Samples sum;
    for (int i = 0; i < bands; ++i) {
        const double place = static_cast<double>(i) / (bands - 1);
        const double centre = fromHertz * power(2.0, octaves * place);
        Samples band =
            filtered(whiteNoise(seconds, seed + static_cast<std::uint32_t>(i)), centre * 0.75, centre * 1.35);
        multiply(band, [&](double t) {
            const double d = (t / seconds - place) * bands * 0.5;
            return exponential(-d * d);
        });
        add(sum, band);
    }
    return sum;
}

Samples reverse() {
    Samples sound = climbingNoise(barSeconds, 300.0, 4.2, 101);
    Samples tone = render(barSeconds, [](double t) {
        return 0.22 * (cycleSine(293.66 * t) + cycleSine(440.0 * t) + cycleSine(587.33 * t + 0.3));
    });
    add(sound, tone);
    multiply(sound, [](double t) { return exponential((t - barSeconds) / 0.42) * std::min(1.0, t / 0.05); });
    fadeEnds(sound, 0.0, 0.012);
    return sound;
}

Samples impact() {
    Samples sound = sweptSine(1.9, [](double t) { return 34.0 + 62.0 * exponential(-t / 0.22); });
    multiply(sound, [](double t) { return exponential(-t / 0.62); });
    shapeWith(sound, 1.5);
    Samples burst = filtered(whiteNoise(0.9, 111), 60.0, 1800.0, 1);
    multiply(burst, [](double t) { return exponential(-t / 0.11); });
    add(sound, burst, 1.6);
    Samples ring = render(1.6, [](double t) {
        return (cycleSine(73.42 * 2.76 * t) + 0.7 * cycleSine(73.42 * 5.4 * t) + 0.4 * cycleSine(73.42 * 8.93 * t)) *
               exponential(-t / 0.35);
    });
    add(sound, ring, 0.12);
    sound = withRoom(sound, 2.4, 0.32, 2600.0, 113);
    fadeEnds(sound, 0.0, 0.6);
    return filtered(sound, 0.0, 6500.0, 4);
}

Samples riser() {
    constexpr double seconds = 2.0 * barSeconds;
    Samples sound = climbingNoise(seconds, 260.0, 5.0, 121);
    double phase = 0.0;
    Samples tone = render(seconds, [&](double t) {
        phase += 146.83 * power(2.0, 2.0 * t / seconds) / sampleRate;
        return 0.16 * (cycleSine(phase) + cycleSine(phase * 1.503) + cycleSine(phase * 2.01));
    });
    add(sound, tone);
    // a flutter that quickens from eighths towards sixteenths
    multiply(sound, [](double t) {
        const double place = t / seconds;
        const double flutter = 0.72 + 0.28 * cycleSine(4.667 * t * (1.0 + place));
        return flutter * exponential((place - 1.0) * 2.6) * std::min(1.0, t / 0.2);
    });
    fadeEnds(sound, 0.0, 0.02);
    return sound;
}

Samples sea() {
    LoopSpectrum spectrum(1 << 16);
    for (int band = 0; band < 60; ++band) {
        const double hertz = 120.0 * power(2.0, band / 11.0);
        const double tilt = 1.0 / (1.0 + power(hertz / 700.0, 1.2));
        spectrum.cloud(spectrum.cyclesOf(hertz), spectrum.cyclesOf(hertz) * 0.05, tilt * std::sqrt(hertz), 131);
    }
    return spectrum.render();
}

Samples spark() {
    Samples sound(sampleCount(1.2), 0.0);
    for (std::uint32_t i = 0; i < sound.size(); ++i) {
        const double chance = noise(141, i);
        if (chance > 0.9965) { // about sixty crackles a second
            sound[i] = noise(142, i);
        }
    }
    sound = resonated(filtered(sound, 2500.0, 11000.0), {3900.0, 6300.0}, 500.0, 2.0);
    multiply(sound, [](double t) { return exponential(-t / 0.5); });
    return withRoom(sound, 0.3, 0.3, 9000.0, 143);
}

Samples projector() {
    Samples sound = render(0.08, [](double t) {
        return cycleSine(2310.0 * t) * exponential(-t / 0.004) + 0.7 * cycleSine(880.0 * t) * exponential(-t / 0.009);
    });
    Samples burst = filtered(whiteNoise(0.08, 151), 1200.0, 7000.0);
    multiply(burst, [](double t) { return exponential(-std::fabs(t - 0.022) / 0.006); });
    add(sound, burst, 1.2);
    return sound;
}

} // namespace

XmInstrument atmosphere(Sound sound) {
    switch (sound) {
    case Sound::reverse:
        return oneShot("reverse swell", reverse(), 0.65);
    case Sound::impact:
        return halved(oneShot("impact", impact(), 0.85));
    case Sound::riser:
        return oneShot("riser", riser(), 0.65);
    case Sound::sea: {
        XmInstrument loop = halved(seamless("sea", sea(), middleC, 0.7));
        loop.volumeEnvelope = {{0, 0}, {70, 40}, {150, 64}, {230, 30}, {320, 58}};
        loop.sustainPoint = 4;
        loop.fadeOut = 250;
        return loop;
    }
    case Sound::spark:
        return oneShot("spark", spark(), 0.5, 150);
    case Sound::projector:
        return oneShot("projector", projector(), 0.4, 100);
    default:
        throw std::logic_error("not an atmosphere");
    }
}

} // namespace lumenfold::art
