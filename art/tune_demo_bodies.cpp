#include "art/tune_parts.h"
#include "art/tune_stage.h"

// F minor for the bodies, C minor for the tunnels: first hypnotic on one note, then opening into the widest chords.

namespace lumenfold::art {
namespace {

void bodies(Score& score) {
    Stage stage(score, "3 bodies");
    const Stage::Harmony harmony{"Fm9 Dbmaj7 Ab Eb Fm9 Dbmaj7 Bbm9 C7", kBar};
    stage.strike(0, 60, 50);
    stage.drums({"9.....6..8......", "....9.......9.2.", "6243624362436243", "..5...5...5...5."}, 0, 17);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9..9..6.3.9...6.", 0, 17, 48);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.....9.........", 0, 17, 50);
    stage.pads({"Fm9 Dbmaj7 Ab Eb Fm9 Dbmaj7 Bbm9 C7 Fm9 Dbmaj7 Ab Eb Fm9 Dbmaj7 Bbm9 C7 Fm9 Dbmaj7 Bbm9 C7", kBar}, 0,
               36);
    stage.pump(0, 20, 36);
    stage.arpeggio(harmony, Sound::glass, "a.c.b.d.e.c.b.d.", 4, 13, 28);
    stage.line(motif("F", false, 4) + motif("F", false, 4), Sound::lead, 4 * kBar, 40);
    stage.line("C5:6 D#5:6 F5:4 G#5:12 G5:4 D#5:6 F5:6 C5:20", Sound::solo, 8 * kBar, 38);
    stage.line(motif("F", false, 5), Sound::lead, 12 * kBar, 40);
    stage.line(motif("F", false, 5), Sound::lead, 14 * kBar, 40);
    for (const int row : stage.rowsOf(sync::swap)) {
        stage.strike(row, 44, 46);
    }
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::snare, Sound::clap, 49, 60);
        stage.note(row, channel::stab, Sound::stab, "F4", 40);
    }
    stage.swellInto(stage.rows(), Sound::riser, 32, 52);
}

void twinTunnels(Score& score) {
    Stage stage(score, "4 twin tunnels");
    const Stage::Harmony harmony{"Cm Cm Cm Abmaj7 Cm Cm Fm7 G7b9", kBar};
    stage.strike(0, 60, 50);
    stage.drums({"9...9...9...9...", "", "", "..6...6...6...6."}, 0, 4);
    stage.drums({"9...9...9...9...", "....8.......8...", "5354535453545354", "..6...6...6...6."}, 4, 11);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..9.9.39..9.4.9.", 0, 15, 46);
    stage.bassLine(harmony, channel::sub, Sound::sub, "..9...9...9...9.", 0, 15, 46);
    stage.arpeggio(harmony, Sound::glass, "a..c..b..d..e.c.", 2, 13, 30);
    stage.stabs(harmony, "9.....6.........", 8, 7, 36);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::perc, Sound::tom, "G4", 54);
        stage.note(row, channel::impact, Sound::impact, "G4", 36);
    }
    for (const int row : stage.rowsOf(sync::swap)) {
        stage.strike(row, 0, 58);
    }
    stage.roll(14 * kBar, kBar, 2, 16, 40);
    stage.roll(15 * kBar, kBar, 1, 30, 60);
    stage.swellInto(stage.rows(), Sound::riser, 32, 60);
}

void rayTunnel(Score& score) {
    Stage stage(score, "4 ray tunnel");
    const Stage::Harmony harmony{"Abmaj9 Bb Cm9 Gm7 Abmaj9 Bb Eb F", kBar};
    stage.strike(0, 64, 60);
    stage.drums({"9...9...9...9...", "....9.......9..3", "6354635463546354", "..7...7...7...7."}, 0, 13);
    stage.pads({"Abmaj9 Bb Cm9 Gm7 Abmaj9 Bb Eb F Abmaj9 Bb Cm9 Eb G7sus4", kBar}, 0, 42);
    stage.pump(0, 13, 42);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..9...9...9...93", 0, 13, 50);
    stage.bassLine(harmony, channel::sub, Sound::sub, "..9...9...9...9.", 0, 13, 50);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdgcfd", 0, 13, 36);
    stage.line("C5:6 G5:6 G#5:4 G5:8 D5:8 D#5:6 F5:6 G5:4 A#5:12 F5:4 C5:6 G5:6 G#5:4 A#5:8 G5:8 D#6:16 C6:16",
               Sound::lead, 0, 44);
    stage.line("C5:6 G5:6 G#5:4 G5:8 D5:8 D#5:12 G5:4 A#5:12 G5:4 G5:16", Sound::lead, 8 * kBar, 44);
    for (const int row : stage.rowsOf(sync::swap)) {
        stage.strike(row, 50, 0);
        stage.note(row, channel::glass, Sound::bell, "D5", 40);
        stage.note(row, channel::texture, Sound::drone, "B1", 40);
        for (int voice = 0; voice < channel::padVoices; ++voice) {
            stage.off(row, channel::pad + voice);
        }
        stage.off(row, channel::sub);
        stage.off(row, channel::bass);
    }
}

} // namespace

void writeBodies(Score& score) {
    bodies(score);
    twinTunnels(score);
    rayTunnel(score);
}

} // namespace lumenfold::art
