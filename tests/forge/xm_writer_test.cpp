#include "forge/xm_writer.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "forge/score.h"
#include "forge/tune_listen.h"
#include "tests/support/temporary_file.h"

namespace lumenfold::art {
namespace {

using Bytes = std::vector<std::uint8_t>;

int u16(const Bytes& bytes, std::size_t at) {
    return bytes.at(at) | bytes.at(at + 1) << 8;
}

int u32(const Bytes& bytes, std::size_t at) {
    return u16(bytes, at) | u16(bytes, at + 2) << 16;
}

XmInstrument tick() {
    XmInstrument instrument;
    instrument.name = "tick";
    instrument.samples = {100, -32768, 32767};
    instrument.loopStart = 1;
    instrument.loopLength = 2;
    return instrument;
}

// One pattern of two rows and two channels.
XmSong smallSong() {
    XmSong song;
    song.name = "small";
    song.channels = 2;
    song.order = {0, 0};
    song.patterns = {{2, std::vector<XmCell>(4)}};
    song.patterns[0].cells[0] = {49, 1, 0x50, 0x20, 0x01};
    song.patterns[0].cells[3] = {0, 0, 0, 0x20, 0x25};
    song.instruments = {tick()};
    return song;
}

constexpr std::size_t patternAt = 60 + 276;

TEST(XmWriter, HeaderCountsWhatFollows) {
    XmSong song = smallSong();
    song.restart = 1;
    song.tempo = 140;
    const Bytes bytes = writeXm(song);
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 17), "Extended Module: ");
    EXPECT_EQ(bytes[37], 0x1a);
    EXPECT_EQ(u16(bytes, 58), 0x104);
    EXPECT_EQ(u32(bytes, 60), 276);
    EXPECT_EQ(u16(bytes, 64), 2); // orders
    EXPECT_EQ(u16(bytes, 66), 1); // restart
    EXPECT_EQ(u16(bytes, 68), 2); // channels
    EXPECT_EQ(u16(bytes, 70), 1); // patterns
    EXPECT_EQ(u16(bytes, 72), 1); // instruments
    EXPECT_EQ(u16(bytes, 78), 140);
}

TEST(XmWriter, PacksOnlyTheFieldsThatAreSet) {
    const Bytes bytes = writeXm(smallSong());
    const Bytes expected{0x80 | 31, 49, 1, 0x50, 0x20, 0x01, 0x80, 0x80, 0x80 | 24, 0x20, 0x25};
    ASSERT_EQ(u32(bytes, patternAt), 9);
    EXPECT_EQ(u16(bytes, patternAt + 5), 2);
    ASSERT_EQ(u16(bytes, patternAt + 7), static_cast<int>(expected.size()));
    EXPECT_EQ(Bytes(bytes.begin() + patternAt + 9, bytes.begin() + patternAt + 9 + 11), expected);
}

TEST(XmWriter, SamplesAreDifferencesThatWrap) {
    const Bytes bytes = writeXm(smallSong());
    const std::size_t sample = patternAt + 9 + 11 + 263;
    EXPECT_EQ(u32(bytes, sample), 6);
    EXPECT_EQ(u32(bytes, sample + 4), 2);
    EXPECT_EQ(u32(bytes, sample + 8), 4);
    EXPECT_EQ(bytes[sample + 14], 16 | 1);
    ASSERT_EQ(bytes.size(), sample + 40 + 6);
    int value = 0;
    for (std::size_t i = 0; i < 3; ++i) {
        value = static_cast<std::int16_t>(value + u16(bytes, sample + 40 + 2 * i));
        EXPECT_EQ(value, tick().samples[i]);
    }
}

// Two samples at their own pitch: the player must take the second one from its lowest key on.
TEST(XmWriter, KeysPlayTheSampleOfTheirZone) {
    const auto square = [](std::int16_t height) {
        std::vector<std::int16_t> wave(4096);
        for (std::size_t i = 0; i < wave.size(); ++i)
            wave[i] = i / 32 % 2 == 0 ? height : static_cast<std::int16_t>(-height);
        return wave;
    };
    XmSong song = smallSong();
    song.order = {0};
    XmInstrument& instrument = song.instruments[0];
    instrument.samples = square(12000);
    instrument.loopStart = 0;
    instrument.loopLength = 4096;
    instrument.zones = {{50, square(3000), 0, 0}};
    const auto peakOf = [&](int note) {
        song.patterns[0] = {64, std::vector<XmCell>(128)};
        song.patterns[0].cells[0] = {static_cast<std::uint8_t>(note), 1, 0x50, 0, 0};
        const test::TemporaryFile file("zones.xm", writeXm(song));
        return listen(file.name()).peak;
    };
    EXPECT_GT(peakOf(49) - peakOf(50), 6.0); // dB; players smooth the edges, the key map alone makes the difference
    song.instruments[0].zones = {{50, square(3000), 0, 0}, {50, square(3000), 0, 0}};
    EXPECT_THROW(writeXm(song), std::runtime_error);
    song.instruments[0].zones = {{50, {1, 2}, 0, 0}}; // shorter than the loop all share
    EXPECT_THROW(writeXm(song), std::runtime_error);
}

