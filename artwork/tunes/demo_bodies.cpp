#include "artwork/tunes/hook.h"
#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// Still D minor: a new ground for every body, then techno over a pedal, then theme B wide open.

namespace lumenfold::art {
namespace {

// Four bars a body: bass alone, the riff, half time with the choir, double time with the hook's answer, the call.
void bodies(Score& score) {
    Stage stage(score, "3 bodies", 98);
    const Stage::Harmony fold{hook::fold, barRows};
    const std::string kick = "9.....6..8......9..6..6..8....7.";
    stage.hush();
    stage.drums({kick, "....8.......8...", "5233523352335233", ""}, 0, 4);
    stage.drums({kick, "....9..2....9.2.", "6243624362436243", "..5...5...5...5."}, 4, 4);
    stage.drums({"9.........7.....", "........9.......", "4.2.3.2.4.2.3.22", ""}, 8, 4);
    stage.drums({"9...9...9...9...", "....9..3.3..9.33", "7354735473547354", "..7...7...7...7."}, 12, 4);
    stage.drums({"9...9...9...9...", "....9.......9...", "6243624362436243", ""}, 16, 2);
    stage.drums({"9.......9.......", "", "4.3.4.3.4.3.4.3.", ""}, 18, 1);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, 0, 8, 42);
    stage.breaks(Sound::breakHalf, Sound::breakHalf, 8, 4, 34);
    stage.breaks(Sound::breakBusy, Sound::breakPlain, 12, 6, 46);
    for (const int bar : {7, 15})
        stage.snareFill(bar);
    stage.tomFill(11);
    stage.bassLine(fold, channel::bass, Sound::growl, "9.=9.=6.39=..69.", 0, 4, 48);
    stage.bassLine(fold, channel::bass, Sound::bass, "9.=9.=6.39=..36993=9.=6.39=.6.46", 4, 4, 50);
    stage.bassLine(fold, channel::bass, Sound::bass, "9.....=.7....=..", 8, 4, 50);
    stage.bassLine(fold, channel::bass, Sound::bass, "..9.3.9...9.3.99", 12, 6, 52);
    stage.bassLine(fold, channel::sub, Sound::sub, "9....=..9....=..", 0, 18, 50);
    stage.riff(repeatedWords(hook::riff, 2), 4 * barRows, 44);
    stage.pads(fold, 8, 44, Sound::choir, Sound::padRight);
    stage.pads(fold, 16, 34);
    stage.pump(8, 10, 40);
    stage.voice(stretched(hook::question, 2), Sound::choir, channel::texture, 8 * barRows, 46);
    stage.line(hook::climb + hook::open, Sound::lead, 12 * barRows, 50);
    stage.line(hook::call, Sound::bell, 16 * barRows, 44);
    stage.riff(hook::riff, 12 * barRows, 26);
    stage.riff(hook::riff, 14 * barRows, 26);
    for (int voice = 0; voice < channel::padVoices; ++voice)
        stage.off(18 * barRows, channel::pad + voice);
    stage.off(19 * barRows, channel::sub);
    stage.off(18 * barRows, channel::bass);
    stage.accents(sync::hit, Stage::Accent::strong, noteNumber("D5"));
    stage.accents(sync::swap, Stage::Accent::heavy, noteNumber("D4"));
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("D4"));
    stage.accents(sync::fadeOut, Stage::Accent::heavy, noteNumber("A4"));
    stage.swellInto(stage.rows(), Sound::riser, 32, 60);
}

