// The tune loader with its sync table, and the first second of sound.

#include "platform/player/module_player.h"

#include <array>
#include <cstddef>
#include <stdexcept>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t frames = lumenfold::soundRate / 60;
    std::array<float, frames * 2> samples;
    lumenfold::SyncCommand command;
    try {
        lumenfold::ModulePlayer player({data, data + size}, "input");
        for (int frame = 0; frame < 60; ++frame) {
            player.render(samples.data(), frames);
            while (player.takeSync(player.position(), command)) {
            }
        }
    } catch (const std::runtime_error&) {
        return 0; // not a tune
    }
    return 0;
}
