#include "art/tune_parts.h"
#include "art/tune_stage.h"

// D minor. A drone in which the motif is heard in single bells, a pulse under the logo, the hall with its choir, and
// the first full groove.

namespace lumenfold::art {
namespace {

void breath(Score& score) {
    Stage stage(score, "1 breath");
    stage.note(0, channel::texture, Sound::drone, "D2", 40);
    stage.note(0, channel::impact, Sound::impact, "C4", 26);
    stage.note(0, channel::glass, Sound::bell, "D4", 30);
}

void tunnel(Score& score) {
    Stage stage(score, "1 tunnel");
    stage.strike(0, 30, 0);
    stage.note(0, channel::sub, Sound::sub, "D2", 34);
    stage.pads({"Dm9 Dm9 Bbmaj9 Gm9 A7sus4", 2 * kBar}, 0, 22);
    stage.note(4 * kBar, channel::texture + 0, Sound::drone, "D2", 46);
    stage.line("D4:24 A4:24 A#4:16 A4:32 E4:32", Sound::bell, kBar, 26);
    stage.line("D5:12 A5:12 A#5:8 A5:16 E5:16 C#5:24", Sound::bell, 7 * kBar, 22);
    stage.steps(channel::kick, Sound::kick, "4.....3.........", 4, 6);
    stage.steps(channel::perc, Sound::rim, "..........3.........2........3..", 3, 7);
    stage.steps(channel::perc, Sound::tom, "................3.............5.", 8, 2);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 44);
}

void logo(Score& score) {
    Stage stage(score, "1 logo");
    const Stage::Harmony harmony{"Dm9 Bbmaj9 F C/E Gm9 Bbmaj7", 2 * kBar};
    stage.strike(0, 52, 44);
    stage.pads(harmony, 0, 34);
    stage.pads({"A7sus4", kBar}, 12, 34);
    stage.pump(0, 13, 36);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9..........7....", 0, 4, 54);
    stage.bassLine(harmony, channel::bass, Sound::bass, "7.3.7.3.7.3.7.37", 4, 8, 40);
    stage.drums({"9...............", "............4...", "2.4.2.4.2.4.2.4.", ""}, 0, 4);
    stage.drums({"9...9...9...9...", "....6.......6...", "3153315331533153", "..5...5...5...5."}, 4, 8);
    stage.arpeggio(harmony, Sound::glass, "a.c.b.d.e.c.b.d.", 2, 2, 26);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdacbdfebd", 4, 9, 34);
    stage.swellInto(stage.rows(), Sound::riser, 32, 48);
    stage.roll(12 * kBar, kBar, 2, 16, 50);
}

void hall(Score& score) {
    Stage stage(score, "1 hall");
    const Stage::Harmony harmony{"Bbmaj7 Gm9 Ebmaj7#11 F Dm9 C A7sus4", 2 * kBar};
    stage.strike(0, 60, 50);
    stage.pads(harmony, 0, 44, Sound::choir, Sound::padRight);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............", 0, 14, 56);
    stage.bassLine(harmony, channel::bass, Sound::bass, "7.......5.......", 4, 9, 34);
    stage.drums({"9.........7.....", "........8.......", "", ""}, 0, 13);
    stage.steps(channel::hat, Sound::ride, "5...4...5...4.3.", 4, 9);
    stage.line("A#4:12 F5:12 G5:8 F5:16 C5:16 D5:12 A#4:4 A4:16 D5:16", Sound::solo, 2 * kBar, 34);
    stage.line("F5:12 C6:12 D6:8 C6:16 G5:16 F5:12 E5:4 D5:12", Sound::solo, 9 * kBar, 38);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 50);
    stage.steps(channel::perc, Sound::tom, "........5.4.5678", 13, 1);
}

void ring(Score& score) {
    Stage stage(score, "2 ring");
    const Stage::Harmony harmony{"Dm9 Bbmaj7 Gm9 Am7", kBar};
    const Stage::Harmony lift{"Bbmaj7 C Dm9 F", kBar};
    stage.strike(0, 50, 46);
    const std::string kick = "9.....8...8.....9..7......8...7.";
    stage.drums({kick, "....8..2....8...", "6243624362436243", "..4.......4....."}, 0, 19);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9..6..39...64.7.", 0, 12, 46);
    stage.bassLine(lift, channel::bass, Sound::bass, "9..6..39...64.7.", 12, 7, 46);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.....7.........", 0, 12, 50);
    stage.bassLine(lift, channel::sub, Sound::sub, "9.....7.........", 12, 7, 50);
    stage.pads({"Dm9 Bbmaj7 Gm9 Am7 Dm9 Bbmaj7 Gm9 Am7 Bbmaj7 C Dm9 F Bbmaj7 C Dm9 A7", kBar}, 4, 34);
    stage.pump(4, 15, 36);
    stage.arpeggio(harmony, Sound::glass, "a.cb..d.e.cb..d.", 4, 4, 28);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdecbd", 8, 4, 32);
    stage.arpeggio(lift, Sound::glass, "acbdecbdfcbdecbd", 12, 7, 34);
    stage.line(motif("D", false, 5) + motif("D", false, 5), Sound::lead, 8 * kBar, 36);
    stage.line("D5:6 F5:6 A#5:4 A5:6 G5:6 F5:4 G5:6 E5:6 C6:4 A#5:6 A5:6 G5:4 A5:12 F5:4 D6:16 C6:6 A5:6 F5:4",
               Sound::lead, 12 * kBar, 40);
    for (const int row : stage.rowsOf(sync::pulse)) {
        stage.note(row, channel::stab, Sound::stab, "D4", 34);
        stage.note(row, channel::kick, Sound::kick, 49, 64);
    }
    stage.swellInto(stage.rows(), Sound::reverse, 16, 50);
    stage.roll(19 * kBar, kBar, 2, 20, 56);
}

void cube(Score& score) {
    Stage stage(score, "2 cube");
    stage.strike(0, 62, 52);
    stage.pads({"Gm9 Ebmaj7 Dbmaj7#11 C7", kBar}, 0, 46, Sound::choir, Sound::padRight);
    stage.bassLine({"Gm9 Ebmaj7 Dbmaj7#11 C7", kBar}, channel::sub, Sound::sub, "9.9.9.9.9.9.9.9.", 0, 4, 48);
    stage.arpeggio({"Gm9 Ebmaj7 Dbmaj7#11 C7", kBar}, Sound::glass, "abcdefgfedcbabcd", 0, 4, 30);
    stage.steps(channel::hat, Sound::hat, "4.2.4.2.4.2.4.2.", 0, 4);
    stage.swellInto(stage.rows(), Sound::riser, 32, 56);
    stage.roll(3 * kBar, kBar, 1, 10, 54);
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
