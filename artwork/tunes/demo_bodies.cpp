#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// F minor for the bodies, C minor for the tunnels: first hypnotic on one note, then opening into the widest chords.

namespace lumenfold::art {
namespace {

// Four bars for each body; the throws are claps and stabs between the beats of the kick.
void bodies(Score& score) {
    Stage stage(score, "3 bodies");
    const std::string first = "Fm9 Dbmaj7 Ab Eb Fm9 Cm7 Bbm9 C7";
    const Stage::Harmony harmony{first, barRows};
    const std::string kick = "9.....6..8......9..6..6..8....7.";
    stage.hush();
    stage.strike(0, 60, 54);
    stage.drums({kick, "....8.......8...", "5233523352335233", ""}, 0, 4);
    stage.drums({kick, "....9.......9.2.", "6243624362436243", "..5...5...5...5."}, 4, 4);
    stage.drums({kick, "....9..2....9.2.", "6243624362436246", "..5...5...5.5.5."}, 8, 4);
    stage.drums({"9...9...9...9...", "....9..2....9.23", "6354635463546354", "..7...7...7...7."}, 12, 4);
    stage.drums({kick, "....9.......9...", "6243624362436243", ""}, 16, 2);
    stage.drums({"9...............", "", "4...3...2.......", ""}, 18, 1);
    stage.steps(channel::perc, Sound::rim, "..3..3....3..4..", 4, 12);
    for (const int bar : {3, 11}) {
        stage.snareFill(bar);
    }
    for (const int bar : {7, 15}) {
        stage.tomFill(bar);
    }
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.=9.=6.39=...69", 0, 4, 48);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.=9.=6.39=..36993=9.=6.39=.6.46", 4, 4, 48);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.=9.=6.39=..36993=9.=6.39=.6.46", 8, 4, 48);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..9.3.9...9.3.99", 12, 6, 50);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9....=..9....=..", 0, 18, 46);
    stage.pads({first + " " + first + " Fm9 Dbmaj7 Bbm9 C7", barRows}, 0, 38);
    stage.pump(0, 18, 40);
    stage.arpeggio(harmony, Sound::glass, "a.c.b.d.e.c.b.d.", 4, 4, 28);
    stage.arpeggio(harmony, Sound::glass, "a..b..c..d..e.c.", 8, 4, 30);
    stage.arpeggio(harmony, Sound::glass, "aebfcgdhaebfcgdh", 12, 5, 30);
    stage.line(motif("F", false, 4) + motif("F", false, 4), Sound::lead, 4 * barRows, 42);
    stage.line("C5:6 D#5:6 F5:4 G#5:12 G5:4 D#5:6 F5:6 C5:20", Sound::solo, 8 * barRows, 40);
    stage.line(motif("F", false, 5) + "C#5:6 F5:6 A#5:4 G5:8 E5:8", Sound::lead, 12 * barRows, 42);
    for (const int row : stage.rowsOf(sync::swap)) {
        stage.strike(row, 46, 50);
    }
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::snare, Sound::clap, 49, 62);
        stage.note(row, channel::stab, Sound::stab, "F4", 44);
    }
    for (const int row : stage.rowsOf(sync::fadeOut)) {
        stage.note(row, channel::impact, Sound::impact, "C4", 30);
    }
    stage.voice("C5:48 E5:16", Sound::choir, channel::texture, 16 * barRows, 30);
    stage.swellInto(stage.rows(), Sound::riser, 32, 56);
}

