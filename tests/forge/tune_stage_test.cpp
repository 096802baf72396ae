#include "artwork/tunes/stage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

#include "artwork/tunes/parts.h"
#include "forge/fourier.h"

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

// A break is cut at every row, slowed so that a slice never ends before its row, and lets go at the end.
TEST(Stage, BreaksAreCutByTheRow) {
    for (const int tempo : {115, 136, 140}) {
        Score score({{"only", 3 * barRows, tempo, {}}}, channel::count);
        Stage(score, "only").breaks(Sound::breakPlain, Sound::breakBusy, 0, 2, 40);
        const XmCell& third = score.cell(3, channel::breaks);
        EXPECT_EQ(third.effect, 9);
        EXPECT_EQ(third.parameter * 256, 3 * breakStep);
        EXPECT_EQ(score.cell(barRows, channel::breaks).instrument, static_cast<int>(Sound::breakBusy));
        EXPECT_EQ(score.cell(2 * barRows, channel::breaks).note, xmKeyOff);
        const double slice = breakStep / (synth::sampleRate * power(2.0, (third.note - noteNumber("C4")) / 12.0));
        EXPECT_GE(slice, 15.0 / tempo * 0.999);
        EXPECT_LT(slice, 15.0 / tempo * 1.06);
    }
}

// What a curve adds above half the rate must not come back as a line between the harmonics.
TEST(Synth, ShapingDoesNotAlias) {
    constexpr std::size_t length = 1 << 14;
    constexpr std::size_t cycles = 1501; // 3065 hertz, whose sixth harmonic lies above half the rate
    synth::Samples loop(length);
    for (std::size_t i = 0; i < length; ++i)
        loop[i] = synth::cycleSine(static_cast<double>(cycles * i % length) / length);
    synth::shapeWith(loop, 3.0);
    std::vector<double> real = loop;
    std::vector<double> imaginary(length, 0.0);
    synth::transform(real, imaginary, false);
    const auto amplitude = [&](std::size_t bin) { return std::hypot(real[bin], imaginary[bin]); };
    for (std::size_t bin = 1; bin < length / 2; ++bin) {
        if (bin % cycles != 0) {
            ASSERT_LT(amplitude(bin), amplitude(cycles) * 0.0032) << bin; // -50 dB
        }
    }
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
