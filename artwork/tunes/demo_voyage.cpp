#include "artwork/tunes/hook.h"
#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// Down to sparks and a projector, out over the water in B flat, and into the slow, sticky groove in G minor.

namespace lumenfold::art {
namespace {

// Sparks over the fold on bowed metal.
void weld(Score& score) {
    Stage stage(score, "5 weld");
    stage.hush({channel::texture});
    stage.steps(channel::perc, Sound::spark, "8...4.6...7..5.4", 0, 2);
    stage.steps(channel::kick, Sound::kick, "9.......7.......", 0, 2);
    stage.bassLine({"Dm A/C#", barRows}, channel::bass, Sound::growl, "9.......7.......", 0, 2, 44);
    stage.bassLine({"Dm A/C#", barRows}, channel::sub, Sound::sub, "9...............", 0, 2, 46);
    stage.pads({"Dm A", barRows}, 0, 30, Sound::padLeft, Sound::padRight);
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("D4"));
    stage.breakOff(stage.rows() - 2);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 56);
}

// The still bursts apart; a projector's sixteenths for hats, the hook's question on the pluck.
void film(Score& score) {
    Stage stage(score, "5 film");
    const Stage::Harmony fold{hook::fold, barRows};
    stage.hush();
    stage.steps(channel::perc, Sound::projector, "9475", 0, 5);
    stage.bassLine(fold, channel::bass, Sound::bass, "9.=.4.=.9=..4.3=", 0, 5, 46);
    stage.bassLine(fold, channel::sub, Sound::sub, "9.......=.......", 0, 5, 50);
    stage.pads(fold, 0, 28);
    stage.pump(0, 4, 32, 8);
    stage.drums({"9.......8.......", "............6...", "", ""}, 0, 4);
    stage.breaks(Sound::breakHalf, Sound::breakHalf, 2, 3, 22);
    stage.riff(hook::question + hook::sequence, 0, 46);
    stage.accents(sync::swap, Stage::Accent::heavy, noteNumber("D5"));
    stage.swellInto(stage.rows(), Sound::riser, 32, 52);
}

// Wide and slow, B flat with its raised fourth: sea, choir, and the hook's answer at half speed. Drums only where the
// picture shakes.
void water(Score& score) {
    Stage stage(score, "6 water", 88);
    const Stage::Harmony harmony{"Bbmaj7#11 F/A Gm9 C/E Bbmaj9", 2 * barRows};
    stage.hush();
    stage.note(0, channel::texture, Sound::sea, "C4", 44);
    stage.pads(harmony, 0, 46, Sound::choir, Sound::air);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9...............................", 0, 10, 54);
    stage.arpeggio(harmony, Sound::glass, "a...c...b..d..e.", 2, 6, 24);
    stage.line(stretched(hook::climb, 2), Sound::solo, 2 * barRows, 52);
    stage.line(hook::call, Sound::bell, 8 * barRows + 8, 34);
    stage.note(0, channel::sub, Sound::sub, "A#1", 56);
    for (int voice = 0; voice < channel::padVoices; ++voice)
        stage.off(10 * barRows, channel::pad + voice);
    stage.off(10 * barRows, channel::sub);
    stage.accents(sync::advance, Stage::Accent::strong);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.accent(row, Stage::Accent::heavy);
        stage.note(row, channel::perc, Sound::tom, "D3", 64);
    }
    stage.breakOff(stage.rows() - 12);
    stage.swellInto(stage.rows(), Sound::reverse, 16, 58);
}

// Half time. The growl talks, the hook in G answers it by the bass itself.
void slime(Score& score) {
    Stage stage(score, "7 slime");
    const Stage::Harmony harmony{"Gm D/F# Dm/F C/E Eb Bb/D Cm7 D7", barRows};
    const std::string kick = "9.........7.....9......7..8.....";
    stage.hush();
    stage.drums({kick, "........9.......", "4.33.3.34.33.333", ""}, 0, 4);
    stage.drums({kick, "........9......2", "5.33.3.35.33.333", "..............5."}, 4, 4);
    stage.drums({kick, "........9..2...2", "5.43.4.35.43.433", "..............5."}, 8, 7);
    stage.drums({"9.....9...9.....", "", "5.5.5.5.5.5.5555", ""}, 15, 1);
    stage.breaks(Sound::breakHalf, Sound::breakHalf, 0, 15, 34);
    stage.steps(channel::perc, Sound::rim, "...3..4.....3...", 4, 11);
    stage.tomFill(7);
    stage.snareFill(15);
    stage.strike(8 * barRows, 46, 50);
    stage.bassLine(harmony, channel::bass, Sound::growl, "9..5....9.4...6.9.....59..4.6.59", 0, 8, 52);
    stage.voice(transposed(hook::question + hook::sequence, -31), Sound::growl, channel::bass, 8 * barRows, 56);
    stage.bassLine(harmony, channel::bass, Sound::growl, "9..5....9.4...6.9.....59..4.6.59", 12, 3, 52);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9....=....9..=..", 0, 16, 50);
    stage.pads(harmony, 0, 28);
    stage.pads(harmony, 8, 32);
    stage.pump(0, 15, 32, 8);
    stage.line(transposed(hook::call, 5), Sound::solo, 4 * barRows, 46);
    stage.line(transposed(hook::climb + hook::open, -7), Sound::lead, 12 * barRows, 46);
    stage.arpeggio(harmony, Sound::glass, "a..b..c..d..e...", 8, 7, 24);
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("G4"));
    stage.swellInto(stage.rows(), Sound::reverse, 16, 56);
}

} // namespace

void writeVoyage(Score& score) {
    weld(score);
    film(score);
    water(score);
    slime(score);
}

} // namespace lumenfold::art
