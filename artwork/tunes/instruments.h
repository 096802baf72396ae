#pragma once

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

// A sound that plays once; level is its peak, 0 to 1.
XmInstrument oneShot(const std::string& name, synth::Samples sound, double level, int panning = 128);
// A seamless loop whose fundamental is at the given frequency when played at sampleRate: tuned so that notes sound
// as written.
XmInstrument seamless(const std::string& name, synth::Samples loop, double hertz, double level, int panning = 128);
// Keeps every second sample, an octave of relative note lower; the sound must hold nothing above 8 kHz.
XmInstrument halved(XmInstrument instrument);

} // namespace lumenfold::art
