#include "artwork/tunes/parts.h"
#include "artwork/tunes/stage.h"

// A light interlude, the hardest section on D and E flat, and the motif in full, from D minor into D major.

namespace lumenfold::art {
namespace {

// F with its bright second; claps jump with the nameplate.
void pane(Score& score) {
    Stage stage(score, "8 pane");
    const std::string turn = "Fmaj9 G Am7 Em7 Fmaj9 G Am7 C/G";
    const Stage::Harmony harmony{turn, barRows};
    stage.hush();
    stage.strike(0, 44, 46);
    stage.drums({"8.......8.......", "", "4.3.4.3.4.3.4.3.", ""}, 0, 4);
    stage.drums({"9.....6.9.......", "", "5342534253425342", "..4...4...4...4."}, 4, 4);
    stage.drums({"9...9...9...9...", "", "5353535353535353", "..6...6...6...6."}, 8, 6);
    stage.drums({"9...9...9...9...", "", "6666666666666666", ""}, 14, 1);
    stage.steps(channel::perc, Sound::rim, "..5..5....5..3....5..5.5..4..3.3", 0, 14);
    stage.arpeggio(harmony, Sound::glass, "a.bdc.bde.bdc.b.", 0, 4, 32);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdecbd", 4, 8, 34);
    stage.arpeggio(harmony, Sound::glass, "aecfbgdhgfedcbac", 12, 3, 34);
    stage.bassLine(harmony, channel::bass, Sound::bass, "9..9=.....9=.4..", 4, 4, 42);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..9=..9=..9=..93", 8, 7, 44);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9..9=.....9..=..", 0, 8, 42);
    stage.bassLine(harmony, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 8, 7, 42);
    stage.pads({"Fmaj9 G Am7 C/G " + turn, barRows}, 4, 36);
    stage.pump(4, 11, 40);
    stage.line("C5:12 G5:12 A5:8 G5:16 D5:16", Sound::bell, 4 * barRows, 38);
    stage.line("C5:6 G5:6 A5:4 G5:8 D5:8 E5:6 G5:6 C6:4 B5:16 A5:6 C6:6 E6:4 D6:12 B5:4 C6:6 A5:6 E5:20", Sound::solo,
               8 * barRows, 40);
    stage.strike(8 * barRows, 40, 48);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.note(row, channel::snare, Sound::clap, 49, 64);
        stage.note(row, channel::stab, Sound::stab, row / barRows % 2 == 0 ? "A4" : "G4", 30);
    }
    stage.roll(15 * barRows + 8, 8, 1, 16, 56);
    stage.swellInto(stage.rows(), Sound::riser, 32, 64);
}

// Distorted drums, the growl in sixteenths, a flat second that leans on everything; twelve blows.
void tube(Score& score) {
    Stage stage(score, "9 tube");
    const Stage::Harmony harmony{"Dm Dm Eb Dm Dm Dm Eb C", barRows};
    const std::string kick = "9..9..9...9.9...9..9..9..99.9.9.";
    stage.hush();
    stage.strike(0, 64, 64);
    stage.drums({kick, "....9.......9.33", "6474647464746474", "..8...8...8...8.", Sound::hardKick}, 0, 8);
    stage.drums({"9...9...9...9.9.", "....9..3.3..9.35", "7575757575757575", "..9...9...9...9.", Sound::hardKick}, 8,
                8);
    stage.snareFill(3);
    stage.tomFill(7);
    stage.snareFill(11);
    for (int bar = 1; bar < 15; bar += 2) {
        stage.flutter(bar * barRows + 7, channel::hat, 2);
        stage.flutter(bar * barRows + 14, channel::hat, 3);
    }
    stage.bassLine(harmony, channel::bass, Sound::growl, "9.79.49.79.49.799.79.49.7949.794", 0, 8, 48);
    stage.bassLine(harmony, channel::bass, Sound::growl, "99799479979947999979.49.79494794", 8, 8, 50);
    stage.bassLine(harmony, channel::sub, Sound::sub, "9..9..9...9.9.=.", 0, 16, 38);
    stage.stabs(harmony, "..6..6....6..6..", 4, 4, 40);
    stage.stabs(harmony, "6.6..6..6.6..6.6", 8, 8, 42);
    stage.arpeggio(harmony, Sound::glass, "aaeaaeaaeaaeaaea", 4, 4, 30);
    stage.arpeggio(harmony, Sound::glass, "aceacebdfbdfaceg", 8, 8, 36);
    stage.line("D5:6 A5:6 A#5:4 A5:8 E5:8 D#5:6 A#5:6 C6:4 A5:8 D6:8", Sound::lead, 8 * barRows, 44);
    stage.line("D6:6 A5:6 A#5:4 A5:8 E5:8 G5:6 A#5:6 D#6:4 D6:8 C6:8", Sound::lead, 12 * barRows, 46);
    stage.voice("D5:32 D#5:16 D5:16 A5:32 G5:16 E5:16", Sound::choir, channel::texture, 8 * barRows, 34);
    for (const int row : stage.rowsOf(sync::hit)) {
        stage.strike(row, 52, 56);
        stage.note(row, channel::perc, Sound::tom, "A3", 60);
    }
    stage.roll(15 * barRows + 6, 8, 1, 24, 60);
    stage.breakOff(15 * barRows + 13);
    stage.swellInto(stage.rows(), Sound::riser, 32, 64);
}

