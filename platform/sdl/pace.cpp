#include "platform/sdl/pace.h"

#include "platform/player/module_player.h"

#include <SDL.h>

namespace lumenfold {

void Pace::wait(std::size_t frames) {
    const std::uint64_t frequency = SDL_GetPerformanceFrequency();
    const std::uint64_t now = SDL_GetPerformanceCounter();
    if (now < due)
        SDL_Delay(static_cast<Uint32>((due - now) * 1000 / frequency + 1));
    const bool paused = now > due + frequency;
    due = (paused ? now : due) + frames * frequency / soundRate;
}

} // namespace lumenfold
