// The offline show over small random tunes, its scenes replaced by ones that draw nothing, beside a model of timeline
// and tune: which part is on screen in which frame, and which flags it sees.

#include "core/sync_state.h"
#include "core/sync_values.h"
#include "driver/run.h"
#include "effects/end_scroller.h"
#include "platform/offline/stage.h"
#include "tests/platform/tiny_xm.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace lumenfold {
namespace {

using test::TinyXm;

constexpr int fps = 25;
constexpr int lastFrame = 700; // a key press is waiting from here on
constexpr int scrollerFrames = 9;
constexpr int flagValues[] = {sync::pulse, sync::fadeOut, sync::hall, sync::hit, sync::dissolve, sync::swap};

struct Shown {
    std::int64_t frame;
    int part;
    std::set<int> flags; // by sync value

    bool operator==(const Shown& other) const {
        return frame == other.frame && part == other.part && flags == other.flags;
    }
};

std::ostream& operator<<(std::ostream& out, const Shown& shown) {
    out << "frame " << shown.frame << ": part " << shown.part;
    for (const int flag : shown.flags)
        out << " " << flag;
    return out;
}

// --- the tunes

enum Command : std::uint8_t { Jump = 0x0B, Break = 0x0D, Extended = 0x0E, SpeedOrTempo = 0x0F, Sync = 0x20 };

class Dice {
  public:
    explicit Dice(unsigned seed) : random(seed) {}
    int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
    bool once(int in) { return below(in) == 0; }

  private:
    std::mt19937 random;
};

std::uint8_t anyValue(Dice& dice) {
    if (dice.once(8))
        return static_cast<std::uint8_t>(34 + dice.below(2) * 200); // means nothing
    const int value = dice.below(2) == 0 ? dice.below(sync::firstFlag) : flagValues[dice.below(6)];
    return static_cast<std::uint8_t>(value);
}

// Ticks of whole samples at 48 kHz, so that rows start where the model says.
std::uint8_t anyTempo(Dice& dice) {
    constexpr std::uint8_t tempos[] = {48, 75, 100, 125, 160, 200, 250};
    return tempos[dice.below(7)];
}

// Speed and tempo stand in each pattern's first row: players differ in what they keep when a tune starts again.
TinyXm anyTune(Dice& dice) {
    TinyXm tune;
    const int patterns = 1 + dice.below(4);
    for (int length = 1 + dice.below(5); length > 0; --length)
        tune.order.push_back(static_cast<std::uint8_t>(dice.below(patterns)));
    for (int pattern = 0; pattern < patterns; ++pattern) {
        const int rows = 4 + dice.below(13);
        tune.rows.push_back(rows);
        const auto add = [&](int row, int channel, std::uint8_t effect, int parameter) {
            tune.commands.push_back({pattern, row, channel, effect, static_cast<std::uint8_t>(parameter)});
        };
        add(0, 2, SpeedOrTempo, 1 + dice.below(6));
        add(0, 3, SpeedOrTempo, anyTempo(dice));
        for (int row = 1; row < rows; ++row) {
            if (dice.once(3))
                add(row, 0, Sync, anyValue(dice));
            if (dice.once(8)) // a burst
                for (const int channel : {1, 2})
                    add(row, channel, Sync, anyValue(dice));
            else if (dice.once(6))
                add(row, 2, SpeedOrTempo, anyTempo(dice));
        }
        switch (dice.below(4)) { // one way through each pattern
        case 0:
            add(1 + dice.below(rows - 1), 3, Jump, dice.below(static_cast<int>(tune.order.size())));
            break;
        case 1:
            add(1 + dice.below(rows - 1), 3, Break, dice.below(3));
            break;
        case 2:
            add(rows - 1 - dice.below(2), 3, Extended, 0x61 + dice.below(4)); // so many times more from row 0
            break;
        default:
            break;
        }
    }
    return tune;
}

// --- the model

struct Heard {
    std::int64_t position; // samples from the tune's start
    int value;
};

// The sync commands of a tune, up to the length of the show.
std::vector<Heard> played(const TinyXm& tune) {
    std::vector<Heard> heard;
    std::int64_t position = 0;
    std::size_t order = 0;
    int row = 0;
    int speed = tune.speed;
    int tempo = tune.tempo;
    int loops = 0; // still to come
    bool looping = false;
    while (position < static_cast<std::int64_t>(lastFrame + 100) * soundRate / fps) {
        const int pattern = tune.order[order];
        const test::Command* way = nullptr;
        for (int channel = 0; channel < tune.channels; ++channel)
            for (const test::Command& command : tune.commands) {
                if (command.pattern != pattern || command.row != row || command.channel != channel)
                    continue;
                if (command.effect == Sync)
                    heard.push_back({position, command.parameter});
                else if (command.effect == SpeedOrTempo)
                    (command.parameter < 32 ? speed : tempo) = command.parameter;
                else
                    way = &command;
            }
        position += static_cast<std::int64_t>(speed) * (soundRate * 5 / (tempo * 2));
        bool leave = ++row == tune.rows[static_cast<std::size_t>(pattern)];
        std::size_t next = order + 1;
        int nextRow = 0;
        if (way != nullptr && way->effect == Extended) {
            loops = looping ? loops - 1 : way->parameter & 15;
            looping = loops > 0;
            if (looping) {
                row = 0;
                leave = false;
            }
        } else if (way != nullptr) {
            leave = true;
            if (way->effect == Jump)
                next = way->parameter;
            else
                nextRow = way->parameter;
        }
        if (!leave)
            continue;
        order = next < tune.order.size() ? next : tune.restart;
        row = nextRow < tune.rows[tune.order[order]] ? nextRow : 0;
    }
    return heard;
}

// The demo's course, step by step.
class Model {
  public:
    std::vector<Shown> run(const TinyXm& demo, const TinyXm& end) {
        for (const SceneRow& row : sceneTable())
            frame += row.barWidth > 0 ? 1 : 0;
        start(demo);
        while (frame < lastFrame && part != finishedPart) {
            while (part == 0 && frame < lastFrame)
                present();
            for (int n = 1; n <= mainParts; ++n) {
                while (part == n && frame < lastFrame)
                    show(n);
                if (n <= 3) {
                    flags.clear();
                    part = static_cast<std::uint8_t>(n + 1);
                }
            }
            start(end);
            while (rolled < scrollerFrames && frame < lastFrame) {
                ++rolled;
                show(scrollerPart);
            }
        }
        return shown;
    }