// The motif over every chord of the tune; the last chord turns to major and is left to ring.
void finale(Score& score) {
    Stage stage(score, "10 finale");
    const Stage::Harmony harmony{"Dm9 Bbmaj9 F C Gm9 Bb C A7 Dm9 Bbmaj9 F C Bb C", barRows};
    stage.hush();
    stage.strike(0, 64, 64);
    stage.drums({"9...9...9...9...", "....9.......9..3", "6354635463546354", "..7...7...7...7."}, 0, 8);
    stage.drums({"9...9...9...9..7", "....9..2.2..9.23", "7364736473647364", "..8...8...8...8."}, 8, 6);
    stage.snareFill(7);
    stage.snareFill(13);
    stage.tomFill(3);
    stage.steps(channel::perc, Sound::rim, "..3..3....3..4..", 4, 3);
    stage.strike(4 * barRows, 0, 50);
    stage.strike(8 * barRows, 52, 58);
    stage.pads(harmony, 0, 46);
    stage.pump(0, 14, 48);
    stage.bassLine(harmony, channel::bass, Sound::bass, "..93..93..93..93", 0, 8, 52);
    stage.bassLine(harmony, channel::bass, Sound::bass, ".993.993.993.943", 8, 6, 52);
    stage.bassLine(harmony, channel::sub, Sound::sub, "=.9.=.9.=.9.=.9.", 0, 14, 48);
    stage.arpeggio(harmony, Sound::glass, "acbdecbdfcbdgcfd", 0, 8, 34);
    stage.arpeggio(harmony, Sound::glass, "aecfbgdhgfedcbac", 8, 6, 38);
    stage.voice("A5:16 D5:16 C5:16 G5:16 G5:16 F5:16 G5:16 C#5:16 A5:16 D5:16 A5:16 G5:16 D6:16 E6:16", Sound::choir,
                channel::texture, 0, 36);
    stage.line(motif("D", false, 5) + "F5:6 C6:6 D6:4 C6:8 G5:8 D5:6 A5:6 A#5:4 D6:8 F5:8 G5:12 E5:4 A5:16",
               Sound::lead, 0, 48);
    stage.line(motif("D", false, 6) + "F5:6 C6:6 D6:4 C6:8 G5:8 A#5:8 D6:8 C6:8 E6:8 F#6:28", Sound::lead, 8 * barRows,
               48);

    const int last = 14 * barRows;
    stage.strike(last, 54, 60);
    stage.note(last, channel::kick, Sound::kick, 49, 64);
    stage.note(last, channel::snare, Sound::snare, 49, 60);
    stage.pads({"Dadd9", 4 * barRows}, 14, 38, Sound::padLeft, Sound::choir);
    stage.note(last, channel::sub, Sound::sub, "D2", 48);
    stage.note(last, channel::texture, Sound::drone, "D2", 44);
    stage.note(last, channel::bass, Sound::bass, "D2", 36);
    stage.off(last + barRows, channel::bass);
    stage.arpeggio({"Dadd9", barRows}, Sound::glass, "abcdefgh........", 14, 1, 40);
    stage.line("D5:12 A5:12 B5:8 A5:16 E5:8", Sound::bell, 15 * barRows, 38);
    for (int voice = 0; voice < channel::padVoices; ++voice) {
        stage.off(17 * barRows, channel::pad + voice);
    }
    stage.off(17 * barRows, channel::sub);
}

// Behind the last advance: what is heard when the tune is played alone.
void ringingOut(Score& score) {
    Stage stage(score, "ringing out");
    stage.hush();
    stage.note(0, channel::glass, Sound::bell, "D4", 34);
    stage.note(0, channel::glassEcho, Sound::bell, "A4", 22);
    stage.note(barRows, channel::glass, Sound::bell, "D5", 24);
    stage.note(2 * barRows, channel::glassEcho, Sound::bell, "D6", 12);
    stage.note(2 * barRows, channel::impact, Sound::impact, "A3", 12);
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
