#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forge/synth.h"
#include "forge/xm_writer.h"

// The sounds of both tunes. The numbers are the instruments' places in the modules.

namespace lumenfold::art {

enum class Sound {
    none,
    kick,
    hardKick,
    snare,
    clap,
    hat,
    openHat,
    ride,
    rim,
    tom,
    crash,
    reverse, // swells for one bar and stops dead
    impact,  // a falling sub with a burst and a long room
    riser,   // climbs for two bars
    sub,     // sine below everything
    bass,    // detuned saws, wave-folded
    growl,   // folded FM bass that opens and closes
    padLeft, // the same pad twice, with other phases, for width
    padRight,
    air, // high breath of the pad
    choir,
    drone,
    lead,
    solo,  // FM voice
    glass, // plucked arpeggio
    bell,
    stab,
    sea,
    spark,
    projector,
    breakPlain, // bars of drums, cut by the row
    breakBusy,
    breakHalf,
    count
};

// All sounds in the order of `Sound`, the first being 1.
std::vector<XmInstrument> tuneInstruments();

// The faders of the mixing desk, in percent: every note's volume passes through its sound's.
int fader(Sound sound);

// Where the sounds come from, family by family.
XmInstrument percussion(Sound sound);
XmInstrument tonal(Sound sound);
XmInstrument atmosphere(Sound sound);
XmInstrument breakLoop(Sound sound);

constexpr int middleNote = 49; // C-4

// Samples of a sixteenth in a break; a multiple of 256, the unit of the sample offset.
constexpr int breakStep = 14 * 256;
constexpr int breakTempo = 140; // at which a break played at C-4 fills its bar

// The drums themselves: a body that falls from a knock, cymbal metal, one of three snares.
synth::Samples drumBody(double seconds, double floorHertz, double punch, double fall, double drive, double click);
synth::Samples metal(double seconds, double fall, double lowCut, double noiseShare, std::uint32_t seed);
synth::Samples snare(int turn);

// A sound that plays once; level is its peak, 0 to 1.
XmInstrument oneShot(const std::string& name, synth::Samples sound, double level, int panning = 128);
// A seamless loop whose fundamental is at the given frequency when played at sampleRate: tuned so that notes sound
// as written.
XmInstrument seamless(const std::string& name, synth::Samples loop, double hertz, double level, int panning = 128);
// Keeps every second sample, an octave of relative note lower; the sound must hold nothing above 8 kHz.
XmInstrument halved(XmInstrument instrument);
// Adds a one-shot whose own pitch is a note's, for the notes from the lowest on.
void addZone(XmInstrument& instrument, const XmInstrument& sound, int ownNote, int lowestNote);
// One sample for each four semitones, from a recipe that takes the fundamental in hertz; roots in ascending order.
XmInstrument sampledEachFour(const std::string& name, int lowestRoot, int roots, double level,
                             const std::function<synth::Samples(double hertz, int root)>& recipe);

} // namespace lumenfold::art
