#include "art/tune_parts.h"
#include "art/tune_stage.h"

// Down to sparks and a projector, out over the water in E minor, and into the slow, sticky groove in A minor.

namespace lumenfold::art {
namespace {

void weld(Score& score) {
    Stage stage(score, "5 weld");
    stage.steps(channel::perc, Sound::spark, "7.....5...6..4..", 0, 3);
    stage.note(0, channel::texture, Sound::drone, "B1", 40);
    stage.strike(kBar, 52, 40);
    stage.steps(channel::kick, Sound::kick, "7.......5.......", 1, 2);
    stage.pads({"B7sus4", kBar}, 1, 26);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 40);
}

void film(Score& score) {
    Stage stage(score, "5 film");
    const Stage::Harmony harmony{"B7sus4 B7sus4 Am9 Am9 B7", kBar};
    stage.strike(0, 50, 40);
    stage.steps(channel::perc, Sound::projector, "9696", 0, 5);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.......9...4...", 0, 5, 36);
    stage.pads({"B7sus4 B7sus4 Am9 Am9 B7", kBar}, 0, 28);
    stage.steps(channel::kick, Sound::kick, "8.......8.......", 0, 4);
    stage.swellInto(stage.rows(), Sound::riser, 32, 44);
}

void water(Score& score) {
    Stage stage(score, "6 water");
    const Stage::Harmony harmony{"Em9 Cmaj7#11 Am9 Bm7 Cmaj9 Bm7", 2 * kBar};
    stage.strike(0, 56, 40);
    stage.note(0, channel::texture, Sound::sea, "C4", 44);
    stage.pads(harmony, 0, 40, Sound::choir, Sound::air);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............................", 0, 10, 56);
    stage.arpeggio(harmony, Sound::glass, "a...c...b..d..e.", 2, 8, 26);
    stage.line("E4:12 B4:12 C5:8 B4:16 F#4:16", Sound::bell, 4 * kBar, 30);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::perc, Sound::tom, "C4", 60);
        stage.strike(row, 46, 0);
    }
    stage.swellInto(stage.rows(), Sound::reverse, 16, 44);
}

void slime(Score& score) {
    Stage stage(score, "7 slime");
    const Stage::Harmony harmony{"Am9 Fmaj7 Dm9 E7b9", 2 * kBar};
    stage.strike(0, 58, 46);
    stage.drums({"9.........7.....9......7..8.....", "........9.......", "5.3.4.3.5.3.4.33", "..............4."}, 0,
                16);
    stage.bassLine(harmony, channel::bass, Sound::growl, "9..5....9.4...6.", 0, 16, 50);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.........9.....", 0, 16, 54);
    stage.pads({"Am9 Fmaj7 Dm9 E7b9 Am9 Fmaj7 Dm9 E7b9", 2 * kBar}, 0, 32);
    stage.pump(0, 16, 34);
    stage.line(motif("A", false, 4), Sound::solo, 4 * kBar, 40);
    stage.line(motif("A", false, 4) + "A4:6 C5:6 E5:4 F5:12 E5:4 D5:12 C5:4 B4:16", Sound::solo, 8 * kBar, 42);
    stage.arpeggio(harmony, Sound::glass, "a..b..c..d..e...", 8, 8, 26);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 50);
}

} // namespace

void writeVoyage(Score& score) {
    weld(score);
    film(score);
    water(score);
    slime(score);
}

} // namespace lumenfold::art
