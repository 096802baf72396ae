#include "driver/midas.h"

#include "platform/player/sound_output.h"

#include <memory>
#include <stdexcept>
#include <string>

namespace lumenfold {

struct MIDASmoduleData {
    explicit MIDASmoduleData(const char* fileName) : player(fileName) {}
    ModulePlayer player;
};

namespace {

struct {
    bool open = false;
    bool running = false;
    std::unique_ptr<MIDASmoduleData> module;
    MIDASmodulePlayHandle playing = 0;
    MIDASmodulePlayHandle lastHandle = 0;
    std::int32_t lastError = 0;
    std::string lastMessage = "no error";
} state;

bool fail(const std::string& message) {
    state.lastError = 1;
    state.lastMessage = message;
    return false;
}

bool require(bool condition, const char* message) {
    return condition || fail(message);
}

bool isPlaying(MIDASmodulePlayHandle handle) {
    return require(handle != 0 && handle == state.playing, "this module is not playing");
}

void shutDown() {
    if (state.playing != 0)
        soundOutput().stop();
    state.playing = 0;
    soundOutput().setSyncCallback(nullptr);
    state.module.reset();
    if (state.open)
        soundOutput().close();
    state.open = false;
    state.running = false;
}

} // namespace

bool MIDASstartup() {
    shutDown(); // what a failed run in the same process may have left
    state.lastError = 0;
    state.lastMessage = "no error";
    return true;
}

// The options set buffer sizes that this layer chooses by itself.
bool MIDASsetOption(std::int32_t, std::uint32_t) {
    return true;
}

bool MIDASinit() {
    try {
        soundOutput().open();
    } catch (const std::runtime_error& error) {
        return fail(error.what());
    }
    state.open = true;
    return true;
}

bool MIDASstartBackgroundPlay(std::uint32_t) {
    if (!require(state.open, "the sound device is not open"))
        return false;
    soundOutput().run();
    state.running = true;
    return true;
}

bool MIDASopenChannels(std::int32_t count) {
    return require(state.open && count > 0, "the sound device is not open");
}

MIDASmodule MIDASloadModule(const char* fileName) {
    try {
        state.module = std::make_unique<MIDASmoduleData>(fileName);
    } catch (const std::runtime_error& error) {
        fail(error.what());
        return nullptr;
    }
    return state.module.get();
}

MIDASmodulePlayHandle MIDASplayModule(MIDASmodule module, bool) {
    if (!require(state.running && module != nullptr && module == state.module.get(), "there is no module to play"))
        return 0;
    soundOutput().start(module->player);
    state.playing = ++state.lastHandle;
    return state.playing;
}

bool MIDASsetMusicSyncCallback(MIDASmodulePlayHandle handle, MIDASsyncCallback callback) {
    if (callback != nullptr && !isPlaying(handle))
        return false;
    soundOutput().setSyncCallback(callback);
    return true;
}

bool MIDASstopModule(MIDASmodulePlayHandle handle) {
    if (!isPlaying(handle))
        return false;
    soundOutput().stop();
    soundOutput().setSyncCallback(nullptr);
    state.playing = 0;
    return true;
}

bool MIDASfreeModule(MIDASmodule module) {
    if (!require(module != nullptr && module == state.module.get() && state.playing == 0,
                 "this module is still playing"))
        return false;
    state.module.reset();
    return true;
}

bool MIDASstopBackgroundPlay() {
    if (!require(state.running, "the music is not running"))
        return false;
    soundOutput().pause();
    state.running = false;
    return true;
}

bool MIDASclose() {
    shutDown();
    return true;
}

std::int32_t MIDASgetLastError() {
    return state.lastError;
}

const char* MIDASgetErrorMessage(std::int32_t error) {
    return error == 0 ? "no error" : state.lastMessage.c_str();
}

} // namespace lumenfold
