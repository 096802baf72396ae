#include "artwork/tunes/hook.h"
#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// The tune of the end scroller: the same sounds and hook, calmer, in D major. The opening counts twenty bells; the
// body, to which the tune returns, states the theme, leans on B minor, empties towards B flat and comes home.

namespace lumenfold::art {
namespace {

constexpr int verse = 16; // bars

// The hook in D major.
const std::string question = "D5:3 F#5:3 E5:2 D5:2 A5:6 G5:3 E5:3 F#5:2 E5:8 ";
const std::string sequence = "C#5:3 E5:3 D5:2 C#5:2 G5:6 F#5:3 D5:3 E5:2 D5:8 ";
const std::string climb = "D5:3 F#5:3 A5:3 D6:2 C#6:5 A5:3 C#6:3 B5:2 A5:8 B5:3 A5:3 G5:2 F#5:3 G5:3 A5:2 ";
const std::string closed = "E5:3 F#5:3 E5:2 D5:8 ";

// The demo's last chord goes on; each bell advances the count.
void counting(Score& score) {
    Stage stage(score, "counting", 100);
    const std::string turn = "Dadd9 Bm9 Gmaj9 A7sus4";
    const Stage::Harmony harmony{turn, 2 * barRows};
    stage.note(0, channel::texture, Sound::drone, "D2", 26);
    stage.note(0, channel::impact, Sound::impact, "C4", 24);
    stage.note(0, channel::glass, Sound::bell, "D4", 26);
    stage.pads({turn + " " + turn, 2 * barRows}, 0, 20, Sound::padLeft, Sound::choir);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............................", 4, 12, 40);
    // the call and the hook's first half, note by note
    const char* const bells[20] = {"D5", "A5", "B5",  "A5", "E5",  "D5", "F#5", "E5",  "D5", "A5",
                                   "G5", "E5", "F#5", "E5", "C#5", "E5", "D5",  "C#5", "G5", "A5"};
    int bell = 0;
    for (const int row : stage.rowsOf(sync::advance)) {
        stage.voice(bells[bell], Sound::bell, channel::lead, row, 36);
        stage.voice(bells[bell], Sound::bell, channel::leadEcho, row + 3, 14);
        stage.note(row, channel::impact, Sound::impact, "C5", 12);
        ++bell;
    }
    stage.steps(channel::kick, Sound::kick, "6.....5.........", 6, 5);
    stage.steps(channel::kick, Sound::kick, "7.....5...5.....", 11, 4);
    stage.steps(channel::perc, Sound::rim, "..........3.........2........3..", 7, 8);
    stage.steps(channel::hat, Sound::hat, "3.2.3.2.3.2.3.2.", 11, 5);
    stage.arpeggio(harmony, Sound::glass, "a...c...b...d...", 12, 4, 24);
    stage.swellInto(stage.rows(), Sound::reverse, 13, 40);
}

// Light drums under the theme in one voice.
void theme(Stage& stage, int bar) {
    const Stage::Harmony harmony{"D A/C# A/C# G/B Bm7 A Gmaj7 A7", barRows};
    stage.strike(bar * barRows, 40, 42);
    stage.pads(harmony, bar, 34);
    stage.pads(harmony, bar + 8, 34);
    stage.pump(bar, verse, 38, 8);
    stage.drums({"9.....5...7.....", "........7.......", "4.2.3.2.4.2.3.23", ""}, bar, 8);
    stage.drums({"9.....5...7..5..", "........7.....2.", "4.2.3.2.4.2.3.23", "......3.......4."}, bar + 8, 8);
    stage.breaks(Sound::breakHalf, Sound::breakHalf, bar + 8, 8, 24);
    stage.steps(channel::perc, Sound::rim, "...3......4.3...", bar + 4, verse - 4);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.....=.6.=...5=", bar, verse, 38);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.....=...9...=.", bar, verse, 42);
    stage.arpeggio(harmony, Sound::glass, "a..b..c..d..e...", bar, 8, 26);
    stage.arpeggio(harmony, Sound::glass, "a.c.b.d.e.c.b.d.", bar + 8, 8, 28);
    const int row = bar * barRows;
    stage.riff(question + sequence + climb + closed, row, 46);
    stage.line(question + sequence + climb + closed, Sound::solo, row + 8 * barRows, 50);
    stage.tomFill(bar + verse - 1);
}

// Theme B in G, the lead on top, sixteenths in the glass.
void lean(Stage& stage, int bar) {
    const Stage::Harmony harmony{"G D/F# Em C G/B C Am7 D7sus4", barRows};
    stage.strike(bar * barRows, 44, 46);
    stage.pads(harmony, bar, 36);
    stage.pads(harmony, bar + 8, 36);
    stage.pump(bar, verse, 40);
    stage.drums({"9...9...9...9...", "....6.......6...", "4243424342434243", "..5...5...5...5."}, bar, verse - 1);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, bar + 8, 8, 28);
    stage.steps(channel::perc, Sound::rim, "..3..3....3..4..", bar + 8, 7);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..8.3.8=..8.3.8=", bar, verse, 40);
    stage.bassLine(harmony, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", bar, verse, 40);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdecbd", bar, verse, 30);
    const int row = bar * barRows;
    stage.line(transposed(hook::liftFirst + hook::liftSecond, 2), Sound::lead, row, 44);
    stage.line(transposed(hook::liftFirst + hook::liftSecond, 2), Sound::lead, row + 8 * barRows, 48);
    stage.snareFill(bar + 7);
    stage.snareFill(bar + verse - 1);
    stage.swellInto(row + verse * barRows, Sound::reverse, 13, 36);
}