// One note, off the beat. Each hit throws the picture back: a low drum with the impact an fifth up.
void twinTunnels(Score& score) {
    Stage stage(score, "4 twin tunnels");
    const Stage::Harmony harmony{"Cm Cm Cm Abmaj7 Cm Cm Fm7 G7b9", barRows};
    stage.hush();
    stage.strike(0, 64, 56);
    stage.drums({"9...9...9...9...", "", "", "..6...6...6...6."}, 0, 4);
    stage.drums({"9...9...9...9...", "....8.......8...", "4243424342434243", "..6...6...6...6."}, 4, 4);
    stage.drums({"9...9...9...9...", "....9.......9..2", "5354535453545354", "..7...7...7...7."}, 8, 4);
    stage.drums({"9...9...9...9.6.", "....9..2.2..9.23", "6364636463646364", "..7...7...7...7."}, 12, 3);
    stage.drums({"9...9...........", "", "", ""}, 15, 1);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..9.9=39=.9=4.9=", 0, 4, 44);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..9.9=39=.9=4.9=..993=9.=49.3=99", 4, 8, 46);
    stage.bassLine(harmony, channel::bass, Sound::bass, ".9939.39.9939.49", 12, 3, 48);
    stage.bassLine(harmony, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 0, 15, 42);
    stage.arpeggio(harmony, Sound::glass, "a..c..b..d..e.c.", 2, 6, 28);
    stage.arpeggio(harmony, Sound::glass, "aacabadaecabadac", 8, 7, 30);
    stage.stabs(harmony, "..6..4..........", 4, 4, 36);
    stage.stabs(harmony, "9.....6...3.....", 8, 4, 42);
    stage.stabs(harmony, "9..9..9...9.6...", 12, 3, 44);
    stage.voice("G4:32 G#4:16 G4:16", Sound::choir, channel::texture, 4 * barRows, 26);
    stage.voice("C5:32 D#5:32 G5:32 C6:16 B5:16", Sound::choir, channel::texture, 8 * barRows, 30);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::perc, Sound::tom, "G4", 56);
        stage.note(row, channel::impact, Sound::impact, "G4", 40);
    }
    for (const int row : stage.rowsOf(sync::swap)) {
        stage.strike(row, 0, 64);
    }
    stage.snareFill(11);
    stage.roll(14 * barRows + 8, 8, 2, 14, 30);
    stage.roll(15 * barRows, barRows, 1, 20, 62);
    stage.swellInto(stage.rows(), Sound::riser, 32, 62);
}

// White, then everything at once: A flat with its sixth above, two themes, and a stop that rings.
void rayTunnel(Score& score) {
    Stage stage(score, "4 ray tunnel");
    const Stage::Harmony harmony{"Abmaj9 Bb Cm9 Gm7 Abmaj9 Bb Eb F Abmaj9 Bb Cm9 Eb G7sus4", barRows};
    stage.hush();
    stage.strike(0, 64, 64);
    stage.drums({"9...9...9...9...", "....9.......9..3", "6354635463546354", "..7...7...7...7."}, 0, 8);
    stage.drums({"9...9...9...9..7", "....9..2.2..9.23", "7364736473647364", "..8...8...8...8."}, 8, 5);
    stage.steps(channel::perc, Sound::rim, "..3..3....3..4..", 4, 8);
    stage.snareFill(3);
    stage.tomFill(7);
    stage.snareFill(12);
    for (const int bar : {4, 8}) {
        stage.strike(bar * barRows, 30, 54);
    }
    stage.pads(harmony, 0, 44);
    stage.pump(0, 13, 46);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..93..93..93..93", 0, 8, 50);
    stage.bassLine(harmony, channel::bass, Sound::bass, ".993.993.993.943", 8, 5, 50);
    stage.bassLine(harmony, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 0, 13, 46);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdgcfd", 0, 8, 34);
    stage.arpeggio(harmony, Sound::glass, "aecfbgdhgfedcbac", 8, 5, 36);
    stage.voice("D#5:16 F5:16 G5:16 F5:16 D#5:16 F5:16 G5:16 A5:16 D#5:16 F5:16 G5:16 A#5:16 C6:16", Sound::choir,
                channel::texture, 0, 34);
    stage.line("C5:6 G5:6 G#5:4 G5:8 D5:8 D#5:6 F5:6 G5:4 A#5:12 F5:4 C5:6 G5:6 G#5:4 A#5:8 G5:8 D#6:16 C6:16",
               Sound::lead, 0, 46);
    stage.line("C6:6 G6:6 G#6:4 G6:8 D6:8 D#6:12 G5:4 A#5:12 G5:4 G5:16", Sound::lead, 8 * barRows, 44);
    stage.swellInto(13 * barRows, Sound::reverse, 16, 50);
    stage.swellInto(stage.rows(), Sound::reverse, 15, 36);
    for (const int row : stage.rowsOf(sync::swap)) {
        stage.strike(row, 64, 50);
        stage.note(row, channel::perc, Sound::tom, "D3", 64);
        stage.note(row, channel::glass, Sound::bell, "D5", 44);
        stage.note(row + 6, channel::glass, Sound::bell, "A5", 30);
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
