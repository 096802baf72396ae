#pragma once

#include <string>
#include <vector>

// Chords by name and how they are laid out on the keyboard. Notes are numbered as in a module: C-4 is 49.

namespace lumenfold::art {

// A chord as "Dm9", "Bbmaj7", "Gm/A": pitch classes 0 (C) to 11 of its four upper voices and of its bass.
struct Chord {
    std::vector<int> tones;
    int bass;
};

// Throws std::runtime_error for a name it does not know.
Chord parseChord(const std::string& name);
std::vector<Chord> parseChords(const std::string& names); // separated by blanks

// The lowest note of the pitch class that is not below the floor.
int noteFrom(int floor, int pitch);

// The chord's voices as ascending notes from the floor up. Of two that lie a half step apart the lower is raised by an
// octave, so that sevenths and ninths open the chord instead of clouding it.
std::vector<int> voicing(const Chord& chord, int floor);

} // namespace lumenfold::art
