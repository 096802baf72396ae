#include "artwork/tunes/hook.h"
#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// Theme B lightly, the hardest section in C minor, and the hook in full, a whole tone higher: heard as a lift.

namespace lumenfold::art {
namespace {

// F, kick and clap from the first bar; the claps jump with the nameplate.
void pane(Score& score) {
    Stage stage(score, "8 pane");
    const Stage::Harmony lift{hook::liftChords, barRows};
    stage.hush();
    stage.drums({"9...9...9...9...", "....6.......6...", "5342534253425342", "..5...5...5...5."}, 0, 8);
    stage.drums({"9...9...9...9...", "....8.......8...", "6353635363536353", "..7...7...7...7."}, 8, 7);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, 8, 7, 28);
    stage.bassLine(lift, channel::bass, Sound::bass, "9..9=.....9=.4..", 0, 8, 50);
    stage.bassLine(lift, channel::bass, Sound::bass, "..9=..9=..9=..93", 8, 7, 52);
    stage.bassLine(lift, channel::sub, Sound::sub, "9..9=.....9..=..", 0, 8, 48);
    stage.bassLine(lift, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 8, 7, 48);
    stage.pads(lift, 0, 32);
    stage.pads(lift, 8, 36);
    stage.pump(0, 15, 40);
    stage.riff(hook::liftFirst + hook::liftSecond, 0, 46);
    stage.line(hook::liftFirst + hook::liftSecond, Sound::lead, 8 * barRows, 48);
    stage.arpeggio(lift, Sound::glass, "acbdecbdfcbdecbd", 8, 7, 24);
    stage.tomFill(7);
    stage.accents(sync::hit, Stage::Accent::light, noteNumber("A4"));
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("F4"));
    stage.roll(15 * barRows + 8, 8, 1, 20, 60);
    stage.swellInto(stage.rows(), Sound::riser, 32, 64);
}

// C minor, hard drums, the growl in sixteenths; the hook chopped; twelve blows into silence.
void tube(Score& score) {
    Stage stage(score, "9 tube", 84);
    const Stage::Harmony harmony{"Cm G/B Gm/Bb F/A Abmaj7 Eb/G Fm7 G7", barRows};
    const std::string kick = "9..9..9...9.9...9..9..9..99.9.9.";
    stage.hush();
    stage.drums({kick, "....9.......9.33", "6474647464746474", "..8...8...8...8.", Sound::hardKick}, 0, 8);
    stage.drums({"9...9...9...9.9.", "....9..3.3..9.35", "7575757575757575", "..8...8...8...8.", Sound::hardKick}, 8,
                8);
    stage.breaks(Sound::breakBusy, Sound::breakPlain, 0, 16, 46);
    stage.snareFill(3);
    stage.tomFill(7);
    stage.snareFill(11);
    for (int bar = 1; bar < 15; bar += 2) {
        stage.flutter(bar * barRows + 7, channel::hat, 2);
        stage.flutter(bar * barRows + 14, channel::hat, 3);
    }
    stage.bassLine(harmony, channel::bass, Sound::growl, "9.79.49.79.49.799.79.49.7949.794", 0, 8, 52);
    stage.bassLine(harmony, channel::bass, Sound::growl, "99799479979947999979.49.79494794", 8, 8, 54);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9..9..9...9.9.=.", 0, 16, 44);
    stage.stabs(harmony, "..6..6....6..6..", 4, 4, 40);
    stage.line(transposed(hook::question + hook::sequence, -2), Sound::lead, 8 * barRows, 50);
    stage.line(transposed(hook::question + hook::sequence, -2), Sound::lead, 12 * barRows, 52);
    for (int bar = 8; bar < 15; ++bar)
        stage.flutter(bar * barRows + 10, channel::lead, 3);
    stage.riff(transposed(repeatedWords(hook::riff, 4), -2), 0, 34);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.accent(row, Stage::Accent::heavy, noteNumber("C5"));
        for (const int number : {channel::bass, channel::hat, channel::glass})
            stage.clear(row + 1, 1, number);
        stage.note(row, channel::perc, Sound::tom, "C3", 62);
    }
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("C4"));
    stage.roll(15 * barRows + 6, 8, 1, 24, 60);
    stage.breakOff(15 * barRows + 13);
    stage.swellInto(stage.rows(), Sound::riser, 32, 64);
}

