#pragma once

#include <string>

// What every section of the tunes is made of. Notes as words "D5:3": name, octave, rows; sixteen rows a bar.

namespace lumenfold::art {

namespace hook {

// The fold: a bass that falls by half steps, one chord a bar.
inline const std::string fold = "Dm A/C# Am/C G/B Bbmaj7 F/A Gm7 A7sus4";
inline const std::string foldHome = "Dm A/C# Am/C G/B Bbmaj7 F/A Gm7 A7";

// The hook over the fold: question in bars 1 to 4 (3 and 4 a step lower), answer in 5 to 8.
inline const std::string question = "D5:3 F5:3 E5:2 D5:2 A5:6 G5:3 E5:3 F5:2 E5:8 ";
inline const std::string sequence = "C5:3 E5:3 D5:2 C5:2 G5:6 F5:3 D5:3 E5:2 D5:8 ";
inline const std::string climb = "D5:3 F5:3 A5:3 D6:2 C6:5 A5:3 C6:3 A#5:2 A5:8 A#5:3 A5:3 G5:2 F5:3 G5:3 A5:2 ";
inline const std::string open = "E5:6 F5:2 E5:2 C#5:6 ";
inline const std::string closed = "E5:3 F5:3 E5:2 D5:8 ";
inline const std::string whole = question + sequence + climb + open;
inline const std::string wholeClosed = question + sequence + climb + closed;

// The call before it: its last note is answered by the hook's first.
inline const std::string call = "D5:6 A5:6 A#5:4 A5:8 E5:8 ";

// The riff: the hook's rhythm in sixteenths, two bars.
inline const std::string riff = "D5:3 D5:1 F5:2 G5:3 A5:2 G5:1 F5:2 C5:2 D5:3 D5:1 F5:2 G5:3 A#5:2 A5:1 G5:2 A5:2 ";

// Under the hook's held notes.
inline const std::string counter = "F5:16 C5:16 E5:16 B4:16 A5:16 F5:16 D5:8 E5:8 C#5:8 A4:8 ";

// Theme B, eight bars in F.
inline const std::string liftChords = "F C/E Dm Bb F/A Bb Gm7 C7sus4";
inline const std::string liftFirst =
    "C5:3 F5:3 A5:2 C6:8 A#5:3 A5:3 G5:2 E5:8 D5:3 F5:3 A5:2 D6:8 C6:3 A#5:3 A5:2 F5:8 ";
inline const std::string liftSecond =
    "A5:3 C6:3 F6:2 E6:2 D6:6 C6:3 D6:3 A#5:2 F5:8 G5:3 A5:3 A#5:2 D6:3 C6:3 A#5:2 A5:6 G5:2 F5:2 E5:6 ";

} // namespace hook

// The words with every note moved by semitones, and with every length multiplied.
std::string transposed(const std::string& words, int semitones);
std::string stretched(const std::string& words, int factor);
// The words as often as said, one after the other.
std::string repeatedWords(const std::string& words, int times);

} // namespace lumenfold::art
