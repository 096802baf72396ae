#include "tests/window/virtual_screen.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace lumenfold::test {

namespace {

pid_t start(const std::vector<std::string>& words, int output) {
    const pid_t child = fork();
    if (child != 0)
        return child;
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDIN_FILENO);
    dup2(output >= 0 ? output : nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

void end(pid_t child) {
    if (child <= 0)
        return;
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
}

} // namespace

std::string outputOf(const std::string& command, int* status) {
    std::FILE* pipe = popen(command.c_str(), "r");
    std::string text;
    char piece[65536];
    for (std::size_t size = 0; (size = std::fread(piece, 1, sizeof piece, pipe)) > 0;)
        text.append(piece, size);
    const int ended = pclose(pipe);
    if (status != nullptr)
        *status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
    return text;
}

VirtualScreen::VirtualScreen() {
    setenv("LUMENFOLD_MESSAGE_BOX", "0", 1); // nobody is there to close one
    for (const char* tool : {"Xvfb", "xdotool", "import", "openbox"})
        if (outputOf(std::string("command -v ") + tool).empty()) {
            reason = std::string(tool) + " is not installed";
            return;
        }
    int ends[2];
    if (pipe(ends) != 0) {
        reason = "no pipe";
        return;
    }
    fcntl(ends[0], F_SETFD, FD_CLOEXEC);
    // without -noreset the server starts over when its last client leaves, and refuses who comes just then
    server =
        start({"Xvfb", "-displayfd", "1", "-noreset", "-screen", "0", "1600x1200x24", "-nolisten", "tcp"}, ends[1]);
    close(ends[1]);
    char number[16] = {};
    std::size_t length = 0;
    while (length + 1 < sizeof number && read(ends[0], number + length, 1) == 1 && number[length] != '\n')
        ++length;
    close(ends[0]);
    number[length] = 0;
    if (length == 0)
        reason = "Xvfb does not start";
    setenv("DISPLAY", (std::string(":") + number).c_str(), 1);
    unsetenv("WAYLAND_DISPLAY");
    setenv("SDL_VIDEODRIVER", "x11", 1);
    setenv("SDL_AUDIODRIVER", "dummy", 1);
}

VirtualScreen::~VirtualScreen() {
    end(manager);
    end(server);
}

void VirtualScreen::manageWindows() {
    manager = start({"openbox"}, -1);
    std::this_thread::sleep_for(std::chrono::seconds(1));
}

void VirtualScreen::perform(const std::string& words) {
    int status = 0;
    outputOf("xdotool " + words, &status);
    if (status != 0)
        throw std::runtime_error("xdotool " + words + " failed");
}

std::vector<Pixel32> VirtualScreen::photograph() {
    const std::string picture = outputOf("import -window root -depth 8 rgb:-");
    const std::size_t pixels = picture.size() / 3;
    if (pixels != std::size_t{width} * height)
        throw std::runtime_error("no photograph");
    std::vector<Pixel32> screen(pixels);
    for (std::size_t i = 0; i < pixels; ++i)
        for (std::size_t byte = 0; byte < 3; ++byte)
            screen[i] = screen[i] << 8 | static_cast<std::uint8_t>(picture[i * 3 + byte]);
    return screen;
}

} // namespace lumenfold::test
