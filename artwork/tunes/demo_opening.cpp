#include "artwork/tunes/hook.h"
#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// D minor. A drone in which the call is heard in single bells, the hook as a question, then under the logo; the hall
// sings it at half speed; the pool has it whole for the first time.

namespace lumenfold::art {
namespace {

void breath(Score& score) {
    Stage stage(score, "1 breath", 100);
    stage.note(0, channel::texture, Sound::drone, "D2", 30);
    stage.note(0, channel::impact, Sound::impact, "C4", 30);
    stage.note(0, channel::glass, Sound::bell, "D4", 26);
    stage.note(0, channel::rise, Sound::reverse, "C5", 16);
}

// The call bell by bell over the falling bass; a heart; the hook's question far away; then only a riser.
void tunnel(Score& score) {
    Stage stage(score, "1 tunnel", 100);
    const Stage::Harmony fold{hook::fold, barRows};
    stage.note(0, channel::impact, Sound::impact, "A3", 26);
    stage.pads({"Dm9 Am7 Bbmaj9 A7sus4", 2 * barRows}, 1, 20, Sound::padLeft, Sound::air);
    stage.bassLine(fold, channel::sub, Sound::sub, "9...............", 0, 9, 34);
    stage.line(stretched(hook::call, 2), Sound::bell, 2 * barRows, 30);
    stage.line(hook::call, Sound::bell, 4 * barRows + 8, 26);
    stage.steps(channel::kick, Sound::kick, "5..4............", 2, 4);
    stage.steps(channel::kick, Sound::kick, "6..4....5.......", 6, 3);
    stage.steps(channel::perc, Sound::rim, "..........3.........2........3..", 3, 6);
    stage.riff(hook::question, 6 * barRows, 26);
    stage.riff(hook::question, 8 * barRows, 32);
    stage.bassLine(fold, channel::bass, Sound::growl, "7...............", 6, 3, 22);
    stage.breakOff(9 * barRows + 10);
    stage.swellInto(stage.rows(), Sound::riser, 32, 46);
}

// The dissolve lands on everything. Half time; a break with the riff; the hook's first half by the lead; a roll and a
// beat of silence.
void logo(Score& score) {
    Stage stage(score, "1 logo");
    const Stage::Harmony fold{hook::fold, barRows};
    stage.pads(fold, 0, 34);
    stage.pads(fold, 8, 34);
    stage.pump(0, 12, 38);
    stage.bassLine(fold, channel::sub, Sound::sub, "9.........=.7...", 0, 4, 50);
    stage.bassLine(fold, channel::bass, Sound::bass, "9.......7.....73", 0, 4, 40);
    stage.drums({"9.........6.....", "........8.......", "4.2.3.2.4.2.3.4.", ""}, 0, 4);
    stage.drums({"", "....8..3.3..8...", "6253625362536253", ""}, 4, 3);
    stage.drums({"9...9...9.9.9999", "....8..3.3..8.55", "6253625362536253", ""}, 7, 1);
    stage.riff(repeatedWords(hook::riff, 2), 4 * barRows, 40);
    stage.drums({"9.....8...8.....", "....9..3....9..2", "6243624362436243", "..5...5...5...5."}, 8, 4);
    stage.bassLine(fold, channel::bass, Sound::bass, "9..6=.39.=.64.7.", 8, 4, 48);
    stage.bassLine(fold, channel::sub, Sound::sub, "9....=7....=....", 8, 4, 48);
    stage.line(hook::question + hook::sequence, Sound::lead, 8 * barRows, 44);
    stage.breaks(Sound::breakHalf, Sound::breakHalf, 0, 4, 26);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, 4, 8, 34);
    stage.snareFill(3);
    stage.tomFill(11);
    stage.roll(12 * barRows, 12, 1, 12, 56);
    stage.steps(channel::kick, Sound::kick, "9...9...9.9.....", 12, 1);
    stage.breakOff(12 * barRows + 12);
    stage.swellInto(stage.rows(), Sound::riser, 32, 52);
    stage.accents(sync::dissolve, Stage::Accent::heavy, noteNumber("D5"));
    stage.note(0, channel::sub, Sound::sub, "D2", 56);
}

// Monumental: the hook at half speed by choir and solo over the fold in two-bar steps, timpani under it.
void hall(Score& score) {
    Stage stage(score, "1 hall");
    const Stage::Harmony slow{"Bbmaj7 Dm A/C# Am/C G/B Bbmaj7 A7sus4", 2 * barRows};
    stage.hush();
    stage.pads(slow, 0, 44, Sound::choir, Sound::padRight);
    stage.bassLine(slow, channel::sub, Sound::sub, "9.......=.9.....", 0, 13, 54);
    stage.bassLine(slow, channel::bass, Sound::bass, "9.....=.7.=.....", 0, 13, 46);
    stage.drums({"9.........7.....9......7..8.....", "........9...............9...2.3.", "4...3...4...3.2.", ""}, 0,
                10);
    stage.drums({"9.....9...9.....", "........9.......", "5.3.4.3.5.3.4.33", "..........5....."}, 10, 3);
    stage.breaks(Sound::breakHalf, Sound::breakHalf, 0, 13, 30);
    stage.steps(channel::perc, Sound::tom, "6.....5...6.....6...4.5.6.6.4.4.", 2, 10, noteNumber("D3"));
    stage.line(stretched(hook::question + hook::sequence, 2), Sound::solo, 2 * barRows, 50);
    stage.voice(stretched(hook::question + hook::sequence, 2), Sound::choir, channel::texture, 2 * barRows, 46);
    stage.arpeggio({hook::fold, barRows}, Sound::glass, "a.b.c.d.e.d.c.b.", 6, 4, 26);
    stage.line("A5:16 C#6:16 D6:16", Sound::lead, 10 * barRows, 40);
    stage.roll(13 * barRows, 12, 2, 20, 56);
    stage.tomFill(13);
    for (const int bar : {4, 8, 12})
        stage.strike(bar * barRows, 30, 46);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 60);
    stage.accents(sync::hall, Stage::Accent::heavy, noteNumber("D5"));
}

