#include "platform/sdl/message.h"

#include <SDL.h>

#include <csignal>
#include <cstdlib>
#include <unistd.h>

namespace lumenfold {

void showMessage(const std::string& text) {
    const char* const wish = std::getenv("LUMENFOLD_MESSAGE_BOX");
    const bool screen = std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr;
    if (isatty(STDERR_FILENO) != 0 || !screen || (wish != nullptr && std::string(wish) == "0"))
        return;
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) // the box does not look at what the demo heeds
        std::signal(number, SIG_DFL);
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "lumenfold", text.c_str(), nullptr);
}

} // namespace lumenfold
