#pragma once

#include "core/pixel.h"

#include <string>
#include <sys/types.h>
#include <vector>

namespace lumenfold::test {

// A screen of 1600 x 1200 pixels that exists in memory only, for windows that nobody sees.
class VirtualScreen {
  public:
    static constexpr int width = 1600;
    static constexpr int height = 1200;

    VirtualScreen();
    ~VirtualScreen();
    VirtualScreen(const VirtualScreen&) = delete;
    VirtualScreen& operator=(const VirtualScreen&) = delete;

    // Why there is none; empty if there is.
    const std::string& missing() const { return reason; }

    // Types keys, moves windows: the words of an xdotool command.
    static void perform(const std::string& words);

    // Starts the window manager; it ends with the screen.
    void manageWindows();

    // What is to be seen, row-major.
    static std::vector<Pixel32> photograph();

  private:
    pid_t server = -1;
    pid_t manager = -1;
    std::string reason;
};

// What a command prints, and its exit status.
std::string outputOf(const std::string& command, int* status = nullptr);

} // namespace lumenfold::test