  private:
    void start(const TinyXm& tune) {
        coming = played(tune);
        next = 0;
        tuneStart = soundAt();
        hear();
    }
    void show(int n) {
        shown.push_back({frame, n, flags});
        if (n % 2 == 1)
            flags.erase(sync::hit);
        present();
    }
    void present() {
        ++frame;
        hear();
    }
    void hear() {
        for (; next < coming.size() && tuneStart + coming[next].position <= soundAt(); ++next) {
            const int value = coming[next].value;
            if (value < 32)
                ++part;
            else if (std::count(std::begin(flagValues), std::end(flagValues), value) > 0)
                flags.insert(value);
        }
    }
    std::int64_t soundAt() const { return frame * soundRate / fps; }

    std::vector<Shown> shown;
    std::int64_t frame = 0;
    std::uint8_t part = 0;
    std::set<int> flags;
    std::vector<Heard> coming;
    std::size_t next = 0;
    std::int64_t tuneStart = 0;
    int rolled = 0;
};

// --- the show

std::vector<Shown> seen;

template <std::size_t index>
void emptyScene(FrameInfo, EffectCommand command, Pixel32*, float) {
    if (command != EffectCommand::Render)
        return;
    const int part = sceneTable().at(index).part;
    const SyncByte* const bytes[] = {&syncState.syncFlag32, &syncState.syncFlag33, &syncState.syncFlag36,
                                     &syncState.syncFlag37, &syncState.syncFlag39, &syncState.syncFlag59};
    std::set<int> flags;
    for (std::size_t i = 0; i < std::size(flagValues); ++i)
        if (*bytes[i] != 0)
            flags.insert(flagValues[i]);
    seen.push_back({stage().frameNumber(), part, flags});
    if (part % 2 == 1)
        syncState.syncFlag37 = 0;
    if (part == scrollerPart && std::count_if(seen.begin(), seen.end(), [](const Shown& shown) {
                                    return shown.part == scrollerPart;
                                }) == scrollerFrames)
        endScrollDone = 1;
}

template <std::size_t... indices>
SceneTable emptyTable(std::index_sequence<indices...>) {
    const Effect scenes[] = {emptyScene<indices>...};
    SceneTable table = sceneTable();
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i].effect = scenes[i];
    return table;
}

struct KeyAtTheEnd : FrameSink {
    void frame(std::int64_t number, const Pixel32*, std::int32_t, std::int32_t) override {
        if (number == lastFrame - 1)
            stage().pressKey();
    }
    void sound(const float*, std::size_t) override {}
    void sync(std::int64_t, const SyncCommand&) override {}
};

TEST(RandomTunes, DriveTheShowAsTheModelSays) {
    const std::filesystem::path before = std::filesystem::current_path();
    const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "random_tunes";
    std::filesystem::create_directories(folder);
    std::filesystem::current_path(folder);
    const SceneTable table = emptyTable(std::make_index_sequence<40>());
    std::set<int> parts;
    for (unsigned seed = 1; seed <= 40 && !HasFailure(); ++seed) {
        Dice dice(seed);
        const TinyXm demo = anyTune(dice);
        const TinyXm end = anyTune(dice);
        demo.write("bzzzz.xm");
        end.write("endtune.xm");
        seen.clear();
        KeyAtTheEnd sink;
        stage().begin(&sink, fps);
        EXPECT_EQ(enterProgram(table), 0);
        const std::vector<Shown> expected = Model().run(demo, end);
        EXPECT_EQ(seen.size(), expected.size()) << "seed " << seed;
        for (std::size_t i = 0; i < std::min(seen.size(), expected.size()) && !HasFailure(); ++i)
            EXPECT_EQ(seen[i], expected[i]) << "seed " << seed;
        for (const Shown& shown : seen)
            parts.insert(shown.part);
    }
    EXPECT_EQ(parts.size(), static_cast<std::size_t>(scrollerPart)); // every part has had its turn
    std::filesystem::current_path(before);
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace lumenfold
