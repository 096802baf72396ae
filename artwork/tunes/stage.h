#pragma once

#include <string>
#include <vector>

#include "artwork/tunes/harmony.h"
#include "artwork/tunes/instruments.h"
#include "forge/score.h"

// The vocabulary in which the two tunes are written: drums as step strings, chords by name, lines as words.

namespace lumenfold::art {

// The desk: which channel plays what.
namespace channel {
constexpr int kick = 0;  // carries the sync commands in its effect column
constexpr int snare = 1; // carries the tempo
constexpr int hat = 2;
constexpr int cymbal = 3;
constexpr int perc = 4;
constexpr int impact = 5;
constexpr int rise = 6;
constexpr int sub = 7;
constexpr int bass = 8;
constexpr int pad = 9; // four voices, 9 to 12
constexpr int padVoices = 4;
constexpr int stab = 13;
constexpr int glass = 14;
constexpr int glassEcho = 15;
constexpr int lead = 16;
constexpr int leadEcho = 17; // and 18
constexpr int texture = 19;
constexpr int breaks = 20;
constexpr int second = 21; // a voice beside the lead
constexpr int count = 22;
} // namespace channel

// One section of a score, written in bars and rows from its start. Whatever falls past its end is left out.
class Stage {
  public:
    // level: percent of every note's volume, for dynamics between sections.
    Stage(Score& target, const std::string& section, int level = 95);

    int rows() const { return rowCount; }
    // Rows at which the section's sync commands of that value stand: what is heard there is written from the table.
    std::vector<int> rowsOf(int syncValue) const;

    void note(int row, int channelNumber, Sound sound, int number, int volume);
    void note(int row, int channelNumber, Sound sound, const std::string& name, int volume) {
        note(row, channelNumber, sound, noteNumber(name), volume);
    }
    void off(int row, int channelNumber);
    // Key off at the section's first row on every sustaining channel that has no note there, save those kept.
    void hush(const std::vector<int>& kept = {});
    // Everything but the rising sounds stops from the row on until the section's end: a held breath before the next.
    void breakOff(int row);
    // Empties rows of a channel again, for a break inside a repeated figure; effects stay.
    void clear(int row, int rows, int channelNumber);
    void effect(int row, int channelNumber, int number, int parameter);

    // Steps of 1 to 9 (a ninth to full volume) or '.', one a row, repeated over the rows from the bar on.
    void steps(int channelNumber, Sound sound, const std::string& steps, int bar, int bars, int number = 49,
               int scale = 64);
    // Kick, snare, closed hat and open hat at once; an empty string leaves one out.
    struct Kit {
        std::string kick;
        std::string snare;
        std::string hat;
        std::string open;
        Sound kickSound = Sound::kick;
    };
    void drums(const Kit& kit, int bar, int bars);
    // Breaks cut by the row, the first and the second sound in turn by the bar: straight, varied, and a fill in each
    // fourth and a larger one in each eighth bar. They are slowed to the section's tempo by whole semitones, never past
    // their row.
    void breaks(Sound first, Sound second, int bar, int bars, int volume);
    // Ends a bar with a fill in its last rows: snares that thicken, or toms that fall.
    void snareFill(int bar);
    void tomFill(int bar);
    // The note of that row strikes again every so many of its six ticks.
    void flutter(int row, int channelNumber, int everyTicks);
    // A roll on the snare that grows from one volume to another, every so many rows.
    void roll(int row, int rows, int every, int fromVolume, int toVolume);
    // A swell or riser that ends on that row, started as late as its length of so many rows asks.
    void swellInto(int row, Sound sound, int lengthRows, int volume, int number = middleNote);
    void strike(int row, int impactVolume, int crashVolume);
    // A row that the picture answers: kick, clap and crash at once, heavier with an impact and a stab; what plays in
    // the row before steps back, so that nothing near is as strong.
    enum class Accent { light, strong, heavy };
    void accent(int row, Accent weight, int stabNote = 0);
    void accents(int syncValue, Accent weight, int stabNote = 0); // at every such command of the section
    // Words on the pluck, with an echo on the other side.
    void riff(const std::string& words, int row, int volume);

    // Chord names separated by blanks, each lasting so many rows; a turn that repeats from the section's start,
    // wherever in it a figure begins.
    struct Harmony {
        std::string chords;
        int rowsEach;
    };
    // Sustained chords on the four pad voices, alternating left and right; the lowest voice sounds from the note
    // floor up. Unlike the figures below, the first chord is the one at the bar, and nothing repeats.
    void pads(const Harmony& harmony, int bar, int volume, Sound left = Sound::padLeft, Sound right = Sound::padRight,
              int floor = 46);
    // Lowers the pads on each beat and lets them swell until the next.
    void pump(int bar, int bars, int volume, int everyRows = beatRows);
    // Short chords on the stab channel and the pad voices, at the steps.
    void stabs(const Harmony& harmony, const std::string& steps, int bar, int bars, int volume, int floor = 49);
    // The chord's bass note at the steps, an octave up where the step is lower than 5; '=' lets go.
    void bassLine(const Harmony& harmony, int channelNumber, Sound sound, const std::string& steps, int bar, int bars,
                  int volume, int floor = 18);
    // Arpeggio over the chord tones, two octaves: letters a to h pick a tone from below, '.' rests. The echo channel
    // answers three rows later on the other side.
    void arpeggio(const Harmony& harmony, Sound sound, const std::string& figure, int bar, int bars, int volume,
                  int floor = 61);
    // Words "A5:6" (note, rows), "-:4" rests, from a row on. Echoes follow on the two echo channels. The solo glides
    // from note to note.
    void line(const std::string& words, Sound sound, int row, int volume);
    // The same on one channel of choice, without echoes.
    void voice(const std::string& words, Sound sound, int channelNumber, int row, int volume);

  private:
    Score& score;
    std::vector<SyncEvent> events;
    int start;
    int rowCount;
    int tempo;
    int levelPercent;
};

} // namespace lumenfold::art
