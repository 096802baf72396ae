#include "artwork/tunes/stage.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "artwork/tunes/parts.h"

namespace lumenfold::art {
namespace {

std::vector<Section> oneSection(int bars) {
    return {{"only", bars * barRows, 140, {}}};
}

TEST(Stage, ChordsByName) {
    EXPECT_EQ(parseChord("Dm9").tones, (std::vector<int>{4, 5, 9, 0}));
    EXPECT_EQ(parseChord("Bbmaj7").tones, (std::vector<int>{10, 2, 5, 9}));
    EXPECT_EQ(parseChord("C/E").bass, 4);
    EXPECT_THROW(parseChord("Dm77"), std::runtime_error);
    EXPECT_THROW(parseChord("H"), std::runtime_error);
}

TEST(Stage, PadsOpenHalfStepsIntoSevenths) {
    Score score(oneSection(2), channel::count);
    Stage stage(score, "only");
    stage.pads({"Bbmaj7", barRows}, 0, 40);
    const int expected[4] = {47, 51, 54, 58}; // B flat, D, F, A
    for (int voice = 0; voice < channel::padVoices; ++voice) {
        EXPECT_EQ(score.cell(0, channel::pad + voice).note, expected[voice]);
    }
}

TEST(Stage, FiguresFollowTheTurnFromTheSectionsStart) {
    Score score(oneSection(4), channel::count);
    Stage stage(score, "only");
    stage.bassLine({"C D E F", barRows}, channel::bass, Sound::bass, "9...............", 2, 2, 40);
    EXPECT_EQ(score.cell(barRows, channel::bass).note, 0);
    EXPECT_EQ((score.cell(2 * barRows, channel::bass).note - 1) % 12, 4);
    EXPECT_EQ((score.cell(3 * barRows, channel::bass).note - 1) % 12, 5);
}

TEST(Stage, LinesLetSustainedSoundsGoAndTailsRing) {
    Score score(oneSection(1), channel::count);
    Stage stage(score, "only");
    stage.voice("C5:4 D5:4", Sound::lead, channel::lead, 0, 40);
    stage.voice("C5:4 D5:4", Sound::bell, channel::texture, 0, 40);
    EXPECT_EQ(score.cell(8, channel::lead).note, xmKeyOff);
    EXPECT_EQ(score.cell(8, channel::texture).note, 0);
}

TEST(Stage, WhatFallsPastTheSectionIsLeftOut) {
    Score score({{"a", 8, 140, {}}, {"b", 8, 140, {}}}, channel::count);
    Stage stage(score, "a");
    stage.steps(channel::hat, Sound::hat, "9", 0, 1);
    EXPECT_NE(score.cell(7, channel::hat).note, 0);
    EXPECT_EQ(score.cell(8, channel::hat).note, 0);
}

// Loops must begin and join quietly, one-shots begin and end at zero: otherwise every note clicks.
TEST(Instruments, NoneClicks) {
    constexpr int quiet = 400;
    for (const XmInstrument& instrument : tuneInstruments()) {
        EXPECT_LT(std::abs(instrument.samples.front()), quiet) << instrument.name;
        if (instrument.loopLength > 0) {
            int steepest = 0;
            for (std::size_t i = 1; i < instrument.samples.size(); ++i) {
                steepest = std::max(steepest, std::abs(instrument.samples[i] - instrument.samples[i - 1]));
            }
            EXPECT_LE(std::abs(instrument.samples.front() - instrument.samples.back()), steepest) << instrument.name;
        } else {
            EXPECT_LT(std::abs(instrument.samples.back()), quiet) << instrument.name;
        }
    }
}

TEST(Tunes, StayWithinTheirChannelsAndReturnToTheirBody) {
    const XmSong demo = demoTune();
    EXPECT_EQ(demo.channels, channel::count);
    EXPECT_EQ(demo.patterns[demo.order[0]].cells[0].effect, xmSync);
    EXPECT_LT(demo.patterns[demo.order[0]].cells[0].parameter, 32);
    const XmSong end = endTune();
    for (std::size_t i = static_cast<std::size_t>(end.restart); i < end.order.size(); ++i) {
        for (const XmCell& cell : end.patterns[end.order[i]].cells) {
            EXPECT_NE(cell.effect, xmSync);
        }
    }
}

} // namespace
} // namespace lumenfold::art
