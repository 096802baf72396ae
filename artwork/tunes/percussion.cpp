#include <cmath>
#include <stdexcept>

#include "artwork/tunes/instruments.h"

namespace lumenfold::art {

using namespace synth;

namespace {

double decay(double t, double seconds) {
    return exponential(-t / seconds);
}

Samples noiseBurst(double seconds, double low, double high, double fall, std::uint32_t seed) {
    Samples burst = filtered(whiteNoise(seconds, seed), low, high);
    multiply(burst, [&](double t) { return decay(t, fall); });
    return burst;
}

} // namespace

// A sine that falls fast from a knock to its body, saturated, with a short click on top.
Samples drumBody(double seconds, double floorHertz, double punch, double fall, double drive, double click) {
    Samples body = sweptSine(
        seconds, [&](double t) { return floorHertz + punch * decay(t, 0.028) + 2.8 * punch * decay(t, 0.004); });
    multiply(body, [&](double t) { return decay(t, fall); });
    add(body, noiseBurst(0.05, 2500.0, 0.0, 0.004, 11), click);
    shapeWith(body, drive);
    fadeEnds(body, 0.0, 0.03);
    return body;
}

// Six square waves at inharmonic pitches with noise, high-passed: cymbal metal.
Samples metal(double seconds, double fall, double lowCut, double noiseShare, std::uint32_t seed) {
    const double pitches[6] = {3187.0, 4211.0, 5333.0, 6427.0, 7919.0, 9733.0};
    Samples sound = render(seconds, [&](double t) {
        double sum = 0.0;
        for (int i = 0; i < 6; ++i) {
            sum += cycleSine(pitches[i] * t + 0.16 * i) < 0.0 ? -0.10 : 0.10;
        }
        return sum;
    });
    add(sound, whiteNoise(seconds, seed), noiseShare);
    sound = filtered(sound, lowCut, 0.0, 3);
    multiply(sound, [&](double t) { return decay(t, fall); });
    fadeEnds(sound, 0.0, 0.02);
    return sound;
}

// Two modes of the head, noise of the stick and of the wires; no two strokes alike.
Samples snare(int turn) {
    const double pitches[3] = {1.0, 0.975, 1.02};
    const double edges[3] = {9500.0, 8000.0, 8800.0};
    const double pitch = pitches[turn];
    const std::uint32_t seed = 21 + 8 * static_cast<std::uint32_t>(turn);
    Samples sound = render(0.30, [&](double t) {
        return 0.8 * cycleSine(185.0 * pitch * t + 1.5 * (1.0 - decay(t, 0.014))) * decay(t, 0.065) +
               0.42 * cycleSine(331.0 * pitch * t) * decay(t, 0.045);
    });
    add(sound, noiseBurst(0.12, 1400.0, edges[turn], 0.012, seed), 1.4);
    add(sound, noiseBurst(0.30, 1500.0, edges[turn], 0.085, seed + 1), 1.1);
    add(sound, noiseBurst(0.30, 3500.0, edges[turn], 0.13, seed + 2), 0.3);
    shapeWith(sound, 1.6);
    return withRoom(sound, 0.30, 0.30, 6000.0, 31 + static_cast<std::uint32_t>(turn));
}

namespace {

Samples clap() {
    Samples sound;
    // the body stands on the row; the fore-claps follow it as a flutter
    for (int i = 0; i < 4; ++i) {
        const double fall = i == 0 ? 0.07 : 0.006;
        add(sound, noiseBurst(0.25, 900.0, 5200.0, fall, 41 + static_cast<std::uint32_t>(i)), i == 0 ? 1.0 : 0.55,
            0.0105 * i);
    }
    shapeWith(sound, 1.6);
    return withRoom(sound, 0.45, 0.35, 4500.0, 47);
}

Samples rim() {
    Samples sound = render(0.07, [](double t) {
        return cycleSine(1720.0 * t) * decay(t, 0.008) + 0.6 * cycleSine(517.0 * t) * decay(t, 0.014);
    });
    add(sound, noiseBurst(0.03, 3000.0, 0.0, 0.003, 51), 0.5);
    return withRoom(sound, 0.18, 0.3, 6000.0, 53);
}

// Three strokes of the same drum on three keys from C-4 up, all at their own pitch.
XmInstrument inTurn(const std::function<XmInstrument(int turn)>& stroke) {
    XmInstrument instrument = stroke(0);
    for (int turn = 1; turn < 3; ++turn)
        addZone(instrument, stroke(turn), middleNote + turn, middleNote + turn);
    return instrument;
}

Samples crash() {
    Samples sound = metal(1.6, 0.55, 2600.0, 1.3, 61);
    multiply(sound, [](double t) { return 1.0 + 0.8 * decay(t, 0.02); });
    return withRoom(sound, 1.1, 0.35, 8000.0, 67);
}

} // namespace

XmInstrument percussion(Sound sound) {
    switch (sound) {
    case Sound::kick:
        return oneShot("kick", drumBody(0.40, 55.0, 150.0, 0.15, 1.9, 0.3), 0.95);
    case Sound::hardKick: {
        Samples body = drumBody(0.46, 49.0, 190.0, 0.19, 3.4, 0.4);
        foldWith(body, 1.25);
        return oneShot("kick, hard", filtered(body, 0.0, 7000.0, 1), 0.78);
    }
    case Sound::snare:
        return inTurn([](int turn) { return oneShot("snare", snare(turn), 0.95); });
    case Sound::clap:
        return oneShot("clap", clap(), 0.8, 120);
    case Sound::hat:
        return inTurn([](int turn) {
            return oneShot("hat closed",
                           metal(0.12, 0.020 + 0.003 * turn, 7200.0 - 400.0 * turn, 0.5,
                                 71 + 200 * static_cast<std::uint32_t>(turn)),
                           0.72, 140);
        });
    case Sound::openHat:
        return oneShot("hat open", metal(0.42, 0.11, 7000.0, 0.5, 73), 0.66, 116);
    case Sound::ride:
        return oneShot("ride", metal(0.8, 0.22, 5200.0, 0.12, 79), 0.45, 164);
    case Sound::rim:
        return oneShot("rim", rim(), 0.7, 92);
    case Sound::tom:
        return oneShot("tom", withRoom(drumBody(0.42, 88.0, 95.0, 0.14, 1.5, 0.12), 0.3, 0.2, 3000.0, 83), 0.8, 128);
    case Sound::crash:
        return oneShot("crash", crash(), 0.62, 128);
    default:
        throw std::logic_error("not a drum");
    }
}

} // namespace lumenfold::art
