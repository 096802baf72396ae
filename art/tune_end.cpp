#include "art/tune_parts.h"
#include "art/tune_stage.h"

// The tune of the end scroller: the same sounds and motif, calmer. The opening counts twenty bells; the body, to
// which the tune returns, moves through B flat and G to D major and back.

namespace lumenfold::art {
namespace {

void counting(Score& score) {
    Stage stage(score, "counting");
    const Stage::Harmony harmony{"Dadd9 Bm9 Gmaj9 A7sus4", 2 * kBar};
    stage.note(0, channel::texture, Sound::drone, "D2", 40);
    stage.strike(0, 30, 0);
    stage.pads({"Dadd9 Bm9 Gmaj9 A7sus4 Dadd9 Bm9 Gmaj9 A7sus4", 2 * kBar}, 0, 36);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............................", 4, 12, 50);
    const char* const bells[10] = {"D5", "A5", "B5", "A5", "E5", "D5", "F#5", "A5", "E5", "C#5"};
    int bell = 0;
    for (const int row : stage.rowsOf(sync::advance)) {
        stage.note(row, channel::lead, Sound::bell, bells[bell % 10], 36);
        stage.note(row + 3, channel::leadEcho, Sound::bell, bells[bell % 10], 14);
        ++bell;
    }
    stage.steps(channel::kick, Sound::kick, "6.......4.......", 8, 8);
    stage.steps(channel::hat, Sound::hat, "3.2.3.2.3.2.3.2.", 12, 4);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 36);
}

void body(Score& score) {
    Stage stage(score, "body");
    const Stage::Harmony harmony{"Dadd9 Bm9 Gmaj9 A7sus4", 2 * kBar};
    for (int bar = 0; bar < 64; bar += 16) {
        stage.strike(bar * kBar, 40, 36);
        stage.pads({"Dadd9 Bm9 Gmaj9 A7sus4 Dadd9 F#m7 Gmaj9 A", 2 * kBar}, bar, 38);
        stage.pump(bar, 16, 38);
        stage.drums({"8.....5...7.....", "....6.......6...", "4.2.4.2.4.2.4.2.", ""}, bar, 16);
        stage.bassLine(harmony, channel::bass, Sound::bass, "9.....6...9.....", bar, 16, 38);
        stage.bassLine(harmony, channel::sub, Sound::sub, "9.........9.....", bar, 16, 50);
        stage.arpeggio(harmony, Sound::glass, "a.c.b.d.e.c.b.d.", bar, 16, 30);
        stage.line(motif("D", true, 5), Sound::solo, (bar + 4) * kBar, 36);
    }
}

} // namespace

XmSong endTune() {
    Score score(endSections(), channel::count);
    counting(score);
    body(score);
    return score.toSong("endtune", "body", tuneInstruments());
}

} // namespace lumenfold::art
