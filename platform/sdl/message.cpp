#include "platform/sdl/message.h"

#include <SDL.h>

#include <csignal>
#include <cstdlib>
#ifndef _WIN32
#include <unistd.h>
#endif

namespace lumenfold {

namespace {

// Where standard error is a terminal, the text is read there.
bool boxWanted() {
    const char* const wish = std::getenv("LUMENFOLD_MESSAGE_BOX");
    if (wish != nullptr && std::string(wish) == "0")
        return false;
#ifdef _WIN32
    return true;
#else
    const bool screen = std::getenv("DISPLAY") != nullptr || std::getenv("WAYLAND_DISPLAY") != nullptr;
    return screen && isatty(STDERR_FILENO) == 0;
#endif
}

} // namespace

void showMessage(const std::string& text) {
    if (!boxWanted())
        return;
    for (const int number : {
             SIGINT,
             SIGTERM,
#ifdef SIGHUP
             SIGHUP,
#endif
         }) // the box does not look at what the demo heeds
        std::signal(number, SIG_DFL);
    SDL_ShowSimpleMessageBox(SDL_MESSAGEBOX_ERROR, "lumenfold", text.c_str(), nullptr);
}

} // namespace lumenfold
