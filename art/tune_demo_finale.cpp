#include "art/tune_parts.h"
#include "art/tune_stage.h"

// A light interlude, the hardest section on D and E flat, and the motif in full, from D minor into D major.

namespace lumenfold::art {
namespace {

void pane(Score& score) {
    Stage stage(score, "8 pane");
    const Stage::Harmony harmony{"Fmaj9 G Am7 Em7 Fmaj9 G Am7 C/G", kBar};
    stage.strike(0, 40, 44);
    stage.drums({"9.......9.......", "", "5.3.5.3.5.3.5.3.", ""}, 0, 4);
    stage.drums({"9.....6.9.......", "....7.......7...", "5353535353535353", "..4...4...4...4."}, 4, 11);
    stage.steps(channel::perc, Sound::rim, "..5..5....5..3..", 0, 15);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdecbd", 0, 16, 36);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9..9......9..4..", 4, 11, 40);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9..9......9.....", 0, 15, 46);
    stage.pads({"Fmaj9 G Am7 Em7 Fmaj9 G Am7 C/G Fmaj9 G Am7 Em7", kBar}, 4, 32);
    stage.pump(4, 12, 34);
    stage.line("C5:12 G5:12 A5:8 G5:16 D5:16", Sound::bell, 4 * kBar, 34);
    stage.line("C5:6 G5:6 A5:4 G5:8 D5:8 E5:6 G5:6 C6:4 B5:16", Sound::solo, 8 * kBar, 38);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::snare, Sound::clap, 49, 58);
    }
    stage.swellInto(stage.rows(), Sound::riser, 32, 60);
}

void tube(Score& score) {
    Stage stage(score, "9 tube");
    const Stage::Harmony harmony{"Dm Dm Eb Dm Dm Dm Eb C", kBar};
    stage.strike(0, 64, 60);
    stage.drums({"9..9..9...9.9...", "....9.......9.33", "7575757575757575", "..8...8...8...8.", Sound::hardKick}, 0,
                16);
    stage.bassLine(harmony, channel::bass, Sound::growl, "9.79.49.79.49.79", 0, 16, 56);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9..9..9...9.9...", 0, 16, 52);
    stage.stabs(harmony, "..6..6....6..6..", 8, 8, 40);
    stage.arpeggio(harmony, Sound::glass, "aceacebdfbdface.", 8, 8, 34);
    stage.line("D5:6 A5:6 A#5:4 A5:8 E5:8 D5:6 A5:6 D#6:4 D6:16", Sound::lead, 8 * kBar, 44);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.strike(row, 60, 54);
        stage.note(row, channel::stab, Sound::stab, "D4", 60);
    }
    stage.swellInto(stage.rows(), Sound::riser, 32, 60);
}

void finale(Score& score) {
    Stage stage(score, "10 finale");
    const Stage::Harmony harmony{"Dm9 Bbmaj9 F C Gm9 Bb C A7 Dm9 Bbmaj9 F C Bb C", kBar};
    stage.strike(0, 64, 60);
    stage.drums({"9...9...9...9...", "....9.......9..3", "6354635463546354", "..7...7...7...7."}, 0, 14);
    stage.pads(harmony, 0, 44);
    stage.pump(0, 14, 44);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..9...9...9...93", 0, 14, 50);
    stage.bassLine(harmony, channel::sub, Sound::sub, "..9...9...9...9.", 0, 14, 52);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdgcfd", 0, 14, 36);
    stage.line(motif("D", false, 5) + "F5:6 C6:6 D6:4 C6:8 G5:8 D5:6 A5:6 A#5:4 D6:8 F5:8 G5:12 E5:4 A5:16",
               Sound::lead, 0, 46);
    stage.line(motif("D", false, 5) + "F5:6 C6:6 D6:4 C6:8 G5:8 A#5:8 D6:8 C6:8 E6:8 F#6:32", Sound::lead, 8 * kBar,
               48);
    const int last = 14 * kBar;
    stage.strike(last, 64, 60);
    stage.note(last, channel::kick, Sound::kick, 49, 64);
    stage.pads({"Dadd9", 4 * kBar}, 14, 44, Sound::padLeft, Sound::choir);
    stage.note(last, channel::sub, Sound::sub, "D2", 56);
    stage.note(last, channel::texture, Sound::drone, "D2", 40);
    stage.off(last, channel::bass);
    stage.line("D5:12 A5:12 B5:8 A5:16 E5:16", Sound::bell, 15 * kBar, 34);
}

void ringingOut(Score& score) {
    Stage stage(score, "ringing out");
    for (int voice = 0; voice < channel::padVoices; ++voice) {
        stage.off(0, channel::pad + voice);
    }
    stage.off(0, channel::sub);
    stage.off(0, channel::texture);
    stage.note(0, channel::glass, Sound::bell, "D4", 30);
    stage.note(kBar, channel::glass, Sound::bell, "D5", 20);
}

} // namespace

void writeFinale(Score& score) {
    pane(score);
    tube(score);
    finale(score);
    ringingOut(score);
}

XmSong demoTune() {
    Score score(demoSections(), channel::count);
    writeOpening(score);
    writeBodies(score);
    writeVoyage(score);
    writeFinale(score);
    return score.toSong("bzzzz", "1 breath", tuneInstruments());
}

} // namespace lumenfold::art
