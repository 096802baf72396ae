#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// D minor. A drone in which the motif is heard in single bells, a pulse under the logo, the hall with its choir, and
// the first full groove.

namespace lumenfold::art {
namespace {

void breath(Score& score) {
    Stage stage(score, "1 breath");
    stage.note(0, channel::texture, Sound::drone, "D2", 28);
    stage.note(0, channel::impact, Sound::impact, "C4", 22);
    stage.note(0, channel::glass, Sound::bell, "D4", 26);
    stage.note(0, channel::rise, Sound::reverse, "C5", 16);
}

// The drone; two bars later the first chord, then the motif bell by bell and a heart that begins to beat.
void tunnel(Score& score) {
    Stage stage(score, "1 tunnel");
    stage.note(0, channel::impact, Sound::impact, "A3", 26);
    stage.note(0, channel::sub, Sound::sub, "D2", 22);
    stage.pads({"Dm9 Bbmaj9 Gm9 A7sus4", 2 * barRows}, 2, 16, Sound::padLeft, Sound::air);
    stage.line("D4:24 A4:24 A#4:16 A4:32 E4:32", Sound::bell, barRows, 24);
    stage.line("D5:12 A5:12 A#5:8 A5:16 E5:16 C#5:16", Sound::bell, 6 * barRows, 24);
    stage.steps(channel::kick, Sound::kick, "5.....4.........", 4, 2);
    stage.steps(channel::kick, Sound::kick, "6.....5...6.....", 6, 4);
    stage.steps(channel::perc, Sound::rim, "..........3.........2........3..", 3, 7);
    stage.note(5 * barRows + 8, channel::bass, Sound::growl, "D2", 14);
    stage.note(8 * barRows + 12, channel::bass, Sound::growl, "A1", 18);
    stage.tomFill(9);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 50);
}

// The dissolve: half time, then four to the floor, and a bar of held breath before the hall.
void logo(Score& score) {
    Stage stage(score, "1 logo");
    const Stage::Harmony harmony{"Dm9 Bbmaj9 F C/E Gm9 Bbmaj7 A7sus4", 2 * barRows};
    stage.strike(0, 56, 44);
    stage.note(0, channel::texture, Sound::drone, "D2", 26);
    stage.pads(harmony, 0, 36);
    stage.pump(0, 12, 38);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.........=.7...", 0, 4, 46);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..7...7...7...73", 2, 2, 30);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..7.3.7.3.7.3.73", 4, 8, 38);
    stage.bassLine(harmony, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 4, 8, 42);
    stage.drums({"9.........5.....", "............4...", "2.3.2.3.2.3.2.4.", ""}, 0, 4);
    stage.drums({"9...9...9...9...", "....6.......6...", "3152315231523152", "..5...5...5...5."}, 4, 8);
    stage.snareFill(7);
    stage.tomFill(11);
    stage.arpeggio(harmony, Sound::glass, "a...b...c...b.d.", 0, 4, 22);
    stage.arpeggio(harmony, Sound::glass, "a.c.b.d.e.c.b.d.", 4, 4, 28);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdacbdfebd", 8, 4, 32);
    stage.arpeggio(harmony, Sound::glass, "abcdefghgfedcbab", 12, 1, 30);
    stage.line("D5:6 A5:6 A#5:4 A5:8 E5:8", Sound::solo, 8 * barRows, 26);
    stage.voice("D5:16 F5:16 E5:16", Sound::choir, channel::stab, 10 * barRows, 24);
    stage.swellInto(stage.rows(), Sound::riser, 32, 48);
    stage.roll(12 * barRows, barRows, 2, 12, 46);
}

// Monumental: half time under a choir, the motif carried by one voice, answered an octave higher.
void hall(Score& score) {
    Stage stage(score, "1 hall");
    const Stage::Harmony harmony{"Bbmaj7 Gm7 Ebmaj7#11 F Dm7 C A7sus4", 2 * barRows};
    stage.hush();
    stage.strike(0, 64, 54);
    stage.pads(harmony, 0, 36, Sound::choir, Sound::padRight);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............", 0, 13, 46);
    stage.bassLine(harmony, channel::bass, Sound::bass, "7.....=.5.=.....", 3, 10, 34);
    stage.drums({"9.........6.....", "", "", ""}, 0, 3);
    stage.drums({"9.........7.....9......6..7.....", "........8.......", "", ""}, 3, 10);
    stage.steps(channel::hat, Sound::ride, "4...3...4...3.2.", 5, 4);
    stage.steps(channel::hat, Sound::ride, "5.3.4.3.5.3.4.33", 9, 4);
    stage.strike(8 * barRows, 40, 44);
    stage.arpeggio(harmony, Sound::glass, "a.b.c.d.e.d.c.b.", 8, 4, 26);
    stage.line("A#4:12 F5:12 G5:8 F5:16 C5:16 D5:12 A#4:4 A4:16 D5:16", Sound::solo, 2 * barRows, 36);
    stage.line("F5:12 C6:12 D6:8 C6:16 G5:16 F5:12 E5:4 D5:12", Sound::solo, 8 * barRows, 38);
    stage.bassLine(harmony, channel::bass, Sound::bass, "7.7.7.7.7.7.7.77", 13, 1, 32);
    stage.tomFill(13);
    stage.roll(13 * barRows, barRows, 2, 10, 44);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 56);
}

