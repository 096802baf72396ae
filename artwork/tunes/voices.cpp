#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "artwork/tunes/instruments.h"

namespace lumenfold::art {

using namespace synth;

namespace {

constexpr double lowC = middleC / 4.0; // C-2

// Frequency of a whole number of cycles in a loop of that length.
double hertzOf(double cycles, std::size_t length) {
    return cycles * sampleRate / static_cast<double>(length);
}

double random(std::uint32_t seed, int index) {
    return noise(seed, static_cast<std::uint32_t>(index)) * 0.5 + 0.5;
}

Samples sub() {
    LoopSpectrum spectrum(4096);
    spectrum.partial(8, 1.0, 0.0);
    spectrum.partial(16, 0.14, 0.0);
    spectrum.partial(24, 0.05, 0.0);
    return spectrum.render();
}

// Three saws a third of a hertz apart with a resonance and their own sub, folded once.
Samples foldedBass() {
    LoopSpectrum spectrum(1 << 16);
    const double cycles[3] = {127.0, 128.0, 129.0};
    const double gains[3] = {0.8, 1.0, 0.8};
    for (int voice = 0; voice < 3; ++voice) {
        for (int h = 1; h < 90; ++h) {
            const double hertz = h * lowC;
            const double ratio = hertz / 2400.0;
            const double d = (hertz - 620.0) / 160.0;
            const double amplitude = gains[voice] / power(h, 0.85) / std::sqrt(1.0 + ratio * ratio * ratio * ratio) *
                                     (1.0 + 1.8 * exponential(-d * d));
            spectrum.partial(cycles[voice] * h, amplitude, voice == 1 ? 0.75 : random(201, voice * 100 + h));
        }
    }
    spectrum.partial(128.0, 0.5, 0.75);
    Samples loop = spectrum.render();
    normalise(loop, 1.0);
    foldWith(loop, 2.8);
    return loop;
}

// Frequency modulation whose depth opens and closes once, folded; a fixed vowel keeps it talking.
Samples growl() {
    Samples sound = render(0.85, [](double t) {
        const double depth =
            0.25 + 1.1 * exponential(-power((t - 0.13) / 0.12, 2.0) * (t > 0.13 ? 1.0 : 0.0)) * std::min(1.0, t / 0.09);
        const double modulator = cycleSine(lowC * t) + 0.5 * cycleSine(2.0 * lowC * t + 0.2);
        return cycleSine(lowC * t + depth * modulator) + 0.6 * cycleSine(lowC * t);
    });
    normalise(sound, 1.0);
    foldWith(sound, 2.2);
    sound = resonated(sound, {540.0, 1150.0, 2500.0}, 170.0, 1.6);
    multiply(sound, [](double t) { return exponential(-t / 0.55) * std::min(1.0, t / 0.004); });
    fadeEnds(sound, 0.0, 0.06);
    return sound;
}

// Harmonics as clouds of random phase: a choir of strings with no beating and no seam.
Samples cloudPad(std::size_t length, double detuneCents, double (*gain)(int harmonic, double hertz), int harmonics,
                 std::uint32_t seed) {
    LoopSpectrum spectrum(length);
    const double spread = power(2.0, detuneCents / 1200.0) - 1.0;
    for (int h = 1; h <= harmonics; ++h) {
        const double hertz = middleC * h;
        spectrum.cloud(spectrum.cyclesOf(hertz), spectrum.cyclesOf(hertz) * spread, gain(h, hertz),
                       seed + static_cast<std::uint32_t>(h));
    }
    return spectrum.render();
}

double padGain(int h, double hertz) {
    const double r = hertz / 3200.0;
    return (h == 1 ? 0.7 : h % 2 == 1 ? 1.0 : 0.8) / power(h, 1.1) / std::sqrt(1.0 + r * r * r * r);
}

double airGain(int h, double hertz) {
    const double r = hertz / 7000.0;
    return (h % 2 == 0 ? 1.0 : 0.35) / power(h, 0.55) / (1.0 + r * r);
}

double choirGain(int h, double hertz) {
    const double centres[4] = {640.0, 1080.0, 2550.0, 3300.0};
    const double gains[4] = {1.0, 0.6, 0.22, 0.12};
    double vowel = 0.06;
    for (int i = 0; i < 4; ++i) {
        const double d = (hertz - centres[i]) / (140.0 + 60.0 * i);
        vowel += gains[i] * exponential(-d * d);
    }
    return (h == 1 ? 0.5 : 0.0) + vowel;
}

// Low strings and slightly stretched metal, each partial a cloud of its own.
Samples drone() {
    LoopSpectrum spectrum(1 << 17);
    for (int h = 1; h <= 40; ++h) {
        const double hertz = lowC * h;
        const double amplitude = 1.0 / power(h, 1.05) / (1.0 + power(hertz / 1500.0, 2.0)) * (0.5 + random(211, h));
        spectrum.cloud(spectrum.cyclesOf(hertz), 1.2 + 0.35 * h, amplitude, 220 + static_cast<std::uint32_t>(h));
    }
    const double metal[5] = {2.756, 5.404, 8.933, 13.34, 18.64};
    for (int i = 0; i < 5; ++i) {
        spectrum.cloud(spectrum.cyclesOf(lowC * metal[i]), 2.0, 0.10 / (1 + i * 0.4),
                       280 + static_cast<std::uint32_t>(i));
    }
    return spectrum.render();
}

// Detuned saws under a low-pass whose corner falls from a high one to a low one, all in hertz and seconds.
struct Supersaw {
    double seconds;
    int voices;
    double cents; // from the middle to the outermost voice
    double low;
    double high;
    double fall;
    double drive;
    std::uint32_t seed;
};

Samples supersaw(const Supersaw& recipe, double hertz, int root) {
    constexpr std::size_t block = 32; // samples that share one set of gains
    const int harmonics = static_cast<int>(std::min(15000.0, 0.45 * sampleRate) / (hertz * 1.02));
    Samples sound(sampleCount(recipe.seconds), 0.0);
    std::vector<double> gains(sound.size() / block + 1);
    for (int h = 1; h <= harmonics; ++h) {
        for (std::size_t i = 0; i < gains.size(); ++i) {
            const double t = static_cast<double>(i * block) / sampleRate;
            const double corner = recipe.low + (recipe.high - recipe.low) * exponential(-t / recipe.fall);
            const double r = h * hertz / corner;
            gains[i] = 1.0 / h / std::sqrt(1.0 + r * r * r * r);
        }
        for (int voice = 0; voice < recipe.voices; ++voice) {
            const double place = 2.0 * voice / (recipe.voices - 1) - 1.0;
            const double own = hertz * h * power(2.0, recipe.cents * place * (0.6 + 0.4 * std::fabs(place)) / 1200.0);
            const double weight = voice == recipe.voices / 2 ? 1.3 : 1.0;
            const double phase = random(recipe.seed + static_cast<std::uint32_t>(root), voice * 64 + h);
            for (std::size_t i = 0; i < sound.size(); ++i)
                sound[i] += weight * gains[i / block] * cycleSine(own * static_cast<double>(i) / sampleRate + phase);
        }
    }
    normalise(sound, 1.0);
    shapeWith(sound, recipe.drive);
    sound = filtered(sound, 200.0, 0.0, 1);
    fadeEnds(sound, 0.002, 0.05);
    return sound;
}

Samples solo() {
    constexpr std::size_t length = 1 << 15;
    constexpr double cycles = 256.0;
    Samples loop(length);
    for (std::size_t i = 0; i < length; ++i) {
        const double t = static_cast<double>(i) / static_cast<double>(length);
        const double depth = 0.21 + 0.05 * cycleSine(3.0 * t);
        loop[i] = cycleSine(cycles * t + depth * cycleSine(cycles * t)) +
                  0.35 * cycleSine((cycles + 1.0) * t + 0.3 * cycleSine(3.0 * cycles * t)) +
                  0.3 * cycleSine((2.0 * cycles - 1.0) * t);
    }
    return loop;
}

Samples glass() {
    Samples sound = render(0.75, [](double t) {
        const double depth = 0.51 * exponential(-t / 0.07) + 0.055;
        return (cycleSine(middleC * t + depth * cycleSine(middleC * 2.0 * t) +
                          0.064 * exponential(-t / 0.02) * cycleSine(middleC * 7.01 * t)) +
                0.25 * cycleSine(middleC * 4.0 * t) * exponential(-t / 0.05)) *
               exponential(-t / 0.20) * std::min(1.0, t / 0.001);
    });
    return withRoom(sound, 0.8, 0.22, 5000.0, 241);
}

Samples bell() {
    Samples sound = render(1.9, [](double t) {
        const double depth = 0.35 * exponential(-t / 0.5);
        return (cycleSine(middleC * t + depth * cycleSine(middleC * 3.5 * t)) +
                0.4 * cycleSine(middleC * 2.756 * t) * exponential(-t / 0.25) +
                0.3 * cycleSine(middleC * 2.0 * t + 0.1 * cycleSine(middleC * 5.0 * t))) *
               exponential(-t / 0.62) * std::min(1.0, t / 0.0015);
    });
    sound = withRoom(sound, 1.3, 0.30, 4200.0, 251);
    fadeEnds(sound, 0.0, 0.5);
    return sound;
}

// Presses the peaks of random phases down, which makes a sustained sound denser and a little warmer.
Samples dense(Samples loop, double drive) {
    normalise(loop, 1.0);
    shapeWith(loop, drive);
    return loop;
}

// Attack, level held, and release: ticks of about 18 milliseconds, 0 to 64, and loss per tick of 32768.
XmInstrument withEnvelope(XmInstrument instrument, int attackTicks, int decayTicks, int holdLevel, int fadeOut) {
    const int settled = attackTicks + decayTicks;
    instrument.volumeEnvelope = {
        {0, attackTicks > 1 ? 0 : 64}, {attackTicks, 64}, {settled, holdLevel}, {settled + 400, holdLevel}};
    instrument.sustainPoint = 2;
    instrument.fadeOut = fadeOut;
    return instrument;
}

XmInstrument withVibrato(XmInstrument instrument, int depth, int rate, int sweep) {
    instrument.vibratoDepth = depth;
    instrument.vibratoRate = rate;
    instrument.vibratoSweep = sweep;
    return instrument;
}

XmInstrument pad(const char* name, std::uint32_t seed, int panning) {
    constexpr std::size_t length = 1 << 16;
    const Samples loop = dense(cloudPad(length, 38.0, padGain, 25, seed), 1.9);
    return withEnvelope(seamless(name, loop, middleC, 0.85, panning), 8, 24, 58, 1100);
}

} // namespace

XmInstrument tonal(Sound sound) {
    constexpr std::size_t length = 1 << 16;
    switch (sound) {
    case Sound::sub:
        return withEnvelope(seamless("sub", sub(), hertzOf(8, 4096), 0.70), 1, 30, 54, 4000);
    case Sound::bass:
        return withEnvelope(seamless("folded bass", foldedBass(), hertzOf(128, length), 0.88), 1, 14, 44, 4000);
    case Sound::growl: {
        XmInstrument low = oneShot("growl", growl(), 0.88);
        low.relativeNote += 24; // the recipe plays two octaves below C-4
        return low;
    }
    case Sound::padLeft:
        return pad("petrol pad, left", 300, 72);
    case Sound::padRight:
        return pad("petrol pad, right", 340, 184);
    case Sound::air:
        return withEnvelope(seamless("air", dense(cloudPad(length, 22.0, airGain, 24, 380), 1.5), middleC, 0.6, 160),
                            40, 24, 60, 500);
    case Sound::choir: {
        const Samples loop = dense(cloudPad(length, 30.0, choirGain, 14, 420), 1.6);
        return withVibrato(withEnvelope(seamless("choir", loop, middleC, 0.85, 104), 18, 24, 60, 700), 3, 36, 40);
    }
    case Sound::drone:
        return withEnvelope(halved(seamless("drone", dense(drone(), 1.7), lowC, 0.6)), 70, 24, 64, 300);
    case Sound::lead: {
        const Supersaw saws{2.4, 7, 18.0, 2600.0, 9000.0, 0.22, 2.0, 231};
        XmInstrument bright =
            sampledEachFour("lead", 54, 7, 0.98, [&](double hertz, int root) { return supersaw(saws, hertz, root); });
        return withVibrato(withEnvelope(std::move(bright), 1, 20, 46, 1600), 4, 40, 60);
    }
    case Sound::solo: {
        XmInstrument soft = seamless("solo", solo(), hertzOf(256, 1 << 15), 0.95);
        return withVibrato(withEnvelope(std::move(soft), 2, 24, 50, 1400), 6, 42, 45);
    }
    case Sound::glass:
        return oneShot("glass", glass(), 0.85);
    case Sound::bell:
        return oneShot("bell", bell(), 0.8);
    case Sound::stab:
        return sampledEachFour("stab", 50, 6, 0.95, [](double hertz, int root) {
            Samples chord = supersaw({0.42, 5, 26.0, 900.0, 7500.0, 0.07, 1.4, 261}, hertz, root);
            multiply(chord, [](double t) { return exponential(-t / 0.16); });
            return withRoom(chord, 0.45, 0.28, 4500.0, 269);
        });
    default:
        throw std::logic_error("not a voice");
    }
}

} // namespace lumenfold::art
