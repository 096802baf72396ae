#include "platform/sdl/playback.h"

#include <algorithm>

namespace lumenfold {

void Playback::run(bool on) {
    const std::lock_guard lock(guard);
    running = on;
}

void Playback::start(ModulePlayer& tune) {
    const std::lock_guard lock(guard);
    player = &tune;
}

void Playback::stop() {
    const std::lock_guard lock(guard);
    player = nullptr;
}

void Playback::setSyncCallback(MIDASsyncCallback newCallback) {
    const std::lock_guard lock(guard);
    callback = newCallback;
}

void Playback::fill(float* samples, std::size_t frames, std::int64_t latency) {
    const std::lock_guard lock(guard);
    if (!running || player == nullptr) {
        std::fill_n(samples, frames * 2, 0.0F);
        return;
    }
    const std::int64_t heard = player->position() - latency;
    SyncCommand command;
    while (callback != nullptr && player->takeSync(heard, command))
        callback(command.value, command.order, command.row);
    player->render(samples, frames);
}

} // namespace lumenfold
