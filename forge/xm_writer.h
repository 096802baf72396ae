#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace lumenfold::art {

// One channel's entry of one row. Everything 0 is an empty entry.
struct XmCell {
    std::uint8_t note = 0;       // 1 = C-0 to 96 = B-7, 97 = key off
    std::uint8_t instrument = 0; // 1-based
    std::uint8_t volume = 0;     // volume column as stored: 0x10 + volume, or a column effect
    std::uint8_t effect = 0;
    std::uint8_t parameter = 0;

    bool operator==(const XmCell& other) const {
        return note == other.note && instrument == other.instrument && volume == other.volume &&
               effect == other.effect && parameter == other.parameter;
    }
};

constexpr std::uint8_t xmKeyOff = 97;
constexpr std::uint8_t xmSetTempo = 0x0F;
constexpr std::uint8_t xmSync = 0x20; // shown as W; players report its parameter and do nothing else

// Rows of cells, row-major, the song's channel count wide.
struct XmPattern {
    int rows = 0;
    std::vector<XmCell> cells;
};

struct XmEnvelopePoint {
    int tick;
    int value; // 0 to 64
};

// A further sample of an instrument, for the notes from a lowest one up to where the next begins.
struct XmZone {
    int lowestNote = 1; // 1 = C-0 to 96 = B-7
    std::vector<std::int16_t> samples;
    int relativeNote = 0;
    int fineTune = 0;
};

// One sound: an instrument with a 16-bit sample, or with several over the keyboard, which share all but their pitch.
struct XmInstrument {
    std::string name;                            // at most 22 characters are kept
    std::vector<std::int16_t> samples;           // mono
    int loopStart = 0;                           // in samples
    int loopLength = 0;                          // 0 plays once
    int volume = 64;                             // 0 to 64
    int panning = 128;                           // 0 left to 255 right
    int relativeNote = 0;                        // semitones added to the note; at 0, C-4 plays 8363 samples a second
    int fineTune = 0;                            // 128ths of a semitone
    std::vector<XmZone> zones;                   // ascending, at most 15; below the first, `samples` play
    std::vector<XmEnvelopePoint> volumeEnvelope; // empty: none; at most 12 points
    int sustainPoint = -1;                       // index into the envelope, -1: none
    int fadeOut = 0;                             // per tick after key off, of 32768
    int vibratoDepth = 0;
    int vibratoRate = 0;
    int vibratoSweep = 0;
};

struct XmSong {
    std::string name; // at most 20 characters are kept
    int channels = 0;
    int tempo = 125; // beats a minute at the speed of 6 ticks a row
    int speed = 6;
    std::vector<std::uint8_t> order;
    int restart = 0; // order that follows the last one
    std::vector<XmPattern> patterns;
    std::vector<XmInstrument> instruments;
};

// The module as the bytes of an XM file, version 1.04 (packed patterns, delta coded samples).
// Throws std::runtime_error when the song exceeds what the format holds.
std::vector<std::uint8_t> writeXm(const XmSong& song);

} // namespace lumenfold::art