// The first groove. Four bars each: bass and drums, the chords, the motif, then a second theme over a lifted turn.
void ring(Score& score) {
    Stage stage(score, "2 ring");
    const Stage::Harmony harmony{"Dm9 Bbmaj7 Gm9 Am7", barRows};
    const Stage::Harmony lift{"Bbmaj7 C Dm9 F", barRows};
    stage.hush();
    stage.strike(0, 56, 50);
    const std::string kick = "9.....8...8.....9..7......8...7.";
    stage.drums({kick, "....9..2....9...", "5233523352335233", ""}, 0, 4);
    stage.drums({kick, "....9..2....9..2", "6243624362436243", "..4.......4....."}, 4, 4);
    stage.drums({kick, "....9..2.2..9...", "6243624362436243", "..5...5...5...5."}, 8, 11);
    stage.drums({"9.....9.....9...", "", "6...6...6...6...", ""}, 19, 1);
    stage.steps(channel::perc, Sound::rim, "..3..3....3..4..", 4, 15);
    for (const int bar : {3, 7, 15}) {
        stage.snareFill(bar);
    }
    stage.tomFill(11);
    for (const int bar : {4, 8, 12, 16}) {
        stage.strike(bar * barRows, 0, 44);
    }
    stage.bassLine(harmony, channel::bass, Sound::bass, "9..6=.39.=.64.7.", 0, 4, 46);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9..6=.39.=.64.789.96=.3.9.=64.39", 4, 8, 46);
    stage.bassLine(lift, channel::bass, Sound::bass, "9..6=.39.=.64.789.96=.3.9.=64.39", 12, 7, 46);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9....=7....=....", 0, 12, 46);
    stage.bassLine(lift, channel::sub, Sound::sub, "9....=7....=....", 12, 7, 46);
    stage.bassLine({"A7", barRows}, channel::bass, Sound::bass, "9.....9.....9..=", 19, 1, 46);
    stage.pads({"Dm9 Bbmaj7 Gm9 Am7 Dm9 Bbmaj7 Gm9 Am7 Bbmaj7 C Dm9 F Bbmaj7 C Dm9 A7", barRows}, 4, 38);
    stage.pump(4, 15, 40);
    stage.arpeggio(harmony, Sound::glass, "a.cb..d.e.cb..d.", 4, 4, 26);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdecbd", 8, 4, 30);
    stage.arpeggio(lift, Sound::glass, "acbdecbdfcbdecbd", 12, 4, 30);
    stage.arpeggio(lift, Sound::glass, "aecfbgdhgfedcbac", 16, 3, 32);
    stage.line(motif("D", false, 5) + motif("D", false, 5), Sound::lead, 8 * barRows, 36);
    stage.line("D5:6 F5:6 A#5:4 A5:6 G5:6 F5:4 G5:6 E5:6 C6:4 A#5:6 A5:6 G5:4 A5:12 F5:4 D6:16 C6:6 A5:6 F5:4 E5:12",
               Sound::lead, 12 * barRows, 40);
    for (const int row : stage.rowsOf(sync::pulse)) {
        stage.note(row, channel::stab, Sound::stab, row / barRows % 2 == 0 ? "D5" : "A4", 26);
        stage.note(row, channel::kick, Sound::kick, 49, 64);
    }
    stage.swellInto(stage.rows(), Sound::reverse, 16, 56);
    stage.roll(19 * barRows + 4, 12, 1, 10, 52);
}

// The floor falls away: choir over an eighth-note pedal that climbs into the faster tempo.
void cube(Score& score) {
    Stage stage(score, "2 cube");
    const Stage::Harmony harmony{"Gm9 Ebmaj7 Dbmaj7#11 C7", barRows};
    stage.hush();
    stage.strike(0, 64, 58);
    stage.pads(harmony, 0, 38, Sound::choir, Sound::padRight);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.=.9.=.9.=.9.=.", 0, 4, 42);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.=.9.=.9.=.9.93", 2, 2, 34);
    stage.arpeggio(harmony, Sound::glass, "abcdefgfedcbabcd", 0, 4, 32);
    stage.steps(channel::hat, Sound::hat, "4.2.4.2.4.2.4.2.", 0, 2);
    stage.steps(channel::hat, Sound::hat, "5243524352435243", 2, 2);
    stage.steps(channel::kick, Sound::kick, "9...............", 0, 2);
    stage.steps(channel::kick, Sound::kick, "7...7...7...7.7.", 3, 1);
    stage.swellInto(stage.rows(), Sound::riser, 32, 58);
    stage.roll(3 * barRows, barRows, 1, 10, 54);
}

} // namespace

void writeOpening(Score& score) {
    breath(score);
    tunnel(score);
    logo(score);
    hall(score);
    ring(score);
    cube(score);
}

} // namespace lumenfold::art