// Four to the floor on D; the chords climb and fall over it. Each hit throws the picture back.
void twinTunnels(Score& score) {
    Stage stage(score, "4 twin tunnels");
    const Stage::Harmony pedal{"Dm", barRows};
    const Stage::Harmony ladder{"Dm Eb/D F/D G/D", barRows};
    stage.hush();
    stage.drums({"9...9...9...9...", "", "", "..7...7...7...7."}, 0, 4);
    stage.drums({"9...9...9...9...", "....8.......8...", "4243424342434243", "..7...7...7...7."}, 4, 4);
    stage.drums({"9...9...9...9...", "....9.......9..2", "5354535453545354", "..7...7...7...7."}, 8, 4);
    stage.drums({"9...9...9...9.6.", "....9..2.2..9.23", "6364636463646364", "..7...7...7...7."}, 12, 3);
    stage.drums({"9...9...........", "", "", ""}, 15, 1);
    stage.breaks(Sound::breakPlain, Sound::breakBusy, 4, 11, 34);
    stage.bassLine(pedal, channel::bass, Sound::bass, "..9.9=39=.9=4.9=", 0, 4, 50);
    stage.bassLine(pedal, channel::bass, Sound::bass, "..9.9=39=.9=4.9=..993=9.=49.3=99", 4, 4, 50);
    stage.bassLine(pedal, channel::bass, Sound::growl, ".9939.39.9939.49", 8, 7, 46);
    stage.bassLine(pedal, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 0, 15, 48);
    stage.riff(repeatedWords(hook::riff, 2), 4 * barRows, 38);
    stage.riff(repeatedWords(hook::riff, 3), 8 * barRows, 42);
    stage.stabs(ladder, "9..9..9...9.6...", 8, 7, 24);
    stage.line(hook::question, Sound::lead, 8 * barRows, 40);
    stage.line(hook::question, Sound::lead, 12 * barRows, 46);
    stage.accents(sync::hit, Stage::Accent::heavy, noteNumber("D5"));
    stage.accents(sync::advance, Stage::Accent::heavy, noteNumber("D4"));
    stage.accents(sync::swap, Stage::Accent::heavy);
    stage.roll(15 * barRows + 11, 5, 1, 30, 62);
    stage.swellInto(stage.rows(), Sound::riser, 32, 62);
}

// White, then everything at once: theme B whole, its second half again, and a stop that rings.
void rayTunnel(Score& score) {
    Stage stage(score, "4 ray tunnel", 90);
    const std::string last = "F/A Bb Gm7 C7";
    const Stage::Harmony lift{hook::liftChords + " " + last, barRows};
    const int stop = stage.rowsOf(sync::swap).front();
    stage.hush();
    stage.drums({"9...9...9...9...", "....9.......9..3", "6354635463546354", "..7...7...7...7."}, 0, 8);
    stage.drums({"9...9...9...9..7", "....9..2.2..9.23", "7364736473647364", "..8...8...8...8."}, 8, 4);
    stage.breaks(Sound::breakBusy, Sound::breakPlain, 0, 12, 36);
    stage.snareFill(3);
    stage.tomFill(7);
    for (const int bar : {4, 8})
        stage.strike(bar * barRows, 30, 54);
    stage.pads(lift, 0, 38);
    stage.pump(0, 12, 42);
    stage.bassLine(lift, channel::bass, Sound::bass, "..93..93..93..93", 0, 8, 54);
    stage.bassLine(lift, channel::bass, Sound::bass, ".993.993.993.943", 8, 4, 54);
    stage.bassLine(lift, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 0, 12, 52);
    stage.arpeggio(lift, Sound::glass, "acbdecbdfcbdgcfd", 0, 12, 28);
    stage.line(hook::liftFirst + hook::liftSecond + hook::liftSecond, Sound::lead, 0, 52);
    stage.voice("F5:16 E5:16 D5:16 D5:16 A5:16 A#5:16 G5:16 E5:16 A5:16 A#5:16 A#5:16 C6:16", Sound::choir,
                channel::texture, 0, 36);
    stage.breakOff(stop);
    stage.accents(sync::pulse, Stage::Accent::heavy, noteNumber("F5"));
    stage.accents(sync::swap, Stage::Accent::heavy);
    stage.note(stop, channel::glass, Sound::bell, "C5", 46);
    stage.note(stop + 6, channel::glass, Sound::bell, "G5", 30);
    stage.note(stop, channel::texture, Sound::drone, "C2", 40);
    stage.swellInto(stage.rows(), Sound::reverse, 15, 46);
}

} // namespace

void writeBodies(Score& score) {
    bodies(score);
    twinTunnels(score);
    rayTunnel(score);
}

} // namespace lumenfold::art
