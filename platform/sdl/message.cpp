#include "platform/sdl/message.h"

#include <SDL.h>

#include <cstdlib>
#include <unistd.h>

namespace lumenfold {

void showMessage(const std::string& text) {
    const char* const wish = std::getenv("LUMENFOLD_MESSAGE_BOX");
    const bool screen = std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr;
    if (isatty(STDERR_FILENO) != 0 || !screen || (wish != nullptr && std::string(wish) == "0"))
        return;
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "lumenfold", text.c_str(), nullptr);
}

} // namespace lumenfold
