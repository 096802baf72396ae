#include "artwork/tunes/instruments.h"

#include <algorithm>
#include <cmath>

namespace lumenfold::art {
namespace {

constexpr int usualRelativeNote = 24; // C-4 reads sampleRate samples a second

std::vector<std::int16_t> quantised(const synth::Samples& sound) {
    std::vector<std::int16_t> result;
    result.reserve(sound.size());
    for (const double value : sound) {
        const double clamped = std::max(-1.0, std::min(1.0, value));
        result.push_back(static_cast<std::int16_t>(std::floor(clamped * 32767.0 + 0.5)));
    }
    return result;
}

// Turns a loop so that it begins where it rises through zero, as quietly as it can: a note starts without a click.
void startAtZero(synth::Samples& loop) {
    std::size_t best = 0;
    double smallest = 2.0;
    for (std::size_t i = 0; i < loop.size(); ++i) {
        const double next = loop[(i + 1) % loop.size()];
        if (next > loop[i] && std::fabs(loop[i]) < smallest) {
            smallest = std::fabs(loop[i]);
            best = i;
        }
    }
    std::rotate(loop.begin(), loop.begin() + static_cast<std::ptrdiff_t>(best), loop.end());
}

} // namespace

XmInstrument oneShot(const std::string& name, synth::Samples sound, double level, int panning) {
    synth::normalise(sound, level);
    synth::fadeEnds(sound, 0.0003, 0.004); // whatever the recipe does, no click at either end
    XmInstrument instrument;
    instrument.name = name;
    instrument.samples = quantised(sound);
    instrument.panning = panning;
    instrument.relativeNote = usualRelativeNote;
    return instrument;
}

XmInstrument seamless(const std::string& name, synth::Samples loop, double hertz, double level, int panning) {
    synth::normalise(loop, level);
    startAtZero(loop);
    XmInstrument instrument;
    instrument.name = name;
    instrument.samples = quantised(loop);
    instrument.loopLength = static_cast<int>(instrument.samples.size());
    instrument.panning = panning;
    const double semitones = 12.0 * logarithm(synth::middleC / hertz) / logarithm(2.0);
    const double whole = std::floor(semitones + 0.5);
    instrument.relativeNote = usualRelativeNote + static_cast<int>(whole);
    instrument.fineTune = static_cast<int>(std::floor((semitones - whole) * 128.0 + 0.5));
    return instrument;
}

XmInstrument halved(XmInstrument instrument) {
    std::vector<std::int16_t> kept;
    for (std::size_t i = 0; i < instrument.samples.size(); i += 2) {
        kept.push_back(instrument.samples[i]);
    }
    instrument.samples = std::move(kept);
    instrument.loopStart /= 2;
    instrument.loopLength /= 2;
    instrument.relativeNote -= 12;
    return instrument;
}

void addZone(XmInstrument& instrument, const XmInstrument& sound, int ownNote, int lowestNote) {
    instrument.zones.push_back({lowestNote, sound.samples, sound.relativeNote + middleNote - ownNote, sound.fineTune});
}

XmInstrument sampledEachFour(const std::string& name, int lowestRoot, int roots, double level,
                             const std::function<synth::Samples(double hertz, int root)>& recipe) {
    XmInstrument instrument;
    for (int i = 0; i < roots; ++i) {
        const int root = lowestRoot + 4 * i;
        const XmInstrument sound =
            oneShot(name, recipe(synth::middleC * power(2.0, (root - middleNote) / 12.0), root), level);
        if (i == 0) {
            instrument = sound;
            instrument.relativeNote += middleNote - root;
        } else {
            addZone(instrument, sound, root, root - 2);
        }
    }
    return instrument;
}

int fader(Sound sound) {
    switch (sound) {
    case Sound::kick:
        return 97;
    case Sound::hardKick:
        return 101;
    case Sound::snare:
        return 100;
    case Sound::clap:
        return 120;
    case Sound::tom:
        return 100;
    case Sound::crash:
        return 96;
    case Sound::impact:
        return 58;
    case Sound::hat:
    case Sound::openHat:
    case Sound::ride:
    case Sound::rim:
        return 114;
    case Sound::breakPlain:
    case Sound::breakBusy:
    case Sound::breakHalf:
        return 120;
    case Sound::sub:
        return 104;
    case Sound::choir:
        return 74;
    case Sound::padLeft:
    case Sound::padRight:
    case Sound::air:
        return 50;
    case Sound::growl:
        return 110;
    case Sound::bass:
        return 118;
    case Sound::lead:
    case Sound::solo:
        return 112;
    case Sound::bell:
    case Sound::stab:
    case Sound::glass:
        return 125;
    default:
        return 100;
    }
}

std::vector<XmInstrument> tuneInstruments() {
    std::vector<XmInstrument> instruments;
    for (int i = 1; i < static_cast<int>(Sound::count); ++i) {
        const auto sound = static_cast<Sound>(i);
        if (sound >= Sound::breakPlain) {
            instruments.push_back(breakLoop(sound));
        } else if (sound <= Sound::crash) {
            instruments.push_back(percussion(sound));
        } else if (sound <= Sound::riser || sound >= Sound::sea) {
            instruments.push_back(atmosphere(sound));
        } else {
            instruments.push_back(tonal(sound));
        }
    }
    return instruments;
}

} // namespace lumenfold::art