TEST(XmWriter, RefusesWhatTheFormatCannotHold) {
    const auto broken = [](void (*breakIt)(XmSong&)) {
        XmSong song = smallSong();
        breakIt(song);
        EXPECT_THROW(writeXm(song), std::runtime_error);
    };
    broken([](XmSong& song) { song.order = {1}; });
    broken([](XmSong& song) { song.restart = 2; });
    broken([](XmSong& song) { song.patterns[0].rows = 3; });
    broken([](XmSong& song) { song.instruments[0].loopLength = 3; });
    broken([](XmSong& song) { song.instruments[0].samples.clear(); });
}

TEST(Score, CutsAtSectionsAndStoresEqualPatternsOnce) {
    const std::vector<Section> sections = {{"a", 7, 136, {{0, sync::advance}}},
                                           {"b", 80, 140, {}},
                                           {"c", 64, 140, {}},
                                           {"d", 64, 140, {{3, sync::hit}}},
                                           {"e", 64, 140, {}}};
    Score score(sections, 4);
    score.cell(7 + 64, 3) = {49, 2, 0, 0, 0};
    const XmSong song = score.toSong("cut", "c", {tick(), tick()});
    // b's first 64 rows carry the change of tempo, so that they differ from c's
    EXPECT_EQ(song.order, (std::vector<std::uint8_t>{0, 1, 2, 3, 4, 3}));
    EXPECT_EQ(song.restart, 3);
    EXPECT_EQ(song.patterns[2].rows, 16);
    EXPECT_EQ(song.patterns[2].cells[3].instrument, 1); // the first one, which nothing plays, is gone
    EXPECT_EQ(song.instruments.size(), 1U);
    EXPECT_EQ(song.patterns[4].cells[3 * 4].effect, xmSync);
    EXPECT_EQ(song.patterns[4].cells[3 * 4].parameter, sync::hit);
}

TEST(Score, NotesByName) {
    EXPECT_EQ(noteNumber("C4"), 49);
    EXPECT_EQ(noteNumber("C-4"), 49);
    EXPECT_EQ(noteNumber("A#0"), 11);
    EXPECT_EQ(noteNumber("Bb0"), 11);
    EXPECT_THROW(noteNumber("H4"), std::runtime_error);
    EXPECT_THROW(noteNumber("C9"), std::runtime_error);
}

// Players hold a tick to whole samples: the scenes' lengths must fit at every usual rate.
TEST(Choreography, FitsTheScenesAtEveryRate) {
    for (const int rate : {44100, 48000, 96000}) {
        for (const TuneCheck& check : checkTimeline(rate)) {
            EXPECT_TRUE(check.holds()) << check.what << ": " << check.measured << " at " << rate;
        }
    }
}

// Parts 1 to 3 and the switch inside part 4 zero every flag, so nothing else may stand where they end.
TEST(Choreography, NoCommandStandsWhereFlagsAreZeroed) {
    for (const Section& section : demoSections()) {
        int inFirstRow = 0;
        for (const SyncEvent& event : section.events) {
            EXPECT_LT(event.row, section.rows) << section.name;
            inFirstRow += event.row == 0 ? 1 : 0;
        }
        EXPECT_LE(inFirstRow, 1) << section.name;
    }
}

TEST(Choreography, ThePlayerHearsTheCommandsWhereTheTablePutsThem) {
    const std::vector<Section> sections = {{"a", 5, 136, {{0, sync::advance}, {4, sync::dissolve}}},
                                           {"b", 70, 140, {{66, sync::hit}}}};
    Score score(sections, 4);
    score.cell(0, 2) = {49, 1, 0, 0, 0};
    const test::TemporaryFile file("heard.xm", writeXm(score.toSong("heard", "a", {tick()})));
    const HeardTune tune = listen(file.name());
    ASSERT_EQ(tune.syncs.size(), 3U);
    const int rows[3] = {0, 4, 71};
    const int values[3] = {sync::advance, sync::dissolve, sync::hit};
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(tune.syncs[i].value, values[i]);
        EXPECT_NEAR(tune.syncs[i].seconds, secondsAtRow(sections, rows[i], 48000), 0.002);
    }
}

} // namespace
} // namespace lumenfold::art
