#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// Down to sparks and a projector, out over the water in E minor, and into the slow, sticky groove in A minor.

namespace lumenfold::art {
namespace {

// Sparks over the drone; the still bursts apart after a bar.
void weld(Score& score) {
    Stage stage(score, "5 weld");
    stage.hush({channel::texture});
    stage.steps(channel::perc, Sound::spark, "8...4.6...7..5.4", 0, 3);
    stage.strike(0, 40, 34);
    stage.note(0, channel::stab, Sound::growl, "B2", 26);
    stage.note(8, channel::stab, Sound::growl, "C3", 30);
    stage.strike(barRows, 60, 46);
    stage.steps(channel::kick, Sound::kick, "8.......5.......", 1, 2);
    stage.pads({"B7sus4 Cmaj7#11", barRows}, 1, 24, Sound::padLeft, Sound::padRight);
    stage.note(barRows, channel::sub, Sound::sub, "B1", 30);
    stage.note(2 * barRows, channel::sub, Sound::sub, "C2", 30);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 52);
}

// A projector's sixteenths carry a bare bass figure; the chords warm up as the film rolls out.
void film(Score& score) {
    Stage stage(score, "5 film");
    const Stage::Harmony harmony{"B7sus4 Cmaj7#11 Am9 B7sus4 B7", barRows};
    stage.hush();
    stage.strike(0, 54, 46);
    stage.steps(channel::perc, Sound::projector, "9475", 0, 4);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.=.4.=.9=..4.3=", 0, 4, 44);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.......=.......", 0, 4, 44);
    stage.pads(harmony, 0, 26);
    stage.pump(0, 4, 30, 8);
    stage.steps(channel::kick, Sound::kick, "9.......8.......", 0, 4);
    stage.steps(channel::snare, Sound::clap, "............5...", 1, 3);
    stage.arpeggio(harmony, Sound::glass, "a..b..c..d..c.b.", 1, 3, 28);
    stage.swellInto(stage.rows(), Sound::riser, 32, 50);
}

// Wide and slow: sea, choir, air. Drums only where the picture shakes.
void water(Score& score) {
    Stage stage(score, "6 water");
    const Stage::Harmony harmony{"Em9 Cmaj7#11 Am9 Bm7 Cmaj9", 2 * barRows};
    stage.hush();
    stage.strike(0, 64, 56);
    stage.note(0, channel::kick, Sound::kick, "C4", 56);
    stage.note(0, channel::perc, Sound::tom, "D3", 64);
    stage.note(0, channel::texture, Sound::sea, "C4", 48);
    stage.pads(harmony, 0, 32, Sound::choir, Sound::air);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............................", 0, 10, 48);
    stage.arpeggio(harmony, Sound::glass, "a...c...b..d..e.", 2, 4, 26);
    stage.arpeggio(harmony, Sound::glass, "a.b.c.d.e.f.e.c.", 6, 2, 26);
    stage.arpeggio(harmony, Sound::glass, "f...e...d...c...", 8, 2, 22);
    stage.line("E4:12 B4:12 C5:8 B4:16 F#4:16 E5:12 B5:12 C6:8 B5:16 F#5:16", Sound::bell, 2 * barRows, 34);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::perc, Sound::tom, "D4", 64);
        stage.note(row, channel::kick, Sound::kick, "C4", 48);
        stage.strike(row, 44, 20);
    }
    for (int voice = 0; voice < channel::padVoices; ++voice) {
        stage.off(10 * barRows, channel::pad + voice);
    }
    stage.off(10 * barRows, channel::sub);
    stage.note(10 * barRows, channel::bass, Sound::growl, "E2", 24);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 56);
}

// Half time. The growl talks, the solo answers; the second half lays arpeggio and choir over it.
void slime(Score& score) {
    Stage stage(score, "7 slime");
    const Stage::Harmony harmony{"Am9 Fmaj7 Dm9 E7b9", 2 * barRows};
    const std::string kick = "9.........7.....9......7..8.....";
    stage.hush();
    stage.strike(0, 64, 54);
    stage.drums({kick, "........9.......", "4.3.4.3.4.3.4.33", ""}, 0, 4);
    stage.drums({kick, "........9......2", "5.3.4.3.5.3.4.33", "..............5."}, 4, 4);
    stage.drums({kick, "........9..2...2", "5343534353435343", "..............5."}, 8, 7);
    stage.drums({"9.....9...9.....", "", "5.5.5.5.5.5.5555", ""}, 15, 1);
    stage.steps(channel::perc, Sound::rim, "...3..4.....3...", 4, 11);
    stage.steps(channel::perc, Sound::spark, "5...............................", 0, 4);
    stage.tomFill(7);
    stage.snareFill(15);
    stage.strike(8 * barRows, 46, 50);
    stage.bassLine(harmony, channel::bass, Sound::growl, "9..5....9.4...6.9.....59..4.6.59", 0, 15, 46);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9....=....9..=..", 0, 16, 46);
    stage.pads({"Am9 Fmaj7 Dm9 E7b9 Am9 Fmaj7 Dm9 E7b9", 2 * barRows}, 0, 28);
    stage.pump(0, 15, 32, 8);
    stage.line(motif("A", false, 4) + "-:16 E5:6 F5:6 G#4:4", Sound::solo, 4 * barRows, 42);
    stage.line(motif("A", false, 4) + "A4:6 C5:6 E5:4 F5:12 E5:4 D5:12 C5:4 B4:16", Sound::solo, 8 * barRows, 44);
    stage.line("E5:6 G#5:6 B5:4 C6:8 B5:8", Sound::lead, 14 * barRows, 34);
    stage.arpeggio(harmony, Sound::glass, "a.....b.....c...", 2, 6, 24);
    stage.arpeggio(harmony, Sound::glass, "a..b..c..d..e...", 8, 7, 28);
    stage.voice("E5:32 C5:32 D5:32 E5:16 G#5:16", Sound::choir, channel::texture, 8 * barRows, 30);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 52);
}

} // namespace

void writeVoyage(Score& score) {
    weld(score);
    film(score);
    water(score);
    slime(score);
}

} // namespace lumenfold::art
