#include "tests/driver/fake_world.h"

#include "core/effect.h"
#include "driver/clock.h"
#include "driver/error_text.h"
#include "driver/midas.h"
#include "driver/music.h"
#include "driver/run.h"
#include "effects/end_scroller.h"
#include "render/depth_buffer.h"

#include <array>
#include <cstdio>
#include <gtest/gtest.h>
#include <utility>

namespace lumenfold {

using test::world;

namespace test {

FakeWorld world;

namespace {

void note(const std::string& what) {
    world.trace += (world.trace.empty() ? "" : " ") + what;
}

void play(int part, int frame) {
    for (const Event& event : world.script) {
        if (event.part != part || event.frame != frame)
            continue;
        if (event.value == keyPress)
            world.key = true;
        else
            musicSyncCallback(static_cast<std::uint32_t>(event.value), 0, 0);
    }
}

void fakeScene(const SceneRow& row, EffectCommand command, Pixel32* pixels, float time) {
    const std::string label = row.part == noPart ? row.name : std::to_string(row.part);
    if (command == EffectCommand::Init) {
        note("init-" + label);
        if (row.part != noPart && world.missingPicture == row.part)
            throw DynamicError("picture-" + label + ".jpg");
        play(row.part, loading);
        EXPECT_EQ(pixels, nullptr);
    }
    if (command == EffectCommand::Release)
        note("release-" + label);
    if (command != EffectCommand::Render)
        return;
    const bool dirty = depthBuffer[512 * 384 - 1] != 0.0F;
    depthBuffer[512 * 384 - 1] = 1.0F;
    world.frames += (world.frames.empty() ? "" : " ") + label + (dirty ? "!" : "");
    world.times.push_back(time);
    play(row.part, world.renders[row.part]++);
    if (row.part == scrollerPart && world.renders[scrollerPart] == 3) // it rolls for three frames
        endScrollDone = 1;
}

template <std::size_t index>
void fakeEffect(FrameInfo, EffectCommand command, Pixel32* pixels, float time) {
    fakeScene(sceneTable().at(index), command, pixels, time);
}

// The demo's own table, its scenes replaced.
template <std::size_t... indices>
SceneTable fakeTable(std::index_sequence<indices...>) {
    const std::array<Effect, sizeof...(indices)> fakes{fakeEffect<indices>...};
    SceneTable table = sceneTable();
    for (std::size_t i = 0; i < table.size(); ++i)
        table[i].effect = fakes.at(i);
    return table;
}

bool call(const std::string& name) {
    note(name);
    return world.failing.count(name) == 0 && world.failing.count(name + " " + std::to_string(world.tune)) == 0;
}

} // namespace

int runProgramAgain(std::string* output) {
    FakeWorld fresh;
    fresh.script = world.script;
    fresh.failing = world.failing;
    fresh.missingPicture = world.missingPicture;
    world = fresh;
    testing::internal::CaptureStdout();
    const int status = enterProgram(fakeTable(std::make_index_sequence<40>()));
    const std::string printed = testing::internal::GetCapturedStdout();
    if (output != nullptr)
        *output = printed;
    return status;
}

int runProgram(const std::vector<Event>& script, std::string* output) {
    world = {};
    world.script = script;
    return runProgramAgain(output);
}

} // namespace test

using test::call;
using test::note;

namespace ptc {

struct Console::Screen {
    std::vector<Pixel32> pixels = std::vector<Pixel32>(512 * 384);
};

Console::Console() : screen(std::make_unique<Screen>()) {
    note("console+");
}
Console::~Console() {
    note("console-");
}
bool Console::option(const char* text) {
    note(std::string("\"") + text + "\"");
    return true;
}
void Console::open(const char* title, std::int32_t width, std::int32_t height, const Format&, std::int32_t pages) {
    note(std::string("open:") + title + ":" + std::to_string(width) + "x" + std::to_string(height) + ":" +
         std::to_string(pages));
}
bool Console::key() {
    return world.key;
}
void Console::load(const Pixel32* pixels) {
    screen->pixels.assign(pixels, pixels + screen->pixels.size());
}
void Console::update() {
    if (world.tune == 0) {
        note("show");
        world.pictures.push_back(screen->pixels);
    }
    world.counter += 20;
}
void Console::clear() {
    note("clear");
}
void Console::close() {
    note("close");
}
void report(const DynamicError& error) {
    note("report:" + std::string(error.what()));
}

} // namespace ptc

std::int64_t counterFrequency() {
    return 1000;
}
std::int64_t readCounter() {
    return world.counter;
}
void idle() {
    test::play(test::waitingLoop, world.renders[test::waitingLoop]++);
    ++world.counter;
}

struct MIDASmoduleData {};
namespace {
MIDASmoduleData module;
}

// clang-format off
bool MIDASstartup() { ++world.tune; return call("MIDASstartup"); }
bool MIDASsetOption(std::int32_t option, std::uint32_t value) { return call("MIDASsetOption(" + std::to_string(option) + "," + std::to_string(value) + ")"); }
bool MIDASinit() { return call("MIDASinit"); }
bool MIDASstartBackgroundPlay(std::uint32_t rate) { EXPECT_EQ(rate, 100U); return call("MIDASstartBackgroundPlay"); }
bool MIDASopenChannels(std::int32_t count) { EXPECT_EQ(count, 32); return call("MIDASopenChannels"); }
MIDASmodule MIDASloadModule(const char* fileName) { note(fileName); return call("MIDASloadModule") ? &module : nullptr; }
MIDASmodulePlayHandle MIDASplayModule(MIDASmodule, bool loop) { EXPECT_TRUE(loop); return call("MIDASplayModule") ? 7U : 0U; }
bool MIDASsetMusicSyncCallback(MIDASmodulePlayHandle handle, MIDASsyncCallback callback) {
    EXPECT_EQ(handle, 7U);
    return call(callback != nullptr ? "MIDASsetMusicSyncCallback" : "MIDASsetMusicSyncCallback(null)");
}
bool MIDASstopModule(MIDASmodulePlayHandle handle) { EXPECT_EQ(handle, 7U); return call("MIDASstopModule"); }
bool MIDASfreeModule(MIDASmodule) { return call("MIDASfreeModule"); }
bool MIDASstopBackgroundPlay() { return call("MIDASstopBackgroundPlay"); }
bool MIDASclose() { return call("MIDASclose"); }
std::int32_t MIDASgetLastError() { return 42; }
const char* MIDASgetErrorMessage(std::int32_t error) { return error == 42 ? "the cause" : "?"; }
// clang-format on

} // namespace lumenfold
