#include "driver/music.h"

#include "driver/midas.h"

#include <cstdio>

namespace lumenfold {

namespace {

MIDASmodule module = nullptr;
MIDASmodulePlayHandle playHandle = 0;

const char* lastMessage() {
    return MIDASgetErrorMessage(MIDASgetLastError());
}

[[noreturn]] void failMusic() {
    std::printf("\nMIDAS error: %s\n", lastMessage());
    if (!MIDASclose())
        std::printf("\nBIG PANIC! MIDASclose Failed: %s\n", lastMessage());
    std::fflush(stdout);
    throw MusicFailure{1};
}

void require(bool succeeded) {
    if (!succeeded)
        failMusic();
}

[[noreturn]] void failSync(ptc::Console& console) {
    std::printf("No torvquil!\n");
    std::fflush(stdout);
    console.close();
    throw DynamicError("Midas my ass!, somethings smelly..");
}

} // namespace

void startMusic(const char* fileName, ptc::Console& console) {
    MIDASstartup();
    MIDASsetOption(3, 150);
    MIDASsetOption(4, 4);
    require(MIDASinit());
    require(MIDASstartBackgroundPlay(100));
    require(MIDASopenChannels(32));
    module = MIDASloadModule(fileName);
    require(module != nullptr);
    playHandle = MIDASplayModule(module, true);
    require(playHandle != 0);
    if (!MIDASsetMusicSyncCallback(playHandle, musicSyncCallback))
        failSync(console);
}

void stopMusic() {
    if (playHandle != 0) {
        require(MIDASstopModule(playHandle));
        if (!MIDASfreeModule(module)) // a module that stays behind must at least report nothing any more
            require(MIDASsetMusicSyncCallback(playHandle, nullptr));
    }
    require(MIDASstopBackgroundPlay());
    require(MIDASclose());
}

void switchMusic(const char* fileName, ptc::Console& console) {
    stopMusic();
    startMusic(fileName, console);
}

} // namespace lumenfold