// Away to B flat: no drums for eight bars, choir and bells with the call in minor, then the way back.
void away(Stage& stage, int bar) {
    const Stage::Harmony harmony{"Bbmaj7#11 F Gm9 Dm9 Bbmaj7 C Em7 A7sus4", 2 * barRows};
    const int row = bar * barRows;
    stage.strike(row, 50, 46);
    stage.off(row, channel::bass);
    stage.note(row, channel::texture, Sound::sea, "C4", 30);
    stage.off(row + 8 * barRows, channel::texture);
    stage.pads(harmony, bar, 36, Sound::choir, Sound::padRight);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............................", bar, 8, 44);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.....=...9...=.", bar + 8, 8, 44);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..8...8=..8...8=", bar + 8, 8, 38);
    stage.line("D5:12 A5:12 A#5:8 A5:16 E5:16 D5:12 A#5:12 A5:8 F5:16 E5:16", Sound::bell, row + barRows, 36);
    stage.arpeggio(harmony, Sound::glass, "a...b...c...d...", bar + 2, 6, 24);
    stage.arpeggio(harmony, Sound::glass, "aebfcgdhgcfbeada", bar + 8, 8, 28);
    stage.drums({"8.......5.......", "", "3.2.3.2.3.2.3.2.", ""}, bar + 4, 4);
    stage.drums({"9...9...9...9...", "............5...", "4242424242424242", ""}, bar + 8, 7);
    stage.line("F5:12 D5:4 A#5:16 G5:12 E5:4 C6:16 B5:12 G5:4 E5:16 A5:16 D5:8 E5:8", Sound::solo, row + 8 * barRows,
               36);
    stage.breaks(Sound::breakHalf, Sound::breakHalf, bar + 8, 7, 22);
    stage.roll(row + (verse - 1) * barRows, barRows, 2, 8, 36);
    stage.swellInto(row + verse * barRows, Sound::riser, 26, 36);
}

// Everything together, thinning over its last bars so that the theme can begin again.
void home(Stage& stage, int bar) {
    const Stage::Harmony harmony{"D A/C# A/C# G/B Bm7 A Gmaj7 A7", barRows};
    const int row = bar * barRows;
    stage.strike(row, 52, 50);
    stage.pads(harmony, bar, 36);
    stage.pads(harmony, bar + 8, 36);
    stage.pump(bar, 14, 42);
    stage.drums({"9...9...9...9...", "....7.......7..2", "5343534353435343", "..6...6...6...6."}, bar, 12);
    stage.drums({"9.....5...7.....", "........5.......", "4.2.3.2.4.2.3.2.", ""}, bar + 12, 3);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, bar, 12, 36);
    stage.steps(channel::perc, Sound::rim, "..3..3....3..4..", bar, 12);
    stage.snareFill(bar + 7);
    stage.tomFill(bar + 11);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..8.3.8=..8.3.8=", bar, 12, 42);
    stage.bassLine(harmony, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", bar, 12, 42);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............................", bar + 12, 4, 42);
    stage.off(row + 12 * barRows, channel::bass);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdecbd", bar, 12, 30);
    stage.arpeggio(harmony, Sound::glass, "a..b..c..d..e...", bar + 12, 4, 24);
    stage.voice("F#5:16 C#5:16 E5:16 B4:16 A5:16 F#5:16 D5:8 E5:8 C#5:16 F#5:16 C#5:16 E5:16 B4:16", Sound::choir,
                channel::texture, row, 28);
    stage.line(question + sequence + climb + closed, Sound::lead, row, 48);
    stage.line(question + climb, Sound::lead, row + 8 * barRows, 48);
    stage.line("E5:12 A5:12 B5:8 A5:16", Sound::bell, row + 14 * barRows, 28);
    stage.swellInto(row + verse * barRows, Sound::reverse, 13, 36);
}

void body(Score& score) {
    Stage stage(score, "body", 108);
    theme(stage, 0);
    lean(stage, verse);
    away(stage, 2 * verse);
    home(stage, 3 * verse);
    stage.hush();
}

} // namespace

XmSong endTune() {
    Score score(endSections(), channel::count);
    counting(score);
    body(score);
    return score.toSong("endtune", "body", tuneInstruments());
}

} // namespace lumenfold::art