// The hook twice, the second time with its counter-voice and the call above it; closed, then D with its ninth rings.
void finale(Score& score) {
    Stage stage(score, "10 finale", 99);
    const Stage::Harmony fold{hook::foldHome, barRows};
    stage.hush();
    stage.drums({"9...9...9...9...", "....9.......9..3", "6354635463546354", "..8...8...8...8."}, 0, 8);
    stage.drums({"9...9...9...9..7", "....9..3.3..9.33", "7374737473747374", "..8...8...8...8."}, 8, 6);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, 0, 8, 46);
    stage.breaks(Sound::breakBusy, Sound::breakPlain, 8, 6, 50);
    stage.snareFill(7);
    stage.tomFill(3);
    stage.strike(4 * barRows, 0, 54);
    stage.strike(8 * barRows, 40, 56);
    stage.pads(fold, 0, 40);
    stage.pads({"Dm A/C# Am/C G/B Gm7 A7", barRows}, 8, 42);
    stage.pump(0, 14, 44);
    stage.bassLine(fold, channel::bass, Sound::bass, "..93..93..93..93", 0, 8, 56);
    const Stage::Harmony second{"Gm7 A7 Dm A/C# Am/C G/B", barRows}; // bar 8 of the section is its third chord
    stage.bassLine(second, channel::bass, Sound::bass, ".993.993.993.943", 8, 6, 56);
    stage.bassLine(fold, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 0, 8, 52);
    stage.bassLine(second, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 8, 6, 52);
    stage.line(hook::whole, Sound::lead, 0, 54);
    stage.voice(transposed(hook::whole, -12), Sound::choir, channel::texture, 0, 50);
    stage.voice(transposed(hook::whole, -12), Sound::lead, channel::second, 0, 40);
    stage.riff(repeatedWords(hook::riff, 4), 0, 28);
    stage.line(hook::question + hook::sequence + "A#5:3 A5:3 G5:2 F5:3 G5:3 A5:2 " + hook::closed, Sound::lead,
               8 * barRows, 56);
    stage.voice(hook::counter, Sound::choir, channel::texture, 8 * barRows, 50);
    stage.voice(transposed(hook::counter, -12), Sound::lead, channel::second, 8 * barRows, 40);
    stage.riff(transposed(hook::call, 12) + "-:16 " + transposed(hook::call, 12), 8 * barRows, 36);
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("D5"));

    const int last = 14 * barRows;
    stage.off(last, channel::lead);
    stage.off(last, channel::second);
    stage.accent(last, Stage::Accent::heavy, noteNumber("D5"));
    stage.pads({"Dadd9", 4 * barRows}, 14, 44, Sound::padLeft, Sound::choir);
    stage.note(last, channel::sub, Sound::sub, "D2", 50);
    stage.note(last, channel::texture, Sound::drone, "D2", 44);
    stage.note(last, channel::bass, Sound::bass, "D2", 36);
    stage.off(last + barRows, channel::bass);
    stage.line("D5:12 A5:12 B5:8 A5:16 E5:8", Sound::bell, 15 * barRows, 40);
    for (int voice = 0; voice < channel::padVoices; ++voice)
        stage.off(17 * barRows, channel::pad + voice);
    stage.off(17 * barRows, channel::sub);
}

// After the last advance: what is heard when the tune is played alone.
void ringingOut(Score& score) {
    Stage stage(score, "ringing out", 100);
    stage.hush();
    stage.note(0, channel::glass, Sound::bell, "D4", 40);
    stage.note(0, channel::glassEcho, Sound::bell, "A4", 26);
    stage.note(0, channel::impact, Sound::impact, "C4", 26);
    stage.note(barRows, channel::glass, Sound::bell, "A5", 24);
    stage.note(2 * barRows, channel::glassEcho, Sound::bell, "E5", 22);
    stage.note(3 * barRows, channel::glass, Sound::bell, "D5", 18);
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