// The first whole statement. Riff and break; stabs on every pulse; the hook; the riff again; three blows.
void ring(Score& score) {
    Stage stage(score, "2 ring");
    const Stage::Harmony fold{hook::fold, barRows};
    const std::string kick = "9.....8...8.....9..7......8...7.";
    stage.hush();
    stage.drums({kick, "....9..2....9..2", "5233523352335233", ""}, 0, 3);
    stage.drums({kick, "....9..2....9..2", "6243624362436243", "..4.......4....."}, 3, 4);
    stage.drums({kick, "....9..2.2..9...", "6243624362436243", "..5...5...5...5."}, 7, 8);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, 0, 15, 40);
    for (const int bar : {2, 6, 10})
        stage.snareFill(bar);
    stage.tomFill(14);
    stage.bassLine(fold, channel::bass, Sound::bass, "9..6=.39.=.64.7.", 0, 7, 50);
    stage.bassLine(fold, channel::bass, Sound::bass, "9..6=.39.=.64.789.96=.3.9.=64.39", 7, 8, 50);
    stage.bassLine(fold, channel::sub, Sound::sub, "9....=7....=....", 0, 15, 50);
    stage.pads(fold, 7, 34);
    stage.pump(7, 8, 38);
    stage.riff(repeatedWords(hook::riff, 3), 0, 40);
    stage.line(hook::wholeClosed, Sound::lead, 7 * barRows, 50);
    stage.arpeggio(fold, Sound::glass, "a.cb..d.e.cb..d.", 7, 8, 22);
    stage.bassLine({"A7", barRows}, channel::bass, Sound::bass, "9.....9.....9..=", 15, 1, 50);
    stage.accents(sync::pulse, Stage::Accent::strong, noteNumber("D5"));
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("D4"));
    stage.breakOff(15 * barRows + 14);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 56);
}

// The floor falls away: the fold's end in four bars, the break cut ever finer.
void cube(Score& score) {
    Stage stage(score, "2 cube", 88);
    const Stage::Harmony harmony{"Gm7 A7/G Dm/F A7/E", barRows};
    stage.hush();
    stage.pads(harmony, 0, 38, Sound::choir, Sound::padRight);
    stage.pump(0, 4, 40);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9.=.9.=.9.=.9.=.", 0, 4, 48);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9.=.9.=.9.=.9.93", 0, 4, 46);
    stage.drums({"9..9..9...9..9..", "....9..4.4..9.4.", "7474747474747474", "..6...6...6...6."}, 0, 3);
    stage.drums({"9...9...9.9.9999", "4444555566667788", "7777777777777777", ""}, 3, 1);
    stage.breaks(Sound::breakBusy, Sound::breakBusy, 0, 3, 42);
    for (const int row : {13, 29, 45})
        stage.flutter(row, channel::snare, 2);
    stage.line(hook::climb, Sound::lead, 0, 48);
    stage.accents(sync::swap, Stage::Accent::heavy, noteNumber("G4"));
    stage.breakOff(stage.rows() - 2);
    stage.swellInto(stage.rows(), Sound::riser, 32, 60);
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
